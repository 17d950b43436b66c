#include "platform/vlc/disc_clock.h"

#include <cmath>

namespace tandrel
{

namespace
{
// Between two units of a disc lie 0.4 to 1 s.
constexpr double kStep = 0.25;
// libVLC comes so near to a place that it is asked for.
constexpr double kNear = 1.5;
// After that time it stands elsewhere for good.
constexpr double kLongestJump = 1.5;
// After that time it is true.
constexpr double kLongestStrange = 0.7;
// More than this is no error of the measurement.
constexpr double kElsewhere = 0.6;
// Of the difference, at each step: one step alone may have come late.
constexpr double kTrust = 0.3;
// Right behind a jump libVLC's time is so much before the picture.
constexpr double kBehindAtArrival = 0.12;
// Then the first picture stands for so much longer than it lies ahead.
constexpr double kPreparation = 0.05;

SteadyTime after(SteadyTime time, double seconds)
{
    return time + std::chrono::duration_cast<SteadyTime::duration>(std::chrono::duration<double>(seconds));
}
} // namespace

void DiscClock::jump(const Jump& jump, SteadyTime now)
{
    place_.seconds = jump.seconds;
    place_.since = now;
    place_.speed = 0;
    heard_.reset();
    jump_ = jump;
    jumped_ = now;
    fresh_ = true;
    strangeSince_.reset();
}

void DiscClock::settle(double seconds, SteadyTime since)
{
    place_.seconds = seconds;
    place_.since = since;
    place_.speed = rate_;
}

void DiscClock::arrive(double seconds, SteadyTime when)
{
    const bool near = std::abs(seconds - jump_->seconds) <= kNear;
    const double place = jump_->exact && near ? jump_->seconds : seconds + kBehindAtArrival;
    settle(place, after(when, (lead_ + kPreparation) / std::max(rate_, 1.0)));
    jump_.reset();
}

void DiscClock::hear(double seconds, SteadyTime when)
{
    if (jump_) {
        const bool far = std::abs(seconds - jump_->seconds) > kNear;
        if (when < jumped_ || (far && secondsBetween(jumped_, when) < kLongestJump) ||
            std::abs(seconds - jump_->asked) < 0.002)
            return;
        arrive(seconds, when);
    }
    if (isStrange(seconds, when))
        return;
    const bool step = heard_ && std::abs(seconds - *heard_) > kStep;
    heard_ = heard_ && !step ? std::max(*heard_, seconds) : seconds;
    if (!step || rate_ <= 0)
        return;
    const double measured = seconds - lead_;
    const double error = measured - place_.at(when);
    const bool elsewhere = std::abs(error) > kElsewhere * std::max(rate_, 1.0);
    settle(fresh_ || elsewhere ? measured : place_.at(when) + kTrust * error, when);
    fresh_ = false;
}

/// At the end of a title libVLC tells the time of the menu behind it before it tells that the title has changed.
bool DiscClock::isStrange(double seconds, SteadyTime when)
{
    const bool strange = heard_ && std::abs(seconds - *heard_) > kNear * std::max(rate_, 1.0);
    if (!strange) {
        strangeSince_.reset();
        return false;
    }
    if (!strangeSince_)
        strangeSince_ = when;
    return secondsBetween(*strangeSince_, when) < kLongestStrange;
}

void DiscClock::run(double rate, SteadyTime now)
{
    if (rate == rate_)
        return;
    place_.seconds = place_.at(now);
    place_.since = std::max(place_.since, now);
    place_.speed = jump_ ? 0 : rate;
    rate_ = rate;
}

} // namespace tandrel
