#include "platform/mpv/load_meter.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tandrel
{

namespace
{

enum Question { Decoder, Sound, Difference, Dropped, Rate, Place, Count };
struct Row {
    const char* property;
    mpv_format format;
};
constexpr std::array<Row, Question::Count> kQuestions{{{"hwdec-current", MPV_FORMAT_STRING},
                                                       {"audio-pts", MPV_FORMAT_DOUBLE},
                                                       {"avsync", MPV_FORMAT_DOUBLE},
                                                       {"frame-drop-count", MPV_FORMAT_INT64},
                                                       {"estimated-vf-fps", MPV_FORMAT_DOUBLE},
                                                       {"time-pos", MPV_FORMAT_DOUBLE}}};

std::optional<double> numberIn(const mpv_event& answer)
{
    const auto& property = *static_cast<const mpv_event_property*>(answer.data);
    if (answer.error < 0)
        return {};
    if (property.format == MPV_FORMAT_INT64)
        return static_cast<double>(*static_cast<const std::int64_t*>(property.data));
    return *static_cast<const double*>(property.data);
}

/// As libmpv tells it: "no" is the processor. Nothing while there is no decoder.
std::optional<bool> namesCard(const mpv_event& answer)
{
    if (answer.error < 0)
        return {};
    const std::string_view decoder =
        *static_cast<const char* const*>(static_cast<mpv_event_property*>(answer.data)->data);
    return !decoder.empty() && decoder != "no";
}

double secondsBetween(LoadMeter::Moment from, LoadMeter::Moment to)
{
    return std::chrono::duration<double>(to - from).count();
}

} // namespace

void LoadMeter::ask(MpvChannel& channel)
{
    if (firstAsked_ != 0)
        return;
    coming_ = {};
    for (const Row& row : kQuestions) {
        lastAsked_ = channel.ask(row.property, row.format);
        firstAsked_ = firstAsked_ == 0 ? lastAsked_ : firstAsked_;
        if (lastAsked_ == 0) {
            // Without all of them there is no answer; the next look asks anew.
            firstAsked_ = 0;
            return;
        }
    }
}

bool LoadMeter::hear(const mpv_event& event, Moment now)
{
    const std::uint64_t number = event.reply_userdata;
    if (event.event_id != MPV_EVENT_GET_PROPERTY_REPLY || firstAsked_ == 0 || number < firstAsked_ ||
        number > lastAsked_)
        return false;
    take(event, number - firstAsked_);
    if (number != lastAsked_)
        return true;
    firstAsked_ = 0;
    coming_.at = now;
    if (!first_)
        first_ = coming_;
    before_ = last_;
    last_ = coming_;
    return true;
}

void LoadMeter::take(const mpv_event& answer, std::uint64_t question)
{
    if (question == Decoder) {
        if (const auto byCard = namesCard(answer))
            decodedByCard_ = byCard;
        return;
    }
    const std::optional<double> number = numberIn(answer);
    switch (question) {
    case Sound:
        // Told in a moment how far.
        coming_.behindSound = number ? std::optional(0.0) : std::nullopt;
        break;
    case Difference:
        if (coming_.behindSound)
            coming_.behindSound = number.value_or(0);
        break;
    case Dropped:
        coming_.dropped = number.value_or(0);
        break;
    case Rate:
        coming_.pictureRate = number;
        break;
    default:
        coming_.place = number.value_or(0);
        break;
    }
}

void LoadMeter::restart()
{
    // What is under way is of the time before.
    firstAsked_ = 0;
    first_.reset();
    before_.reset();
    last_.reset();
}

LoadMeter::Figures LoadMeter::figures(double speed, double frameRate) const
{
    Figures figures;
    if (!before_ || !last_ || speed <= 0)
        return figures;
    const double passed = secondsBetween(before_->at, last_->at) * speed;
    if (passed <= 0)
        return figures;
    if (last_->behindSound && before_->behindSound) {
        figures.pace = 1 - (*last_->behindSound - *before_->behindSound) / passed;
        figures.lag = *last_->behindSound;
    } else {
        figures.pace = (last_->place - before_->place) / passed;
        figures.lag = secondsBetween(first_->at, last_->at) * speed - (last_->place - first_->place);
    }
    if (frameRate > 0)
        figures.dropped = std::clamp((last_->dropped - before_->dropped) / (passed * frameRate), 0.0, 1.0);
    figures.pictureRate = last_->pictureRate;
    return figures;
}

} // namespace tandrel
