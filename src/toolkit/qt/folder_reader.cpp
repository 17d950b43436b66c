#include "toolkit/qt/folder_reader.h"

#include "toolkit/qt/file_names.h"

#include <QCollator>
#include <QLocale>

#include <algorithm>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <sys/stat.h>

namespace tandrel
{

namespace
{

struct DirectoryCloser {
    void operator()(DIR* directory) const { ::closedir(directory); }
};

std::optional<FileEntry> entryOf(int directory, const char* name)
{
    struct stat facts {
    };
    if (::fstatat(directory, name, &facts, 0) != 0 || !(S_ISDIR(facts.st_mode) || S_ISREG(facts.st_mode)))
        return std::nullopt;
    FileEntry entry;
    entry.name = name;
    entry.shown = shownName(entry.name);
    entry.isFolder = S_ISDIR(facts.st_mode);
    entry.size = facts.st_size;
    entry.modified = facts.st_mtim.tv_sec;
    return entry;
}

void rankNames(std::vector<FileEntry>& entries)
{
    // Where the system has no language, names would stand in the order of their bytes.
    const QLocale system;
    QCollator order(system.language() == QLocale::C ? QLocale(QLocale::English) : system);
    order.setNumericMode(true);
    order.setCaseSensitivity(Qt::CaseInsensitive);
    std::vector<std::pair<QCollatorSortKey, FileEntry*>> keys;
    keys.reserve(entries.size());
    for (FileEntry& entry : entries)
        keys.emplace_back(order.sortKey(entry.shown), &entry);
    std::sort(keys.begin(), keys.end(), [](const auto& a, const auto& b) {
        const int compared = a.first.compare(b.first);
        return compared != 0 ? compared < 0 : a.second->name < b.second->name;
    });
    int rank = 0;
    for (const auto& [key, entry] : keys)
        entry->rank = rank++;
}

} // namespace

FolderContent readFolder(const QByteArray& folder)
{
    FolderContent content{folder, false, {}};
    const std::unique_ptr<DIR, DirectoryCloser> directory(::opendir(folder.constData()));
    if (!directory)
        return content;
    content.readable = true;
    while (const dirent* found = ::readdir(directory.get())) {
        const QByteArray name(static_cast<const char*>(found->d_name));
        if (name == "." || name == "..")
            continue;
        if (auto entry = entryOf(::dirfd(directory.get()), name.constData()))
            content.entries.push_back(std::move(*entry));
    }
    rankNames(content.entries);
    return content;
}

void FolderReader::read(const QByteArray& folder, std::function<void(const FolderContent&)> done)
{
    errand_.run([folder, done = std::move(done)] {
        const auto content = std::make_shared<FolderContent>(readFolder(folder));
        return [content, done] { done(*content); };
    });
}

} // namespace tandrel
