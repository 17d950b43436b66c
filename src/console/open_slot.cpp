// From a path to a video window.

#include "console/command_line.h"
#include "console/frm_media.h"
#include "console/holders.h"
#include "media/mod_media.h"
#include "media/shared_state.h"
#include "texts/localised.h"
#include "toolkit/screen.h"
#include "video/slots.h"

namespace tandrel
{

namespace
{

constexpr const char* kNoFiles = "\"(NO FILES SELECTED)\"";
constexpr int kInset = 400;
constexpr int kSingleWidth = 11820;
constexpr int kSingleHeight = 6375;

void putNativeSize()
{
    FixedPoint native;
    MediaPutWindow(native);
}

} // namespace

bool frmMedia::openPaused(const Text& path)
{
    return openInSlot(path, &MediaOpenPaused, upper(quoted(path)) == kNoFiles);
}

bool frmMedia::openRunning(const Text& path) { return openInSlot(path, &MediaOpen, trim(quoted(path)) == kNoFiles); }

bool frmMedia::openInSlot(const Text& path, Long (*open)(WindowHandle), bool saysNoFiles)
{
    CurrentAlias = quoted(path);
    frmChild& window = newSlot(path);
    if (open(window.picVideo.hWnd()) != 0) {
        if (saysNoFiles)
            lblTitleBar.Caption = kNoMedia;
        else
            window.markFailed();
        return false;
    }
    MediaGetSize();
    lblDuration.Caption = durationCaption(MediaGetLength());
    window.Duration = lblDuration.Caption;
    window.Height = NativeHeight;
    window.Width = NativeWidth;
    SeekSlider.Max = MediaLengthMs;
    putNativeSize();
    MediaSetVolume(VolumeSlider.Value);
    Playing = true;
    return true;
}

void frmMedia::openPathOfCommandLine()
{
    Unload<class frmStart>();
    lblSize.Caption = text(SizePercent) + " %";
    CurrentAlias = commandLine().text;
    const Text path = withoutQuotes(CurrentAlias);
    if (isHdPath(path) || isDiscPath(path)) {
        Unload<class frmWait>();
        if (isHdPath(path))
            return openHdFile(path);
        CurrentAlias.clear();
        return openDvd(path);
    }
    VideoWindows.clear();
    NextSlot = 0;
    frmChild& window = newSlot(path);
    const bool opened = MediaOpenPaused(window.picVideo.hWnd()) == 0;
    if (opened) {
        startSingle(window);
    } else {
        window.markFailed();
        // The window that stays can be filled to the screen, and has to come back from there.
        Timer1.Enabled = true;
        Timer2.Enabled = true;
    }
    window.Listed = opened;
    placeSingle(window, 0);
    window.Refresh();
    window.Show();
    if (!opened)
        backend().messageBox(localised("message.cannotPlay"), BoxStyle::Critical, AppTitle);
}

void frmMedia::startSingle(frmChild& window)
{
    MediaGetSize();
    lblDuration.Caption = durationCaption(MediaGetLength());
    SeekSlider.Max = MediaLengthMs;
    putNativeSize();
    MediaSetVolume(VolumeSlider.Value);
    Timer1.Enabled = true;
    Timer2.Enabled = true;
    Playing = true;
    MediaPlay();
    List1.AddItem(fileNameOf(window.path()));
    List2.AddItem(fileNameOf(window.path()));
    MediaGetSizeAlias(window.MediaFile);
    window.Duration = lblDuration.Caption;
}

void frmMedia::placeSingle(frmChild& window, Long extraWidth)
{
    const Long x = screen().TwipsPerPixelX();
    const Long y = screen().TwipsPerPixelY();
    window.Move({FullLeft + kInset, FullTop + kInset, (NativeWidth + extraWidth) * x, (NativeHeight + 25) * y});
    window.Height = kSingleHeight;
    window.Width = kSingleWidth;
}

void frmMedia::holdTimers(bool hold)
{
    for (Timer* timer : {&Timer1, &Timer2, &Timer3})
        timer->Enabled = !hold;
}

} // namespace tandrel
