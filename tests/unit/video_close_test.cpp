// The end of a video window.

#include "player_bench.h"

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

class VideoClose : public Player
{
protected:
    VideoClose() { start(); }
};

} // namespace

TEST_F(VideoClose, TheDeviceIsClosedTwiceWhenItsEntryIsFound)
{
    openSeveral(2);
    FastForward = FastRewind = true;
    const auto window = VideoWindows[0];
    unload(*window);
    EXPECT_THAT(commands(), ElementsAre("Close A", "Close A"));
    EXPECT_FALSE(FastForward || FastRewind);
    EXPECT_THAT(console().List2.entries(), ElementsAre("/films/b.avi"));
    EXPECT_EQ(window->MediaFile, "");
    EXPECT_TRUE(window->isDead());
    EXPECT_EQ(VideoWindows[0], window) << "the element stays";
    EXPECT_EQ(NextSlot, 2);
}

TEST_F(VideoClose, WithoutAnEntryTheDeviceIsClosedOnceAndTheJumpsGoOn)
{
    frmChild& window = open(0);
    console().List2.Clear();
    console().List2.AddItem("/films/x.avi");
    FastForward = true;
    unload(window);
    EXPECT_THAT(commands(), ElementsAre("Close A"));
    EXPECT_TRUE(FastForward);
    EXPECT_THAT(console().List2.entries(), ElementsAre("/films/x.avi"));
}

TEST_F(VideoClose, AnEntryByFileNameAloneIsFoundToo)
{
    frmChild& window = open(0);
    console().List2.Clear();
    console().List2.AddItem("b.avi");
    console().List2.AddItem("a.avi");
    unload(window);
    EXPECT_THAT(commands(), ElementsAre("Close A", "Close A"));
    EXPECT_THAT(console().List2.entries(), ElementsAre("b.avi"));
}

TEST_F(VideoClose, AFailedWindowSendsNothingButGivesUpItsEntry)
{
    openSeveral(2);
    VideoWindows[1]->markFailed();
    unload(*VideoWindows[1]);
    EXPECT_THAT(world.mci.sent(), IsEmpty());
    EXPECT_THAT(console().List2.entries(), ElementsAre("/films/a.avi"));
    EXPECT_EQ(VideoWindows[1]->MediaFile, "");
}

TEST_F(VideoClose, ClosingAnyWindowBlanksTitleAndTime)
{
    openSeveral(2);
    console().lblTitleBar.Caption = "a title";
    console().lblDuration.Caption = "0:01:00";
    unload(*VideoWindows[0]);
    EXPECT_EQ(console().lblTitleBar.caption(), "");
    EXPECT_EQ(console().lblDuration.caption(), "0:00:00");
    EXPECT_EQ(CurrentAlias, alias(1)) << "another video is still the selected one";
}

TEST_F(VideoClose, ClosingTheLastWindowSelectsNoMedia)
{
    frmChild& window = open(0);
    unload(window);
    EXPECT_EQ(CurrentAlias, "No Media Selected");
    EXPECT_EQ(console().lblTitleBar.caption(), "");
    EXPECT_EQ(console().lblDuration.caption(), "0:00:00");
}

TEST_F(VideoClose, WhileTheConsoleIsClosingTheSelectionStays)
{
    frmChild& window = open(0);
    console().ClosingDown = true;
    unload(window);
    EXPECT_EQ(CurrentAlias, alias(0));
    EXPECT_EQ(console().lblTitleBar.caption(), "");
}

TEST_F(VideoClose, TheFocusGoesToTheConsole)
{
    frmChild& window = open(0);
    console().TrackHold = false;
    unload(window);
    EXPECT_TRUE(console().TrackHold) << "the console was activated";
}

TEST_F(VideoClose, AClickOnTheExitImageEndsTheWindowWhenTheClickIsDone)
{
    const auto window = std::static_pointer_cast<frmChild>(open(0).shared_from_this());
    window->imgExit.userMouseDown({mouse::kLeft, 0, 0, 0});
    EXPECT_EQ(window->imgExit.borderStyle(), 1);
    window->imgExit.userMouseUp({mouse::kLeft, 0, 0, 0});
    EXPECT_EQ(window->imgExit.borderStyle(), 0);
    window->imgExit.userMouseDown({mouse::kRight, 0, 0, 0});
    EXPECT_EQ(window->imgExit.borderStyle(), 0);
    EXPECT_FALSE(window->isDead());
    window->imgExit.userClick();
    EXPECT_TRUE(window->isDead());
}

TEST_F(VideoClose, ADeadWindowSendsNothingWhenItIsTouchedAgain)
{
    const auto window = std::static_pointer_cast<frmChild>(open(0).shared_from_this());
    unload(*window);
    world.mci.clear();
    window->Show();
    window->Width = 6000;
    window->picVideo.Width = 5000;
    unload(*window);
    EXPECT_THAT(world.mci.sent(), IsEmpty());
    EXPECT_FALSE(window->visible());
}

} // namespace tandrel::test
