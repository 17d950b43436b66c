#include "platform/xdg/file_finder.h"

#include "platform/path_marks.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <map>
#include <mutex>
#include <sys/stat.h>
#include <system_error>
#include <thread>

namespace tandrel
{

namespace
{

using namespace std::chrono_literals;

constexpr int kMostThreads = 256;
/// A folder where nobody answers takes no more than so many of them.
constexpr int kMostInFolder = 2;
constexpr auto kIdleEnd = 2s;

std::string folderOf(const std::string& path) { return path.substr(0, path.rfind('/') + 1); }

/// A pipe or a device is there as well, but nothing that could be played again.
bool isOnDisk(const std::string& path)
{
    struct stat facts {
    };
    const bool canBeName = path.find('\0') == std::string::npos;
    return canBeName && ::stat(unmarkPath(path).c_str(), &facts) == 0 && S_ISREG(facts.st_mode);
}

} // namespace

struct ThreadedFinder::State {
    bool hasRoom(const std::string& path) const
    {
        const auto found = busy.find(folderOf(path));
        return found == busy.end() || found->second < kMostInFolder;
    }
    auto next()
    {
        return std::find_if(queue.begin(), queue.end(), [this](const std::string& path) { return hasRoom(path); });
    }
    bool hasWork() { return next() != queue.end(); }
    void count(const std::string& path, int change)
    {
        int& present = busy[folderOf(path)];
        present += change;
        if (present == 0)
            busy.erase(folderOf(path));
    }

    std::function<bool(const std::string& path)> isThere;
    std::mutex guard;
    std::condition_variable work;
    std::condition_variable answer;
    std::deque<std::string> queue;
    /// How many are being looked for in each folder.
    std::map<std::string, int> busy;
    /// Without a value while the path is being looked for.
    std::map<std::string, std::optional<bool>> answers;
    /// Those of the last look.
    std::vector<std::string> asked;
    int threads = 0;
    int idle = 0;
    bool ended = false;
};

ThreadedFinder::ThreadedFinder(std::function<bool(const std::string& path)> isThere) : state_(std::make_shared<State>())
{
    state_->isThere = isThere ? std::move(isThere) : &isOnDisk;
}

ThreadedFinder::~ThreadedFinder()
{
    const std::scoped_lock lock(state_->guard);
    state_->ended = true;
    state_->queue.clear();
    state_->work.notify_all();
}

void ThreadedFinder::work(const std::shared_ptr<State>& state)
{
    std::unique_lock lock(state->guard);
    while (!state->ended) {
        ++state->idle;
        const bool woken = state->work.wait_for(lock, kIdleEnd, [&] { return state->ended || state->hasWork(); });
        --state->idle;
        if (!woken || state->ended)
            break;
        const auto next = state->next();
        const std::string path = *next;
        state->queue.erase(next);
        state->count(path, 1);
        lock.unlock();
        const bool isThere = state->isThere(path);
        lock.lock();
        state->count(path, -1);
        state->answers[path] = isThere;
        state->answer.notify_all();
    }
    --state->threads;
}

bool ThreadedFinder::begin()
{
    try {
        std::thread([state = state_] { work(state); }).detach();
    } catch (const std::system_error&) {
        return false;
    }
    ++state_->threads;
    return true;
}

void ThreadedFinder::look(const std::vector<std::string>& paths)
{
    const std::scoped_lock lock(state_->guard);
    state_->asked = paths;
    for (const std::string& path : paths) {
        const auto known = state_->answers.find(path);
        if (known != state_->answers.end() && !known->second)
            continue;
        state_->answers[path] = std::nullopt;
        state_->queue.push_back(path);
    }
    // One for each file that no idle one takes: whoever hangs keeps none of the others from an answer.
    const auto waiting = static_cast<int>(state_->queue.size());
    for (int wanted = waiting - state_->idle; wanted > 0 && state_->threads < kMostThreads; --wanted)
        if (!begin())
            break;
    state_->work.notify_all();
}

void ThreadedFinder::wait(int ms)
{
    std::unique_lock lock(state_->guard);
    state_->answer.wait_for(lock, std::chrono::milliseconds(ms), [&] {
        return std::all_of(state_->asked.begin(), state_->asked.end(),
                           [&](const std::string& path) { return state_->answers[path].has_value(); });
    });
}

std::optional<bool> ThreadedFinder::found(const std::string& path) const
{
    const std::scoped_lock lock(state_->guard);
    const auto known = state_->answers.find(path);
    return known == state_->answers.end() ? std::nullopt : known->second;
}

} // namespace tandrel
