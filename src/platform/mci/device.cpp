#include "platform/mci/device.h"

#include "platform/mci/mci_error.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

namespace tandrel
{

namespace
{
// Counts "frames" where there is no picture to count.
constexpr double kNominalFrameRate = 25;
// How far ahead the end is said to lie while it is unknown.
constexpr double kUnknownSecondsAhead = 1;
constexpr double kMillisecondsPerSecond = 1000;
// A whole number of milliseconds stands for all times that are rounded to it.
constexpr double kIntoMillisecond = 0.5;
// A frame is aimed at a little behind its beginning, because some containers round their time stamps.
constexpr double kIntoFrame = 0.25;
constexpr double kSamePicture = 1e-6;
// A seek that takes longer is waited for, and found to hang.
constexpr std::chrono::seconds kSeekPatience{2};
// Places are numbers of 32 bits to those who read them; only a file with a false length is longer.
constexpr double kLargestPlace = std::numeric_limits<std::int32_t>::max();
} // namespace

Device::Device(std::unique_ptr<MediaDevice> media)
    : media_(std::move(media)), placeWanted_(PixelRect{0, 0, facts().width, facts().height})
{
}

double Device::unitsPerSecond(TimeFormat format) const
{
    if (format == TimeFormat::Milliseconds)
        return kMillisecondsPerSecond;
    return facts().frameRate > 0 ? facts().frameRate : kNominalFrameRate;
}

double Device::placeOf(double seconds) const
{
    return std::clamp(std::nearbyint(seconds * unitsPerSecond()), 0.0, kLargestPlace);
}

std::optional<double> Device::knownLength() const
{
    const auto seconds = facts().length ? facts().length : foundLength_;
    if (!seconds)
        return {};
    return placeOf(*seconds);
}

double Device::belowLength(double place) const
{
    const auto length = knownLength();
    return length ? std::max(0.0, std::min(place, *length - 1)) : place;
}

void Device::play(Moment now)
{
    if (running_ || startWanted_)
        return;
    if (stepped_ && atEnd())
        settleAtRest();
    mode_ = atEnd() ? Mode::Stopped : Mode::Playing;
    if (!atEnd())
        startWanted_ = now;
}

void Device::put(const PixelRect& place)
{
    if (placeWanted_)
        placeWanted_ = place;
    else
        media_->put(place);
}

void Device::show()
{
    // A step may need several moves, each of which is sent when the one before is known to be done.
    if (!running_)
        media_->read();
    showPlace();
}

void Device::showPlace()
{
    if (!placeWanted_)
        return;
    media_->put(*placeWanted_);
    placeWanted_.reset();
}

void Device::start()
{
    show();
    startWanted_.reset();
    ahead_.reset();
    media_->play();
    running_ = true;
    mayHaveEnded_ = false;
    asked_.reset();
}

void Device::stopRunning()
{
    startWanted_.reset();
    if (!running_)
        return;
    media_->pause();
    running_ = false;
    mayHaveEnded_ = true;
}

void Device::pause()
{
    stopRunning();
    mode_ = Mode::Paused;
}

bool Device::standsAt(double place)
{
    if (running_ || !media_->ready())
        return false;
    double stands = 0;
    return position(true, {}, stands) == mci_error::kNone && stands == place;
}

void Device::goTo(double place, Moment now)
{
    ahead_.reset();
    const auto length = knownLength();
    // The picture is the right one already, and whoever plays on from it need not wait.
    if (standsAt(place)) {
        if (length && !atEnd())
            asked_ = AskedPlace{
                .end = false, .value = place, .format = format_, .shown = media_->read().seconds, .since = now};
        return;
    }
    mayHaveEnded_ = stepped_ = false;
    if (length && place >= *length) {
        asked_ = AskedPlace{.end = true, .value = *length, .format = format_, .shown = {}, .since = now};
        media_->seekToEnd();
        return;
    }
    place = std::max(0.0, place);
    asked_.reset();
    // Nobody knows whether there is anything at a place in a medium of unknown length.
    if (length)
        asked_ = AskedPlace{.end = false, .value = place, .format = format_, .shown = {}, .since = now};
    media_->seek((place + (format_ == TimeFormat::Milliseconds ? kIntoMillisecond : kIntoFrame)) / unitsPerSecond());
}

int Device::seek(double place, Moment now)
{
    stopRunning();
    if (mode_ == Mode::Playing)
        mode_ = Mode::Stopped;
    goTo(place, now);
    return mci_error::kNone;
}

int Device::playFrom(double place, Moment now)
{
    const auto length = knownLength();
    if (length && place >= *length) {
        seek(place, now);
        mode_ = Mode::Stopped;
        return mci_error::kNone;
    }
    goTo(place, now);
    mode_ = Mode::Playing;
    if (running_) {
        asked_.reset();
        // It may have come to its end, and stopped there, since anybody looked.
        media_->play();
    } else {
        startWanted_ = now;
    }
    return mci_error::kNone;
}

int Device::step(StepDirection direction)
{
    const auto ahead = std::exchange(ahead_, std::nullopt);
    return ahead && ahead->direction == direction ? ahead->result : beginStep(direction);
}

void Device::stepAhead(StepDirection direction) { ahead_ = Ahead{direction, beginStep(direction)}; }

int Device::beginStep(StepDirection direction)
{
    stopRunning();
    mode_ = Mode::Paused;
    if (!settleAtRest())
        return mci_error::kNotReady;
    if (!atEnd() || direction == StepDirection::Backward) {
        media_->step(direction);
        stepped_ = true;
    }
    return mci_error::kNone;
}

MediaReading Device::look()
{
    const MediaReading reading = media_->read();
    if (running_ && reading.ended) {
        running_ = false;
        mode_ = Mode::Stopped;
        noteEnd(reading.seconds);
    }
    return reading;
}

void Device::noteEnd(double seconds)
{
    // The last frame is there for as long as any other.
    if (!facts().length)
        foundLength_ =
            std::max(seconds + (facts().frameRate > 0 ? 1 / facts().frameRate : 0), foundLength_.value_or(0));
    asked_ = AskedPlace{.end = true, .value = 0, .format = format_, .shown = {}, .since = {}};
}

bool Device::seekIsUnderWay(Moment now)
{
    // It will bring the place that was asked for, so that nobody need wait to hear of it: a thumb that is dragged would
    // lag behind its pointer.
    return asked_ && !asked_->end && !asked_->shown && asked_->format == format_ &&
           now - asked_->since < kSeekPatience && !media_->ready();
}

bool Device::settleInTime()
{
    late_ = !media_->settle();
    return !late_;
}

bool Device::settleAtRest()
{
    if (!settleInTime())
        return false;
    const MediaReading reading = media_->read();
    if (mayHaveEnded_ && reading.ended)
        noteEnd(reading.seconds);
    mayHaveEnded_ = stepped_ = false;
    if (!asked_)
        return true;
    if (!asked_->shown)
        asked_->shown = reading.seconds;
    else if (std::abs(*asked_->shown - reading.seconds) > kSamePicture)
        asked_.reset();
    return true;
}

int Device::position(bool afterSeeks, Moment now, double& answer)
{
    if (running_) {
        if (afterSeeks && !settleInTime())
            return mci_error::kNotReady;
        const MediaReading reading = look();
        answer = belowLength(placeOf(reading.seconds));
    }
    if (running_)
        return mci_error::kNone;
    if (!afterSeeks && seekIsUnderWay(now)) {
        answer = asked_->value;
        return mci_error::kNone;
    }
    if (!settleAtRest())
        return mci_error::kNotReady;
    if (atEnd())
        answer = length();
    else if (asked_ && asked_->format == format_)
        answer = asked_->value;
    else
        answer = belowLength(placeOf(media_->read().seconds));
    return mci_error::kNone;
}

double Device::length()
{
    if (const auto known = knownLength())
        return *known;
    if (!running_)
        media_->settle();
    const double seconds = look().seconds;
    return knownLength().value_or(placeOf(seconds + kUnknownSecondsAhead));
}

DeviceLook Device::lookOn()
{
    const MediaReading reading = look();
    DeviceLook result;
    result.playing = mode_ == Mode::Playing;
    result.ended = atEnd();
    result.length = facts().length ? facts().length : foundLength_;
    const double limit = result.length.value_or(std::numeric_limits<double>::max());
    if (!running_ && result.ended)
        result.place = result.length.value_or(reading.seconds);
    else if (!running_ && asked_)
        result.place = asked_->value / unitsPerSecond(asked_->format);
    else
        result.place = std::clamp(reading.seconds, 0.0, std::max(0.0, limit));
    return result;
}

std::string_view Device::mode()
{
    if (running_)
        look();
    // Whoever asked for a move learns of it here only once it takes longer than anybody waits.
    if (late_ && !settleInTime())
        return "seeking";
    switch (mode_) {
    case Mode::Playing:
        return "playing";
    case Mode::Paused:
        return "paused";
    case Mode::Stopped:
        break;
    }
    return "stopped";
}

} // namespace tandrel
