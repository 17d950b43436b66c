#include "platform/vlc/vlc_film.h"

#include "platform/languages.h"
#include "platform/output/sound_outputs.h"

#include <cstdlib>
#include <cstring>
#include <string_view>

namespace tandrel
{

namespace
{
// One disc and nothing else: no configuration, scripts, keys, texts over the picture, nothing from the web, and no word
// to the desktop's screen saver. Without Xlib: the outputs over xcb alone, which survive the end of their windows.
constexpr const char* kArguments[]{"--ignore-config",
                                   "--quiet",
                                   "--no-lua",
                                   "--no-xlib",
                                   "--no-interact",
                                   "--no-osd",
                                   "--no-video-title-show",
                                   "--no-snapshot-preview",
                                   "--no-disable-screensaver",
                                   "--no-keyboard-events",
                                   "--no-metadata-network-access",
                                   "--no-sub-autodetect-file",
                                   "--avcodec-hw=none"};

const char* fromEnvironment(const char* name) { return std::getenv(name); }

std::vector<std::string> arguments(bool outputs)
{
    std::vector<std::string> result(std::begin(kArguments), std::end(kArguments));
    const std::string named = desktopLanguage(&fromEnvironment);
    const std::string language = named.empty() ? "en" : named;
    result.push_back("--menu-language=" + language);
    result.push_back("--audio-language=" + language);
    const char* told = fromEnvironment("TANDREL_AO");
    const bool silent = told != nullptr && std::string_view(told) == "null";
    if (!outputs || silent || soundOutputs("/", &fromEnvironment).empty())
        result.emplace_back("--aout=dummy");
    if (!outputs)
        result.emplace_back("--no-video");
    return result;
}

/// As the path of a URL: all that is not a plain letter stands as its number.
std::string location(const std::string& path)
{
    constexpr std::string_view plain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string result = "dvd://";
    for (const char letter : path) {
        const auto code = static_cast<unsigned char>(letter);
        if (plain.find(letter) != std::string_view::npos)
            result += letter;
        else
            result += {'%', digits[code >> 4], digits[code & 0xF]};
    }
    return result;
}

struct Listened {
    libvlc_event_type_t event;
    VlcNews::Kind kind;
};
constexpr Listened kListened[]{
    {libvlc_MediaPlayerTimeChanged, VlcNews::Kind::Time},       {libvlc_MediaPlayerESAdded, VlcNews::Kind::Tracks},
    {libvlc_MediaPlayerESDeleted, VlcNews::Kind::Tracks},       {libvlc_MediaPlayerESSelected, VlcNews::Kind::Tracks},
    {libvlc_MediaPlayerPlaying, VlcNews::Kind::Other},          {libvlc_MediaPlayerEndReached, VlcNews::Kind::Other},
    {libvlc_MediaPlayerEncounteredError, VlcNews::Kind::Other}, {libvlc_MediaPlayerTitleChanged, VlcNews::Kind::Other},
    {libvlc_MediaPlayerChapterChanged, VlcNews::Kind::Other},
};
} // namespace

VlcFilm::VlcFilm(std::optional<WindowHandle> canvas, Hear hear) : hear_(std::move(hear))
{
    const auto texts = arguments(canvas.has_value());
    std::vector<const char*> plain;
    for (const auto& text : texts)
        plain.push_back(text.c_str());
    library_.reset(libvlc_new(static_cast<int>(plain.size()), plain.data()));
    if (library_ == nullptr)
        return;
    libvlc_set_user_agent(library_.get(), "Tandrel Player", "Tandrel Player");
    player_.reset(libvlc_media_player_new(library_.get()));
    if (player_ == nullptr)
        return;
    libvlc_video_set_key_input(player(), 0);
    libvlc_video_set_mouse_input(player(), 1);
    if (canvas)
        libvlc_media_player_set_xwindow(player(), *canvas);
    listen();
}

VlcFilm::~VlcFilm()
{
    if (player_ == nullptr)
        return;
    libvlc_event_manager_t* events = libvlc_media_player_event_manager(player());
    for (const Listened& one : kListened)
        libvlc_event_detach(events, one.event, &VlcFilm::onEvent, this);
    stop();
}

void VlcFilm::listen()
{
    libvlc_event_manager_t* events = libvlc_media_player_event_manager(player());
    for (const Listened& one : kListened)
        libvlc_event_attach(events, one.event, &VlcFilm::onEvent, this);
}

void VlcFilm::onEvent(const libvlc_event_t* event, void* film)
{
    VlcNews news;
    news.when = std::chrono::steady_clock::now();
    for (const Listened& one : kListened)
        if (one.event == event->type)
            news.kind = one.kind;
    if (news.kind == VlcNews::Kind::Time)
        news.seconds = static_cast<double>(event->u.media_player_time_changed.new_time) / 1000;
    static_cast<VlcFilm*>(film)->hear_(news);
}

bool VlcFilm::open(const std::string& path)
{
    const Handle<libvlc_media_t> media(libvlc_media_new_location(library_.get(), location(path).c_str()),
                                       &libvlc_media_release);
    if (media == nullptr)
        return false;
    // With less a held picture doesn't follow a seek; with more it takes longer to come.
    libvlc_media_add_option(media.get(), ":disc-caching=100");
    libvlc_media_player_set_media(player(), media.get());
    return libvlc_media_player_play(player()) == 0;
}

void VlcFilm::stop() { libvlc_media_player_stop(player()); }

} // namespace tandrel
