// Step, pause and resume, restart and mute of all videos.

#include "fake_controls.h"
#include "player_bench.h"

namespace tandrel::test
{

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

namespace
{

class ConsoleGroupCommands : public Player
{
protected:
    void begin(const Text& mode, int videos)
    {
        start(mode);
        openSeveral(videos);
        for (int index = 0; index < videos; ++index)
            VideoWindows[static_cast<std::size_t>(index)]->Volume = 10 * (index + 1);
        console().VolumeSlider.Value = 50;
        console().InvertSlider.Value = 50;
        world.backend.pointerShapes.clear();
    }
    void click(Image& image)
    {
        world.mci.clear();
        image.userClick();
    }
    std::vector<int> volumes()
    {
        std::vector<int> all;
        for (const auto& window : VideoWindows)
            all.push_back(window->Volume);
        return all;
    }
    Text tag() { return console().imgPauseAll.tag(); }
};

} // namespace

// Step.

TEST_F(ConsoleGroupCommands, AStepOnGoesThroughAllVideosInTheirOrder)
{
    begin("0", 2);
    world.mci.answer("status " + alias(1) + " position", "2040");
    click(console().imgStep);
    EXPECT_THAT(commands(),
                ElementsAre("step A", "setaudio A Volume to 0", "Play A", "Pause A", "setaudio A Volume to 100",
                            "set A time format ms", "status A position", "step B", "setaudio B Volume to 0", "Play B",
                            "Pause B", "setaudio B Volume to 200", "set B time format ms", "status B position"));
    EXPECT_THAT(world.mci.expected, ElementsAre(ElementsAre("step " + alias(0), "step " + alias(1))))
        << "all are announced before any is waited for";
    EXPECT_EQ(VideoWindows[0]->CurrPos, 1500);
    EXPECT_EQ(VideoWindows[1]->CurrPos, 2040);
    EXPECT_THAT(paused(), ElementsAre(1, 1));
    EXPECT_EQ(tag(), "1");
    EXPECT_THAT(world.backend.pointerShapes, ElementsAre(pointer::kHourglass, pointer::kDefault));
}

TEST_F(ConsoleGroupCommands, AStepBackIsTheSameInReverse)
{
    begin("0", 2);
    click(console().imgBack);
    EXPECT_THAT(startingWith(commands(), "step"), ElementsAre("step A reverse", "step B reverse"));
    EXPECT_THAT(world.mci.expected,
                ElementsAre(ElementsAre("step " + alias(0) + " reverse", "step " + alias(1) + " reverse")));
    EXPECT_EQ(commands().size(), 14U);
    EXPECT_EQ(tag(), "1");
}

TEST_F(ConsoleGroupCommands, ADeadSlotIsSentItsStepTooAndNobodyMinds)
{
    begin("0", 3);
    VideoWindows[1]->MediaFile.clear();
    click(console().imgStep);
    EXPECT_THAT(startingWith(commands(), "step"), ElementsAre("step A", "step ", "step C"));
    EXPECT_THAT(paused(), ElementsAre(1, 1, 1));
}

TEST_F(ConsoleGroupCommands, AStepDuringAJumpShowsTheNormalSpeedAndLeavesTheJumpSet)
{
    begin("0", 1);
    FastForward = true;
    console().lblSpeed.Caption = "2x";
    click(console().imgStep);
    EXPECT_EQ(console().lblSpeed.caption(), "0x");
    EXPECT_TRUE(FastForward);
    EXPECT_FALSE(FastRewind);
}

TEST_F(ConsoleGroupCommands, WithoutASlotTableAStepLeavesNothingHeld)
{
    start("0");
    console().imgStep.userClick();
    console().imgBack.userClick();
    console().imgPauseAll.userClick();
    EXPECT_THAT(world.mci.sent(), IsEmpty());
    EXPECT_EQ(tag(), "");
}

// Pause and resume.

TEST_F(ConsoleGroupCommands, APauseHoldsAllVideosAndKeepsTheirPlaces)
{
    begin("0", 2);
    FastForward = true;
    world.mci.answer("status " + alias(0) + " position", "900");
    world.mci.answer("status " + alias(1) + " position", "1133");
    click(console().imgPauseAll);
    EXPECT_THAT(commands(), ElementsAre("Pause A", "set A time format ms", "status A position", "Pause B",
                                        "set B time format ms", "status B position"));
    EXPECT_THAT(world.mci.expected, ElementsAre(ElementsAre("Pause " + alias(0), "Pause " + alias(1))));
    EXPECT_EQ(VideoWindows[0]->CurrPos, 900);
    EXPECT_EQ(VideoWindows[1]->CurrPos, 1133);
    EXPECT_THAT(paused(), ElementsAre(1, 1));
    EXPECT_EQ(tag(), "1");
    EXPECT_FALSE(FastForward);
    EXPECT_THAT(world.backend.pointerShapes, ElementsAre(pointer::kHourglass, pointer::kDefault));
}

TEST_F(ConsoleGroupCommands, TheNextClickResumesEachFromItsOwnPlace)
{
    begin("0", 3);
    world.mci.answer("status " + alias(0) + " position", "900");
    click(console().imgPauseAll);
    VideoWindows[1]->MediaFile = " ";
    click(console().imgPauseAll);
    EXPECT_THAT(commands(), ElementsAre("Play A from 900", "Play C from 1500"));
    EXPECT_THAT(paused(), ElementsAre(0, 1, 0));
    EXPECT_EQ(tag(), "");
}

TEST_F(ConsoleGroupCommands, AfterAStepTheButtonResumesFromTheSteppedPlaces)
{
    begin("0", 1);
    world.mci.answer("status " + alias(0) + " position", "1540");
    click(console().imgStep);
    click(console().imgPauseAll);
    EXPECT_THAT(commands(), ElementsAre("Play A from 1540"));
    EXPECT_EQ(tag(), "");
}

TEST_F(ConsoleGroupCommands, AnEmptySlotIsPausedInVainAndSkippedByTheResume)
{
    begin("0", 2);
    VideoWindows[0]->MediaFile.clear();
    world.mci.fail("Pause ", 292);
    world.mci.fail("status  position", 292);
    VideoWindows[0]->CurrPos = 5;
    click(console().imgPauseAll);
    EXPECT_THAT(commands(), ElementsAre("Pause ", "set  time format ms", "status  position", "Pause B",
                                        "set B time format ms", "status B position"));
    EXPECT_EQ(VideoWindows[0]->CurrPos, 0) << "a failing question reads as the beginning";
    click(console().imgPauseAll);
    EXPECT_THAT(commands(), ElementsAre("Play B from 1500"));
}

TEST_F(ConsoleGroupCommands, AVideoThatCantTellItsPlaceResumesFromItsBeginning)
{
    begin("0", 2);
    VideoWindows[0]->CurrPos = 5;
    world.mci.answer("status " + alias(0) + " position", "777", 276);
    click(console().imgPauseAll);
    EXPECT_EQ(VideoWindows[0]->CurrPos, 0) << "whatever the failing device has answered";
    click(console().imgPauseAll);
    EXPECT_THAT(commands(), ElementsAre("Play A from 0", "Play B from 1500"));
}

TEST_F(ConsoleGroupCommands, AFailingDeviceLeavesTheStateAsIfItHadWorked)
{
    begin("0", 1);
    world.mci.fail("Pause " + alias(0), 276);
    world.mci.fail("status " + alias(0) + " position", 276);
    click(console().imgPauseAll);
    EXPECT_THAT(paused(), ElementsAre(1));
    EXPECT_EQ(tag(), "1");
}

// Restart.

TEST_F(ConsoleGroupCommands, ARestartBeginsAllVideosAtZeroWithTheConsolesVolume)
{
    begin("0", 2);
    console().imgPauseAll.Tag = "1";
    for (const auto& window : VideoWindows)
        window->Paused = 1;
    console().VolumeSlider.Value = 70;
    click(console().imgResync);
    const auto sent = commands();
    ASSERT_GE(sent.size(), 10U);
    EXPECT_THAT(std::vector<std::string>(sent.end() - 10, sent.end()),
                ElementsAre("set A time format ms", "status A position", "seek A to 0", "Play A",
                            "setaudio A Volume to 700", "set B time format ms", "status B position", "seek B to 0",
                            "Play B", "setaudio B Volume to 700"));
    EXPECT_EQ(startingWith(sent, "Play").size(), 2U)
        << "the arrangement itself starts nothing, and nothing is staggered";
    EXPECT_EQ(console().SlideMode, "0");
    EXPECT_THAT(paused(), ElementsAre(0, 0));
    EXPECT_EQ(tag(), "");
    EXPECT_EQ(screen().MousePointer(), pointer::kDefault);
}

TEST_F(ConsoleGroupCommands, ARestartOfASingleVideoOnlyEmptiesTheTag)
{
    begin("0", 1);
    console().imgPauseAll.Tag = "1";
    click(console().imgResync);
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_EQ(tag(), "");
    EXPECT_EQ(console().SlideMode, "0");
}

// PlayList Mode, discs and the busy pointer.

TEST_F(ConsoleGroupCommands, InPlayListModeTheyFlipThePointerAndNoMore)
{
    begin("1", 2);
    console().imgPauseAll.Tag = "1";
    for (Image* image : {&console().imgStep, &console().imgBack, &console().imgPauseAll}) {
        world.backend.pointerShapes.clear();
        click(*image);
        EXPECT_THAT(commands(), IsEmpty());
        EXPECT_THAT(world.backend.pointerShapes, ElementsAre(pointer::kHourglass, pointer::kDefault));
        EXPECT_EQ(tag(), "1");
    }
    click(console().imgResync);
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_EQ(tag(), "") << "the restart empties the tag there too";
    EXPECT_EQ(console().SlideMode, "1");
    EXPECT_THAT(paused(), ElementsAre(0, 0));
}

TEST_F(ConsoleGroupCommands, WhileADiscPlaysOrACommandRunsTheyReturnAtOnce)
{
    begin("0", 2);
    console().imgPauseAll.Tag = "1";
    for (const bool disc : {true, false}) {
        DVDMode = disc;
        screen().MousePointer = disc ? pointer::kDefault : pointer::kHourglass;
        world.backend.pointerShapes.clear();
        for (Image* image : {&console().imgStep, &console().imgBack, &console().imgPauseAll, &console().imgResync}) {
            click(*image);
            EXPECT_THAT(commands(), IsEmpty());
            EXPECT_THAT(world.backend.pointerShapes, IsEmpty());
        }
        EXPECT_EQ(tag(), "1");
    }
}

TEST_F(ConsoleGroupCommands, BesideAnHdFilmTheyWorkAsEver)
{
    OtherMediaBench bench;
    begin("0", 2);
    MkvOpen = true;
    click(console().imgStep);
    EXPECT_THAT(startingWith(commands(), "step"), ElementsAre("step A", "step B"));
    click(console().imgBack);
    EXPECT_THAT(startingWith(commands(), "step"), ElementsAre("step A reverse", "step B reverse"));
    click(console().imgPauseAll);
    EXPECT_THAT(commands(), ElementsAre("Play A from 1500", "Play B from 1500"));
    EXPECT_EQ(tag(), "");
    click(console().imgPauseAll);
    EXPECT_THAT(startingWith(commands(), "Pause"), ElementsAre("Pause A", "Pause B"));
    EXPECT_EQ(tag(), "1");
    click(console().imgResync);
    EXPECT_THAT(startingWith(commands(), "seek"), ElementsAre("seek A to 0", "seek B to 0"));
    EXPECT_THAT(startingWith(commands(), "Play"), ElementsAre("Play A", "Play B"));
    EXPECT_EQ(tag(), "");
    EXPECT_THAT(bench.asked(), IsEmpty()) << "the film itself is in no group";
}

// Mute.

TEST_F(ConsoleGroupCommands, MuteSilencesAllVideosOfPlayAllModeAndTheNextClickBringsTheVolumeBack)
{
    begin("0", 3);
    VideoWindows[1]->MediaFile = "";
    click(console().imgMute);
    EXPECT_THAT(commands(), ElementsAre("setaudio A Volume to 0", "setaudio C Volume to 0"));
    EXPECT_THAT(volumes(), ElementsAre(0, 20, 0));
    EXPECT_EQ(console().SavedVolume, 50);
    EXPECT_EQ(console().InvertSlider.value(), 100);
    EXPECT_EQ(console().VolumeSlider.value(), 0);
    click(console().imgMute);
    EXPECT_THAT(commands(), ElementsAre("setaudio A Volume to 500", "setaudio C Volume to 500"));
    EXPECT_THAT(volumes(), ElementsAre(50, 20, 50));
    EXPECT_EQ(console().SavedVolume, 0);
    EXPECT_EQ(console().InvertSlider.value(), 50);
    EXPECT_EQ(console().VolumeSlider.value(), 50);
}

TEST_F(ConsoleGroupCommands, InPlayListModeMuteTouchesTheSelectedVideoOfThatMomentOnly)
{
    begin("1", 3);
    CurrentAlias = alias(1);
    click(console().imgMute);
    EXPECT_THAT(commands(), ElementsAre("setaudio B Volume to 0"));
    EXPECT_THAT(volumes(), ElementsAre(10, 0, 30));
    CurrentAlias = alias(2);
    click(console().imgMute);
    EXPECT_THAT(commands(), ElementsAre("setaudio C Volume to 500"));
    EXPECT_THAT(volumes(), ElementsAre(10, 0, 50));
}

TEST_F(ConsoleGroupCommands, InPlayListModeMuteTakesTheFirstOfTwoThatPlayTheSame)
{
    begin("1", 2);
    VideoWindows[1]->MediaFile = alias(0);
    CurrentAlias = alias(0);
    click(console().imgMute);
    EXPECT_THAT(commands(), ElementsAre("setaudio A Volume to 0"));
    EXPECT_THAT(volumes(), ElementsAre(0, 20));
    click(console().imgMute);
    EXPECT_THAT(commands(), ElementsAre("setaudio A Volume to 500"));
    EXPECT_THAT(volumes(), ElementsAre(50, 20));
}

TEST_F(ConsoleGroupCommands, InPlayListModeMuteWithNothingSelectedTakesTheFirstDeadSlot)
{
    begin("1", 3);
    VideoWindows[1]->MediaFile.clear();
    VideoWindows[2]->MediaFile.clear();
    CurrentAlias.clear();
    click(console().imgMute);
    EXPECT_THAT(commands(), ElementsAre("setaudio  Volume to 0"));
    EXPECT_THAT(volumes(), ElementsAre(10, 0, 30));
}

TEST_F(ConsoleGroupCommands, AVolumeOfZeroCantBeMuted)
{
    begin("0", 1);
    console().VolumeSlider.Value = 0;
    click(console().imgMute);
    EXPECT_EQ(console().SavedVolume, 0);
    click(console().imgMute);
    EXPECT_THAT(commands(), ElementsAre("setaudio A Volume to 0")) << "the first path again";
}

TEST_F(ConsoleGroupCommands, OnOtherMediaTheSlidersComeFirstAndTheVideosAreLeftAlone)
{
    OtherMediaBench bench;
    begin("0", 1);
    MkvOpen = true;
    click(console().imgMute);
    click(console().imgMute);
    EXPECT_THAT(bench.asked(), ElementsAre("frmMKV volume 0", "frmMKV volume 50"));
    bench.forget();
    DVDMode = true;
    click(console().imgMute);
    click(console().imgMute);
    EXPECT_THAT(bench.asked(), ElementsAre("frmDVD2 volume 0", "frmDVD2 volume 50"));
    bench.forget();
    WindowsVersion = "WINDOWS ME";
    click(console().imgMute);
    EXPECT_EQ(console().SavedVolume, 50);
    EXPECT_EQ(console().VolumeSlider.value(), 0);
    click(console().imgMute);
    EXPECT_EQ(console().SavedVolume, 0);
    EXPECT_EQ(console().VolumeSlider.value(), 50);
    EXPECT_THAT(bench.asked(), IsEmpty()) << "its control's volume isn't touched";
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_THAT(volumes(), ElementsAre(10));
}

} // namespace tandrel::test
