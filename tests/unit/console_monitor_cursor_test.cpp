// The cursor in full screen: it is hidden and parked when it rests, and comes back with the panel.

#include "fake_controls.h"
#include "monitor_bench.h"

#include "fullscreen/frm_panel.h"

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

class ConsoleMonitorCursor : public MonitorBench
{
protected:
    /// A full video on this monitor, the panel down, the pointer in the middle; pointers stay on monitors.
    void fullOn(const PixelRect& monitor)
    {
        world.pointer.confine = [monitor](PixelPoint to) {
            return PixelPoint{std::clamp<int>(to.x, monitor.left, monitor.right - 1),
                              std::clamp<int>(to.y, monitor.top, monitor.bottom - 1)};
        };
        play(1);
        moveTo(monitor);
        rightPressOn(*VideoWindows[0]);
        ASSERT_TRUE(FullScreenOn);
        VideoWindows[0]->SetFocus();
        world.pointer.place = home = {(monitor.left + monitor.right) / 2, (monitor.top + monitor.bottom) / 2};
        console().Timer4.Enabled = true;
        world.pointer.moves.clear();
        world.mci.clear();
    }
    /// The slow tick has seen the pointer, and two of the slowest see it rest.
    void rest()
    {
        tick2();
        tick4();
        tick4();
    }
    bool parked() { return console().CursorParked; }
    PixelPoint home;
};

const PixelRect kFirst{0, 0, 1920, 1080};

} // namespace

TEST_F(ConsoleMonitorCursor, ItIsParkedAtTheSecondTickThatSeesItRest)
{
    fullOn(kFirst);
    tick2();
    tick4();
    EXPECT_TRUE(console().CursorIdle);
    EXPECT_FALSE(parked());
    tick4();
    EXPECT_TRUE(parked());
    EXPECT_FALSE(world.pointer.shown);
    EXPECT_THAT(world.pointer.moves, ElementsAre(PixelPoint{1920, 150}));
    EXPECT_EQ(console().CursorHomeX, 960);
    EXPECT_EQ(console().CursorHomeY, 540);
    EXPECT_EQ(console().CursorLastX, 1920);
    EXPECT_EQ(console().CursorLastY, 150);
    EXPECT_TRUE(console().CursorIdle);
}

TEST_F(ConsoleMonitorCursor, WithoutFullScreenNothingIsParked)
{
    play(1);
    rest();
    rest();
    EXPECT_FALSE(console().CursorIdle);
    EXPECT_TRUE(world.pointer.shown);
    EXPECT_THAT(world.pointer.moves, IsEmpty());
}

TEST_F(ConsoleMonitorCursor, ACursorThatMovesIsNotIdle)
{
    fullOn(kFirst);
    tick2();
    tick4();
    world.pointer.place.x += 1;
    tick4();
    EXPECT_FALSE(console().CursorIdle);
    tick2();
    tick4();
    world.pointer.place.y += 1;
    tick4();
    EXPECT_FALSE(console().CursorIdle);
    EXPECT_FALSE(parked());
    console().CursorIdle = true;
    tick2();
    EXPECT_FALSE(console().CursorIdle) << "the slow tick sees moves too";
}

TEST_F(ConsoleMonitorCursor, AtRestItStaysIdleOnlyWhileNothingIsUp)
{
    fullOn(kFirst);
    tick2();
    const auto staysIdle = [&] {
        console().CursorIdle = true;
        tick2();
        return console().CursorIdle;
    };
    EXPECT_TRUE(staysIdle());
    FullMenuOpen = true;
    EXPECT_FALSE(staysIdle());
    FullMenuOpen = false;
    frmPanel().Top = 16199;
    EXPECT_FALSE(staysIdle());
    putPanelBelow();
    EXPECT_TRUE(staysIdle());
}

