#include "texts/frm_tool_tip.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "console/version.h"
#include "desktop/monitors.h"
#include "desktop/region.h"
#include "persist/settings.h"
#include "texts/localised.h"

namespace tandrel
{

frmToolTip::frmToolTip() : Form("frmToolTip", Frame::Skin, {0, 0, 5730, 1770})
{
    Caption = kProgramName;
    setWindowWord(style::kExtendedWord, style::kToolWindow);
    Maschera.Visible = false;
    imgExit.Visible = false;
    imgExit.silent = true;
    imgExit1.tabStop = true;
    lblTool.role = TextRole::Quiet;
    // The text beside the box belongs to it.
    lblTool.Click = [this] { chkToolTip.userClick(); };
    lblToolTip.wordWrap = true;
    for (Image* image : {&imgExit, &imgExit1})
        image->Click = [this] { imgExit_Click(); };
    imgExit1.MouseMove = [this](const MouseEvent&) { imgExit.Visible = true; };
    const auto hideHover = [this](const MouseEvent&) {
        if (imgExit.Visible)
            imgExit.Visible = false;
    };
    MouseMove = hideHover;
    imgBody.MouseMove = hideHover;
}

void frmToolTip::onLoad()
{
    ApplicaMaschera();
    lblToolTip.Caption = localised("frmToolTip.line1") + "\n" + localised("frmToolTip.line2");
    imgExit1.ToolTip = localised("system.close");
    imgExit.ToolTip = imgExit1.ToolTip;
    chkToolTip.ToolTip = lblTool.Caption;
}

void frmToolTip::ApplicaMaschera() { applyMask(*this, Maschera); }

void frmToolTip::imgExit_Click()
{
    frmMedia().TipsOn = "0";
    if (chkToolTip.Value() == 1)
        saveSetting(settings::kTips, "0");
    unload(*this);
}

} // namespace tandrel
