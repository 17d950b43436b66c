/// Holding the idle watch off without ever waiting for it.
#pragma once

#include "platform/dbus/idle_bus.h"

#include <functional>
#include <memory>
#include <thread>

namespace tandrel
{

/// Knows what is wanted last and brings it about on a thread of its own, which starts with the first hold. Wishes that
/// pass while the bus is busy leave no trace.
class IdleHold
{
public:
    /// `fallback` takes a hold (true) where the bus has none to give, and gives it back (false). Called on the other
    /// thread, and possibly after the end of this object.
    IdleHold(std::unique_ptr<IdleBus> bus, std::function<void(bool held)> fallback);
    /// Gives the hold back and waits a moment for that. A bus that takes longer is left to its thread.
    ~IdleHold();
    IdleHold(const IdleHold&) = delete;
    IdleHold& operator=(const IdleHold&) = delete;

    void want(bool held);
    /// Passed on where the bus has given a hold, else nothing.
    void signOfLife();

private:
    struct State;

    bool start();

    std::shared_ptr<State> state_;
    std::thread worker_;
};

} // namespace tandrel
