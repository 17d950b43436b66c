// Where windows stand after an open in which some files fail, and which of them leads.

#include "opening_bench.h"

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

class ConsoleOpenPlaces : public Opening
{
protected:
    void expectLead(int lead, int tile)
    {
        EXPECT_EQ(placeOf(lead), twips(0, 0, 1600, 900));
        EXPECT_EQ(video(lead).Paused, 0);
        EXPECT_EQ(CurrentAlias, alias(lead));
        EXPECT_EQ(placeOf(tile), twips(1600, 0, 320, 180));
        EXPECT_EQ(video(tile).Paused, 1);
    }
    std::vector<std::string> seeks() { return startingWith(commands(), "seek"); }
};

} // namespace

TEST_F(ConsoleOpenPlaces, TheLeadIsTheLastThatOpenedWhereTheLastFails)
{
    begin("1");
    breakFilm(2);
    openGroup({0, 1, 2});
    expectLead(1, 0);
    EXPECT_EQ(console().lblTitleBar.caption(), titleFor("b.avi"));
}

TEST_F(ConsoleOpenPlaces, TheLeadIsTheLastWhereOneBeforeItFails)
{
    begin("1");
    breakFilm(1);
    openGroup({0, 1, 2});
    expectLead(2, 0);
}

TEST_F(ConsoleOpenPlaces, WhereNothingNewOpensInPlayListModeTheFirstWindowStandsLargeAndIsNotSought)
{
    begin("1");
    openSeveral(2);
    breakFilm(2);
    openGroup({2});
    EXPECT_EQ(placeOf(0), twips(0, 0, 1600, 900));
    EXPECT_EQ(placeOf(1), twips(1600, 0, 320, 180));
    EXPECT_THAT(seeks(), ElementsAre("seek B to 15000"));
    EXPECT_EQ(video(0).Paused, 1);
    EXPECT_EQ(video(1).Paused, 1);
    EXPECT_EQ(CurrentAlias, "") << "nothing leads";
}

TEST_F(ConsoleOpenPlaces, WhereNothingNewOpensInPlayAllModeTheOpenOnesArePlacedAnewAndNothingIsPlayed)
{
    begin("0");
    openSeveral(2);
    for (int index : {0, 1})
        video(index).Move({150, 150, 1500, 1500});
    breakFilm(2);
    breakFilm(3);
    openGroup({2, 3});
    EXPECT_EQ(placeOf(0), twips(0, 0, 960, 540));
    EXPECT_EQ(placeOf(1), twips(960, 0, 960, 540));
    EXPECT_THAT(startingWith(commands(), "Play"), IsEmpty());
}

TEST_F(ConsoleOpenPlaces, InTheGridNothingIsSelectedWhereNothingOpens)
{
    begin("0");
    openSeveral(2);
    breakFilm(2);
    breakFilm(3);
    openGroup({2, 3});
    EXPECT_EQ(CurrentAlias, "");
}

TEST_F(ConsoleOpenPlaces, AFileThatFailsCountsForTheGridWhereEverythingIsReplaced)
{
    begin("0");
    breakFilm(1);
    presetSingle({0, 1, 2, 3, 4});
    EXPECT_EQ(placeOf(0), twips(0, 0, 640, 540));
    EXPECT_EQ(placeOf(2), twips(640, 0, 640, 540));
    EXPECT_EQ(placeOf(3), twips(1280, 0, 640, 540));
    EXPECT_EQ(placeOf(4), twips(0, 540, 640, 540)) << "the cells of five, without a gap";
    EXPECT_FALSE(video(1).visible());
}

// The numbers of its picture, as they are, until it is placed.

TEST_F(ConsoleOpenPlaces, AWindowHasTheNumbersOfItsPictureUntilItIsPlaced)
{
    for (const bool replacing : {false, true}) {
        begin("0");
        int checked = 0;
        world.mci.onSend = [&](const std::string& command) {
            if (command != "put " + alias(0) + " window at 0 0 640 480")
                return;
            EXPECT_EQ(video(0).height(), 480);
            EXPECT_EQ(video(0).width(), 640);
            ++checked;
        };
        if (replacing)
            presetSingle({0});
        else
            openGroup({0});
        world.mci.onSend = nullptr;
        EXPECT_EQ(checked, 1);
        unload(video(0));
        NextSlot = 0;
        VideoWindows.clear();
    }
}

TEST_F(ConsoleOpenPlaces, AModeThatPlacesNothingLeavesTheNumbersOfThePicture)
{
    begin("7");
    openGroup({0});
    EXPECT_EQ(video(0).height(), 480);
    EXPECT_EQ(video(0).width(), 640);
}

// The tip beside the column.

TEST_F(ConsoleOpenPlaces, WithoutTipsTheTipOfTheColumnDoesNotCome)
{
    begin("1");
    console().TipsOn = "0";
    openGroup({0, 1});
    EXPECT_FALSE(Loaded<class frmToolTip>());
}

TEST_F(ConsoleOpenPlaces, BesideOneVideoThereIsNoColumnAndNoTip)
{
    begin("1");
    console().TipsOn = "1";
    openGroup({0});
    EXPECT_FALSE(Loaded<class frmToolTip>());
    openGroup({1});
    EXPECT_TRUE(Loaded<class frmToolTip>()) << "with the second it comes";
}

} // namespace tandrel::test
