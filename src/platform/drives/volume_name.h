/// The name of a disc's volume, read from its descriptors alone.
#pragma once

#include <string>

namespace tandrel
{

/// Of an image or a device: as UDF names it, else as ISO 9660 does. Empty where neither does. UTF-8. Reads a few
/// sectors, and blocks as long as that takes.
std::string volumeNameOf(const std::string& path);

} // namespace tandrel
