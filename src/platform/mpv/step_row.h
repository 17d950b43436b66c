/// Neighbouring pictures of a medium, by their times: what is kept for steps, and which picture a step leads to.
#pragma once

#include "platform/mpv/step_budget.h"

#include <cstddef>
#include <deque>
#include <memory>
#include <optional>

namespace tandrel
{

class StepPicture;

/// Times are seconds by the player's clock.
struct KeptPicture {
    double time = 0;
    /// Null where nothing is shown.
    std::shared_ptr<const StepPicture> picture;
};

/// Between two pictures of the row there is no other one in the medium. Not for several threads at once.
class StepRow
{
public:
    /// `tolerance`: what times of the same picture may differ by.
    explicit StepRow(double tolerance = 0.001) : tolerance_(tolerance) {}

    /// The picture that follows the newest one. False if its time is no later.
    bool append(KeptPicture picture);
    /// Puts an older row before this one; its last picture has to be followed by the first one here.
    void prepend(StepRow older);
    /// Only as many of the newest ones stay.
    void keepNewest(std::size_t count);
    /// Only as many stay behind the one of this time. What goes is handed out, since freeing it takes a while.
    std::deque<KeptPicture> keepBehind(double time, std::size_t count);

    std::size_t size() const { return pictures_.size(); }
    bool empty() const { return pictures_.empty(); }
    const KeptPicture& oldest() const { return pictures_.front(); }
    const KeptPicture& newest() const { return pictures_.back(); }

    /// How many pictures there are before the one of this time; empty if there is no such picture.
    std::optional<std::size_t> find(double time) const;
    /// The picture before or behind the one of this time, as far as it is here.
    const KeptPicture* before(double time) const;
    const KeptPicture* behind(double time) const;
    /// True if a picture of this time would have to be here, and is not.
    bool misses(double time) const;

    /// The picture of this time, which is not here, comes right behind the newest one.
    void follow(double time) { follower_ = time; }
    /// True if that is known of these two.
    bool isFollowed(double newest, double time) const;

private:
    double tolerance_;
    std::deque<KeptPicture> pictures_;
    std::optional<double> follower_;
};

} // namespace tandrel
