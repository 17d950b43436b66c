#include "platform/xdg/settings_file.h"

#include "platform/xdg/atomic_file.h"
#include "platform/xdg/turn.h"

#include <fcntl.h>
#include <unistd.h>
#include <vector>

namespace tandrel
{

namespace
{

bool isSection(std::string_view line) { return line.starts_with('[') && line.ends_with(']'); }

/// Where a key stands: its line, or where a new line for it goes.
struct Place {
    std::size_t line;
    bool found;
    bool sectionFound;
};

Place find(const std::vector<std::string>& lines, std::string_view section, std::string_view key)
{
    const std::string start = std::string(key) + "=";
    const std::string head = "[" + std::string(section) + "]";
    bool inside = false;
    bool seen = false;
    std::size_t insert = lines.size();
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (isSection(lines[i])) {
            inside = lines[i] == head;
            seen = seen || inside;
        } else if (inside && lines[i].starts_with(start)) {
            return {i, true, true};
        }
        if (inside)
            insert = i + 1;
    }
    return {insert, false, seen};
}

/// The lock lies beside the file: the folder is shared with others, who may hold it for purposes of their own.
int openLockOf(const std::string& path)
{
    return ::open((path + ".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
}

/// A value is one line.
std::string oneLine(std::string_view value) { return std::string(value.substr(0, value.find_first_of("\r\n"))); }

} // namespace

std::string SettingsFile::get(std::string_view section, std::string_view key) const
{
    const auto lines = splitLines(readFile(path_).value_or(""));
    const Place place = find(lines, section, key);
    return place.found ? lines[place.line].substr(key.size() + 1) : std::string();
}

void SettingsFile::save(std::string_view section, std::string_view key, std::string_view value)
{
    // A value that another process saves between the reading and the writing would be lost. The file itself can't be
    // the lock, as each save replaces it.
    const Turn turn(openLockOf(path_));
    const auto content = readFile(path_);
    // What can't be read is not ours to replace.
    if (!content && ::access(path_.c_str(), F_OK) == 0)
        return;
    auto lines = splitLines(content.value_or(""));
    const Place place = find(lines, section, key);
    const std::string line = std::string(key) + "=" + oneLine(value);
    const auto at = lines.begin() + static_cast<std::ptrdiff_t>(place.line);
    if (place.found)
        lines[place.line] = line;
    else if (place.sectionFound)
        lines.insert(at, line);
    else
        lines.insert(lines.end(), {"[" + std::string(section) + "]", line});
    std::string text;
    for (const std::string& one : lines)
        text += one + "\n";
    replaceFile(path_, text);
}

} // namespace tandrel
