/// Windows of videos that fill the screen themselves: those of files, and that of the disc on the video control. They
/// are sized by strips at their edges.
#pragma once

#include "video/video_form.h"

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

/// The close box of such a window, and the strips that it is sized by.
struct SizeStrips {
    PictureBox& picClose;
    PictureBox& picVRes;
    PictureBox& picHRes;
    PictureBox& picBottom;
    PictureBox& picSide;
    Image& imgExit;
};

class VideoWindow : public VideoForm
{
public:
    using VideoForm::VideoForm;

    /// The box that the picture is in.
    virtual PictureBox& pictureBox() = 0;
    virtual SizeStrips strips() = 0;
    /// The close box and the strips that it is sized by.
    void showStrips(bool on);

    /// Fills the screen: keeps the present place, drops border, title and strips, covers `target` (pixels) and gets the
    /// focus. Where those numbers miss the console's monitor, the window is put right onto it afterwards.
    void fillScreen(const PixelRect& target);
    /// The same with the rectangle of the console's monitor.
    void fillScreen();
    /// Covers `target`, and the console's monitor where that is elsewhere; painted, in front, and in the full-screen
    /// state of the window system.
    void cover(const PixelRect& target);
    /// Title and border come back, and then the kept place. Neither shows nor activates the window.
    void returnFromScreen();

protected:
    /// What the user does on the close box, and with one of `buttons` (a sum of `mouse::`) on the strips. Once, when
    /// the window is made.
    void wireStrips(int buttons);
    /// The outermost pixels of `picture`, which fills the window, count as strips; behind `wireStrips`.
    void wireEdges(PictureBox& picture);
    void pressAtEdge(const MouseEvent& event);
    /// Puts close box and strips to the edges of the picture, in front of it.
    void placeStrips(const Control& picture);

private:
    int stripAt(double x, double y) const;
};

/// The window that fills the screen, of a file or of the disc on the video control; or null.
VideoWindow* fullWindow();

/// The rectangle of the console's monitor in pixels.
PixelRect consoleMonitor();

} // namespace tandrel
