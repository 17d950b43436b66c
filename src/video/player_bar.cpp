#include "video/player_bar.h"

#include "texts/localised.h"
#include "toolkit/press.h"
#include "toolkit/trap.h"
#include "video/player_box.h"

#include <algorithm>

namespace tandrel
{

namespace
{
constexpr int kMargin = 240;
constexpr int kTimesWidth = 2100;
constexpr int kButtonWidth = 540;
constexpr int kButtonHeight = 600;
constexpr int kButtonTop = (PlayerBar::kHeight - kButtonHeight) / 2;
constexpr int kSliderHeight = 300;

/// What is pressed on the bar is no click on the picture.
void wirePress(Image& image, std::function<void()> click)
{
    image.MouseDown = [](const MouseEvent& event) {
        if (event.left())
            spendPress(MouseButton::Left);
    };
    image.Click = std::move(click);
}
} // namespace

PlayerBar::PlayerBar(Form& form, Control* container, PlayerBox& player)
    : picBar(form, "picBar", {0, 0, 1, kHeight}, container),
      imgToggle(form, "imgToggle", {kMargin, kButtonTop, kButtonWidth, kButtonHeight}, "panel_play", &picBar),
      sldPlace(form, "sldPlace", {kMargin, 0, 1, kSliderHeight}, false, &picBar),
      lblTimes(form, "lblTimes", {kMargin, 0, kTimesWidth, kSliderHeight}, "", &picBar),
      imgScreen(form, "imgScreen", {kMargin, kButtonTop, kButtonWidth, kButtonHeight}, "panel_windowed_on", &picBar),
      player_(&player)
{
    // The keys are for the picture.
    sldPlace.takesKeys = false;
    sldPlace.Spoken = localised("spoken.place");
    lblTimes.role = TextRole::Value;
    lblTimes.alignment = Alignment::Right;
    imgToggle.ToolTip = "Play / Pause";
    imgScreen.ToolTip = "Full screen on/off";
    wirePress(imgToggle, [this] { toggle(); });
    wirePress(imgScreen, [this] { changeScreen(); });
    sldPlace.MouseDown = [](const MouseEvent&) { spendPress(MouseButton::Left); };
    sldPlace.Scroll = [this] { seek(); };
}

void PlayerBar::place(const TwipsRect& at)
{
    picBar.move(at);
    const Long right = at.width - kMargin;
    imgScreen.Left = right - kButtonWidth;
    lblTimes.Left = imgScreen.left() - kMargin - kTimesWidth;
    lblTimes.Top = (kHeight - lblTimes.height()) / 2;
    const Long from = imgToggle.left() + kButtonWidth + kMargin;
    sldPlace.move(
        {from, (kHeight - kSliderHeight) / 2, std::max<int>(1, lblTimes.left() - kMargin - from), kSliderHeight});
}

void PlayerBar::follow()
{
    if (!player_ || !picBar.visible())
        return;
    imgToggle.Picture = player_->standsStill() ? "panel_play" : "panel_pause";
    following_ = true;
    ignoringErrors([this] {
        sldPlace.Max = std::max(1.0, player_->duration());
        sldPlace.Value = player_->controls().currentPosition();
        lblTimes.Caption =
            player_->controls().currentPositionString() + " / " + player_->currentMedia().durationString();
    });
    following_ = false;
}

void PlayerBar::changeScreen()
{
    if (player_)
        ignoringErrors([this] { player_->fullScreen = !player_->fullScreen(); });
}

void PlayerBar::toggle()
{
    if (!player_)
        return;
    ignoringErrors([this] { player_->standsStill() ? player_->controls().play() : player_->controls().pause(); });
    follow();
}

void PlayerBar::seek()
{
    if (player_ && !following_)
        ignoringErrors([this] { player_->controls().setCurrentPosition(static_cast<double>(sldPlace.Value())); });
}

} // namespace tandrel
