// Files, settings, folders and locks on this system, in a folder of the test's own.

#include "persist/data_files.h"
#include "platform/path_marks.h"
#include "platform/xdg/atomic_file.h"
#include "platform/xdg/clock.h"
#include "platform/xdg/data_folder.h"
#include "platform/xdg/files.h"
#include "platform/xdg/instances.h"
#include "platform/xdg/settings_file.h"
#include "platform/xdg/system_facts.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Optional;
using ::testing::StartsWith;

namespace fs = std::filesystem;

namespace
{

/// Sets or (with null) takes away a variable of the environment, until the end of the object.
class Variable
{
public:
    Variable(const char* name, const char* value) : name_(name)
    {
        if (const char* before = std::getenv(name))
            before_ = before;
        value ? ::setenv(name, value, 1) : ::unsetenv(name);
    }
    ~Variable() { before_ ? ::setenv(name_, before_->c_str(), 1) : ::unsetenv(name_); }
    Variable(const Variable&) = delete;

private:
    const char* name_;
    std::optional<std::string> before_;
};

class PlatformFiles : public ::testing::Test
{
protected:
    PlatformFiles()
    {
        std::string pattern = ::testing::TempDir() + "tandrel-XXXXXX";
        folder = ::mkdtemp(pattern.data());
    }
    ~PlatformFiles() override { fs::remove_all(folder); }
    std::string path(const std::string& name) const { return folder + "/" + name; }
    void write(const std::string& name, const std::string& content) const
    {
        std::ofstream(path(name), std::ios::binary) << content;
    }
    int locks() const
    {
        const auto all = names();
        return static_cast<int>(
            std::count_if(all.begin(), all.end(), [](const auto& name) { return name.ends_with(".lock"); }));
    }
    std::string content(const std::string& name) const
    {
        std::ostringstream all;
        all << std::ifstream(path(name), std::ios::binary).rdbuf();
        return all.str();
    }
    std::vector<std::string> names() const
    {
        std::vector<std::string> result;
        for (const auto& entry : fs::directory_iterator(folder))
            result.push_back(entry.path().filename());
        std::sort(result.begin(), result.end());
        return result;
    }
    std::string folder;
    XdgFiles files{"/data"};
};

} // namespace

// Lines.

TEST_F(PlatformFiles, LinesEndInCrLfInLfOrNotAtAll)
{
    write("a", "one\r\ntwo\n\r\nlast");
    EXPECT_THAT(files.readLines(path("a")), Optional(ElementsAre("one", "two", "", "last")));
    write("a", "one\r\n");
    EXPECT_THAT(files.readLines(path("a")), Optional(ElementsAre("one")));
    write("a", "one\rtwo");
    EXPECT_THAT(files.readLines(path("a")), Optional(ElementsAre("one\rtwo"))) << "a CR alone ends no line";
}

TEST_F(PlatformFiles, AnEmptyFileHasNoLines)
{
    write("a", "");
    EXPECT_THAT(files.readLines(path("a")), Optional(IsEmpty()));
}

TEST_F(PlatformFiles, BinaryContentIsReadByteByByte)
{
    const std::string bytes("\x00\xFF\n\x00\x80", 5);
    write("a", bytes);
    EXPECT_THAT(files.readLines(path("a")),
                Optional(ElementsAre(std::string("\x00\xFF", 2), std::string("\x00\x80", 2))));
}

TEST_F(PlatformFiles, TenThousandLinesComeBackAsTheyWereWritten)
{
    std::vector<std::string> lines;
    for (int line = 0; line < 10000; ++line)
        lines.push_back("\"/films/" + std::to_string(line) + ".avi\"");
    EXPECT_TRUE(files.writeLines(path("a"), lines));
    EXPECT_THAT(files.readLines(path("a")), Optional(lines));
}

TEST_F(PlatformFiles, WhatIsNoFileCantBeReadAndDoesNotBlock)
{
    ASSERT_EQ(::mkfifo(path("fifo").c_str(), 0600), 0);
    EXPECT_EQ(files.readLines(path("fifo")), std::nullopt);
    EXPECT_EQ(files.readLines(folder), std::nullopt);
    EXPECT_EQ(files.readLines(path("missing")), std::nullopt);
    EXPECT_EQ(files.readLines(""), std::nullopt);
}

