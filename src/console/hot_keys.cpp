#include "console/hot_keys.h"

#include "console/holders.h"
#include "desktop/screen_saver.h"
#include "media/mod_media.h"
#include "media/shared_state.h"
#include "toolkit/screen.h"

namespace tandrel
{

namespace
{

constexpr std::array<HotKeyRow, hot_key::kCount> kTable{{
    {hot_key::kSizeUp, "Ctrl+Alt+Shift+B", "frmHelp.keySizeUp"},
    {hot_key::kSizeDown, "Ctrl+Alt+Shift+S", "frmHelp.keySizeDown"},
    // The play behind the change ends full screen at once, so that what is left of it is that the video goes on.
    {hot_key::kFullScreen, "Ctrl+Alt+Shift+C", "frmHelp.keyContinue"},
    {hot_key::kPlayPause, "Ctrl+Alt+Shift+P", "frmHelp.keyPlayPause"},
    {hot_key::kStop, "Ctrl+Alt+Shift+X", "frmHelp.keyStop"},
    {hot_key::kVolumeDown, "Ctrl+Alt+Shift+D", "frmHelp.keyQuieter"},
    {hot_key::kVolumeUp, "Ctrl+Alt+Shift+U", "frmHelp.keyLouder"},
}};

constexpr int kVolumeStep = 10;

} // namespace

const std::array<HotKeyRow, hot_key::kCount>& hotKeyTable() { return kTable; }

bool isHotKeyOurs(int id) { return services().hotKeys->holds(id); }

void frmMedia::takeHotKeys()
{
    HotKeys& keys = *services().hotKeys;
    keys.pressed = [this](int id) {
        waitingKeys_.push_back(id);
        runWaitingKeys();
    };
    for (const HotKeyRow& row : kTable)
        keys.take(row.id, row.combination);
}

void frmMedia::runWaitingKeys()
{
    // A key may come while a long command shows its notice: it waits for a tick behind that, like a key in a queue.
    while (!waitingKeys_.empty() && screen().MousePointer() != pointer::kHourglass && !ClosingDown) {
        const int id = waitingKeys_.front();
        waitingKeys_.erase(waitingKeys_.begin());
        run([this, id] { hotKey(id); });
        followEndOfFullScreen();
    }
}

void frmMedia::hotKey(int id)
{
    if (!MediaStarted)
        return;
    switch (id) {
    case hot_key::kSizeUp:
        return hotKeySize(1);
    case hot_key::kSizeDown:
        return hotKeySize(-1);
    case hot_key::kFullScreen:
        return hotKeyFullScreen();
    case hot_key::kPlayPause:
        return hotKeyPlayPause();
    case hot_key::kStop:
        return stopSelected();
    case hot_key::kVolumeDown:
        return hotKeyVolume(-kVolumeStep);
    case hot_key::kVolumeUp:
        return hotKeyVolume(kVolumeStep);
    default:
        return;
    }
}

void frmMedia::hotKeySize(int direction)
{
    if (!FullScreenOn)
        stepSize(direction);
}

void frmMedia::hotKeyFullScreen()
{
    ScreenSaverSwitch(FullScreenOn);
    FullScreenOn = !FullScreenOn;
    MediaPlay();
}

void frmMedia::hotKeyPlayPause()
{
    if (Playing)
        MediaPause();
    else
        MediaPlay();
    Playing = !Playing;
}

void frmMedia::stopSelected()
{
    Timer1.Enabled = false;
    lblCurTime.Caption = "0:00:00";
    SeekSlider.Value = 0;
    MediaSeek(0, 1);
    MediaPause();
    cmdMedia[command::kPause]->Enabled = false;
    cmdMedia[command::kPlay]->Enabled = true;
    Playing = false;
}

void frmMedia::hotKeyVolume(int step)
{
    if (step < 0 ? VolumeLevel <= 0 : VolumeLevel >= kLoudest)
        return;
    VolumeLevel = std::max(0, std::min(kLoudest, static_cast<int>(VolumeLevel) + step));
    MediaSetVolume(VolumeLevel);
    VolumeSlider.Value = VolumeLevel;
    // The other view of the same level.
    InvertSlider.Value = kLoudest - VolumeLevel;
}

} // namespace tandrel
