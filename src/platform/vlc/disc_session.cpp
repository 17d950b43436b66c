#include "platform/vlc/disc_session.h"

#include <utility>

namespace tandrel
{

namespace
{
// A worker that hangs hears nothing.
constexpr std::size_t kMostNews = 1000;
constexpr std::size_t kMostWaiting = 10000;
} // namespace

std::uint64_t DiscSession::post(Kind kind, Command command)
{
    if (kind != Kind::Any && !kept_.empty() && kept_.back().kind == kind)
        kept_.pop_back();
    kept_.push_back({++posted_, kind, std::move(command)});
    const std::unique_lock lock(mutex_, std::try_to_lock);
    if (lock)
        sendKept();
    return posted_;
}

void DiscSession::sendKept()
{
    for (Waiting& one : kept_) {
        if (one.kind != Kind::Any && !waiting_.empty() && waiting_.back().kind == one.kind)
            waiting_.pop_back();
        if (!ending_ && waiting_.size() < kMostWaiting)
            waiting_.push_back(std::move(one));
    }
    if (!kept_.empty())
        changed_.notify_all();
    kept_.clear();
}

std::shared_ptr<const DiscState> DiscSession::state(std::uint64_t& heard)
{
    const std::unique_lock lock(mutex_, std::try_to_lock);
    if (!lock)
        return nullptr;
    sendKept();
    heard = heard_;
    return published_;
}

void DiscSession::end()
{
    const std::lock_guard lock(mutex_);
    ending_ = true;
    waiting_.clear();
    changed_.notify_all();
}

bool DiscSession::waitForEnd(std::chrono::milliseconds longest)
{
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, longest, [this] { return ended_; });
}

void DiscSession::tell(const VlcNews& news)
{
    {
        const std::lock_guard lock(newsMutex_);
        if (news_.size() < kMostNews)
            news_.push_back(news);
        hasNews_ = true;
    }
    // Should the worker be about to wait at this moment, it hears of it when it looks next.
    changed_.notify_all();
}

DiscSession::Command DiscSession::next(SteadyTime until)
{
    std::unique_lock lock(mutex_);
    changed_.wait_until(lock, until, [this] { return ending_ || !waiting_.empty() || hasNews_; });
    if (waiting_.empty())
        return {};
    taken_ = waiting_.front().number;
    Command command = std::move(waiting_.front().command);
    waiting_.pop_front();
    return command;
}

std::vector<VlcNews> DiscSession::takeNews()
{
    const std::lock_guard lock(newsMutex_);
    hasNews_ = false;
    return std::exchange(news_, {});
}

void DiscSession::publish(const DiscState& state)
{
    // Made before the lock, so that the old one goes after it.
    std::shared_ptr<const DiscState> exchanged = std::make_shared<DiscState>(state);
    const std::lock_guard lock(mutex_);
    published_.swap(exchanged);
    heard_ = taken_;
}

bool DiscSession::isEnding() const
{
    const std::lock_guard lock(mutex_);
    return ending_;
}

void DiscSession::pause(std::chrono::milliseconds time)
{
    std::unique_lock lock(mutex_);
    changed_.wait_for(lock, time, [this] { return ending_; });
}

void DiscSession::markEnd()
{
    const std::lock_guard lock(mutex_);
    ended_ = true;
    changed_.notify_all();
}

} // namespace tandrel
