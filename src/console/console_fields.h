/// The fields of the console that other forms read and write.
#pragma once

#include "toolkit/controls.h"

namespace tandrel
{

struct ConsoleFields {
    // The rectangle of the console's monitor in twips; all arrangements and full screen use it. 0 where none was found.
    Long FullTop;
    Long FullLeft;
    Long FullHeight;
    Long FullWidth;

    /// Which strip of a video window is held (namespace drag).
    Integer DragHandle;
    /// "0" PlayAll Mode, "1" PlayList Mode.
    Text SlideMode;
    /// The console was activated after the last video window.
    bool TrackHold = false;
    /// A video window was sized without its title bar.
    bool TitleOff = false;
    /// A DVD or Matroska window has gone to full screen.
    bool SaverOff = false;
    /// The volume strip of a video window is showing.
    bool VolumeTipOn = false;
    /// A video window was dragged, so that the layout of PlayList Mode no longer holds.
    bool WindowDragged = false;
    /// This process stands beside a running one, and takes no file of its own from the command line.
    bool SecondRun = false;
    /// The first start on this system.
    bool FirstRun = false;
    /// The end has begun.
    bool ClosingDown = false;
    /// Last result of `frmUpdate`.
    bool UpdateCancelled = false;
    /// The user's language, as it was at the load.
    Text LanguageCode;
    /// "0": the tip of PlayList Mode stays away.
    Text TipsOn;
    /// A stored opacity, 0 to 255. Setting it changes nothing by itself.
    Integer iTrans;
    /// The volume before mute; 0 while nothing is muted.
    Long SavedVolume;

    /// The selection as a text, from the file dialog or set before an opener is called (console/selection.h).
    Text SelectionText;
    /// No dialog comes up: `SelectionText` is taken as it stands, with whole paths instead of names.
    bool PresetSelection = false;
    /// The disc that the next window for discs plays, by its path; empty: the one in a drive.
    Text DiscWanted;
    /// The folder of the last choice, with its separator at the end; empty until there was one.
    Text LastFolder;
    /// The tip about full screen is still to be shown.
    bool FirstOpenTip = true;

    /// The files of the present open, in order, and the entries of the open videos.
    ListBox List1;
    ListBox List2;
};

} // namespace tandrel
