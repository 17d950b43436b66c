// The menu over a file video that fills the screen.

#include "menu_bench.h"

#include "fullscreen/fullmenu.h"
#include "texts/frm_update.h"

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

namespace
{

class FullMenu : public MenuBench
{
protected:
    /// The second of three videos fills the screen.
    FullMenu() : full_(fullScreen()) { console().SeekSlider.Max = 60000; }
    frmChild& full() { return full_; }
    static class fullmenu& menu() { return fullmenu(); }

private:
    frmChild& full_;
};

/// The flags of full screen and the console's idle timer, in this order.
struct Flags {
    bool menuOpen;
    bool panelUp;
    bool idleTimer;
    friend bool operator==(const Flags&, const Flags&) = default;
};

Flags flags() { return {FullMenuOpen, PanelUp, frmMedia().Timer4.enabled()}; }

} // namespace

// What it consists of.

TEST_F(FullMenu, ItsEntriesStandInTheirOrder)
{
    EXPECT_EQ(menu().mnupopup.caption(), "Full");
    EXPECT_THAT(namesIn(menu().mnupopup),
                ElementsAre("mnuFull", "mnuNull0", "mnuAudioSet", "mnuVideoSet", "mnuNull1", "mnuPlay", "mnuPause",
                            "mnuNull13", "mnuFwd", "mnuRwd", "mnuNull12", "mnu43", "mnu54", "mnu169", "mnu84",
                            "mnuNull2", "mnuPic", "mnuNull3", "mnuNull4", "mnuEsci"));
    EXPECT_THAT(
        shownIn(menu().mnupopup),
        ElementsAre(Pair("mnuFull", "Fullscreen &Off"), Pair("mnuNull0", "-"), Pair("mnuAudioSet", "&Audio Settings"),
                    Pair("mnuVideoSet", "&Video Settings"), Pair("mnuNull1", "-"), Pair("mnuPlay", "&Play"),
                    Pair("mnuPause", "Pa&use"), Pair("mnuNull13", "-"), Pair("mnuNull12", "-"),
                    Pair("mnu43", "Default Format"), Pair("mnu54", "Extended Format"), Pair("mnu169", "Flat Format"),
                    Pair("mnu84", "UltraFlat Format"), Pair("mnuNull2", "-"), Pair("mnuPic", "P&icture 'n Picture"),
                    Pair("mnuNull3", "-"), Pair("mnuNull4", "-"), Pair("mnuEsci", "&Close Menu")));
    EXPECT_EQ(menu().mnuFwd.caption(), "&Fwd >>");
    EXPECT_EQ(menu().mnuRwd.caption(), "&Rwd <<");
    EXPECT_EQ(menu().mnuVideo.size(), 13U);
    EXPECT_EQ(menu().mnuVideo[0]->caption(), "Videos");
    EXPECT_FALSE(menu().mnuVideo[0]->enabled());
}

TEST_F(FullMenu, ItSpeaksTheUsersLanguage)
{
    Language = "DE";
    EXPECT_EQ(menu().mnuFull.caption(), "V&ollbild aus");
    EXPECT_EQ(menu().mnu84.caption(), "Ultraflaches Format");
    EXPECT_EQ(menu().mnuEsci.caption(), "Menü &schließen");
    EXPECT_EQ(menu().mnuVideo[0]->caption(), "Videos");
}

// How it comes and goes.

TEST_F(FullMenu, ARightClickBringsItUpAndHoldsThePanelDown)
{
    Flags seen{};
    rightClick("", [&] {
        seen = flags();
        EXPECT_TRUE(Loaded<class fullmenu>());
        EXPECT_EQ(panel().top(), 16200);
    });
    EXPECT_THAT(world.backend.menus, ElementsAre("fullmenu.mnupopup"));
    EXPECT_EQ(seen, (Flags{true, true, false})) << "Timer3 has seen the panel up, the load has dropped it";
    EXPECT_THAT(world.backend.slides, Not(::testing::IsEmpty()));
    EXPECT_FALSE(FullMenuOpen) << "dismissed without a choice";
    EXPECT_FALSE(Loaded<class fullmenu>());
    EXPECT_FALSE(console().Timer4.enabled());
}

