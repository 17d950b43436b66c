#include "open_tool/file_names.h"

#include "platform/file_address.h"
#include "platform/path_marks.h"

#include <algorithm>

namespace tandrel::open_tool
{

namespace
{

constexpr std::string_view kLocal = "file:";

/// "http://", "smb://": letters, digits and a few marks, then "://".
bool isAddress(std::string_view name)
{
    const auto end = name.find("://");
    return end != std::string_view::npos && end > 0 && std::all_of(name.begin(), name.begin() + end, [](char one) {
               return (one >= 'a' && one <= 'z') || (one >= 'A' && one <= 'Z') || (one >= '0' && one <= '9') ||
                      one == '+' || one == '-' || one == '.';
           });
}

std::string absolute(std::string_view path, const std::string& folder)
{
    if (path.starts_with('/'))
        return std::string(path);
    // One file has one name: a "./" in front says nothing.
    while (path.starts_with("./"))
        path.remove_prefix(std::min(path.find_first_not_of('/', 1), path.size()));
    return folder + (folder.ends_with('/') ? "" : "/") + std::string(path);
}

} // namespace

Arguments parseArguments(const std::vector<std::string>& given)
{
    Arguments result;
    bool onlyFiles = false;
    for (const std::string& one : given) {
        if (!onlyFiles && one == "--")
            onlyFiles = true;
        else if (!onlyFiles && (one == "--help" || one == "-h"))
            result.help = true;
        else if (!onlyFiles && one == "--version")
            result.version = true;
        else if (!onlyFiles && one.starts_with('-') && one.size() > 1)
            result.fault = "unknown option " + one;
        else if (!one.empty())
            result.files.push_back(one);
    }
    if (!onlyFiles && result.files == std::vector<std::string>{"DVD"}) {
        result.disc = true;
        result.files.clear();
    }
    return result;
}

std::optional<std::string> localPath(std::string_view name, const std::string& folder)
{
    std::optional<std::string> path;
    if (name.starts_with(kLocal))
        path = pathOfFileAddress(name);
    else if (!isAddress(name))
        path = absolute(name, folder);
    return path && unmarkPath(markPath(*path)) == *path ? path : std::nullopt;
}

} // namespace tandrel::open_tool
