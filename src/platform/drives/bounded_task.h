/// Work that may block for as long as it likes, with somebody who waits for a limited time.
#pragma once

#include <chrono>
#include <condition_variable>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>

namespace tandrel
{

/// One piece of work at a time. To be used on one thread; what hangs is left behind with its thread, and may outlive
/// this object.
template <class Result>
class BoundedTask
{
public:
    /// Runs `work` on a thread of its own, which has to hold all that it needs. Empty if it isn't done in time, and at
    /// once if it hasn't come back from the time before, or fails.
    std::optional<Result> run(std::function<Result()> work, std::chrono::milliseconds limit)
    {
        if (isUnderWay())
            return {};
        shared_ = std::make_shared<Shared>();
        try {
            std::thread([shared = shared_, work = std::move(work)] { finish(*shared, work); }).detach();
        } catch (const std::system_error&) {
            // Nobody may be kept waiting, so without a thread to spare it isn't done.
            shared_.reset();
            return {};
        }
        std::unique_lock lock(shared_->mutex);
        shared_->changed.wait_for(lock, limit, [this] { return shared_->done; });
        return shared_->done ? std::move(shared_->result) : std::nullopt;
    }

private:
    struct Shared {
        std::mutex mutex;
        std::condition_variable changed;
        bool done = false;
        std::optional<Result> result;
    };

    static void finish(Shared& shared, const std::function<Result()>& work)
    {
        std::optional<Result> result;
        try {
            result = work();
        } catch (const std::exception&) {
            // Out of memory, say: there is no result, and that is all.
        }
        const std::lock_guard lock(shared.mutex);
        shared.result = std::move(result);
        shared.done = true;
        shared.changed.notify_all();
    }
    bool isUnderWay() const
    {
        if (shared_ == nullptr)
            return false;
        const std::lock_guard lock(shared_->mutex);
        return !shared_->done;
    }

    std::shared_ptr<Shared> shared_;
};

} // namespace tandrel