TEST_F(PlatformFiles, LinesAreWrittenWithCrLf)
{
    EXPECT_TRUE(files.writeLines(path("a"), {"one", "", "two"}));
    EXPECT_EQ(content("a"), "one\r\n\r\ntwo\r\n");
    EXPECT_TRUE(files.writeLines(path("a"), {}));
    EXPECT_EQ(content("a"), "");
}

TEST_F(PlatformFiles, AWriteReplacesTheFileAndLeavesNothingBeside)
{
    write("a", "old and much longer than the new");
    EXPECT_TRUE(files.writeLines(path("a"), {"new"}));
    EXPECT_EQ(content("a"), "new\r\n");
    EXPECT_THAT(names(), ElementsAre("a"));
}

TEST_F(PlatformFiles, AFailedWriteLeavesTheOldFile)
{
    fs::create_directory(path("taken"));
    write("taken/inside", "kept");
    EXPECT_FALSE(replaceFile(path("taken"), "new")) << "a folder can't be replaced by a file";
    EXPECT_EQ(content("taken/inside"), "kept");
    EXPECT_THAT(names(), ElementsAre("taken")) << "nothing is left beside";
    EXPECT_FALSE(replaceFile(path("missing/a"), "new"));
}

TEST_F(PlatformFiles, DirGivesTheBareNameOfWhatIsNoFolder)
{
    write("a.avi", "");
    EXPECT_EQ(files.dir(path("a.avi")), "a.avi");
    EXPECT_EQ(files.dir(path("b.avi")), "");
    EXPECT_EQ(files.dir(folder), "");
    EXPECT_EQ(files.dir(""), "");
    fs::create_symlink(path("nowhere"), path("dangling"));
    EXPECT_EQ(files.dir(path("dangling")), "");
}

TEST_F(PlatformFiles, NamesWithMarksAreFoundByTheirMappedPath)
{
    write("a\"b|c\r\n.avi", "x\n");
    const std::string mapped = markPath(path("a\"b|c\r\n.avi"));
    EXPECT_EQ(files.dir(mapped), markPath("a\"b|c\r\n.avi"));
    EXPECT_THAT(files.readLines(mapped), Optional(ElementsAre("x")));
    EXPECT_TRUE(files.writeLines(mapped, {"y"}));
    EXPECT_EQ(content("a\"b|c\r\n.avi"), "y\r\n");
    EXPECT_TRUE(files.remove(mapped));
    EXPECT_THAT(names(), IsEmpty());
}

TEST_F(PlatformFiles, RemoveIsTrueWhenTheFileIsGone)
{
    write("a", "");
    EXPECT_TRUE(files.remove(path("a")));
    EXPECT_TRUE(files.remove(path("a")));
    fs::create_directory(path("folder"));
    EXPECT_FALSE(files.remove(path("folder")));
}

// Marks.

TEST_F(PlatformFiles, MarksBecomePrivateCodePointsAndComeBack)
{
    EXPECT_EQ(markPath("\""), "\xEF\x80\xA2");
    EXPECT_EQ(markPath("|"), "\xEF\x81\xBC");
    EXPECT_EQ(markPath("\r"), "\xEF\x80\x8D");
    EXPECT_EQ(markPath("\n"), "\xEF\x80\x8A");
    for (const char* path : {"", "/films/a.avi", "\"", "||", "a\r\nb", "/%s/\xC3\xA9/\xFF\xEF\x80", "\xEF\x80"})
        EXPECT_EQ(unmarkPath(markPath(path)), path);
}

TEST_F(PlatformFiles, EveryOtherByteMarksToItself)
{
    for (int code = 1; code < 256; ++code) {
        const std::string byte(1, static_cast<char>(code));
        const bool mark = byte == "\"" || byte == "|" || byte == "\r" || byte == "\n";
        EXPECT_EQ(markPath(byte) == byte, !mark) << code;
        EXPECT_EQ(unmarkPath(byte), byte) << code;
        EXPECT_EQ(unmarkPath(markPath(byte)), byte) << code;
    }
}

