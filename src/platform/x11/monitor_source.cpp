#include "platform/x11/monitor_source.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <algorithm>

namespace tandrel
{

namespace
{

// One change of the monitors is reported in several pieces.
constexpr int kSettlingMs = 100;

PixelRect pixels(const QRect& rect)
{
    return {rect.left(), rect.top(), rect.left() + rect.width(), rect.top() + rect.height()};
}

QRect desktop()
{
    QRect all;
    for (const QScreen* screen : QGuiApplication::screens())
        all |= screen->geometry();
    return all;
}

long area(const QRect& rect) { return rect.isValid() ? static_cast<long>(rect.width()) * rect.height() : 0; }

} // namespace

X11MonitorSource::X11MonitorSource()
{
    settling_.setSingleShot(true);
    settling_.setInterval(kSettlingMs);
    connect(&settling_, &QTimer::timeout, this, [this] {
        if (changed)
            changed();
    });
    connect(qGuiApp, &QGuiApplication::screenAdded, this, [this](QScreen* screen) {
        watch(screen);
        tellSoon();
    });
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, [this] { tellSoon(); });
    for (QScreen* screen : QGuiApplication::screens())
        watch(screen);
}

void X11MonitorSource::watch(QScreen* screen)
{
    connect(screen, &QScreen::geometryChanged, this, [this] { tellSoon(); });
}

void X11MonitorSource::tellSoon() { settling_.start(); }

int X11MonitorSource::metric(int index) const
{
    switch (index) {
    case 76:
        return desktop().left();
    case 77:
        return desktop().top();
    case 78:
        return desktop().width();
    case 79:
        return desktop().height();
    case 80:
        return static_cast<int>(QGuiApplication::screens().size());
    default:
        return 0;
    }
}

std::int32_t X11MonitorSource::fromRect(const PixelRect& rect) const
{
    const QRect wanted(rect.left, rect.top, rect.width(), rect.height());
    std::int32_t best = 0;
    long most = 0;
    std::int32_t handle = 0;
    for (const QScreen* screen : QGuiApplication::screens()) {
        ++handle;
        const long common = area(screen->geometry() & wanted);
        if (common > most) {
            most = common;
            best = handle;
        }
    }
    return best;
}

std::optional<std::int32_t> X11MonitorSource::fromWindow(WindowHandle window) const
{
    for (const QWindow* own : QGuiApplication::topLevelWindows())
        if (static_cast<WindowHandle>(own->winId()) == window)
            return fromRect(pixels(own->geometry()));
    return 0;
}

std::optional<MonitorFacts> X11MonitorSource::facts(std::int32_t handle) const
{
    const auto screens = QGuiApplication::screens();
    if (handle < 1 || handle > screens.size())
        return std::nullopt;
    const QScreen* screen = screens[handle - 1];
    return MonitorFacts{handle, pixels(screen->geometry()), pixels(screen->availableGeometry())};
}

} // namespace tandrel
