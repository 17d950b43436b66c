// What keys do over a full picture: those of the panel, and those of the menu there.

#include "fake_controls.h"
#include "keys_bench.h"

#include "fullscreen/fullmenu.h"
#include "texts/frm_update.h"
#include "texts/localised.h"
#include "toolkit/activation.h"

#include <map>

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

using FullScreenKeys = KeysBench;

} // namespace

TEST_F(FullScreenKeys, OverAFullPictureThePanelsButtonsArePressed)
{
    frmChild& full = fullScreen();
    const std::map<Text, Image frmPanel::*> buttons{{"L", &frmPanel::imgPlay},       {"P", &frmPanel::imgPause},
                                                    {"F", &frmPanel::imgFwd},        {"R", &frmPanel::imgRwd},
                                                    {"M", &frmPanel::imgVolButton},  {"F11", &frmPanel::imgNoFull},
                                                    {"Escape", &frmPanel::imgNoFull}};
    for (const auto& [key, image] : buttons) {
        int clicks = 0;
        (panel().*image).Click = [&] { ++clicks; };
        EXPECT_TRUE(full.Shortcut({key, 0, false})) << key;
        EXPECT_EQ(clicks, 1) << key;
    }
}

TEST_F(FullScreenKeys, TheDiscsMenuIsForDiscs)
{
    fullScreen();
    int menus = 0;
    int replays = 0;
    panel().imgDVD.Click = [&] { ++menus; };
    console().imgReplay.Click = [&] { ++replays; };
    press("Backspace");
    EXPECT_EQ(replays, 1);
    DVDMode = true;
    press("Backspace");
    EXPECT_EQ(menus, 1);
}

TEST_F(FullScreenKeys, WhatBelongsToWindowsWaitsForThem)
{
    fullScreen();
    for (const char* key : {"O", "D", "Plus", "Ctrl+O", "Ctrl+1", "H", "I", "A", "Period"})
        EXPECT_FALSE(press(key)) << key;
    EXPECT_THAT(world.backend.menus, IsEmpty());
    EXPECT_TRUE(press("C")) << "a picture can be taken of it";
}

TEST_F(FullScreenKeys, EscapeEndsFullScreen)
{
    frmChild& full = fullScreen();
    console().Timer2.Enabled = true;
    EXPECT_TRUE(full.Shortcut({"Escape", 27, false}));
    console().Timer2.tick();
    EXPECT_FALSE(FullScreenOn);
    EXPECT_FALSE(press("Escape"));
}

TEST_F(FullScreenKeys, ThePanelKeepsItsOwnKeysWhateverTheUserChooses)
{
    world.keyFile.holds("mute = L, P, F, R, 1\nplay = F5\n");
    fullScreen();
    int mutes = 0;
    panel().imgVolButton.Click = [&] { ++mutes; };
    for (const char key : {'l', 'p', 'f', 'r', '1'})
        EXPECT_FALSE(panel().Shortcut({upper(Text(1, key)), key, false})) << key;
    EXPECT_EQ(mutes, 0);
    // Those that the panel has no meaning for.
    EXPECT_TRUE(panel().Shortcut({"L", 'L', false}));
    EXPECT_EQ(mutes, 1);
    EXPECT_TRUE(panel().Shortcut({"F5", 0, false}));
}

TEST_F(FullScreenKeys, WithCtrlAltOrMetaAKeyIsNotThePanelsOwn)
{
    world.keyFile.holds("mute = Alt+P, Ctrl+1, Meta+L\n");
    fullScreen();
    int mutes = 0;
    panel().imgVolButton.Click = [&] { ++mutes; };
    EXPECT_TRUE(panel().Shortcut({"Alt+P", 'p', false}));
    EXPECT_TRUE(panel().Shortcut({"Ctrl+1", '1', false}));
    EXPECT_TRUE(panel().Shortcut({"Meta+L", 'l', false}));
    EXPECT_EQ(mutes, 3);
}

TEST_F(FullScreenKeys, ThePanelsTipsShowTheirKeys)
{
    fullScreen();
    EXPECT_EQ(panel().imgPlay.shortcut(), "L");
    EXPECT_EQ(panel().imgPause.shortcut(), "P");
    EXPECT_EQ(panel().imgFwd.shortcut(), "F");
    EXPECT_EQ(panel().imgRwd.shortcut(), "R");
    EXPECT_EQ(panel().imgDVD.shortcut(), "Backspace");
    EXPECT_EQ(panel().imgVolButton.shortcut(), "M");
    EXPECT_EQ(panel().imgNoFull.shortcut(), "F11, Esc");
    EXPECT_EQ(panel().imgPlay.toolTip(), "Play");
}

TEST_F(FullScreenKeys, TheVolumeOfThePanelFollows)
{
    fullScreen();
    press("Up");
    EXPECT_EQ(panel().InvertSlider.Value(), console().VolumeSlider.Value());
    EXPECT_EQ(console().VolumeSlider.Value(), 60);
}

// The menu over the picture.

