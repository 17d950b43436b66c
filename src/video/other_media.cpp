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
    ignoringErrors([&] { url = player.url(); });
    ignoringErrors([&] { player.close(); });
    ignoringErrors([&] { player.setUrl(url); });
}

/// What a command does by the kind of medium.
struct TransportRow {
    void (*onDiscOnVideoControl)(VideoControl& control);
    void (*onDiscOnPlayer)(Player& control);
    void (*onHd)(Player& control);
};

/// In the order of `Transport`.
constexpr std::array<TransportRow, 5> kRows{{
    {[](VideoControl& disc) { disc.run(); }, [](Player& disc) { disc.resumeFromMenu(); },
     [](Player& film) { film.play(); }},
    {[](VideoControl& disc) { disc.pause(); }, [](Player& disc) { disc.pause(); }, [](Player& film) { film.pause(); }},
    {[](VideoControl& disc) { disc.playNextChapter(); }, [](Player& disc) { disc.fastForward(); },
     [](Player& film) { film.fastForward(); }},
    {[](VideoControl& disc) { disc.playPrevChapter(); }, [](Player& disc) { disc.fastReverse(); },
     [](Player& film) { film.fastReverse(); }},
    {[](VideoControl& disc) { disc.showMenu(disc_menu::kRoot); }, [](Player& disc) { disc.topMenu(); }, &restart},
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
        ignoringErrors([&] { controlOf(otherMedia().dvd).playAtTime(clockText(seconds)); });
        return true;
    case MediaKind::DiscOnPlayer:
    case MediaKind::Hd:
        ignoringErrors([&] { controlOf(*playerWindow()).setCurrentPosition(seconds); });
        return true;
    case MediaKind::Files:
        break;
    }
    return false;
}

} // namespace tandrel
