// The strips at the edges of a video window, which it is sized by, and its close box.

#include "console/frm_media.h"
#include "console/holders.h"
#include "toolkit/screen.h"
#include "video/video_window.h"

namespace tandrel
{

namespace
{

// The strips are thinner than a pointer can hit with ease, so that the outermost pixels of the window count as theirs
// too.
constexpr int kHitPixels = 6;
constexpr int kCornerTwips = 255;

void holdStrip(int strip) { frmMedia().DragHandle = strip; }

/// A move of the pointer while the left button is held.
void followPointer(const MouseEvent& event)
{
    if (event.left())
        frmMedia().followDrag();
}

void wireStrip(PictureBox& box, int strip, int shape, int buttons)
{
    box.pointerShape = shape;
    box.MouseDown = [strip, buttons](const MouseEvent& event) {
        if ((event.button & buttons) != 0)
            holdStrip(strip);
    };
    box.MouseMove = [strip](const MouseEvent& event) {
        if (event.left())
            holdStrip(strip);
        followPointer(event);
    };
    box.MouseUp = [](const MouseEvent&) { holdStrip(drag::kNone); };
}

} // namespace

void VideoWindow::wireStrips(int buttons)
{
    const SizeStrips all = strips();
    wireStrip(all.picVRes, drag::kCorner, pointer::kSizeDiagonal, buttons);
    wireStrip(all.picHRes, drag::kCorner, pointer::kSizeDiagonal, buttons);
    wireStrip(all.picBottom, drag::kBottom, pointer::kSizeVertical, buttons);
    wireStrip(all.picSide, drag::kSide, pointer::kSizeHorizontal, buttons);
    all.imgExit.ToolTip = "Close";
    showsPress(all.imgExit);
    all.imgExit.Click = [this] { unload(*this); };

    MouseDown = [this](const MouseEvent& event) { pressAtEdge(event); };
    MouseMove = &followPointer;
    MouseUp = [](const MouseEvent&) { holdStrip(drag::kNone); };
}

void VideoWindow::wireEdges(PictureBox& picture)
{
    picture.MouseDown = MouseDown;
    picture.MouseMove = MouseMove;
    picture.MouseUp = MouseUp;
}

void VideoWindow::pressAtEdge(const MouseEvent& event)
{
    if (const int strip = stripAt(event.x, event.y); strip != drag::kNone)
        holdStrip(strip);
}

int VideoWindow::stripAt(double x, double y) const
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

void VideoWindow::showStrips(bool on)
{
    const SizeStrips all = strips();
    for (PictureBox* box : {&all.picClose, &all.picVRes, &all.picHRes, &all.picBottom, &all.picSide})
        box->Visible = on;
    if (!on)
        return;
    for (PictureBox* box : {&all.picClose, &all.picVRes, &all.picHRes})
        box->ZOrder();
}

void VideoWindow::placeStrips(const Control& picture)
{
    const SizeStrips all = strips();
    const Long width = picture.width();
    const Long height = picture.height();
    const auto put = [](PictureBox& box, Long left, Long top) {
        box.move({left, top, box.width(), box.height()});
        box.ZOrder();
    };
    put(all.picClose, width - 300, all.picClose.top());
    put(all.picVRes, width - 50, height - all.picVRes.height() + 75);
    put(all.picHRes, width - all.picHRes.width() + 75, height - all.picHRes.height() + 90);
    all.picBottom.move({0, height - all.picBottom.height(), width, all.picBottom.height()});
    all.picSide.move({width - all.picSide.width(), 0, all.picSide.width(), height});
}

} // namespace tandrel
