// The size of the picture, and the box for full screen.

#include "fake_controls.h"
#include "player_bench.h"

#include "fullscreen/frm_panel.h"

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

class ConsoleSize : public Player
{
protected:
    ConsoleSize()
    {
        start("0");
        NativeWidth = 640;
        NativeHeight = 480;
    }
    /// What the button sends.
    std::vector<std::string> press(int index)
    {
        world.mci.clear();
        console().cmdSize[static_cast<std::size_t>(index)]->userClick();
        return commands();
    }
    void pressLarger(int times)
    {
        for (int time = 0; time < times; ++time)
            press(size::kLarger);
    }
    void pressSmaller(int times)
    {
        for (int time = 0; time < times; ++time)
            press(size::kSmaller);
    }
    Text label() { return console().lblSize.caption(); }
    /// The user ticks the box.
    void tick()
    {
        world.mci.clear();
        world.screenSaver.switched.clear();
        console().chkFullscreen.userClick();
    }
};

class ConsoleFullBox : public ConsoleSize
{
protected:
    ConsoleFullBox() { openSeveral(2); }
};

} // namespace

// The buttons.

TEST_F(ConsoleSize, TheControlsSayWhatTheyAre)
{
    EXPECT_EQ(console().cmdSize[size::kLarger]->caption(), "+");
    EXPECT_EQ(console().cmdSize[size::kSmaller]->caption(), "-");
    EXPECT_EQ(console().Label1.caption(), "Resize");
    EXPECT_EQ(console().Label2.caption(), "0");
    EXPECT_EQ(console().chkFullscreen.caption(), "Fullscreen");
    EXPECT_EQ(label(), "100 %");
}

TEST_F(ConsoleSize, PlusAndMinusScaleThePictureOfTheSelectedVideoByQuarters)
{
    openSeveral(2);
    EXPECT_THAT(press(size::kLarger), ElementsAre("put B window at 0 0 800 600"));
    EXPECT_EQ(label(), "125 %");
    EXPECT_THAT(press(size::kLarger), ElementsAre("put B window at 0 0 960 720"));
    EXPECT_THAT(press(size::kSmaller), ElementsAre("put B window at 0 0 800 600"));
    EXPECT_EQ(SizePercent, 125);
}

TEST_F(ConsoleSize, AtAHundredItIsTheNativeSize)
{
    open(0);
    SizePercent = 75;
    EXPECT_THAT(press(size::kLarger), ElementsAre("put A window at 0 0 640 480"));
    EXPECT_EQ(label(), "100 %");
    SizePercent = 125;
    EXPECT_THAT(press(size::kSmaller), ElementsAre("put A window at 0 0 640 480"));
}

TEST_F(ConsoleSize, ItStopsAtThreeTimesAndSaysSoAgain)
{
    open(0);
    pressLarger(8);
    ASSERT_EQ(SizePercent, 300);
    console().lblSize.Caption = "";
    EXPECT_THAT(press(size::kLarger), ElementsAre("put A window at 0 0 1920 1440"));
    EXPECT_EQ(SizePercent, 300);
    EXPECT_EQ(label(), "300 %");
}

TEST_F(ConsoleSize, ItStopsAtHalfTheSizeAndSaysSoAgain)
{
    open(0);
    pressSmaller(2);
    ASSERT_EQ(SizePercent, 50);
    console().lblSize.Caption = "";
    EXPECT_THAT(press(size::kSmaller), ElementsAre("put A window at 0 0 320 240"));
    EXPECT_EQ(SizePercent, 50);
    EXPECT_EQ(label(), "50 %");
}

TEST_F(ConsoleSize, WithNothingSelectedTheSizeStays)
{
    open(0);
    CurrentAlias.clear();
    EXPECT_THAT(press(size::kLarger), IsEmpty());
    EXPECT_THAT(press(size::kSmaller), IsEmpty());
    EXPECT_EQ(SizePercent, 100);
}

// The box.

TEST_F(ConsoleFullBox, ATickFillsTheScreenWithTheSelectedVideoAndTheBoxIsEmptyAgain)
{
    console().Timer4.Enabled = true;
    FastForward = true;
    tick();
    EXPECT_EQ(console().chkFullscreen.value(), 0);
    EXPECT_THAT(commands(),
                ElementsAre("setaudio B Volume to 500", "setaudio B Volume to 500", "put B window at 0 0 1920 1080"))
        << "both plays see the jump or the flag, and start nothing";
    EXPECT_THAT(world.screenSaver.switched, ElementsAre(true, false, true, false));
    EXPECT_TRUE(FullScreenOn);
    EXPECT_TRUE(VideoWindows[1]->Full);
    EXPECT_FALSE(VideoWindows[0]->Full);
    EXPECT_EQ(FullMedia, alias(1));
    EXPECT_TRUE(PanelUp);
    EXPECT_TRUE(Loaded<class frmPanel>() && frmPanel().visible());
    EXPECT_FALSE(console().Timer4.enabled());
    EXPECT_FALSE(FastForward);
}

