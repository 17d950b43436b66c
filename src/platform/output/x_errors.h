/// Errors of the X server in the connections of Xlib, which the output of libmpv uses.
#pragma once

namespace tandrel
{

/// From here on an error of the X server, such as a window that has gone, never ends the process. This holds even where
/// a library puts the default handler back. A lost connection to the server ends the process at once.
void keepXErrorsHarmless();

} // namespace tandrel
