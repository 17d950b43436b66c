/// The tray of a real drive, by the kernel's CD-ROM requests (linux/cdrom.h).
#pragma once

#include "platform/mci/mci_service.h"

namespace tandrel
{

class LinuxDriveDoor final : public DriveDoor
{
public:
    /// The first of `devices` that is a disc drive is the one.
    explicit LinuxDriveDoor(std::vector<std::string> devices = {"/dev/cdrom", "/dev/sr0"});
    /// Returns at once; the tray moves on a thread of its own, as that takes seconds.
    bool move(bool open) override;

private:
    std::vector<std::string> devices_;
};

} // namespace tandrel
