#include "platform/remote_queue.h"

#include <algorithm>
#include <utility>

namespace tandrel
{

namespace
{

using Kind = RemoteCommand::Kind;

bool isUrgent(const RemoteCommand& command) { return command.kind == Kind::Raise || command.kind == Kind::Quit; }

/// The sum, or the end of the scale.
std::chrono::microseconds sum(std::chrono::microseconds one, std::chrono::microseconds other)
{
    std::chrono::microseconds::rep result = 0;
    if (__builtin_add_overflow(one.count(), other.count(), &result))
        return one.count() < 0 ? std::chrono::microseconds::min() : std::chrono::microseconds::max();
    return std::chrono::microseconds(result);
}

} // namespace

bool RemoteQueue::add(RemoteCommand command)
{
    const std::lock_guard lock(mutex_);
    const bool urgent = isUrgent(command);
    if (urgent ? isKnown(command) : joinsLast(command))
        return urgent;
    if (waiting_.size() >= kMost && !urgent)
        return false;
    waiting_.push_back(std::move(command));
    return urgent || waiting_.size() == 1;
}

bool RemoteQueue::isKnown(const RemoteCommand& command) const
{
    return std::find(waiting_.begin(), waiting_.end(), command) != waiting_.end();
}

bool RemoteQueue::joinsLast(const RemoteCommand& command)
{
    if (waiting_.empty() || waiting_.back().kind != command.kind)
        return false;
    RemoteCommand& last = waiting_.back();
    switch (command.kind) {
    case Kind::Play:
    case Kind::Pause:
    case Kind::Stop:
    case Kind::OpenDisc:
        return true;
    case Kind::PlayPause:
        // The second one undoes the first.
        waiting_.pop_back();
        return true;
    case Kind::Seek:
        last.time = sum(last.time, command.time);
        return true;
    case Kind::Volume:
        last.level = command.level;
        return true;
    case Kind::SetPosition:
        last.time = last.medium == command.medium ? command.time : last.time;
        return last.medium == command.medium;
    case Kind::Open:
        return last.path == command.path;
    default:
        return false;
    }
}

std::optional<RemoteCommand> RemoteQueue::take()
{
    const std::lock_guard lock(mutex_);
    if (waiting_.empty())
        return std::nullopt;
    RemoteCommand first = std::move(waiting_.front());
    waiting_.pop_front();
    return first;
}

std::optional<RemoteCommand> RemoteQueue::takeUrgent()
{
    const std::lock_guard lock(mutex_);
    const auto found = std::find_if(waiting_.begin(), waiting_.end(), &isUrgent);
    if (found == waiting_.end())
        return std::nullopt;
    RemoteCommand urgent = std::move(*found);
    waiting_.erase(found);
    return urgent;
}

} // namespace tandrel
