// The program's state under the names of the bus's interface for media players.
#include "platform/dbus/mpris_properties.h"

#include <gmock/gmock.h>
#include <limits>

namespace tandrel::mpris
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

using namespace std::chrono_literals;
using Playback = RemoteState::Playback;

const Reading::Moment kStart{};

RemoteState film()
{
    return {.playback = Playback::Playing,
            .medium = 7,
            .title = "a.mp4",
            .path = "/f/a b.mp4",
            .length = 60s,
            .position = 10s,
            .volume = 0.5,
            .canGoNext = true,
            .canGoPrevious = true,
            .canSeek = true};
}

Value valueOf(const Properties& all, const std::string& name)
{
    for (const Property& one : all)
        if (name == one.name)
            return one.value;
    ADD_FAILURE() << "no property " << name;
    return false;
}

std::vector<std::string> namesOf(const Properties& all)
{
    std::vector<std::string> names;
    for (const Property& one : all)
        names.emplace_back(one.name);
    return names;
}

bool jumpsTo(const Reading& before, RemoteState state, std::chrono::milliseconds later)
{
    return isJump(before, {std::move(state), before.taken + later});
}

RemoteState at(RemoteState state, std::chrono::milliseconds place)
{
    state.position = place;
    return state;
}

} // namespace

TEST(MprisProperties, OfAFilmThatPlays)
{
    const Properties all = playerProperties(film());
    EXPECT_EQ(valueOf(all, "PlaybackStatus"), Value("Playing"));
    EXPECT_EQ(valueOf(all, "Rate"), Value(1.0));
    EXPECT_EQ(valueOf(all, "Volume"), Value(0.5));
    for (const char* can : {"CanGoNext", "CanGoPrevious", "CanPlay", "CanPause", "CanSeek", "CanControl"})
        EXPECT_EQ(valueOf(all, can), Value(true)) << can;
    const Metadata data{{"mpris:trackid", ObjectPath{"/tandrel_player/medium/7"}},
                        {"mpris:length", std::int64_t(60000000)},
                        {"xesam:title", std::string("a.mp4")},
                        {"xesam:url", std::string("file:///f/a%20b.mp4")}};
    EXPECT_EQ(valueOf(all, "Metadata"), Value(data));
}

TEST(MprisProperties, OfNothing)
{
    const Properties all = playerProperties({});
    EXPECT_EQ(valueOf(all, "PlaybackStatus"), Value("Stopped"));
    for (const char* can : {"CanGoNext", "CanGoPrevious", "CanPlay", "CanPause", "CanSeek"})
        EXPECT_EQ(valueOf(all, can), Value(false)) << can;
    const Metadata none{{"mpris:trackid", ObjectPath{"/org/mpris/MediaPlayer2/TrackList/NoTrack"}}};
    EXPECT_EQ(valueOf(all, "Metadata"), Value(none));
}

TEST(MprisProperties, NamesOfAnyBytesAreTexts)
{
    RemoteState state = film();
    state.title = "a\xFF\xC3\xA4\n\"";
    state.path = "/f/\xFF";
    state.length = 0s;
    const Metadata data{{"mpris:trackid", ObjectPath{"/tandrel_player/medium/7"}},
                        {"xesam:title", std::string("a?\xC3\xA4\n\"")},
                        {"xesam:url", std::string("file:///f/%FF")}};
    EXPECT_EQ(valueOf(playerProperties(state), "Metadata"), Value(data));
}

TEST(MprisProperties, OnlyWhatDiffersHasChanged)
{
    const Properties before = playerProperties(film());
    EXPECT_THAT(changedProperties(before, before), IsEmpty());
    RemoteState state = film();
    state.position = 30s;
    EXPECT_THAT(changedProperties(before, playerProperties(state)), IsEmpty()) << "a place is not told";
    state.playback = Playback::Paused;
    state.volume = 0.6;
    EXPECT_THAT(namesOf(changedProperties(before, playerProperties(state))), ElementsAre("PlaybackStatus", "Volume"));
    EXPECT_EQ(changedProperties({}, before), before);
}

TEST(MprisProperties, WhatPlaysGoesOn)
{
    Reading reading{film(), kStart};
    EXPECT_EQ(positionAt(reading, kStart + 1500ms), 11500000);
    EXPECT_EQ(positionAt(reading, kStart + 100s), 60000000) << "not behind its end";
    EXPECT_EQ(positionAt(reading, kStart - 100s), 10000000);
    reading.state.length = 0s;
    EXPECT_EQ(positionAt(reading, kStart + 100s), 110000000) << "nobody knows its end";
    reading.state.playback = Playback::Paused;
    EXPECT_EQ(positionAt(reading, kStart + 100s), 10000000);
    reading.state.medium = 0;
    EXPECT_EQ(positionAt(reading, kStart + 100s), 0);
}

TEST(MprisProperties, AJumpIsAPlaceThatNobodyExpects)
{
    const Reading before{film(), kStart};
    EXPECT_FALSE(jumpsTo(before, at(film(), 10250ms), 250ms));
    EXPECT_FALSE(jumpsTo(before, at(film(), 9500ms), 250ms)) << "as near as media tell";
    EXPECT_TRUE(jumpsTo(before, at(film(), 12000ms), 250ms));
    EXPECT_TRUE(jumpsTo(before, at(film(), 0ms), 250ms));
    RemoteState moved = at(film(), 10300ms);
    moved.moves = 1;
    EXPECT_TRUE(jumpsTo(before, moved, 250ms)) << "asked for";
    RemoteState held = at(film(), 10100ms);
    held.playback = Playback::Paused;
    EXPECT_FALSE(jumpsTo(before, held, 250ms));
    EXPECT_FALSE(jumpsTo({held, kStart}, held, 1000s));
}

TEST(MprisProperties, ANewMediumIsExpectedToBegin)
{
    const Reading before{film(), kStart};
    RemoteState other = at(film(), 100ms);
    other.medium = 8;
    EXPECT_FALSE(jumpsTo(before, other, 250ms));
    other.position = 15s;
    EXPECT_TRUE(jumpsTo(before, other, 250ms));
    EXPECT_FALSE(jumpsTo(before, {}, 250ms));
}

TEST(MprisProperties, TracksHaveNames)
{
    for (const std::uint64_t medium : {1UL, 42UL, std::numeric_limits<std::uint64_t>::max()})
        EXPECT_EQ(mediumOf(trackOf(medium)), medium);
    for (const char* other :
         {"/", "/org/mpris/MediaPlayer2/TrackList/NoTrack", "/tandrel_player/medium/", "/tandrel_player/medium/x",
          "/tandrel_player/medium/1x", "/tandrel_player/medium/1/2", "/tandrel_player/medium/99999999999999999999999"})
        EXPECT_EQ(mediumOf(other), 0U) << other;
}

} // namespace tandrel::mpris
