// RunDLL32.exe MODULE,ENTRY: opens a dialog that a module brings, as the same process where the module is a program.

#include "module.h"

#include <cstdio>
#include <string>
#include <string_view>

namespace
{

constexpr const char* kHelp = R"(Usage: RunDLL32.exe MODULE,ENTRY

Opens the dialog ENTRY that a module brings: a program, a library, or with wine a module for Windows.

  --help       shows this
  --version    shows the version
)";

/// For "--help" and "--version"; empty for anything else.
std::string_view selfDescription(std::string_view argument)
{
    if (argument == "--help")
        return kHelp;
    return argument == "--version" ? "RunDLL32.exe (Tandrel Player) " TANDREL_VERSION "\n" : "";
}

} // namespace

int main(int argc, char** argv)
{
    // The first word alone counts: a path with blanks has to stand in quotes.
    const std::string text = argc > 1 ? argv[1] : "";
    if (const auto description = selfDescription(text); !description.empty()) {
        std::fputs(description.data(), stdout);
        return 0;
    }
    if (const auto call = tandrel::parseCall(text))
        return tandrel::runModule(*call);
    std::fputs("RunDLL32.exe MODULE,ENTRY: no file of that name, or no entry behind a comma\n", stderr);
    return 1;
}
