#include "platform/mpv/step_fill.h"

#include <array>
#include <utility>

namespace tandrel
{

namespace
{
// How many seconds before the target reading begins, from one try to the next: some files have no index, and a seek in
// them leads to a place behind the target.
constexpr std::array kMargins{0.0, 1.0, 4.0, 16.0};
} // namespace

StepFill::StepFill(std::shared_ptr<StepShelf> shelf, std::shared_ptr<StepBudget> budget, MediaSource source,
                   StepOrder order)
    : shelf_(std::move(shelf)),
      budget_(std::move(budget)),
      source_(std::move(source)),
      order_(std::move(order)),
      row_(order_.tolerance)
{
}

bool StepFill::covers(double time) const
{
    // Pictures behind the wanted one take up room.
    constexpr double kMostBehind = 1;
    return !order_.older && time <= order_.target + order_.tolerance && time > order_.target - kMostBehind;
}

bool StepFill::work(Moment until)
{
    if (reader_ == nullptr && !begin()) {
        end(State::Doubtful);
        return false;
    }
    while (!cancelled()) {
        const State state = readOne();
        if (state != State::Going) {
            end(state);
            return false;
        }
        if (std::chrono::steady_clock::now() >= until)
            return true;
    }
    end(State::Failed);
    return false;
}

bool StepFill::begin()
{
    begun_ = true;
    order_.discarded.clear();
    if (!order_.older) {
        StepRow old(order_.tolerance);
        const std::lock_guard lock(shelf_->mutex);
        if (shelf_->job.get() == this)
            std::swap(old, shelf_->row);
    }
    reader_ = std::make_unique<GopReader>(source_, cancelledMark());
    return reader_->open() && seekFurther();
}

bool StepFill::seekFurther()
{
    atKeyFrame_ = true;
    while (margin_ < kMargins.size())
        // A little earlier than the target, which may be a key frame itself.
        if (reader_->seek(order_.target - 2 * order_.tolerance - kMargins[margin_++]))
            return true;
    return false;
}

StepFill::State StepFill::readOne()
{
    switch (reader_->next()) {
    case GopReader::Result::Picture:
        return take();
    case GopReader::Result::End:
        // The seek may have led behind the last key frame.
        if (row_.empty() && seekFurther())
            return State::Going;
        return order_.older ? State::Doubtful : State::Done;
    case GopReader::Result::Doubtful:
        break;
    }
    return State::Doubtful;
}

StepFill::State StepFill::take()
{
    const double ahead = order_.target - reader_->time();
    if (std::exchange(atKeyFrame_, false) && ahead <= order_.tolerance) {
        if (seekFurther())
            return State::Going;
        complete_ = true;
    }
    if (ahead < -order_.tolerance)
        return order_.older ? State::Doubtful : State::Done;
    const double pictures = ahead * source_.frameRate;
    reader_->skimWhile(pictures > static_cast<double>(order_.most) + kMostReordered);
    if (pictures > static_cast<double>(order_.most))
        return State::Going;
    const bool last = ahead <= order_.tolerance;
    // The last one of older pictures is there already.
    if (last && order_.older)
        return State::Done;
    const State state = keep();
    return state == State::Going && last ? State::Done : state;
}

StepFill::State StepFill::keep()
{
    {
        const std::lock_guard lock(shelf_->mutex);
        if (!shelf_->colours)
            shelf_->colours = reader_->colours();
        else if (*shelf_->colours != reader_->colours())
            return State::Doubtful;
    }
    row_.keepNewest(order_.most - 1);
    KeptPicture kept{reader_->time(), nullptr};
    if (!order_.size.empty()) {
        auto picture = StepPicture::make(order_.size, reader_->colours(), budget_);
        while (picture == nullptr && !row_.empty()) {
            row_.keepNewest(row_.size() - 1);
            picture = StepPicture::make(order_.size, reader_->colours(), budget_);
        }
        if (picture == nullptr)
            return State::Failed;
        if (!picture->fillFrom(reader_->frame(), scaler_))
            return State::Doubtful;
        kept.picture = std::move(picture);
    }
    return row_.append(std::move(kept)) ? State::Going : State::Doubtful;
}

void StepFill::end(State state)
{
    // The decoder holds more memory than all the rest.
    reader_.reset();
    scaler_.reset();
    publish(state);
    row_ = StepRow(order_.tolerance);
    if (shelf_->wake)
        shelf_->wake();
}

void StepFill::publish(State state)
{
    const std::lock_guard lock(shelf_->mutex);
    if (shelf_->job.get() != this)
        return;
    shelf_->job.reset();
    if (state == State::Done && order_.older) {
        shelf_->complete = complete_;
        shelf_->row.prepend(std::move(row_));
    } else if (state == State::Done) {
        shelf_->complete = complete_;
        shelf_->row = std::move(row_);
    } else {
        shelf_->failed = state == State::Failed;
        // What was cancelled looks like something that cannot be read.
        shelf_->doubtful = state == State::Doubtful && !cancelled();
    }
    shelf_->changed.notify_all();
}

} // namespace tandrel
