#include "platform/mpv/film_moves.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <utility>

namespace tandrel
{

namespace
{
using namespace std::chrono_literals;

// An exact seek that takes no longer needs nothing shown before it. So many of them in a row, and the next one is
// trusted to be the same.
constexpr auto kQuick = 100ms;
constexpr int kTrust = 3;
// Who was trusted, and isn't there after so long, gets a key frame after all.
constexpr auto kPatience = 100ms;
// Seeks that follow each other no later than this are one drag. After so long, what is under way is let finish: key
// frames may be many seconds apart, and the picture would stand still otherwise.
constexpr auto kSameDrag = 400ms;
constexpr auto kDragBegins = 300ms;
// Places of a drag that lie so near to each other need no key frame between them.
constexpr double kNear = 3;
// A seek that nothing is heard of any more is given up.
constexpr auto kLost = 10s;
// Between two pictures on the way back. Faster ones would be decoded and never seen.
constexpr auto kBackPause = 150ms;
// Nearer to the beginning, a key frame is the exact picture.
constexpr double kBeginning = 0.2;

FilmMoves::Moment now() { return FilmMoves::Moment::clock::now(); }
double secondsSince(FilmMoves::Moment then, FilmMoves::Moment at)
{
    return std::chrono::duration<double>(at - then).count();
}
} // namespace

FilmMoves::FilmMoves(FilmRequests& requests) : requests_(requests) { tell(); }

void FilmMoves::tell()
{
    const bool onTheWay = move_ && !move_->exact;
    const bool pause = held_ || rate_ < 0 || onTheWay;
    const double speed = rate_ > 1 ? rate_ : commonSpeed_;
    const bool mute = rate_ != 1;
    if (mute != toldMute_)
        requests_.set("mute", toldMute_ = mute);
    if (speed != toldSpeed_)
        requests_.set("speed", toldSpeed_ = speed);
    if (pause != toldPause_)
        requests_.set("pause", toldPause_ = pause);
}

void FilmMoves::setCommonSpeed(double speed)
{
    commonSpeed_ = speed;
    tell();
}

void FilmMoves::play()
{
    if (hasEnded())
        seek(0);
    held_ = false;
    rate_ = 1;
    tell();
}

void FilmMoves::pause()
{
    held_ = true;
    rate_ = 1;
    tell();
}

void FilmMoves::setRate(double rate)
{
    if (rate == 0 || !std::isfinite(rate) || (rate > 0 && hasEnded()))
        return;
    // Who winds a held film lets it go; the common rate alone leaves it held.
    held_ = held_ && rate == 1;
    rate_ = rate;
    backFrom_ = position();
    backSince_ = now();
    tell();
}

void FilmMoves::seek(double seconds)
{
    if (std::isnan(seconds))
        return;
    wanted_ = std::clamp(seconds, 0.0, duration() > 0 ? duration() : std::max(0.0, seconds));
    ended_ = false;
    backFrom_ = *wanted_;
    const Moment at = now();
    backSince_ = at;
    if (at - lastSeek_ > kSameDrag)
        dragSince_ = at;
    lastSeek_ = at;
    if (!started_)
        return;
    // What seeks exactly, and may take long, makes way. A key frame comes up soon, and is shown first.
    const bool makesWay = move_ && move_->exact && move_->stage != Move::Stage::Reading && quickSeeks_ < kTrust;
    if (!move_ || (makesWay && !isDragged(at)))
        begin(*wanted_);
}

bool FilmMoves::isDragged(Moment at) const { return at - dragSince_ > kDragBegins && at - lastSeek_ <= kSameDrag; }

void FilmMoves::begin(double target)
{
    wanted_.reset();
    send(target, quickSeeks_ >= kTrust || target < kBeginning);
}

void FilmMoves::send(double target, bool exact)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.6f", target);
    move_ = Move{.target = target, .exact = exact, .since = now()};
    // The player may only run once it is sent to the exact place.
    if (!exact)
        tell();
    move_->request = requests_.command({"seek", text, exact ? "absolute+exact" : "absolute+keyframes"});
    tell();
}

