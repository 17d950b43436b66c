/// Files that are opened on threads of their own, ahead of the command that asks for them or while that command waits.
#pragma once

#include "platform/mpv/mpv_device.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <future>
#include <mutex>
#include <string>

namespace tandrel
{

/// All is called on one thread. As many files are opened at a time as there are processors: opened all at once, they
/// would all be done at the end, and whoever waits for the first would have lost the time.
class EarlyOpens
{
public:
    struct Result {
        OpenFailure failure = OpenFailure::None;
        std::unique_ptr<MpvDevice> device = nullptr;
        MediaSource source = {};
        /// What it was opened with.
        CodecTuning tuning = {};
    };
    /// Opens a file; runs on another thread, and takes 5 s at most.
    using Open = std::function<Result()>;

    EarlyOpens() = default;
    /// Lets go of all, and waits for what is still being opened, for 6 s at most.
    ~EarlyOpens();
    EarlyOpens(const EarlyOpens&) = delete;
    EarlyOpens& operator=(const EarlyOpens&) = delete;

    /// Begins to open `path`, behind those begun before.
    void begin(const std::string& path, Open open);
    bool isBegun(const std::string& path) const;
    /// Takes over what was begun for this path, which has to be there. Blocks until it is done, for 6 s at most, and
    /// never behind others; `pulse` runs about every 50 ms meanwhile.
    Result take(const std::string& path, const std::function<void()>& pulse);
    /// Lets go of all that has not been taken.
    void drop();

private:
    struct Job {
        std::string path;
        Open open;
        std::promise<Result> result;
    };
    using JobRef = std::shared_ptr<Job>;

    /// What the threads see, which outlives this object where one of them hangs.
    struct Shared {
        std::mutex mutex;
        std::condition_variable changed;
        /// Those that no worker has taken up.
        std::deque<JobRef> waiting;
        int working = 0;
    };

    void addWorker(JobRef first);
    static void work(Shared& shared, JobRef job);
    static JobRef next(Shared& shared);

    /// In the order of their beginning.
    std::deque<JobRef> begun_;
    std::shared_ptr<Shared> shared_ = std::make_shared<Shared>();
};

} // namespace tandrel