TEST_F(FullMenu, AClickThatIsOverBeforeTheTickBringsItUpToo)
{
    panel().SetFocus();
    pressIsOver(MouseButton::Right);
    world.pointer.rightLatched = true;
    full().SetFocus();
    EXPECT_THAT(world.backend.menus, IsEmpty());
    console().Timer3.tick();
    EXPECT_THAT(world.backend.menus, ElementsAre("fullmenu.mnupopup"));
    console().Timer3.tick();
    EXPECT_EQ(world.backend.menus.size(), 1U) << "once";
}

TEST_F(FullMenu, ItDropsThePanelWithoutASlide)
{
    world.backend.slides.clear();
    rightClick();
    EXPECT_THAT(world.backend.slides, IsEmpty());
    EXPECT_EQ(panel().top(), 16200);
}

TEST_F(FullMenu, AParkedPointerComesHomeFirst)
{
    console().CursorParked = true;
    console().CursorHomeX = 700;
    console().CursorHomeY = 500;
    world.pointer.moves.clear();
    rightClick("", [&] { EXPECT_THAT(world.pointer.moves, ElementsAre(PixelPoint{700, 500})); });
    EXPECT_TRUE(world.pointer.shown);
    EXPECT_FALSE(console().CursorParked);
}

TEST_F(FullMenu, WithTheConsoleSelectedNothingComesUp)
{
    console().TrackHold = true;
    world.pointer.right = true;
    console().Timer3.tick();
    EXPECT_THAT(world.backend.menus, IsEmpty());
}

TEST_F(FullMenu, ALeftClickOnThePictureTidiesItAway)
{
    menu();
    FullMenuOpen = false;
    putPanelBelow();
    ClickState = 0;
    ClickCount = 0;
    console().lblTimeClick.Caption = "Your Left Mouse Button Is UP";
    world.pointer.left = true;
    console().Timer3.tick();
    EXPECT_FALSE(Loaded<class fullmenu>());
    EXPECT_FALSE(Loaded<class frmPanel>());
}

// The ends of its commands.

TEST_F(FullMenu, CloseMenuLeavesThePanelMarkedAsUp)
{
    choose(menu().mnuEsci);
    EXPECT_EQ(flags(), (Flags{false, true, true}));
    EXPECT_FALSE(Loaded<class fullmenu>());
    EXPECT_TRUE(full().Full && FullScreenOn);
}

TEST_F(FullMenu, FullscreenOffLeadsOutByTheNextTick)
{
    ClickState = 0;
    console().Timer2.Enabled = true;
    console().TrackHold = true;
    choose(menu().mnuFull);
    EXPECT_EQ(flags(), (Flags{false, false, true}));
    EXPECT_EQ(ClickState, 1.0);
    EXPECT_FALSE(console().TrackHold);
    EXPECT_FALSE(Loaded<class frmPanel>());
    EXPECT_FALSE(Loaded<class fullmenu>());
    EXPECT_THAT(world.backend.hastened, ::testing::Contains("frmMedia.Timer2"));
    EXPECT_TRUE(FullScreenOn);
    console().Timer2.tick();
    EXPECT_FALSE(FullScreenOn || full().Full);
}

TEST_F(FullMenu, WhatOnlyPlaysLeavesTheFlagsToTheTick)
{
    for (const char* entry : {"mnuPlay", "mnuPause"}) {
        putPanelBelow();
        PanelUp = false;
        console().Timer4.Enabled = true;
        rightClick(entry);
        EXPECT_EQ(flags(), (Flags{false, false, false})) << entry;
        EXPECT_FALSE(Loaded<class fullmenu>()) << entry;
    }
}

// Formats.

namespace
{
struct Format {
    const char* entry;
    Rect picture;
    std::vector<std::string> sent;
};
} // namespace

