// Where the medium stands: times, seek slider, title. One step of `Timer1` for each kind of medium.

#include "console/frm_media.h"
#include "console/holders.h"
#include "fullscreen/frm_panel.h"
#include "media/mod_media.h"
#include "media/shared_state.h"
#include "toolkit/trap.h"
#include "video/other_media.h"
#include "video/slots.h"
#include "video/video_window.h"

#include <algorithm>
#include <cctype>

namespace tandrel
{

namespace
{

constexpr int kMinute = 60;
constexpr int kHour = 3600;
constexpr int kWidestTime = 7;
constexpr const char* kNoTime = "0:00:00";

/// Seconds of "HH:MM:SS:FF"; frames are dropped.
Long secondsOfDisc(const Text& time)
{
    const auto part = [&](std::size_t from) {
        return from < time.size() ? Long(numberAtFront(time.substr(from, 2))) : Long(0);
    };
    return part(0) * kHour + part(3) * kMinute + part(6);
}

/// The number in the last two characters; a separator among them stands for no figure.
Long lastTwo(std::string_view text)
{
    text.remove_prefix(text.size() - std::min<std::size_t>(2, text.size()));
    Text figures;
    std::copy_if(text.begin(), text.end(), std::back_inserter(figures),
                 [](unsigned char c) { return std::isdigit(c) != 0; });
    return Long(numberAtFront(figures));
}

/// Seconds of "SS", "MM:SS" or "HH:MM:SS", with any separator.
Long secondsOfPlayer(const Text& time)
{
    const std::string whole = "00.00.00." + time;
    const std::string_view all = whole;
    return lastTwo(all) + lastTwo(all.substr(0, all.size() - 3)) * kMinute +
           lastTwo(all.substr(0, all.size() - 6)) * kHour;
}

/// From the second character on, without the last three.
Text discCaption(const Text& time) { return time.size() < 4 ? Text() : time.substr(1, time.size() - 4); }

} // namespace

Text playerCaption(const Text& time)
{
    const Text trimmed = trim(time);
    return trimmed.size() > kWidestTime ? trimmed.substr(1) : time;
}

Text frmMedia::mediaTitle() const
{
    switch (mediaKind()) {
    case MediaKind::DiscOnVideoControl:
        // Only the marquee has a title for it.
        return {};
    case MediaKind::DiscOnPlayer:
        return otherMedia().dvd2.form ? otherMedia().dvd2.form->caption() : Text();
    case MediaKind::Hd:
        return controlOf(otherMedia().mkv).currentMedia().getItemInfo("Title");
    case MediaKind::Files:
        break;
    }
    return fileNameOf(withoutQuotes(CurrentAlias));
}

Text frmMedia::panelTitle() const
{
    return DVDMode ? Text("DVD:: \"Movie\"") : "File:: " + fileNameOf(withoutQuotes(CurrentAlias));
}

void frmMedia::Timer1_Timer()
{
    if (ClosingDown)
        return;
    switch (mediaKind()) {
    case MediaKind::DiscOnVideoControl:
        return followDisc();
    case MediaKind::DiscOnPlayer:
    case MediaKind::Hd:
        return followPlayer();
    case MediaKind::Files:
        return followFile();
    }
}

void frmMedia::followDisc()
{
    const auto& disc = otherMedia().dvd;
    ignoringErrors([&] { SeekSlider.Max = secondsOfDisc(controlOf(disc).InputActive().TotalTitleTime()); });
    ignoringErrors([&] { SeekSlider.Value = secondsOfDisc(controlOf(disc).InputActive().CurrentTime()); });
    ignoringErrors([this] { showDiscTime(); });
    ignoringErrors([&] { lblDuration.Caption = discCaption(controlOf(disc).InputActive().TotalTitleTime()); });
    showTimeOnPanel();
}

void frmMedia::showDiscTime()
{
    lblCurTime.Caption = discCaption(controlOf(otherMedia().dvd).InputActive().CurrentTime());
}

void frmMedia::followPlayer()
{
    const auto& player = *playerWindow();
    ignoringErrors([&] { SeekSlider.Max = secondsOfPlayer(controlOf(player).currentMedia().durationString()); });
    ignoringErrors([&] { SeekSlider.Value = secondsOfPlayer(controlOf(player).controls().currentPositionString()); });
    ignoringErrors([&] { lblCurTime.Caption = playerCaption(controlOf(player).controls().currentPositionString()); });
    ignoringErrors([&] { lblDuration.Caption = playerCaption(controlOf(player).currentMedia().durationString()); });
    if (!lblCurTime.caption().empty())
        ignoringErrors([this] { followTitle(titleFor(mediaTitle())); });
}

void frmMedia::followTitle(const Text& title)
{
    // Written at each tick it could not scroll.
    if (title == PolledTitle)
        return;
    PolledTitle = title;
    lblTitleBar.Caption = title;
}

void frmMedia::showTimeOnPanel()
{
    if (FullScreenOn && PanelUp)
        frmPanel().lblCurrent.Caption = lblCurTime.Caption;
}

void frmMedia::followFile()
{
    if (CurrentAlias.empty() || selectedHasFailed())
        return;
    CurrentPosMs = MediaGetPosition();
    if (MediaLengthMs > 0)
        SeekSlider.Max = MediaLengthMs;
    if (CurrentPosMs < MediaLengthMs)
        followRunning();
    else
        followEnd();
}

bool frmMedia::selectedHasFailed() const
{
    const frmChild* window = slotPlaying(CurrentAlias);
    return window && window->hasFailed();
}

void frmMedia::followRunning()
{
    SeekSlider.Value = CurrentPosMs;
    Long shown = CurrentPosMs;
    lblCurTime.Caption = FormatTime(shown);
    showTimeOnPanel();
    if (titleIsIdle())
        lblTitleBar.Caption = " [ " + mediaTitle() + " ] ";
    if (!lblTitleBar.caption().empty() && lblDuration.caption() != kNoTime)
        return;
    lblDuration.Caption = durationCaption(MediaGetLength());
    if (titleSaysNoMedia())
        lblTitleBar.Caption = kNoMedia;
    else
        showTitleOf(mediaTitle());
}

bool frmMedia::titleIsIdle() const
{
    return titleSaysNoMedia() || upper(lblTitleBar.caption()).find("OPEN FILES") != Text::npos;
}

} // namespace tandrel
