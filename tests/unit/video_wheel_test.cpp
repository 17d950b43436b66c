// The wheel over a video window: the level in full screen, else the size.

#include "player_bench.h"

#include "desktop/wheel.h"
#include "fullscreen/frm_panel.h"
#include "toolkit/activation.h"

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

class VideoWheel : public Player
{
protected:
    VideoWheel()
    {
        start();
        window_ = &open(0);
    }
    frmChild& window() { return *window_; }
    void setLevel(int level)
    {
        console().InvertSlider.Value = 100 - level;
        console().VolumeSlider.Value = level;
        window().Volume = level;
    }
    void turnFull(int rotation)
    {
        window().Full = true;
        window().MouseWheel(0, rotation, 0, 0);
    }
    void turn(int rotation) { window().MouseWheel(0, rotation, 0, 0); }

private:
    frmChild* window_;
};

} // namespace

TEST_F(VideoWheel, InFullScreenATurnUpIsFiveLouder)
{
    setLevel(50);
    turnFull(120);
    EXPECT_EQ(console().InvertSlider.value(), 45);
    EXPECT_EQ(console().VolumeSlider.value(), 55);
    EXPECT_EQ(window().Volume, 55);
    EXPECT_EQ(VolumeLevel, 55);
    EXPECT_THAT(commands(), ElementsAre("setaudio A Volume to 550"));
}

TEST_F(VideoWheel, AWindowThatFailedTakesTheLevelInSilence)
{
    setLevel(50);
    window().markFailed();
    world.mci.clear();
    turnFull(120);
    EXPECT_EQ(window().Volume, 55);
    EXPECT_THAT(world.mci.sent(), ElementsAre());
}

TEST_F(VideoWheel, OnlyTheSignOfTheTurnCounts)
{
    setLevel(50);
    turnFull(1);
    turnFull(12000);
    EXPECT_EQ(window().Volume, 60);
    turnFull(-1);
    turnFull(-12000);
    turnFull(-7);
    EXPECT_EQ(window().Volume, 45);
}

TEST_F(VideoWheel, NoTurnSendsTheLevelAsItIs)
{
    setLevel(50);
    console().VolumeSlider.Value = 10;
    turnFull(0);
    EXPECT_EQ(console().InvertSlider.value(), 50);
    EXPECT_EQ(console().VolumeSlider.value(), 50) << "it follows the inverted one";
    EXPECT_THAT(commands(), ElementsAre("setaudio A Volume to 500"));
    EXPECT_TRUE(window().Picture1.visible());
}

TEST_F(VideoWheel, TheSlidersBoundsHoldTheLevel)
{
    setLevel(98);
    turnFull(1);
    EXPECT_EQ(window().Volume, 100);
    turnFull(1);
    EXPECT_EQ(window().Volume, 100);
    EXPECT_EQ(window().lblVolume.caption(), "VOLUME" + std::string(100, '|'));
    setLevel(3);
    turnFull(-1);
    EXPECT_EQ(window().Volume, 0);
    EXPECT_THAT(commands(),
                ElementsAre("setaudio A Volume to 1000", "setaudio A Volume to 1000", "setaudio A Volume to 0"));
}

TEST_F(VideoWheel, TheStripShowsABarOfTheLevelForTwoSeconds)
{
    setLevel(50);
    window().lblVolume.Width = 1234;
    turnFull(-1);
    EXPECT_EQ(window().lblVolume.caption(), "VOLUME" + std::string(45, '|'));
    EXPECT_EQ(window().Picture1.width(), 1234);
    EXPECT_TRUE(window().Picture1.visible());
    EXPECT_TRUE(window().Timer1.enabled());
    EXPECT_EQ(window().Timer1.interval(), 2000);
    EXPECT_TRUE(console().VolumeTipOn);
}

TEST_F(VideoWheel, ALevelOfZeroHasNoBar)
{
    setLevel(5);
    turnFull(-1);
    EXPECT_EQ(window().lblVolume.caption(), "VOLUME");
}

TEST_F(VideoWheel, WithoutASelectedVideoNoLevelIsSent)
{
    setLevel(50);
    CurrentAlias = "  ";
    turnFull(1);
    EXPECT_THAT(world.mci.sent(), IsEmpty());
    EXPECT_EQ(window().Volume, 55);
    EXPECT_EQ(VolumeLevel, 55);
}