TEST_F(ConsoleFullBox, TheFirstOfTheTwoPlaysStartsTheVideo)
{
    tick();
    EXPECT_THAT(commands(), ElementsAre("Play B ", "setaudio B Volume to 500", "setaudio B Volume to 500",
                                        "put B window at 0 0 1920 1080"));
}

TEST_F(ConsoleFullBox, InFullScreenATickLeadsBackToTheWindow)
{
    VideoWindows[1]->Move({1500, 1650, 4500, 3000});
    tick();
    ASSERT_TRUE(VideoWindows[1]->Full);
    tick();
    EXPECT_FALSE(FullScreenOn);
    EXPECT_FALSE(VideoWindows[1]->Full);
    EXPECT_EQ(rectOf(*VideoWindows[1]), (Rect{1500, 1650, 4500, 3000}));
    EXPECT_EQ(console().chkFullscreen.value(), 0);
    EXPECT_FALSE(Loaded<class frmPanel>());
    EXPECT_FALSE(PanelUp);
    EXPECT_TRUE(world.screenSaver.switched.back());
}

TEST_F(ConsoleFullBox, AnEmptyBoxEndsTheFlagAndPlays)
{
    FullScreenOn = true;
    world.screenSaver.switched.clear();
    console().chkFullscreen.Click();
    EXPECT_FALSE(FullScreenOn);
    EXPECT_THAT(world.screenSaver.switched, ElementsAre(true));
    EXPECT_THAT(commands(), ElementsAre("Play B ", "setaudio B Volume to 500"));
}

TEST_F(ConsoleFullBox, WithNothingSelectedNothingFillsTheScreen)
{
    CurrentAlias.clear();
    tick();
    EXPECT_FALSE(FullScreenOn);
    EXPECT_TRUE(FullMedia.empty());
    EXPECT_FALSE(VideoWindows[0]->Full || VideoWindows[1]->Full);
    EXPECT_TRUE(world.screenSaver.switched.back());
    VideoWindows.clear();
    CurrentAlias = alias(0);
    tick();
    EXPECT_FALSE(FullScreenOn);
    EXPECT_FALSE(Loaded<class frmPanel>());
}

TEST_F(ConsoleFullBox, AHiddenVideoDoesNotFillTheScreen)
{
    VideoWindows[1]->Hide();
    tick();
    EXPECT_FALSE(VideoWindows[1]->Full);
    EXPECT_FALSE(FullScreenOn);
}

TEST_F(ConsoleFullBox, AnHdFilmAndADiscOnThePlayerFillTheScreenThemselves)
{
    OtherMediaBench bench;
    MkvOpen = true;
    tick();
    EXPECT_THAT(bench.asked(), ElementsAre("frmMKV fullScreen on"));
    EXPECT_FALSE(world.screenSaver.switched.back());
    bench.forget();
    DVDMode = true;
    tick();
    EXPECT_THAT(bench.asked(), ElementsAre("frmDVD2 fullScreen on"));
    bench.forget();
    bench.dvd2.full = false;
    bench.dvd2.fails = true;
    tick();
    EXPECT_THAT(bench.asked(), IsEmpty());
    otherMedia() = {};
    tick();
    EXPECT_EQ(console().chkFullscreen.value(), 0);
    EXPECT_FALSE(VideoWindows[1]->Full) << "the file behind it does not";
}

TEST_F(ConsoleFullBox, ADiscOnTheVideoControlFillsTheScreenAndGoesBack)
{
    OtherMediaBench bench;
    DVDMode = true;
    WindowsVersion = "WINDOWS XP";
    const Rect before = rectOf(*bench.dvdForm);
    tick();
    EXPECT_TRUE(bench.dvdForm->Full);
    EXPECT_TRUE(FullScreenOn);
    EXPECT_EQ(rectOf(*bench.dvdForm), (Rect{0, 0, 28800, 16200}));
    EXPECT_EQ(frmPanel().lblTitle.caption(), "DVD:: \"Movie\"");
    EXPECT_FALSE(console().Timer4.enabled());
    EXPECT_FALSE(VideoWindows[1]->Full);
    tick();
    EXPECT_FALSE(bench.dvdForm->Full);
    EXPECT_EQ(rectOf(*bench.dvdForm), before);
}

TEST_F(ConsoleFullBox, OnEachMonitorTheWindowAndThePanelAreWhereTheConsoleIs)
{
    console().FullLeft = -19200;
    console().FullTop = -15360;
    console().FullWidth = 19200;
    console().FullHeight = 15360;
    tick();
    EXPECT_EQ(rectOf(*VideoWindows[1]), (Rect{-19200, -15360, 19200, 15360}));
    EXPECT_EQ(rectOf(frmPanel()), (Rect{-19200, -914, 19200, 915}));
}

} // namespace tandrel::test
