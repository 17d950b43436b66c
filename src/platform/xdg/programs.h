/// Programs among files.
#pragma once

#include <string>

namespace tandrel
{

/// True for a file that this user may run. The path is that of the file system, without marks.
bool isProgram(const std::string& path);

} // namespace tandrel
