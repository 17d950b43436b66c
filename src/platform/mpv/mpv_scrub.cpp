// Places that change faster than the player finds them: the part of MpvDevice that shows something of the way.
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
// When no other place has come for so long the player is told of the last one.
constexpr auto kMovementIsOver = 200ms;
constexpr double kTimeEpsilon = 1e-6;
} // namespace

bool MpvDevice::scrubTo(double seconds, Moment now)
{
    const bool seeks = stage_ == Stage::Sent || stage_ == Stage::Taken || stage_ == Stage::Seeking;
    const bool moves = stage_ == Stage::Scrubbing || (seeks && now - soughtAt_ < kOneMovement);
    if (!moves || running_ || scrub_ == nullptr || scrub_->failed() || window_ == nullptr || canvas_.empty() ||
        !origin_)
        return false;
    forgetMoves();
    forgetPictures();
    endFollowing();
    stage_ = Stage::Scrubbing;
    awaited_ = placeAsked_ = 0;
    behind_.reset();
    ended_ = pictureIsPast_ = false;
    place_ = lastRead_ = std::max(0.0, seconds - kTimeEpsilon);
    scrub_->aim(playerTime(seconds), canvas_);
    stills_->cache().wakeAt(now + kMovementIsOver);
    return true;
}

void MpvDevice::followScrub()
{
    const auto picture = scrub_->take();
    // While there is no place for a picture none is missed.
    const bool blind = picture && !canvas_.empty() && !stills_->show(*picture);
    if (blind || scrub_->failed() || Moment::clock::now() - soughtAt_ >= kMovementIsOver)
        endScrub();
    // Where stills can't be shown the player does better.
    if (blind)
        scrub_.reset();
}

void MpvDevice::endScrub()
{
    scrub_->stop();
    stage_ = Stage::Rest;
    seekByPlayer(sought_);
}

} // namespace tandrel
