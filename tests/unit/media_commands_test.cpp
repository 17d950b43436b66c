// The command strings of each operation, whole and in order.

#include "media_bench.h"

#include "media/mod_media.h"

#include <gmock/gmock.h>

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

class MediaCommands : public ::testing::Test
{
protected:
    MediaCommands()
    {
        installConsoleFace(&face);
        CurrentAlias = kAlias;
        FastForward = true;
        FastRewind = true;
    }
    /// The answers that the asking operations get.
    void answers(const Text& alias, const Text& position, const Text& length)
    {
        world.mci.answer("status " + alias + " position", position);
        world.mci.answer("status " + alias + " position wait", position);
        world.mci.answer("status " + alias + " length", length);
    }
    bool jumpsCleared() const { return !FastForward && !FastRewind; }
    bool jumpsKept() const { return FastForward && FastRewind; }

    World world;
    Face face;
};

} // namespace

TEST_F(MediaCommands, OpenNamesTheDeviceTwiceAndCountsIt)
{
    EXPECT_EQ(MediaOpen(77), 0);
    EXPECT_THAT(world.mci.sent(), ElementsAre("Open \"/films/a.avi\" Type MPEGVideo alias \"/films/a.avi\" parent 77 "
                                              "style child"));
    EXPECT_EQ(NextSlot, 1);
}

TEST_F(MediaCommands, OpenPassesAHandleOfFullWidthOnAsAPositiveNumber)
{
    MediaOpen(4294967295U);
    EXPECT_THAT(world.mci.sent(), ElementsAre("Open \"/films/a.avi\" Type MPEGVideo alias \"/films/a.avi\" parent "
                                              "4294967295 style child"));
}

TEST_F(MediaCommands, AFailedOpenGivesItsErrorAndCountsAllTheSame)
{
    world.mci.otherwise = [](const std::string&, std::string&) { return 277; };
    EXPECT_EQ(MediaOpen(77), 277);
    EXPECT_EQ(NextSlot, 1);
}

TEST_F(MediaCommands, OpenPausedPausesBehindTheOpen)
{
    EXPECT_EQ(MediaOpenPaused(5), 0);
    EXPECT_THAT(
        world.mci.sent(),
        ElementsAre("Open " + kAlias + " Type MPEGVideo alias " + kAlias + " parent 5 style child", "Pause " + kAlias));
    EXPECT_EQ(NextSlot, 1);
}

TEST_F(MediaCommands, OpenPausedGivesTheResultOfThePauseAndNotOfTheOpen)
{
    world.mci.fail("Open " + kAlias + " Type MPEGVideo alias " + kAlias + " parent 5 style child", 277);
    EXPECT_EQ(MediaOpenPaused(5), 0);
    world.mci.fail("Pause " + kAlias, 263);
    EXPECT_EQ(MediaOpenPaused(5), 263);
    EXPECT_EQ(NextSlot, 2) << "failed opens count too";
}

TEST_F(MediaCommands, OpenAliasTakesTheGivenAliasAndCountsNothing)
{
    world.mci.fail("Open " + kOther + " Type MPEGVideo alias " + kOther + " parent 9 style child", 275);
    EXPECT_EQ(MediaOpenAlias(kOther, 9), 275);
    EXPECT_THAT(world.mci.sent(),
                ElementsAre("Open " + kOther + " Type MPEGVideo alias " + kOther + " parent 9 style child"));
    EXPECT_EQ(NextSlot, 0);
}

TEST_F(MediaCommands, PlaySendsPlayWithABlankAtItsEndAndTheSlidersLevel)
{
    FastForward = FastRewind = false;
    MediaPlay();
    EXPECT_THAT(world.mci.sent(), ElementsAre("Play " + kAlias + " ", "setaudio " + kAlias + " Volume to 700"));
    EXPECT_THAT(face.shown, ElementsAre("0x"));
    EXPECT_TRUE(MediaStarted);
    EXPECT_THAT(world.screenSaver.switched, IsEmpty());
}

TEST_F(MediaCommands, PlayDuringEitherJumpOnlyEndsTheJump)
{
    for (const bool forward : {true, false}) {
        world.mci.clear();
        MediaStarted = false;
        FastForward = forward;
        FastRewind = !forward;
        MediaPlay();
        EXPECT_THAT(world.mci.sent(), ElementsAre("setaudio " + kAlias + " Volume to 700"));
        EXPECT_TRUE(jumpsCleared());
        EXPECT_TRUE(MediaStarted);
    }
}

