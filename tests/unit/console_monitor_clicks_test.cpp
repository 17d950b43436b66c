// Clicks on the pictures, counted by the quick tick: single, double, and what a press does in full screen.

#include "fake_controls.h"
#include "monitor_bench.h"

#include "fullscreen/frm_panel.h"
#include "toolkit/activation.h"

namespace tandrel::test
{

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

class ConsoleMonitorClicks : public MonitorBench
{
protected:
    ConsoleMonitorClicks()
    {
        play(2);
        tick3();
    }
    std::vector<Text> labels()
    {
        return {console().lblClick.caption(), console().lblDblClick.caption(), console().lblTimeClick.caption()};
    }
    void click()
    {
        press();
        release();
    }
    /// As behind a right click whose panel has gone down again.
    void fullWithPanelDown()
    {
        FullScreenOn = true;
        FullMedia = alias(1);
        VideoWindows[1]->Full = true;
        putPanelBelow();
        PanelUp = false;
    }
};

constexpr const char* kUp = "Your Left Mouse Button Is UP";
constexpr const char* kDown = "Your Left Mouse Button Is Down";

} // namespace

TEST_F(ConsoleMonitorClicks, APressAndAReleaseAreTwoThings)
{
    EXPECT_THAT(labels(), ElementsAre("Click: 0", "DblClick: 0", kUp));
    press();
    EXPECT_THAT(labels(), ElementsAre("Click: 1", "DblClick: 0.5", kDown));
    release();
    EXPECT_THAT(labels(), ElementsAre("Click: 0", "DblClick: 0.5", kUp));
    press();
    EXPECT_THAT(labels(), ElementsAre("Click: 1", "DblClick: 1", kDown));
}

TEST_F(ConsoleMonitorClicks, TwoPressesAreADoubleClick)
{
    click();
    EXPECT_EQ(ClickState, 0.5);
    click();
    EXPECT_EQ(ClickState, 1.0);
    click();
    EXPECT_EQ(ClickState, 1.0) << "a third press adds nothing";
}

TEST_F(ConsoleMonitorClicks, AHeldButtonIsOnePress)
{
    for (int tick = 0; tick < 5; ++tick)
        press();
    EXPECT_EQ(ClickCount, 1);
    EXPECT_EQ(ClickState, 0.5);
}

TEST_F(ConsoleMonitorClicks, AnAnswerThatTheButtonWasUpInBetweenIsTakenAtItsTick)
{
    // Both presses of a fast double click fell between two questions, and the pointer tells of them one by one.
    struct OneByOne : FakePointer {
        bool buttonDown(MouseButton button) override
        {
            if (button == MouseButton::Right || answers.empty())
                return false;
            const bool answer = answers.front();
            answers.erase(answers.begin());
            return answer;
        }
        std::vector<bool> answers{true, false, true};
    } pointer;
    Services services = tandrel::services();
    services.pointer = &pointer;
    installServices(services);
    tick3();
    EXPECT_EQ(ClickState, 0.5);
    tick3();
    EXPECT_EQ(console().lblTimeClick.caption(), kUp);
    tick3();
    EXPECT_EQ(ClickState, 1.0);
    EXPECT_TRUE(pointer.answers.empty());
    services.pointer = &world.pointer;
    installServices(services);
}

TEST_F(ConsoleMonitorClicks, ASlowTickBetweenTwoPressesMakesThemTwoClicks)
{
    click();
    tick2();
    EXPECT_EQ(ClickState, 0);
    click();
    EXPECT_EQ(ClickState, 0.5);
}

TEST_F(ConsoleMonitorClicks, ACountThatWasLeftHighIsNoClick)
{
    ClickCount = 2;
    press();
    EXPECT_EQ(ClickCount, 3);
    EXPECT_EQ(ClickState, 0);
    release();
    EXPECT_EQ(ClickCount, 3) << "only a count of 1 goes back";
}

TEST_F(ConsoleMonitorClicks, PressesInOtherProgramsDoNotCount)
{
    applicationDeactivated();
    click();
    click();
    EXPECT_EQ(ClickCount, 0);
    EXPECT_EQ(ClickState, 0);
    EXPECT_EQ(console().lblTimeClick.caption(), kUp);
}

TEST_F(ConsoleMonitorClicks, AnyPressStartsTheWatchOverTheCursor)
{
    console().Timer4.Enabled = false;
    release();
    EXPECT_FALSE(console().Timer4.enabled());
    press();
    EXPECT_TRUE(console().Timer4.enabled());
}

