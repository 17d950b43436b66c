/// What holding the desktop's idle watch off asks of the session bus.
#pragma once

#include <cstdint>
#include <optional>

namespace tandrel
{

/// Called on one thread only, which may wait: an implementation answers within a few seconds, one way or the other.
class IdleBus
{
public:
    virtual ~IdleBus() = default;
    /// Holds the idle watch off and gives the ticket for it. Empty where nobody on the bus does that; then nothing is
    /// held, not even by an answer that comes too late.
    virtual std::optional<std::uint32_t> inhibit() = 0;
    /// Gives a ticket back.
    virtual void uninhibit(std::uint32_t cookie) = 0;
    /// Passes a sign of life from the user on, without an answer. False where the bus is gone, and the hold with it.
    virtual bool simulateActivity() = 0;
};

} // namespace tandrel
