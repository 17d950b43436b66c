// What the slow tick does for all videos: the marquee of the title, and videos of a group that have ended.

#include "fake_controls.h"
#include "monitor_bench.h"

namespace tandrel::test
{

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

namespace
{

class ConsoleMonitorVideos : public MonitorBench
{
protected:
    Text title() { return console().lblTitleBar.caption(); }
    /// The title of the tick behind this one.
    Text scrolled(const Text& from)
    {
        console().lblTitleBar.Caption = from;
        console().lblDuration.Caption = "0:01:00";
        tick2();
        return title();
    }
    std::vector<std::string> sent() { return sentBy(console().Timer2); }
    /// Only the plays.
    std::vector<std::string> plays() { return startingWith(sent(), "Play"); }
};

} // namespace

// The marquee.

TEST_F(ConsoleMonitorVideos, TheTitleLosesACharacterAtEachTick)
{
    play(1);
    EXPECT_EQ(scrolled(" [ a.avi ] "), "[ a.avi ] ");
    tick2();
    EXPECT_EQ(title(), " a.avi ] ");
}

TEST_F(ConsoleMonitorVideos, CharactersGoAsAWholeAndOddBytesOneByOne)
{
    play(1);
    EXPECT_EQ(scrolled("éa"), "a");
    EXPECT_EQ(scrolled("\xff\x80 b"), "\x80 b");
    EXPECT_EQ(scrolled("\xe2\x82"), "\x82") << "half a character";
}

TEST_F(ConsoleMonitorVideos, AnEmptyTitleStartsOverBehindFiftyBlanks)
{
    play(1);
    EXPECT_EQ(scrolled(""), kFifty + " [ a.avi ] " + kFifty);
    EXPECT_EQ(scrolled("   "), kFifty + " [ a.avi ] " + kFifty) << "blanks only are nothing";
    EXPECT_EQ(scrolled("] " + kFifty), " " + kFifty);
}

TEST_F(ConsoleMonitorVideos, ADiscAndAnHdFilmStartOverWithTheirOwnTitles)
{
    OtherMediaBench bench;
    play(1);
    MkvOpen = true;
    EXPECT_EQ(scrolled(""), kFifty + " [ A Film ] " + kFifty);
    DVDMode = true;
    for (const char* system : {"LINUX", "WINDOWS XP"}) {
        WindowsVersion = system;
        EXPECT_EQ(scrolled(""), kFifty + "DVD Movie" + kFifty);
    }
}

TEST_F(ConsoleMonitorVideos, AFilmThatTellsNoTitleLeavesItEmpty)
{
    OtherMediaBench bench;
    play(1);
    MkvOpen = true;
    bench.mkv.fails = true;
    stands(0, "60000");
    world.mci.clear();
    EXPECT_EQ(scrolled(""), "");
    EXPECT_THAT(commands(), Contains("Play A from 0")) << "the rest of the tick runs";
}

TEST_F(ConsoleMonitorVideos, WithoutADurationTheTitleStands)
{
    play(1);
    console().lblTitleBar.Caption = " [ a.avi ] ";
    console().lblDuration.Caption = "0:00:00";
    tick2();
    EXPECT_EQ(title(), " [ a.avi ] ");
}

TEST_F(ConsoleMonitorVideos, WhileTheTitleSaysThatNothingPlaysTheTickEndsThere)
{
    play(1);
    stands(0, "60000");
    for (const char* idle : {"No Media Selected", "NO MEDIA SELECTED", " [ open files ] "}) {
        console().lblTitleBar.Caption = idle;
        console().lblDuration.Caption = "0:01:00";
        EXPECT_THAT(sent(), IsEmpty());
        EXPECT_EQ(title(), idle);
        EXPECT_EQ(console().lblClick.caption(), "Click: 0") << "the clicks come before";
    }
}

// Videos that have ended.

TEST_F(ConsoleMonitorVideos, EachVideoIsAskedInTheOrderOfTheSlots)
{
    play(2);
    VideoWindows[0]->Volume = 20;
    VideoWindows[1]->Volume = 35;
    EXPECT_THAT(sent(),
                ElementsAre("set A time format ms", "status A position", "status A length", "set B time format ms",
                            "status B position", "status B length", "setaudio B Volume to 350"));
}

TEST_F(ConsoleMonitorVideos, EachOneThatHasEndedBeginsAgainByItself)
{
    play(3);
    stands(0, "60000");
    stands(1, "59999");
    stands(2, "99999");
    EXPECT_THAT(plays(), ElementsAre("Play A from 0", "Play C from 0"));
}

TEST_F(ConsoleMonitorVideos, TwelveVideosTakeThreeCommandsEach)
{
    play(12);
    FullScreenOn = true;
    EXPECT_EQ(sent().size(), 36U);
}

TEST_F(ConsoleMonitorVideos, OnlyTheSelectedOneGetsItsVolumeAndNotInFullScreenNorInAJump)
{
    play(2);
    VideoWindows[0]->Volume = 40;
    const auto volumes = [&] { return startingWith(sent(), "setaudio"); };
    CurrentAlias = alias(0);
    EXPECT_THAT(volumes(), ElementsAre("setaudio A Volume to 400"));
    FullScreenOn = true;
    EXPECT_THAT(volumes(), IsEmpty());
    FullScreenOn = false;
    FastForward = true;
    EXPECT_THAT(volumes(), IsEmpty());
    FastForward = false;
    FastRewind = true;
    EXPECT_THAT(volumes(), IsEmpty());
    FastRewind = false;
    CurrentAlias = alias(7);
    EXPECT_THAT(volumes(), IsEmpty()) << "no slot plays that";
}

TEST_F(ConsoleMonitorVideos, InPlayListModeOnlyASingleVideoBeginsAgain)
{
    play(2, "1");
    stands(0, "60000");
    stands(1, "60000");
    EXPECT_THAT(sent(), IsEmpty());
    console().List2.RemoveItem(1);
    EXPECT_THAT(plays(), ElementsAre("Play A from 0", "Play B from 0"));
    console().List2.Clear();
    EXPECT_THAT(sent(), IsEmpty());
    console().SlideMode = "";
    EXPECT_THAT(plays(), ElementsAre("Play A from 0", "Play B from 0")) << "any other mode plays all";
}

TEST_F(ConsoleMonitorVideos, ASingleVideoOfPlayListModeBeginsAgainThoughTheFastTickMovesNothing)
{
    play(1, "1");
    stands(0, "60000");
    for (int tick = 0; tick < 15; ++tick)
        tick1();
    EXPECT_THAT(startingWith(commands(), "Play"), IsEmpty());
    EXPECT_THAT(plays(), ElementsAre("Play A from 0"));
}

TEST_F(ConsoleMonitorVideos, BesideADiscTheFilesAreLeftAloneBesideAnHdFilmNot)
{
    OtherMediaBench bench;
    play(1);
    stands(0, "60000");
    MkvOpen = true;
    EXPECT_THAT(plays(), ElementsAre("Play A from 0"));
    DVDMode = true;
    EXPECT_THAT(sent(), IsEmpty());
}

TEST_F(ConsoleMonitorVideos, BehindAStopVideosBeginAgainAllTheSame)
{
    play(1);
    stands(0, "60000");
    console().Timer1.Enabled = false;
    console().Timer1.tick();
    EXPECT_THAT(commands(), IsEmpty()) << "the fast tick is off";
    EXPECT_THAT(plays(), ElementsAre("Play A from 0"));
}

TEST_F(ConsoleMonitorVideos, DeadAndBrokenSlotsAreSentNothing)
{
    play(4);
    VideoWindows[0]->MediaFile = "  ";
    VideoWindows[1]->markFailed();
    VideoWindows[2].reset();
    EXPECT_THAT(startingWith(sent(), "status"), ElementsAre("status D position", "status D length"));
}

TEST_F(ConsoleMonitorVideos, BlanksAroundAnAliasAreNotSent)
{
    play(1);
    VideoWindows[0]->MediaFile = "  " + alias(0) + " ";
    stands(0, "60000");
    VideoWindows[0]->Volume = 10;
    EXPECT_THAT(sent(), ElementsAre("set A time format ms", "status A position", "status A length", "Play A from 0",
                                    "setaudio A Volume to 100"));
}

TEST_F(ConsoleMonitorVideos, ALostDeviceStandsAtItsEnd)
{
    play(2);
    world.mci.fail("status " + alias(0) + " position", 263);
    world.mci.fail("status " + alias(0) + " length", 263);
    EXPECT_THAT(plays(), ElementsAre("Play A from 0"));
}

TEST_F(ConsoleMonitorVideos, AllAreAnnouncedBeforeAnyIsAsked)
{
    play(3);
    VideoWindows[1]->markFailed();
    world.mci.expected.clear();
    std::size_t announcedAtFirst = 0;
    world.mci.onSend = [&](const std::string&) {
        announcedAtFirst = announcedAtFirst ? announcedAtFirst : world.mci.expected.size();
    };
    tick2();
    world.mci.onSend = nullptr;
    EXPECT_EQ(announcedAtFirst, 1U);
    ASSERT_EQ(world.mci.expected.size(), 1U);
    EXPECT_THAT(shortened(world.mci.expected.front()), ElementsAre("status A position", "status C position"));
}

TEST_F(ConsoleMonitorVideos, ADeviceThatDoesNotAnswerIsPassedOverAndTheOthersGoOn)
{
    play(3);
    world.mci.fail("status " + alias(0) + " position", 276);
    stands(1, "60000");
    stands(2, "60000");
    EXPECT_THAT(sent(), AllOf(Not(Contains("status A length")), Not(Contains("Play A from 0")),
                              Contains("Play B from 0"), Contains("Play C from 0")));
    stands(0, "5000");
    world.mci.fail("status " + alias(0) + " length", 276);
    EXPECT_THAT(plays(), ElementsAre("Play B from 0", "Play C from 0"));
}

// Thirty days are more milliseconds than a place holds.
TEST_F(ConsoleMonitorVideos, AVideoOfThirtyDaysDoesNotKeepTheOthersFromBeginningAgain)
{
    play(2);
    stands(0, "5000", "2592000000");
    stands(1, "60000");
    EXPECT_NO_THROW(console().Timer2.Tick());
    EXPECT_THAT(plays(), ElementsAre("Play B from 0"));
    stands(0, "2592000000", "2592000000");
    EXPECT_THAT(plays(), ElementsAre("Play B from 0"));
}

TEST_F(ConsoleMonitorVideos, AWindowThatClosesInTheMiddleOfTheWalkEndsQuietly)
{
    play(3);
    stands(0, "60000");
    stands(2, "60000");
    const std::shared_ptr<frmChild> first = VideoWindows[0];
    world.mci.onSend = [&](const std::string& command) {
        if (command == "status " + alias(0) + " position" && first->isLoaded())
            unload(*first);
    };
    EXPECT_NO_THROW(console().Timer2.Tick());
    EXPECT_FALSE(first->isLive());
    EXPECT_THAT(commands(), Contains("Play C from 0"));
}

} // namespace tandrel::test
