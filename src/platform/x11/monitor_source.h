/// The monitors of the X display, in logical pixels.
#pragma once

#include "platform/services.h"

#include <QObject>
#include <QTimer>

class QScreen;

namespace tandrel
{

/// Needs the application object. Handles are 1 for the first monitor, 2 for the second, and so on.
class X11MonitorSource : public QObject, public MonitorSource
{
public:
    X11MonitorSource();
    int metric(int index) const override;
    std::int32_t fromRect(const PixelRect& rect) const override;
    std::optional<std::int32_t> fromWindow(WindowHandle window) const override;
    std::optional<MonitorFacts> facts(std::int32_t handle) const override;

private:
    void watch(QScreen* screen);
    /// Tells of a change once all that belongs to it has come in.
    void tellSoon();
    QTimer settling_;
};

} // namespace tandrel
