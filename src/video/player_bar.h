/// The media player control's own bar: play and pause, place, time, and the way into full screen and out of it.
#pragma once

#include "toolkit/form.h"

namespace tandrel
{

class PlayerBox;

/// Its controls lie in `container`, a control of `form`, or in the form itself. Lengths are twips.
class PlayerBar
{
public:
    PlayerBar(Form& form, Control* container, PlayerBox& player);
    /// It knows the player no more.
    void detach() { player_ = nullptr; }
    PlayerBar(const PlayerBar&) = delete;

    /// Low enough for the least that a form hides of its control.
    static constexpr int kHeight = 900;

    void place(const TwipsRect& at);
    /// Shows where the medium is; called now and then.
    void follow();

    PictureBox picBar;
    Image imgToggle;
    Slider sldPlace;
    Label lblTimes;
    Image imgScreen;

private:
    void toggle();
    void changeScreen();
    void seek();

    PlayerBox* player_;
    /// The slider moves because the medium does.
    bool following_ = false;
};

} // namespace tandrel
