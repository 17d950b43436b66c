// Replacing a file as a whole: what a failure on the way leaves, and what reaches the disk in which order.

#include "temporary_folder.h"

#include "platform/xdg/atomic_file.h"
#include "platform/xdg/files.h"
#include "platform/xdg/settings_file.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <functional>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

namespace fs = std::filesystem;

/// What is synced while a test watches: a file by its name, a folder by the names in it.
std::vector<std::string>* syncs = nullptr;
/// Whether syncs fail, of files and of folders.
bool filesFail = false;
bool foldersFail = false;

std::string namesIn(const fs::path& folder)
{
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder))
        names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    std::string all = "folder with";
    for (const std::string& name : names)
        all += " " + name;
    return all;
}

} // namespace

/// Stands in front of the system's own.
extern "C" int fsync(int fd)
{
    if (syncs != nullptr) {
        const fs::path opened = fs::read_symlink("/proc/self/fd/" + std::to_string(fd));
        const bool isFolder = fs::is_directory(opened);
        syncs->push_back(isFolder ? namesIn(opened) : opened.filename().string());
        if (isFolder ? foldersFail : filesFail) {
            errno = EIO;
            return -1;
        }
    }
    return static_cast<int>(::syscall(SYS_fsync, fd));
}

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

class PlatformAtomicFile : public ::testing::Test
{
protected:
    ~PlatformAtomicFile() override
    {
        syncs = nullptr;
        filesFail = foldersFail = false;
    }
    /// Where the new content of "a" is written until it is whole.
    std::string beside() const { return "a.new-" + std::to_string(getpid()); }
    mode_t permissions(const std::string& name) const
    {
        struct stat facts {
        };
        return ::stat(folder.path(name).c_str(), &facts) == 0 ? facts.st_mode & 07777 : 0;
    }
    void setPermissions(const std::string& name, mode_t mode) const { ::chmod(folder.path(name).c_str(), mode); }

    TemporaryFolder folder;
};

enum class Ending { True, False, Crash, Unprepared };

/// Does `task` in a process none of whose files can grow beyond `bytes`: a disk that is full from there on. With
/// `crashes` the process ends right there.
Ending onFullDisk(rlim_t bytes, bool crashes, const std::function<bool()>& task)
{
    const pid_t child = ::fork();
    if (child == 0) {
        const rlimit none{0, 0};
        const rlimit room{bytes, bytes};
        ::signal(SIGXFSZ, crashes ? SIG_DFL : SIG_IGN);
        if (::setrlimit(RLIMIT_CORE, &none) != 0 || ::setrlimit(RLIMIT_FSIZE, &room) != 0)
            ::_exit(2);
        ::_exit(task() ? 0 : 1);
    }
    int status = 0;
    if (child < 0 || ::waitpid(child, &status, 0) != child)
        return Ending::Unprepared;
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGXFSZ)
        return Ending::Crash;
    if (!WIFEXITED(status) || WEXITSTATUS(status) > 1)
        return Ending::Unprepared;
    return WEXITSTATUS(status) == 0 ? Ending::True : Ending::False;
}

const std::string kLong(100000, 'x');
constexpr rlim_t kLittle = 4096;

} // namespace

// The full disk.

TEST_F(PlatformAtomicFile, AFullDiskInTheMiddleLeavesTheOldFile)
{
    folder.write("a", "old");
    const auto replace = [this] { return replaceFile(folder.path("a"), kLong); };
    EXPECT_EQ(onFullDisk(kLittle, false, replace), Ending::False);
    EXPECT_EQ(folder.content("a"), "old");
    EXPECT_THAT(folder.names(), ElementsAre("a")) << "what was written goes";
    EXPECT_EQ(onFullDisk(kLong.size(), false, replace), Ending::True) << "there is just room enough";
    EXPECT_EQ(folder.content("a"), kLong);
    EXPECT_THAT(folder.names(), ElementsAre("a"));
}

TEST_F(PlatformAtomicFile, AFullDiskLeavesNoBeginningOfANewFile)
{
    EXPECT_EQ(onFullDisk(kLittle, false, [this] { return replaceFile(folder.path("a"), kLong); }), Ending::False);
    EXPECT_THAT(folder.names(), IsEmpty());
}

TEST_F(PlatformAtomicFile, AFullDiskLeavesTheOldLines)
{
    folder.write("a", "one\r\n");
    EXPECT_EQ(
        onFullDisk(kLittle, false, [this] { return XdgFiles(folder.path()).writeLines(folder.path("a"), {kLong}); }),
        Ending::False);
    EXPECT_EQ(folder.content("a"), "one\r\n");
    EXPECT_THAT(folder.names(), ElementsAre("a"));
}

