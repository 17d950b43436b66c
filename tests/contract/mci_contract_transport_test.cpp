// Playing, holding, seeking and stepping, as far as positions and modes tell.
#include "contract/contract_bench.h"

namespace tandrel
{

TEST_P(MciContract, AfterOpenItIsStoppedAtTheStart)
{
    ASSERT_EQ(open("h264_30.mp4"), 0);
    EXPECT_EQ(ask("status A mode"), "stopped");
    EXPECT_EQ(ask("status A position"), "0");
    EXPECT_EQ(ask("status A length"), "10000");
    EXPECT_EQ(ask("status A length wait"), "10000");
}

TEST_P(MciContract, TheTimeFormatHoldsUntilSetAnew)
{
    ASSERT_EQ(open("h264_25.mp4"), 0);
    EXPECT_EQ(send("set A time format frames"), 0);
    EXPECT_EQ(ask("status A length"), "250");
    EXPECT_EQ(send("seek A to 100"), 0);
    EXPECT_EQ(ask("status A position"), "100");
    EXPECT_EQ(send("set A time format milliseconds"), 0);
    EXPECT_EQ(ask("status A position"), "4000");
    EXPECT_EQ(ask("status A length"), "10000");
    EXPECT_EQ(send("set A time format ms"), 0);
    EXPECT_EQ(ask("status A length"), "10000");
    EXPECT_EQ(send("set A time format fortnights"), 261);
    EXPECT_EQ(ask("status A length"), "10000");
}

TEST_P(MciContract, PlayRunsAndPauseFreezes)
{
    ASSERT_EQ(open("h264_30.mp4"), 0);
    EXPECT_EQ(send("Play A"), 0);
    EXPECT_EQ(ask("status A mode"), "playing");
    EXPECT_TRUE(waitUntil([&] { return number("status A position") > 300; }));
    EXPECT_EQ(ask("status A mode"), "playing");
    EXPECT_EQ(send("Pause A"), 0);
    EXPECT_EQ(ask("status A mode"), "paused");
    const std::string frozen = ask("status A position");
    EXPECT_GT(std::stol(frozen), 300);
    for (int look = 0; look < 50; ++look) {
        mci().idle();
        EXPECT_EQ(ask("status A position"), frozen);
    }
    EXPECT_TRUE(playBeyond(std::stol(frozen) + 200));
}

TEST_P(MciContract, PositionNeverGoesBackWhilePlaying)
{
    ASSERT_EQ(open("short.mp4"), 0);
    EXPECT_EQ(send("Play A"), 0);
    long last = 0;
    EXPECT_TRUE(waitUntil([&] {
        const long place = number("status A position");
        EXPECT_GE(place, last);
        last = place;
        return place >= 1000;
    }));
}

TEST_P(MciContract, PauseWorksFromAnyState)
{
    ASSERT_EQ(open("short.mp4"), 0);
    EXPECT_EQ(send("Pause A"), 0);
    EXPECT_EQ(ask("status A mode"), "paused");
    EXPECT_EQ(send("Pause A"), 0);
    EXPECT_EQ(ask("status A mode"), "paused");
    EXPECT_EQ(ask("status A position"), "0");
}

TEST_P(MciContract, TheNaturalEndIsTheLengthExactlyAndStays)
{
    for (const char* name : {"short.mp4", "long_sound.mp4"}) {
        ASSERT_EQ(open(name), 0);
        const long length = number("status A length");
        EXPECT_EQ(send("seek A to " + std::to_string(length - 700)), 0);
        EXPECT_EQ(send("Play A"), 0);
        EXPECT_TRUE(waitUntil([&] {
            const long place = number("status A position");
            const bool playing = ask("status A mode") == "playing";
            EXPECT_TRUE(!playing || place < length) << place;
            return !playing;
        }));
        EXPECT_EQ(ask("status A mode"), "stopped");
        EXPECT_EQ(number("status A position"), length);
        EXPECT_EQ(send("set A time format frames"), 0);
        EXPECT_EQ(ask("status A position"), ask("status A length"));
        EXPECT_EQ(send("set A time format ms"), 0);
        EXPECT_EQ(send("Play A"), 0);
        mci().idle();
        EXPECT_EQ(ask("status A mode"), "stopped");
        EXPECT_EQ(number("status A position"), length);
        EXPECT_EQ(send("Pause A"), 0);
        EXPECT_EQ(ask("status A mode"), "paused");
        EXPECT_EQ(number("status A position"), length);
        EXPECT_EQ(send("close A"), 0);
    }
}

TEST_P(MciContract, AnEndThatIsLeftBeforeItIsFoundLeavesTheSound)
{
    // Without its sound it would be over with its picture, at 3000.
    ASSERT_EQ(open("sound_behind.mp4"), 0);
    const long length = number("status A length");
    EXPECT_EQ(send("seek A to " + std::to_string(length)), 0);
    EXPECT_EQ(send("seek A to 1500"), 0);
    EXPECT_TRUE(playBeyond(3300));
    EXPECT_EQ(ask("status A mode"), "playing");
}

TEST_P(MciContract, AnEndThatComesBeforeThePauseIsTheEnd)
{
    ASSERT_EQ(open("short.mp4", "A"), 0);
    ASSERT_EQ(open("h264_30.mp4", "B"), 0);
    EXPECT_EQ(send("seek A to 1800"), 0);
    EXPECT_EQ(send("Play A"), 0);
    EXPECT_EQ(send("Play B"), 0);
    EXPECT_TRUE(waitUntil([&] { return number("status B position") > 2000; }));
    EXPECT_EQ(send("Pause A"), 0);
    EXPECT_EQ(ask("status A position"), "2000");
}

TEST_P(MciContract, AfterTheEndItCanBePlayedAgain)
{
    ASSERT_EQ(open("short.mp4"), 0);
    EXPECT_EQ(send("seek A to 1900"), 0);
    EXPECT_EQ(send("Play A"), 0);
    EXPECT_TRUE(waitUntil([&] { return ask("status A mode") == "stopped"; }));
    EXPECT_EQ(send("seek A to 0"), 0);
    EXPECT_EQ(ask("status A position"), "0");
    EXPECT_TRUE(playBeyond(500));
    EXPECT_EQ(ask("status A mode"), "playing");
}

TEST_P(MciContract, ALastFrameThatWasSteppedToIsPlayedToTheEnd)
{
    ASSERT_EQ(open("short.mp4"), 0);
    EXPECT_EQ(send("set A time format frames"), 0);
    EXPECT_EQ(send("seek A to 58"), 0);
    for (int step = 0; step < 3; ++step) {
        EXPECT_EQ(send("step A"), 0);
        EXPECT_EQ(ask("status A position"), "59");
    }
    EXPECT_EQ(send("Play A"), 0);
    EXPECT_TRUE(waitUntil([&] { return ask("status A mode") == "stopped"; }));
    EXPECT_EQ(ask("status A position"), "60");
}

TEST_P(MciContract, PlayFromGoesOnWhereTheEndWasReachedUnseen)
{
    ASSERT_EQ(open("short.mp4"), 0);
    EXPECT_EQ(send("Play A"), 0);
    // Nobody asks, so only time tells that the two seconds are over.
    letPass(std::chrono::seconds(3));
    EXPECT_EQ(send("Play A from 0"), 0);
    EXPECT_EQ(ask("status A mode"), "playing");
    EXPECT_TRUE(waitUntil([&] { return number("status A position wait") > 500; }));
}

TEST_P(MciContract, PlayGoesOnAfterAStepBackFromTheEnd)
{
    ASSERT_EQ(open("short.mp4"), 0);
    EXPECT_EQ(send("seek A to 2000"), 0);
    EXPECT_EQ(send("step A reverse"), 0);
    EXPECT_EQ(send("Play A"), 0);
    EXPECT_EQ(ask("status A mode"), "playing");
    EXPECT_TRUE(waitUntil([&] { return ask("status A mode") == "stopped"; }));
    EXPECT_EQ(ask("status A position"), "2000");
}

TEST_P(MciContract, PlayGoesOnAfterASeekBackFromTheEnd)
{
    ASSERT_EQ(open("h264_30.mp4"), 0);
    EXPECT_EQ(send("seek A to 10000"), 0);
    EXPECT_EQ(send("seek A to 3000"), 0);
    EXPECT_TRUE(playBeyond(3500));
    EXPECT_EQ(send("seek A to 10000"), 0);
    EXPECT_EQ(send("seek A to 9500"), 0);
    EXPECT_EQ(send("Play A"), 0);
    EXPECT_TRUE(waitUntil([&] { return ask("status A mode") == "stopped"; }));
    EXPECT_EQ(ask("status A position"), "10000");
    EXPECT_EQ(send("Play A from 1000"), 0);
    EXPECT_TRUE(waitUntil([&] { return number("status A position") > 1500; }));
}

TEST_P(MciContract, APlaceThatARunningDeviceIsSentToIsAnsweredAtOnce)
{
    ASSERT_EQ(open("h264_30.mp4"), 0);
    EXPECT_TRUE(playBeyond(100));
    EXPECT_EQ(send("Play A from 5001"), 0);
    EXPECT_NEAR(number("status A position"), 5000.5, 0.5) << "the place, or the time of the frame that shows it";
}

TEST_P(MciContract, AnUnknownLengthLiesAheadUntilTheEndIsFound)
{
    ASSERT_EQ(open("live.mkv"), 0);
    EXPECT_GT(number("status A length"), number("status A position"));
    EXPECT_EQ(send("Play A"), 0);
    EXPECT_TRUE(waitUntil([&] {
        const long place = number("status A position");
        const long length = number("status A length");
        const bool playing = ask("status A mode") == "playing";
        EXPECT_TRUE(!playing || place < length) << place << " of " << length;
        return !playing;
    }));
    const long end = number("status A position");
    EXPECT_EQ(number("status A length"), end);
    EXPECT_NEAR(static_cast<double>(end), 3000, 60);
    EXPECT_EQ(send("seek A to 99999"), 0);
    EXPECT_EQ(number("status A position"), end);
    EXPECT_EQ(send("seek A to 1000"), 0);
    EXPECT_EQ(number("status A position"), 1000);
    EXPECT_EQ(number("status A length"), end);
}

TEST_P(MciContract, SeekAnswersThePlaceAskedFor)
{
    ASSERT_EQ(open("h264_30.mp4"), 0);
    for (const long place : {1L, 33L, 34L, 2500L, 9999L, 5017L, 0L}) {
        EXPECT_EQ(send("seek A to " + std::to_string(place)), 0);
        EXPECT_EQ(number("status A position"), place);
        EXPECT_EQ(number("status A position wait"), place);
    }
    EXPECT_EQ(ask("status A mode"), "stopped");
}

TEST_P(MciContract, SeekIsClamped)
{
    ASSERT_EQ(open("short.mp4"), 0);
    EXPECT_EQ(send("seek A to 5000"), 0);
    EXPECT_EQ(ask("status A position"), "2000");
    EXPECT_EQ(send("seek A to -5"), 0);
    EXPECT_EQ(ask("status A position"), "0");
    EXPECT_EQ(send("seek A to 2000"), 0);
    EXPECT_EQ(ask("status A position"), "2000");
    EXPECT_EQ(send("seek A to 123456789012345678901234567890"), 0);
    EXPECT_EQ(ask("status A position"), "2000");
    EXPECT_EQ(ask("status A mode"), "stopped");
}

TEST_P(MciContract, SeekStopsAPlayingDeviceAndLeavesAPausedOne)
{
    ASSERT_EQ(open("h264_30.mp4"), 0);
    EXPECT_TRUE(playBeyond(100));
    EXPECT_EQ(send("seek A to 3000"), 0);
    EXPECT_EQ(ask("status A mode"), "stopped");
    EXPECT_EQ(ask("status A position"), "3000");
    EXPECT_EQ(send("Pause A"), 0);
    EXPECT_EQ(send("seek A to 4000"), 0);
    EXPECT_EQ(ask("status A mode"), "paused");
    EXPECT_EQ(ask("status A position"), "4000");
}

TEST_P(MciContract, OfManySeeksTheLastOneWins)
{
    ASSERT_EQ(open("h264_30.mp4"), 0);
    EXPECT_EQ(send("set A time format frames"), 0);
    for (long frame = 10; frame <= 290; frame += 20)
        EXPECT_EQ(send("seek A to " + std::to_string(frame)), 0);
    EXPECT_EQ(ask("status A position"), "290");
    EXPECT_EQ(send("step A"), 0);
    EXPECT_EQ(ask("status A position"), "291");
}

TEST_P(MciContract, PlayFromSeeksAndRuns)
{
    ASSERT_EQ(open("h264_30.mp4"), 0);
    EXPECT_EQ(send("play A from 4000"), 0);
    EXPECT_EQ(ask("status A mode"), "playing");
    EXPECT_TRUE(waitUntil([&] { return number("status A position wait") > 4200; }));
    EXPECT_LT(number("status A position"), 8000);
    EXPECT_EQ(send("play A from 1000"), 0);
    const long jumped = number("status A position wait");
    EXPECT_GE(jumped, 1000);
    EXPECT_LT(jumped, 4000);
    EXPECT_TRUE(waitUntil([&] { return number("status A position") > 1300; }));
    EXPECT_EQ(ask("status A mode"), "playing");
}

TEST_P(MciContract, PlayFromIsClamped)
{
    ASSERT_EQ(open("short.mp4"), 0);
    EXPECT_EQ(send("play A from -300"), 0);
    EXPECT_EQ(ask("status A position"), "0");
    EXPECT_EQ(send("play A from 2001"), 0);
    EXPECT_EQ(ask("status A position"), "2000");
    EXPECT_EQ(ask("status A mode"), "stopped");
    EXPECT_EQ(send("play A from 0"), 0);
    EXPECT_TRUE(waitUntil([&] { return number("status A position") > 200; }));
    EXPECT_EQ(send("play A from 9999"), 0);
    EXPECT_EQ(ask("status A position"), "2000");
    EXPECT_EQ(ask("status A mode"), "stopped");
}

TEST_P(MciContract, StepsAreExactlyOneFrameInAnyFormat)
{
    ASSERT_EQ(open("h264_25.mp4"), 0);
    EXPECT_EQ(send("seek A to 4000"), 0);
    for (long place = 4040; place <= 4200; place += 40) {
        EXPECT_EQ(send("step A"), 0);
        EXPECT_EQ(number("status A position"), place);
    }
    for (long place = 4160; place >= 3960; place -= 40) {
        EXPECT_EQ(send("step A reverse"), 0);
        EXPECT_EQ(number("status A position"), place);
    }
    EXPECT_EQ(ask("status A mode"), "paused");
    EXPECT_EQ(send("set A time format frames"), 0);
    EXPECT_EQ(send("step A"), 0);
    EXPECT_EQ(ask("status A position"), "100");
}

TEST_P(MciContract, StepHoldsAPlayingDevice)
{
    ASSERT_EQ(open("h264_25.mp4"), 0);
    EXPECT_TRUE(playBeyond(200));
    EXPECT_EQ(send("step A"), 0);
    EXPECT_EQ(ask("status A mode"), "paused");
    const long place = number("status A position");
    EXPECT_EQ(place % 40, 0);
    EXPECT_EQ(send("step A reverse"), 0);
    EXPECT_EQ(number("status A position"), place - 40);
}

TEST_P(MciContract, TheSilentPlayBehindAStepMovesNothingOnEvenOfAPlayingDevice)
{
    ASSERT_EQ(open("h264_25.mp4"), 0);
    EXPECT_TRUE(playBeyond(200));
    EXPECT_EQ(send("step A"), 0);
    const long place = number("status A position");
    for (const char* command : {"step A", "setaudio A Volume to 0", "Play A", "Pause A", "setaudio A Volume to 500"})
        EXPECT_EQ(send(command), 0) << command;
    EXPECT_EQ(ask("status A mode"), "paused");
    EXPECT_EQ(number("status A position"), place + 40);
}

TEST_P(MciContract, StepsStayAtBothEnds)
{
    ASSERT_EQ(open("short.mp4"), 0);
    EXPECT_EQ(send("step A reverse"), 0);
    EXPECT_EQ(ask("status A position"), "0");
    EXPECT_EQ(send("step A reverse"), 0);
    EXPECT_EQ(ask("status A position"), "0");
    EXPECT_EQ(send("step A"), 0);
    EXPECT_EQ(ask("status A position"), "33");

    EXPECT_EQ(send("seek A to 2000"), 0);
    EXPECT_EQ(send("step A"), 0);
    EXPECT_EQ(ask("status A position"), "2000");
    EXPECT_EQ(send("step A reverse"), 0);
    EXPECT_EQ(ask("status A position"), "1933");
    EXPECT_EQ(send("step A"), 0);
    EXPECT_EQ(ask("status A position"), "1967");
    EXPECT_EQ(send("step A"), 0);
    EXPECT_EQ(ask("status A position"), "1967");
    EXPECT_EQ(ask("status A mode"), "paused");
}

TEST_P(MciContract, OneStepBackFromANaturalEndIsTheLastPictureButOne)
{
    ASSERT_EQ(open("short.mp4"), 0);
    EXPECT_EQ(send("seek A to 1800"), 0);
    EXPECT_EQ(send("Play A"), 0);
    EXPECT_TRUE(waitUntil([&] { return ask("status A mode") == "stopped"; }));
    EXPECT_EQ(send("step A reverse"), 0);
    EXPECT_EQ(ask("status A position"), "1933");
    EXPECT_EQ(send("set A time format frames"), 0);
    EXPECT_EQ(ask("status A position"), "58");
}

TEST_P(MciContract, PlayWithPauseBehindItLeavesThePlace)
{
    ASSERT_EQ(open("h264_30.mp4"), 0);
    const auto playAndPause = [&] {
        EXPECT_EQ(send("setaudio A Volume to 0"), 0);
        EXPECT_EQ(send("Play A"), 0);
        EXPECT_EQ(send("Pause A"), 0);
        EXPECT_EQ(send("setaudio A Volume to 500"), 0);
        mci().idle();
        EXPECT_EQ(ask("status A mode"), "paused");
    };
    playAndPause();
    EXPECT_EQ(ask("status A position"), "0");
    EXPECT_EQ(send("seek A to 1234"), 0);
    playAndPause();
    EXPECT_EQ(ask("status A position"), "1234");
    EXPECT_EQ(send("step A"), 0);
    playAndPause();
    EXPECT_EQ(ask("status A position"), "1267");
    EXPECT_EQ(send("step A reverse"), 0);
    playAndPause();
    EXPECT_EQ(ask("status A position"), "1233");
}

TEST_P(MciContract, APlaceThatWasReadIsFoundAgain)
{
    ASSERT_EQ(open("h264_30.mp4"), 0);
    EXPECT_EQ(send("set A time format frames"), 0);
    EXPECT_EQ(send("seek A to 101"), 0);
    EXPECT_EQ(send("set A time format ms"), 0);
    const std::string place = ask("status A position");
    EXPECT_EQ(place, "3367");
    EXPECT_EQ(send("seek A to 0"), 0);
    EXPECT_EQ(send("seek A to " + place), 0);
    EXPECT_EQ(send("set A time format frames"), 0);
    EXPECT_EQ(ask("status A position"), "101");
}

INSTANTIATE_TEST_SUITE_P(Simulated, MciContract, testing::Values(BenchRow{"simulated", &makeSimulatedBench}),
                         [](const auto& info) { return std::string(info.param.name); });
INSTANTIATE_TEST_SUITE_P(Mpv, MciContract, testing::Values(BenchRow{"mpv", &makeMpvBench}),
                         [](const auto& info) { return std::string(info.param.name); });

} // namespace tandrel
