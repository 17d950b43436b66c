// Places that are found without the player, which follows: the part of MpvDevice that shows the pictures there, and
// something of the way where places change faster than anybody finds them.
#include "platform/mpv/mpv_device.h"

#include <algorithm>
#include <cmath>

namespace tandrel
{

namespace
{
using namespace std::chrono_literals;

// Two seeks that follow each other by no more are part of one movement.
constexpr auto kOneMovement = 300ms;
// When no other place has come for so long the player is told of the last one, once it has been found.
constexpr auto kMovementIsOver = 200ms;
// Whoever waits for a place waits for the player too. What takes longer than this is left to it at once.
constexpr auto kLongestWay = 600ms;
// A decoder that rests takes memory, which is well spent while more places are clicked at.
constexpr auto kLongestRest = 10s;
} // namespace

bool MpvDevice::scrubTo(double seconds, Moment now)
{
    const bool steps = stage_ == Stage::Stepping || stage_ == Stage::Filling;
    // The player finds the first picture as soon as anybody, and a play from there is to be expected.
    const bool first = seconds * facts_.frameRate < 1;
    if (running_ || steps || first || scrub_ == nullptr || scrub_->failed() || window_ == nullptr || canvas_.empty() ||
        !origin_)
        return false;
    const bool seeks = waitsForPlayer() && now - soughtAt_ < kOneMovement;
    if (!scrub_->aim(playerTime(seconds), canvas_, seeks))
        return false;
    forgetMoves();
    forgetPictures();
    endFollowing();
    stage_ = Stage::Scrubbing;
    awaited_ = placeAsked_ = 0;
    behind_.reset();
    ended_ = pictureIsPast_ = false;
    place_ = lastRead_ = std::max(0.0, seconds - kTimeEpsilon);
    stills_->cache().wakeAt(now + kMovementIsOver);
    stills_->cache().wakeAt(now + kLongestWay);
    return true;
}

void MpvDevice::followScrub()
{
    const auto picture = scrub_->take();
    // While there is no place for a picture none is missed.
    const bool blind = picture && !canvas_.empty() && !stills_->show(*picture);
    const auto since = Moment::clock::now() - soughtAt_;
    const bool found = scrub_->arrived() && since >= kMovementIsOver;
    if (blind || found || since >= kLongestWay || scrub_->failed())
        endScrub();
    // Where stills can't be shown the player does better.
    if (blind)
        scrub_.reset();
}

void MpvDevice::endScrub()
{
    scrub_->rest();
    stage_ = Stage::Rest;
    seekByPlayer(sought_);
}

void MpvDevice::dropScrub()
{
    if (scrub_ != nullptr)
        scrub_->stop();
}

void MpvDevice::tireOfScrub()
{
    if (stage_ == Stage::Rest && Moment::clock::now() - soughtAt_ >= kLongestRest)
        dropScrub();
}

} // namespace tandrel
