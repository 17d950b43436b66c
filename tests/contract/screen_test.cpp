// What is seen on the screen: which frame, where, and what happens to windows. Needs an X server.
#include "contract/screen_bench.h"
#include "platform/mpv/graphics_probe.h"
#include "platform/mpv/output_choice.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <thread>
#include <vector>

namespace tandrel
{

namespace
{
using namespace std::chrono_literals;

class Screen : public ScreenBench
{
protected:
    int open(const std::string& name, const std::string& alias = "A")
    {
        return send("Open \"" + testMedia(name) + "\" Type MPEGVideo alias " + alias + " parent " +
                    std::to_string(window.handle()) + " style child");
    }

    /// True if no other frame comes up while `looks` pictures are taken.
    bool keepsFrame(int frame, int looks)
    {
        for (int look = 0; look < looks; ++look) {
            mci.idle();
            if (window.frameIn(kPicture) != frame)
                return false;
        }
        return true;
    }
};

struct VideoRow {
    const char* name;
    double frameRate;
    int frames;
};
void PrintTo(const VideoRow& row, std::ostream* out) { *out << row.name; }

// Names and rates as make_test_media.py makes them.
constexpr VideoRow kVideos[]{
    {"h264_30.mp4", 30, 300},
    {"h264_25.mp4", 25, 250},
    {"ntsc.mp4", 30000 / 1001.0, 150},
    {"video.avi", 25, 75},
    {"video.mpg", 25, 75},
    {"video.webm", 30, 90},
    {"video.wmv", 25, 75},
    {"video.flv", 25, 75},
    {"video.mov", 25, 75},
    {"video.mkv", 24000 / 1001.0, 72},
    {"video.ogm", 25, 75},
    {"offset.ts", 25, 75},
};

/// Sound is decoded and paced, whether or not the machine has a device for it.
struct SoundForced {
    SoundForced() { setenv("TANDREL_AO", "null", 1); }
    ~SoundForced() { unsetenv("TANDREL_AO"); }
};
class ScreenWithSound : private SoundForced, public Screen
{
};

class ScreenOf : public Screen, public testing::WithParamInterface<VideoRow>
{
};
} // namespace

TEST_F(Screen, AnAnnouncedPictureComesUpInItsWindow)
{
    mci.prepare({testMedia("h264_30.mp4"), testMedia("h264_25.mp4")});
    ASSERT_EQ(open("h264_30.mp4"), 0);
    EXPECT_TRUE(showsFrame(0));
    EXPECT_EQ(send("set A time format frames"), 0);
    EXPECT_EQ(send("seek A to 77"), 0);
    EXPECT_TRUE(showsFrame(77));
    EXPECT_EQ(send("put A window at 320 240 320 240"), 0);
    EXPECT_TRUE(showsFrame(77, {320, 240, 640, 480}));
}

TEST_P(ScreenOf, SeeksAndStepsShowTheFrameTheyName)
{
    const VideoRow& video = GetParam();
    ASSERT_EQ(open(video.name), 0);
    EXPECT_TRUE(showsFrame(0));
    EXPECT_EQ(ask("status A position"), "0");
    EXPECT_EQ(send("set A time format frames"), 0);
    for (const int frame : {video.frames / 2, 1, video.frames - 2, video.frames / 3}) {
        EXPECT_EQ(send("seek A to " + std::to_string(frame)), 0);
        EXPECT_EQ(number("status A position"), frame);
        EXPECT_TRUE(showsFrame(frame)) << frame;
    }
    int frame = video.frames / 3;
    for (const bool reverse : {false, false, true, true, true, false}) {
        EXPECT_EQ(send(reverse ? "step A reverse" : "step A"), 0);
        frame += reverse ? -1 : 1;
        EXPECT_EQ(number("status A position"), frame);
        EXPECT_TRUE(showsFrame(frame)) << frame;
    }
}

TEST_P(ScreenOf, AMillisecondShowsTheFrameWhoseTimeCoversIt)
{
    const VideoRow& video = GetParam();
    ASSERT_EQ(open(video.name), 0);
    for (const long place : {500L, 33L, 1L, 999L, 1217L}) {
        EXPECT_EQ(send("seek A to " + std::to_string(place)), 0);
        EXPECT_EQ(number("status A position"), place);
        // Half a millisecond belongs to the place, and stamps may be rounded by another half.
        const int latest = static_cast<int>(std::floor((static_cast<double>(place) + 1) / 1000 * video.frameRate));
        const int earliest = static_cast<int>(std::floor(static_cast<double>(place) / 1000 * video.frameRate));
        EXPECT_TRUE(waitUntil([&] {
            const auto frame = window.frameIn(kPicture);
            return frame && *frame >= earliest && *frame <= latest;
        })) << place;
    }
}

TEST_P(ScreenOf, TheEndShowsTheLastFrame)
{
    const VideoRow& video = GetParam();
    ASSERT_EQ(open(video.name), 0);
    const std::string length = ask("status A length");
    EXPECT_EQ(send("seek A to " + length), 0);
    EXPECT_EQ(ask("status A position"), length);
    EXPECT_TRUE(showsFrame(video.frames - 1));
    EXPECT_EQ(send("step A reverse"), 0);
    EXPECT_EQ(send("status A position"), 0);
    EXPECT_TRUE(showsFrame(video.frames - 2));
    EXPECT_EQ(send("step A"), 0);
    EXPECT_EQ(send("status A position"), 0);
    EXPECT_TRUE(showsFrame(video.frames - 1));
    EXPECT_EQ(send("step A"), 0);
    EXPECT_EQ(ask("status A mode"), "paused");
    EXPECT_TRUE(keepsFrame(video.frames - 1, 20));
}

INSTANTIATE_TEST_SUITE_P(Files, ScreenOf, testing::ValuesIn(kVideos), [](const auto& info) {
    std::string name = info.param.name;
    name[name.find('.')] = '_';
    return name;
});

TEST_F(Screen, UnevenFramesAreFoundByTheirOwnTimes)
{
    ASSERT_EQ(open("uneven.mkv"), 0);
    EXPECT_TRUE(showsFrame(0));
    for (int frame = 1; frame < 74; frame += 9) {
        const int begin = 40 * frame + 20 * (frame % 2);
        for (const int place : {begin, begin + 7}) {
            EXPECT_EQ(send("seek A to " + std::to_string(place)), 0);
            EXPECT_EQ(number("status A position"), place);
            EXPECT_TRUE(showsFrame(frame)) << place;
        }
        EXPECT_EQ(send("step A"), 0);
        EXPECT_EQ(number("status A position"), 40 * (frame + 1) + 20 * ((frame + 1) % 2));
        EXPECT_TRUE(showsFrame(frame + 1));
        EXPECT_EQ(send("step A reverse"), 0);
        EXPECT_EQ(number("status A position"), begin);
        EXPECT_TRUE(showsFrame(frame));
    }
}

TEST_F(Screen, FramesAreFoundByTheirOwnTimesWhereTheFileTellsALowerRate)
{
    ASSERT_EQ(open("stretched.mp4"), 0);
    for (const int frame : {10, 64, 95, 109, 139}) {
        const auto begin = std::lround(frame * 1000 / 30.0);
        EXPECT_EQ(send("seek A to " + std::to_string(begin)), 0);
        EXPECT_TRUE(showsFrame(frame));
        EXPECT_EQ(number("status A position wait"), begin);
        EXPECT_TRUE(keepsFrame(frame, 300));
        EXPECT_EQ(send("seek A to " + std::to_string(begin - 2)), 0);
        EXPECT_TRUE(showsFrame(frame - 1));
        EXPECT_EQ(number("status A position wait"), begin - 2);
        EXPECT_TRUE(keepsFrame(frame - 1, 300));
    }
}

TEST_F(ScreenWithSound, TheLastPictureStaysWhereSoundGoesOn)
{
    ASSERT_EQ(open("long_sound.mp4"), 0);
    EXPECT_EQ(send("seek A to 1500"), 0);
    EXPECT_EQ(ask("status A position"), "1500");
    EXPECT_TRUE(showsFrame(24));
    EXPECT_EQ(send("seek A to 0"), 0);
    EXPECT_TRUE(showsFrame(0));
    EXPECT_EQ(send("seek A to 2000"), 0);
    EXPECT_EQ(ask("status A position"), "2000");
    EXPECT_TRUE(showsFrame(24));
    EXPECT_EQ(send("step A reverse"), 0);
    EXPECT_EQ(ask("status A position"), "920");
    EXPECT_TRUE(showsFrame(23));
    EXPECT_EQ(send("step A"), 0);
    EXPECT_EQ(ask("status A position"), "960");
    EXPECT_TRUE(showsFrame(24));
    EXPECT_EQ(send("step A"), 0);
    EXPECT_EQ(ask("status A position"), "960");
    EXPECT_TRUE(showsFrame(24));
}

TEST_F(Screen, PlayAndPauseShowNoFurtherFrame)
{
    ASSERT_EQ(open("h264_30.mp4"), 0);
    EXPECT_TRUE(showsFrame(0));
    const auto playAndPause = [&](int frame) {
        EXPECT_EQ(send("Play A"), 0);
        EXPECT_EQ(send("Pause A"), 0);
        EXPECT_TRUE(showsFrame(frame));
        EXPECT_TRUE(keepsFrame(frame, 30));
    };
    playAndPause(0);
    EXPECT_EQ(send("seek A to 5000"), 0);
    playAndPause(150);
    EXPECT_EQ(send("step A"), 0);
    playAndPause(151);
    EXPECT_EQ(send("step A reverse"), 0);
    playAndPause(150);
}

TEST_F(Screen, AFrozenPositionIsTheFrameShown)
{
    ASSERT_EQ(open("h264_30.mp4"), 0);
    EXPECT_EQ(send("set A time format frames"), 0);
    for (int round = 0; round < 8; ++round) {
        const long start = number("status A position");
        EXPECT_EQ(send("Play A"), 0);
        EXPECT_TRUE(waitUntil([&] { return number("status A position") > start + 7; }));
        EXPECT_EQ(send("Pause A"), 0);
        const int frozen = static_cast<int>(number("status A position"));
        EXPECT_TRUE(showsFrame(frozen)) << frozen << " but " << window.frameIn(kPicture).value_or(-1);
        EXPECT_TRUE(keepsFrame(frozen, 30));
    }
}

TEST_F(Screen, PutPlacesFillsAndHides)
{
    ASSERT_EQ(open("h264_30.mp4"), 0);
    EXPECT_TRUE(showsFrame(0));
    const PixelRect place{100, 50, 500, 250};
    EXPECT_EQ(send("put A window at 100 50 400 200"), 0);
    EXPECT_TRUE(showsFrame(0, place));
    EXPECT_EQ(send("seek A to 1000"), 0);
    EXPECT_TRUE(showsFrame(30, place));
    EXPECT_EQ(send("put A window at 100 50 0 0"), 0);
    EXPECT_TRUE(waitUntil([&] { return !window.frameIn(place); }));
    EXPECT_EQ(send("seek A to 2000"), 0);
    EXPECT_EQ(send("put A window at 0 0 160 120"), 0);
    EXPECT_TRUE(showsFrame(60, {0, 0, 160, 120}));
}

TEST_F(Screen, AGroupStartsWhenItsPicturesAreOnTheScreen)
{
    const PixelRect right{320, 0, 640, 240};
    for (int round = 0; round < 5; ++round) {
        ASSERT_EQ(open("h264_30.mp4", "A"), 0);
        ASSERT_EQ(open("h264_25.mp4", "B"), 0);
        EXPECT_EQ(send("put A window at 0 0 320 240"), 0);
        EXPECT_EQ(send("put B window at 320 0 320 240"), 0);
        ASSERT_FALSE(window.frameIn(kPicture) || window.frameIn(right));
        EXPECT_EQ(send("Play A"), 0);
        EXPECT_EQ(send("Play B"), 0);
        while (mci.idle())
            std::this_thread::yield();
        EXPECT_TRUE(window.frameIn(kPicture));
        EXPECT_TRUE(window.frameIn(right));
        EXPECT_EQ(send("close all"), 0);
        EXPECT_TRUE(waitUntil([&] { return !window.frameIn(kPicture) && !window.frameIn(right); }));
    }
}

TEST_F(Screen, PutMultipliesWithThePixelRatioAndWhereDoesNot)
{
    MciService scaled(
        makeMpvEngine({.outputs = true, .pixelRatio = [](WindowHandle) { return 1.5; }, .mostDevices = 1}));
    std::array<char, 128> buffer{};
    const std::string command =
        "Open \"" + testMedia("h264_30.mp4") + "\" alias A parent " + std::to_string(window.handle());
    ASSERT_EQ(scaled.send(command), 0);
    EXPECT_EQ(scaled.send("put A window at 20 10 200 100"), 0);
    scaled.idle();
    EXPECT_TRUE(showsFrame(0, {30, 15, 330, 165}));
    EXPECT_EQ(scaled.send("Where A destination", buffer), 0);
    EXPECT_STREQ(buffer.data(), "0 0 320 240");
}

TEST_F(Screen, ThePictureTakesNoInput)
{
    ASSERT_EQ(open("h264_30.mp4"), 0);
    EXPECT_TRUE(showsFrame(0));
    EXPECT_GE(window.windowsInside().size(), 1u);
    EXPECT_FALSE(window.anyInsideTakesInput());
}

TEST_F(Screen, CloseTakesThePictureAway)
{
    ASSERT_EQ(open("h264_30.mp4"), 0);
    EXPECT_TRUE(showsFrame(0));
    EXPECT_EQ(send("close A"), 0);
    EXPECT_TRUE(window.windowsInside().empty());
    EXPECT_TRUE(waitUntil([&] { return !window.frameIn(kPicture); }));
}

TEST_F(Screen, AParentHasToBeAWindow)
{
    EXPECT_EQ(send("Open \"" + testMedia("short.mp4") + "\" alias A parent 7"), 346);
    EXPECT_EQ(send("Pause A"), 263);
    EXPECT_EQ(open("nowhere.mp4"), 275);
    EXPECT_EQ(open("text.avi"), 296);
    EXPECT_TRUE(waitUntil([&] { return window.windowsInside().empty(); }));
}

TEST_F(Screen, AVanishedParentIsSurvived)
{
    ASSERT_EQ(open("h264_30.mp4", "A"), 0);
    TestWindow other(640, 480);
    ASSERT_EQ(send("Open \"" + testMedia("h264_25.mp4") + "\" alias B parent " + std::to_string(other.handle())), 0);
    EXPECT_EQ(send("Play A"), 0);
    EXPECT_EQ(send("Play B"), 0);
    EXPECT_TRUE(waitUntil([&] { return number("status B position") > 200; }));
    other.destroy();
    EXPECT_EQ(send("put B window at 0 0 100 100"), 0);
    // Closing one output puts the default error handler back while the other still draws into nothing.
    ASSERT_EQ(open("short.mp4", "C"), 0);
    EXPECT_EQ(send("close C"), 0);
    EXPECT_TRUE(waitUntil([&] { return number("status A position") > 1000; }));
    EXPECT_EQ(send("put B window at 0 0 200 100"), 0);
    EXPECT_EQ(send("seek B to 0"), 0);
    EXPECT_EQ(send("close B"), 0);
    EXPECT_EQ(send("Pause A"), 0);
    EXPECT_TRUE(showsFrame(static_cast<int>(std::lround(number("status A position") * 0.03))));
}

TEST_F(Screen, AVirtualScreenIsDrawnByTheProcessor)
{
    const std::string renderer = probeRenderer();
    EXPECT_TRUE(renderer.empty() || isSoftwareRenderer(renderer)) << renderer;
}

TEST_F(Screen, TheFirstPictureHasTheSizeThatWasTold)
{
    struct SizeRow {
        const char* name;
        const char* size;
    };
    constexpr SizeRow kRows[]{{"anamorphic.mp4", "0 0 427 240"}, {"anamorphic.mkv", "0 0 320 320"},
                              {"anamorphic.mpg", "0 0 427 240"}, {"anamorphic.avi", "0 0 427 240"},
                              {"turned.mp4", "0 0 240 320"},     {"picture.png", "0 0 320 240"}};
    for (const SizeRow& row : kRows) {
        ASSERT_EQ(open(row.name), 0) << row.name;
        EXPECT_EQ(ask("Where A destination"), row.size) << row.name;
        EXPECT_EQ(ask("status A position"), "0");
        EXPECT_EQ(ask("Where A destination"), row.size) << row.name;
        EXPECT_EQ(send("close A"), 0);
    }
}

TEST_F(Screen, APictureFileIsAVideoOfOneFrame)
{
    ASSERT_EQ(open("picture.png"), 0);
    EXPECT_TRUE(showsFrame(0));
    EXPECT_GT(number("status A length"), number("status A position"));
    EXPECT_EQ(send("step A"), 0);
    EXPECT_EQ(ask("status A position"), "0");
    EXPECT_EQ(send("step A reverse"), 0);
    EXPECT_EQ(ask("status A position"), "0");
    EXPECT_TRUE(showsFrame(0));
    EXPECT_EQ(send("Play A"), 0);
    EXPECT_TRUE(waitUntil([&] { return ask("status A mode") == "stopped"; }));
    EXPECT_EQ(ask("status A position"), ask("status A length"));
    EXPECT_TRUE(showsFrame(0));
}

} // namespace tandrel
