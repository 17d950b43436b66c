/// Reads a disc with libdvdread, in the process that calls.
#pragma once

#include "platform/disc/disc_look.h"

#include <string>

namespace tandrel
{

/// Reads all that a player would read before it plays: where that breaks down or never ends, so does this. For a
/// process of its own (disc_look.h). No titles where there is no video disc.
DiscLook readDisc(const std::string& path);

} // namespace tandrel
