// A right click, seen by the quick tick: what is in front goes full screen, or the menu of full screen comes up.

#include "fake_controls.h"
#include "monitor_bench.h"

#include "fullscreen/frm_panel.h"
#include "texts/frm_update.h"
#include "toolkit/activation.h"

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

class ConsoleMonitorRightClick : public MonitorBench
{
protected:
    void discOn(const Text& system, OtherMediaBench& bench)
    {
        start();
        WindowsVersion = system;
        DVDMode = true;
        Form& form = system == "LINUX" ? *bench.dvd2Form : static_cast<Form&>(*bench.dvdForm);
        form.Move({1500, 1650, 4500, 3000});
        form.SetFocus();
        console().TrackHold = false;
        world.screenSaver.switched.clear();
    }
    void filmOn(OtherMediaBench& bench)
    {
        discOn("LINUX", bench);
        DVDMode = false;
        MkvOpen = true;
        bench.mkvForm->Move({1500, 1650, 4500, 3000});
        bench.mkvForm->SetFocus();
    }
    std::vector<int> saved() { return {SavedLeft, SavedTop, SavedWidth, SavedHeight}; }
    /// The right button is still held. A menu that comes up would clear the flag.
    void expectNoMenuBeforeTheNextPress()
    {
        FullMenuOpen = true;
        tick3();
        EXPECT_TRUE(FullMenuOpen) << "the held button asks for nothing more";
        world.pointer.right = false;
        tick3();
        world.pointer.right = true;
        tick3();
        EXPECT_FALSE(FullMenuOpen) << "the next press is another one";
    }
};

} // namespace

TEST_F(ConsoleMonitorRightClick, TheSelectedVideoInFrontGoesFullScreen)
{
    play(2);
    frmChild& window = *VideoWindows[1];
    window.Move({1500, 1650, 4500, 3000});
    window.picVideo.BorderStyle = 1;
    world.screenSaver.switched.clear();
    world.mci.clear();
    rightPressOn(window);
    EXPECT_TRUE(FullScreenOn && window.Full && PanelUp);
    EXPECT_EQ(FullMedia, alias(1));
    EXPECT_THAT(saved(), ElementsAre(1500, 1650, 4500, 3000));
    EXPECT_THAT(world.screenSaver.switched, ElementsAre(false));
    EXPECT_EQ(window.picVideo.borderStyle(), 0);
    EXPECT_FALSE(window.hasTitleBar() || window.hasBorder());
    for (const PictureBox* box :
         {&window.picClose, &window.picVRes, &window.picHRes, &window.picBottom, &window.picSide})
        EXPECT_FALSE(box->visible());
    EXPECT_EQ(rectOf(window), (Rect{0, 0, 28800, 16200}));
    EXPECT_EQ(rectOf(window.picVideo), (Rect{0, 0, 28800, 16200}));
    EXPECT_THAT(commands(), ElementsAre("put B window at 0 0 1920 1080"));
    EXPECT_EQ(frmPanel().lblTitle.caption(), "File:: b.avi");
    EXPECT_EQ(rectOf(frmPanel()), (Rect{0, 16200 - 914, 28800, 915}));
    EXPECT_TRUE(frmPanel().visible());
    EXPECT_EQ(activeForm(), &frmPanel());
    EXPECT_FALSE(console().Timer4.enabled());
}

TEST_F(ConsoleMonitorRightClick, TheStepsComeInTheirOrder)
{
    world.backend.windows = true;
    play(1);
    VideoWindows[0]->Move({1500, 1500, 4500, 3000});
    world.journal.clear();
    rightPressOn(*VideoWindows[0]);
    const auto steps = chosen(world.journal, [](const std::string& line) {
        const bool slide = line.starts_with("frmPanel place") || line == "frmPanel repaint";
        return !line.starts_with("frmChild.pic") && !line.starts_with("frmMedia.") && !line.starts_with("frmPanel.") &&
               !slide && line != "frmPanel before frmChild";
    });
    EXPECT_THAT(shortened(steps), ElementsAre("frmChild frame untitled bordered", "frmChild frame untitled borderless",
                                              "frmChild place 0,0 1920x1080", "put A window at 0 0 1920 1080",
                                              "frmChild repaint", "frmChild full screen", "frmChild raise",
                                              "frmPanel activate", "frmPanel raise", "frmPanel show"));
}

