// Files that are looked for on threads that nobody waits for.

#include "temporary_folder.h"

#include "platform/path_marks.h"
#include "platform/xdg/file_finder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>
#include <sys/stat.h>
#include <thread>

namespace tandrel::test
{

namespace
{

constexpr int kLongWait = 60000;

/// Files that nobody answers for until they are let go.
class DeadMount
{
public:
    bool isThere(const std::string& path)
    {
        std::unique_lock lock(guard_);
        ++asked_[path];
        change_.notify_all();
        change_.wait(lock, [&] { return !path.starts_with("/dead/") || answers_; });
        return !path.ends_with("gone");
    }
    void answer()
    {
        const std::scoped_lock lock(guard_);
        answers_ = true;
        change_.notify_all();
    }
    int asked(const std::string& path)
    {
        const std::scoped_lock lock(guard_);
        return asked_[path];
    }

private:
    std::mutex guard_;
    std::condition_variable change_;
    std::map<std::string, int> asked_;
    bool answers_ = false;
};

/// The answer for a path, which comes soon while others don't.
std::optional<bool> answerOf(FileFinder& finder, const std::string& path)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(kLongWait);
    while (!finder.found(path) && std::chrono::steady_clock::now() < end)
        // Of the last look others may be silent for ever.
        finder.wait(1);
    return finder.found(path);
}

} // namespace

TEST(FileFinder, TellsFilesFromFoldersAndFromWhatIsNotThere)
{
    const TemporaryFolder folder;
    folder.write("a|b.avi", "");
    ThreadedFinder finder;
    const std::string marked = markPath(folder.path("a|b.avi"));
    EXPECT_EQ(finder.found(marked), std::nullopt) << "nobody has asked";
    ASSERT_EQ(mkfifo(folder.path("pipe").c_str(), 0600), 0);
    const std::string cut = folder.path("a|b.avi") + std::string("\0x", 2);
    finder.look({marked, folder.path(), folder.path("gone"), folder.path("pipe"), "/dev/null", cut, ""});
    finder.wait(kLongWait);
    EXPECT_EQ(finder.found(marked), true);
    for (const std::string& none : {folder.path(), folder.path("pipe"), std::string("/dev/null"), cut, std::string()})
        EXPECT_EQ(finder.found(none), false) << none;
    EXPECT_EQ(finder.found(folder.path("gone")), false);
}

TEST(FileFinder, AFileThatNobodyAnswersForKeepsNoOtherWaiting)
{
    const auto mount = std::make_shared<DeadMount>();
    ThreadedFinder finder([mount](const std::string& path) { return mount->isThere(path); });
    std::vector<std::string> paths;
    for (int number = 0; number < 20; ++number)
        paths.push_back((number % 2 == 0 ? "/dead/" : "/here/") + std::to_string(number));
    finder.look(paths);
    for (std::size_t index = 1; index < paths.size(); index += 2)
        EXPECT_EQ(answerOf(finder, paths[index]), true) << paths[index];
    for (std::size_t index = 0; index < paths.size(); index += 2)
        EXPECT_EQ(finder.found(paths[index]), std::nullopt) << paths[index];
    finder.look(paths);
    EXPECT_EQ(answerOf(finder, "/here/1"), true);
    EXPECT_EQ(mount->asked("/dead/0"), 1) << "it is being looked for already";
    EXPECT_EQ(mount->asked("/here/1"), 2);
    mount->answer();
    finder.wait(kLongWait);
    EXPECT_EQ(finder.found("/dead/0"), true);
}

TEST(FileFinder, AWaitIsForTheLastLookAlone)
{
    const auto mount = std::make_shared<DeadMount>();
    ThreadedFinder finder([mount](const std::string& path) { return mount->isThere(path); });
    finder.look({"/dead/film.avi"});
    finder.look({"/here/program"});
    const auto begin = std::chrono::steady_clock::now();
    finder.wait(kLongWait);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(kLongWait / 2));
    EXPECT_EQ(finder.found("/here/program"), true);
    EXPECT_EQ(finder.found("/dead/film.avi"), std::nullopt);
    mount->answer();
}

TEST(FileFinder, ALaterLookTakesTheNewAnswer)
{
    std::atomic<bool> there = false;
    ThreadedFinder finder([&there](const std::string&) { return there.load(); });
    finder.look({"/a"});
    finder.wait(kLongWait);
    EXPECT_EQ(finder.found("/a"), false);
    there = true;
    finder.look({"/a"});
    finder.wait(kLongWait);
    EXPECT_EQ(finder.found("/a"), true);
}

TEST(FileFinder, ThousandsOfPathsNeedNoMoreThreadsThanTheLimit)
{
    std::mutex guard;
    int now = 0;
    int most = 0;
    ThreadedFinder finder([&](const std::string&) {
        {
            const std::scoped_lock lock(guard);
            most = std::max(most, ++now);
        }
        std::this_thread::yield();
        const std::scoped_lock lock(guard);
        --now;
        return true;
    });
    std::vector<std::string> paths;
    for (int number = 0; number < 10000; ++number)
        paths.push_back(std::to_string(number));
    finder.look(paths);
    finder.wait(kLongWait);
    EXPECT_EQ(finder.found("9999"), true);
    const std::scoped_lock lock(guard);
    EXPECT_GE(most, 1);
    EXPECT_LE(most, 64);
}

TEST(FileFinder, ItsEndWaitsForNobody)
{
    const auto mount = std::make_shared<DeadMount>();
    {
        ThreadedFinder finder([mount](const std::string& path) { return mount->isThere(path); });
        finder.look({"/dead/a"});
        finder.wait(10);
    }
    mount->answer();
}

TEST(FileFinder, AFolderWhereNobodyAnswersLeavesThreadsForOthers)
{
    const auto mount = std::make_shared<DeadMount>();
    ThreadedFinder finder([mount](const std::string& path) { return mount->isThere(path); });
    std::vector<std::string> paths;
    for (int number = 0; number < 300; ++number)
        paths.push_back("/dead/" + std::to_string(number));
    paths.push_back("/here/a");
    finder.look(paths);
    EXPECT_EQ(answerOf(finder, "/here/a"), true);
    finder.look({"/here/b"});
    EXPECT_EQ(answerOf(finder, "/here/b"), true);
    EXPECT_EQ(mount->asked("/dead/2"), 0) << "two threads wait there, and no more";
    mount->answer();
    EXPECT_EQ(answerOf(finder, "/dead/299"), true);
}

} // namespace tandrel::test
