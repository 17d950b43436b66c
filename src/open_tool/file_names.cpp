#include "open_tool/file_names.h"

#include "platform/path_marks.h"

#include <algorithm>
#include <array>
#include <climits>
#include <unistd.h>

namespace tandrel::open_tool
{

namespace
{

constexpr std::string_view kLocal = "file:";

/// The value of a hexadecimal digit, -1 for any other character.
int digit(char one)
{
    if (one >= '0' && one <= '9')
        return one - '0';
    const char small = static_cast<char>(one | 0x20);
    return small >= 'a' && small <= 'f' ? small - 'a' + 10 : -1;
}

std::string withoutPercents(std::string_view text)
{
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const int high = text[i] == '%' && i + 2 < text.size() ? digit(text[i + 1]) : -1;
        const int low = high >= 0 ? digit(text[i + 2]) : -1;
        if (low >= 0) {
            result += static_cast<char>(high * 16 + low);
            i += 2;
        } else {
            result += text[i];
        }
    }
    return result;
}

std::string hostName()
{
    std::array<char, HOST_NAME_MAX + 1> name{};
    return ::gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

bool isThisMachine(std::string_view host) { return host.empty() || host == "localhost" || host == hostName(); }

std::optional<std::string> pathOfAddress(std::string_view address)
{
    std::string_view path = address.substr(kLocal.size());
    if (path.starts_with("//")) {
        const auto end = std::min(path.find('/', 2), path.size());
        if (!isThisMachine(path.substr(2, end - 2)))
            return std::nullopt;
        path.remove_prefix(end);
    }
    std::string decoded = withoutPercents(path);
    const bool whole = decoded.starts_with('/') && decoded.find('\0') == std::string::npos;
    return whole ? std::optional(decoded) : std::nullopt;
}

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
        path = pathOfAddress(name);
    else if (!isAddress(name))
        path = absolute(name, folder);
    return path && unmarkPath(markPath(*path)) == *path ? path : std::nullopt;
}

} // namespace tandrel::open_tool
