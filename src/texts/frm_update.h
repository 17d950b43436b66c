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

    /// What it says, in as much room as that takes; what the monitor has no room for is left out.
    void say(const Text& message);

protected:
    void onLoad() override;
    void onActivate() override;

private:
    /// All of it, around a text of this size.
    void placeAround(Long width, Long height);
    void answer(bool cancelled);
};

} // namespace tandrel
