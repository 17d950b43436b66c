/// How well a running player keeps up with its video.
#pragma once

#include "platform/mpv/mpv_channel.h"

#include <cstdint>
#include <optional>

namespace tandrel
{

/// Asks the player from time to time, without waiting for it, and compares what it answers with the clock.
class LoadMeter
{
public:
    using Moment = MpvChannel::Moment;

    struct Figures {
        /// Seconds of the video's pictures in one second of its time; unknown at first.
        std::optional<double> pace;
        /// Pictures that were decoded and not shown, as a share of all.
        double dropped = 0;
        /// How far the pictures are behind their time. Seconds.
        double lag = 0;
        /// Pictures a second that are decoded, by their own times.
        std::optional<double> pictureRate;
    };

    /// Sends the questions, unless the last have not been answered yet.
    void ask(MpvChannel& channel);
    /// True if the event was an answer to one of them. `now` is when it was heard.
    bool hear(const mpv_event& event, Moment now);
    /// The video has been held, sent elsewhere or started: what is known says nothing of what is to come.
    void restart();

    /// The graphics card decodes; unknown before the first answers.
    std::optional<bool> decodedByCard() const { return decodedByCard_; }
    /// How far the pictures are behind the sound, in seconds; 0 without sound.
    double lag() const { return last_ ? last_->behindSound.value_or(0) : 0; }
    /// `speed`: seconds of the video in one second.
    Figures figures(double speed, double frameRate) const;

private:
    struct Reading {
        Moment at;
        double place = 0;
        /// How far the pictures are behind the sound; nothing without sound.
        std::optional<double> behindSound;
        double dropped = 0;
        std::optional<double> pictureRate;
    };
    void take(const mpv_event& answer, std::uint64_t question);

    /// Of the questions under way; 0 if there are none.
    std::uint64_t firstAsked_ = 0;
    std::uint64_t lastAsked_ = 0;
    Reading coming_;
    std::optional<bool> decodedByCard_;
    /// The first since the start, the one before the last, and the last.
    std::optional<Reading> first_;
    std::optional<Reading> before_;
    std::optional<Reading> last_;
};

} // namespace tandrel
