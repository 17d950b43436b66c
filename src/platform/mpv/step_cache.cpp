#include "platform/mpv/step_cache.h"

#include <algorithm>

namespace tandrel
{

namespace
{
// Beyond that more pictures are of no use; with fewer they are made more often than it pays.
constexpr std::size_t kMostPictures = 600;
constexpr std::size_t kFewestPictures = 12;
// What somebody who waits gets at first: pictures before these need not even be decoded in full.
constexpr std::size_t kFirstPictures = 48;

/// Gives pictures back to the system on a thread that nobody waits for.
class Disposal final : public StepJob
{
public:
    explicit Disposal(StepRow row) : row_(std::move(row)) {}
    bool work(Moment) override
    {
        row_.keepNewest(0);
        return false;
    }

private:
    StepRow row_;
};
/// Calls somebody on time.
class Alarm final : public StepJob
{
public:
    explicit Alarm(std::function<void()> wake) : wake_(std::move(wake)) {}
    bool work(Moment) override
    {
        wake_();
        return false;
    }

private:
    const std::function<void()> wake_;
};
} // namespace

StepCache::StepCache(const StepTools& tools, MediaSource source, double tolerance)
    : workers_(tools.workers),
      budget_(tools.budget),
      source_(std::move(source)),
      tolerance_(tolerance),
      shelf_(std::make_shared<StepShelf>())
{
    shelf_->row = StepRow(tolerance_);
    shelf_->wake = tools.wake;
    budget_->join();
}

StepCache::~StepCache()
{
    drop();
    budget_->leave();
}

bool StepCache::setSize(PictureSize size)
{
    if (size == size_)
        return false;
    const bool inUse = target_.has_value();
    drop();
    size_ = size;
    return inUse;
}

std::size_t StepCache::capacity() const
{
    if (size_.empty())
        return kMostPictures;
    return std::min(kMostPictures, budget_->share() / StepPicture::bytesOf(size_));
}

void StepCache::cancelJob()
{
    if (shelf_->job != nullptr)
        shelf_->job->cancel();
    shelf_->job.reset();
}

void StepCache::drop()
{
    StepRow row(tolerance_);
    {
        const std::lock_guard lock(shelf_->mutex);
        cancelJob();
        std::swap(row, shelf_->row);
        shelf_->failed = shelf_->complete = false;
    }
    target_.reset();
    if (row.empty())
        return;
    const auto disposal = std::make_shared<Disposal>(std::move(row));
    workers_->post(disposal, {});
    workers_->hurry(disposal);
}

std::shared_ptr<StepFill> StepCache::order(StepOrder order)
{
    cancelJob();
    order.size = size_;
    order.tolerance = tolerance_;
    shelf_->job = std::make_shared<StepFill>(shelf_, budget_, source_, std::move(order));
    return shelf_->job;
}

std::shared_ptr<StepFill> StepCache::orderUpTo(double time, std::size_t most)
{
    target_ = time;
    shelf_->failed = false;
    return order({.target = time, .older = false, .most = most, .size = {}, .tolerance = 0, .discarded = {}});
}

std::shared_ptr<StepFill> StepCache::orderOlder(std::size_t room, std::deque<KeptPicture> discarded)
{
    return order({.target = shelf_->row.oldest().time,
                  .older = true,
                  .most = room,
                  .size = {},
                  .tolerance = 0,
                  .discarded = std::move(discarded)});
}

void StepCache::send(const std::shared_ptr<StepFill>& job, Moment due)
{
    if (job != nullptr)
        workers_->post(job, due);
}

void StepCache::hurry(const std::shared_ptr<StepFill>& job)
{
    if (job != nullptr)
        workers_->hurry(job);
}

void StepCache::aim(double time, Moment due)
{
    std::shared_ptr<StepFill> job;
    {
        const std::lock_guard lock(shelf_->mutex);
        const bool there = shelf_->row.find(time) || (shelf_->job != nullptr && shelf_->job->covers(time));
        if (shelf_->doubtful || there || capacity() < kFewestPictures)
            return;
        job = orderUpTo(time, capacity());
    }
    send(job, due);
}

bool StepCache::comesSoon(double time) const
{
    const StepFill& job = *shelf_->job;
    return job.covers(time) && (job.begun() || job.most() <= kFirstPictures);
}

StepCache::Answer StepCache::before(double time, KeptPicture& found)
{
    std::shared_ptr<StepFill> fresh;
    std::shared_ptr<StepFill> awaited;
    {
        const std::lock_guard lock(shelf_->mutex);
        if (shelf_->doubtful || capacity() < kFewestPictures)
            return Answer::Elsewhere;
        if (const KeptPicture* picture = shelf_->row.before(time)) {
            found = *picture;
            return Answer::Here;
        }
        const bool first = shelf_->row.find(time).has_value();
        if (shelf_->failed || (first && shelf_->complete))
            return Answer::Elsewhere;
        const bool comes = shelf_->job != nullptr && (shelf_->job->older() ? first : comesSoon(time));
        if (!comes && !first && (shelf_->row.misses(time) || (shelf_->job == nullptr && target_ == time))) {
            // It was looked for, and there is no picture of this time.
            shelf_->doubtful = true;
            return Answer::Elsewhere;
        }
        if (!comes && first)
            fresh = orderOlder(std::max(kFewestPictures, capacity() / 2), shelf_->row.keepBehind(time, capacity() / 2));
        else if (!comes)
            fresh = orderUpTo(time, std::min(capacity(), kFirstPictures));
        awaited = shelf_->job;
    }
    send(fresh, {});
    hurry(awaited);
    return Answer::Coming;
}

std::optional<KeptPicture> StepCache::behind(double time)
{
    const std::lock_guard lock(shelf_->mutex);
    const KeptPicture* picture = shelf_->row.behind(time);
    return picture == nullptr ? std::optional<KeptPicture>() : *picture;
}

void StepCache::prepareFor(double time)
{
    std::shared_ptr<StepFill> job;
    {
        const std::lock_guard lock(shelf_->mutex);
        const auto left = shelf_->row.find(time);
        const std::size_t most = capacity();
        if (!left || *left > most / 3 || shelf_->job != nullptr || shelf_->doubtful || shelf_->failed ||
            shelf_->complete)
            return;
        auto discarded = shelf_->row.keepBehind(time, most / 4);
        if (most <= shelf_->row.size())
            return;
        const std::size_t room = most - shelf_->row.size();
        job = orderOlder(room, std::move(discarded));
    }
    send(job, {});
}

bool StepCache::follows(double time, double next)
{
    const std::lock_guard lock(shelf_->mutex);
    StepRow& row = shelf_->row;
    if (row.empty() || row.find(time) != row.size() - 1 || next <= time)
        return false;
    row.follow(next);
    return true;
}

bool StepCache::isFollowed(double time, double next)
{
    const std::lock_guard lock(shelf_->mutex);
    return shelf_->row.isFollowed(time, next);
}

void StepCache::wakeAt(Moment due)
{
    if (shelf_->wake)
        workers_->post(std::make_shared<Alarm>(shelf_->wake), due);
}

void StepCache::wait(Moment deadline)
{
    std::unique_lock lock(shelf_->mutex);
    shelf_->changed.wait_until(lock, deadline, [this] { return shelf_->job == nullptr; });
}

} // namespace tandrel
