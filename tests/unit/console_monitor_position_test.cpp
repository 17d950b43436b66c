// Where the medium stands, as the fast tick shows it: slider, times and title, for each kind of medium.

#include "fake_controls.h"
#include "monitor_bench.h"

#include "fullscreen/frm_panel.h"

namespace tandrel::test
{

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

class ConsoleMonitorPosition : public MonitorBench
{
protected:
    /// A disc on the control of older systems.
    void disc()
    {
        start();
        WindowsVersion = "WINDOWS XP";
        DVDMode = true;
    }
    void discOnPlayer()
    {
        start();
        WindowsVersion = "LINUX";
        DVDMode = true;
    }
    void film()
    {
        start();
        MkvOpen = true;
    }
    std::vector<Text> times() { return {console().lblCurTime.caption(), console().lblDuration.caption()}; }
    int place() { return console().SeekSlider.value(); }
    int end() { return console().SeekSlider.maximum(); }
};

} // namespace

TEST_F(ConsoleMonitorPosition, ThreeQuestionsGiveThePlaceAndTheLength)
{
    play(1);
    stands(0, "3661000", "3723000");
    EXPECT_THAT(sentBy(console().Timer1),
                ElementsAre("set A time format ms", "status A position", "status A length", "set A time format frames",
                            "status A length", "set A time format ms", "status A length"));
    EXPECT_THAT(sentBy(console().Timer1), ElementsAre("set A time format ms", "status A position", "status A length"))
        << "the length is written once";
    EXPECT_EQ(CurrentPosMs, 3661000);
    EXPECT_EQ(MediaLengthMs, 3723000);
    EXPECT_EQ(end(), 3723000);
    EXPECT_EQ(place(), 3661000);
    EXPECT_THAT(times(), ElementsAre("1:01:01", "1:02:03"));
}

TEST_F(ConsoleMonitorPosition, WithNothingSelectedNothingIsAsked)
{
    play(1);
    CurrentAlias.clear();
    console().SeekSlider.Value = 7;
    EXPECT_THAT(sentBy(console().Timer1), IsEmpty());
    EXPECT_EQ(place(), 7);
}

TEST_F(ConsoleMonitorPosition, AVideoThatCannotBePlayedIsAskedNothing)
{
    play(1);
    VideoWindows[0]->markFailed();
    EXPECT_THAT(sentBy(console().Timer1), IsEmpty());
}

TEST_F(ConsoleMonitorPosition, OnceTheEndHasBegunNoTickDoesAnything)
{
    play(2);
    console().ClosingDown = true;
    FullScreenOn = FastForward = PanelUp = true;
    world.pointer.left = true;
    console().lblTitleBar.Caption = "kept";
    for (Timer* timer : {&console().Timer1, &console().Timer2, &console().Timer3, &console().Timer4})
        EXPECT_THAT(sentBy(*timer), IsEmpty());
    EXPECT_EQ(console().lblTitleBar.caption(), "kept");
    EXPECT_TRUE(console().lblTimeClick.caption().empty());
    EXPECT_TRUE(PanelUp);
}

TEST_F(ConsoleMonitorPosition, ALengthOfNothingLeavesTheEndOfTheSlider)
{
    play(1);
    console().SeekSlider.Max = 1234;
    stands(0, "0", "0");
    tick1();
    EXPECT_EQ(end(), 1234);
    EXPECT_EQ(place(), 0);
    EXPECT_EQ(console().lblCurTime.caption(), "0:00:00");
}

TEST_F(ConsoleMonitorPosition, TheLastMillisecondStillRunsAndTheLengthIsTheEnd)
{
    play(1);
    stands(0, "59999");
    tick1();
    EXPECT_EQ(place(), 59999);
    EXPECT_EQ(console().EndTicks, 0);
    stands(0, "60000");
    tick1();
    EXPECT_EQ(place(), 0);
    EXPECT_EQ(console().EndTicks, 1);
    stands(0, "2000000000");
    tick1();
    EXPECT_EQ(console().EndTicks, 2) << "far beyond the end";
}

