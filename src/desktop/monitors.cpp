#include "desktop/monitors.h"

#include "toolkit/screen.h"
#include "toolkit/trap.h"

#include <algorithm>

namespace tandrel
{

namespace
{

constexpr int kDesktopLeft = 76;
constexpr int kDesktopTop = 77;
constexpr int kDesktopWidth = 78;
constexpr int kDesktopHeight = 79;
constexpr int kMonitorCount = 80;

constexpr int kProbeWidth = 640;
constexpr int kProbeHeight = 480;

MonitorTwips inTwips(const clsMonitor& monitor, Long x, Long y)
{
    return {monitor.Left * x, monitor.Top * y, monitor.Width * x, monitor.Height * y};
}

MonitorTwips inTwips(const clsMonitor& monitor)
{
    return inTwips(monitor, screen().TwipsPerPixelX(), screen().TwipsPerPixelY());
}

/// The form's corner lies in it: left and top belong to it, right and bottom don't.
bool holds(const MonitorTwips& area, const Form& form)
{
    return form.left() >= area.left && form.left() < area.left + area.width && form.top() >= area.top &&
           form.top() < area.top + area.height;
}

/// Half of a length, as a shift of its bits: downwards for negative lengths too.
Long half(Long length) { return static_cast<std::int32_t>(length) >> 1; }

} // namespace

Long clsMonitors::safeMetric(int index) const
{
    const MonitorSource& source = *services().monitors;
    return source.metric(kMonitorCount) != 0 ? source.metric(index) : 0;
}

Long clsMonitors::DesktopLeft() const { return safeMetric(kDesktopLeft); }

Long clsMonitors::DesktopTop() const { return safeMetric(kDesktopTop); }

Long clsMonitors::DesktopWidth() const
{
    const Long width = safeMetric(kDesktopWidth);
    return width != 0 ? width : Long(screen().Width() / screen().TwipsPerPixelX());
}

Long clsMonitors::DesktopHeight() const
{
    const Long height = safeMetric(kDesktopHeight);
    return height != 0 ? height : Long(screen().Height() / screen().TwipsPerPixelY());
}

void clsMonitors::Refresh()
{
    monitors_.clear();
    if (services().monitors->metric(kMonitorCount) == 0)
        addSynthetic();
    else
        probe();
}

void clsMonitors::addSynthetic()
{
    const Long width = screen().Width() / screen().TwipsPerPixelX();
    const Long height = screen().Height() / screen().TwipsPerPixelY();
    monitors_.push_back({0, height, width, 0, width, 0, height, 0, width, 0, height});
}

void clsMonitors::probe()
{
    // The upper bounds are the sizes of the desktop, not its left or top plus its size.
    const Long width = DesktopWidth();
    const Long height = DesktopHeight();
    std::vector<Long> known;
    Long previous = 0;
    for (Long y = DesktopTop(); y <= height; y += kProbeHeight)
        for (Long x = DesktopLeft(); x <= width; x += kProbeWidth) {
            const Long handle = GetMonitorFromXYPoint(x + kProbeWidth / 2, y + kProbeHeight / 2);
            if (handle == 0 || handle == previous)
                continue;
            previous = handle;
            if (std::find(known.begin(), known.end(), handle) != known.end())
                continue;
            known.push_back(handle);
            fill(handle);
        }
}

void clsMonitors::fill(Long handle)
{
    clsMonitor monitor{};
    monitor.Handle = handle;
    if (const auto facts = services().monitors->facts(handle)) {
        const PixelRect& all = facts->bounds;
        const PixelRect& work = facts->work;
        monitor = {handle,     all.height(), all.width(), all.left, all.right,  all.top,
                   all.bottom, work.left,    work.right,  work.top, work.bottom};
    }
    monitors_.push_back(monitor);
}

Long clsMonitors::GetMonitorFromWindow(WindowHandle hWnd) const
{
    const auto handle = services().monitors->fromWindow(hWnd);
    return handle ? Long(*handle) : Long(-1);
}

Long clsMonitors::GetMonitorFromXYPoint(Long x, Long y) const
{
    Long handle = -1;
    trap([&] { handle = services().monitors->fromRect({x, y, x + 1, y + 1}); });
    return handle;
}

namespace
{

/// The work area in twips of the monitor that the form is on.
std::optional<MonitorTwips> workArea(const Form& form)
{
    const auto handle = services().monitors->fromWindow(form.hWnd());
    const auto facts = handle && *handle != 0 ? services().monitors->facts(*handle) : std::nullopt;
    if (!facts)
        return std::nullopt;
    const Long x = screen().TwipsPerPixelX();
    const Long y = screen().TwipsPerPixelY();
    return MonitorTwips{facts->work.left * x, facts->work.top * y, facts->work.width() * x, facts->work.height() * y};
}

} // namespace

MonitorTwips clsMonitors::roomAround(const Form& form) const
{
    return workArea(form).value_or(MonitorTwips{0, 0, screen().Width(), screen().Height()});
}

void clsMonitors::CenterFormOnMonitor(Form& form, const Form* other) const
{
    TwipsRect place = form.place();
    if (const auto area = workArea(other ? *other : form)) {
        place.left = area->left + half(area->width - place.width);
        place.top = area->top + half(area->height - place.height);
    } else {
        place.left = (screen().Width() - place.width) / 2.0;
        place.top = (screen().Height() - place.height) / 2.0;
    }
    form.Move(place);
}

std::optional<MonitorTwips> clsMonitors::holding(const Form& form) const
{
    for (const clsMonitor& monitor : monitors_) {
        const MonitorTwips area = inTwips(monitor);
        if (holds(area, form))
            return area;
    }
    return std::nullopt;
}

void clsMonitors::centreWhereItStands(Form& form) const
{
    if (const auto area = holding(form))
        centreIn(*area, form);
}

void clsMonitors::centreByWidths(Form& form) const
{
    const Long twips = screen().TwipsPerPixelX();
    for (const clsMonitor& monitor : monitors_)
        if (const MonitorTwips area = inTwips(monitor, twips, twips); holds(area, form))
            return centreIn(area, form);
}

void clsMonitors::centreIn(const MonitorTwips& area, Form& form)
{
    TwipsRect place = form.place();
    place.left = area.left + (area.width - place.width) / 2.0;
    place.top = area.top + (area.height - place.height) / 2.0;
    form.Move(place);
}

namespace
{

/// How far `from` to `to` lies outside of the range, 0 where they touch.
double distance(double from, double to, double low, double high)
{
    return from >= high ? from - high + 1 : to <= low ? low - to + 1 : 0;
}

/// So much of it is inside the range as fits; its beginning where it does not.
Long pulledInside(Long at, Long size, Long low, Long range)
{
    return std::max<Long>(low, std::min<Long>(at, low + range - size));
}

} // namespace

void clsMonitors::bringWithinReach(Form& form) const
{
    const TwipsRect place = form.place();
    std::optional<MonitorTwips> nearest;
    double shortest = 0;
    for (const clsMonitor& monitor : monitors_) {
        const MonitorTwips area = inTwips(monitor);
        const double away = distance(place.left, place.left + place.width, area.left, area.left + area.width) +
                            distance(place.top, place.top + place.height, area.top, area.top + area.height);
        if (nearest && away >= shortest)
            continue;
        nearest = area;
        shortest = away;
    }
    if (nearest && shortest > 0)
        form.Move({pulledInside(place.left, place.width, nearest->left, nearest->width),
                   pulledInside(place.top, place.height, nearest->top, nearest->height), place.width, place.height});
}

clsMonitors& monitors()
{
    static clsMonitors collection;
    return collection;
}

} // namespace tandrel
