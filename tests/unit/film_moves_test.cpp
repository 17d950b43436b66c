// What a film's player is told, and what its answers mean.
#include "platform/mpv/film_moves.h"

#include <gtest/gtest.h>
#include <string>

namespace tandrel
{

namespace
{
class Moves : public testing::Test
{
protected:
    /// What was asked for since the last question, as a text.
    std::string told()
    {
        std::string all;
        for (const FilmRequests::Request& request : requests.take()) {
            last = request.number;
            if (request.words.front() == "seek")
                lastSeek = request.number;
            all += all.empty() ? "" : "; ";
            for (const std::string& word : request.words)
                all += (all.empty() || all.ends_with(' ') ? "" : " ") + word;
        }
        return all;
    }
    void hear(mpv_event_id kind, std::uint64_t number = 0, int error = 0, void* data = nullptr)
    {
        moves.hear({.event_id = kind, .error = error, .reply_userdata = number, .data = data});
    }
    void change(std::uint64_t number, double value)
    {
        mpv_event_property property{"", MPV_FORMAT_DOUBLE, &value};
        hear(MPV_EVENT_PROPERTY_CHANGE, number, 0, &property);
    }
    void changeEnd(bool ended)
    {
        int value = ended ? 1 : 0;
        mpv_event_property property{"", MPV_FORMAT_FLAG, &value};
        hear(MPV_EVENT_PROPERTY_CHANGE, FilmMoves::kEnd, 0, &property);
    }
    /// The seek that was told last is taken on, and its picture comes up.
    void seekDone()
    {
        hear(MPV_EVENT_COMMAND_REPLY, lastSeek);
        hear(MPV_EVENT_SEEK);
        hear(MPV_EVENT_PLAYBACK_RESTART);
    }
    void answerPlace(bool ended, double place)
    {
        int flag = ended ? 1 : 0;
        mpv_event_property end{"", MPV_FORMAT_FLAG, &flag};
        hear(MPV_EVENT_GET_PROPERTY_REPLY, last - 1, 0, &end);
        mpv_event_property value{"", MPV_FORMAT_DOUBLE, &place};
        hear(MPV_EVENT_GET_PROPERTY_REPLY, last, 0, &value);
    }
    void start()
    {
        change(FilmMoves::kDuration, 100);
        hear(MPV_EVENT_PLAYBACK_RESTART);
        told();
    }

