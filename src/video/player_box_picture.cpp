// Where the media player control shows its picture, and what the user does on it.

#include "desktop/screen_saver.h"
#include "toolkit/press.h"
#include "toolkit/screen.h"
#include "video/disc_input.h"
#include "video/player_box.h"
#include "video/player_screen.h"
#include "video/track_menu.h"

#include <algorithm>
#include <utility>

namespace tandrel
{

namespace
{

constexpr double kJumpSeconds = 10;

} // namespace

PixelRect PlayerBox::seenPart() const
{
    const Long formWidth = owner_.hasTitleBar() ? owner_.width() - Form::kFrameWidth : owner_.width();
    const Long formHeight = owner_.hasTitleBar() ? owner_.height() - Form::kFrameHeight : owner_.height();
    const Long seenWidth = std::min<int>(width(), formWidth);
    const Long seenHeight = std::min<int>(height(), formHeight);
    return {0, 0, std::max<int>(0, pixelsX(seenWidth)), std::max<int>(0, pixelsY(seenHeight))};
}

void PlayerBox::layOut()
{
    bar.place({0, height() - PlayerBar::kHeight, width(), PlayerBar::kHeight});
    const PixelRect seen = seenPart();
    lblTrouble.placeIn(seen.width() * screen().TwipsPerPixelX(), seen.height() * screen().TwipsPerPixelY());
    showPicture();
}

void PlayerBox::showPicture()
{
    if (!player_)
        return;
    if (screen_)
        player_->showIn(screen_->picScreen.hWnd(), screen_->pictureRect());
    else
        player_->showIn(hWnd(), seenPart());
}

void PlayerBox::setMode(Text mode)
{
    mode_ = std::move(mode);
    bar.picBar.Visible = mode_ == "full";
}

void PlayerBox::setFullScreen(bool on)
{
    if (!on) {
        leaveScreen();
        return;
    }
    if (!medium().isLoaded())
        throw RuntimeError(error::kInvalidCall, "Nothing to show yet");
    if (screen_)
        return;
    screen_ = newForm<PlayerScreen>();
    screen_->attachTo(*this, owner_);
    screen_->Show();
    showPicture();
}

void PlayerBox::leaveScreen()
{
    if (!screen_)
        return;
    const auto ending = std::exchange(screen_, nullptr);
    showPicture();
    // One of its own handlers may have led here, and then it ends behind that: by then this box may be gone.
    ending->detach();
    ending->Hide();
    unload(*ending);
    // The saver has been held off for the time that the picture fills the screen.
    ScreenSaverSwitch(true);
    if (owner_.isLoaded() && owner_.visible())
        owner_.SetFocus();
}

void PlayerBox::bringScreenUp()
{
    if (screen_)
        screen_->SetFocus();
}

bool PlayerBox::takeKey(Key key)
{
    if (key == Key::Escape && screen_) {
        leaveScreen();
        return true;
    }
    if (!player_ || !player_->isLoaded())
        return false;
    if (disc_ && sendMenuKey(*disc_, key))
        return true;
    switch (key) {
    case Key::Space:
        standsStill() ? player_->play() : player_->pause();
        return true;
    case Key::Left:
    case Key::Right:
        player_->seek(std::max(0.0, player_->position() + (key == Key::Right ? kJumpSeconds : -kJumpSeconds)));
        return true;
    default:
        return false;
    }
}

void PlayerBox::pointAt(const MouseEvent& event)
{
    if (disc_)
        pointInMenu(*disc_, event);
}

void PlayerBox::press(const MouseEvent& event)
{
    const bool asksForTracks = screen_ != nullptr || (event.shift & shift::kControl) != 0;
    if (event.button == mouse::kRight && asksForTracks) {
        spendPress(MouseButton::Right);
        chooseTracks();
    } else if (disc_) {
        pressInMenu(*disc_, event);
    }
}

void PlayerBox::chooseTracks()
{
    if (!player_)
        return;
    Form& form = screen_ ? static_cast<Form&>(*screen_) : owner_;
    popUpTracks(form, player_->tracks(), [this](MediaTrack::Kind kind, int id) {
        if (player_)
            player_->chooseTrack(kind, id);
    });
}

} // namespace tandrel
