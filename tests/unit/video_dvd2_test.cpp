// The window of a disc on the media player control, and the dialog for its drive.

#include "other_media_bench.h"

#include "fullscreen/frm_panel.h"
#include "texts/frm_update.h"
#include "texts/frm_wait.h"
#include "video/frm_driver.h"

namespace tandrel::test
{

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

namespace
{

class VideoDvd2 : public OtherMediaConsole
{
protected:
    VideoDvd2() { begin(); }

    /// What the user does in the dialog for the drive.
    void inDialog(const std::function<void(class frmDriver&)>& deed)
    {
        world.backend.whileModal["frmDriver"] = [this, deed](Form& form) {
            auto& dialog = dynamic_cast<class frmDriver&>(form);
            entries_ = dialog.cboDriver.entries();
            waitWasUp_ = Loaded<class frmWait>();
            deed(dialog);
        };
    }
    static void choose(class frmDriver& dialog, int index)
    {
        dialog.cboDriver.ListIndex = index;
        dialog.cmdOK.userClick();
    }
    void threeDrives()
    {
        world.drives.add('D', "FIRST");
        world.drives.add('E', "SECOND");
        world.drives.add('F', "THIRD");
        world.drives.drives[1].ready = false;
    }
    std::vector<Text> entries_;
    bool waitWasUp_ = false;
};

} // namespace

TEST_F(VideoDvd2, WithoutADriveAMessageSaysSo)
{
    class frmDVD2& window = frmDVD2();
    ASSERT_THAT(world.backend.boxes, SizeIs(1));
    EXPECT_EQ(world.backend.boxes[0].text, "No Disk Drive found. Impossible continue.");
    EXPECT_EQ(world.backend.boxes[0].style, BoxStyle::Exclamation);
    EXPECT_EQ(world.backend.boxes[0].title, AppTitle);
    EXPECT_FALSE(DVDMode);
    EXPECT_EQ(window.DriveIndex, "");
    EXPECT_EQ(window.DriveURL, "");
    EXPECT_EQ(window.left(), console().FullLeft + 400);
    EXPECT_EQ(window.top(), console().FullTop + 400);
    EXPECT_FALSE(Loaded<class frmWait>());
    EXPECT_EQ(screen().MousePointer(), pointer::kDefault);
}

TEST_F(VideoDvd2, TheTextsOfTheMessagesAreEnglishInEveryLanguage)
{
    Language = "DE";
    frmDVD2();
    EXPECT_EQ(world.backend.boxes.at(0).text, "No Disk Drive found. Impossible continue.");
    const auto dialog = newForm<class frmDriver>();
    EXPECT_EQ(dialog->lblLang.caption(), "Select Drive:");
    EXPECT_EQ(dialog->cmdOK.caption(), "&OK");
    EXPECT_EQ(dialog->cmdCancel.caption(), "&Cancel");
}

TEST_F(VideoDvd2, ASingleDriveGoesStraightToTheDisc)
{
    world.drives.add('E', "A_DISC");
    bool asked = false;
    inDialog([&](class frmDriver&) { asked = true; });
    class frmDVD2& window = frmDVD2();
    EXPECT_FALSE(asked);
    EXPECT_EQ(window.DriveIndex, "0");
    EXPECT_EQ(window.DriveURL, "wmpdvd://E");
    EXPECT_EQ(window.caption(), "A_DISC");
    EXPECT_EQ(window.MediaFile, "A_DISC");
    EXPECT_TRUE(DVDMode);
    EXPECT_THAT(askedOfDisc(), Contains("open /discs/E"));
    EXPECT_EQ(window.picDVD.URL(), "wmpdvd://E");
    EXPECT_FALSE(Loaded<class frmWait>());
}

TEST_F(VideoDvd2, ASingleDriveWithoutADiscIsOpenedAndAskedForOne)
{
    world.drives.add('D', "A_DISC");
    world.drives.drives[0].ready = false;
    Text notice;
    Text heading;
    world.backend.whileModal["frmUpdate"] = [&](Form& form) {
        notice = dynamic_cast<class frmUpdate&>(form).lblUpdate.caption();
        heading = form.caption();
    };
    class frmDVD2& window = frmDVD2();
    EXPECT_THAT(world.drives.ejected, ElementsAre(0));
    EXPECT_EQ(notice, "Insert a disk DVD-ROM.\n");
    EXPECT_EQ(heading, AppTitle);
    EXPECT_EQ(window.DriveIndex, "");
    EXPECT_EQ(window.DriveURL, "");
    EXPECT_TRUE(DVDMode);
    EXPECT_EQ(window.picDVD.URL(), "");
    EXPECT_THAT(askedOfDisc(), IsEmpty());
}

TEST_F(VideoDvd2, OfSeveralDrivesTheDialogAsksForOne)
{
    threeDrives();
    inDialog([](class frmDriver& dialog) { choose(dialog, 2); });
    class frmDVD2& window = frmDVD2();
    EXPECT_THAT(entries_, ElementsAre("D:FIRST", "E: [Device Not Ready]", "F:THIRD"));
    EXPECT_FALSE(waitWasUp_);
    EXPECT_EQ(window.DriveIndex, "2");
    EXPECT_EQ(window.DriveURL, "wmpdvd://F");
    EXPECT_EQ(window.caption(), "THIRD");
    EXPECT_THAT(askedOfDisc(), Contains("open /discs/F"));
    EXPECT_TRUE(DVDMode);
}

TEST_F(VideoDvd2, ADriveThatIsNotReadyMayBeChosenAndHasItsTrayOpened)
{
    threeDrives();
    inDialog([](class frmDriver& dialog) { choose(dialog, 1); });
    Text chosen;
    world.backend.whileModal["frmUpdate"] = [&](Form&) { chosen = frmDVD2().DriveURL; };
    class frmDVD2& window = frmDVD2();
    EXPECT_EQ(chosen, "wmpdvd://E") << "the letter is the first character of the entry";
    EXPECT_THAT(world.drives.ejected, ElementsAre(1));
    EXPECT_EQ(window.DriveURL, "");
    EXPECT_TRUE(DVDMode);
}

TEST_F(VideoDvd2, ACancelLeavesTheFormUpAndEmpty)
{
    threeDrives();
    inDialog([](class frmDriver& dialog) { dialog.cmdCancel.userClick(); });
    class frmDVD2& window = frmDVD2();
    EXPECT_TRUE(window.isLoaded());
    EXPECT_EQ(window.DriveIndex, "");
    EXPECT_EQ(window.DriveURL, "");
    EXPECT_FALSE(DVDMode);
    EXPECT_THAT(askedOfDisc(), IsEmpty());
    EXPECT_THAT(world.drives.ejected, IsEmpty());
}

TEST_F(VideoDvd2, ADriveThatGoesWhileItIsChosenLeavesTheFormEmpty)
{
    threeDrives();
    inDialog([&](class frmDriver& dialog) {
        choose(dialog, 2);
        world.drives.drives.clear();
        frmDVD2().picDVD.cdromCollection().count();
    });
    class frmDVD2& window = frmDVD2();
    EXPECT_EQ(window.DriveIndex, "");
    EXPECT_EQ(window.DriveURL, "");
    EXPECT_FALSE(Loaded<class frmWait>());
    EXPECT_EQ(screen().MousePointer(), pointer::kDefault);
    EXPECT_EQ(window.left(), console().FullLeft + 400);
}

TEST_F(VideoDvd2, OkWithoutAChoiceSaysSoAndKeepsTheDialog)
{
    threeDrives();
    bool stayed = false;
    inDialog([&](class frmDriver& dialog) {
        EXPECT_EQ(dialog.cboDriver.ListIndex, -1);
        dialog.cmdOK.userClick();
        stayed = dialog.isLoaded() && dialog.visible();
        dialog.cmdCancel.userClick();
    });
    frmDVD2();
    EXPECT_TRUE(stayed);
    ASSERT_THAT(world.backend.boxes, SizeIs(1));
    EXPECT_EQ(world.backend.boxes[0].text, "Select a Disk Drive.");
    EXPECT_EQ(world.backend.boxes[0].style, BoxStyle::Information);
}

TEST_F(VideoDvd2, TheDialogIsCentredOnItsMonitorCountedByTheWidthOfAPixel)
{
    screen().setMetrics(15, 10, {0, 0, 1920, 1080});
    world.monitors.set({{0, 0, 1920, 1080}});
    tandrel::monitors().Refresh();
    const auto dialog = newForm<class frmDriver>();
    dialog->load();
    EXPECT_EQ(dialog->left(), (1920 * 15 - 4950) / 2);
    EXPECT_EQ(dialog->top(), (1080 * 15 - 2430) / 2);
    unload(*dialog);
    screen().setMetrics(15, 15, {0, 0, 1920, 1080});
}

TEST_F(VideoDvd2, OnASecondMonitorTheDialogStaysThere)
{
    world.monitors.set({{0, 0, 1920, 1080}, {1920, 0, 3200, 1024}});
    tandrel::monitors().Refresh();
    const auto dialog = newForm<class frmDriver>();
    dialog->Left = 2000 * 15;
    dialog->Top = 100 * 15;
    dialog->load();
    EXPECT_EQ(dialog->left(), 1920 * 15 + (1280 * 15 - 4950) / 2);
    EXPECT_EQ(dialog->top(), (1024 * 15 - 2430) / 2);
    unload(*dialog);
}

TEST_F(VideoDvd2, AnActivationWritesNoAddressAndResetsTheConsole)
{
    class frmDVD2& window = openDisc2();
    forgetAsked();
    console().SetFocus();
    console().lblSpeed.Caption = "4x";
    console().SeekSlider.Value = 50;
    world.screenSaver.switched.clear();
    activateAgain(window);
    EXPECT_THAT(askedOfDisc(), IsEmpty());
    EXPECT_EQ(console().lblSpeed.caption(), "0x");
    EXPECT_EQ(console().lblCurTime.caption(), "0:00:00");
    EXPECT_EQ(console().SeekSlider.Value, 0);
    EXPECT_THAT(world.screenSaver.switched, ElementsAre(true));
    EXPECT_EQ(window.picDVD.URL(), "wmpdvd://D");
}

TEST_F(VideoDvd2, AnEmptyOneStartsNothingWhenItIsActivated)
{
    threeDrives();
    inDialog([](class frmDriver& dialog) { dialog.cmdCancel.userClick(); });
    frmDVD2().Show();
    EXPECT_EQ(frmDVD2().picDVD.URL(), "");
    EXPECT_THAT(askedOfDisc(), IsEmpty());
}

TEST_F(VideoDvd2, ARightButtonThatIsDownAtTheActivationFillsTheScreen)
{
    class frmDVD2& window = openDisc2();
    world.players.disc.duration = 100;
    activateAgain(window, true);
    EXPECT_TRUE(window.picDVD.fullScreen());
    EXPECT_TRUE(console().SaverOff);
    EXPECT_FALSE(world.screenSaver.switched.back());
    EXPECT_FALSE(FullScreenOn);
}

TEST_F(VideoDvd2, InFullScreenOfAnotherWindowThePanelGoesWhateverTheRightButtonDoes)
{
    class frmDVD2& window = openDisc2();
    for (const bool right : {false, true}) {
        console().SetFocus();
        FullScreenOn = true;
        PanelUp = true;
        frmPanel().Top = 0;
        activateAgain(window, right);
        EXPECT_FALSE(PanelUp) << right;
        EXPECT_EQ(frmPanel().top(), console().FullHeight) << right;
    }
    FullScreenOn = false;
}

TEST_F(VideoDvd2, ButtonsOfTheConsoleReachTheControl)
{
    openDisc2();
    forgetAsked();
    console().imgPlay.userClick();
    console().imgPause.userClick();
    console().imgFwd.userClick();
    console().imgRwd.userClick();
    console().imgReplay.userClick();
    EXPECT_THAT(askedOfDisc(), ElementsAre("resume", "pause", "play", "rate 5", "play", "rate -5", "root menu"));
    forgetAsked();
    console().SeekSlider.Max = 1000;
    console().SeekSlider.Value = 600;
    console().SeekSlider.userClick();
    console().InvertSlider.userScroll(30);
    console().imgMute.userClick();
    EXPECT_THAT(askedOfDisc(), ElementsAre("seek 600", "volume 70", "volume 0"));
}

TEST_F(VideoDvd2, ThePollShowsTheTimesAndTheNameOfTheDisc)
{
    openDisc2();
    world.players.disc.duration = 3723.5;
    world.players.disc.position = 3661;
    console().Timer1.Enabled = true;
    console().Timer1.tick();
    EXPECT_EQ(console().SeekSlider.Max, 3723);
    EXPECT_EQ(console().SeekSlider.Value, 3661);
    EXPECT_EQ(console().lblCurTime.caption(), "1:01:01");
    EXPECT_EQ(console().lblDuration.caption(), "1:02:03");
    EXPECT_EQ(title(), titled("A_DISC"));
}

TEST_F(VideoDvd2, HidingTheConsoleHoldsItAndItsReturnResumes)
{
    class frmDVD2& window = openDisc2();
    forgetAsked();
    console().imgHide.userClick();
    EXPECT_THAT(askedOfDisc(), ElementsAre("pause"));
    EXPECT_FALSE(window.visible());
    forgetAsked();
    console().userRestored();
    EXPECT_TRUE(window.visible());
    EXPECT_THAT(askedOfDisc(), Contains("resume"));
}

TEST_F(VideoDvd2, ClosingItResetsTheConsole)
{
    class frmDVD2& window = openDisc2();
    console().Timer1.Enabled = true;
    console().Timer1.tick();
    unload(window);
    EXPECT_FALSE(DVDMode);
    EXPECT_EQ(console().lblCurTime.caption(), "0:00:00");
    EXPECT_EQ(console().lblDuration.caption(), "0:00:00");
    EXPECT_EQ(title(), "");
    EXPECT_EQ(activeForm(), &console());
    EXPECT_EQ(otherMedia().dvd2.form, nullptr);
    EXPECT_EQ(world.players.disc.alive, 0);
}

TEST_F(VideoDvd2, ItsControlAndWheelAreThoseOfAnHdWindow)
{
    class frmDVD2& window = openDisc2();
    window.Move({0, 0, 4005, 3009});
    EXPECT_EQ(rectOf(window.picDVD), (Rect{0, 0, 4005, 3909}));
    window.MouseWheel(0, 120, 0, 0);
    EXPECT_EQ(rectOf(window), (Rect{0, 0, 4405, 3309}));
}

TEST_F(VideoDvd2, WhileItLooksForADriveTheWaitIsUp)
{
    bool waitIsUp = false;
    world.backend.whileBoxIsUp = [&] { waitIsUp = Loaded<class frmWait>() && frmWait().visible(); };
    frmDVD2();
    EXPECT_TRUE(waitIsUp);
    EXPECT_FALSE(Loaded<class frmWait>());
}

TEST_F(VideoDvd2, WhileTheMessageAsksForADiscTheWaitIsGone)
{
    world.drives.add('D', "A_DISC");
    world.drives.drives[0].ready = false;
    bool waitIsUp = true;
    world.backend.whileModal["frmUpdate"] = [&](Form&) { waitIsUp = Loaded<class frmWait>(); };
    frmDVD2();
    EXPECT_FALSE(waitIsUp);
}

TEST_F(VideoDvd2, InFullScreenOfAnotherWindowAnActivationLeavesTheScreenSaverOff)
{
    class frmDVD2& window = openDisc2();
    FullScreenOn = true;
    world.screenSaver.switched.clear();
    activateAgain(window);
    EXPECT_THAT(world.screenSaver.switched, IsEmpty());
    FullScreenOn = false;
}

TEST_F(VideoDvd2, ACancelForgetsTheDriveThatWasChosenBefore)
{
    threeDrives();
    inDialog([](class frmDriver& dialog) {
        frmDVD2().chooseDrive(2, 'F');
        dialog.cmdCancel.userClick();
    });
    EXPECT_EQ(frmDVD2().DriveIndex, "");
    EXPECT_EQ(frmDVD2().DriveURL, "");
    EXPECT_THAT(askedOfDisc(), IsEmpty());
}

TEST_F(VideoDvd2, TheEndOfTheProgramLetsGoOfTheDiscBeforeItsWindow)
{
    class frmDVD2& window = openDisc2();
    endPlayers();
    EXPECT_EQ(world.players.disc.alive, 0);
    EXPECT_TRUE(window.isLoaded());
    EXPECT_EQ(otherMedia().dvd2.form, nullptr);
}

} // namespace tandrel::test
