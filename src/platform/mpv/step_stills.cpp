#include "platform/mpv/step_stills.h"

namespace tandrel
{

StepStills::StepStills(const StepTools& tools, MediaSource source, double tolerance, PictureWindow* window)
    : cache_(tools, std::move(source), tolerance)
{
    if (window == nullptr)
        return;
    still_ = std::make_unique<StillWindow>(window->system(), window->frame());
    watch_ = std::make_unique<StillWatch>(*still_);
}

bool StepStills::put(PictureSize size)
{
    if (size == size_ || still_ == nullptr)
        return false;
    size_ = size;
    if (size.empty())
        uncover();
    else if (picture_ != nullptr && still_->shown())
        still_->show(*picture_, size);
    return cache_.setSize(size);
}

bool StepStills::show(const KeptPicture& picture)
{
    if (still_ == nullptr)
        return true;
    if (picture.picture == nullptr)
        return false;
    watch_->stop();
    picture_ = picture.picture;
    return still_->show(*picture_, size_);
}

void StepStills::uncover()
{
    picture_.reset();
    if (still_ == nullptr)
        return;
    watch_->stop();
    still_->hide();
}

void StepStills::uncoverAfterSeek(mpv_handle* player)
{
    if (still_ != nullptr && still_->shown())
        watch_->start(player);
}

void StepStills::sync()
{
    if (still_ != nullptr)
        still_->sync();
}

void StepStills::close()
{
    cache_.drop();
    if (watch_ != nullptr)
        watch_->stop();
}

} // namespace tandrel
