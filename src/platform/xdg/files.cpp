#include "platform/xdg/files.h"

#include "platform/path_marks.h"
#include "platform/xdg/atomic_file.h"

#include <sys/stat.h>
#include <unistd.h>

namespace tandrel
{

namespace
{

/// No name of a file holds a NUL; the system would take what stands in front of it for the name.
bool canBeName(const std::string& path) { return !path.empty() && path.find('\0') == std::string::npos; }

} // namespace

std::string XdgFiles::dir(const std::string& path) const
{
    struct stat facts {
    };
    if (!canBeName(path) || ::stat(unmarkPath(path).c_str(), &facts) != 0 || S_ISDIR(facts.st_mode))
        return {};
    return path.substr(path.rfind('/') + 1);
}

std::optional<std::vector<std::string>> XdgFiles::readLines(const std::string& path) const
{
    const auto content = readFile(unmarkPath(path));
    if (!content)
        return std::nullopt;
    return splitLines(*content);
}

bool XdgFiles::writeLines(const std::string& path, const std::vector<std::string>& lines)
{
    std::string content;
    for (const std::string& line : lines)
        content += line + "\r\n";
    return replaceFile(unmarkPath(path), content);
}

bool XdgFiles::remove(const std::string& path)
{
    const std::string real = unmarkPath(path);
    return ::unlink(real.c_str()) == 0 || ::access(real.c_str(), F_OK) != 0;
}

} // namespace tandrel
