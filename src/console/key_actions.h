/// What keys do that have no button of their own.
#pragma once

namespace tandrel
{

/// A video covers the screen.
bool fillsScreen();

/// The selected medium is held, or goes on.
void playOrPause(int);
/// By a page of the slider: -1 back, 1 on. Nothing happens at either end.
void jumpByKey(int direction);
/// -1 quieter, 1 louder.
void volumeByKey(int direction);
/// The video before (-1) or behind (1) the selected one.
void goToNeighbour(int direction);
/// The video of this slot, from 1, in front and with the focus.
void bringForwardByKey(int number);
/// The selected video fills the screen.
void turnFullScreen(int);
void leaveFullScreenByKey(int);
/// The list of all keys.
void listKeys(int);

} // namespace tandrel
