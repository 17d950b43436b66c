// The seek strip of the panel: press, drag, click.

#include "fake_controls.h"
#include "panel_bench.h"

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

/// On a monitor of 1920 by 1080 the strip runs from 120 to 28700; half of its length is at 14290.
class PanelStrip : public PanelBench
{
protected:
    static constexpr int kLeft = 120;
    static constexpr int kLength = 28580;

    PanelStrip() : full_(fullScreen()) { console().SeekSlider.Max = 60000; }

    frmChild& full() { return full_; }
    void down(double x, int button = mouse::kLeft)
    {
        forgetCommands();
        panel().imgMoveUp.userMouseDown({button, 0, x, 40});
    }
    void move(double x, int button = mouse::kLeft)
    {
        forgetCommands();
        panel().imgMoveUp.userMouseMove({button, 0, x, 40});
    }
    void up()
    {
        forgetCommands();
        panel().imgMoveUp.userMouseUp({mouse::kLeft, 0, 0, 40});
    }
    void pressAndClick(double x)
    {
        down(x);
        up();
        panel().imgMoveUp.userClick();
    }
    int pull() { return panel().imgPull.left(); }
    int done() { return panel().slide_blue.width(); }

private:
    frmChild& full_;
};

} // namespace

// It follows the console's slider.

TEST_F(PanelStrip, InFullScreenItShowsWhereTheSliderOfTheConsoleStands)
{
    Slider& slider = console().SeekSlider;
    slider.Value = 15000;
    EXPECT_EQ(pull(), kLength / 4);
    EXPECT_EQ(done(), kLength / 4);
    panel().PanelSeeking = true;
    slider.Value = 30000;
    EXPECT_EQ(pull(), kLength / 4) << "it is being dragged there";
    panel().PanelSeeking = false;
    slider.Value = 60000;
    EXPECT_EQ(pull(), kLength);
    EXPECT_EQ(done(), kLength);
    FullScreenOn = false;
    slider.Value = 0;
    EXPECT_EQ(done(), kLength);
}

// The press.

