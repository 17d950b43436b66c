// The window of a disc on the video control.

#include "other_media_bench.h"

#include "fullscreen/frm_panel.h"
#include "texts/frm_update.h"

namespace tandrel::test
{

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

namespace
{

class VideoDvd : public OtherMediaConsole
{
protected:
    VideoDvd() { begin(true); }

    std::vector<PictureBox*> strips()
    {
        return {&frmDVD().picClose, &frmDVD().picVRes, &frmDVD().picHRes, &frmDVD().picBottom, &frmDVD().picSide};
    }
    bool allStrips(bool visible)
    {
        const auto all = strips();
        return std::all_of(all.begin(), all.end(), [&](const PictureBox* box) { return box->visible() == visible; });
    }
    /// The notices that asked for a disc.
    int asked_ = 0;
    Text notice_;
    Text noticeTitle_;
    void noteNotices()
    {
        world.backend.holdsLater = true;
        world.backend.whileModal["frmUpdate"] = [this](Form& form) {
            ++asked_;
            notice_ = dynamic_cast<class frmUpdate&>(form).lblUpdate.caption();
            noticeTitle_ = form.caption();
        };
    }
};

const Text kPlainTitle = kFifty + "DVD Movie" + kFifty;

} // namespace

TEST_F(VideoDvd, ItsLoadTellsTheConsoleThatItIsThere)
{
    moveTo({1920, 200, 3200, 1224});
    class frmDVD& window = frmDVD();
    EXPECT_TRUE(DVDMode);
    EXPECT_EQ(window.Style.client(), &window);
    EXPECT_EQ(window.left(), 1920 * 15 + 400);
    EXPECT_EQ(window.top(), 200 * 15 + 400);
    EXPECT_THAT(askedOfDisc(), IsEmpty());
}

TEST_F(VideoDvd, ItsControlsStandWhereTheyAreStored)
{
    class frmDVD& window = frmDVD();
    EXPECT_EQ(rectOf(window.picSide), (Rect{11775, 0, 25, 6375}));
    EXPECT_EQ(rectOf(window.picBottom), (Rect{0, 6375, 11805, 25}));
    EXPECT_EQ(rectOf(window.picHRes), (Rect{11520, 6300, 255, 135}));
    EXPECT_EQ(rectOf(window.picVRes), (Rect{11700, 6120, 135, 255}));
    EXPECT_EQ(rectOf(window.picClose), (Rect{11380, 25, 255, 255}));
    EXPECT_EQ(rectOf(window.imgExit), (Rect{0, 0, 225, 225})) << "15 by 15 pixels";
    EXPECT_EQ(window.imgExit.container(), &window.picClose);
    EXPECT_EQ(window.dvdPicture.container(), &window.picDVD);
}

TEST_F(VideoDvd, BuildGraphGivesTheTitlesOfTheDisc)
{
    world.drives.add('D', "A_DISC", 7);
    class frmDVD& window = frmDVD();
    EXPECT_EQ(window.BuildGraph(), 7);
    EXPECT_EQ(window.Titles, 7);
    ASSERT_NE(window.oVidWebDVD, nullptr);
    EXPECT_EQ(window.DVDAdmin, &window.oVidWebDVD->DVDAdm());
    EXPECT_EQ(window.oVidWebDVD, &window.dvdPicture.InputActive());
}

TEST_F(VideoDvd, WithoutADiscOrWithoutTitlesItIsZero)
{
    class frmDVD& window = frmDVD();
    window.Titles = 5;
    EXPECT_EQ(window.BuildGraph(), 0);
    EXPECT_EQ(window.Titles, 0);
    EXPECT_EQ(window.oVidWebDVD, nullptr);
    world.drives.add('D', "DATA", 0);
    EXPECT_EQ(window.BuildGraph(), 0);
}

TEST_F(VideoDvd, TheCaptionsAreMadeTheActiveFeature)
{
    openDisc();
    EXPECT_THAT(askedOfDisc(), Contains("captions"));
    forgetAsked();
    frmDVD().AddCC();
    EXPECT_THAT(askedOfDisc(), ElementsAre("captions"));
}

TEST_F(VideoDvd, ItsActivationPlaysTheDisc)
{
    world.backend.pointerShapes.clear();
    FastForward = FastRewind = true;
    console().lblSpeed.Caption = "4x";
    FullMenuOpen = true;
    class frmDVD& window = openDisc();
    EXPECT_THAT(askedOfDisc(), Contains("open /discs/D"));
    EXPECT_EQ(window.dvdPicture.ColorKey(), 263173);
    EXPECT_EQ(window.height(), 6800 - 15);
    EXPECT_EQ(title(), kPlainTitle);
    EXPECT_FALSE(FastForward || FastRewind);
    EXPECT_EQ(console().lblSpeed.caption(), "0x");
    EXPECT_EQ(console().lblCurTime.caption(), "0:00:00");
    EXPECT_EQ(console().SeekSlider.Value, 0);
    EXPECT_FALSE(FullMenuOpen);
    EXPECT_FALSE(console().TrackHold);
    EXPECT_TRUE(allStrips(true));
    EXPECT_EQ(world.backend.pointerShapes.front(), pointer::kHourglass);
    EXPECT_EQ(screen().MousePointer(), pointer::kDefault);
}

TEST_F(VideoDvd, ALaterActivationPlaysOnWhereItIs)
{
    class frmDVD& window = openDisc();
    console().imgPause.userClick();
    forgetAsked();
    world.screenSaver.switched.clear();
    activateAgain(window);
    EXPECT_THAT(askedOfDisc(), ElementsAre("captions", "play", "showIn 0 787x425"));
    EXPECT_EQ(window.height(), 6800 - 30) << "one pixel each time";
    EXPECT_THAT(world.screenSaver.switched, ElementsAre(true));
}

TEST_F(VideoDvd, WithoutADiscTheTrayOpensAndTheMessageAsksForOne)
{
    noteNotices();
    frmDVD().Titles = 0;
    frmDVD().Show();
    EXPECT_EQ(frmDVD().Titles, -1);
    EXPECT_THAT(world.mci.sent(), ElementsAre("set CDAudio door open"));
    EXPECT_EQ(asked_, 1);
    EXPECT_EQ(notice_, "Insert a disk DVD-ROM.\n");
    EXPECT_EQ(noticeTitle_, AppTitle);
    EXPECT_EQ(screen().MousePointer(), pointer::kDefault);
    EXPECT_TRUE(DVDMode);
    EXPECT_THAT(askedOfDisc(), IsEmpty());
    EXPECT_NE(title(), kPlainTitle);
}

TEST_F(VideoDvd, TheMessageSpeaksTheUsersLanguage)
{
    noteNotices();
    Language = "IT";
    frmDVD().Show();
    EXPECT_EQ(notice_, "Inserire un disco DVD-ROM.\n");
}

TEST_F(VideoDvd, TheActivationThatTheEndOfTheMessageBringsAsksNothing)
{
    noteNotices();
    class frmDVD& window = frmDVD();
    window.Show();
    world.mci.clear();
    forgetActivation(window);
    activate(window);
    EXPECT_EQ(asked_, 1);
    EXPECT_THAT(world.mci.sent(), IsEmpty());
    activateAgain(window);
    EXPECT_EQ(asked_, 2) << "an empty drive goes on asking";
    EXPECT_THAT(world.mci.sent(), ElementsAre("set CDAudio door open"));
}

TEST_F(VideoDvd, AnActivationLongBehindTheMessageAsksAgain)
{
    noteNotices();
    class frmDVD& window = frmDVD();
    window.Show();
    console().SetFocus();
    world.backend.runWaiting();
    window.SetFocus();
    EXPECT_EQ(asked_, 2);
}

TEST_F(VideoDvd, AMessageThatOutlivesTheWindowLeavesNothingBehind)
{
    noteNotices();
    frmDVD().Show();
    Unload<class frmDVD>();
    world.backend.runWaiting();
    EXPECT_FALSE(Loaded<class frmDVD>());
}

TEST_F(VideoDvd, AnEncryptedDiscIsToldOnceAndNoTrayOpens)
{
    noteNotices();
    world.drives.add('D', "A_DISC");
    world.drives.discs["/discs/D"].encrypted = true;
    class frmDVD& window = frmDVD();
    window.Show();
    activateAgain(window);
    ASSERT_THAT(world.backend.boxes, SizeIs(1));
    EXPECT_EQ(world.backend.boxes[0].text, "This disc is encrypted, and no library to decrypt it is installed.");
    EXPECT_EQ(asked_, 0);
    EXPECT_THAT(world.mci.sent(), IsEmpty());
    EXPECT_EQ(window.Titles, -1);
    world.drives.discs["/discs/D"].encrypted = false;
    activateAgain(window);
    EXPECT_EQ(window.Titles, 2);
    EXPECT_THAT(askedOfDisc(), Contains("open /discs/D"));
    EXPECT_FALSE(window.dvdPicture.lblTrouble.visible());
}

TEST_F(VideoDvd, ADiscThatPlaysAsksItsOwnDriveAlone)
{
    world.drives.add('D', "OTHER", 0);
    world.drives.add('E', "A_DISC");
    class frmDVD& window = frmDVD();
    window.Show();
    world.drives.looked.clear();
    world.drives.readied.clear();
    activateAgain(window);
    EXPECT_THAT(world.drives.looked, IsEmpty());
    EXPECT_THAT(world.drives.readied, ElementsAre(1));
}

TEST_F(VideoDvd, AClickOnItBehindTheMessageAsksAgain)
{
    noteNotices();
    class frmDVD& window = frmDVD();
    window.Show();
    console().SetFocus();
    world.pointer.left = true;
    window.SetFocus();
    EXPECT_EQ(asked_, 2);
}

TEST_F(VideoDvd, ADiscThatIsPutInPlaysWithTheNextActivation)
{
    class frmDVD& window = frmDVD();
    window.Show();
    activateAgain(window);
    world.drives.add('D', "A_DISC");
    activateAgain(window);
    EXPECT_THAT(askedOfDisc(), Contains("open /discs/D"));
    EXPECT_EQ(window.Titles, 2);
}

TEST_F(VideoDvd, AnErrorInTheActivationLeavesNoHourglassBehind)
{
    world.drives.add('D', "A_DISC");
    world.players.hasDiscs = false;
    frmDVD().Show();
    EXPECT_EQ(screen().MousePointer(), pointer::kDefault);
    EXPECT_NE(title(), kPlainTitle);
}

TEST_F(VideoDvd, ARightButtonThatIsDownAtTheActivationFillsTheScreen)
{
    class frmDVD& window = openDisc();
    window.Move({300, 450, 9000, 6000});
    console().Timer4.Enabled = true;
    world.screenSaver.switched.clear();
    activateAgain(window, true);
    EXPECT_TRUE(console().SaverOff);
    EXPECT_TRUE(console().DvdFullByClick);
    EXPECT_TRUE(FullScreenOn);
    EXPECT_TRUE(window.Full);
    EXPECT_FALSE(world.screenSaver.switched.back());
    EXPECT_EQ((Rect{SavedLeft, SavedTop, SavedWidth, SavedHeight}), (Rect{300, 450, 9000, 6000}));
    EXPECT_FALSE(window.hasTitleBar() || window.hasBorder());
    EXPECT_EQ(window.picDVD.borderStyle(), 0);
    EXPECT_TRUE(allStrips(false));
    EXPECT_EQ(rectOf(window), twips(0, 0, 1920, 1080));
    EXPECT_TRUE(PanelUp);
    EXPECT_EQ(frmPanel().lblTitle.caption(), "DVD:: \"Movie\"");
    EXPECT_EQ(frmPanel().top(), console().FullHeight - 914) << "two twips a step";
    EXPECT_TRUE(frmPanel().imgDVD.visible());
    EXPECT_FALSE(console().Timer4.enabled());
    EXPECT_TRUE(isSpent(MouseButton::Right));
}

TEST_F(VideoDvd, ARightClickThatIsOverAlreadyFillsTheScreenToo)
{
    class frmDVD& window = openDisc();
    console().SetFocus();
    world.pointer.rightLatched = true;
    window.SetFocus();
    EXPECT_TRUE(window.Full);
}

TEST_F(VideoDvd, WithTheControlKeyOrANoticeItIsNotFilled)
{
    class frmDVD& window = openDisc();
    world.pointer.control = true;
    activateAgain(window, true);
    EXPECT_FALSE(FullScreenOn);
    world.pointer.control = false;
    console().SetFocus();
    frmUpdate().Visible = true;
    activateAgain(window, true);
    EXPECT_FALSE(FullScreenOn);
}

TEST_F(VideoDvd, OnTheSecondMonitorItFillsThatOne)
{
    moveTo({1920, 0, 3200, 1024});
    class frmDVD& window = openDisc();
    activateAgain(window, true);
    EXPECT_EQ(window.pixelRect(), (PixelRect{1920, 0, 3200, 1024}));
}

TEST_F(VideoDvd, InFullScreenAnActivationTakesThePanelDownAndKeepsTheScreenFilled)
{
    class frmDVD& window = openDisc();
    activateAgain(window, true);
    console().Timer4.Enabled = false;
    activateAgain(window);
    EXPECT_FALSE(PanelUp);
    EXPECT_EQ(frmPanel().top(), console().FullHeight);
    EXPECT_TRUE(console().Timer4.enabled());
    EXPECT_TRUE(allStrips(false));
    EXPECT_EQ(rectOf(window), twips(0, 0, 1920, 1080));
}

TEST_F(VideoDvd, ADoubleClickOnTheFullPictureLeadsBack)
{
    class frmDVD& window = openDisc();
    window.Move({300, 450, 9000, 6000});
    activateAgain(window, true);
    activateAgain(window);
    ClickState = 1.0;
    world.screenSaver.switched.clear();
    tick2();
    EXPECT_FALSE(FullScreenOn);
    EXPECT_FALSE(window.Full);
    EXPECT_FALSE(console().DvdFullByClick);
    EXPECT_TRUE(window.hasTitleBar());
    EXPECT_EQ(window.picDVD.borderStyle(), 1);
    EXPECT_EQ(window.left(), 300);
    EXPECT_EQ(window.top(), 450);
    EXPECT_EQ(window.width(), 9000);
    EXPECT_TRUE(world.screenSaver.switched.front());
    EXPECT_TRUE(allStrips(true));
    EXPECT_EQ(activeForm(), &console());
}

TEST_F(VideoDvd, ARightClickOnItFillsTheScreenToo)
{
    class frmDVD& window = openDisc();
    rightPressOn(window);
    EXPECT_TRUE(window.Full);
    EXPECT_TRUE(console().DvdFullByClick);
    EXPECT_EQ(rectOf(window), twips(0, 0, 1920, 1080));
}

TEST_F(VideoDvd, ButtonsOfTheConsoleAndThePanelReachTheDisc)
{
    openDisc();
    forgetAsked();
    console().imgPlay.userClick();
    console().imgPause.userClick();
    console().imgFwd.userClick();
    console().imgRwd.userClick();
    console().cmdFwd.Value = true;
    console().cmdRwd.Value = true;
    console().imgReplay.userClick();
    EXPECT_THAT(askedOfDisc(), ElementsAre("play", "pause", "next chapter", "previous chapter", "next chapter",
                                           "previous chapter", "root menu"));
    forgetAsked();
    frmPanel().imgPlay.userClick();
    frmPanel().imgPause.userClick();
    frmPanel().imgFwd.userClick();
    frmPanel().imgRwd.userClick();
    frmPanel().imgDVD.userClick();
    EXPECT_THAT(askedOfDisc(), ElementsAre("play", "pause", "next chapter", "previous chapter", "root menu"));
}

TEST_F(VideoDvd, TheSliderSeeksInWholeSecondsAndTheVolumeIsLeftAlone)
{
    openDisc();
    world.players.disc.duration = 5025;
    console().Timer1.Enabled = true;
    console().Timer1.tick();
    forgetAsked();
    console().SeekSlider.Value = 3723;
    console().SeekSlider.userClick();
    console().InvertSlider.userScroll(30);
    console().imgMute.userClick();
    EXPECT_THAT(askedOfDisc(), ElementsAre("seek 3723"));
}

TEST_F(VideoDvd, ThePollShowsTheTimesOfTheDisc)
{
    openDisc();
    world.players.disc.duration = 5025.48;
    world.players.disc.position = 3723.5;
    console().Timer1.Enabled = true;
    console().Timer1.tick();
    EXPECT_EQ(console().SeekSlider.Max, 5025);
    EXPECT_EQ(console().SeekSlider.Value, 3723);
    EXPECT_EQ(console().lblCurTime.caption(), "1:02:03");
    EXPECT_EQ(console().lblDuration.caption(), "1:23:45");
}

TEST_F(VideoDvd, ItsPictureAndStripsFollowItsSize)
{
    class frmDVD& window = openDisc();
    window.Move({0, 0, 9100, 6400});
    EXPECT_EQ(rectOf(window.picDVD), (Rect{0, 0, 9000, 6000}));
    EXPECT_EQ(rectOf(window.dvdPicture), (Rect{0, 0, 9000, 6000}));
    EXPECT_EQ(window.picClose.left(), 9000 - 300);
    EXPECT_EQ(rectOf(window.picVRes), (Rect{9000 - 50, 6000 - 255 + 75, 135, 255}));
    EXPECT_EQ(rectOf(window.picHRes), (Rect{9000 - 255 + 75, 6000 - 135 + 90, 255, 135}));
    EXPECT_EQ(rectOf(window.picBottom), (Rect{0, 6000 - 25, 9000, 25}));
    EXPECT_EQ(rectOf(window.picSide), (Rect{9000 - 25, 0, 25, 6000}));
    EXPECT_FALSE(console().TitleOff);
    window.Style.Titlebar = false;
    window.Move({0, 0, 6000, 4000});
    EXPECT_EQ(rectOf(window.picDVD), (Rect{0, 0, 6000, 4000}));
    EXPECT_EQ(rectOf(window.dvdPicture), (Rect{0, 0, 6000, 4000}));
    EXPECT_TRUE(console().TitleOff);
}

TEST_F(VideoDvd, AHiddenFormAndAFullOneWithATitleAreLeftAsTheyAre)
{
    class frmDVD& window = openDisc();
    const Rect before = rectOf(window.picDVD);
    window.Full = true;
    window.Move({0, 0, 3000, 3000});
    EXPECT_EQ(rectOf(window.picDVD), before);
    window.Full = false;
    window.Hide();
    window.Move({0, 0, 4000, 4000});
    EXPECT_EQ(rectOf(window.picDVD), before);
}

TEST_F(VideoDvd, TheLeftButtonHoldsTheStripsAndItsReleaseLetsGo)
{
    class frmDVD& window = openDisc();
    const std::pair<PictureBox*, int> rows[] = {
        {&window.picVRes, 1}, {&window.picHRes, 1}, {&window.picBottom, 2}, {&window.picSide, 3}};
    for (const auto& [strip, number] : rows) {
        strip->userMouseDown({mouse::kRight, 0, 5, 5});
        EXPECT_EQ(console().DragHandle, 0) << strip->name();
        strip->userMouseMove({mouse::kRight, 0, 5, 5});
        EXPECT_EQ(console().DragHandle, 0) << strip->name();
        strip->userMouseDown({mouse::kLeft, 0, 5, 5});
        EXPECT_EQ(console().DragHandle, number) << strip->name();
        strip->userMouseUp({mouse::kLeft, 0, 5, 5});
        EXPECT_EQ(console().DragHandle, 0) << strip->name();
        strip->userMouseMove({mouse::kLeft, 0, 5, 5});
        EXPECT_EQ(console().DragHandle, number) << strip->name();
        strip->userMouseUp({mouse::kLeft, 0, 5, 5});
    }
}

TEST_F(VideoDvd, TheEdgeOfThePictureCountsAsAStripAndTheRestPressesInTheMenu)
{
    class frmDVD& window = openDisc();
    window.Move({0, 0, 6100, 4400});
    forgetAsked();
    window.dvdPicture.userMouseDown({mouse::kLeft, 0, 5990, 2000});
    EXPECT_EQ(console().DragHandle, 3);
    window.dvdPicture.userMouseUp({mouse::kLeft, 0, 5990, 2000});
    window.dvdPicture.userMouseDown({mouse::kLeft, 0, 3000, 1500});
    EXPECT_EQ(console().DragHandle, 0);
    EXPECT_THAT(askedOfDisc(), Contains("press 200,100"));
}

TEST_F(VideoDvd, TheCloseBoxTakesABorderWhileItIsPressedAndClosesTheWindow)
{
    class frmDVD& window = openDisc();
    window.imgExit.userMouseDown({mouse::kLeft, 0, 1, 1});
    EXPECT_EQ(window.imgExit.borderStyle(), 1);
    window.imgExit.userMouseUp({mouse::kLeft, 0, 1, 1});
    EXPECT_EQ(window.imgExit.borderStyle(), 0);
    window.imgExit.userClick();
    EXPECT_FALSE(Loaded<class frmDVD>());
}

TEST_F(VideoDvd, ClosingItResetsTheConsole)
{
    openDisc();
    console().Timer1.Enabled = true;
    console().Timer1.tick();
    Unload<class frmDVD>();
    EXPECT_EQ(console().lblCurTime.caption(), "0:00:00");
    EXPECT_EQ(console().lblDuration.caption(), "0:00:00");
    EXPECT_EQ(title(), "");
    EXPECT_EQ(activeForm(), &console());
    EXPECT_FALSE(DVDMode);
    EXPECT_EQ(otherMedia().dvd.form, nullptr);
    EXPECT_EQ(world.players.disc.alive, 0);
}

TEST_F(VideoDvd, ClosedInFullScreenItEndsThat)
{
    class frmDVD& window = openDisc();
    activateAgain(window, true);
    unload(window);
    EXPECT_FALSE(FullScreenOn);
    EXPECT_FALSE(PanelUp);
    EXPECT_FALSE(Loaded<class frmPanel>());
    EXPECT_FALSE(console().DvdFullByClick);
    EXPECT_TRUE(console().Timer4.enabled());
    EXPECT_TRUE(world.screenSaver.switched.back());
}

TEST_F(VideoDvd, TheWheelSizesItAndNothingInFullScreen)
{
    class frmDVD& window = openDisc();
    window.Move({0, 0, 4005, 3009});
    window.MouseWheel(0, 120, 0, 0);
    EXPECT_EQ(rectOf(window), (Rect{0, 0, 4405, 3309}));
    window.MouseWheel(0, -120, 0, 0);
    EXPECT_EQ(window.height(), 2978) << "3309 less 330.9";
    window.Full = true;
    const Rect before = rectOf(window);
    window.MouseWheel(0, 120, 0, 0);
    EXPECT_EQ(rectOf(window), before);
}

TEST_F(VideoDvd, HidingTheConsoleHoldsItAndItsReturnPlaysOn)
{
    class frmDVD& window = openDisc();
    forgetAsked();
    console().imgHide.userClick();
    EXPECT_THAT(askedOfDisc(), ElementsAre("pause"));
    EXPECT_FALSE(window.visible());
    console().userRestored();
    EXPECT_TRUE(window.visible());
    EXPECT_FALSE(world.players.disc.paused);
    EXPECT_EQ(world.players.disc.alive, 1);
}

TEST_F(VideoDvd, ARightClickBehindTheMessageAsksAgainToo)
{
    noteNotices();
    class frmDVD& window = frmDVD();
    window.Show();
    console().SetFocus();
    world.pointer.right = true;
    window.SetFocus();
    EXPECT_EQ(asked_, 2);
}

TEST_F(VideoDvd, InFullScreenAnActivationLeavesTheScreenSaverOff)
{
    class frmDVD& window = openDisc();
    activateAgain(window, true);
    world.screenSaver.switched.clear();
    activateAgain(window);
    EXPECT_THAT(world.screenSaver.switched, Not(Contains(true)));
}

TEST_F(VideoDvd, WithItsDiscGoneTheGraphIsGoneToo)
{
    class frmDVD& window = openDisc();
    ASSERT_NE(window.DVDAdmin, nullptr);
    world.drives.drives.clear();
    EXPECT_EQ(window.BuildGraph(), 0);
    EXPECT_EQ(window.oVidWebDVD, nullptr);
    EXPECT_EQ(window.DVDAdmin, nullptr);
}

TEST_F(VideoDvd, WhileTheMessageAsksForADiscNothingElseSeemsBusy)
{
    bool waitIsUp = true;
    Integer shape = pointer::kHourglass;
    world.backend.whileModal["frmUpdate"] = [&](Form&) {
        waitIsUp = Loaded<class frmWait>();
        shape = screen().MousePointer();
    };
    console().OpenSingleVideoDVD();
    EXPECT_FALSE(waitIsUp);
    EXPECT_EQ(shape, pointer::kDefault);
}

} // namespace tandrel::test
