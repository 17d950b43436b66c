#include "toolkit/timer.h"

#include "toolkit/backend.h"
#include "toolkit/form.h"
#include "toolkit/program.h"

namespace tandrel
{

Timer::Timer(Form& form, Text name, Long interval, bool enabled)
    : form_(form), name_(std::move(name)), interval_(interval), enabled_(enabled)
{
    form_.adopt(*this);
}

Timer::~Timer() { backend().timerGone(*this); }

void Timer::setInterval(Long ms)
{
    interval_ = ms;
    backend().timerChanged(*this);
}

void Timer::setEnabled(bool on)
{
    enabled_ = on;
    backend().timerChanged(*this);
}

void Timer::hasten()
{
    if (running())
        backend().timerHastened(*this);
}

bool Timer::running() const { return enabled_ && interval_ > 0 && form_.isLoaded() && !programEnded(); }

void Timer::tick()
{
    if (ticking_ || !running() || !Tick)
        return;
    ticking_ = true;
    // The form may be gone behind its own tick: what is needed afterwards is held here.
    const auto alive = form_.shared_from_this();
    form_.run(Tick);
    ticking_ = false;
}

} // namespace tandrel
