#include "toolkit/file_list_box.h"

#include "toolkit/types.h"

#include <algorithm>

namespace tandrel
{

GroupBox::GroupBox(Form& form, Text name, TwipsRect place, Text caption)
    : Control(form, std::move(name), place), caption_(std::move(caption))
{
}

void GroupBox::setCaption(Text caption)
{
    caption_ = std::move(caption);
    notify(Aspect::Caption);
}

FileListBox::FileListBox(Form& form, Text name, TwipsRect place, Control* container)
    : Control(form, std::move(name), place, container)
{
}

const FileListBox::Row& FileListBox::row(Long index) const
{
    if (index < 0 || index >= ListCount())
        throw RuntimeError(error::kInvalidCall, "Invalid procedure call or argument");
    return rows_[static_cast<std::size_t>(std::int64_t{index})];
}

FileListBox::Row& FileListBox::row(Long index)
{
    return const_cast<Row&>(static_cast<const FileListBox&>(*this).row(index));
}

void FileListBox::AddItem(Text entry, Long index)
{
    if (index < 0 || index > ListCount())
        throw RuntimeError(error::kInvalidCall, "Invalid procedure call or argument");
    rows_.insert(rows_.begin() + std::int64_t{index}, Row{std::move(entry), false, {}});
    if (listIndex_ >= index)
        listIndex_ += 1;
    notify(Aspect::Caption);
}

void FileListBox::Clear()
{
    rows_.clear();
    listIndex_ = -1;
    notify(Aspect::Caption);
}

std::vector<Text> FileListBox::entries() const
{
    std::vector<Text> all;
    for (const Row& row : rows_)
        all.push_back(row.text);
    return all;
}

void FileListBox::setSelected(Long index, bool on)
{
    row(index).selected = on;
    notify(Aspect::Value);
}

void FileListBox::setTile(Long index, ListTile tile)
{
    row(index).tile = std::move(tile);
    notify(Aspect::Picture);
}

void FileListBox::setListIndex(Long index)
{
    if (index != -1)
        row(index);
    listIndex_ = index;
    notify(Aspect::Value);
}

Text FileListBox::text() const { return listIndex_ < 0 ? Text() : row(listIndex_).text; }

void FileListBox::userSelected(const std::vector<std::size_t>& selected, Long focus)
{
    for (std::size_t index = 0; index < rows_.size(); ++index)
        rows_[index].selected = std::find(selected.begin(), selected.end(), index) != selected.end();
    listIndex_ = focus;
}

} // namespace tandrel
