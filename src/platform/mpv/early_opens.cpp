#include "platform/mpv/early_opens.h"

#include <algorithm>
#include <system_error>

namespace tandrel
{

namespace
{
using namespace std::chrono_literals;

constexpr auto kPulse = 50ms;

bool isDone(const std::future<EarlyOpens::Result>& result)
{
    // What could not have a thread of its own is done when it is asked for.
    return result.wait_for(0s) != std::future_status::timeout;
}

std::future<EarlyOpens::Result> start(EarlyOpens::Open open)
{
    try {
        return std::async(std::launch::async, open);
    } catch (const std::system_error&) {
        return std::async(std::launch::deferred, std::move(open));
    }
}
} // namespace

EarlyOpens::~EarlyOpens()
{
    drop();
    for (auto& result : dropped_)
        result.wait();
}

void EarlyOpens::begin(const std::string& path, Open open) { begun_.push_back({path, start(std::move(open))}); }

bool EarlyOpens::isBegun(const std::string& path) const
{
    return std::any_of(begun_.begin(), begun_.end(), [&](const Entry& entry) { return entry.path == path; });
}

std::optional<EarlyOpens::Result> EarlyOpens::take(const std::string& path, const std::function<void()>& pulse)
{
    const auto found =
        std::find_if(begun_.begin(), begun_.end(), [&](const Entry& entry) { return entry.path == path; });
    if (found == begun_.end())
        return {};
    std::future<Result> result = std::move(found->result);
    begun_.erase(found);
    while (result.wait_for(kPulse) == std::future_status::timeout)
        if (pulse)
            pulse();
    return result.get();
}

void EarlyOpens::drop()
{
    for (Entry& entry : begun_)
        dropped_.push_back(std::move(entry.result));
    begun_.clear();
    clearDropped();
}

void EarlyOpens::clearDropped()
{
    std::erase_if(dropped_, [](const std::future<Result>& result) { return isDone(result); });
}

} // namespace tandrel
