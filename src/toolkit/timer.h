/// A timer of a form.
#pragma once

#include "toolkit/property.h"
#include "toolkit/text.h"
#include "toolkit/types.h"

#include <functional>

namespace tandrel
{

class Form;

/// Ticks every `Interval` ms while enabled; an interval of 0 never ticks. A tick never starts inside its own tick.
class Timer
{
public:
    Timer(Form& form, Text name, Long interval, bool enabled);
    ~Timer();
    Timer(const Timer&) = delete;

    Long interval() const { return interval_; }
    void setInterval(Long ms);
    bool enabled() const { return enabled_; }
    void setEnabled(bool on);
    const Text& name() const { return name_; }
    const Form& form() const { return form_; }

    Property<Timer, Long, &Timer::interval, &Timer::setInterval> Interval{*this};
    Property<Timer, bool, &Timer::enabled, &Timer::setEnabled> Enabled{*this};

    std::function<void()> Tick;

    /// True while it is enabled, has an interval, and its form is loaded.
    bool running() const;

    /// Does not wait for the rest of the interval with the next tick. Where nothing is seen it has no effect.
    void hasten();

    /// Called by the backend when the interval has passed, and by tests. Does nothing while not running or inside a
    /// tick of its own.
    void tick();

private:
    Form& form_;
    Text name_;
    Long interval_;
    bool enabled_;
    bool ticking_ = false;
};

} // namespace tandrel
