/// The desktop's folder for pictures.
#pragma once

#include <string>

namespace tandrel
{

/// $XDG_PICTURES_DIR as the file user-dirs.dirs of `config`, the user's folder for settings, has it (freedesktop.org,
/// xdg-user-dirs); ~/Pictures without it. Not made here, and without a closing separator.
std::string picturesFolder(const std::string& config, const std::string& home);

} // namespace tandrel
