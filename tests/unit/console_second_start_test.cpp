// A start beside a running process.

#include "player_bench.h"

#include "console/command_line.h"
#include "console/frm_start.h"
#include "toolkit/program.h"

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

class ConsoleSecondStart : public Player
{
protected:
    ConsoleSecondStart()
    {
        world.instances.another = true;
        world.settings.values["sys/top"] = "1000";
        world.settings.values["sys/left"] = "-50";
    }
    void startWith(const Text& text) { startWith(CommandLine{text, {}}); }
    void startWith(CommandLine line)
    {
        setCommandLine(std::move(line));
        frmStart().start();
    }
    void ownerIsUp() { world.files.content["/data/pres.dat"] = {" 99 "}; }
    std::vector<std::string> list() { return world.files.content["/data/list.dat"]; }
    bool listIsThere() const { return world.files.content.contains("/data/list.dat"); }
    void setList(std::vector<std::string> lines) { world.files.content["/data/list.dat"] = std::move(lines); }
};

} // namespace

TEST_F(ConsoleSecondStart, WithoutAFileItIsAFurtherConsoleTwoHundredTwipsOn)
{
    startWith("");
    EXPECT_FALSE(programEnded());
    EXPECT_THAT(world.settings.saved, ElementsAre("sys/top=1200", "sys/left=150"));
    EXPECT_FALSE(console().SecondRun);
    EXPECT_EQ(console().top(), 1200);
    EXPECT_EQ(console().left(), 150);
}

TEST_F(ConsoleSecondStart, PlacesThatWereNeverSavedCountAsZero)
{
    world.settings.values.erase("sys/top");
    world.settings.values["sys/left"] = "abc";
    startWith("");
    EXPECT_THAT(world.settings.saved, ElementsAre("sys/top=200", "sys/left=200"));
}

TEST_F(ConsoleSecondStart, ADiscGoesOnAsAFurtherConsoleThatPlaysIt)
{
    startWith("DVD");
    EXPECT_FALSE(programEnded());
    EXPECT_FALSE(console().SecondRun);
    EXPECT_THAT(world.settings.saved, ElementsAre("sys/top=1200", "sys/left=150"));
    EXPECT_TRUE(console().Timer1.enabled());
}

TEST_F(ConsoleSecondStart, AnImageOfADiscIsPlayedByTheFurtherConsoleToo)
{
    ownerIsUp();
    startWith("\"/films/disc.iso\"");
    EXPECT_FALSE(programEnded());
    EXPECT_FALSE(console().SecondRun);
    EXPECT_THAT(world.settings.saved, ElementsAre("sys/top=1200", "sys/left=150"));
    EXPECT_TRUE(DVDMode);
}

TEST_F(ConsoleSecondStart, WithAnOwnerAFileMakesASecondConsoleThatLeavesItAlone)
{
    ownerIsUp();
    startWith(alias(0));
    EXPECT_FALSE(programEnded());
    EXPECT_TRUE(console().SecondRun);
    EXPECT_THAT(world.settings.saved, ElementsAre("sys/top=1200", "sys/left=150"));
    EXPECT_THAT(world.mci.sent(), IsEmpty());
    EXPECT_THAT(VideoWindows, IsEmpty());
    EXPECT_FALSE(listIsThere());
    EXPECT_FALSE(Loaded<class frmStart>());
}

TEST_F(ConsoleSecondStart, WithAnOwnerSeveralFilesAreLeftAloneToo)
{
    ownerIsUp();
    startWith(CommandLine{"", {film(0), film(1)}});
    EXPECT_TRUE(console().SecondRun);
    EXPECT_THAT(world.mci.sent(), IsEmpty());
    EXPECT_THAT(VideoWindows, IsEmpty());
}

TEST_F(ConsoleSecondStart, WithoutAnOwnerAFileIsHandedOverAndTheProcessEnds)
{
    startWith(alias(0));
    EXPECT_TRUE(programEnded());
    EXPECT_EQ(world.backend.quits, 1);
    EXPECT_THAT(list(), ElementsAre("\"/films/a.avi\""));
    EXPECT_THAT(world.mci.sent(), IsEmpty());
    EXPECT_THAT(world.settings.saved, IsEmpty());
    EXPECT_FALSE(world.files.content.contains("/data/pres.dat"));
    EXPECT_FALSE(frmMedia().visible());
}

TEST_F(ConsoleSecondStart, AFurtherFileIsAddedAsTheLastLine)
{
    setList({alias(3), "", alias(4)});
    startWith(alias(0));
    EXPECT_THAT(list(), ElementsAre(alias(3), "", alias(4), alias(0)));
}

TEST_F(ConsoleSecondStart, TheListTakesElevenLinesAndDropsTheNext)
{
    std::vector<std::string> lines(10, alias(5));
    setList(lines);
    startWith(alias(0));
    EXPECT_EQ(list().size(), 11U);
    EXPECT_EQ(list().back(), alias(0));
}

