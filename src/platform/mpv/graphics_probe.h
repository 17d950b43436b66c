/// What draws OpenGL on the display of this process.
#pragma once

#include <string>

namespace tandrel
{

/// The name of the renderer, or empty where there is none. A driver that crashes or hangs does that in a process of its
/// own; blocks for 3 s at most.
std::string probeRenderer();

} // namespace tandrel
