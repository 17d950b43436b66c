/// What the windows of all kinds of video have in common: one public shape, so that one can stand in for another.
#pragma once

#include "desktop/window_style.h"
#include "toolkit/form.h"

namespace tandrel
{

class VideoForm : public Form
{
public:
    using Form::Form;

    /// What plays in it: the alias of a file video (empty means a dead slot), the path of an HD film, a disc's label.
    Text MediaFile;
    /// Size of the picture in pixels.
    Long MediaHeigth;
    Long MediaWidth;
    /// Level of this video, 0 to 100.
    Long Volume;
    /// This window is the full-screen one.
    bool Full = false;
    /// 1: the video is held, 0: it runs.
    Long Paused;
    /// The length as `lblDuration` shows it.
    Text Duration;

    clsStyle Style;

    /// A turn of the wheel makes the window a tenth larger or smaller; nothing happens in full screen. Only the sign of
    /// `rotation` counts.
    void MouseWheel(Long keys, Long rotation, Long x, Long y) override;

    /// Opens the tray of the disc drive.
    static void OpenDoor();

protected:
    /// The step up is rounded down, that down isn't.
    void wheelSize(Long rotation);
    /// What every window begins with: the style object has it, the wheel and the keys reach it.
    void takeHold();
    // What the windows outside the slot table have in common.

    /// The corner that it comes up at.
    void takeCorner();
    /// The first thing that an activation tells the console.
    static void takeConsole();
    /// The right button is down, and is to fill the screen. The control takes all mouse input for itself, so that a
    /// button which is down at an activation is how its right click is known; with the control key that asks for the
    /// sound and the subtitles.
    static bool rightButtonFills();
    /// What the console shows of speed and place begins anew.
    static void showBeginning();
    /// What the console shows of the medium goes with it.
    static void showNothing();
};

} // namespace tandrel