TEST_F(MediaCommands, PlayInFullScreenEndsThatStateAndPlaysNothing)
{
    FastForward = FastRewind = false;
    FullScreenOn = true;
    MediaPlay();
    EXPECT_THAT(world.mci.sent(), ElementsAre("setaudio " + kAlias + " Volume to 700"));
    EXPECT_FALSE(FullScreenOn);
    EXPECT_THAT(world.screenSaver.switched, ElementsAre(true));
    EXPECT_TRUE(MediaStarted);
}

TEST_F(MediaCommands, ResumeGoesToTheAnsweredPositionAsItStands)
{
    answers(kOther, "1500.75 x", "9000");
    MediaResume(kOther, 0, 50);
    EXPECT_THAT(world.mci.sent(), ElementsAre("set " + kOther + " time format ms", "status " + kOther + " position",
                                              "seek " + kOther + " to 1500.75 x", "Play " + kOther,
                                              "setaudio " + kOther + " Volume to 500"));
    EXPECT_TRUE(jumpsCleared());
    EXPECT_TRUE(MediaStarted);
    EXPECT_THAT(face.shown, ElementsAre("0x"));
}

TEST_F(MediaCommands, ResumeWithTheFlagPausesAtTheEnd)
{
    answers(kOther, "20", "9000");
    MediaResume(kOther, 1, 0);
    EXPECT_THAT(world.mci.sent(), ElementsAre("set " + kOther + " time format ms", "status " + kOther + " position",
                                              "seek " + kOther + " to 20", "Play " + kOther,
                                              "setaudio " + kOther + " Volume to 0", "Pause " + kOther));
}

TEST_F(MediaCommands, OnlyAFlagOfOnePauses)
{
    MediaResume(kOther, 2, 0);
    EXPECT_EQ(world.mci.sent().back(), "setaudio " + kOther + " Volume to 0");
    MediaRestart(kOther, -1, 0);
    EXPECT_EQ(world.mci.sent().back(), "setaudio " + kOther + " Volume to 0");
    MediaSeekPlay(5, 2);
    EXPECT_EQ(world.mci.sent().back(), "Play " + kAlias);
    MediaSeek(5, 2);
    EXPECT_EQ(world.mci.sent().back(), "seek " + kAlias + " to 5");
}

TEST_F(MediaCommands, ResumeOfAClosedDeviceSendsAllOfItsCommands)
{
    world.mci.otherwise = [](const std::string&, std::string&) { return 263; };
    MediaResume(kOther, 1, 50);
    EXPECT_THAT(world.mci.sent(), ElementsAre("set " + kOther + " time format ms", "status " + kOther + " position",
                                              "seek " + kOther + " to ", "Play " + kOther,
                                              "setaudio " + kOther + " Volume to 500", "Pause " + kOther));
}

TEST_F(MediaCommands, ReplayPlaysTheSelectedVideoFromItsStart)
{
    MediaReplay();
    EXPECT_THAT(world.mci.sent(),
                ElementsAre("set " + kAlias + " time format ms", "seek " + kAlias + " to 0", "Play " + kAlias));
    EXPECT_TRUE(MediaStarted);
    EXPECT_TRUE(jumpsKept());
    EXPECT_THAT(face.shown, IsEmpty());
}

TEST_F(MediaCommands, RestartAsksThePositionAndStartsAtZero)
{
    answers(kOther, "4000", "9000");
    MediaRestart(kOther, 0, 100);
    EXPECT_THAT(world.mci.sent(),
                ElementsAre("set " + kOther + " time format ms", "status " + kOther + " position",
                            "seek " + kOther + " to 0", "Play " + kOther, "setaudio " + kOther + " Volume to 1000"));
    EXPECT_TRUE(jumpsCleared());
    EXPECT_TRUE(MediaStarted);
    EXPECT_THAT(face.shown, ElementsAre("0x"));
    world.mci.clear();
    MediaRestart(kOther, 1, 100);
    EXPECT_EQ(world.mci.sent().back(), "Pause " + kOther);
    EXPECT_EQ(world.mci.sent().size(), 6U);
}

