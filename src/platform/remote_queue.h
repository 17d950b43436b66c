/// Commands of other programs on their way to the user-interface thread.
#pragma once

#include "platform/media_remote.h"

#include <deque>
#include <mutex>

namespace tandrel
{

/// Takes what is left of any number of commands: at most `kMost`, as what follows each other is put together where that
/// comes to the same. Any thread.
class RemoteQueue
{
public:
    static constexpr std::size_t kMost = 32;

    /// One that finds no room is dropped; an end of the program always finds some. True: whoever takes has to be told.
    bool add(RemoteCommand command);
    std::optional<RemoteCommand> take();
    std::optional<RemoteCommand> takeUrgent();

private:
    bool joinsLast(const RemoteCommand& command);
    bool isKnown(const RemoteCommand& command) const;

    std::mutex mutex_;
    std::deque<RemoteCommand> waiting_;
};

} // namespace tandrel
