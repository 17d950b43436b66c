#include "platform/mpv/mpv_handle.h"

#include "platform/mpv/stock_rest.h"

#include <memory>
#include <system_error>
#include <utility>

namespace tandrel
{

namespace
{
struct Option {
    const char* name;
    const char* value;
};

// A handle shows one file and does nothing by itself: no configuration, scripts, keys, texts or further files.
constexpr Option kOptions[]{
    {"config", "no"},
    {"load-scripts", "no"},
    {"load-auto-profiles", "no"},
    {"load-osd-console", "no"},
    {"load-stats-overlay", "no"},
    {"ytdl", "no"},
    {"terminal", "no"},
    {"msg-level", "all=no"},
    {"input-default-bindings", "no"},
    {"input-builtin-bindings", "no"},
    {"input-vo-keyboard", "no"},
    {"input-media-keys", "no"},
    {"input-cursor", "no"},
    {"cursor-autohide", "no"},
    {"osc", "no"},
    {"osd-level", "0"},
    {"osd-bar", "no"},
    {"resume-playback", "no"},
    {"stop-screensaver", "no"},
    {"idle", "yes"},
    {"pause", "yes"},
    {"keep-open", "yes"},
    {"hr-seek", "yes"},
    {"keepaspect", "no"},
    {"audio-client-name", "Tandrel Player"},
    // Only what is in the file itself is opened, and no cover picture stands for a video.
    {"audio-display", "no"},
    {"sub-auto", "no"},
    {"audio-file-auto", "no"},
    {"cover-art-auto", "no"},
    {"autoload-files", "no"},
    {"sid", "no"},
    {"ordered-chapters", "no"},
    {"access-references", "no"},
    {"load-unsafe-playlists", "no"},
    // Only this demuxer leaves play lists alone. It may not open anything beside the file.
    {"demuxer", "lavf"},
    {"demuxer-lavf-probe-info", "yes"},
    {"demuxer-lavf-o", "protocol_whitelist=none"},
    // Many videos at once: little memory for each.
    {"cache", "no"},
    {"demuxer-max-bytes", "8MiB"},
    {"demuxer-max-back-bytes", "1MiB"},
    {"sws-allow-zimg", "no"},
    {"sws-scaler", "fast-bilinear"},
    {"sws-fast", "yes"},
    {"x11-present", "no"},
};

void setOption(mpv_handle* handle, const char* name, const std::string& value)
{
    mpv_set_option_string(handle, name, value.c_str());
}
} // namespace

mpv_handle* makeHandle(const HandleSettings& settings)
{
    mpv_handle* handle = mpv_create();
    if (handle == nullptr)
        return nullptr;
    for (const Option& option : kOptions)
        mpv_set_option_string(handle, option.name, option.value);
    setOption(handle, "vo", settings.videoOutput);
    setOption(handle, "hwdec", settings.hardwareDecoding ? "auto-safe" : "no");
    setOption(handle, "ao", settings.audioOutput.empty() ? "null" : settings.audioOutput);
    for (const auto& [name, value] : settings.more)
        setOption(handle, name.c_str(), value);
    mpv_request_log_messages(handle, "no");
    if (mpv_initialize(handle) < 0) {
        mpv_terminate_destroy(handle);
        return nullptr;
    }
    return handle;
}

std::future<void> destroyHandle(mpv_handle* handle)
{
    const auto done = std::make_shared<std::promise<void>>();
    std::future<void> future = done->get_future();
    try {
        std::thread([handle, done] {
            mpv_terminate_destroy(handle);
            done->set_value_at_thread_exit();
        }).detach();
    } catch (const std::system_error&) {
        // Without a thread to spare the caller has to wait.
        mpv_terminate_destroy(handle);
        done->set_value();
    }
    return future;
}

HandleStock::HandleStock(HandleSettings settings, int count)
    : settings_(std::move(settings)), wanted_(count), filler_(&HandleStock::fill, this)
{
}

HandleStock::~HandleStock()
{
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
    }
    changed_.notify_one();
    filler_.join();
    for (mpv_handle* handle : ready_)
        mpv_terminate_destroy(handle);
}

mpv_handle* HandleStock::take()
{
    {
        const std::lock_guard lock(mutex_);
        if (!ready_.empty()) {
            mpv_handle* handle = ready_.back();
            ready_.pop_back();
            return handle;
        }
    }
    return makeHandle(settings_);
}

void HandleStock::keep(int count)
{
    {
        const std::lock_guard lock(mutex_);
        wanted_ = count;
    }
    changed_.notify_one();
}

int HandleStock::ready() const
{
    const std::lock_guard lock(mutex_);
    return static_cast<int>(ready_.size());
}

void HandleStock::fill()
{
    std::unique_lock lock(mutex_);
    while (true) {
        changed_.wait(lock, [this] { return ending_ || static_cast<int>(ready_.size()) < wanted_; });
        if (ending_)
            return;
        if (const auto rests = stocksRestUntil(); std::chrono::steady_clock::now() < rests) {
            changed_.wait_until(lock, rests, [this] { return ending_; });
            continue;
        }
        lock.unlock();
        mpv_handle* handle = makeHandle(settings_);
        lock.lock();
        if (handle != nullptr)
            ready_.push_back(handle);
        else
            wanted_ = 0;
    }
}

} // namespace tandrel
