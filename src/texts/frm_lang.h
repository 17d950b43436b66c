/// The dialog that asks for the language at the first start.
#pragma once

#include "toolkit/form.h"

namespace tandrel
{

/// Its button writes `Language`; closed in another way it leaves it as it is.
class frmLang : public Form
{
public:
    frmLang();

    Label lblLang{*this, "lblLang", {360, 240, 4230, 300}, "Select Language:"};
    ComboBox cboLang{*this, "cboLang", {360, 600, 4230, 480}};
    CommandButton cmdOK{*this, "cmdOK", {3150, 1350, 1440, 480}, "&OK"};

protected:
    void onLoad() override;

private:
    void cmdOK_Click();
};

} // namespace tandrel
