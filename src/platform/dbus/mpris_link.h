/// The player's place on the bus, kept by a thread of its own.
#pragma once

#include "platform/dbus/mpris_answers.h"
#include "platform/remote_queue.h"

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>

namespace tandrel::mpris
{

/// What the thread that runs `work` shares with the user-interface thread. It outlives both.
class Link
{
public:
    /// `call` runs on the thread: commands have come in, or the bus has come or gone.
    Link(Facts facts, std::string address, std::function<void()> call);
    ~Link();
    Link(const Link&) = delete;
    Link& operator=(const Link&) = delete;

    /// Until `end`. A bus that is not there, or has gone, is looked for again, ever more rarely.
    void work();

    // For the other thread; none of them waits, but for `end`.

    bool isHeard() const { return heard_; }
    void publish(const RemoteState& state);
    /// True if the thread has ended within that time.
    bool end(std::chrono::milliseconds patience);

    RemoteQueue commands;

private:
    void connect();
    bool takeName(const std::string& name);
    void serve();
    /// False: there are more.
    bool answerSome();
    void tellNews();
    void waitForNews();
    bool isEnding();
    Reading reading();
    void wake();
    void setHeard(bool heard);

    const std::string address_;
    const std::function<void()> call_;
    const int wakes_;
    std::atomic<bool> heard_ = false;

    std::mutex mutex_;
    std::condition_variable changed_;
    Reading reading_;
    bool jumped_ = false;
    bool ending_ = false;
    bool ended_ = false;

    // The thread's own.
    const Answers answers_;
    ConnectionPtr bus_;
    Properties told_;
};

} // namespace tandrel::mpris
