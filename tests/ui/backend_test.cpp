// What forms ask of the backend that shows them: movements, timers that are hastened, and how long ticks take.

#include "widget_bench.h"

#include "toolkit/qt/tick_times.h"
#include "toolkit/timer.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <numeric>

namespace tandrel::test
{

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

constexpr int kInterval = 300;

class Ticking : public Form
{
public:
    Ticking() : Form("ticking", Frame::Dialog, {1500, 1500, 3000, 3000})
    {
        timer.Tick = [this] { ticks.push_back(clock.elapsed()); };
        clock.start();
    }
    Timer timer{*this, "timer", kInterval, false};
    QElapsedTimer clock;
    /// When each came, in ms.
    std::vector<qint64> ticks;
};

class Backends : public WidgetBench
{
protected:
    Backends() { form->Show(); }

    static void letTimePass(int ms)
    {
        QElapsedTimer clock;
        clock.start();
        EXPECT_TRUE(within(15000, [&] { return clock.elapsed() >= ms; }));
    }
    void waitForTicks(std::size_t count)
    {
        EXPECT_TRUE(within(15000, [&] { return form->ticks.size() >= count; }));
    }

    std::shared_ptr<Ticking> form = std::make_shared<Ticking>();
};

/// Counts what is hastened, and shows nothing.
class CountingBackend : public Backend
{
public:
    void timerHastened(Timer&) override { ++hastened; }
    int hastened = 0;
};

std::vector<int> stepsOf(Backend& backend, int steps, int ms)
{
    std::vector<int> drawn;
    backend.animate(steps, ms, [&](int step) { drawn.push_back(step); });
    return drawn;
}

TickTimes::Row timesOf(const TickTimes& times, const Text& timer)
{
    for (const TickTimes::Row& row : times.rows())
        if (row.timer == timer)
            return row;
    return {};
}

} // namespace

TEST_F(Backends, AMovementIsDrawnStepByStepInItsTime)
{
    constexpr int kSteps = 40;
    qint64 shortest = 1000;
    // On a machine under load a single one may take longer.
    for (int tries = 0; tries < 5; ++tries) {
        QElapsedTimer clock;
        clock.start();
        const std::vector<int> drawn = stepsOf(qt, kSteps, 160);
        EXPECT_GE(clock.elapsed(), 150);
        shortest = std::min(shortest, clock.elapsed());
        ASSERT_GE(drawn.size(), 2U);
        EXPECT_EQ(drawn.front(), 0);
        EXPECT_EQ(drawn.back(), kSteps - 1);
        EXPECT_EQ(std::adjacent_find(drawn.begin(), drawn.end(), std::greater_equal<>()), drawn.end());
    }
    EXPECT_LT(shortest, 250);
}

TEST_F(Backends, AMovementWithFewStepsLeavesNoneOut)
{
    // One step is longer than what a busy machine takes for another program.
    EXPECT_THAT(stepsOf(qt, 3, 600), ElementsAre(0, 1, 2));
}

TEST_F(Backends, AMovementWithoutTimeIsItsLastStep)
{
    EXPECT_THAT(stepsOf(qt, 40, 0), ElementsAre(39));
    EXPECT_THAT(stepsOf(qt, 1, 0), ElementsAre(0));
    EXPECT_THAT(stepsOf(qt, 0, 0), IsEmpty());
}

TEST_F(Backends, NoTimerTicksDuringAMovement)
{
    form->timer.Interval = 5;
    form->timer.Enabled = true;
    stepsOf(qt, 40, 160);
    EXPECT_THAT(form->ticks, IsEmpty());
    waitForTicks(1);
}

TEST_F(Backends, WhereNothingIsSeenAMovementIsAllItsSteps)
{
    Backend unseen;
    std::vector<int> all(40);
    std::iota(all.begin(), all.end(), 0);
    EXPECT_EQ(stepsOf(unseen, 40, 160), all);
    EXPECT_THAT(stepsOf(unseen, 3, 0), ElementsAre(0, 1, 2));
}

TEST_F(Backends, AHastenedTickComesAtOnceAndItsIntervalBeginsAnew)
{
    form->timer.Interval = 10000;
    form->timer.Enabled = true;
    form->timer.hasten();
    EXPECT_THAT(form->ticks, IsEmpty()) << "not before the present event is over";
    EXPECT_TRUE(within(5000, [this] { return form->ticks.size() == 1; }));

    form->ticks.clear();
    form->timer.Interval = kInterval;
    letTimePass(kInterval * 2 / 3);
    EXPECT_THAT(form->ticks, IsEmpty());
    form->timer.hasten();
    waitForTicks(2);
    EXPECT_GE(form->ticks[1] - form->ticks[0], kInterval * 5 / 6);
}

