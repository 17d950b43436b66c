/// Pictures on the way to places that change faster than a player finds them: a thumb is dragged along a film.
#pragma once

#include "platform/mpv/step_cache.h"

namespace tandrel
{

/// A player that seeks begins at a key frame for each place, and shows nothing before it has got there. This decodes on
/// where it is, as long as that leads to the newest place sooner, and shows something of the way every tenth of a
/// second. Times are seconds by the player's clock. For one thread.
class Scrub
{
public:
    Scrub(const StepTools& tools, MediaSource source);
    ~Scrub() { stop(); }
    Scrub(const Scrub&) = delete;
    Scrub& operator=(const Scrub&) = delete;

    /// The place that is wanted from now on, in pictures of this size.
    void aim(double time, PictureSize size);
    /// The newest picture, once. `StepTools::wake` tells when there is one.
    std::optional<KeptPicture> take();
    /// This medium can't be read in this way.
    bool failed() const;
    /// Nothing is wanted any more, and the decoder goes: with the job at work, if there is one.
    void stop();

private:
    class Job;
    struct Shared;

    const std::shared_ptr<StepWorkers> workers_;
    std::shared_ptr<Shared> shared_;
};

} // namespace tandrel
