// What the ticks of the console watch: the way out of full screen.

#include "player_bench.h"

#include "fullscreen/frm_panel.h"
#include "toolkit/activation.h"

namespace tandrel::test
{

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

namespace
{

class ConsoleMonitor : public Player
{
protected:
    ConsoleMonitor() { world.backend.windows = true; }
    /// The first of two videos full screen, with the panel down again.
    frmChild& fullScreen()
    {
        start("0");
        openSeveral(2);
        frmChild& window = *VideoWindows[0];
        window.Move({1500, 1650, 4500, 3000});
        world.pointer.right = true;
        window.SetFocus();
        world.pointer.right = false;
        console().Timer2.Enabled = true;
        putPanelBelow();
        world.mci.clear();
        world.journal.clear();
        world.screenSaver.switched.clear();
        return window;
    }
    void doubleClick()
    {
        ClickState = 1.0;
        console().Timer2.tick();
    }
};

} // namespace

TEST_F(ConsoleMonitor, InFullScreenEvery101stTickIsASignOfLife)
{
    fullScreen();
    for (int tick = 0; tick < 100; ++tick)
        console().Timer2.tick();
    EXPECT_EQ(world.screenSaver.nudges, 0);
    console().Timer2.tick();
    EXPECT_EQ(world.screenSaver.nudges, 1);
    for (int tick = 0; tick < 101; ++tick)
        console().Timer2.tick();
    EXPECT_EQ(world.screenSaver.nudges, 2);
}

TEST_F(ConsoleMonitor, WithoutFullScreenTheTicksAreCountedAndNothingSaid)
{
    start("0");
    open(0);
    console().Timer2.Enabled = true;
    for (int tick = 0; tick < 150; ++tick)
        console().Timer2.tick();
    FullScreenOn = true;
    // 101 of them began a new count, so that 52 are missing.
    for (int tick = 0; tick < 51; ++tick)
        console().Timer2.tick();
    EXPECT_EQ(world.screenSaver.nudges, 0);
    console().Timer2.tick();
    EXPECT_EQ(world.screenSaver.nudges, 1);
}

TEST_F(ConsoleMonitor, ADoubleClickOnAFullPictureLeadsBack)
{
    frmChild& window = fullScreen();
    doubleClick();
    EXPECT_FALSE(FullScreenOn);
    EXPECT_FALSE(window.Full);
    EXPECT_THAT(world.screenSaver.switched, AllOf(Not(IsEmpty()), Each(true)));
    EXPECT_EQ(rectOf(window), (Rect{1500, 1650, 4500, 3000}));
    EXPECT_EQ(window.picVideo.BorderStyle(), 1);
    EXPECT_TRUE(window.picClose.visible());
    EXPECT_EQ(activeForm(), &window);
    EXPECT_EQ(CurrentAlias, alias(0));
    EXPECT_EQ(console().lblTitleBar.caption(), "[ a.avi ] " + std::string(50, ' ')) << "the tick has moved it on";
    EXPECT_FALSE(Loaded<class frmPanel>());
    EXPECT_TRUE(FullMedia.empty());
    EXPECT_TRUE(console().visible());
    EXPECT_EQ(ClickState, 0);
}

TEST_F(ConsoleMonitor, TheWindowIsNoLongerFullScreenBeforeItsOldPlaceReturns)
{
    fullScreen();
    doubleClick();
    const auto steps = chosen(world.journal, [](const std::string& line) {
        return line.starts_with("frmChild ") || line.starts_with("frmMedia activate");
    });
    EXPECT_THAT(shortened(steps),
                ElementsAre("frmChild windowed", "frmChild frame titled borderless", "frmChild frame titled bordered",
                            "frmChild place 100,110 300x200", "frmChild repaint", "frmChild raise", "frmChild activate",
                            "frmMedia activate", "frmChild activate"));
}

TEST_F(ConsoleMonitor, WhereNoWindowPlaysTheFullMediumTheStateEndsAllTheSame)
{
    fullScreen();
    FullMedia = "\"/films/gone.avi\"";
    doubleClick();
    EXPECT_THAT(commands(), Contains("Play \"/films/gone.avi\" "));
    EXPECT_TRUE(FullMedia.empty());
    EXPECT_FALSE(frmPanel().visible());
    EXPECT_TRUE(console().visible());
}

TEST_F(ConsoleMonitor, UnderThePanelOrAMenuADoubleClickSendsThePanelAwayOnly)
{
    const frmChild& window = fullScreen();
    bringUpPanel("File::");
    doubleClick();
    EXPECT_TRUE(window.Full);
    EXPECT_FALSE(PanelUp);
    putPanelBelow();
    FullMenuOpen = true;
    doubleClick();
    EXPECT_TRUE(window.Full);
    EXPECT_THAT(startingWith(commands(), "Play"), IsEmpty());
    FullMenuOpen = false;
    doubleClick();
    EXPECT_FALSE(window.Full);
}

TEST_F(ConsoleMonitor, TheHiddenLabelsTellTheClicks)
{
    start("0");
    console().Timer2.Enabled = true;
    ClickCount = 3;
    ClickState = 0.5;
    console().Timer2.tick();
    EXPECT_EQ(console().lblClick.caption(), "Click: 3");
    EXPECT_EQ(console().lblDblClick.caption(), "DblClick: 0");
    EXPECT_FALSE(console().lblClick.visible() || console().lblDblClick.visible());
}

TEST_F(ConsoleMonitor, HalfADoubleClickIsForgotten)
{
    const frmChild& window = fullScreen();
    ClickState = 0.5;
    bringUpPanel("File::");
    console().Timer2.tick();
    EXPECT_EQ(ClickState, 0);
    EXPECT_TRUE(PanelUp);
    EXPECT_TRUE(window.Full);
}

TEST_F(ConsoleMonitor, BehindTheBeginningOfTheEndNothingIsWatched)
{
    const frmChild& window = fullScreen();
    console().ClosingDown = true;
    doubleClick();
    EXPECT_TRUE(window.Full);
    EXPECT_EQ(ClickState, 1.0);
}

TEST_F(ConsoleMonitor, AFullWindowThatClosesEndsFullScreen)
{
    frmChild& window = fullScreen();
    ASSERT_FALSE(console().Timer4.enabled());
    unload(window);
    EXPECT_FALSE(FullScreenOn);
    EXPECT_FALSE(PanelUp);
    EXPECT_TRUE(FullMedia.empty());
    EXPECT_THAT(world.screenSaver.switched, ElementsAre(true));
    EXPECT_FALSE(Loaded<class frmPanel>());
    EXPECT_TRUE(console().Timer4.enabled());
}

} // namespace tandrel::test
