// The tip of PlayList Mode: what it says, its button under the pointer, how it goes, and what is kept of that.

#include "player_bench.h"

#include "texts/frm_tool_tip.h"
#include "texts/localised.h"

namespace tandrel::test
{

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

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
    /// The tip anew, with a window.
    void showWithAWindow()
    {
        Unload<class frmToolTip>();
        world.backend.windows = true;
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

TEST_F(TextsToolTip, TheButtonUnderTheOtherOneClosesItToo)
{
    frmToolTip().imgExit1.userClick();
    EXPECT_FALSE(Loaded<class frmToolTip>());
    EXPECT_EQ(console().TipsOn, "0");
}

TEST_F(TextsToolTip, ClosedInAnotherWayItMayComeAgain)
{
    frmToolTip().chkToolTip.Value = 1;
    frmToolTip().userClose();
    EXPECT_FALSE(Loaded<class frmToolTip>());
    EXPECT_EQ(console().TipsOn, "1");
    EXPECT_THAT(world.settings.saved, IsEmpty());
}

TEST_F(TextsToolTip, ItsButtonLightsUpUnderThePointer)
{
    class frmToolTip& tip = frmToolTip();
    EXPECT_FALSE(tip.imgExit.visible());
    EXPECT_EQ(rectOf(tip.imgExit), rectOf(tip.imgExit1));
    tip.imgExit1.userMouseMove({});
    EXPECT_TRUE(tip.imgExit.visible());
    tip.MouseMove({});
    EXPECT_FALSE(tip.imgExit.visible());
    tip.imgExit1.userMouseMove({});
    tip.imgBody.userMouseMove({});
    EXPECT_FALSE(tip.imgExit.visible()) << "the picture covers all of the form";
    EXPECT_TRUE(tip.imgExit1.visible());
}

TEST_F(TextsToolTip, IsCutToItsPicture)
{
    world.backend.pictures["tip"] = {4, 2, {0, 9, 0, 9, 0, 9, 9, 9}};
    showWithAWindow();
    EXPECT_THAT(world.journal, Contains("frmToolTip region of 3"));
    EXPECT_FALSE(frmToolTip().Maschera.visible());
    EXPECT_EQ(frmToolTip().Maschera.picture(), frmToolTip().imgBody.picture());
}

TEST_F(TextsToolTip, TheConsoleDoesNotWaitForIt)
{
    openSeveral(2);
    Unload<class frmToolTip>();
    world.backend.windows = true;
    console().SlideShow();
    EXPECT_THAT(world.journal, Contains("frmToolTip show"));
    EXPECT_THAT(world.journal, Not(Contains("frmToolTip modal")));
    EXPECT_NE(frmToolTip().windowWord(style::kExtendedWord) & style::kToolWindow, 0) << "no place in the task bar";
}

TEST_F(TextsToolTip, SaysItsTwoLinesInTheUsersLanguage)
{
    for (const auto code : kTextLanguages) {
        Unload<class frmToolTip>();
        Language = code;
        EXPECT_EQ(frmToolTip().lblToolTip.caption(),
                  localisedIn("frmToolTip.line1", code) + "\n" + localisedIn("frmToolTip.line2", code));
        EXPECT_EQ(frmToolTip().imgExit.toolTip(), localisedIn("system.close", code));
        EXPECT_EQ(frmToolTip().lblTool.caption(), "Don't show again this message") << "in every language";
    }
}

TEST_F(TextsToolTip, ItsBoxIsNotTicked)
{
    EXPECT_EQ(frmToolTip().chkToolTip.value(), 0);
    EXPECT_EQ(frmToolTip().chkToolTip.toolTip(), "Don't show again this message") << "spoken, as it has no caption";
}

TEST_F(TextsToolTip, TheTextBesideTheBoxTicksItToo)
{
    frmToolTip().Show();
    frmToolTip().lblTool.userClick();
    EXPECT_EQ(frmToolTip().chkToolTip.value(), 1);
    frmToolTip().lblTool.userClick();
    EXPECT_EQ(frmToolTip().chkToolTip.value(), 0);
}

} // namespace tandrel::test
