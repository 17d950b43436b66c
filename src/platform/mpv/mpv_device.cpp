#include "platform/mpv/mpv_device.h"

#include "platform/mpv/load_keeper.h"
#include "platform/mpv/mpv_handle.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>

namespace tandrel
{

namespace
{
using namespace std::chrono_literals;

constexpr auto kSettleLimit = 2s;
constexpr auto kCloseLimit = 2s;
// A place that is no older than this is reckoned on by the clock while a newer one is on its way: a core that decodes
// answers late. Only an older one is waited for.
constexpr auto kFreshPlace = 700ms;
constexpr auto kStaleReadLimit = 50ms;
constexpr auto kStepPoll = 1ms;

std::chrono::steady_clock::time_point now() { return std::chrono::steady_clock::now(); }
} // namespace

MpvDevice::MpvDevice(mpv_handle* handle, std::unique_ptr<PictureWindow> window, double pixelRatio,
                     std::shared_ptr<void> inUse)
    : inUse_(std::move(inUse)), channel_(handle), window_(std::move(window)), pixelRatio_(pixelRatio)
{
}

MpvDevice::~MpvDevice()
{
    beginClose();
    // The window goes after the player that draws into it. A player that hangs is left to its own thread.
    while (closed_.wait_until(std::min(closeDeadline_, now() + MpvChannel::kPulse)) == std::future_status::timeout &&
           now() < closeDeadline_)
        channel_.pulse();
}

void MpvDevice::beginClose()
{
    if (closed_.valid())
        return;
    if (keeper_ != nullptr)
        keeper_->leave(*this);
    if (stills_ != nullptr) {
        endFollowing();
        dropScrub();
        stills_->close();
        mpv_set_wakeup_callback(channel_.handle(), nullptr, nullptr);
    }
    closeDeadline_ = now() + (hung_ ? 0s : kCloseLimit);
    closed_ = destroyHandle(channel_.release());
}

void MpvDevice::drain()
{
    channel_.drain([this](const mpv_event& event) { hear(event); });
    if (stage_ == Stage::Filling)
        lookForPicture();
    else if (stage_ == Stage::Scrubbing)
        followScrub();
}

void MpvDevice::hear(const mpv_event& event)
{
    if (meter_.hear(event, now()))
        return;
    if (following_)
        hearFollowing(event);
    switch (event.event_id) {
    case MPV_EVENT_COMMAND_REPLY:
        if (stage_ == Stage::Sent && event.reply_userdata == awaited_)
            stage_ = Stage::Taken;
        if (stage_ == Stage::Taken && event.error < 0)
            askPlace();
        break;
    case MPV_EVENT_SEEK:
        if (stage_ == Stage::Taken)
            stage_ = Stage::Seeking;
        break;
    case MPV_EVENT_PLAYBACK_RESTART:
        if (stage_ == Stage::Seeking)
            askPlace();
        break;
    case MPV_EVENT_GET_PROPERTY_REPLY:
        hearAnswer(event);
        break;
    case MPV_EVENT_END_FILE:
        if (stage_ == Stage::Scrubbing)
            scrub_->stop();
        stage_ = Stage::Rest;
        placeAsked_ = 0;
        ended_ = true;
        running_ = false;
        break;
    default:
        break;
    }
}

void MpvDevice::hearAnswer(const mpv_event& event)
{
    const auto& property = *static_cast<const mpv_event_property*>(event.data);
    if (drawing_ != Drawing::Done && event.reply_userdata <= drawingAsked_)
        hearDrawing(event);
    if (stage_ == Stage::Stepping && event.reply_userdata == awaited_) {
        awaited_ = 0;
        hearStep(event.error >= 0 && *static_cast<const int*>(property.data) != 0);
    } else if (placeAsked_ != 0 && event.reply_userdata <= placeAsked_ && event.reply_userdata >= firstAsked_) {
        hearPlace(event);
    }
}

void MpvDevice::hearStep(bool holds)
{
    if (outputTurns_ == 0 && !holds)
        return;
    if (outputTurns_ < kOutputTurns) {
        ++outputTurns_;
        awaited_ = askOutput();
        return;
    }
    showAtOnce(false);
    askPlace();
}

void MpvDevice::askPlace()
{
    firstAsked_ = channel_.ask("eof-reached", MPV_FORMAT_FLAG);
    channel_.ask("audio-pts", MPV_FORMAT_DOUBLE);
    placeAsked_ = channel_.ask("time-pos", MPV_FORMAT_DOUBLE);
    placeAskedAt_ = now();
    if (stage_ != Stage::Rest)
        stage_ = Stage::Reading;
}

void MpvDevice::hearPlace(const mpv_event& event)
{
    const void* value = static_cast<const mpv_event_property*>(event.data)->data;
    if (event.reply_userdata == firstAsked_) {
        endAnswer_ = event.error >= 0 && *static_cast<const int*>(value) != 0;
    } else if (event.reply_userdata == placeAsked_) {
        placeAsked_ = 0;
        // The end counts once its place is known too.
        ended_ = endAnswer_;
        running_ = running_ && !ended_;
        if (event.error >= 0)
            notePlace(*static_cast<const double*>(value));
        if (stage_ == Stage::Reading)
            placeKnown();
    } else {
        soundTime_.reset();
        if (event.error >= 0)
            soundTime_ = *static_cast<const double*>(value);
    }
}

void MpvDevice::notePlace(double time)
{
    if (!origin_)
        origin_ = time;
    place_ = std::max(0.0, time - *origin_);
    placeAt_ = placeAskedAt_;
    // Behind the last picture libmpv reports the time of the sound, to the last bit.
    const bool bySound = soundTime_ == time && place_ * facts_.frameRate > 0.5;
    pictureIsPast_ = facts_.frameRate > 0 && (bySound || (ended_ && hasSound_ && !soundIsOff_));
}

void MpvDevice::play()
{
    if (stage_ == Stage::Scrubbing)
        endScrub();
    // A step ends in a pause of its own, which would undo the play; sound comes on at rest only; and a medium whose
    // first picture has passed no longer tells where it begins.
    if (stage_ == Stage::Stepping || stage_ == Stage::Filling || soundIsOff_ || !origin_)
        settle();
    drain();
    if (ended_)
        return;
    if (soundIsOff_)
        restoreSound();
    dropScrub();
    runFromStill();
    // A step that was given up may have left it so.
    showAtOnce(false);
    // libmpv pauses by itself at an end, of which a running device may not have heard before it was sent elsewhere.
    channel_.set("pause", false);
    if (running_)
        return;
    running_ = true;
    meter_.restart();
    forgetMoves();
    placeAt_ = now();
    lastRead_ = 0;
}

void MpvDevice::pause()
{
    if (!running_)
        return;
    channel_.set("pause", true);
    expectStepsWhilePausing();
    running_ = false;
    if (stage_ == Stage::Rest)
        stage_ = Stage::Reading;
    if (stage_ == Stage::Reading)
        askPlace();
}

bool MpvDevice::waitsForPlayer() const { return stage_ != Stage::Rest && stage_ != Stage::Filling; }

bool MpvDevice::settle()
{
    drain();
    if (stage_ == Stage::Scrubbing)
        endScrub();
    // What was waited for in vain once is not waited for again: the program has to go on.
    const auto deadline = now() + (gaveUp_ ? 0s : kSettleLimit);
    while (stage_ != Stage::Rest && now() < deadline) {
        if (stage_ == Stage::Filling) {
            stills_->cache().wait(deadline);
            lookForPicture();
            continue;
        }
        const bool polls = stage_ == Stage::Stepping;
        if (polls && awaited_ == 0)
            awaited_ = channel_.ask("pause", MPV_FORMAT_FLAG);
        channel_.wait([this](const mpv_event& event) { hear(event); }, polls ? now() + kStepPoll : deadline,
                      [&] { return !waitsForPlayer() || (stage_ == Stage::Stepping) != polls; });
    }
    gaveUp_ = stage_ != Stage::Rest;
    if (stills_ != nullptr && !gaveUp_)
        stills_->sync();
    return !gaveUp_;
}

bool MpvDevice::ready()
{
    drain();
    // Nobody tells of the end of a step by itself.
    if (stage_ == Stage::Stepping && awaited_ == 0)
        awaited_ = channel_.ask("pause", MPV_FORMAT_FLAG);
    return stage_ == Stage::Rest && isDrawn();
}

MediaReading MpvDevice::read()
{
    drain();
    followLater();
    tireOfScrub();
    if (!running_ || ended_)
        return {place_, ended_};
    if (stage_ == Stage::Rest) {
        if (placeAsked_ == 0)
            askPlace();
        if (now() - placeAt_ > kFreshPlace)
            channel_.wait([this](const mpv_event& event) { hear(event); }, now() + kStaleReadLimit,
                          [this] { return placeAsked_ == 0; });
    }
    if (ended_)
        return {place_, true};
    const double reckoned = stage_ == Stage::Rest ? reckonedSince(placeAt_) : 0;
    lastRead_ = std::max(lastRead_, place_ + reckoned);
    return {lastRead_, false};
}

void MpvDevice::prepareRead()
{
    drain();
    if (running_ && !ended_ && stage_ == Stage::Rest && placeAsked_ == 0)
        askPlace();
}

double MpvDevice::reckonedSince(Moment moment) const
{
    const double seconds =
        speed_ * std::chrono::duration<double>(std::min<Moment::duration>(now() - moment, kFreshPlace)).count();
    // Whole frames only: what is reported is the time of a frame.
    return facts_.frameRate > 0 ? std::floor(seconds * facts_.frameRate) / facts_.frameRate : seconds;
}

FrameCounts MpvDevice::counts()
{
    const auto number = [this](const char* property) {
        std::int64_t value = 0;
        return mpv_get_property(channel_.handle(), property, MPV_FORMAT_INT64, &value) >= 0 ? static_cast<long>(value)
                                                                                            : 0L;
    };
    FrameCounts result;
    result.eased = static_cast<int>(ease_);
    result.width = static_cast<int>(number("video-dec-params/w"));
    result.dropped = number("frame-drop-count") + number("decoder-frame-drop-count");
    result.shown = std::max(0L, number("estimated-frame-number") + 1 - result.dropped);
    return result;
}

void MpvDevice::setVolume(double volume) { channel_.set("volume", volume * 100); }

} // namespace tandrel
