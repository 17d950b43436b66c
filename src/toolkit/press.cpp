#include "toolkit/press.h"

#include <utility>

namespace tandrel
{

namespace
{
struct Press {
    bool spent = false;
    bool passed = false;
    /// The windows have yet to be told of the spent one.
    bool awaited = false;
};
Press left;
Press right;

Press& of(MouseButton button) { return button == MouseButton::Left ? left : right; }
} // namespace

bool buttonIsDown(MouseButton button)
{
    Press& press = of(button);
    const bool wasPassed = std::exchange(press.passed, false);
    const bool down = services().pointer->buttonDown(button) || wasPassed;
    if (!down)
        press.spent = false;
    return down && !press.spent;
}

bool isSpent(MouseButton button) { return of(button).spent; }

void spendPress(MouseButton button)
{
    of(button).spent = true;
    of(button).awaited = services().pointer->spend(button);
}

void passPress(MouseButton button) { of(button).passed = true; }

void pressArrives(MouseButton button)
{
    if (!std::exchange(of(button).awaited, false))
        of(button).spent = false;
}

void pressIsOver(MouseButton button) { of(button).spent = false; }

void forgetSpentPresses() { left = right = {}; }

} // namespace tandrel
