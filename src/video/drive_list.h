/// The drives for discs as the media player control lists them.
#pragma once

#include "video/media_player_control.h"

namespace tandrel
{

class DriveList : public CdromCollection
{
public:
    Long count() override;
    Cdrom& item(Long index) override;

private:
    class Drive : public Cdrom
    {
    public:
        Text driveSpecifier() const override;
        Text getItemInfo(const Text& name) override;
        void eject() override;
        int index = 0;
    };
    Long count_;
    Drive drive_;
};

} // namespace tandrel
