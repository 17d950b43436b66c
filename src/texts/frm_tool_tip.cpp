#include "texts/frm_tool_tip.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "persist/settings.h"

namespace tandrel
{

frmToolTip::frmToolTip() : Form("frmToolTip", Frame::Bare, {0, 0, 5430, 1680})
{
    imgExit.Click = [this] { imgExit_Click(); };
    lblTool.role = TextRole::Quiet;
    lblToolTip.wordWrap = true;
}

void frmToolTip::onLoad()
{
    lblToolTip.Caption = "Double-Click on Video to play it.\n"
                         "You can change the Video allignment by [Reposition Video] function.";
}

void frmToolTip::imgExit_Click()
{
    frmMedia().TipsOn = "0";
    if (chkToolTip.Value() == 1)
        saveSetting(settings::kTips, "0");
    unload(*this);
}

} // namespace tandrel
