// tandrel-open: hands files to the running player, or starts one with them.

#include "open_tool/opening.h"
#include "platform/xdg/data_folder.h"
#include "platform/xdg/files.h"

#include <cstdio>
#include <filesystem>

namespace
{

using namespace tandrel;

constexpr const char* kHelp = R"(Usage: tandrel-open [--] [FILE...]
       tandrel-open DVD

Hands files to the player that is running, and brings it to the front; where none runs, one is started with them.
Files are paths or file: addresses. Without a file the player is brought to the front, or started. DVD plays the disc
in the drive.

  --help       shows this
  --version    shows the version

Ends with 0 where all was handed over, 1 where something was left out, and 2 where the player didn't answer.
)";

void tell(const std::string& line) { std::fprintf(stderr, "tandrel-open: %s\n", line.c_str()); }

std::string programFolder()
{
    std::error_code ignored;
    return std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path().string();
}

int openFiles(const open_tool::Arguments& arguments)
{
    const open_tool::ConsoleCalls calls;
    if (!calls.isConnected()) {
        tell("there is no display to show anything on");
        return open_tool::kSomeLeftOut;
    }
    const std::string data = dataFolder(programFolder());
    XdgFiles files(data);
    Services all;
    all.files = &files;
    installServices(all);
    std::error_code ignored;
    return open_tool::openFiles(
        arguments, calls,
        {runtimeFolder(data), programFolder(), std::filesystem::current_path(ignored).string(), &tell});
}

} // namespace

int main(int argc, char** argv)
{
    const auto arguments = tandrel::open_tool::parseArguments({argv + 1, argv + argc});
    if (!arguments.fault.empty()) {
        tell(arguments.fault);
        std::fputs(kHelp, stderr);
        return tandrel::open_tool::kSomeLeftOut;
    }
    if (arguments.help)
        std::fputs(kHelp, stdout);
    else if (arguments.version)
        std::puts("tandrel-open " TANDREL_VERSION);
    else
        return openFiles(arguments);
    return tandrel::open_tool::kDone;
}
