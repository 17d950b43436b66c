/// The media player control's own full screen.
#pragma once

#include "toolkit/form.h"
#include "video/player_bar.h"
#include "video/video_form.h"

#include <memory>

namespace tandrel
{

class PlayerBox;

/// Covers the monitor that the control's form is on, with the picture and, while the pointer moves, the control's bar.
/// A double click and Escape lead out of it, the right button and the menu key to the choice of sound and subtitles.
class PlayerScreen : public Form
{
public:
    PlayerScreen();

    PictureBox picScreen{*this, "picScreen", {0, 0, 1, 1}};
    std::unique_ptr<PlayerBar> bar;
    Timer tmrIdle{*this, "tmrIdle", 3000, false};

    /// Once, before it is shown.
    void attachTo(PlayerBox& player, const VideoForm& owner);
    /// It knows the control no more.
    void detach();
    /// Where the picture is drawn in `picScreen`, in pixels.
    PixelRect pictureRect() const;

protected:
    void onLoad() override;
    void onActivate() override;
    void onDeactivate() override;
    void onResize() override;
    void onUnload() override;
    void onQueryUnload() override;

private:
    void wirePicture();
    void pointerMoved(const MouseEvent& event);
    void showBar();
    void hideBar();

    PlayerBox* player_ = nullptr;
    PixelRect monitor_;
    PixelPoint pointer_;
};

} // namespace tandrel
