#include "platform/stills/small_picture.h"
#include "platform/stills/still_cache.h"

#include "support/still_media.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace tandrel::test
{

namespace
{

constexpr FileMark kMark{1, 2, 3, {4, 5}};

void expectSame(const std::optional<Still>& kept, const Still& still)
{
    ASSERT_TRUE(kept);
    EXPECT_EQ(kept->width, still.width);
    EXPECT_EQ(kept->height, still.height);
    EXPECT_EQ(kept->pixels, still.pixels);
    EXPECT_EQ(kept->lengthMs, still.lengthMs);
}

class StillCacheOnDisk : public ::testing::Test
{
protected:
    std::string onlyFile() const { return folder.names().at(0); }

    TemporaryFolder folder;
    StillCache cache{folder.path()};
};

} // namespace

TEST_F(StillCacheOnDisk, WhatIsKeptComesBack)
{
    Still still = plainStill(0, 3, 2);
    still.pixels = {0x010203, 0xFFEEDD, 0, 0x800000, 0x008000, 0x000080};
    cache.save("/films/a.mp4", kMark, still);
    expectSame(cache.load("/films/a.mp4", kMark), still);
    const Still sound{0, 0, {}, 0};
    cache.save("/films/b.mp3", kMark, sound);
    expectSame(cache.load("/films/b.mp3", kMark), sound);
    const Still endless{1, 1, {7}, std::nullopt};
    cache.save("/films/c.mkv", kMark, endless);
    expectSame(cache.load("/films/c.mkv", kMark), endless);
}

TEST_F(StillCacheOnDisk, AnotherFileOrAChangedOneHasNone)
{
    cache.save("/films/a.mp4", kMark, plainStill(1));
    FileMark longer = kMark;
    longer.size += 1;
    FileMark later = kMark;
    later.changed.tv_nsec += 1;
    EXPECT_FALSE(cache.load("/films/b.mp4", kMark));
    EXPECT_FALSE(cache.load("/films/a.mp4", longer));
    EXPECT_FALSE(cache.load("/films/a.mp4", later));
}

TEST_F(StillCacheOnDisk, ADamagedFileCountsForNothingWhereverTheDamageIs)
{
    cache.save("/a", kMark, plainStill(0x123456));
    const std::string name = onlyFile();
    const std::string whole = folder.content(name);
    for (std::size_t place = 0; place < whole.size(); ++place) {
        std::string damaged = whole;
        damaged[place] = static_cast<char>(damaged[place] ^ 0x20);
        folder.write(name, damaged);
        EXPECT_FALSE(cache.load("/a", kMark)) << place;
        folder.write(name, whole.substr(0, place));
        EXPECT_FALSE(cache.load("/a", kMark)) << place;
    }
    folder.write(name, whole + "x");
    EXPECT_FALSE(cache.load("/a", kMark));
    folder.write(name, whole);
    EXPECT_TRUE(cache.load("/a", kMark));
}

TEST_F(StillCacheOnDisk, TheOldestGoWhereThereAreTooMany)
{
    const auto start = std::filesystem::file_time_type::clock::now() - std::chrono::hours(1);
    for (int number = 0; number < 205; ++number) {
        const std::string name = "old " + std::to_string(number) + ".still";
        folder.write(name, "x");
        std::filesystem::last_write_time(folder.path(name), start + std::chrono::seconds(number));
    }
    folder.write("other.txt", "not ours");
    cache.save("/a", kMark, plainStill(1));
    EXPECT_EQ(folder.names().size(), StillCache::kMostFiles + 1);
    EXPECT_TRUE(cache.load("/a", kMark));
    EXPECT_FALSE(std::filesystem::exists(folder.path("old 5.still")));
    EXPECT_TRUE(std::filesystem::exists(folder.path("old 6.still")));
    EXPECT_TRUE(std::filesystem::exists(folder.path("other.txt")));
}

TEST_F(StillCacheOnDisk, TheyTakeNoMoreRoomThanTheyMay)
{
    const auto hour = std::chrono::hours(1);
    for (int number = 0; number < 5; ++number) {
        const std::string name = std::to_string(number) + ".still";
        folder.write(name, std::string(1 << 20, 'x'));
        std::filesystem::last_write_time(folder.path(name),
                                         std::filesystem::file_time_type::clock::now() - (6 - number) * hour);
    }
    cache.save("/a", kMark, plainStill(1));
    EXPECT_EQ(folder.names().size(), 4U);
    EXPECT_TRUE(cache.load("/a", kMark));
    EXPECT_FALSE(std::filesystem::exists(folder.path("1.still")));
}

TEST_F(StillCacheOnDisk, AFolderThatCantBeMadeIsNoCache)
{
    folder.write("file", "in the way");
    const StillCache blocked(folder.path("file/stills"));
    blocked.save("/a", kMark, plainStill(1));
    EXPECT_FALSE(blocked.load("/a", kMark));
    const StillCache none("");
    none.save("/a", kMark, plainStill(1));
    EXPECT_FALSE(none.load("/a", kMark));
}

TEST(SmallPicture, KeepsItsProportionsWithinItsRoom)
{
    EXPECT_EQ(smallSize(1920, 1080, 1, 0), (SmallSize{120, 68}));
    EXPECT_EQ(smallSize(1080, 1920, 1, 0), (SmallSize{38, 68}));
    EXPECT_EQ(smallSize(1920, 1080, 1, 1), (SmallSize{38, 68}));
    EXPECT_EQ(smallSize(720, 576, 64.0 / 45, 0), (SmallSize{120, 68}));
    EXPECT_EQ(smallSize(320, 240, 1, 2), (SmallSize{91, 68}));
    EXPECT_EQ(smallSize(40, 20, 1, 0), (SmallSize{40, 20}));
    EXPECT_EQ(smallSize(8000, 2, 1, 0), (SmallSize{120, 1}));
    EXPECT_EQ(smallSize(100, 100, 1e9, 0), (SmallSize{120, 6}));
}

TEST(SmallPicture, BlackIsToldFromDark)
{
    EXPECT_TRUE(isNearlyBlack(plainStill(0x000000)));
    EXPECT_TRUE(isNearlyBlack(plainStill(0x0A0A0A)));
    EXPECT_FALSE(isNearlyBlack(plainStill(0x202020)));
    EXPECT_FALSE(isNearlyBlack(plainStill(0x004000)));
}

} // namespace tandrel::test
