#include "platform/mpv/step_budget.h"

#include <algorithm>

namespace tandrel
{

void StepBudget::join()
{
    const std::lock_guard lock(mutex_);
    ++sharers_;
}

void StepBudget::leave()
{
    const std::lock_guard lock(mutex_);
    --sharers_;
}

std::size_t StepBudget::share() const
{
    const std::lock_guard lock(mutex_);
    return total_ / std::max<std::size_t>(1, sharers_);
}

bool StepBudget::take(std::size_t bytes)
{
    const std::lock_guard lock(mutex_);
    if (bytes > total_ - taken_)
        return false;
    taken_ += bytes;
    return true;
}

void StepBudget::giveBack(std::size_t bytes)
{
    const std::lock_guard lock(mutex_);
    taken_ -= bytes;
}

std::size_t StepBudget::taken() const
{
    const std::lock_guard lock(mutex_);
    return taken_;
}

} // namespace tandrel
