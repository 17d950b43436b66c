/// Pictures of several videos side by side.
#pragma once

#include "platform/services.h"

#include <functional>
#include <string>
#include <vector>

namespace tandrel
{

/// One picture of the sheet.
struct SheetEntry {
    Still picture;
    /// Both are UTF-8.
    std::string name;
    std::string time;
};

/// An entry that keeps no more of the picture than a sheet shows: twelve large ones would take a gigabyte until the
/// last is read. Where there is no memory for it the entry has no picture. For any thread, once there is an application
/// object.
SheetEntry sheetEntry(const Still& picture, std::string name, std::string time);

/// A sheet of all of them as a PNG file, in as many columns as the grid of videos has: at most 3840 pixels wide and of
/// at least one entry. For any thread, once there is an application object. Empty if there is no memory for it, and
/// when `refuses` says so on the way.
std::string contactSheet(const std::vector<SheetEntry>& entries, const std::function<bool()>& refuses);

/// A single picture as a PNG file.
std::string pngOf(const Still& picture);

} // namespace tandrel
