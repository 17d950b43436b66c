// The places of a group: grids, the lead and the small ones.

#include "console/placement.h"

#include <gmock/gmock.h>

#include <array>
#include <cmath>
#include <ostream>

namespace tandrel
{

void PrintTo(const PixelRect& rect, std::ostream* out)
{
    *out << rect.left << "," << rect.top << " " << rect.width() << "x" << rect.height();
}

namespace test
{

namespace
{

constexpr MonitorPixels kMonitor{1920, 1080};

PixelRect rect(int x, int y, int width, int height) { return {x, y, x + width, y + height}; }

struct Grid {
    int count;
    int columns;
    int rows;
};

void PrintTo(const Grid& grid, std::ostream* to) { *to << grid.count << " in " << grid.columns << " by " << grid.rows; }

class ConsoleGrid : public ::testing::TestWithParam<Grid>
{
};

} // namespace

TEST_P(ConsoleGrid, CellsGoLineByLineInReadingOrder)
{
    const auto [count, columns, rows] = GetParam();
    const int width = 1920 / columns;
    const int height = 1080 / rows;
    for (int place = 0; place < count; ++place)
        EXPECT_EQ(gridCell(count, place, kMonitor, CellOrder::Reading),
                  rect(place % columns * width, place / columns * height, width, height))
            << count << " videos, place " << place;
}

TEST_P(ConsoleGrid, OnlyTheGridOfTwoColumnsGoesRoundTheScreen)
{
    const auto [count, columns, rows] = GetParam();
    if (columns > 2) {
        for (int place = 0; place < count; ++place)
            EXPECT_EQ(gridCell(count, place, kMonitor, CellOrder::Clockwise),
                      gridCell(count, place, kMonitor, CellOrder::Reading));
        return;
    }
    const std::array round{rect(0, 0, 960, 540), rect(960, 0, 960, 540), rect(960, 540, 960, 540),
                           rect(0, 540, 960, 540)};
    for (int place = 0; place < count; ++place)
        EXPECT_EQ(gridCell(count, place, kMonitor, CellOrder::Clockwise), round[static_cast<std::size_t>(place)]);
}

TEST_P(ConsoleGrid, CellsNeitherOverlapNorLeaveTheMonitor)
{
    const int count = GetParam().count;
    for (int one = 0; one < count; ++one) {
        const PixelRect a = gridCell(count, one, {1366, 767}, CellOrder::Clockwise);
        EXPECT_GE(a.left, 0);
        EXPECT_GE(a.top, 0);
        EXPECT_LE(a.right, 1366);
        EXPECT_LE(a.bottom, 767);
        for (int other = 0; other < one; ++other) {
            const PixelRect b = gridCell(count, other, {1366, 767}, CellOrder::Clockwise);
            EXPECT_TRUE(a.right <= b.left || b.right <= a.left || a.bottom <= b.top || b.bottom <= a.top)
                << one << " and " << other << " of " << count;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(AllCounts, ConsoleGrid,
                         ::testing::Values(Grid{2, 2, 2}, Grid{3, 2, 2}, Grid{4, 2, 2}, Grid{5, 3, 2}, Grid{6, 3, 2},
                                           Grid{7, 3, 3}, Grid{8, 3, 3}, Grid{9, 3, 3}, Grid{10, 4, 3}, Grid{11, 4, 3},
                                           Grid{12, 4, 3}),
                         [](const auto& info) { return std::to_string(info.param.count); });

TEST(ConsolePlacement, CellSizesAreRoundedDownBeforeTheyAreMultiplied)
{
    const MonitorPixels odd{1367, 769};
    EXPECT_EQ(gridCell(12, 11, odd, CellOrder::Reading), rect(3 * 341, 2 * 256, 341, 256));
    EXPECT_EQ(gridCell(5, 4, odd, CellOrder::Reading), rect(455, 384, 455, 384));
}

TEST(ConsolePlacement, ThreeVideosLeaveTheLowerLeftEmptyOrTheLowerRight)
{
    EXPECT_EQ(gridCell(3, 2, kMonitor, CellOrder::Clockwise), rect(960, 540, 960, 540));
    EXPECT_EQ(gridCell(3, 2, kMonitor, CellOrder::Reading), rect(0, 540, 960, 540));
}

TEST(ConsolePlacement, TheLeadTakesFiveSixths)
{
    EXPECT_EQ(leadPlace(kMonitor), rect(0, 0, 1600, 900));
    EXPECT_EQ(leadPlace({1366, 768}), rect(0, 0, 1138, 640));
    EXPECT_EQ(leadPlace({1920, 1079}), rect(0, 0, 1600, 899));
}

TEST(ConsolePlacement, SmallOnesGoDownTheRightHandColumn)
{
    for (const int count : {2, 7, 8, 12})
        for (int tile = 0; tile < std::min(count - 1, 6); ++tile)
            EXPECT_EQ(tilePlace(count, tile, kMonitor), rect(1600, 180 * tile, 320, 180)) << count << " " << tile;
}

TEST(ConsolePlacement, SevenVideosFillTheColumnAndLeaveTheBottomRowEmpty)
{
    for (int tile = 0; tile < 6; ++tile)
        EXPECT_EQ(tilePlace(7, tile, kMonitor).left, 1600);
    EXPECT_EQ(tilePlace(7, 5, kMonitor).bottom, 1080);
}

TEST(ConsolePlacement, UpToSevenVideosNeverLeaveTheColumn)
{
    EXPECT_EQ(tilePlace(7, 6, kMonitor), rect(1600, 1080, 320, 180)) << "without a lead there is a seventh";
    EXPECT_EQ(tilePlace(8, 6, kMonitor), rect(1280, 900, 320, 180));
}

TEST(ConsolePlacement, FromEightOnTheBottomRowGoesLeft)
{
    for (int tile = 6; tile < 11; ++tile)
        EXPECT_EQ(tilePlace(12, tile, kMonitor), rect(1600 - 320 * (tile - 5), 900, 320, 180)) << tile;
}

} // namespace test

} // namespace tandrel
