#include "video/other_media.h"

#include "desktop/system_facts.h"
#include "media/shared_state.h"

namespace tandrel
{

MediaKind mediaKind()
{
    if (DVDMode)
        return isOlderSystem(WindowsVersion) ? MediaKind::DiscOnVideoControl : MediaKind::DiscOnPlayer;
    return MkvOpen ? MediaKind::Hd : MediaKind::Files;
}

OtherMedia& otherMedia()
{
    static OtherMedia windows;
    return windows;
}

} // namespace tandrel
