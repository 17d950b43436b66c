// The tip of PlayList Mode: how it goes, and what is kept of that.

#include "player_bench.h"

#include "texts/frm_tool_tip.h"

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

class TextsToolTip : public Player
{
protected:
    TextsToolTip()
    {
        start();
        console().TipsOn = "1";
        world.settings.saved.clear();
        frmToolTip().Show();
    }
};

} // namespace

TEST_F(TextsToolTip, ClosedItStaysAwayForThisRun)
{
    frmToolTip().imgExit.userClick();
    EXPECT_FALSE(Loaded<class frmToolTip>());
    EXPECT_EQ(console().TipsOn, "0");
    EXPECT_THAT(world.settings.saved, IsEmpty());
}

TEST_F(TextsToolTip, ClosedWithItsBoxTickedItStaysAwayForEver)
{
    frmToolTip().chkToolTip.Value = 1;
    frmToolTip().imgExit.userClick();
    EXPECT_FALSE(Loaded<class frmToolTip>());
    EXPECT_EQ(console().TipsOn, "0");
    EXPECT_THAT(world.settings.saved, ElementsAre("sys/tips=0"));
}

} // namespace tandrel::test
