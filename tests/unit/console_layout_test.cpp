// The two arrangements of the console: places, commands whole and in order, and what they leave behind.

#include "player_bench.h"

#include "desktop/monitors.h"
#include "texts/frm_tool_tip.h"
#include "texts/frm_wait.h"
#include "toolkit/activation.h"

namespace tandrel::test
{

using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

namespace
{

class ConsoleLayout : public Player
{
protected:
    Rect placeOf(int index) { return rectOf(*VideoWindows.at(static_cast<std::size_t>(index))); }
    frmChild& video(int index) { return *VideoWindows.at(static_cast<std::size_t>(index)); }
};

} // namespace

TEST_F(ConsoleLayout, WithFewerThanTwoEntriesNothingChanges)
{
    start("0");
    open(0);
    const Rect before = placeOf(0);
    screen().MousePointer = pointer::kHourglass;
    world.backend.pointerShapes.clear();
    console().Resize(false);
    console().SlideShow();
    EXPECT_THAT(world.mci.sent(), IsEmpty());
    EXPECT_EQ(placeOf(0), before);
    EXPECT_THAT(world.backend.pointerShapes, IsEmpty());
}

TEST_F(ConsoleLayout, ResizeSendsItsCommandsInOrder)
{
    start("0");
    openSeveral(2);
    console().Resize(false);
    EXPECT_THAT(commands(),
                ElementsAre("Where A destination", "put A window at 0 0 953 274", "put A window at 0 0 953 513",
                            "Play A ", "Where B destination", "put B window at 0 0 953 274",
                            "put B window at 0 0 953 513", "Play B ", "set A time format ms", "status A position",
                            "seek A to 1500", "Play A", "setaudio A Volume to 500", "set B time format ms",
                            "status B position", "seek B to 1500", "Play B", "setaudio B Volume to 500"))
        << "a window on the screen fits its picture to its new width, then to its new height";
}

TEST_F(ConsoleLayout, ResizeWithoutPlayInPlayListModeRestartsAll)
{
    start("1");
    openSeveral(2);
    console().VolumeSlider.Value = 20;
    console().Resize(true);
    EXPECT_THAT(commands(),
                ElementsAre("Where A destination", "put A window at 0 0 953 274", "put A window at 0 0 953 513",
                            "Where B destination", "put B window at 0 0 953 274", "put B window at 0 0 953 513",
                            "set A time format ms", "status A position", "seek A to 0", "Play A",
                            "setaudio A Volume to 200", "set B time format ms", "status B position", "seek B to 0",
                            "Play B", "setaudio B Volume to 200"));
}

TEST_F(ConsoleLayout, ResizeWithoutPlayInPlayAllModeStaggersBySlot)
{
    start("0");
    openSeveral(3);
    unload(video(1));
    console().List2.AddItem("/films/x.avi");
    world.mci.clear();
    console().Resize(true);
    const auto sent = commands();
    ASSERT_GE(sent.size(), 2U);
    EXPECT_EQ(sent[sent.size() - 2], "Play A from 0");
    EXPECT_EQ(sent.back(), "Play C from 410");
}

TEST_F(ConsoleLayout, ResizePlaysOnlyVideosOfThePresentOpen)
{
    start("0");
    openSeveral(3);
    console().List1.Clear();
    console().List1.AddItem(film(1));
    console().List1.AddItem(film(1));
    console().Resize(false);
    EXPECT_THAT(
        chosen(commands(), [](const std::string& line) { return line.starts_with("Play ") && line.ends_with(" "); }),
        ElementsAre("Play B "));
}

TEST_F(ConsoleLayout, ResizeTakesTheCellsOfItsTableForEveryCount)
{
    const std::vector<std::pair<int, int>> grids{{2, 2}, {2, 2}, {2, 2}, {3, 2}, {3, 2}, {3, 3},
                                                 {3, 3}, {3, 3}, {4, 3}, {4, 3}, {4, 3}};
    start("0");
    open(0);
    for (int count = 2; count <= 12; ++count) {
        open(count - 1);
        console().Resize(false);
        const auto [columns, rows] = grids[static_cast<std::size_t>(count - 2)];
        for (int place = 0; place < count; ++place) {
            int column = place % columns;
            const int row = place / columns;
            if (columns == 2 && row == 1)
                column = 1 - column;
            const int width = 1920 / columns;
            const int height = 1080 / rows;
            EXPECT_EQ(placeOf(place), twips(column * width, row * height, width, height)) << place << " of " << count;
        }
    }
}

TEST_F(ConsoleLayout, ResizeGivesEveryWindowTheSlidersLevelAndLetsItRun)
{
    start("0");
    openSeveral(3);
    for (int index = 0; index < 3; ++index) {
        video(index).Volume = 10 * index;
        video(index).Paused = 1;
    }
    console().VolumeSlider.Value = 80;
    console().Resize(false);
    for (int index = 0; index < 3; ++index) {
        EXPECT_EQ(video(index).Volume, 80);
        EXPECT_EQ(video(index).Paused, 0);
    }
}

TEST_F(ConsoleLayout, ResizeKeepsTheSelectionItsTitleAndItsFocus)
{
    start("0");
    openSeveral(3);
    video(0).SetFocus();
    world.backend.pointerShapes.clear();
    console().Resize(false);
    EXPECT_EQ(CurrentAlias, alias(0));
    EXPECT_EQ(console().lblTitleBar.caption(), " [ /films/a.avi ] " + std::string(50, ' '));
    EXPECT_EQ(activeForm(), &video(0));
    EXPECT_THAT(world.backend.pointerShapes, ElementsAre(pointer::kHourglass, pointer::kDefault));
}

TEST_F(ConsoleLayout, ResizeFindsTheSelectionByItsBareEntryToo)
{
    start("0");
    openSeveral(2);
    console().List2.Clear();
    console().List2.AddItem("a.avi");
    console().List2.AddItem("b.avi");
    video(0).SetFocus();
    console().Resize(false);
    EXPECT_EQ(CurrentAlias, alias(0));
    EXPECT_EQ(activeForm(), &video(0));
}

TEST_F(ConsoleLayout, AFailedWindowWidensTheGridButTakesNoCell)
{
    start("0");
    openSeveral(5);
    const auto failed = VideoWindows[1];
    failed->markFailed();
    const Rect before = rectOf(*failed);
    console().Resize(false);
    EXPECT_EQ(placeOf(0), twips(0, 0, 640, 540));
    EXPECT_EQ(placeOf(2), twips(640, 0, 640, 540));
    EXPECT_EQ(placeOf(3), twips(1280, 0, 640, 540));
    EXPECT_EQ(placeOf(4), twips(0, 540, 640, 540)) << "the grid is that of five";
    EXPECT_EQ(rectOf(*failed), before);
    EXPECT_EQ(failed->MediaFile, "");
    EXPECT_THAT(commands(), Each(Not(::testing::HasSubstr("B"))));
    EXPECT_THAT(console().List2.entries(), Not(Contains(film(1))));
}

TEST_F(ConsoleLayout, OneLiveVideoTakesItsNativeSizeAndAMargin)
{
    start("0");
    openSeveral(1);
    console().List2.AddItem("/films/x.avi");
    console().Resize(false);
    EXPECT_EQ(placeOf(0), twips(0, 0, 665, 505));
    video(0).Move({0, 0, 3000, 3000});
    console().SlideShow();
    EXPECT_EQ(placeOf(0), twips(0, 0, 665, 505));
}

TEST_F(ConsoleLayout, ThirteenLiveVideosAreNotArranged)
{
    start("0");
    openSeveral(13);
    const Rect before = placeOf(0);
    world.backend.pointerShapes.clear();
    console().Resize(false);
    EXPECT_THAT(world.mci.sent(), IsEmpty());
    EXPECT_EQ(placeOf(0), before);
    EXPECT_THAT(world.backend.pointerShapes, ElementsAre(pointer::kHourglass, pointer::kDefault));
}

TEST_F(ConsoleLayout, WithoutALiveVideoThePointerComesBack)
{
    start("0");
    console().List2.AddItem("/films/x.avi");
    console().List2.AddItem("/films/y.avi");
    world.backend.pointerShapes.clear();
    console().Resize(false);
    console().SlideShow();
    EXPECT_THAT(world.backend.pointerShapes,
                ElementsAre(pointer::kHourglass, pointer::kDefault, pointer::kHourglass, pointer::kDefault));
}

TEST_F(ConsoleLayout, ResizeEndsTipAndNotice)
{
    start("0");
    openSeveral(2);
    frmToolTip().Show();
    frmWait().Show();
    console().Resize(false);
    EXPECT_FALSE(Loaded<class frmToolTip>());
    EXPECT_FALSE(Loaded<class frmWait>());
}

TEST_F(ConsoleLayout, SlideShowSendsItsCommandsInOrder)
{
    start("1");
    openSeveral(3);
    video(1).SetFocus();
    video(1).Volume = 60;
    video(2).Volume = 20;
    console().SlideShow();
    EXPECT_EQ(console().VolumeSlider.Value(), 60) << "the lead is the selected one again";
    EXPECT_EQ(video(1).Volume, 60);
    EXPECT_THAT(commands(),
                ElementsAre("Pause A", "Pause B", "Pause C", "Where A destination", "put A window at 0 0 313 274",
                            "put A window at 0 0 313 153", "Where B destination", "put B window at 0 0 1593 873",
                            "Where C destination", "put C window at 0 0 313 274", "put C window at 0 0 313 153",
                            "set B time format ms", "seek B to 0", "Play B", "setaudio B Volume to 200"))
        << "the level is the slider's, which shows that of the window that came up last";
}

TEST_F(ConsoleLayout, SlideShowLetsTheSelectedVideoRunAndHoldsTheOthers)
{
    start("1");
    openSeveral(3);
    video(1).SetFocus();
    console().WindowDragged = true;
    console().SlideShow();
    EXPECT_EQ(video(0).Paused, 1);
    EXPECT_EQ(video(1).Paused, 0);
    EXPECT_EQ(video(2).Paused, 1);
    EXPECT_EQ(CurrentAlias, alias(1));
    EXPECT_EQ(activeForm(), &video(1));
    EXPECT_FALSE(console().WindowDragged);
}

TEST_F(ConsoleLayout, SlideShowPutsTheLeadLargeAndTheOthersDownTheColumnAndAlongTheBottom)
{
    start("1");
    openSeveral(12);
    video(4).SetFocus();
    console().SlideShow();
    EXPECT_EQ(placeOf(4), twips(0, 0, 1600, 900));
    int tile = 0;
    for (int index = 0; index < 12; ++index) {
        if (index == 4)
            continue;
        const Rect wanted =
            tile < 6 ? twips(1600, 180 * tile, 320, 180) : twips(1600 - 320 * (tile - 5), 900, 320, 180);
        EXPECT_EQ(placeOf(index), wanted) << index;
        ++tile;
    }
}

TEST_F(ConsoleLayout, SlideShowOfSevenKeepsTheColumnAndOfEightBeginsTheBottomRow)
{
    start("1");
    openSeveral(7);
    console().SlideShow();
    EXPECT_EQ(placeOf(5), twips(1600, 900, 320, 180));
    open(7);
    video(0).SetFocus();
    console().SlideShow();
    EXPECT_EQ(placeOf(7), twips(1280, 900, 320, 180));
}

TEST_F(ConsoleLayout, OnAMonitorToTheLeftEveryPlaceIsOffset)
{
    world.monitors.set({{-1280, -200, 0, 824}, {0, 0, 1920, 1080}});
    screen().setMetrics(15, 15, {-1280, -200, 0, 824});
    monitors().Refresh();
    start("0");
    openSeveral(3);
    console().Resize(false);
    EXPECT_EQ(placeOf(0), twips(-1280, -200, 640, 512));
    EXPECT_EQ(placeOf(1), twips(-640, -200, 640, 512));
    EXPECT_EQ(placeOf(2), twips(-640, 312, 640, 512));
    console().SlideShow();
    EXPECT_EQ(placeOf(2), twips(-1280, -200, 1066, 853));
    EXPECT_EQ(placeOf(0), twips(-1280 + 1066, -200, 213, 170));
}

TEST_F(ConsoleLayout, SlideShowSaysTheTitleComesToTheFrontAndEndsItsNotice)
{
    world.backend.windows = true;
    start("1");
    openSeveral(3);
    frmWait().Show();
    world.journal.clear();
    world.backend.pointerShapes.clear();
    console().SlideShow();
    EXPECT_EQ(console().lblTitleBar.caption(), " [ /films/c.avi ] " + std::string(50, ' '));
    EXPECT_FALSE(Loaded<class frmWait>());
    EXPECT_THAT(startingWith(world.journal, "frmWait repaint"), SizeIs(3)) << "once for each video";
    EXPECT_EQ(chosen(world.journal, [](const std::string& line) { return line.ends_with(" raise"); }).back(),
              "frmMedia raise");
    EXPECT_THAT(world.backend.pointerShapes, ElementsAre(pointer::kHourglass, pointer::kDefault));
}

TEST_F(ConsoleLayout, SlideShowCountsAFailedWindowOnceMore)
{
    start("1");
    openSeveral(2);
    video(1).markFailed();
    video(0).SetFocus();
    console().SlideShow();
    EXPECT_EQ(placeOf(0), twips(0, 0, 1600, 900)) << "the lead of two, not one alone";
    EXPECT_EQ(liveCount(), 1);
}

TEST_F(ConsoleLayout, SlideShowOfThirteenIsRefused)
{
    start("1");
    openSeveral(13);
    const Rect before = placeOf(0);
    console().SlideShow();
    EXPECT_EQ(placeOf(0), before);
    EXPECT_EQ(screen().MousePointer(), pointer::kDefault);
}

TEST_F(ConsoleLayout, SlideShowWithoutASelectedVideoHasTilesOnly)
{
    start("1");
    openSeveral(3);
    CurrentAlias = "\"/films/gone.avi\"";
    console().SlideShow();
    for (int index = 0; index < 3; ++index) {
        EXPECT_EQ(placeOf(index)[2], 320 * 15) << index;
        EXPECT_EQ(video(index).Paused, 1) << index;
    }
    EXPECT_THAT(startingWith(commands(), "Play"), IsEmpty());
}

TEST_F(ConsoleLayout, AnErrorOnOneVideoDoesNotStopTheSlideShow)
{
    start("1");
    openSeveral(3);
    world.mci.otherwise = [](const std::string& command, std::string& answer) {
        if (command.starts_with("Where " + alias(0)))
            answer = "0 0 99999999999 1";
        return 0;
    };
    console().SlideShow();
    EXPECT_EQ(placeOf(2), twips(0, 0, 1600, 900));
    EXPECT_EQ(placeOf(1), twips(1600, 180, 320, 180));
}

TEST_F(ConsoleLayout, OutsideEveryMonitorLayoutsCollapseToNothing)
{
    start("1");
    console().FullLeft = console().FullTop = console().FullWidth = console().FullHeight = 0;
    openSeveral(3);
    console().Resize(false);
    console().SlideShow();
    for (int index = 0; index < 3; ++index)
        EXPECT_LE(placeOf(index)[2], 25 * 15) << index;
}

TEST_F(ConsoleLayout, TheTipStandsBesideTheColumnUnlessItIsOff)
{
    start("1");
    console().TipsOn = "";
    openSeveral(2);
    console().SlideShow();
    ASSERT_TRUE(Loaded<class frmToolTip>());
    EXPECT_TRUE(frmToolTip().visible());
    EXPECT_EQ(frmToolTip().top(), 600);
    EXPECT_EQ(frmToolTip().left(), 1600 * 15 - frmToolTip().width() + 600);
    Unload<class frmToolTip>();
    console().TipsOn = "0";
    console().SlideShow();
    EXPECT_FALSE(Loaded<class frmToolTip>());
}

TEST_F(ConsoleLayout, ATipThatNobodyCouldSeeIsMovedToTheNearestMonitor)
{
    start("1");
    console().TipsOn = "1";
    // The monitor of the console is not there any more.
    console().FullLeft = 28800;
    openSeveral(2);
    console().SlideShow();
    EXPECT_EQ(frmToolTip().left(), 28800 - frmToolTip().width());
    EXPECT_EQ(frmToolTip().top(), 600);
}

TEST_F(ConsoleLayout, OneVideoNeedsNoTip)
{
    start("1");
    console().TipsOn = "1";
    open(0);
    console().List2.AddItem("/films/x.avi");
    console().SlideShow();
    EXPECT_FALSE(Loaded<class frmToolTip>());
}

TEST_F(ConsoleLayout, AnErrorOnOneVideoDoesNotStopTheOthers)
{
    start("0");
    openSeveral(2);
    video(0).Volume = 50;
    console().VolumeSlider.Max = 5000;
    console().VolumeSlider.Value = 4000;
    console().Resize(false);
    EXPECT_EQ(placeOf(1), twips(960, 0, 960, 540));
    EXPECT_EQ(video(1).Paused, 0);
    EXPECT_EQ(screen().MousePointer(), pointer::kDefault);
}

TEST_F(ConsoleLayout, TheMouseIsMovedToRoundedPixels)
{
    start();
    console().MoveMouse(10.5, 11.5);
    console().MoveMouse(-3.4, 7.6);
    EXPECT_THAT(world.pointer.moves, ElementsAre(PixelPoint{10, 12}, PixelPoint{-3, 8}));
}

} // namespace tandrel::test
