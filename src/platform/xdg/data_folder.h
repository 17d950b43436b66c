/// Where the program keeps its data and settings.
#pragma once

#include <string>

namespace tandrel
{

/// $TANDREL_HOME, else the program's folder where a file `portable` lies in it, else $XDG_DATA_HOME/tandrel-player.
/// Made if it isn't there. Without a closing separator.
std::string dataFolder(const std::string& programFolder);

/// The file of the settings: in $TANDREL_HOME, else in $XDG_CONFIG_HOME (~/.config).
std::string settingsFile();

/// A path for the files that tell live processes of one data folder from each other.
std::string runtimeFolder(const std::string& dataFolder);

} // namespace tandrel
