#include "platform/mpv/scrub.h"

#include <utility>

namespace tandrel
{

namespace
{
using namespace std::chrono_literals;

// This one is at work alone, and somebody looks.
constexpr int kDecodingThreads = 2;
// How often something of the way is shown.
constexpr auto kBetweenPictures = 90ms;
// Without an index nobody knows where the next key frame is. Seconds.
constexpr double kFarAhead = 10;
} // namespace

/// What the caller and the jobs have in common, of which one is at work at a time.
struct Scrub::Shared {
    Shared(MediaSource medium, std::shared_ptr<StepBudget> memory, std::function<void()> news)
        : source(std::move(medium)), budget(std::move(memory)), wake(std::move(news))
    {
    }

    const MediaSource source;
    const std::shared_ptr<StepBudget> budget;
    const std::function<void()> wake;

    std::mutex mutex;
    // Under the lock.
    double target = 0;
    PictureSize size;
    bool way = false;
    std::optional<KeptPicture> latest;
    std::shared_ptr<Job> job;
    bool failed = false;

    // For the job at work alone. It ends when it is there, and the next one goes on from where it was.
    std::atomic<bool> over = false;
    std::unique_ptr<GopReader> reader;
    Scaler scaler;
    PictureSize scaledTo;
    /// The time of the last picture read, and whether somebody has seen it.
    std::optional<double> at;
    bool atIsShown = false;
    StepJob::Moment shownAt{};
    /// Where reading began: what was asked for then, and what the index had for it.
    struct Jump {
        double target;
        std::optional<double> key;
    };
    std::optional<Jump> jump;
};

class Scrub::Job final : public StepJob
{
public:
    explicit Job(std::shared_ptr<Shared> shared) : s_(*shared), keepsAlive_(std::move(shared)) {}

    bool work(Moment until) override
    {
        if (s_.reader == nullptr) {
            s_.reader = std::make_unique<GopReader>(s_.source, s_.over, kDecodingThreads);
            if (!s_.reader->open())
                return end(true);
        }
        while (!cancelled()) {
            const auto [target, size, way] = wanted();
            if (reached(target) ? !showPlace(size) || rests(target) : !comeNearer(target, size, way))
                return false;
            if (std::chrono::steady_clock::now() >= until)
                return true;
        }
        return end(false);
    }

private:
    struct Wanted {
        double target;
        PictureSize size;
        bool way;
    };
    Wanted wanted()
    {
        const std::lock_guard lock(s_.mutex);
        return {s_.target, s_.size, s_.way};
    }

    double frame() const { return 1 / s_.source.frameRate; }

    /// The picture of the place was the last one.
    bool reached(double target) const { return s_.at && *s_.at <= target && *s_.at + frame() > target; }

    bool isOnTheWay(double target) const
    {
        if (!s_.at || target < *s_.at)
            return false;
        const auto key = s_.reader->keyFrameBefore(target);
        // Some indexes have a key frame earlier than its picture is due. What a jump led to before, it leads to again.
        if (s_.jump && (s_.jump->target == target || (key && s_.jump->key == key)))
            return true;
        return key ? *key <= *s_.at : target - *s_.at < kFarAhead;
    }

    /// Reads a picture, and shows it if it is time. False if this is the end.
    bool comeNearer(double target, PictureSize size, bool way)
    {
        const bool jumps = !isOnTheWay(target);
        if (jumps) {
            s_.at.reset();
            s_.jump = Shared::Jump{target, s_.reader->keyFrameBefore(target)};
            if (!s_.reader->seek(target))
                return end(true);
        }
        s_.reader->skimWhile(s_.at && target - *s_.at > kMostReordered * frame());
        const auto result = s_.reader->next();
        if (result == GopReader::Result::End) {
            // Beyond the last picture there is nothing to come nearer by: the next place begins anew.
            s_.at.reset();
            return end(false);
        }
        if (result != GopReader::Result::Picture)
            return end(!cancelled());
        s_.at = s_.reader->time();
        s_.atIsShown = false;
        // A way that begins behind its place has no picture of it. Otherwise it was the one before, which has stayed
        // longer than most.
        if (*s_.at > target)
            return jumps ? end(true) : !rests(target);
        return !isDue(target, way) || show(size);
    }

