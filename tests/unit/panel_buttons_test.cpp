// The buttons of the panel, and its volume.

#include "fake_controls.h"
#include "panel_bench.h"

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

class PanelButtons : public PanelBench
{
protected:
    PanelButtons() : full_(fullScreen()) { console().SeekSlider.Max = 60000; }

    frmChild& full() { return full_; }
    void press(Control& button)
    {
        forgetCommands();
        click(button);
    }
    bool pauseIsInFront() { return panel().imgPause.visible() && !panel().imgPlay.visible(); }
    bool playIsInFront() { return panel().imgPlay.visible() && !panel().imgPause.visible(); }
    std::vector<int> volumes() const
    {
        std::vector<int> all;
        for (const auto& window : VideoWindows)
            all.push_back(window->Volume);
        return all;
    }
    /// The thumb of the panel's volume is moved by the user.
    void scrollTo(int level)
    {
        forgetCommands();
        panel().InvertSlider.userScroll(level);
    }

private:
    frmChild& full_;
};

} // namespace

// Play.

TEST_F(PanelButtons, PlayResumesThePausedVideoAtTheSlidersPlaceWithItsOwnVolume)
{
    full().Paused = 1;
    full().Volume = 30;
    console().SeekSlider.Value = 12345;
    panel().PanelSeeking = true;
    press(panel().imgPlay);
    EXPECT_THAT(commands(),
                ElementsAre("set B time format ms", "seek B to 12345", "Play B", "setaudio B Volume to 300"));
    EXPECT_THAT(paused(), ElementsAre(0, 0, 0));
    EXPECT_FALSE(panel().PanelSeeking);
    EXPECT_TRUE(pauseIsInFront());
}

TEST_F(PanelButtons, PlayTakesThePausedOneOfThoseThatPlayTheSame)
{
    VideoWindows[2]->MediaFile = " " + alias(1) + " ";
    VideoWindows[2]->Paused = 1;
    VideoWindows[2]->Volume = 20;
    VideoWindows[0].reset();
    press(panel().imgPlay);
    EXPECT_THAT(startingWith(commands(), "setaudio"), ElementsAre("setaudio B Volume to 200"));
    EXPECT_EQ(VideoWindows[2]->Paused, 0);
}

TEST_F(PanelButtons, PlayLeavesARunningVideoAlone)
{
    panel().PanelSeeking = true;
    press(panel().imgPlay);
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_FALSE(panel().PanelSeeking);
    EXPECT_TRUE(pauseIsInFront());
}

TEST_F(PanelButtons, PlayEndsAJumpAndBringsTheSoundBack)
{
    full().Paused = 1;
    console().VolumeSlider.Value = 40;
    for (bool* jump : {&FastForward, &FastRewind}) {
        *jump = true;
        panel().PanelSeeking = true;
        press(panel().imgPlay);
        EXPECT_THAT(commands(), ElementsAre("setaudio B Volume to 400"));
        EXPECT_FALSE(FastForward || FastRewind || panel().PanelSeeking);
        EXPECT_EQ(full().Paused, 1) << "the jumps only";
    }
}

TEST_F(PanelButtons, WithNothingSelectedPlayAndPauseOnlyChangePlaces)
{
    holdAll();
    CurrentAlias.clear();
    FastForward = true;
    panel().PanelSeeking = true;
    press(panel().imgPlay);
    EXPECT_TRUE(pauseIsInFront());
    EXPECT_TRUE(FastForward && panel().PanelSeeking);
    VideoWindows[1]->Paused = 0;
    press(panel().imgPause);
    EXPECT_TRUE(playIsInFront());
    EXPECT_THAT(paused(), ElementsAre(1, 0, 1));
    EXPECT_THAT(commands(), IsEmpty());
}

// Pause.

