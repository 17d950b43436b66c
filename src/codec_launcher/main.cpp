// RunDLL32.exe MODULE,ENTRY: opens a dialog that a module brings, as the same process where the module is a program.

#include "module.h"

#include <cstdio>
#include <string>

int main(int argc, char** argv)
{
    // The first word alone counts: a path with blanks has to stand in quotes.
    const std::string text = argc > 1 ? argv[1] : "";
    if (const auto call = tandrel::parseCall(text))
        return tandrel::runModule(*call);
    std::fputs("RunDLL32.exe MODULE,ENTRY: no file of that name, or no entry behind a comma\n", stderr);
    return 1;
}
