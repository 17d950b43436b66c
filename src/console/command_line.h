/// What the program was started with.
#pragma once

#include "toolkit/text.h"

#include <vector>

namespace tandrel
{

/// The command text: empty, "DVD", or one path in double quotes, which is an alias as it stands. Empty also where
/// several paths were given: these are in `group`.
struct CommandLine {
    Text text;
    std::vector<Text> group;
    bool empty() const { return text.empty() && group.empty(); }
    bool isDvd() const { return text == "DVD"; }
    bool isPath() const { return !text.empty() && !isDvd(); }
};

const CommandLine& commandLine();

/// `arguments` are those of the process, without its name. Each is one path; it is made absolute against `folder` and
/// its marks are mapped. The word DVD alone is the text "DVD".
CommandLine parseCommandLine(const std::vector<Text>& arguments, const Text& folder);

/// Set once, before the first form loads.
void setCommandLine(CommandLine line);

/// What a start prints that asks for nothing but that: for the argument "--help" or "--version" alone. Empty for any
/// other start; among paths both are names of files, as is "./--help" alone.
Text selfDescription(const std::vector<Text>& arguments);

/// True for a Matroska or HD file, by the end of its path (capitals or not).
bool isHdPath(const Text& path);
/// It plays in the window for discs: an image (".iso"), or a folder `VIDEO_TS` or one that holds such a folder.
bool isDiscPath(const Text& path);

} // namespace tandrel
