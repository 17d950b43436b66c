// What the windows are told on the ways into full screen and out of it, and who has the keys behind each.

#include "fake_controls.h"
#include "monitor_bench.h"

#include "console/hot_keys.h"
#include "fullscreen/frm_panel.h"
#include "toolkit/activation.h"

namespace tandrel::test
{

using ::testing::ElementsAre;

namespace
{

class ConsoleMonitorFocus : public MonitorBench
{
protected:
    ConsoleMonitorFocus() { world.backend.windows = true; }

    /// The selected one of two films is full, and the panel up.
    frmChild& full(const PixelRect& monitor = {0, 0, 1920, 1080})
    {
        play(2);
        moveTo(monitor);
        frmChild& window = *VideoWindows[1];
        window.Move({console().FullLeft + 1500, console().FullTop + 1650, 4500, 3000});
        rightPressOn(window);
        world.journal.clear();
        return window;
    }
    /// The disc on the video control is in front, in its window.
    void disc(OtherMediaBench& bench, const PixelRect& monitor = {0, 0, 1920, 1080})
    {
        start();
        moveTo(monitor);
        WindowsVersion = "WINDOWS XP";
        DVDMode = true;
        bench.dvdForm->Move({console().FullLeft + 1500, console().FullTop + 1650, 4500, 3000});
        bench.dvdForm->SetFocus();
        console().TrackHold = false;
        world.journal.clear();
    }
    /// What was said to this window and to the console's about their order and the keys.
    std::vector<std::string> order(const std::string& window) const
    {
        return chosen(world.journal, [&](const std::string& line) {
            return line == window + " raise" || line == window + " activate" || line == "frmMedia activate" ||
                   line == window + " repaint";
        });
    }
    static constexpr PixelRect kSecond{1920, 200, 3200, 1224};
};

} // namespace

// A corner in twips, where pixels are meant, and then the right one.

TEST_F(ConsoleMonitorFocus, ADiscOnASecondMonitorIsPutAtTheTwipsAndThenOnTheMonitor)
{
    OtherMediaBench bench;
    disc(bench, kSecond);
    rightPressOn(*bench.dvdForm);
    ASSERT_TRUE(bench.dvdForm->Full);
    EXPECT_THAT(startingWith(world.journal, "frmDVD place"),
                ElementsAre("frmDVD place 28800,3000 1280x1024", "frmDVD place 1920,200 1280x1024"));
}

TEST_F(ConsoleMonitorFocus, TheRefitOnASecondMonitorGoesByTheTwipsToo)
{
    full(kSecond);
    console().RefitTicks = 5;
    tick2();
    EXPECT_EQ(console().RefitTicks, 0);
    EXPECT_THAT(startingWith(world.journal, "frmChild place"),
                ElementsAre("frmChild place 28800,3000 1280x1024", "frmChild place 1920,200 1280x1024"));
}

TEST_F(ConsoleMonitorFocus, OnTheFirstMonitorBothAreTheSame)
{
    OtherMediaBench bench;
    disc(bench);
    rightPressOn(*bench.dvdForm);
    EXPECT_THAT(startingWith(world.journal, "frmDVD place"), ElementsAre("frmDVD place 0,0 1920x1080"));
}

// The ways out.

TEST_F(ConsoleMonitorFocus, ADiscThatReturnsComesToTheFrontAndTheConsoleGetsTheKeys)
{
    OtherMediaBench bench;
    disc(bench);
    rightPressOn(*bench.dvdForm);
    putPanelBelow();
    world.journal.clear();
    ClickState = 1.0;
    tick2();
    ASSERT_FALSE(bench.dvdForm->Full);
    EXPECT_THAT(order("frmDVD"), ElementsAre("frmDVD repaint", "frmDVD raise", "frmDVD activate", "frmMedia activate"));
    EXPECT_EQ(activeForm(), &console());
}

TEST_F(ConsoleMonitorFocus, BehindAHotKeyThatEndsFullScreenTheVideoHasTheKeys)
{
    frmChild& window = full();
    MediaStarted = true;
    ASSERT_EQ(activeForm(), &frmPanel());
    world.hotKeys.pressed(hot_key::kFullScreen);
    tick3();
    ASSERT_FALSE(window.Full);
    EXPECT_THAT(order("frmChild"), ElementsAre("frmChild repaint", "frmChild raise", "frmChild activate",
                                               "frmMedia activate", "frmChild activate"));
    EXPECT_EQ(activeForm(), &window);
}

TEST_F(ConsoleMonitorFocus, BehindTheBoxThatEndsFullScreenTheVideoHasTheKeys)
{
    frmChild& window = full();
    console().SetFocus();
    world.journal.clear();
    console().chkFullscreen.userClick();
    ASSERT_FALSE(window.Full);
    EXPECT_THAT(order("frmChild"), ElementsAre("frmChild repaint", "frmChild raise", "frmChild activate",
                                               "frmMedia activate", "frmChild activate"));
    EXPECT_EQ(activeForm(), &window);
}

} // namespace tandrel::test
