#include "platform/xdg/key_file.h"

#include "platform/xdg/atomic_file.h"

#include <filesystem>

namespace tandrel
{

KeyFile::Content XdgKeyFile::read() const
{
    std::error_code trouble;
    const auto status = std::filesystem::symlink_status(path_, trouble);
    if (status.type() == std::filesystem::file_type::not_found)
        return {State::Missing, {}};
    // Before it is read: it may be of any length.
    const auto bytes = std::filesystem::file_size(path_, trouble);
    if (!trouble && bytes > kMostBytes)
        return {State::TooLong, {}};
    auto text = readFile(path_);
    if (!text)
        return {State::Unreadable, {}};
    return {State::There, std::move(*text)};
}

void XdgKeyFile::leave(const std::string& text)
{
    // A link that leads nowhere is somebody's wish too.
    std::error_code trouble;
    if (std::filesystem::symlink_status(path_, trouble).type() != std::filesystem::file_type::not_found)
        return;
    std::filesystem::create_directories(std::filesystem::path(path_).parent_path(), trouble);
    replaceFile(path_, text);
}

} // namespace tandrel
