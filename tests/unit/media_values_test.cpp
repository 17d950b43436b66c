// Numbers and times of the media layer, the picture's size in its window, and the state at the start.

#include "fake_services.h"

#include "media/console_face.h"
#include "media/mod_media.h"

#include <gmock/gmock.h>

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

class MediaValues : public ::testing::Test
{
protected:
    MediaValues() { CurrentAlias = "\"/films/a.avi\""; }
    std::string put(FixedPoint& percent)
    {
        world.mci.clear();
        MediaPutWindow(percent);
        return world.mci.sent().size() == 1 ? world.mci.sent().front() : "not one command";
    }
    World world;
};

Text timeOf(int ms)
{
    Long argument = ms;
    return FormatTime(argument);
}

} // namespace

TEST_F(MediaValues, NothingIsZeroTime) { EXPECT_EQ(timeOf(0), "0:00:00"); }

TEST_F(MediaValues, HoursAreNotPaddedMinutesAndSecondsAre)
{
    EXPECT_EQ(timeOf(999), "0:00:00");
    EXPECT_EQ(timeOf(1000), "0:00:01");
    EXPECT_EQ(timeOf(59999), "0:00:59");
    EXPECT_EQ(timeOf(60000), "0:01:00");
    EXPECT_EQ(timeOf(3599000), "0:59:59");
    EXPECT_EQ(timeOf(3600000), "1:00:00");
    EXPECT_EQ(timeOf(45296000), "12:34:56");
}

TEST_F(MediaValues, WholeDaysAreDropped)
{
    EXPECT_EQ(timeOf(86399000), "23:59:59");
    EXPECT_EQ(timeOf(86400000), "0:00:00");
    EXPECT_EQ(timeOf(90061000), "1:01:01");
    EXPECT_EQ(timeOf(2147483647), "20:31:23");
}

TEST_F(MediaValues, TheArgumentOfATimeComesBackAsSecondsTruncatedTowardsZero)
{
    Long ms = 90061999;
    FormatTime(ms);
    EXPECT_EQ(ms, 90061);
    ms = -1999;
    FormatTime(ms);
    EXPECT_EQ(ms, -1);
    EXPECT_EQ(timeOf(-1), "0:00:00") << "the answer for an unknown position";
}

TEST_F(MediaValues, ZeroPerCentIsTheNativeSizeAndStaysZero)
{
    NativeWidth = 640;
    NativeHeight = 480;
    FixedPoint percent;
    EXPECT_EQ(put(percent), "put \"/films/a.avi\" window at 0 0 640 480");
    EXPECT_TRUE(percent.isZero());
}

TEST_F(MediaValues, AHundredComesBackAsOneAndAsOnePerCentTheSecondTime)
{
    NativeWidth = 640;
    NativeHeight = 480;
    FixedPoint percent = FixedPoint::whole(100);
    EXPECT_EQ(put(percent), "put \"/films/a.avi\" window at 0 0 640 480");
    EXPECT_EQ(percent, FixedPoint::whole(1));
    EXPECT_EQ(put(percent), "put \"/films/a.avi\" window at 0 0 6.4 4.8");
    EXPECT_EQ(percent, FixedPoint(0.01));
}

TEST_F(MediaValues, AScaledSizeCarriesUpToFourDecimals)
{
    NativeWidth = 333;
    NativeHeight = 7;
    FixedPoint percent = FixedPoint::whole(75);
    EXPECT_EQ(put(percent), "put \"/films/a.avi\" window at 0 0 249.75 5.25");
    percent = FixedPoint(12.34);
    EXPECT_EQ(put(percent), "put \"/films/a.avi\" window at 0 0 41.0922 0.8638");
    percent = FixedPoint::whole(300);
    EXPECT_EQ(put(percent), "put \"/films/a.avi\" window at 0 0 999 21");
}

TEST_F(MediaValues, FixedPointParsesAWholeTextOrNothing)
{
    EXPECT_EQ(FixedPoint::parse("640"), FixedPoint::whole(640));
    EXPECT_EQ(FixedPoint::parse("-0.5"), FixedPoint(-0.5));
    for (const char* text : {"", " ", "640 ", " 640", "640x", "x", "--1", "nan", "-nan", "inf", "-inf", "1e99", "0x10"})
        EXPECT_FALSE(FixedPoint::parse(text).has_value()) << text;
}

