// The sign of videos that are shown with less than they have.

#include "player_bench.h"

#include "texts/localised.h"

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::SizeIs;
using ::testing::StartsWith;

namespace
{

class ConsoleLoadSign : public Player
{
protected:
    void tick()
    {
        console().Timer2.Enabled = true;
        console().Timer2.tick();
    }
};

} // namespace

TEST_F(ConsoleLoadSign, ShowsOnlyWhileThereIsSomethingToTell)
{
    start("0");
    openSeveral(2);
    tick();
    EXPECT_FALSE(console().imgLoad.visible());
    world.mci.easedVideos = 7;
    tick();
    EXPECT_TRUE(console().imgLoad.visible());
    EXPECT_THAT(console().imgLoad.toolTip(), StartsWith("Videos with fewer pictures"));
    EXPECT_THAT(console().imgLoad.toolTip(), EndsWith(" 7"));
    world.mci.easedVideos = 0;
    tick();
    EXPECT_FALSE(console().imgLoad.visible());
}

TEST_F(ConsoleLoadSign, SpeaksTheUsersLanguage)
{
    start("0");
    openSeveral(2);
    Language = "DE";
    world.mci.easedVideos = 1;
    tick();
    EXPECT_EQ(console().imgLoad.toolTip(), "Videos mit weniger Bildern, damit der Rechner mitkommt: 1");
}

TEST_F(ConsoleLoadSign, TheMediaServiceKnowsTheSelectedVideo)
{
    start("0");
    openSeveral(2);
    VideoWindows[0]->SetFocus();
    world.mci.favoured.clear();
    tick();
    VideoWindows[1]->SetFocus();
    tick();
    EXPECT_THAT(world.mci.favoured, ElementsAre(VideoWindows[0]->path(), VideoWindows[1]->path()));
    tick();
    EXPECT_THAT(world.mci.favoured, SizeIs(3)) << "what was opened anew has the same name";
}

} // namespace tandrel::test