TEST_F(ConsoleMonitorCursor, ThePanelAMenuAndTheVolumeTipKeepItInSight)
{
    fullOn(kFirst);
    rest();
    world.pointer.shown = true;
    console().CursorHomeX = console().CursorHomeY = -1;
    console().CursorParked = false;
    const auto parks = [&] {
        console().CursorIdle = true;
        console().CursorLastX = static_cast<float>(world.pointer.place.x);
        console().CursorLastY = static_cast<float>(world.pointer.place.y);
        tick4();
        EXPECT_TRUE(console().CursorIdle);
        return parked();
    };
    FullMenuOpen = true;
    EXPECT_FALSE(parks());
    FullMenuOpen = false;
    console().VolumeTipOn = true;
    EXPECT_FALSE(parks());
    console().VolumeTipOn = false;
    frmPanel().Top = 16199;
    EXPECT_FALSE(parks());
    putPanelBelow();
    EXPECT_TRUE(parks());
}

TEST_F(ConsoleMonitorCursor, WhatIsParkedIsNotParkedAgain)
{
    fullOn(kFirst);
    rest();
    ASSERT_TRUE(parked());
    world.pointer.moves.clear();
    console().CursorLastX = static_cast<float>(world.pointer.place.x);
    tick4();
    tick4();
    EXPECT_THAT(world.pointer.moves, IsEmpty());
    EXPECT_EQ(console().CursorHomeX, 960) << "home is where it came from";
}

TEST_F(ConsoleMonitorCursor, TheTickNotesThatThePanelIsDown)
{
    fullOn(kFirst);
    PanelUp = true;
    tick4();
    EXPECT_FALSE(PanelUp);
    frmPanel().Top = 16199;
    PanelUp = true;
    tick4();
    EXPECT_TRUE(PanelUp);
}

TEST_F(ConsoleMonitorCursor, AtItsParkingPlaceItStaysParked)
{
    fullOn(kFirst);
    rest();
    ASSERT_TRUE(parked());
    tick2();
    tick2();
    EXPECT_TRUE(parked());
    world.pointer.place.x = 1915;
    tick2();
    EXPECT_TRUE(parked()) << "five pixels from the edge are there still";
    EXPECT_FALSE(PanelUp);
}

TEST_F(ConsoleMonitorCursor, AMoveFromThereBringsBothBack)
{
    for (const PixelPoint& to : {PixelPoint{1914, 150}, {1919, 151}, {1919, 149}, {0, 0}}) {
        fullOn(kFirst);
        rest();
        ASSERT_TRUE(parked());
        frmPanel().PanelIdle = true;
        world.pointer.moves.clear();
        world.pointer.place = to;
        tick2();
        EXPECT_FALSE(parked());
        EXPECT_EQ(console().CursorHomeY, -1);
        EXPECT_TRUE(world.pointer.shown);
        EXPECT_THAT(world.pointer.moves, ElementsAre(PixelPoint{960, 540}));
        EXPECT_TRUE(PanelUp);
        EXPECT_EQ(frmPanel().top(), 16200 - 914);
        EXPECT_EQ(frmPanel().lblTitle.caption(), "File:: a.avi");
        EXPECT_FALSE(frmPanel().PanelIdle);
        EXPECT_TRUE(console().Timer4.enabled());
        FullScreenOn = false;
        discardSlots();
    }
}

TEST_F(ConsoleMonitorCursor, OverADiscThePanelNamesTheDisc)
{
    fullOn(kFirst);
    rest();
    ASSERT_TRUE(parked());
    DVDMode = true;
    world.pointer.place = {5, 5};
    tick2();
    EXPECT_EQ(frmPanel().lblTitle.caption(), "DVD:: \"Movie\"");
}

