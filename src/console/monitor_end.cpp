// The end of a file video: it begins again, hands over to the next one, or goes on with its second disc.

#include "console/frm_media.h"
#include "console/holders.h"
#include "media/mod_media.h"
#include "media/shared_state.h"
#include "toolkit/screen.h"
#include "video/slots.h"

namespace tandrel
{

namespace
{

constexpr int kMoveOnTicks = 10;
constexpr int kReplayTicks = 20;
constexpr int kLastReplayTicks = 30;
constexpr int kOutOfSight = -25000;
constexpr int kNudge = 15;
constexpr const char* kFirstDisc = "CD1";

/// Removes the first entry that stands for the file: its path, or its bare name.
void removeEntry(ListBox& list, const Text& path)
{
    for (Long index = 0; index < list.ListCount(); index += 1) {
        if (sameMedium(list.List(index), path)) {
            list.RemoveItem(index);
            return;
        }
    }
}

} // namespace

void frmMedia::followEnd()
{
    lblCurTime.Caption = "0:00:00";
    showTitleOf(mediaTitle());
    SeekSlider.Value = 0;
    lblDuration.Caption = durationCaption(MediaGetLength());
    if (upper(CurrentAlias).find(kFirstDisc) != Text::npos)
        playSecondDisc();
    else if (EndTicks <= kReplayTicks)
        countEnd();
    else if (EndTicks < kLastReplayTicks && SlideMode != "1")
        MediaReplay();
}

void frmMedia::countEnd()
{
    if (SlideMode == "1" && EndTicks >= kMoveOnTicks)
        playNext();
    else
        EndTicks += 1;
}

int frmMedia::slotBehindSelected() const
{
    for (std::size_t index = 0; index < VideoWindows.size(); ++index) {
        if (!VideoWindows[index] || !VideoWindows[index]->plays(CurrentAlias))
            continue;
        if (List2.ListCount() <= 1)
            return -1;
        return index + 1 == VideoWindows.size() ? 0 : static_cast<int>(index + 1);
    }
    return -1;
}

void frmMedia::playNext()
{
    if (FullScreenOn || WindowDragged)
        return;
    const int first = slotBehindSelected();
    if (first < 0)
        return;
    for (auto index = static_cast<std::size_t>(first); index < VideoWindows.size(); ++index) {
        const auto next = VideoWindows[index];
        // Nothing can be handed over to one that can't be played.
        if (!next || !next->isLive() || next->hasFailed())
            continue;
        MediaSeek(0, 1);
        CurrentAlias = next->MediaFile;
        next->Paused = 1;
        SlideShow();
        return;
    }
}

void frmMedia::playSecondDisc()
{
    const Text path = withoutQuotes(CurrentAlias);
    const auto found = upper(path).find(kFirstDisc);
    if (found == Text::npos)
        return;
    const Text next = path.substr(0, found + 2) + "2" + path.substr(found + 3);
    if (services().files->dir(next).empty())
        return;
    frmChild* window = slotPlaying(CurrentAlias);
    if (window && List2.ListCount() == 1)
        changeDisc(*window, next);
}

void frmMedia::changeDisc(frmChild& window, const Text& path)
{
    PictureBox& picture = window.picVideo;
    picture.Visible = false;
    FullPicture = picture.place();
    picture.Top = kOutOfSight;
    const Text old = window.path();
    removeEntry(List2, old);
    removeEntry(List1, old);
    List2.AddItem(path);
    picture.Refresh();
    picture.Height = window.height();
    picture.Width = window.width();
    const bool opened = openDisc(window, path);
    window.Height = window.height() - kNudge;
    if (FullScreenOn) {
        nameFullWindow(window, path);
    } else {
        window.Caption = "§" + path;
        SetFocus();
    }
    picture.Refresh();
    picture.Visible = opened;
}

void frmMedia::nameFullWindow(frmChild& window, const Text& path)
{
    FullMedia = CurrentAlias;
    window.Style.Titlebar = true;
    window.Style.Border = true;
    window.Caption = "§" + path;
    window.Style.Titlebar = false;
    window.Style.Border = false;
    window.picVideo.BorderStyle = 0;
    RefitTicks = 1;
}

bool frmMedia::openDisc(frmChild& window, const Text& path)
{
    const Alias next = quoted(path);
    MediaClose(CurrentAlias);
    const bool opened = MediaOpenAlias(next, window.picVideo.hWnd()) == 0;
    MediaResume(next, window.Paused, Integer(window.Volume));
    CurrentAlias = next;
    showTitleOf(fileNameOf(path));
    lblDuration.Caption = durationCaption(MediaGetLength());
    window.Duration = lblDuration.Caption;
    window.MediaFile = next;
    if (!opened)
        window.markFailed();
    return opened;
}

} // namespace tandrel
