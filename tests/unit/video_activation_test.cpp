// How a video window becomes the selected one.

#include "player_bench.h"

#include "fullscreen/frm_panel.h"
#include "toolkit/activation.h"
#include "toolkit/press.h"

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

class VideoActivation : public Player
{
protected:
    VideoActivation() { start(); }
};

} // namespace

TEST_F(VideoActivation, TheActiveVideoIsTheSelectedOne)
{
    openSeveral(2);
    EXPECT_EQ(CurrentAlias, alias(1));
    VideoWindows[0]->SetFocus();
    EXPECT_EQ(CurrentAlias, alias(0));
    EXPECT_THAT(world.mci.sent(), IsEmpty()) << "selecting sends nothing";
}

TEST_F(VideoActivation, AWindowWhoseMediumIsGoneIsNotSelected)
{
    openSeveral(2);
    VideoWindows[0]->markFailed();
    sweepFailedSlots();
    VideoWindows[0]->SetFocus();
    EXPECT_EQ(CurrentAlias, alias(1));
    EXPECT_EQ(console().List2.ListCount(), 1);
}

TEST_F(VideoActivation, TheTitleShowsTheFileNameWhenTheSelectionChanges)
{
    openSeveral(2);
    VideoWindows[0]->SetFocus();
    EXPECT_EQ(console().lblTitleBar.caption(), " [ a.avi ] " + std::string(50, ' '));
}

TEST_F(VideoActivation, TheTitleStaysWhenTheWindowIsTheSelectedOneAlready)
{
    openSeveral(2);
    console().lblTitleBar.Caption = "kept";
    CurrentAlias = alias(0);
    VideoWindows[0]->SetFocus();
    EXPECT_EQ(console().lblTitleBar.caption(), "kept");
}

TEST_F(VideoActivation, TheConsoleShowsTheVideosLevelLengthAndSpeed)
{
    openSeveral(2);
    VideoWindows[0]->Volume = 30;
    VideoWindows[0]->Duration = "0:01:00";
    console().lblSpeed.Caption = "2x";
    FastForward = FastRewind = true;
    console().TrackHold = true;
    FullMenuOpen = true;
    VideoWindows[0]->SetFocus();
    EXPECT_EQ(console().InvertSlider.value(), 70);
    EXPECT_EQ(console().VolumeSlider.value(), 30);
    EXPECT_EQ(console().lblDuration.caption(), "0:01:00");
    EXPECT_EQ(console().lblSpeed.caption(), "0x");
    EXPECT_FALSE(FastForward || FastRewind);
    EXPECT_FALSE(console().TrackHold);
    EXPECT_FALSE(FullMenuOpen);
}

TEST_F(VideoActivation, AWindowedVideoShowsItsStripsAndBringsThreeToTheFront)
{
    world.backend.windows = true;
    open(0);
    frmChild& window = open(1);
    VideoWindows[0]->SetFocus();
    world.journal.clear();
    window.SetFocus();
    auto strips = startingWith(world.journal, "frmChild.pic");
    ASSERT_FALSE(strips.empty());
    EXPECT_EQ(strips.front(), "frmChild.picClose hidden") << "the window that was active gives its close box up";
    strips.erase(strips.begin());
    EXPECT_THAT(strips, ElementsAre("frmChild.picClose shown", "frmChild.picVRes shown", "frmChild.picHRes shown",
                                    "frmChild.picBottom shown", "frmChild.picSide shown", "frmChild.picClose front",
                                    "frmChild.picVRes front", "frmChild.picHRes front"));
}

TEST_F(VideoActivation, OnlyTheActiveWindowShowsItsCloseBox)
{
    openSeveral(2);
    EXPECT_FALSE(VideoWindows[0]->picClose.visible());
    EXPECT_TRUE(VideoWindows[1]->picClose.visible());
    VideoWindows[0]->SetFocus();
    EXPECT_TRUE(VideoWindows[0]->picClose.visible());
    EXPECT_FALSE(VideoWindows[1]->picClose.visible());
}

TEST_F(VideoActivation, AFullVideoHidesItsStrips)
{
    openSeveral(2);
    frmChild& window = *VideoWindows[0];
    window.Full = true;
    window.SetFocus();
    for (const PictureBox* box :
         {&window.picClose, &window.picVRes, &window.picHRes, &window.picBottom, &window.picSide})
        EXPECT_FALSE(box->visible());
}

TEST_F(VideoActivation, TheRightButtonSendsTheVideoToFullScreen)
{
    openSeveral(2);
    world.pointer.right = true;
    VideoWindows[0]->SetFocus();
    EXPECT_TRUE(FullScreenOn);
    EXPECT_TRUE(VideoWindows[0]->Full);
    EXPECT_EQ(FullMedia, alias(0));
}

TEST_F(VideoActivation, OneRightPressSendsOneVideoToFullScreen)
{
    openSeveral(2);
    world.pointer.right = true;
    VideoWindows[0]->SetFocus();
    FullScreenOn = false;
    VideoWindows[0]->Full = false;
    VideoWindows[1]->SetFocus();
    EXPECT_FALSE(FullScreenOn) << "the press is spent";
    world.pointer.right = false;
    VideoWindows[0]->SetFocus();
    world.pointer.right = true;
    VideoWindows[1]->SetFocus();
    EXPECT_TRUE(FullScreenOn);
    EXPECT_TRUE(VideoWindows[1]->Full);
}

TEST_F(VideoActivation, TheRightButtonDoesNothingWhileAVideoFillsTheScreen)
{
    openSeveral(2);
    FullScreenOn = true;
    FullMedia = alias(1);
    PanelUp = true;
    world.pointer.right = true;
    VideoWindows[0]->SetFocus();
    EXPECT_FALSE(VideoWindows[0]->Full);
    EXPECT_EQ(FullMedia, alias(1));
    EXPECT_TRUE(PanelUp) << "with the button down the panel is left alone";
}

TEST_F(VideoActivation, TheRightButtonDoesNothingOnAWindowWithoutMedium)
{
    openSeveral(2);
    VideoWindows[0]->MediaFile = "  ";
    world.pointer.right = true;
    console().TrackHold = true;
    VideoWindows[0]->SetFocus();
    EXPECT_FALSE(FullScreenOn);
    EXPECT_EQ(FullMedia, "");
    EXPECT_FALSE(console().TrackHold);
}

TEST_F(VideoActivation, InFullScreenAnActivationPutsThePanelJustBelowTheScreen)
{
    openSeveral(2);
    console().FullTop = 1500;
    FullScreenOn = true;
    PanelUp = true;
    frmPanel().Show();
    frmPanel().Top = 0;
    VideoWindows[0]->SetFocus();
    EXPECT_FALSE(PanelUp);
    EXPECT_EQ(frmPanel().top(), (100 + 1080) * 15);
}

TEST_F(VideoActivation, WindowedAnActivationLeavesThePanelAlone)
{
    openSeveral(2);
    PanelUp = true;
    VideoWindows[0]->SetFocus();
    EXPECT_TRUE(PanelUp);
    EXPECT_FALSE(Loaded<class frmPanel>());
}

} // namespace tandrel::test