// Settings.

TEST_F(PlatformFiles, ASettingIsKeptBySectionAndKey)
{
    SettingsFile settings(path("s.ini"));
    EXPECT_EQ(settings.get("sys", "slide"), "");
    settings.save("sys", "slide", "0");
    settings.save("day", "run", "202611");
    settings.save("sys", "top", "-30");
    EXPECT_EQ(content("s.ini"), "[sys]\nslide=0\ntop=-30\n[day]\nrun=202611\n");
    settings.save("sys", "slide", "1");
    EXPECT_EQ(settings.get("sys", "slide"), "1");
    EXPECT_EQ(settings.get("sys", "top"), "-30");
    EXPECT_EQ(settings.get("day", "slide"), "");
    EXPECT_EQ(settings.get("sys", "run"), "");
    EXPECT_EQ(content("s.ini"), "[sys]\nslide=1\ntop=-30\n[day]\nrun=202611\n");
}

TEST_F(PlatformFiles, ForeignLinesAreKept)
{
    write("s.ini", "; a note\nslide=9\n[other]\nslide=8\n\n[sys]\nslide=0\nsliders=7\n");
    SettingsFile settings(path("s.ini"));
    EXPECT_EQ(settings.get("sys", "slide"), "0");
    settings.save("sys", "slide", "1");
    settings.save("sys", "tips", "1");
    EXPECT_EQ(content("s.ini"), "; a note\nslide=9\n[other]\nslide=8\n\n[sys]\nslide=1\nsliders=7\ntips=1\n");
}

TEST_F(PlatformFiles, ProcessesSeeEachOthersSettings)
{
    SettingsFile one(path("s.ini"));
    SettingsFile other(path("s.ini"));
    one.save("sys", "top", "100");
    EXPECT_EQ(other.get("sys", "top"), "100");
    other.save("sys", "left", "200");
    one.save("sys", "top", "300");
    EXPECT_EQ(other.get("sys", "top"), "300");
    EXPECT_EQ(one.get("sys", "left"), "200");
}

TEST_F(PlatformFiles, AValueIsOneLineAndMayHoldAnything)
{
    SettingsFile settings(path("s.ini"));
    settings.save("sys", "a", "x=y [sys] \xC3\xA9 ");
    settings.save("sys", "b", "one\r\n[day]\nrun=999999");
    EXPECT_EQ(settings.get("sys", "a"), "x=y [sys] \xC3\xA9 ");
    EXPECT_EQ(settings.get("sys", "b"), "one");
    EXPECT_EQ(settings.get("day", "run"), "");
}

TEST_F(PlatformFiles, ASettingsFileThatCantBeWrittenIsIgnored)
{
    SettingsFile settings(path("missing/s.ini"));
    settings.save("sys", "a", "x");
    EXPECT_EQ(settings.get("sys", "a"), "");
    EXPECT_THAT(names(), IsEmpty());
}

TEST_F(PlatformFiles, ASettingsFileWithCrLfIsUnderstood)
{
    write("s.ini", "[sys]\r\nslide=0\r\n");
    EXPECT_EQ(SettingsFile(path("s.ini")).get("sys", "slide"), "0");
}

// Folders.

TEST_F(PlatformFiles, TheHomeOfTheProgramComesFirst)
{
    write("portable", "");
    const Variable home("TANDREL_HOME", path("home//").c_str());
    EXPECT_EQ(dataFolder(folder), path("home"));
    EXPECT_TRUE(fs::is_directory(path("home")));
    EXPECT_EQ(settingsFile(), path("home/MsShareStuff.ini"));
    EXPECT_EQ(keyFileName(), path("home/keys.ini"));
}

TEST_F(PlatformFiles, AProgramMarkedAsPortableKeepsItsDataBesideItself)
{
    const Variable home("TANDREL_HOME", nullptr);
    const Variable data("XDG_DATA_HOME", path("xdg").c_str());
    write("portable", "");
    EXPECT_EQ(dataFolder(folder), folder);
    fs::remove(path("portable"));
    EXPECT_EQ(dataFolder(folder), path("xdg/tandrel-player"));
    EXPECT_TRUE(fs::is_directory(path("xdg/tandrel-player")));
}

