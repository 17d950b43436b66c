// The panel goes by itself once nobody has done anything over it.

#include "fake_controls.h"
#include "panel_bench.h"

#include "texts/frm_update.h"
#include "toolkit/activation.h"

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

/// Has an event waiting, which runs when somebody lets it.
class WaitingEvent : public FakeBackend
{
public:
    void runPending() override
    {
        if (event)
            std::exchange(event, nullptr)();
    }
    std::function<void()> event;
};

class PanelHide : public PanelBench
{
protected:
    void TearDown() override { installBackend(&world.backend); }

    void tick() { panel().Timer2.tick(); }
    /// Up and armed.
    frmChild& armed()
    {
        frmChild& window = fullScreen();
        tick();
        return window;
    }
    bool isUp() { return panel().top() == console().FullTop + console().FullHeight - 914; }
    bool isDown() { return panel().top() == console().FullTop + console().FullHeight; }

    WaitingEvent waiting;
};

} // namespace

TEST_F(PanelHide, TheFirstTickArmsAndTheSecondSendsItDown)
{
    frmChild& window = fullScreen();
    console().Timer4.Enabled = false;
    tick();
    EXPECT_TRUE(isUp());
    EXPECT_TRUE(panel().PanelIdle);
    EXPECT_FALSE(console().Timer4.enabled());
    tick();
    EXPECT_TRUE(isDown());
    EXPECT_FALSE(panel().PanelIdle);
    EXPECT_FALSE(PanelUp);
    EXPECT_TRUE(console().Timer4.enabled());
    EXPECT_EQ(activeForm(), &window);
    EXPECT_TRUE(window.Full);
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(PanelHide, ItSlidesInStepsThatAreAllPainted)
{
    world.backend.windows = true;
    openOn({{0, 0, 640, 480}});
    fill(1);
    tick();
    world.journal.clear();
    tick();
    const auto places = startingWith(world.journal, "frmPanel place");
    ASSERT_GT(places.size(), 457U);
    EXPECT_EQ(places.front(), "frmPanel place 0,419 640x61");
    EXPECT_EQ(places.back(), "frmPanel place 0,480 640x61");
    EXPECT_EQ(startingWith(world.journal, "frmPanel repaint").size(), 458U);
    EXPECT_EQ(startingWith(world.journal, "frmPanel hide").size(), 1U) << "out of sight behind the last";
}

TEST_F(PanelHide, AnythingDoneOverItBeginsTheWaitAnew)
{
    armed();
    panel().MouseMove({});
    tick();
    EXPECT_TRUE(isUp());
    tick();
    EXPECT_TRUE(isDown());
}

TEST_F(PanelHide, WhatTheUserHasJustDoneCounts)
{
    armed();
    installBackend(&waiting);
    waiting.event = [this] { panel().imgFwd.userMouseMove({}); };
    tick();
    EXPECT_TRUE(isUp());
    EXPECT_TRUE(panel().PanelIdle);
}

TEST_F(PanelHide, AClickThatEndsItDuringTheTickIsTheLastWord)
{
    armed();
    console().Timer4.Enabled = false;
    installBackend(&waiting);
    const auto alive = panel().shared_from_this();
    waiting.event = [this] { panel().imgNoFull.userClick(); };
    tick();
    EXPECT_TRUE(alive->isDead());
    EXPECT_EQ(ClickState, 1.0);
    EXPECT_FALSE(Loaded<class frmPanel>());
    EXPECT_EQ(alive->top(), 16200 - 914) << "it does not slide any more";
}

TEST_F(PanelHide, WithoutFullScreenTheTickDoesNothing)
{
    fullScreen();
    FullScreenOn = false;
    tick();
    EXPECT_FALSE(panel().PanelIdle);
    panel().PanelIdle = true;
    tick();
    EXPECT_TRUE(isUp());
}

TEST_F(PanelHide, WhileANoticeIsUpItStaysAsItIs)
{
    armed();
    frmUpdate().Show();
    tick();
    EXPECT_TRUE(isUp());
    panel().PanelIdle = false;
    tick();
    EXPECT_FALSE(panel().PanelIdle);
    frmUpdate().Hide();
    tick();
    tick();
    EXPECT_TRUE(isDown());
}

TEST_F(PanelHide, DownItIsOnlyArmed)
{
    frmChild& window = fullScreen();
    putPanelBelow();
    PanelUp = true;
    console().Timer4.Enabled = false;
    console().SetFocus();
    for (int time = 0; time < 3; ++time)
        tick();
    EXPECT_TRUE(panel().PanelIdle);
    EXPECT_TRUE(isDown());
    EXPECT_FALSE(console().Timer4.enabled());
    EXPECT_NE(activeForm(), &window);
}

TEST_F(PanelHide, OnAMonitorThatBeginsBelowTheOriginItGoesToo)
{
    openOn({{0, 400, 1920, 1480}});
    frmChild& window = fill(1);
    ASSERT_TRUE(isUp());
    ASSERT_GT(panel().top(), console().FullHeight) << "it is in view, though below the height of the monitor";
    tick();
    tick();
    EXPECT_TRUE(isDown());
    EXPECT_EQ(activeForm(), &window);
}

TEST_F(PanelHide, OnAMonitorThatBeginsAboveTheOriginItGoesOnce)
{
    openOn({{0, -1080, 1920, 0}});
    fill(1);
    tick();
    tick();
    ASSERT_TRUE(isDown());
    ASSERT_LT(panel().top(), console().FullHeight) << "it is gone, though above the height of the monitor";
    console().SetFocus();
    for (int time = 0; time < 3; ++time)
        tick();
    EXPECT_TRUE(panel().PanelIdle) << "armed, and left alone";
    EXPECT_EQ(activeForm(), &console());
}

TEST_F(PanelHide, OverTheOriginItNeverGoes)
{
    // Left and right of the origin, its lower edge below it: the place that counts as the pointer lies on the panel.
    openOn({{-960, -1060, 960, 20}});
    fill(1);
    ASSERT_LT(panel().top(), 0);
    for (int time = 0; time < 4; ++time)
        tick();
    EXPECT_TRUE(isUp());
    EXPECT_TRUE(PanelUp);
}

TEST_F(PanelHide, APanelThatBeginsOrEndsAtTheOriginGoes)
{
    start("0");
    for (const PixelRect monitor : {PixelRect{0, -1060, 1920, 20}, {-1920, -1060, 0, 20}}) {
        standOn(monitor);
        frmChild& window = open(0);
        fill(0);
        tick();
        tick();
        EXPECT_TRUE(isDown()) << monitor.left;
        unload(window);
        VideoWindows.clear();
        NextSlot = 0;
    }
}

// Who gets the keys.

TEST_F(PanelHide, WhereNoOtherSlotPlaysIsTheFullPictureGetsTheKeys)
{
    openOn({{0, 0, 1920, 1080}});
    frmChild& window = fill(0);
    tick();
    tick();
    EXPECT_TRUE(isDown());
    EXPECT_EQ(activeForm(), &window) << "the panel, which is off the screen, can't hold them";
}

TEST_F(PanelHide, AFirstSlotTakesNoKeysFromWhatIsInFront)
{
    openOn({{0, 0, 1920, 1080}});
    fill(0);
    tick();
    console().SetFocus();
    tick();
    EXPECT_TRUE(isDown());
    EXPECT_EQ(activeForm(), &console());
}

TEST_F(PanelHide, EmptySlotsAndNoneAtAllAreNoMatter)
{
    frmChild& window = armed();
    VideoWindows.insert(VideoWindows.begin() + 1, nullptr);
    tick();
    EXPECT_EQ(activeForm(), &window);
    const SlotTable kept = std::exchange(VideoWindows, {});
    bringUpPanel("File::");
    tick();
    tick();
    EXPECT_TRUE(isDown());
    EXPECT_EQ(activeForm(), &panel());
}

TEST_F(PanelHide, AnAliasThatNoWindowPlaysGivesTheKeysToTheFullPictureOrToNone)
{
    frmChild& window = armed();
    CurrentAlias = alias(7);
    tick();
    EXPECT_TRUE(isDown());
    EXPECT_EQ(activeForm(), &window);
    window.Full = false;
    CurrentAlias = alias(7);
    bringUpPanel("File::");
    tick();
    tick();
    EXPECT_TRUE(isDown());
    EXPECT_EQ(activeForm(), &panel());
}

TEST_F(PanelHide, OnADiscItsWindowGetsThem)
{
    OtherMediaBench bench;
    armed();
    DVDMode = true;
    WindowsVersion = "WINDOWS XP";
    tick();
    EXPECT_EQ(activeForm(), bench.dvdForm.get());
    WindowsVersion = "LINUX";
    bringUpPanel("DVD::");
    tick();
    tick();
    EXPECT_TRUE(isDown());
    EXPECT_EQ(activeForm(), &panel()) << "the window of the other control is left alone";
}

TEST_F(PanelHide, ADiscWithoutAWindowIsNoError)
{
    armed();
    DVDMode = true;
    WindowsVersion = "WINDOWS XP";
    tick();
    EXPECT_TRUE(isDown());
    EXPECT_FALSE(PanelUp);
}

TEST_F(PanelHide, WhileItIsHeldItStaysWhateverTheTicksSay)
{
    armed();
    panel().PanelHold = true;
    tick();
    tick();
    EXPECT_TRUE(isUp());
    panel().PanelHold = false;
    tick();
    EXPECT_TRUE(isDown());
}

TEST_F(PanelHide, TheKeptPlaceOfThePointerOverItHoldsItUp)
{
    armed();
    panel().PanelCursor = {400, 1079};
    tick();
    EXPECT_TRUE(isUp());
    panel().PanelCursor = {400, 100};
    tick();
    EXPECT_TRUE(isDown());
}

} // namespace tandrel::test
