#include "video/video_window.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "desktop/screen_saver.h"
#include "media/shared_state.h"
#include "toolkit/screen.h"
#include "video/other_media.h"
#include "video/slots.h"

namespace tandrel
{

PixelRect consoleMonitor()
{
    const class frmMedia& console = frmMedia();
    const int left = pixelsX(console.FullLeft);
    const int top = pixelsY(console.FullTop);
    return {left, top, left + pixelsX(console.FullWidth), top + pixelsY(console.FullHeight)};
}

VideoWindow* fullWindow()
{
    if (frmChild* window = firstSlot([](const frmChild& slot) { return slot.Full; }))
        return window;
    VideoWindow* disc = otherMedia().dvd.form;
    return disc && disc->Full ? disc : nullptr;
}

void VideoWindow::fillScreen() { fillScreen(consoleMonitor()); }

void VideoWindow::fillScreen(const PixelRect& target)
{
    FullScreenOn = true;
    Full = true;
    ScreenSaverSwitch(false);
    SavedTop = top();
    SavedLeft = left();
    SavedHeight = height();
    SavedWidth = width();
    pictureBox().BorderStyle = 0;
    Style.Titlebar = false;
    Style.Border = false;
    showStrips(false);
    cover(target);
    frmMedia().FullPicture = pictureBox().place();
    SetFocus();
}

void VideoWindow::cover(const PixelRect& target)
{
    movePixels(target);
    if (const PixelRect monitor = consoleMonitor(); !(target == monitor))
        movePixels(monitor);
    Refresh();
    setFullScreen(true);
    ZOrder();
}

void VideoWindow::returnFromScreen()
{
    Full = false;
    setFullScreen(false);
    Style.Titlebar = true;
    Style.Border = true;
    Move({SavedLeft, SavedTop, SavedWidth, SavedHeight});
    pictureBox().BorderStyle = 1;
    Refresh();
}

} // namespace tandrel
