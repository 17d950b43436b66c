#include "platform/mpv/stock_rest.h"

#include <atomic>

namespace tandrel
{

namespace
{
using Clock = std::chrono::steady_clock;

std::atomic<Clock::time_point> restUntil{Clock::time_point()};
} // namespace

void putOffStocks(std::chrono::milliseconds time) { restUntil = Clock::now() + time; }

Clock::time_point stocksRestUntil() { return restUntil; }

} // namespace tandrel
