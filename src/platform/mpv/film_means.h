/// What the films of a player share.
#pragma once

#include "platform/mpv/codec_tuning.h"
#include "platform/mpv/mpv_handle.h"
#include "platform/output/picture_window.h"

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>

namespace tandrel
{

/// It outlives the player where one of its films hangs. May be used on any thread.
class FilmMeans
{
public:
    /// How pictures and sounds are set by now; called on the threads of films.
    using Tune = std::function<CodecTuning(const TuningMeans&)>;

    /// Without `outputs` there are no windows.
    FilmMeans(bool outputs, Tune tune);

    const HandleSettings& settings() const { return settings_; }
    /// As the user has set pictures and sounds by now.
    CodecTuning tuning() const;
    /// Null where there are no outputs.
    WindowSystem* windows() const { return windows_.get(); }

    /// Counts the films that are there or on their way, in or out.
    void enter();
    void leave();
    /// Waits until no more than so many are there. False if that was not so in time.
    bool wait(int most, std::chrono::milliseconds limit);

private:
    HandleSettings settings_;
    const Tune tune_;
    std::unique_ptr<WindowSystem> windows_;
    std::mutex mutex_;
    std::condition_variable changed_;
    int films_ = 0;
};

} // namespace tandrel