TEST_F(VideoWheel, TheTickHidesTheStripAndStopsItself)
{
    turnFull(1);
    window().Timer1.tick();
    EXPECT_FALSE(window().Picture1.visible());
    EXPECT_FALSE(window().Timer1.enabled());
    EXPECT_EQ(window().Timer1.interval(), 0);
    EXPECT_FALSE(console().VolumeTipOn);
}

TEST_F(VideoWheel, ANewTurnShowsTheStripAgainAfterATick)
{
    turnFull(1);
    window().Timer1.tick();
    turnFull(1);
    EXPECT_TRUE(window().Timer1.running());
    window().Timer1.tick();
    EXPECT_FALSE(window().Picture1.visible());
}

TEST_F(VideoWheel, TheTickTakesTheFocusBackWhileThePanelIsOffTheScreen)
{
    turnFull(1);
    FullScreenOn = true;
    frmPanel().Show();
    frmPanel().Top = console().FullHeight - 1;
    window().Timer1.tick();
    EXPECT_EQ(activeForm(), &frmPanel()) << "the panel is on the screen";
    turnFull(1);
    frmPanel().Top = console().FullHeight;
    window().Timer1.tick();
    EXPECT_EQ(activeForm(), &window());
}

TEST_F(VideoWheel, WindowedATurnUpAddsTheWholePartOfATenth)
{
    window().Move({0, 0, 4819, 4509});
    turn(1);
    EXPECT_EQ(window().height(), 4509 + 450);
    EXPECT_EQ(window().width(), 4819 + 481);
    EXPECT_EQ(console().VolumeSlider.value(), 50) << "the level stays";
    EXPECT_FALSE(window().Picture1.visible());
}

TEST_F(VideoWheel, WindowedATurnDownTakesATenthWithItsFraction)
{
    window().Move({0, 0, 4819, 4509});
    turn(-1);
    EXPECT_EQ(window().height(), 4058) << "4058.1";
    EXPECT_EQ(window().width(), 4337) << "4337.1";
}

TEST_F(VideoWheel, GrowAndShrinkDoNotCancel)
{
    window().Move({0, 0, 5000, 4000});
    turn(1);
    turn(-1);
    EXPECT_EQ(window().height(), 3960);
    EXPECT_EQ(window().width(), 4950);
}

TEST_F(VideoWheel, GrowingLooksAtTheWidthOnly)
{
    window().Move({0, 0, console().FullWidth, 3000});
    turn(1);
    EXPECT_EQ(window().height(), 3000);
    window().Move({0, 0, console().FullWidth - 1, 20000});
    turn(1);
    EXPECT_EQ(window().height(), 22000);
}

TEST_F(VideoWheel, ShrinkingLooksAtTheHeightOnly)
{
    window().Move({0, 0, 9000, 2000});
    turn(-1);
    EXPECT_EQ(rectOf(window()), (Rect{0, 0, 9000, 2000}));
    window().Move({0, 0, 100, 2001});
    turn(-1);
    EXPECT_EQ(window().height(), 1801) << "1800.9";
    EXPECT_EQ(window().width(), 90);
}

TEST_F(VideoWheel, NoTurnLeavesTheSize)
{
    window().Move({0, 0, 5000, 4000});
    turn(0);
    EXPECT_EQ(rectOf(window()), (Rect{0, 0, 5000, 4000}));
}

TEST_F(VideoWheel, TheWindowSystemsWheelComesHere)
{
    world.backend.windows = true;
    frmChild& shown = open(1);
    shown.Move({0, 0, 5000, 4000});
    ASSERT_TRUE(hasWheelHook(shown.hWnd()));
    shown.WheelProcedure({0, 120, 10, 10});
    EXPECT_EQ(shown.width(), 5500);
    shown.WheelProcedure({0, 120, 5000, 10});
    EXPECT_EQ(shown.width(), 5500) << "the pointer is somewhere else";
}

TEST_F(VideoWheel, TheHookGoesWithTheWindow)
{
    world.backend.windows = true;
    const auto shown = std::dynamic_pointer_cast<frmChild>(open(1).shared_from_this());
    unload(*shown);
    EXPECT_FALSE(shown->WheelProcedure);
}

} // namespace tandrel::test
