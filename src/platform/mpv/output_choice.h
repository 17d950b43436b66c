/// Which outputs of libmpv fit this machine.
#pragma once

#include "platform/mpv/mpv_handle.h"

#include <string>

namespace tandrel
{

/// Looks at the machine, which may take some 100 ms where it has a graphics card: for once at the start. The
/// environment variables TANDREL_VO and TANDREL_AO overrule the choice of the picture's and the sound's output. Without
/// `outputs`, both come to nothing.
HandleSettings chooseOutputs(bool outputs);

/// True if the text names a renderer of OpenGL that computes on the processor.
bool isSoftwareRenderer(const std::string& renderer);

} // namespace tandrel
