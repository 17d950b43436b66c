/// The state that all windows share. Handlers and ticks read and write these names directly, on the one user-interface
/// thread.
#pragma once

#include "toolkit/text.h"
#include "toolkit/types.h"

#include <memory>
#include <vector>

namespace tandrel
{

class frmChild;

/// The slot table: one element is one file video, from index 0. An element may be empty or a dead window; a slot is
/// live while its window's `MediaFile`, trimmed, isn't empty.
using SlotTable = std::vector<std::shared_ptr<frmChild>>;
extern SlotTable VideoWindows;

/// Opens since the last full reset, and the index that the next file video takes. Never below 0.
extern Long NextSlot;

/// The alias of the selected video (its path in double quotes), empty, or "No Media Selected". The target of all
/// commands of the media layer that take no alias.
extern Text CurrentAlias;

/// The alias of the video that is full screen, or of the one that a pending play is for.
extern Text FullMedia;

/// The most videos open at once.
extern Integer MaxVideos;

/// Playback runs.
extern bool Playing;

/// A medium has been started; hot keys do nothing until then.
extern bool MediaStarted;

/// The jump that `Timer3` carries on with. `FastForward` wins if both are set.
extern bool FastForward;
extern bool FastRewind;

/// A video fills the screen; the screen saver is off meanwhile.
extern bool FullScreenOn;

/// The full-screen panel is up or in use.
extern bool PanelUp;

/// A menu or settings form of full screen is up, and keeps the panel from showing.
extern bool FullMenuOpen;

/// A Matroska or HD window is loaded.
extern bool MkvOpen;

/// A DVD window is loaded; the transport goes to it.
extern bool DVDMode;

/// Display size of the selected video, 50 to 300 per cent.
extern Integer SizePercent;

/// What a volume slider says when all is as loud as it gets; 0 is silence. The one that stands upside down says the
/// rest of it.
inline constexpr int kLoudest = 100;
/// The level last set from a slider or the wheel, 0 to `kLoudest`.
extern Integer VolumeLevel;

/// Length in ms of the medium last measured, and the same in frames (kept, not read).
extern Long MediaLengthMs;
extern Long MediaFrames;

/// Position in ms at the last reading.
extern Long CurrentPosMs;

/// Picture size in pixels of the medium last asked.
extern Long NativeWidth;
extern Long NativeHeight;

/// Left clicks counted on the picture, and 0 idle, 0.5 first click seen, 1.0 double click seen.
extern Long ClickCount;
extern double ClickState;

/// The console was minimised with its videos; its next resize brings them back.
extern bool ResizePending;

/// The video window's rectangle in twips before it went full screen.
extern Long SavedTop;
extern Long SavedLeft;
extern Long SavedHeight;
extern Long SavedWidth;

/// Title of the console and of every message, and the digits of the version in it as one number.
extern Text AppTitle;
extern Long AppVersion;

/// Two-letter code of the language in use.
extern Text Language;

/// Upper-cased name of the system's version.
extern Text WindowsVersion;

/// Path of the codec module found, and the last place of its settings forms.
extern Text FFDShowPath;
extern Long FFDShowLeft;
extern Long FFDShowTop;

/// What `CurrentAlias` and the title say when the last window has gone.
inline constexpr const char* kNoMedia = "No Media Selected";

/// All names back to their values at the start of the program.
void resetSharedState();

} // namespace tandrel
