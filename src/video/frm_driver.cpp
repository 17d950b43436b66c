#include "video/frm_driver.h"

#include "console/holders.h"
#include "desktop/monitors.h"
#include "media/shared_state.h"
#include "toolkit/screen.h"
#include "video/frm_dvd2.h"

namespace tandrel
{

frmDriver::frmDriver() : Form("frmDriver", Frame::Dialog, {screen().FirstLeft(), screen().FirstTop(), 4950, 2430})
{
    Caption = AppTitle;
    lblLang.role = TextRole::Quiet;
    cboDriver.Spoken = lblLang.caption();
    cmdOK.isDefault = true;
    cmdCancel.isCancel = true;
    cmdOK.Click = [this] { cmdOK_Click(); };
    cmdCancel.Click = [this] { cmdCancel_Click(); };
}

void frmDriver::onLoad() { monitors().centreByWidths(*this); }

void frmDriver::cmdOK_Click()
{
    const Long chosen = cboDriver.ListIndex;
    if (chosen < 0) {
        backend().messageBox("Select a Disk Drive.", BoxStyle::Information, AppTitle);
        cboDriver.SetFocus();
        return;
    }
    frmDVD2().chooseDrive(chosen, cboDriver.List(chosen).front());
    unload(*this);
}

void frmDriver::cmdCancel_Click()
{
    frmDVD2().chooseNoDrive();
    unload(*this);
}

} // namespace tandrel
