/// libVLC's objects for one disc, as far as they are needed. For the worker's thread alone.
#pragma once

#include "platform/players.h"
#include "platform/vlc/disc_state.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vlc/vlc.h>

namespace tandrel
{

/// What libVLC has told on a thread of its own.
struct VlcNews {
    enum class Kind { Time, Tracks, Other };
    Kind kind = Kind::Other;
    /// Of Time: the demultiplexer's place.
    double seconds = 0;
    SteadyTime when;
};

class VlcFilm
{
public:
    using Hear = std::function<void(const VlcNews&)>;

    /// `hear` is called on libVLC's threads, and must not call libVLC. Without `canvas` there are no outputs.
    VlcFilm(std::optional<WindowHandle> canvas, Hear hear);
    ~VlcFilm();
    VlcFilm(const VlcFilm&) = delete;
    VlcFilm& operator=(const VlcFilm&) = delete;

    /// False where libVLC is not to be had.
    bool isUsable() const { return player_ != nullptr; }
    /// Plays the disc at this absolute path.
    bool open(const std::string& path);
    void stop();

    libvlc_media_player_t* player() const { return player_.get(); }
    libvlc_state_t state() const { return libvlc_media_player_get_state(player()); }
    /// 0 in a menu; below 0 while not known.
    int title() const { return libvlc_media_player_get_title(player()); }
    /// The menu is one of them.
    int titleCount() const { return libvlc_media_player_get_title_count(player()); }
    std::vector<MediaTrack> tracks() const;
    void chooseTrack(MediaTrack::Kind kind, int id);
    /// Shows the captions for the deaf, or takes them away again.
    void allowCaptions(bool on);

private:
    template <typename T>
    using Handle = std::unique_ptr<T, void (*)(T*)>;

    static void onEvent(const libvlc_event_t* event, void* film);
    void listen();

    Hear hear_;
    Handle<libvlc_instance_t> library_{nullptr, &libvlc_release};
    Handle<libvlc_media_player_t> player_{nullptr, &libvlc_media_player_release};
};

} // namespace tandrel
