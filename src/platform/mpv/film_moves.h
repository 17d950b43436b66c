/// How a film runs: held or not, how fast, and from which place to which. Times are seconds.
#pragma once

#include "platform/mpv/film_requests.h"

#include <chrono>
#include <optional>

namespace tandrel
{

/// What is told before the player is there holds from its beginning on. Nothing waits: requests are handed over, and
/// what the player says to them is heard. The places, the length and the end are heard by observed properties.
///
/// A seek shows a key frame near its target first where finding the exact picture takes long. The player is kept from
/// running on from there. Of a thumb that is dragged for a while, exact pictures of places on its way are shown.
class FilmMoves
{
public:
    using Moment = std::chrono::steady_clock::time_point;

    /// The numbers that the changes of observed properties carry.
    enum Observed : std::uint64_t { kPlace = 1, kDuration, kEnd };

    /// A handle as makeHandle gives it is held; it gets its requests in their order.
    explicit FilmMoves(FilmRequests& requests);
    void hear(const mpv_event& event);
    /// Carries on what takes time by itself; several times a second.
    void tick();

    /// Seconds of the film in one second at the common rate; before the first request is taken.
    void setCommonSpeed(double speed);

    void play();
    void pause();
    void setRate(double rate);
    void seek(double seconds);

    bool isHeld() const { return held_; }
    bool hasEnded() const;
    double rate() const { return rate_; }
    double position() const;
    double duration() const;

private:
    /// A seek that is under way.
    struct Move {
        enum class Stage {
            Sent,
            /// The player has taken it on, and will report that it begins.
            Taken,
            /// It will report that it shows the new picture.
            Seeking,
            /// The place that it has come to was asked for.
            Reading
        };
        Stage stage = Stage::Sent;
        double target = 0;
        bool exact = false;
        std::uint64_t request = 0;
        Moment since;
    };

    void hearProperty(const mpv_event& event);
    void hearAnswer(const mpv_event& event);
    void notePlace(double seconds);
    void noteEnd(bool ended);
    void begin(double target);
    bool isDragged(Moment at) const;
    void send(double target, bool exact);
    void arrive();
    void finishMove();
    void goBack(Moment now);
    void leaveRate();
    void tell();

    FilmRequests& requests_;
    /// The first picture, or sound, is there.
    bool started_ = false;
    bool held_ = false;
    double rate_ = 1;
    double commonSpeed_ = 1;

    std::optional<Move> move_;
    /// The newest place that has been asked for, while nothing has been done about it.
    std::optional<double> wanted_;
    /// When the last seek came, and the first of those that have followed each other fast.
    Moment lastSeek_;
    Moment dragSince_;
    /// How many exact seeks in a row were so quick that nothing else had to be shown.
    int quickSeeks_ = 0;

    /// Where and when going back began, and when the last picture on the way was asked for.
    double backFrom_ = 0;
    Moment backSince_;
    Moment lastBack_;

    /// What was told the player last.
    bool toldPause_ = true;
    double toldSpeed_ = 1;
    bool toldMute_ = false;

    double place_ = 0;
    /// The place as it was heard last, which may have fallen.
    double heard_ = 0;
    double told_ = 0;
    double farthest_ = 0;
    bool ended_ = false;
};

} // namespace tandrel
