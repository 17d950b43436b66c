/// The media that are not in the table of slots: an HD file and a disc, each in one window with a control of its own.
#pragma once

#include "platform/services.h"
#include "toolkit/types.h"

namespace tandrel
{

class Form;

/// What a command of the console goes to, in the order in which it is asked.
enum class MediaKind {
    /// A disc on the video control: `frmDVD`, on older systems.
    DiscOnVideoControl,
    /// A disc on the media player control: `frmDVD2`.
    DiscOnPlayer,
    /// An HD file: `frmMKV`.
    Hd,
    /// File videos in the table of slots.
    Files
};

/// By `DVDMode`, the system, and `MkvOpen`.
MediaKind mediaKind();

/// A loaded window and its control; both null while there is none.
template <class Control>
struct ControlWindow {
    Form* form = nullptr;
    Control* control = nullptr;
};

/// Each window puts itself here while it is loaded.
struct OtherMedia {
    ControlWindow<VideoControl> dvd;
    ControlWindow<MediaPlayerControl> dvd2;
    ControlWindow<MediaPlayerControl> mkv;
};
OtherMedia& otherMedia();

/// The control of a window. Raises run-time error 91 where the window isn't loaded.
template <class Control>
Control& controlOf(const ControlWindow<Control>& window)
{
    if (window.control == nullptr)
        throw RuntimeError(error::kNoObject, "Object variable not set");
    return *window.control;
}

} // namespace tandrel
