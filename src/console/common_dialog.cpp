#include "console/common_dialog.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

namespace tandrel
{

namespace
{

constexpr std::size_t kRoom = 1024;
constexpr char kNul = '\0';
constexpr char kBar = '|';
constexpr std::size_t kNulsBehind = 2;

Text emptyBuffer() { return Text(kRoom, kNul); }

Text withoutNuls(Text text)
{
    std::erase(text, kNul);
    return text;
}

Text upToNul(const Text& text) { return text.substr(0, text.find(kNul)); }

std::vector<Text> patternsOf(const Text& list)
{
    std::vector<Text> patterns;
    for (const Text& piece : split(list, ';')) {
        const Text pattern = trim(piece);
        // By old habit this one means names without a dot as well.
        if (!pattern.empty())
            patterns.push_back(pattern == "*.*" ? "*" : pattern);
    }
    return patterns;
}

std::vector<FileDialog::Filter> filtersOf(const Text& text)
{
    std::vector<FileDialog::Filter> filters;
    const std::vector<Text> pieces = split(text, kBar);
    for (std::size_t at = 0; at + 1 < pieces.size(); at += 2)
        if (auto patterns = patternsOf(pieces[at + 1]); !patterns.empty())
            filters.push_back({pieces[at], std::move(patterns)});
    return filters;
}

/// What is no file, such as an address of the web or a folder, has no place in a selection.
bool namesAFile(const Text& path) { return path.starts_with(kSeparator) && !path.ends_with(kSeparator); }

/// The deepest folder that all paths lie below, with its closing separator.
Text commonFolder(const std::vector<Text>& paths)
{
    Text folder = folderOf(paths.front()) + kSeparator;
    const auto holdsAll = [&] {
        return std::all_of(paths.begin(), paths.end(), [&](const Text& path) { return path.starts_with(folder); });
    };
    while (!holdsAll())
        folder = folderOf(std::string_view(folder).substr(0, folder.size() - 1)) + kSeparator;
    return folder;
}

/// The folder and the names below it, with a NUL between each.
Text selectionOf(const std::vector<Text>& paths)
{
    if (paths.size() == 1)
        return paths.front();
    const Text folder = commonFolder(paths);
    Text selection = folder.size() == 1 ? folder : folder.substr(0, folder.size() - 1);
    for (const Text& path : paths)
        selection += kNul + path.substr(folder.size());
    return selection;
}

} // namespace

CommonDialog::CommonDialog(std::int32_t flags) : Flags_(flags), lpstrFile_(emptyBuffer()) {}

Text CommonDialog::takeFileName()
{
    Text taken = std::exchange(lpstrFile_, emptyBuffer());
    std::replace(taken.begin(), taken.end(), kNul, kBar);
    return taken + kBar + kBar;
}

void CommonDialog::setFileName(const Text& value) { lpstrFile_ = value + kNul; }

void CommonDialog::setFilter(Text text)
{
    std::replace(text.begin(), text.end(), kBar, kNul);
    lpstrFilter_ = std::move(text) + kNul + kNul;
}

Text CommonDialog::filter() const
{
    Text text = lpstrFilter_.substr(0, lpstrFilter_.find_last_not_of(kNul) + 1);
    std::replace(text.begin(), text.end(), kNul, kBar);
    return text;
}

Text CommonDialog::dialogTitle() const { return withoutNuls(lpstrTitle_); }

void CommonDialog::setInitDir(Text path) { lpstrInitialDir_ = std::move(path) + kNul; }

Text CommonDialog::initDir() const { return withoutNuls(lpstrInitialDir_); }

void CommonDialog::setDefaultExt(Text text)
{
    std::erase(text, '.');
    lpstrDefExt_ = std::move(text);
}

FileDialog CommonDialog::request(FileDialog::Kind kind) const
{
    FileDialog dialog;
    dialog.kind = kind;
    dialog.title = dialogTitle();
    dialog.folder = initDir();
    if (kind == FileDialog::Kind::Folder)
        return dialog;
    dialog.filters = filtersOf(filter());
    dialog.name = upToNul(lpstrFile_);
    dialog.extension = defaultExt();
    dialog.several = kind == FileDialog::Kind::Open && (Flags_ & OFN_ALLOWMULTISELECT) != 0;
    return dialog;
}

void CommonDialog::keep(const std::vector<Text>& chosen)
{
    std::vector<Text> files;
    std::copy_if(chosen.begin(), chosen.end(), std::back_inserter(files), namesAFile);
    if (files.empty())
        return;
    if ((Flags_ & OFN_ALLOWMULTISELECT) == 0)
        files.resize(1);
    lpstrFile_ = selectionOf(files);
    lpstrFile_.resize(std::max(kRoom, lpstrFile_.size() + kNulsBehind), kNul);
}

void CommonDialog::ShowOpen() { keep(backend().chooseFiles(request(FileDialog::Kind::Open))); }

void CommonDialog::ShowSave() { keep(backend().chooseFiles(request(FileDialog::Kind::Save))); }

Text CommonDialog::GetFolderName()
{
    const std::vector<Text> chosen = backend().chooseFiles(request(FileDialog::Kind::Folder));
    const bool isPath = !chosen.empty() && chosen.front().starts_with(kSeparator);
    return isPath ? upToNul(chosen.front()) : Text();
}

} // namespace tandrel
