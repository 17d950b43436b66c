/// The screen saver's service on the session bus.
#pragma once

#include "platform/dbus/idle_bus.h"

#include <memory>
#include <string>

namespace tandrel
{

/// `application` and `reason` are what the desktop may show of a hold, in UTF-8. The bus is the one that the
/// environment names at this moment. It is called by its own library: that of the toolkit waits at the end of the
/// program for a bus that does not answer.
std::unique_ptr<IdleBus> makeSessionIdleBus(std::string application, std::string reason);

/// The session bus takes callers and tells them nothing, so that whoever waits for it without an end hangs. Known after
/// two seconds; of a bus that answers, and of none, at once.
bool sessionBusIsSilent();

/// From here on this process has no session bus.
void forgetSessionBus();

} // namespace tandrel