TEST_F(FullMenu, EachFormatChangesHeightAndTopOfThePicture)
{
    const std::vector<Format> formats{
        {"mnu54", {0, (16200 - 30316) / 2, 28800, 30316}, {"put B window at 0 0 1920 2021"}},
        {"mnu169", {0, 0, 28800, 16200}, {"put B window at 0 0 1920 1080"}},
        {"mnu84", {0, 900, 28800, 14400}, {"put B window at 0 0 1920 960"}},
        {"mnu43", {0, 0, 28800, 16200}, {"put B window at 0 0 1920 1080"}},
    };
    for (const Format& format : formats) {
        rightClick(format.entry);
        EXPECT_EQ(rectOf(full().picVideo), format.picture) << format.entry;
        EXPECT_THAT(commands(), ::testing::ElementsAreArray(format.sent)) << format.entry;
        EXPECT_EQ(activeForm(), &full()) << format.entry;
        EXPECT_TRUE(console().Timer4.enabled()) << format.entry;
        EXPECT_FALSE(Loaded<class fullmenu>()) << format.entry;
        rightClick(format.entry);
        EXPECT_EQ(rectOf(full().picVideo), format.picture) << format.entry << " twice";
        EXPECT_THAT(commands(), IsEmpty()) << format.entry << " twice";
    }
}