TEST_F(ConsoleSecondStart, AListOfElevenLinesStaysAsItIs)
{
    const std::vector<std::string> lines(11, alias(5));
    setList(lines);
    world.files.written.clear();
    startWith(alias(0));
    EXPECT_EQ(list(), lines);
    EXPECT_TRUE(programEnded());
    EXPECT_THAT(world.files.written, ElementsAre()) << "nothing is written";
}

TEST_F(ConsoleSecondStart, EveryToldTypeIsHandedOverInAnyCase)
{
    for (const char* type : {".avi", ".mp4", ".mpg", ".asf", ".wmv", ".mpeg", ".mov", ".mkv", ".flv", ".3gp", ".ogm",
                             ".divx", ".xvid", ".webm"})
        for (const Text& end : {Text(type), upper(type)}) {
            World fresh;
            fresh.settled();
            fresh.instances.another = true;
            setCommandLine({"\"/films/x" + end + "\"", {}});
            frmStart().start();
            EXPECT_THAT(fresh.files.content["/data/list.dat"], ElementsAre("\"/films/x" + end + "\"")) << end;
            EXPECT_TRUE(programEnded());
        }
}

TEST_F(ConsoleSecondStart, AnotherTypeIsDroppedAndTheProcessEndsAllTheSame)
{
    for (const char* path : {"/films/a.hdmov", "/films/a.txt", "/films/avi", "/films/a.avi.bak", "/films/.webm2"}) {
        World fresh;
        fresh.settled();
        fresh.instances.another = true;
        setCommandLine({tandrel::quoted(path), {}});
        frmStart().start();
        EXPECT_FALSE(fresh.files.content.contains("/data/list.dat")) << path;
        EXPECT_TRUE(programEnded()) << path;
    }
}

TEST_F(ConsoleSecondStart, SeveralFilesAreHandedOverTogether)
{
    startWith(CommandLine{"", {film(0), film(1)}});
    EXPECT_TRUE(programEnded());
    EXPECT_THAT(list(), ElementsAre(alias(0), alias(1)));
}

TEST_F(ConsoleSecondStart, WhereNothingCanBeHandedOverTheStartOpensItsFileItself)
{
    world.files.writable = false;
    startWith(alias(0));
    EXPECT_FALSE(programEnded());
    EXPECT_FALSE(console().SecondRun);
    EXPECT_EQ(liveCount(), 1);
    EXPECT_FALSE(listIsThere());
}

TEST_F(ConsoleSecondStart, AGroupThatCantBeHandedOverIsOpenedWholeHere)
{
    world.files.writable = false;
    startWith(CommandLine{"", {film(0), film(1)}});
    EXPECT_FALSE(programEnded());
    EXPECT_EQ(liveCount(), 2);
    EXPECT_FALSE(listIsThere());
}

TEST_F(ConsoleSecondStart, AListThatCantBeReadIsNotReplaced)
{
    world.files.content["/data/list.dat"] = {"\"/films/old.avi\""};
    world.files.readable = false;
    startWith(alias(0));
    EXPECT_FALSE(programEnded());
    EXPECT_EQ(liveCount(), 1);
    EXPECT_THAT(world.files.content["/data/list.dat"], ElementsAre("\"/films/old.avi\""));
}

TEST_F(ConsoleSecondStart, WhereTheOtherLeavesJustThenNothingIsHandedOver)
{
    world.instances.beforeTurn = [this] { world.instances.another = false; };
    startWith(alias(0));
    EXPECT_FALSE(programEnded());
    EXPECT_FALSE(console().SecondRun);
    EXPECT_FALSE(listIsThere());
    EXPECT_EQ(liveCount(), 1);
    EXPECT_THAT(startingWith(world.settings.saved, "sys/left"), IsEmpty()) << "it stands where the first one stands";
}

TEST_F(ConsoleSecondStart, AGroupFillsTheListToTwelveLines)
{
    setList(std::vector<std::string>(10, "\"/films/old.avi\""));
    startWith(CommandLine{"", {film(0), film(1), film(2)}});
    EXPECT_TRUE(programEnded());
    ASSERT_EQ(list().size(), 12U);
    EXPECT_EQ(list()[11], alias(1));
}

TEST_F(ConsoleSecondStart, TheOwnerThatIsReadyJustInTimeIsSeen)
{
    world.instances.beforeTurn = [this] { ownerIsUp(); };
    startWith(alias(0));
    EXPECT_TRUE(console().SecondRun);
    EXPECT_FALSE(listIsThere());
}

TEST_F(ConsoleSecondStart, AloneAStartTakesItsFile)
{
    world.instances.another = false;
    ownerIsUp();
    startWith(alias(0));
    EXPECT_FALSE(console().SecondRun);
    EXPECT_EQ(liveCount(), 1) << "a mark left by a crash is no other process";
}

} // namespace tandrel::test
