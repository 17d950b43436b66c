/// Which ways out there are for sound on this machine.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace tandrel
{

/// libmpv's list of the sound outputs that could work here, or empty. `root` stands for "/".
std::string soundOutputs(const std::filesystem::path& root, const std::function<const char*(const char*)>& environment);

/// True if the folder can be read and something in it has such a name.
bool hasEntry(const std::filesystem::path& folder, std::string_view start, std::string_view end = "");

} // namespace tandrel
