// The end of the console by its button and from outside, its return from the taskbar, and the mouse over it.

#include "player_bench.h"

#include "fullscreen/frm_panel.h"
#include "texts/frm_tool_tip.h"
#include "texts/frm_wait.h"
#include "toolkit/activation.h"
#include "toolkit/program.h"

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

class ConsoleShutdown : public Player
{
protected:
    void startWithWindows()
    {
        world.backend.windows = true;
        start("0");
    }
    bool presenceIsThere() const { return world.files.content.contains("/data/pres.dat"); }
};

} // namespace

TEST_F(ConsoleShutdown, TheExitImageEndsTheProgram)
{
    start("0");
    openSeveral(2);
    unload(*VideoWindows[0]);
    FastForward = true;
    world.mci.clear();
    world.screenSaver.switched.clear();
    world.settings.saved.clear();
    console().Move({3000, 4000, 13500, 3180});
    console().imgExit.userClick();
    EXPECT_TRUE(console().ClosingDown);
    EXPECT_TRUE(world.instances.gone) << "no start hands anything over to it";
    EXPECT_THAT(commands(), ElementsAre("Pause B", "Close all"));
    EXPECT_FALSE(FastForward);
    EXPECT_THAT(world.screenSaver.switched, ElementsAre(true));
    EXPECT_THAT(world.settings.saved, ElementsAre("sys/top=4000", "sys/left=3000"));
    EXPECT_TRUE(programEnded());
    EXPECT_EQ(world.backend.quits, 1);
}

TEST_F(ConsoleShutdown, AWindowThatFailedIsSentNothingAtEitherEnd)
{
    for (const bool byButton : {true, false}) {
        World fresh;
        fresh.settled();
        frmMedia().Show();
        CurrentAlias = alias(0);
        newSlot(film(0)).markFailed();
        NextSlot += 1;
        fresh.mci.clear();
        if (byButton)
            frmMedia().imgExit.userClick();
        else
            frmMedia().userClose();
        EXPECT_THAT(chosen(shortened(fresh.mci.sent()), [](const std::string& line) { return line != "Close all"; }),
                    IsEmpty())
            << byButton;
        EXPECT_TRUE(programEnded());
    }
}

TEST_F(ConsoleShutdown, BehindTheBeginningOfTheEndTheImagesDoNothing)
{
    start("0");
    console().ClosingDown = true;
    console().imgDwn.userClick();
    console().imgResize.userClick();
    console().imgExit.userClick();
    EXPECT_EQ(console().windowState(), 0);
    EXPECT_THAT(world.backend.menus, IsEmpty());
    EXPECT_FALSE(programEnded());
}

TEST_F(ConsoleShutdown, ThePlaceIsSavedRelativeToTheMonitor)
{
    start("0");
    console().FullTop = 1500;
    console().FullLeft = -19200;
    console().Move({-18000, 2000, 13500, 3180});
    console().imgExit.userClick();
    EXPECT_EQ(world.settings.values["sys/top"], "500");
    EXPECT_EQ(world.settings.values["sys/left"], "1200");
}

TEST_F(ConsoleShutdown, TheOwnerTakesItsMarkAwayAndTheListWithIt)
{
    startWithWindows();
    ASSERT_TRUE(presenceIsThere());
    world.files.content["/data/list.dat"] = {alias(0)};
    console().imgExit.userClick();
    EXPECT_FALSE(presenceIsThere());
    EXPECT_FALSE(world.files.content.contains("/data/list.dat"));
}

TEST_F(ConsoleShutdown, TheMarkOfAnotherProcessStays)
{
    world.files.content["/data/pres.dat"] = {" 7 "};
    startWithWindows();
    console().imgExit.userClick();
    EXPECT_TRUE(presenceIsThere());
}

