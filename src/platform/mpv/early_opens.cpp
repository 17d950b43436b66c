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
// The open itself gives up after 5 s.
constexpr auto kLimit = 6s;

int mostAtATime() { return std::max(2, static_cast<int>(std::thread::hardware_concurrency())); }

template <class Jobs>
auto jobFor(Jobs& jobs, const std::string& path)
{
    return std::find_if(jobs.begin(), jobs.end(), [&](const auto& job) { return job->path == path; });
}
} // namespace

EarlyOpens::~EarlyOpens()
{
    drop();
    std::unique_lock lock(shared_->mutex);
    shared_->changed.wait_for(lock, kLimit, [this] { return shared_->working == 0; });
}

void EarlyOpens::begin(const std::string& path, Open open)
{
    auto job = std::make_shared<Job>();
    job->path = path;
    job->open = std::move(open);
    begun_.push_back(job);
    {
        const std::lock_guard lock(shared_->mutex);
        if (shared_->working >= mostAtATime()) {
            shared_->waiting.push_back(std::move(job));
            return;
        }
    }
    addWorker(std::move(job));
}

bool EarlyOpens::isBegun(const std::string& path) const { return jobFor(begun_, path) != begun_.end(); }

void EarlyOpens::addWorker(JobRef first)
{
    {
        const std::lock_guard lock(shared_->mutex);
        ++shared_->working;
    }
    try {
        // A file system that hangs keeps its thread for ever, and nobody can wait for that.
        std::thread([shared = shared_, first] { work(*shared, first); }).detach();
    } catch (const std::system_error&) {
        // Without a thread to spare the caller has to wait.
        work(*shared_, std::move(first));
    }
}

void EarlyOpens::work(Shared& shared, JobRef job)
{
    while (job) {
        Result result{OpenFailure::NotPlayable};
        try {
            result = job->open();
        } catch (const std::exception&) {
            // Out of memory, say: the file is not open, and that is all.
        }
        job->open = nullptr;
        job->result.set_value(std::move(result));
        job = next(shared);
    }
}

EarlyOpens::JobRef EarlyOpens::next(Shared& shared)
{
    const std::lock_guard lock(shared.mutex);
    if (shared.waiting.empty() || shared.working > mostAtATime()) {
        --shared.working;
        shared.changed.notify_all();
        return nullptr;
    }
    JobRef job = std::move(shared.waiting.front());
    shared.waiting.pop_front();
    return job;
}

EarlyOpens::Result EarlyOpens::take(const std::string& path, const std::function<void()>& pulse)
{
    const auto found = jobFor(begun_, path);
    const JobRef job = *found;
    begun_.erase(found);
    bool isWaiting = false;
    {
        const std::lock_guard lock(shared_->mutex);
        isWaiting = std::erase(shared_->waiting, job) > 0;
    }
    if (isWaiting)
        addWorker(job);
    std::future<Result> result = job->result.get_future();
    const auto deadline = std::chrono::steady_clock::now() + kLimit;
    while (result.wait_for(kPulse) == std::future_status::timeout) {
        if (std::chrono::steady_clock::now() >= deadline)
            return {OpenFailure::TimedOut};
        if (pulse)
            pulse();
    }
    return result.get();
}

void EarlyOpens::drop()
{
    begun_.clear();
    const std::lock_guard lock(shared_->mutex);
    shared_->waiting.clear();
}

} // namespace tandrel
