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

} // namespace tandrel