TEST_F(FullMenu, TheDefaultFormatOnAWindowWithoutOneLeavesAllAsItWas)
{
    const Rect before = rectOf(full().picVideo);
    rightClick("mnu43");
    EXPECT_EQ(rectOf(full().picVideo), before);
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(FullMenu, WithoutASelectedWindowAFormatChangesNothing)
{
    CurrentAlias = "\"/elsewhere.avi\"";
    const Rect before = rectOf(full().picVideo);
    choose(menu().mnu84);
    EXPECT_EQ(rectOf(full().picVideo), before);
    EXPECT_EQ(flags(), (Flags{true, true, true})) << "the tick that has brought the menu up clears the first";
    EXPECT_FALSE(Loaded<class fullmenu>());
}

// Play, pause and jumps.

TEST_F(FullMenu, PlayResumesTheHeldVideoAtTheSlidersPlace)
{
    full().Paused = 1;
    full().Volume = 30;
    console().SeekSlider.Value = 12345;
    rightClick("mnuPlay");
    EXPECT_THAT(commands(),
                ElementsAre("set B time format ms", "seek B to 12345", "Play B", "setaudio B Volume to 300"));
    EXPECT_EQ(full().Paused, 0);
}

TEST_F(FullMenu, PlayOnAVideoThatRunsDoesNothing)
{
    rightClick("mnuPlay");
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(FullMenu, PlayEndsAJump)
{
    full().Paused = 1;
    console().VolumeSlider.Value = 40;
    FastRewind = true;
    menu().mnuPlay.Click();
    EXPECT_FALSE(FastForward || FastRewind);
    EXPECT_EQ(commands().back(), "setaudio B Volume to 400");
    EXPECT_EQ(full().Paused, 1);
}

TEST_F(FullMenu, PlayAndPauseNeedASelectedVideo)
{
    CurrentAlias.clear();
    FastForward = true;
    menu().mnuPlay.Click();
    menu().mnuPause.Click();
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_TRUE(FastForward);
}

TEST_F(FullMenu, PauseHoldsTheSelectedVideo)
{
    rightClick("mnuPause");
    EXPECT_THAT(commands(), ElementsAre("Pause B"));
    EXPECT_THAT(paused(), ElementsAre(0, 1, 0));
    EXPECT_TRUE(panel().imgPause.visible()) << "the panel's pictures stay";
}

TEST_F(FullMenu, TheHiddenJumpsWorkLikeThoseOfThePanel)
{
    EXPECT_FALSE(menu().mnuFwd.visible() || menu().mnuRwd.visible());
    console().VolumeSlider.Value = 40;
    menu().mnuFwd.Click();
    EXPECT_TRUE(FastForward && !FastRewind);
    forgetCommands();
    menu().mnuRwd.Click();
    EXPECT_FALSE(FastForward || FastRewind) << "it ends the jump the other way";
    EXPECT_THAT(commands(), ElementsAre("setaudio B Volume to 400"));
    menu().mnuRwd.Click();
    EXPECT_TRUE(FastRewind && !FastForward);
    forgetCommands();
    menu().mnuFwd.Click();
    EXPECT_FALSE(FastForward || FastRewind);
    EXPECT_THAT(commands(), ElementsAre("setaudio B Volume to 400"));
    CurrentAlias.clear();
    menu().mnuFwd.Click();
    menu().mnuRwd.Click();
    EXPECT_FALSE(FastForward || FastRewind);
}

// The list of videos.

TEST_F(FullMenu, TheVideosAreListedByTheirPlaceInTheTable)
{
    VideoWindows[0]->MediaFile.clear();
    EXPECT_THAT(shownIn(menu().mnuPic),
                ElementsAre(Pair("mnuVideo0", "Videos"), Pair("mnuVideo2", film(1)), Pair("mnuVideo3", film(2))));
    EXPECT_FALSE(menu().mnuVideo[1]->enabled()) << "a hole";
    EXPECT_EQ(menu().mnuVideo[1]->caption(), "");
    EXPECT_TRUE(menu().mnuVideo[2]->enabled());
    EXPECT_EQ(menu().mnuVideo[2]->shown, "&2   b.avi");
}

TEST_F(FullMenu, OnlyTheFullOneIsChecked)
{
    std::vector<bool> checked;
    for (const auto& entry : menu().mnuVideo)
        checked.push_back(entry->checked());
    EXPECT_THAT(checked,
                ElementsAre(false, false, true, false, false, false, false, false, false, false, false, false, false));
}

TEST_F(FullMenu, AnAmpersandInANameIsSeenAsOne)
{
    VideoWindows[2]->Caption = "§/films/a & b.avi";
    EXPECT_EQ(menu().mnuVideo[3]->caption(), "/films/a & b.avi");
    EXPECT_EQ(menu().mnuVideo[3]->shown, "&3   a && b.avi");
}

TEST_F(FullMenu, AChosenVideoComesBeforeTheFullOne)
{
    world.backend.windows = true;
    choose(*menu().mnuVideo[3]);
    EXPECT_EQ(activeForm(), VideoWindows[2].get());
    EXPECT_EQ(CurrentAlias, alias(2));
    EXPECT_TRUE(full().Full && FullScreenOn);
    EXPECT_TRUE(console().Timer4.enabled());
    EXPECT_FALSE(Loaded<class fullmenu>());
}

TEST(FullMenuOfTwelve, TheTwelfthVideoIsTheLastEntryAndOneBeyondTakesAHole)
{
    class Twelve : public MenuBench
    {
    public:
        void TestBody() override
        {
            openOn({{0, 0, 1920, 1080}}, 12);
            fill(1);
            EXPECT_EQ(fullmenu().mnuVideo.back()->caption(), film(11));
            EXPECT_TRUE(fullmenu().mnuVideo.back()->visible());
            unload(fullmenu());
            const std::shared_ptr<frmChild> last = VideoWindows[11];
            VideoWindows.push_back(last);
            VideoWindows[11] = nullptr;
            VideoWindows[4]->MediaFile.clear();
            EXPECT_EQ(fullmenu().mnuVideo[5]->caption(), film(11)) << "the first hidden entry";
            EXPECT_FALSE(fullmenu().mnuVideo[12]->visible());
        }
    };
    Twelve().TestBody();
}

TEST_F(FullMenu, ATabInANameIsNoShortcut)
{
    VideoWindows[2]->Caption = "§/films/a\tb.avi";
    EXPECT_EQ(menu().mnuVideo[3]->caption(), "/films/a\tb.avi");
    EXPECT_EQ(menu().mnuVideo[3]->shown, "&3   a b.avi");
}

TEST_F(FullMenu, TheIdleTimerAndThePanelsFlagComeBeforeTheEffect)
{
    Flags seen{};
    world.backend.whileModal["frmUpdate"] = [&](Form&) { seen = flags(); };
    world.files.content.clear();
    choose(menu().mnuVideoSet);
    EXPECT_TRUE(seen.idleTimer && seen.panelUp);
}

TEST_F(FullMenu, TheTickGoesOnBehindFullscreenOff)
{
    console().Timer2.Enabled = true;
    rightClick("mnuFull");
    EXPECT_EQ(ClickState, 1.0);
    EXPECT_FALSE(PanelUp || FullMenuOpen);
    console().Timer2.tick();
    EXPECT_FALSE(FullScreenOn || full().Full || Loaded<class frmPanel>());
}

} // namespace tandrel::test
