// The open of a file: the part of MpvDevice that runs once.
#include "platform/mpv/mpv_device.h"
#include "platform/mpv/picture_shrink.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tandrel
{

namespace
{
using namespace std::chrono_literals;

constexpr auto kOpenLimit = 5s;
// Smaller ones are mud.
constexpr int kMostHalvings = 2;
// What frames are counted by where a picture does not tell its rate.
constexpr double kNominalFrameRate = 25;

// Containers without an index, in which a seek lands somewhere near its target.
constexpr std::array<std::string_view, 2> kGuessingFormats{"mpegts", "mpeg"};

// Between the open of a file and the first packet that is read from it.
constexpr const char* kBeforeReading = "on_preloaded";

struct FactQuestion {
    const char* property;
    mpv_format format;
};
constexpr FactQuestion kFacts[]{
    {"seekable", MPV_FORMAT_FLAG},
    {"track-list", MPV_FORMAT_NODE},
    {"file-format", MPV_FORMAT_STRING},
};
} // namespace

OpenFailure MpvDevice::load(const std::string& file, const Decoding& decoding)
{
    const auto deadline = std::chrono::steady_clock::now() + kOpenLimit;
    path_ = file;
    channel_.command({"set", "vd-lavc-threads", std::to_string(decoding.threads).c_str()});
    if (decoding.withoutSound)
        channel_.command({"set", "aid", "no"});
    if (window_ != nullptr)
        channel_.command({"set", "wid", std::to_string(window_->canvas()).c_str()});
    else
        channel_.command({"set", "vo", "null"});
    mpv_hook_add(channel_.handle(), 0, kBeforeReading, 0);
    applyTuning(channel_.handle(), decoding.tuning);
    speed_ = decoding.tuning.speed;
    Loading loading;
    auto failure = tryLoadTuned(file, deadline, decoding, loading);
    if (failure == OpenFailure::NotPlayable && decoding.withoutSound) {
        channel_.command({"set", "aid", "auto"});
        loading = {};
        failure = tryLoad(file, deadline, loading);
    }
    hung_ = failure == OpenFailure::TimedOut;
    if (failure != OpenFailure::None)
        return failure;

    hasSound_ = loading.tracks.sound;
    // The first picture is still on its way, as after a seek.
    stage_ = Stage::Seeking;
    if (loading.shown)
        askPlace();
    if (loading.guesses)
        growMargin();
    if (loading.tracks.picture && !loading.tracks.sizeIsSure && !learnFromPicture(deadline, loading.tracks)) {
        hung_ = true;
        return OpenFailure::TimedOut;
    }
    if (loading.tracks.picture) {
        facts_.frameRate = loading.tracks.frameRate > 0 ? loading.tracks.frameRate : kNominalFrameRate;
        facts_.width = loading.tracks.width;
        facts_.height = loading.tracks.height;
        coded_ = {loading.tracks.codedWidth, loading.tracks.codedHeight};
        mostHalvings_ = std::min(mostHalvings(loading.tracks.codec), kMostHalvings);
    }
    return OpenFailure::None;
}

bool MpvDevice::learnFromPicture(Moment deadline, MediaTracks& tracks)
{
    std::uint64_t asked = 0;
    bool answered = false;
    const auto listener = [&](const mpv_event& event) {
        if (event.event_id == MPV_EVENT_GET_PROPERTY_REPLY && event.reply_userdata == asked) {
            answered = true;
            if (event.error >= 0)
                readPictureSize(*static_cast<mpv_node*>(static_cast<mpv_event_property*>(event.data)->data), tracks);
        }
        hear(event);
    };
    const auto rest = [&] { return stage_ == Stage::Rest; };
    if (!channel_.wait(listener, deadline, rest))
        return false;
    asked = channel_.ask("video-params", MPV_FORMAT_NODE);
    return channel_.wait(listener, deadline, [&] { return answered; });
}

OpenFailure MpvDevice::tryLoadTuned(const std::string& file, Moment deadline, const Decoding& decoding,
                                    Loading& loading)
{
    const OpenFailure failure = tryLoad(file, deadline, loading);
    const MediaTracks& tracks = loading.tracks;
    const bool lost = failure == OpenFailure::NotPlayable || (tracks.hasPicture && !tracks.picture) ||
                      (tracks.hasSound && !tracks.sound && !decoding.withoutSound);
    if (!decoding.tuning.hasFilters || !lost || failure == OpenFailure::TimedOut)
        return failure;
    dropFilters(channel_.handle());
    const bool playsOn = !loading.failed;
    loading = {};
    loading.waitsForOther = playsOn;
    return tryLoad(file, deadline, loading);
}

OpenFailure MpvDevice::tryLoad(const std::string& file, Moment deadline, Loading& loading)
{
    channel_.command({"loadfile", file.c_str()});
    const bool answered =
        channel_.wait([&](const mpv_event& event) { hearLoading(event, loading); }, deadline,
                      [&] { return loading.failed || (loading.loaded && loading.answersMissing == 0); });
    if (!answered)
        return OpenFailure::TimedOut;
    const bool playable = !loading.failed && (loading.tracks.picture || loading.tracks.sound);
    return playable ? OpenFailure::None : OpenFailure::NotPlayable;
}

void MpvDevice::hearLoading(const mpv_event& event, Loading& loading)
{
    if (loading.waitsForOther) {
        loading.waitsForOther = event.event_id != MPV_EVENT_END_FILE;
        return;
    }
    switch (event.event_id) {
    case MPV_EVENT_HOOK:
        // Of a file that does not tell its length, libmpv takes what it has read so far for the length.
        loading.lengthHook = static_cast<const mpv_event_hook*>(event.data)->id;
        loading.lengthQuestion = channel_.ask("duration", MPV_FORMAT_DOUBLE);
        break;
    case MPV_EVENT_FILE_LOADED:
        loading.loaded = true;
        for (const FactQuestion& question : kFacts) {
            const auto asked = channel_.ask(question.property, question.format);
            loading.firstQuestion = loading.firstQuestion == 0 ? asked : loading.firstQuestion;
            ++loading.answersMissing;
        }
        break;
    case MPV_EVENT_END_FILE:
        loading.failed = true;
        break;
    case MPV_EVENT_PLAYBACK_RESTART:
        loading.shown = true;
        break;
    case MPV_EVENT_GET_PROPERTY_REPLY:
        if (event.reply_userdata == loading.lengthQuestion) {
            takeLength(event);
            mpv_hook_continue(channel_.handle(), loading.lengthHook);
            break;
        }
        // An answer to an earlier try says nothing of this one.
        if (loading.firstQuestion == 0 || event.reply_userdata < loading.firstQuestion)
            break;
        --loading.answersMissing;
        if (event.error >= 0)
            takeFact(*static_cast<const mpv_event_property*>(event.data), loading);
        break;
    default:
        break;
    }
}

void MpvDevice::takeLength(const mpv_event& answer)
{
    facts_.length.reset();
    if (answer.error < 0)
        return;
    const double seconds = *static_cast<const double*>(static_cast<const mpv_event_property*>(answer.data)->data);
    if (seconds > 0)
        facts_.length = seconds;
}

void MpvDevice::takeFact(const mpv_event_property& fact, Loading& loading)
{
    const std::string_view name = fact.name;
    if (name == "seekable")
        seekable_ = *static_cast<const int*>(fact.data) != 0;
    else if (name == "track-list")
        loading.tracks = readTracks(*static_cast<const mpv_node*>(fact.data));
    else if (name == "file-format")
        loading.guesses = std::find(kGuessingFormats.begin(), kGuessingFormats.end(),
                                    *static_cast<const char* const*>(fact.data)) != kGuessingFormats.end();
}

} // namespace tandrel
