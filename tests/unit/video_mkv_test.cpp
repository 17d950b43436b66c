// The window of an HD film.

#include "other_media_bench.h"

#include "desktop/wheel.h"
#include "fullscreen/frm_panel.h"

namespace tandrel::test
{

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

class VideoMkv : public OtherMediaConsole
{
protected:
    VideoMkv() { begin(); }
    void tick1() { console().Timer1.tick(); }
    bool isFull() { return frmMKV().picDVD.fullScreen(); }
};

} // namespace

TEST_F(VideoMkv, ItsLoadTellsTheConsoleThatItIsThere)
{
    world.backend.pointerShapes.clear();
    class frmMKV& window = frmMKV();
    EXPECT_TRUE(MkvOpen);
    EXPECT_EQ(window.caption(), "Video/MKV/HD");
    EXPECT_EQ(window.Style.client(), &window);
    EXPECT_TRUE(hasWheelHook(window.hWnd()) || window.hWnd() == 0);
    EXPECT_EQ(window.top(), console().FullTop + 400);
    EXPECT_EQ(window.left(), console().FullLeft + 400);
    EXPECT_THAT(world.backend.pointerShapes, ElementsAre(pointer::kHourglass, pointer::kDefault));
    EXPECT_EQ(window.picDVD.uiMode(), "full");
    EXPECT_THAT(askedOfFilm(), IsEmpty()) << "nothing plays before it is the active window";
}

TEST_F(VideoMkv, ItComesUpAtTheCornerOfTheConsolesMonitor)
{
    moveTo({1920, 200, 3200, 1224});
    class frmMKV& window = frmMKV();
    EXPECT_EQ(window.left(), 1920 * 15 + 400);
    EXPECT_EQ(window.top(), 200 * 15 + 400);
}

TEST_F(VideoMkv, TheWheelIsHookedWhileItIsLoaded)
{
    world.backend.windows = true;
    const WindowHandle handle = frmMKV().hWnd();
    ASSERT_NE(handle, 0U);
    EXPECT_TRUE(hasWheelHook(handle));
    Unload<class frmMKV>();
    EXPECT_FALSE(hasWheelHook(handle));
}

TEST_F(VideoMkv, TheFirstActivationStartsTheFileAndALaterOneLeavesItAlone)
{
    class frmMKV& window = openFilm();
    EXPECT_THAT(askedOfFilm(), Contains(Text("open ") + kHdFilm));
    EXPECT_EQ(window.picDVD.URL(), kHdFilm);
    forgetAsked();
    activateAgain(window);
    EXPECT_THAT(askedOfFilm(), IsEmpty());
}

TEST_F(VideoMkv, AnActivationResetsWhatTheConsoleShows)
{
    class frmMKV& window = openFilm();
    tick1();
    console().SetFocus();
    console().lblSpeed.Caption = "4x";
    console().SeekSlider.Max = 1000;
    console().SeekSlider.Value = 500;
    FullMenuOpen = true;
    ASSERT_TRUE(console().TrackHold);
    world.backend.pointerShapes.clear();
    window.SetFocus();
    EXPECT_FALSE(console().TrackHold);
    EXPECT_EQ(console().lblSpeed.caption(), "0x");
    EXPECT_EQ(console().lblCurTime.caption(), "0:00:00");
    EXPECT_EQ(console().SeekSlider.Value, 0);
    EXPECT_FALSE(FullMenuOpen);
    EXPECT_THAT(world.backend.pointerShapes, ElementsAre(pointer::kHourglass, pointer::kDefault));
}

TEST_F(VideoMkv, ARightButtonThatIsDownAtTheActivationFillsTheScreen)
{
    class frmMKV& window = openFilm();
    console().Timer4.Enabled = true;
    activateAgain(window, true);
    EXPECT_TRUE(isFull());
    EXPECT_TRUE(console().SaverOff);
    EXPECT_EQ(world.screenSaver.switched.back(), false);
    EXPECT_FALSE(console().Timer4.enabled());
    EXPECT_FALSE(FullScreenOn) << "it is the control's own full screen";
    EXPECT_FALSE(Loaded<class frmPanel>());
    ASSERT_TRUE(activeForm() != nullptr);
    EXPECT_EQ(activeForm()->name(), "PlayerScreen");
    EXPECT_TRUE(isSpent(MouseButton::Right));
}

TEST_F(VideoMkv, WithoutALengthItIsNotFilled)
{
    class frmMKV& window = openFilm();
    for (const double length : {0.0, 0.5}) {
        world.players.film.duration = length;
        activateAgain(window, true);
        EXPECT_FALSE(isFull()) << length;
    }
    world.players.film.duration = 100;
    world.players.film.loaded = false;
    activateAgain(window, true);
    EXPECT_FALSE(isFull());
    EXPECT_FALSE(console().SaverOff);
}

