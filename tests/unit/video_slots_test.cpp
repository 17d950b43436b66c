// The slot table: how windows come into it, how slots are given up, and who finds whom.

#include "player_bench.h"

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

class VideoSlots : public Player
{
protected:
    VideoSlots() { start(); }
    static std::vector<Text> liveFilms()
    {
        std::vector<Text> films;
        forEachLive([&](frmChild& window) { films.push_back(window.path()); });
        return films;
    }
};

} // namespace

TEST_F(VideoSlots, ANewSlotTakesIndexNextSlotWithCaptionAndAlias)
{
    NextSlot = 2;
    CurrentAlias = alias(0);
    frmChild& window = newSlot(film(0));
    ASSERT_EQ(VideoWindows.size(), 3U);
    EXPECT_EQ(VideoWindows[2].get(), &window);
    EXPECT_EQ(VideoWindows[0], nullptr);
    EXPECT_EQ(window.caption(), "§/films/a.avi");
    EXPECT_EQ(window.path(), "/films/a.avi");
    EXPECT_EQ(window.MediaFile, "\"/films/a.avi\"");
    EXPECT_EQ(window.tag(), "");
    EXPECT_TRUE(window.isLoaded());
    EXPECT_FALSE(window.visible());
    EXPECT_EQ(NextSlot, 2) << "the open counts, not the window";
}

TEST_F(VideoSlots, ANewWindowTakesItsLevelFromTheSliderAndRuns)
{
    console().VolumeSlider.Value = 35;
    CurrentAlias = alias(0);
    const frmChild& window = newSlot(film(0));
    EXPECT_EQ(window.Volume, 35);
    EXPECT_EQ(window.Paused, 0);
    EXPECT_FALSE(window.Full);
    EXPECT_EQ(window.Style.Client, &window);
}

TEST_F(VideoSlots, ADeadElementAtTheIndexIsReplaced)
{
    frmChild& dead = open(0);
    unload(dead);
    EXPECT_THAT(liveFilms(), IsEmpty());
    NextSlot = 0;
    open(1);
    EXPECT_EQ(VideoWindows.size(), 1U);
    EXPECT_EQ(liveCount(), 1);
    EXPECT_THAT(liveFilms(), ElementsAre("/films/b.avi"));
}

TEST_F(VideoSlots, ALiveWindowAtTheIndexLosesItsReferenceAndTheTableIsCutBehindIt)
{
    openSeveral(3);
    NextSlot = 1;
    open(7);
    EXPECT_EQ(VideoWindows.size(), 2U);
    EXPECT_THAT(liveFilms(), ElementsAre("/films/a.avi", "/films/h.avi"));
}

TEST_F(VideoSlots, SlotsClosedByHandStayDeadAndTheIndexGoesOn)
{
    openSeveral(2);
    unload(*VideoWindows[0]);
    unload(*VideoWindows[1]);
    EXPECT_EQ(NextSlot, 2);
    EXPECT_EQ(liveCount(), 0);
    open(2);
    EXPECT_EQ(VideoWindows.size(), 3U);
    EXPECT_THAT(liveFilms(), ElementsAre("/films/c.avi"));
}

TEST_F(VideoSlots, ASlotIsLiveWhileItsTrimmedAliasIsNotEmpty)
{
    frmChild& window = open(0);
    window.MediaFile = "   ";
    EXPECT_FALSE(window.isLive());
    EXPECT_EQ(liveCount(), 0);
    window.MediaFile = " x ";
    EXPECT_TRUE(window.isLive());
}

TEST_F(VideoSlots, AWalkSkipsEmptyAndDeadElementsAndBearsTheEndOfASlot)
{
    openSeveral(3);
    VideoWindows.insert(VideoWindows.begin() + 1, nullptr);
    std::vector<Text> visited;
    forEachLive([&](frmChild& window) {
        visited.push_back(window.path());
        if (visited.size() == 1)
            unload(*VideoWindows[2]);
        VideoWindows.clear();
    });
    EXPECT_THAT(visited, ElementsAre("/films/a.avi", "/films/c.avi"));
}

