/// Which windows nobody can see, because others lie over them.
#pragma once

#include "platform/services.h"

#include <memory>
#include <vector>

namespace tandrel
{

/// Nothing of `place` is left when all of `above` lie over it. Places are device pixels.
bool isCovered(const PixelRect& place, const std::vector<PixelRect>& above);

/// Asks the X server on a thread of its own, so that nobody waits for it. A window counts as covered if every part of
/// it that is on the screen lies below opaque windows without holes, or if it isn't on the screen at all. A server that
/// doesn't answer leaves the last answer standing, and the end does not wait for it.
class CoverWatch
{
public:
    CoverWatch();
    ~CoverWatch();
    CoverWatch(const CoverWatch&) = delete;
    CoverWatch& operator=(const CoverWatch&) = delete;

    /// These are to be looked at next. Returns at once.
    void look(std::vector<WindowHandle> windows);
    /// True if the last look found it covered.
    bool covered(WindowHandle window) const;
    /// How many looks have been done.
    long looks() const;

private:
    /// Lives as long as the watch or its thread.
    struct State;
    std::shared_ptr<State> state_;
};

} // namespace tandrel
