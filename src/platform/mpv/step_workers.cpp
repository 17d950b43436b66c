#include "platform/mpv/step_workers.h"

#include <algorithm>
#include <sys/resource.h>
#include <system_error>
#include <unistd.h>

namespace tandrel
{

namespace
{
// Enough to let pass what plays at the same time; more would let those wait long who wait for a step.
constexpr int kNiceness = 5;

void lowerPriority()
{
    // On Linux a priority is a thread's own.
    setpriority(PRIO_PROCESS, static_cast<id_t>(gettid()), kNiceness);
}
} // namespace

StepWorkers::~StepWorkers()
{
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
        for (const Entry& entry : busy_)
            entry.job->cancel();
    }
    changed_.notify_all();
    for (std::thread& thread : threads_)
        thread.join();
}

void StepWorkers::post(std::shared_ptr<StepJob> job, Moment due)
{
    {
        const std::lock_guard lock(mutex_);
        queue_.push_back({std::move(job), due});
        try {
            if (static_cast<int>(threads_.size()) < most_)
                threads_.emplace_back(&StepWorkers::run, this);
        } catch (const std::system_error&) {
            // Those that are there do it alone. Where there is none, nobody waits for the job beyond his limit.
        }
    }
    changed_.notify_one();
}

void StepWorkers::hurry(const std::shared_ptr<StepJob>& job)
{
    const std::lock_guard lock(mutex_);
    for (Queue* queue : {&queue_, &busy_})
        for (Entry& entry : *queue)
            if (entry.job == job && !entry.hurried) {
                entry.hurried = true;
                entry.due = {};
                changed_.notify_one();
            }
}

StepWorkers::Queue::iterator StepWorkers::pick(Moment now)
{
    auto best = queue_.end();
    for (auto entry = queue_.begin(); entry != queue_.end(); ++entry) {
        if (entry->due > now && !entry->job->cancelled())
            continue;
        if (best == queue_.end() || (entry->hurried && !best->hurried))
            best = entry;
    }
    return best;
}

void StepWorkers::rest(std::unique_lock<std::mutex>& lock)
{
    if (queue_.empty()) {
        changed_.wait(lock);
        return;
    }
    const auto first =
        std::min_element(queue_.begin(), queue_.end(), [](const Entry& a, const Entry& b) { return a.due < b.due; });
    changed_.wait_until(lock, Moment(first->due));
}

void StepWorkers::run()
{
    lowerPriority();
    std::unique_lock lock(mutex_);
    while (!ending_) {
        const auto entry = pick(std::chrono::steady_clock::now());
        if (entry == queue_.end()) {
            rest(lock);
            continue;
        }
        busy_.splice(busy_.end(), queue_, entry);
        lock.unlock();
        const bool more = !entry->job->cancelled() && entry->job->work(std::chrono::steady_clock::now() + piece_);
        lock.lock();
        Queue done;
        if (more && !ending_)
            queue_.splice(queue_.end(), busy_, entry);
        else
            done.splice(done.end(), busy_, entry);
        // What the job holds goes without the lock.
        lock.unlock();
        done.clear();
        lock.lock();
    }
}

} // namespace tandrel
