#include "codec_settings/one_of_a_kind.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/syscall.h>
#include <thread>
#include <unistd.h>

namespace tandrel
{

namespace
{

using namespace std::chrono_literals;

constexpr auto kLongestTurn = 300ms;
constexpr auto kNap = 2ms;

bool isLocked(int file) { return ::flock(file, LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK; }

pid_t numberIn(int file)
{
    std::array<char, 32> text{};
    const ssize_t count = ::pread(file, text.data(), text.size(), 0);
    pid_t process = 0;
    if (count > 0)
        std::from_chars(text.data(), text.data() + count, process);
    return process;
}

/// The file is locked as long as its process lives, so a number that is locked behind the look at its process is that
/// process's.
void askToEnd(const std::string& path)
{
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW);
    if (file < 0)
        return;
    const pid_t process = numberIn(file);
    const int handle = process > 1 ? static_cast<int>(::syscall(SYS_pidfd_open, process, 0)) : -1;
    if (handle >= 0 && process != ::getpid() && isLocked(file))
        ::syscall(SYS_pidfd_send_signal, handle, SIGTERM, nullptr, 0);
    if (handle >= 0)
        ::close(handle);
    ::close(file);
}

/// Stays open, and locked, until the process ends.
bool leaveMark(const std::string& path)
{
    const std::string beside = path + "." + std::to_string(::getpid());
    const int file = ::open(beside.c_str(), O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (file < 0)
        return false;
    const std::string number = std::to_string(::getpid());
    const bool written = ::flock(file, LOCK_EX | LOCK_NB) == 0 &&
                         ::write(file, number.data(), number.size()) == static_cast<ssize_t>(number.size());
    if (written && std::rename(beside.c_str(), path.c_str()) == 0)
        return true;
    ::unlink(beside.c_str());
    ::close(file);
    return false;
}

} // namespace

bool becomeTheOnly(const std::string& folder, const std::string& page)
{
    const std::string path = folder + "/codec-" + page;
    const int turn = ::open((path + ".turn").c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600);
    const auto limit = std::chrono::steady_clock::now() + kLongestTurn;
    while (turn >= 0 && ::flock(turn, LOCK_EX | LOCK_NB) != 0 && std::chrono::steady_clock::now() < limit)
        std::this_thread::sleep_for(kNap);
    askToEnd(path);
    const bool done = leaveMark(path);
    if (turn >= 0)
        ::close(turn);
    return done;
}

} // namespace tandrel
