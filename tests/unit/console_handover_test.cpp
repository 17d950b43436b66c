// The files that later starts hand over, taken at an activation of the console.

#include "player_bench.h"

#include "texts/frm_tool_tip.h"
#include "texts/frm_wait.h"
#include "toolkit/activation.h"

namespace tandrel::test
{

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace
{

class ConsoleHandover : public Player
{
protected:
    void handOver(const std::vector<std::string>& lines) { world.files.content["/data/list.dat"] = lines; }
    /// The user comes back to the console from another program.
    void activateConsole()
    {
        applicationDeactivated();
        console().SetFocus();
    }
    void take(const std::vector<std::string>& lines)
    {
        handOver(lines);
        world.mci.clear();
        activateConsole();
    }
    bool listIsThere() const { return world.files.content.contains("/data/list.dat"); }
    frmChild& video(int index) { return *VideoWindows.at(static_cast<std::size_t>(index)); }
    bool timersRun() { return console().Timer1.enabled() && console().Timer2.enabled() && console().Timer3.enabled(); }
};

std::vector<std::string> openCommands(const std::string& name)
{
    return {"Open " + name + " Type MPEGVideo alias " + name + " parent 0 style child",
            "Pause " + name,
            "Where " + name + " destination",
            "set " + name + " time format frames",
            "status " + name + " length",
            "set " + name + " time format ms",
            "status " + name + " length",
            "put " + name + " window at 0 0 640 480",
            "setaudio " + name + " Volume to 500"};
}

std::vector<std::string> joined(const std::vector<std::vector<std::string>>& parts)
{
    std::vector<std::string> all;
    for (const auto& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

} // namespace

TEST_F(ConsoleHandover, WithoutAListAnActivationOnlyTakesTheFocus)
{
    start("0");
    console().TrackHold = false;
    screen().MousePointer = 5;
    activateConsole();
    EXPECT_TRUE(console().TrackHold);
    EXPECT_THAT(world.mci.sent(), IsEmpty());
    EXPECT_FALSE(console().Timer1.enabled());
    EXPECT_EQ(screen().MousePointer(), pointer::kDefault);
}

TEST_F(ConsoleHandover, PlayAllOpensArrangesAndStartsAllTogether)
{
    start("0");
    take({alias(0), alias(1)});
    const auto wanted = joined({openCommands("A"),
                                openCommands("B"),
                                {"Where A destination", "put A window at 0 0 953 513", "Where B destination",
                                 "put B window at 0 0 953 513", "Play A from 0", "Play B from 0"}});
    EXPECT_EQ(commands(), wanted);
    EXPECT_EQ(rectOf(video(0)), twips(0, 0, 960, 540));
    EXPECT_EQ(rectOf(video(1)), twips(960, 0, 960, 540));
    EXPECT_EQ(CurrentAlias, alias(1));
    EXPECT_FALSE(listIsThere());
    EXPECT_TRUE(timersRun());
    EXPECT_TRUE(Playing);
}

TEST_F(ConsoleHandover, PlayListRestsTheOthersAQuarterInAndRunsTheLead)
{
    start("1");
    console().TipsOn = "1";
    take({alias(0), alias(1)});
    const auto wanted =
        joined({openCommands("A"),
                openCommands("B"),
                {"set A time format ms", "status A length", "seek A to 15000", "Pause A", "set B time format ms",
                 "status B position", "seek B to 1500", "Play B", "setaudio B Volume to 500", "Where A destination",
                 "put A window at 0 0 313 153", "Where B destination", "put B window at 0 0 1593 873"}});
    EXPECT_EQ(commands(), wanted);
    EXPECT_EQ(video(0).Paused, 1);
    EXPECT_EQ(video(1).Paused, 0);
    EXPECT_EQ(CurrentAlias, alias(1));
    EXPECT_TRUE(frmToolTip().visible());
    EXPECT_EQ(frmToolTip().top(), 600);
}

TEST_F(ConsoleHandover, ListsTakeThePathAndTheBareName)
{
    start("0");
    take({alias(0), alias(1)});
    EXPECT_THAT(console().List1.entries(), ElementsAre(film(0), film(1)));
    EXPECT_THAT(console().List2.entries(), ElementsAre("a.avi", "b.avi"));
    EXPECT_EQ(video(0).Duration, "0:01:00");
    EXPECT_EQ(video(0).caption(), "§/films/a.avi");
}

TEST_F(ConsoleHandover, OneFileStandsAloneInItsNativeSizeAndAMargin)
{
    start("1");
    take({alias(0)});
    EXPECT_EQ(rectOf(video(0)), twips(0, 0, 665, 505));
    EXPECT_FALSE(Loaded<class frmToolTip>());
}

TEST_F(ConsoleHandover, OnlyNewFilesAreOpened)
{
    start("0");
    open(0);
    take({alias(0), alias(1), alias(1), "\"/other/b.avi\""});
    EXPECT_THAT(startingWith(commands(), "Open "), ElementsAre("Open B Type MPEGVideo alias B parent 0 style child"));
    EXPECT_THAT(console().List2.entries(), ElementsAre(film(0), "b.avi"));
    EXPECT_EQ(VideoWindows.size(), 2U);
}

TEST_F(ConsoleHandover, NoMoreThanTwelveAreOpened)
{
    start("0");
    std::vector<std::string> lines;
    for (int index = 0; index < 14; ++index)
        lines.push_back(alias(index));
    take(lines);
    EXPECT_EQ(liveCount(), 12);
    EXPECT_EQ(console().List2.ListCount(), 12);
    EXPECT_FALSE(listIsThere());
}

TEST_F(ConsoleHandover, TenThousandLinesOpenTwelve)
{
    start("0");
    std::vector<std::string> lines(10000, "\"\"");
    for (int index = 0; index < 5000; ++index)
        lines[static_cast<std::size_t>(index) * 2] = "\"/films/" + std::to_string(index) + ".avi\"";
    take(lines);
    EXPECT_EQ(liveCount(), 12);
    EXPECT_EQ(startingWith(commands(), "Open ").size(), 12U);
}

TEST_F(ConsoleHandover, EmptyLinesAreSkippedAndAnEmptyListIsJustDeleted)
{
    start("0");
    take({"", "\"\"", "\""});
    EXPECT_THAT(world.mci.sent(), IsEmpty());
    EXPECT_THAT(VideoWindows, IsEmpty());
    EXPECT_FALSE(listIsThere());
    take({});
    EXPECT_THAT(VideoWindows, IsEmpty());
    EXPECT_FALSE(listIsThere());
}

TEST_F(ConsoleHandover, GarbageIsAFileThatCantBeOpened)
{
    start("0");
    const std::string garbage("\x00\xFF\xFE garbage", 11);
    world.mci.otherwise = [](const std::string& command, std::string&) {
        return command.starts_with("Pause") ? 263 : 0;
    };
    take({garbage});
    EXPECT_EQ(liveCount(), 0);
    EXPECT_EQ(video(0).tag(), "2");
    EXPECT_THAT(world.backend.boxes, IsEmpty());
    EXPECT_THAT(console().List2.entries(), IsEmpty()) << "the entry of a failed file goes";
    EXPECT_TRUE(timersRun());
}

TEST_F(ConsoleHandover, AFailedFileIsTaggedInSilenceAndTakesNoPlace)
{
    start("0");
    breakFilm(0);
    take({alias(0), alias(1), alias(2)});
    EXPECT_EQ(video(0).tag(), "2");
    EXPECT_FALSE(video(0).visible());
    EXPECT_EQ(rectOf(video(1)), twips(0, 0, 960, 540));
    EXPECT_THAT(console().List2.entries(), ElementsAre("b.avi", "c.avi"));
    EXPECT_THAT(chosen(commands(), [](const std::string& line) { return line.find('A') != std::string::npos; }),
                ElementsAre("Open A Type MPEGVideo alias A parent 0 style child", "Pause A"));
    EXPECT_THAT(world.backend.boxes, IsEmpty());
}

TEST_F(ConsoleHandover, AFailedFileWidensTheGridOfPlayAllModeOnly)
{
    start("0");
    breakFilm(0);
    take({alias(0), alias(1), alias(2), alias(3), alias(4)});
    EXPECT_EQ(rectOf(video(1)), twips(0, 0, 640, 540));
    EXPECT_EQ(rectOf(video(4)), twips(0, 540, 640, 540));
}

TEST_F(ConsoleHandover, TwelveBesideAFailedWindowAreArrangedToo)
{
    start("0");
    // As a start leaves it whose file can't be played.
    open(12).markFailed();
    console().List2.Clear();
    std::vector<std::string> lines;
    for (int index = 0; index < 12; ++index)
        lines.push_back(alias(index));
    take(lines);
    EXPECT_EQ(rectOf(video(12)), twips(1440, 720, 480, 360));
}

TEST_F(ConsoleHandover, TheFocusEndsOnTheSliderOfTheConsole)
{
    start("0");
    take({alias(0), alias(1)});
    EXPECT_EQ(activeForm(), &console());
    EXPECT_TRUE(console().TrackHold);
}

TEST_F(ConsoleHandover, AListThatCouldNotBeReadIsTriedAgain)
{
    start("0");
    world.files.readable = false;
    take({alias(0)});
    world.files.readable = true;
    activateConsole();
    EXPECT_EQ(liveCount(), 1);
    EXPECT_FALSE(listIsThere());
}

TEST_F(ConsoleHandover, WhatComesWhileTheListIsOpenedIsOpenedToo)
{
    start("0");
    world.instances.beforeTurn = [&] { world.files.content["/data/list.dat"].push_back(alias(1)); };
    take({alias(0)});
    EXPECT_THAT(startingWith(commands(), "Open "), ElementsAre("Open A Type MPEGVideo alias A parent 0 style child",
                                                               "Open B Type MPEGVideo alias B parent 0 style child"));
    EXPECT_FALSE(listIsThere());
}

TEST_F(ConsoleHandover, ASecondConsoleTakesTheListAsTheOwnerWould)
{
    start("0");
    console().SecondRun = true;
    world.files.content["/data/pres.dat"] = {" 4711 "};
    take({alias(0)});
    EXPECT_EQ(liveCount(), 1);
    EXPECT_FALSE(listIsThere());
}

TEST_F(ConsoleHandover, AListThatCantBeReadIsLeftAlone)
{
    start("0");
    world.files.readable = false;
    take({alias(0)});
    EXPECT_THAT(world.mci.sent(), IsEmpty());
    EXPECT_TRUE(timersRun());
    world.files.readable = true;
    EXPECT_TRUE(listIsThere());
}

TEST_F(ConsoleHandover, WhereNothingOpensTheLeadGoesOnLeading)
{
    start("1");
    openSeveral(2);
    breakFilm(2);
    take({alias(2)});
    EXPECT_EQ(CurrentAlias, alias(1));
    EXPECT_EQ(video(0).Paused, 1);
    EXPECT_EQ(video(1).Paused, 0);
    EXPECT_THAT(startingWith(commands(), "Play B"), Not(IsEmpty()));
}

TEST_F(ConsoleHandover, ALineWithoutSelectionIsSaidInTheTitle)
{
    start("0");
    world.mci.fail("Pause \"(no files selected)\"", 263);
    std::string shown;
    world.mci.onSend = [&](const std::string& command) {
        if (command.starts_with("Where"))
            shown = console().lblTitleBar.caption();
    };
    take({"\"(no files selected)\""});
    world.mci.onSend = nullptr;
    EXPECT_EQ(shown, "No Media Selected");
    EXPECT_EQ(video(0).tag(), "");
}

TEST_F(ConsoleHandover, AJumpIsPausedFirst)
{
    start("0");
    open(0);
    FastRewind = true;
    take({alias(1)});
    EXPECT_EQ(commands().at(0), "Pause A");
    EXPECT_FALSE(FastRewind);
}

TEST_F(ConsoleHandover, TheTimersAreOffDuringTheBatch)
{
    start("0");
    int checked = 0;
    world.mci.onSend = [&](const std::string& command) {
        EXPECT_FALSE(console().Timer1.enabled() || console().Timer2.enabled() || console().Timer3.enabled()) << command;
        ++checked;
    };
    take({alias(0), alias(1)});
    world.mci.onSend = nullptr;
    EXPECT_GT(checked, 18);
    EXPECT_TRUE(timersRun());
}

TEST_F(ConsoleHandover, AnErrorEndsTheBatchWhereItStoodWithTimersAndPointerBack)
{
    start("0");
    world.mci.answer("status " + alias(1) + " length", "99999999999");
    take({alias(0), alias(1), alias(2)});
    EXPECT_EQ(startingWith(commands(), "Open ").size(), 2U);
    EXPECT_TRUE(timersRun());
    EXPECT_EQ(screen().MousePointer(), pointer::kDefault);
    EXPECT_FALSE(Loaded<class frmWait>());
    EXPECT_TRUE(listIsThere());
    world.mci.answer("status " + alias(1) + " length", "2000");
    world.mci.clear();
    activateConsole();
    EXPECT_THAT(startingWith(commands(), "Open "), ElementsAre("Open C Type MPEGVideo alias C parent 0 style child"))
        << "what the error left over, and nothing twice";
    EXPECT_FALSE(listIsThere());
}

TEST_F(ConsoleHandover, WhileACommandHoldsThePointerItStays)
{
    start("0");
    screen().MousePointer = pointer::kHourglass;
    activateConsole();
    EXPECT_EQ(screen().MousePointer(), pointer::kHourglass);
    take({alias(0)});
    EXPECT_EQ(screen().MousePointer(), pointer::kHourglass);
}

TEST_F(ConsoleHandover, TheOpenVideosAreArrangedWithTheNewOnes)
{
    start("0");
    openSeveral(2);
    take({alias(2)});
    EXPECT_EQ(rectOf(video(0)), twips(0, 0, 960, 540));
    EXPECT_EQ(rectOf(video(1)), twips(960, 0, 960, 540));
    EXPECT_EQ(rectOf(video(2)), twips(960, 540, 960, 540));
}

TEST_F(ConsoleHandover, AFileIsTakenByTheFirstConsoleThatComesUp)
{
    handOver({alias(0)});
    world.settings.values["sys/slide"] = "0";
    frmMedia().Show();
    EXPECT_EQ(liveCount(), 1);
    EXPECT_FALSE(listIsThere());
}

// pres.dat

TEST_F(ConsoleHandover, TheFirstActivationMakesTheOwner)
{
    world.backend.windows = true;
    start("0");
    EXPECT_THAT(world.files.content["/data/pres.dat"], ElementsAre(" " + std::to_string(console().hWnd()) + " "));
    EXPECT_NE(console().hWnd(), 0U);
}

TEST_F(ConsoleHandover, AMarkThatIsThereStays)
{
    world.files.content["/data/pres.dat"] = {" 77 "};
    start("0");
    EXPECT_THAT(world.files.content["/data/pres.dat"], ElementsAre(" 77 "));
}

TEST_F(ConsoleHandover, AFolderThatCantBeWrittenHindersNothing)
{
    world.files.writable = false;
    start("0");
    EXPECT_TRUE(console().visible());
    EXPECT_FALSE(world.files.content.contains("/data/pres.dat"));
    activateConsole();
    EXPECT_EQ(activeForm(), &console());
}

TEST_F(ConsoleHandover, AListThatCantBeDeletedOpensItsFilesOnce)
{
    start("0");
    handOver({alias(0)});
    world.files.writable = false;
    activateConsole();
    activateConsole();
    EXPECT_EQ(liveCount(), 1);
    EXPECT_EQ(startingWith(commands(), "Open ").size(), 1U);
    EXPECT_TRUE(timersRun());
}

// Another program has left files and asks for them to be taken.

TEST_F(ConsoleHandover, TheActiveConsoleTakesWhatWasLeft)
{
    start("0");
    ASSERT_EQ(activeForm(), &console());
    handOver({alias(0), alias(1)});
    EXPECT_TRUE(console().takeWhatWasLeft());
    EXPECT_EQ(liveCount(), 2);
    EXPECT_FALSE(listIsThere());
}

TEST_F(ConsoleHandover, AConsoleThatIsNotActiveIsActivatedAndTakesThemOnce)
{
    start("0");
    open(0);
    ASSERT_NE(activeForm(), &console());
    handOver({alias(1)});
    EXPECT_TRUE(console().takeWhatWasLeft());
    EXPECT_EQ(liveCount(), 2);
    EXPECT_EQ(startingWith(commands(), "Open B").size(), 1U);
}

TEST_F(ConsoleHandover, AMinimisedConsoleComesBackWithItsVideos)
{
    start("0");
    open(0);
    console().WindowState = 1;
    ResizePending = true;
    video(0).Hide();
    EXPECT_TRUE(console().takeWhatWasLeft());
    EXPECT_EQ(console().windowState(), 0);
    EXPECT_TRUE(video(0).visible());
    EXPECT_EQ(activeForm(), &console()) << "no file was left: it is the console that is to be seen";
}

TEST_F(ConsoleHandover, ACommandUnderWayIsLeftAlone)
{
    start("0");
    handOver({alias(0)});
    console().takeNoHandover(true);
    EXPECT_FALSE(console().takeWhatWasLeft());
    screen().MousePointer = pointer::kHourglass;
    console().takeNoHandover(false);
    world.files.content["/data/list.dat"] = {alias(1)};
    EXPECT_FALSE(console().takeWhatWasLeft());
    EXPECT_TRUE(listIsThere());
    screen().MousePointer = pointer::kDefault;
    EXPECT_TRUE(console().takeWhatWasLeft());
    EXPECT_FALSE(listIsThere());
}

TEST_F(ConsoleHandover, AListThatIsBeingTakenIsNotTakenAgainMeanwhile)
{
    start("0");
    handOver({alias(0), alias(1)});
    int asked = 0;
    world.mci.otherwise = [this, &asked, inner = world.mci.otherwise](const std::string& command, std::string& text) {
        if (command.starts_with("Open ") && ++asked == 1) {
            EXPECT_FALSE(console().takeWhatWasLeft());
        }
        return inner(command, text);
    };
    activateConsole();
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(liveCount(), 2);
}

TEST_F(ConsoleHandover, AListThatCantBeReadIsTakenWhenSomebodyCallsAgain)
{
    start("0");
    handOver({alias(0)});
    world.files.readable = false;
    EXPECT_TRUE(console().takeWhatWasLeft());
    EXPECT_EQ(liveCount(), 0);
    world.files.readable = true;
    EXPECT_TRUE(console().takeWhatWasLeft());
    EXPECT_EQ(liveCount(), 1);
}

TEST_F(ConsoleHandover, AListThatCouldNotBeDeletedKeepsNoLaterOneAway)
{
    start("0");
    handOver({alias(0)});
    world.files.writable = false;
    EXPECT_TRUE(console().takeWhatWasLeft());
    EXPECT_TRUE(console().takeWhatWasLeft());
    EXPECT_EQ(startingWith(commands(), "Open ").size(), 1U) << "what is open already is not opened again";
    world.files.writable = true;
    handOver({alias(0), alias(1)});
    EXPECT_TRUE(console().takeWhatWasLeft());
    EXPECT_EQ(liveCount(), 2);
    EXPECT_FALSE(listIsThere());
}

} // namespace tandrel::test
