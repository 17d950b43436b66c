#include "platform/xdg/clock.h"

#include <ctime>

namespace tandrel
{

int SystemClock::yearAndMonth() const
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return (local.tm_year + 1900) * 100 + local.tm_mon + 1;
}

} // namespace tandrel
