/// The program's own message box.
#pragma once

#include "toolkit/form.h"

namespace tandrel
{

/// Shown as a modal form behind `lblUpdate` was set. The console's `UpdateCancelled` takes the button: false for the
/// first, true for the second; closed in another way it keeps its value.
class frmUpdate : public Form
{
public:
    frmUpdate();

    Image imgInfo{*this, "imgInfo", {300, 270, 600, 600}, "box_information"};
    Label lblUpdate{*this, "lblUpdate", {1140, 300, 4860, 900}};
    CommandButton cmdOK{*this, "cmdOK", {3000, 1410, 1440, 480}, "OK"};
    CommandButton cmdCancel{*this, "cmdCancel", {4560, 1410, 1440, 480}, "&Cancel"};

    /// What it says. A message of more lines than it has room for makes it larger.
    void say(const Text& message);

protected:
    void onLoad() override;
    void onActivate() override;

private:
    void answer(bool cancelled);
};

} // namespace tandrel
