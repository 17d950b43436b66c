/// The drives for discs, found on this machine.
#pragma once

#include "platform/drives/drive_search.h"
#include "platform/players.h"

#include <chrono>
#include <functional>
#include <memory>

namespace tandrel
{

/// What the drives do with the machine. The functions may block; they run on threads of their own, which they may
/// outlive the drives on. Paths have no marks.
struct DriveMeans {
    std::function<std::vector<FoundDrive>()> find;
    std::function<bool(const FoundDrive&)> isReadable = &tandrel::isReadable;
    std::function<std::string(const std::string& path)> volumeName;
    std::function<DiscFacts(const std::string& path)> look;
    std::function<void(const std::string& device)> openTray;
    /// How long anything is waited for.
    std::chrono::milliseconds limit{2000};
};

/// Those of this machine, and what TANDREL_DISCS names. `look` looks at a disc, by its path without marks.
DriveMeans machineDrives(std::function<DiscFacts(const std::string& path)> look);

std::unique_ptr<DiscDrives> makeDiscDrives(DriveMeans means);

} // namespace tandrel
