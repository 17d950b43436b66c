#include "video/other_media.h"

#include "desktop/system_facts.h"
#include "media/shared_state.h"
#include "toolkit/trap.h"

#include <array>
#include <cstdio>

namespace tandrel
{

namespace
{

using Player = MediaPlayerControl;

void restart(Player& player)
{
    std::string url;
    ignoringErrors([&] { url = player.URL; });
    ignoringErrors([&] { player.close(); });
    ignoringErrors([&] { player.URL = url; });
}

/// What a command does by the kind of medium.
struct TransportRow {
    void (*onDiscOnVideoControl)(VideoControl& control);
    void (*onDiscOnPlayer)(Player& control);
    void (*onHd)(Player& control);
};

/// In the order of `Transport`.
constexpr std::array<TransportRow, 5> kRows{{
    {[](VideoControl& disc) { disc.Run(); }, [](Player& disc) { disc.dvd().resume(); },
     [](Player& film) { film.controls().play(); }},
    {[](VideoControl& disc) { disc.Pause(); }, [](Player& disc) { disc.controls().pause(); },
     [](Player& film) { film.controls().pause(); }},
    {[](VideoControl& disc) { disc.InputActive().PlayNextChapter(); },
     [](Player& disc) { disc.controls().fastForward(); }, [](Player& film) { film.controls().fastForward(); }},
    {[](VideoControl& disc) { disc.InputActive().PlayPrevChapter(); },
     [](Player& disc) { disc.controls().fastReverse(); }, [](Player& film) { film.controls().fastReverse(); }},
    {[](VideoControl& disc) { disc.InputActive().ShowMenu(disc_menu::kRoot); },
     [](Player& disc) { disc.dvd().topMenu(); }, &restart},
}};

/// So many seconds as a time of day, "HH:MM:SS". They are counted in 16 bits: more raise run-time error 6.
Text clockText(Integer seconds)
{
    const int all = seconds;
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%02d:%02d:%02d", all / 3600, all / 60 % 60, all % 60);
    return text.data();
}

} // namespace

MediaKind mediaKind()
{
    if (DVDMode)
        return isOlderSystem(WindowsVersion) ? MediaKind::DiscOnVideoControl : MediaKind::DiscOnPlayer;
    return MkvOpen ? MediaKind::Hd : MediaKind::Files;
}

bool somethingIsLoaded() { return DVDMode || MkvOpen || !CurrentAlias.empty(); }

OtherMedia& otherMedia()
{
    static OtherMedia windows;
    return windows;
}

void closeOtherMedia()
{
    ignoringErrors([] { controlOf(otherMedia().dvd).Stop(); });
    ignoringErrors([] { controlOf(otherMedia().dvd2).close(); });
    ignoringErrors([] { controlOf(otherMedia().mkv).close(); });
    otherMedia() = {};
}

ControlWindow<MediaPlayerControl>* playerWindow()
{
    const MediaKind kind = mediaKind();
    if (kind == MediaKind::DiscOnPlayer)
        return &otherMedia().dvd2;
    return kind == MediaKind::Hd ? &otherMedia().mkv : nullptr;
}

bool tellOtherMedia(Transport command)
{
    const TransportRow& row = kRows[static_cast<std::size_t>(command)];
    switch (mediaKind()) {
    case MediaKind::DiscOnVideoControl:
        ignoringErrors([&] { row.onDiscOnVideoControl(controlOf(otherMedia().dvd)); });
        return true;
    case MediaKind::DiscOnPlayer:
        ignoringErrors([&] { row.onDiscOnPlayer(controlOf(otherMedia().dvd2)); });
        return true;
    case MediaKind::Hd:
        ignoringErrors([&] { row.onHd(controlOf(otherMedia().mkv)); });
        return true;
    case MediaKind::Files:
        break;
    }
    return false;
}

bool seekOtherMedia(Long seconds)
{
    switch (mediaKind()) {
    case MediaKind::DiscOnVideoControl:
        ignoringErrors([&] { controlOf(otherMedia().dvd).InputActive().PlayAtTime(clockText(seconds)); });
        return true;
    case MediaKind::DiscOnPlayer:
    case MediaKind::Hd:
        ignoringErrors([&] { controlOf(*playerWindow()).controls().setCurrentPosition(seconds); });
        return true;
    case MediaKind::Files:
        break;
    }
    return false;
}

} // namespace tandrel
