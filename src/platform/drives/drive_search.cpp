#include "platform/drives/drive_search.h"

#include <algorithm>
#include <cctype>
#include <climits>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <linux/cdrom.h>
#include <sstream>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tandrel
{

namespace
{
namespace fs = std::filesystem;

std::string contentOf(const std::string& path)
{
    std::ostringstream content;
    content << std::ifstream(path, std::ios::binary).rdbuf();
    return content.str();
}

/// The same for all paths that lead to one device.
std::string trueName(const std::string& path)
{
    std::error_code problem;
    const fs::path name = fs::canonical(path, problem);
    return problem ? path : name.string();
}

bool isOctal(char letter) { return letter >= '0' && letter <= '7'; }

std::string withoutEscapes(const std::string& text)
{
    std::string result;
    for (std::size_t place = 0; place < text.size(); ++place) {
        const bool escape = text[place] == '\\' && place + 3 < text.size() && isOctal(text[place + 1]) &&
                            isOctal(text[place + 2]) && isOctal(text[place + 3]);
        if (!escape) {
            result += text[place];
            continue;
        }
        result +=
            static_cast<char>((text[place + 1] - '0') * 64 + (text[place + 2] - '0') * 8 + (text[place + 3] - '0'));
        place += 3;
    }
    return result;
}

bool isVideoFolderName(std::string name)
{
    for (char& letter : name)
        letter = static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
    return name == "VIDEO_TS";
}

/// The kernel's word on a drive. Opened so that a drive without a disc opens too, and its tray stays where it is.
bool holdsDisc(const std::string& device)
{
    const int drive = ::open(device.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (drive < 0)
        return false;
    const int state = ::ioctl(drive, CDROM_DRIVE_STATUS, CDSL_CURRENT);
    // Some drives can't tell whether there is a disc, but what is on it.
    const int content = state == CDS_NO_INFO ? ::ioctl(drive, CDROM_DISC_STATUS, CDSL_CURRENT) : CDS_NO_DISC;
    ::close(drive);
    return state == CDS_DISC_OK || content >= CDS_AUDIO;
}
} // namespace

std::vector<std::string> drivesIn(const std::string& list)
{
    constexpr std::string_view kHeading = "drive name:";
    std::vector<std::string> names;
    std::istringstream lines(list);
    for (std::string line; std::getline(lines, line);) {
        if (!line.starts_with(kHeading))
            continue;
        std::istringstream words(line.substr(kHeading.size()));
        for (std::string name; words >> name;)
            names.push_back(name);
    }
    // The kernel lists the newest first.
    std::sort(names.begin(), names.end());
    return names;
}

std::vector<Mount> mountsIn(const std::string& list)
{
    std::vector<Mount> mounts;
    std::istringstream lines(list);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        Mount mount;
        if (words >> mount.device >> mount.folder >> mount.type)
            mounts.push_back({withoutEscapes(mount.device), withoutEscapes(mount.folder), mount.type});
    }
    return mounts;
}

FoundDrive standIn(const std::string& path)
{
    std::error_code problem;
    std::string absolute = fs::absolute(path, problem).lexically_normal().string();
    if (problem)
        absolute = path;
    if (absolute.size() > 1 && absolute.ends_with('/'))
        absolute.pop_back();
    const bool folder = fs::is_directory(absolute, problem);
    return {folder ? FoundDrive::Kind::Folder : FoundDrive::Kind::File, absolute};
}

bool holdsVideo(const std::string& folder)
{
    std::error_code problem;
    if (isVideoFolderName(fs::path(folder).filename().string()))
        return fs::is_directory(folder, problem);
    for (const auto& entry : fs::directory_iterator(folder, problem))
        if (isVideoFolderName(entry.path().filename().string()) && entry.is_directory(problem))
            return true;
    return false;
}

std::vector<FoundDrive> findDrives(const DriveSearch& search)
{
    std::vector<FoundDrive> found;
    std::vector<std::string> devices;
    const auto add = [&](FoundDrive drive) {
        if (std::none_of(found.begin(), found.end(), [&](const FoundDrive& one) { return one.path == drive.path; }))
            found.push_back(std::move(drive));
    };
    for (const std::string& name : drivesIn(contentOf(search.drivesFile))) {
        const std::string path = search.devicesFolder + "/" + name;
        devices.push_back(trueName(path));
        add({FoundDrive::Kind::Device, path});
    }
    for (const Mount& mount : mountsIn(contentOf(search.mountsFile))) {
        const bool disc = mount.type == "iso9660" || mount.type == "udf";
        const bool listed = std::find(devices.begin(), devices.end(), trueName(mount.device)) != devices.end();
        if (disc && !listed && holdsVideo(mount.folder))
            add({FoundDrive::Kind::Folder, mount.folder});
    }
    std::istringstream discs(search.discs);
    for (std::string path; std::getline(discs, path, ':');)
        if (!path.empty())
            add(standIn(path));
    return found;
}

bool isReadable(const FoundDrive& drive)
{
    if (drive.kind == FoundDrive::Kind::Device)
        return holdsDisc(drive.path);
    // An image may have become a folder since, or the other way round.
    struct stat facts = {};
    if (stat(drive.path.c_str(), &facts) != 0)
        return false;
    if (S_ISDIR(facts.st_mode))
        return access(drive.path.c_str(), R_OK | X_OK) == 0;
    return S_ISREG(facts.st_mode) && facts.st_size > 0 && access(drive.path.c_str(), R_OK) == 0;
}

} // namespace tandrel
