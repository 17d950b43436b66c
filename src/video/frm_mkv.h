/// The window of an HD film.
#pragma once

#include "video/player_window.h"

namespace tandrel
{

/// While it is loaded `MkvOpen` holds, and the console talks to its control. `MediaFile`, the path, is played when the
/// window becomes the active one for the first time; its caption is "HD|" and the path.
class frmMKV : public PlayerWindow
{
public:
    frmMKV() : PlayerWindow("frmMKV", "Video/MKV/HD") {}

    static constexpr const char* kCaptionMark = "HD|";

protected:
    void onLoad() override;
    void onQueryUnload() override;
    bool isTheOne() const override;
    void forgetIt() override;
    bool dropsPanel(bool rightIsDown) const override { return !rightIsDown; }
    void startPlaying() override;
};

} // namespace tandrel
