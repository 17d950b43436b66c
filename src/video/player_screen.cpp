#include "video/player_screen.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "console/key_commands.h"
#include "toolkit/activation.h"
#include "toolkit/screen.h"
#include "video/player_box.h"
#include "video/video_window.h"

namespace tandrel
{

namespace
{

/// The monitor that holds most of the form, else that of the console.
PixelRect monitorOf(const Form& form)
{
    const std::int32_t handle = services().monitors->fromRect(form.pixelRect());
    const auto facts = handle != 0 ? services().monitors->facts(handle) : std::nullopt;
    return facts ? facts->bounds : consoleMonitor();
}

} // namespace

PlayerScreen::PlayerScreen() : Form("PlayerScreen", Frame::Bare, {0, 0, 4800, 3600})
{
    picScreen.dark = true;
    tmrIdle.Tick = [this] { hideBar(); };
}

void PlayerScreen::attachTo(PlayerBox& player, const VideoForm& owner)
{
    player_ = &player;
    monitor_ = monitorOf(owner);
    Caption = owner.Caption;
    bar = std::make_unique<PlayerBar>(*this, nullptr, player);
    wirePicture();
    DropFiles = [](const std::vector<Text>& paths) { frmMedia().openDropped(paths); };
    KeyDown = [this](Key key) { return player_ && player_->takeKey(key); };
    Shortcut = &pressKey;
    MenuKey = [this] {
        if (player_)
            player_->chooseTracks();
    };
}

void PlayerScreen::detach()
{
    player_ = nullptr;
    bar->detach();
    tmrIdle.Enabled = false;
}

void PlayerScreen::wirePicture()
{
    picScreen.MouseMove = [this](const MouseEvent& event) { pointerMoved(event); };
    picScreen.MouseDown = [this](const MouseEvent& event) {
        if (player_)
            player_->press(event);
    };
    picScreen.DblClick = [this] {
        if (player_)
            player_->fullScreen = false;
    };
}

void PlayerScreen::onLoad()
{
    movePixels(monitor_);
    setFullScreen(true);
    bar->picBar.Visible = false;
}

void PlayerScreen::onResize()
{
    picScreen.move({0, 0, width(), height()});
    if (bar)
        bar->place({0, height() - PlayerBar::kHeight, width(), PlayerBar::kHeight});
}

PixelRect PlayerScreen::pictureRect() const { return {0, 0, monitor_.width(), monitor_.height()}; }

void PlayerScreen::pointerMoved(const MouseEvent& event)
{
    if (!player_)
        return;
    player_->pointAt(event);
    // A window that comes up under the pointer is told of it without a move.
    const PixelPoint now = services().pointer->position();
    if (now == pointer_)
        return;
    pointer_ = now;
    showBar();
}

void PlayerScreen::showBar()
{
    services().pointer->showCursor(true);
    if (!bar->picBar.visible()) {
        bar->picBar.Visible = true;
        bar->picBar.ZOrder();
        bar->follow();
    }
    tmrIdle.Enabled = false;
    tmrIdle.Enabled = true;
}

void PlayerScreen::hideBar()
{
    tmrIdle.Enabled = false;
    if (bar)
        bar->picBar.Visible = false;
    // Beside the picture it stays: nothing there would bring it back.
    if (activeForm() == this && monitor_.contains(services().pointer->position()))
        services().pointer->showCursor(false);
}

void PlayerScreen::onActivate()
{
    pointer_ = services().pointer->position();
    hideBar();
}

void PlayerScreen::onDeactivate() { services().pointer->showCursor(true); }

void PlayerScreen::onQueryUnload()
{
    if (player_ && player_->isFullScreen())
        player_->fullScreen = false;
}

void PlayerScreen::onUnload()
{
    detach();
    services().pointer->showCursor(true);
}

} // namespace tandrel