TEST_F(VideoMkv, WithTheControlKeyTheRightButtonFillsNothing)
{
    class frmMKV& window = openFilm();
    world.pointer.control = true;
    activateAgain(window, true);
    EXPECT_FALSE(isFull());
    world.pointer.right = true;
    console().TrackHold = false;
    rightPressOn(window);
    EXPECT_FALSE(isFull());
}

TEST_F(VideoMkv, InFullScreenOfAnotherWindowThePanelGoesWithTheRightButtonUp)
{
    class frmMKV& window = openFilm();
    console().SetFocus();
    FullScreenOn = true;
    PanelUp = true;
    frmPanel().Top = 0;
    console().Timer4.Enabled = false;
    window.SetFocus();
    EXPECT_FALSE(PanelUp);
    EXPECT_EQ(frmPanel().top(), console().FullHeight);
    EXPECT_TRUE(console().Timer4.enabled());
    console().SetFocus();
    PanelUp = true;
    frmPanel().Top = 0;
    pressIsOver(MouseButton::Right);
    world.pointer.right = true;
    window.SetFocus();
    EXPECT_TRUE(PanelUp);
    EXPECT_EQ(frmPanel().top(), 0);
    EXPECT_FALSE(isFull());
}

TEST_F(VideoMkv, ThePollReadsTheTextsOfTheControl)
{
    openFilm();
    world.players.film.title = "A Film";
    tick1();
    EXPECT_EQ(console().SeekSlider.Max, 3723);
    EXPECT_EQ(console().SeekSlider.Value, 123);
    EXPECT_EQ(console().lblCurTime.caption(), "02:03");
    EXPECT_EQ(console().lblDuration.caption(), "1:02:03");
    EXPECT_EQ(title(), titled("A Film"));
}

TEST_F(VideoMkv, APlaceOfEightCharactersLosesItsZeroInTheLabelOnly)
{
    openFilm();
    world.players.film.position = 3661;
    tick1();
    EXPECT_EQ(console().SeekSlider.Value, 3661);
    EXPECT_EQ(console().lblCurTime.caption(), "1:01:01");
}

TEST_F(VideoMkv, ThePollWritesTheTitleOnlyWhenItChangesSoThatItScrolls)
{
    openFilm();
    world.players.film.title = "A Film";
    tick1();
    tick2();
    const Text scrolled = title();
    EXPECT_EQ(scrolled, titled("A Film").substr(1));
    tick1();
    EXPECT_EQ(title(), scrolled);
    world.players.film.title = "Another";
    tick1();
    EXPECT_EQ(title(), titled("Another"));
}

TEST_F(VideoMkv, AFileThatCantBeOpenedShowsNoLengthAndAPlaceOfZero)
{
    openFilm();
    tick1();
    world.players.film.trouble = MediaTrouble::NotPlayable;
    world.players.film.loaded = false;
    tick1();
    EXPECT_EQ(console().SeekSlider.Max, 0);
    EXPECT_EQ(console().SeekSlider.Value, 0);
    EXPECT_EQ(console().lblDuration.caption(), "00:00");
    EXPECT_THAT(world.backend.boxes, IsEmpty());
}

TEST_F(VideoMkv, ARightClickOnItFillsTheScreenAndADoubleClickLeads)
{
    class frmMKV& window = openFilm();
    console().TrackHold = false;
    rightPressOn(window);
    EXPECT_TRUE(isFull());
    ClickState = 1.0;
    tick2();
    EXPECT_FALSE(isFull());
    EXPECT_EQ(ClickState, 0);
}

TEST_F(VideoMkv, ButtonsOfTheConsoleReachTheControl)
{
    openFilm();
    forgetAsked();
    console().imgPlay.userClick();
    console().imgPause.userClick();
    console().imgFwd.userClick();
    console().imgRwd.userClick();
    EXPECT_THAT(askedOfFilm(), ElementsAre("play", "pause", "play", "rate 5", "play", "rate -5"));
    forgetAsked();
    console().imgReplay.userClick();
    EXPECT_THAT(askedOfFilm(), Contains(Text("open ") + kHdFilm)) << "from its beginning";
    EXPECT_EQ(frmMKV().picDVD.URL(), kHdFilm);
}

TEST_F(VideoMkv, SlidersOfTheConsoleReachTheControl)
{
    openFilm();
    tick1();
    forgetAsked();
    console().SeekSlider.Value = 600;
    console().SeekSlider.userClick();
    EXPECT_THAT(askedOfFilm(), ElementsAre("seek 600"));
    forgetAsked();
    console().InvertSlider.userScroll(30);
    EXPECT_THAT(askedOfFilm(), ElementsAre("volume 70"));
    EXPECT_EQ(console().VolumeSlider.Value, 70);
    forgetAsked();
    console().imgMute.userClick();
    console().imgMute.userClick();
    EXPECT_THAT(askedOfFilm(), ElementsAre("volume 0", "volume 70"));
}

