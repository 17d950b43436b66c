// How a video fills the screen: all steps, and the order of commands and windows.

#include "player_bench.h"

#include "desktop/monitors.h"
#include "fullscreen/frm_panel.h"

namespace tandrel::test
{

using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

class VideoFullScreen : public Player
{
protected:
    /// Monitors in pixels; the console stands on the first.
    void startOn(const std::vector<PixelRect>& monitors)
    {
        world.monitors.set(monitors);
        screen().setMetrics(15, 15, monitors.front());
        tandrel::monitors().Refresh();
        start();
        openSeveral(2);
    }
    /// The first video, by a right click.
    frmChild& goFull()
    {
        frmChild& window = *VideoWindows[0];
        world.pointer.right = true;
        window.SetFocus();
        return window;
    }
};

} // namespace

TEST_F(VideoFullScreen, TheStepsComeInTheirOrder)
{
    world.backend.windows = true;
    startOn({{0, 0, 640, 480}});
    VideoWindows[0]->Move({1500, 1500, 4500, 3000});
    world.journal.clear();
    world.mci.clear();
    goFull();
    const auto steps = chosen(world.journal, [](const std::string& line) {
        const bool slide = line.starts_with("frmPanel place") || line == "frmPanel repaint";
        return !line.starts_with("frmChild.pic") && !line.starts_with("frmPanel.") && !slide &&
               line != "frmPanel before frmChild";
    });
    EXPECT_THAT(shortened(steps),
                ElementsAre("frmChild activate", "frmChild frame untitled bordered",
                            "frmChild frame untitled borderless", "frmChild place 0,0 640x480",
                            "put A window at 0 0 640 480", "frmChild repaint", "frmChild full screen", "frmChild raise",
                            "frmPanel activate", "frmPanel raise", "frmPanel show"));
    EXPECT_THAT(world.journal, Contains("frmPanel before frmChild"));
    const auto slide = startingWith(world.journal, "frmPanel place");
    ASSERT_GT(slide.size(), 457U);
    EXPECT_EQ(slide[1], "frmPanel place 0,480 640x61") << "it is loaded below the screen";
    EXPECT_EQ(slide.back(), "frmPanel place 0,419 640x61");
}

TEST_F(VideoFullScreen, TheOldPlaceIsKept)
{
    startOn({{0, 0, 1920, 1080}});
    VideoWindows[0]->Move({1500, 1650, 4500, 3000});
    goFull();
    EXPECT_EQ(SavedLeft, 1500);
    EXPECT_EQ(SavedTop, 1650);
    EXPECT_EQ(SavedWidth, 4500);
    EXPECT_EQ(SavedHeight, 3000);
}

TEST_F(VideoFullScreen, FlagsFrameStripsAndScreenSaver)
{
    startOn({{0, 0, 1920, 1080}});
    console().Timer4.Enabled = true;
    world.screenSaver.switched.clear();
    frmChild& window = goFull();
    EXPECT_TRUE(FullScreenOn);
    EXPECT_TRUE(window.Full);
    EXPECT_TRUE(PanelUp);
    EXPECT_EQ(FullMedia, alias(0));
    EXPECT_FALSE(window.hasTitleBar());
    EXPECT_FALSE(window.hasBorder());
    EXPECT_EQ(window.picVideo.borderStyle(), 0);
    EXPECT_THAT(world.screenSaver.switched, ElementsAre(true, false)) << "the activation comes first";
    EXPECT_FALSE(console().Timer4.enabled());
    for (const PictureBox* box :
         {&window.picClose, &window.picVRes, &window.picHRes, &window.picBottom, &window.picSide})
        EXPECT_FALSE(box->visible());
}

TEST_F(VideoFullScreen, TheWindowCoversTheMonitorAndThePictureTheWindow)
{
    startOn({{0, 0, 1920, 1080}});
    frmChild& window = goFull();
    EXPECT_EQ(rectOf(window), (Rect{0, 0, 28800, 16200}));
    EXPECT_EQ(rectOf(window.picVideo), (Rect{0, 0, 28800, 16200}));
    EXPECT_THAT(commands(), ElementsAre("put A window at 0 0 1920 1080"));
    EXPECT_TRUE(console().TitleOff);
}

