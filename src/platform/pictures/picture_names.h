/// How files of pictures are named.
#pragma once

#include <string>
#include <string_view>

namespace tandrel
{

/// "Film 0-12-47.520": the name of a video's file without its ending, and the place in hours, minutes, seconds and
/// thousandths. Bytes stay as they are but for those that a file can't be named with or that are awkward there: control
/// characters become blanks, a dot at the beginning an underscore. At most 200 bytes, whole characters.
std::string pictureName(std::string_view videoPath, double seconds);

/// The same name without what some file systems refuse: FAT and NTFS know none of \ : * ? " < > and |.
std::string nameForAll(std::string name);

/// "0:12:47.520"
std::string pictureTime(double seconds);

/// "Contact sheet 2026-11-23 05-10-00", by the local time of so many seconds since 1970.
std::string sheetName(long long time);

/// The name of a path without its folders and its ending.
std::string titleOf(std::string_view path);

} // namespace tandrel
