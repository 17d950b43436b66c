// In which order the commands that open files show, paint, and speak to the devices.

#include "opening_bench.h"

namespace tandrel::test
{

using ::testing::ElementsAre;

namespace
{

class ConsoleOpenOrder : public Opening
{
protected:
    ConsoleOpenOrder() { world.backend.windows = true; }

    /// The user looks at the console whenever a file is opened, so that the notice has to come back.
    void lookAwayAtEachOpen()
    {
        world.mci.onSend = [this](const std::string& command) {
            if (command.starts_with("Open "))
                console().SetFocus();
        };
    }
};

} // namespace

TEST_F(ConsoleOpenOrder, WhereEverythingIsReplacedAJumpIsPausedBeforeTheNotice)
{
    begin("1");
    open(0);
    FastForward = true;
    chooseSingle(film(1));
    EXPECT_THAT(steps({"Pause A", "frmWait show"}), ElementsAre("Pause A", "frmWait show"));
}

TEST_F(ConsoleOpenOrder, AGroupPausesAJumpBehindTheNoticeAndPaintsTheConsoleThen)
{
    begin("1");
    open(0);
    FastForward = true;
    openGroup({1});
    const auto found = steps({"Pause A", "frmWait show", "frmMedia repaint"});
    ASSERT_GE(found.size(), 3U);
    EXPECT_EQ(found[0], "frmWait show");
    EXPECT_EQ(found[1], "Pause A");
    EXPECT_EQ(found[2], "frmMedia repaint");
}

TEST_F(ConsoleOpenOrder, TheNoticeComesBackAfterEachWindowThatIsClosedAndEachFileThatIsOpened)
{
    begin("0");
    openSeveral(2);
    spoil(2);
    lookAwayAtEachOpen();
    presetSingle({2, 3});
    EXPECT_THAT(steps({"Close ", "Open ", "frmWait show", "frmWait repaint", "frmWait activate", "frmMedia repaint"}),
                ElementsAre("frmWait show", "frmWait activate",                //
                            "Close A", "frmWait repaint", "frmWait activate",  //
                            "Close B", "frmWait repaint", "frmWait activate",  //
                            "frmMedia repaint",                                //
                            "Open C", "frmWait repaint", "frmWait activate",   //
                            "Open D", "frmWait repaint", "frmWait activate")); //
}

TEST_F(ConsoleOpenOrder, InAGroupTheNoticeComesBackAfterEachFile)
{
    begin("7");
    spoil(1);
    lookAwayAtEachOpen();
    openGroup({0, 1, 2});
    EXPECT_THAT(steps({"Open ", "frmWait show", "frmWait repaint", "frmWait activate"}),
                ElementsAre("frmWait show", "frmWait activate",              //
                            "Open A", "frmWait repaint", "frmWait activate", //
                            "Open B", "frmWait repaint", "frmWait activate", //
                            "Open C", "frmWait repaint", "frmWait activate"));
}

TEST_F(ConsoleOpenOrder, WhereEverythingIsReplacedAWindowIsPaintedThenPlaysThenIsShown)
{
    begin("0");
    presetSingle({0, 1});
    EXPECT_THAT(
        steps({"frmChild repaint", "Play ", "frmChild show"}),
        ElementsAre("frmChild repaint", "Play A", "frmChild show", "frmChild repaint", "Play B", "frmChild show"));
}

TEST_F(ConsoleOpenOrder, InPlayAllModeAWindowIsPaintedThenPlaysThenIsShown)
{
    begin("0");
    openGroup({0, 1});
    EXPECT_THAT(
        steps({"frmChild repaint", "Play ", "frmChild show"}),
        ElementsAre("frmChild repaint", "Play A", "frmChild show", "frmChild repaint", "Play B", "frmChild show"));
}

TEST_F(ConsoleOpenOrder, InPlayListModeAWindowIsShownBeforeItPlaysAndOnceMoreWithoutTheFocusForTheNotice)
{
    begin("1");
    openGroup({0, 1});
    const auto all = steps({"frmChild repaint", "frmChild show", "Play ", "frmChild raise", "frmWait repaint",
                            "frmWait activate", "frmChild activate"});
    const std::vector<std::string> found(std::find(all.begin(), all.end(), "frmChild repaint"), all.end());
    EXPECT_THAT(found, ElementsAre("frmChild repaint", "frmChild show", "frmChild activate", "Play A", "frmChild raise",
                                   "frmWait repaint", //
                                   "frmChild repaint", "frmChild show", "frmChild activate", "Play B", "frmChild raise",
                                   "frmWait repaint", "Play B"))
        << "the lead goes on at the end";
}

TEST_F(ConsoleOpenOrder, ADiscGivesTheConsoleTheFocusAtItsEnd)
{
    begin("0");
    int turns = 0;
    // The console takes a turn at each activation.
    world.instances.beforeTurn = [&] { ++turns; };
    console().OpenSingleVideoDVD();
    EXPECT_EQ(turns, 1);
    EXPECT_EQ(activeForm(), &console());
    EXPECT_EQ(screen().MousePointer(), pointer::kDefault);
}

TEST_F(ConsoleOpenOrder, TheNoticeOfADiscShowsNoCountOfAnEarlierGroup)
{
    begin("0");
    openGroup({0, 1, 2});
    ASSERT_EQ(console().List1.ListCount(), 3);
    int checked = 0;
    world.mci.onSend = [&](const std::string& command) {
        if (!command.starts_with("Close"))
            return;
        EXPECT_TRUE(frmWait().visible());
        EXPECT_FALSE(frmWait().lblCount.visible());
        EXPECT_FALSE(frmWait().barDone.visible());
        ++checked;
    };
    console().OpenSingleVideoDVD();
    EXPECT_GE(checked, 3);
}

} // namespace tandrel::test
