#include "console/command_line.h"

#include "platform/path_marks.h"
#include "platform/services.h"

#include <algorithm>

namespace tandrel
{

namespace
{
CommandLine line;

constexpr const char* kHelp = R"(Usage: tandrel-player [FILE...]
       tandrel-player DVD

Shows the files, each in a window of its own, or plays the disc in the drive. A disc can also be an image (.iso) or a
folder VIDEO_TS that is named as a file.

  --help       shows this; a file of that name is ./--help
  --version    shows the version
)";

/// One path has one name: a "./" in front says nothing.
Text absolutePath(Text argument, const Text& folder)
{
    if (argument.front() == kSeparator)
        return argument;
    while (argument.starts_with("./"))
        argument.erase(0, std::min(argument.find_first_not_of(kSeparator, 1), argument.size()));
    if (argument.empty())
        return folder;
    return folder + (folder.ends_with(kSeparator) ? "" : "/") + argument;
}

} // namespace

const CommandLine& commandLine() { return line; }

void setCommandLine(CommandLine given) { line = std::move(given); }

CommandLine parseCommandLine(const std::vector<Text>& arguments, const Text& folder)
{
    CommandLine result;
    if (arguments.size() == 1 && arguments.front() == "DVD") {
        result.text = "DVD";
        return result;
    }
    std::vector<Text> paths;
    for (const Text& argument : arguments)
        if (!argument.empty())
            paths.push_back(markPath(absolutePath(argument, folder)));
    if (paths.size() == 1)
        result.text = quoted(paths.front());
    else
        result.group = std::move(paths);
    return result;
}

Text selfDescription(const std::vector<Text>& arguments)
{
    if (arguments == std::vector<Text>{"--help"})
        return kHelp;
    if (arguments == std::vector<Text>{"--version"})
        return "tandrel-player " TANDREL_VERSION "\n";
    return "";
}

bool isHdPath(const Text& path)
{
    const Text capitals = upper(path);
    return capitals.ends_with(".HDMOV") || capitals.ends_with(".MKV");
}

bool isDiscPath(const Text& path)
{
    Text folder = path;
    while (folder.size() > 1 && folder.back() == kSeparator)
        folder.pop_back();
    if (upper(folder).ends_with(".ISO") || upper(fileNameOf(folder)) == "VIDEO_TS")
        return true;
    // Discs are mounted with names of either case.
    const auto holds = [&](const char* table) { return !services().files->dir(folder + table).empty(); };
    return holds("/VIDEO_TS/VIDEO_TS.IFO") || holds("/video_ts/video_ts.ifo");
}

} // namespace tandrel
