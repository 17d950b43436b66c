#include "open_tool/opening.h"

#include "open_tool/starting.h"
#include "persist/data_files.h"
#include "platform/drives/bounded_task.h"
#include "platform/path_marks.h"
#include "platform/xdg/instances.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <sys/stat.h>
#include <thread>

namespace tandrel::open_tool
{

namespace
{

using namespace std::chrono_literals;

// As many as a player shows.
constexpr std::size_t kMostFiles = 12;
constexpr auto kLookLimit = 500ms;
// A player that shows twelve on a machine that is too small for them takes its time.
constexpr auto kAnswerLimit = 3s;
constexpr auto kBetweenLooks = 5ms;

struct Look {
    bool missing = false;
    bool disc = false;
};

bool isThere(const std::string& path)
{
    struct stat facts {
    };
    return ::stat(path.c_str(), &facts) == 0;
}

Look lookAt(const std::string& path)
{
    struct stat facts {
    };
    if (::stat(path.c_str(), &facts) != 0)
        return {errno == ENOENT || errno == ENOTDIR, false};
    if (!S_ISDIR(facts.st_mode))
        return {false, lower(path).ends_with(".iso")};
    std::string folder = path;
    while (folder.size() > 1 && folder.ends_with('/'))
        folder.pop_back();
    return {false, lower(folder).ends_with("/video_ts") || isThere(folder + "/VIDEO_TS/VIDEO_TS.IFO") ||
                       isThere(folder + "/video_ts/video_ts.ifo")};
}

std::vector<Look> lookAtAll(const std::vector<std::string>& paths)
{
    BoundedTask<std::vector<Look>> task;
    const auto looks = task.run(
        [paths] {
            std::vector<Look> all;
            std::transform(paths.begin(), paths.end(), std::back_inserter(all), lookAt);
            return all;
        },
        kLookLimit);
    return looks.value_or(std::vector<Look>(paths.size()));
}

/// One opening, step by step.
class Opening
{
public:
    Opening(const ConsoleCalls& calls, const Surroundings& around) : calls_(calls), around_(around) {}

    int run(const Arguments& arguments)
    {
        selection_ = selectionOf(arguments.files, around_.workingFolder);
        wanted_ = !arguments.files.empty();
        const bool disc = arguments.disc || selection_.disc;
        {
            Decision decision(around_.runtimeFolder);
            if (disc || liveInstances(around_.runtimeFolder).empty())
                return start(decision, arguments.disc);
            selection_ = onlyHandedOver(std::move(selection_));
            cut();
            if (const int left = leave(); left != kDone)
                return left;
            // A list that is full is one that the console has yet to take.
            if (added_ == 0 && wanted_ && lines_.empty())
                return end(kDone);
            if (gone_)
                return start(decision, false);
        }
        const int answer = ask();
        if (answer != kDone || !gone_)
            return end(answer);
        Decision decision(around_.runtimeFolder);
        return start(decision, false);
    }

private:
    /// The complaints, and the exit code where nothing else went wrong.
    int end(int code)
    {
        for (const std::string& line : std::exchange(selection_.complaints, {})) {
            around_.tell(line);
            complained_ = true;
        }
        return code == kDone && complained_ ? kSomeLeftOut : code;
    }

    int start(Decision& decision, bool disc)
    {
        cut();
        std::vector<std::string> arguments;
        if (disc)
            arguments.emplace_back("DVD");
        for (const std::string& path : selection_.paths)
            arguments.push_back(unmarkPath(path));
        const int code = end(kDone);
        if (wanted_ && arguments.empty())
            return code;
        decision.becomePlayer(around_.programFolder, arguments);
        around_.tell("the player can't be started");
        return kSomeLeftOut;
    }

    void cut() { drop(std::min(selection_.paths.size(), kMostFiles)); }

