#include "platform/xdg/system_facts.h"

#include <cstdlib>

namespace tandrel
{

std::string XdgSystemFacts::version() const
{
    const char* standIn = std::getenv("TANDREL_SYSTEM");
    return standIn ? standIn : "linux";
}

} // namespace tandrel
