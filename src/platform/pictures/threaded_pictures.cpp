#include "platform/pictures/threaded_pictures.h"

#include "platform/path_marks.h"
#include "platform/pictures/contact_sheet.h"
#include "platform/pictures/picture_file.h"
#include "platform/pictures/picture_names.h"
#include "platform/valid_text.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <ctime>
#include <deque>
#include <exception>
#include <list>
#include <mutex>
#include <new>
#include <system_error>
#include <thread>
#include <utility>

namespace tandrel
{

namespace
{
using namespace std::chrono_literals;

constexpr int kMostAtOnce = 4;
constexpr auto kLongestEnd = 1s;
constexpr const char* kEnding = ".png";

std::atomic<bool> leftAny = false;

/// The file of it is there already: where there is no memory for more, the sheet goes without it.
void addTo(std::vector<SheetEntry>& entries, const Still& picture, const std::string& path, double seconds)
{
    try {
        entries.push_back(sheetEntry(picture, validText(titleOf(path)), pictureTime(seconds)));
    } catch (const std::bad_alloc&) {
        return;
    }
}
} // namespace

struct ThreadedPictures::State {
    struct Worker {
        std::thread thread;
        bool done = false;
    };

    explicit State(PictureTools which) : tools(std::move(which)) {}

    const PictureTools tools;
    mutable std::mutex mutex;
    std::condition_variable changed;
    std::deque<SavedPictures> results;
    std::list<Worker> workers;
    int working = 0;
    bool ending = false;

    bool isEnding() const
    {
        const std::lock_guard lock(mutex);
        return ending;
    }

    void work(const std::vector<PictureWish>& wishes, bool sheet, Worker& self);
    void joinThoseDone();
    SavedPictures carryOut(const std::vector<PictureWish>& wishes, bool sheet) const;
    /// Without content there is no picture of `of`.
    void add(SavedPictures& saved, const std::string& of, const std::string& name, const std::string& content) const;
};

void ThreadedPictures::State::add(SavedPictures& saved, const std::string& of, const std::string& name,
                                  const std::string& content) const
{
    if (content.empty()) {
        saved.missing.push_back(of);
        return;
    }
    const WrittenPicture written = writePicture(saved.folder, name, kEnding, content);
    if (written.trouble == PictureTrouble::None)
        saved.files.push_back(written.path);
    else if (saved.trouble == PictureTrouble::None)
        saved.trouble = written.trouble;
}

/// On a thread of its own. Every order is answered, whatever becomes of it.
void ThreadedPictures::State::work(const std::vector<PictureWish>& wishes, bool sheet, Worker& self)
{
    SavedPictures saved;
    try {
        saved = carryOut(wishes, sheet);
    } catch (const std::exception&) {
        saved.trouble = PictureTrouble::Busy;
    }
    const std::lock_guard lock(mutex);
    results.push_back(std::move(saved));
    self.done = true;
    --working;
    changed.notify_all();
}

/// They need no lock any more, but for a moment.
void ThreadedPictures::State::joinThoseDone()
{
    workers.remove_if([](Worker& worker) {
        if (worker.done)
            worker.thread.join();
        return worker.done;
    });
}

SavedPictures ThreadedPictures::State::carryOut(const std::vector<PictureWish>& wishes, bool sheet) const
{
    const auto refuses = [this] { return isEnding(); };
    SavedPictures saved;
    saved.folder = tools.folder();
    removeLeftPictures(saved.folder);
    std::vector<SheetEntry> entries;
    for (const PictureWish& wish : wishes) {
        if (refuses())
            return saved;
        const std::string path = unmarkPath(wish.path);
        // A picture that there is no memory for takes none of the others away.
        try {
            const auto picture = tools.read(path, wish.seconds, refuses);
            if (refuses())
                return saved;
            const std::string content = picture && !picture->pixels.empty() ? pngOf(*picture) : std::string();
            add(saved, wish.path, pictureName(path, wish.seconds), content);
            if (sheet && !content.empty())
                addTo(entries, *picture, path, wish.seconds);
        } catch (const std::bad_alloc&) {
            saved.missing.push_back(wish.path);
        }
    }
    if (const std::string name = sheetName(std::time(nullptr)); !entries.empty())
        add(saved, name, name, contactSheet(entries, refuses));
    if (saved.trouble == PictureTrouble::None && !saved.missing.empty())
        saved.trouble = PictureTrouble::NoPicture;
    return saved;
}

ThreadedPictures::ThreadedPictures(PictureTools tools) : state_(std::make_shared<State>(std::move(tools))) {}

ThreadedPictures::~ThreadedPictures()
{
    std::unique_lock lock(state_->mutex);
    state_->ending = true;
    state_->changed.wait_for(lock, kLongestEnd, [this] { return state_->working == 0; });
    state_->joinThoseDone();
    for (State::Worker& worker : state_->workers) {
        worker.thread.detach();
        leftAny = true;
    }
}

void ThreadedPictures::save(const std::vector<PictureWish>& wishes, bool sheet)
{
    const std::lock_guard lock(state_->mutex);
    const auto refuse = [&] { state_->results.push_back({{}, {}, {}, PictureTrouble::Busy}); };
    if (state_->working >= kMostAtOnce)
        return refuse();
    state_->joinThoseDone();
    State::Worker& worker = state_->workers.emplace_back();
    try {
        worker.thread = std::thread([state = state_, wishes, sheet, &worker] { state->work(wishes, sheet, worker); });
        ++state_->working;
    } catch (const std::exception&) {
        state_->workers.pop_back();
        refuse();
    }
}

bool ThreadedPictures::hasLeftAny() { return leftAny; }

std::optional<SavedPictures> ThreadedPictures::done()
{
    const std::lock_guard lock(state_->mutex);
    if (state_->results.empty())
        return {};
    SavedPictures first = std::move(state_->results.front());
    state_->results.pop_front();
    return first;
}

} // namespace tandrel
