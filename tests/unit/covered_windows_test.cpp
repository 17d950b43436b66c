// Places below other places.
#include "platform/output/covered_windows.h"

#include <gtest/gtest.h>

namespace tandrel
{

namespace
{
constexpr PixelRect kPlace{100, 100, 300, 200};
} // namespace

TEST(Covered, NothingAboveCoversNothing) { EXPECT_FALSE(isCovered(kPlace, {})); }

TEST(Covered, ByOneThatIsLarger)
{
    EXPECT_TRUE(isCovered(kPlace, {{0, 0, 1920, 1080}}));
    EXPECT_TRUE(isCovered(kPlace, {kPlace})) << "or just as large";
}

TEST(Covered, NotByOneThatLeavesARow)
{
    EXPECT_FALSE(isCovered(kPlace, {{100, 101, 300, 200}}));
    EXPECT_FALSE(isCovered(kPlace, {{100, 100, 300, 199}}));
    EXPECT_FALSE(isCovered(kPlace, {{101, 100, 300, 200}}));
    EXPECT_FALSE(isCovered(kPlace, {{100, 100, 299, 200}}));
}

TEST(Covered, BySeveralTogether)
{
    EXPECT_TRUE(isCovered(kPlace, {{0, 0, 200, 400}, {200, 0, 400, 400}}));
    EXPECT_TRUE(isCovered(kPlace, {{0, 0, 250, 150}, {200, 0, 400, 150}, {0, 150, 220, 400}, {180, 150, 400, 400}}));
    EXPECT_FALSE(isCovered(kPlace, {{0, 0, 200, 400}, {201, 0, 400, 400}})) << "a column is left between them";
}

TEST(Covered, NotByThoseBeside)
{
    EXPECT_FALSE(isCovered(kPlace, {{300, 100, 500, 200}, {0, 0, 100, 400}}));
    EXPECT_FALSE(isCovered(kPlace, {{150, 120, 250, 180}})) << "a hole in its middle is none in its edge";
}

TEST(Covered, NothingIsLeftOfNothing) { EXPECT_TRUE(isCovered({}, {{0, 0, 10, 10}})); }

} // namespace tandrel
