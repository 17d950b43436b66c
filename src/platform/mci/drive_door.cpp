#include "platform/mci/drive_door.h"

#include <fcntl.h>
#include <linux/cdrom.h>
#include <sys/ioctl.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace tandrel
{

namespace
{

/// The open drive, or -1. Opened so that a drive without a disc opens too.
int openDrive(const std::string& device)
{
    const int drive = ::open(device.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (drive >= 0 && ::ioctl(drive, CDROM_GET_CAPABILITY, 0) >= 0)
        return drive;
    if (drive >= 0)
        ::close(drive);
    return -1;
}

void moveTray(int drive, bool open)
{
    if (open)
        ::ioctl(drive, CDROM_LOCKDOOR, 0);
    ::ioctl(drive, open ? CDROMEJECT : CDROMCLOSETRAY, 0);
    ::close(drive);
}

} // namespace

LinuxDriveDoor::LinuxDriveDoor(std::vector<std::string> devices) : devices_(std::move(devices)) {}

bool LinuxDriveDoor::move(bool open)
{
    for (const std::string& device : devices_) {
        const int drive = openDrive(device);
        if (drive < 0)
            continue;
        try {
            std::thread(&moveTray, drive, open).detach();
        } catch (const std::system_error&) {
            moveTray(drive, open);
        }
        return true;
    }
    return false;
}

} // namespace tandrel
