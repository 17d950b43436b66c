/// The pictures before the one at rest, so that steps back cost nothing. Times are seconds by the player's clock.
#pragma once

#include "platform/mpv/step_fill.h"

namespace tandrel
{

/// What all devices of an engine share.
struct StepTools {
    std::shared_ptr<StepWorkers> workers;
    std::shared_ptr<StepBudget> budget;
    /// May be called from any thread when there is news for somebody who does not wait; may be empty.
    std::function<void()> wake;
    /// Held by the one device whose player is being brought along.
    std::shared_ptr<std::atomic<bool>> follows = std::make_shared<std::atomic<bool>>(false);
    /// Held by the one device whose places are being found without its player.
    std::shared_ptr<std::atomic<bool>> scrubs = std::make_shared<std::atomic<bool>>(false);
};

/// For one thread, which waits only where it says so.
class StepCache
{
public:
    using Moment = StepJob::Moment;

    /// `tolerance`: what times of the same picture may differ by.
    StepCache(const StepTools& tools, MediaSource source, double tolerance);
    ~StepCache();
    StepCache(const StepCache&) = delete;
    StepCache& operator=(const StepCache&) = delete;

    /// From now on pictures are wanted in this size; those of other sizes go. An empty size: times without pictures.
    /// True if there was anything to go.
    bool setSize(PictureSize size);
    /// Steps back from about this time may come: the pictures before it are made from `due` on.
    void aim(double time, Moment due);
    /// Forgets everything.
    void drop();

    enum class Answer { Here, Coming, Elsewhere };
    /// The picture before the one of this time, for somebody who waits. Elsewhere: it has to be found another way.
    Answer before(double time, KeptPicture& found);
    /// The picture behind the one of this time, if it is here.
    std::optional<KeptPicture> behind(double time);
    /// The picture of this time is shown: those before it are made in time.
    void prepareFor(double time);
    /// The player has stepped from one picture to the next. True if the next one has its place here now.
    bool follows(double time, double next);
    /// True if these two are such neighbours.
    bool isFollowed(double time, double next);

    /// Has `wake` called at that time.
    void wakeAt(Moment due);
    /// Waits for pictures that are coming.
    void wait(Moment deadline);

private:
    std::size_t capacity() const;
    /// Under the lock. The job is told to the workers by `send`, without it.
    std::shared_ptr<StepFill> order(StepOrder order);
    void cancelJob();
    /// True if the job brings pictures up to this time, as fast as that can be done.
    bool comesSoon(double time) const;
    std::shared_ptr<StepFill> orderOlder(std::size_t room, std::deque<KeptPicture> discarded);
    std::shared_ptr<StepFill> orderUpTo(double time, std::size_t most);
    void send(const std::shared_ptr<StepFill>& job, Moment due);
    void hurry(const std::shared_ptr<StepFill>& job);

    const std::shared_ptr<StepWorkers> workers_;
    const std::shared_ptr<StepBudget> budget_;
    const MediaSource source_;
    const double tolerance_;
    const std::shared_ptr<StepShelf> shelf_;
    PictureSize size_;
    /// Where the last fill was to end.
    std::optional<double> target_;
};

} // namespace tandrel
