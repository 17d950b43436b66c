/// Mouse buttons as the handlers see them.
#pragma once

#include "platform/services.h"

namespace tandrel
{

/// True while the button is down (or was since the last question) and its press is not spent.
bool buttonIsDown(MouseButton button);

/// A handler has acted on the press, and its release has not been seen yet.
bool isSpent(MouseButton button);

/// A handler has acted on the press: it counts for nothing more until its release has been seen.
void spendPress(MouseButton button);

/// Who has asked for the button has no use for its press: the next one who asks is told of it too, should it be over.
void passPress(MouseButton button);

/// The windows are told of a press. It is a new one, and what was spent is over, unless it is the spent one itself, of
/// which the pointer had told before.
void pressArrives(MouseButton button);

/// The button has come up: what was spent is over.
void pressIsOver(MouseButton button);

/// For tests.
void forgetSpentPresses();

} // namespace tandrel
