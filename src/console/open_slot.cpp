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
    if (isHdPath(path)) {
        openHdPathOfCommandLine(path);
        return;
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

void frmMedia::openHdPathOfCommandLine(const Text& path)
{
    List2.AddItem(fileNameOf(path));
    const bool opened = openHdFile(path);
    Timer1.Enabled = true;
    Timer2.Enabled = true;
    if (opened)
        return;
    placeSingle(*VideoWindows.back(), 0);
    VideoWindows.back()->Show();
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

bool frmMedia::openHdFile(const Text& path)
{
    // The HD window takes over here once it exists; until then such a file plays in a slot like any other.
    if (!openPaused(path))
        return false;
    placeSingle(*VideoWindows.back(), 0);
    VideoWindows.back()->Show();
    showTitleOf(path);
    MediaPlay();
    return true;
}

void frmMedia::openDvd()
{
    // The DVD windows take over here once they exist: `frmDVD` on an older system, else `frmDVD2`.
    Timer1.Enabled = true;
    Timer2.Enabled = true;
}

void frmMedia::endOtherMedia()
{
    // The HD and DVD windows end here, once they exist, before anything else is opened.
}

void frmMedia::holdTimers(bool hold)
{
    for (Timer* timer : {&Timer1, &Timer2, &Timer3})
        timer->Enabled = !hold;
}

} // namespace tandrel
