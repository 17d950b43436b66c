/// Keys as Qt tells of them, by the names of toolkit/keys.h.
#pragma once

#include "toolkit/keys.h"

class QKeyEvent;

namespace tandrel
{

/// Without a name for a key that has none, such as a modifier alone.
KeyStroke strokeOf(const QKeyEvent& event);

} // namespace tandrel