TEST_F(ConsoleMonitorPosition, AnUnknownPlaceIsShownAsTheBeginning)
{
    play(1);
    world.mci.answer("status " + alias(0) + " length", "", 263);
    tick1();
    EXPECT_EQ(CurrentPosMs, -1) << "a failed position is no place";
    EXPECT_EQ(console().EndTicks, 0) << "and not the end";
    EXPECT_EQ(place(), 0);
    EXPECT_EQ(console().lblCurTime.caption(), "0:00:00");
}

TEST_F(ConsoleMonitorPosition, ThePanelShowsTheTimeWhileItIsUpInFullScreen)
{
    play(1);
    for (const auto& [full, up] : {std::pair{true, false}, {false, true}, {true, true}}) {
        frmPanel().lblCurrent.Caption = "";
        FullScreenOn = full;
        PanelUp = up;
        tick1();
        EXPECT_EQ(frmPanel().lblCurrent.caption(), full && up ? "0:00:01" : "");
    }
}

TEST_F(ConsoleMonitorPosition, TheFirstTickNamesTheFileWhereTheTitleSaidThatNothingPlays)
{
    play(1);
    console().lblDuration.Caption = "0:01:00";
    for (const char* idle : {"No Media Selected", "no media selected", " [ OPEN FILES ] ", "Open Files"}) {
        console().lblTitleBar.Caption = idle;
        tick1();
        EXPECT_EQ(console().lblTitleBar.caption(), " [ a.avi ] ") << idle;
    }
}

TEST_F(ConsoleMonitorPosition, AnyOtherTitleIsLeftToTheMarquee)
{
    play(1);
    console().lblDuration.Caption = "0:01:00";
    console().lblTitleBar.Caption = "vi ]";
    tick1();
    EXPECT_EQ(console().lblTitleBar.caption(), "vi ]");
}

TEST_F(ConsoleMonitorPosition, AnEmptyTitleOrNoDurationBringsBoth)
{
    play(1);
    stands(0, "1500", "3723000");
    console().lblTitleBar.Caption = "";
    console().lblDuration.Caption = "9:99:99";
    tick1();
    EXPECT_EQ(console().lblTitleBar.caption(), titled("a.avi"));
    EXPECT_EQ(console().lblDuration.caption(), "1:02:03");
    console().lblTitleBar.Caption = "left over";
    console().lblDuration.Caption = "0:00:00";
    tick1();
    EXPECT_EQ(console().lblTitleBar.caption(), titled("a.avi"));
    EXPECT_EQ(console().lblDuration.caption(), "1:02:03");
}

TEST_F(ConsoleMonitorPosition, TheLengthIsCutAsOneWithASingleFigureForItsHours)
{
    play(1);
    stands(0, "1500", "36309000");
    tick1();
    EXPECT_EQ(console().lblDuration.caption(), "1::0::0") << "of 10:05:09";
}

TEST_F(ConsoleMonitorPosition, ATitleOfBlanksIsLeftToTheMarquee)
{
    play(1);
    stands(0, "1500", "3723000");
    console().lblTitleBar.Caption = "   ";
    console().lblDuration.Caption = "0:01:00";
    tick1();
    EXPECT_EQ(console().lblTitleBar.caption(), "   ");
    EXPECT_EQ(console().lblDuration.caption(), "0:01:00");
}

TEST_F(ConsoleMonitorPosition, AFileThatIsNamedLikeTheIdleTitleIsWrittenSo)
{
    play(1);
    CurrentAlias = VideoWindows[0]->MediaFile = "\"/films/no media selected.avi\"";
    console().lblTitleBar.Caption = " [ no media selected.avi ] ";
    console().lblDuration.Caption = "0:00:00";
    tick1();
    EXPECT_EQ(console().lblTitleBar.caption(), "No Media Selected");
}