    /// Leaves out all behind the first `count`.
    void drop(std::size_t count)
    {
        const std::size_t over = selection_.paths.size() - count;
        if (over == 0)
            return;
        selection_.paths.resize(count);
        selection_.complaints.push_back(std::to_string(over) + (over == 1 ? " file was" : " files were") +
                                        " left out: a player shows " + std::to_string(kMostFiles) + " at most");
    }

    /// Writes the list, if there is still somebody to read it.
    int leave()
    {
        bool written = true;
        amongInstances(around_.runtimeFolder, [&] {
            gone_ = liveInstances(around_.runtimeFolder).empty();
            if (gone_ || selection_.paths.empty())
                return;
            const auto count = [] { return handover::lines().value_or(std::vector<Text>()).size(); };
            const std::size_t before = count();
            std::transform(selection_.paths.begin(), selection_.paths.end(), std::back_inserter(lines_), quoted);
            written = handover::add(lines_, Long(static_cast<int>(kMostFiles)));
            added_ = written ? count() - before : 0;
        });
        if (gone_ || lines_.empty())
            return kDone;
        if (!written) {
            around_.tell("the list of files can't be written");
            return end(kSomeLeftOut);
        }
        drop(added_);
        return kDone;
    }

    bool listIsTaken() const
    {
        const auto left = handover::lines();
        return added_ > 0 && left && std::none_of(lines_.begin(), lines_.end(), [&](const Text& line) {
                   return std::find(left->begin(), left->end(), line) != left->end();
               });
    }

    /// Asks the console, and waits for a sign of life.
    int ask()
    {
        std::optional<Console> asked;
        const auto limit = std::chrono::steady_clock::now() + kAnswerLimit;
        do {
            // In this order: a player that ends has left the others before it takes its list away.
            const bool taken = listIsTaken();
            const auto live = liveInstances(around_.runtimeFolder);
            gone_ = live.empty();
            if (gone_ || taken || (asked && calls_.hasHeard(*asked)))
                return kDone;
            if (!asked && (asked = calls_.find(presence::owner(), live)))
                calls_.call(*asked);
            // One that comes up takes the list when it is there.
            if (!asked && !presence::exists())
                return kDone;
            std::this_thread::sleep_for(kBetweenLooks);
        } while (std::chrono::steady_clock::now() < limit);
        around_.tell(added_ > 0 ? "the player doesn't answer; the files wait for it" : "the player doesn't answer");
        return kNoAnswer;
    }

    const ConsoleCalls& calls_;
    const Surroundings& around_;
    Selection selection_;
    std::vector<Text> lines_;
    std::size_t added_ = 0;
    /// Files were named.
    bool wanted_ = false;
    /// The player that was there has ended.
    bool gone_ = false;
    bool complained_ = false;
};

} // namespace

Selection selectionOf(const std::vector<std::string>& names, const std::string& folder)
{
    Selection result;
    std::vector<std::string> paths;
    std::vector<std::string> shown;
    for (const std::string& name : names) {
        if (const auto path = localPath(name, folder)) {
            paths.push_back(*path);
            shown.push_back(name);
        } else {
            result.complaints.push_back(name + ": not a file that can be named to the player");
        }
    }
    const auto looks = lookAtAll(paths);
    for (std::size_t i = 0; i < paths.size(); ++i) {
        if (looks[i].missing)
            result.complaints.push_back(shown[i] + ": no such file");
        else
            result.paths.push_back(markPath(paths[i]));
    }
    result.disc = names.size() == 1 && looks.size() == 1 && looks[0].disc;
    return result;
}

Selection onlyHandedOver(Selection selection)
{
    std::vector<std::string> taken;
    for (const std::string& path : selection.paths) {
        if (handover::takes(quoted(path)))
            taken.push_back(path);
        else
            selection.complaints.push_back(unmarkPath(path) + ": a running player takes no files of this kind");
    }
    selection.paths = std::move(taken);
    return selection;
}

int openFiles(const Arguments& arguments, const ConsoleCalls& calls, const Surroundings& around)
{
    return Opening(calls, around).run(arguments);
}

} // namespace tandrel::open_tool