    bool isDue(double target, bool way)
    {
        const auto now = std::chrono::steady_clock::now();
        if (!reached(target) && (!way || now - s_.shownAt < kBetweenPictures))
            return false;
        s_.shownAt = now;
        return true;
    }

    /// The picture of the place may have been passed by unseen, when another place was wanted.
    bool showPlace(PictureSize size) { return s_.atIsShown || show(size); }

    bool show(PictureSize size)
    {
        s_.atIsShown = true;
        // A scaler is made for one size.
        if (!(std::exchange(s_.scaledTo, size) == size))
            s_.scaler.reset();
        auto picture = StepPicture::make(size, s_.reader->colours(), s_.budget);
        // There is no memory left: others give some back, and the medium is not to blame.
        if (picture == nullptr)
            return true;
        if (!picture->fillFrom(s_.reader->frame(), s_.scaler))
            return end(true);
        {
            const std::lock_guard lock(s_.mutex);
            s_.latest = KeptPicture{*s_.at, std::move(picture)};
        }
        if (s_.wake)
            s_.wake();
        return true;
    }

    /// True if nothing else has been asked for meanwhile: the job is over.
    bool rests(double target)
    {
        {
            const std::lock_guard lock(s_.mutex);
            if (s_.target != target)
                return false;
            s_.job.reset();
        }
        if (s_.wake)
            s_.wake();
        return true;
    }

    bool end(bool failed)
    {
        {
            const std::lock_guard lock(s_.mutex);
            s_.failed = s_.failed || failed;
            s_.job.reset();
        }
        if (s_.wake)
            s_.wake();
        return false;
    }

    Shared& s_;
    const std::shared_ptr<Shared> keepsAlive_;
};

Scrub::Scrub(const StepTools& tools, MediaSource source)
    : workers_(tools.workers),
      turn_(tools.scrubs),
      shared_(std::make_shared<Shared>(std::move(source), tools.budget, tools.wake))
{
}

bool Scrub::aim(double time, PictureSize size, bool way)
{
    if (!hasTurn_ && turn_->exchange(true))
        return false;
    hasTurn_ = true;
    std::shared_ptr<Job> fresh;
    {
        const std::lock_guard lock(shared_->mutex);
        shared_->target = time;
        shared_->size = size;
        shared_->way = way;
        if (shared_->job != nullptr || shared_->failed)
            return true;
        fresh = shared_->job = std::make_shared<Job>(shared_);
    }
    workers_->post(fresh, {});
    workers_->hurry(fresh);
    return true;
}

std::optional<KeptPicture> Scrub::take()
{
    const std::lock_guard lock(shared_->mutex);
    return std::exchange(shared_->latest, std::nullopt);
}

bool Scrub::arrived() const
{
    const std::lock_guard lock(shared_->mutex);
    return shared_->job == nullptr;
}

bool Scrub::failed() const
{
    const std::lock_guard lock(shared_->mutex);
    return shared_->failed;
}

void Scrub::giveTurn()
{
    if (std::exchange(hasTurn_, false))
        *turn_ = false;
}

void Scrub::rest()
{
    if (!arrived())
        stop();
    giveTurn();
}

void Scrub::stop()
{
    giveTurn();
    {
        const std::lock_guard lock(shared_->mutex);
        shared_->latest.reset();
        // A reader is the job's alone until there is no job.
        if (shared_->job == nullptr && shared_->reader == nullptr)
            return;
    }
    const auto former =
        std::exchange(shared_, std::make_shared<Shared>(shared_->source, shared_->budget, shared_->wake));
    const std::lock_guard lock(former->mutex);
    shared_->failed = former->failed;
    former->over = true;
    if (former->job != nullptr)
        former->job->cancel();
    // They hold each other, and one that waits for its turn gets no other chance to let go.
    former->job.reset();
}

} // namespace tandrel