TEST_F(FullScreenKeys, EachFormatHasItsKey)
{
    frmChild& full = fullScreen();
    const std::map<Text, Rect> pictures{{"Ctrl+E", {0, (16200 - 30316) / 2, 28800, 30316}},
                                        {"Ctrl+F", {0, 0, 28800, 16200}},
                                        {"Ctrl+U", {0, 900, 28800, 14400}},
                                        {"Ctrl+N", {0, 0, 28800, 16200}}};
    for (const auto& [key, picture] : pictures) {
        full.picVideo.Height = 3000;
        EXPECT_TRUE(full.Shortcut({key, 0, false})) << key;
        EXPECT_EQ(rectOf(full.picVideo), picture) << key;
        EXPECT_FALSE(Loaded<class fullmenu>() || FullMenuOpen) << key;
        EXPECT_TRUE(console().Timer4.enabled()) << key;
    }
    EXPECT_TRUE(FullScreenOn);
    EXPECT_THAT(world.backend.menus, IsEmpty());
}

TEST_F(FullScreenKeys, TheSettingsAreThoseOfTheMenu)
{
    fullScreen();
    std::vector<Text> told;
    world.backend.whileModal["frmUpdate"] = [&](Form& form) {
        told.push_back(dynamic_cast<class frmUpdate&>(form).lblUpdate.caption());
    };
    EXPECT_TRUE(press("V"));
    EXPECT_TRUE(press("U"));
    EXPECT_THAT(told, ElementsAre(localised("message.videoNotFound"), localised("message.audioNotFound")));
    EXPECT_FALSE(Loaded<class fullmenu>() || FullMenuOpen);
}

TEST_F(FullScreenKeys, PictureInPictureBringsTheListOfVideos)
{
    frmChild& full = fullScreen();
    world.backend.menuChoice = "mnuVideo3";
    EXPECT_TRUE(full.Shortcut({"Ctrl+I", 0, false}));
    EXPECT_THAT(world.backend.menus, ElementsAre("fullmenu.mnuPic"));
    EXPECT_EQ(activeForm(), VideoWindows[2].get());
    EXPECT_TRUE(full.Full && FullScreenOn);
    EXPECT_FALSE(Loaded<class fullmenu>() || FullMenuOpen);
}

TEST_F(FullScreenKeys, AListThatIsLeftLeavesThePointerAsItWas)
{
    fullScreen();
    for (const bool idle : {true, false}) {
        console().Timer4.Enabled = idle;
        EXPECT_TRUE(press("Ctrl+I"));
        EXPECT_EQ(console().Timer4.enabled(), idle);
        EXPECT_FALSE(Loaded<class fullmenu>() || FullMenuOpen);
    }
}

TEST_F(FullScreenKeys, AParkedPointerComesBackForTheList)
{
    fullScreen();
    console().CursorParked = true;
    world.backend.whileMenuIsUp = [&] { EXPECT_FALSE(console().CursorParked); };
    EXPECT_TRUE(press("Ctrl+I"));
    EXPECT_EQ(world.backend.menus.size(), 1U);
}

TEST_F(FullScreenKeys, TheMenuShowsItsKeys)
{
    fullScreen();
    EXPECT_EQ(fullmenu().mnuFull.shortcut, "F11, Esc");
    EXPECT_EQ(fullmenu().mnuVideoSet.shortcut, "V");
    EXPECT_EQ(fullmenu().mnuAudioSet.shortcut, "U");
    EXPECT_EQ(fullmenu().mnuPlay.shortcut, "L");
    EXPECT_EQ(fullmenu().mnuPause.shortcut, "P");
    EXPECT_EQ(fullmenu().mnu43.shortcut, "Ctrl+N");
    EXPECT_EQ(fullmenu().mnu54.shortcut, "Ctrl+E");
    EXPECT_EQ(fullmenu().mnu169.shortcut, "Ctrl+F");
    EXPECT_EQ(fullmenu().mnu84.shortcut, "Ctrl+U");
    EXPECT_EQ(fullmenu().mnuPic.shortcut, "Ctrl+I");
    EXPECT_EQ(fullmenu().mnuVideo[3]->shortcut, "3");
    EXPECT_EQ(fullmenu().mnuVideo[4]->shortcut, "") << "there is no fourth video";
}

TEST_F(FullScreenKeys, TheMenuShowsTheUsersKeys)
{
    world.keyFile.holds("full-screen =\nleave-full-screen = X\nformat-flat = F8\nvideo-3 =\n");
    fullScreen();
    EXPECT_EQ(fullmenu().mnuFull.shortcut, "X");
    EXPECT_EQ(fullmenu().mnu169.shortcut, "F8");
    EXPECT_EQ(fullmenu().mnuVideo[3]->shortcut, "");
}

TEST_F(FullScreenKeys, AFullHdFilmHasNoSuchMenu)
{
    start("0");
    open(0);
    OtherMediaBench bench;
    MkvOpen = true;
    bench.mkv.full = true;
    const Rect before = rectOf(VideoWindows[0]->picVideo);
    for (const char* key : {"Ctrl+E", "Ctrl+F", "Ctrl+U", "Ctrl+N", "Ctrl+I", "V", "U"})
        EXPECT_FALSE(press(key)) << key;
    EXPECT_EQ(rectOf(VideoWindows[0]->picVideo), before);
    EXPECT_FALSE(Loaded<class fullmenu>() || FullMenuOpen);
}

} // namespace tandrel::test