TEST_F(MediaValues, FixedPointKeepsFourPlacesTiesToEven)
{
    EXPECT_EQ((FixedPoint::whole(1) / 20000).text(), "0");
    EXPECT_EQ((FixedPoint::whole(3) / 20000).text(), "0.0002");
    EXPECT_EQ(FixedPoint(1.23456).text(), "1.2346");
    EXPECT_EQ((FixedPoint::whole(1) / 3).text(), "0.3333");
    EXPECT_EQ((FixedPoint::whole(2) / 3).text(), "0.6667");
    EXPECT_EQ((FixedPoint(0.0001) * FixedPoint(0.5)).text(), "0");
    EXPECT_EQ((FixedPoint(0.0003) * FixedPoint(0.5)).text(), "0.0002");
}

TEST_F(MediaValues, FixedPointTextHasNoNeedlessZeros)
{
    EXPECT_EQ(FixedPoint().text(), "0");
    EXPECT_EQ(FixedPoint(2.5).text(), "2.5");
    EXPECT_EQ(FixedPoint(-2.0625).text(), "-2.0625");
    EXPECT_EQ(FixedPoint(-0.05).text(), "-0.05");
    EXPECT_EQ(FixedPoint::whole(-1000).text(), "-1000");
    EXPECT_EQ(FixedPoint(10.001).text(), "10.001");
}

TEST_F(MediaValues, FixedPointRoundsToWholeTiesToEven)
{
    EXPECT_EQ(FixedPoint(0.5).rounded(), 0);
    EXPECT_EQ(FixedPoint(1.5).rounded(), 2);
    EXPECT_EQ(FixedPoint(-1.5).rounded(), -2);
    EXPECT_EQ(FixedPoint(2.4999).rounded(), 2);
    EXPECT_THROW(FixedPoint::whole(3000000000).rounded(), RuntimeError);
}

TEST_F(MediaValues, TheSharedStateAtTheStart)
{
    resetSharedState();
    EXPECT_THAT(VideoWindows, IsEmpty());
    EXPECT_EQ(NextSlot, 0);
    EXPECT_EQ(CurrentAlias, "");
    EXPECT_EQ(FullMedia, "");
    EXPECT_EQ(MaxVideos, 12);
    EXPECT_EQ(SizePercent, 100);
    EXPECT_EQ(VolumeLevel, 50);
    EXPECT_EQ(ClickState, 0);
    for (const bool flag : {Playing, MediaStarted, FastForward, FastRewind, FullScreenOn, PanelUp, FullMenuOpen,
                            MkvOpen, DVDMode, ResizePending})
        EXPECT_FALSE(flag);
    for (const Long number : {MediaLengthMs, MediaFrames, CurrentPosMs, NativeWidth, NativeHeight, ClickCount, SavedTop,
                              SavedLeft, SavedHeight, SavedWidth, AppVersion, FFDShowLeft, FFDShowTop})
        EXPECT_EQ(number, 0);
    for (const Text& text : {AppTitle, Language, WindowsVersion, FFDShowPath})
        EXPECT_EQ(text, "");
}

TEST_F(MediaValues, AResetTakesEveryNameBackToItsStart)
{
    NextSlot = MediaLengthMs = NativeWidth = SavedTop = 9;
    MaxVideos = 3;
    SizePercent = 50;
    VolumeLevel = 1;
    FullScreenOn = Playing = ResizePending = true;
    CurrentAlias = FullMedia = AppTitle = "x";
    ClickState = 0.5;
    resetSharedState();
    EXPECT_EQ(NextSlot + MediaLengthMs + NativeWidth + SavedTop, 0);
    EXPECT_EQ(MaxVideos, 12);
    EXPECT_EQ(SizePercent, 100);
    EXPECT_EQ(VolumeLevel, 50);
    EXPECT_FALSE(FullScreenOn || Playing || ResizePending);
    EXPECT_EQ(CurrentAlias + FullMedia + AppTitle, "");
    EXPECT_EQ(ClickState, 0);
}

TEST_F(MediaValues, WithoutAConsoleTheLevelIsZeroAndSpeedsGoNowhere)
{
    installConsoleFace(nullptr);
    MediaPlay();
    EXPECT_THAT(world.mci.sent(), ElementsAre("Play \"/films/a.avi\" ", "setaudio \"/films/a.avi\" Volume to 0"));
}

TEST_F(MediaValues, InlineCommandsGiveTheirResultAndAnswer)
{
    world.mci.answer("status x mode", "playing", 0);
    world.mci.fail("Close x", 263);
    EXPECT_EQ(mciSend("Close x"), 263);
    const MciAnswer mode = mciAsk("status x mode");
    EXPECT_EQ(mode.result, 0);
    EXPECT_EQ(mode.text, "playing");
}

} // namespace tandrel::test
