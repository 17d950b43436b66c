// A film in two files, the second of which follows the first by itself.

#include "monitor_bench.h"

#include "toolkit/activation.h"

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

class ConsoleMonitorSecondDisc : public MonitorBench
{
protected:
    /// The first disc alone, at its end.
    frmChild& firstDisc(const Text& path = "/films/Film cd1.avi", const Text& next = "/films/Film cd2.avi")
    {
        first = path;
        second = next;
        start("0");
        CurrentAlias = tandrel::quoted(path);
        frmChild& window = newSlot(path);
        NextSlot += 1;
        console().List1.AddItem(path);
        console().List2.AddItem(path);
        window.Show();
        world.files.content[path] = {};
        if (!next.empty())
            world.files.content[next] = {};
        world.mci.answer("status " + tandrel::quoted(path) + " position", "60000");
        world.mci.clear();
        world.journal.clear();
        return window;
    }
    /// The commands with A for the first disc and B for the second.
    std::vector<std::string> discCommands()
    {
        std::vector<std::string> all = sentBy(console().Timer1);
        for (std::string& command : all)
            for (const auto& [alias, letter] : {std::pair{tandrel::quoted(first), 'A'}, {tandrel::quoted(second), 'B'}})
                for (auto at = command.find(alias); at != std::string::npos; at = command.find(alias))
                    command.replace(at, alias.size(), 1, letter);
        return all;
    }
    Text first;
    Text second;
};

} // namespace

TEST_F(ConsoleMonitorSecondDisc, ItOpensInThePlaceOfTheFirst)
{
    frmChild& window = firstDisc();
    window.Volume = 30;
    window.Move({1500, 1500, 4500, 3000});
    ASSERT_EQ(window.picVideo.width(), 4400);
    world.mci.answer("status " + tandrel::quoted(second) + " length", "3723000");
    world.mci.answer("status " + tandrel::quoted(second) + " position", "0");
    EXPECT_THAT(discCommands(),
                ElementsAre("set A time format ms", "status A position", "status A length", "set A time format frames",
                            "status A length", "set A time format ms", "status A length", "put A window at 0 0 293 200",
                            "put A window at 0 0 300 200", "Close A",
                            "Open B Type MPEGVideo alias B parent 0 style child", "set B time format ms",
                            "status B position", "seek B to 0", "Play B", "setaudio B Volume to 300",
                            "set B time format frames", "status B length", "set B time format ms", "status B length",
                            "put B window at 0 0 293 172"));
    EXPECT_EQ(CurrentAlias, tandrel::quoted(second));
    EXPECT_EQ(window.MediaFile, tandrel::quoted(second));
    EXPECT_EQ(window.Caption(), "§" + second);
    EXPECT_EQ(console().lblTitleBar.caption(), titled("Film cd2.avi"));
    EXPECT_EQ(console().lblDuration.caption(), "1:02:03");
    EXPECT_EQ(window.Duration, "1:02:03");
    EXPECT_EQ(rectOf(window), (Rect{1500, 1500, 4500, 2985}));
    EXPECT_EQ(rectOf(window.picVideo), (Rect{0, 0, 4400, 2585}));
    EXPECT_TRUE(window.picVideo.visible());
    EXPECT_EQ(activeForm(), &console());
    EXPECT_EQ(console().RefitTicks, 0);
    EXPECT_TRUE(FullMedia.empty());
}

TEST_F(ConsoleMonitorSecondDisc, ThePictureIsOutOfSightMeanwhile)
{
    frmChild& window = firstDisc();
    window.Move({1500, 1500, 4500, 3000});
    bool closed = false;
    world.mci.onSend = [&](const std::string& command) {
        if (command != "Close " + tandrel::quoted(first))
            return;
        closed = true;
        EXPECT_FALSE(window.picVideo.visible());
        EXPECT_EQ(rectOf(window.picVideo), (Rect{0, -25000, 4500, 3000}));
        EXPECT_EQ(window.path(), first);
    };
    tick1();
    EXPECT_TRUE(closed);
    const TwipsRect kept = console().FullPicture;
    EXPECT_EQ(kept.left, 0);
    EXPECT_EQ(kept.top, 0);
    EXPECT_EQ(kept.width, 4400);
    EXPECT_EQ(kept.height, 2600);
}

