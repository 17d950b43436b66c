#include "video/frm_child.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "desktop/wheel.h"
#include "media/mod_media.h"
#include "texts/localised.h"
#include "toolkit/screen.h"
#include "video/slots.h"

namespace tandrel
{

frmChild::frmChild() : VideoWindow("frmChild", Frame::Video, {0, 0, 4810, 4505})
{
    picVideo.dark = true;
    lblError.alignment = Alignment::Centre;
    lblError.role = TextRole::Quiet;
    // It lies behind the picture.
    lblError.silent = true;
    lblVolume.autoSize = true;
    Picture1.Visible = false;
    showStrips(false);
    wireStrips(mouse::kLeft | mouse::kRight | mouse::kMiddle);
    wireEdges(picVideo);
    picVideo.Resize = [this] { picVideo_Resize(); };
    Timer1.Tick = [this] { Timer1_Timer(); };
    DropFiles = [](const std::vector<Text>& paths) { frmMedia().openDropped(paths); };
}

void frmChild::onLoad()
{
    takeHold();
    Volume = frmMedia().VolumeSlider.Value;
    Paused = 0;
    picVideo.Spoken = localised("spoken.picture");
}

void frmChild::ReadMediaSize()
{
    if (const auto size = pictureSize(mciAsk("Where " + MediaFile + " destination").text)) {
        MediaWidth = size->width;
        MediaHeigth = size->height;
    }
}

void frmChild::markFailed()
{
    Tag = "2";
    picVideo.Visible = false;
    lblError.silent = false;
}

bool frmChild::hasFailed() const { return trim(tag()) == "2"; }

Text frmChild::path() const { return fromSecondCharacter(caption()); }

bool frmChild::isLive() const { return !trim(MediaFile).empty(); }

bool frmChild::plays(const Text& alias) const { return isLive() && trim(MediaFile) == alias; }

void frmChild::onResize()
{
    if (!Style.Titlebar()) {
        frmMedia().TitleOff = true;
        picVideo.move({0, 0, width(), height()});
    } else if (!Full) {
        picVideo.move({0, 0, width() - kFrameWidth, height() - kFrameHeight});
    }
    layOut();
}

void frmChild::layOut()
{
    placeStrips(picVideo);
    lblError.move({0, (picVideo.Height() - lblError.Height()) / 2, picVideo.Width(), lblError.Height()});
}

void frmChild::picVideo_Resize()
{
    MediaHeigth = pixelsY(picVideo.Height());
    MediaWidth = pixelsX(picVideo.Width());
    // A window whose open failed, or whose medium is gone, is never sent a command.
    if (isLive() && !hasFailed())
        mciSend("put " + MediaFile + " window at 0 0 " + text(MediaWidth) + " " + text(MediaHeigth));
}

void frmChild::onQueryUnload()
{
    if (trim(tag()).empty())
        closeDevice();
    else if (isLive() && Listed)
        dropOpenEntry(path());
    MediaFile.clear();
}

void frmChild::closeDevice()
{
    mciSend("Close " + MediaFile);
    if (!Listed || dropOpenEntry(path()))
        MediaClose(MediaFile);
}

void frmChild::onUnload()
{
    if (Full)
        endFullScreen();
    class frmMedia& console = frmMedia();
    if (console.List2.ListCount() == 0 && !console.ClosingDown) {
        Hide();
        CurrentAlias = kNoMedia;
        console.lblTitleBar.Caption = kNoMedia;
        console.lblDuration.Caption = "0:00:00";
    }
    WheelHookRemove(hWnd());
    console.lblDuration.Caption = "0:00:00";
    console.lblTitleBar.Caption = "";
    console.SetFocus();
}

} // namespace tandrel
