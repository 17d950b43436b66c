// Holding the idle watch off, over a bus that does what a test tells it.
#include "platform/dbus/idle_hold.h"

#include <gmock/gmock.h>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <vector>

namespace tandrel
{

using testing::ElementsAre;

namespace
{

using namespace std::chrono_literals;

/// What the bus does and what it was asked for. Outlives the object under test, whose thread may be in the bus still.
class Desk
{
public:
    void setCookie(std::optional<std::uint32_t> cookie)
    {
        const std::lock_guard lock(mutex_);
        cookie_ = cookie;
    }
    void setGone(bool gone)
    {
        const std::lock_guard lock(mutex_);
        gone_ = gone;
    }
    /// While it is shut, a question for a hold has no answer.
    void setOpen(bool open)
    {
        const std::lock_guard lock(mutex_);
        open_ = open;
        changed_.notify_all();
    }
    void note(const std::string& line)
    {
        const std::lock_guard lock(mutex_);
        notes_.push_back(line);
        changed_.notify_all();
    }

    /// The answer to a question for a hold: what was set when the question is noted, however late it is given.
    std::optional<std::uint32_t> answer()
    {
        std::unique_lock lock(mutex_);
        notes_.push_back("inhibit");
        changed_.notify_all();
        const auto cookie = cookie_;
        changed_.wait(lock, [this] { return open_; });
        return cookie;
    }
    bool gone()
    {
        const std::lock_guard lock(mutex_);
        return gone_;
    }

