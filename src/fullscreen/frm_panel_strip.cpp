// The seek strip of the panel. It works in the units of the console's slider.

#include "console/frm_media.h"
#include "console/holders.h"
#include "fullscreen/frm_panel.h"
#include "media/mod_media.h"
#include "media/shared_state.h"
#include "texts/localised.h"
#include "video/other_media.h"
#include "video/slots.h"

namespace tandrel
{

void frmPanel::wireStrip()
{
    imgMoveUp.MouseDown = [this](const MouseEvent& event) { imgMoveUp_MouseDown(event); };
    imgMoveUp.MouseMove = [this](const MouseEvent& event) { imgMoveUp_MouseMove(event); };
    imgMoveUp.MouseUp = [this](const MouseEvent&) {
        PanelSeeking = false;
        PanelIdle = false;
    };
    imgMoveUp.Click = [this] { imgMoveUp_Click(); };
    imgMoveUp.Spoken = localised("spoken.place");
    imgMoveUp.spokenValue = {[] { return static_cast<double>(frmMedia().SeekSlider.value()); },
                             [] { return static_cast<double>(frmMedia().SeekSlider.maximum()); },
                             [this](double place) { seekAsPressed(place); }};
    lblCurrent.Spoken = imgMoveUp.spoken();
}

void frmPanel::seekAsPressed(double place)
{
    const Long most = frmMedia().SeekSlider.maximum();
    showPull(most > 0 ? place / static_cast<double>(most) * static_cast<double>(slide_black.width()) : 0.0);
    imgMoveUp_Click();
}

bool frmPanel::isOnStrip(Long x) const
{
    return slide_black.left() <= x && x <= slide_black.left() + slide_black.width();
}

void frmPanel::showPull(Long x)
{
    imgPull.Left = x - imgPull.width() / 2.0;
    // The place itself, not its distance from the strip's left end.
    slide_blue.Width = x;
}

void frmPanel::imgMoveUp_MouseDown(const MouseEvent& event)
{
    const Long x = event.x;
    if (!event.left() || !isOnStrip(x))
        return;
    showPull(x);
    if (somethingIsLoaded())
        PanelSeeking = true;
}

void frmPanel::imgMoveUp_MouseMove(const MouseEvent& event)
{
    PanelIdle = false;
    lightUp(nullptr);
    const Long x = event.x;
    if (!event.left())
        return;
    if (isOnStrip(x)) {
        showPull(x);
        PanelSeeking = true;
    }
    if (somethingIsLoaded() && PanelSeeking)
        followDrag();
    PanelSeeking = false;
}

Long frmPanel::targetOfStrip() const
{
    return divide(static_cast<double>(slide_blue.width()) * frmMedia().SeekSlider.maximum(), slide_black.width());
}

void frmPanel::seekToStrip()
{
    SeekTarget = targetOfStrip();
    if (const frmChild* window = slotPlaying(CurrentAlias))
        MediaSeek(SeekTarget, window->Paused);
}

void frmPanel::followDrag()
{
    const MediaKind kind = mediaKind();
    if (kind == MediaKind::Files)
        return seekToStrip();
    SeekTarget = targetOfStrip();
    // A disc seeks at the click alone.
    if (kind == MediaKind::Hd)
        seekOtherMedia(SeekTarget);
}

void frmPanel::imgMoveUp_Click()
{
    PanelUp = true;
    if (mediaKind() == MediaKind::Files) {
        if (!CurrentAlias.empty() && !PanelSeeking)
            seekToStrip();
    } else {
        seekOtherMedia(targetOfStrip());
    }
    PanelIdle = false;
}

} // namespace tandrel