TEST_F(VideoSlots, TheSlotOfAnAliasIsTheFirstLiveOneThatMatchesExactly)
{
    openSeveral(2);
    VideoWindows[0]->MediaFile = " " + alias(1) + " ";
    EXPECT_EQ(slotPlaying(alias(1)), VideoWindows[0].get()) << "its own alias is trimmed";
    EXPECT_EQ(slotPlaying(alias(0)), nullptr);
    EXPECT_EQ(slotPlaying(upper(alias(1))), nullptr);
    EXPECT_EQ(slotPlaying(""), nullptr);
}

TEST_F(VideoSlots, APathIsTheSameMediumAsThePathABareNameAsTheFileName)
{
    EXPECT_TRUE(sameMedium("/films/a.avi", "/films/a.avi"));
    EXPECT_FALSE(sameMedium("/other/a.avi", "/films/a.avi"));
    EXPECT_TRUE(sameMedium("a.avi", "/films/a.avi"));
    EXPECT_FALSE(sameMedium("A.AVI", "/films/a.avi"));
    EXPECT_FALSE(sameMedium(".avi", "/films/a.avi"));
    EXPECT_FALSE(sameMedium("/films/a.avi", "a.avi"));
    EXPECT_FALSE(sameMedium("", "/films/"));
}

TEST_F(VideoSlots, DroppingAnEntryTakesTheFirstThatStandsForTheMedium)
{
    auto& open = console().List2;
    for (const char* entry : {"b.avi", "/films/a.avi", "a.avi"})
        open.AddItem(entry);
    EXPECT_TRUE(dropOpenEntry("/films/a.avi"));
    EXPECT_THAT(open.entries(), ElementsAre("b.avi", "a.avi"));
    EXPECT_TRUE(dropOpenEntry("/films/a.avi"));
    EXPECT_FALSE(dropOpenEntry("/films/a.avi"));
    EXPECT_THAT(open.entries(), ElementsAre("b.avi"));
}

TEST_F(VideoSlots, ASweepEmptiesFailedSlotsAndKeepsTheirWindowsAndTags)
{
    openSeveral(3);
    VideoWindows[1]->markFailed();
    const auto failed = VideoWindows[1];
    EXPECT_EQ(sweepFailedSlots(), 1);
    EXPECT_THAT(liveFilms(), ElementsAre("/films/a.avi", "/films/c.avi"));
    EXPECT_THAT(console().List2.entries(), ElementsAre("/films/a.avi", "/films/c.avi"));
    EXPECT_TRUE(failed->isLoaded());
    EXPECT_EQ(failed->tag(), "2");
    EXPECT_EQ(NextSlot, 3);
    EXPECT_EQ(sweepFailedSlots(), 0);
    EXPECT_THAT(world.mci.sent(), IsEmpty());
}

TEST_F(VideoSlots, DroppingFailedSlotsEndsTheirWindowsAndCountsEachOnce)
{
    openSeveral(4);
    VideoWindows[0]->markFailed();
    VideoWindows[2]->markFailed();
    VideoWindows[2]->Tag = " 2 ";
    const SlotTable before = VideoWindows;
    dropFailedSlots();
    EXPECT_EQ(NextSlot, 2);
    EXPECT_TRUE(before[0]->isDead());
    EXPECT_TRUE(before[2]->isDead());
    EXPECT_FALSE(before[1]->isDead());
    EXPECT_EQ(VideoWindows.size(), 4U) << "the table is not compacted";
    EXPECT_THAT(console().List2.entries(), ElementsAre("/films/b.avi", "/films/d.avi"));
    EXPECT_THAT(world.mci.sent(), IsEmpty()) << "a failed window is never sent a command";
    dropFailedSlots();
    EXPECT_EQ(NextSlot, 2);
}

TEST_F(VideoSlots, DroppingFailedSlotsNeverTakesTheIndexBelowZero)
{
    openSeveral(3);
    for (const auto& window : VideoWindows)
        window->markFailed();
    NextSlot = 1;
    dropFailedSlots();
    EXPECT_EQ(NextSlot, 0);
}

TEST_F(VideoSlots, AFailedWindowThatTheUserClosedIsStillCounted)
{
    openSeveral(2);
    VideoWindows[0]->markFailed();
    unload(*VideoWindows[0]);
    dropFailedSlots();
    EXPECT_EQ(NextSlot, 1);
}

TEST_F(VideoSlots, TheTitleHasFiftyBlanksBehindTheName)
{
    EXPECT_EQ(titleFor("a.avi"), " [ a.avi ] " + std::string(50, ' '));
}

} // namespace tandrel::test
