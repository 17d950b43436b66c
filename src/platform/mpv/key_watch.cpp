#include "platform/mpv/key_watch.h"

#include <deque>
#include <map>
#include <mutex>
#include <system_error>
#include <thread>

namespace tandrel
{

namespace
{
// What was asked for longer ago is forgotten, and read again.
constexpr std::size_t kMostFiles = 64;
} // namespace

struct KeyWatch::State {
    std::mutex mutex;
    std::map<std::string, std::optional<KeyPlaces>> files;
    std::deque<std::string> wanted;
    bool works = false;
    bool ended = false;

    /// The next file to be read; nothing ends the thread.
    std::optional<std::string> next()
    {
        const std::lock_guard lock(mutex);
        works = !wanted.empty() && !ended;
        if (!works)
            return {};
        std::string path = std::move(wanted.front());
        wanted.pop_front();
        return path;
    }

    bool hasEnded()
    {
        const std::lock_guard lock(mutex);
        return ended;
    }

    static void work(const std::shared_ptr<State>& state)
    {
        while (const auto path = state->next()) {
            KeyPlaces found = readKeyPlaces(*path, [&] { return state->hasEnded(); });
            const std::lock_guard lock(state->mutex);
            state->files[*path] = std::move(found);
        }
    }
};

KeyWatch::KeyWatch() : state_(std::make_shared<State>()) {}

KeyWatch::~KeyWatch()
{
    const std::lock_guard lock(state_->mutex);
    state_->ended = true;
}

std::optional<KeyPlaces> KeyWatch::of(const std::string& path)
{
    const std::lock_guard lock(state_->mutex);
    if (const auto known = state_->files.find(path); known != state_->files.end())
        return known->second;
    if (state_->files.size() >= kMostFiles)
        state_->files.clear();
    state_->files[path] = std::nullopt;
    state_->wanted.push_back(path);
    if (!state_->works) {
        try {
            std::thread(&State::work, state_).detach();
            state_->works = true;
        } catch (const std::system_error&) {
            // Asked for again, they get another try.
            for (const std::string& waiting : state_->wanted)
                state_->files.erase(waiting);
            state_->wanted.clear();
        }
    }
    return std::nullopt;
}

} // namespace tandrel
