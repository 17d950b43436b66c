/// When players are not made ahead.
#pragma once

#include <chrono>

namespace tandrel
{

/// Somebody waits for something that is being opened now: for so long no stock makes handles ahead, which would take a
/// processor from it. The last call counts, from whatever thread.
void putOffStocks(std::chrono::milliseconds time);

/// Until then they rest.
std::chrono::steady_clock::time_point stocksRestUntil();

} // namespace tandrel
