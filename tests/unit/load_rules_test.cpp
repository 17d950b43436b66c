// What becomes of videos that are too much for the machine, by the rules alone.
#include "platform/mpv/load_rules.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace tandrel
{

namespace
{
using namespace std::chrono_literals;

constexpr double kBusy = 0.0;
constexpr double kHd60 = 1920.0 * 1080 * 60;

/// Videos on a machine that can do so much a second; each look is a second later.
class Load : public testing::Test
{
protected:
    void add(long area, double cost = kHd60)
    {
        LoadSample sample;
        sample.id = static_cast<int>(videos.size()) + 1;
        sample.area = area;
        sample.pixelRate = cost;
        videos.push_back(sample);
    }
    void addMany(int count, long area)
    {
        for (int i = 0; i < count; ++i)
            add(area);
    }
    LoadSample& video(int id) { return videos[static_cast<std::size_t>(id) - 1]; }
    Ease ease(int id) { return video(id).ease; }

    void allAt(double pace)
    {
        for (LoadSample& one : videos)
            one.pace = pace;
    }

    /// One look, with what it orders carried out.
    std::vector<LoadOrder> look(double idle = kBusy, bool lateTicks = false)
    {
        now += 1s;
        const auto orders = rules.judge(now, videos, idle, lateTicks);
        for (const LoadOrder& order : orders)
            video(order.id).ease = order.ease;
        return orders;
    }
    /// Looks until something is ordered.
    std::vector<LoadOrder> lookUntil(double idle, int most)
    {
        for (int i = 0; i < most; ++i)
            if (auto orders = look(idle); !orders.empty())
                return orders;
        return {};
    }
    void skip(std::chrono::seconds time) { now += time; }

    LoadRules rules;
    std::vector<LoadSample> videos;
    LoadRules::Moment now{1000s};
};

} // namespace

TEST_F(Load, WhatKeepsUpIsLeftAlone)
{
    addMany(12, 1000);
    allAt(1);
    EXPECT_TRUE(lookUntil(kBusy, 20).empty());
    allAt(0.96);
    EXPECT_TRUE(lookUntil(kBusy, 20).empty());
}

TEST_F(Load, NothingPlaysNothingHappens) { EXPECT_TRUE(lookUntil(kBusy, 3).empty()); }

TEST_F(Load, OneLateLookIsNoOverload)
{
    addMany(12, 1000);
    allAt(0.5);
    EXPECT_TRUE(look().empty());
    allAt(1);
    EXPECT_TRUE(look().empty());
    allAt(0.5);
    EXPECT_TRUE(look().empty());
    EXPECT_FALSE(look().empty());
}

TEST_F(Load, TakesAwayWhatIsMissingAndALittleMore)
{
    addMany(12, 1000);
    allAt(0.5);
    lookUntil(kBusy, 2);
    // Affordable are 0.9 * 0.5 * 12 = 5.4: all at half their rate would be 6, so that three give more: 0.22 each.
    EXPECT_EQ(std::count_if(videos.begin(), videos.end(), [](const auto& one) { return one.ease == Ease::HalfRate; }),
              9);
    EXPECT_EQ(std::count_if(videos.begin(), videos.end(), [](const auto& one) { return one.ease == Ease::LowRate; }),
              3);
}

TEST_F(Load, ALittleIsMissingLittleIsTaken)
{
    addMany(4, 1000);
    allAt(0.94);
    lookUntil(kBusy, 2);
    // 0.9 * 0.94 * 4 = 3.38; all without smoothing are 3.4.
    EXPECT_EQ(ease(1), Ease::HalfRate);
    for (int id = 2; id <= 4; ++id)
        EXPECT_EQ(ease(id), Ease::Simplified) << id;
}

TEST_F(Load, WhatNobodySeesGivesFirstAndMost)
{
    addMany(4, 1000);
    video(3).covered = true;
    allAt(0.8);
    lookUntil(kBusy, 2);
    EXPECT_EQ(ease(3), Ease::KeyPictures);
    // 0.9 * 0.8 * 4 = 2.88; the three others are 3.
    EXPECT_EQ(ease(1), Ease::Simplified);
    EXPECT_EQ(ease(2), Ease::Full);
    EXPECT_EQ(ease(4), Ease::Full);
}

TEST_F(Load, ThumbnailsGiveBeforeTheLead)
{
    add(10000);
    addMany(4, 900);
    allAt(0.6);
    lookUntil(kBusy, 2);
    // 0.9 * 0.6 * 5 = 2.7.
    EXPECT_EQ(ease(1), Ease::Full);
    for (int id = 2; id <= 5; ++id)
        EXPECT_GE(ease(id), Ease::HalfRate) << id;
}

TEST_F(Load, TheSelectedOneGivesLast)
{
    addMany(4, 1000);
    video(2).favoured = true;
    allAt(0.5);
    lookUntil(kBusy, 2);
    // 0.9 * 0.5 * 4 = 1.8; the three others at their lowest are 0.84, and 1 for this one is too much still.
    EXPECT_EQ(ease(2), Ease::Simplified);
    for (int id : {1, 3, 4})
        EXPECT_EQ(ease(id), Ease::LowRate) << id;
}

TEST_F(Load, ASingleVideoGivesToo)
{
    add(10000);
    video(1).favoured = true;
    allAt(0.5);
    EXPECT_TRUE(lookUntil(kBusy, 5).empty()) << "what is in its way may pass";
    look();
    EXPECT_EQ(ease(1), Ease::LowRate);
}

TEST_F(Load, PicturesOfTheSelectedOneMayBeThrownAway)
{
    add(10000);
    video(1).favoured = true;
    video(1).dropped = 0.4;
    allAt(1);
    EXPECT_TRUE(lookUntil(kBusy, 30).empty());
}

TEST_F(Load, OnlyWhatIsCoveredComesDownToKeyPictures)
{
    addMany(12, 1000);
    allAt(0.05);
    for (int i = 0; i < 60; ++i)
        look();
    for (int id = 1; id <= 12; ++id)
        EXPECT_EQ(ease(id), Ease::LowRate) << id;
}

TEST_F(Load, WhatComesToLightIsNoLongerReducedToKeyPictures)
{
    addMany(2, 1000);
    video(1).covered = true;
    allAt(0.6);
    lookUntil(kBusy, 2);
    ASSERT_EQ(ease(1), Ease::KeyPictures);
    video(1).covered = false;
    look();
    EXPECT_EQ(ease(1), Ease::LowRate) << "at once";
}

TEST_F(Load, AChangeIsGivenTimeToShow)
{
    addMany(12, 1000);
    allAt(0.5);
    lookUntil(kBusy, 2);
    for (int i = 0; i < 4; ++i)
        EXPECT_TRUE(look().empty()) << i;
    EXPECT_FALSE(lookUntil(kBusy, 3).empty());
}

TEST_F(Load, PicturesThatAreThrownAwayCountAsLate)
{
    addMany(3, 1000);
    allAt(1);
    for (LoadSample& one : videos)
        one.dropped = 0.3;
    EXPECT_FALSE(lookUntil(kBusy, 2).empty());
}

TEST_F(Load, AFewDroppedPicturesDoNotCount)
{
    addMany(3, 1000);
    allAt(1);
    for (LoadSample& one : videos)
        one.dropped = 0.1;
    EXPECT_TRUE(lookUntil(kBusy, 10).empty());
}

TEST_F(Load, LateTicksOfTheProgramCount)
{
    addMany(3, 1000);
    allAt(1);
    EXPECT_TRUE(look(kBusy, true).empty());
    EXPECT_FALSE(look(kBusy, true).empty());
}

TEST_F(Load, AnUnknownPaceIsNotLate)
{
    addMany(3, 1000);
    EXPECT_TRUE(lookUntil(kBusy, 10).empty());
}

TEST_F(Load, FullSizeComesBackOneByOneTheSelectedOneFirst)
{
    addMany(3, 1000);
    video(2).favoured = true;
    for (LoadSample& one : videos)
        one.ease = Ease::LowRate;
    allAt(1);
    // 0.84 is used at 30 %: there is room for all in the end, and for one at a time.
    auto orders = lookUntil(0.7, 20);
    ASSERT_EQ(orders.size(), 1u);
    EXPECT_EQ(orders[0].id, 2);
    EXPECT_EQ(orders[0].ease, Ease::Full);
    orders = lookUntil(0.6, 20);
    ASSERT_EQ(orders.size(), 1u);
    EXPECT_NE(orders[0].id, 2);
}

TEST_F(Load, NoMoreComesBackThanThereIsRoomFor)
{
    addMany(4, 1000);
    for (LoadSample& one : videos)
        one.ease = Ease::LowRate;
    allAt(1);
    // 1.12 is used at 70 %: what is idle but for a tenth, 20 %, is 0.32.
    const auto orders = lookUntil(0.3, 20);
    ASSERT_EQ(orders.size(), 1u);
    EXPECT_EQ(orders[0].ease, Ease::HalfRate);
}

TEST_F(Load, NothingComesBackOnABusyMachine)
{
    addMany(4, 1000);
    for (LoadSample& one : videos)
        one.ease = Ease::LowRate;
    allAt(1);
    EXPECT_TRUE(lookUntil(0.2, 60).empty());
}

TEST_F(Load, WhatWasGivenBackTooSoonWaitsTwiceAsLong)
{
    addMany(2, 1000);
    allAt(0.5);
    lookUntil(kBusy, 2);
    const auto waitForRaise = [&] {
        allAt(1);
        const auto from = now;
        EXPECT_FALSE(lookUntil(0.6, 1000).empty());
        return now - from;
    };
    const auto first = waitForRaise();
    allAt(0.5);
    EXPECT_FALSE(lookUntil(kBusy, 5).empty());
    const auto second = waitForRaise();
    EXPECT_GT(second, first);
    for (int i = 0; i < 10; ++i) {
        allAt(0.5);
        lookUntil(kBusy, 5);
        EXPECT_LE(waitForRaise(), 301s) << "but not for ever";
    }
}

TEST_F(Load, ItWaitsTwiceAsLongOnlyOnceForEachRaise)
{
    addMany(2, 1000);
    allAt(0.7);
    lookUntil(kBusy, 2);
    allAt(1);
    ASSERT_FALSE(lookUntil(0.6, 1000).empty());
    for (int i = 0; i < 2; ++i) {
        allAt(0.8);
        ASSERT_FALSE(lookUntil(kBusy, 8).empty());
    }
    allAt(1);
    const auto from = now;
    ASSERT_FALSE(lookUntil(0.6, 1000).empty());
    EXPECT_LT(now - from, 30s);
}

TEST_F(Load, OtherVideosStartWithoutThatWait)
{
    addMany(2, 1000);
    allAt(0.5);
    lookUntil(kBusy, 2);
    for (int i = 0; i < 6; ++i) {
        allAt(1);
        lookUntil(0.6, 1000);
        allAt(0.5);
        lookUntil(kBusy, 5);
    }
    videos.pop_back();
    allAt(1);
    skip(6s);
    EXPECT_FALSE(lookUntil(0.6, 5).empty());
}

TEST_F(Load, LeavingOutWhatIsNeededSavesNothing)
{
    addMany(2, 1000);
    video(1).needsAll = true;
    allAt(0.6);
    lookUntil(kBusy, 2);
    EXPECT_LE(ease(1), Ease::Simplified);
    EXPECT_GE(ease(2), Ease::HalfRate);
}

TEST_F(Load, WhatIsCoveredComesDownToKeyPicturesAllTheSame)
{
    addMany(2, 1000);
    video(1).needsAll = true;
    video(1).covered = true;
    allAt(0.6);
    lookUntil(kBusy, 2);
    EXPECT_EQ(ease(1), Ease::KeyPictures);
    EXPECT_EQ(ease(2), Ease::Full);
}

TEST_F(Load, ItIsFoundOutToo)
{
    addMany(2, 1000);
    allAt(0.6);
    lookUntil(kBusy, 2);
    ASSERT_GE(ease(1), Ease::HalfRate);
    // All pictures come although half of them were to be left out.
    video(1).pictureShare = 1;
    video(2).pictureShare = 0.5;
    skip(5s);
    look();
    EXPECT_EQ(ease(1), Ease::HalfRate) << "what it does without saves nothing, and is given back when there is room";
    lookUntil(kBusy, 3);
    EXPECT_EQ(ease(1), Ease::HalfRate);
    EXPECT_EQ(ease(2), Ease::LowRate);
}

TEST_F(Load, WhatCanGiveNoMoreLeavesOutPieces)
{
    addMany(5, 1000);
    for (LoadSample& one : videos) {
        one.needsAll = true;
        one.ease = Ease::Simplified;
        one.lag = 2;
    }
    video(4).lag = 9;
    allAt(0.7);
    auto orders = lookUntil(kBusy, 2);
    ASSERT_EQ(orders.size(), 3u) << "not all at once";
    EXPECT_EQ(orders[0].id, 4) << "the last one first";
    for (const LoadOrder& order : orders) {
        EXPECT_TRUE(order.catchUp);
        EXPECT_EQ(order.ease, Ease::Simplified);
    }
    orders = look();
    ASSERT_EQ(orders.size(), 2u) << "the others";
    EXPECT_TRUE(look().empty()) << "none again so soon";
}

TEST_F(Load, ShortLagsAreLeft)
{
    add(1000);
    video(1).needsAll = true;
    video(1).ease = Ease::Simplified;
    video(1).lag = 1;
    allAt(0.7);
    EXPECT_TRUE(lookUntil(kBusy, 10).empty());
}

} // namespace tandrel
