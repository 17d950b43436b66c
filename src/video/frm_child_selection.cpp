// How a video window becomes the selected one, and how it goes full screen.

#include "console/frm_media.h"
#include "console/holders.h"
#include "desktop/screen_saver.h"
#include "fullscreen/frm_panel.h"
#include "media/mod_media.h"
#include "toolkit/press.h"
#include "video/frm_child.h"
#include "video/slots.h"

namespace tandrel
{

void frmChild::onActivate()
{
    if (!FullScreenOn)
        ScreenSaverSwitch(true);
    showStrips(!Full);
    selectThis();
    if (buttonIsDown(MouseButton::Right)) {
        if (FullScreenOn)
            // The click is for the menu.
            passPress(MouseButton::Right);
        else if (isLive() && !trim(CurrentAlias).empty())
            goFullScreen();
    } else if (FullScreenOn) {
        PanelUp = false;
        putPanelBelow();
    }
    FullMenuOpen = false;
}

// The close box is seen on the active window only.
void frmChild::onDeactivate() { picClose.Visible = false; }

void frmChild::selectThis()
{
    class frmMedia& console = frmMedia();
    console.TrackHold = false;
    // A window whose medium is gone stands for nothing.
    if (!isLive())
        return;
    if (MediaFile != CurrentAlias)
        console.lblTitleBar.Caption = titleFor(fileNameOf(withoutQuotes(MediaFile)));
    CurrentAlias = MediaFile;
    console.InvertSlider.Value = 100 - Volume;
    console.VolumeSlider.Value = Volume;
    FastForward = false;
    FastRewind = false;
    console.lblSpeed.Caption = "0x";
    console.lblDuration.Caption = Duration;
}

void frmChild::goFullScreen()
{
    FullMedia = CurrentAlias;
    if (trim(MediaFile) != FullMedia)
        return;
    spendPress(MouseButton::Right);
    fillScreen();
    bringUpPanel("File:: " + CurrentAlias);
    // This way counts the height of the monitor in 16 bits: on one that is higher, run-time error 6 ends the handler
    // here, with the panel in its place.
    [[maybe_unused]] const Integer counted = frmMedia().FullHeight;
    frmMedia().Timer4.Enabled = false;
}

/// The window goes while it fills the screen: nothing else would end that state.
void frmChild::endFullScreen()
{
    Full = false;
    FullScreenOn = false;
    PanelUp = false;
    FullMedia.clear();
    setFullScreen(false);
    ScreenSaverSwitch(true);
    frmMedia().showParkedCursor();
    Unload<class frmPanel>();
    frmMedia().Timer4.Enabled = true;
}

} // namespace tandrel
