// The panel of full screen: where its controls lie, and how it comes up.

#include "fake_controls.h"
#include "panel_bench.h"

#include "toolkit/activation.h"

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Le;

namespace
{

class PanelLoad : public PanelBench
{
protected:
    bool playIsInFront() { return panel().imgPlay.visible() && !panel().imgPause.visible(); }
    bool pauseIsInFront() { return panel().imgPause.visible() && !panel().imgPlay.visible(); }
};

} // namespace

TEST_F(PanelLoad, ItsControlsHaveTheirPlaces)
{
    const auto panel = newForm<class frmPanel>();
    const std::vector<std::pair<const Control*, Rect>> places{
        {&panel->picMain, {3840, 120, 6060, 795}},     {&panel->imgMoveUp, {0, 0, 2880, 135}},
        {&panel->slide_black, {120, 22, 2280, 90}},    {&panel->slide_blue, {120, 37, 1680, 60}},
        {&panel->imgPull, {120, 0, 240, 135}},         {&panel->imgPlay, {2680, 20, 690, 765}},
        {&panel->imgPause, {2685, 0, 690, 765}},       {&panel->imgRwd, {1940, 210, 750, 390}},
        {&panel->imgFwd, {3360, 210, 750, 390}},       {&panel->imgNoFull, {1470, 208, 375, 375}},
        {&panel->imgDVD, {240, 225, 1005, 375}},       {&panel->imgVolButton, {4320, 210, 375, 375}},
        {&panel->InvertSlider, {4800, 240, 1035, 300}}};
    for (const auto& [control, place] : places)
        EXPECT_EQ(rectOf(*control), place) << control->name();
    EXPECT_EQ(panel->lblTitle.top(), 240);
    EXPECT_EQ(panel->lblTitle.width(), 5535);
    EXPECT_EQ(panel->lblTitle.height(), 495);
    for (const Control* button :
         std::vector<const Control*>{&panel->imgPlay, &panel->imgPause, &panel->imgRwd, &panel->imgFwd,
                                     &panel->imgNoFull, &panel->imgDVD, &panel->imgVolButton, &panel->InvertSlider})
        EXPECT_EQ(button->container(), &panel->picMain) << button->name();
}

TEST_F(PanelLoad, ItIsABareStripWithItsOwnTimer)
{
    const auto panel = newForm<class frmPanel>();
    EXPECT_EQ(panel->frame(), Frame::Bare);
    EXPECT_EQ(panel->caption(), "Panel");
    EXPECT_EQ(panel->height(), 915);
    EXPECT_EQ(panel->lblCurrent.caption(), "0.0");
    EXPECT_EQ(panel->lblTitle.caption(), "Title");
    EXPECT_EQ(panel->InvertSlider.minimum(), 0);
    EXPECT_EQ(panel->InvertSlider.maximum(), 100);
    EXPECT_FALSE(panel->InvertSlider.vertical());
    EXPECT_EQ(panel->imgMoveUp.pointerShape, pointer::kHand);
    EXPECT_EQ(panel->Timer2.interval(), 3000);
    EXPECT_TRUE(panel->Timer2.enabled());
}

TEST_F(PanelLoad, TheLoadFitsItToTheMonitorAndLeavesItBelow)
{
    openOn({{0, 0, 1920, 1080}});
    EXPECT_EQ(rectOf(panel()), (Rect{0, 16200, 28800, 915}));
    EXPECT_EQ(panel().picMain.left(), 10870) << "500 left of the centre";
    EXPECT_EQ(panel().lblTitle.left(), 10870 + 6060 + 200);
    EXPECT_EQ(panel().lblCurrent.left(), 10870 - 1500 - 200);
    EXPECT_EQ(panel().slide_black.width(), 28800 - 120 - 100);
    EXPECT_EQ(panel().slide_blue.width(), 0);
    EXPECT_EQ(panel().imgMoveUp.width(), 28580);
    EXPECT_FALSE(panel().visible());
    EXPECT_FALSE(panel().imgDVD.visible());
}

TEST_F(PanelLoad, OnAnyMonitorItLiesBelowThatOne)
{
    openOn({{1920, 300, 3200, 1324}, {0, 0, 1920, 1080}});
    EXPECT_EQ(rectOf(panel()), (Rect{28800, 4500 + 15360, 19200, 915}));
    EXPECT_EQ(panel().picMain.left(), (19200 - 6060) / 2 - 500) << "it lies in the form, wherever that is";
    EXPECT_EQ(panel().slide_black.width(), 19200 - 220);
    panel().discard();
    console().FullLeft = -19200;
    console().FullTop = -15360;
    EXPECT_EQ(rectOf(panel()), (Rect{-19200, 0, 19200, 915}));
}

TEST_F(PanelLoad, OnADiscTheLoadShowsTheMenuButton)
{
    openOn({{0, 0, 1920, 1080}});
    DVDMode = true;
    EXPECT_TRUE(panel().imgDVD.visible());
}

TEST_F(PanelLoad, TheMenuButtonFollowsTheDiscAtEveryShowing)
{
    fullScreen();
    ASSERT_FALSE(panel().imgDVD.visible());
    DVDMode = true;
    ASSERT_EQ(activeForm(), &panel()) << "its activation is not what does it";
    bringUpPanel("DVD");
    EXPECT_TRUE(panel().imgDVD.visible());
    DVDMode = false;
    console().SetFocus();
    panel().SetFocus();
    EXPECT_FALSE(panel().imgDVD.visible());
}

