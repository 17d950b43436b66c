#include "platform/xdg/programs.h"

#include <sys/stat.h>
#include <unistd.h>

namespace tandrel
{

bool isProgram(const std::string& path)
{
    struct stat facts {
    };
    return ::stat(path.c_str(), &facts) == 0 && S_ISREG(facts.st_mode) && ::access(path.c_str(), X_OK) == 0;
}

} // namespace tandrel
