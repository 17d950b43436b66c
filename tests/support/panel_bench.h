/// A video that fills the screen, and the panel over it.
#pragma once

#include "player_bench.h"

#include "desktop/monitors.h"
#include "fullscreen/frm_panel.h"

namespace tandrel::test
{

class PanelBench : public Player
{
protected:
    class frmPanel& panel() { return frmPanel(); }

    /// Videos on monitors in pixels; the console stands on the first of these.
    void openOn(const std::vector<PixelRect>& monitors, int videos = 3)
    {
        world.monitors.set(monitors);
        screen().setMetrics(15, 15, monitors.front());
        tandrel::monitors().Refresh();
        start("0");
        openSeveral(videos);
    }
    /// The console is on another monitor now.
    void standOn(const PixelRect& monitor)
    {
        console().FullLeft = 15 * monitor.left;
        console().FullTop = 15 * monitor.top;
        console().FullWidth = 15 * monitor.width();
        console().FullHeight = 15 * monitor.height();
    }
    /// A video fills the screen by a right click, and the panel comes up.
    frmChild& fill(int index)
    {
        frmChild& window = *VideoWindows.at(static_cast<std::size_t>(index));
        console().SetFocus();
        world.pointer.right = true;
        window.SetFocus();
        world.pointer.right = false;
        forgetCommands();
        return window;
    }
    /// The second of three videos, on one monitor of 1920 by 1080.
    frmChild& fullScreen()
    {
        openOn({{0, 0, 1920, 1080}});
        return fill(1);
    }
    void forgetCommands()
    {
        world.mci.clear();
        world.journal.clear();
    }
    /// A press and release of the left button, and the click behind it.
    static void click(Control& control)
    {
        control.userMouseDown({mouse::kLeft, 0, 0, 0});
        control.userMouseUp({mouse::kLeft, 0, 0, 0});
        control.userClick();
    }
};

} // namespace tandrel::test