TEST_F(PlatformFiles, WithoutXdgFoldersTheStandardOnesAreUsed)
{
    const Variable own("TANDREL_HOME", "");
    const Variable home("HOME", folder.c_str());
    for (const char* value : {static_cast<const char*>(nullptr), "", "relative/path"}) {
        const Variable data("XDG_DATA_HOME", value);
        const Variable config("XDG_CONFIG_HOME", value);
        EXPECT_EQ(dataFolder("/nowhere"), path(".local/share/tandrel-player"));
        EXPECT_EQ(settingsFile(), path(".config/MsShareStuff.ini"));
        EXPECT_EQ(keyFileName(), path(".config/tandrel-player/keys.ini"));
        EXPECT_TRUE(fs::is_directory(path(".config")));
    }
    const Variable config("XDG_CONFIG_HOME", path("etc").c_str());
    EXPECT_EQ(settingsFile(), path("etc/MsShareStuff.ini"));
    EXPECT_EQ(keyFileName(), path("etc/tandrel-player/keys.ini"));
}

TEST_F(PlatformFiles, EachDataFolderHasItsRuntimeFolder)
{
    const Variable runtime("XDG_RUNTIME_DIR", folder.c_str());
    fs::create_directory(path("one"));
    fs::create_directory(path("two"));
    fs::create_directory_symlink(path("one"), path("alias"));
    EXPECT_THAT(runtimeFolder(path("one")), StartsWith(folder + "/tandrel-player-"));
    EXPECT_TRUE(fs::is_directory(runtimeFolder(path("one"))));
    EXPECT_EQ(runtimeFolder(path("one")), runtimeFolder(path("alias")));
    EXPECT_NE(runtimeFolder(path("one")), runtimeFolder(path("two")));
}

TEST_F(PlatformFiles, TheSystemIsUnknownUnlessAnotherStandsIn)
{
    {
        const Variable system("TANDREL_SYSTEM", nullptr);
        EXPECT_EQ(XdgSystemFacts().version(), "linux");
    }
    const Variable system("TANDREL_SYSTEM", "2.5.1");
    EXPECT_EQ(XdgSystemFacts().version(), "2.5.1");
}

TEST_F(PlatformFiles, TheMonthIsYearTimesAHundredAndMonth)
{
    const int now = SystemClock().yearAndMonth();
    EXPECT_GE(now, 202600);
    EXPECT_GE(now % 100, 1);
    EXPECT_LE(now % 100, 12);
}

// Locks.

namespace
{

/// Another process, which does `start` and then lives until the object ends or it is killed.
class OtherProcess
{
public:
    template <class Start>
    explicit OtherProcess(Start start)
    {
        int ready[2];
        if (::pipe(ready) != 0)
            return;
        pid_ = ::fork();
        if (pid_ == 0) {
            ::close(ready[0]);
            start();
            [[maybe_unused]] const auto told = ::write(ready[1], "r", 1);
            for (;;)
                ::pause();
        }
        ::close(ready[1]);
        ready_ = ready[0];
    }
    ~OtherProcess()
    {
        kill();
        ::close(ready_);
    }
    OtherProcess(const OtherProcess&) = delete;
    /// Waits for the end of `start`.
    bool started() const
    {
        char byte = 0;
        return ::read(ready_, &byte, 1) == 1;
    }
    void kill()
    {
        if (pid_ <= 0)
            return;
        ::kill(pid_, SIGKILL);
        ::waitpid(pid_, nullptr, 0);
        pid_ = 0;
    }

private:
    pid_t pid_ = 0;
    int ready_ = -1;
};

} // namespace

TEST_F(PlatformFiles, AloneThereIsNoOtherProcess)
{
    const LockInstances own(folder);
    EXPECT_FALSE(own.anotherIsRunning());
    EXPECT_EQ(locks(), 1);
}

