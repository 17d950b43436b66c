/// The choice of sound and subtitles of a medium.
#pragma once

#include "platform/players.h"
#include "toolkit/form.h"

#include <functional>
#include <vector>

namespace tandrel
{

/// Pops up at the pointer a menu of `tracks` that `form` owns, and hands on what the user chooses. Nothing comes up
/// where there is nothing to choose.
void popUpTracks(Form& form, const std::vector<MediaTrack>& tracks,
                 const std::function<void(MediaTrack::Kind kind, int id)>& choose);

} // namespace tandrel
