/// The media that are not in the table of slots: an HD file and a disc, each in one window with a control of its own.
#pragma once

#include "toolkit/types.h"
#include "video/media_player_control.h"
#include "video/video_control.h"

namespace tandrel
{

class Form;
class VideoWindow;

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
/// There is something whose place a slider could change: a selected file, or what plays in a window of another kind.
bool somethingIsLoaded();

/// A loaded window and its control; both null while there is none.
template <class Control, class Window = Form>
struct ControlWindow {
    Window* form = nullptr;
    Control* control = nullptr;
};

/// Each window puts itself here while it is loaded.
struct OtherMedia {
    ControlWindow<VideoControl, VideoWindow> dvd;
    ControlWindow<MediaPlayerControl> dvd2;
    ControlWindow<MediaPlayerControl> mkv;
};
OtherMedia& otherMedia();

/// Lets go of what plays in them, before their windows go at the end of the program.
void closeOtherMedia();

/// The control of a window. Raises run-time error 91 where the window isn't loaded.
template <class Control, class Window>
Control& controlOf(const ControlWindow<Control, Window>& window)
{
    if (window.control == nullptr)
        throw RuntimeError(error::kNoObject, "Object variable not set");
    return *window.control;
}

/// The window on a media player control that commands go to now: that of a disc or of an HD film; else null.
ControlWindow<MediaPlayerControl>* playerWindow();

/// Commands that mean another thing on each kind of medium.
enum class Transport { Play, Pause, Forward, Rewind, Menu };

/// Gives a command to the disc or HD film that plays; one that refuses is left alone. False: it is for the file videos.
bool tellOtherMedia(Transport command);

/// Sends the disc or HD film that plays to a second from its beginning, in the same way.
bool seekOtherMedia(Long seconds);

} // namespace tandrel
