// What the console does when monitors come, go or change.

#include "console/frm_media.h"
#include "console/holders.h"
#include "desktop/monitors.h"
#include "desktop/screen_saver.h"
#include "media/shared_state.h"
#include "video/other_media.h"
#include "video/slots.h"
#include "video/video_window.h"

namespace tandrel
{

void frmMedia::endFullScreenOfPlayer()
{
    for (const auto* window : {&otherMedia().dvd2, &otherMedia().mkv})
        if (window->control && window->control->fullScreen)
            window->control->fullScreen = false;
}

void frmMedia::followMonitors()
{
    const PixelRect before = consoleMonitor();
    monitors().Refresh();
    if (ClosingDown || !isLoaded())
        return;
    for (const clsMonitor& monitor : monitors().Monitors())
        if (PixelRect{monitor.Left, monitor.Top, monitor.Right, monitor.Bottom} == before)
            return;
    // What fills a monitor that is no more returns to its size, and everything to where it can be reached.
    if (FullScreenOn) {
        FullScreenOn = false;
        ScreenSaverSwitch(true);
        FullMedia.clear();
        followEndOfFullScreen();
    }
    endFullScreenOfPlayer();
    // The panel finds the new monitor when it is loaded anew.
    Unload<class frmPanel>();
    monitors().bringWithinReach(*this);
    findMonitor();
    const auto bring = [](Form* window) {
        if (window && window->isLoaded())
            monitors().bringWithinReach(*window);
    };
    forEachSlot([&](frmChild& window) { bring(&window); });
    bring(otherMedia().dvd.form);
    bring(otherMedia().dvd2.form);
    bring(otherMedia().mkv.form);
}

} // namespace tandrel
