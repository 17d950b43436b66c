// What a player of films does with media of all kinds, without picture and sound: its places, rates, tracks and
// troubles.
#include "contract/film_bench.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <sys/resource.h>
#include <unistd.h>

namespace tandrel
{

namespace
{
using namespace std::chrono_literals;

/// The language of the desktop, for as long as a test runs.
class Language
{
public:
    explicit Language(const char* value) { setenv("LC_ALL", value, 1); }
    ~Language()
    {
        if (had_)
            setenv("LC_ALL", before_.c_str(), 1);
        else
            unsetenv("LC_ALL");
    }

private:
    bool had_ = std::getenv("LC_ALL") != nullptr;
    std::string before_ = had_ ? std::getenv("LC_ALL") : "";
};

/// Other numbers with --gtest_shuffle and --gtest_random_seed.
std::mt19937 randomNumbers()
{
    return std::mt19937(static_cast<unsigned>(testing::UnitTest::GetInstance()->random_seed()) + 11);
}

class Films : public FilmBench
{
protected:
    Films() : FilmBench(false) {}

    int chosen(MediaTrack::Kind kind)
    {
        for (const MediaTrack& track : player->tracks())
            if (track.kind == kind && track.chosen)
                return track.id;
        return 0;
    }
    bool chooses(int audio, int subtitle)
    {
        return waitUntil(
            [&] { return chosen(MediaTrack::Kind::Audio) == audio && chosen(MediaTrack::Kind::Subtitle) == subtitle; });
    }
};
} // namespace

TEST_F(Films, EveryKindOfFilmPlays)
{
    for (const char* name :
         {"film_h264.mkv", "film_hevc.mkv", "film_vp9.mkv", "film_av1.mkv", "film_10bit.mkv", "film.hdmov",
          "film_10000_chapters.mkv", "film_without_cues.mkv", "live.mkv", "sound.m4a", "sound.mp3", "film_wide.mkv"}) {
        ASSERT_TRUE(loads(name)) << name;
        EXPECT_FALSE(player->isPaused());
        EXPECT_TRUE(plays()) << name;
        EXPECT_EQ(player->trouble(), MediaTrouble::None) << name;
        EXPECT_FALSE(player->isIdle());
        EXPECT_TRUE(waitUntil([&] { return player->duration() > 1; })) << name;
    }
    player->close();
    EXPECT_TRUE(player->isIdle());
    EXPECT_FALSE(player->isLoaded());
    EXPECT_EQ(player->duration(), 0);
}

TEST_F(Films, WhatIsNoFilmIsNotPlayable)
{
    for (const char* name : {"nowhere.mkv", "empty.avi", "text.avi", "film_nothing_left.mkv", "subtitles.srt",
                             "plain.m3u", "list.edl", "list.cue", ""}) {
        open(name);
        EXPECT_FALSE(player->isLoaded());
        EXPECT_TRUE(fails()) << name;
        EXPECT_EQ(player->trouble(), MediaTrouble::NotPlayable) << name;
        EXPECT_FALSE(player->isLoaded());
        player->play();
        player->seek(3);
        EXPECT_EQ(player->position(), 0);
    }
    player->open("http://127.0.0.1:9/film.mkv");
    EXPECT_TRUE(fails());
    player->close();
    EXPECT_EQ(player->trouble(), MediaTrouble::None);
}

TEST_F(Films, AMissingDecoderIsToldApart)
{
    open("film_unknown_all.mkv");
    EXPECT_TRUE(fails());
    EXPECT_EQ(player->trouble(), MediaTrouble::CodecMissing);
    // There is sound, and it plays.
    ASSERT_TRUE(loads("film_unknown_picture.mkv"));
    EXPECT_EQ(player->trouble(), MediaTrouble::CodecMissing);
    EXPECT_TRUE(plays());
}

TEST_F(Films, TheTitleIsThatOfTheTags)
{
    ASSERT_TRUE(loads("film.hdmov"));
    EXPECT_TRUE(waitUntil([&] { return player->title() == "A film in a box"; })) << player->title();
    ASSERT_TRUE(loads("film_tracks.mkv"));
    EXPECT_TRUE(waitUntil([&] { return player->title() == "Zwei Stra\u00dfen"; })) << player->title();
    ASSERT_TRUE(loads("film_plain.mkv"));
    EXPECT_TRUE(plays());
    EXPECT_EQ(player->title(), "");
}

TEST_F(Films, TracksHaveNamesAndCanBeChosen)
{
    const Language none("C");
    ASSERT_TRUE(loads("film_tracks.mkv"));
    EXPECT_TRUE(chooses(1, -1));
    std::vector<std::string> names;
    for (const MediaTrack& track : player->tracks())
        names.push_back(track.name);
    EXPECT_EQ(names, (std::vector<std::string>{"Stereo (eng, AAC)", "2 (ger, AC-3)", "", "Untertitel (ger, SRT)",
                                               "2 (eng, ASS)"}));
    player->chooseTrack(MediaTrack::Kind::Audio, 2);
    player->chooseTrack(MediaTrack::Kind::Subtitle, 1);
    EXPECT_TRUE(chooses(2, 1));
    player->chooseTrack(MediaTrack::Kind::Subtitle, 77);
    player->chooseTrack(MediaTrack::Kind::Audio, -1);
    player->chooseTrack(MediaTrack::Kind::Subtitle, -1);
    EXPECT_TRUE(chooses(2, -1));
    EXPECT_TRUE(plays());
}

TEST_F(Films, TheDesktopsLanguageComesFirst)
{
    struct Row {
        const char* desktop;
        int audio;
        int subtitle;
    };
    for (const Row& row : {Row{"de_DE.UTF-8", 2, -1}, Row{"en_GB", 1, -1}, Row{"fr_FR", 1, -1}, Row{"C", 1, -1}}) {
        const Language language(row.desktop);
        ASSERT_TRUE(loads("film_tracks.mkv"));
        EXPECT_TRUE(chooses(row.audio, row.subtitle)) << row.desktop;
    }
}

TEST_F(Films, APlaceThatIsAskedForCountsAtOnce)
{
    ASSERT_TRUE(loads("film_plain.mkv"));
    player->pause();
    EXPECT_TRUE(player->isPaused());
    ASSERT_TRUE(waitUntil([&] { return player->duration() > 9; }));
    for (const double place : {7.0, 1.0, 9.5, 0.04, 3.0}) {
        player->seek(place);
        EXPECT_DOUBLE_EQ(player->position(), place);
    }
    letPass(500ms);
    EXPECT_NEAR(player->position(), 3, 0.05);
    EXPECT_TRUE(player->isPaused());
    // The first picture of this file has a time of its own, a little later.
    player->seek(-4);
    EXPECT_NEAR(player->position(), 0, 0.05);
    player->seek(1000);
    EXPECT_NEAR(player->position(), 10, 0.2);
    player->seek(std::nan(""));
    player->seek(2);
    player->play();
    EXPECT_TRUE(plays());
    EXPECT_LT(player->position(), 4);
}

TEST_F(Films, ASeekBeforeTheFilmIsThereCounts)
{
    open("film_plain.mkv");
    player->pause();
    player->seek(6);
    EXPECT_DOUBLE_EQ(player->position(), 6);
    EXPECT_TRUE(waitUntil([&] { return player->isLoaded(); }));
    letPass(400ms);
    EXPECT_NEAR(player->position(), 6, 0.05);
    EXPECT_TRUE(player->isPaused());
}

TEST_F(Films, ItStandsAtItsEndAndPlaysFromTheBeginningThen)
{
    ASSERT_TRUE(loads("film_plain.mkv"));
    EXPECT_TRUE(plays());
    player->seek(9.6);
    EXPECT_FALSE(player->hasEnded());
    EXPECT_TRUE(waitUntil([&] { return player->hasEnded(); }));
    EXPECT_TRUE(player->isLoaded());
    EXPECT_GT(player->position(), 9.5);
    player->play();
    EXPECT_FALSE(player->hasEnded());
    EXPECT_LT(player->position(), 0.1);
    EXPECT_TRUE(plays());
    EXPECT_LT(player->position(), 5);
    // From the end back into the film it goes on as before.
    player->seek(9.9);
    EXPECT_TRUE(waitUntil([&] { return player->hasEnded(); }));
    player->seek(4);
    EXPECT_TRUE(plays());
    EXPECT_FALSE(player->hasEnded());
}

TEST_F(Films, ThePlaceNeverFalls)
{
    ASSERT_TRUE(loads("film_plain.mkv"));
    double last = 0;
    double worst = 0;
    const auto start = Clock::now();
    letPass(0ms);
    ASSERT_TRUE(waitUntil([&] { return player->position() > 0; }));
    const double ahead = player->position() - std::chrono::duration<double>(Clock::now() - start).count();
    waitUntil(
        [&] {
            const double read = player->position();
            EXPECT_GE(read, last);
            last = read;
            const double passed = std::chrono::duration<double>(Clock::now() - start).count();
            worst = std::max(worst, std::abs(read - passed - ahead));
            return false;
        },
        3s);
    EXPECT_LT(worst, 0.3);
}

TEST_F(Films, FiveTimesAsFastBothWays)
{
    ASSERT_TRUE(loads("film_long.mkv"));
    EXPECT_TRUE(plays());
    player->setRate(5);
    EXPECT_EQ(player->rate(), 5);
    // What is on its way at the old rate comes first.
    letPass(600ms);
    double start = player->position();
    const double forwards = secondsUntil([&] { return player->position() > start + 15; });
    EXPECT_NEAR(forwards, 3, 0.6);
    player->setRate(-5);
    EXPECT_EQ(player->rate(), -5);
    start = player->position();
    const double backwards = secondsUntil([&] { return player->position() < start - 12.5; });
    EXPECT_NEAR(backwards, 2.5, 0.5);
    EXPECT_FALSE(player->isPaused());
    player->play();
    EXPECT_EQ(player->rate(), 1);
    EXPECT_TRUE(plays());
}

TEST_F(Films, GoingBackEndsAtTheBeginningAndGoingOnAtTheEnd)
{
    ASSERT_TRUE(loads("film_plain.mkv"));
    EXPECT_TRUE(plays());
    player->seek(3);
    player->setRate(-5);
    EXPECT_TRUE(waitUntil([&] { return player->rate() == 1; }));
    EXPECT_LT(player->position(), 0.5);
    EXPECT_TRUE(plays());
    player->seek(6);
    player->setRate(5);
    EXPECT_TRUE(waitUntil([&] { return player->hasEnded(); }));
    EXPECT_EQ(player->rate(), 1);
    player->setRate(-5);
    EXPECT_FALSE(player->hasEnded() && player->rate() == 1);
    EXPECT_TRUE(waitUntil([&] { return player->position() < 5; }));
    player->pause();
    EXPECT_TRUE(player->isPaused());
    EXPECT_EQ(player->rate(), 1);
    letPass(500ms);
    const double held = player->position();
    letPass(300ms);
    EXPECT_EQ(player->position(), held);
}

TEST_F(Films, AFilmThatStandsLeavesTheProcessorsAlone)
{
    // Of all threads but this one, which has to wait.
    const auto spent = [] {
        const auto seconds = [](int whose) {
            rusage usage{};
            getrusage(whose, &usage);
            const auto in = [](const timeval& time) { return static_cast<double>(time.tv_sec) + time.tv_usec / 1e6; };
            return in(usage.ru_utime) + in(usage.ru_stime);
        };
        return seconds(RUSAGE_SELF) - seconds(RUSAGE_THREAD);
    };
    ASSERT_TRUE(loads("film_h264.mkv"));
    EXPECT_TRUE(plays());
    player->pause();
    letPass(1s);
    double before = spent();
    letPass(1s);
    EXPECT_LT(spent() - before, 0.1);
    player->play();
    player->seek(9.8);
    ASSERT_TRUE(waitUntil([&] { return player->hasEnded(); }));
    letPass(500ms);
    before = spent();
    letPass(1s);
    EXPECT_LT(spent() - before, 0.1);
}

TEST_F(Films, AWrongLengthDoesNoHarm)
{
    ASSERT_TRUE(loads("film_too_short.mkv"));
    ASSERT_TRUE(waitUntil([&] { return player->duration() > 0; }));
    // Two seconds say the file's head, ten what has been read ahead.
    EXPECT_GT(player->duration(), 1.9);
    EXPECT_TRUE(waitUntil([&] { return player->position() > 2.5; }));
    EXPECT_GE(player->duration(), player->position());
    ASSERT_TRUE(loads("film_too_long.mkv"));
    ASSERT_TRUE(waitUntil([&] { return player->duration() > 900; }));
    player->seek(800);
    EXPECT_DOUBLE_EQ(player->position(), 800);
    EXPECT_TRUE(waitUntil([&] { return player->hasEnded() && player->position() < 11; }));
    player->play();
    EXPECT_TRUE(plays());
}

TEST_F(Films, WhatIsLeftOfATruncatedFilmPlays)
{
    ASSERT_TRUE(loads("film_truncated.mkv"));
    EXPECT_TRUE(plays());
    player->seek(4);
    EXPECT_TRUE(plays());
    player->seek(9.5);
    EXPECT_TRUE(waitUntil([&] { return player->hasEnded() && player->position() < 8; }));
    EXPECT_EQ(player->trouble(), MediaTrouble::None);
}

TEST_F(Films, AFilmWithoutAnIndexCanBeSought)
{
    for (const char* name : {"film_without_cues.mkv", "live.mkv"}) {
        ASSERT_TRUE(loads(name));
        player->pause();
        for (const double place : {2.0, 0.4, 1.2}) {
            player->seek(place);
            letPass(300ms);
            EXPECT_NEAR(player->position(), place, 0.1) << name;
        }
    }
}

TEST_F(Films, DamagedFilmsHarmNobody)
{
    const std::string folder = testing::TempDir() + "films_" + std::to_string(getpid());
    std::filesystem::create_directories(folder);
    const std::string path = folder + "/film.mkv";
    std::mt19937 random = randomNumbers();
    const auto any = [&](std::size_t most) { return std::uniform_int_distribution<std::size_t>(0, most)(random); };
    int loaded = 0;
    for (int round = 0; round < 24; ++round) {
        std::ifstream source(testMedia(round % 2 == 0 ? "film_tracks.mkv" : "film.hdmov"), std::ios::binary);
        std::string bytes{std::istreambuf_iterator<char>(source), {}};
        // What is at the beginning tells what all the rest is.
        for (std::size_t change = 0; change < 60; ++change)
            bytes[any(change % 2 == 0 ? 2000 : bytes.size() - 1)] = static_cast<char>(any(255));
        std::ofstream(path, std::ios::binary) << bytes;
        player->open(path);
        waitUntil([&] { return player->isIdle() || player->position() > 0.1; }, 2s);
        loaded += player->isLoaded();
        player->seek(2);
        player->setRate(-5);
        waitUntil([&] { return player->isIdle(); }, 100ms);
        EXPECT_LE(player->tracks().size(), 20U);
        player->close();
    }
    RecordProperty("loaded", loaded);
    std::filesystem::remove_all(folder);
    ASSERT_TRUE(loads("film_plain.mkv"));
    EXPECT_TRUE(plays());
}

TEST_F(Films, OpensAndClosesLeaveNothingBehind)
{
    const auto entries = [](const char* folder) {
        return std::distance(std::filesystem::directory_iterator(folder), std::filesystem::directory_iterator());
    };
    const auto round = [&](int count) {
        open(count % 2 == 0 ? "film_plain.mkv" : "film_h264.mkv");
        // Some are closed before they are there, some while they play, some are opened over.
        if (count % 3 == 0) {
            EXPECT_TRUE(waitUntil([&] { return player->position() > 0.1; }));
        }
        if (count % 5 != 0)
            player->close();
    };
    for (int count = 0; count < 6; ++count)
        round(count);
    player->close();
    letPass(500ms);
    const auto files = entries("/proc/self/fd");
    const auto threads = entries("/proc/self/task");
    for (int count = 0; count < 50; ++count)
        round(count);
    player->close();
    EXPECT_TRUE(waitUntil([&] { return entries("/proc/self/fd") <= files && entries("/proc/self/task") <= threads; }))
        << entries("/proc/self/fd") << " files after " << files << ", " << entries("/proc/self/task")
        << " threads after " << threads;
}

TEST_F(Films, AnyCommandsInAnyOrderLeaveItAlive)
{
    const char* const names[]{"film_plain.mkv", "film_tracks.mkv", "film_too_long.mkv", "film_truncated.mkv",
                              "text.avi",       "live.mkv",        "sound.mp3",         "film_unknown_all.mkv"};
    std::mt19937 random = randomNumbers();
    const auto any = [&](int most) { return std::uniform_int_distribution<int>(0, most)(random); };
    const std::function<void()> commands[]{
        [&] { player->play(); },
        [&] { player->pause(); },
        [&] { player->seek(any(1200) / 100.0 - 1); },
        [&] { player->setRate(any(1) == 0 ? 5 : -5); },
        [&] { player->setRate(any(2) - 1.0); },
        [&] { player->setVolume(any(200) - 50); },
        [&] { player->chooseTrack(MediaTrack::Kind::Audio, any(4) - 1); },
        [&] { player->chooseTrack(MediaTrack::Kind::Subtitle, any(4) - 1); },
        [&] { player->follow(); },
        [&] { letPass(std::chrono::milliseconds(any(20))); },
        [&] { EXPECT_LE(player->position(), player->duration() > 0 ? 1e4 : 13); },
        [&] { EXPECT_LE(player->tracks().size(), 5U); },
    };
    for (int count = 0; count < 1500; ++count) {
        if (any(40) == 0)
            open(names[any(7)]);
        else if (any(150) == 0)
            player->close();
        else
            commands[any(11)]();
    }
    ASSERT_TRUE(loads("film_plain.mkv"));
    EXPECT_TRUE(plays());
}

} // namespace tandrel