TEST_F(VideoMkv, HidingTheConsoleHoldsItAndItsReturnPlaysOn)
{
    class frmMKV& window = openFilm();
    forgetAsked();
    console().imgHide.userClick();
    EXPECT_THAT(askedOfFilm(), ElementsAre("pause"));
    EXPECT_FALSE(window.visible());
    forgetAsked();
    console().userRestored();
    EXPECT_TRUE(window.visible());
    EXPECT_THAT(askedOfFilm(), Contains("play"));
    EXPECT_FALSE(world.players.film.paused);
    EXPECT_FALSE(Loaded<class frmWait>());
}

TEST_F(VideoMkv, ItsControlIsLargerThanTheFormAndFillsIt)
{
    class frmMKV& window = openFilm();
    window.Move({0, 0, 9000, 6000});
    EXPECT_EQ(rectOf(window.picDVD), (Rect{0, 0, 9000, 6900}));
    EXPECT_FALSE(console().TitleOff);
    window.Full = true;
    window.Move({0, 0, 3000, 3000});
    EXPECT_EQ(rectOf(window.picDVD), (Rect{0, 0, 9000, 6900}));
    window.Style.Titlebar = false;
    window.Move({0, 0, 5000, 4000});
    EXPECT_EQ(rectOf(window.picDVD), (Rect{0, 0, 4900, 5000}));
    EXPECT_TRUE(console().TitleOff);
}

TEST_F(VideoMkv, AHiddenFormLeavesItsControlAsItIs)
{
    class frmMKV& window = openFilm();
    const Rect before = rectOf(window.picDVD);
    window.Hide();
    window.Move({0, 0, 3000, 3000});
    EXPECT_EQ(rectOf(window.picDVD), before);
}

TEST_F(VideoMkv, TheWheelMakesItLargerRoundedDownAndSmallerNotRoundedSo)
{
    class frmMKV& window = openFilm();
    window.Move({0, 0, 4005, 3009});
    window.MouseWheel(0, 120, 0, 0);
    EXPECT_EQ(window.height(), 3009 + 300);
    EXPECT_EQ(window.width(), 4005 + 400);
    window.Move({0, 0, 4006, 3008});
    window.MouseWheel(0, -120, 0, 0);
    EXPECT_EQ(window.height(), 2707) << "3008 less 300.8";
    EXPECT_EQ(window.width(), 3605) << "4006 less 400.6";
}

TEST_F(VideoMkv, TheWheelStopsAtTheScreensWidthAndAtAHeightOf2000)
{
    class frmMKV& window = openFilm();
    window.Move({0, 0, console().FullWidth, 5000});
    window.MouseWheel(0, 120, 0, 0);
    EXPECT_EQ(window.height(), 5000);
    window.Move({0, 0, 4000, 2000});
    window.MouseWheel(0, -120, 0, 0);
    EXPECT_EQ(rectOf(window), (Rect{0, 0, 4000, 2000}));
    window.MouseWheel(0, 0, 0, 0);
    EXPECT_EQ(rectOf(window), (Rect{0, 0, 4000, 2000}));
    window.Full = true;
    window.Move({0, 0, 4000, 3000});
    window.MouseWheel(0, 120, 0, 0);
    window.MouseWheel(0, -120, 0, 0);
    EXPECT_EQ(rectOf(window), (Rect{0, 0, 4000, 3000}));
}

TEST_F(VideoMkv, ClosingItTakesItsEntryFromTheListAndResetsTheConsole)
{
    console().List2.AddItem("/films/y.avi");
    console().List2.AddItem(kHdFilm);
    console().List2.AddItem("/films/z.avi");
    class frmMKV& window = openFilm();
    console().Timer1.tick();
    unload(window);
    EXPECT_THAT(console().List2.entries(), ElementsAre("/films/y.avi", "/films/z.avi"));
    EXPECT_EQ(console().lblCurTime.caption(), "0:00:00");
    EXPECT_EQ(console().lblDuration.caption(), "0:00:00");
    EXPECT_EQ(title(), "");
    EXPECT_EQ(activeForm(), &console());
    EXPECT_FALSE(MkvOpen);
    EXPECT_EQ(otherMedia().mkv.form, nullptr);
    EXPECT_EQ(world.players.film.alive, 0);
}

