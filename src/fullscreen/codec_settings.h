/// The settings of the codecs for picture and sound, in a program of their own: finding it, and who may ask for it.
#pragma once

#include "toolkit/text.h"

namespace tandrel
{

enum class CodecPage { Audio, Video };
/// The console's buttons, or the menu over a full picture.
enum class CodecCaller { Console, Menu };

/// Looks for the codec's module, and brings its settings up: over the selected video where there is one of a kind that
/// has such settings, else by themselves, which the menu never does. Says so where none is found, or where the video is
/// of another kind. With a disc its own settings are restored instead; a button does nothing during a jump.
void showCodecSettings(CodecPage page, CodecCaller caller);

/// The command line that brings up the page of the module found last.
Text codecCommand(CodecPage page);

} // namespace tandrel
