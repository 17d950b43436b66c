/// What the windows of videos have in common: they can fill the screen.
#pragma once

#include "desktop/window_style.h"
#include "toolkit/form.h"

namespace tandrel
{

class VideoWindow : public Form
{
public:
    using Form::Form;

    /// This window is the full-screen one.
    bool Full = false;

    clsStyle Style;

    /// The box that the picture is in.
    virtual PictureBox& pictureBox() = 0;
    /// The close box and the strips that it is sized by.
    virtual void showStrips(bool on) = 0;

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
};

/// The window that fills the screen, of a file or of the disc on the video control; or null.
VideoWindow* fullWindow();

/// The rectangle of the console's monitor in pixels.
PixelRect consoleMonitor();

} // namespace tandrel
