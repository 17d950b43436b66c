#include "platform/mpv/early_opens.h"

#include <algorithm>
#include <chrono>
#include <system_error>
#include <thread>

namespace tandrel
{

namespace
{
using namespace std::chrono_literals;

constexpr auto kPulse = 50ms;

int mostAtATime() { return std::max(2, static_cast<int>(std::thread::hardware_concurrency())); }

template <class Jobs>
auto jobFor(Jobs& jobs, const std::string& path)
{
    return std::find_if(jobs.begin(), jobs.end(), [&](const auto& job) { return job->path == path; });
}
} // namespace

EarlyOpens::~EarlyOpens() { drop(); }

void EarlyOpens::begin(const std::string& path, Open open)
{
    auto job = std::make_shared<Job>();
    job->path = path;
    job->open = std::move(open);
    begun_.push_back(job);
    {
        const std::lock_guard lock(mutex_);
        if (working_ >= mostAtATime()) {
            waiting_.push_back(std::move(job));
            return;
        }
    }
    addWorker(std::move(job));
}

bool EarlyOpens::isBegun(const std::string& path) const { return jobFor(begun_, path) != begun_.end(); }

void EarlyOpens::addWorker(JobRef first)
{
    std::erase_if(workers_,
                  [](const std::future<void>& worker) { return worker.wait_for(0s) == std::future_status::ready; });
    {
        const std::lock_guard lock(mutex_);
        ++working_;
    }
    const auto run = [this, first = std::move(first)] { work(first); };
    try {
        workers_.push_back(std::async(std::launch::async, run));
    } catch (const std::system_error&) {
        // Without a thread to spare the caller has to wait.
        run();
    }
}

void EarlyOpens::work(JobRef job)
{
    while (job) {
        job->result.set_value(job->open());
        // Whatever the job still holds goes here, not with whoever has taken its result.
        job = next();
    }
}

EarlyOpens::JobRef EarlyOpens::next()
{
    const std::lock_guard lock(mutex_);
    if (waiting_.empty() || working_ > mostAtATime()) {
        --working_;
        return nullptr;
    }
    JobRef job = std::move(waiting_.front());
    waiting_.pop_front();
    return job;
}

EarlyOpens::Result EarlyOpens::take(const std::string& path, const std::function<void()>& pulse)
{
    const auto found = jobFor(begun_, path);
    const JobRef job = *found;
    begun_.erase(found);
    bool isWaiting = false;
    {
        const std::lock_guard lock(mutex_);
        isWaiting = std::erase(waiting_, job) > 0;
    }
    if (isWaiting)
        addWorker(job);
    std::future<Result> result = job->result.get_future();
    while (result.wait_for(kPulse) == std::future_status::timeout)
        if (pulse)
            pulse();
    return result.get();
}

void EarlyOpens::drop()
{
    begun_.clear();
    const std::lock_guard lock(mutex_);
    waiting_.clear();
}

} // namespace tandrel
