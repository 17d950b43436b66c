#include "platform/mpv/media_path.h"

#include "platform/path_marks.h"

#include <filesystem>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace tandrel
{

namespace
{
std::string absolutePath(const std::string& path)
{
    std::error_code problem;
    const auto absolute = std::filesystem::absolute(path, problem);
    return problem ? path : absolute.string();
}

std::optional<mode_t> modeOf(const std::string& path)
{
    struct stat facts = {};
    if (stat(path.c_str(), &facts) != 0)
        return {};
    return facts.st_mode;
}
} // namespace

MediaPath findMedia(const std::string& markedPath)
{
    MediaPath result;
    result.absolute = absolutePath(unmarkPath(markedPath));
    auto mode = modeOf(result.absolute);
    if (!mode) {
        // The stand-ins of the marks may be characters of the real name.
        result.absolute = absolutePath(markedPath);
        mode = modeOf(result.absolute);
    }
    if (!mode)
        result.failure = OpenFailure::NoFile;
    else if (!S_ISREG(*mode) || access(result.absolute.c_str(), R_OK) != 0)
        result.failure = OpenFailure::NotPlayable;
    return result;
}

} // namespace tandrel
