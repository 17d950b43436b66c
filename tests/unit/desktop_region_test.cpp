// From a picture to the outline of a window.

#include "desktop/region.h"

#include <gmock/gmock.h>

#include <string>

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

constexpr std::int32_t kClear = rgb(255, 0, 255);
constexpr std::int32_t kBody = rgb(14, 45, 81);

/// Rows of marks: '.' is clear, '#' the body, 'o' another colour.
Bitmap bitmapOf(const std::vector<std::string>& rows)
{
    Bitmap picture{static_cast<int>(rows.front().size()), static_cast<int>(rows.size()), {}};
    for (const std::string& row : rows)
        for (const char mark : row)
            picture.pixels.push_back(mark == '.' ? kClear : mark == '#' ? kBody : rgb(1, 2, 3));
    return picture;
}

PixelRect strip(int y, int left, int right) { return {left, y, right, y + 1}; }

} // namespace

TEST(Region, EachRunOfARowIsAStrip)
{
    EXPECT_THAT(CreaRegione(bitmapOf({"....", ".##.", ".#.#"}), 0),
                ElementsAre(strip(1, 1, 3), strip(2, 1, 2), strip(2, 3, 4)));
}

TEST(Region, AOneColouredPictureIsEmpty) { EXPECT_THAT(CreaRegione(bitmapOf({"....", "...."}), 0), IsEmpty()); }

TEST(Region, APictureWithoutPixelsIsEmpty) { EXPECT_THAT(CreaRegione({}, 0), IsEmpty()); }

TEST(Region, ARowWhoseLastPixelIsOpaqueEndsAtTheWidth)
{
    EXPECT_THAT(CreaRegione(bitmapOf({"..", ".#"}), 0), ElementsAre(strip(1, 1, 2)));
}

TEST(Region, ThePixelAtTheOriginDecidesWhatIsClear)
{
    // With the body at the origin it is the body that is cut away.
    EXPECT_THAT(CreaRegione(bitmapOf({"#.", ".#"}), 0), ElementsAre(strip(0, 1, 2), strip(1, 0, 1)));
}

TEST(Region, AGivenColourIsTheClearOne)
{
    EXPECT_THAT(CreaRegione(bitmapOf({".#o"}), kBody), ElementsAre(strip(0, 0, 1), strip(0, 2, 3)));
}

TEST(Region, ColoursBelowOneMeanTheOrigin)
{
    EXPECT_EQ(CreaRegione(bitmapOf({".#o"}), -5), CreaRegione(bitmapOf({".#o"}), 0));
    EXPECT_THAT(CreaRegione(bitmapOf({".#o"}), 0), ElementsAre(strip(0, 1, 3)));
}

TEST(Region, AColourThatIsNowhereLeavesAll)
{
    EXPECT_THAT(CreaRegione(bitmapOf({".#", "##"}), rgb(9, 9, 9)), ElementsAre(strip(0, 0, 2), strip(1, 0, 2)));
}

TEST(Region, CountsEveryOpaquePixelOnce)
{
    Bitmap noise{61, 47, {}};
    std::uint32_t state = 1;
    int opaque = 0;
    for (int at = 0; at < 61 * 47; ++at) {
        state = state * 1664525 + 1013904223;
        const bool clear = at == 0 || (state >> 28) < 9;
        noise.pixels.push_back(clear ? kClear : kBody);
        opaque += clear ? 0 : 1;
    }
    int covered = 0;
    int lastBottom = 0;
    int lastRight = 0;
    for (const PixelRect& one : CreaRegione(noise, 0)) {
        EXPECT_EQ(one.height(), 1);
        EXPECT_TRUE(one.top >= lastBottom || one.left > lastRight) << "strips touch or are out of order";
        covered += one.width();
        lastBottom = one.bottom;
        lastRight = one.right;
    }
    EXPECT_EQ(covered, opaque);
}

} // namespace tandrel::test