TEST_F(ConsoleShutdown, ABrokenMarkStaysAndHindersNothing)
{
    for (const std::vector<std::string>& content :
         {std::vector<std::string>{}, {""}, {std::string("\x00\xFF", 2)}, {"99999999999999999999"}}) {
        World fresh;
        fresh.settled();
        fresh.backend.windows = true;
        fresh.files.content["/data/pres.dat"] = content;
        frmMedia().Show();
        frmMedia().imgExit.userClick();
        EXPECT_TRUE(fresh.files.content.contains("/data/pres.dat"));
        EXPECT_TRUE(programEnded());
    }
}

TEST_F(ConsoleShutdown, ASecondConsoleThatBecameTheOwnerTakesItsMarkAway)
{
    startWithWindows();
    console().SecondRun = true;
    console().imgExit.userClick();
    EXPECT_FALSE(presenceIsThere());
}

TEST_F(ConsoleShutdown, AFolderThatCantBeWrittenDoesNotHinderTheEnd)
{
    startWithWindows();
    world.files.writable = false;
    console().imgExit.userClick();
    EXPECT_TRUE(programEnded());
}

TEST_F(ConsoleShutdown, ACloseFromOutsideClosesEverySlotAndSavesThePlace)
{
    startWithWindows();
    openSeveral(3);
    unload(*VideoWindows[1]);
    const SlotTable windows = VideoWindows;
    const Text before = CurrentAlias;
    FastForward = FastRewind = true;
    world.mci.clear();
    world.screenSaver.switched.clear();
    world.settings.saved.clear();
    world.files.content["/data/list.dat"] = {alias(5)};
    console().userClose();
    EXPECT_FALSE(world.files.content.contains("/data/list.dat"));
    EXPECT_THAT(commands(), ElementsAre("Close A", "Close A", "Close A", "Close C", "Close C", "Close C"));
    EXPECT_FALSE(FastForward || FastRewind);
    EXPECT_THAT(world.screenSaver.switched, ElementsAre(true));
    EXPECT_THAT(world.settings.saved, ElementsAre("sys/top=10800", "sys/left=5760"));
    EXPECT_FALSE(presenceIsThere());
    EXPECT_TRUE(programEnded());
    EXPECT_EQ(CurrentAlias, before) << "not \"No Media Selected\" while closing down";
    for (const auto& window : windows)
        EXPECT_TRUE(window->isDead());
}

TEST_F(ConsoleShutdown, ACloseFromOutsideEndsTheOtherFormsFirstInTheirOrder)
{
    startWithWindows();
    open(0);
    frmToolTip().Show();
    frmPanel().Show();
    frmWait().Show();
    slidemenu();
    world.journal.clear();
    console().userClose();
    EXPECT_FALSE(Loaded<class slidemenu>());
    const auto hidden = chosen(world.journal, [](const std::string& line) { return line.ends_with(" hide"); });
    EXPECT_THAT(hidden, ElementsAre("frmWait hide", "frmPanel hide", "frmToolTip hide", "slidemenu hide",
                                    "openmenu hide", "menu hide", "frmChild hide", "frmChild hide", "frmMedia hide"));
}

TEST_F(ConsoleShutdown, NothingComesBackBehindTheEnd)
{
    start("0");
    open(0);
    console().imgExit.userClick();
    world.mci.clear();
    console().Timer2.tick();
    VideoWindows[0]->Timer1.Enabled = true;
    VideoWindows[0]->Timer1.tick();
    EXPECT_THAT(world.mci.sent(), IsEmpty());
}

// The return from the taskbar.

TEST_F(ConsoleShutdown, AResizeAloneBringsNothingBack)
{
    start("0");
    open(0);
    console().Width = 13000;
    EXPECT_THAT(world.mci.sent(), IsEmpty());
}

