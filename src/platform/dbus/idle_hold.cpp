#include "platform/dbus/idle_hold.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <system_error>
#include <utility>

namespace tandrel
{

namespace
{

constexpr std::chrono::milliseconds kLongestFarewell{300};

} // namespace

/// What both threads know. The worker keeps it alive where it outlasts the object.
struct IdleHold::State {
    enum class Task { Take, GiveBack, SignOfLife, End };
    enum class Holder { Nobody, Bus, Fallback };

    State(std::unique_ptr<IdleBus> idleBus, std::function<void(bool)> otherwise)
        : bus(std::move(idleBus)), fallback(std::move(otherwise))
    {
    }

    void work();
    Task nextTask();
    void take();
    void giveBack();
    void passSignOfLife();
    void end();
    bool stillWanted();

    std::mutex mutex;
    std::condition_variable changed;
    bool wanted = false;
    bool signOfLife = false;
    bool ending = false;
    bool ended = false;

    // The worker's own.
    const std::unique_ptr<IdleBus> bus;
    const std::function<void(bool)> fallback;
    Holder holder = Holder::Nobody;
    std::uint32_t cookie = 0;
};

void IdleHold::State::work()
{
    for (;;) {
        switch (nextTask()) {
        case Task::Take:
            take();
            break;
        case Task::GiveBack:
            giveBack();
            break;
        case Task::SignOfLife:
            passSignOfLife();
            break;
        case Task::End:
            end();
            return;
        }
    }
}

IdleHold::State::Task IdleHold::State::nextTask()
{
    std::unique_lock lock(mutex);
    const bool held = holder != Holder::Nobody;
    changed.wait(lock, [&] { return wanted != held || signOfLife || ending; });
    if (wanted != held)
        return wanted ? Task::Take : Task::GiveBack;
    if (ending)
        return Task::End;
    signOfLife = false;
    return Task::SignOfLife;
}

void IdleHold::State::take()
{
    if (const auto ticket = bus->inhibit()) {
        // It may have come too late to be wanted: then the next task is to give it back.
        cookie = *ticket;
        holder = Holder::Bus;
    } else if (stillWanted()) {
        holder = Holder::Fallback;
        fallback(true);
    }
}

void IdleHold::State::giveBack()
{
    if (std::exchange(holder, Holder::Nobody) == Holder::Bus)
        bus->uninhibit(cookie);
    else
        fallback(false);
}

void IdleHold::State::passSignOfLife()
{
    // A bus that has gone took the hold along: it is asked for anew.
    if (holder == Holder::Bus && !bus->simulateActivity())
        holder = Holder::Nobody;
}

void IdleHold::State::end()
{
    const std::lock_guard lock(mutex);
    ended = true;
    changed.notify_all();
}

bool IdleHold::State::stillWanted()
{
    const std::lock_guard lock(mutex);
    return wanted;
}

IdleHold::IdleHold(std::unique_ptr<IdleBus> bus, std::function<void(bool held)> fallback)
    : state_(std::make_shared<State>(std::move(bus), std::move(fallback)))
{
}

IdleHold::~IdleHold()
{
    if (!worker_.joinable())
        return;
    std::unique_lock lock(state_->mutex);
    state_->wanted = false;
    state_->ending = true;
    state_->changed.notify_all();
    const bool ended = state_->changed.wait_for(lock, kLongestFarewell, [this] { return state_->ended; });
    lock.unlock();
    if (ended)
        worker_.join();
    else
        worker_.detach();
}

void IdleHold::want(bool held)
{
    // Without a thread to spare the idle watch goes on; the next wish tries again.
    if (!worker_.joinable() && (!held || !start()))
        return;
    const std::lock_guard lock(state_->mutex);
    state_->wanted = held;
    state_->changed.notify_all();
}

void IdleHold::signOfLife()
{
    if (!worker_.joinable())
        return;
    const std::lock_guard lock(state_->mutex);
    state_->signOfLife = true;
    state_->changed.notify_all();
}

bool IdleHold::start()
{
    try {
        worker_ = std::thread([state = state_] { state->work(); });
        return true;
    } catch (const std::system_error&) {
        return false;
    }
}

} // namespace tandrel
