// What the slow tick does over a full picture: the panel by touch, the refit, the ways out; and monitors that go.

#include "fake_controls.h"
#include "monitor_bench.h"

#include "fullscreen/frm_panel.h"
#include "toolkit/activation.h"

namespace tandrel::test
{

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

namespace
{

class ConsoleMonitorFullScreen : public MonitorBench
{
protected:
    /// The first of two films full, the panel down again.
    frmChild& full(const PixelRect& monitor = {0, 0, 1920, 1080})
    {
        play(2);
        moveTo(monitor);
        frmChild& window = *VideoWindows[0];
        window.SetFocus();
        window.Move({console().FullLeft + 1500, console().FullTop + 1650, 4500, 3000});
        rightPressOn(window);
        putPanelBelow();
        window.SetFocus();
        console().Timer4.Enabled = true;
        world.screenSaver.switched.clear();
        world.mci.clear();
        world.journal.clear();
        return window;
    }
    void doubleClick()
    {
        ClickState = 1.0;
        tick2();
    }
};

} // namespace

// The panel by touch.

TEST_F(ConsoleMonitorFullScreen, APointerAtTheLowerEdgeBringsThePanelUp)
{
    full();
    // 16200 - 100 twips are 1073 and a third pixels.
    world.pointer.place = {900, 1073};
    tick2();
    EXPECT_FALSE(PanelUp);
    EXPECT_TRUE(console().Timer4.enabled());
    world.pointer.place = {900, 1074};
    tick2();
    EXPECT_TRUE(PanelUp);
    EXPECT_TRUE(frmPanel().visible());
    EXPECT_EQ(frmPanel().top(), 16200 - 914);
    EXPECT_EQ(frmPanel().lblTitle.caption(), "File:: a.avi");
    EXPECT_FALSE(console().Timer4.enabled());
}

TEST_F(ConsoleMonitorFullScreen, NotUnderAMenuNorWhereThePanelStandsAlready)
{
    full();
    world.pointer.place = {900, 1079};
    FullMenuOpen = true;
    tick2();
    EXPECT_EQ(frmPanel().top(), 16200);
    FullMenuOpen = false;
    frmPanel().Top = 16100;
    tick2();
    EXPECT_EQ(frmPanel().top(), 16100) << "more than 100 twips of it are in sight";
    frmPanel().Top = 16101;
    tick2();
    EXPECT_EQ(frmPanel().top(), 16200 - 914);
}

TEST_F(ConsoleMonitorFullScreen, OverADiscTheTouchedPanelNamesTheDisc)
{
    full();
    DVDMode = true;
    world.pointer.place = {900, 1079};
    tick2();
    EXPECT_EQ(frmPanel().lblTitle.caption(), "DVD:: \"Movie\"");
}

TEST_F(ConsoleMonitorFullScreen, OnMonitorsBelowOrAboveTheirOwnLowerEdgeCounts)
{
    for (const PixelRect& monitor : {PixelRect{0, 500, 1280, 1524}, {-1280, -1024, 0, 0}}) {
        SCOPED_TRACE(monitor.top);
        full(monitor);
        world.pointer.place = {monitor.left + 600, monitor.bottom - 20};
        tick2();
        EXPECT_FALSE(PanelUp);
        world.pointer.place.y = monitor.bottom + 20;
        tick2();
        EXPECT_FALSE(PanelUp) << "that is another monitor";
        world.pointer.place.y = monitor.bottom - 1;
        tick2();
        EXPECT_TRUE(PanelUp);
        EXPECT_EQ(frmPanel().top(), monitor.bottom * 15 - 914);
        doubleClick();
        FullScreenOn = false;
        discardSlots();
    }
}

// The refit.

TEST_F(ConsoleMonitorFullScreen, TheRefitComesAtTheFifthTickBehindIts1)
{
    frmChild& window = full();
    console().FullPicture = {10, 20, 3000, 2000};
    console().RefitTicks = 1;
    console().SetFocus();
    for (const int count : {2, 3, 4, 5}) {
        tick2();
        EXPECT_EQ(console().RefitTicks, count);
        EXPECT_EQ(window.picVideo.width(), 28800);
    }
    window.Move({0, 0, 4500, 3000});
    tick2();
    EXPECT_EQ(console().RefitTicks, 0);
    EXPECT_EQ(rectOf(window), (Rect{0, 0, 28800, 16200}));
    EXPECT_EQ(rectOf(window.picVideo), (Rect{10, 20, 3000, 2000}));
    EXPECT_EQ(activeForm(), &window);
    world.mci.clear();
    tick2();
    EXPECT_THAT(startingWith(commands(), "put"), IsEmpty()) << "once";
}

TEST_F(ConsoleMonitorFullScreen, TheRefitWaitsForAWindowThatPlaysAndForFullScreen)
{
    frmChild& window = full();
    console().RefitTicks = 5;
    CurrentAlias = alias(7);
    tick2();
    EXPECT_EQ(console().RefitTicks, 5);
    CurrentAlias = alias(0);
    FullScreenOn = window.Full = false;
    tick2();
    EXPECT_EQ(console().RefitTicks, 5);
    FullScreenOn = window.Full = true;
    tick2();
    EXPECT_EQ(console().RefitTicks, 0);
}

TEST_F(ConsoleMonitorFullScreen, OnAnotherMonitorTheRefitCoversThatOne)
{
    frmChild& window = full({-1280, 300, 0, 1324});
    console().RefitTicks = 5;
    window.Move({0, 0, 4500, 3000});
    tick2();
    EXPECT_EQ(rectOf(window), (Rect{-19200, 4500, 19200, 15360}));
}

TEST_F(ConsoleMonitorFullScreen, ThePlaceOfThePictureIsKeptAtTheChangeToFullScreen)
{
    full();
    const TwipsRect kept = console().FullPicture;
    EXPECT_EQ(kept.width, 28800);
    EXPECT_EQ(kept.height, 16200);
    EXPECT_EQ(kept.left, 0);
    EXPECT_EQ(kept.top, 0);
}

// The ways out.

TEST_F(ConsoleMonitorFullScreen, OneShotTheConsoleStaysBack)
{
    world.backend.windows = true;
    full();
    console().KeepConsoleBack = true;
    doubleClick();
    EXPECT_FALSE(FullScreenOn);
    EXPECT_FALSE(console().KeepConsoleBack);
    EXPECT_THAT(world.screenSaver.switched, Contains(true));
    EXPECT_THAT(world.journal, Not(Contains("frmMedia activate")));
    EXPECT_EQ(activeForm(), VideoWindows[0].get());
}

TEST_F(ConsoleMonitorFullScreen, TheWayOutBringsAHiddenConsoleBack)
{
    full();
    console().Hide();
    doubleClick();
    EXPECT_TRUE(console().visible());
}

TEST_F(ConsoleMonitorFullScreen, AWindowThatIsMadeToFillTheScreenGetsTheFocus)
{
    play(2);
    console().SetFocus();
    VideoWindows[0]->fillScreen();
    EXPECT_EQ(activeForm(), VideoWindows[0].get());
}

TEST_F(ConsoleMonitorFullScreen, BehindTheWayOutTheTickGoesOn)
{
    full().Duration = "0:01:00";
    console().lblTitleBar.Caption = "another";
    stands(1, "60000");
    doubleClick();
    EXPECT_THAT(commands(), AllOf(Contains("Play  "), Contains("Play B from 0")));
    EXPECT_EQ(console().lblTitleBar.caption(), titled("a.avi").substr(1)) << "the marquee has begun";
}

TEST_F(ConsoleMonitorFullScreen, ADoubleClickInWindowsOnlySaysThatNoPanelIsUp)
{
    play(1);
    PanelUp = true;
    FullMedia = alias(0);
    doubleClick();
    EXPECT_FALSE(PanelUp);
    EXPECT_EQ(FullMedia, alias(0));
    EXPECT_EQ(ClickState, 0);
}

TEST_F(ConsoleMonitorFullScreen, ADiscOnTheVideoControlReturnsToItsPlace)
{
    OtherMediaBench bench;
    start();
    WindowsVersion = "WINDOWS XP";
    DVDMode = true;
    bench.dvdForm->Move({1500, 1650, 4500, 3000});
    bench.dvdForm->SetFocus();
    console().TrackHold = false;
    rightPressOn(*bench.dvdForm);
    ASSERT_TRUE(bench.dvdForm->Full);
    putPanelBelow();
    FullMedia = "left over";
    world.screenSaver.switched.clear();
    FullMenuOpen = true;
    doubleClick();
    EXPECT_TRUE(FullScreenOn) << "not under a menu";
    FullMenuOpen = false;
    world.pointer.shown = false;
    console().CursorHomeX = console().CursorHomeY = 300;
    console().CursorParked = true;
    // It has not moved, so that the tick itself does not wake it.
    world.pointer.place = {0, 0};
    doubleClick();
    EXPECT_FALSE(FullScreenOn || bench.dvdForm->Full || console().DvdFullByClick);
    EXPECT_EQ(rectOf(*bench.dvdForm), (Rect{1500, 1650, 4500, 3000}));
    EXPECT_EQ(bench.dvdForm->picDVD.borderStyle(), 1);
    EXPECT_TRUE(bench.dvdForm->hasTitleBar() && bench.dvdForm->hasBorder());
    EXPECT_THAT(world.screenSaver.switched, Contains(true));
    EXPECT_TRUE(FullMedia.empty());
    EXPECT_EQ(activeForm(), &console());
    EXPECT_TRUE(world.pointer.shown);
}

TEST_F(ConsoleMonitorFullScreen, APlayerThatIsFullIsLedBackAndNeverIn)
{
    for (const bool disc : {true, false}) {
        OtherMediaBench bench;
        start();
        WindowsVersion = "LINUX";
        DVDMode = disc;
        MkvOpen = !disc;
        world.screenSaver.switched.clear();
        doubleClick();
        EXPECT_THAT(bench.asked(), IsEmpty()) << "it is not full";
        EXPECT_THAT(world.screenSaver.switched, IsEmpty());
        FakePlayerControl& control = disc ? bench.dvd2 : bench.mkv;
        FakePlayerControl& other = disc ? bench.mkv : bench.dvd2;
        control.full = other.full = true;
        doubleClick();
        EXPECT_FALSE(control.full);
        EXPECT_TRUE(other.full) << "the other one is not touched";
        EXPECT_THAT(bench.asked(), ElementsAre(disc ? "frmDVD2 fullScreen off" : "frmMKV fullScreen off"));
        EXPECT_THAT(world.screenSaver.switched, ElementsAre(true));
        DVDMode = MkvOpen = false;
    }
}

TEST_F(ConsoleMonitorFullScreen, WhereThePlayersWindowIsGoneADoubleClickLeavesNothing)
{
    start();
    MkvOpen = PanelUp = true;
    world.screenSaver.switched.clear();
    doubleClick();
    EXPECT_THAT(world.screenSaver.switched, IsEmpty());
    EXPECT_FALSE(PanelUp);
}

TEST_F(ConsoleMonitorFullScreen, AFullFileBehindAPlayerReturnsByTheDoubleClick)
{
    OtherMediaBench bench;
    frmChild& window = full();
    MkvOpen = true;
    doubleClick();
    EXPECT_FALSE(window.Full);
    EXPECT_THAT(bench.asked(), IsEmpty());
}

TEST_F(ConsoleMonitorFullScreen, TheFlagThatNothingFillsTheScreenAnyMoreEnds)
{
    full().Full = false;
    FullMedia = "\"/films/gone.avi\"";
    doubleClick();
    EXPECT_FALSE(FullScreenOn);
    EXPECT_THAT(world.screenSaver.switched, ElementsAre(true));
}

// Monitors that go.

TEST_F(ConsoleMonitorFullScreen, WhereItsMonitorGoesTheWindowReturnsToASizeAndIntoReach)
{
    frmChild& window = full({1920, 0, 3840, 1080});
    console().Left = 30000;
    world.monitors.set({{0, 0, 1280, 1024}});
    console().CursorHomeX = console().CursorHomeY = 300;
    console().CursorParked = true;
    world.pointer.shown = false;
    console().Timer4.Enabled = false;
    services().monitors->changed();
    EXPECT_TRUE(world.pointer.shown) << "no cursor stays parked";
    EXPECT_EQ(console().CursorHomeX, -1);
    EXPECT_TRUE(console().Timer4.enabled());
    EXPECT_FALSE(FullScreenOn || window.Full || PanelUp);
    EXPECT_TRUE(FullMedia.empty());
    EXPECT_EQ(window.width(), 4500);
    EXPECT_EQ(window.height(), 3000);
    EXPECT_LT(window.left(), 1280 * 15);
    EXPECT_LT(console().left(), 1280 * 15);
    EXPECT_EQ(console().FullLeft, 0);
    EXPECT_EQ(console().FullWidth, 1280 * 15);
    EXPECT_FALSE(Loaded<class frmPanel>());
    EXPECT_THAT(world.screenSaver.switched, Contains(true));
}

TEST_F(ConsoleMonitorFullScreen, ADiscWhoseMonitorGoesReturnsTooAndSoDoTheWindowsOfPlayersThatStoodThere)
{
    OtherMediaBench bench;
    start();
    moveTo({1920, 0, 3840, 1080});
    WindowsVersion = "WINDOWS XP";
    DVDMode = true;
    bench.dvdForm->Move({30000, 1650, 4500, 3000});
    bench.dvd2Form->Move({30000, 0, 4500, 3000});
    bench.mkvForm->Move({30000, 0, 4500, 3000});
    bench.dvdForm->SetFocus();
    console().TrackHold = false;
    rightPressOn(*bench.dvdForm);
    ASSERT_EQ(bench.dvdForm->left(), 28800);
    world.monitors.set({{0, 0, 1280, 1024}});
    services().monitors->changed();
    EXPECT_FALSE(FullScreenOn || bench.dvdForm->Full || console().DvdFullByClick || PanelUp);
    EXPECT_EQ(bench.dvdForm->width(), 4500);
    EXPECT_FALSE(Loaded<class frmPanel>());
    for (const Form* form : {static_cast<Form*>(bench.dvdForm.get()), bench.dvd2Form.get(), bench.mkvForm.get()})
        EXPECT_LT(form->left(), 1280 * 15);
}

TEST_F(ConsoleMonitorFullScreen, AnotherMonitorMoreOrLessChangesNothing)
{
    const frmChild& window = full();
    world.monitors.set({{0, 0, 1920, 1080}, {1920, 0, 3840, 1080}});
    services().monitors->changed();
    EXPECT_TRUE(FullScreenOn && window.Full);
    EXPECT_EQ(rectOf(window), (Rect{0, 0, 28800, 16200}));
}

TEST_F(ConsoleMonitorFullScreen, WithNoMonitorLeftNothingEscapes)
{
    full();
    world.monitors.set({});
    EXPECT_NO_THROW(services().monitors->changed());
    EXPECT_TRUE(FullScreenOn) << "a desktop that tells of no monitor is taken for one of the size of the screen";
    EXPECT_NO_THROW(console().Timer2.Tick());
    EXPECT_NO_THROW(console().Timer4.Tick());
}

} // namespace tandrel::test
