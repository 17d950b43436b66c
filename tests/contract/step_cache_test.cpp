// Which pictures of which media are kept, and which media are left to the player.
#include "platform/mpv/step_cache.h"
#include "support/temporary_folder.h"
#include "support/test_media.h"

#include <cmath>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <random>

extern "C" {
#include <libavutil/log.h>
}

namespace tandrel
{

namespace
{
using namespace std::chrono_literals;

StepJob::Moment soon() { return std::chrono::steady_clock::now() + 20s; }

class Kept : public testing::Test
{
protected:
    void use(const std::string& path, double frameRate)
    {
        cache = std::make_unique<StepCache>(tools, MediaSource{path, markOf(path), frameRate}, 0.001);
    }

    /// The time of the picture before that of this time; empty where it is left to the player.
    std::optional<double> before(double time)
    {
        KeptPicture found;
        for (auto answer = cache->before(time, found);; answer = cache->before(time, found)) {
            if (answer == StepCache::Answer::Here)
                return found.time;
            if (answer == StepCache::Answer::Elsewhere)
                return {};
            cache->wait(soon());
        }
    }

    /// When the first picture is shown, which may be later than the first sound.
    static double firstTime(const std::string& path)
    {
        const std::atomic<bool> cancelled = false;
        GopReader reader(MediaSource{path, markOf(path), 0}, cancelled);
        EXPECT_TRUE(reader.open() && reader.next() == GopReader::Result::Picture);
        return reader.time();
    }

    std::shared_ptr<StepBudget> budget = std::make_shared<StepBudget>(64 << 20);
    StepTools tools{std::make_shared<StepWorkers>(2), budget, {}};
    std::unique_ptr<StepCache> cache;
};

/// The decoders' library is as silent as in the program.
const struct Silence {
    Silence() { av_log_set_level(AV_LOG_QUIET); }
} kSilence;

struct KeptRow {
    const char* name;
    double frameRate;
    int from;
};
void PrintTo(const KeptRow& row, std::ostream* out) { *out << row.name; }

constexpr KeptRow kKept[]{
    {"gops.mp4", 30, 145},     {"gops_open.mkv", 25, 95}, {"gops_hevc.mp4", 25, 70},
    {"gops_vp9.webm", 30, 85}, {"h264_30.mp4", 30, 290},  {"video.mkv", 24000 / 1001.0, 70},
    {"video.mov", 25, 70},     {"gops_h264.ts", 25, 90},  {"gops.ts", 25, 70},
    {"offset.ts", 25, 70},
};

class KeptOf : public Kept, public testing::WithParamInterface<KeptRow>
{
};
} // namespace

TEST_P(KeptOf, EveryPictureDownToTheFirst)
{
    const auto& [name, frameRate, from] = GetParam();
    use(testMedia(name), frameRate);
    const double begin = firstTime(testMedia(name));
    double time = begin + from / frameRate;
    int count = 0;
    for (auto older = before(time); older; older = before(time)) {
        EXPECT_NEAR(time - *older, 1 / frameRate, 0.0011);
        time = *older;
        cache->prepareFor(time);
        ++count;
    }
    EXPECT_EQ(count, from);
    EXPECT_NEAR(time, begin, 0.0011);
}

INSTANTIATE_TEST_SUITE_P(Files, KeptOf, testing::ValuesIn(kKept), [](const auto& info) {
    std::string name = info.param.name;
    name[name.find('.')] = '_';
    return name;
});

TEST_F(Kept, NotWhereThePlayerMaySeeItDifferently)
{
    // Containers without stamps for each picture, turned pictures, none at all, files that are no media.
    for (const char* name : {"video.avi", "video.wmv", "video.ogm", "raw.h264", "turned.mp4", "gops_turned.mp4",
                             "sound.mp3", "picture.png", "text.avi", "empty.avi", "list.m3u8", "list.ffconcat",
                             "cut_without_index.mp4", "nowhere.mp4"}) {
        use(testMedia(name), 25);
        EXPECT_FALSE(before(1)) << name;
    }
}

TEST_F(Kept, NotForATimeThatIsNoPictures)
{
    use(testMedia("gops.mp4"), 30);
    EXPECT_FALSE(before(2.015));
    EXPECT_FALSE(before(60 / 30.0)) << "nothing of such a medium is believed any more";
}

TEST_F(Kept, NotOfAFileThatHasChanged)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.path("changing.mp4");
    std::filesystem::copy_file(testMedia("gops.mp4"), path);
    use(path, 30);
    EXPECT_TRUE(before(60 / 30.0));
    std::ofstream(path, std::ios::app) << "more";
    cache->drop();
    EXPECT_FALSE(before(60 / 30.0));
}

