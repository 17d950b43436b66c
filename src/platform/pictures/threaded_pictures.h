/// Reads and writes still pictures on threads that nobody waits for.
#pragma once

#include "platform/pictures.h"
#include "platform/services.h"

#include <functional>
#include <memory>
#include <string>

namespace tandrel
{

struct PictureTools {
    /// Where pictures go. Asked on the thread, at each order.
    std::function<std::string()> folder;
    /// The picture of a file, by its real path, that is shown at this place. May take for ever; ends soon when told.
    std::function<std::optional<Still>(const std::string& path, double seconds, const std::function<bool()>& refuses)>
        read;
};

/// Each order has a thread. Of those that hang on files that nobody answers for there are four at most; a further order
/// is refused. At its end the service waits for a second for what is being written.
class ThreadedPictures : public Pictures
{
public:
    explicit ThreadedPictures(PictureTools tools);
    ~ThreadedPictures() override;
    ThreadedPictures(const ThreadedPictures&) = delete;
    ThreadedPictures& operator=(const ThreadedPictures&) = delete;

    void save(const std::vector<PictureWish>& wishes, bool sheet) override;
    std::optional<SavedPictures> done() override;

    /// A service has ended before one of its threads: then the process must not end by exit(), which destroys what such
    /// a thread uses.
    static bool hasLeftAny();

private:
    struct State;
    std::shared_ptr<State> state_;
};

} // namespace tandrel
