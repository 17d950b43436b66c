// Which pictures come on the way to a place, and what is left behind.
#include "platform/mpv/scrub.h"
#include "support/temporary_folder.h"
#include "support/test_media.h"

#include <condition_variable>
#include <gtest/gtest.h>

namespace tandrel
{

namespace
{
using namespace std::chrono_literals;

constexpr PictureSize kSize{160, 120};

/// Holds a worker until it is told to end.
class Hold final : public StepJob
{
public:
    bool work(Moment) override
    {
        std::unique_lock lock(mutex_);
        changed_.wait_for(lock, 10s, [this] { return over_; });
        return false;
    }
    void end()
    {
        const std::lock_guard lock(mutex_);
        over_ = true;
        changed_.notify_all();
    }

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    bool over_ = false;
};

class Scrubs : public testing::Test
{
protected:
    void use(const std::string& name, double frameRate)
    {
        const std::string path = testMedia(name);
        scrub = std::make_unique<Scrub>(tools, MediaSource{path, markOf(path), frameRate});
    }

    /// Looks again whenever there is news, and now and then, since not all of what is awaited is told.
    bool waitUntil(const std::function<bool()>& condition)
    {
        const auto end = std::chrono::steady_clock::now() + 60s;
        while (std::chrono::steady_clock::now() < end) {
            if (condition())
                return true;
            std::unique_lock lock(mutex);
            news.wait_for(lock, 5ms);
        }
        return false;
    }

    /// Waits for a picture that is shown at this time.
    testing::AssertionResult comes(double time, double longest)
    {
        std::optional<double> last;
        const bool came = waitUntil([&] {
            if (const auto picture = scrub->take())
                last = picture->time;
            return scrub->failed() || (last && *last <= time && *last + longest > time);
        });
        if (came && !scrub->failed())
            return testing::AssertionSuccess();
        return testing::AssertionFailure()
               << "for " << time << " the last is " << last.value_or(-1) << (scrub->failed() ? ", and it failed" : "");
    }

    std::shared_ptr<StepBudget> budget = std::make_shared<StepBudget>(64 << 20);
    std::mutex mutex;
    std::condition_variable news;
    StepTools tools{std::make_shared<StepWorkers>(1), budget, [this] { news.notify_all(); }};
    std::unique_ptr<Scrub> scrub;
};
} // namespace

TEST_F(Scrubs, EachPlaceIsReached)
{
    // Pictures come in another order than they are read, also at key frames.
    use("gops.mp4", 30);
    for (int frame = 0; frame < 140; ++frame) {
        const double time = (frame + 0.25) / 30;
        scrub->aim(time, kSize, true);
        ASSERT_TRUE(comes(time, 1.0 / 30)) << frame;
    }
    for (int frame = 136; frame >= 0; frame -= 3) {
        const double time = (frame + 0.25) / 30;
        scrub->aim(time, kSize, true);
        ASSERT_TRUE(comes(time, 1.0 / 30)) << frame;
    }
}

TEST_F(Scrubs, APictureThatStaysLongerThanOthersIsNoReasonForDoubt)
{
    use("gops_uneven.mkv", 25);
    for (int frame = 0; frame < 70; ++frame) {
        scrub->aim((frame + 0.25) / 25, kSize, true);
        ASSERT_TRUE(waitUntil([&] { return scrub->arrived(); })) << frame;
        ASSERT_FALSE(scrub->failed()) << frame;
    }
    // The next one is there as long as it is said to be.
    scrub->aim(71 * 0.040 + 0.025, kSize, true);
    EXPECT_TRUE(comes(71 * 0.040 + 0.025, 0.040));
}

TEST_F(Scrubs, NothingOfTheWayComesWhereNobodyWantsIt)
{
    use("gops.mp4", 30);
    scrub->aim(4.5, kSize, false);
    std::vector<double> seen;
    EXPECT_TRUE(waitUntil([&] {
        const bool arrived = scrub->arrived();
        if (const auto picture = scrub->take())
            seen.push_back(picture->time);
        return arrived;
    }));
    ASSERT_EQ(seen.size(), 1U);
    EXPECT_NEAR(seen[0], 4.5, 1.0 / 30);
}

TEST_F(Scrubs, AtRestTheDecoderStaysForAPlaceFurtherOn)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.path("film.mp4");
    std::filesystem::copy_file(testMedia("gops.mp4"), path);
    scrub = std::make_unique<Scrub>(tools, MediaSource{path, markOf(path), 30});
    scrub->aim(1, kSize, false);
    ASSERT_TRUE(comes(1, 1.0 / 30));
    ASSERT_TRUE(waitUntil([&] { return scrub->arrived(); }));
    scrub->rest();
    // What is open already can still be read.
    std::filesystem::remove(path);
    scrub->aim(1.5, kSize, false);
    EXPECT_TRUE(comes(1.5, 1.0 / 30));
    scrub->stop();
    scrub->aim(2, kSize, false);
    EXPECT_TRUE(waitUntil([&] { return scrub->failed(); }));
}

