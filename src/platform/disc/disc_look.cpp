#include "platform/disc/disc_look.h"

#include "platform/disc/disc_reading.h"
#include "platform/disc/facts_text.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <mutex>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace tandrel
{

namespace
{
using Steady = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kLongest{2000};
// More than the longest disc has to say.
constexpr std::size_t kMostBytes = 4u << 20;

/// Pipes and the like would be waited for.
bool canHoldADisc(const std::string& path)
{
    struct stat facts = {};
    return !path.empty() && stat(path.c_str(), &facts) == 0 &&
           (S_ISREG(facts.st_mode) || S_ISDIR(facts.st_mode) || S_ISBLK(facts.st_mode));
}

/// The child has the signal handlers of the program, and its standard output.
void becomeQuiet()
{
    for (const int signal : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT, SIGTERM, SIGPIPE})
        std::signal(signal, SIG_DFL);
    const rlimit noCore{0, 0};
    setrlimit(RLIMIT_CORE, &noCore);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    const int nothing = open("/dev/null", O_RDWR);
    for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        dup2(nothing, standard);
}

/// Other threads hold what locks they like at the fork. The C library frees those of its memory, its streams and its
/// loader for the child, and the reading needs no others; should one be missing, the child hangs and is ended.
[[noreturn]] void readAsChild(const std::string& path, int out)
{
    becomeQuiet();
    const std::string text = writeLook(readDisc(path));
    std::size_t done = 0;
    while (done < text.size()) {
        const ssize_t written = write(out, text.data() + done, text.size() - done);
        if (written <= 0)
            _exit(1);
        done += static_cast<std::size_t>(written);
    }
    _exit(0);
}

struct Child {
    pid_t process = -1;
    int in = -1;
};

/// One after the other: a child that has the pipe of another one too would keep that open.
Child startChild(const std::string& path)
{
    static std::mutex turn;
    const std::lock_guard lock(turn);
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        return {};
    const pid_t child = fork();
    if (child == 0)
        readAsChild(path, ends[1]);
    close(ends[1]);
    if (child < 0)
        close(ends[0]);
    return {child, ends[0]};
}

/// False if the other end is still open when the time is over.
bool readAll(int in, Steady::time_point end, std::string& text)
{
    std::array<char, 4096> buffer{};
    while (text.size() < kMostBytes) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Steady::now()).count();
        pollfd one{in, POLLIN, 0};
        if (left <= 0 || (poll(&one, 1, static_cast<int>(left)) == 0))
            return false;
        const ssize_t count = read(in, buffer.data(), buffer.size());
        if (count == 0)
            return true;
        if (count > 0)
            text.append(buffer.data(), static_cast<std::size_t>(count));
        else if (errno != EINTR)
            return true;
    }
    return false;
}

/// True if the child has gone by itself, and well. A drive may keep it from being ended: a thread waits for it then.
bool endChild(pid_t child, bool finished)
{
    int status = 0;
    if (finished && waitpid(child, &status, 0) == child)
        return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    kill(child, SIGKILL);
    try {
        std::thread([child] { waitpid(child, nullptr, 0); }).detach();
    } catch (const std::system_error&) {
        // It is left to the end of this process.
    }
    return false;
}
} // namespace

DiscLook lookAtDiscFor(const std::string& path, std::chrono::milliseconds longest)
{
    DiscLook look;
    if (!canHoldADisc(path))
        return look;
    const auto end = Steady::now() + longest;
    look.end = DiscLook::End::Died;
    const Child child = startChild(path);
    if (child.process < 0)
        return look;
    std::string text;
    const bool finished = readAll(child.in, end, text);
    close(child.in);
    const bool well = endChild(child.process, finished);
    if (!finished)
        look.end = DiscLook::End::TookTooLong;
    else if (auto read = well ? readLook(text) : std::nullopt)
        look = std::move(*read);
    return look;
}

DiscFacts lookAtDisc(const std::string& path) { return lookAtDiscFor(path, kLongest).facts; }

} // namespace tandrel