TEST_F(ConsoleShutdown, APendingResizeResumesAndShowsEveryLiveVideo)
{
    start("0");
    openSeveral(3);
    unload(*VideoWindows[1]);
    for (const int index : {0, 2}) {
        VideoWindows[static_cast<std::size_t>(index)]->Hide();
        VideoWindows[static_cast<std::size_t>(index)]->Volume = 30 + index;
    }
    VideoWindows[0]->Paused = 1;
    world.mci.clear();
    ResizePending = true;
    console().Width = 13000;
    EXPECT_THAT(commands(), ElementsAre("set A time format ms", "status A position", "seek A to 1500", "Play A",
                                        "setaudio A Volume to 300", "Pause A", "set C time format ms",
                                        "status C position", "seek C to 1500", "Play C", "setaudio C Volume to 320"));
    EXPECT_TRUE(VideoWindows[0]->visible());
    EXPECT_TRUE(VideoWindows[2]->visible());
    EXPECT_FALSE(ResizePending);
    EXPECT_FALSE(Loaded<class frmWait>());
}

TEST_F(ConsoleShutdown, AWindowThatFailedComesBackToo)
{
    start("0");
    openSeveral(2);
    VideoWindows[0]->markFailed();
    VideoWindows[0]->Hide();
    world.mci.clear();
    ResizePending = true;
    console().Width = 13000;
    EXPECT_TRUE(VideoWindows[0]->visible());
    EXPECT_THAT(startingWith(commands(), "Play"), ElementsAre("Play B"));
}

TEST_F(ConsoleShutdown, TheNoticeStaysInFrontOfWhatComesBack)
{
    start("0");
    openSeveral(2);
    VideoWindows[0]->Hide();
    VideoWindows[1]->Hide();
    ResizePending = true;
    std::vector<std::string> active;
    world.mci.onSend = [&](const std::string&) {
        if (Loaded<class frmWait>() && activeForm())
            active.push_back(activeForm()->name());
    };
    console().Width = 13000;
    world.mci.onSend = nullptr;
    ASSERT_FALSE(active.empty());
    for (const std::string& name : active)
        EXPECT_EQ(name, "frmWait");
}

TEST_F(ConsoleShutdown, TheOwnerLeavesInATurnOfItsOwn)
{
    startWithWindows();
    bool markWasThere = false;
    world.instances.beforeTurn = [&] { markWasThere = presenceIsThere() && !world.instances.gone; };
    console().imgExit.userClick();
    EXPECT_TRUE(markWasThere) << "nothing is given up outside the turn";
    EXPECT_TRUE(world.instances.gone);
    EXPECT_FALSE(presenceIsThere());
}

TEST_F(ConsoleShutdown, AnErrorInTheReturnClearsThePendingFlagToo)
{
    start("0");
    open(0).Volume = 5000;
    ResizePending = true;
    console().Width = 13000;
    EXPECT_FALSE(ResizePending);
    EXPECT_FALSE(Loaded<class frmWait>());
}

// The mouse over the console.

TEST_F(ConsoleShutdown, TheMouseOverTheConsolePlaysTheVideoThatWasFull)
{
    start("0");
    FullMedia = alias(0);
    console().MouseMove({});
    EXPECT_THAT(commands(), ElementsAre("Play A "));
    EXPECT_EQ(FullMedia, "");
    console().MouseMove({});
    EXPECT_EQ(world.mci.sent().size(), 1U);
}

TEST_F(ConsoleShutdown, TheMouseOverItsDragAreaDoesTheSame)
{
    start("0");
    FullMedia = alias(0);
    console().Sposta.userMouseMove({});
    EXPECT_THAT(commands(), ElementsAre("Play A "));
    EXPECT_EQ(FullMedia, "");
}

TEST_F(ConsoleShutdown, TheMouseDoesNothingInFullScreenOrWithoutAVideo)
{
    start("0");
    FullMedia = alias(0);
    FullScreenOn = true;
    console().MouseMove({});
    EXPECT_EQ(FullMedia, alias(0));
    FullScreenOn = false;
    FullMedia = "  ";
    console().MouseMove({});
    EXPECT_THAT(world.mci.sent(), IsEmpty());
}

} // namespace tandrel::test
