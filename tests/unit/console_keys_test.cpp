// What the keys of the console and of the windows do while no picture is full.

#include "keys_bench.h"

#include "console/key_commands.h"
#include "texts/frm_help.h"
#include "texts/frm_keys.h"
#include "toolkit/activation.h"

#include <map>
#include <set>

namespace tandrel::test
{

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

namespace
{

/// Which control each key presses.
const std::map<Text, Image ConsoleControls::*> kImages{
    {"L", &frmMedia::imgPlay},
    {"P", &frmMedia::imgPause},
    {"F", &frmMedia::imgFwd},
    {"R", &frmMedia::imgRwd},
    {"Backspace", &frmMedia::imgReplay},
    {"Up", &frmMedia::imgMax},
    {"Down", &frmMedia::imgMin},
    {"M", &frmMedia::imgMute},
    {"Comma", &frmMedia::imgBack},
    {"Period", &frmMedia::imgStep},
    {"A", &frmMedia::imgPauseAll},
    {"Y", &frmMedia::imgResync},
    {"D", &frmMedia::imgResize},
    {"O", &frmMedia::imgOpen},
    {"S", &frmMedia::imgStill},
    {"V", &frmMedia::imgVideo},
    {"U", &frmMedia::imgAudio},
    {"W", &frmMedia::imgShare},
    {"Ctrl+Shift+F", &frmMedia::imgFaceBook},
    {"Ctrl+Shift+T", &frmMedia::imgTwitter},
    {"H", &frmMedia::imgHelp},
    {"F1", &frmMedia::imgHelp},
    {"I", &frmMedia::imgHide},
    {"N", &frmMedia::imgDwn},
    {"Ctrl+Q", &frmMedia::imgExit},
};

using ConsoleKeys = KeysBench;

} // namespace

TEST_F(ConsoleKeys, AKeyIsAClickOnItsButton)
{
    start("0");
    openSeveral(2);
    for (const auto& [key, image] : kImages) {
        int clicks = 0;
        (console().*image).Click = [&] { ++clicks; };
        EXPECT_TRUE(press(key)) << key;
        EXPECT_EQ(clicks, 1) << key;
    }
}

TEST_F(ConsoleKeys, EveryButtonOfTheConsoleHasAKeyInItsTip)
{
    start();
    int buttons = 0;
    for (Control* control : console().controls()) {
        const auto* image = dynamic_cast<Image*>(control);
        const bool button = (image && image->tabStop) || control == &console().SeekSlider ||
                            control == &console().chkFullscreen ||
                            (dynamic_cast<CommandButton*>(control) && control->visible());
        buttons += button ? 1 : 0;
        EXPECT_EQ(!control->shortcut().empty(), button) << control->name();
    }
    EXPECT_EQ(buttons, 24 + 1 + 1 + 2);
    EXPECT_EQ(console().imgPlay.shortcut(), "L");
    EXPECT_EQ(console().imgHelp.shortcut(), "F1, H");
    EXPECT_EQ(console().imgStep.shortcut(), ".");
    EXPECT_EQ(console().SeekSlider.shortcut(), "Left, J, Right, K");
    EXPECT_EQ(console().imgPlay.toolTip(), "Play") << "the tip itself stays";
}

TEST_F(ConsoleKeys, AKeyIsAClickOnItsEntry)
{
    start("0");
    const std::vector<Text> keys{"Ctrl+1", "Ctrl+2", "Ctrl+O",  "Ctrl+Shift+O", "Ctrl+R",
                                 "Ctrl+D", "C",      "Shift+C", "Ctrl+Shift+M", "Ctrl+Shift+H"};
    const auto all = entries();
    ASSERT_EQ(all.size(), keys.size());
    for (std::size_t at = 0; at < all.size(); ++at) {
        int clicks = 0;
        all[at]->Click = [&] { ++clicks; };
        EXPECT_TRUE(press(keys[at])) << keys[at];
        EXPECT_EQ(clicks, 1) << keys[at];
        EXPECT_EQ(all[at]->shortcut, keys[at]);
    }
}

TEST_F(ConsoleKeys, EntriesOfButtonsThatHaveAKeyShowIt)
{
    start();
    EXPECT_EQ(menu().mnuHelp.shortcut, "F1, H");
    EXPECT_EQ(menu().mnuAutor.shortcut, "Ctrl+Shift+H");
    EXPECT_EQ(menu().mnuEsci.shortcut, "Ctrl+Q");
    EXPECT_EQ(share().mnuFacebook.shortcut, "Ctrl+Shift+F");
    EXPECT_EQ(share().mnuTwitter.shortcut, "Ctrl+Shift+T");
}

TEST_F(ConsoleKeys, EveryCommandIsTestedHere)
{
    start();
    std::set<Text> untested;
    for (const KeyCommand& command : keyCommands())
        untested.insert(command.name);
    const std::vector<Text> others{
        "play-pause", "jump-back",   "jump-on",           "next-video",       "previous-video",
        "larger",     "smaller",     "full-screen",       "format-default",   "format-extended",
        "keys",       "format-flat", "leave-full-screen", "format-ultraflat", "picture-in-picture"};
    for (const Text& name : others)
        EXPECT_EQ(untested.erase(name), 1U) << name;
    for (int number = 1; number <= MaxVideos; ++number)
        EXPECT_EQ(untested.erase("video-" + std::to_string(number)), 1U) << number;
    // "help" has two of the keys.
    EXPECT_EQ(untested.size(), entries().size() + kImages.size() - 1) << ::testing::PrintToString(untested);
}

// Exact commands.

TEST_F(ConsoleKeys, PlayAndPauseAreThoseOfTheConsole)
{
    start("0");
    openSeveral(2);
    EXPECT_THAT(sentBy("P"), ElementsAre("Pause B"));
    EXPECT_EQ(VideoWindows[1]->Paused, 1);
    EXPECT_EQ(sentBy("L").front(), "set B time format ms");
    EXPECT_EQ(VideoWindows[1]->Paused, 0);
}

TEST_F(ConsoleKeys, SpaceHoldsTheVideoAndLetsItGoOn)
{
    start("0");
    open(0);
    world.mci.looks[alias(0)] = DeviceLook{.playing = true, .place = 1.5, .length = 60};
    EXPECT_THAT(sentBy("Space"), ElementsAre("Pause A"));
    world.mci.looks[alias(0)] = DeviceLook{.playing = false, .place = 1.5, .length = 60};
    EXPECT_EQ(sentBy("Space").front(), "Play A ");
    EXPECT_EQ(VideoWindows[0]->Paused, 0);
}

TEST_F(ConsoleKeys, WhatStandsAtItsEndStands)
{
    start("0");
    open(0);
    console().SeekSlider.Max = 66000;
    world.mci.looks[alias(0)] = DeviceLook{.playing = false, .ended = true, .place = 66, .length = 66};
    EXPECT_THAT(sentBy("Left"), Not(Contains(StartsWith("Play")))) << "it is held where the jump leads";
    EXPECT_EQ(console().SeekSlider.Value(), 64000);
    EXPECT_THAT(sentBy("Space"), Contains(StartsWith("Play A"))) << "from its beginning";
}

TEST_F(ConsoleKeys, AJumpIsAPageOfTheSlider)
{
    start("0");
    open(0);
    VideoWindows[0]->Paused = 0;
    world.mci.looks[alias(0)] = DeviceLook{.playing = true, .place = 30, .length = 66};
    console().SeekSlider.Max = 66000;
    sentBy("Right");
    EXPECT_EQ(console().SeekSlider.Value(), 32000);
    sentBy("K");
    EXPECT_EQ(console().SeekSlider.Value(), 32000);
    sentBy("Left");
    EXPECT_EQ(console().SeekSlider.Value(), 28000);
    sentBy("J");
    EXPECT_EQ(console().SeekSlider.Value(), 28000);
    EXPECT_EQ(activeForm(), VideoWindows[0].get()) << "the focus stays where the user is";
}

TEST_F(ConsoleKeys, AJumpStopsAtTheEnds)
{
    start("0");
    open(0);
    console().SeekSlider.Max = 66000;
    world.mci.looks[alias(0)] = DeviceLook{.playing = true, .place = 0.5, .length = 66};
    sentBy("Left");
    EXPECT_EQ(console().SeekSlider.Value(), 0);
    world.mci.looks[alias(0)] = DeviceLook{.playing = true, .place = 65, .length = 66};
    EXPECT_THAT(sentBy("Right"), IsEmpty());
    world.mci.looks[alias(0)] = DeviceLook{.playing = true, .place = 1, .length = std::nullopt};
    EXPECT_THAT(sentBy("Right"), IsEmpty()) << "of a medium without a length nobody knows how far";
}

TEST_F(ConsoleKeys, WithoutAVideoTheyDoNothing)
{
    start("0");
    for (const char* key : {"Left", "Right", "Space", "Ctrl+Tab", "1", "9", "Up", "Plus", "P", "L"})
        EXPECT_THAT(sentBy(key), IsEmpty()) << key;
}

TEST_F(ConsoleKeys, LouderAndQuieterGoByTen)
{
    start("0");
    open(0);
    EXPECT_THAT(sentBy("Up"), ElementsAre("setaudio A Volume to 600"));
    EXPECT_THAT(sentBy("Down"), ElementsAre("setaudio A Volume to 500"));
}

TEST_F(ConsoleKeys, TheNumberBringsItsVideo)
{
    start("0");
    openSeveral(3);
    sentBy("1");
    EXPECT_EQ(activeForm(), VideoWindows[0].get());
    sentBy("3");
    EXPECT_EQ(activeForm(), VideoWindows[2].get());
    sentBy("9");
    EXPECT_EQ(activeForm(), VideoWindows[2].get());
}

TEST_F(ConsoleKeys, AllTwelveVideosHaveAKey)
{
    start("0");
    openSeveral(12);
    const std::vector<Text> keys{"1", "2", "3", "4", "5", "6", "7", "8", "9", "0", "Alt+1", "Alt+2"};
    for (std::size_t at = 0; at < keys.size(); ++at) {
        sentBy(keys[at]);
        EXPECT_EQ(activeForm(), VideoWindows[at].get()) << keys[at];
        EXPECT_EQ(keysOfVideo(at + 1), keys[at]);
    }
    EXPECT_EQ(keysOfVideo(13), "");
}

TEST_F(ConsoleKeys, FromOneVideoToTheNext)
{
    start("0");
    openSeveral(3);
    VideoWindows[0]->SetFocus();
    sentBy("Ctrl+Tab");
    EXPECT_EQ(activeForm(), VideoWindows[1].get());
    sentBy("Ctrl+Shift+Tab");
    EXPECT_EQ(activeForm(), VideoWindows[0].get());
    sentBy("Ctrl+Shift+Tab");
    EXPECT_EQ(activeForm(), VideoWindows[2].get()) << "the row has no ends";
}

TEST_F(ConsoleKeys, LargerAndSmaller)
{
    start("0");
    open(0);
    sentBy("Plus");
    EXPECT_EQ(SizePercent, 125);
    sentBy("Minus");
    EXPECT_EQ(SizePercent, 100);
}

TEST_F(ConsoleKeys, TheListOfKeysComesUp)
{
    start();
    EXPECT_TRUE(press("Ctrl+K"));
    EXPECT_TRUE(frmKeys().visible());
    Unload<class frmKeys>();
    frmHelp().cmdKeys.userClick();
    EXPECT_TRUE(frmKeys().visible());
}

// Where they are heard.

TEST_F(ConsoleKeys, VideoWindowsHearThemToo)
{
    start("0");
    frmChild& window = open(0);
    forgetCommands();
    EXPECT_TRUE(window.Shortcut({"P", 'p', false}));
    EXPECT_THAT(commands(), ElementsAre("Pause A"));
}

TEST_F(ConsoleKeys, AHeldKeyCountsOnceButForThoseThatGoOn)
{
    start("0");
    open(0);
    forgetCommands();
    EXPECT_TRUE(press("P", true));
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_TRUE(press("Up", true));
    EXPECT_THAT(commands(), ElementsAre("setaudio A Volume to 600"));
}

TEST_F(ConsoleKeys, AnyOtherKeyIsLeftToWhoeverWantsIt)
{
    start("0");
    open(0);
    for (const char* key : {"", "Q", "Ctrl+L", "Ctrl+U", "Ctrl+I", "Shift+L", "Escape", "Enter", "Ctrl+Alt+Shift+P"})
        EXPECT_FALSE(press(key)) << key;
}

TEST_F(ConsoleKeys, NothingHappensWhileTheProgramEnds)
{
    start("0");
    open(0);
    console().ClosingDown = true;
    forgetCommands();
    EXPECT_FALSE(press("P"));
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(ConsoleKeys, AMenuComesUpFromAVideosKeyToo)
{
    start("0");
    frmChild& window = open(0);
    EXPECT_TRUE(window.Shortcut({"O", 'o', false}));
    EXPECT_THAT(world.backend.menus, ElementsAre("openmenu.popup"));
}

} // namespace tandrel::test
