/// What "play" and "pause" mean over a full picture, for the selected file video.
#pragma once

namespace tandrel
{

/// Ends a jump; without one, lets the selected video go on from where `SeekSlider` stands, if it is held. Nothing
/// happens without a selected one.
void playSelected();

/// Holds the selected video; nothing happens without one.
void pauseSelected();

} // namespace tandrel
