// Places that are sought faster than a player finds them, as when a thumb is dragged: what the screen shows of the way,
// and where it ends.

#include "screen_bench.h"

#include <set>

namespace tandrel
{

namespace
{

using namespace std::chrono_literals;

class ScrubScreen : public ScreenBench
{
protected:
    void openAt(const std::string& name, int frame)
    {
        ASSERT_EQ(send("Open \"" + testMedia(name) + "\" alias A parent " + std::to_string(window.handle())), 0);
        EXPECT_EQ(send("set A time format frames"), 0);
        EXPECT_EQ(send("seek A to " + std::to_string(frame)), 0);
        EXPECT_TRUE(showsFrame(frame));
    }

    /// Seeks to place after place, a new one each 10 ms. What is seen meanwhile.
    std::set<int> seekAlong(const std::vector<int>& places)
    {
        std::set<int> seen;
        for (const int place : places) {
            EXPECT_EQ(send("seek A to " + std::to_string(place)), 0);
            EXPECT_EQ(number("status A position"), place) << "the place is known before its picture";
            const auto next = std::chrono::steady_clock::now() + 10ms;
            waitUntil([&] {
                if (const auto frame = window.frameIn(kPicture))
                    seen.insert(*frame);
                return std::chrono::steady_clock::now() >= next;
            });
        }
        return seen;
    }

    static std::vector<int> line(int from, int to, int step)
    {
        std::vector<int> places;
        for (int place = from; step > 0 ? place <= to : place >= to; place += step)
            places.push_back(place);
        return places;
    }
};

} // namespace

TEST_F(ScrubScreen, SomethingOfTheWayIsSeenAndTheEndIsExact)
{
    openAt("h264_30.mp4", 20);
    countWindows();
    const std::set<int> seen = seekAlong(line(20, 260, 4));
    EXPECT_TRUE(hasStill()) << "a decoder beside the player has brought pictures";
    EXPECT_GE(seen.size(), 6U) << "forward";
    EXPECT_TRUE(showsFrame(260));
    EXPECT_EQ(number("status A position wait"), 260);
    const std::set<int> back = seekAlong(line(260, 21, -4));
    EXPECT_GE(back.size(), 3U) << "back";
    EXPECT_TRUE(showsFrame(24));
    EXPECT_EQ(number("status A position wait"), 24);
}

TEST_F(ScrubScreen, NoPictureIsBehindTheFarthestPlace)
{
    openAt("gops.mp4", 0);
    for (const int frame : seekAlong(line(2, 100, 2)))
        EXPECT_LE(frame, 100);
    EXPECT_TRUE(showsFrame(100));
}

TEST_F(ScrubScreen, StepsGoOnFromTheLastPlace)
{
    openAt("gops.mp4", 10);
    seekAlong(line(10, 90, 5));
    EXPECT_EQ(send("step A"), 0);
    EXPECT_EQ(number("status A position"), 91);
    EXPECT_TRUE(showsFrame(91));
    seekAlong(line(91, 51, -5));
    EXPECT_EQ(send("step A reverse"), 0);
    EXPECT_EQ(number("status A position"), 50);
    EXPECT_TRUE(showsFrame(50));
}

TEST_F(ScrubScreen, PlayRunsFromTheLastPlace)
{
    openAt("gops.mp4", 10);
    seekAlong(line(10, 90, 5));
    EXPECT_EQ(send("Play A"), 0);
    EXPECT_TRUE(waitUntil([&] { return number("status A position") > 92; }));
    EXPECT_TRUE(waitUntil([&] {
        const auto frame = window.frameIn(kPicture);
        return frame && *frame > 92 && *frame < 140;
    }));
    EXPECT_EQ(ask("status A mode"), "playing");
}

TEST_F(ScrubScreen, AMovementThatRestsIsFoundByThePlayer)
{
    openAt("gops.mp4", 10);
    seekAlong(line(10, 60, 5));
    EXPECT_TRUE(showsFrame(60));
    // Nobody asks for anything: only the service's own turn brings the player along.
    EXPECT_TRUE(waitUntil(
        [&, since = std::chrono::steady_clock::now()] { return std::chrono::steady_clock::now() - since > 600ms; }));
    EXPECT_TRUE(showsFrame(60));
    EXPECT_EQ(number("status A position wait"), 60);
}

TEST_F(ScrubScreen, TheEndTheSizeAndTheCloseMayComeInBetween)
{
    openAt("gops.mp4", 10);
    seekAlong(line(10, 60, 5));
    EXPECT_EQ(send("put A window at 0 0 200 150"), 0);
    seekAlong(line(60, 40, -4));
    EXPECT_EQ(send("seek A to 150"), 0);
    EXPECT_EQ(number("status A position"), 150);
    EXPECT_TRUE(showsFrame(149, {0, 0, 200, 150}));
    seekAlong(line(140, 20, -4));
    EXPECT_EQ(send("close A"), 0);
}

TEST_F(ScrubScreen, WhatCanOnlyBeReadByThePlayerIsSoughtByIt)
{
    openAt("video.ogm", 5);
    countWindows();
    seekAlong(line(5, 45, 4));
    EXPECT_FALSE(hasStill());
    EXPECT_TRUE(showsFrame(45));
    EXPECT_EQ(number("status A position wait"), 45);
}

} // namespace tandrel