TEST_F(PanelStrip, APressOnItPutsTheHandleThereAndBeginsADrag)
{
    panel().imgPull.Left = 0;
    down(1000.4);
    EXPECT_EQ(pull(), 1000 - 120);
    EXPECT_EQ(done(), 1000) << "the place itself";
    EXPECT_TRUE(panel().PanelSeeking);
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(PanelStrip, BothItsEndsBelongToIt)
{
    for (const int x : {kLeft, kLeft + kLength}) {
        panel().PanelSeeking = false;
        down(x);
        EXPECT_EQ(done(), x);
        EXPECT_TRUE(panel().PanelSeeking);
    }
    panel().PanelSeeking = false;
    for (const int x : {kLeft - 1, kLeft + kLength + 1, -1, 100000}) {
        panel().slide_blue.Width = 5;
        down(x);
        EXPECT_EQ(done(), 5) << x;
        EXPECT_FALSE(panel().PanelSeeking);
    }
}

TEST_F(PanelStrip, OtherButtonsDoNotTouchIt)
{
    const int before = done();
    down(1000, mouse::kRight);
    move(1000, mouse::kRight);
    move(1000, 0);
    EXPECT_EQ(done(), before);
    EXPECT_FALSE(panel().PanelSeeking);
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(PanelStrip, WithNothingLoadedTheHandleFollowsAndNoDragBegins)
{
    CurrentAlias.clear();
    down(1000);
    EXPECT_EQ(done(), 1000);
    EXPECT_FALSE(panel().PanelSeeking);
    for (bool* kind : {&DVDMode, &MkvOpen}) {
        *kind = true;
        panel().PanelSeeking = false;
        down(1000);
        EXPECT_TRUE(panel().PanelSeeking);
        *kind = false;
    }
}

// The drag.

TEST_F(PanelStrip, EachMoveSeeks)
{
    down(1000);
    move(14290);
    EXPECT_THAT(commands(), ElementsAre("set B time format ms", "seek B to 30000", "Play B"));
    EXPECT_EQ(panel().SeekTarget, 30000);
    EXPECT_EQ(pull(), 14290 - 120);
    EXPECT_FALSE(panel().PanelSeeking) << "each move raises it anew";
    full().Paused = 1;
    move(28580);
    EXPECT_THAT(commands(), ElementsAre("set B time format ms", "seek B to 60000"));
}

TEST_F(PanelStrip, ThePlaceIsRounded)
{
    console().SeekSlider.Max = 100;
    move(14147);
    EXPECT_EQ(panel().SeekTarget, 49) << "49.4997";
    move(14148);
    EXPECT_EQ(panel().SeekTarget, 50) << "49.5031";
}

TEST_F(PanelStrip, TheLastTwipsLeadBehindTheEndAndStandAsTheyAre)
{
    move(kLeft + kLength);
    EXPECT_EQ(panel().SeekTarget, 60252);
}

TEST_F(PanelStrip, AMoveBesideItOnlyEndsTheDrag)
{
    move(1000);
    const int target = panel().SeekTarget;
    move(kLeft - 1);
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_EQ(panel().SeekTarget, target);
    EXPECT_EQ(done(), 1000);
    down(1000);
    panel().SeekTarget = 0;
    move(kLeft + kLength + 1);
    EXPECT_EQ(panel().SeekTarget, target) << "the press has begun one, which this move ends where the handle is";
    EXPECT_FALSE(panel().PanelSeeking);
}

TEST_F(PanelStrip, AMoveWithNothingLoadedSeeksNothing)
{
    CurrentAlias.clear();
    move(14290);
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_EQ(done(), 14290);
    EXPECT_EQ(panel().SeekTarget, 0);
    EXPECT_FALSE(panel().PanelSeeking);
}

TEST_F(PanelStrip, WhereNoWindowPlaysTheSelectionNothingIsSent)
{
    const SlotTable kept = std::exchange(VideoWindows, {nullptr});
    move(14290);
    pressAndClick(14290);
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_EQ(panel().SeekTarget, 30000);
}

TEST_F(PanelStrip, ADraggedHdFilmFollowsAndADiscWaitsForTheClick)
{
    OtherMediaBench bench;
    console().SeekSlider.Max = 600;
    MkvOpen = true;
    move(14290);
    EXPECT_THAT(bench.asked(), ElementsAre("frmMKV position 300"));
    bench.mkv.fails = true;
    move(14290);
    bench.forget();
    DVDMode = true;
    move(7145);
    EXPECT_EQ(panel().SeekTarget, 150);
    WindowsVersion = "WINDOWS XP";
    move(14290);
    EXPECT_EQ(panel().SeekTarget, 300);
    EXPECT_THAT(bench.asked(), IsEmpty());
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_FALSE(panel().PanelSeeking);
}

// The release and the click.

TEST_F(PanelStrip, TheReleaseEndsTheDragAndKeepsThePanelUp)
{
    down(1000);
    panel().PanelIdle = true;
    up();
    EXPECT_FALSE(panel().PanelSeeking);
    EXPECT_FALSE(panel().PanelIdle);
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(PanelStrip, AClickSeeksTheSelectedVideo)
{
    PanelUp = false;
    pressAndClick(14290);
    EXPECT_THAT(commands(), ElementsAre("set B time format ms", "seek B to 30000", "Play B"));
    EXPECT_EQ(panel().SeekTarget, 30000);
    EXPECT_TRUE(PanelUp);
    full().Paused = 1;
    pressAndClick(kLeft);
    EXPECT_THAT(commands(), ElementsAre("set B time format ms", "seek B to 252"));
}

TEST_F(PanelStrip, AClickKeepsThePanelUp)
{
    panel().PanelIdle = true;
    panel().imgMoveUp.userClick();
    EXPECT_FALSE(panel().PanelIdle);
}

TEST_F(PanelStrip, AClickDuringADragSeeksNothing)
{
    down(14290);
    panel().imgMoveUp.userClick();
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(PanelStrip, WithNothingLoadedAClickOnlyRaisesTheFlag)
{
    CurrentAlias.clear();
    PanelUp = false;
    pressAndClick(14290);
    EXPECT_TRUE(PanelUp);
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_EQ(panel().SeekTarget, 0);
}

TEST_F(PanelStrip, ALengthOfZeroLeadsToTheBeginning)
{
    console().SeekSlider.Max = 0;
    pressAndClick(14290);
    EXPECT_THAT(commands(), ElementsAre("set B time format ms", "seek B to 0", "Play B"));
}

TEST_F(PanelStrip, AClickTakesADiscOrAnHdFilmToItsSecond)
{
    OtherMediaBench bench;
    console().SeekSlider.Max = 7446;
    MkvOpen = true;
    pressAndClick(14290);
    EXPECT_THAT(bench.asked(), ElementsAre("frmMKV position 3723"));
    bench.forget();
    DVDMode = true;
    pressAndClick(14290);
    EXPECT_THAT(bench.asked(), ElementsAre("frmDVD2 position 3723"));
    bench.forget();
    WindowsVersion = "WINDOWS XP";
    pressAndClick(14290);
    EXPECT_THAT(bench.asked(), ElementsAre("frmDVD PlayAtTime 01:02:03"));
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(PanelStrip, ADiscThatRefusesOrCannotCountThatFarIsIgnored)
{
    OtherMediaBench bench;
    DVDMode = true;
    WindowsVersion = "WINDOWS XP";
    console().SeekSlider.Max = 70000;
    panel().PanelIdle = true;
    down(14290);
    panel().PanelSeeking = false;
    panel().PanelIdle = true;
    panel().imgMoveUp.userClick();
    EXPECT_THAT(bench.asked(), IsEmpty()) << "35000 seconds are more than 16 bits hold";
    EXPECT_FALSE(panel().PanelIdle) << "the handler goes on";
    bench.dvd.fails = true;
    console().SeekSlider.Max = 600;
    panel().PanelIdle = true;
    panel().imgMoveUp.userClick();
    EXPECT_THAT(bench.asked(), ElementsAre("frmDVD PlayAtTime 00:05:00"));
    EXPECT_FALSE(panel().PanelIdle);
}

} // namespace tandrel::test
