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

/// The file of the keys, which the user writes: in $TANDREL_HOME, else in the folder tandrel-player of
/// $XDG_CONFIG_HOME.
std::string keyFileName();

/// The user's folders for what programs share with the desktop, and for its settings.
struct DesktopFolders {
    std::string share;
    std::string config;
};

/// $XDG_DATA_HOME and $XDG_CONFIG_HOME; with $TANDREL_HOME, or for a program that keeps its data beside it, the folders
/// `share` and `config` of the data folder, where no desktop looks. None of them is made here.
DesktopFolders desktopFolders(const std::string& programFolder);

/// Where small pictures of videos are kept: cache/stills in $TANDREL_HOME, or in the data folder of a program that
/// keeps its data beside it; else in $XDG_CACHE_HOME/tandrel-player. Not made here.
std::string stillsFolder(const std::string& programFolder);

/// A path for the files that tell live processes of one data folder from each other.
std::string runtimeFolder(const std::string& dataFolder);

} // namespace tandrel
