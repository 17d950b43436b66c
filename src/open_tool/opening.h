/// What `tandrel-open` does with its files.
#pragma once

#include "open_tool/console_calls.h"
#include "open_tool/file_names.h"

#include <functional>
#include <string>
#include <vector>

namespace tandrel::open_tool
{

/// Exit codes.
inline constexpr int kDone = 0;
inline constexpr int kSomeLeftOut = 1;
inline constexpr int kNoAnswer = 2;

/// Files that are handed over, and what the user has to know of the others.
struct Selection {
    /// Marked paths.
    std::vector<std::string> paths;
    std::vector<std::string> complaints;
    /// The only file is a disc: an image, or a folder `VIDEO_TS` or one that holds such a folder.
    bool disc = false;
};

/// The local files among those named that are there. Where a file system doesn't answer they count as being there.
Selection selectionOf(const std::vector<std::string>& names, const std::string& folder);

/// Those that a running player takes stay; the others get a complaint.
Selection onlyHandedOver(Selection selection);

/// Everything that an opening needs.
struct Surroundings {
    std::string runtimeFolder;
    std::string programFolder;
    std::string workingFolder;
    /// Takes a line for the user.
    std::function<void(const std::string& line)> tell;
};

/// Hands the files to the running player, or becomes one. Asks `services()` for the data files. Returns the exit code.
int openFiles(const Arguments& arguments, const ConsoleCalls& calls, const Surroundings& around);

} // namespace tandrel::open_tool
