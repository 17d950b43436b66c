/// What the tests of small pictures wait with and look at.
#pragma once

#include "platform/stills/threaded_stills.h"
#include "support/let_others_run.h"

#include <chrono>
#include <functional>
#include <thread>

namespace tandrel::test
{

/// True once it holds, false after 20 s.
inline bool becomesTrue(const std::function<bool()>& condition)
{
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > limit)
            return false;
        test::letOthersRun();
    }
    return true;
}

/// A picture of one colour.
inline Still plainStill(std::uint32_t colour, int width = 4, int height = 2)
{
    return {width, height, std::vector<std::uint32_t>(static_cast<std::size_t>(width * height), colour), 1234};
}

} // namespace tandrel::test
