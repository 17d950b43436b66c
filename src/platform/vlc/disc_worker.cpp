#include "platform/vlc/disc_worker.h"

#include <cmath>
#include <utility>

namespace tandrel
{

namespace
{
constexpr std::chrono::milliseconds kBetweenLooks{25};
constexpr std::chrono::milliseconds kBetweenStepsBack{450};
constexpr std::chrono::hours kAtRest{1};
// A change of the place that is no correction.
constexpr double kJump = 0.7;

std::optional<WindowHandle> canvasOf(const std::shared_ptr<DiscScreen>& screen)
{
    return screen == nullptr ? std::nullopt : std::optional<WindowHandle>(screen->picture.canvas());
}
} // namespace

DiscWorker::DiscWorker(std::shared_ptr<DiscSession> session, std::shared_ptr<DiscScreen> screen,
                       std::chrono::seconds longestOpening)
    : session_(std::move(session)),
      screen_(std::move(screen)),
      longestOpening_(longestOpening),
      film_(canvasOf(screen_), [shared = session_.get()](const VlcNews& news) { shared->tell(news); })
{
}

void DiscWorker::run()
{
    session_->markBegin();
    while (!session_->isEnding()) {
        if (const auto command = session_->next(nextLook()))
            command(*this);
        takeNews();
        look();
        publish();
    }
}

SteadyTime DiscWorker::nextLook() const
{
    const bool busy = state_.phase == Phase::Opening || state_.phase == Phase::There;
    return now() + (busy ? std::chrono::milliseconds(kBetweenLooks) : std::chrono::milliseconds(kAtRest));
}

void DiscWorker::takeNews()
{
    for (const VlcNews& news : session_->takeNews()) {
        if (news.kind == VlcNews::Kind::Tracks)
            tracksChanged_ = true;
        else if (news.kind == VlcNews::Kind::Time && canMove() && !state_.inMenu && film_.title() == state_.title)
            hearTime(news);
    }
}

void DiscWorker::hearTime(const VlcNews& news)
{
    const double before = clock_.at(news.when);
    clock_.hear(news.seconds, news.when);
    if (std::abs(clock_.at(news.when) - before) > kJump)
        ++state_.jumps;
}

void DiscWorker::publish()
{
    state_.place = clock_.place();
    session_->publish(state_);
}

void DiscWorker::look()
{
    if (state_.phase != Phase::Opening && state_.phase != Phase::There)
        return;
    const libvlc_state_t state = film_.state();
    if (state_.phase == Phase::Opening)
        lookAtOpening(state);
    if (state_.phase != Phase::There)
        return;
    lookAtEnd(state);
    if (!canMove())
        return;
    lookAtTitle();
    lookAtTracks();
    if (steppedBack_ && now() - *steppedBack_ >= kBetweenStepsBack)
        stepBack();
}

void DiscWorker::lookAtOpening(libvlc_state_t state)
{
    const bool runs = state == libvlc_Playing || state == libvlc_Paused;
    if (runs && film_.titleCount() > 1 && film_.title() >= 0) {
        state_.phase = Phase::There;
        state_.title = -1;
        tracksChanged_ = true;
        setVolume(volume_);
        // What was asked for while it opened.
        if (state_.paused)
            hold();
    } else if (state == libvlc_Ended || state == libvlc_Error || now() - openedAt_ > longestOpening_) {
        fail(MediaTrouble::NotPlayable);
    }
}

void DiscWorker::lookAtEnd(libvlc_state_t state)
{
    if (state == libvlc_Error) {
        fail(MediaTrouble::NotPlayable);
    } else if (state == libvlc_Ended && !state_.ended) {
        leaveFastRate();
        clock_.run(0, now());
        state_.ended = true;
    }
}

void DiscWorker::fail(MediaTrouble trouble)
{
    const bool wasOpen = state_.phase == Phase::Opening || state_.phase == Phase::There;
    state_ = {};
    state_.phase = Phase::Failed;
    state_.trouble = trouble;
    steppedBack_.reset();
    clock_ = {};
    // The end of it may take its time.
    publish();
    if (wasOpen)
        film_.stop();
}

void DiscWorker::lookAtTitle()
{
    const int title = film_.title();
    if (title < 0)
        return;
    if (title != state_.title || (title == 0) != state_.inMenu)
        title == 0 ? enterMenu() : enterTitle(title);
    if (title > 0)
        state_.chapter = libvlc_media_player_get_chapter(film_.player()) + 1;
}

void DiscWorker::enterMenu()
{
    leaveFastRate();
    clock_.run(0, now());
    if (state_.title > 0)
        kept_ = {state_.title, clock_.at(now())};
    state_.inMenu = true;
    state_.title = 0;
    state_.chapter = 0;
    if (state_.duration <= 0)
        if (const auto* film = facts(mainTitle()))
            state_.duration = film->seconds;
}

void DiscWorker::enterTitle(int title)
{
    state_.inMenu = false;
    state_.title = title;
    ++state_.jumps;
    const auto* film = facts(title);
    state_.duration =
        film != nullptr ? film->seconds : static_cast<double>(libvlc_media_player_get_length(film_.player())) / 1000;
    state_.frameRate = film != nullptr ? film->frameRate : 0;
    state_.chapterCount = film != nullptr ? film->chapters : 0;
    clock_.setLast(state_.duration);
    clock_.jump({}, now());
    clock_.run(state_.paused ? 0 : state_.rate, now());
}

void DiscWorker::lookAtTracks()
{
    if (!std::exchange(tracksChanged_, false))
        return;
    film_.allowCaptions(captions_);
    state_.tracks = film_.tracks();
}

} // namespace tandrel