TEST_F(ConsoleMonitorSecondDisc, ThePictureIsPaintedAnewOutOfSightAndBeforeItIsSeenAgain)
{
    world.backend.windows = true;
    firstDisc();
    tick1();
    const auto steps = chosen(world.journal, [](const std::string& line) {
        return line == "frmChild.picVideo hidden" || line == "frmChild.picVideo repaint" ||
               line == "frmChild.picVideo shown" || line.starts_with("Close ") || line == "frmMedia activate";
    });
    EXPECT_THAT(steps,
                ElementsAre("frmChild.picVideo hidden", "frmChild.picVideo repaint", "Close " + tandrel::quoted(first),
                            "frmMedia activate", "frmChild.picVideo repaint", "frmChild.picVideo shown"));
}

TEST_F(ConsoleMonitorSecondDisc, ItsLengthIsCutAsOneWithASingleFigureForItsHours)
{
    const frmChild& window = firstDisc();
    world.mci.answer("status " + tandrel::quoted(second) + " length", "36309000");
    tick1();
    EXPECT_EQ(console().lblDuration.caption(), "1::0::0") << "of 10:05:09";
    EXPECT_EQ(window.Duration, "1::0::0");
}

TEST_F(ConsoleMonitorSecondDisc, AHeldWindowHoldsTheSecondToo)
{
    firstDisc().Paused = 1;
    world.mci.answer("status " + tandrel::quoted(second) + " position", "0");
    EXPECT_THAT(discCommands(), ::testing::Contains("Pause B"));
}

TEST_F(ConsoleMonitorSecondDisc, TheFirstLeavesBothListsAndTheSecondComesIntoTheListOfTheOpen)
{
    firstDisc();
    console().List1.AddItem(first);
    tick1();
    EXPECT_THAT(console().List2.entries(), ElementsAre(second));
    EXPECT_THAT(console().List1.entries(), ElementsAre(first)) << "only the first match goes";
}

TEST_F(ConsoleMonitorSecondDisc, ABareNameInTheListsIsTheFirstDiscToo)
{
    firstDisc();
    console().List1.Clear();
    console().List2.Clear();
    console().List1.AddItem("Film cd1.avi");
    console().List2.AddItem("Film cd1.avi");
    tick1();
    EXPECT_THAT(console().List1.entries(), IsEmpty());
    EXPECT_THAT(console().List2.entries(), ElementsAre(second));
}

TEST_F(ConsoleMonitorSecondDisc, AFileOfThatNameInAnotherFolderStaysInTheLists)
{
    firstDisc();
    console().List1.Clear();
    console().List1.AddItem("/other/Film cd1.avi");
    console().List1.AddItem(first);
    tick1();
    EXPECT_THAT(console().List1.entries(), ElementsAre("/other/Film cd1.avi"));
}

TEST_F(ConsoleMonitorSecondDisc, TheLettersOfTheNameStayAsTheyAreAndTheFirstPlaceCounts)
{
    for (const auto& [path, next] : {std::pair<Text, Text>{"/films/a CD1.avi", "/films/a CD2.avi"},
                                     {"/films/a Cd1.avi", "/films/a Cd2.avi"},
                                     {"/cD1/cd1.avi", "/cD2/cd1.avi"},
                                     {"/films/cd10.avi", "/films/cd20.avi"}}) {
        frmChild& window = firstDisc(path, next);
        tick1();
        EXPECT_EQ(window.path(), next);
        window.MediaFile.clear();
        console().List2.Clear();
    }
}

TEST_F(ConsoleMonitorSecondDisc, WithoutASecondFileNothingHappensAtAnyTick)
{
    const frmChild& window = firstDisc("/films/Film cd1.avi", "");
    console().SlideMode = "1";
    console().lblCurTime.Caption = "0:00:59";
    for (int tick = 0; tick < 40; ++tick)
        tick1();
    EXPECT_EQ(console().EndTicks, 0);
    EXPECT_EQ(window.MediaFile, tandrel::quoted(first));
    EXPECT_THAT(startingWith(world.mci.sent(), "seek"), IsEmpty());
    EXPECT_THAT(startingWith(world.mci.sent(), "Play"), IsEmpty());
    EXPECT_EQ(console().lblCurTime.caption(), "0:00:00") << "the display is that of the end";
}