TEST_F(PanelLoad, ItsActivationBeginsAfresh)
{
    fullScreen();
    console().SetFocus();
    panel().PanelIdle = panel().PanelSeeking = true;
    PanelUp = false;
    console().VolumeSlider.Value = 33;
    panel().SetFocus();
    EXPECT_FALSE(panel().PanelIdle);
    EXPECT_FALSE(panel().PanelSeeking);
    EXPECT_TRUE(PanelUp);
    EXPECT_EQ(panel().InvertSlider.value(), 33);
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(PanelLoad, TheButtonThatCanBeUsedStandsInFrontAtEachActivation)
{
    frmChild& window = fullScreen();
    EXPECT_TRUE(pauseIsInFront());
    window.Paused = 1;
    console().SetFocus();
    panel().SetFocus();
    EXPECT_TRUE(playIsInFront());
    window.Paused = 0;
    console().SetFocus();
    panel().SetFocus();
    EXPECT_TRUE(pauseIsInFront());
    CurrentAlias.clear();
    console().SetFocus();
    panel().SetFocus();
    EXPECT_TRUE(pauseIsInFront());
}

// How it comes up.

TEST_F(PanelLoad, TheStepsOfAShowingComeInTheirOrder)
{
    world.backend.windows = true;
    openOn({{0, 0, 640, 480}});
    FullScreenOn = true;
    panel().Left = 5;
    panel().PanelIdle = true;
    world.journal.clear();
    PanelUp = false;
    bringUpPanel("File:: x");
    const auto windows = chosen(world.journal, [](const std::string& line) {
        return line.starts_with("frmPanel ") && !line.starts_with("frmPanel place 0,4") && line != "frmPanel repaint";
    });
    EXPECT_THAT(windows, ElementsAre("frmPanel activate", "frmPanel raise", "frmPanel show"))
        << "it is seen once it has left its place below";
    const auto places = startingWith(world.journal, "frmPanel place");
    ASSERT_GT(places.size(), 450U);
    EXPECT_EQ(places.front(), "frmPanel place 0,480 640x61") << "the left first";
    EXPECT_EQ(places.back(), "frmPanel place 0,419 640x61");
    const auto repaints = startingWith(world.journal, "frmPanel repaint");
    EXPECT_EQ(repaints.size(), places.size() - 1) << "each step of the slide is painted";
    EXPECT_EQ(panel().top(), 7200 - 914);
    EXPECT_EQ(panel().lblTitle.caption(), "File:: x");
    EXPECT_TRUE(PanelUp);
    EXPECT_FALSE(panel().PanelIdle);
    EXPECT_TRUE(panel().visible());
}

TEST_F(PanelLoad, AShowingOfThePanelThatHasTheKeysAlreadyIsAShowingToo)
{
    fullScreen();
    putPanelBelow();
    ASSERT_EQ(activeForm(), &panel()) << "its activation is not what does it";
    panel().PanelIdle = true;
    PanelUp = false;
    bringUpPanel("File::");
    EXPECT_TRUE(PanelUp);
    EXPECT_FALSE(panel().PanelIdle);
    EXPECT_EQ(panel().top(), 16200 - 914);
}

TEST_F(PanelLoad, TheSlidesUpAndDownTakeAQuarterOfASecondAtMost)
{
    fullScreen();
    world.backend.slides.clear();
    putPanelBelow();
    bringUpPanel("File::");
    panel().Timer2.tick();
    panel().Timer2.tick();
    ASSERT_EQ(panel().top(), 16200);
    EXPECT_THAT(world.backend.slides, ElementsAre(Le(250), Le(250)));
}

TEST_F(PanelLoad, OnAMonitorWithAnOffsetItSlidesThere)
{
    openOn({{-1280, 200, 0, 1224}, {0, 0, 1920, 1080}});
    bringUpPanel("File::");
    EXPECT_EQ(rectOf(panel()), (Rect{-19200, 3000 + 15360 - 914, 19200, 915}));
    EXPECT_TRUE(panel().standsUp());
    putPanelBelow();
    EXPECT_EQ(panel().top(), 3000 + 15360);
    EXPECT_FALSE(panel().standsUp());
}

TEST_F(PanelLoad, AVideoWindowShowsItsWholeAliasInTheTitle)
{
    fullScreen();
    EXPECT_EQ(panel().lblTitle.caption(), "File:: " + alias(1));
}

TEST_F(PanelLoad, TheCurrentTimeFollowsWhileThePanelIsUp)
{
    fullScreen();
    console().Timer1.Enabled = true;
    console().Timer1.tick();
    EXPECT_EQ(panel().lblCurrent.caption(), "0:00:01");
    panel().lblCurrent.Caption = "-";
    PanelUp = false;
    console().Timer1.tick();
    EXPECT_EQ(panel().lblCurrent.caption(), "-");
    PanelUp = true;
    FullScreenOn = false;
    console().Timer1.tick();
    EXPECT_EQ(panel().lblCurrent.caption(), "-");
}

// The strip of the volume on a video looks at it.

TEST_F(PanelLoad, TheEndOfTheVolumeStripLeavesThePanelTheKeysWhereverTheMonitorIs)
{
    start("0");
    for (const PixelRect monitor : {PixelRect{0, 0, 1920, 1080}, {0, 400, 1920, 1480}, {0, -1080, 1920, 0}}) {
        standOn(monitor);
        frmChild& window = open(0);
        fill(0);
        window.MouseWheel(0, 120, 0, 0);
        panel().SetFocus();
        window.Timer1.tick();
        EXPECT_EQ(activeForm(), &panel()) << monitor.top;
        putPanelBelow();
        window.MouseWheel(0, 120, 0, 0);
        window.Timer1.tick();
        EXPECT_EQ(activeForm(), &window) << monitor.top;
        unload(window);
        VideoWindows.clear();
        NextSlot = 0;
    }
}

} // namespace tandrel::test
