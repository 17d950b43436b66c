// Files that are open already, or named twice, when files are opened.

#include "opening_bench.h"

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

class ConsoleOpenKnown : public Opening
{
protected:
    /// A window as a start with a path or a hand-over leaves it: the list has no more than the name.
    frmChild& openByName(int index)
    {
        CurrentAlias = alias(index);
        frmChild& window = newSlot(film(index));
        NextSlot += 1;
        console().List2.AddItem(fileNameOf(film(index)));
        window.Show();
        console().SetFocus();
        forgetWhatWasSaid();
        return window;
    }
    const std::vector<Text>& list1() { return console().List1.entries(); }
    const std::vector<Text>& list2() { return console().List2.entries(); }
    std::vector<std::string> opens()
    {
        std::vector<std::string> found;
        for (const std::string& line : startingWith(commands(), "Open "))
            found.push_back(line.substr(0, 6));
        return found;
    }
    Text choose(const std::vector<Text>& paths)
    {
        world.backend.choices = {paths};
        Text chosen;
        console().GetFiles("A title", chosen);
        return chosen;
    }
};

} // namespace

TEST_F(ConsoleOpenKnown, AFileThatTheListKnowsByItsNameGetsNoSecondWindowFromAGroup)
{
    begin("0");
    openByName(0);
    chooseGroup({film(0)});
    EXPECT_THAT(opens(), IsEmpty());
    preset({film(0)});
    pressOpen();
    EXPECT_THAT(opens(), IsEmpty());
    chooseGroup(films({0, 1}));
    EXPECT_THAT(opens(), ElementsAre("Open B"));
    preset(films({0, 2}));
    pressOpen();
    EXPECT_THAT(opens(), ElementsAre("Open C"));
    EXPECT_EQ(liveCount(), 3);
    EXPECT_THAT(list2(), ElementsAre("a.avi", film(1), film(2)));
}

TEST_F(ConsoleOpenKnown, WhereEverythingIsReplacedItGetsTheFocusAndNothingIsClosed)
{
    begin("0");
    frmChild& window = openByName(0);
    openByName(1);
    chooseSingle(film(0));
    EXPECT_THAT(opens(), IsEmpty());
    EXPECT_THAT(startingWith(commands(), "Close"), IsEmpty());
    EXPECT_EQ(activeForm(), &window);
    EXPECT_EQ(CurrentAlias, alias(0));
    EXPECT_THAT(list2(), ElementsAre("a.avi", "b.avi"));
}

TEST_F(ConsoleOpenKnown, SeveralThatReplaceOneOfThemLeaveTheLastNewEntry)
{
    begin("0");
    openSeveral(2);
    presetSingle({2, 3, 0});
    EXPECT_THAT(list2(), ElementsAre(film(3)));
    EXPECT_THAT(opens(), ElementsAre("Open C", "Open D")) << "the one that was open is not among the new ones";
    EXPECT_EQ(liveCount(), 2);
}

TEST_F(ConsoleOpenKnown, ItsNewEntryOutlivesTheWindowKnownByItsName)
{
    begin("0");
    openByName(0);
    presetSingle({1, 0});
    EXPECT_THAT(list2(), ElementsAre(film(0)));
}

TEST_F(ConsoleOpenKnown, SeveralThatReplaceOneKnownByItsNameOpenItAnew)
{
    begin("0");
    openByName(0);
    presetSingle({0, 1});
    EXPECT_THAT(list2(), ElementsAre(film(1)));
    EXPECT_EQ(liveCount(), 2);
    EXPECT_THAT(opens(), ElementsAre("Open A", "Open B"));
}

TEST_F(ConsoleOpenKnown, AGroupTakesAFileThatIsGoneAgainWhereOnlyTheListHasIt)
{
    begin("0");
    console().List2.AddItem(film(0));
    choose(films({0, 1}));
    EXPECT_THAT(list1(), ElementsAre(film(0), film(1)));
    EXPECT_THAT(list2(), ElementsAre(film(0), film(0), film(1)));
    console().List2.Clear();
    world.files.content[film(0)] = {};
    console().List2.AddItem(film(0));
    choose(films({0, 1}));
    EXPECT_THAT(list1(), ElementsAre(film(1))) << "one that is there is the same";
}

TEST_F(ConsoleOpenKnown, AFileThatASelectionNamesTwiceIsTakenOnce)
{
    begin("0");
    choose(films({0, 1, 0}));
    EXPECT_THAT(list1(), ElementsAre(film(0), film(1)));
    EXPECT_THAT(list2(), ElementsAre(film(0), film(1)));
}

TEST_F(ConsoleOpenKnown, WhatIsDroppedGoesToTheRecentFilesAndNotWhatIsHandedOverMeanwhile)
{
    begin("0");
    for (const int index : {0, 1, 5})
        world.files.content[film(index)] = {};
    world.mci.onSend = [this](const std::string& command) {
        if (command.starts_with("Open " + alias(0)))
            world.files.content["/data/list.dat"] = {alias(5)};
    };
    console().DropFiles(films({0, 1}));
    EXPECT_THAT(opens(), ElementsAre("Open A", "Open B", "Open F")) << "what waited is opened then";
    EXPECT_THAT(world.files.content["/data/last.dat"], ElementsAre(film(0), film(1)));
}

} // namespace tandrel::test