void FilmMoves::hear(const mpv_event& event)
{
    switch (event.event_id) {
    case MPV_EVENT_COMMAND_REPLY:
        if (!move_ || event.reply_userdata != move_->request)
            break;
        if (event.error < 0)
            finishMove();
        else
            move_->stage = Move::Stage::Taken;
        break;
    case MPV_EVENT_SEEK:
        if (move_ && move_->stage == Move::Stage::Taken)
            move_->stage = Move::Stage::Seeking;
        break;
    case MPV_EVENT_PLAYBACK_RESTART:
        if (!started_) {
            started_ = true;
            if (wanted_)
                begin(*wanted_);
        } else if (move_ && move_->stage == Move::Stage::Seeking) {
            arrive();
        }
        break;
    case MPV_EVENT_PROPERTY_CHANGE:
        hearProperty(event);
        break;
    case MPV_EVENT_GET_PROPERTY_REPLY:
        hearAnswer(event);
        break;
    default:
        break;
    }
}

void FilmMoves::hearProperty(const mpv_event& event)
{
    const auto& property = *static_cast<const mpv_event_property*>(event.data);
    if (property.format == MPV_FORMAT_NONE)
        return;
    if (event.reply_userdata == kDuration)
        told_ = std::max(0.0, *static_cast<const double*>(property.data));
    // What was true when a move began says nothing of the place that it leads to.
    if (move_ || wanted_)
        return;
    if (event.reply_userdata == kPlace)
        notePlace(*static_cast<const double*>(property.data));
    else if (event.reply_userdata == kEnd)
        noteEnd(*static_cast<const int*>(property.data) != 0);
}

void FilmMoves::hearAnswer(const mpv_event& event)
{
    if (!move_ || move_->stage != Move::Stage::Reading)
        return;
    const void* value = static_cast<const mpv_event_property*>(event.data)->data;
    if (event.reply_userdata == move_->request) {
        const double target = move_->target;
        finishMove();
        // Where the player can't tell, the place is what was asked for.
        place_ = target;
        if (event.error >= 0)
            place_ = std::max(0.0, *static_cast<const double*>(value));
        heard_ = place_;
        farthest_ = std::max(farthest_, event.error >= 0 ? place_ : 0);
    } else if (event.reply_userdata + 1 == move_->request) {
        ended_ = event.error >= 0 && *static_cast<const int*>(value) != 0;
    }
}

void FilmMoves::notePlace(double seconds)
{
    heard_ = std::max(0.0, seconds);
    const bool forwards = !held_ && rate_ > 0 && !ended_;
    place_ = forwards ? std::max(place_, heard_) : heard_;
    farthest_ = std::max(farthest_, place_);
}

void FilmMoves::noteEnd(bool ended)
{
    ended_ = ended;
    if (!ended)
        return;
    // A place behind the last picture was only hoped for.
    place_ = heard_;
    if (rate_ > 0)
        leaveRate();
}

void FilmMoves::leaveRate()
{
    rate_ = 1;
    tell();
}

void FilmMoves::arrive()
{
    if (!move_->exact && !wanted_)
        return send(move_->target, true);
    if (wanted_) {
        const double target = *std::exchange(wanted_, {});
        const bool near = std::abs(target - move_->target) < kNear && isDragged(now());
        return near ? send(target, true) : begin(target);
    }
    const bool quick = now() - move_->since < kQuick;
    quickSeeks_ = quick ? std::min(kTrust, quickSeeks_ + 1) : 0;
    move_->stage = Move::Stage::Reading;
    requests_.ask("eof-reached", MPV_FORMAT_FLAG);
    move_->request = requests_.ask("time-pos", MPV_FORMAT_DOUBLE);
}

void FilmMoves::finishMove()
{
    move_.reset();
    tell();
    if (wanted_)
        begin(*wanted_);
    else if (ended_ && rate_ > 0)
        leaveRate();
}

void FilmMoves::tick()
{
    const Moment at = now();
    if (move_ && at - move_->since > kLost)
        finishMove();
    const bool waits = move_ && move_->exact && move_->stage != Move::Stage::Reading && at - move_->since > kPatience;
    if (waits && quickSeeks_ >= kTrust) {
        quickSeeks_ = 0;
        if (rate_ > 0)
            begin(wanted_.value_or(move_->target));
    }
    if (rate_ < 0)
        goBack(at);
}

void FilmMoves::goBack(Moment at)
{
    if (!started_ || move_ || wanted_ || at - lastBack_ < kBackPause)
        return;
    lastBack_ = at;
    const double target = backFrom_ + rate_ * secondsSince(backSince_, at);
    ended_ = false;
    if (target > 0)
        return send(target, true);
    rate_ = 1;
    send(0, true);
}

bool FilmMoves::hasEnded() const { return ended_ && !move_ && !wanted_; }

double FilmMoves::position() const { return wanted_ ? *wanted_ : move_ ? move_->target : place_; }

double FilmMoves::duration() const { return std::max(told_, farthest_); }

} // namespace tandrel
