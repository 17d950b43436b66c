#include "toolkit/activation.h"

#include "toolkit/form.h"

#include <algorithm>
#include <chrono>
#include <deque>

namespace tandrel
{

namespace
{

using SteadyClock = std::chrono::steady_clock;

/// A report that the window system still owes for a change that the program made.
struct Expected {
    const Form* form;
    SteadyClock::time_point since;
};

// A report that never came (the window manager refused the focus, say) must not swallow a click much later.
constexpr std::chrono::milliseconds kReportLimit{1500};

// A window manager activates a window before it hands the click on that asked for it. The activation waits for that
// press, so that it finds the button down however short the click is: longer where a press is known to be under way,
// which a busy window manager may hold back for a while.
constexpr int kPressWaitMs = 25;
constexpr int kKnownPressWaitMs = 1000;

struct State {
    std::weak_ptr<Form> active;
    /// The user has changed to it, and the press may still come.
    std::weak_ptr<Form> waiting;
    /// Which report that was: the time of an earlier one may still run.
    unsigned waitingReport = 0;
    std::deque<Expected> expected;
};

State& state()
{
    static State instance;
    return instance;
}

Form* activeNow() { return state().active.lock().get(); }

void dropOverdue()
{
    auto& expected = state().expected;
    const auto now = SteadyClock::now();
    while (!expected.empty() && now - expected.front().since > kReportLimit)
        expected.pop_front();
}

/// True if the report was expected. Those before it have been overtaken and will not come any more.
bool takeExpected(const Form& form)
{
    dropOverdue();
    auto& expected = state().expected;
    const auto found =
        std::find_if(expected.begin(), expected.end(), [&](const Expected& one) { return one.form == &form; });
    if (found == expected.end())
        return false;
    // It may be the last report of all, of a form that became active more than once.
    if (activeNow() == &form)
        expected.clear();
    else
        expected.erase(expected.begin(), found + 1);
    return true;
}

void makeActive(Form& form)
{
    const auto former = state().active.lock();
    state().waiting.reset();
    state().active = form.weak_from_this();
    if (former)
        former->runDeactivation();
    form.runActivation();
}

int pressWaitFor(const Form& form)
{
    const Pointer& pointer = *services().pointer;
    return pointer.pressOnItsWay() && form.pixelRect().contains(pointer.position()) ? kKnownPressWaitMs : kPressWaitMs;
}

} // namespace

Form* activeForm() { return activeNow(); }

void activate(Form& form)
{
    if (activeForm() == &form || !form.isLoaded() || !form.visible())
        return;
    state().expected.push_back({&form, SteadyClock::now()});
    makeActive(form);
}

void windowActivated(Form& form)
{
    if (takeExpected(form) || activeForm() == &form || !form.isLoaded()) {
        state().waiting.reset();
        return;
    }
    state().waiting = form.weak_from_this();
    backend().later(pressWaitFor(form), [waiting = form.weak_from_this(), report = ++state().waitingReport] {
        const auto form = waiting.lock();
        if (report == state().waitingReport && form && form == state().waiting.lock() && form->isLoaded() &&
            form->visible())
            makeActive(*form);
    });
}

void userPressed(Form& form)
{
    state().expected.clear();
    if (activeForm() != &form && form.isLoaded())
        makeActive(form);
}

void applicationDeactivated()
{
    state().active.reset();
    state().waiting.reset();
    state().expected.clear();
}

void forgetActivation(const Form& form)
{
    if (activeForm() == &form)
        state().active.reset();
    if (state().waiting.lock().get() == &form)
        state().waiting.reset();
    std::erase_if(state().expected, [&](const Expected& one) { return one.form == &form; });
}

} // namespace tandrel
