// What commands of other programs do to files, and what those see.
#include "console_remote_bench.h"

#include "fullscreen/frm_panel.h"

#include <limits>

namespace tandrel::test
{

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;
using ::testing::Not;
using ::testing::SizeIs;

namespace
{
using Kind = RemoteCommand::Kind;
using Playback = RemoteState::Playback;
} // namespace

TEST_F(ConsoleRemote, NothingIsToBeSeenBeforeTheConsoleIsThere)
{
    EXPECT_EQ(remote.state(), RemoteState());
    EXPECT_FALSE(RemoteControl::mayCarryOut());
    give(Kind::Play);
    EXPECT_FALSE(Loaded<class frmMedia>());
    EXPECT_TRUE(RemoteControl::raise());
}

TEST_F(ConsoleRemote, WithoutAVideoOnlyTheVolumeIsKnownAndCommandsDoNothing)
{
    start("0");
    const RemoteState state = remote.state();
    EXPECT_EQ(state.medium, 0U);
    EXPECT_EQ(state.playback, Playback::Stopped);
    EXPECT_EQ(state.volume, 0.5);
    for (int kind = 0; kind <= static_cast<int>(Kind::SetPosition); ++kind)
        give(static_cast<Kind>(kind), 5s);
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(ConsoleRemote, TheSelectedFileIsSeen)
{
    playFiles(2);
    const RemoteState state = remote.state();
    EXPECT_EQ(state.title, "b.avi");
    EXPECT_EQ(state.path, "/films/b.avi");
    EXPECT_EQ(state.length, 60s);
    EXPECT_EQ(state.position, 20s);
    EXPECT_EQ(state.playback, Playback::Playing);
    EXPECT_TRUE(state.canSeek && state.canGoNext && state.canGoPrevious);
    EXPECT_THAT(commands(), IsEmpty()) << "a look is no command";
    lookOf(1).playing = false;
    EXPECT_EQ(remote.state().playback, Playback::Paused);
    lookOf(1).place = 0;
    EXPECT_EQ(remote.state().playback, Playback::Paused) << "nobody has stopped it";
    console().hotKey(hot_key::kStop);
    EXPECT_EQ(remote.state().playback, Playback::Paused) << "hot keys work once a medium was started";
    MediaStarted = true;
    console().hotKey(hot_key::kStop);
    EXPECT_EQ(remote.state().playback, Playback::Stopped);
}

TEST_F(ConsoleRemote, MarksOfANameAreTheirCharacters)
{
    start("0");
    CurrentAlias = "\"/films/a\xEF\x80\xA2\xFF.avi\"";
    newSlot("/films/a\xEF\x80\xA2\xFF.avi").Show();
    world.mci.looks[CurrentAlias] = {.playing = true, .ended = false, .place = 1, .length = std::nullopt};
    const RemoteState state = remote.state();
    EXPECT_EQ(state.title, "a\"\xFF.avi");
    EXPECT_EQ(state.path, "/films/a\"\xFF.avi");
    EXPECT_EQ(state.length, 0s);
    EXPECT_FALSE(state.canSeek) << "nobody knows where its end is";
    EXPECT_FALSE(state.canGoNext) << "there is no other";
}

TEST_F(ConsoleRemote, EachOpeningHasAnIdOfItsOwn)
{
    playFiles(2);
    const auto second = remote.state().medium;
    VideoWindows[0]->SetFocus();
    const auto first = remote.state().medium;
    EXPECT_NE(first, second);
    VideoWindows[1]->SetFocus();
    EXPECT_EQ(remote.state().medium, second);
    discardSlots();
    playFiles(2);
    EXPECT_THAT((std::vector{first, second}), Not(Contains(remote.state().medium)));
}

TEST_F(ConsoleRemote, WhatCannotBePlayedIsNoMedium)
{
    playFiles(1);
    VideoWindows[0]->markFailed();
    EXPECT_EQ(remote.state().medium, 0U);
    give(Kind::Play);
    give(Kind::Stop);
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(ConsoleRemote, AFileThatEndsPlaysOnForAWhile)
{
    playFiles(1);
    lookOf(0) = {.playing = false, .ended = true, .place = 60, .length = 60};
    for (int look = 0; look < 8; ++look)
        EXPECT_EQ(remote.state().playback, Playback::Playing) << look;
    EXPECT_EQ(remote.state().playback, Playback::Paused) << "it doesn't begin again";
    give(Kind::Play);
    EXPECT_THAT(commands(), ElementsAre("set A time format ms", "seek A to 0", "Play A", "setaudio A Volume to 500"));
}

TEST_F(ConsoleRemote, PauseHoldsAndPlayGoesOn)
{
    playFiles(1);
    give(Kind::Play);
    EXPECT_THAT(commands(), IsEmpty()) << "it plays";
    give(Kind::Pause);
    EXPECT_THAT(commands(), ElementsAre("Pause A"));
    EXPECT_EQ(VideoWindows[0]->Paused, 1);
    EXPECT_FALSE(Playing);
    lookOf(0).playing = false;
    give(Kind::Pause);
    EXPECT_THAT(commands(), IsEmpty()) << "it is held";
    give(Kind::Play);
    EXPECT_THAT(commands(), ElementsAre("Play A ", "setaudio A Volume to 500"));
    EXPECT_EQ(VideoWindows[0]->Paused, 0);
    EXPECT_TRUE(Playing && MediaStarted);
}

TEST_F(ConsoleRemote, PlayAndPauseTakeTurnsByWhatIsTrue)
{
    playFiles(1);
    Playing = false;
    give(Kind::PlayPause);
    EXPECT_THAT(commands(), ElementsAre("Pause A"));
    lookOf(0).playing = false;
    Playing = true;
    give(Kind::PlayPause);
    EXPECT_THAT(commands(), ElementsAre("Play A ", "setaudio A Volume to 500"));
}

TEST_F(ConsoleRemote, PlayAndPauseEndAJump)
{
    playFiles(1);
    FastForward = true;
    console().lblSpeed.Caption = "2x";
    EXPECT_EQ(remote.state().playback, Playback::Playing);
    give(Kind::Play);
    EXPECT_THAT(commands(), ElementsAre("setaudio A Volume to 500"));
    EXPECT_FALSE(FastForward);
    EXPECT_EQ(console().lblSpeed.caption(), "0x");
    FastRewind = true;
    give(Kind::Pause);
    EXPECT_THAT(commands(), ElementsAre("Pause A"));
    EXPECT_FALSE(FastRewind);
}

TEST_F(ConsoleRemote, StopDoesWhatItsKeyDoesAndPlayUndoesThat)
{
    playFiles(1);
    console().Timer1.Enabled = true;
    MediaStarted = false;
    give(Kind::Stop);
    EXPECT_THAT(commands(), ElementsAre("set A time format ms", "seek A to 0", "Pause A"));
    EXPECT_FALSE(console().Timer1.enabled());
    EXPECT_FALSE(console().cmdMedia[command::kPause]->enabled());
    EXPECT_EQ(console().lblCurTime.caption(), "0:00:00");
    lookOf(0) = {.playing = false, .ended = false, .place = 0, .length = 60};
    EXPECT_EQ(remote.state().playback, Playback::Stopped);
    give(Kind::PlayPause);
    EXPECT_THAT(commands(), ElementsAre("Play A ", "setaudio A Volume to 500"));
    EXPECT_TRUE(console().Timer1.enabled());
    EXPECT_TRUE(console().cmdMedia[command::kPause]->enabled());
}

TEST_F(ConsoleRemote, SeeksCountFromWhereItStands)
{
    playFiles(1);
    console().SeekSlider.Max = 60000;
    give(Kind::Seek, 10s);
    EXPECT_THAT(commands(), ElementsAre("set A time format ms", "seek A to 30000", "Play A"));
    EXPECT_EQ(console().SeekSlider.value(), 30000);
    EXPECT_EQ(console().lblCurTime.caption(), "0:00:30");
    EXPECT_EQ(remote.state().moves, 1U);
    lookOf(0).playing = false;
    give(Kind::Seek, -21s);
    EXPECT_THAT(commands(), ElementsAre("set A time format ms", "seek A to 0")) << "not before the beginning, and held";
    EXPECT_EQ(remote.state().moves, 2U);
}

TEST_F(ConsoleRemote, OffsetsOfAnySize)
{
    using std::chrono::microseconds;
    playFiles(1);
    for (const microseconds offset : {microseconds::max(), microseconds(40s) + 1us}) {
        give(Kind::Seek, offset);
        EXPECT_THAT(commands(), IsEmpty()) << "beyond the end is the next one, and there is none";
    }
    give(Kind::Seek, 40s);
    EXPECT_THAT(commands(), Contains("seek A to 60000"));
    for (const microseconds offset : {microseconds::min(), microseconds(-20s) - 1us}) {
        give(Kind::Seek, offset);
        EXPECT_THAT(commands(), Contains("seek A to 0"));
    }
}

TEST_F(ConsoleRemote, BeyondTheEndComesTheNext)
{
    playFiles(3);
    give(Kind::Seek, 41s);
    EXPECT_EQ(CurrentAlias, alias(0));
}

TEST_F(ConsoleRemote, PlacesAreThoseOfTheMediumThatIsNamed)
{
    playFiles(1);
    const auto medium = remote.state().medium;
    givePlace(45500ms, medium);
    EXPECT_THAT(commands(), ElementsAre("set A time format ms", "seek A to 45500", "Play A"));
    for (const auto& [place, id] : {std::pair<std::chrono::microseconds, std::uint64_t>{10s, medium + 1},
                                    {10s, 0},
                                    {-1us, medium},
                                    {60s + 1us, medium},
                                    {std::chrono::microseconds::min(), medium},
                                    {std::chrono::microseconds::max(), medium}}) {
        givePlace(place, id);
        EXPECT_THAT(commands(), IsEmpty()) << place.count() << " of " << id;
    }
}

TEST_F(ConsoleRemote, TheVolumeIsThatOfTheSelected)
{
    playFiles(2);
    give({.kind = Kind::Volume, .level = 0.25});
    EXPECT_THAT(commands(), ElementsAre("setaudio B Volume to 250"));
    EXPECT_EQ(console().VolumeSlider.value(), 25);
    EXPECT_EQ(console().InvertSlider.value(), 75);
    EXPECT_EQ(VideoWindows[1]->Volume, 25);
    EXPECT_EQ(VideoWindows[0]->Volume, 50);
    EXPECT_EQ(VolumeLevel, 25);
    EXPECT_EQ(remote.state().volume, 0.25);
}

TEST_F(ConsoleRemote, VolumesOfAnySize)
{
    playFiles(1);
    constexpr double kInfinite = std::numeric_limits<double>::infinity();
    give({.kind = Kind::Volume, .level = 1e300});
    EXPECT_EQ(console().VolumeSlider.value(), 100);
    give({.kind = Kind::Volume, .level = -1e300});
    EXPECT_EQ(console().VolumeSlider.value(), 0);
    for (const double level : {kInfinite, -kInfinite, std::numeric_limits<double>::quiet_NaN()}) {
        give({.kind = Kind::Volume, .level = level});
        EXPECT_THAT(commands(), IsEmpty());
    }
    EXPECT_EQ(console().VolumeSlider.value(), 0);
}

TEST_F(ConsoleRemote, InPlayAllTheSelectionGoesRoundInTheOrderOfTheSlots)
{
    playFiles(3);
    for (const int expected : {0, 1, 2, 0}) {
        give(Kind::Next);
        EXPECT_EQ(CurrentAlias, alias(expected));
        EXPECT_EQ(activeForm(), VideoWindows[static_cast<std::size_t>(expected)].get());
        EXPECT_THAT(commands(), IsEmpty()) << "all of them play on";
    }
    for (const int expected : {2, 1, 0, 2}) {
        give(Kind::Previous);
        EXPECT_EQ(CurrentAlias, alias(expected));
    }
}

TEST_F(ConsoleRemote, InPlayListTheNextTakesTheLargePlaceFromItsBeginning)
{
    playFiles(3, "1");
    give(Kind::Previous);
    EXPECT_EQ(CurrentAlias, alias(1));
    EXPECT_THAT(commands(), IsSupersetOf({"Pause A", "Pause C", "set B time format ms", "seek B to 0", "Play B"}));
    EXPECT_GT(VideoWindows[1]->width(), VideoWindows[0]->width());
    EXPECT_GT(VideoWindows[1]->width(), VideoWindows[2]->width());
    EXPECT_THAT(paused(), ElementsAre(1, 0, 1));
    give(Kind::Next);
    EXPECT_EQ(CurrentAlias, alias(2));
    EXPECT_GT(VideoWindows[2]->width(), VideoWindows[1]->width());
}

TEST_F(ConsoleRemote, WhatCannotBePlayedIsPassedOver)
{
    playFiles(3);
    VideoWindows[0]->markFailed();
    give(Kind::Next);
    EXPECT_EQ(CurrentAlias, alias(1));
}

TEST_F(ConsoleRemote, WhatWasPutAwayStaysAway)
{
    playFiles(2);
    console().cmdMedia[command::kHide]->Value = true;
    EXPECT_FALSE(remote.state().canGoNext);
    give(Kind::Next);
    EXPECT_EQ(CurrentAlias, alias(1));
    EXPECT_FALSE(VideoWindows[0]->visible());
}

TEST_F(ConsoleRemote, InFullScreenTheNextFillsIt)
{
    playFiles(2);
    frmChild& first = *VideoWindows[0];
    frmChild& second = *VideoWindows[1];
    second.Move({1500, 1650, 4500, 3000});
    second.fillScreen();
    ASSERT_TRUE(second.Full);
    give(Kind::Next);
    EXPECT_TRUE(first.Full);
    EXPECT_FALSE(second.Full);
    EXPECT_EQ(rectOf(second), (Rect{1500, 1650, 4500, 3000}));
    EXPECT_TRUE(FullScreenOn);
    EXPECT_EQ(FullMedia, alias(0));
    EXPECT_EQ(CurrentAlias, alias(0));
}

TEST_F(ConsoleRemote, ThePanelShowsWhatIsHeld)
{
    playFiles(1);
    VideoWindows[0]->fillScreen();
    bringUpPanel("");
    give(Kind::Pause);
    EXPECT_TRUE(frmPanel().imgPlay.visible());
    EXPECT_FALSE(frmPanel().imgPause.visible());
    lookOf(0).playing = false;
    give(Kind::Play);
    EXPECT_TRUE(frmPanel().imgPause.visible());
    EXPECT_TRUE(VideoWindows[0]->Full) << "and the picture still fills the screen";
    give({.kind = Kind::Volume, .level = 0.75});
    EXPECT_EQ(frmPanel().InvertSlider.value(), 75);
}

TEST_F(ConsoleRemote, CommandsWaitWhileAnotherIsUnderWay)
{
    playFiles(1);
    screen().MousePointer = pointer::kHourglass;
    EXPECT_FALSE(RemoteControl::mayCarryOut());
    give(Kind::Pause);
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_FALSE(RemoteControl::raise());
    screen().MousePointer = pointer::kDefault;
    EXPECT_TRUE(RemoteControl::mayCarryOut());
    console().takeNoHandover(true);
    EXPECT_FALSE(RemoteControl::mayCarryOut());
    console().takeNoHandover(false);
    console().ClosingDown = true;
    EXPECT_FALSE(RemoteControl::mayCarryOut());
    EXPECT_EQ(remote.state().medium, 0U);
}

} // namespace tandrel::test
