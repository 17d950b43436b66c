#include "platform/vlc/vlc_disc_player.h"

#include "platform/output/x_errors.h"
#include "platform/vlc/disc_session.h"
#include "platform/vlc/disc_worker.h"

#include <cmath>
#include <system_error>
#include <thread>
#include <utility>

namespace tandrel
{

namespace
{
using Kind = DiscSession::Kind;
using Phase = DiscState::Phase;

constexpr std::chrono::milliseconds kLongestEnd{2000};
// Bringing libVLC up reads hundreds of files, for which a slow disk needs its time when the machine has just started.
constexpr std::chrono::minutes kSlowestBegin{1};
constexpr int kPictureWidth = 720;

SteadyTime now() { return std::chrono::steady_clock::now(); }

/// Posts commands and shows what is known. What a command is sure to change is shown at once, until the worker has
/// heard of it.
class VlcDiscPlayer final : public DiscPlayer
{
public:
    explicit VlcDiscPlayer(VlcOptions options);
    ~VlcDiscPlayer() override;
    VlcDiscPlayer(const VlcDiscPlayer&) = delete;
    VlcDiscPlayer& operator=(const VlcDiscPlayer&) = delete;

    void showIn(WindowHandle parent, const PixelRect& place) override;
    void follow() override;
    bool isLoaded() const override { return state_.phase == Phase::There; }
    bool isIdle() const override { return state_.phase == Phase::Nothing || state_.phase == Phase::Failed; }
    MediaTrouble trouble() const override { return state_.trouble; }
    bool hasEnded() const override { return state_.ended; }
    bool isPaused() const override { return state_.paused; }
    void play() override;
    void pause() override;
    void setRate(double rate) override;
    double rate() const override { return state_.rate; }
    void seek(double seconds) override;
    void setVolume(int level) override;
    void close() override;
    double position() const override;
    double duration() const override { return state_.duration; }
    std::vector<MediaTrack> tracks() const override { return state_.tracks; }
    void chooseTrack(MediaTrack::Kind kind, int id) override;

    void open(const std::string& path) override;
    bool isInMenu() const override { return isLoaded() && state_.inMenu; }
    void showRootMenu() override;
    void resume() override;
    void nextChapter() override { stepChapter(1); }
    void previousChapter() override { stepChapter(-1); }
    int title() const override { return std::max(state_.title, 0); }
    void playTitle(int title) override;
    int chapter() const override { return state_.chapter; }
    int chapterCount() const override { return state_.chapterCount; }
    double frameRate() const override { return state_.frameRate; }
    void allowCaptions(bool on) override;
    void menuKey(MenuKey key) override;
    void pointerAt(PixelPoint place) override;
    void pointerPressed(PixelPoint place) override;

private:
    void start();
    /// Leaves a thread behind that hangs, with all that it holds, and begins anew.
    void startAnew();
    void leaveBehind();
    bool hangs() const
    {
        return heard_ < lastPosted_ && now() - heardAt_ > (begun_ ? options_.longestCommand : kSlowestBegin);
    }
    void post(Kind kind, DiscSession::Command command);
    void stepChapter(int step);
    /// The place as it is now goes on at this speed.
    void runFromHere(double speed);
    bool canMove() const { return isLoaded() && !state_.ended; }
    bool canSeek() const { return canMove() && !state_.inMenu; }
    PixelPoint onCanvas(PixelPoint place) const;