TEST_F(VideoFullScreen, OnAMonitorToTheLeftAndAboveAllPlacesAreNegative)
{
    startOn({{-1280, -1024, 0, 0}, {0, 0, 1920, 1080}});
    frmChild& window = goFull();
    EXPECT_EQ(rectOf(window), (Rect{-19200, -15360, 19200, 15360}));
    EXPECT_EQ(frmPanel().left(), -19200);
    EXPECT_EQ(frmPanel().width(), 19200);
    EXPECT_EQ(frmPanel().top(), -15360 + 15360 - 914);
}

TEST_F(VideoFullScreen, ThePanelSlidesUpInStepsOfTwo)
{
    startOn({{0, 0, 1920, 1080}});
    goFull();
    ASSERT_TRUE(Loaded<class frmPanel>());
    EXPECT_TRUE(frmPanel().visible());
    EXPECT_EQ(frmPanel().top(), 16200 - 914) << "the last even step that is not beyond 915";
    EXPECT_EQ(frmPanel().left(), 0);
    EXPECT_EQ(frmPanel().lblTitle.caption(), "File:: \"/films/a.avi\"");
}

TEST_F(VideoFullScreen, EachPixelOfTheSlideIsPaintedOnceAndNoneIsSkipped)
{
    world.backend.windows = true;
    startOn({{0, 0, 640, 480}});
    goFull();
    const auto repaints = std::count(world.journal.begin(), world.journal.end(), "frmPanel repaint");
    EXPECT_GE(repaints, 915 / 15);
}

TEST_F(VideoFullScreen, ThePanelComesAfterThePictureIsInItsPlace)
{
    world.backend.windows = true;
    startOn({{0, 0, 640, 480}});
    goFull();
    const auto at = [&](const std::string& line) {
        return std::find(world.journal.begin(), world.journal.end(), line) - world.journal.begin();
    };
    const auto count = static_cast<std::ptrdiff_t>(world.journal.size());
    EXPECT_LT(at("put " + alias(0) + " window at 0 0 640 480"), at("frmPanel show"));
    EXPECT_LT(at("frmPanel show"), count);
}

TEST_F(VideoFullScreen, OnAMonitorTooHighFor16BitsTheHandlerEndsWithThePanelInItsPlace)
{
    startOn({{0, 0, 1920, 2200}});
    FullMenuOpen = true;
    console().Timer4.Enabled = true;
    frmChild& window = goFull();
    EXPECT_TRUE(FullScreenOn);
    EXPECT_TRUE(PanelUp);
    EXPECT_EQ(rectOf(window), (Rect{0, 0, 28800, 33000}));
    EXPECT_TRUE(frmPanel().visible());
    EXPECT_EQ(frmPanel().top(), 33000 - 914) << "the panel is usable";
    EXPECT_TRUE(console().Timer4.enabled()) << "the handler ended behind the slide";
    EXPECT_TRUE(FullMenuOpen) << "and with it the activation";
}

TEST_F(VideoFullScreen, TheHighestMonitorThat16BitsHoldStillSlides)
{
    startOn({{0, 0, 1920, 2184}});
    console().Timer4.Enabled = true;
    goFull();
    EXPECT_EQ(frmPanel().top(), 32760 - 914);
    EXPECT_FALSE(console().Timer4.enabled());
}

TEST_F(VideoFullScreen, AnAliasWithBlanksAroundItIsNotTheFullMedia)
{
    startOn({{0, 0, 1920, 1080}});
    VideoWindows[0]->MediaFile = " " + alias(0) + " ";
    goFull();
    EXPECT_FALSE(FullScreenOn);
    EXPECT_FALSE(VideoWindows[0]->Full);
    EXPECT_EQ(FullMedia, " " + alias(0) + " ");
    EXPECT_THAT(world.screenSaver.switched, Each(true));
}

TEST_F(VideoFullScreen, AnActivationInFullScreenSendsThePanelAwayAndKeepsTheVideoFull)
{
    startOn({{0, 0, 1920, 1080}});
    frmChild& window = goFull();
    world.pointer.right = false;
    frmPanel().SetFocus();
    PanelUp = true;
    window.SetFocus();
    EXPECT_FALSE(PanelUp);
    EXPECT_EQ(frmPanel().top(), 16200);
    EXPECT_TRUE(window.Full);
    EXPECT_FALSE(window.picClose.visible());
}

} // namespace tandrel::test
