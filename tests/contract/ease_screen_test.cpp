// Videos that are made cheaper while they play: what is shown, and that places and steps stay exact.

#include "contract/screen_bench.h"
#include "platform/input/key_places.h"

#include <gtest/gtest.h>

namespace tandrel
{

namespace
{
using namespace std::chrono_literals;

/// The judge of the engine says what the test wants.
class Easing : public testing::TestWithParam<Ease>
{
protected:
    int send(const std::string& command)
    {
        std::array<char, 128> buffer{};
        const int result = mci.send(command, buffer);
        answer = buffer.data();
        return result;
    }
    long number(const std::string& command)
    {
        EXPECT_EQ(send(command), 0) << command;
        return answer.empty() ? -1 : std::stol(answer);
    }
    bool waitUntil(const std::function<bool()>& condition)
    {
        const auto end = std::chrono::steady_clock::now() + 60s;
        while (std::chrono::steady_clock::now() < end) {
            mci.idle();
            if (condition())
                return true;
            test::letOthersRun();
        }
        return false;
    }
    bool shows(long frame)
    {
        return waitUntil([&] { return window.frameIn(kPicture) == static_cast<int>(frame); });
    }
    int eased() { return mci.report().at(0).counts.eased; }
    int width() { return mci.report().at(0).counts.width; }

    void play(const std::string& name, const std::string& size = "320 240")
    {
        ASSERT_EQ(send("Open \"" + testMedia(name) + "\" alias A parent " + std::to_string(window.handle())), 0);
        ASSERT_EQ(send("put A window at 0 0 " + size), 0);
        ASSERT_EQ(send("set A time format frames"), 0);
        ASSERT_EQ(send("Play A"), 0);
    }
    /// Plays until the decoder does what is wanted, and for a while then.
    void playEased(const std::string& name, Ease ease)
    {
        wanted = ease;
        play(name);
        ASSERT_TRUE(waitUntil([&] { return eased() == static_cast<int>(ease); }));
        const long from = number("status A position");
        ASSERT_TRUE(waitUntil([&] { return number("status A position") >= from + 12; }));
        ASSERT_EQ(send("Pause A"), 0);
    }

    explicit Easing(std::optional<bool> hardwareDecoding = {})
        : mci(makeMpvEngine({.outputs = true,
                             .pixelRatio = nullptr,
                             .mostDevices = 2,
                             .hardwareDecoding = hardwareDecoding,
                             .judgeLoad = [this](auto, const std::vector<LoadSample>& running, double, bool) {
                                 seen = running;
                                 std::vector<LoadOrder> orders;
                                 for (const LoadSample& sample : running)
                                     if (sample.ease != wanted)
                                         orders.push_back({sample.id, wanted});
                                 return orders;
                             }}))
    {
    }

