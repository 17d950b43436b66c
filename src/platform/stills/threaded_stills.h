/// Small pictures of videos, made on a thread that takes nobody's time.
#pragma once

#include "platform/input/media_input.h"
#include "platform/services.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tandrel
{

struct StillTools {
    /// Where they are kept; empty: nowhere.
    std::string folder;
    /// Both get real paths, and may take for ever. The second ends when told.
    std::function<FileMark(const std::string& path)> look;
    std::function<std::optional<Still>(const std::string& path, const FileMark& mark,
                                       const std::function<bool()>& refuses)>
        make;
    /// A file that takes longer than this leaves its thread behind.
    std::chrono::milliseconds patience{4000};
};

/// One thread of the lowest priority, while there is something to do. At most four are left behind with files that
/// hang; a further one is waited for. The first 200 wanted files get pictures; a file is looked at again each time it
/// is wanted, and made again if it has changed. No picture is told of files that are none; one that took 3 s twice
/// counts as such.
class ThreadedStills : public Stills
{
public:
    explicit ThreadedStills(StillTools tools);
    /// Waits for a moment for a thread that doesn't hang.
    ~ThreadedStills() override;
    ThreadedStills(const ThreadedStills&) = delete;
    ThreadedStills& operator=(const ThreadedStills&) = delete;
    void want(const std::vector<std::string>& paths) override;
    std::optional<Still> have(const std::string& path) const override;

private:
    struct Worker;
    struct Answer;
    struct State;
    static void run(const std::shared_ptr<State>& state, const std::shared_ptr<Worker>& self);
    static void goOn(const std::shared_ptr<State>& state);

    std::shared_ptr<State> state_;
};

} // namespace tandrel
