#include "platform/xdg/instances.h"

#include "platform/xdg/turn.h"

#include <algorithm>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tandrel
{

namespace fs = std::filesystem;

namespace
{

constexpr int kAttempts = 100;
/// The length of ".lock".
constexpr int kEnding = 5;

/// The open file is the one that the path names.
bool isStill(int file, const std::string& path)
{
    struct stat open {
    };
    struct stat named {
    };
    return ::fstat(file, &open) == 0 && ::stat(path.c_str(), &named) == 0 && open.st_dev == named.st_dev &&
           open.st_ino == named.st_ino;
}

/// The lock is held by the process that took it.
bool isLive(const std::string& path)
{
    const int other = ::open(path.c_str(), O_RDWR | O_CLOEXEC);
    if (other < 0)
        return false;
    // Shared, so that processes that look at the same time don't take each other for the one looked for.
    const bool live = ::flock(other, LOCK_SH | LOCK_NB) != 0;
    // What a crash left behind is cleared away.
    if (!live)
        ::unlink(path.c_str());
    ::close(other);
    return live;
}

std::vector<std::string> lockNames(const std::string& folder)
{
    std::vector<std::string> names;
    std::error_code problem;
    for (const auto& entry : fs::directory_iterator(folder, problem))
        if (entry.path().extension() == ".lock")
            names.push_back(entry.path().filename());
    return names;
}

} // namespace

LockInstances::LockInstances(std::string folder) : folder_(std::move(folder))
{
    exclusively([this] {
        earlier_ = lockNames(folder_);
        takeOwn();
    });
}

LockInstances::~LockInstances() { leave(); }

void LockInstances::takeOwn()
{
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        std::string path = folder_ + "/" + std::to_string(getpid()) + "-XXXXXX.lock";
        own_ = ::mkostemps(path.data(), kEnding, O_CLOEXEC);
        if (own_ < 0)
            return;
        ownName_ = fs::path(path).filename();
        // Another process may have taken the file for a left-over, and away, before it was locked.
        if (::flock(own_, LOCK_EX) == 0 && isStill(own_, path))
            return;
        ::close(own_);
        own_ = -1;
    }
}

void LockInstances::leave()
{
    if (own_ < 0)
        return;
    ::unlink((folder_ + "/" + ownName_).c_str());
    ::close(own_);
    own_ = -1;
}

void LockInstances::exclusively(const std::function<void()>& task) { amongInstances(folder_, task); }

bool LockInstances::anotherIsRunning() const
{
    return std::any_of(earlier_.begin(), earlier_.end(),
                       [this](const std::string& name) { return isLive(folder_ + "/" + name); });
}

std::vector<long> liveInstances(const std::string& folder)
{
    std::vector<long> processes;
    for (const std::string& name : lockNames(folder))
        if (isLive(folder + "/" + name))
            // The name begins with the number of its process.
            processes.push_back(std::strtol(name.c_str(), nullptr, 10));
    return processes;
}

void amongInstances(const std::string& folder, const std::function<void()>& task)
{
    // Without the file the task runs all the same: then no process can take a lock here.
    const Turn turn(::open((folder + "/turn").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    task();
}

} // namespace tandrel