TEST_F(ConsoleMonitorRightClick, AnotherWindowInFrontLeavesAllAsItIsButTheNameOfTheFullMedium)
{
    play(2);
    CurrentAlias = alias(0);
    rightPressOn(*VideoWindows[1]);
    EXPECT_EQ(FullMedia, alias(0));
    EXPECT_FALSE(FullScreenOn || VideoWindows[0]->Full || VideoWindows[1]->Full);
    EXPECT_FALSE(Loaded<class frmPanel>());
    EXPECT_TRUE(console().Timer4.enabled());
    applicationDeactivated();
    rightPressOn(*VideoWindows[0]);
    EXPECT_FALSE(FullScreenOn) << "another program is in front";
}

TEST_F(ConsoleMonitorRightClick, APressBesideTheWindowIsNoneOfIts)
{
    play(1);
    VideoWindows[0]->Move({1500, 1650, 4500, 3000});
    world.pointer.place = {1000, 1000};
    world.pointer.right = true;
    tick3();
    EXPECT_FALSE(FullScreenOn);
}

TEST_F(ConsoleMonitorRightClick, BehindTheConsoleOrWithNothingSelectedNothingIsTouched)
{
    play(1);
    console().TrackHold = true;
    rightPressOn(*VideoWindows[0]);
    EXPECT_TRUE(FullMedia.empty());
    console().TrackHold = false;
    CurrentAlias.clear();
    FullMedia = alias(3);
    rightPressOn(*VideoWindows[0]);
    EXPECT_FALSE(FullScreenOn);
    EXPECT_EQ(FullMedia, alias(3));
    CurrentAlias = alias(9);
    rightPressOn(*VideoWindows[0]);
    EXPECT_EQ(FullMedia, alias(9)) << "an alias that no slot plays";
    EXPECT_FALSE(FullScreenOn);
}

TEST_F(ConsoleMonitorRightClick, BlanksAroundTheAliasOfTheWindowDoNotCount)
{
    play(1);
    VideoWindows[0]->MediaFile = " " + alias(0) + "  ";
    rightPressOn(*VideoWindows[0]);
    EXPECT_TRUE(VideoWindows[0]->Full);
}

TEST_F(ConsoleMonitorRightClick, TheWindowCoversTheMonitorOfTheConsoleWhereverThatIs)
{
    for (const PixelRect& monitor : {PixelRect{-1280, -1024, 0, 0}, {0, 0, 1280, 1024}, {640, 480, 1920, 1504}}) {
        play(1);
        moveTo(monitor);
        rightPressOn(*VideoWindows[0]);
        EXPECT_EQ(rectOf(*VideoWindows[0]), (Rect{monitor.left * 15, monitor.top * 15, 19200, 15360}));
        EXPECT_EQ(frmPanel().left(), monitor.left * 15);
        EXPECT_EQ(frmPanel().top(), monitor.bottom * 15 - 914);
        discardSlots();
    }
}

TEST_F(ConsoleMonitorRightClick, ThePressThatFilledTheScreenOpensNoMenu)
{
    play(1);
    VideoWindows[0]->Move({1500, 1650, 4500, 3000});
    world.pointer.place = {200, 200};
    world.pointer.right = true;
    tick3();
    ASSERT_TRUE(FullScreenOn);
    expectNoMenuBeforeTheNextPress();
}

TEST_F(ConsoleMonitorRightClick, ThePressThatFilledTheScreenWithADiscOpensNoMenu)
{
    OtherMediaBench bench;
    discOn("WINDOWS XP", bench);
    rightPressOn(*bench.dvdForm);
    ASSERT_TRUE(FullScreenOn);
    world.pointer.right = true;
    expectNoMenuBeforeTheNextPress();
}

TEST_F(ConsoleMonitorRightClick, ThePressThatFilledTheScreenWithAPlayerDoesSoOnce)
{
    OtherMediaBench bench;
    filmOn(bench);
    rightPressOn(*bench.mkvForm);
    // The control has gone back by itself, and the button is still held.
    bench.mkv.full = false;
    world.pointer.right = true;
    tick3();
    EXPECT_THAT(bench.asked(), ElementsAre("frmMKV fullScreen on"));
    world.pointer.right = false;
    tick3();
    world.pointer.right = true;
    tick3();
    EXPECT_THAT(bench.asked(), ElementsAre("frmMKV fullScreen on", "frmMKV fullScreen on"));
}

