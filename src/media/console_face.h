/// What the media layer needs of the console, without knowing the form.
#pragma once

#include "toolkit/text.h"
#include "toolkit/types.h"

namespace tandrel
{

class ConsoleFace
{
public:
    virtual ~ConsoleFace() = default;
    /// The caption of `lblSpeed`: "0x", "2x" or "-2x".
    virtual void showSpeed(const Text& caption) = 0;
    /// The value of `VolumeSlider`, 0 to 100.
    virtual Long volumeSlider() = 0;
};

/// The face in use; without one, speeds are shown nowhere and the level is 0.
ConsoleFace& consoleFace();
/// Null takes it away. The console sets itself at its load.
void installConsoleFace(ConsoleFace* face);

} // namespace tandrel
