/// The few threads on which pictures for steps back are decoded.
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <list>
#include <memory>
#include <mutex>
#include <thread>

namespace tandrel
{

/// Work that can be done a piece at a time.
class StepJob
{
public:
    using Moment = std::chrono::steady_clock::time_point;

    virtual ~StepJob() = default;

    /// Works until `until` or a little longer. True if there is more to do.
    virtual bool work(Moment until) = 0;

    /// What is left of it is not wanted any more. For any thread.
    void cancel() { cancelled_ = true; }
    bool cancelled() const { return cancelled_; }
    const std::atomic<bool>& cancelledMark() const { return cancelled_; }

private:
    std::atomic<bool> cancelled_ = false;
};

/// Threads of low priority that start with the first job. Jobs somebody waits for go before the others and are finished
/// in the order in which they came: were they to take turns, the first would have to wait for all. Of the others, one
/// that takes long goes behind the rest after each piece of its work.
class StepWorkers
{
public:
    using Moment = StepJob::Moment;

    explicit StepWorkers(int threads, std::chrono::milliseconds piece = std::chrono::seconds(1));
    /// Cancels everything and waits for the pieces under way, for 2 s at most: a decoder that hangs is left to itself.
    ~StepWorkers();
    StepWorkers(const StepWorkers&) = delete;
    StepWorkers& operator=(const StepWorkers&) = delete;

    /// The job begins at `due` at the earliest.
    void post(std::shared_ptr<StepJob> job, Moment due);
    /// Somebody waits for the job from now on.
    void hurry(const std::shared_ptr<StepJob>& job);

private:
    struct Entry {
        std::shared_ptr<StepJob> job;
        Moment due;
        bool hurried = false;
    };
    using Queue = std::list<Entry>;

    /// What the threads share, the last of which takes it along.
    struct Office {
        explicit Office(std::chrono::milliseconds longest) : piece(longest) {}

        void run();
        /// What to work at now; the end of the queue if there is nothing.
        Queue::iterator pick(Moment now);
        /// Sleeps until something may have become due.
        void rest(std::unique_lock<std::mutex>& lock);

        const std::chrono::milliseconds piece;
        std::mutex mutex;
        std::condition_variable changed;
        Queue queue;
        /// What is being worked at.
        Queue busy;
        bool ending = false;
        int threads = 0;
        std::condition_variable threadEnded;
    };

    const int most_;
    const std::shared_ptr<Office> office_;
};

} // namespace tandrel