TEST_F(PanelButtons, PauseHoldsTheVideoAndNotesThePlace)
{
    console().SeekSlider.Value = 777;
    FastForward = true;
    press(panel().imgPause);
    EXPECT_THAT(commands(), ElementsAre("Pause B"));
    EXPECT_THAT(paused(), ElementsAre(0, 1, 0));
    EXPECT_EQ(panel().SeekTarget, 777);
    EXPECT_FALSE(FastForward);
    EXPECT_TRUE(playIsInFront());
}

TEST_F(PanelButtons, PauseHoldsTheFirstOfTwoThatPlayTheSame)
{
    VideoWindows[2]->MediaFile = alias(1);
    press(panel().imgPause);
    EXPECT_THAT(paused(), ElementsAre(0, 1, 0));
}

TEST_F(PanelButtons, WhereNoWindowPlaysTheSelectionTheDeviceIsPausedAllTheSame)
{
    const SlotTable kept = std::exchange(VideoWindows, {});
    press(panel().imgPause);
    EXPECT_THAT(commands(), ElementsAre("Pause B"));
    press(panel().imgPlay);
    EXPECT_THAT(commands(), IsEmpty());
}

// The jumps.

TEST_F(PanelButtons, ForwardAndRewindBeginTheirJumpsAndDoNotToggle)
{
    PanelUp = false;
    panel().PanelIdle = true;
    press(panel().imgFwd);
    EXPECT_TRUE(FastForward && !FastRewind);
    EXPECT_TRUE(PanelUp);
    press(panel().imgFwd);
    EXPECT_TRUE(FastForward);
    FastForward = false;
    PanelUp = false;
    press(panel().imgRwd);
    press(panel().imgRwd);
    EXPECT_TRUE(FastRewind && !FastForward);
    EXPECT_TRUE(PanelUp);
    EXPECT_FALSE(panel().PanelIdle);
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(PanelButtons, AClickKeepsThePanelUpWhereverItCameFrom)
{
    for (Image* button : {&panel().imgFwd, &panel().imgRwd, &panel().imgVolButton}) {
        panel().PanelIdle = true;
        button->userClick();
        EXPECT_FALSE(panel().PanelIdle) << button->name();
    }
}

TEST_F(PanelButtons, ThePressTheOtherWayOnlyStopsAJump)
{
    console().VolumeSlider.Value = 40;
    FastRewind = true;
    press(panel().imgFwd);
    EXPECT_FALSE(FastForward || FastRewind);
    EXPECT_THAT(commands(), ElementsAre("setaudio B Volume to 400"));
    FastForward = true;
    press(panel().imgRwd);
    EXPECT_FALSE(FastForward || FastRewind);
    EXPECT_THAT(commands(), ElementsAre("setaudio B Volume to 400"));
}

TEST_F(PanelButtons, WhereBothJumpsAreSetTheOneAskedForIsLeft)
{
    FastForward = FastRewind = true;
    press(panel().imgFwd);
    EXPECT_TRUE(FastForward && !FastRewind);
    FastRewind = true;
    press(panel().imgRwd);
    EXPECT_TRUE(FastRewind && !FastForward);
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(PanelButtons, WithNothingSelectedNoJumpBegins)
{
    CurrentAlias.clear();
    for (Image* button : {&panel().imgFwd, &panel().imgRwd}) {
        press(*button);
        EXPECT_FALSE(FastForward || FastRewind);
    }
}

// The way out.

TEST_F(PanelButtons, TheWayOutEndsThePanelAndTheSlowTickDoesTheRest)
{
    console().Timer4.Enabled = false;
    console().TrackHold = FullMenuOpen = true;
    console().Timer2.Enabled = true;
    const auto panelBefore = panel().shared_from_this();
    press(panel().imgNoFull);
    EXPECT_THAT(world.backend.hastened, ElementsAre("frmMedia.Timer2")) << "which need not wait for its turn";
    EXPECT_TRUE(console().Timer4.enabled());
    EXPECT_EQ(ClickState, 1.0);
    EXPECT_FALSE(console().TrackHold || FullMenuOpen || PanelUp);
    EXPECT_TRUE(panelBefore->isDead());
    EXPECT_TRUE(FullScreenOn) << "not yet";
    console().Timer2.tick();
    EXPECT_FALSE(FullScreenOn);
    EXPECT_FALSE(full().Full);
}

// Other media.

TEST_F(PanelButtons, EachButtonDoesWhatItDoesOnTheConsole)
{
    OtherMediaBench bench;
    FastForward = true;
    const std::vector<Image*> row{&panel().imgPlay, &panel().imgPause, &panel().imgFwd, &panel().imgRwd,
                                  &panel().imgDVD};
    const auto pressAll = [&] {
        bench.forget();
        for (Image* image : row)
            press(*image);
        return bench.asked();
    };
    MkvOpen = true;
    EXPECT_THAT(pressAll(), ElementsAre("frmMKV play", "frmMKV pause", "frmMKV fastForward", "frmMKV fastReverse"));
    DVDMode = true;
    EXPECT_THAT(pressAll(), ElementsAre("frmDVD2 resume", "frmDVD2 pause", "frmDVD2 fastForward", "frmDVD2 fastReverse",
                                        "frmDVD2 topMenu"));
    WindowsVersion = "WINDOWS XP";
    EXPECT_THAT(pressAll(), ElementsAre("frmDVD Run", "frmDVD Pause", "frmDVD PlayNextChapter",
                                        "frmDVD PlayPrevChapter", "frmDVD ShowMenu 3"));
    EXPECT_TRUE(FastForward) << "no file video was meant";
    EXPECT_THAT(paused(), ElementsAre(0, 0, 0));
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(PanelButtons, AControlThatRefusesOrIsNotThereIsIgnored)
{
    OtherMediaBench bench;
    bench.dvd.fails = bench.dvd2.fails = bench.mkv.fails = true;
    MkvOpen = true;
    for (const char* system : {"", "LINUX", "WINDOWS XP", "gone"}) {
        DVDMode = *system != '\0';
        WindowsVersion = system;
        if (WindowsVersion == "gone")
            otherMedia() = {};
        press(panel().imgPlay);
        EXPECT_TRUE(pauseIsInFront());
        for (Image* image : {&panel().imgFwd, &panel().imgRwd, &panel().imgDVD, &panel().imgPause})
            press(*image);
        EXPECT_TRUE(playIsInFront()) << "it goes on behind the refusal";
    }
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(PanelButtons, WithoutADiscTheMenuButtonDoesNothing)
{
    press(panel().imgDVD);
    EXPECT_THAT(commands(), IsEmpty());
}

// Mute.

TEST_F(PanelButtons, MuteSilencesTheSelectedVideoAndBringsItsVolumeBack)
{
    panel().InvertSlider.Value = 70;
    press(panel().imgVolButton);
    EXPECT_THAT(commands(), ElementsAre("setaudio B Volume to 0"));
    EXPECT_EQ(panel().imgVolButton.picture(), "panel_muted");
    EXPECT_EQ(panel().MuteMemory, 70);
    EXPECT_EQ(panel().InvertSlider.value(), 0);
    EXPECT_EQ(console().InvertSlider.value(), 100);
    EXPECT_EQ(console().VolumeSlider.value(), 0);
    EXPECT_THAT(volumes(), ElementsAre(50, 0, 50));
    press(panel().imgVolButton);
    EXPECT_THAT(commands(), ElementsAre("setaudio B Volume to 700"));
    EXPECT_EQ(panel().imgVolButton.picture(), "");
    EXPECT_EQ(panel().MuteMemory, 0);
    EXPECT_EQ(panel().InvertSlider.value(), 70);
    EXPECT_EQ(console().InvertSlider.value(), 30);
    EXPECT_EQ(console().VolumeSlider.value(), 70);
    EXPECT_THAT(volumes(), ElementsAre(50, 70, 50));
}

TEST_F(PanelButtons, AMuteInSilenceIsNoneAndItsPictureStaysUntilTheNextMove)
{
    panel().InvertSlider.Value = 0;
    press(panel().imgVolButton);
    EXPECT_EQ(panel().MuteMemory, 0);
    EXPECT_EQ(panel().imgVolButton.picture(), "panel_muted");
    panel().InvertSlider.Value = 60;
    press(panel().imgVolButton);
    EXPECT_EQ(panel().MuteMemory, 60) << "the next one is a first one again";
    panel().MuteMemory = 0;
    panel().imgPlay.userMouseMove({});
    EXPECT_EQ(panel().imgVolButton.picture(), "");
}

TEST_F(PanelButtons, MuteWithNothingSelectedMovesTheSliders)
{
    CurrentAlias.clear();
    panel().InvertSlider.Value = 70;
    press(panel().imgVolButton);
    EXPECT_EQ(console().VolumeSlider.value(), 0);
    EXPECT_THAT(volumes(), ElementsAre(50, 50, 50));
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(PanelButtons, MuteLeavesTheLastLevel)
{
    VolumeLevel = 12;
    press(panel().imgVolButton);
    EXPECT_EQ(VolumeLevel, 12);
}

// The slider.

TEST_F(PanelButtons, AScrollSetsTheVolumeOfTheSelectedVideo)
{
    panel().PanelIdle = true;
    scrollTo(80);
    EXPECT_THAT(commands(), ElementsAre("setaudio B Volume to 800"));
    EXPECT_EQ(console().InvertSlider.value(), 20);
    EXPECT_EQ(console().VolumeSlider.value(), 80);
    EXPECT_EQ(VolumeLevel, 80);
    EXPECT_THAT(volumes(), ElementsAre(50, 80, 50));
    EXPECT_FALSE(panel().PanelIdle);
}

TEST_F(PanelButtons, AScrollTakesTheFirstOfTwoThatPlayTheSame)
{
    VideoWindows[2]->MediaFile = alias(1);
    scrollTo(80);
    EXPECT_THAT(volumes(), ElementsAre(50, 80, 50));
}

TEST_F(PanelButtons, AScrollEndsAMute)
{
    panel().InvertSlider.Value = 70;
    press(panel().imgVolButton);
    scrollTo(20);
    EXPECT_EQ(panel().MuteMemory, 0);
    EXPECT_EQ(panel().imgVolButton.picture(), "");
    EXPECT_THAT(commands(), ElementsAre("setaudio B Volume to 200"));
    press(panel().imgVolButton);
    EXPECT_EQ(panel().MuteMemory, 20);
}

TEST_F(PanelButtons, WithNothingSelectedAScrollKeepsTheLevelForLater)
{
    CurrentAlias.clear();
    scrollTo(80);
    EXPECT_EQ(VolumeLevel, 80);
    EXPECT_THAT(volumes(), ElementsAre(50, 50, 50));
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(PanelButtons, OnAPlayerTheVolumeIsThePlayersAloneAndADiscMayHaveNone)
{
    OtherMediaBench bench;
    MkvOpen = true;
    scrollTo(80);
    EXPECT_THAT(bench.asked(), ElementsAre("frmMKV volume 80"));
    bench.forget();
    DVDMode = true;
    press(panel().imgVolButton);
    EXPECT_THAT(bench.asked(), ElementsAre("frmDVD2 volume 0"));
    bench.forget();
    WindowsVersion = "WINDOWS XP";
    scrollTo(30);
    EXPECT_THAT(bench.asked(), IsEmpty()) << "a disc on the video control has none";
    WindowsVersion = "LINUX";
    EXPECT_THAT(volumes(), ElementsAre(50, 50, 50));
    EXPECT_THAT(commands(), IsEmpty());
    bench.dvd2.fails = true;
    panel().PanelIdle = true;
    panel().InvertSlider.Scroll();
    EXPECT_FALSE(panel().PanelIdle) << "a refusal ends nothing";
}

} // namespace tandrel::test
