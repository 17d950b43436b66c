/// The tip beside the column of small videos in PlayList Mode.
#pragma once

#include "toolkit/form.h"

namespace tandrel
{

class frmToolTip : public Form
{
public:
    frmToolTip();

    Label lblToolTip{*this, "lblToolTip", {240, 240, 4800, 900}};
    CheckBox chkToolTip{*this, "chkToolTip", {240, 1260, 240, 240}};
    Label lblTool{*this, "lblTool", {540, 1260, 3600, 240}, "Don't show again this message"};
    Image imgExit{*this, "imgExit", {5070, 90, 270, 270}, "close"};

protected:
    void onLoad() override;

private:
    void imgExit_Click();
};

} // namespace tandrel
