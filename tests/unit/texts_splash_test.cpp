// The splash: what it says, how long it stands, and which starts have one.

#include "player_bench.h"

#include "console/command_line.h"
#include "console/frm_start.h"
#include "console/version.h"
#include "desktop/monitors.h"
#include "texts/frm_splash.h"

namespace tandrel::test
{

using ::testing::Contains;
using ::testing::MatchesRegex;

namespace
{

class TextsSplash : public Player
{
protected:
    TextsSplash()
    {
        world.backend.whileModal["frmSplash"] = [this](Form&) { ++shown; };
    }
    static void tick(int times)
    {
        for (int tick = 0; tick < times; ++tick)
            frmSplash().Timer1.tick();
    }
    int shown = 0;
};

} // namespace

TEST_F(TextsSplash, NamesTheVersionInThreeNumbersAndTheYear)
{
    world.clock.month = 203107;
    EXPECT_THAT(frmSplash().lblVersion.caption(), MatchesRegex("vers\\. [0-9]+\\.[0-9][0-9]\\.[0-9][0-9]"));
    EXPECT_EQ(frmSplash().lblVersion.caption(), "vers. " + versionText());
    EXPECT_EQ(frmSplash().lblCopy.caption(), "© 2031 Tandrel Player");
    EXPECT_EQ(frmSplash().lblVers.caption(), "");
    EXPECT_EQ(frmSplash().Timer1.interval(), 500);
    EXPECT_TRUE(frmSplash().Timer1.running());
}

TEST_F(TextsSplash, TheFifthTickShowsTheVersionInTheMiddle)
{
    frmSplash().lblVers.Width = 3000;
    tick(4);
    EXPECT_EQ(frmSplash().lblVers.caption(), "");
    EXPECT_EQ(frmSplash().lblVers.left(), 0);
    tick(1);
    EXPECT_EQ(frmSplash().lblVers.caption(), "Version " + versionText());
    EXPECT_EQ(frmSplash().lblVers.left(), 3000);
}

TEST_F(TextsSplash, TheOtherTicksChangeNothing)
{
    screen().MousePointer = pointer::kHourglass;
    tick(5);
    frmSplash().lblVers.Caption = "untouched";
    frmSplash().lblVersion.Caption = "untouched";
    tick(3);
    EXPECT_TRUE(Loaded<class frmSplash>());
    EXPECT_EQ(frmSplash().lblVers.caption(), "untouched");
    EXPECT_EQ(frmSplash().lblVersion.caption(), "untouched");
    EXPECT_EQ(screen().MousePointer(), pointer::kHourglass);
}

TEST_F(TextsSplash, TheNinthTickEndsItAndTheFirstForm)
{
    frmStart().load();
    ASSERT_TRUE(Loaded<class frmStart>());
    screen().MousePointer = pointer::kHourglass;
    tick(8);
    EXPECT_TRUE(Loaded<class frmStart>());
    tick(1);
    EXPECT_EQ(screen().MousePointer(), pointer::kDefault);
    EXPECT_FALSE(Loaded<class frmStart>());
    EXPECT_FALSE(Loaded<class frmSplash>());
}

TEST_F(TextsSplash, TheNextOneCountsFromZero)
{
    tick(9);
    tick(8);
    EXPECT_TRUE(Loaded<class frmSplash>());
    tick(1);
    EXPECT_FALSE(Loaded<class frmSplash>());
}

TEST_F(TextsSplash, FadesInUntilItIsOpaque)
{
    frmSplash().Show(ShowMode::Modal);
    const auto opacities = startingWith(world.journal, "frmSplash opacity ");
    ASSERT_EQ(opacities.size(), 54U);
    EXPECT_EQ(opacities.front(), "frmSplash opacity 0");
    EXPECT_EQ(opacities.back(), "frmSplash opacity 255");
    const auto first = std::find(world.journal.begin(), world.journal.end(), "frmSplash show");
    ASSERT_NE(first, world.journal.end());
    EXPECT_LT(std::find(world.journal.begin(), world.journal.end(), "frmSplash opacity 0"), first)
        << "it is invisible when it comes up";
}

TEST_F(TextsSplash, IsCutToItsPictureBeforeItIsSeen)
{
    world.backend.pictures["splash"] = {3, 2, {0, 7, 7, 0, 7, 0}};
    frmSplash();
    const auto region = std::find(world.journal.begin(), world.journal.end(), "frmSplash region of 2");
    ASSERT_NE(region, world.journal.end());
    EXPECT_LT(region, std::find(world.journal.begin(), world.journal.end(), "frmSplash show"));
}

TEST_F(TextsSplash, StandsInTheMiddleOfTheMonitorThatHoldsIt)
{
    world.monitors.set({{0, 0, 1920, 1080}, {-1280, -200, 0, 824}});
    monitors().Refresh();
    EXPECT_EQ(rectOf(frmSplash()), (Rect{9900, 6450, 9000, 3300}));
    Unload<class frmSplash>();
    screen().setMetrics(15, 15, {-1280, -200, 0, 824});
    EXPECT_EQ(rectOf(frmSplash()), (Rect{-14100, 3030, 9000, 3300}));
}

// Which starts have one.

TEST_F(TextsSplash, APlainStartWaitsForItBeforeTheConsoleIsSeen)
{
    bool consoleSeen = true;
    world.backend.whileModal["frmSplash"] = [&](Form&) {
        ++shown;
        consoleSeen = frmMedia().visible();
        tick(9);
    };
    frmStart().start();
    EXPECT_EQ(shown, 1);
    EXPECT_FALSE(consoleSeen);
    EXPECT_THAT(world.journal, Contains("frmSplash modal"));
    EXPECT_FALSE(Loaded<class frmSplash>());
    EXPECT_FALSE(Loaded<class frmStart>());
    EXPECT_TRUE(console().visible());
}

TEST_F(TextsSplash, AStartWithAFileHasNone)
{
    setCommandLine({alias(0), {}});
    frmStart().start();
    EXPECT_TRUE(console().visible());
    EXPECT_EQ(shown, 0);
    EXPECT_FALSE(Loaded<class frmSplash>());
}

TEST_F(TextsSplash, TheFirstStartHasNone)
{
    world.settings.values.erase("sys/vistaos");
    frmStart().start();
    EXPECT_TRUE(console().FirstRun);
    EXPECT_TRUE(console().visible());
    EXPECT_EQ(shown, 0);
    EXPECT_FALSE(Loaded<class frmSplash>());
}

TEST_F(TextsSplash, TheProductIsNamedOnTheStartFormToo)
{
    EXPECT_EQ(frmSplash().lblPRO.caption(), "PRO");
    EXPECT_EQ(frmStart().lblPRO.caption(), frmSplash().lblPRO.caption());
}

} // namespace tandrel::test
