// Files that are opened ahead: how many at a time, who goes first, and what becomes of those nobody wants.
#include "platform/mpv/early_opens.h"

#include <array>
#include <atomic>
#include <gtest/gtest.h>
#include <new>
#include <stdexcept>
#include <thread>

namespace tandrel
{

namespace
{
using namespace std::chrono_literals;

using Result = EarlyOpens::Result;

/// Opens that wait until they are let through, one after the other or all.
class Gate
{
public:
    EarlyOpens::Open open(OpenFailure failure = OpenFailure::NoFile)
    {
        return [this, failure]() -> Result {
            ++inside;
            most = std::max(most.load(), inside.load());
            std::unique_lock lock(mutex_);
            changed_.wait(lock, [this] { return passes_ > 0; });
            --passes_;
            ++done;
            --inside;
            return {failure};
        };
    }
    void letThrough(int count)
    {
        const std::lock_guard lock(mutex_);
        passes_ += count;
        changed_.notify_all();
    }
    bool waitForInside(int count)
    {
        const auto end = std::chrono::steady_clock::now() + 60s;
        while (inside < count && std::chrono::steady_clock::now() < end)
            std::this_thread::yield();
        return inside == count;
    }

    std::atomic<int> inside = 0;
    std::atomic<int> most = 0;
    std::atomic<int> done = 0;

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    int passes_ = 0;
};

int limit() { return std::max(2, static_cast<int>(std::thread::hardware_concurrency())); }

std::string name(int index) { return "/films/" + std::to_string(index); }
} // namespace

TEST(EarlyOpens, WhatWasBegunIsTakenWithItsResult)
{
    EarlyOpens opens;
    opens.begin("/a", []() -> Result { return {OpenFailure::NotPlayable}; });
    opens.begin("/b", []() -> Result { return {OpenFailure::NoFile}; });
    EXPECT_TRUE(opens.isBegun("/a"));
    EXPECT_FALSE(opens.isBegun("/c"));
    EXPECT_EQ(opens.take("/b", nullptr).failure, OpenFailure::NoFile);
    EXPECT_FALSE(opens.isBegun("/b"));
    EXPECT_EQ(opens.take("/a", nullptr).failure, OpenFailure::NotPlayable);
}

TEST(EarlyOpens, AsManyRunAtATimeAsThereAreProcessors)
{
    Gate gate;
    EarlyOpens opens;
    const int count = limit() + 3;
    for (int index = 0; index < count; ++index)
        opens.begin(name(index), gate.open());
    EXPECT_TRUE(gate.waitForInside(limit()));
    gate.letThrough(count);
    for (int index = 0; index < count; ++index)
        EXPECT_EQ(opens.take(name(index), nullptr).failure, OpenFailure::NoFile);
    EXPECT_EQ(gate.done, count);
    // Whoever takes one that waits makes it run at once, beside the others.
    EXPECT_LE(gate.most, limit() + 1);
}

TEST(EarlyOpens, TheOneThatIsAskedForWaitsForNoOther)
{
    Gate slow;
    EarlyOpens opens;
    for (int index = 0; index < limit() + 2; ++index)
        opens.begin(name(index), slow.open());
    opens.begin("/quick", []() -> Result { return {OpenFailure::NotPlayable}; });
    EXPECT_EQ(opens.take("/quick", nullptr).failure, OpenFailure::NotPlayable);
    EXPECT_EQ(slow.done, 0);
    slow.letThrough(limit() + 2);
}

TEST(EarlyOpens, WhoeverWaitsHearsAPulse)
{
    Gate gate;
    EarlyOpens opens;
    opens.begin("/a", gate.open());
    int pulses = 0;
    const auto pulse = [&] {
        if (++pulses == 2)
            gate.letThrough(1);
    };
    EXPECT_EQ(opens.take("/a", pulse).failure, OpenFailure::NoFile);
    EXPECT_GE(pulses, 2);
}

TEST(EarlyOpens, WhatIsDroppedBeforeItsTurnNeverRuns)
{
    Gate gate;
    {
        EarlyOpens opens;
        for (int index = 0; index < limit() + 5; ++index)
            opens.begin(name(index), gate.open());
        EXPECT_TRUE(gate.waitForInside(limit()));
        opens.drop();
        EXPECT_FALSE(opens.isBegun(name(0)));
        gate.letThrough(2 * limit() + 5);
    }
    EXPECT_EQ(gate.done, limit()) << "the end waits for those under way";
}

TEST(EarlyOpens, AnOpenThatThrowsIsAFileThatCantBePlayed)
{
    EarlyOpens opens;
    opens.begin("/a", []() -> Result { throw std::bad_alloc(); });
    EXPECT_EQ(opens.take("/a", nullptr).failure, OpenFailure::NotPlayable);
    opens.begin("/b", []() -> Result { return {OpenFailure::NoFile}; });
    EXPECT_EQ(opens.take("/b", nullptr).failure, OpenFailure::NoFile) << "its worker goes on";
}

TEST(EarlyOpens, TheSamePathTwiceIsOpenedTwice)
{
    EarlyOpens opens;
    std::atomic<int> count = 0;
    for (int round = 0; round < 2; ++round)
        opens.begin("/a", [&]() -> Result {
            ++count;
            return {OpenFailure::NoFile};
        });
    opens.take("/a", nullptr);
    EXPECT_TRUE(opens.isBegun("/a"));
    opens.take("/a", nullptr);
    EXPECT_EQ(count, 2);
}

} // namespace tandrel
