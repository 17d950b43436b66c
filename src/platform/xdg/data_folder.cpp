#include "platform/xdg/data_folder.h"

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace tandrel
{

namespace fs = std::filesystem;

namespace
{

std::string environment(const char* name)
{
    const char* value = std::getenv(name);
    return value ? value : "";
}

/// An XDG base folder; only absolute values count, as its rules say.
std::string baseFolder(const char* name, const char* standard)
{
    const std::string value = environment(name);
    return value.starts_with('/') ? value : environment("HOME") + standard;
}

std::string made(const std::string& folder)
{
    std::error_code ignored;
    fs::create_directories(folder, ignored);
    return folder;
}

std::string withoutClosingSeparator(std::string folder)
{
    while (folder.size() > 1 && folder.ends_with('/'))
        folder.pop_back();
    return folder;
}

bool isOwnFolder(const std::string& folder)
{
    struct stat facts {
    };
    return ::lstat(folder.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode) && facts.st_uid == getuid();
}

bool isPortable(const std::string& programFolder)
{
    std::error_code ignored;
    return fs::exists(programFolder + "/portable", ignored);
}

/// The folder that holds everything, or empty where the user's folders do.
std::string ownFolder(const std::string& programFolder)
{
    if (const std::string home = environment("TANDREL_HOME"); !home.empty())
        return withoutClosingSeparator(home);
    return isPortable(programFolder) ? programFolder : "";
}

/// A short name for a long path (FNV-1a, 64 bits).
std::string shortName(const std::string& path)
{
    std::uint64_t hash = 14695981039346656037ULL;
    for (const char byte : path) {
        hash ^= static_cast<unsigned char>(byte);
        hash *= 1099511628211ULL;
    }
    return std::to_string(hash);
}

} // namespace

std::string dataFolder(const std::string& programFolder)
{
    if (const std::string home = environment("TANDREL_HOME"); !home.empty())
        return made(withoutClosingSeparator(home));
    if (isPortable(programFolder))
        return programFolder;
    return made(baseFolder("XDG_DATA_HOME", "/.local/share") + "/tandrel-player");
}

std::string settingsFile()
{
    if (const std::string home = environment("TANDREL_HOME"); !home.empty())
        return withoutClosingSeparator(home) + "/MsShareStuff.ini";
    return made(baseFolder("XDG_CONFIG_HOME", "/.config")) + "/MsShareStuff.ini";
}

std::string keyFileName()
{
    const std::string home = withoutClosingSeparator(environment("TANDREL_HOME"));
    return (home.empty() ? baseFolder("XDG_CONFIG_HOME", "/.config") + "/tandrel-player" : home) + "/keys.ini";
}

DesktopFolders desktopFolders(const std::string& programFolder)
{
    const std::string own = ownFolder(programFolder);
    if (!own.empty())
        return {own + "/share", own + "/config"};
    return {baseFolder("XDG_DATA_HOME", "/.local/share"), baseFolder("XDG_CONFIG_HOME", "/.config")};
}

std::string stillsFolder(const std::string& programFolder)
{
    if (const std::string own = ownFolder(programFolder); !own.empty())
        return own + "/cache/stills";
    return baseFolder("XDG_CACHE_HOME", "/.cache") + "/tandrel-player/stills";
}

std::string runtimeFolder(const std::string& dataFolder)
{
    std::error_code ignored;
    const fs::path canonical = fs::weakly_canonical(dataFolder, ignored);
    const std::string name = "tandrel-player-" + shortName(canonical.empty() ? dataFolder : canonical.string());
    if (const std::string runtime = environment("XDG_RUNTIME_DIR"); fs::is_directory(runtime, ignored))
        return made(runtime + "/" + name);
    const std::string shared = made("/tmp/" + name + "-" + std::to_string(getuid()));
    // Somebody else's folder of that name would hide the processes from each other.
    return isOwnFolder(shared) ? shared : dataFolder;
}

} // namespace tandrel
