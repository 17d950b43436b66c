// What a player answers about how it keeps up.
#include "platform/mpv/load_meter.h"
#include "platform/mpv/picture_shrink.h"

#include <clocale>
#include <gtest/gtest.h>
#include <memory>

namespace tandrel
{

namespace
{
using namespace std::chrono_literals;

/// The questions go to a real player with nothing to play; the answers are those of the test.
class Meter : public testing::Test
{
protected:
    static mpv_handle* idlePlayer()
    {
        std::setlocale(LC_NUMERIC, "C");
        mpv_handle* player = mpv_create();
        EXPECT_EQ(mpv_initialize(player), 0);
        return player;
    }

    struct Answers {
        /// Null: there is none.
        const char* decoder = "no";
        std::optional<double> sound = {};
        double behindSound = 0;
        std::int64_t dropped = 0;
        double rate = 60;
        double place = 0;
    };

    void answer(mpv_format format, void* data)
    {
        mpv_event_property property{"", format, data};
        mpv_event event{};
        event.event_id = MPV_EVENT_GET_PROPERTY_REPLY;
        event.error = data ? 0 : MPV_ERROR_PROPERTY_UNAVAILABLE;
        event.reply_userdata = ++number;
        event.data = &property;
        EXPECT_TRUE(meter.hear(event, now)) << number;
    }
    /// The questions are asked, and answered when this has passed.
    void hear(Answers answers, std::chrono::milliseconds passed)
    {
        meter.ask(channel);
        now += passed;
        answer(MPV_FORMAT_STRING, answers.decoder ? &answers.decoder : nullptr);
        answer(MPV_FORMAT_DOUBLE, answers.sound ? &*answers.sound : nullptr);
        answer(MPV_FORMAT_DOUBLE, answers.sound ? &answers.behindSound : nullptr);
        answer(MPV_FORMAT_INT64, &answers.dropped);
        answer(MPV_FORMAT_DOUBLE, &answers.rate);
        answer(MPV_FORMAT_DOUBLE, &answers.place);
    }

    std::unique_ptr<mpv_handle, decltype(&mpv_terminate_destroy)> handle{idlePlayer(), &mpv_terminate_destroy};
    MpvChannel channel{handle.get()};
    LoadMeter meter;
    LoadMeter::Moment now{1h};
    std::uint64_t number = 0;
};

TEST_F(Meter, ACardThatDecodesIsKnown)
{
    EXPECT_FALSE(meter.decodedByCard());
    hear({.decoder = "vaapi"}, 1s);
    EXPECT_EQ(meter.decodedByCard(), true);
    hear({.decoder = "no"}, 1s);
    EXPECT_EQ(meter.decodedByCard(), false) << "it has given up";
    meter.restart();
    EXPECT_EQ(meter.decodedByCard(), false) << "another place has the same decoder";
}

TEST_F(Meter, WithoutADecoderNothingIsSaidOfACard)
{
    hear({.decoder = nullptr}, 1s);
    EXPECT_FALSE(meter.decodedByCard());
    hear({.decoder = "nvdec-copy"}, 1s);
    hear({.decoder = nullptr}, 1s);
    EXPECT_EQ(meter.decodedByCard(), true);
}

TEST_F(Meter, ThePaceIsThatOfThePicturesAgainstTheClock)
{
    hear({.place = 10}, 1s);
    EXPECT_FALSE(meter.figures(1, 60).pace);
    hear({.place = 10.5}, 1s);
    EXPECT_DOUBLE_EQ(*meter.figures(1, 60).pace, 0.5);
    EXPECT_DOUBLE_EQ(meter.figures(1, 60).lag, 0.5);
    EXPECT_DOUBLE_EQ(*meter.figures(0.5, 60).pace, 1) << "it plays at half speed";
    hear({.place = 11}, 1s);
    EXPECT_DOUBLE_EQ(meter.figures(1, 60).lag, 1) << "all of what it has lost";
}

TEST_F(Meter, BesideSoundThePaceIsHowFarThePicturesFallBehindIt)
{
    hear({.sound = 10.0, .behindSound = 0, .place = 10}, 1s);
    hear({.sound = 11.0, .behindSound = 0.25, .place = 11}, 1s);
    EXPECT_DOUBLE_EQ(*meter.figures(1, 60).pace, 0.75);
    EXPECT_DOUBLE_EQ(meter.figures(1, 60).lag, 0.25);
    EXPECT_DOUBLE_EQ(meter.lag(), 0.25);
}

TEST_F(Meter, DroppedPicturesAreAShareOfAll)
{
    hear({.dropped = 100}, 1s);
    hear({.dropped = 115, .rate = 45}, 1s);
    EXPECT_DOUBLE_EQ(meter.figures(1, 60).dropped, 0.25);
    EXPECT_DOUBLE_EQ(*meter.figures(1, 60).pictureRate, 45);
}

TEST_F(Meter, AStartForgetsWhatIsUnderWay)
{
    meter.ask(channel);
    meter.restart();
    mpv_event late{};
    late.event_id = MPV_EVENT_GET_PROPERTY_REPLY;
    late.reply_userdata = 1;
    EXPECT_FALSE(meter.hear(late, now));
    EXPECT_FALSE(meter.figures(1, 60).pace);
}

TEST(Halvings, APictureStaysNearlyAsLargeAsItIsShown)
{
    const PictureSize picture{1920, 1080};
    EXPECT_EQ(halvingsFor(picture, {1920, 1080}, 2), 0);
    EXPECT_EQ(halvingsFor(picture, {1081, 540}, 2), 0);
    EXPECT_EQ(halvingsFor(picture, {960, 608}, 2), 0);
    EXPECT_EQ(halvingsFor(picture, {1080, 607}, 2), 1);
    EXPECT_EQ(halvingsFor(picture, {960, 540}, 2), 1);
    EXPECT_EQ(halvingsFor(picture, {480, 270}, 2), 2);
    EXPECT_EQ(halvingsFor(picture, {480, 270}, 1), 1);
    EXPECT_EQ(halvingsFor(picture, {480, 270}, 0), 0);
    EXPECT_EQ(halvingsFor(picture, {0, 0}, 2), 2) << "nobody sees it";
}

TEST(Halvings, DependOnTheDecoder)
{
    EXPECT_GE(mostHalvings("mpeg2video"), 2);
    EXPECT_GE(mostHalvings("mjpeg"), 2);
    EXPECT_EQ(mostHalvings("h264"), 0);
    EXPECT_EQ(mostHalvings("no such codec"), 0);
    EXPECT_EQ(mostHalvings(""), 0);
}

} // namespace

} // namespace tandrel
