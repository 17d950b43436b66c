#include "persist/recent_listing.h"

#include "persist/recent_files.h"
#include "platform/services.h"

#include <algorithm>
#include <chrono>

namespace tandrel::recent
{

namespace
{

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kLongestWait{50};
/// Lines that are looked for at a time: as a rule the first dozen is all there.
constexpr std::size_t kAtATime = 16;
/// Lines without an answer that are asked about again at a time.
constexpr std::size_t kMostAgain = 128;

int millisecondsTo(Clock::time_point end)
{
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now());
    return static_cast<int>(std::max<std::int64_t>(0, left.count()));
}

/// A path may have blanks around it that don't belong to it.
std::vector<std::string> namesOf(const Text& path)
{
    const Text bare = trim(path);
    return bare == path ? std::vector{path} : std::vector{path, bare};
}

} // namespace

Listing::Answer Listing::answerFor(Text& path)
{
    const auto found = services().finder->found(path);
    if (!found)
        return Answer::None;
    if (*found)
        return Answer::Found;
    const Text bare = trim(path);
    const auto bareFound = bare == path ? found : services().finder->found(bare);
    if (!bareFound)
        return Answer::None;
    if (*bareFound)
        path = bare;
    return *bareFound ? Answer::Found : Answer::Missing;
}

void Listing::lookAt(std::size_t begin, std::size_t end, int waitMs)
{
    std::vector<std::string> wanted;
    for (std::size_t index = begin; index < end; ++index) {
        const auto names = namesOf(lines_[index].path);
        wanted.insert(wanted.end(), names.begin(), names.end());
    }
    services().finder->look(wanted);
    if (waitMs > 0)
        services().finder->wait(waitMs);
    for (std::size_t index = begin; index < end; ++index)
        lines_[index].answer = answerFor(lines_[index].path);
}

void Listing::read()
{
    lines_.clear();
    files_.clear();
    for (Text& line : lines())
        lines_.push_back({std::move(line)});
    const auto end = Clock::now() + kLongestWait;
    for (std::size_t begin = 0; begin < lines_.size() && files_.size() < kMostListed; begin += kAtATime) {
        const std::size_t behind = std::min(lines_.size(), begin + kAtATime);
        lookAt(begin, behind, millisecondsTo(end));
        for (std::size_t index = begin; index < behind && files_.size() < kMostListed; ++index)
            if (lines_[index].answer == Answer::Found)
                files_.push_back(lines_[index].path);
    }
}

std::vector<Listing::Newcomer> Listing::lookAgain()
{
    std::vector<Newcomer> newcomers;
    std::vector<std::size_t> silent;
    std::size_t place = 0;
    for (std::size_t index = 0; index < lines_.size() && files_.size() < kMostListed; ++index) {
        Line& line = lines_[index];
        const bool isOpen = line.answer == Answer::None;
        if (isOpen)
            line.answer = answerFor(line.path);
        if (line.answer == Answer::None)
            silent.push_back(index);
        if (line.answer != Answer::Found)
            continue;
        if (isOpen) {
            files_.insert(files_.begin() + static_cast<std::ptrdiff_t>(place), line.path);
            newcomers.push_back({place, line.path});
        }
        ++place;
    }
    askAbout(silent);
    return newcomers;
}

void Listing::askAbout(const std::vector<std::size_t>& silent)
{
    // In turn, as the first of them may be silent for ever. One that is still being looked for is not asked about
    // twice.
    const std::size_t count = std::min(silent.size(), kMostAgain);
    for (std::size_t asked = 0; asked < count; ++asked)
        services().finder->look(namesOf(lines_[silent[(turn_ + asked) % silent.size()]].path));
    turn_ = silent.empty() ? 0 : (turn_ + count) % silent.size();
}

} // namespace tandrel::recent