TEST_F(ConsoleMonitorCursor, ALeftPressBringsItBackAtOnce)
{
    fullOn(kFirst);
    rest();
    ASSERT_TRUE(parked());
    frmPanel().PanelIdle = true;
    console().lblTimeClick.Caption = "Your Left Mouse Button Is Down";
    press();
    EXPECT_FALSE(parked());
    EXPECT_EQ(console().CursorHomeY, -1);
    EXPECT_TRUE(world.pointer.shown);
    EXPECT_EQ(world.pointer.place, home);
    EXPECT_TRUE(PanelUp);
    EXPECT_EQ(frmPanel().lblTitle.caption(), "File::") << "a held button too, and with this title";
    EXPECT_FALSE(frmPanel().PanelIdle);
    EXPECT_TRUE(console().Timer4.enabled());
}

TEST_F(ConsoleMonitorCursor, APressWithTheCursorInSightBringsNoPanel)
{
    fullOn(kFirst);
    press();
    EXPECT_FALSE(PanelUp);
    EXPECT_THAT(world.pointer.moves, IsEmpty());
}

TEST_F(ConsoleMonitorCursor, WhereTheSystemDoesNotMoveItItIsOnlyHiddenAndWakesWhenItMoves)
{
    fullOn(kFirst);
    world.pointer.stuck = true;
    rest();
    EXPECT_FALSE(world.pointer.shown);
    tick2();
    tick2();
    EXPECT_TRUE(parked()) << "it rests where it is";
    world.pointer.place.x += 1;
    tick2();
    EXPECT_FALSE(parked());
    EXPECT_TRUE(world.pointer.shown);
    EXPECT_TRUE(PanelUp);
}

TEST_F(ConsoleMonitorCursor, OnOtherMonitorsItIsParkedThereAndFoundThere)
{
    for (const PixelRect& monitor :
         {PixelRect{-1280, -1024, 0, 0}, {-1280, 300, 0, 1324}, {1920, 0, 3200, 1024}, {640, 480, 1920, 1504}}) {
        SCOPED_TRACE(std::to_string(monitor.left) + ", " + std::to_string(monitor.top));
        fullOn(monitor);
        rest();
        EXPECT_TRUE(parked());
        EXPECT_TRUE(monitor.contains(world.pointer.place));
        EXPECT_FALSE(world.pointer.place == home) << "out of the way";
        const PixelPoint place = world.pointer.place;
        tick2();
        EXPECT_TRUE(parked());
        EXPECT_EQ(world.pointer.place, place);
        world.pointer.place.x -= 100;
        tick2();
        EXPECT_FALSE(parked());
        EXPECT_EQ(world.pointer.place, home);
        EXPECT_TRUE(world.pointer.shown);
        world.pointer.confine = nullptr;
        FullScreenOn = false;
        discardSlots();
    }
}

TEST_F(ConsoleMonitorCursor, APlaceOfMinusOneIsAHomeLikeAnyOther)
{
    fullOn({-1280, -1024, 0, 0});
    world.pointer.place = home = {-1, -500};
    rest();
    EXPECT_TRUE(parked());
    EXPECT_FALSE(world.pointer.shown);
    world.pointer.place.x -= 100;
    tick2();
    EXPECT_FALSE(parked());
    EXPECT_TRUE(world.pointer.shown);
    EXPECT_EQ(world.pointer.place, home);
}

TEST_F(ConsoleMonitorCursor, WithAMonitorToTheRightItIsParkedOnItsOwnAllTheSame)
{
    fullOn(kFirst);
    world.pointer.confine = nullptr;
    rest();
    EXPECT_THAT(world.pointer.moves, ElementsAre(PixelPoint{1920, 150}, PixelPoint{1919, 150}));
    tick2();
    EXPECT_TRUE(parked());
}

TEST_F(ConsoleMonitorCursor, LeavingFullScreenLeavesNoCursorHidden)
{
    fullOn(kFirst);
    rest();
    ASSERT_TRUE(parked());
    ClickState = 1.0;
    tick2();
    EXPECT_FALSE(FullScreenOn);
    EXPECT_TRUE(world.pointer.shown);
    EXPECT_FALSE(parked());
}

} // namespace tandrel::test
