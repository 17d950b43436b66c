#include "platform/mpv/still_watch.h"

#include <chrono>
#include <system_error>
#include <thread>
#include <utility>

namespace tandrel
{

namespace
{
using namespace std::chrono_literals;
constexpr auto kLongestSeek = 5s;
} // namespace

struct StillWatch::Watch {
    std::mutex mutex;
    /// Null when nothing is to be hidden any more.
    StillWindow* still = nullptr;
    /// Null when it has gone.
    mpv_handle* client = nullptr;

    bool wanted()
    {
        const std::lock_guard lock(mutex);
        return still != nullptr;
    }
    void hide()
    {
        const std::lock_guard lock(mutex);
        if (still != nullptr)
            still->hide();
        still = nullptr;
    }
};

void StillWatch::start(mpv_handle* player)
{
    stop();
    // A client of its own has events of its own.
    mpv_handle* client = mpv_create_client(player, nullptr);
    if (client == nullptr) {
        still_.hide();
        return;
    }
    watch_ = std::make_shared<Watch>();
    watch_->still = &still_;
    watch_->client = client;
    try {
        std::thread([watch = watch_, client] { run(watch, client); }).detach();
    } catch (const std::system_error&) {
        still_.hide();
        watch_.reset();
        mpv_destroy(client);
    }
}

void StillWatch::stop()
{
    const auto watch = std::exchange(watch_, nullptr);
    if (watch == nullptr)
        return;
    const std::lock_guard lock(watch->mutex);
    watch->still = nullptr;
    if (watch->client != nullptr)
        mpv_wakeup(watch->client);
}

void StillWatch::run(const std::shared_ptr<Watch>& watch, mpv_handle* client)
{
    const auto deadline = std::chrono::steady_clock::now() + kLongestSeek;
    bool seeking = false;
    bool done = false;
    while (!done && watch->wanted()) {
        const std::chrono::duration<double> left = deadline - std::chrono::steady_clock::now();
        const mpv_event_id event =
            left.count() <= 0 ? MPV_EVENT_SHUTDOWN : mpv_wait_event(client, left.count())->event_id;
        seeking = seeking || event == MPV_EVENT_SEEK;
        done = (seeking && event == MPV_EVENT_PLAYBACK_RESTART) || event == MPV_EVENT_END_FILE ||
               event == MPV_EVENT_SHUTDOWN;
    }
    watch->hide();
    {
        const std::lock_guard lock(watch->mutex);
        watch->client = nullptr;
    }
    mpv_destroy(client);
}

} // namespace tandrel
