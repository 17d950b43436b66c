#include "platform/xdg/turn.h"

#include <cerrno>
#include <chrono>
#include <sys/file.h>
#include <thread>
#include <unistd.h>

namespace tandrel
{

namespace
{

/// The lock is taken or can never be; false while another process has its turn.
bool isSettled(int descriptor)
{
    return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0 || (errno != EWOULDBLOCK && errno != EINTR);
}

} // namespace

Turn::Turn(int descriptor) : descriptor_(descriptor)
{
    constexpr int kLongestWaitMs = 2000;
    constexpr int kNapMs = 2;
    for (int waited = 0; descriptor_ >= 0 && waited < kLongestWaitMs && !isSettled(descriptor_); waited += kNapMs)
        std::this_thread::sleep_for(std::chrono::milliseconds(kNapMs));
}

Turn::~Turn()
{
    // Closing the descriptor ends the lock.
    if (descriptor_ >= 0)
        ::close(descriptor_);
}

} // namespace tandrel
