// A double click that puts windows elsewhere: the press that did it drags none of them.

#include "monitor_bench.h"

#include "fullscreen/frm_panel.h"
#include "toolkit/activation.h"

namespace tandrel::test
{

namespace
{

class ConsoleMonitorDoubleClick : public MonitorBench
{
protected:
    frmChild& video(int index) { return *VideoWindows.at(static_cast<std::size_t>(index)); }
    Rect placeOf(int index) { return rectOf(video(index)); }

    /// The pointer stands in the middle of a video, which is the selected one.
    void pointAt(int index)
    {
        CurrentAlias = alias(index);
        console().TrackHold = false;
        video(index).SetFocus();
        const PixelRect place = video(index).pixelRect();
        world.pointer.place = {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
    }
    void movePointer(int x, int y)
    {
        world.pointer.place.x += x;
        world.pointer.place.y += y;
    }
    /// Two presses, the second of which lasts.
    void doublePress()
    {
        release();
        press();
        release();
        press();
        ASSERT_EQ(ClickState, 1.0);
    }
};

} // namespace

TEST_F(ConsoleMonitorDoubleClick, ASmallOneStaysInTheLargePlaceWhileTheButtonIsHeld)
{
    play(3, "1");
    console().SlideShow();
    const Rect large = placeOf(2);
    pointAt(0);
    ASSERT_NE(placeOf(0), large);
    doublePress();
    EXPECT_EQ(placeOf(0), large);
    for (int tick = 0; tick < 3; ++tick) {
        movePointer(2, 1);
        press();
        EXPECT_EQ(placeOf(0), large) << tick;
    }
    EXPECT_FALSE(console().WindowDragged);
}

TEST_F(ConsoleMonitorDoubleClick, AMoveThatIsToldLateDragsNothingEither)
{
    play(3, "1");
    console().SlideShow();
    const Rect large = placeOf(2);
    pointAt(0);
    doublePress();
    world.pointer.left = false;
    movePointer(1, 0);
    video(0).picVideo.userMouseMove({.button = mouse::kLeft});
    EXPECT_EQ(placeOf(0), large);
}

TEST_F(ConsoleMonitorDoubleClick, TheNextPressDragsAgain)
{
    play(3, "1");
    console().SlideShow();
    pointAt(0);
    doublePress();
    release();
    tick2();
    pointAt(0);
    const Rect before = placeOf(0);
    press();
    movePointer(10, 4);
    press();
    EXPECT_EQ(placeOf(0), (Rect{before[0] + 150, before[1] + 60, before[2], before[3]}));
    EXPECT_TRUE(console().WindowDragged);
}

TEST_F(ConsoleMonitorDoubleClick, TheWindowThatComesBackFromFullScreenStaysWhereItWas)
{
    play(2);
    frmChild& window = video(1);
    window.Move({1500, 1650, 9000, 6000});
    pointAt(1);
    const Rect before = rectOf(window);
    rightPressOn(window);
    ASSERT_TRUE(window.Full);
    putPanelBelow();
    PanelUp = false;
    window.SetFocus();
    world.pointer.place = {300, 300};
    doublePress();
    tick2();
    ASSERT_FALSE(window.Full);
    EXPECT_EQ(rectOf(window), before);
    window.SetFocus();
    for (int tick = 0; tick < 3; ++tick) {
        movePointer(5, 5);
        press();
        EXPECT_EQ(rectOf(window), before);
    }
    EXPECT_FALSE(console().WindowDragged);
}

} // namespace tandrel::test