TEST_F(ConsoleMonitorClicks, InPlayListModeADoubleClickBringsTheVideoIntoTheLargePlace)
{
    console().SlideMode = "1";
    VideoWindows[0]->SetFocus();
    click();
    EXPECT_LE(VideoWindows[0]->width(), VideoWindows[1]->width());
    press();
    EXPECT_GT(VideoWindows[0]->width(), VideoWindows[1]->width());
    EXPECT_EQ(CurrentAlias, alias(0));
    EXPECT_THAT(commands(), Contains("Play A"));
}

TEST_F(ConsoleMonitorClicks, NotInPlayAllModeNorFromTheConsoleNorInFullScreen)
{
    const auto doubled = [&] {
        ClickState = ClickCount = 0;
        console().lblTimeClick.Caption = kUp;
        world.pointer.left = false;
        world.mci.clear();
        click();
        click();
        EXPECT_EQ(ClickState, 1.0);
        return commands();
    };
    EXPECT_THAT(doubled(), IsEmpty());
    console().SlideMode = "1";
    console().SetFocus();
    ASSERT_TRUE(console().TrackHold);
    EXPECT_THAT(doubled(), IsEmpty());
    VideoWindows[1]->SetFocus();
    FullScreenOn = true;
    EXPECT_THAT(doubled(), IsEmpty());
    FullScreenOn = false;
    EXPECT_FALSE(doubled().empty());
}

TEST_F(ConsoleMonitorClicks, AFirstPressOnTheFullPictureTidiesThePanelAway)
{
    fullWithPanelDown();
    press();
    EXPECT_FALSE(Loaded<class frmPanel>());
    EXPECT_FALSE(PanelUp || FullMenuOpen);
    EXPECT_TRUE(FullScreenOn);
}

TEST_F(ConsoleMonitorClicks, ThePanelStaysWhereItOrAMenuIsUpOrNoFileIsFull)
{
    fullWithPanelDown();
    frmPanel().Top = 16200 - 1;
    press();
    EXPECT_TRUE(PanelUp) << "some of it is in view";
    EXPECT_TRUE(Loaded<class frmPanel>());

    release();
    ClickState = 0;
    putPanelBelow();
    FullMenuOpen = true;
    press();
    EXPECT_TRUE(Loaded<class frmPanel>());
    EXPECT_TRUE(FullMenuOpen);

    release();
    ClickState = 0;
    FullMenuOpen = false;
    FullMedia.clear();
    press();
    EXPECT_TRUE(Loaded<class frmPanel>());
}

TEST_F(ConsoleMonitorClicks, ADiscThatIsFullByTheMenuKeepsItsPanel)
{
    OtherMediaBench bench;
    fullWithPanelDown();
    DVDMode = true;
    press();
    EXPECT_TRUE(Loaded<class frmPanel>());
    release();
    ClickState = 0;
    console().DvdFullByClick = true;
    press();
    EXPECT_FALSE(Loaded<class frmPanel>());
}

TEST_F(ConsoleMonitorClicks, TheSecondPressLeavesThePanelToTheSlowTick)
{
    fullWithPanelDown();
    ClickState = 0.5;
    press();
    EXPECT_TRUE(Loaded<class frmPanel>());
    EXPECT_EQ(ClickState, 1.0);
}

TEST_F(ConsoleMonitorClicks, ASecondPressOnTheFullPictureDoesNotWaitForTheSlowTicksTurn)
{
    console().Timer2.Enabled = true;
    const auto hastened = [&] {
        world.backend.hastened.clear();
        ClickState = 0.5;
        press();
        EXPECT_EQ(ClickState, 1.0);
        release();
        return world.backend.hastened;
    };
    EXPECT_THAT(hastened(), IsEmpty()) << "nothing is full";
    fullWithPanelDown();
    EXPECT_THAT(hastened(), ElementsAre("frmMedia.Timer2"));
    FullMenuOpen = true;
    EXPECT_THAT(hastened(), IsEmpty());
    FullMenuOpen = false;
    frmPanel().Top = 16199;
    EXPECT_THAT(hastened(), IsEmpty()) << "the panel is up";
}

TEST_F(ConsoleMonitorClicks, WhetherThePanelIsUpIsSeenAtEachTickInFullScreen)
{
    PanelUp = true;
    tick3();
    EXPECT_TRUE(PanelUp) << "without full screen nobody looks";
    fullWithPanelDown();
    PanelUp = true;
    tick3();
    EXPECT_FALSE(PanelUp);
    frmPanel().Top = 16199;
    tick3();
    EXPECT_TRUE(PanelUp);
    frmPanel().Top = 16200;
    tick2();
    EXPECT_FALSE(PanelUp) << "by the slow tick too";
}

TEST_F(ConsoleMonitorClicks, AnUnansweredJumpDoesNotKeepTheClicksFromCounting)
{
    FastForward = true;
    world.mci.otherwise = [](const std::string&, std::string&) { return 276; };
    press();
    EXPECT_EQ(ClickCount, 1);
}

} // namespace tandrel::test
