/// Where discs may be on this machine. All of this may block for as long as a drive does.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tandrel
{

/// Something that can stand for a drive.
struct FoundDrive {
    enum class Kind { Device, File, Folder };
    Kind kind = Kind::File;
    /// Absolute, without marks.
    std::string path;
    friend bool operator==(const FoundDrive&, const FoundDrive&) = default;
};

/// Where to look.
struct DriveSearch {
    /// The kernel's list of the optical drives.
    std::string drivesFile = "/proc/sys/dev/cdrom/info";
    std::string mountsFile = "/proc/self/mounts";
    std::string devicesFolder = "/dev";
    /// Paths of images and folders, between colons.
    std::string discs = {};
};

/// Optical drives by their names; mounted volumes of video discs that are in none of these; what `discs` names, whether
/// it is there or not. Each path comes once.
std::vector<FoundDrive> findDrives(const DriveSearch& search);

/// The names of the drives in the kernel's list, in order.
std::vector<std::string> drivesIn(const std::string& list);

struct Mount {
    std::string device;
    std::string folder;
    std::string type;
    friend bool operator==(const Mount&, const Mount&) = default;
};
/// The entries of the kernel's list of mounts; its octal escapes are undone.
std::vector<Mount> mountsIn(const std::string& list);

/// A folder or an image by its path, which is made absolute. What isn't there counts as an image.
FoundDrive standIn(const std::string& path);

/// The folder is a VIDEO_TS, or holds one, in capitals or not.
bool holdsVideo(const std::string& folder);

/// A device: it holds a disc, which has been spun up. A file: something is in it. A folder: it is there.
bool isReadable(const FoundDrive& drive);

} // namespace tandrel
