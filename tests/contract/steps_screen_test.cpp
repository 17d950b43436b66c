// Steps as they are seen on the screen, where most of their pictures do not come from the player.

#include "contract/screen_bench.h"
#include <algorithm>
#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <numeric>
#include <random>

namespace tandrel
{

namespace
{
using namespace std::chrono_literals;

class Steps : public ScreenBench
{
protected:
    void openAt(const std::string& name, int frame)
    {
        ASSERT_EQ(send("Open \"" + testMedia(name) + "\" alias A parent " + std::to_string(window.handle())), 0);
        EXPECT_EQ(send("set A time format frames"), 0);
        EXPECT_EQ(send("seek A to " + std::to_string(frame)), 0);
        EXPECT_EQ(number("status A position"), frame);
        EXPECT_TRUE(showsFrame(frame));
    }

    /// Steps that lead from one frame to another, each of which has to be told and shown.
    void stepTo(int from, int to)
    {
        const int change = to > from ? 1 : -1;
        for (int frame = from + change; frame != to + change; frame += change) {
            EXPECT_EQ(send(change > 0 ? "step A" : "step A reverse"), 0);
            ASSERT_EQ(number("status A position"), frame);
            ASSERT_TRUE(showsFrame(frame));
        }
    }
};

struct StepRowOf {
    const char* name;
    int frames;
    /// The player is not needed for its steps back.
    bool kept;
};
void PrintTo(const StepRowOf& row, std::ostream* out) { *out << row.name; }

constexpr StepRowOf kMedia[]{
    {"gops.mp4", 150, true},     {"gops_late.mp4", 90, true}, {"gops_open.mkv", 100, true}, {"gops.ts", 75, true},
    {"gops_h264.ts", 100, true}, {"gops_vp9.webm", 90, true}, {"gops_hevc.mp4", 75, true},  {"video.mpg", 75, false},
    {"video.avi", 75, false},    {"video.flv", 75, false},    {"offset.ts", 75, true},      {"video.mkv", 72, true},
    {"video.webm", 90, true},    {"h264_30.mp4", 300, true},
};

class StepsOf : public Steps, public testing::WithParamInterface<StepRowOf>
{
};
} // namespace

TEST_P(StepsOf, ShowTheFrameTheyName)
{
    const auto& [name, frames, kept] = GetParam();
    const int from = frames * 2 / 3;
    openAt(name, from);
    countWindows();
    stepTo(from, from - 12);
    EXPECT_EQ(hasStill(), kept);
    stepTo(from - 12, from + 3);
    stepTo(from + 3, 0);
    EXPECT_EQ(send("step A reverse"), 0);
    EXPECT_EQ(number("status A position"), 0);
    EXPECT_TRUE(showsFrame(0));
    stepTo(0, 2);
    EXPECT_EQ(send("seek A to " + std::to_string(frames)), 0);
    EXPECT_EQ(send("step A reverse"), 0);
    EXPECT_TRUE(showsFrame(frames - 2));
    stepTo(frames - 2, frames - 6);
    stepTo(frames - 6, frames - 1);
}

INSTANTIATE_TEST_SUITE_P(Files, StepsOf, testing::ValuesIn(kMedia), [](const auto& info) {
    std::string name = info.param.name;
    name[name.find('.')] = '_';
    return name;
});

TEST_F(Steps, OfUnevenFrames)
{
    openAt("gops_uneven.mkv", 0);
    EXPECT_EQ(send("set A time format ms"), 0);
    const auto begin = [](int frame) { return 40 * frame + 20 * (frame % 2); };
    countWindows();
    EXPECT_EQ(send("seek A to " + std::to_string(begin(50))), 0);
    EXPECT_TRUE(showsFrame(50));
    for (int frame = 49; frame >= 0; --frame) {
        EXPECT_EQ(send("step A reverse"), 0);
        ASSERT_EQ(number("status A position"), begin(frame));
        ASSERT_TRUE(showsFrame(frame));
    }
    EXPECT_TRUE(hasStill());
    for (int frame = 1; frame < 60; ++frame) {
        EXPECT_EQ(send("step A"), 0);
        ASSERT_EQ(number("status A position"), begin(frame));
        ASSERT_TRUE(showsFrame(frame));
    }
}

TEST_F(Steps, ThatNobodyWaitsFor)
{
    openAt("gops.mp4", 70);
    EXPECT_EQ(send("step A reverse"), 0);
    EXPECT_TRUE(showsFrame(69));
    EXPECT_EQ(send("step A reverse"), 0);
    EXPECT_TRUE(showsFrame(68));
    EXPECT_EQ(send("step A"), 0);
    EXPECT_TRUE(showsFrame(69));
}

TEST_F(Steps, PlayShowsNoFrameOfElsewhere)
{
    openAt("gops.mp4", 110);
    stepTo(110, 85);
    EXPECT_EQ(send("Play A"), 0);
    int latest = 85;
    EXPECT_TRUE(waitUntil([&] {
        const auto seen = window.frameIn(kPicture);
        EXPECT_TRUE(seen && *seen >= latest && *seen <= latest + 25) << seen.value_or(-1) << " behind " << latest;
        latest = std::max(latest, seen.value_or(0));
        return latest >= 105;
    }));
    EXPECT_EQ(send("Pause A"), 0);
    const int frame = static_cast<int>(number("status A position"));
    EXPECT_TRUE(showsFrame(frame));
    stepTo(frame, frame - 4);
}

TEST_F(Steps, PlayAndPauseBehindThemShowNoFurtherFrame)
{
    openAt("gops.mp4", 60);
    stepTo(60, 50);
    EXPECT_EQ(send("Play A"), 0);
    EXPECT_EQ(send("Pause A"), 0);
    for (int look = 0; look < 30; ++look) {
        mci.idle();
        EXPECT_EQ(window.frameIn(kPicture), 50);
    }
    stepTo(50, 45);
}

TEST_F(Steps, ASeekBehindThemTakesTheStillAway)
{
    openAt("gops.mp4", 60);
    stepTo(60, 50);
    EXPECT_EQ(send("seek A to 100"), 0);
    EXPECT_TRUE(showsFrame(100)) << "though nobody asks";
    stepTo(100, 98);
    EXPECT_EQ(send("Play A from 20"), 0);
    EXPECT_TRUE(waitUntil([&] {
        const int seen = window.frameIn(kPicture).value_or(-1);
        return seen >= 20 && seen < 90;
    }));
}

TEST_F(Steps, GoOnAtAnotherSize)
{
    openAt("gops.mp4", 90);
    stepTo(90, 70);
    constexpr PixelRect larger{10, 20, 483, 353};
    EXPECT_EQ(send("put A window at 10 20 473 333"), 0);
    EXPECT_TRUE(showsFrame(70, larger));
    for (int frame = 69; frame > 60; --frame) {
        EXPECT_EQ(send("step A reverse"), 0);
        ASSERT_EQ(number("status A position"), frame);
        ASSERT_TRUE(showsFrame(frame, larger));
    }
    EXPECT_EQ(send("put A window at 10 20 0 0"), 0);
    EXPECT_EQ(send("step A reverse"), 0);
    EXPECT_EQ(number("status A position"), 60);
    EXPECT_EQ(send("put A window at 0 0 320 240"), 0);
    EXPECT_TRUE(showsFrame(60));
    stepTo(60, 55);
}

TEST_F(Steps, TakeNoInputAndLeaveNothing)
{
    openAt("gops.mp4", 90);
    countWindows();
    stepTo(90, 85);
    EXPECT_TRUE(hasStill());
    EXPECT_FALSE(window.anyInsideTakesInput());
    EXPECT_EQ(send("close A"), 0);
    EXPECT_TRUE(waitUntil([&] { return window.windowsInside().empty(); }));
    EXPECT_TRUE(waitUntil([&] { return !window.frameIn(kPicture); }));
}

TEST_F(Steps, AVanishedParentIsSurvived)
{
    openAt("gops.mp4", 90);
    stepTo(90, 88);
    window.destroy();
    for (int frame = 87; frame > 80; --frame) {
        EXPECT_EQ(send("step A reverse"), 0);
        EXPECT_EQ(number("status A position"), frame);
    }
    EXPECT_EQ(send("Play A"), 0);
    EXPECT_EQ(send("close A"), 0);
}

TEST_F(Steps, WithTimeForThePlayerToFollow)
{
    openAt("gops.mp4", 120);
    const auto letPass = [&](std::chrono::milliseconds time) {
        const auto end = std::chrono::steady_clock::now() + time;
        return waitUntil([&] { return std::chrono::steady_clock::now() >= end; });
    };
    int frame = 120;
    const auto step = [&](int change) {
        stepTo(frame, frame + change);
        frame += change;
    };
    // Before it follows, on its way, and when it has arrived.
    for (const auto time : {300ms, 705ms, 720ms, 760ms, 1100ms}) {
        for (const int change : {-5, 2, -3, 4}) {
            step(change);
            ASSERT_TRUE(letPass(time));
            EXPECT_EQ(number("status A position"), frame);
            EXPECT_TRUE(showsFrame(frame));
        }
    }
    EXPECT_EQ(send("Play A"), 0);
    EXPECT_TRUE(waitUntil([&] {
        const int seen = window.frameIn(kPicture).value_or(-1);
        EXPECT_GE(seen, frame);
        EXPECT_LE(seen, frame + 30);
        return seen >= frame + 10;
    }));
}

TEST_F(Steps, ClosedRightBehindAPlay)
{
    for (int round = 0; round < 5; ++round) {
        openAt("gops.mp4", 90);
        stepTo(90, 86);
        EXPECT_EQ(send("Play A"), 0);
        mci.idle();
        EXPECT_EQ(send("close A"), 0);
        EXPECT_TRUE(waitUntil([&] { return window.windowsInside().empty(); }));
    }
}

TEST_F(Steps, MixedWithAllElseShowWhatTheyTell)
{
    openAt("gops.mp4", 75);
    std::mt19937 dice(4711);
    int frame = 75;
    for (int round = 0; round < 150; ++round) {
        const int throws = static_cast<int>(dice() % 20);
        std::string command = throws < 11 ? "step A reverse" : "step A";
        if (throws < 16) {
            frame = std::clamp(frame + (throws < 11 ? -1 : 1), 0, 149);
            EXPECT_EQ(send(command), 0);
        } else if (throws == 16) {
            frame = static_cast<int>(dice() % 150);
            EXPECT_EQ(send("seek A to " + std::to_string(frame)), 0);
        } else if (throws == 17) {
            EXPECT_EQ(send("put A window at 0 0 " + std::to_string(200 + dice() % 100) + " 200"), 0);
            EXPECT_EQ(send("put A window at 0 0 320 240"), 0);
        } else if (frame < 120) {
            EXPECT_EQ(send("Play A"), 0);
            if (throws == 18) {
                EXPECT_TRUE(waitUntil([&] { return number("status A position") > frame + 1; }));
            }
            EXPECT_EQ(send("Pause A"), 0);
            const int paused = static_cast<int>(number("status A position"));
            EXPECT_GE(paused, frame);
            frame = paused;
        }
        // Often nobody asks before the next command.
        if (dice() % 3 > 0)
            continue;
        ASSERT_EQ(number("status A position"), frame) << round;
        ASSERT_TRUE(showsFrame(frame)) << round;
    }
}

class StepColours : public Steps, public testing::WithParamInterface<const char*>
{
};

TEST_P(StepColours, AreThoseOfThePlayer)
{
    ASSERT_EQ(send("Open \"" + testMedia(GetParam()) + "\" alias A parent " + std::to_string(window.handle())), 0);
    EXPECT_EQ(send("put A window at 0 0 473 333"), 0);
    EXPECT_EQ(send("set A time format frames"), 0);
    constexpr PixelRect part{0, 0, 473, 333};
    const auto lookAt = [&](int frame) {
        EXPECT_EQ(send("seek A to " + std::to_string(frame)), 0);
        EXPECT_EQ(number("status A position wait"), frame);
        std::vector<unsigned char> last;
        // Until the picture is complete.
        EXPECT_TRUE(
            waitUntil([&] { return std::exchange(last, window.lookInColour(part)) == window.lookInColour(part); }));
        return last;
    };
    const auto difference = [](const auto& one, const auto& other) {
        std::vector<int> apart(one.size());
        std::transform(one.begin(), one.end(), other.begin(), apart.begin(),
                       [](int a, int b) { return std::abs(a - b); });
        return std::accumulate(apart.begin(), apart.end(), 0.0) / static_cast<double>(apart.size());
    };
    lookAt(9);
    const auto players = lookAt(10);
    lookAt(12);
    countWindows();
    for (int frame = 11; frame >= 10; --frame) {
        EXPECT_EQ(send("step A reverse"), 0);
        EXPECT_EQ(number("status A position"), frame);
    }
    ASSERT_TRUE(hasStill());
    const auto kept = window.lookInColour(part);
    ASSERT_EQ(kept.size(), players.size());
    EXPECT_LT(difference(kept, players), 0.6);
    for (int colour = 0; colour < 3; ++colour) {
        double ours = 0;
        double theirs = 0;
        for (std::size_t at = static_cast<std::size_t>(colour); at < kept.size(); at += 3) {
            ours += kept[at];
            theirs += players[at];
        }
        EXPECT_NEAR(ours / static_cast<double>(kept.size() / 3), theirs / static_cast<double>(kept.size() / 3), 0.2);
    }
}

INSTANTIATE_TEST_SUITE_P(Files, StepColours,
                         testing::Values("colours_720.mp4", "colours_240.mp4", "colours_709.mp4", "colours_full.mp4"),
                         [](const auto& info) {
                             std::string name = info.param;
                             return name.substr(0, name.find('.'));
                         });

} // namespace tandrel
