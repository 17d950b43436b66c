// In which order jobs are worked at, and how they end.
#include "platform/mpv/step_workers.h"

#include <condition_variable>
#include <functional>
#include <gtest/gtest.h>
#include <string>

namespace tandrel
{

namespace
{
using namespace std::chrono_literals;
using Moment = StepJob::Moment;

Moment now() { return std::chrono::steady_clock::now(); }

/// What jobs have written down.
class Notes
{
public:
    void add(char note)
    {
        const std::lock_guard lock(mutex_);
        text_ += note;
        changed_.notify_all();
    }
    bool wait(const std::function<bool(const std::string&)>& enough)
    {
        std::unique_lock lock(mutex_);
        return changed_.wait_for(lock, 20s, [&] { return enough(text_); });
    }
    std::string text()
    {
        const std::lock_guard lock(mutex_);
        return text_;
    }

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    std::string text_;
};

/// Writes its name for each piece of its work.
class Piecework final : public StepJob
{
public:
    Piecework(Notes& notes, char name, int pieces) : notes_(notes), name_(name), pieces_(pieces) {}
    bool work(Moment) override
    {
        notes_.add(name_);
        return --pieces_ > 0;
    }

private:
    Notes& notes_;
    const char name_;
    int pieces_;
};

/// Goes on until it is cancelled or released.
class Endless final : public StepJob
{
public:
    explicit Endless(Notes& notes) : notes_(notes) {}
    bool work(Moment) override
    {
        notes_.add('(');
        while (!cancelled() && !released_)
            std::this_thread::yield();
        notes_.add(')');
        return false;
    }
    void release() { released_ = true; }

private:
    Notes& notes_;
    std::atomic<bool> released_ = false;
};

auto has(std::size_t length)
{
    return [length](const std::string& text) { return text.size() >= length; };
}
} // namespace

TEST(StepWorkers, LongJobsTakeTurns)
{
    Notes notes;
    StepWorkers workers(1);
    const auto door = std::make_shared<Endless>(notes);
    workers.post(door, {});
    ASSERT_TRUE(notes.wait(has(1)));
    for (const char name : {'a', 'b', 'c'})
        workers.post(std::make_shared<Piecework>(notes, name, 3), {});
    door->release();
    ASSERT_TRUE(notes.wait(has(11)));
    EXPECT_EQ(notes.text(), "()abcabcabc");
}

TEST(StepWorkers, WhoWaitsGoesFirst)
{
    Notes notes;
    StepWorkers workers(1);
    const auto door = std::make_shared<Endless>(notes);
    workers.post(door, {});
    ASSERT_TRUE(notes.wait(has(1)));
    workers.post(std::make_shared<Piecework>(notes, 'a', 2), {});
    const auto later = std::make_shared<Piecework>(notes, 'b', 2);
    workers.post(later, now() + 1h);
    workers.hurry(later);
    door->release();
    ASSERT_TRUE(notes.wait(has(6)));
    EXPECT_EQ(notes.text(), "()bbaa");
}

TEST(StepWorkers, ThoseWhoWaitAreServedOneAfterTheOther)
{
    Notes notes;
    StepWorkers workers(1);
    const auto door = std::make_shared<Endless>(notes);
    workers.post(door, {});
    ASSERT_TRUE(notes.wait(has(1)));
    for (const char name : {'c', 'd'})
        workers.post(std::make_shared<Piecework>(notes, name, 3), {});
    for (const char name : {'a', 'b'}) {
        const auto job = std::make_shared<Piecework>(notes, name, 3);
        workers.post(job, {});
        workers.hurry(job);
    }
    door->release();
    ASSERT_TRUE(notes.wait(has(14)));
    EXPECT_EQ(notes.text(), "()aaabbbcdcdcd");
}

TEST(StepWorkers, NothingBeginsBeforeItIsDue)
{
    Notes notes;
    StepWorkers workers(2);
    const Moment due = now() + 50ms;
    workers.post(std::make_shared<Piecework>(notes, 'a', 1), due);
    ASSERT_TRUE(notes.wait(has(1)));
    EXPECT_GE(now(), due);
}

TEST(StepWorkers, NoMoreAtATimeThanThereAreThreads)
{
    Notes notes;
    StepWorkers workers(2);
    std::vector<std::shared_ptr<Endless>> jobs;
    for (int count = 0; count < 4; ++count) {
        jobs.push_back(std::make_shared<Endless>(notes));
        workers.post(jobs.back(), {});
    }
    ASSERT_TRUE(notes.wait(has(2)));
    EXPECT_EQ(notes.text(), "((");
    jobs[0]->release();
    ASSERT_TRUE(notes.wait(has(4)));
    EXPECT_EQ(notes.text(), "(()(");
    for (const auto& job : jobs)
        job->release();
    ASSERT_TRUE(notes.wait(has(8)));
}

TEST(StepWorkers, WhatIsCancelledNeverBeginsAndEndsSoon)
{
    Notes notes;
    StepWorkers workers(1);
    const auto busy = std::make_shared<Endless>(notes);
    const auto waiting = std::make_shared<Piecework>(notes, 'a', 1);
    workers.post(busy, {});
    ASSERT_TRUE(notes.wait(has(1)));
    workers.post(waiting, {});
    waiting->cancel();
    busy->cancel();
    workers.post(std::make_shared<Piecework>(notes, 'b', 1), {});
    ASSERT_TRUE(notes.wait(has(3)));
    EXPECT_EQ(notes.text(), "()b");
}

TEST(StepWorkers, TheEndCancelsAll)
{
    Notes notes;
    const auto busy = std::make_shared<Endless>(notes);
    {
        StepWorkers workers(1);
        workers.post(busy, {});
        workers.post(std::make_shared<Piecework>(notes, 'a', 1), {});
        workers.post(std::make_shared<Piecework>(notes, 'b', 1), now() + 1h);
        ASSERT_TRUE(notes.wait(has(1)));
    }
    EXPECT_TRUE(busy->cancelled());
    EXPECT_EQ(notes.text(), "()");
    EXPECT_EQ(busy.use_count(), 1);
}

} // namespace tandrel
