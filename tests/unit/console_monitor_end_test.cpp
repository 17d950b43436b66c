// The end of the selected video: it begins again, or the next one of the list takes over.

#include "monitor_bench.h"

#include "fullscreen/frm_panel.h"
#include "toolkit/activation.h"

namespace tandrel::test
{

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

namespace
{

class ConsoleMonitorEnd : public MonitorBench
{
protected:
    /// The selected film of several stands at its end.
    void playToTheEnd(int count, const Text& slideMode, int selected = 0)
    {
        play(count, slideMode);
        VideoWindows[static_cast<std::size_t>(selected)]->SetFocus();
        stands(selected, "60000");
        world.mci.clear();
    }
    /// Ticks at the end until the given one, which is left to the test.
    void ticksBefore(int tick)
    {
        for (int done = 1; done < tick; ++done)
            tick1();
    }
    /// What this tick sends beside its questions.
    std::vector<std::string> moved()
    {
        return chosen(sentBy(console().Timer1), [](const std::string& line) {
            return !line.starts_with("set ") && !line.starts_with("status ");
        });
    }
};

} // namespace

TEST_F(ConsoleMonitorEnd, TheDisplayGoesBackToTheBeginning)
{
    playToTheEnd(1, "0");
    stands(0, "3723000", "3723000");
    console().SeekSlider.Max = 100;
    console().SeekSlider.Value = 50;
    console().lblCurTime.Caption = "1:02:02";
    console().lblTitleBar.Caption = "vi ]";
    EXPECT_THAT(sentBy(console().Timer1),
                ElementsAre("set A time format ms", "status A position", "status A length", "set A time format frames",
                            "status A length", "set A time format ms", "status A length"));
    EXPECT_EQ(console().lblCurTime.caption(), "0:00:00");
    EXPECT_EQ(console().lblDuration.caption(), "1:02:03");
    EXPECT_EQ(console().lblTitleBar.caption(), titled("a.avi"));
    EXPECT_EQ(console().SeekSlider.value(), 0);
    EXPECT_EQ(console().SeekSlider.maximum(), 3723000);
}

TEST_F(ConsoleMonitorEnd, TheLengthIsCutAsOneWithASingleFigureForItsHours)
{
    playToTheEnd(1, "0");
    stands(0, "36309000", "36309000");
    tick1();
    EXPECT_EQ(console().lblDuration.caption(), "1::0::0") << "of 10:05:09";
}

TEST_F(ConsoleMonitorEnd, ThePanelKeepsItsTimeAtTheEnd)
{
    playToTheEnd(1, "0");
    FullScreenOn = PanelUp = true;
    frmPanel().lblCurrent.Caption = "0:00:59";
    tick1();
    EXPECT_EQ(console().lblCurTime.caption(), "0:00:00");
    EXPECT_EQ(frmPanel().lblCurrent.caption(), "0:00:59");
}

TEST_F(ConsoleMonitorEnd, TheFirstReplayComesBehind21TicksAndTheNextAtOnce)
{
    playToTheEnd(1, "0");
    for (int tick = 1; tick <= 21; ++tick)
        EXPECT_THAT(moved(), IsEmpty()) << tick;
    EXPECT_EQ(console().EndTicks, 21);
    EXPECT_THAT(moved(), ElementsAre("seek A to 0", "Play A"));
    EXPECT_THAT(moved(), ElementsAre("seek A to 0", "Play A")) << "as long as the device still stands at the end";
    stands(0, "10");
    EXPECT_THAT(moved(), IsEmpty());
    stands(0, "60000");
    EXPECT_THAT(moved(), ElementsAre("seek A to 0", "Play A"));
    EXPECT_EQ(console().EndTicks, 21) << "nothing sets the count back";
}

TEST_F(ConsoleMonitorEnd, ACountOf30AndMoreReplaysNoMore)
{
    playToTheEnd(1, "0");
    console().EndTicks = 29;
    EXPECT_THAT(moved(), Contains("Play A"));
    console().EndTicks = 30;
    EXPECT_THAT(moved(), IsEmpty());
}

TEST_F(ConsoleMonitorEnd, InPlayListModeTheNextTakesOverBehindTenTicksAndThenAtOnce)
{
    playToTheEnd(2, "1");
    for (int tick = 1; tick <= 10; ++tick)
        EXPECT_THAT(moved(), IsEmpty()) << tick;
    tick1();
    EXPECT_EQ(CurrentAlias, alias(1));
    EXPECT_EQ(console().EndTicks, 10);
    stands(1, "60000");
    console().SlideMode = "1";
    tick1();
    EXPECT_EQ(CurrentAlias, alias(0)) << "the first tick at the end of the last one leads back to the first";
}

TEST_F(ConsoleMonitorEnd, WhatEndsRestsAtItsBeginningAndWhatFollowsPlaysInTheLargePlace)
{
    playToTheEnd(3, "1");
    ticksBefore(11);
    const auto sent = sentBy(console().Timer1);
    // Behind the seven questions of the tick.
    ASSERT_GT(sent.size(), 9U);
    EXPECT_EQ(sent[7], "set A time format ms");
    EXPECT_EQ(sent[8], "seek A to 0");
    EXPECT_THAT(sent, Not(Contains("Play A")));
    EXPECT_THAT(sent, Contains("Play B"));
    EXPECT_THAT(sent, Not(Contains("Play C")));
    EXPECT_THAT(paused(), ElementsAre(1, 0, 1));
    EXPECT_EQ(activeForm(), VideoWindows[1].get());
    EXPECT_GT(VideoWindows[1]->width(), VideoWindows[0]->width());
}

TEST_F(ConsoleMonitorEnd, DeadAndBrokenSlotsAreNotTheNext)
{
    playToTheEnd(4, "1");
    VideoWindows[1]->MediaFile.clear();
    VideoWindows[2]->markFailed();
    ticksBefore(11);
    tick1();
    EXPECT_EQ(CurrentAlias, alias(3));
}

TEST_F(ConsoleMonitorEnd, WithNothingBehindItTheVideoStaysUnlessItsSlotIsTheLast)
{
    playToTheEnd(3, "1", 1);
    VideoWindows[2]->MediaFile.clear();
    ticksBefore(11);
    EXPECT_THAT(moved(), IsEmpty()) << "the wrap is for the last slot of the table only";
    EXPECT_EQ(CurrentAlias, alias(1));
    VideoWindows.pop_back();
    tick1();
    EXPECT_EQ(CurrentAlias, alias(0));
}

TEST_F(ConsoleMonitorEnd, WithOneEntryOrNoneThereIsNoNext)
{
    playToTheEnd(2, "1");
    console().List2.RemoveItem(1);
    ticksBefore(11);
    EXPECT_THAT(moved(), IsEmpty());
    console().List2.RemoveItem(0);
    EXPECT_THAT(moved(), IsEmpty());
    EXPECT_EQ(CurrentAlias, alias(0));
}

TEST_F(ConsoleMonitorEnd, AnAliasThatNoSlotPlaysHasNoNext)
{
    playToTheEnd(2, "1");
    CurrentAlias = "\"/films/gone.avi\"";
    world.mci.answer("status " + CurrentAlias + " position", "60000");
    ticksBefore(11);
    EXPECT_THAT(moved(), IsEmpty());
    EXPECT_EQ(CurrentAlias, "\"/films/gone.avi\"");
}

TEST_F(ConsoleMonitorEnd, FullScreenOrADraggedWindowKeepTheMoveWaiting)
{
    playToTheEnd(2, "1");
    ticksBefore(11);
    FullScreenOn = true;
    EXPECT_THAT(moved(), IsEmpty());
    FullScreenOn = false;
    console().WindowDragged = true;
    EXPECT_THAT(moved(), IsEmpty());
    EXPECT_EQ(CurrentAlias, alias(0));
    console().WindowDragged = false;
    tick1();
    EXPECT_EQ(CurrentAlias, alias(1)) << "each tick looks again";
}

TEST_F(ConsoleMonitorEnd, TheModeIsThatOfTheTick)
{
    playToTheEnd(2, "0");
    ticksBefore(22);
    console().SlideMode = "1";
    EXPECT_THAT(moved(), IsEmpty()) << "the count is beyond that of the list";
    EXPECT_EQ(CurrentAlias, alias(0));
}

TEST_F(ConsoleMonitorEnd, AWindowThatClosesInsideItsOwnTickEndsQuietly)
{
    playToTheEnd(2, "1");
    ticksBefore(11);
    const std::shared_ptr<frmChild> kept = VideoWindows[0];
    world.mci.onSend = [&](const std::string& command) {
        if (command == "seek " + alias(0) + " to 0" && kept->isLoaded())
            unload(*kept);
    };
    EXPECT_NO_THROW(console().Timer1.Tick());
    EXPECT_FALSE(kept->isLive());
    EXPECT_EQ(CurrentAlias, alias(1)) << "the next one plays";
}

TEST_F(ConsoleMonitorEnd, TheFieldsOfTheTicksBeginAtNothing)
{
    start();
    const MonitorFields& fields = console();
    EXPECT_EQ(fields.EndTicks, 0);
    EXPECT_EQ(fields.RefitTicks, 0);
    EXPECT_EQ(fields.CursorHomeX, -1);
    EXPECT_EQ(fields.CursorHomeY, -1);
    EXPECT_FALSE(fields.CursorIdle || fields.DvdFullByClick || fields.KeepConsoleBack || fields.SeekDragging);
    EXPECT_EQ(fields.StayAwakeTicks, 0);
    EXPECT_EQ(fields.DragOffsetX, 0);
    EXPECT_EQ(fields.DragOffsetY, 0);
    EXPECT_EQ(fields.DragSizeWidth, 0);
    EXPECT_EQ(fields.DragSizeHeight, 0);
}

TEST_F(ConsoleMonitorEnd, TheTimersHaveTheirIntervalsAndTwoOfThemRunFromTheStart)
{
    start();
    class frmMedia& ticking = console();
    EXPECT_EQ(ticking.Timer1.interval(), 100);
    EXPECT_EQ(ticking.Timer2.interval(), 750);
    EXPECT_EQ(ticking.Timer3.interval(), 50);
    EXPECT_EQ(ticking.Timer4.interval(), 3000);
    EXPECT_FALSE(ticking.Timer1.enabled() || ticking.Timer2.enabled());
    EXPECT_TRUE(ticking.Timer3.enabled() && ticking.Timer4.enabled());
}

} // namespace tandrel::test
