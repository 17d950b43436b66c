/// The selected file video, and what "play" and "pause" mean for it over a full picture.
#pragma once

namespace tandrel
{

class frmChild;

/// The window of the selected file video; null where there is none, or where it can't be played.
frmChild* selectedFile();

/// A jump is under way.
bool selectedJumps();

/// Ends a jump; without one, lets the selected video go on from where `SeekSlider` stands, if it is held. Nothing
/// happens without a selected one.
void playSelected();

/// Holds the selected video; nothing happens without one.
void pauseSelected();

} // namespace tandrel
