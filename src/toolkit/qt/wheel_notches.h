/// Touchpads turn the wheel by less than a notch.
#pragma once

#include <cstdlib>

namespace tandrel
{

/// Adds turns up to whole notches. A turn back begins anew.
class WheelNotches
{
public:
    static constexpr int kNotch = 120;

    /// What has come together with this turn: 0, or a multiple of a notch.
    int add(int turn)
    {
        rest_ = (rest_ > 0) == (turn > 0) ? rest_ + turn : turn;
        const int whole = rest_ - rest_ % kNotch;
        rest_ -= whole;
        return whole;
    }

private:
    int rest_ = 0;
};

} // namespace tandrel