TEST_F(ConsoleMonitorRightClick, AWindowThatClosesOnItsWayToFullScreenLeavesNothingOfThatState)
{
    for (const bool byActivation : {false, true}) {
        play(2);
        frmChild& window = *VideoWindows[byActivation ? 0 : 1];
        console().Timer4.Enabled = true;
        world.mci.onSend = [&](const std::string& command) {
            if (command.starts_with("put " + window.MediaFile) && FullScreenOn)
                unload(window);
        };
        if (byActivation) {
            pressIsOver(MouseButton::Right);
            world.pointer.right = true;
            window.SetFocus();
            world.pointer.right = false;
        } else {
            rightPressOn(window);
        }
        EXPECT_FALSE(FullScreenOn || PanelUp || window.Full) << byActivation;
        EXPECT_FALSE(Loaded<class frmPanel>() && frmPanel().visible()) << byActivation;
        EXPECT_TRUE(console().Timer4.enabled()) << byActivation;
        world.mci.onSend = nullptr;
        discardSlots();
    }
}

// Discs and HD films.

TEST_F(ConsoleMonitorRightClick, ADiscOnTheVideoControlFillsTheScreenUnderThePanel)
{
    OtherMediaBench bench;
    discOn("WINDOWS XP", bench);
    rightPressOn(*bench.dvdForm);
    EXPECT_TRUE(FullScreenOn && bench.dvdForm->Full && PanelUp && console().DvdFullByClick);
    EXPECT_TRUE(FullMedia.empty()) << "that is for files";
    EXPECT_THAT(saved(), ElementsAre(1500, 1650, 4500, 3000));
    EXPECT_EQ(rectOf(*bench.dvdForm), (Rect{0, 0, 28800, 16200}));
    EXPECT_EQ(bench.dvdForm->picDVD.borderStyle(), 0);
    EXPECT_FALSE(bench.dvdForm->hasTitleBar() || bench.dvdForm->hasBorder() || bench.dvdForm->showsStrips());
    EXPECT_THAT(world.screenSaver.switched, ElementsAre(false));
    EXPECT_EQ(frmPanel().lblTitle.caption(), "DVD:: \"Movie\"");
    EXPECT_EQ(frmPanel().top(), 16200 - 914);
    EXPECT_FALSE(console().Timer4.enabled());
    EXPECT_TRUE(console().SaverOff);
    EXPECT_THAT(bench.asked(), IsEmpty());
}

TEST_F(ConsoleMonitorRightClick, OnAnotherMonitorTheDiscCoversThatOne)
{
    OtherMediaBench bench;
    discOn("WINDOWS XP", bench);
    console().FullLeft = -19200;
    console().FullTop = 1500;
    console().FullWidth = 19200;
    rightPressOn(*bench.dvdForm);
    EXPECT_EQ(rectOf(*bench.dvdForm), (Rect{-19200, 1500, 19200, 16200}));
}

TEST_F(ConsoleMonitorRightClick, ADiscThatIsNotInFrontOnlyEndsTheWatchOverTheCursor)
{
    OtherMediaBench bench;
    discOn("WINDOWS XP", bench);
    bench.dvd2Form->SetFocus();
    rightPressOn(*bench.dvdForm);
    EXPECT_FALSE(FullScreenOn || console().DvdFullByClick);
    EXPECT_FALSE(console().Timer4.enabled());
    console().Timer4.Enabled = true;
    otherMedia() = {};
    EXPECT_NO_THROW(rightPressOn(*bench.dvdForm));
    EXPECT_FALSE(FullScreenOn);
    EXPECT_FALSE(console().Timer4.enabled());
}

TEST_F(ConsoleMonitorRightClick, APlayerIsAskedToFillTheScreenItself)
{
    for (const bool disc : {true, false}) {
        OtherMediaBench bench;
        disc ? discOn("LINUX", bench) : filmOn(bench);
        console().Timer4.Enabled = true;
        world.screenSaver.switched.clear();
        rightPressOn(disc ? *bench.dvd2Form : *bench.mkvForm);
        EXPECT_THAT(bench.asked(), ElementsAre(disc ? "frmDVD2 fullScreen on" : "frmMKV fullScreen on"));
        EXPECT_FALSE(FullScreenOn) << "the control alone knows";
        EXPECT_THAT(world.screenSaver.switched, ElementsAre(false));
        EXPECT_EQ(console().Timer4.enabled(), !disc);
        EXPECT_TRUE(console().SaverOff);
        DVDMode = MkvOpen = false;
    }
}

