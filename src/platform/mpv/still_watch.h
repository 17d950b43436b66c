/// Takes a still away at the moment when the player shows what it stands for.
#pragma once

#include "platform/mpv/still_window.h"

#include <memory>
#include <mpv/client.h>

namespace tandrel
{

/// Nobody may look at a running player for a while, so a thread of its own waits for the moment.
class StillWatch
{
public:
    explicit StillWatch(StillWindow& still) : still_(still) {}
    ~StillWatch() { stop(); }
    StillWatch(const StillWatch&) = delete;
    StillWatch& operator=(const StillWatch&) = delete;

    /// Hides the still when the player has done its next seek, or when it has not within 5 s. To be called before that
    /// seek is sent.
    void start(mpv_handle* player);
    /// Leaves the still alone from now on.
    void stop();

private:
    struct Watch;
    static void run(const std::shared_ptr<Watch>& watch, mpv_handle* client);

    StillWindow& still_;
    std::shared_ptr<Watch> watch_;
};

} // namespace tandrel
