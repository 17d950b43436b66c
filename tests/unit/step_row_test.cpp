// Which picture a step leads to.
#include "platform/mpv/step_row.h"

#include <gtest/gtest.h>

namespace tandrel
{

namespace
{
/// Pictures 40 ms apart, from picture `first` on.
StepRow rowOf(int first, int count)
{
    StepRow row(0.001);
    for (int number = first; number < first + count; ++number)
        EXPECT_TRUE(row.append({0.04 * number, nullptr}));
    return row;
}

double timeOf(const KeptPicture* picture) { return picture == nullptr ? -1 : picture->time; }
} // namespace

TEST(StepRow, FindsNeighboursByTime)
{
    const StepRow row = rowOf(10, 5);
    EXPECT_EQ(row.find(0.48), 2u);
    EXPECT_EQ(row.find(0.4805), 2u);
    EXPECT_DOUBLE_EQ(timeOf(row.before(0.48)), 0.44);
    EXPECT_DOUBLE_EQ(timeOf(row.behind(0.48)), 0.52);
    EXPECT_EQ(row.before(0.4), nullptr) << "the oldest has nothing before it";
    EXPECT_EQ(row.behind(0.56), nullptr);
}

TEST(StepRow, KnowsNothingOfOtherTimes)
{
    const StepRow row = rowOf(10, 5);
    for (const double time : {0.0, 0.39, 0.46, 0.482, 0.6}) {
        EXPECT_FALSE(row.find(time)) << time;
        EXPECT_EQ(row.before(time), nullptr) << time;
        EXPECT_EQ(row.behind(time), nullptr) << time;
    }
    EXPECT_TRUE(row.misses(0.46));
    EXPECT_FALSE(row.misses(0.48));
    EXPECT_FALSE(row.misses(0.36));
    EXPECT_FALSE(row.misses(0.6));
    EXPECT_FALSE(StepRow(0.001).misses(0.4));
}

TEST(StepRow, TimesHaveToRise)
{
    StepRow row = rowOf(0, 3);
    EXPECT_FALSE(row.append({0.08, nullptr}));
    EXPECT_FALSE(row.append({0.07, nullptr}));
    EXPECT_EQ(row.size(), 3u);
}

TEST(StepRow, OlderOnesGoInFront)
{
    StepRow row = rowOf(10, 3);
    row.prepend(rowOf(7, 3));
    EXPECT_EQ(row.size(), 6u);
    EXPECT_DOUBLE_EQ(row.oldest().time, 0.28);
    EXPECT_DOUBLE_EQ(timeOf(row.before(0.4)), 0.36);
    EXPECT_DOUBLE_EQ(timeOf(row.behind(0.36)), 0.4);
}

TEST(StepRow, KeepsSoManyOnEitherSide)
{
    StepRow row = rowOf(0, 20);
    row.keepNewest(15);
    EXPECT_DOUBLE_EQ(row.oldest().time, 0.2);
    EXPECT_EQ(row.keepBehind(0.4, 3).size(), 6u);
    EXPECT_DOUBLE_EQ(row.newest().time, 0.52);
    EXPECT_EQ(row.size(), 9u);
    EXPECT_TRUE(row.keepBehind(0.4, 3).empty());
    EXPECT_TRUE(row.keepBehind(9, 0).empty()) << "nothing goes for a picture that is not here";
    EXPECT_EQ(row.size(), 9u);
}

TEST(StepRow, ThePictureThePlayerWentOnToHasItsPlace)
{
    StepRow row = rowOf(0, 3);
    EXPECT_EQ(row.before(0.12), nullptr);
    row.follow(0.12);
    EXPECT_DOUBLE_EQ(timeOf(row.before(0.12)), 0.08);
    EXPECT_TRUE(row.isFollowed(0.08, 0.12));
    EXPECT_FALSE(row.isFollowed(0.04, 0.12));
    EXPECT_FALSE(row.isFollowed(0.08, 0.16));
    row.keepBehind(0.0, 1);
    EXPECT_EQ(row.before(0.12), nullptr) << "its neighbour has gone";
}

} // namespace tandrel