TEST_F(PlatformAtomicFile, AFullDiskLeavesTheOldSettings)
{
    const std::string old = "; " + kLong + "\n[sys]\nslide=0\n";
    folder.write("s.ini", old);
    onFullDisk(kLittle, false, [this] {
        SettingsFile(folder.path("s.ini")).save("sys", "slide", "1");
        return true;
    });
    EXPECT_EQ(folder.content("s.ini"), old);
    EXPECT_THAT(folder.names(), ElementsAre("s.ini", "s.ini.lock"));
    SettingsFile(folder.path("s.ini")).save("sys", "slide", "1");
    EXPECT_EQ(SettingsFile(folder.path("s.ini")).get("sys", "slide"), "1") << "with room it is saved";
}

// The crash.

TEST_F(PlatformAtomicFile, ACrashInTheMiddleLeavesTheOldFile)
{
    folder.write("a", "old");
    EXPECT_EQ(onFullDisk(kLittle, true, [this] { return replaceFile(folder.path("a"), kLong); }), Ending::Crash);
    EXPECT_EQ(folder.content("a"), "old");
    EXPECT_EQ(folder.names().size(), 2U) << "the crash left the new one where it was";
}

TEST_F(PlatformAtomicFile, WhatACrashLeftBesideIsInNobodysWay)
{
    folder.write("other", "kept");
    fs::create_symlink(folder.path("other"), folder.path(beside()));
    EXPECT_TRUE(replaceFile(folder.path("a"), "new"));
    EXPECT_EQ(folder.content("a"), "new");
    EXPECT_EQ(folder.content("other"), "kept");
    EXPECT_THAT(folder.names(), ElementsAre("a", "other"));
}

TEST_F(PlatformAtomicFile, TheContentIsOnTheDiskBeforeTheNameAndTheNameBeforeTheReturn)
{
    folder.write("a", "old");
    std::vector<std::string> seen;
    syncs = &seen;
    EXPECT_TRUE(replaceFile(folder.path("a"), "new"));
    EXPECT_THAT(seen, ElementsAre(beside(), "folder with a"));
}

TEST_F(PlatformAtomicFile, ContentThatDoesNotReachTheDiskReplacesNothing)
{
    folder.write("a", "old");
    std::vector<std::string> seen;
    syncs = &seen;
    filesFail = true;
    EXPECT_FALSE(replaceFile(folder.path("a"), "new"));
    EXPECT_THAT(seen, ElementsAre(beside()));
    EXPECT_EQ(folder.content("a"), "old");
    EXPECT_THAT(folder.names(), ElementsAre("a"));
}

TEST_F(PlatformAtomicFile, AFolderThatCantBeSyncedHoldsTheNewFileAllTheSame)
{
    folder.write("a", "old");
    std::vector<std::string> seen;
    syncs = &seen;
    foldersFail = true;
    EXPECT_TRUE(replaceFile(folder.path("a"), "new"));
    EXPECT_EQ(seen.size(), 2U);
    EXPECT_EQ(folder.content("a"), "new");
}

TEST_F(PlatformAtomicFile, AnEmptyContentIsAContent)
{
    folder.write("a", "old");
    EXPECT_TRUE(replaceFile(folder.path("a"), ""));
    EXPECT_EQ(folder.content("a"), "");
}

// Permissions and links.

TEST_F(PlatformAtomicFile, ThePermissionsOfTheOldFileStay)
{
    folder.write("a", "old");
    for (const mode_t mode : {0600U, 0640U, 0664U, 0444U}) {
        setPermissions("a", mode);
        EXPECT_TRUE(replaceFile(folder.path("a"), "new"));
        EXPECT_EQ(permissions("a"), mode) << std::oct << mode;
    }
}

TEST_F(PlatformAtomicFile, AFileThatIsNewIsReadByAllAsFarAsTheUserAllows)
{
    const mode_t before = ::umask(027);
    EXPECT_TRUE(replaceFile(folder.path("a"), "new"));
    ::umask(before);
    EXPECT_EQ(permissions("a"), 0640U);
}

TEST_F(PlatformAtomicFile, ALinkStaysALinkAndItsFileKeepsItsPermissions)
{
    fs::create_directory(folder.path("else"));
    folder.write("else/real", "old");
    setPermissions("else/real", 0600);
    fs::create_symlink("else/real", folder.path("a"));
    std::vector<std::string> seen;
    syncs = &seen;
    EXPECT_TRUE(replaceFile(folder.path("a"), "new"));
    EXPECT_TRUE(fs::is_symlink(folder.path("a")));
    EXPECT_EQ(folder.content("else/real"), "new");
    EXPECT_EQ(permissions("else/real"), 0600U);
    EXPECT_EQ(seen.back(), "folder with real") << "the folder of the file, not of the link";
}

} // namespace tandrel::test
