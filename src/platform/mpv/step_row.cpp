#include "platform/mpv/step_row.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace tandrel
{

bool StepRow::append(KeptPicture picture)
{
    if (!empty() && picture.time <= newest().time)
        return false;
    pictures_.push_back(std::move(picture));
    follower_.reset();
    return true;
}

void StepRow::prepend(StepRow older)
{
    pictures_.insert(pictures_.begin(), std::make_move_iterator(older.pictures_.begin()),
                     std::make_move_iterator(older.pictures_.end()));
}

void StepRow::keepNewest(std::size_t count)
{
    while (size() > count)
        pictures_.pop_front();
}

std::deque<KeptPicture> StepRow::keepBehind(double time, std::size_t count)
{
    std::deque<KeptPicture> gone;
    const auto place = find(time);
    if (!place || *place + 1 + count >= size())
        return gone;
    const auto first = pictures_.begin() + static_cast<std::ptrdiff_t>(*place + 1 + count);
    gone.assign(std::make_move_iterator(first), std::make_move_iterator(pictures_.end()));
    pictures_.erase(first, pictures_.end());
    follower_.reset();
    return gone;
}

std::optional<std::size_t> StepRow::find(double time) const
{
    const auto found = std::lower_bound(pictures_.begin(), pictures_.end(), time - tolerance_,
                                        [](const KeptPicture& picture, double limit) { return picture.time < limit; });
    if (found == pictures_.end() || std::abs(found->time - time) > tolerance_)
        return {};
    return static_cast<std::size_t>(found - pictures_.begin());
}

const KeptPicture* StepRow::before(double time) const
{
    if (!empty() && follower_ && std::abs(*follower_ - time) <= tolerance_)
        return &newest();
    const auto place = find(time);
    return place && *place > 0 ? &pictures_[*place - 1] : nullptr;
}

const KeptPicture* StepRow::behind(double time) const
{
    const auto place = find(time);
    return place && *place + 1 < size() ? &pictures_[*place + 1] : nullptr;
}

bool StepRow::isFollowed(double newest, double time) const
{
    return !empty() && follower_ && std::abs(*follower_ - time) <= tolerance_ &&
           std::abs(this->newest().time - newest) <= tolerance_;
}

bool StepRow::misses(double time) const
{
    return !empty() && time > oldest().time && time < newest().time && !find(time);
}

} // namespace tandrel
