/// The memory that kept pictures may take, shared by all devices of an engine. For any thread.
#pragma once

#include <cstddef>
#include <mutex>

namespace tandrel
{

class StepBudget
{
public:
    /// `total` in bytes.
    explicit StepBudget(std::size_t total) : total_(total) {}

    /// Somebody who shares from now on, until `leave`.
    void join();
    void leave();
    /// An even share of the whole, in bytes.
    std::size_t share() const;

    /// False if that is more than is left.
    bool take(std::size_t bytes);
    void giveBack(std::size_t bytes);
    std::size_t taken() const;

private:
    const std::size_t total_;
    mutable std::mutex mutex_;
    std::size_t taken_ = 0;
    std::size_t sharers_ = 0;
};

} // namespace tandrel
