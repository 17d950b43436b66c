#include "platform/mpv/film_worker.h"

#include "platform/languages.h"
#include "platform/mpv/media_path.h"
#include "platform/mpv/media_tracks.h"
#include "platform/mpv/node_fields.h"
#include "platform/valid_text.h"

#include <cctype>
#include <cstdlib>
#include <system_error>
#include <thread>

namespace tandrel
{

namespace
{
using namespace std::chrono_literals;

// So many films may still be closing when the next one opens.
constexpr int kMostFilms = 3;
constexpr auto kRoomLimit = 2s;
// What takes time by itself, such as going back, goes on so often.
constexpr auto kTick = 25ms;
// Between the open of a file and the choice of its tracks.
constexpr const char* kHeadRead = "on_preloaded";

// The observed properties, by the numbers that their changes carry. FilmMoves has those below.
enum : std::uint64_t { kTracks = 101, kPictureSize, kTags };

struct Observed {
    std::uint64_t number;
    const char* property;
    mpv_format format;
};
constexpr Observed kObserved[]{
    {FilmMoves::kPlace, "time-pos", MPV_FORMAT_DOUBLE},  {FilmMoves::kDuration, "duration", MPV_FORMAT_DOUBLE},
    {FilmMoves::kEnd, "eof-reached", MPV_FORMAT_FLAG},   {kTracks, "track-list", MPV_FORMAT_NODE},
    {kPictureSize, "video-out-params", MPV_FORMAT_NODE}, {kTags, "metadata", MPV_FORMAT_NODE},
};

void choose(mpv_handle* handle, const char* property, int id)
{
    mpv_set_property_string(handle, property, id < 0 ? "no" : std::to_string(id).c_str());
}

/// A property of a track that isn't played has no value.
bool lacks(mpv_handle* handle, const char* property)
{
    char* value = mpv_get_property_string(handle, property);
    mpv_free(value);
    return value == nullptr;
}

void load(mpv_handle* handle, const std::string& file)
{
    const char* words[]{"loadfile", file.c_str(), nullptr};
    mpv_command_async(handle, 0, words);
}

/// The tracks of a file that waits for its choice. Nobody waits for these answers but this thread.
std::vector<FilmTrack> readHead(mpv_handle* handle, TrackChoice& choice)
{
    std::vector<FilmTrack> tracks;
    mpv_node list{};
    if (mpv_get_property(handle, "track-list", MPV_FORMAT_NODE, &list) >= 0) {
        tracks = readFilmTracks(list);
        mpv_free_node_contents(&list);
    }
    const std::string language = desktopLanguage([](const char* name) { return std::getenv(name); });
    choice = chooseTracks(tracks, language);
    choose(handle, "vid", choice.picture);
    choose(handle, "aid", choice.audio);
    choose(handle, "sid", choice.subtitle);
    return tracks;
}

/// The tag "title", however it is written.
std::string titleAmong(const mpv_node& tags)
{
    if (tags.format != MPV_FORMAT_NODE_MAP)
        return {};
    for (int index = 0; index < tags.u.list->num; ++index) {
        std::string key = tags.u.list->keys[index];
        for (char& letter : key)
            letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
        if (key == "title" && tags.u.list->values[index].format == MPV_FORMAT_STRING)
            return validText(tags.u.list->values[index].u.string);
    }
    return {};
}
} // namespace

FilmWorker::FilmWorker(std::shared_ptr<FilmMeans> means, std::string path) : shared_(std::make_shared<Shared>())
{
    means->enter();
    shared_->means = std::move(means);
    shared_->path = std::move(path);
    try {
        // A file system that hangs keeps its thread for ever, and nobody can wait for that.
        std::thread([shared = shared_] { run(*shared); }).detach();
    } catch (const std::system_error&) {
        fail(*shared_);
        end(*shared_, nullptr);
    }
}

FilmWorker::~FilmWorker()
{
    std::shared_ptr<FilmScreen> screen;
    {
        const std::lock_guard lock(shared_->mutex);
        shared_->over = true;
        shared_->changed.notify_one();
        screen = shared_->screen;
    }
    if (screen != nullptr)
        screen->leave();
}

void FilmWorker::showIn(WindowHandle parent, const PixelRect& place)
{
    std::shared_ptr<FilmScreen> screen;
    {
        const std::lock_guard lock(shared_->mutex);
        shared_->state.parent = parent;
        shared_->state.place = place;
        screen = shared_->screen;
    }
    if (screen != nullptr)
        screen->showIn(parent, place);
}

void FilmWorker::run(Shared& shared)
{
    mpv_handle* handle = nullptr;
    try {
        handle = open(shared);
        if (handle != nullptr)
            follow(shared, handle);
        else
            fail(shared);
    } catch (const std::exception&) {
        // Out of memory, say: the film doesn't play, and that is all.
        fail(shared);
    }
    end(shared, handle);
}

mpv_handle* FilmWorker::open(Shared& shared)
{
    const MediaPath media = findMedia(shared.path);
    if (media.failure != OpenFailure::None)
        return nullptr;
    // Players that are being closed need the processors too.
    shared.means->wait(kMostFilms, kRoomLimit);
    {
        const std::lock_guard lock(shared.mutex);
        if (shared.over)
            return nullptr;
    }
    mpv_handle* handle = makeHandle(shared.means->settings());
    if (handle == nullptr)
        return nullptr;
    makeScreen(shared, handle);
    for (const Observed& one : kObserved)
        mpv_observe_property(handle, one.number, one.property, one.format);
    mpv_hook_add(handle, 0, kHeadRead, 0);
    mpv_set_wakeup_callback(handle, &FilmWorker::ring, &shared);
    shared.file = media.absolute;
    tune(shared, handle);
    sendRequests(shared, handle);
    load(handle, shared.file);
    return handle;
}

void FilmWorker::tune(Shared& shared, mpv_handle* handle)
{
    shared.tuning = shared.means->tuning();
    applyTuning(handle, shared.tuning);
    if (shared.tuning.speed == 1)
        return;
    const std::lock_guard lock(shared.mutex);
    shared.state.moves.setCommonSpeed(shared.tuning.speed);
}

void FilmWorker::makeScreen(Shared& shared, mpv_handle* handle)
{
    if (shared.means->windows() == nullptr)
        return;
    const auto screen = std::make_shared<FilmScreen>(*shared.means->windows());
    mpv_set_property_string(handle, "wid", std::to_string(screen->canvas()).c_str());
    const std::lock_guard lock(shared.mutex);
    shared.screen = screen;
    if (shared.over)
        screen->leave();
    else if (shared.state.parent != 0)
        screen->showIn(shared.state.parent, shared.state.place);
}

void FilmWorker::ring(void* shared)
{
    auto& rung = *static_cast<Shared*>(shared);
    const std::lock_guard lock(rung.mutex);
    rung.news = true;
    rung.changed.notify_one();
}

void FilmWorker::sendRequests(Shared& shared, mpv_handle* handle)
{
    std::vector<FilmRequests::Request> requests;
    {
        const std::lock_guard lock(shared.mutex);
        shared.state.moves.tick();
        requests = shared.state.requests.take();
    }
    FilmRequests::send(handle, requests);
}

void FilmWorker::follow(Shared& shared, mpv_handle* handle)
{
    while (true) {
        {
            std::unique_lock lock(shared.mutex);
            shared.changed.wait_for(lock, kTick, [&] { return shared.news || shared.over; });
            shared.news = false;
            if (shared.over)
                return;
        }
        sendRequests(shared, handle);
        while (true) {
            const mpv_event* event = mpv_wait_event(handle, 0);
            if (event->event_id == MPV_EVENT_NONE)
                break;
            hear(shared, handle, *event);
        }
        sendRequests(shared, handle);
    }
}

void FilmWorker::hear(Shared& shared, mpv_handle* handle, const mpv_event& event)
{
    if (shared.loadsAgain) {
        shared.loadsAgain = event.event_id != MPV_EVENT_END_FILE;
        return;
    }
    if (event.event_id == MPV_EVENT_FILE_LOADED && loadWithoutFilters(shared, handle, true))
        return;
    if (event.event_id == MPV_EVENT_HOOK) {
        const std::uint64_t hook = static_cast<const mpv_event_hook*>(event.data)->id;
        std::vector<FilmTrack> tracks = readHead(handle, shared.choice);
        {
            const std::lock_guard lock(shared.mutex);
            shared.state.trouble = troubleOf(tracks);
            shared.state.tracks = std::move(tracks);
        }
        mpv_hook_continue(handle, hook);
    } else if (event.event_id == MPV_EVENT_PROPERTY_CHANGE && event.reply_userdata >= kTracks) {
        hearProperty(shared, event);
    } else if (event.event_id == MPV_EVENT_END_FILE) {
        if (!loadWithoutFilters(shared, handle, false))
            fail(shared);
    } else if (event.event_id == MPV_EVENT_SHUTDOWN) {
        fail(shared);
    } else {
        const std::lock_guard lock(shared.mutex);
        shared.state.loaded = shared.state.loaded || event.event_id == MPV_EVENT_FILE_LOADED;
        shared.state.moves.hear(event);
    }
}

void FilmWorker::hearProperty(Shared& shared, const mpv_event& event)
{
    const auto& property = *static_cast<const mpv_event_property*>(event.data);
    if (property.format != MPV_FORMAT_NODE)
        return;
    const mpv_node& node = *static_cast<const mpv_node*>(property.data);
    if (event.reply_userdata == kPictureSize) {
        MediaTracks size;
        readPictureSize(node, size);
        if (shared.screen != nullptr)
            shared.screen->setSize(size.width, size.height);
        return;
    }
    std::vector<FilmTrack> tracks = event.reply_userdata == kTracks ? readFilmTracks(node) : std::vector<FilmTrack>();
    std::string title = event.reply_userdata == kTags ? titleAmong(node) : std::string();
    const std::lock_guard lock(shared.mutex);
    if (event.reply_userdata == kTracks)
        shared.state.tracks = std::move(tracks);
    else
        shared.state.title = std::move(title);
}

bool FilmWorker::loadWithoutFilters(Shared& shared, mpv_handle* handle, bool isLoaded)
{
    const bool lost = (shared.choice.picture >= 0 && lacks(handle, "current-tracks/video/id")) ||
                      (shared.choice.audio >= 0 && lacks(handle, "current-tracks/audio/id"));
    bool plays = false;
    {
        const std::lock_guard lock(shared.mutex);
        plays = shared.state.loaded;
    }
    if (!shared.tuning.hasFilters || plays || (isLoaded && !lost))
        return false;
    shared.tuning.hasFilters = false;
    dropFilters(handle);
    load(handle, shared.file);
    shared.loadsAgain = isLoaded;
    return true;
}

void FilmWorker::fail(Shared& shared)
{
    const std::lock_guard lock(shared.mutex);
    shared.state.failed = true;
    shared.state.loaded = false;
    if (shared.state.trouble == MediaTrouble::None)
        shared.state.trouble = MediaTrouble::NotPlayable;
}

void FilmWorker::end(Shared& shared, mpv_handle* handle)
{
    std::shared_ptr<FilmScreen> screen;
    {
        std::unique_lock lock(shared.mutex);
        screen = std::move(shared.screen);
    }
    if (handle != nullptr) {
        mpv_set_wakeup_callback(handle, nullptr, nullptr);
        mpv_terminate_destroy(handle);
    }
    // Whoever closes may still be putting it out of sight.
    if (screen != nullptr)
        screen->leave();
    screen.reset();
    shared.means->leave();
}

} // namespace tandrel
