/// The window of one file video: a slot of the table.
#pragma once

#include "video/video_window.h"

namespace tandrel
{

class frmChild : public VideoWindow
{
public:
    frmChild();

    /// Place in ms that the console keeps for the slot.
    Long CurrPos;
    /// The list of open entries holds one of this window's own, which goes with it.
    bool Listed = true;

    Label lblError{*this, "lblError", {0, 1800, 4710, 420}, "Video not Available"};
    PictureBox picVideo{*this, "picVideo", {0, 0, 4710, 4105}};
    PictureBox picBottom{*this, "picBottom", {0, 4080, 4710, 25}};
    PictureBox picSide{*this, "picSide", {4680, 0, 25, 4080}};
    PictureBox picHRes{*this, "picHRes", {4440, 4020, 255, 135}};
    PictureBox picVRes{*this, "picVRes", {4610, 3840, 135, 255}};
    PictureBox picClose{*this, "picClose", {4320, 25, 255, 255}};
    Image imgExit{*this, "imgExit", {0, 0, 255, 255}, "close", &picClose};
    PictureBox Picture1{*this, "Picture1", {240, 240, 2400, 330}};
    Label lblVolume{*this, "lblVolume", {0, 0, 2400, 330}, "VOLUME", &Picture1};
    Timer Timer1{*this, "Timer1", 2000, false};

    /// A turn of the wheel: the volume in full screen, else the size of the window. Only the sign of `rotation` counts.
    void MouseWheel(Long keys, Long rotation, Long x, Long y) override;

    /// `MediaWidth` and `MediaHeigth` from the device; both stay where its answer can't be read.
    void ReadMediaSize();

    PictureBox& pictureBox() override { return picVideo; }
    SizeStrips strips() override { return {picClose, picVRes, picHRes, picBottom, picSide, imgExit}; }

    /// The open of its medium has failed: the tag says so, and "Video not Available" is seen.
    void markFailed();
    bool hasFailed() const;
    /// The path of its medium, from the caption.
    Text path() const;
    bool isLive() const;
    /// Its own alias is trimmed; the comparison is exact.
    bool plays(const Text& alias) const;

protected:
    void onLoad() override;
    void onActivate() override;
    void onDeactivate() override;
    void onResize() override;
    void onQueryUnload() override;
    void onUnload() override;

private:
    void selectThis();
    void goFullScreen();
    void endFullScreen();
    void layOut();
    void picVideo_Resize();
    void wheelVolume(Long rotation);
    void showVolumeStrip();
    void Timer1_Timer();
    void closeDevice();
};

} // namespace tandrel
