#include "toolkit/press.h"

namespace tandrel
{

namespace
{
bool spentLeft = false;
bool spentRight = false;

bool& spent(MouseButton button) { return button == MouseButton::Left ? spentLeft : spentRight; }
} // namespace

bool buttonIsDown(MouseButton button)
{
    const bool down = services().pointer->buttonDown(button);
    if (!down)
        spent(button) = false;
    return down && !spent(button);
}

bool isSpent(MouseButton button) { return spent(button); }

void spendPress(MouseButton button) { spent(button) = true; }

void pressIsOver(MouseButton button) { spent(button) = false; }

void forgetSpentPresses() { spentLeft = spentRight = false; }

} // namespace tandrel
