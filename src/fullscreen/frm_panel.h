/// The control strip of full-screen mode: as wide as the monitor, 915 twips high, sliding up from its lower edge.
#pragma once

#include "toolkit/form.h"

namespace tandrel
{

/// It keeps no state of playback: the console's sliders are the master of place and volume. Lengths are twips.
class frmPanel : public Form
{
public:
    frmPanel();

    /// Arms the auto-hide; cleared by every activity over the panel and by whoever shows it.
    bool PanelIdle = false;
    /// A drag on the seek strip is running.
    bool PanelSeeking = false;
    /// Blocks the auto-hide. Nothing sets it.
    bool PanelHold = false;
    /// The place that the auto-hide takes for the pointer, in pixels. Nothing writes it.
    PixelPoint PanelCursor;
    /// The place of the last seek, in the units of the console's `SeekSlider`.
    Long SeekTarget;
    /// The volume before mute, 1 to `kLoudest`; 0 while it is not muted.
    Long MuteMemory;

    // The seek strip, from the back to the front; `imgMoveUp` takes the mouse.
    Image slide_black{*this, "slide_black", {120, 22, 2280, 90}, "panel_strip"};
    Image slide_blue{*this, "slide_blue", {120, 37, 1680, 60}, "panel_done"};
    Image imgPull{*this, "imgPull", {120, 0, 240, 135}, "panel_pull"};
    Image imgMoveUp{*this, "imgMoveUp", {0, 0, 2880, 135}};

    // The row of buttons. At rest some have no picture: the row's own shows them.
    PictureBox picMain{*this, "picMain", {3840, 120, 6060, 795}};
    Image imgPlay{*this, "imgPlay", {2680, 20, 690, 765}, "panel_play", &picMain};
    Image imgPause{*this, "imgPause", {2685, 0, 690, 765}, "panel_pause", &picMain};
    Image imgRwd{*this, "imgRwd", {1940, 210, 750, 390}, "", &picMain};
    Image imgFwd{*this, "imgFwd", {3360, 210, 750, 390}, "", &picMain};
    Image imgNoFull{*this, "imgNoFull", {1470, 208, 375, 375}, "", &picMain};
    Image imgDVD{*this, "imgDVD", {240, 225, 1005, 375}, "panel_disc", &picMain};
    Image imgVolButton{*this, "imgVolButton", {4320, 210, 375, 375}, "", &picMain};
    /// The volume, the natural way round.
    Slider InvertSlider{*this, "InvertSlider", {4800, 240, 1035, 300}, false, &picMain};

    Label lblCurrent{*this, "lblCurrent", {240, 300, 1500, 330}, "0.0"};
    Label lblTitle{*this, "lblTitle", {0, 240, 5535, 495}, "Title"};
    Timer Timer2{*this, "Timer2", 3000, true};

    static constexpr int kHeight = 915;

    /// The drawn part of the strip follows the console's slider.
    void followSlider();
    /// The button that can be used now, to play or to pause, by what the selected video says.
    void followHold();
    /// All buttons in their rest state but this one.
    void lightUp(const Image* hovered);
    /// It is in view, as far as the auto-hide and the hiding of the cursor are concerned.
    bool standsUp() const;

protected:
    void onLoad() override;
    void onActivate() override;

private:
    // frm_panel.cpp
    void placeControls();
    void Timer2_Timer();
    void slideDown();
    void focusPicture();
    /// The button that can be used now stands in front of the other.
    void showPlayButton(bool play);

    // frm_panel_buttons.cpp
    void wireButtons();
    void wireHover();
    Text restPicture(const Image& image) const;
    void imgPlay_Click();
    void imgPause_Click();
    void jump(bool& wanted, bool& opposite);
    void imgNoFull_Click();
    void imgVolButton_Click();
    void InvertSlider_Scroll();
    void giveVolume();
    void Form_KeyPress(int code);
    /// One of those, which stay whatever the user chooses for the others.
    static bool isOwnKey(const KeyStroke& key);
    void resumeByKey();

    // frm_panel_strip.cpp
    void wireStrip();
    bool isOnStrip(Long x) const;
    void showPull(Long x);
    void imgMoveUp_MouseDown(const MouseEvent& event);
    void imgMoveUp_MouseMove(const MouseEvent& event);
    void imgMoveUp_Click();
    Long targetOfStrip() const;
    void seekToStrip();
    /// The medium goes where the strip is dragged to.
    void followDrag();
    /// The strip is pressed at this place, in the units of the console's slider.
    void seekAsPressed(double place);
};

/// Brings the panel up over the full-screen picture, with this title: shown, in front, slid in, not armed.
void bringUpPanel(const Text& title);

/// The video of this slot, from 0, in front and with the focus; nothing where there is none.
void bringVideoForward(int index);

/// Out of sight, just below the monitor, at once.
void putPanelBelow();

/// A height on the desktop, in twips, is at the lower edge of the console's monitor, less `margin` twips, or beyond it.
/// The height of the monitor alone says the same on one that begins at 0. Where it begins elsewhere that would bring
/// the panel up for good, or never, so the edge is what counts.
bool isAtLowerEdge(double y, Long margin = 0);

} // namespace tandrel
