/// Where the picture is, from what libVLC tells of the demultiplexer.
#pragma once

#include "platform/vlc/disc_state.h"

#include <optional>

namespace tandrel
{

/// libVLC's time is that of the demultiplexer less what has been read ahead, and steps by half a second or so, whenever
/// another unit of the disc is begun. At such a step the picture is as far behind as pictures on this disc lie ahead of
/// their time; between the steps it goes on evenly.
class DiscClock
{
public:
    /// How far ahead of its time a picture lies on the disc, in seconds.
    void setLead(double seconds) { lead_ = seconds; }
    struct Jump {
        double seconds = 0;
        /// libVLC goes to this very place, not to one near it.
        bool exact = true;
        /// What libVLC was asked for, which it repeats as its time at once.
        double asked = -1;
    };
    /// The picture goes elsewhere, and stands there until its time has come. What is told of other places meanwhile is
    /// of the old one.
    void jump(const Jump& jump, SteadyTime now);
    /// libVLC's time, at its arrival.
    void hear(double seconds, SteadyTime when);
    /// At this rate from now on; 0 holds it.
    void run(double rate, SteadyTime now);
    double at(SteadyTime now) const { return place_.at(now); }
    RunningPlace place() const { return place_; }
    void setLast(double seconds) { place_.last = seconds; }

private:
    void settle(double seconds, SteadyTime since);
    bool isStrange(double seconds, SteadyTime when);
    void arrive(double seconds, SteadyTime when);

    double lead_ = 0.3;
    double rate_ = 0;
    RunningPlace place_;
    /// Since the last jump.
    std::optional<double> heard_;
    std::optional<Jump> jump_;
    SteadyTime jumped_;
    /// Since when libVLC's time has been elsewhere, though nobody asked for that.
    std::optional<SteadyTime> strangeSince_;
    /// No step has been seen since the jump.
    bool fresh_ = true;
};

} // namespace tandrel