    /// All notes as soon as there are so many, or what there is after a long time.
    std::vector<std::string> notes(std::size_t count)
    {
        std::unique_lock lock(mutex_);
        changed_.wait_until(lock, std::chrono::system_clock::now() + 10s, [&] { return notes_.size() >= count; });
        return notes_;
    }

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<std::string> notes_;
    std::optional<std::uint32_t> cookie_ = 7;
    bool open_ = true;
    bool gone_ = false;
};

class DeskBus : public IdleBus
{
public:
    explicit DeskBus(std::shared_ptr<Desk> desk) : desk_(std::move(desk)) {}
    ~DeskBus() override { desk_->note("end"); }
    std::optional<std::uint32_t> inhibit() override { return desk_->answer(); }
    void uninhibit(std::uint32_t cookie) override { desk_->note("uninhibit " + std::to_string(cookie)); }
    bool simulateActivity() override
    {
        desk_->note("activity");
        return !desk_->gone();
    }

private:
    std::shared_ptr<Desk> desk_;
};

class IdleHoldTest : public testing::Test
{
protected:
    std::shared_ptr<Desk> desk = std::make_shared<Desk>();
    std::optional<IdleHold> hold{std::in_place, std::make_unique<DeskBus>(desk), [desk = desk](bool held) {
                                     desk->note(held ? "fallback takes" : "fallback gives back");
                                 }};
};

} // namespace

TEST_F(IdleHoldTest, TakesAHoldOnceAndGivesItBackOnce)
{
    hold->want(true);
    EXPECT_THAT(desk->notes(1), ElementsAre("inhibit"));
    hold->want(true);
    hold->want(false);
    EXPECT_THAT(desk->notes(2), ElementsAre("inhibit", "uninhibit 7"));
    desk->setCookie(8);
    hold->want(false);
    hold->want(true);
    EXPECT_THAT(desk->notes(3), ElementsAre("inhibit", "uninhibit 7", "inhibit"));
    hold->want(false);
    hold.reset();
    EXPECT_THAT(desk->notes(5), ElementsAre("inhibit", "uninhibit 7", "inhibit", "uninhibit 8", "end"));
}

TEST_F(IdleHoldTest, AsksNobodyWithoutAHold)
{
    hold->want(false);
    hold->signOfLife();
    hold.reset();
    EXPECT_THAT(desk->notes(1), ElementsAre("end"));
}

TEST_F(IdleHoldTest, TheEndGivesTheHoldBack)
{
    hold->want(true);
    desk->notes(1);
    hold.reset();
    EXPECT_THAT(desk->notes(3), ElementsAre("inhibit", "uninhibit 7", "end"));
}

TEST_F(IdleHoldTest, ACookieThatComesLateIsGivenBackAtOnce)
{
    desk->setOpen(false);
    hold->want(true);
    desk->notes(1);
    hold->want(false);
    desk->setOpen(true);
    EXPECT_THAT(desk->notes(2), ElementsAre("inhibit", "uninhibit 7"));
}

TEST_F(IdleHoldTest, QuickTogglesEndInTheLastState)
{
    desk->setOpen(false);
    hold->want(true);
    desk->notes(1);
    for (const bool held : {false, true, false, true})
        hold->want(held);
    desk->setOpen(true);
    // A sign of life is passed on for a hold only, and after all that was wanted before.
    hold->signOfLife();
    EXPECT_THAT(desk->notes(2), ElementsAre("inhibit", "activity"));
    desk->setOpen(false);
    hold->want(false);
    desk->notes(3);
    hold->want(true);
    desk->notes(4);
    for (const bool held : {false, true, false})
        hold->want(held);
    desk->setOpen(true);
    EXPECT_THAT(desk->notes(5), ElementsAre("inhibit", "activity", "uninhibit 7", "inhibit", "uninhibit 7"));
}

TEST_F(IdleHoldTest, TheFallbackTakesOverWhereTheBusFails)
{
    desk->setCookie(std::nullopt);
    hold->want(true);
    EXPECT_THAT(desk->notes(2), ElementsAre("inhibit", "fallback takes"));
    hold->want(false);
    EXPECT_THAT(desk->notes(3), ElementsAre("inhibit", "fallback takes", "fallback gives back"));
    desk->setCookie(9);
    hold->want(true);
    hold->signOfLife();
    EXPECT_THAT(desk->notes(5), ElementsAre("inhibit", "fallback takes", "fallback gives back", "inhibit", "activity"));
}

TEST_F(IdleHoldTest, SignsOfLifeAreForTheBusAlone)
{
    desk->setCookie(std::nullopt);
    hold->want(true);
    desk->notes(2);
    hold->signOfLife();
    hold.reset();
    EXPECT_THAT(desk->notes(4), ElementsAre("inhibit", "fallback takes", "fallback gives back", "end"));
}

TEST_F(IdleHoldTest, TheFallbackStaysOutOfWhatIsNoLongerWanted)
{
    desk->setCookie(std::nullopt);
    desk->setOpen(false);
    hold->want(true);
    desk->notes(1);
    hold->want(false);
    desk->setOpen(true);
    hold.reset();
    EXPECT_THAT(desk->notes(2), ElementsAre("inhibit", "end"));
}

TEST_F(IdleHoldTest, AHoldThatWentWithItsBusIsAskedForAnew)
{
    hold->want(true);
    desk->notes(1);
    desk->setGone(true);
    hold->signOfLife();
    EXPECT_THAT(desk->notes(3), ElementsAre("inhibit", "activity", "inhibit"));
    desk->setCookie(std::nullopt);
    hold->signOfLife();
    EXPECT_THAT(desk->notes(6), ElementsAre("inhibit", "activity", "inhibit", "activity", "inhibit", "fallback takes"));
}

TEST_F(IdleHoldTest, ABusThatHangsHoldsNobodyUp)
{
    desk->setOpen(false);
    // Each of these comes back while the bus has not answered, which it does at the end of this test only.
    hold->want(true);
    desk->notes(1);
    hold->want(false);
    hold->signOfLife();
    hold->want(true);
    const auto start = std::chrono::steady_clock::now();
    hold.reset();
    EXPECT_LT(std::chrono::steady_clock::now() - start, 20s);
    EXPECT_THAT(desk->notes(1), ElementsAre("inhibit"));
    // The thread that was left alone still has what it works on, and keeps nothing that it is given.
    desk->setOpen(true);
    EXPECT_THAT(desk->notes(3), ElementsAre("inhibit", "uninhibit 7", "end"));
}

} // namespace tandrel
