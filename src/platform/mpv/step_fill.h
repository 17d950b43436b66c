/// Decodes pictures for steps back in the background.
#pragma once

#include "platform/mpv/gop_reader.h"
#include "platform/mpv/step_row.h"
#include "platform/mpv/step_workers.h"

#include <condition_variable>
#include <functional>
#include <mutex>

namespace tandrel
{

class StepFill;

/// What a cache and its job have in common. Everything but the lock itself is read and written under the lock.
struct StepShelf {
    std::mutex mutex;
    /// Told when a job has ended.
    std::condition_variable changed;
    StepRow row;
    /// At work or waiting for its turn.
    std::shared_ptr<StepFill> job;
    /// Times or pictures do not agree with the player's: never again for this medium.
    bool doubtful = false;
    /// There was no memory for it.
    bool failed = false;
    /// Nothing comes before the oldest picture.
    bool complete = false;
    std::optional<PictureColours> colours;
    /// Called without the lock when a job has ended; never changes.
    std::function<void()> wake;
};

/// What to decode.
struct StepOrder {
    /// The newest picture wanted: up to `most` pictures that end here, none of which is later.
    double target = 0;
    /// They go before the row that there is, whose oldest picture is the target; otherwise they take its place.
    bool older = false;
    std::size_t most = 0;
    PictureSize size;
    double tolerance = 0;
    /// To be freed first.
    std::deque<KeptPicture> discarded;
};

class StepFill final : public StepJob
{
public:
    StepFill(std::shared_ptr<StepShelf> shelf, std::shared_ptr<StepBudget> budget, MediaSource source, StepOrder order);

    /// True where the pictures up to this time will be among those that it brings.
    bool covers(double time) const;
    bool older() const { return order_.older; }
    std::size_t most() const { return order_.most; }
    bool begun() const { return begun_; }

    bool work(Moment until) override;

private:
    enum class State { Going, Done, Failed, Doubtful };

    bool begin();
    /// Begins to read further ahead of the target than before, as far as there is anything.
    bool seekFurther();
    State readOne();
    State take();
    State keep();
    void end(State state);
    void publish(State state);

    const std::shared_ptr<StepShelf> shelf_;
    const std::shared_ptr<StepBudget> budget_;
    const MediaSource source_;
    StepOrder order_;
    std::unique_ptr<GopReader> reader_;
    Scaler scaler_;
    StepRow row_;
    std::atomic<bool> begun_ = false;
    std::size_t margin_ = 0;
    bool atKeyFrame_ = false;
    bool complete_ = false;
};

} // namespace tandrel
