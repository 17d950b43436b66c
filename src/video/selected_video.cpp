#include "video/selected_video.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "media/mod_media.h"
#include "media/shared_state.h"
#include "video/slots.h"

namespace tandrel
{

frmChild* selectedFile()
{
    frmChild* window = CurrentAlias.empty() ? nullptr : slotPlaying(CurrentAlias);
    return window && !window->hasFailed() ? window : nullptr;
}

bool selectedJumps() { return FastForward || FastRewind; }

void playSelected()
{
    if (CurrentAlias.empty())
        return;
    if (selectedJumps()) {
        FastForward = false;
        FastRewind = false;
        MediaSetVolume(frmMedia().VolumeSlider.Value);
        return;
    }
    frmChild* held = firstSlot([](const frmChild& slot) { return slot.plays(CurrentAlias) && slot.Paused == 1; });
    if (!held)
        return;
    MediaSeek(frmMedia().SeekSlider.Value, 0);
    MediaSetVolume(held->Volume);
    held->Paused = 0;
}

void pauseSelected()
{
    if (CurrentAlias.empty())
        return;
    MediaPause();
    if (frmChild* window = slotPlaying(CurrentAlias))
        window->Paused = 1;
}

} // namespace tandrel
