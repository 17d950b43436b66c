// What the global keys do.

#include "player_bench.h"

#include "console/hot_keys.h"
#include "fullscreen/frm_panel.h"
#include "toolkit/program.h"

#include <set>

namespace tandrel::test
{

using ::testing::AllOf;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace
{

class ConsoleHotKeys : public Player
{
protected:
    ConsoleHotKeys()
    {
        start();
        open(0);
        NativeWidth = 640;
        NativeHeight = 480;
        MediaStarted = true;
    }
    /// As the desktop tells it.
    void key(int id) { world.hotKeys.pressed(id); }
    void setLevel(int level)
    {
        VolumeLevel = level;
        console().VolumeSlider.Value = level;
        console().InvertSlider.Value = 100 - level;
    }
};

} // namespace

TEST_F(ConsoleHotKeys, NothingHappensBeforeAMediumWasStarted)
{
    MediaStarted = false;
    for (int id = -1; id < 20; ++id)
        key(id);
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_EQ(SizePercent, 100);
    EXPECT_EQ(VolumeLevel, 50);
    EXPECT_THAT(world.screenSaver.switched, Each(true));
}

TEST_F(ConsoleHotKeys, OtherIdsDoNothing)
{
    for (const int id : {-1, 7, 8, 255, 256})
        key(id);
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(ConsoleHotKeys, LargerByAQuarter)
{
    key(hot_key::kSizeUp);
    EXPECT_EQ(SizePercent, 125);
    EXPECT_THAT(commands(), ElementsAre("put A window at 0 0 800 600"));
    EXPECT_EQ(console().lblSize.caption(), "125 %");
}

TEST_F(ConsoleHotKeys, SmallerByAQuarter)
{
    key(hot_key::kSizeDown);
    EXPECT_EQ(SizePercent, 75);
    EXPECT_THAT(commands(), ElementsAre("put A window at 0 0 480 360"));
    EXPECT_EQ(console().lblSize.caption(), "75 %");
}

TEST_F(ConsoleHotKeys, BackToNativeSize)
{
    SizePercent = 75;
    key(hot_key::kSizeUp);
    EXPECT_EQ(SizePercent, 100);
    EXPECT_THAT(commands(), ElementsAre("put A window at 0 0 640 480"));
}

TEST_F(ConsoleHotKeys, AtTheLimitsThePictureIsPutAllTheSame)
{
    SizePercent = 300;
    key(hot_key::kSizeUp);
    EXPECT_EQ(SizePercent, 300);
    EXPECT_THAT(commands(), ElementsAre("put A window at 0 0 1920 1440"));
    EXPECT_EQ(console().lblSize.caption(), "300 %");
    world.mci.clear();
    SizePercent = 50;
    key(hot_key::kSizeDown);
    EXPECT_EQ(SizePercent, 50);
    EXPECT_THAT(commands(), ElementsAre("put A window at 0 0 320 240"));
    EXPECT_EQ(console().lblSize.caption(), "50 %");
}

TEST_F(ConsoleHotKeys, SizesStayInFullScreen)
{
    FullScreenOn = true;
    key(hot_key::kSizeUp);
    key(hot_key::kSizeDown);
    EXPECT_EQ(SizePercent, 100);
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(ConsoleHotKeys, FullScreenIsUndoneByThePlayBehindIt)
{
    world.screenSaver.switched.clear();
    key(hot_key::kFullScreen);
    EXPECT_FALSE(FullScreenOn);
    EXPECT_THAT(world.screenSaver.switched, ElementsAre(false, true));
    EXPECT_THAT(commands(), ElementsAre("setaudio A Volume to 500"));
}

TEST_F(ConsoleHotKeys, OutOfFullScreenItPlays)
{
    FullScreenOn = true;
    world.screenSaver.switched.clear();
    key(hot_key::kFullScreen);
    EXPECT_FALSE(FullScreenOn);
    // The flag is clear when the play comes, so that it is a real one.
    EXPECT_THAT(world.screenSaver.switched, ElementsAre(true));
    EXPECT_THAT(commands(), ElementsAre("Play A ", "setaudio A Volume to 500"));
}

TEST_F(ConsoleHotKeys, PlayAndPauseTakeTurns)
{
    Playing = true;
    key(hot_key::kPlayPause);
    EXPECT_FALSE(Playing);
    EXPECT_THAT(commands(), ElementsAre("Pause A"));
    world.mci.clear();
    key(hot_key::kPlayPause);
    EXPECT_TRUE(Playing);
    EXPECT_THAT(commands(), ElementsAre("Play A ", "setaudio A Volume to 500"));
}

TEST_F(ConsoleHotKeys, StopGoesToTheStartAndStaysThere)
{
    console().Timer1.Enabled = true;
    console().lblCurTime.Caption = "0:00:07";
    console().SeekSlider.Max = 60000;
    console().SeekSlider.Value = 7000;
    console().cmdMedia[command::kPlay]->Enabled = false;
    Playing = true;
    key(hot_key::kStop);
    EXPECT_FALSE(console().Timer1.enabled());
    EXPECT_EQ(console().lblCurTime.caption(), "0:00:00");
    EXPECT_EQ(console().SeekSlider.value(), 0);
    EXPECT_THAT(commands(), ElementsAre("set A time format ms", "seek A to 0", "Pause A"));
    EXPECT_FALSE(console().cmdMedia[command::kPause]->enabled());
    EXPECT_TRUE(console().cmdMedia[command::kPlay]->enabled());
    EXPECT_FALSE(Playing);
}

TEST_F(ConsoleHotKeys, QuieterAndLouderByTen)
{
    setLevel(50);
    key(hot_key::kVolumeDown);
    EXPECT_EQ(VolumeLevel, 40);
    EXPECT_EQ(console().VolumeSlider.value(), 40);
    EXPECT_EQ(console().InvertSlider.value(), 60);
    key(hot_key::kVolumeUp);
    key(hot_key::kVolumeUp);
    EXPECT_EQ(VolumeLevel, 60);
    EXPECT_THAT(commands(),
                ElementsAre("setaudio A Volume to 400", "setaudio A Volume to 500", "setaudio A Volume to 600"));
}

TEST_F(ConsoleHotKeys, NotBelowNothingAndNotAboveAll)
{
    setLevel(4);
    key(hot_key::kVolumeDown);
    EXPECT_EQ(VolumeLevel, 0);
    setLevel(97);
    key(hot_key::kVolumeUp);
    EXPECT_EQ(VolumeLevel, 100);
    EXPECT_THAT(commands(), ElementsAre("setaudio A Volume to 0", "setaudio A Volume to 1000"));
}

TEST_F(ConsoleHotKeys, AtTheEndsOfTheScaleNothingIsTouched)
{
    setLevel(0);
    console().VolumeSlider.Value = 33;
    key(hot_key::kVolumeDown);
    EXPECT_EQ(console().VolumeSlider.value(), 33);
    setLevel(100);
    console().VolumeSlider.Value = 33;
    key(hot_key::kVolumeUp);
    EXPECT_EQ(console().VolumeSlider.value(), 33);
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(ConsoleHotKeys, EachIdHasACombinationOfItsOwn)
{
    std::set<std::string> combinations;
    for (const HotKeyRow& row : hotKeyTable()) {
        EXPECT_EQ(world.hotKeys.taken[row.id], row.combination);
        EXPECT_TRUE(isHotKeyOurs(row.id));
        combinations.insert(row.combination);
    }
    EXPECT_EQ(combinations.size(), 7U);
    EXPECT_THAT(combinations, Each(HasSubstr("Ctrl+Alt+Shift+")));
}

TEST_F(ConsoleHotKeys, ACombinationOfAnotherProgramIsLeftToIt)
{
    world.hotKeys.takenElsewhere = {"Ctrl+Alt+Shift+P"};
    Unload<class frmMedia>();
    beginProgram();
    start();
    EXPECT_FALSE(isHotKeyOurs(hot_key::kPlayPause));
    EXPECT_TRUE(isHotKeyOurs(hot_key::kStop));
}

TEST_F(ConsoleHotKeys, TheWindowFollowsWhereAPlayEndsFullScreen)
{
    open(1);
    frmChild& window = *VideoWindows[0];
    window.Move({1500, 1650, 4500, 3000});
    console().SetFocus();
    world.pointer.right = true;
    window.SetFocus();
    world.pointer.right = false;
    ASSERT_TRUE(window.Full);
    key(hot_key::kFullScreen);
    EXPECT_FALSE(FullScreenOn);
    EXPECT_FALSE(window.Full);
    EXPECT_TRUE(window.hasTitleBar());
    EXPECT_EQ(rectOf(window), (Rect{1500, 1650, 4500, 3000}));
    EXPECT_FALSE(Loaded<class frmPanel>());
    EXPECT_TRUE(console().Timer4.enabled());
    EXPECT_EQ(FullMedia, alias(0)) << "the console's next move of the mouse plays it on";
}

TEST_F(ConsoleHotKeys, APauseLeavesFullScreenAsItIs)
{
    open(1);
    console().SetFocus();
    world.pointer.right = true;
    VideoWindows[0]->SetFocus();
    world.pointer.right = false;
    Playing = true;
    key(hot_key::kPlayPause);
    EXPECT_TRUE(VideoWindows[0]->Full);
    EXPECT_TRUE(FullScreenOn);
}

TEST_F(ConsoleHotKeys, KeysThatComeInALongCommandWaitForItsEnd)
{
    Playing = true;
    screen().MousePointer = pointer::kHourglass;
    key(hot_key::kPlayPause);
    key(hot_key::kVolumeUp);
    console().Timer3.tick();
    EXPECT_THAT(commands(), IsEmpty());
    screen().MousePointer = pointer::kDefault;
    console().Timer3.tick();
    EXPECT_THAT(commands(), ElementsAre("Pause A", "setaudio A Volume to 600"));
    console().Timer3.tick();
    EXPECT_EQ(commands().size(), 2U);
}

TEST_F(ConsoleHotKeys, NoKeyIsTakenWhileTheProgramEnds)
{
    console().ClosingDown = true;
    key(hot_key::kStop);
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(ConsoleHotKeys, TheEndGivesThemBack)
{
    Unload<class frmMedia>();
    EXPECT_THAT(world.hotKeys.taken, IsEmpty());
    EXPECT_FALSE(world.hotKeys.pressed);
}

} // namespace tandrel::test
