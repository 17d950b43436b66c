/// The dialog that asks which drive to play.
#pragma once

#include "toolkit/form.h"

namespace tandrel
{

/// Shown modally by `frmDVD2`, which fills the list; its buttons write that form's `DriveIndex` and `DriveURL`. Closed
/// in another way it leaves them as they are. Its texts are English in every language.
class frmDriver : public Form
{
public:
    frmDriver();

    Label lblLang{*this, "lblLang", {360, 240, 4230, 300}, "Select Drive:"};
    ComboBox cboDriver{*this, "cboDriver", {360, 600, 4230, 480}};
    CommandButton cmdOK{*this, "cmdOK", {1590, 1350, 1440, 480}, "&OK"};
    CommandButton cmdCancel{*this, "cmdCancel", {3150, 1350, 1440, 480}, "&Cancel"};

protected:
    void onLoad() override;

private:
    void cmdOK_Click();
    void cmdCancel_Click();
};

} // namespace tandrel
