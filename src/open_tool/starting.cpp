#include "open_tool/starting.h"

#include "platform/xdg/instances.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace tandrel::open_tool
{

namespace
{

constexpr int kLongestWaitMs = 2000;
constexpr int kNapMs = 5;
constexpr const char* kPlayer = "tandrel-player";

/// Asks until the answer is yes or the time is over.
template <class Condition>
void waitUntil(Condition condition)
{
    for (int waited = 0; waited < kLongestWaitMs && !condition(); waited += kNapMs)
        std::this_thread::sleep_for(std::chrono::milliseconds(kNapMs));
}

} // namespace

Decision::Decision(const std::string& runtimeFolder)
    : runtimeFolder_(runtimeFolder),
      file_(::open((runtimeFolder + "/opening").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600))
{
    if (file_ >= 0)
        waitUntil(
            [this] { return ::flock(file_, LOCK_EX | LOCK_NB) == 0 || (errno != EWOULDBLOCK && errno != EINTR); });
}

Decision::~Decision()
{
    if (file_ >= 0)
        ::close(file_);
}

void Decision::outlast() const
{
    // A process of its own keeps the lock, which the player's start ends in this one.
    const pid_t player = ::getpid();
    const pid_t between = ::fork();
    if (between > 0)
        ::waitpid(between, nullptr, 0);
    if (between != 0)
        return;
    if (::fork() != 0)
        ::_exit(0);
    waitUntil([&] {
        const auto live = liveInstances(runtimeFolder_);
        return std::find(live.begin(), live.end(), long(player)) != live.end() || ::kill(player, 0) != 0;
    });
    ::_exit(0);
}

void Decision::becomePlayer(const std::string& folder, const std::vector<std::string>& arguments)
{
    outlast();
    std::string program = folder + "/" + kPlayer;
    std::vector<std::string> words = arguments;
    std::vector<char*> pointers{program.data()};
    for (std::string& word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);
    ::execv(program.c_str(), pointers.data());
    ::execvp(kPlayer, pointers.data());
}

} // namespace tandrel::open_tool
