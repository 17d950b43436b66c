/// What the arguments of `tandrel-open` name.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tandrel::open_tool
{

struct Arguments {
    bool help = false;
    bool version = false;
    /// The word DVD alone: the disc in the drive.
    bool disc = false;
    /// What was wrong with them; empty where nothing was.
    std::string fault;
    std::vector<std::string> files;
};

/// Without the program's own name. Behind `--` everything is a file.
Arguments parseArguments(const std::vector<std::string>& given);

/// The absolute path of a local file, from a path or a `file:` address, byte for byte; relative ones count from
/// `folder`. Nothing for other addresses, and for names that the program can't tell from others (platform/path_marks).
std::optional<std::string> localPath(std::string_view name, const std::string& folder);

} // namespace tandrel::open_tool
