/// What the thread of a player and those who talk to it share: commands and news on their way in, the state on its way
/// out.
#pragma once

#include "platform/vlc/disc_state.h"
#include "platform/vlc/vlc_film.h"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace tandrel
{

class DiscWorker;

class DiscSession
{
public:
    /// Of several commands of a kind that follow each other only the last is carried out, except for Any.
    enum class Kind { Any, Seek, Volume, Pointer };
    using Command = std::function<void(DiscWorker&)>;

    /// For the user-interface thread, which waits for nobody here, not even for a lock: then a command goes on its way
    /// with the next call. Returns the number of the command.
    std::uint64_t post(Kind kind, Command command);
    /// The last state that was published, and the number of the last command that it has heard of. Null where there is
    /// none to be had at this moment.
    std::shared_ptr<const DiscState> state(std::uint64_t& heard);
    /// The thread is to go.
    void end();
    /// False if the thread is still there after that time.
    bool waitForEnd(std::chrono::milliseconds longest);

    /// True once the thread takes commands: libVLC is up then.
    bool hasBegun() const { return begun_; }

    /// For libVLC's threads.
    void tell(const VlcNews& news);

    /// For the worker's thread.
    void markBegin() { begun_ = true; }
    /// For the worker's thread: the next command, or none when there is news, or when the time is over.
    Command next(SteadyTime until);
    std::vector<VlcNews> takeNews();
    void publish(const DiscState& state);
    bool isEnding() const;
    /// Waits, and goes on at once when the end has come.
    void pause(std::chrono::milliseconds time);
    void markEnd();

private:
    struct Waiting {
        std::uint64_t number;
        Kind kind;
        Command command;
    };

    void sendKept();

    // Of the user-interface thread alone.
    std::vector<Waiting> kept_;
    std::uint64_t posted_ = 0;

    mutable std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Waiting> waiting_;
    std::shared_ptr<const DiscState> published_ = std::make_shared<DiscState>();
    std::uint64_t taken_ = 0;
    std::uint64_t heard_ = 0;
    bool ending_ = false;
    bool ended_ = false;

    std::atomic<bool> begun_ = false;

    std::mutex newsMutex_;
    std::vector<VlcNews> news_;
    std::atomic<bool> hasNews_ = false;
};

} // namespace tandrel
