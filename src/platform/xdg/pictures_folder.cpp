#include "platform/xdg/pictures_folder.h"

#include "platform/xdg/atomic_file.h"

#include <string_view>

namespace tandrel
{

namespace
{

constexpr std::string_view kName = "XDG_PICTURES_DIR=\"";
constexpr std::string_view kHome = "$HOME";

/// What stands between the quotes, without the backslashes of a shell.
std::string unquoted(std::string_view text)
{
    std::string value;
    for (std::size_t at = 0; at < text.size() && text[at] != '"'; ++at) {
        if (text[at] == '\\' && at + 1 < text.size())
            ++at;
        value += text[at];
    }
    return value;
}

/// Only absolute paths and those that begin with $HOME count. The home itself stands for none.
std::string pathIn(const std::string& value, const std::string& home)
{
    std::string path = value;
    if (value == kHome || value.starts_with(std::string(kHome) + "/"))
        path = home + value.substr(kHome.size());
    while (path.size() > 1 && path.ends_with('/'))
        path.pop_back();
    return path.starts_with('/') && path != home ? path : "";
}

} // namespace

std::string picturesFolder(const std::string& config, const std::string& home)
{
    std::string found;
    for (const std::string& line : splitLines(readFile(config + "/user-dirs.dirs").value_or(""))) {
        const std::size_t begin = line.find_first_not_of(" \t");
        if (begin != std::string::npos && std::string_view(line).substr(begin).starts_with(kName))
            found = pathIn(unquoted(std::string_view(line).substr(begin + kName.size())), home);
    }
    return found.empty() ? home + "/Pictures" : found;
}

} // namespace tandrel
