/// The pictures that steps of one device show by themselves, without the player. Times are seconds by the player's
/// clock.
#pragma once

#include "platform/mpv/step_cache.h"
#include "platform/mpv/still_watch.h"

namespace tandrel
{

class StepStills
{
public:
    /// `window` may be null: then times are kept, and nothing is shown. `tolerance`: what times of the same picture may
    /// differ by.
    StepStills(const StepTools& tools, MediaSource source, double tolerance, PictureWindow* window);

    StepCache& cache() { return cache_; }

    /// The size of the player's canvas. True if pictures of another size have gone.
    bool put(PictureSize size);
    /// False while there is no place to show anything in.
    bool able() const { return still_ == nullptr || !size_.empty(); }

    /// Shows a picture in front of the player. False if that cannot be done.
    bool show(const KeptPicture& picture);
    /// Shows the player.
    void uncover();
    /// Shows the player from its next seek on, which has not been sent yet.
    void uncoverAfterSeek(mpv_handle* player);
    /// Waits until the screen shows what it was told.
    void sync();
    /// Nothing that the player does is looked at any more, and nothing is decoded.
    void close();

private:
    StepCache cache_;
    std::unique_ptr<StillWindow> still_;
    std::unique_ptr<StillWatch> watch_;
    PictureSize size_;
    std::shared_ptr<const StepPicture> picture_;
};

} // namespace tandrel
