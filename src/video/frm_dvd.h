/// The window of a disc on the video control, for older systems.
#pragma once

#include "video/disc_box.h"
#include "video/video_window.h"

namespace tandrel
{

/// While it is loaded `DVDMode` holds, and the console talks to `oVidWebDVD` and `dvdPicture`.
class frmDVD : public VideoWindow
{
public:
    frmDVD();

    /// The disc in the built graph; null before that and without a disc.
    WebDvd* oVidWebDVD = nullptr;
    /// Through which the settings of the disc find the graph.
    WebDvdAdmin* DVDAdmin = nullptr;
    /// The number of titles of the disc; -1 where none was found.
    Long Titles;

    PictureBox picDVD{*this, "picDVD", {0, 0, 11805, 6400}};
    DiscBox dvdPicture{*this, "dvdPicture", {0, 0, 11805, 6400}, picDVD};
    PictureBox picSide{*this, "picSide", {11775, 0, 25, 6375}};
    PictureBox picBottom{*this, "picBottom", {0, 6375, 11805, 25}};
    PictureBox picHRes{*this, "picHRes", {11520, 6300, 255, 135}};
    PictureBox picVRes{*this, "picVRes", {11700, 6120, 135, 255}};
    PictureBox picClose{*this, "picClose", {11380, 25, 255, 255}};
    Image imgExit{*this, "imgExit", {0, 0, 225, 225}, "close", &picClose};

    /// Makes the captions for the deaf the active feature.
    void AddCC();
    /// Builds what plays the disc, unless it plays already. Returns `Titles`: 0 without a disc.
    Long BuildGraph();

    PictureBox& pictureBox() override { return picDVD; }
    SizeStrips strips() override { return {picClose, picVRes, picHRes, picBottom, picSide, imgExit}; }

protected:
    void onLoad() override;
    void onActivate() override;
    void onResize() override;
    void onUnload() override;

private:
    void wirePicture();
    void becomeActive();
    void goFullScreen();
    void startDisc();
    void askForDisc();
    void picDVD_Resize();

    /// The disc asked for by its path; empty: any.
    Text wanted_;
    /// The feature that `AddCC` has found.
    VideoFeature captions_;
    /// The message that asks for a disc is up, or has just gone.
    bool asked_ = false;
};

} // namespace tandrel
