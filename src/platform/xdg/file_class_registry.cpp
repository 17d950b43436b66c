#include "platform/xdg/file_class_registry.h"

#include "platform/valid_text.h"
#include "platform/xdg/atomic_file.h"
#include "platform/xdg/mime_apps.h"
#include "platform/xdg/programs.h"

#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <utility>

namespace tandrel
{

namespace fs = std::filesystem;

namespace
{

constexpr std::string_view kOpenCommand = "\\shell\\Open\\command";
constexpr std::string_view kDiscArrival = "\\EventHandlers\\PlayDVDMovieOnArrival";

std::string capitals(std::string_view text)
{
    std::string result(text);
    for (char& one : result)
        one = one >= 'a' && one <= 'z' ? static_cast<char>(one - 'a' + 'A') : one;
    return result;
}

/// What stands behind the last dot, in capitals.
std::string endingIn(std::string_view name) { return capitals(name.substr(name.rfind('.') + 1)); }

bool isThere(const std::string& path)
{
    struct stat facts {
    };
    return ::lstat(path.c_str(), &facts) == 0;
}

/// True if the file was written now; false if it is right already, or can't be written.
bool bringTo(const std::string& path, const std::string& content)
{
    const auto old = readFile(path);
    if (old ? *old == content : isThere(path))
        return false;
    std::error_code problem;
    fs::create_directories(fs::path(path).parent_path(), problem);
    return !problem && replaceFile(path, content);
}

/// The program in its folder where it is there and can be named in an entry, which holds text; else its bare name.
std::string programIn(const std::string& folder, const char* name)
{
    std::string path = folder + "/" + name;
    return isProgram(path) && validText(path) == path ? path : name;
}

/// Runs a program of the desktop until its end, without a word. Whether it is there doesn't matter.
void runQuietly(const char* program, const std::string& argument)
{
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        posix_spawn_file_actions_addopen(&files, stream, "/dev/null", O_RDWR, 0);
    posix_spawnattr_t manner;
    posix_spawnattr_init(&manner);
    // Signals that this process takes in another way would never reach the child.
    sigset_t none;
    sigemptyset(&none);
    posix_spawnattr_setsigmask(&manner, &none);
    posix_spawnattr_setflags(&manner, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETPGROUP);
    std::string name = program;
    std::string folder = argument;
    char* words[]{name.data(), folder.data(), nullptr};
    pid_t child = 0;
    if (::posix_spawnp(&child, program, &files, &manner, words, environ) == 0)
        ::waitpid(child, nullptr, 0);
    posix_spawnattr_destroy(&manner);
    posix_spawn_file_actions_destroy(&files);
}

void writeAssociations(const std::string& path, const FileClasses& classes)
{
    const auto old = readFile(path);
    if (!old && isThere(path))
        return;
    MimeApps apps(old.value_or(""));
    const auto associate = [&](const std::string& type, std::string_view entry) {
        // Who has taken the program from a type's menu doesn't want it back with every start.
        if (!apps.lists(MimeApps::kRemoved, type, entry))
            apps.append(MimeApps::kAdded, type, entry);
    };
    for (const std::string& type : mimeTypesOf(classes.opened))
        associate(type, kPlayerEntry);
    if (classes.discs)
        associate(std::string(kDiscType), kDiscEntry);
    for (const std::string& type : mimeTypesOf(classes.preferred))
        apps.lead(MimeApps::kDefault, type, kPlayerEntry);
    bringTo(path, apps.text());
}

} // namespace

void FileClassRegistry::set(std::int32_t root, std::string_view key, std::string_view name, std::string_view)
{
    if (root == kMachine && key.ends_with(kDiscArrival))
        classes_.discs = true;
    if (root != kClasses || !name.empty())
        return;
    if (key.ends_with(kOpenCommand))
        classes_.opened.push_back(endingIn(key.substr(0, key.size() - kOpenCommand.size())));
    else if (key.starts_with('.'))
        classes_.preferred.push_back(endingIn(key));
}

void FileClassRegistry::settle()
{
    const FileClasses all = std::exchange(classes_, {});
    if (all == FileClasses())
        return;
    try {
        std::thread([places = places_, all] {
            try {
                putFileClasses(places, all);
            } catch (const std::exception&) {
                // Out of memory, say: the next start does it again.
            }
        }).detach();
    } catch (const std::system_error&) {
        // Without a thread to spare it isn't done, which is no reason to keep the user waiting.
    }
}

void putFileClasses(const FileClassPlaces& places, const FileClasses& classes)
{
    const EntryPrograms programs{programIn(places.program, "tandrel-open"),
                                 programIn(places.program, "tandrel-player")};
    const std::string entries = places.share + "/applications";
    bool entriesChanged = bringTo(entries + "/" + std::string(kPlayerEntry), playerEntry(classes, programs));
    if (classes.discs)
        entriesChanged |= bringTo(entries + "/" + std::string(kDiscEntry), discEntry(programs));
    bringTo(places.share + "/icons/hicolor/scalable/apps/tandrel-player.svg", places.icon);
    const bool typesChanged = bringTo(places.share + "/mime/packages/tandrel-player.xml", mimePackage(classes));
    writeAssociations(places.config + "/mimeapps.list", classes);
    if (typesChanged)
        runQuietly("update-mime-database", places.share + "/mime");
    if (entriesChanged)
        runQuietly("update-desktop-database", entries);
}

} // namespace tandrel
