/// How long the ticks of timers take, for a report to a person.
#pragma once

#include "toolkit/text.h"

#include <chrono>
#include <map>
#include <vector>

namespace tandrel
{

class TickTimes
{
public:
    using Duration = std::chrono::steady_clock::duration;

    /// One timer, by the names of its form and its own: "frmMedia.Timer1". The percentiles are of its latest ticks, the
    /// longest of all.
    struct Row {
        Text timer;
        long count = 0;
        Duration whole{};
        Duration median{};
        Duration percentile99{};
        Duration longest{};
    };

    void note(const Text& timer, Duration took);
    std::vector<Row> rows() const;

private:
    struct Times {
        long count = 0;
        Duration whole{};
        Duration longest{};
        /// The latest, as a ring.
        std::vector<Duration> latest;
    };
    std::map<Text, Times> times_;
};

} // namespace tandrel