TEST_F(Backends, OnlyATimerThatRunsIsHastened)
{
    CountingBackend counting;
    installBackend(&counting);
    const auto hastened = [&] {
        form->timer.hasten();
        return std::exchange(counting.hastened, 0);
    };
    EXPECT_EQ(hastened(), 0);
    form->timer.Enabled = true;
    EXPECT_EQ(hastened(), 1);
    form->timer.Interval = 0;
    EXPECT_EQ(hastened(), 0);
    installBackend(&qt);
}

TEST_F(Backends, AHastenedTimerThatStopsMeanwhileStaysStopped)
{
    form->timer.Enabled = true;
    form->timer.hasten();
    form->timer.Enabled = false;
    letTimePass(kInterval / 2);
    EXPECT_THAT(form->ticks, IsEmpty());
    form->timer.Enabled = true;
    const qint64 begun = form->clock.elapsed();
    waitForTicks(1);
    EXPECT_GE(form->ticks[0] - begun, kInterval * 5 / 6) << "it begins with a whole interval";
}

TEST_F(Backends, AHastenedTimerMayGoMeanwhile)
{
    class Owner : public Form
    {
    public:
        explicit Owner(int& ticks) : Form("owner", Frame::Dialog, {1500, 1500, 3000, 3000})
        {
            timer.Tick = [&ticks] { ++ticks; };
        }
        Timer timer{*this, "timer", kInterval, true};
    };
    int ticks = 0;
    auto owner = std::make_shared<Owner>(ticks);
    const std::weak_ptr<Owner> life = owner;
    owner->Show();
    owner->timer.hasten();
    owner->discard();
    owner.reset();
    ASSERT_TRUE(life.expired());
    letTimePass(50);
    EXPECT_EQ(ticks, 0);
}

TEST_F(Backends, TicksAreTimedByTheNamesOfFormAndTimer)
{
    form->timer.Interval = 5;
    form->timer.Tick = [this] {
        letTimePass(20);
        form->timer.Enabled = false;
    };
    form->timer.Enabled = true;
    EXPECT_TRUE(within(15000, [this] { return timesOf(qt.tickTimes(), "ticking.timer").count == 1; }));
    EXPECT_GE(timesOf(qt.tickTimes(), "ticking.timer").median, 20ms);
}

TEST(TickTimes, CountsAndAddsUpEachTimerByItself)
{
    TickTimes times;
    EXPECT_THAT(times.rows(), IsEmpty());
    times.note("b", 3ms);
    times.note("a", 1ms);
    times.note("b", 4ms);
    ASSERT_EQ(times.rows().size(), 2U);
    EXPECT_EQ(times.rows()[0].timer, "a");
    EXPECT_EQ(times.rows()[0].count, 1);
    EXPECT_EQ(times.rows()[0].whole, 1ms);
    EXPECT_EQ(times.rows()[0].median, 1ms);
    EXPECT_EQ(times.rows()[0].percentile99, 1ms);
    EXPECT_EQ(times.rows()[0].longest, 1ms);
    EXPECT_EQ(times.rows()[1].timer, "b");
    EXPECT_EQ(times.rows()[1].count, 2);
    EXPECT_EQ(times.rows()[1].whole, 7ms);
    EXPECT_EQ(times.rows()[1].longest, 4ms);
}

TEST(TickTimes, TheMiddleAndTheNearlyLongestWhateverTheirOrder)
{
    TickTimes times;
    for (int ms = 199; ms >= 1; ms -= 2)
        times.note("timer", ms * 1ms);
    for (int ms = 2; ms <= 200; ms += 2)
        times.note("timer", ms * 1ms);
    const TickTimes::Row row = timesOf(times, "timer");
    EXPECT_EQ(row.count, 200);
    EXPECT_EQ(row.median, 101ms) << "half of them took less";
    EXPECT_EQ(row.percentile99, 199ms) << "of a hundred 99 took less";
}

TEST(TickTimes, TheOldestOfTwoThousandIsForgottenAndStillCounted)
{
    TickTimes times;
    for (int tick = 0; tick < 1001; ++tick)
        times.note("timer", 1ms);
    for (int tick = 0; tick < 999; ++tick)
        times.note("timer", 100ms);
    EXPECT_EQ(timesOf(times, "timer").median, 1ms) << "the last of the short ones";
    times.note("one long tick", 300ms);
    for (int tick = 0; tick < 2000; ++tick)
        times.note("one long tick", 1ms);
    EXPECT_EQ(timesOf(times, "one long tick").longest, 300ms) << "the longest is kept";
    times.note("timer", 100ms);
    const TickTimes::Row row = timesOf(times, "timer");
    EXPECT_EQ(row.median, 100ms) << "one of the short ones has gone";
    EXPECT_EQ(row.count, 2001);
    EXPECT_EQ(row.whole, 1001 * 1ms + 1000 * 100ms);
}

} // namespace tandrel::test
