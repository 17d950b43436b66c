// Seeks and steps: the part of MpvDevice that brings the picture that was asked for.
#include "platform/mpv/mpv_device.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace tandrel
{

namespace
{
// An exact seek of libmpv shows the first frame that is not earlier than this before the target.
constexpr double kSeekTolerance = 0.005;
// How many seconds before the target a seek begins to decode, from one try to the next: in some files the index, or the
// guess that stands for one, leads to a place behind the target.
constexpr std::array kSeekMargins{0.0, 1.0, 4.0, 16.0};
// Seconds before the last picture from which on libmpv has read all of them. Sound that comes on there never gets in
// step, and the end is never reached.
constexpr double kSilentEnd = 1.2;
// More frames than this behind the wanted place is not the rounding of a time stamp.
constexpr double kMuchTooLate = 1.5;
constexpr std::initializer_list<const char*> kSeekToEnd{"seek", "100", "absolute-percent+exact"};
} // namespace

void MpvDevice::seek(double seconds)
{
    const auto now = Moment::clock::now();
    if (!scrubTo(seconds, now)) {
        // What is left of a movement would be shown in the next one.
        if (stage_ == Stage::Scrubbing)
            scrub_->stop();
        seekByPlayer(seconds);
    }
    sought_ = seconds;
    soughtAt_ = now;
}

void MpvDevice::seekByPlayer(double seconds)
{
    // A step that runs would be lost in the seek, and before the first picture nobody knows where the medium begins.
    if (stage_ == Stage::Stepping || !origin_)
        settle();
    if (!seekable_)
        return;
    gaveUp_ = false;
    forgetMoves();
    forgetPictures();
    if (!running_)
        wanted_ = seconds;
    correction_ = Correction::None;
    sendExactSeek(facts_.frameRate > 0 ? frameAt(seconds) / facts_.frameRate : seconds);
    // Whoever asks for a time between two units wants to hear the lower one.
    place_ = lastRead_ = std::max(0.0, seconds - kTimeEpsilon);
}

void MpvDevice::seekToEnd()
{
    if (stage_ == Stage::Scrubbing)
        endScrub();
    if (stage_ == Stage::Stepping || !origin_)
        settle();
    if (!seekable_)
        return;
    gaveUp_ = false;
    forgetMoves();
    forgetPictures();
    sendEnd();
}

void MpvDevice::forgetPictures()
{
    if (stills_ != nullptr)
        stills_->cache().drop();
}

void MpvDevice::step(StepDirection direction)
{
    if (facts_.frameRate <= 0)
        return;
    gaveUp_ = false;
    forgetMoves();
    if (direction == StepDirection::Backward && pictureIsPast_) {
        thenBack_ = true;
        sendEnd();
    } else if (direction == StepDirection::Backward) {
        stepBack();
    } else if (!pictureIsPast_ && !stepOnWithoutPlayer()) {
        sendStepOn();
    }
}

void MpvDevice::sendStepOn()
{
    if (decodeAll()) {
        // Which picture is the next one a decoder knows that has seen all of them.
        returnTo_ = place_;
        thenOn_ = true;
        sendExactSeek(place_);
        return;
    }
    steppedFrom_ = place_;
    showAtOnce(true);
    channel_.command({"frame-step"});
    outputTurns_ = 0;
    stage_ = Stage::Stepping;
    stepsOn_ = true;
    awaited_ = 0;
}

void MpvDevice::showAtOnce(bool on)
{
    if (showsAtOnce_ != on)
        channel_.command({"set", "untimed", on ? "yes" : "no"});
    showsAtOnce_ = on;
}

void MpvDevice::sendEnd()
{
    // Sound that outlasts the picture would hide the time of the last picture.
    turnSound(false);
    endWanted_ = true;
    sendMove(kSeekToEnd);
}

void MpvDevice::sendExactSeek(double place) { sendSeek(exactTarget(place)); }

double MpvDevice::exactTarget(double place) const
{
    const bool hasFrames = facts_.frameRate > 0;
    return hasFrames ? place + kSeekTolerance - std::min(kSeekTolerance, 0.5 / facts_.frameRate) : place;
}

std::string MpvDevice::seekText(double target) const
{
    char text[40];
    std::snprintf(text, sizeof text, "%.9f", target + origin_.value_or(0));
    return text;
}

void MpvDevice::sendSeek(double target)
{
    target_ = target;
    sendMove({"seek", seekText(target).c_str(), "absolute+exact"});
}

void MpvDevice::sendMove(std::initializer_list<const char*> command)
{
    // What stands in front of the player stays until the player has moved.
    if (stills_ != nullptr)
        stills_->uncoverAfterSeek(channel_.handle());
    behind_.reset();
    endFollowing();
    if (!running_)
        decodeAll();
    meter_.restart();
    awaited_ = channel_.command(command);
    stage_ = Stage::Sent;
    placeAsked_ = 0;
    ended_ = false;
}

void MpvDevice::turnSound(bool on)
{
    // Without a picture the sound is all there is.
    if (!hasSound_ || facts_.frameRate <= 0 || soundIsOff_ != on)
        return;
    channel_.command({"set", "aid", on ? "auto" : "no"});
    soundIsOff_ = !on;
}

void MpvDevice::restoreSound()
{
    if (!silentFrom_ && !running_) {
        // The end was left again before it was found.
        const double place = place_;
        forgetMoves();
        sendEnd();
        settle();
        forgetMoves();
        returnTo_ = place;
        sendExactSeek(place);
        settle();
    }
    if (silentFrom_ && place_ < *silentFrom_)
        turnSound(true);
}

void MpvDevice::forgetMoves()
{
    wanted_.reset();
    backFrom_.reset();
    returnTo_.reset();
    endWanted_ = stepsOn_ = thenBack_ = thenOn_ = false;
}

void MpvDevice::placeKnown()
{
    if ((wanted_ && correctSeek()) || (backFrom_ && correctStep()) || (endWanted_ && correctEnd()) ||
        (returnTo_ && correctReturn()))
        return;
    if (stepsOn_ && pictureIsPast_) {
        // The step has brought the last picture, whose time only a seek without the sound can tell.
        forgetMoves();
        sendEnd();
        return;
    }
    if (endWanted_)
        silentFrom_ = place_ - kSilentEnd;
    const bool back = thenBack_;
    const bool on = thenOn_;
    const bool steppedOn = stepsOn_;
    forgetMoves();
    stage_ = Stage::Rest;
    restAtPicture(steppedOn);
    if (back)
        stepBack();
    else if (on)
        sendStepOn();
}

double MpvDevice::frameAt(double seconds) const
{
    // The rate of many files is a little too low, since the last frame takes longer: frames are due before it says so.
    return std::floor((seconds + samePicture()) * facts_.frameRate + kTimeEpsilon);
}

bool MpvDevice::isExpected(double seconds) const
{
    const double frame = frameAt(*wanted_);
    const bool isNext = frame > *wanted_ * facts_.frameRate + kTimeEpsilon;
    if (isNext && seconds > *wanted_ + kTimeEpsilon)
        return false;
    return std::abs(seconds - frame / facts_.frameRate) <= samePicture();
}

bool MpvDevice::correctSeek()
{
    if (facts_.frameRate <= 0 || pictureIsPast_ || isExpected(place_) || correction_ == Correction::SteppedBack)
        return false;
    const double late = place_ - *wanted_;
    if (late * facts_.frameRate > kMuchTooLate && growMargin()) {
        sendSeek(target_);
        return true;
    }
    if (late > kTimeEpsilon) {
        correction_ = Correction::SteppedBack;
        sendMove({"frame-back-step"});
        return true;
    }
    if (correction_ == Correction::LookedBehind)
        return false;
    // Frames do not come at even distances here: the last one that is early enough is the one before the first late
    // one.
    correction_ = Correction::LookedBehind;
    sendSeek(*wanted_ + kSeekTolerance + kTimeEpsilon);
    return true;
}

bool MpvDevice::correctStep()
{
    const bool first = *backFrom_ < 0.5 / facts_.frameRate;
    if (first || place_ < *backFrom_ - kTimeEpsilon || !growMargin())
        return false;
    sendMove({"frame-back-step"});
    return true;
}

bool MpvDevice::correctEnd()
{
    // A place at the very end is no frame's: the seek has found sound only.
    const bool picture = facts_.frameRate <= 0 || place_ <= facts_.length.value_or(0) - 0.5 / facts_.frameRate;
    if (picture || margin_ == 0 || !growMargin())
        return false;
    sendMove(kSeekToEnd);
    return true;
}

bool MpvDevice::growMargin()
{
    if (margin_ + 1 >= kSeekMargins.size())
        return false;
    ++margin_;
    channel_.set("hr-seek-demuxer-offset", kSeekMargins[margin_]);
    return true;
}

} // namespace tandrel
