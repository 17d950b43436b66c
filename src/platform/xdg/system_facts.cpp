#include "platform/xdg/system_facts.h"

#include <cstdlib>
#include <filesystem>

namespace tandrel
{

std::string XdgSystemFacts::version() const
{
    const char* standIn = std::getenv("TANDREL_SYSTEM");
    return standIn ? standIn : "linux";
}

std::string XdgSystemFacts::systemFolder() const
{
    std::error_code ignored;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", ignored);
    return (program.parent_path().parent_path() / "lib" / "tandrel-player").string();
}

std::string XdgSystemFacts::environment(const std::string& name) const
{
    const char* value = std::getenv(name.c_str());
    return value ? value : "";
}

} // namespace tandrel