TEST_F(MediaCommands, PauseClearsTheJumps)
{
    MediaPause();
    EXPECT_THAT(world.mci.sent(), ElementsAre("Pause " + kAlias));
    EXPECT_TRUE(jumpsCleared());
    EXPECT_THAT(face.shown, ElementsAre("0x"));
    EXPECT_FALSE(MediaStarted);
}

TEST_F(MediaCommands, PauseAliasPausesTheGivenVideo)
{
    MediaPauseAlias(kOther);
    EXPECT_THAT(world.mci.sent(), ElementsAre("Pause " + kOther));
    EXPECT_TRUE(jumpsCleared());
    EXPECT_THAT(face.shown, ElementsAre("0x"));
    EXPECT_FALSE(MediaStarted);
}

TEST_F(MediaCommands, SeekQuarterPausesAQuarterIntoTheFilm)
{
    answers(kOther, "0", "8000");
    MediaSeekQuarter(kOther);
    EXPECT_THAT(world.mci.sent(), ElementsAre("set " + kOther + " time format ms", "status " + kOther + " length",
                                              "seek " + kOther + " to 2000", "Pause " + kOther));
    EXPECT_TRUE(jumpsCleared());
    EXPECT_THAT(face.shown, ElementsAre("0x"));
    EXPECT_FALSE(MediaStarted);
}

TEST_F(MediaCommands, AQuarterIsNotRounded)
{
    const std::pair<const char*, const char*> quarters[] = {
        {"10", "2.5"}, {"60001", "15000.25"}, {"3", "0.75"}, {"", "0"}, {"2147483647", "536870911.75"}};
    for (const auto& [length, quarter] : quarters) {
        answers(kOther, "0", length);
        world.mci.clear();
        MediaSeekQuarter(kOther);
        EXPECT_EQ(world.mci.sent()[2], "seek " + kOther + " to " + quarter);
    }
}

TEST_F(MediaCommands, StepForwardPaintsItsFrameInSilence)
{
    MediaStep(kOther, 30, 1);
    EXPECT_THAT(world.mci.sent(), ElementsAre("step " + kOther, "setaudio " + kOther + " Volume to 0", "Play " + kOther,
                                              "Pause " + kOther, "setaudio " + kOther + " Volume to 300"));
    EXPECT_THAT(face.shown, ElementsAre("0x"));
    EXPECT_FALSE(MediaStarted);
    EXPECT_TRUE(jumpsKept());
}

TEST_F(MediaCommands, StepInAnyOtherDirectionGoesBack)
{
    for (const int direction : {0, -1, 2}) {
        world.mci.clear();
        MediaStep(kOther, 30, direction);
        EXPECT_THAT(world.mci.sent(),
                    ElementsAre("step " + kOther + " reverse", "setaudio " + kOther + " Volume to 0", "Play " + kOther,
                                "Pause " + kOther, "setaudio " + kOther + " Volume to 300"));
    }
}

TEST_F(MediaCommands, ClosesClearTheJumpsAndOnlyCloseAllTheLabel)
{
    MediaClose(kOther);
    EXPECT_THAT(world.mci.sent(), ElementsAre("Close " + kOther));
    EXPECT_TRUE(jumpsCleared());
    EXPECT_THAT(face.shown, IsEmpty());

    FastForward = FastRewind = true;
    MediaCloseAll();
    EXPECT_THAT(world.mci.sent(), ElementsAre("Close " + kOther, "Close all"));
    EXPECT_TRUE(jumpsCleared());
    EXPECT_THAT(face.shown, ElementsAre("0x"));
    EXPECT_FALSE(MediaStarted);
}

TEST_F(MediaCommands, SeekPlaysWithAFlagOfZeroOnly)
{
    MediaSeek(1234, 0);
    EXPECT_THAT(world.mci.sent(),
                ElementsAre("set " + kAlias + " time format ms", "seek " + kAlias + " to 1234", "Play " + kAlias));
    EXPECT_TRUE(MediaStarted);
    EXPECT_THAT(face.shown, ElementsAre("0x"));
    EXPECT_TRUE(jumpsKept());
    world.mci.clear();
    MediaSeek(-7, 1);
    EXPECT_THAT(world.mci.sent(), ElementsAre("set " + kAlias + " time format ms", "seek " + kAlias + " to -7"));
}

