/// A frame around controls, and the list of files in it.
#pragma once

#include "toolkit/control.h"

#include <cstdint>
#include <vector>

namespace tandrel
{

/// A frame with a caption, which other controls lie in.
class GroupBox : public Control
{
public:
    GroupBox(Form& form, Text name, TwipsRect place, Text caption = {});

    Text caption() const { return caption_; }
    void setCaption(Text caption);
    Property<GroupBox, Text, &GroupBox::caption, &GroupBox::setCaption> Caption{*this};

private:
    Text caption_;
};

/// What is seen beside the text of an entry.
struct ListTile {
    /// The small picture, 0xRRGGBB row by row; empty where there is none.
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;
    /// "1:02:03".
    Text note;
};

/// A list of paths, of which several can be selected. One entry has the focus: it is the one that `ListIndex` and
/// `Text` name, and need not be selected. A click selects one alone, with the control key one more or less, with the
/// shift key all from the last one on. An index outside the list raises run-time error 5.
class FileListBox : public Control
{
public:
    FileListBox(Form& form, Text name, TwipsRect place, Control* container = nullptr);

    Long ListCount() const { return static_cast<std::int64_t>(rows_.size()); }
    void AddItem(Text entry) { AddItem(std::move(entry), ListCount()); }
    /// In front of the entry that has the index now.
    void AddItem(Text entry, Long index);
    void Clear();
    Text List(Long index) const { return row(index).text; }
    std::vector<Text> entries() const;
    bool Selected(Long index) const { return row(index).selected; }
    void setSelected(Long index, bool on);
    const ListTile& tile(Long index) const { return row(index).tile; }
    void setTile(Long index, ListTile tile);

    Long listIndex() const { return listIndex_; }
    /// -1: none. The selection stays as it is.
    void setListIndex(Long index);
    Property<FileListBox, Long, &FileListBox::listIndex, &FileListBox::setListIndex> ListIndex{*this};
    /// The entry with the focus, empty where there is none.
    Text text() const;

    /// What stands in its place while there is no entry.
    Text emptyText;
    /// The colour of its ground that is asked for, 0xRRGGBB; the skin has the last word.
    Long BackColor = 0;

    /// The user has selected these entries, and left the focus on one.
    void userSelected(const std::vector<std::size_t>& selected, Long focus);

private:
    struct Row {
        Text text;
        bool selected = false;
        ListTile tile;
    };
    Row& row(Long index);
    const Row& row(Long index) const;

    std::vector<Row> rows_;
    Long listIndex_ = -1;
};

} // namespace tandrel
