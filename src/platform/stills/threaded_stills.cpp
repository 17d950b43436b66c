#include "platform/stills/threaded_stills.h"

#include "platform/path_marks.h"
#include "platform/stills/still_cache.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <deque>
#include <exception>
#include <map>
#include <mutex>
#include <set>
#include <sys/resource.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <utility>

namespace tandrel
{

namespace
{

using Steady = std::chrono::steady_clock;
using namespace std::chrono_literals;

constexpr auto kLongestFile = 3s;
constexpr auto kLongestEnd = 200ms;
constexpr std::size_t kMostWanted = 200;
constexpr int kMostLeftBehind = 4;
constexpr int kMostTries = 2;
constexpr int kNiceness = 19;

} // namespace

struct ThreadedStills::Worker {
    Steady::time_point since = Steady::now();
};

struct ThreadedStills::Answer {
    /// Of the file that was read; none where it is to be tried again.
    FileMark mark;
    std::optional<Still> still;
    int tries = 0;
};

struct ThreadedStills::State {
    explicit State(StillTools given) : tools(std::move(given)), cache(tools.folder) {}

    Answer answerFor(const std::string& path, const Answer& known) const;
    Answer made(const std::string& path, const FileMark& mark, int tries) const;

    const StillTools tools;
    const StillCache cache;
    std::atomic<bool> ended = false;
    std::mutex guard;
    std::condition_variable workerEnded;
    /// What follows is under the guard.
    std::deque<std::string> queue;
    std::map<std::string, Answer> answers;
    std::set<std::string> begun;
    /// The one that takes from the queue.
    std::shared_ptr<Worker> worker;
    int leftBehind = 0;
};

ThreadedStills::Answer ThreadedStills::State::made(const std::string& path, const FileMark& mark, int tries) const
{
    const auto limit = Steady::now() + kLongestFile;
    Answer answer{mark, tools.make(path, mark, [&] { return ended || Steady::now() > limit; }), tries + 1};
    if (answer.still)
        cache.save(path, mark, *answer.still);
    else if (Steady::now() > limit && answer.tries < kMostTries)
        // A machine that was busy with other things may have more time at the next try.
        answer.mark = {};
    return answer;
}

ThreadedStills::Answer ThreadedStills::State::answerFor(const std::string& path, const Answer& known) const
{
    const std::string name = unmarkPath(path);
    if (name.find('\0') != std::string::npos)
        return {};
    const FileMark mark = tools.look(name);
    if (mark == FileMark())
        return {};
    if (mark == known.mark)
        return known;
    if (auto kept = cache.load(name, mark))
        return {mark, std::move(kept)};
    return made(name, mark, known.tries);
}

void ThreadedStills::run(const std::shared_ptr<State>& state, const std::shared_ptr<Worker>& self)
{
    // On Linux a priority is a thread's own.
    setpriority(PRIO_PROCESS, static_cast<id_t>(gettid()), kNiceness);
    std::unique_lock lock(state->guard);
    while (!state->ended && state->worker == self && !state->queue.empty()) {
        const std::string path = std::move(state->queue.front());
        state->queue.pop_front();
        state->begun.insert(path);
        self->since = Steady::now();
        const Answer known = state->answers[path];
        lock.unlock();
        Answer answer;
        try {
            answer = state->answerFor(path, known);
        } catch (const std::exception&) {
            // No memory, or no room for a name: this file has no picture.
        }
        lock.lock();
        state->begun.erase(path);
        state->answers[path] = std::move(answer);
    }
    if (state->worker == self)
        state->worker.reset();
    else
        --state->leftBehind;
    state->workerEnded.notify_all();
}

/// Sees to it that somebody works at what is wanted. Under the guard.
void ThreadedStills::goOn(const std::shared_ptr<State>& state)
{
    if (state->queue.empty())
        return;
    const bool hangs = state->worker && Steady::now() - state->worker->since > state->tools.patience;
    if (hangs && state->leftBehind < kMostLeftBehind) {
        ++state->leftBehind;
        state->worker.reset();
    }
    if (state->worker)
        return;
    const auto worker = std::make_shared<Worker>();
    try {
        std::thread([state, worker] { run(state, worker); }).detach();
        state->worker = worker;
    } catch (const std::system_error&) {
        // The next question tries again.
    }
}

ThreadedStills::ThreadedStills(StillTools tools) : state_(std::make_shared<State>(std::move(tools))) {}

ThreadedStills::~ThreadedStills()
{
    std::unique_lock lock(state_->guard);
    state_->ended = true;
    state_->queue.clear();
    state_->workerEnded.wait_for(lock, kLongestEnd, [this] { return state_->worker == nullptr; });
}

void ThreadedStills::want(const std::vector<std::string>& paths)
{
    const std::size_t count = std::min(paths.size(), kMostWanted);
    const std::set<std::string> wanted(paths.begin(), paths.begin() + static_cast<std::ptrdiff_t>(count));
    const std::scoped_lock lock(state_->guard);
    state_->queue.clear();
    std::set<std::string> queued = state_->begun;
    for (std::size_t index = 0; index < count; ++index)
        if (queued.insert(paths[index]).second)
            state_->queue.push_back(paths[index]);
    if (state_->answers.size() > 2 * kMostWanted)
        std::erase_if(state_->answers, [&](const auto& answer) { return !wanted.contains(answer.first); });
    goOn(state_);
}

std::optional<Still> ThreadedStills::have(const std::string& path) const
{
    const std::scoped_lock lock(state_->guard);
    goOn(state_);
    const auto known = state_->answers.find(path);
    return known == state_->answers.end() ? std::nullopt : known->second.still;
}

} // namespace tandrel
