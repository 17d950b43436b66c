/// The window of one file video: a slot of the table.
#pragma once

#include "video/video_window.h"

namespace tandrel
{

/// Which strip of a video window is held.
namespace drag
{
inline constexpr int kNone = 0;
inline constexpr int kCorner = 1;
inline constexpr int kBottom = 2;
inline constexpr int kSide = 3;
} // namespace drag

class frmChild : public VideoWindow
{
public:
    frmChild();

    /// Place in ms that the console keeps for the slot.
    Long CurrPos;
    /// The alias; empty means a dead slot.
    Text MediaFile;
    /// 1: the video is held, 0: it runs.
    Long Paused;
    /// Size of the picture in pixels.
    Long MediaHeigth;
    Long MediaWidth;
    /// Level of this video, 0 to 100.
    Long Volume;
    /// The list of open entries holds one of this window's own, which goes with it.
    bool Listed = true;
    /// The length as `lblDuration` shows it.
    Text Duration;

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
    void showStrips(bool on) override;

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
    void wireControls();
    void selectThis();
    void goFullScreen();
    void endFullScreen();
    void placeStrips();
    void picVideo_Resize();
    void wheelVolume(Long rotation);
    void wheelSize(Long rotation);
    void showVolumeStrip();
    void Timer1_Timer();
    void holdStrip(int strip);
    /// A move of the pointer while the left button is held.
    void followPointer(const MouseEvent& event);
    int stripAt(double x, double y) const;
    void closeDevice();
};

} // namespace tandrel
