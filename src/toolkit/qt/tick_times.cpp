#include "toolkit/qt/tick_times.h"

#include <algorithm>

namespace tandrel
{

namespace
{

constexpr std::size_t kKept = 2000;

/// Of a list that is in order.
TickTimes::Duration percentile(const std::vector<TickTimes::Duration>& sorted, double part)
{
    if (sorted.empty())
        return {};
    return sorted[std::min(sorted.size() - 1, static_cast<std::size_t>(part * static_cast<double>(sorted.size())))];
}

} // namespace

void TickTimes::note(const Text& timer, Duration took)
{
    Times& times = times_[timer];
    const auto place = static_cast<std::size_t>(times.count) % kKept;
    if (place < times.latest.size())
        times.latest[place] = took;
    else
        times.latest.push_back(took);
    ++times.count;
    times.whole += took;
    times.longest = std::max(times.longest, took);
}

std::vector<TickTimes::Row> TickTimes::rows() const
{
    std::vector<Row> rows;
    for (const auto& [timer, times] : times_) {
        std::vector<Duration> sorted = times.latest;
        std::sort(sorted.begin(), sorted.end());
        rows.push_back(
            {timer, times.count, times.whole, percentile(sorted, 0.5), percentile(sorted, 0.99), times.longest});
    }
    return rows;
}

} // namespace tandrel
