/// The command strings: every operation on a file video is a short fixed sequence of them.
///
/// An alias is the path of the medium in double quotes, the quotes being part of it. Operations without an alias work
/// on `CurrentAlias`. Positions and lengths are milliseconds, levels 0 to 100. Results are those of the media service:
/// 0, or the number of an error; an error of a command whose result isn't asked for is ignored.
#pragma once

#include "media/fixed_point.h"
#include "media/shared_state.h"
#include "platform/services.h"

namespace tandrel
{

using Alias = Text;

/// Opens a device whose picture shows in `hWnd`. `NextSlot` rises, whatever the result.
Long MediaOpen(WindowHandle hWnd);
/// The same, paused on the first frame. The result is that of the pause.
Long MediaOpenPaused(WindowHandle hWnd);
/// The same as `MediaOpen` for another alias; `NextSlot` stays.
Long MediaOpenAlias(const Alias& alias, WindowHandle hWnd);

/// Plays on at normal speed. Where `FullScreenOn` is set it only ends that state, and during a jump only the jump.
void MediaPlay();
/// Goes on from where it stands; `flag` 1 leaves it paused. `level` is the volume, 16 bits: a product over 32767
/// raises run-time error 6.
void MediaResume(const Alias& alias, Long flag, Integer level);
/// From the start, playing.
void MediaReplay();
/// As `MediaResume`, from the start.
void MediaRestart(const Alias& alias, Long flag, Integer level);

/// One jump of a thousandth of the length, forward or back, without sound. At the end (forward), or at 1000 ms or less
/// (back), the jumps stop, paused.
void MediaFastForward();
void MediaFastRewind();
/// A press for a jump one way, `FastForward` or `FastRewind`: it ends a jump the other way, and is true then; otherwise
/// the jump begins, where a file is selected.
bool turnJump(bool& wanted, bool& opposite);

void MediaPause();
void MediaPauseAlias(const Alias& alias);
/// Paused, a quarter into the film: a picture that says more than the first.
void MediaSeekQuarter(const Alias& alias);
/// What these two send first, for whoever announces it.
Text pauseCommand(const Alias& alias);
Text stepCommand(const Alias& alias, Integer direction);
/// One frame on (`direction` 1) or back (any other), paused afterwards.
void MediaStep(const Alias& alias, Integer level, Integer direction);

void MediaCloseAll();
void MediaClose(const Alias& alias);

/// `NativeWidth` and `NativeHeight` from the device. Both keep their values where its answer can't be read.
void MediaGetSize();
void MediaGetSizeAlias(const Alias& alias);

/// The two sizes in an answer to "Where ... destination", or nothing.
struct PictureSize {
    Long width;
    Long height;
};
std::optional<PictureSize> pictureSize(std::string_view answer);

/// Places the picture in its window: native size for 0, else so many per cent of it. `percent` comes back divided by
/// 100, so a caller passes a fresh copy each time.
void MediaPutWindow(FixedPoint& percent);

/// The position, and `MediaLengthMs`; -1 if the length can't be read.
Long MediaGetPosition();
/// The position, 0 if it can't be read.
Long MediaGetPositionAlias(const Alias& alias);

/// To `ms`, and playing if `flag` is 0.
void MediaSeek(Long ms, Long flag);
/// To `ms` and playing, then paused if `flag` is 1.
void MediaSeekPlay(Long ms, Long flag);

/// The length as text; sets `MediaFrames` and `MediaLengthMs`.
Text MediaGetLength();

/// H:MM:SS, whole days dropped. `ms` comes back as whole seconds.
Text FormatTime(Long& ms);

/// 0 to `kLoudest`.
Long MediaSetVolume(Long level);
Long MediaSetVolumeAlias(const Alias& alias, Long level);

/// Hands a web page to the desktop's opener.
void ShellOpen(const Text& target);

/// One command as it stands, for the few places that send their own. Returns the service's result.
Long mciSend(const Text& command);
/// The same with the answer.
struct MciAnswer {
    Long result;
    Text text;
};
MciAnswer mciAsk(const Text& command);

} // namespace tandrel
