/// Windows on the media player control: that of HD films, and that of discs on newer systems.
#pragma once

#include "desktop/foreign_windows.h"
#include "video/player_box.h"
#include "video/video_form.h"

namespace tandrel
{

class PlayerWindow : public VideoForm, public ForeignWindows
{
public:
    PlayerBox picDVD{*this, "picDVD", {0, 0, 11820, 6375}};

protected:
    PlayerWindow(Text name, Text caption);

    void onActivate() override;
    void onResize() override;
    void onUnload() override;
    /// The console knows this window as the one of its kind, and no newer one.
    virtual bool isTheOne() const = 0;
    /// It knows none from here on.
    virtual void forgetIt() = 0;

    /// The panel of full screen goes out of sight when the window becomes the active one.
    virtual bool dropsPanel(bool rightIsDown) const = 0;
    /// The last thing that an activation does.
    virtual void startPlaying() {}

private:
    void becomeActive();
};

} // namespace tandrel
