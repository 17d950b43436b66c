#include "texts/frm_update.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "desktop/monitors.h"
#include "media/shared_state.h"

namespace tandrel
{

frmUpdate::frmUpdate() : Form("frmUpdate", Frame::Dialog, {0, 0, 6300, 2490})
{
    Caption = AppTitle;
    lblUpdate.wordWrap = true;
    cmdOK.isDefault = true;
    cmdCancel.isCancel = true;
    cmdOK.Click = [this] { answer(false); };
    cmdCancel.Click = [this] { answer(true); };
}

void frmUpdate::onLoad() { monitors().CenterFormOnMonitor(*this, &frmMedia()); }

void frmUpdate::onActivate()
{
    if (!trim(lblUpdate.caption()).empty())
        backend().beep();
}

void frmUpdate::answer(bool cancelled)
{
    frmMedia().UpdateCancelled = cancelled;
    unload(*this);
}

} // namespace tandrel
