/// Walks over the slot table, and what they share.
#pragma once

#include "media/mod_media.h"
#include "media/shared_state.h"
#include "video/frm_child.h"

#include <functional>

namespace tandrel
{

/// Calls `visit` with each slot in the order of the table, dead ones too: what is sent to an empty alias fails without
/// effect. Walks a copy, so that a slot may end or come meanwhile.
void forEachSlot(const std::function<void(frmChild&)>& visit);
/// The same with live slots only.
void forEachLive(const std::function<void(frmChild&)>& visit);

/// The same, without those whose medium can't be played: they are sent no command.
void forEachPlayable(const std::function<void(frmChild&)>& visit);

/// The first slot for which `wanted` holds, or null.
frmChild* firstSlot(const std::function<bool(const frmChild&)>& wanted);

/// The first live slot that plays `alias`, or null. Its own alias is trimmed; the comparison is exact.
frmChild* slotPlaying(const Alias& alias);

/// The number of live slots, by a fresh scan.
Long liveCount();

/// True if an entry of `List2` stands for the medium at `path`. A path equals a path; a bare file name equals the file
/// name of a path.
bool sameMedium(const Text& entry, const Text& path);

/// Removes the entry of `List2` that is the path, else the first that stands for the medium. False if there is none.
bool dropOpenEntry(const Text& path);

/// Empties the `MediaFile` of every live slot whose open failed, and drops its entry of `List2`. Returns how many there
/// were.
Long sweepFailedSlots();

/// Ends the windows of failed slots before a new open. `NextSlot` falls by one for each, but not below 0.
void dropFailedSlots();

/// A new window at index `NextSlot`: what stood there is replaced, and the table ends with it.
frmChild& newSlot(const Text& path);

/// Makes windows ahead, one by one while nothing else is to be done, so that there is one for every video that still
/// has room: a window takes longer to make than to show.
void keepSpareWindows();

/// Lets go of them, which the end of all forms has ended.
void forgetSpareWindows();

/// " [ name ] " and 50 blanks: the title of the console.
Text titleFor(const Text& name);

/// Writes that title for a file name or a path.
void showTitleOf(const Text& path);

} // namespace tandrel
