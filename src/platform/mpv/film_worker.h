/// One film and the thread that plays it: from the path to the end of its player. Everybody else reads what the thread
/// has heard, and leaves it requests; nothing that libmpv or the window system does is ever waited for.
#pragma once

#include "platform/mpv/film_means.h"
#include "platform/mpv/film_moves.h"
#include "platform/mpv/film_screen.h"
#include "platform/mpv/film_tracks.h"

#include <functional>
#include <optional>

namespace tandrel
{

/// What is known of a film, and what it is told.
struct FilmState {
    FilmState() = default;
    FilmState(const FilmState&) = delete;
    FilmState& operator=(const FilmState&) = delete;

    FilmRequests requests;
    FilmMoves moves{requests};
    std::vector<FilmTrack> tracks;
    std::string title;
    MediaTrouble trouble = MediaTrouble::None;
    bool loaded = false;
    /// It will never be loaded any more.
    bool failed = false;
    WindowHandle parent = 0;
    PixelRect place;
};

class FilmWorker
{
public:
    /// Begins to open the file with this marked path.
    FilmWorker(std::shared_ptr<FilmMeans> means, std::string path);
    /// The picture is out of sight and out of its parent afterwards; the rest ends by itself.
    ~FilmWorker();
    FilmWorker(const FilmWorker&) = delete;
    FilmWorker& operator=(const FilmWorker&) = delete;

    /// Looks at the state, or tells it something, which is carried out soon.
    template <class Look>
    auto with(Look look)
    {
        const std::lock_guard lock(shared_->mutex);
        shared_->news = true;
        shared_->changed.notify_one();
        return look(shared_->state);
    }
    template <class Look>
    auto read(Look look) const
    {
        const std::lock_guard lock(shared_->mutex);
        return look(static_cast<const FilmState&>(shared_->state));
    }
    /// In device pixels.
    void showIn(WindowHandle parent, const PixelRect& place);

private:
    struct Shared {
        std::shared_ptr<FilmMeans> means;
        std::string path;
        /// Guards what follows. Nobody holds it for longer than it takes to look at something.
        std::mutex mutex;
        std::condition_variable changed;
        FilmState state;
        std::shared_ptr<FilmScreen> screen;
        bool news = false;
        bool over = false;

        /// What follows is the thread's own.
        std::string file;
        CodecTuning tuning;
        TrackChoice choice;
        /// Filters were in the way, and the file is loaded over itself without them: its first load has yet to end.
        bool loadsAgain = false;
    };

    static void run(Shared& shared);
    static mpv_handle* open(Shared& shared);
    static void tune(Shared& shared, mpv_handle* handle);
    static void makeScreen(Shared& shared, mpv_handle* handle);
    static void follow(Shared& shared, mpv_handle* handle);
    static void sendRequests(Shared& shared, mpv_handle* handle);
    static void hear(Shared& shared, mpv_handle* handle, const mpv_event& event);
    static void hearProperty(Shared& shared, const mpv_event& event);
    /// True if a filter has taken the picture or the sound away, and the film is on its way without filters.
    static bool loadWithoutFilters(Shared& shared, mpv_handle* handle, bool isLoaded);
    static void fail(Shared& shared);
    static void end(Shared& shared, mpv_handle* handle);
    static void ring(void* shared);

    std::shared_ptr<Shared> shared_;
};

} // namespace tandrel
