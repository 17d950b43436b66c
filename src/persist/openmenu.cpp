#include "persist/openmenu.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "persist/frm_prev.h"
#include "texts/frm_tool_tip.h"
#include "texts/localised.h"

namespace tandrel
{

openmenu::openmenu() : Form("openmenu", Frame::Bare, {0, 0, 1500, 750})
{
    const auto onClick = [](Menu& entry, void (*open)()) {
        entry.Click = [open] {
            Unload<class frmToolTip>();
            open();
        };
    };
    onClick(mnuOpenMulti, [] { frmMedia().cmdMedia[command::kOpen]->Value = true; });
    onClick(mnuOpenSingle, [] { frmMedia().OpenSingleVideo(); });
    onClick(mnuMKV, [] { frmMedia().OpenSingleVideoMKV(); });
    onClick(mnuDVD, [] { frmMedia().OpenSingleVideoDVD(); });
    onClick(mnuOpenLast, [] { frmPrev().Show(); });
    mnuMKV.Visible = false;
}

void openmenu::nameInLanguage()
{
    mnuOpenMulti.Caption = localised("openmenu.mnuOpenMulti");
    mnuOpenSingle.Caption = localised("openmenu.mnuOpenSingle");
    mnuOpenLast.Caption = localised("openmenu.mnuOpenLast");
    mnuMKV.Caption = localised("openmenu.mnuMKV");
    mnuDVD.Caption = localised("openmenu.mnuDVD");
}

} // namespace tandrel
