/// Writing a small file as a whole.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tandrel
{

/// Written beside, synced and renamed, so that a crash or a full disk leaves the old file; the permissions stay. False
/// if that failed.
bool replaceFile(const std::string& name, const std::string& content);

/// The bytes of a regular file, or nothing where it can't be read or is longer than 4 MiB: that is none of our files.
std::optional<std::string> readFile(const std::string& path);

/// The lines of a text without their ends (CR LF, LF, or none behind the last).
std::vector<std::string> splitLines(std::string_view text);

} // namespace tandrel
