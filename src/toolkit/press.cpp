#include "toolkit/press.h"

#include <utility>

namespace tandrel
{

namespace
{
bool spentLeft = false;
bool spentRight = false;
bool passedLeft = false;
bool passedRight = false;

bool& spent(MouseButton button) { return button == MouseButton::Left ? spentLeft : spentRight; }
bool& passed(MouseButton button) { return button == MouseButton::Left ? passedLeft : passedRight; }
} // namespace

bool buttonIsDown(MouseButton button)
{
    const bool wasPassed = std::exchange(passed(button), false);
    const bool down = services().pointer->buttonDown(button) || wasPassed;
    if (!down)
        spent(button) = false;
    return down && !spent(button);
}

bool isSpent(MouseButton button) { return spent(button); }

void spendPress(MouseButton button) { spent(button) = true; }

void passPress(MouseButton button) { passed(button) = true; }

void pressIsOver(MouseButton button) { spent(button) = false; }

void forgetSpentPresses() { spentLeft = spentRight = passedLeft = passedRight = false; }

} // namespace tandrel
