#include "fullscreen/frm_panel.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "media/shared_state.h"
#include "toolkit/screen.h"

namespace tandrel
{

frmPanel::frmPanel() : Form("frmPanel", Frame::Bare, {0, 0, 4800, kHeight})
{
    Caption = "Panel";
    imgNoFull.ToolTip = "Fullscreen Off";
    imgNoFull.Click = [this] { imgNoFull_Click(); };
    MouseMove = [this](const MouseEvent&) { PanelIdle = false; };
}

void frmPanel::onLoad()
{
    const class frmMedia& console = frmMedia();
    keepOffFrom(console.FullTop + console.FullHeight);
    Move({console.FullLeft, console.FullTop + console.FullHeight, console.FullWidth, kHeight});
    imgNoFull.Left = console.FullWidth / 2;
    lblTitle.Left = imgNoFull.Left() + 900;
    PanelSeeking = false;
    PanelHold = false;
    Refresh();
}

void frmPanel::onActivate()
{
    PanelIdle = false;
    PanelUp = true;
    PanelSeeking = false;
    PanelHold = false;
}

void frmPanel::imgNoFull_Click()
{
    frmMedia().Timer4.Enabled = true;
    ClickState = 1.0;
    frmMedia().TrackHold = false;
    FullMenuOpen = false;
    PanelUp = false;
    unload(*this);
}

void slideInPanel()
{
    class frmPanel& panel = frmPanel();
    const Long top = frmMedia().FullTop;
    const Long height = frmMedia().FullHeight;
    const Long end = height - frmPanel::kHeight;
    try {
        Long shown = pixelsY(panel.top());
        for (Integer y = height; y >= end; y -= 2) {
            panel.Top = top + y;
            // Steps of a fraction of a pixel look alike; each pixel is painted once.
            if (pixelsY(panel.top()) != shown)
                panel.Refresh();
            shown = pixelsY(panel.top());
        }
    } catch (const RuntimeError&) {
        panel.Top = top + end;
        throw;
    }
}

void putPanelBelow() { frmPanel().Top = frmMedia().FullTop + frmMedia().FullHeight; }

} // namespace tandrel
