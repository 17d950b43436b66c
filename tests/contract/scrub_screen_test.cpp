// Places that are sought faster than a player finds them, as when a thumb is dragged: what the screen shows of the way,
// and where it ends.

#include "screen_bench.h"

#include <random>
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

    /// A hand needs time from one place to the next, in which the service has its turns.
    void pass(
        std::chrono::milliseconds time, const std::function<void()>& look = [] {})
    {
        waitUntil([&, since = std::chrono::steady_clock::now()] {
            look();
            return std::chrono::steady_clock::now() - since >= time;
        });
    }

    /// Seeks A to these places and B to twice as far, a new one each 10 ms.
    void seekBothAlong(const std::vector<int>& places)
    {
        for (const int place : places) {
            EXPECT_EQ(send("seek A to " + std::to_string(place)), 0);
            EXPECT_EQ(send("seek B to " + std::to_string(2 * place)), 0);
            pass(10ms);
        }
    }

    /// Seeks to place after place, a new one each 10 ms. What is seen meanwhile.
    std::set<int> seekAlong(const std::vector<int>& places)
    {
        std::set<int> seen;
        for (const int place : places) {
            EXPECT_EQ(send("seek A to " + std::to_string(place)), 0);
            EXPECT_EQ(number("status A position"), place) << "the place is known before its picture";
            pass(10ms, [&] {
                if (const auto frame = window.frameIn(kPicture))
                    seen.insert(*frame);
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

TEST_F(ScrubScreen, ASinglePlaceIsFoundWithoutThePlayerWhichFollows)
{
    openAt("h264_30.mp4", 0);
    EXPECT_EQ(number("status A position wait"), 0);
    countWindows();
    for (const int frame : {120, 150, 180, 60}) {
        const std::set<int> before{window.frameIn(kPicture).value_or(-1), frame};
        EXPECT_EQ(send("seek A to " + std::to_string(frame)), 0);
        EXPECT_TRUE(waitUntil([&] {
            const auto shown = window.frameIn(kPicture);
            EXPECT_TRUE(!shown || before.count(*shown)) << *shown << " is not asked for";
            return shown == frame;
        }));
        EXPECT_TRUE(hasStill()) << "the player would take longer";
        EXPECT_EQ(number("status A position"), frame);
        // Long enough for the player to come too.
        pass(500ms, [&] { EXPECT_EQ(window.frameIn(kPicture), frame); });
        EXPECT_EQ(number("status A position wait"), frame);
        EXPECT_EQ(window.frameIn(kPicture), frame);
    }
}

TEST_F(ScrubScreen, APlayBehindASinglePlaceBeginsThere)
{
    openAt("h264_30.mp4", 0);
    EXPECT_EQ(send("seek A to 100"), 0);
    EXPECT_EQ(send("Play A"), 0);
    EXPECT_TRUE(waitUntil([&] {
        const auto frame = window.frameIn(kPicture);
        return frame && *frame > 102;
    }));
    EXPECT_EQ(send("Pause A"), 0);
    const int place = static_cast<int>(number("status A position wait"));
    EXPECT_LT(place, 160);
    EXPECT_TRUE(showsFrame(place));
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
    pass(600ms);
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

TEST_F(ScrubScreen, AHiddenPictureComesBackRight)
{
    openAt("gops.mp4", 10);
    seekAlong(line(10, 60, 5));
    EXPECT_EQ(send("put A window at 0 0 0 0"), 0);
    seekAlong(line(60, 30, -5));
    EXPECT_EQ(send("put A window at 0 0 320 240"), 0);
    seekAlong(line(30, 100, 5));
    EXPECT_TRUE(showsFrame(100));
    EXPECT_EQ(send("put A window at 0 0 0 0"), 0);
    EXPECT_EQ(send("seek A to 20"), 0);
    EXPECT_EQ(send("put A window at 0 0 320 240"), 0);
    EXPECT_TRUE(showsFrame(20));
    EXPECT_EQ(number("status A position wait"), 20);
}

TEST_F(ScrubScreen, AFileThatBreaksOffIsLeftToThePlayer)
{
    openAt("gops_cut.mp4", 5);
    seekAlong(line(5, 95, 3));
    EXPECT_EQ(send("status A position wait"), 0);
    seekAlong(line(50, 20, -3));
    EXPECT_TRUE(showsFrame(20));
    EXPECT_EQ(number("status A position wait"), 20);
    EXPECT_EQ(send("step A"), 0);
    EXPECT_EQ(number("status A position"), 21);
}

TEST_F(ScrubScreen, TwoAtOnceArriveAndPlayTogether)
{
    openAt("gops.mp4", 10);
    const std::string second = "Open \"" + testMedia("h264_30.mp4") + "\" alias B parent ";
    ASSERT_EQ(send(second + std::to_string(window.handle())), 0);
    EXPECT_EQ(send("set B time format frames"), 0);
    EXPECT_EQ(send("put B window at 320 0 320 240"), 0);
    seekBothAlong(line(10, 100, 5));
    EXPECT_TRUE(showsFrame(100));
    EXPECT_TRUE(showsFrame(200, {320, 0, 640, 240}));
    seekBothAlong(line(100, 20, -5));
    EXPECT_EQ(send("Play A"), 0);
    EXPECT_EQ(send("Play B"), 0);
    EXPECT_TRUE(waitUntil([&] { return number("status A position") > 22 && number("status B position") > 42; }));
    EXPECT_EQ(send("Pause A"), 0);
    EXPECT_EQ(send("Pause B"), 0);
    EXPECT_TRUE(showsFrame(static_cast<int>(number("status A position"))));
    EXPECT_TRUE(showsFrame(static_cast<int>(number("status B position")), {320, 0, 640, 240}));
}

TEST_F(ScrubScreen, WhateverComesInBetween)
{
    std::mt19937 dice(7);
    const auto draw = [&](int most) { return std::uniform_int_distribution<int>(0, most)(dice); };
    openAt("gops.mp4", 10);
    for (int round = 0; round < 40; ++round) {
        std::string done;
        for (int turn = 4 + draw(8); turn > 0; --turn) {
            static constexpr const char* kOthers[]{"step A",
                                                   "step A reverse",
                                                   "Play A",
                                                   "Pause A",
                                                   "put A window at 0 0 160 120",
                                                   "put A window at 0 0 0 0",
                                                   "put A window at 0 0 320 240",
                                                   "seek A to 150",
                                                   "status A position",
                                                   "status A position wait"};
            const int kind = draw(39);
            const std::string command =
                kind < 10 ? kOthers[kind] : "seek A to " + std::to_string(draw(kind < 30 ? 149 : 20));
            done += command + "; ";
            EXPECT_EQ(send(command), 0) << done;
            pass(kind == 39 ? 250ms : 12ms);
        }
        EXPECT_EQ(send("Pause A"), 0);
        EXPECT_EQ(send("put A window at 0 0 320 240"), 0);
        const int place = static_cast<int>(number("status A position wait"));
        ASSERT_TRUE(showsFrame(std::min(place, 149))) << done;
        EXPECT_EQ(number("status A position"), place) << done;
    }
}

} // namespace tandrel
