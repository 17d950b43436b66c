/// Places that are found sooner than a player finds them: a thumb is dragged along a film, or clicked along.
#pragma once

#include "platform/mpv/step_cache.h"

namespace tandrel
{

/// A player that seeks begins at a key frame for each place, and shows nothing before it has got there. This decodes on
/// where it is, as long as that leads to the newest place sooner, and can show something of the way every tenth of a
/// second. Of all that share their tools one is at work at a time: a group of videos is faster without. Times are
/// seconds by the player's clock. For one thread.
class Scrub
{
public:
    Scrub(const StepTools& tools, MediaSource source);
    ~Scrub() { stop(); }
    Scrub(const Scrub&) = delete;
    Scrub& operator=(const Scrub&) = delete;

    /// The place that is wanted from now on, in pictures of this size: its own, and some of the way if `way` is set.
    /// False if it is another one's turn.
    bool aim(double time, PictureSize size, bool way);
    /// The newest picture, once. `StepTools::wake` tells when there is one.
    std::optional<KeptPicture> take();
    /// The place has been found, or there is none. `StepTools::wake` tells of that too.
    bool arrived() const;
    /// This medium can't be read in this way.
    bool failed() const;
    /// Nothing is wanted for now. Where the place has been found the decoder stays there, for one further on.
    void rest();
    /// Nothing is wanted any more, and the decoder goes: with the job at work, if there is one.
    void stop();

private:
    class Job;
    struct Shared;

    void giveTurn();

    const std::shared_ptr<StepWorkers> workers_;
    const std::shared_ptr<std::atomic<bool>> turn_;
    bool hasTurn_ = false;
    std::shared_ptr<Shared> shared_;
};

} // namespace tandrel
