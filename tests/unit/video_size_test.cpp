// The size of a video window, its picture and its strips.

#include "player_bench.h"

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

class VideoSize : public Player
{
protected:
    VideoSize() { start(); }
};

} // namespace

TEST_F(VideoSize, TheControlsStandWhereTheFormWasDrawn)
{
    const auto window = newForm<frmChild>();
    EXPECT_EQ(rectOf(window->picClose), (Rect{4320, 25, 255, 255}));
    EXPECT_EQ(rectOf(window->picHRes), (Rect{4440, 4020, 255, 135}));
    EXPECT_EQ(rectOf(window->picVRes), (Rect{4610, 3840, 135, 255}));
    EXPECT_EQ(rectOf(window->picBottom), (Rect{0, 4080, 4710, 25}));
    EXPECT_EQ(rectOf(window->picSide), (Rect{4680, 0, 25, 4080}));
    EXPECT_EQ(window->lblVolume.caption(), "VOLUME");
    EXPECT_EQ(window->lblError.caption(), "Video not Available");
    EXPECT_EQ(window->imgExit.container(), &window->picClose);
    EXPECT_EQ(window->lblVolume.container(), &window->Picture1);
    EXPECT_FALSE(window->Picture1.visible());
    EXPECT_EQ(window->Timer1.interval(), 2000);
    EXPECT_FALSE(window->Timer1.enabled());
}

TEST_F(VideoSize, WithATitleBarThePictureLeavesRoomForTheFrame)
{
    frmChild& window = open(0);
    window.Move({0, 0, 6100, 4400});
    EXPECT_EQ(rectOf(window.picVideo), (Rect{0, 0, 6000, 4000}));
    EXPECT_FALSE(console().TitleOff);
}

TEST_F(VideoSize, WithoutATitleBarThePictureFillsTheFormAndTheConsoleIsTold)
{
    frmChild& window = open(0);
    window.Style.Titlebar = false;
    window.Move({0, 0, 6100, 4400});
    EXPECT_EQ(rectOf(window.picVideo), (Rect{0, 0, 6100, 4400}));
    EXPECT_TRUE(console().TitleOff);
}

TEST_F(VideoSize, AFullVideoWithATitleBarKeepsItsPicture)
{
    frmChild& window = open(0);
    window.Move({0, 0, 6100, 4400});
    world.mci.clear();
    window.Full = true;
    window.Move({0, 0, 9000, 9000});
    EXPECT_EQ(rectOf(window.picVideo), (Rect{0, 0, 6000, 4000}));
    EXPECT_THAT(world.mci.sent(), IsEmpty());
}

TEST_F(VideoSize, TheStripsFollowThePicture)
{
    frmChild& window = open(0);
    window.Move({0, 0, 6100, 4400});
    EXPECT_EQ(rectOf(window.picClose), (Rect{6000 - 300, 25, 255, 255}));
    EXPECT_EQ(rectOf(window.picVRes), (Rect{6000 - 50, 4000 - 255 + 75, 135, 255}));
    EXPECT_EQ(rectOf(window.picHRes), (Rect{6000 - 255 + 75, 4000 - 135 + 90, 255, 135}));
    EXPECT_EQ(rectOf(window.picBottom), (Rect{0, 4000 - 25, 6000, 25}));
    EXPECT_EQ(rectOf(window.picSide), (Rect{6000 - 25, 0, 25, 4000}));
}

TEST_F(VideoSize, AResizeBringsCloseAndCornerToTheFront)
{
    world.backend.windows = true;
    frmChild& window = open(0);
    window.Move({0, 0, 6100, 4400});
    EXPECT_THAT(chosen(world.journal, [](const std::string& line) { return line.ends_with(" front"); }),
                ElementsAre("frmChild.picClose front", "frmChild.picVRes front", "frmChild.picHRes front"));
}

TEST_F(VideoSize, ThePictureSendsItsPixelsRoundedTiesToEven)
{
    frmChild& window = open(0);
    window.Move({0, 0, 100 + 15 * 320 + 7, 400 + 15 * 200 + 8});
    EXPECT_EQ(window.MediaWidth, 320);
    EXPECT_EQ(window.MediaHeigth, 201);
    EXPECT_THAT(commands(), ElementsAre("put A window at 0 0 320 201"));

    screen().setMetrics(10, 10, {0, 0, 1920, 1080});
    window.Move({0, 0, 100 + 2005, 400 + 2015});
    EXPECT_EQ(window.MediaWidth, 200);
    EXPECT_EQ(window.MediaHeigth, 202);
}

TEST_F(VideoSize, OneChangeOfSizeIsOneCommandAndAMoveIsNone)
{
    frmChild& window = open(0);
    window.Move({0, 0, 6100, 4400});
    window.Move({900, 900, 6100, 4400});
    window.Left = 0;
    EXPECT_EQ(world.mci.sent().size(), 1U);
    window.Width = 7600;
    window.Height = 5900;
    EXPECT_THAT(commands(), ElementsAre("put A window at 0 0 400 267", "put A window at 0 0 500 267",
                                        "put A window at 0 0 500 367"));
}

TEST_F(VideoSize, AHiddenWindowIsSizedAtItsShow)
{
    CurrentAlias = alias(0);
    frmChild& window = newSlot(film(0));
    window.Move({0, 0, 6100, 4400});
    EXPECT_THAT(world.mci.sent(), IsEmpty());
    window.Show();
    EXPECT_THAT(commands(), ElementsAre("put A window at 0 0 400 267"));
}

TEST_F(VideoSize, AFailedWindowGetsNoCommandsAndShowsItsError)
{
    frmChild& window = open(0);
    window.markFailed();
    EXPECT_EQ(window.tag(), "2");
    EXPECT_TRUE(window.hasFailed());
    EXPECT_FALSE(window.picVideo.visible());
    EXPECT_TRUE(window.lblError.visible());
    window.Move({0, 0, 6100, 4400});
    unload(window);
    EXPECT_THAT(world.mci.sent(), IsEmpty());
}

TEST_F(VideoSize, TheDeviceTellsTheSizeOfThePicture)
{
    frmChild& window = open(0);
    world.mci.answer("Where " + alias(0) + " destination", "3 4 720 576.5");
    window.ReadMediaSize();
    EXPECT_THAT(commands(), ElementsAre("Where A destination"));
    EXPECT_EQ(window.MediaWidth, 720);
    EXPECT_EQ(window.MediaHeigth, 576);
}

TEST_F(VideoSize, ASizeThatCantBeReadLeavesTheOldOneQuietly)
{
    frmChild& window = open(0);
    window.MediaWidth = 11;
    window.MediaHeigth = 12;
    for (const char* answer : {"", "0 0 640", "0 0 a b", "0 0 640 99999999999", "0 0 99999999999 480"}) {
        world.mci.answer("Where " + alias(0) + " destination", answer);
        EXPECT_NO_THROW(window.ReadMediaSize()) << answer;
        EXPECT_EQ(window.MediaWidth, 11) << answer;
        EXPECT_EQ(window.MediaHeigth, 12) << answer;
    }
}

} // namespace tandrel::test
