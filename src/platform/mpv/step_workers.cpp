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
constexpr auto kEndLimit = std::chrono::seconds(2);

void lowerPriority()
{
    // On Linux a priority is a thread's own.
    setpriority(PRIO_PROCESS, static_cast<id_t>(gettid()), kNiceness);
}
} // namespace

StepWorkers::StepWorkers(int threads, std::chrono::milliseconds piece)
    : most_(threads), office_(std::make_shared<Office>(piece))
{
}

StepWorkers::~StepWorkers()
{
    Queue queue;
    std::unique_lock lock(office_->mutex);
    office_->ending = true;
    for (const Entry& entry : office_->busy)
        entry.job->cancel();
    // Jobs that have not begun hold nothing that a thread would be needed for.
    queue.swap(office_->queue);
    office_->changed.notify_all();
    office_->threadEnded.wait_for(lock, kEndLimit, [this] { return office_->threads == 0; });
}

void StepWorkers::post(std::shared_ptr<StepJob> job, Moment due)
{
    {
        const std::lock_guard lock(office_->mutex);
        office_->queue.push_back({std::move(job), due});
        try {
            if (office_->threads < most_) {
                std::thread([office = office_] { office->run(); }).detach();
                ++office_->threads;
            }
        } catch (const std::system_error&) {
            // Those that are there do it alone. Where there is none, nobody waits for the job beyond his limit.
        }
    }
    office_->changed.notify_one();
}

void StepWorkers::hurry(const std::shared_ptr<StepJob>& job)
{
    const std::lock_guard lock(office_->mutex);
    for (Queue* queue : {&office_->queue, &office_->busy})
        for (Entry& entry : *queue)
            if (entry.job == job && !entry.hurried) {
                entry.hurried = true;
                entry.due = {};
                office_->changed.notify_one();
            }
}

StepWorkers::Queue::iterator StepWorkers::Office::pick(Moment now)
{
    auto best = queue.end();
    for (auto entry = queue.begin(); entry != queue.end(); ++entry) {
        if (entry->due > now && !entry->job->cancelled())
            continue;
        if (best == queue.end() || (entry->hurried && !best->hurried))
            best = entry;
    }
    return best;
}

void StepWorkers::Office::rest(std::unique_lock<std::mutex>& lock)
{
    if (queue.empty()) {
        changed.wait(lock);
        return;
    }
    const auto first =
        std::min_element(queue.begin(), queue.end(), [](const Entry& a, const Entry& b) { return a.due < b.due; });
    changed.wait_until(lock, Moment(first->due));
}

void StepWorkers::Office::run()
{
    lowerPriority();
    std::unique_lock lock(mutex);
    while (!ending) {
        const auto entry = pick(std::chrono::steady_clock::now());
        if (entry == queue.end()) {
            rest(lock);
            continue;
        }
        busy.splice(busy.end(), queue, entry);
        lock.unlock();
        const bool more = !entry->job->cancelled() && entry->job->work(std::chrono::steady_clock::now() + piece);
        lock.lock();
        Queue done;
        if (more && !ending)
            queue.splice(entry->hurried ? queue.begin() : queue.end(), busy, entry);
        else
            done.splice(done.end(), busy, entry);
        // What the job holds goes without the lock.
        lock.unlock();
        done.clear();
        lock.lock();
    }
    --threads;
    threadEnded.notify_all();
}

} // namespace tandrel