TEST_F(Scrubs, ARestOnTheWayIsAnEnd)
{
    use("gops.mp4", 30);
    const auto hold = std::make_shared<Hold>();
    tools.workers->post(hold, {});
    scrub->aim(1, kSize, false);
    EXPECT_FALSE(scrub->arrived());
    scrub->rest();
    EXPECT_TRUE(scrub->arrived());
    hold->end();
    scrub->aim(2, kSize, false);
    EXPECT_TRUE(comes(2, 1.0 / 30));
}

TEST_F(Scrubs, OneIsAtWorkAtATime)
{
    use("gops.mp4", 30);
    const std::string path = testMedia("h264_30.mp4");
    Scrub other(tools, MediaSource{path, markOf(path), 30});
    EXPECT_TRUE(scrub->aim(1, kSize, true));
    EXPECT_FALSE(other.aim(1, kSize, true));
    EXPECT_TRUE(scrub->aim(2, kSize, true));
    EXPECT_TRUE(comes(2, 1.0 / 30));
    scrub->rest();
    EXPECT_TRUE(other.aim(1, kSize, true));
    EXPECT_FALSE(scrub->aim(1, kSize, true));
    other.stop();
    EXPECT_TRUE(scrub->aim(1, kSize, true));
    scrub.reset();
    EXPECT_TRUE(other.aim(1, kSize, true));
}

TEST_F(Scrubs, MemoryThatIsGivenBackIsUsedAgain)
{
    use("gops.mp4", 30);
    const std::size_t all = 64 << 20;
    ASSERT_TRUE(budget->take(all));
    scrub->aim(1, kSize, true);
    EXPECT_TRUE(waitUntil([&] { return scrub->arrived(); }));
    EXPECT_FALSE(scrub->take().has_value());
    budget->giveBack(all);
    scrub->aim(1.5, kSize, true);
    EXPECT_TRUE(comes(1.5, 1.0 / 30));
}

TEST_F(Scrubs, AJobThatHasNotHadItsTurnGoesToo)
{
    auto token = std::make_shared<int>();
    const std::weak_ptr<int> held = token;
    tools.wake = [token] {};
    token.reset();
    const auto hold = std::make_shared<Hold>();
    tools.workers->post(hold, {});
    use("gops.mp4", 30);
    scrub->aim(1, kSize, true);
    scrub.reset();
    tools.wake = {};
    hold->end();
    EXPECT_TRUE(waitUntil([&] { return held.expired(); }));
}

TEST_F(Scrubs, TheWorkersMayGoFirst)
{
    auto token = std::make_shared<int>();
    const std::weak_ptr<int> held = token;
    tools.wake = [token] {};
    token.reset();
    use("gops.mp4", 30);
    for (int place = 1; place < 100; ++place) {
        scrub->aim(0.04 * place, kSize, true);
        if (place % 10 == 0)
            scrub->stop();
        // Ends and new places meet jobs that have not begun, that are at work, and that are done.
        if (place % 3 == 0) {
            EXPECT_TRUE(waitUntil([&] { return scrub->arrived(); })) << place;
        }
    }
    scrub->aim(0.5, kSize, true);
    scrub.reset();
    tools = {nullptr, nullptr, {}};
    EXPECT_TRUE(waitUntil([&] { return held.expired(); }));
    EXPECT_TRUE(waitUntil([&] { return budget->taken() == 0; }));
}

TEST_F(Scrubs, AFileThatBreaksOffFails)
{
    use("gops_cut.mp4", 25);
    for (int frame = 10; frame < 95 && !scrub->failed(); frame += 2) {
        scrub->aim((frame + 0.25) / 25, kSize, true);
        waitUntil([&] { return scrub->take() || scrub->failed(); });
    }
    EXPECT_TRUE(waitUntil([&] { return scrub->failed(); }));
    scrub->stop();
    EXPECT_TRUE(scrub->failed());
}

} // namespace tandrel
