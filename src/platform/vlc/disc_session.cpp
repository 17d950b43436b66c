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
    const std::lock_guard lock(mutex_);
    const std::uint64_t number = ++posted_;
    if (kind != Kind::Any && !waiting_.empty() && waiting_.back().kind == kind)
        waiting_.pop_back();
    if (!ending_ && waiting_.size() < kMostWaiting)
        waiting_.push_back({number, kind, std::move(command)});
    changed_.notify_all();
    return number;
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

DiscState DiscSession::state(std::uint64_t& heard) const
{
    const std::lock_guard lock(mutex_);
    heard = heard_;
    return published_;
}

void DiscSession::tell(const VlcNews& news)
{
    const std::lock_guard lock(mutex_);
    if (news_.size() < kMostNews)
        news_.push_back(news);
    changed_.notify_all();
}

DiscSession::Command DiscSession::next(SteadyTime until)
{
    std::unique_lock lock(mutex_);
    changed_.wait_until(lock, until, [this] { return ending_ || !waiting_.empty() || !news_.empty(); });
    if (waiting_.empty())
        return {};
    taken_ = waiting_.front().number;
    Command command = std::move(waiting_.front().command);
    waiting_.pop_front();
    return command;
}

std::vector<VlcNews> DiscSession::takeNews()
{
    const std::lock_guard lock(mutex_);
    return std::exchange(news_, {});
}

void DiscSession::publish(const DiscState& state)
{
    const std::lock_guard lock(mutex_);
    published_ = state;
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
