#include "platform/mpv/film_means.h"

#include "platform/mpv/output_choice.h"
#include "platform/output/x_errors.h"

#include <utility>

namespace tandrel
{

namespace
{
/// One large picture alone: all processors for it, and some of the file in memory. At its end it stands there, and
/// isn't held by anybody but the user. At other rates there is no sound, so its pitch is no matter.
HandleSettings filmSettings(bool outputs)
{
    HandleSettings settings = chooseOutputs(outputs);
    settings.more = {
        {"vd-lavc-threads", "0"},
        {"cache", "yes"},
        {"cache-pause", "no"},
        {"demuxer-max-bytes", "48MiB"},
        {"demuxer-max-back-bytes", "32MiB"},
        {"demuxer-readahead-secs", "10"},
        {"keep-open-pause", "no"},
        {"audio-pitch-correction", "no"},
    };
    return settings;
}
} // namespace

FilmMeans::FilmMeans(bool outputs, Tune tune) : settings_(filmSettings(outputs)), tune_(std::move(tune))
{
    if (!outputs)
        return;
    keepXErrorsHarmless();
    windows_ = std::make_unique<WindowSystem>();
}

CodecTuning FilmMeans::tuning() const { return tune_({settings_.videoOutput == "gpu", settings_.hardwareDecoding}); }

void FilmMeans::enter()
{
    const std::lock_guard lock(mutex_);
    ++films_;
}

void FilmMeans::leave()
{
    const std::lock_guard lock(mutex_);
    --films_;
    changed_.notify_all();
}

bool FilmMeans::wait(int most, std::chrono::milliseconds limit)
{
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, limit, [&] { return films_ <= most; });
}

} // namespace tandrel