TEST_F(VideoMkv, TheForwardButtonPressesItsHiddenOneToo)
{
    openFilm();
    CurrentAlias = alias(0);
    console().imgFwd.userClick();
    EXPECT_TRUE(FastForward);
    FastForward = false;
    CurrentAlias.clear();
    console().imgFwd.userClick();
    EXPECT_FALSE(FastForward);
}

TEST_F(VideoMkv, AFirstActivationWithTheRightButtonDownStillStartsTheFilm)
{
    world.pointer.right = true;
    openFilm();
    EXPECT_EQ(screen().MousePointer(), pointer::kDefault);
    EXPECT_THAT(askedOfFilm(), Contains(Text("open ") + kHdFilm));
}

TEST_F(VideoMkv, TheAliasOfAClosedFilmNamesNothingAnyMore)
{
    CurrentAlias = tandrel::quoted(kHdFilm);
    unload(openFilm());
    EXPECT_EQ(CurrentAlias, "");
    CurrentAlias = alias(0);
    unload(openFilm());
    EXPECT_EQ(CurrentAlias, alias(0));
}

TEST_F(VideoMkv, AnotherActivationBringsItsTitleBack)
{
    class frmMKV& window = openFilm();
    world.players.film.title = "A Film";
    tick1();
    console().lblTitleBar.Caption = "Another window's";
    activateAgain(window);
    tick1();
    EXPECT_EQ(title(), titled("A Film"));
}

TEST_F(VideoMkv, HidingTheConsoleEndsItsFullScreen)
{
    class frmMKV& window = openFilm();
    window.picDVD.fullScreen = true;
    console().imgHide.userClick();
    EXPECT_FALSE(isFull());
    EXPECT_FALSE(window.visible());
    EXPECT_TRUE(world.players.film.paused);
}

TEST_F(VideoMkv, TheBoxForFullScreenTakesItBackToo)
{
    openFilm().picDVD.fullScreen = true;
    console().chkFullscreen.Value = 1;
    console().chkFullscreen.Value = 0;
    EXPECT_FALSE(isFull());
}

TEST_F(VideoMkv, AMonitorThatGoesEndsItsFullScreen)
{
    openFilm().picDVD.fullScreen = true;
    world.monitors.set({{0, 0, 1280, 720}});
    world.monitors.changed();
    EXPECT_FALSE(isFull());
    EXPECT_TRUE(frmMKV().visible());
}

TEST_F(VideoMkv, ClosingItTakesAHandoverThatWaits)
{
    class frmMKV& window = openFilm();
    world.files.content["/data/list.dat"] = {"\"/films/z.mkv\""};
    unload(window);
    ASSERT_TRUE(Loaded<class frmMKV>());
    EXPECT_EQ(frmMKV().picDVD.URL(), "/films/z.mkv");
    EXPECT_TRUE(MkvOpen);
    EXPECT_EQ(otherMedia().mkv.form, &frmMKV());
    EXPECT_EQ(world.players.film.alive, 1);
}

TEST_F(VideoMkv, ClosedInFullScreenItLeavesNoWindowBehind)
{
    openFilm().picDVD.fullScreen = true;
    Unload<class frmMKV>();
    for (const auto& form : openForms())
        EXPECT_NE(form->name(), "PlayerScreen");
    EXPECT_EQ(world.players.film.alive, 0);
}

TEST_F(VideoMkv, WhileItIsFullTheScreenKeepsTheKeys)
{
    class frmMKV& window = openFilm();
    window.picDVD.fullScreen = true;
    Form* screen = activeForm();
    console().SetFocus();
    window.SetFocus();
    EXPECT_EQ(activeForm(), screen);
}

TEST_F(VideoMkv, ItOpensTheTrayAsTheWindowsOfDiscsDo)
{
    openFilm();
    world.mci.clear();
    frmMKV::OpenDoor();
    EXPECT_THAT(world.mci.sent(), ElementsAre("set CDAudio door open"));
}

TEST_F(VideoMkv, OutsideFullScreenAnActivationLeavesTheWatchOnThePointerAlone)
{
    class frmMKV& window = openFilm();
    console().Timer4.Enabled = false;
    activateAgain(window);
    EXPECT_FALSE(console().Timer4.enabled());
}

TEST_F(VideoMkv, AFilmOfTheSameTitleShowsItAnew)
{
    world.players.film.title = "A Film";
    openFilm();
    tick1();
    Unload<class frmMKV>();
    ASSERT_EQ(title(), "");
    openFilm();
    tick1();
    EXPECT_EQ(title(), titled("A Film"));
}

TEST_F(VideoMkv, ItsPictureFollowsItsSize)
{
    class frmMKV& window = openFilm();
    forgetAsked();
    window.Move({0, 0, 9100, 6400});
    EXPECT_THAT(askedOfFilm(), Contains("showIn 0 600x400"));
}

} // namespace tandrel::test
