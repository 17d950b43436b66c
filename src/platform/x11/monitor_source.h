/// The monitors of the X display, in logical pixels.
#pragma once

#include "platform/services.h"

namespace tandrel
{

/// Needs the application object. Handles are 1 for the first monitor, 2 for the second, and so on.
class X11MonitorSource : public MonitorSource
{
public:
    int metric(int index) const override;
    std::int32_t fromRect(const PixelRect& rect) const override;
    std::optional<std::int32_t> fromWindow(WindowHandle window) const override;
    std::optional<MonitorFacts> facts(std::int32_t handle) const override;
};

} // namespace tandrel
