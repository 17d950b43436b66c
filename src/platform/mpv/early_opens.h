/// Files that are opened on threads of their own, each ahead of the command that asks for it or while that command
/// waits.
#pragma once

#include "platform/mpv/mpv_device.h"

#include <deque>
#include <functional>
#include <future>
#include <string>

namespace tandrel
{

class EarlyOpens
{
public:
    struct Result {
        OpenFailure failure = OpenFailure::None;
        std::unique_ptr<MpvDevice> device;
    };
    /// Opens a file; runs on another thread, and takes 5 s at most.
    using Open = std::function<Result()>;

    /// Waits for what is still being opened, and lets go of it.
    ~EarlyOpens();

    /// Begins to open `path`.
    void begin(const std::string& path, Open open);
    /// Takes over what was begun for this path; nothing if there is none. Blocks until it is done, `pulse` running
    /// about every 50 ms meanwhile.
    std::optional<Result> take(const std::string& path, const std::function<void()>& pulse);
    /// Lets go of all that has not been taken: what is done now, the others with a later call.
    void drop();
    bool isBegun(const std::string& path) const;

private:
    struct Entry {
        std::string path;
        std::future<Result> result;
    };

    void clearDropped();

    std::deque<Entry> begun_;
    /// Nobody wants these; each goes when its thread has ended.
    std::deque<std::future<Result>> dropped_;
};

} // namespace tandrel
