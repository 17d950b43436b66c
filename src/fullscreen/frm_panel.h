/// The control strip of full-screen mode: as wide as the monitor, 915 twips high, sliding up from its lower edge.
#pragma once

#include "toolkit/form.h"

namespace tandrel
{

class frmPanel : public Form
{
public:
    frmPanel();

    /// Arms the auto-hide; cleared by every activity over the panel and by whoever shows it.
    bool PanelIdle = false;
    /// A drag on the seek strip is running.
    bool PanelSeeking = false;

    Label lblCurrent{*this, "lblCurrent", {240, 300, 1500, 330}, "0.0"};
    Label lblTitle{*this, "lblTitle", {0, 240, 5535, 495}, "Title"};
    Image imgNoFull{*this, "imgNoFull", {0, 270, 375, 375}, "windowed"};

    static constexpr int kHeight = 915;

protected:
    void onLoad() override;
    void onActivate() override;

private:
    void imgNoFull_Click();
    bool PanelHold = false;
};

/// Brings the panel up from below the screen: the top runs from the monitor's lower edge to 915 twips above it in steps
/// of 2, as a 16-bit value. On a monitor higher than that can count, run-time error 6 ends it, with the panel standing
/// in its place.
void slideInPanel();

/// Out of sight, just below the monitor.
void putPanelBelow();

} // namespace tandrel