TEST_F(ConsoleMonitorSecondDisc, WithAnotherVideoOpenTheWindowStaysAtItsEnd)
{
    const frmChild& window = firstDisc();
    console().List2.AddItem(film(3));
    for (int tick = 0; tick < 40; ++tick) {
        console().SlideMode = tick < 20 ? "0" : "1";
        tick1();
    }
    EXPECT_EQ(window.MediaFile, tandrel::quoted(first));
    EXPECT_EQ(console().EndTicks, 0);
    EXPECT_THAT(startingWith(world.mci.sent(), "Open"), IsEmpty());
    EXPECT_THAT(startingWith(world.mci.sent(), "Close"), IsEmpty());
}

TEST_F(ConsoleMonitorSecondDisc, WithNoWindowOfThatAliasNothingIsOpened)
{
    firstDisc().MediaFile = alias(5);
    tick1();
    EXPECT_EQ(CurrentAlias, tandrel::quoted(first));
    EXPECT_THAT(startingWith(world.mci.sent(), "Open"), IsEmpty());
}

TEST_F(ConsoleMonitorSecondDisc, InFullScreenThePictureStaysFullAndIsFittedLater)
{
    world.backend.windows = true;
    frmChild& window = firstDisc();
    rightPressOn(window);
    ASSERT_TRUE(window.Full);
    window.picVideo.BorderStyle = 1;
    world.journal.clear();
    tick1();
    EXPECT_EQ(FullMedia, tandrel::quoted(second));
    EXPECT_EQ(console().RefitTicks, 1);
    EXPECT_TRUE(window.Full);
    EXPECT_FALSE(window.hasTitleBar());
    EXPECT_FALSE(window.hasBorder());
    EXPECT_EQ(window.picVideo.borderStyle(), 0);
    EXPECT_EQ(window.Caption(), "§" + second);
    EXPECT_THAT(startingWith(world.journal, "frmChild frame"),
                ElementsAre("frmChild frame titled borderless", "frmChild frame titled bordered",
                            "frmChild frame untitled bordered", "frmChild frame untitled borderless"));
    EXPECT_THAT(startingWith(world.journal, "frmMedia activate"), IsEmpty());
    for (int tick = 0; tick < 5; ++tick)
        tick2();
    EXPECT_EQ(console().RefitTicks, 0);
    EXPECT_EQ(rectOf(window), (Rect{0, 0, 28800, 16200}));
    EXPECT_EQ(rectOf(window.picVideo), (Rect{0, 0, 28800, 16200}));
    EXPECT_TRUE(window.picVideo.visible());
}

TEST_F(ConsoleMonitorSecondDisc, ASecondDiscThatCannotBePlayedSaysSo)
{
    frmChild& window = firstDisc();
    const Text handle = std::to_string(window.picVideo.hWnd());
    world.mci.fail("Open " + tandrel::quoted(second) + " Type MPEGVideo alias " + tandrel::quoted(second) + " parent " +
                       handle + " style child",
                   277);
    tick1();
    EXPECT_TRUE(window.hasFailed());
    EXPECT_FALSE(window.picVideo.visible());
    EXPECT_EQ(window.path(), second);
    EXPECT_THAT(sentBy(console().Timer1), IsEmpty()) << "it is asked nothing more";
}

TEST_F(ConsoleMonitorSecondDisc, OddBytesInTheNameAreKept)
{
    frmChild& window = firstDisc("/films/\xff\x80 cd1\xfe.avi", "/films/\xff\x80 cd2\xfe.avi");
    tick1();
    EXPECT_EQ(window.path(), "/films/\xff\x80 cd2\xfe.avi");
    EXPECT_EQ(console().lblTitleBar.caption(), titled("\xff\x80 cd2\xfe.avi"));
    EXPECT_THAT(console().List2.entries(), ElementsAre("/films/\xff\x80 cd2\xfe.avi"));
}

} // namespace tandrel::test
