// Small pictures of all kinds of files that the tests have.

#include "platform/stills/still_source.h"
#include "platform/stills/threaded_stills.h"

#include "support/still_media.h"
#include "support/temporary_folder.h"
#include "support/test_media.h"

#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <sys/stat.h>

extern "C" {
#include <libavutil/log.h>
}

namespace tandrel::test
{

namespace
{

/// Decoders have much to say about damage.
class Silence : public ::testing::Environment
{
public:
    void SetUp() override { av_log_set_level(AV_LOG_QUIET); }
};
[[maybe_unused]] const auto* const kSilence = ::testing::AddGlobalTestEnvironment(new Silence);

const std::function<bool()> kNever = [] { return false; };

std::optional<Still> stillOf(const std::string& path) { return readStill(path, markOf(path), kNever); }

struct Case {
    const char* name;
    int width;
    int height;
    /// -1: the file doesn't tell.
    std::int64_t lengthMs;
};

constexpr int kWide = 91;
constexpr int kHigh = 68;

// The pictures are 320 by 240; 120 by 68 is the room they have.
// The one that begins late counts from 0, as its file does.
const std::vector<Case> kPictures{
    {"h264_30.mp4", kWide, kHigh, 10000},
    {"h264_25.mp4", kWide, kHigh, 10000},
    {"ntsc.mp4", kWide, kHigh, 5005},
    {"short.mp4", kWide, kHigh, 2000},
    {"long_sound.mp4", kWide, kHigh, 2000},
    {"sound_behind.mp4", kWide, kHigh, 5000},
    {"anamorphic.mp4", 120, 68, 1000},
    {"anamorphic.mkv", 68, 68, 1000},
    {"anamorphic.mpg", 120, 68, 1000},
    {"anamorphic.avi", 120, 68, 1000},
    {"video.avi", kWide, kHigh, 3000},
    {"video.mpg", kWide, kHigh, 3000},
    {"video.webm", kWide, kHigh, 3000},
    {"video.wmv", kWide, kHigh, 3000},
    {"video.flv", kWide, kHigh, 3000},
    {"video.mov", kWide, kHigh, 3000},
    {"video.mkv", kWide, kHigh, 3003},
    {"video.ogm", kWide, kHigh, 3000},
    {"offset.ts", kWide, kHigh, 3000},
    {"uneven.mkv", kWide, kHigh, 3000},
    {"stretched.mp4", kWide, kHigh, 5000},
    {"live.mkv", kWide, kHigh, -1},
    {"gops.mp4", kWide, kHigh, 5000},
    {"gops_late.mp4", kWide, kHigh, 5000},
    {"gops_open.mkv", kWide, kHigh, 4000},
    {"gops_uneven.mkv", kWide, kHigh, 3000},
    {"gops.ts", kWide, kHigh, 3000},
    {"gops_h264.ts", kWide, kHigh, 4000},
    {"gops_vp9.webm", kWide, kHigh, 3000},
    {"gops_hevc.mp4", kWide, kHigh, 3000},
    {"gops_cut.mp4", kWide, kHigh, 4000},
    {"raw.h264", kWide, kHigh, -1},
    {"colours_720.mp4", 120, 68, 800},
    {"colours_240.mp4", kWide, kHigh, 800},
    {"colours_709.mp4", kWide, kHigh, 800},
    {"colours_full.mp4", kWide, kHigh, 800},
    {"turned.mp4", 51, 68, 2000},
    {"gops_turned.mp4", kWide, kHigh, 5000},
    {"cut_with_index.mp4", kWide, kHigh, 10000},
};

class AFileWithPictures : public ::testing::TestWithParam<Case>
{
};

} // namespace

TEST_P(AFileWithPictures, GivesOneOfItsSizeAndItsLength)
{
    const auto still = stillOf(testMedia(GetParam().name));
    ASSERT_TRUE(still);
    EXPECT_EQ(still->width, GetParam().width);
    EXPECT_EQ(still->height, GetParam().height);
    EXPECT_EQ(still->pixels.size(), static_cast<std::size_t>(still->width * still->height));
    if (GetParam().lengthMs < 0) {
        EXPECT_FALSE(still->lengthMs);
    } else {
        ASSERT_TRUE(still->lengthMs);
        EXPECT_NEAR(static_cast<double>(*still->lengthMs), static_cast<double>(GetParam().lengthMs), 100);
    }
}

INSTANTIATE_TEST_SUITE_P(Stills, AFileWithPictures, ::testing::ValuesIn(kPictures),
                         [](const ::testing::TestParamInfo<Case>& one) {
                             std::string name = one.param.name;
                             for (char& letter : name)
                                 letter = std::isalnum(static_cast<unsigned char>(letter)) != 0 ? letter : '_';
                             return name;
                         });

TEST(StillsOfFiles, SoundHasALengthAndNoPicture)
{
    for (const char* name : {"sound.mp3", "sound.m4a"}) {
        const auto still = stillOf(testMedia(name));
        ASSERT_TRUE(still) << name;
        EXPECT_TRUE(still->pixels.empty()) << name;
        ASSERT_TRUE(still->lengthMs) << name;
        EXPECT_NEAR(static_cast<double>(*still->lengthMs), 3000, 100) << name;
    }
}

TEST(StillsOfFiles, WhatIsNoVideoHasNone)
{
    for (const char* name : {"empty.avi", "text.avi", "list.m3u", "plain.m3u", "list.m3u8", "list.pls", "list.cue",
                             "list.edl", "list.ffconcat", "subtitles.srt", "picture.png", "cut_without_index.mp4"}) {
        EXPECT_FALSE(stillOf(testMedia(name))) << name;
    }
    EXPECT_FALSE(stillOf(testMedia("not there.mp4")));
}

TEST(StillsOfFiles, PipesFoldersAndDevicesAreNotOpened)
{
    const TemporaryFolder folder;
    const std::string pipe = folder.path("pipe.avi");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    for (const std::string& path : {pipe, folder.path(), std::string("/dev/zero")}) {
        EXPECT_EQ(markOf(path), FileMark()) << path;
        EXPECT_FALSE(stillOf(path)) << path;
    }
}

TEST(StillsOfFiles, ThePictureIsFromATenthOfTheLength)
{
    // 150 pictures with a key frame each forty; the numbers are the columns' grey, three darker or lighter each time.
    const auto still = stillOf(testMedia("gops.mp4"));
    const auto first = stillOf(testMedia("short.mp4"));
    ASSERT_TRUE(still && first);
    // The lowest row of pixels is the ramp, whose edge from white to black stands at 256 - 3 * number of 320 columns.
    const auto edge = [](const Still& one) {
        const auto* row = &one.pixels[static_cast<std::size_t>(one.width) * static_cast<std::size_t>(one.height - 1)];
        for (int column = 1; column < one.width; ++column)
            if ((row[column - 1] & 255) > 150 && (row[column] & 255) < 110)
                return column * 320 / one.width;
        return -1;
    };
    EXPECT_NEAR(edge(*first), 256, 8);
    const double number = (256 - edge(*still)) / 3.0;
    EXPECT_GT(number, 5);
    EXPECT_LT(number, 20);
}

TEST(StillsOfFiles, AreGivenUpWhenToldSo)
{
    const std::string path = testMedia("h264_30.mp4");
    EXPECT_FALSE(readStill(path, markOf(path), [] { return true; }));
}

TEST(StillsOfFiles, AnotherFileOfThatNameIsNotRead)
{
    const std::string path = testMedia("h264_30.mp4");
    FileMark mark = markOf(path);
    mark.size += 1;
    EXPECT_FALSE(readStill(path, mark, kNever));
}

TEST(StillsOfFiles, DamagedFilesDoNoHarmAndEndInTime)
{
    const TemporaryFolder folder;
    for (const char* name : {"short.mp4", "video.mkv", "video.avi", "gops.ts", "video.mpg", "video.wmv", "video.ogm"}) {
        std::ostringstream all;
        all << std::ifstream(testMedia(name), std::ios::binary).rdbuf();
        const std::string bytes = all.str();
        std::uint32_t random = 12345;
        for (int round = 0; round < 12; ++round) {
            std::string damaged = bytes;
            for (int hit = 0; hit < 40; ++hit) {
                random = random * 1664525U + 1013904223U;
                // The tables stand at the beginning or the end.
                const std::size_t near = (random >> 8) % std::min<std::size_t>(bytes.size(), 4000);
                damaged[hit % 2 == 0 ? near : bytes.size() - 1 - near] = static_cast<char>(random >> 24);
            }
            folder.write("damaged", damaged);
            const auto start = std::chrono::steady_clock::now();
            const auto still = stillOf(folder.path("damaged"));
            EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(60)) << name << " " << round;
            if (still) {
                EXPECT_LE(still->width, 120);
                EXPECT_LE(still->height, 68);
                EXPECT_EQ(still->pixels.size(), static_cast<std::size_t>(still->width * still->height));
            }
        }
    }
}

TEST(StillsOfFiles, WhatIsKeptOpensNoFileAgain)
{
    const TemporaryFolder folder;
    auto opened = std::make_shared<std::atomic<int>>(0);
    const StillTools tools{
        folder.path("stills"), &markOf,
        [opened](const std::string& path, const FileMark& mark, const std::function<bool()>& refuses) {
            ++*opened;
            return readStill(path, mark, refuses);
        }};
    const std::vector<std::string> paths{testMedia("short.mp4"), testMedia("sound.mp3"), testMedia("video.mkv")};
    std::vector<Still> made;
    for (int start = 0; start < 2; ++start) {
        ThreadedStills stills(tools);
        stills.want(paths);
        ASSERT_TRUE(becomesTrue([&] { return stills.have(paths.back()).has_value(); }));
        made.push_back(*stills.have(paths.front()));
        EXPECT_EQ(*opened, 3);
    }
    EXPECT_EQ(made[0].pixels, made[1].pixels);
    EXPECT_EQ(made[0].lengthMs, made[1].lengthMs);
    EXPECT_FALSE(made[0].pixels.empty());
}

} // namespace tandrel::test
