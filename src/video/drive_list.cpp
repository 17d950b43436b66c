#include "video/drive_list.h"

#include "platform/players.h"

namespace tandrel
{

Long DriveList::count()
{
    count_ = services().drives->count();
    return count_;
}

Cdrom& DriveList::item(Long index)
{
    if (index < 0 || index >= count_)
        throw RuntimeError(error::kOutOfRange, "Subscript out of range");
    drive_.index = index;
    return drive_;
}

Text DriveList::Drive::driveSpecifier() const { return services().drives->driveSpecifier(index); }

Text DriveList::Drive::getItemInfo(const Text& name)
{
    if (name != "IsDeviceBusy")
        return {};
    return services().drives->isReady(index) ? "False" : "True";
}

void DriveList::Drive::eject() { services().drives->eject(index); }

} // namespace tandrel