TEST_F(MediaCommands, SeekPlayAlwaysPlaysAndPausesBehindItWithTheFlag)
{
    MediaSeekPlay(1234, 1);
    EXPECT_THAT(world.mci.sent(), ElementsAre("set " + kAlias + " time format ms", "seek " + kAlias + " to 1234",
                                              "Play " + kAlias, "Pause " + kAlias));
    EXPECT_TRUE(MediaStarted);
    EXPECT_THAT(face.shown, ElementsAre("0x"));
    world.mci.clear();
    MediaSeekPlay(0, 0);
    EXPECT_THAT(world.mci.sent(),
                ElementsAre("set " + kAlias + " time format ms", "seek " + kAlias + " to 0", "Play " + kAlias));
}

TEST_F(MediaCommands, VolumesAreTenTimesTheLevelAndGiveTheResult)
{
    world.mci.fail("setaudio " + kOther + " Volume to 1000", 263);
    EXPECT_EQ(MediaSetVolume(37), 0);
    EXPECT_EQ(MediaSetVolumeAlias(kOther, 100), 263);
    EXPECT_THAT(world.mci.sent(),
                ElementsAre("setaudio " + kAlias + " Volume to 370", "setaudio " + kOther + " Volume to 1000"));
}

TEST_F(MediaCommands, ShellOpenHandsTheTargetOn)
{
    ShellOpen("http://www.tandrel.example/help");
    EXPECT_THAT(world.shell.opened, ElementsAre("http://www.tandrel.example/help"));
    EXPECT_THAT(world.mci.sent(), IsEmpty());
}

TEST_F(MediaCommands, OperationsOnNoMediaSendTheirStringsAllTheSame)
{
    CurrentAlias = kNoMedia;
    world.mci.otherwise = [](const std::string&, std::string&) { return 263; };
    MediaPause();
    EXPECT_EQ(MediaGetPosition(), -1);
    EXPECT_THAT(world.mci.sent(), ElementsAre("Pause No Media Selected", "set No Media Selected time format ms",
                                              "status No Media Selected position", "status No Media Selected length"));
}

TEST_F(MediaCommands, ALevelWhoseProductLeaves16BitsEndsTheOperationWhereItIsSent)
{
    const auto overflows = [](auto&& operation) {
        try {
            operation();
        } catch (const RuntimeError& problem) {
            return problem.number() == error::kOverflow;
        }
        return false;
    };
    EXPECT_TRUE(overflows([] { MediaResume(kOther, 1, 3277); }));
    EXPECT_EQ(world.mci.sent().back(), "Play " + kOther);
    EXPECT_FALSE(MediaStarted);
    EXPECT_TRUE(jumpsKept());

    EXPECT_TRUE(overflows([] { MediaRestart(kOther, 1, 3277); }));
    EXPECT_EQ(world.mci.sent().back(), "Play " + kOther);

    EXPECT_TRUE(overflows([] { MediaStep(kOther, 3277, 1); }));
    EXPECT_EQ(world.mci.sent().back(), "Pause " + kOther);

    face.level = 3277;
    FastForward = FastRewind = false;
    EXPECT_TRUE(overflows([] { MediaPlay(); }));
    EXPECT_EQ(world.mci.sent().back(), "Play " + kAlias + " ");
    EXPECT_FALSE(MediaStarted);

    answers(kAlias, "500", "400");
    EXPECT_TRUE(overflows([] { MediaFastForward(); }));
    EXPECT_EQ(world.mci.sent().back(), "status " + kAlias + " position wait");
    EXPECT_TRUE(overflows([] { MediaFastRewind(); }));
    EXPECT_EQ(world.mci.sent().back(), "status " + kAlias + " position wait");
}

TEST_F(MediaCommands, TheLargestLevelOf16BitsStillPasses)
{
    MediaResume(kOther, 0, 3276);
    EXPECT_EQ(world.mci.sent().back(), "setaudio " + kOther + " Volume to 32760");
    EXPECT_EQ(MediaSetVolume(3277), 0) << "the two setters count in 32 bits";
    EXPECT_EQ(world.mci.sent().back(), "setaudio " + kAlias + " Volume to 32770");
}

} // namespace tandrel::test
