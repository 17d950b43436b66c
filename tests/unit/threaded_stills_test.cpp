#include "platform/stills/threaded_stills.h"

#include "support/still_media.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <map>
#include <mutex>
#include <set>
#include <sys/resource.h>
#include <unistd.h>

namespace tandrel::test
{

namespace
{

/// Files that are opened by the test: each is noted, and some hang until they are let go.
struct Openers {
    FileMark look(const std::string& path)
    {
        const std::scoped_lock lock(guard);
        looked.push_back(path);
        return {1, 1, sizes.contains(path) ? sizes.at(path) : 10, {}};
    }

    std::optional<Still> make(const std::string& path)
    {
        std::unique_lock lock(guard);
        opened.push_back(path);
        niceness = getpriority(PRIO_PROCESS, static_cast<id_t>(gettid()));
        if (hanging.contains(path)) {
            ++hung;
            freed.wait(lock, [&] { return !hanging.contains(path); });
            --hung;
        }
        return bad.contains(path) ? std::nullopt : std::optional(plainStill(0x336699));
    }

    void release()
    {
        const std::scoped_lock lock(guard);
        hanging.clear();
        freed.notify_all();
    }

    int hungNow()
    {
        const std::scoped_lock lock(guard);
        return hung;
    }

    std::vector<std::string> openedSoFar()
    {
        const std::scoped_lock lock(guard);
        return opened;
    }

    std::mutex guard;
    std::condition_variable freed;
    std::vector<std::string> looked;
    std::vector<std::string> opened;
    std::set<std::string> hanging;
    std::set<std::string> bad;
    std::map<std::string, off_t> sizes;
    int hung = 0;
    int niceness = 0;
};

class ThreadedStillsTest : public ::testing::Test
{
protected:
    ~ThreadedStillsTest() override { openers->release(); }

    StillTools tools(std::chrono::milliseconds patience = std::chrono::seconds(60)) const
    {
        // Threads that are left behind keep what they use.
        return {folder.path(), [openers = openers](const std::string& path) { return openers->look(path); },
                [openers = openers](const std::string& path, const FileMark&, const std::function<bool()>&) {
                    return openers->make(path);
                },
                patience};
    }

    static bool comes(const Stills& stills, const std::string& path)
    {
        return becomesTrue([&] { return stills.have(path).has_value(); });
    }

    TemporaryFolder folder;
    std::shared_ptr<Openers> openers = std::make_shared<Openers>();
};

} // namespace

TEST_F(ThreadedStillsTest, PicturesComeInOrderOnAThreadOfTheLowestPriority)
{
    ThreadedStills stills(tools());
    EXPECT_FALSE(stills.have("/a"));
    stills.want({"/b", "/a", "/b", "/c"});
    ASSERT_TRUE(comes(stills, "/c"));
    EXPECT_EQ(openers->openedSoFar(), (std::vector<std::string>{"/b", "/a", "/c"}));
    EXPECT_EQ(stills.have("/a")->pixels, plainStill(0x336699).pixels);
    EXPECT_EQ(stills.have("/a")->lengthMs, 1234);
    EXPECT_EQ(openers->niceness, 19);
}

TEST_F(ThreadedStillsTest, AFileThatIsNoneIsNotReadTwiceUnlessItChanges)
{
    openers->bad = {"/bad"};
    ThreadedStills stills(tools());
    stills.want({"/bad", "/a"});
    ASSERT_TRUE(comes(stills, "/a"));
    stills.want({"/bad", "/b"});
    ASSERT_TRUE(comes(stills, "/b"));
    EXPECT_FALSE(stills.have("/bad"));
    EXPECT_EQ(openers->openedSoFar(), (std::vector<std::string>{"/bad", "/a", "/b"}));
    {
        const std::scoped_lock lock(openers->guard);
        openers->bad.clear();
        openers->sizes["/bad"] = 11;
    }
    stills.want({"/bad"});
    EXPECT_TRUE(comes(stills, "/bad"));
}

TEST_F(ThreadedStillsTest, WhatIsNotBegunIsDroppedByTheNextWish)
{
    openers->hanging = {"/slow"};
    ThreadedStills stills(tools());
    stills.want({"/slow", "/dropped"});
    ASSERT_TRUE(becomesTrue([&] { return openers->hungNow() == 1; }));
    stills.want({"/slow", "/new"});
    openers->release();
    ASSERT_TRUE(comes(stills, "/new"));
    EXPECT_EQ(openers->openedSoFar(), (std::vector<std::string>{"/slow", "/new"}));
    EXPECT_TRUE(stills.have("/slow"));
}

TEST_F(ThreadedStillsTest, AFileThatHangsLeavesItsThreadBehind)
{
    openers->hanging = {"/dead"};
    ThreadedStills stills(tools(std::chrono::milliseconds(30)));
    stills.want({"/dead", "/a"});
    EXPECT_TRUE(comes(stills, "/a"));
    EXPECT_EQ(openers->hungNow(), 1);
    EXPECT_FALSE(stills.have("/dead"));
    // It is not begun once more while it hangs, and counts when it comes back.
    stills.want({"/dead", "/b"});
    EXPECT_TRUE(comes(stills, "/b"));
    EXPECT_EQ(openers->openedSoFar(), (std::vector<std::string>{"/dead", "/a", "/b"}));
    openers->release();
    EXPECT_TRUE(comes(stills, "/dead"));
}

TEST_F(ThreadedStillsTest, NoMoreThanFourThreadsAreLeftBehind)
{
    const std::vector<std::string> dead{"/1", "/2", "/3", "/4", "/5"};
    openers->hanging = {dead.begin(), dead.end()};
    ThreadedStills stills(tools(std::chrono::milliseconds(30)));
    std::vector<std::string> wanted = dead;
    wanted.push_back("/a");
    stills.want(wanted);
    ASSERT_TRUE(becomesTrue([&] {
        stills.have("/a");
        return openers->hungNow() == 5;
    }));
    const auto longAfter = std::chrono::steady_clock::now() + std::chrono::milliseconds(300);
    ASSERT_TRUE(becomesTrue([&] {
        stills.have("/a");
        return std::chrono::steady_clock::now() > longAfter;
    }));
    EXPECT_EQ(openers->openedSoFar(), dead);
    openers->release();
    EXPECT_TRUE(comes(stills, "/a"));
}

TEST_F(ThreadedStillsTest, AnEndWaitsForNoFileThatHangs)
{
    openers->hanging = {"/dead"};
    const auto start = std::chrono::steady_clock::now();
    {
        ThreadedStills stills(tools());
        stills.want({"/dead"});
        ASSERT_TRUE(becomesTrue([&] { return openers->hungNow() == 1; }));
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

TEST_F(ThreadedStillsTest, TheNextStartFindsThemOnTheDisk)
{
    {
        ThreadedStills stills(tools());
        stills.want({"/a", "/b"});
        ASSERT_TRUE(comes(stills, "/b"));
    }
    ThreadedStills again(tools());
    again.want({"/a", "/b"});
    ASSERT_TRUE(comes(again, "/b"));
    EXPECT_EQ(again.have("/a")->pixels, plainStill(0x336699).pixels);
    EXPECT_EQ(openers->openedSoFar().size(), 2U);
}

TEST_F(ThreadedStillsTest, MarkedNamesAreOpenedByTheirRealOnes)
{
    ThreadedStills stills(tools());
    stills.want({std::string("/no\0name", 8), "/a"});
    ASSERT_TRUE(comes(stills, "/a"));
    EXPECT_EQ(openers->openedSoFar(), (std::vector<std::string>{"/a"}));
}

} // namespace tandrel::test