    VlcOptions options_;
    std::shared_ptr<DiscSession> session_;
    std::shared_ptr<DiscScreen> screen_;
    std::optional<WindowHandle> parent_;
    PixelRect place_;
    double ratio_ = 1;
    DiscState state_;
    bool begun_ = false;
    std::uint64_t lastPosted_ = 0;
    /// The last command that the worker has heard of, and when that, or its begin, was noticed.
    std::uint64_t heard_ = 0;
    SteadyTime heardAt_ = now();
    int volume_ = 100;
    bool captions_ = false;
    /// The highest place that was told since the last jump.
    mutable double told_ = 0;
    mutable std::uint64_t toldJumps_ = 0;
};

VlcDiscPlayer::VlcDiscPlayer(VlcOptions options) : options_(std::move(options)) { start(); }

void VlcDiscPlayer::start()
{
    session_ = std::make_shared<DiscSession>();
    if (options_.outputs) {
        keepXErrorsHarmless();
        screen_ = std::make_shared<DiscScreen>();
    }
    try {
        std::thread([session = session_, screen = screen_, options = options_]() mutable {
            if (options.beforeBegin)
                options.beforeBegin();
            DiscWorker(session, screen, options.longestOpening).run();
            screen.reset();
            session->markEnd();
        }).detach();
    } catch (const std::system_error&) {
        session_->end();
        session_->markEnd();
    }
}

VlcDiscPlayer::~VlcDiscPlayer()
{
    session_->end();
    if (!session_->waitForEnd(kLongestEnd))
        leaveBehind();
}

void VlcDiscPlayer::leaveBehind()
{
    if (screen_ == nullptr)
        return;
    // Its window doesn't go down with that of the program.
    screen_->picture.put({}, kPictureWidth);
    screen_->picture.moveInto(screen_->system.root());
}

void VlcDiscPlayer::startAnew()
{
    session_->end();
    leaveBehind();
    start();
    begun_ = false;
    heard_ = 0;
    lastPosted_ = 0;
    setVolume(volume_);
    allowCaptions(captions_);
    if (const auto parent = std::exchange(parent_, std::nullopt))
        showIn(*parent, place_);
}

void VlcDiscPlayer::post(Kind kind, DiscSession::Command command)
{
    if (heard_ >= lastPosted_)
        heardAt_ = now();
    lastPosted_ = session_->post(kind, std::move(command));
}

void VlcDiscPlayer::showIn(WindowHandle parent, const PixelRect& place)
{
    place_ = place;
    if (screen_ == nullptr)
        return;
    if (parent_ != parent) {
        screen_->picture.moveInto(parent);
        parent_ = parent;
        ratio_ = options_.pixelRatio ? options_.pixelRatio(parent) : 1;
    }
    const auto pixels = [this](int length) { return static_cast<int>(std::lround(length * ratio_)); };
    screen_->picture.put({pixels(place.left), pixels(place.top), pixels(place.right), pixels(place.bottom)},
                         kPictureWidth);
}

void VlcDiscPlayer::follow()
{
    std::uint64_t heard = 0;
    const auto state = session_->state(heard);
    if (state == nullptr)
        return;
    const bool begins = !begun_ && session_->hasBegun();
    begun_ = begun_ || begins;
    if (heard != std::exchange(heard_, heard) || begins)
        heardAt_ = now();
    if (heard >= lastPosted_) {
        state_ = *state;
    } else if (state_.phase == Phase::Opening && hangs()) {
        state_ = {};
        state_.phase = Phase::Failed;
        state_.trouble = MediaTrouble::NotPlayable;
    }
}

void VlcDiscPlayer::runFromHere(double speed)
{
    state_.place.seconds = state_.place.at(now());
    state_.place.since = now();
    state_.place.speed = speed;
}

double VlcDiscPlayer::position() const
{
    const double place = state_.place.at(now());
    if (toldJumps_ != state_.jumps || state_.rate < 0 || state_.paused) {
        toldJumps_ = state_.jumps;
        told_ = place;
    }
    told_ = std::max(told_, place);
    return told_;
}

void VlcDiscPlayer::open(const std::string& path)
{
    if (hangs())
        startAnew();
    state_ = {};
    state_.phase = Phase::Opening;
    post(Kind::Any, [path](DiscWorker& worker) { worker.open(path); });
}

void VlcDiscPlayer::close()
{
    state_ = {};
    post(Kind::Any, [](DiscWorker& worker) { worker.close(); });
}

void VlcDiscPlayer::play()
{
    if (isIdle())
        return;
    if (state_.ended) {
        state_ = {};
        state_.phase = Phase::Opening;
    }
    state_.paused = false;
    state_.rate = 1;
    if (canSeek())
        runFromHere(1);
    post(Kind::Any, [](DiscWorker& worker) { worker.play(); });
}

void VlcDiscPlayer::pause()
{
    if (isIdle() || state_.ended)
        return;
    runFromHere(0);
    state_.paused = true;
    state_.rate = 1;
    post(Kind::Any, [](DiscWorker& worker) { worker.pause(); });
}

void VlcDiscPlayer::setRate(double rate)
{
    if (!canSeek() || rate == 0)
        return;
    runFromHere(std::max(rate, 0.0));
    state_.paused = false;
    state_.rate = rate;
    post(Kind::Any, [rate](DiscWorker& worker) { worker.setRate(rate); });
}

void VlcDiscPlayer::seek(double seconds)
{
    if (!canSeek() || !std::isfinite(seconds))
        return;
    state_.place.seconds = std::clamp(seconds, 0.0, state_.duration);
    state_.place.since = now();
    state_.place.speed = 0;
    ++state_.jumps;
    post(Kind::Seek, [seconds](DiscWorker& worker) { worker.seek(seconds); });
}

void VlcDiscPlayer::setVolume(int level)
{
    volume_ = level;
    post(Kind::Volume, [level](DiscWorker& worker) { worker.setVolume(level); });
}

void VlcDiscPlayer::chooseTrack(MediaTrack::Kind kind, int id)
{
    post(Kind::Any, [kind, id](DiscWorker& worker) { worker.chooseTrack(kind, id); });
}

void VlcDiscPlayer::allowCaptions(bool on)
{
    captions_ = on;
    post(Kind::Any, [on](DiscWorker& worker) { worker.allowCaptions(on); });
}

void VlcDiscPlayer::showRootMenu()
{
    post(Kind::Any, [](DiscWorker& worker) { worker.showRootMenu(); });
}

void VlcDiscPlayer::resume()
{
    post(Kind::Any, [](DiscWorker& worker) { worker.resume(); });
}

void VlcDiscPlayer::stepChapter(int step)
{
    post(Kind::Any, [step](DiscWorker& worker) { worker.stepChapter(step); });
}

void VlcDiscPlayer::playTitle(int title)
{
    post(Kind::Any, [title](DiscWorker& worker) { worker.playTitle(title); });
}

void VlcDiscPlayer::menuKey(MenuKey key)
{
    post(Kind::Any, [key](DiscWorker& worker) { worker.menuKey(key); });
}

PixelPoint VlcDiscPlayer::onCanvas(PixelPoint place) const
{
    return {static_cast<int>(std::lround((place.x - place_.left) * ratio_)),
            static_cast<int>(std::lround((place.y - place_.top) * ratio_))};
}

void VlcDiscPlayer::pointerAt(PixelPoint place)
{
    if (isInMenu() && place_.contains(place))
        post(Kind::Pointer, [at = onCanvas(place)](DiscWorker& worker) { worker.pointerAt(at); });
}

void VlcDiscPlayer::pointerPressed(PixelPoint place)
{
    if (isInMenu() && place_.contains(place))
        post(Kind::Any, [at = onCanvas(place)](DiscWorker& worker) { worker.pointerPressed(at); });
}
} // namespace

std::unique_ptr<DiscPlayer> makeVlcDiscPlayer(VlcOptions options)
{
    return std::make_unique<VlcDiscPlayer>(std::move(options));
}

} // namespace tandrel
