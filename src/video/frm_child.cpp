#include "video/frm_child.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "desktop/wheel.h"
#include "media/mod_media.h"
#include "toolkit/screen.h"
#include "video/slots.h"

namespace tandrel
{

namespace
{

// The strips at the edges are thinner than a pointer can hit with ease, so that the outermost pixels of the window
// count as theirs too.
constexpr int kHitPixels = 6;
constexpr int kCornerTwips = 255;

} // namespace

frmChild::frmChild() : VideoWindow("frmChild", Frame::Video, {0, 0, 4810, 4505})
{
    picVideo.dark = true;
    lblError.alignment = Alignment::Centre;
    lblError.role = TextRole::Quiet;
    lblVolume.autoSize = true;
    picVRes.pointerShape = picHRes.pointerShape = pointer::kSizeDiagonal;
    picBottom.pointerShape = pointer::kSizeVertical;
    picSide.pointerShape = pointer::kSizeHorizontal;
    Picture1.Visible = false;
    showStrips(false);
    imgExit.ToolTip = "Close";
    wireControls();
}

void frmChild::wireControls()
{
    picVideo.Resize = [this] { picVideo_Resize(); };
    showsPress(imgExit);
    imgExit.Click = [this] { unload(*this); };
    Timer1.Tick = [this] { Timer1_Timer(); };
    DropFiles = [](const std::vector<Text>& paths) { frmMedia().openDropped(paths); };

    const auto wireStrip = [this](PictureBox& box, int strip) {
        box.MouseDown = [this, strip](const MouseEvent&) { holdStrip(strip); };
        box.MouseMove = [this, strip](const MouseEvent& event) {
            if (event.left())
                holdStrip(strip);
            followPointer(event);
        };
        box.MouseUp = [this](const MouseEvent&) { holdStrip(drag::kNone); };
    };
    wireStrip(picVRes, drag::kCorner);
    wireStrip(picHRes, drag::kCorner);
    wireStrip(picBottom, drag::kBottom);
    wireStrip(picSide, drag::kSide);

    const auto pressAtEdge = [this](const MouseEvent& event) {
        if (const int strip = stripAt(event.x, event.y); strip != drag::kNone)
            holdStrip(strip);
    };
    picVideo.MouseDown = pressAtEdge;
    MouseDown = pressAtEdge;
    picVideo.MouseMove = MouseMove = [this](const MouseEvent& event) { followPointer(event); };
    picVideo.MouseUp = [this](const MouseEvent&) { holdStrip(drag::kNone); };
    MouseUp = [this](const MouseEvent&) { holdStrip(drag::kNone); };
}

void frmChild::onLoad()
{
    Style.Client = this;
    WheelHookInstall(hWnd());
    Volume = frmMedia().VolumeSlider.Value;
    Paused = 0;
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
}

bool frmChild::hasFailed() const { return trim(tag()) == "2"; }

Text frmChild::path() const { return fromSecondCharacter(caption()); }

bool frmChild::isLive() const { return !trim(MediaFile).empty(); }

bool frmChild::plays(const Text& alias) const { return isLive() && trim(MediaFile) == alias; }

void frmChild::holdStrip(int strip) { frmMedia().DragHandle = strip; }

void frmChild::followPointer(const MouseEvent& event)
{
    if (event.left())
        frmMedia().followDrag();
}

int frmChild::stripAt(double x, double y) const
{
    if (Full || y < 0)
        return drag::kNone;
    const double right = width() - kFrameWidth - x;
    const double bottom = height() - kFrameHeight - y;
    const double zoneX = kHitPixels * screen().TwipsPerPixelX();
    const double zoneY = kHitPixels * screen().TwipsPerPixelY();
    const bool side = right <= zoneX;
    const bool lower = bottom <= zoneY;
    if ((side && bottom <= kCornerTwips) || (lower && right <= kCornerTwips))
        return drag::kCorner;
    if (lower)
        return drag::kBottom;
    return side ? drag::kSide : drag::kNone;
}

void frmChild::onResize()
{
    if (!Style.Titlebar()) {
        frmMedia().TitleOff = true;
        picVideo.move({0, 0, width(), height()});
    } else if (!Full) {
        picVideo.move({0, 0, width() - kFrameWidth, height() - kFrameHeight});
    }
    placeStrips();
}

void frmChild::placeStrips()
{
    picClose.Left = picVideo.Width() - 300;
    picClose.ZOrder();
    picVRes.move({picVideo.Width() - 50, picVideo.Height() - picVRes.Height() + 75, picVRes.Width(), picVRes.Height()});
    picVRes.ZOrder();
    picHRes.move({picVideo.Width() - picHRes.Width() + 75, picVideo.Height() - picHRes.Height() + 90, picHRes.Width(),
                  picHRes.Height()});
    picHRes.ZOrder();
    picBottom.move({0, picVideo.Height() - picBottom.Height(), picVideo.Width(), picBottom.Height()});
    picSide.move({picVideo.Width() - picSide.Width(), 0, picSide.Width(), picVideo.Height()});
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
