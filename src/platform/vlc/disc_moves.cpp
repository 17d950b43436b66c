// What a disc's player is told to do.
#include "platform/path_marks.h"
#include "platform/vlc/disc_worker.h"

#include <algorithm>
#include <filesystem>

namespace tandrel
{

namespace
{
// libVLC goes to the first unit of the disc that begins behind a place; they are half a second long or so.
constexpr double kUnit = 0.3;
// A drive may have to get going first.
constexpr std::chrono::seconds kLongestLook{6};
// From so much before a chapter libVLC goes astray.
constexpr double kBeforeMark = 0.7;

/// The stand-ins of the marks may be characters of the real name.
std::string findDisc(const std::string& markedPath)
{
    std::error_code problem;
    const std::string plain = unmarkPath(markedPath);
    return std::filesystem::exists(plain, problem) ? plain : markedPath;
}
} // namespace

void DiscWorker::open(const std::string& path)
{
    close();
    if (!film_.isUsable()) {
        fail(MediaTrouble::NotPlayable);
        return;
    }
    std::error_code problem;
    path_ = std::filesystem::absolute(findDisc(path), problem).string();
    disc_ = lookAtDiscFor(path_, kLongestLook);
    const bool plays = !path.empty() && !problem && !disc_.facts.titles.empty();
    if (!plays || disc_.facts.encrypted) {
        fail(plays ? MediaTrouble::Encrypted : MediaTrouble::NotPlayable);
        return;
    }
    state_.phase = Phase::Opening;
    openedAt_ = now();
    clock_.setLead(disc_.pictureLead);
    if (!film_.open(path_))
        fail(MediaTrouble::NotPlayable);
}

void DiscWorker::close()
{
    if (state_.phase == Phase::Opening || state_.phase == Phase::There)
        film_.stop();
    state_ = {};
    clock_ = {};
    kept_ = {};
    steppedBack_.reset();
}

const DiscFacts::Title* DiscWorker::facts(int title) const
{
    const auto& titles = disc_.facts.titles;
    return title >= 1 && title <= static_cast<int>(titles.size()) ? &titles[static_cast<std::size_t>(title - 1)]
                                                                  : nullptr;
}

int DiscWorker::mainTitle() const
{
    const auto& titles = disc_.facts.titles;
    const auto longest = std::max_element(
        titles.begin(), titles.end(), [](const auto& one, const auto& other) { return one.seconds < other.seconds; });
    return static_cast<int>(longest - titles.begin()) + 1;
}

void DiscWorker::hold()
{
    state_.paused = true;
    libvlc_media_player_set_pause(film_.player(), 1);
    clock_.run(0, now());
}

void DiscWorker::goOn()
{
    leaveFastRate();
    if (state_.paused || film_.state() == libvlc_Paused)
        libvlc_media_player_set_pause(film_.player(), 0);
    state_.paused = false;
    clock_.run(state_.inMenu ? 0 : state_.rate, now());
}

void DiscWorker::makeSilent(bool on) { libvlc_audio_set_mute(film_.player(), on ? 1 : 0); }

void DiscWorker::leaveFastRate()
{
    if (state_.rate == 1)
        return;
    if (state_.rate > 1)
        libvlc_media_player_set_rate(film_.player(), 1);
    state_.rate = 1;
    makeSilent(false);
    // Backwards, the film is held between its steps.
    if (steppedBack_ && !state_.paused)
        libvlc_media_player_set_pause(film_.player(), 0);
    steppedBack_.reset();
    clock_.run(state_.paused || state_.inMenu ? 0 : 1, now());
}

/// Once at its end, libVLC hears of nothing but this.
void DiscWorker::restart()
{
    film_.stop();
    state_ = {};
    state_.phase = Phase::Opening;
    clock_ = {};
    clock_.setLead(disc_.pictureLead);
    kept_ = {};
    openedAt_ = now();
    libvlc_media_player_play(film_.player());
}

void DiscWorker::play()
{
    if (state_.phase == Phase::Opening)
        state_.paused = false;
    else if (state_.phase == Phase::There && state_.ended)
        restart();
    else if (canMove())
        goOn();
}

void DiscWorker::pause()
{
    if (state_.phase == Phase::Opening)
        state_.paused = true;
    if (!canMove())
        return;
    leaveFastRate();
    hold();
}

void DiscWorker::setRate(double rate)
{
    if (!canMove() || state_.inMenu || rate == state_.rate || rate == 0)
        return;
    goOn();
    if (rate == 1)
        return;
    makeSilent(true);
    state_.rate = rate;
    if (rate > 0) {
        libvlc_media_player_set_rate(film_.player(), static_cast<float>(rate));
        clock_.run(rate, now());
    } else {
        libvlc_media_player_set_pause(film_.player(), 1);
        clock_.run(0, now());
        steppedBack_ = now();
    }
}

void DiscWorker::stepBack()
{
    const auto time = now();
    const double place = clock_.at(time) + state_.rate * secondsBetween(*steppedBack_, time);
    steppedBack_ = time;
    if (place > 0) {
        moveTo(place);
        return;
    }
    moveToChapter(0);
    leaveFastRate();
}

void DiscWorker::moveToChapter(int index)
{
    const auto* film = facts(state_.title);
    const auto place = static_cast<std::size_t>(index);
    const double seconds = film != nullptr && place < film->chapterMarks.size() ? film->chapterMarks[place] : 0;
    libvlc_media_player_set_chapter(film_.player(), index);
    clock_.jump({seconds, true, -1}, now());
    ++state_.jumps;
}

void DiscWorker::moveTo(double seconds)
{
    const double asked = std::max(seconds - kUnit, 0.0);
    const auto* film = facts(state_.title);
    if (film != nullptr)
        for (std::size_t index = 0; index < film->chapterMarks.size(); ++index) {
            const double mark = film->chapterMarks[index];
            if (mark - asked >= 0 && mark - asked < kBeforeMark) {
                moveToChapter(static_cast<int>(index));
                return;
            }
        }
    const auto milliseconds = static_cast<libvlc_time_t>(asked * 1000);
    libvlc_media_player_set_time(film_.player(), milliseconds);
    clock_.jump({seconds, false, static_cast<double>(milliseconds) / 1000}, now());
    ++state_.jumps;
}

void DiscWorker::seek(double seconds)
{
    if (!canMove() || state_.inMenu || state_.title < 1)
        return;
    // The last second is left for the way out of the title.
    moveTo(std::clamp(seconds, 0.0, std::max(state_.duration - 1, 0.0)));
}

void DiscWorker::setVolume(int level)
{
    volume_ = std::clamp(level, 0, 100);
    if (film_.isUsable())
        libvlc_audio_set_volume(film_.player(), volume_);
}

void DiscWorker::chooseTrack(MediaTrack::Kind kind, int id)
{
    if (!canMove())
        return;
    film_.chooseTrack(kind, id);
    tracksChanged_ = true;
}

void DiscWorker::allowCaptions(bool on)
{
    captions_ = on;
    if (canMove())
        film_.allowCaptions(on);
}

} // namespace tandrel
