// The wheel over a video window: its volume in full screen, else its size.

#include "console/frm_media.h"
#include "console/holders.h"
#include "fullscreen/frm_panel.h"
#include "media/mod_media.h"
#include "video/frm_child.h"

#include <algorithm>

namespace tandrel
{

namespace
{
constexpr int kVolumeStep = 5;
constexpr int kStripMs = 2000;
} // namespace

void frmChild::MouseWheel(Long, Long rotation, Long, Long)
{
    if (Full)
        wheelVolume(rotation);
    else
        wheelSize(rotation);
}

void frmChild::wheelVolume(Long rotation)
{
    class frmMedia& console = frmMedia();
    Timer1.Enabled = false;
    Timer1.Interval = 0;
    if (rotation > 0)
        console.InvertSlider.Value = console.InvertSlider.Value() - kVolumeStep;
    else if (rotation < 0)
        console.InvertSlider.Value = console.InvertSlider.Value() + kVolumeStep;
    console.VolumeSlider.Value = 100 - console.InvertSlider.Value();
    const Long level = console.VolumeSlider.Value;
    if (!trim(CurrentAlias).empty() && !hasFailed())
        MediaSetVolume(level);
    VolumeLevel = level;
    Volume = level;
    showVolumeStrip();
}

void frmChild::showVolumeStrip()
{
    frmMedia().VolumeTipOn = true;
    lblVolume.Caption = "VOLUME" + Text(static_cast<std::size_t>(std::max<int>(0, Volume)), '|');
    Picture1.Width = lblVolume.Width();
    Picture1.Visible = true;
    Timer1.Enabled = true;
    Timer1.Interval = kStripMs;
    Picture1.ZOrder();
    Picture1.Refresh();
}

void frmChild::Timer1_Timer()
{
    Picture1.Visible = false;
    Timer1.Interval = 0;
    Timer1.Enabled = false;
    frmMedia().VolumeTipOn = false;
    if (!Loaded<class frmPanel>() || !frmPanel().standsUp())
        SetFocus();
}

} // namespace tandrel
