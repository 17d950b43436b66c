/// What waits asks again and again, and leaves the processors to what it waits for meanwhile.
#pragma once

#include <poll.h>

namespace tandrel::test
{

/// A millisecond: short beside the 33 ms of a picture.
inline void letOthersRun() { ::poll(nullptr, 0, 1); }

} // namespace tandrel::test
