// The commands on the selected video, and the buttons that give them to each kind of medium.

#include "fake_controls.h"
#include "player_bench.h"

#include "texts/frm_help.h"

namespace tandrel::test
{

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

namespace
{

class ConsoleTransport : public Player
{
protected:
    ConsoleTransport()
    {
        world.backend.windows = true;
        start();
    }
    void run(int index)
    {
        world.mci.clear();
        console().cmdMedia[static_cast<std::size_t>(index)]->Value = true;
    }
    void click(Image& image)
    {
        world.mci.clear();
        image.userMouseDown({mouse::kLeft, 0, 0, 0});
        image.userMouseUp({mouse::kLeft, 0, 0, 0});
        image.userClick();
    }
    /// The pointer went to the hourglass and came back.
    void expectPointerFlip()
    {
        EXPECT_THAT(world.backend.pointerShapes, Contains(pointer::kHourglass));
        EXPECT_EQ(screen().MousePointer(), pointer::kDefault);
    }
};

} // namespace

// The row.

TEST_F(ConsoleTransport, TheRowHasItsCaptionsAndNoFifthButton)
{
    std::vector<Text> captions;
    for (const auto& button : console().cmdMedia)
        captions.push_back(button ? button->caption() : Text("(none)"));
    EXPECT_THAT(captions, ElementsAre("Play", "Pause", "Stop", "Open", "Help", "(none)", "_", "X"));
}

TEST_F(ConsoleTransport, PlayResumesAPausedVideoAtTheSlidersPlaceWithItsOwnVolume)
{
    openSeveral(2);
    VideoWindows[1]->Paused = 1;
    VideoWindows[1]->Volume = 30;
    console().SeekSlider.Max = 60000;
    console().SeekSlider.Value = 12345;
    FastForward = FastRewind = true;
    Playing = false;
    run(command::kPlay);
    EXPECT_THAT(commands(),
                ElementsAre("set B time format ms", "seek B to 12345", "Play B", "setaudio B Volume to 300"));
    EXPECT_EQ(VideoWindows[1]->Paused, 0);
    EXPECT_FALSE(FastForward || FastRewind);
    EXPECT_TRUE(Playing);
    EXPECT_EQ(console().lblSpeed.caption(), "0x");
    expectPointerFlip();
}

TEST_F(ConsoleTransport, PlayOnAVideoThatIsNotPausedSendsNothingAndStillSetsPlaying)
{
    open(0);
    Playing = false;
    run(command::kPlay);
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_TRUE(Playing);
}

TEST_F(ConsoleTransport, PlayFindsThePausedOneOfTwoThatPlayTheSame)
{
    open(0);
    open(0);
    VideoWindows[1]->Paused = 1;
    run(command::kPlay);
    EXPECT_EQ(VideoWindows[1]->Paused, 0);
    EXPECT_EQ(commands().size(), 4U);
}

TEST_F(ConsoleTransport, PauseHoldsTheSelectedVideo)
{
    openSeveral(2);
    FastForward = true;
    Playing = true;
    run(command::kPause);
    EXPECT_THAT(commands(), ElementsAre("Pause B"));
    EXPECT_EQ(VideoWindows[0]->Paused, 0);
    EXPECT_EQ(VideoWindows[1]->Paused, 1);
    EXPECT_FALSE(Playing || FastForward);
    expectPointerFlip();
}

TEST_F(ConsoleTransport, StopRewindsAndHoldsAndLeavesPausedAlone)
{
    open(0);
    console().Timer1.Enabled = true;
    console().lblCurTime.Caption = "0:00:09";
    console().SeekSlider.Value = 77;
    Playing = true;
    run(command::kStop);
    EXPECT_THAT(commands(), ElementsAre("set A time format ms", "seek A to 0", "Pause A"));
    EXPECT_FALSE(console().Timer1.enabled());
    EXPECT_EQ(console().lblCurTime.caption(), "0:00:00");
    EXPECT_EQ(console().SeekSlider.value(), 0);
    EXPECT_EQ(VideoWindows[0]->Paused, 0);
    EXPECT_FALSE(Playing);
    expectPointerFlip();
}

TEST_F(ConsoleTransport, AfterStopPlayDoesNothingAndReplayStartsAgain)
{
    open(0);
    run(command::kStop);
    run(command::kPlay);
    EXPECT_THAT(commands(), IsEmpty());
    Playing = false;
    click(console().imgReplay);
    EXPECT_THAT(commands(), ElementsAre("set A time format ms", "seek A to 0", "Play A"));
    EXPECT_TRUE(Playing);
}

TEST_F(ConsoleTransport, WithNothingSelectedTheFirstThreeOnlyFlipThePointer)
{
    open(0);
    for (const int index : {command::kPlay, command::kPause, command::kStop}) {
        CurrentAlias = index == command::kPlay ? "  " : "";
        Playing = index == command::kPause;
        console().Timer1.Enabled = true;
        world.backend.pointerShapes.clear();
        run(index);
        EXPECT_THAT(commands(), IsEmpty()) << index;
        EXPECT_EQ(Playing, index == command::kPause) << index;
        EXPECT_TRUE(console().Timer1.enabled()) << index;
        expectPointerFlip();
    }
}

TEST_F(ConsoleTransport, HelpComesUpWithThePlainPointer)
{
    run(command::kHelp);
    EXPECT_TRUE(frmHelp().visible());
    expectPointerFlip();
}

TEST_F(ConsoleTransport, HideHidesAndPausesEveryVideoAndMinimisesTheConsole)
{
    openSeveral(3);
    VideoWindows[1]->MediaFile = " ";
    run(command::kHide);
    EXPECT_THAT(commands(), ElementsAre("Pause A", "Pause C"));
    EXPECT_FALSE(VideoWindows[0]->visible());
    EXPECT_TRUE(VideoWindows[1]->visible()) << "a slot without a medium is left alone";
    EXPECT_FALSE(VideoWindows[2]->visible());
    EXPECT_EQ(console().windowState(), 1);
    EXPECT_TRUE(ResizePending);
    EXPECT_EQ(VideoWindows[0]->Paused, 0);
    expectPointerFlip();
}

TEST_F(ConsoleTransport, EachWindowIsHiddenBeforeItsVideoIsPaused)
{
    openSeveral(2);
    world.journal.clear();
    run(command::kHide);
    const auto steps = chosen(shortened(world.journal), [](const std::string& line) {
        return line == "frmChild hide" || line.starts_with("Pause") || line == "frmMedia minimise";
    });
    EXPECT_THAT(steps, ElementsAre("frmChild hide", "Pause A", "frmChild hide", "Pause B", "frmMedia minimise"));
}

TEST_F(ConsoleTransport, TheReturnOfTheConsoleBringsTheHiddenVideosBack)
{
    openSeveral(2);
    run(command::kHide);
    world.mci.clear();
    console().userRestored();
    EXPECT_TRUE(VideoWindows[0]->visible());
    EXPECT_TRUE(VideoWindows[1]->visible());
    EXPECT_FALSE(ResizePending);
    EXPECT_THAT(startingWith(commands(), "Play"), ElementsAre("Play A", "Play B"));
}

// The buttons, by the kind of medium.

TEST_F(ConsoleTransport, TheKindIsAskedInItsOrder)
{
    WindowsVersion = "LINUX";
    EXPECT_EQ(mediaKind(), MediaKind::Files);
    MkvOpen = true;
    EXPECT_EQ(mediaKind(), MediaKind::Hd);
    DVDMode = true;
    EXPECT_EQ(mediaKind(), MediaKind::DiscOnPlayer);
    for (const char* older : {"WINDOWS 98", "WINDOWS ME", "WINDOWS 2000", "WINDOWS NT", "WINDOWS XP"}) {
        WindowsVersion = older;
        EXPECT_EQ(mediaKind(), MediaKind::DiscOnVideoControl) << older;
    }
    WindowsVersion = "WINDOWS VISTA";
    EXPECT_EQ(mediaKind(), MediaKind::DiscOnPlayer);
}

TEST_F(ConsoleTransport, EachButtonDoesWhatItMeansForAnHdFilm)
{
    OtherMediaBench bench;
    open(0);
    MkvOpen = true;
    for (Image* image :
         {&console().imgPlay, &console().imgPause, &console().imgFwd, &console().imgRwd, &console().imgReplay}) {
        click(*image);
        EXPECT_THAT(commands(), IsEmpty());
    }
    EXPECT_THAT(bench.asked(), ElementsAre("frmMKV play", "frmMKV pause", "frmMKV fastForward", "frmMKV fastReverse",
                                           "frmMKV close", "frmMKV URL /films/a.mkv"));
    EXPECT_TRUE(FastForward) << "the forward button presses its hidden one as well";
    EXPECT_FALSE(FastRewind);
}

TEST_F(ConsoleTransport, EachButtonDoesWhatItMeansForADiscOnTheVideoControl)
{
    OtherMediaBench bench;
    open(0);
    DVDMode = MkvOpen = true;
    WindowsVersion = "WINDOWS XP";
    console().SlideMode = "0";
    for (Image* image :
         {&console().imgPlay, &console().imgPause, &console().imgFwd, &console().imgRwd, &console().imgReplay,
          &console().imgStep, &console().imgBack, &console().imgPauseAll, &console().imgResync}) {
        click(*image);
        EXPECT_THAT(commands(), IsEmpty());
    }
    EXPECT_THAT(bench.asked(), ElementsAre("frmDVD Run", "frmDVD Pause", "frmDVD PlayNextChapter",
                                           "frmDVD PlayPrevChapter", "frmDVD ShowMenu 3"));
}

TEST_F(ConsoleTransport, EachButtonDoesWhatItMeansForADiscOnThePlayer)
{
    OtherMediaBench bench;
    open(0);
    DVDMode = true;
    WindowsVersion = "LINUX";
    console().SlideMode = "0";
    for (Image* image :
         {&console().imgPlay, &console().imgPause, &console().imgFwd, &console().imgRwd, &console().imgReplay,
          &console().imgStep, &console().imgBack, &console().imgPauseAll, &console().imgResync}) {
        click(*image);
        EXPECT_THAT(commands(), IsEmpty());
    }
    EXPECT_THAT(bench.asked(), ElementsAre("frmDVD2 resume", "frmDVD2 pause", "frmDVD2 fastForward",
                                           "frmDVD2 fastReverse", "frmDVD2 topMenu"));
    EXPECT_EQ(console().imgPauseAll.tag(), "");
}

TEST_F(ConsoleTransport, AControlThatRefusesOrIsNotThereIsIgnored)
{
    OtherMediaBench bench;
    bench.dvd.fails = bench.dvd2.fails = bench.mkv.fails = true;
    const auto clickAll = [this] {
        for (Image* image : {&console().imgPlay, &console().imgPause, &console().imgFwd, &console().imgRwd,
                             &console().imgReplay, &console().imgMute, &console().imgMute})
            click(*image);
    };
    for (const bool there : {true, false}) {
        if (!there)
            otherMedia() = {};
        MkvOpen = true;
        DVDMode = false;
        clickAll();
        DVDMode = true;
        clickAll();
        WindowsVersion = "WINDOWS XP";
        clickAll();
        WindowsVersion = "LINUX";
    }
    EXPECT_EQ(bench.dvd.asked.size(), 5U);
    EXPECT_EQ(bench.dvd2.asked.size(), 7U);
    EXPECT_EQ(bench.mkv.asked.size(), 8U);
    EXPECT_THAT(std::vector(bench.mkv.asked.begin() + 4, bench.mkv.asked.begin() + 6),
                ElementsAre("close", testing::StartsWith("URL")))
        << "a close that fails does not end the restart";
    EXPECT_THAT(world.backend.boxes, IsEmpty());
}

TEST_F(ConsoleTransport, HidePausesAndHidesTheWindowOfTheOtherMediumToo)
{
    OtherMediaBench bench;
    bench.mkv.fails = true;
    open(0);
    MkvOpen = true;
    run(command::kHide);
    EXPECT_THAT(bench.asked(), ElementsAre("frmMKV pause"));
    EXPECT_FALSE(bench.mkvForm->visible()) << "whatever came of the pause";
    EXPECT_TRUE(bench.dvd2Form->visible());
    EXPECT_THAT(commands(), ElementsAre("Pause A"));
    bench.forget();
    DVDMode = true;
    run(command::kHide);
    EXPECT_THAT(bench.asked(), ElementsAre("frmDVD2 pause"));
    EXPECT_FALSE(bench.dvd2Form->visible());
    bench.forget();
    WindowsVersion = "WINDOWS 2000";
    run(command::kHide);
    EXPECT_THAT(bench.asked(), ElementsAre("frmDVD Pause"));
    EXPECT_FALSE(bench.dvdForm->visible());
}

// File videos.

TEST_F(ConsoleTransport, ThePlayButtonBringsTheSelectedVideoIntoTheLargePlaceFirst)
{
    openSeveral(2);
    VideoWindows[0]->SetFocus();
    VideoWindows[0]->Paused = 1;
    click(console().imgPlay);
    EXPECT_EQ(VideoWindows[0]->width(), 1600 * 15);
    EXPECT_EQ(CurrentAlias, alias(0));
    EXPECT_THAT(startingWith(commands(), "Play"), ElementsAre("Play A")) << "it runs already when the command comes";
    EXPECT_TRUE(Playing);
}

TEST_F(ConsoleTransport, ItDoesNotInPlayAllModeNorInFullScreenNorAfterADrag)
{
    openSeveral(2);
    const Long width = VideoWindows[1]->width();
    const auto expectPlainPlay = [&](const char* when) {
        VideoWindows[1]->Paused = 1;
        click(console().imgPlay);
        EXPECT_EQ(VideoWindows[1]->width(), width) << when;
        EXPECT_THAT(startingWith(commands(), "Play"), ElementsAre("Play B")) << when;
    };
    console().SlideMode = "0";
    expectPlainPlay("PlayAll Mode");
    console().SlideMode = "1";
    FullScreenOn = true;
    expectPlainPlay("full screen");
    FullScreenOn = false;
    console().WindowDragged = true;
    expectPlainPlay("a drag");
}

TEST_F(ConsoleTransport, ReplayTakesTheSelectedVideoAlone)
{
    openSeveral(2);
    for (const auto& window : VideoWindows)
        window->Paused = 1;
    Playing = false;
    click(console().imgReplay);
    EXPECT_THAT(commands(), ElementsAre("set B time format ms", "seek B to 0", "Play B"));
    EXPECT_EQ(VideoWindows[0]->Paused, 1);
    EXPECT_EQ(VideoWindows[1]->Paused, 0);
    EXPECT_TRUE(Playing);
    Playing = false;
    CurrentAlias = "\"/gone.avi\"";
    click(console().imgReplay);
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_TRUE(Playing);
    Playing = false;
    CurrentAlias.clear();
    click(console().imgReplay);
    EXPECT_FALSE(Playing);
}

// Jumps.

TEST_F(ConsoleTransport, ForwardAndRewindBeginTheirJumps)
{
    open(0);
    click(console().imgFwd);
    EXPECT_TRUE(FastForward);
    EXPECT_FALSE(FastRewind);
    FastForward = false;
    click(console().imgRwd);
    EXPECT_TRUE(FastRewind);
    EXPECT_FALSE(FastForward);
    EXPECT_THAT(commands(), IsEmpty()) << "the steps are for the tick";
}

TEST_F(ConsoleTransport, TheFirstClickAgainstAJumpOnlyStopsIt)
{
    open(0);
    console().VolumeSlider.Value = 40;
    FastRewind = true;
    console().lblSpeed.Caption = "-2x";
    click(console().imgFwd);
    EXPECT_FALSE(FastForward || FastRewind);
    EXPECT_EQ(console().lblSpeed.caption(), "0x");
    EXPECT_THAT(commands(), ElementsAre("setaudio A Volume to 400"));
    click(console().imgFwd);
    EXPECT_TRUE(FastForward);
    console().lblSpeed.Caption = "2x";
    click(console().imgRwd);
    EXPECT_FALSE(FastForward || FastRewind);
    EXPECT_EQ(console().lblSpeed.caption(), "0x");
    EXPECT_THAT(commands(), ElementsAre("setaudio A Volume to 400"));
    click(console().imgRwd);
    EXPECT_TRUE(FastRewind);
}

TEST_F(ConsoleTransport, WithNothingSelectedNoJumpBegins)
{
    open(0);
    CurrentAlias.clear();
    click(console().imgFwd);
    click(console().imgRwd);
    EXPECT_FALSE(FastForward || FastRewind);
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(ConsoleTransport, OnADiscTheHiddenButtonsStepByChapters)
{
    OtherMediaBench bench;
    open(0);
    DVDMode = true;
    console().cmdFwd.Value = true;
    console().cmdRwd.Value = true;
    EXPECT_THAT(bench.asked(), ElementsAre("frmDVD PlayNextChapter", "frmDVD PlayPrevChapter"));
    EXPECT_FALSE(FastForward || FastRewind);
    otherMedia() = {};
    console().cmdFwd.Value = true;
    console().cmdRwd.Value = true;
    EXPECT_FALSE(FastForward || FastRewind);
}

TEST_F(ConsoleTransport, TheTickCarriesAJumpOnForwardFirst)
{
    open(0);
    MediaLengthMs = 60000;
    world.mci.clear();
    console().Timer3.Tick();
    EXPECT_THAT(commands(), IsEmpty());
    FastForward = FastRewind = true;
    console().Timer3.Tick();
    EXPECT_THAT(commands(), Contains("play A from 1560"));
    world.mci.clear();
    FastForward = false;
    console().Timer3.Tick();
    EXPECT_THAT(commands(), Contains("play A from 1440"));
    world.mci.clear();
    CurrentAlias.clear();
    console().Timer3.Tick();
    console().ClosingDown = true;
    CurrentAlias = alias(0);
    console().Timer3.Tick();
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(ConsoleTransport, TheTickFollowsTheSelectedVideo)
{
    open(0);
    world.mediaAnswer(640, 480, 3723000, 3661000);
    world.mci.clear();
    console().Timer1.Tick();
    EXPECT_THAT(commands(), ElementsAre("set A time format ms", "status A position", "status A length"));
    EXPECT_EQ(console().SeekSlider.maximum(), 3723000);
    EXPECT_EQ(console().SeekSlider.value(), 3661000);
    EXPECT_EQ(console().lblCurTime.caption(), "1:01:01");
    world.mci.clear();
    VideoWindows[0]->markFailed();
    console().Timer1.Tick();
    VideoWindows[0]->Tag = "";
    console().ClosingDown = true;
    console().Timer1.Tick();
    EXPECT_THAT(commands(), IsEmpty());
    console().ClosingDown = false;
    CurrentAlias = kNoMedia;
    console().Timer1.Tick();
    EXPECT_THAT(commands(), Contains("set No Media Selected time format ms"))
        << "a text like any other, which no device has";
}

// The volume.

TEST_F(ConsoleTransport, PlusAndMinusMoveTheVolumeByTen)
{
    open(0);
    console().InvertSlider.Value = 50;
    console().VolumeSlider.Value = 50;
    VideoWindows[0]->Volume = 50;
    click(console().imgMax);
    EXPECT_THAT(commands(), ElementsAre("setaudio A Volume to 600"));
    EXPECT_EQ(console().InvertSlider.value(), 40);
    EXPECT_EQ(console().VolumeSlider.value(), 60);
    EXPECT_EQ(VolumeLevel, 60);
    click(console().imgMin);
    click(console().imgMin);
    EXPECT_EQ(VolumeLevel, 40);
    EXPECT_EQ(console().InvertSlider.value(), 60);
    EXPECT_EQ(VideoWindows[0]->Volume, 50) << "the window keeps its own";
}

TEST_F(ConsoleTransport, AtTheirEndsTheyDoNothing)
{
    open(0);
    console().InvertSlider.Value = 0;
    click(console().imgMax);
    EXPECT_THAT(commands(), IsEmpty());
    console().InvertSlider.Value = 100;
    click(console().imgMin);
    EXPECT_THAT(commands(), IsEmpty());
    CurrentAlias.clear();
    console().InvertSlider.Value = 50;
    click(console().imgMax);
    click(console().imgMin);
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_EQ(console().InvertSlider.value(), 50);
}

} // namespace tandrel::test