TEST_F(ConsoleMonitorPosition, OnlyTheQuotesAroundThePathAreNoPartOfTheName)
{
    play(1);
    for (const auto& [path, name] : {std::pair<Text, Text>{"/films/\xff\xfe\x80.avi", "\xff\xfe\x80.avi"},
                                     {"/films/it's.avi", "it's.avi"},
                                     {"/films/'a'", "'a'"},
                                     {"/films/ ", " "}}) {
        CurrentAlias = VideoWindows[0]->MediaFile = tandrel::quoted(path);
        console().lblTitleBar.Caption = "Open Files";
        console().lblDuration.Caption = "0:01:00";
        tick1();
        EXPECT_EQ(console().lblTitleBar.caption(), " [ " + name + " ] ");
    }
}

TEST_F(ConsoleMonitorPosition, AnAliasThatNoSlotPlaysIsFollowedAllTheSame)
{
    play(1);
    CurrentAlias = "\"/films/gone.avi\"";
    EXPECT_THAT(sentBy(console().Timer1), Contains("set \"/films/gone.avi\" time format ms"));
    EXPECT_EQ(place(), 1500);
}

TEST_F(ConsoleMonitorPosition, AnswersThatAreNoNumbersAreTheEndOfNothing)
{
    play(1);
    for (const char* odd : {"", "abc", "-", "1x", "-5", "   ", "."}) {
        stands(0, odd, odd);
        tick1();
    }
    EXPECT_EQ(place(), 0);
    EXPECT_EQ(console().EndTicks, 7) << "each stood at its own end";
}

// Thirty days are more milliseconds than a place holds.
TEST_F(ConsoleMonitorPosition, ALengthOfThirtyDaysEndsTheTickAndNothingElse)
{
    play(1);
    tick1();
    stands(0, "1500", "2592000000");
    EXPECT_NO_THROW(tick1());
    EXPECT_EQ(MediaLengthMs, 60000) << "what is known stays";
    EXPECT_EQ(console().EndTicks, 0);
    stands(0, "1700");
    tick1();
    EXPECT_EQ(place(), 1700) << "the next tick runs";
}

// Discs and HD films.

TEST_F(ConsoleMonitorPosition, ADiscTellsItsPlaceInHoursMinutesAndSeconds)
{
    disc();
    OtherMediaBench bench;
    open(0);
    EXPECT_THAT(sentBy(console().Timer1), IsEmpty()) << "nothing goes to the files";
    EXPECT_EQ(end(), 1 * 3600 + 23 * 60 + 45);
    EXPECT_EQ(place(), 2 * 60 + 3);
    EXPECT_THAT(times(), ElementsAre("0:02:03", "1:23:45"));
}

TEST_F(ConsoleMonitorPosition, TheTimeOfADiscIsOnThePanelInFullScreen)
{
    disc();
    OtherMediaBench bench;
    for (const auto& [full, up] : {std::pair{true, false}, {false, true}, {true, true}}) {
        frmPanel().lblCurrent.Caption = "";
        FullScreenOn = full;
        PanelUp = up;
        tick1();
        EXPECT_EQ(frmPanel().lblCurrent.caption(), full && up ? "0:02:03" : "");
    }
}

TEST_F(ConsoleMonitorPosition, ADiscThatStopsLeavesTheLabelsAsTheyWere)
{
    disc();
    OtherMediaBench bench;
    tick1();
    bench.dvd.fails = true;
    EXPECT_NO_THROW(console().Timer1.Tick());
    EXPECT_EQ(place(), 123);
    EXPECT_THAT(times(), ElementsAre("0:02:03", "1:23:45"));
    otherMedia() = {};
    EXPECT_NO_THROW(console().Timer1.Tick()) << "nor is there a window";
    EXPECT_THAT(times(), ElementsAre("0:02:03", "1:23:45"));
}