TEST_F(Kept, ATruncatedFileAsFarAsItGoes)
{
    use(testMedia("gops_cut.mp4"), 25);
    const auto found = before(20 / 25.0);
    ASSERT_TRUE(found);
    EXPECT_NEAR(*found, 19 / 25.0, 0.001);
    cache->drop();
    EXPECT_FALSE(before(99 / 25.0));
}

TEST_F(Kept, DamagedFilesDoNoHarm)
{
    const test::TemporaryFolder folder;
    std::mt19937 dice(815);
    int found = 0;
    for (const char* name : {"gops.mp4", "gops_open.mkv", "gops.ts", "gops_hevc.mp4", "gops_vp9.webm", "video.mpg"}) {
        std::ifstream in(testMedia(name), std::ios::binary);
        const std::string whole((std::istreambuf_iterator<char>(in)), {});
        ASSERT_FALSE(whole.empty());
        for (int round = 0; round < 12; ++round) {
            std::string damaged = whole;
            // From a single byte to one in every hundred.
            const std::size_t count = 1 + dice() % (round % 2 == 0 ? 3 : damaged.size() / 100);
            for (std::size_t index = 0; index < count; ++index)
                damaged[dice() % damaged.size()] = static_cast<char>(dice());
            folder.write("damaged", damaged);
            use(folder.path("damaged"), 25);
            cache->setSize({160, 120});
            const auto older = before(2);
            found += older ? 1 : 0;
            EXPECT_TRUE(!older || (*older < 2 && *older > 1)) << name << " " << round;
        }
    }
    EXPECT_GT(found, 0) << "some are hardly damaged";
}

TEST_F(Kept, MemoryStaysWithinTheBudgetAndComesBack)
{
    use(testMedia("h264_30.mp4"), 30);
    constexpr PictureSize size{320, 240};
    cache->setSize(size);
    budget = std::make_shared<StepBudget>(40 * StepPicture::bytesOf(size));
    tools.budget = budget;
    use(testMedia("h264_30.mp4"), 30);
    cache->setSize(size);
    double time = 290 / 30.0;
    for (int step = 0; step < 120; ++step) {
        const auto older = before(time);
        ASSERT_TRUE(older) << step;
        ASSERT_NEAR(time - *older, 1 / 30.0, 0.001);
        time = *older;
        cache->prepareFor(time);
        EXPECT_GT(budget->taken(), 0u);
    }
    cache->drop();
    while (budget->taken() > 0)
        std::this_thread::yield();
}

TEST_F(Kept, WithoutMemoryItIsLeftToThePlayer)
{
    tools.budget = std::make_shared<StepBudget>(5 * StepPicture::bytesOf({320, 240}));
    use(testMedia("h264_30.mp4"), 30);
    cache->setSize({320, 240});
    EXPECT_FALSE(before(3));
    // Others have taken it all.
    tools.budget = budget;
    ASSERT_TRUE(budget->take(64 << 20));
    use(testMedia("h264_30.mp4"), 30);
    cache->setSize({320, 240});
    EXPECT_FALSE(before(3));
}

TEST_F(Kept, NothingIsDecodedBeforeItIsDue)
{
    use(testMedia("h264_30.mp4"), 30);
    cache->setSize({320, 240});
    cache->aim(3, std::chrono::steady_clock::now() + 1h);
    cache->drop();
    EXPECT_EQ(budget->taken(), 0u);
    cache->aim(3, std::chrono::steady_clock::now() + 1h);
    EXPECT_EQ(budget->taken(), 0u);
    const auto older = before(3);
    ASSERT_TRUE(older);
    EXPECT_NEAR(*older, 89 / 30.0, 0.001) << "who waits does not wait for that";
}

TEST_F(Kept, TheEndOfACacheWaitsForNothing)
{
    for (int round = 0; round < 20; ++round) {
        use(testMedia("h264_30.mp4"), 30);
        cache->setSize({1920, 1080});
        KeptPicture found;
        EXPECT_EQ(cache->before(9, found), StepCache::Answer::Coming);
        cache.reset();
    }
    while (budget->taken() > 0)
        std::this_thread::yield();
}

} // namespace tandrel
