#include "persist/recent_files.h"

#include "platform/services.h"

#include <algorithm>
#include <optional>

namespace tandrel::recent
{

namespace
{

/// Between the old lines while they are one text. No path holds it (platform/path_marks.h).
constexpr char kJoin = '|';

Text listFile() { return services().files->dataFolder() + kSeparator + "last.dat"; }

bool exists() { return !services().files->dir(listFile()).empty(); }

/// Empty too where the file is missing; nothing where it is there and can't be read.
std::optional<std::vector<Text>> oldLines()
{
    if (!exists())
        return std::vector<Text>();
    return services().files->readLines(listFile());
}

bool holds(const std::vector<Text>& entries, const Text& path)
{
    return std::find(entries.begin(), entries.end(), path) != entries.end();
}

/// The elements of the old list. Behind the last line stands one more, which is empty: so the list grows by an empty
/// line at each update until its lines are used up.
std::vector<Text> oldElements(const std::vector<Text>& lines)
{
    if (lines.empty())
        return {};
    Text joined;
    for (const Text& line : lines)
        joined += line + kJoin;
    return split(joined, kJoin);
}

} // namespace

void update(const std::vector<Text>& newEntries)
{
    const auto old = oldLines();
    // What can't be read is not ours to replace.
    if (newEntries.empty() || !old)
        return;
    std::vector<Text> lines = newEntries;
    for (const Text& element : oldElements(*old)) {
        // Asked before a line is added, so a list may have one line more than are ever shown.
        if (lines.size() > kMostListed)
            break;
        if (!holds(newEntries, element))
            lines.push_back(element);
    }
    services().files->writeLines(listFile(), lines);
}

std::vector<Text> lines()
{
    std::vector<Text> filled;
    for (Text& line : oldLines().value_or(std::vector<Text>()))
        if (!trim(line).empty())
            filled.push_back(std::move(line));
    return filled;
}

bool remove() { return !exists() || services().files->remove(listFile()); }

} // namespace tandrel::recent