TEST_F(ConsoleMonitorPosition, ShortTimesOfADiscAreNoPlace)
{
    disc();
    OtherMediaBench bench;
    for (const char* odd : {"", "0", "00:", "xx:yy:zz:"}) {
        bench.dvd.time = odd;
        console().SeekSlider.Value = 7;
        EXPECT_NO_THROW(console().Timer1.Tick()) << odd;
        EXPECT_EQ(place(), 0) << odd;
    }
}

TEST_F(ConsoleMonitorPosition, APlayerTellsItsPlaceWithAsManyFiguresAsItLikes)
{
    film();
    OtherMediaBench bench;
    for (const auto& [time, seconds] : {std::pair<const char*, int>{"00:05", 5},
                                        {"02:03", 123},
                                        {"2:03", 123},
                                        {"1:02:03", 3723},
                                        {"01:02:03", 3723},
                                        {"10.02.03", 36123},
                                        {"5", 5},
                                        {"", 0}}) {
        bench.mkv.durationText = "12:00:00";
        bench.mkv.position = time;
        tick1();
        EXPECT_EQ(end(), 43200);
        EXPECT_EQ(place(), seconds) << time;
    }
}

TEST_F(ConsoleMonitorPosition, TimesOfMoreThanSevenCharactersLoseTheFirst)
{
    film();
    OtherMediaBench bench;
    bench.mkv.position = "00:02:03";
    bench.mkv.durationText = "1:02:03";
    tick1();
    EXPECT_THAT(times(), ElementsAre("0:02:03", "1:02:03"));
    bench.mkv.position = "02:03";
    bench.mkv.durationText = "01:02:03";
    tick1();
    EXPECT_THAT(times(), ElementsAre("02:03", "1:02:03"));
    bench.mkv.position = " 1:02:03";
    bench.mkv.durationText = "  59:59 ";
    tick1();
    EXPECT_THAT(times(), ElementsAre(" 1:02:03", "  59:59 ")) << "blanks around them do not count";
}

TEST_F(ConsoleMonitorPosition, TheTitleOfAPlayerIsWrittenWhileItHasAPlace)
{
    discOnPlayer();
    OtherMediaBench bench;
    bench.dvd2Form->Caption = "Disc 1";
    tick1();
    EXPECT_EQ(console().lblTitleBar.caption(), titled("Disc 1"));
    EXPECT_EQ(place(), 123);
    DVDMode = false;
    MkvOpen = true;
    bench.mkv.position = "";
    tick1();
    EXPECT_EQ(console().lblTitleBar.caption(), titled("Disc 1"));
    bench.mkv.position = "02:03";
    tick1();
    EXPECT_EQ(console().lblTitleBar.caption(), titled("A Film"));
}

TEST_F(ConsoleMonitorPosition, ADiscGoesBeforeAnHdFilmAndAnHdFilmBeforeTheFiles)
{
    discOnPlayer();
    OtherMediaBench bench;
    bench.dvd2.position = "00:11";
    bench.mkv.position = "00:22";
    MkvOpen = true;
    open(0);
    tick1();
    EXPECT_EQ(place(), 11);
    DVDMode = false;
    tick1();
    EXPECT_EQ(place(), 22);
    MkvOpen = false;
    tick1();
    EXPECT_EQ(place(), 1500);
}

TEST_F(ConsoleMonitorPosition, APlayerThatRefusesLeavesTheLabelsAsTheyWere)
{
    film();
    OtherMediaBench bench;
    tick1();
    console().lblTitleBar.Caption = "kept";
    bench.mkv.fails = true;
    EXPECT_NO_THROW(console().Timer1.Tick());
    EXPECT_EQ(place(), 123);
    EXPECT_THAT(times(), ElementsAre("02:03", "1:02:03"));
    EXPECT_EQ(console().lblTitleBar.caption(), "kept");
}

} // namespace tandrel::test
