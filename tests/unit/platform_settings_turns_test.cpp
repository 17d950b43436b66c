// Processes that save settings at the same time.

#include "temporary_folder.h"

#include "platform/xdg/settings_file.h"

#include <gmock/gmock.h>

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace tandrel::test
{

using ::testing::ElementsAre;

namespace
{

/// Another process that does `task` and ends.
template <class Task>
pid_t inAnotherProcess(Task task)
{
    const pid_t child = ::fork();
    if (child == 0) {
        task();
        ::_exit(0);
    }
    return child;
}

class PlatformSettingsTurns : public ::testing::Test
{
protected:
    std::string value(const std::string& key) const { return SettingsFile(folder.path("s.ini")).get("sys", key); }
    void save(const std::string& key, const std::string& value) const
    {
        SettingsFile(folder.path("s.ini")).save("sys", key, value);
    }
    /// In memory where that can be: on a slow disk a turn may last longer than anyone waits for one.
    static std::string folderInMemory() { return ::access("/dev/shm", W_OK) == 0 ? "/dev/shm/" : ::testing::TempDir(); }

    TemporaryFolder folder{folderInMemory()};
};

} // namespace

TEST_F(PlatformSettingsTurns, NoneLosesWhatAnotherSavesAtTheSameTime)
{
    constexpr int kProcesses = 4;
    constexpr int kValues = 10;
    std::vector<pid_t> others;
    for (int process = 0; process < kProcesses; ++process)
        others.push_back(inAnotherProcess([&] {
            for (int index = 0; index < kValues; ++index)
                save(std::to_string(process) + "-" + std::to_string(index), "x");
        }));
    for (const pid_t other : others)
        ::waitpid(other, nullptr, 0);
    for (int process = 0; process < kProcesses; ++process)
        for (int index = 0; index < kValues; ++index)
            EXPECT_EQ(value(std::to_string(process) + "-" + std::to_string(index)), "x") << process << " " << index;
    EXPECT_THAT(folder.names(), ElementsAre("s.ini", "s.ini.lock")) << "nothing else is left behind";
}

TEST_F(PlatformSettingsTurns, WhoHoldsTheWholeFolderForOtherPurposesHoldsNobodyUp)
{
    const int whole = ::open(folder.path().c_str(), O_RDONLY | O_DIRECTORY);
    ASSERT_EQ(::flock(whole, LOCK_EX), 0);
    const auto before = std::chrono::steady_clock::now();
    save("top", "1");
    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(20));
    EXPECT_EQ(value("top"), "1");
    ::close(whole);
}

TEST_F(PlatformSettingsTurns, OneThatIsStoppedInItsTurnHoldsNobodyUpForEver)
{
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t other = inAnotherProcess([&] {
        ::flock(::open(folder.path("s.ini.lock").c_str(), O_RDWR | O_CREAT, 0600), LOCK_EX);
        ::close(ready[1]);
        ::pause();
    });
    ::close(ready[1]);
    char byte = 0;
    EXPECT_EQ(::read(ready[0], &byte, 1), 0) << "it has its turn";
    ::close(ready[0]);
    const auto before = std::chrono::steady_clock::now();
    save("top", "1");
    EXPECT_EQ(value("top"), "1");
    EXPECT_GE(std::chrono::steady_clock::now() - before, std::chrono::seconds(1)) << "it was waited for";
    ::kill(other, SIGKILL);
    ::waitpid(other, nullptr, 0);
}

} // namespace tandrel::test
