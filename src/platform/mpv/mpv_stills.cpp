// Steps that the player knows nothing of: the part of MpvDevice that shows pictures which are there already.
#include "platform/mpv/mpv_device.h"

#include <algorithm>
#include <cmath>

namespace tandrel
{

namespace
{
using namespace std::chrono_literals;

// A pause that is over sooner than this costs nothing.
constexpr auto kGrace = 200ms;
// Somebody who steps on and on is not to be disturbed by a player that decodes.
constexpr auto kBeforeFollowing = 700ms;
constexpr double kOnItsWay = -1e9;
// A running device is further on than it said, by less than this. Seconds of the clock.
constexpr double kUnheardOf = 0.2;
constexpr double kStampTolerance = 0.001;
} // namespace

void MpvDevice::keepPictures(const StepTools& tools, const MediaSource& source)
{
    if (facts_.frameRate <= 0 || !seekable_)
        return;
    wake_ = tools.wake;
    turn_ = tools.follows;
    stills_ = std::make_unique<StepStills>(tools, MediaSource{source.path, source.mark, facts_.frameRate},
                                           samePicture(), window_.get());
    scrub_ = std::make_unique<Scrub>(tools, MediaSource{source.path, source.mark, facts_.frameRate});
}

double MpvDevice::samePicture() const { return std::min(kStampTolerance, 0.25 / facts_.frameRate); }

bool MpvDevice::isSamePicture(double one, double other) const { return std::abs(one - other) <= samePicture(); }

double MpvDevice::playerTime(double place) const { return place + origin_.value_or(0); }

void MpvDevice::expectSteps(double place)
{
    if (stills_ != nullptr && stills_->able() && origin_)
        stills_->cache().aim(playerTime(place), std::chrono::steady_clock::now() + kGrace);
}

void MpvDevice::expectStepsWhilePausing() { expectSteps(place_ + reckonedSince(placeAt_) + kUnheardOf * speed_); }

void MpvDevice::stepBack()
{
    backFrom_ = place_;
    stage_ = Stage::Filling;
    lookForPicture();
}

void MpvDevice::lookForPicture()
{
    const bool first = place_ <= samePicture();
    KeptPicture found;
    auto answer = StepCache::Answer::Elsewhere;
    if (stills_ != nullptr && stills_->able() && origin_ && !first)
        answer = stills_->cache().before(playerTime(place_), found);
    if (answer == StepCache::Answer::Coming)
        return;
    if (answer == StepCache::Answer::Here && show(found))
        return;
    if (!behind_) {
        sendMove({"frame-back-step"});
    } else if (first) {
        forgetMoves();
        stage_ = Stage::Rest;
    } else {
        bringPlayerHere();
        thenBack_ = true;
    }
}

bool MpvDevice::show(const KeptPicture& picture)
{
    if (!stills_->show(picture))
        return false;
    if (!behind_)
        behind_ = place_;
    place_ = std::max(0.0, picture.time - *origin_);
    ended_ = pictureIsPast_ = false;
    placeAsked_ = 0;
    forgetMoves();
    stage_ = Stage::Rest;
    followWanted_ = true;
    shownAt_ = std::chrono::steady_clock::now();
    stills_->cache().prepareFor(picture.time);
    stills_->cache().wakeAt(shownAt_ + kBeforeFollowing);
    return true;
}

bool MpvDevice::stepOnWithoutPlayer()
{
    if (!behind_)
        return false;
    // Never beyond the player: to bring it on takes as long as a seek.
    const auto next = stills_->cache().behind(playerTime(place_));
    if (next && (following_ || next->time <= playerTime(*behind_) + samePicture()) && show(*next))
        return true;
    if (stills_->cache().isFollowed(playerTime(place_), playerTime(*behind_))) {
        uncoverPlayer();
        return true;
    }
    if (isSamePicture(*behind_, place_)) {
        uncoverPlayer();
        return false;
    }
    bringPlayerHere();
    thenOn_ = true;
    return true;
}

void MpvDevice::followLater()
{
    const bool due = followWanted_ && behind_ && stage_ == Stage::Rest && !following_ &&
                     std::chrono::steady_clock::now() - shownAt_ >= kBeforeFollowing;
    // One after the other: the others' steps have a processor left.
    if (!due || isSamePicture(*behind_, place_) || turn_->exchange(true))
        return;
    followWanted_ = false;
    behind_ = kOnItsWay;
    const std::string target = seekText(exactTarget(place_));
    decodeAll();
    following_ = Following{Stage::Sent, channel_.command({"seek", target.c_str(), "absolute+exact"})};
    wakeForPlayer(true);
}

void MpvDevice::hearFollowing(const mpv_event& event)
{
    Following& move = *following_;
    const bool answers = event.reply_userdata == move.awaited;
    if (event.event_id == MPV_EVENT_COMMAND_REPLY && answers && move.stage == Stage::Sent)
        move.stage = Stage::Taken;
    else if (event.event_id == MPV_EVENT_SEEK && move.stage == Stage::Taken)
        move.stage = Stage::Seeking;
    if (event.event_id == MPV_EVENT_END_FILE ||
        (event.event_id == MPV_EVENT_COMMAND_REPLY && answers && event.error < 0))
        endFollowing();
    else if (event.event_id == MPV_EVENT_PLAYBACK_RESTART && move.stage == Stage::Seeking)
        move = {Stage::Reading, channel_.ask("time-pos", MPV_FORMAT_DOUBLE)};
    else if (event.event_id == MPV_EVENT_GET_PROPERTY_REPLY && answers && move.stage == Stage::Reading) {
        if (event.error >= 0 && behind_)
            behind_ = *static_cast<const double*>(static_cast<const mpv_event_property*>(event.data)->data) - *origin_;
        endFollowing();
    }
}

void MpvDevice::endFollowing()
{
    if (!following_)
        return;
    following_.reset();
    wakeForPlayer(false);
    *turn_ = false;
    // Others may be waiting for their turn.
    stills_->cache().wakeAt({});
}

void MpvDevice::wakeForPlayer(bool on)
{
    if (!wake_)
        return;
    const auto call = [](void* wake) { (*static_cast<std::function<void()>*>(wake))(); };
    mpv_set_wakeup_callback(channel_.handle(), on ? +call : nullptr, on ? &wake_ : nullptr);
}

void MpvDevice::uncoverPlayer()
{
    place_ = *behind_;
    behind_.reset();
    stills_->uncover();
}

void MpvDevice::bringPlayerHere()
{
    endFollowing();
    forgetMoves();
    returnTo_ = place_;
    // What is to follow has to be sent even if nobody asks.
    wakeForPlayer(true);
    sendExactSeek(place_);
}

bool MpvDevice::correctReturn()
{
    if (place_ <= *returnTo_ + samePicture() || !growMargin())
        return false;
    sendSeek(target_);
    return true;
}

void MpvDevice::restAtPicture(bool steppedOn)
{
    if (stills_ == nullptr || running_)
        return;
    stills_->uncover();
    wakeForPlayer(false);
    if (steppedOn && !stills_->cache().follows(playerTime(steppedFrom_), playerTime(place_)))
        expectSteps(place_);
}

void MpvDevice::makeReadyToPlay()
{
    drain();
    if (stage_ == Stage::Scrubbing)
        endScrub();
    awaitDrawing();
    if (!behind_ || stage_ != Stage::Rest)
        return;
    if (isSamePicture(*behind_, place_))
        uncoverPlayer();
    else
        bringPlayerHere();
}

void MpvDevice::runFromStill()
{
    if (stills_ == nullptr)
        return;
    stills_->cache().drop();
    if (stage_ == Stage::Filling) {
        // The step has been waited for in vain.
        forgetMoves();
        stage_ = Stage::Rest;
    }
    if (!behind_)
        return;
    if (isSamePicture(*behind_, place_))
        uncoverPlayer();
    else
        sendExactSeek(place_);
}

void MpvDevice::sizePictures(PictureSize size)
{
    if (stills_ == nullptr || !stills_->put(size))
        return;
    if (behind_ && isSamePicture(*behind_, place_))
        uncoverPlayer();
    else if (behind_ && stage_ == Stage::Rest)
        bringPlayerHere();
    if (!running_)
        expectSteps(place_);
}

} // namespace tandrel