TEST_F(ConsoleMonitorRightClick, APlayerWithNothingToShowIsLeftAlone)
{
    for (const bool disc : {true, false})
        for (const char* nothing : {"00:00", "00.00", ""}) {
            OtherMediaBench bench;
            disc ? discOn("LINUX", bench) : filmOn(bench);
            world.screenSaver.switched.clear();
            bench.dvd2.durationText = bench.mkv.durationText = nothing;
            rightPressOn(disc ? *bench.dvd2Form : *bench.mkvForm);
            EXPECT_THAT(bench.asked(), IsEmpty()) << nothing;
            EXPECT_THAT(world.screenSaver.switched, IsEmpty());
            DVDMode = MkvOpen = false;
        }
}

TEST_F(ConsoleMonitorRightClick, APlayerThatRefusesEndsNothingElse)
{
    OtherMediaBench bench;
    filmOn(bench);
    bench.mkv.fails = true;
    console().lblClick.Caption = "";
    world.pointer.place = {200, 200};
    world.pointer.right = true;
    EXPECT_NO_THROW(console().Timer3.Tick());
    EXPECT_EQ(console().lblClick.caption(), "Click: 0") << "the tick went on";
}

TEST_F(ConsoleMonitorRightClick, UnderANoticeTheTickOfADiscOrFilmEnds)
{
    for (const bool disc : {true, false}) {
        OtherMediaBench bench;
        disc ? discOn("LINUX", bench) : filmOn(bench);
        Form& form = disc ? *bench.dvd2Form : *bench.mkvForm;
        frmUpdate().Show();
        form.SetFocus();
        console().Timer4.Enabled = true;
        console().lblClick.Caption = "untouched";
        rightPressOn(form);
        EXPECT_EQ(console().lblClick.caption(), "untouched");
        EXPECT_TRUE(console().Timer4.enabled());
        EXPECT_THAT(bench.asked(), IsEmpty());
        frmUpdate().Hide();
        rightPressOn(form);
        EXPECT_EQ(bench.asked().size(), 1U);
        DVDMode = MkvOpen = false;
    }
}

TEST_F(ConsoleMonitorRightClick, UnderANoticeAFileStillGoesFullScreen)
{
    play(1);
    frmUpdate().Show();
    VideoWindows[0]->SetFocus();
    rightPressOn(*VideoWindows[0]);
    EXPECT_TRUE(FullScreenOn);
}

// In full screen.

TEST_F(ConsoleMonitorRightClick, InFullScreenTheMenuWakesAParkedCursorFirst)
{
    play(1);
    FullScreenOn = true;
    FullMenuOpen = true;
    console().CursorHomeX = 400;
    console().CursorHomeY = 300;
    console().CursorParked = true;
    world.pointer.shown = false;
    console().Timer4.Enabled = false;
    rightPressOn(console());
    EXPECT_TRUE(world.pointer.shown);
    EXPECT_THAT(world.pointer.moves, ElementsAre(PixelPoint{400, 300}));
    EXPECT_EQ(console().CursorHomeX, -1);
    EXPECT_EQ(console().CursorHomeY, -1);
    EXPECT_FALSE(console().Timer4.enabled()) << "the menu holds it";
    EXPECT_FALSE(FullMenuOpen);
}

TEST_F(ConsoleMonitorRightClick, TheMenuIsForPicturesThatARightClickFilledTheScreenWith)
{
    play(1);
    FullScreenOn = true;
    const auto asksForMenu = [&] {
        FullMenuOpen = true;
        rightPressOn(console());
        return !FullMenuOpen;
    };
    EXPECT_TRUE(asksForMenu());
    console().TrackHold = true;
    EXPECT_FALSE(asksForMenu()) << "the console is in front";
    console().TrackHold = false;
    DVDMode = true;
    EXPECT_FALSE(asksForMenu()) << "the disc is full by its own menu";
    console().DvdFullByClick = true;
    EXPECT_TRUE(asksForMenu());
    console().TrackHold = true;
    EXPECT_FALSE(asksForMenu());
}

} // namespace tandrel::test