    Ease wanted = Ease::Full;
    std::vector<LoadSample> seen;
    TestWindow window{640, 480};
    MciService mci;
    std::string answer;
};

} // namespace

TEST_P(Easing, AHeldPictureIsTheOneThatIsTold)
{
    playEased("h264_30.mp4", GetParam());
    const long frame = number("status A position");
    EXPECT_TRUE(shows(frame)) << "told " << frame << ", shown " << window.frameIn(kPicture).value_or(-1);
}

TEST_P(Easing, StepsAreOfOneFrame)
{
    playEased("h264_30.mp4", GetParam());
    const long frame = number("status A position");
    ASSERT_TRUE(shows(frame));
    for (long next = frame + 1; next <= frame + 4; ++next) {
        ASSERT_EQ(send("step A"), 0);
        ASSERT_EQ(number("status A position"), next);
        ASSERT_TRUE(shows(next));
    }
    for (long next = frame + 3; next >= frame - 4; --next) {
        ASSERT_EQ(send("step A reverse"), 0);
        ASSERT_EQ(number("status A position"), next);
        ASSERT_TRUE(shows(next));
    }
}

TEST_P(Easing, SeeksAreExact)
{
    playEased("h264_30.mp4", GetParam());
    for (const long frame : {200L, 33L, 34L, 35L, 0L, 299L}) {
        ASSERT_EQ(send("seek A to " + std::to_string(frame)), 0);
        ASSERT_EQ(number("status A position wait"), frame);
        ASSERT_TRUE(shows(frame)) << frame;
    }
    EXPECT_EQ(eased(), 0) << "what is at rest is decoded in full";
}

TEST_P(Easing, PlaysToItsEnd)
{
    wanted = GetParam();
    play("gops.mp4");
    EXPECT_TRUE(waitUntil([&] { return number("status A position") == number("status A length"); }));
}

TEST_P(Easing, ComesBackInFull)
{
    wanted = GetParam();
    play("h264_30.mp4");
    ASSERT_TRUE(waitUntil([&] { return eased() == static_cast<int>(GetParam()); }));
    wanted = Ease::Full;
    EXPECT_TRUE(waitUntil([&] { return eased() == 0; }));
    EXPECT_EQ(mci.eased(), 0);
}

INSTANTIATE_TEST_SUITE_P(All, Easing,
                         testing::Values(Ease::Simplified, Ease::HalfRate, Ease::LowRate, Ease::KeyPictures),
                         [](const auto& row) { return "Ease" + std::to_string(static_cast<int>(row.param)); });

class EasedPictures : public Easing
{
};

TEST_F(EasedPictures, AreFewer)
{
    wanted = Ease::LowRate;
    play("h264_30.mp4");
    ASSERT_TRUE(waitUntil([&] { return !seen.empty() && seen[0].ease == Ease::LowRate && seen[0].pictureShare; }));
    EXPECT_LT(*seen[0].pictureShare, 0.7);
    EXPECT_EQ(mci.eased(), 1);
    EXPECT_EQ(seen[0].pixelRate, 30.0 * 320 * 240);
    EXPECT_EQ(seen[0].area, 320 * 240);
}

TEST_F(EasedPictures, AreDecodedNoLargerThanTheyAreShown)
{
    wanted = Ease::Simplified;
    play("mpeg4.mkv", "80 60");
    EXPECT_TRUE(waitUntil([&] { return width() == 80; })) << width();
    EXPECT_EQ(eased(), static_cast<int>(Ease::Simplified));
    ASSERT_EQ(send("put A window at 0 0 160 120"), 0);
    EXPECT_TRUE(waitUntil([&] { return width() == 160; })) << width();
    ASSERT_EQ(send("put A window at 0 0 320 240"), 0);
    EXPECT_TRUE(waitUntil([&] { return width() == 320; })) << width();
    EXPECT_EQ(eased(), static_cast<int>(Ease::Simplified));
    ASSERT_EQ(send("put A window at 0 0 80 60"), 0);
    EXPECT_TRUE(waitUntil([&] { return width() == 80; })) << width();
}

TEST_F(EasedPictures, AreAsManyPixelsAsTheyAreCodedIn)
{
    wanted = Ease::Simplified;
    // Shown at 640 by 240.
    play("mpeg4_wide.mkv", "320 120");
    ASSERT_TRUE(
        waitUntil([&] { return eased() == static_cast<int>(Ease::Simplified) && !seen.empty() && seen[0].pace; }));
    EXPECT_EQ(width(), 320) << "half of them would be stretched";
    ASSERT_EQ(send("put A window at 0 0 160 60"), 0);
    EXPECT_TRUE(waitUntil([&] { return width() == 160; })) << width();
}

TEST_F(EasedPictures, AreOfTheirFullSizeAtRest)
{
    wanted = Ease::Simplified;
    play("mpeg4.mkv", "160 120");
    ASSERT_TRUE(waitUntil([&] { return width() == 160; }));
    ASSERT_EQ(send("Pause A"), 0);
    const long frame = number("status A position");
    ASSERT_EQ(send("step A"), 0);
    EXPECT_EQ(number("status A position"), frame + 1);
    EXPECT_TRUE(waitUntil([&] { return width() == 320; })) << width();
    EXPECT_EQ(eased(), 0);
}

TEST_F(EasedPictures, AreOfTheirFullSizeWhenAHeldOneGrows)
{
    wanted = Ease::Simplified;
    play("mpeg4.mkv", "80 60");
    ASSERT_TRUE(waitUntil([&] { return width() == 80; }));
    ASSERT_EQ(send("Pause A"), 0);
    const long frame = number("status A position");
    ASSERT_EQ(send("put A window at 0 0 320 240"), 0);
    EXPECT_TRUE(waitUntil([&] { return width() == 320; })) << width();
    EXPECT_TRUE(shows(frame)) << "told " << frame << ", shown " << window.frameIn(kPicture).value_or(-1);
    EXPECT_EQ(number("status A position"), frame);
    EXPECT_EQ(eased(), 0);
}

TEST_F(EasedPictures, AreOfTheSizeOfTheFileWhereTheDecoderKnowsNoOther)
{
    wanted = Ease::Simplified;
    play("h264_30.mp4", "80 60");
    ASSERT_TRUE(
        waitUntil([&] { return eased() == static_cast<int>(Ease::Simplified) && !seen.empty() && seen[0].pace; }));
    EXPECT_EQ(width(), 320);
}

TEST_F(EasedPictures, TheSelectedOneIsKnown)
{
    play("h264_30.mp4");
    ASSERT_TRUE(waitUntil([&] { return !seen.empty(); }));
    EXPECT_FALSE(seen[0].favoured);
    mci.favour("A");
    EXPECT_TRUE(waitUntil([&] { return !seen.empty() && seen[0].favoured; }));
    mci.favour("another");
    EXPECT_TRUE(waitUntil([&] { return !seen.empty() && !seen[0].favoured; }));
}

TEST_F(EasedPictures, ThePaceOfWhatKeepsUpIsOne)
{
    play("h264_30.mp4");
    ASSERT_TRUE(waitUntil([&] { return !seen.empty() && seen[0].pace; }));
    EXPECT_NEAR(*seen[0].pace, 1, 0.3);
    EXPECT_NEAR(seen[0].lag, 0, 1);
}

TEST_F(EasedPictures, WhatIsHeldIsNotJudged)
{
    play("h264_30.mp4");
    ASSERT_TRUE(waitUntil([&] { return !seen.empty(); }));
    ASSERT_EQ(send("Pause A"), 0);
    EXPECT_TRUE(waitUntil([&] { return seen.empty(); }));
}

/// A card may decode, and there is none that could: none knows Theora.
class EasedBesideACard : public Easing
{
protected:
    EasedBesideACard() : Easing(true) {}
};

TEST_F(EasedBesideACard, WhatTheProcessorsDecodeAllTheSameTakesPart)
{
    wanted = Ease::HalfRate;
    play("theora.mkv");
    EXPECT_TRUE(waitUntil([&] { return eased() == static_cast<int>(Ease::HalfRate); }));
    EXPECT_EQ(mci.eased(), 1);
}

TEST_F(EasedPictures, WhetherTheyAreCoveredIsKnownHoweverIdleTheMachineIs)
{
    wanted = Ease::LowRate;
    play("mpeg4.mkv");
    const auto covered = [&] { return !seen.empty() && seen[0].covered; };
    ASSERT_TRUE(waitUntil([&] { return !seen.empty() && seen[0].ease == Ease::LowRate; }));
    {
        const TestWindow above{640, 480};
        EXPECT_TRUE(waitUntil(covered));
    }
    EXPECT_TRUE(waitUntil([&] { return !seen.empty() && !covered(); }));
}

TEST_F(EasedPictures, KeyPlacesAreThoseOfTheFile)
{
    const auto refuses = [] { return false; };
    const KeyPlaces gops = readKeyPlaces(testMedia("gops.mp4"), refuses);
    ASSERT_EQ(gops.seconds.size(), 4u);
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_NEAR(gops.seconds[i], static_cast<double>(i) * 40 / 30, 0.001);
    EXPECT_FALSE(gops.inOrder);
    EXPECT_EQ(readKeyPlaces(testMedia("gops_open.mkv"), refuses).seconds.size(), 4u);
    EXPECT_TRUE(readKeyPlaces(testMedia("video.mov"), refuses).inOrder);
    EXPECT_TRUE(readKeyPlaces(testMedia("no such file"), refuses).seconds.empty());
    EXPECT_TRUE(readKeyPlaces(testMedia("gops.ts"), refuses).seconds.empty()) << "it has no list";
    EXPECT_TRUE(readKeyPlaces(testMedia("gops.mp4"), [] { return true; }).seconds.empty());
}

} // namespace tandrel
