// The menu of the two arrangements.

#include "player_bench.h"

#include "console/slidemenu.h"

namespace tandrel::test
{

using ::testing::ElementsAre;

namespace
{

using ConsoleSlidemenu = Player;

void choose(World& world, const char* entry)
{
    world.backend.menuChoice = entry;
    frmMedia().imgResize.userClick();
}

} // namespace

TEST_F(ConsoleSlidemenu, ShowsTheModeThatHoldsAtItsLoad)
{
    start("0");
    EXPECT_TRUE(slidemenu().mnuSlideCenter.Checked());
    EXPECT_FALSE(slidemenu().mnuSlideLeft.Checked());
    Unload<class slidemenu>();
    console().SlideMode = "1";
    EXPECT_FALSE(slidemenu().mnuSlideCenter.Checked());
    EXPECT_TRUE(slidemenu().mnuSlideLeft.Checked());
    Unload<class slidemenu>();
    console().SlideMode = "";
    EXPECT_TRUE(slidemenu().mnuSlideLeft.Checked()) << "all but \"0\"";
    EXPECT_EQ(slidemenu().mnuSlideCenter.Caption(), "Allign to &Center [PlayAll Mode]");
    EXPECT_EQ(slidemenu().mnuSlideLeft.Caption(), "Allign to &Side [PlayList Mode]");
}

TEST_F(ConsoleSlidemenu, TheButtonPopsItUp)
{
    start("0");
    choose(world, "");
    EXPECT_THAT(world.backend.menus, ElementsAre("slidemenu.popup"));
    EXPECT_EQ(console().SlideMode, "0");
}

TEST_F(ConsoleSlidemenu, CenterLaysOutTheGridAndIsKept)
{
    start("1");
    openSeveral(2);
    world.settings.saved.clear();
    choose(world, "mnuSlideCenter");
    EXPECT_EQ(console().SlideMode, "0");
    EXPECT_THAT(world.settings.saved, ElementsAre("sys/slide=0"));
    EXPECT_TRUE(slidemenu().mnuSlideCenter.Checked());
    EXPECT_FALSE(slidemenu().mnuSlideLeft.Checked());
    EXPECT_THAT(startingWith(commands(), "Play"), ElementsAre("Play A ", "Play B ", "Play A", "Play B"));
    EXPECT_THAT(startingWith(commands(), "seek"), ElementsAre("seek A to 0", "seek B to 0"))
        << "the mode is still that of the list while the grid is laid out, so all begin anew";
}

TEST_F(ConsoleSlidemenu, SideLaysOutTheListAndForgetsADrag)
{
    start("0");
    openSeveral(2);
    console().WindowDragged = true;
    world.settings.saved.clear();
    choose(world, "mnuSlideLeft");
    EXPECT_EQ(console().SlideMode, "1");
    EXPECT_FALSE(console().WindowDragged);
    EXPECT_THAT(world.settings.saved, ElementsAre("sys/slide=1"));
    EXPECT_FALSE(slidemenu().mnuSlideCenter.Checked());
    EXPECT_TRUE(slidemenu().mnuSlideLeft.Checked());
    EXPECT_GT(VideoWindows[1]->width(), VideoWindows[0]->width()) << "the selected one leads";
}

} // namespace tandrel::test
