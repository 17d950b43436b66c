// Video windows that follow the pointer while the left button is held, by their picture or by a strip.

#include "fake_controls.h"
#include "monitor_bench.h"

#include "toolkit/activation.h"

namespace tandrel::test
{

namespace
{

class ConsoleMonitorDrag : public MonitorBench
{
protected:
    /// A window whose inside begins and ends on whole pixels: 15 twips each.
    frmChild& window()
    {
        play(2);
        frmChild& selected = *VideoWindows[1];
        selected.Move({1505, 1500, 4495, 3100});
        return selected;
    }
    /// A tick with the pointer at this place of the desktop, in twips of whole pixels.
    void dragTo(int x, int y)
    {
        world.pointer.place = {x / 15, y / 15};
        press();
    }
    std::pair<int, int> offset() { return {console().DragOffsetX, console().DragOffsetY}; }
    const std::pair<int, int> none{0, 0};
};

} // namespace

TEST_F(ConsoleMonitorDrag, TheWindowFollowsThePointer)
{
    frmChild& selected = window();
    dragTo(3000, 3000);
    EXPECT_EQ(offset(), (std::pair{1495, 1500}));
    EXPECT_TRUE(console().WindowDragged);
    EXPECT_EQ(rectOf(selected), (Rect{1505, 1500, 4495, 3100}));
    dragTo(3300, 2700);
    EXPECT_EQ(rectOf(selected), (Rect{1805, 1200, 4495, 3100}));
    dragTo(-3000, -1500);
    EXPECT_EQ(rectOf(selected), (Rect{-4495, -3000, 4495, 3100})) << "beyond the monitor too";
    release();
    EXPECT_EQ(offset(), none);
    EXPECT_TRUE(console().WindowDragged);
    world.pointer.place = {300, 300};
    tick3();
    EXPECT_EQ(rectOf(selected), (Rect{-4495, -3000, 4495, 3100}));
}

TEST_F(ConsoleMonitorDrag, ItBeginsInsideOfTheStripsAndBelowTheCaption)
{
    struct Row {
        int x;
        int y;
        bool begins;
    };
    // The window reaches from 1505 to 6000 and from 1500 to 4600.
    for (const Row& row : std::vector<Row>{{1605, 3000, false},
                                           {1620, 3000, true},
                                           {3000, 1800, false},
                                           {3000, 1815, true},
                                           {5900, 3000, true},
                                           {5910, 3000, false},
                                           {3000, 4485, true},
                                           {3000, 4500, false},
                                           {0, 0, false}}) {
        SCOPED_TRACE(std::to_string(row.x) + ", " + std::to_string(row.y));
        window();
        console().WindowDragged = false;
        dragTo(row.x, row.y);
        EXPECT_EQ(offset() != none, row.begins);
        EXPECT_EQ(console().WindowDragged, row.begins);
        release();
        discardSlots();
    }
}

TEST_F(ConsoleMonitorDrag, OnlyTheSelectedWindowInFrontIsDragged)
{
    frmChild& selected = window();
    CurrentAlias = alias(0);
    dragTo(3000, 3000);
    EXPECT_EQ(offset(), none) << "the one in front is not the selected one";
    CurrentAlias = alias(7);
    dragTo(3000, 3000);
    EXPECT_EQ(offset(), none) << "no slot plays that";
    CurrentAlias = alias(1);
    selected.Full = true;
    dragTo(3000, 3000);
    EXPECT_EQ(offset(), none) << "it fills the screen";
    selected.Full = false;
    applicationDeactivated();
    dragTo(3000, 3000);
    EXPECT_EQ(offset(), none) << "another program is in front";
    selected.SetFocus();
    dragTo(3000, 3000);
    EXPECT_NE(offset(), none);
}

TEST_F(ConsoleMonitorDrag, BehindTheConsoleNoDragBegins)
{
    frmChild& selected = window();
    console().TrackHold = true;
    dragTo(3000, 3000);
    EXPECT_EQ(offset(), none);
    console().DragHandle = drag::kCorner;
    dragTo(9000, 9000);
    EXPECT_EQ(rectOf(selected), (Rect{1505, 1500, 4495, 3100}));
}

TEST_F(ConsoleMonitorDrag, EachStripSizesItsOwnSides)
{
    frmChild& selected = window();
    console().DragHandle = drag::kCorner;
    dragTo(7500, 6000);
    EXPECT_EQ(rectOf(selected), (Rect{1505, 1500, 5995, 4500}));
    console().DragHandle = drag::kBottom;
    dragTo(9000, 7500);
    EXPECT_EQ(rectOf(selected), (Rect{1505, 1500, 5995, 6000}));
    console().DragHandle = drag::kSide;
    dragTo(6000, 9000);
    EXPECT_EQ(rectOf(selected), (Rect{1505, 1500, 4495, 6000}));
    EXPECT_FALSE(console().WindowDragged) << "it is where it was";
    release();
    EXPECT_EQ(console().DragSizeWidth, 0);
    EXPECT_EQ(console().DragSizeHeight, 0);
}

TEST_F(ConsoleMonitorDrag, ASideOf1000TwipsAndLessIsNotTaken)
{
    frmChild& selected = window();
    selected.Move({1500, 1500, 4500, 3000});
    console().DragHandle = drag::kCorner;
    dragTo(1500 + 990, 1500 + 990);
    EXPECT_EQ(rectOf(selected), (Rect{1500, 1500, 4500, 3000}));
    selected.Move({1490, 1490, 4500, 3000});
    dragTo(2490, 2490);
    EXPECT_EQ(rectOf(selected), (Rect{1490, 1490, 4500, 3000})) << "just 1000";
    dragTo(2505, 2490);
    EXPECT_EQ(rectOf(selected), (Rect{1490, 1490, 1015, 3000})) << "each side for itself";
    dragTo(-3000, 3000);
    EXPECT_EQ(rectOf(selected), (Rect{1490, 1490, 1015, 1510}));
}

TEST_F(ConsoleMonitorDrag, AStripThatIsHeldKeepsTheWindowWhereItIs)
{
    frmChild& selected = window();
    dragTo(3000, 3000);
    console().DragHandle = drag::kSide;
    dragTo(6000, 6000);
    EXPECT_EQ(selected.left(), 1505);
    EXPECT_EQ(selected.top(), 1500);
    EXPECT_EQ(selected.width(), 4495);
}

TEST_F(ConsoleMonitorDrag, TheWindowsOfDiscsAndHdFilmsAreDraggedToo)
{
    OtherMediaBench bench;
    for (const auto& [system, disc, hd] :
         {std::tuple{"WINDOWS XP", true, false}, {"LINUX", true, true}, {"LINUX", false, true}}) {
        SCOPED_TRACE(system + std::string(disc ? " disc" : " film"));
        window();
        WindowsVersion = system;
        DVDMode = disc;
        MkvOpen = hd;
        Form& form =
            disc ? (Text(system) == "LINUX" ? *bench.dvd2Form : static_cast<Form&>(*bench.dvdForm)) : *bench.mkvForm;
        form.Move({1500, 1500, 4500, 3000});
        form.SetFocus();
        console().TrackHold = false;
        dragTo(3000, 3000);
        dragTo(3150, 3300);
        EXPECT_EQ(rectOf(form), (Rect{1650, 1800, 4500, 3000}));
        EXPECT_FALSE(console().WindowDragged) << "that is for the layout of the file videos";
        console().DragHandle = drag::kCorner;
        dragTo(7650, 6300);
        EXPECT_EQ(rectOf(form), (Rect{1650, 1800, 6000, 4500}));
        console().DragHandle = drag::kNone;
        release();
        FullScreenOn = true;
        dragTo(3000, 3000);
        EXPECT_EQ(offset(), none) << "in full screen it stays";
        release();
        FullScreenOn = DVDMode = MkvOpen = false;
        discardSlots();
    }
}

TEST_F(ConsoleMonitorDrag, BesideAnHdFilmTheSelectedFileIsDraggedWhereItIsInFront)
{
    frmChild& selected = window();
    OtherMediaBench bench;
    MkvOpen = true;
    selected.SetFocus();
    dragTo(3000, 3000);
    dragTo(3300, 2700);
    EXPECT_EQ(rectOf(selected), (Rect{1805, 1200, 4495, 3100}));
    EXPECT_TRUE(console().WindowDragged);
}

TEST_F(ConsoleMonitorDrag, WhereTheWindowIsGoneThereIsNothingToDrag)
{
    play(1);
    world.pointer.place = {console().pixelRect().left + 200, console().pixelRect().top + 100};
    MkvOpen = true;
    EXPECT_NO_THROW(press());
    DVDMode = true;
    EXPECT_NO_THROW(press());
    WindowsVersion = "WINDOWS XP";
    EXPECT_NO_THROW(press());
    EXPECT_EQ(offset(), none);
}

TEST_F(ConsoleMonitorDrag, BetweenTheTicksAMoveOverTheWindowDragsOn)
{
    frmChild& selected = window();
    world.pointer.place = {200, 200};
    console().followDrag();
    EXPECT_EQ(offset(), none) << "a tick begins the drag";
    dragTo(3000, 3000);
    world.pointer.place = {220, 220};
    console().followDrag();
    EXPECT_EQ(rectOf(selected), (Rect{1805, 1800, 4495, 3100}));
    console().Timer3.Enabled = false;
    world.pointer.place = {300, 300};
    console().followDrag();
    EXPECT_EQ(rectOf(selected), (Rect{1805, 1800, 4495, 3100}));
}

TEST_F(ConsoleMonitorDrag, AMoveOverAHeldStripSizesTheWindowAtOnce)
{
    frmChild& selected = window();
    selected.picVRes.userMouseDown({mouse::kLeft, 0, 5, 5});
    world.pointer.place = {500, 400};
    selected.picVRes.userMouseMove({mouse::kLeft, 0, 5, 5});
    EXPECT_EQ(rectOf(selected), (Rect{1505, 1500, 5995, 4500}));
    EXPECT_EQ(offset(), none);
}

TEST_F(ConsoleMonitorDrag, TheRightButtonLeavesADragAsItIs)
{
    frmChild& selected = window();
    class frmMedia& dragging = console();
    const auto fields = [&] {
        return std::vector<int>{dragging.DragOffsetX, dragging.DragOffsetY, dragging.DragSizeWidth,
                                dragging.DragSizeHeight};
    };
    const std::vector<int> begun{11, 12, 13, 14};
    dragging.DragOffsetX = 11;
    dragging.DragOffsetY = 12;
    dragging.DragSizeWidth = 13;
    dragging.DragSizeHeight = 14;
    world.pointer.place = {0, 0};
    world.pointer.right = true;
    release();
    EXPECT_EQ(fields(), begun);
    press();
    EXPECT_EQ(fields(), begun);
    EXPECT_EQ(rectOf(selected), (Rect{1505, 1500, 4495, 3100})) << "nor does the window follow";
    world.pointer.right = false;
    release();
    EXPECT_EQ(fields(), (std::vector<int>{0, 0, 0, 0}));
}

TEST_F(ConsoleMonitorDrag, AWindowOnAMonitorToTheLeftAndAboveIsDraggedInItsPlace)
{
    frmChild& selected = window();
    selected.Move({-9000, -6000, 4500, 3000});
    dragTo(-7500, -4500);
    EXPECT_EQ(offset(), (std::pair{1500, 1500}));
    dragTo(-7200, -4800);
    EXPECT_EQ(rectOf(selected), (Rect{-8700, -6300, 4500, 3000}));
}

TEST_F(ConsoleMonitorDrag, TheLastReadingOfThePointerIsKeptInPixels)
{
    window();
    dragTo(3000, 3150);
    EXPECT_EQ(console().CursorPos, (PixelPoint{200, 210}));
}

} // namespace tandrel::test