    FilmRequests requests;
    FilmMoves moves{requests};
    std::uint64_t last = 0;
    std::uint64_t lastSeek = 0;
};
} // namespace

TEST_F(Moves, AFilmBeginsByItself)
{
    EXPECT_EQ(told(), "set pause no");
    moves.pause();
    EXPECT_EQ(told(), "set pause yes");
    moves.pause();
    EXPECT_EQ(told(), "");
}

TEST_F(Moves, ASeekShowsAKeyFrameWhileTheFilmIsHeld)
{
    start();
    moves.seek(50);
    EXPECT_EQ(told(), "set pause yes; seek 50.000000 absolute+keyframes");
    seekDone();
    EXPECT_EQ(told(), "seek 50.000000 absolute+exact; set pause no");
    seekDone();
    EXPECT_EQ(told(), "eof-reached; time-pos");
    EXPECT_EQ(moves.position(), 50);
    answerPlace(false, 50.02);
    EXPECT_EQ(moves.position(), 50.02);
    EXPECT_EQ(told(), "");
}

TEST_F(Moves, OfSeveralSeeksTheLastIsNext)
{
    start();
    moves.seek(10);
    told();
    hear(MPV_EVENT_COMMAND_REPLY, lastSeek);
    moves.seek(20);
    moves.seek(30);
    EXPECT_EQ(told(), "");
    EXPECT_EQ(moves.position(), 30);
    hear(MPV_EVENT_SEEK);
    hear(MPV_EVENT_PLAYBACK_RESTART);
    EXPECT_EQ(told(), "seek 30.000000 absolute+keyframes");
}

TEST_F(Moves, AnExactSeekMakesWay)
{
    start();
    moves.pause();
    moves.seek(10);
    told();
    seekDone();
    EXPECT_EQ(told(), "seek 10.000000 absolute+exact");
    moves.seek(20);
    EXPECT_EQ(told(), "seek 20.000000 absolute+keyframes");
    // The picture of the one before says nothing.
    hear(MPV_EVENT_PLAYBACK_RESTART);
    EXPECT_EQ(told(), "");
}

TEST_F(Moves, WhatIsTrueOfTheOldPlaceIsNotHeardDuringASeek)
{
    start();
    change(FilmMoves::kPlace, 99);
    changeEnd(true);
    EXPECT_TRUE(moves.hasEnded());
    moves.seek(5);
    EXPECT_FALSE(moves.hasEnded());
    change(FilmMoves::kPlace, 99);
    changeEnd(true);
    EXPECT_FALSE(moves.hasEnded());
    EXPECT_EQ(moves.position(), 5);
}

TEST_F(Moves, ThePlaceFallsOnlyWhereItIsHeldOrGoesBack)
{
    start();
    change(FilmMoves::kPlace, 5);
    change(FilmMoves::kPlace, 4.9);
    EXPECT_EQ(moves.position(), 5);
    moves.pause();
    change(FilmMoves::kPlace, 4.9);
    EXPECT_EQ(moves.position(), 4.9);
    change(FilmMoves::kPlace, 140);
    EXPECT_EQ(moves.duration(), 140);
}

TEST_F(Moves, APlaceBehindTheEndIsGivenUpAtTheEnd)
{
    start();
    moves.seek(90);
    told();
    seekDone();
    told();
    seekDone();
    told();
    // Nothing has been found there, so it is what was asked for.
    answerPlace(false, 90);
    change(FilmMoves::kPlace, 60);
    EXPECT_EQ(moves.position(), 90);
    changeEnd(true);
    EXPECT_EQ(moves.position(), 60);
    EXPECT_TRUE(moves.hasEnded());
}

TEST_F(Moves, RatesAreSilent)
{
    start();
    moves.setRate(5);
    EXPECT_EQ(told(), "set mute yes; set speed 5.000000");
    changeEnd(true);
    EXPECT_EQ(told(), "set mute no; set speed 1.000000");
    EXPECT_EQ(moves.rate(), 1);
    moves.setRate(5);
    EXPECT_EQ(told(), "");
    moves.setRate(0);
    EXPECT_EQ(moves.rate(), 1);
}

TEST_F(Moves, GoingBackSeeksTillTheBeginning)
{
    start();
    change(FilmMoves::kPlace, 50);
    moves.setRate(-5);
    EXPECT_EQ(told(), "set mute yes; set pause yes");
    moves.tick();
    EXPECT_EQ(told().substr(0, 7), "seek 49");
    moves.tick();
    EXPECT_EQ(told(), "");
    moves.play();
    EXPECT_EQ(told(), "set mute no; set pause no");
    seekDone();
    told();
    answerPlace(false, 0.0001);
    moves.setRate(-500000);
    told();
    // The next step back comes a little later.
    const auto end = FilmMoves::Moment::clock::now() + std::chrono::seconds(60);
    std::string steps;
    while (steps.empty() && FilmMoves::Moment::clock::now() < end) {
        moves.tick();
        steps = told();
    }
    EXPECT_EQ(steps, "seek 0.000000 absolute+exact; set mute no; set pause no");
    EXPECT_EQ(moves.rate(), 1);
}

TEST_F(Moves, ASeekThatIsRefusedIsOver)
{
    start();
    moves.seek(50);
    told();
    hear(MPV_EVENT_COMMAND_REPLY, lastSeek, MPV_ERROR_COMMAND);
    EXPECT_EQ(told(), "set pause no");
    change(FilmMoves::kPlace, 3);
    EXPECT_EQ(moves.position(), 3);
}

} // namespace tandrel