TEST_F(PlatformFiles, AnotherLiveProcessIsSeenAndACrashedOneIsNot)
{
    OtherProcess other([this] { new LockInstances(folder); });
    ASSERT_TRUE(other.started());
    const LockInstances own(folder);
    EXPECT_TRUE(own.anotherIsRunning());
    EXPECT_TRUE(own.anotherIsRunning()) << "asking changes nothing";
    other.kill();
    EXPECT_EQ(locks(), 2) << "the crash leaves its file behind";
    EXPECT_FALSE(own.anotherIsRunning());
    EXPECT_EQ(locks(), 1) << "which is cleared away";
}

TEST_F(PlatformFiles, OfTwoProcessesOneCameFirst)
{
    const LockInstances first(folder);
    const LockInstances second(folder);
    EXPECT_FALSE(first.anotherIsRunning()) << "or each would leave its files to the other";
    EXPECT_TRUE(second.anotherIsRunning());
}

TEST_F(PlatformFiles, OfProcessesThatStartTogetherExactlyOneCameFirst)
{
    constexpr int kProcesses = 8;
    std::vector<std::unique_ptr<OtherProcess>> others;
    for (int index = 0; index < kProcesses; ++index)
        others.push_back(std::make_unique<OtherProcess>([this, index] {
            auto* own = new LockInstances(folder);
            if (!own->anotherIsRunning())
                ::close(::open(path("first-" + std::to_string(index)).c_str(), O_CREAT | O_WRONLY, 0600));
        }));
    for (const auto& other : others)
        ASSERT_TRUE(other->started());
    int first = 0;
    for (const auto& name : names())
        first += name.starts_with("first-") ? 1 : 0;
    EXPECT_EQ(first, 1);
}

TEST_F(PlatformFiles, AProcessThatLeavesCountsNoMore)
{
    LockInstances first(folder);
    const LockInstances second(folder);
    first.leave();
    EXPECT_FALSE(second.anotherIsRunning());
    EXPECT_EQ(locks(), 1);
}

TEST_F(PlatformFiles, AProcessThatEndsTakesItsLockAway)
{
    const LockInstances own(folder);
    OtherProcess other([this] { LockInstances passing(folder); });
    ASSERT_TRUE(other.started());
    EXPECT_EQ(locks(), 1);
}

TEST_F(PlatformFiles, AProcessThatOnlyLooksIsNotALiveOne)
{
    write("1.lock", "");
    const LockInstances own(folder);
    OtherProcess looking([this] { ::flock(::open(path("1.lock").c_str(), O_RDONLY), LOCK_SH); });
    ASSERT_TRUE(looking.started());
    EXPECT_FALSE(own.anotherIsRunning());
}

TEST_F(PlatformFiles, OtherFilesInTheFolderAreNoProcesses)
{
    write("notes.txt", "");
    fs::create_directory(path("folder.lock"));
    const LockInstances own(folder);
    EXPECT_FALSE(own.anotherIsRunning());
    EXPECT_TRUE(fs::exists(path("notes.txt")));
}

TEST_F(PlatformFiles, AnExclusiveTaskWaitsForThoseOfOthers)
{
    LockInstances own(folder);
    OtherProcess other([this] {
        LockInstances its(folder);
        its.exclusively([this] {
            for (int line = 0; line < 2000; ++line)
                std::ofstream(path("log"), std::ios::app) << "other\n";
        });
    });
    own.exclusively([this] {
        for (int line = 0; line < 2000; ++line)
            std::ofstream(path("log"), std::ios::app) << "own\n";
    });
    ASSERT_TRUE(other.started());
    std::ifstream log(path("log"));
    int changes = 0;
    std::string before;
    for (std::string line; std::getline(log, line); before = line)
        changes += !before.empty() && line != before ? 1 : 0;
    EXPECT_EQ(changes, 1);
}

TEST_F(PlatformFiles, WithoutItsFolderAProcessIsAloneAndUnseen)
{
    const LockInstances own(path("missing"));
    EXPECT_FALSE(own.anotherIsRunning());
}

} // namespace tandrel::test
