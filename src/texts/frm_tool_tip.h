/// The tip beside the column of small videos in PlayList Mode.
#pragma once

#include "toolkit/form.h"

namespace tandrel
{

class frmToolTip : public Form
{
public:
    frmToolTip();

    Image Maschera{*this, "Maschera", {0, 0, 5730, 1770}, "tip"};
    Image imgBody{*this, "imgBody", {0, 0, 5730, 1770}, "tip"};
    Label lblToolTip{*this, "lblToolTip", {780, 210, 4260, 1050}};
    CheckBox chkToolTip{*this, "chkToolTip", {780, 1365, 240, 270}};
    Label lblTool{*this, "lblTool", {1080, 1365, 3600, 270}, "Don't show again this message"};
    /// The plain button, and over it the one that is seen while the pointer is there.
    Image imgExit1{*this, "imgExit1", {5070, 105, 270, 270}, "close_quiet"};
    Image imgExit{*this, "imgExit", {5070, 105, 270, 270}, "close"};

    /// Cuts the window to the outline of its body.
    void ApplicaMaschera();

protected:
    void onLoad() override;

private:
    void imgExit_Click();
};

} // namespace tandrel
