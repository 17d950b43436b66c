/// The monitors of the desktop. Sizes and places are pixels; forms take them times the twips of a pixel.
#pragma once

#include "platform/services.h"
#include "toolkit/form.h"

#include <optional>

namespace tandrel
{

/// One monitor: its rectangle and its work area (the rectangle less docks and bars).
struct clsMonitor {
    Long Handle;
    Long Height;
    Long Width;
    Long Left;
    Long Right;
    Long Top;
    Long Bottom;
    Long WorkLeft;
    Long WorkRight;
    Long WorkTop;
    Long WorkBottom;
};

/// The rectangle of a monitor in twips.
using MonitorTwips = TwipsRect;

/// The collection of monitors, found once at the start by probing the desktop every 640 by 480 pixels. A monitor that
/// lies between the probes, or beyond the desktop's size measured from 0, is missed; that is accepted.
class clsMonitors
{
public:
    clsMonitors() { Refresh(); }

    const std::vector<clsMonitor>& Monitors() const { return monitors_; }
    Long DesktopLeft() const;
    Long DesktopTop() const;
    Long DesktopWidth() const;
    Long DesktopHeight() const;

    /// Builds the collection anew. A system without monitors of its own gives one that stands for the screen.
    void Refresh();

    /// -1 where the system can't tell, 0 where the window is on none.
    Long GetMonitorFromWindow(WindowHandle hWnd) const;
    /// 0 where there is none.
    Long GetMonitorFromXYPoint(Long x, Long y) const;

    /// The work area, in twips, of the monitor that `form` is on; else the screen.
    MonitorTwips roomAround(const Form& form) const;
    /// Centres a form on the work area of the monitor that `other` (or the form itself) is on, else on the screen.
    void CenterFormOnMonitor(Form& form, const Form* other = nullptr) const;

    /// A form that touches no monitor is moved to the nearest one; any other stays.
    void bringWithinReach(Form& form) const;

    /// The first monitor that holds the form's left and top (left and top inclusive, right and bottom exclusive).
    std::optional<MonitorTwips> holding(const Form& form) const;
    /// Centres the form on that monitor; with none it stays.
    void centreWhereItStands(Form& form) const;
    /// The same with the twips of a pixel's width on both axes.
    void centreByWidths(Form& form) const;

private:
    static void centreIn(const MonitorTwips& area, Form& form);
    Long safeMetric(int index) const;
    void addSynthetic();
    void probe();
    void fill(Long handle);

    std::vector<clsMonitor> monitors_;
};

/// The one collection. `frmStart` builds it at its load.
clsMonitors& monitors();

} // namespace tandrel
