// How much of the video is decoded: the part of MpvDevice that makes it cheaper, and exact again where that counts.
#include "platform/mpv/load_keeper.h"
#include "platform/mpv/mpv_device.h"
#include "platform/mpv/picture_shrink.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tandrel
{

namespace
{
using namespace std::chrono_literals;

struct EaseRow {
    const char* loopFilter;
    const char* pictures;
};
constexpr std::array<EaseRow, 5> kEases{
    {{"default", "default"}, {"nonref", "default"}, {"nonref", "nonref"}, {"nonref", "bidir"}, {"nonref", "nonkey"}}};

// So long a key picture is waited for. Where they lie further apart, decoding twice is the smaller evil.
constexpr auto kLongestWait = 6s;
// Seconds. A shorter piece isn't worth the jump.
constexpr double kShortestPiece = 0.3;

// A decoder takes these options on when it begins anew. Libmpv lets it do so, and seeks to the picture that is shown,
// when the name of the kind of hardware decoding changes; there is none by the other name.
constexpr std::array<const char*, 2> kNoHardware{"no", "none"};

} // namespace

void MpvDevice::joinLoad(std::shared_ptr<LoadKeeper> keeper, bool mayDecode)
{
    cardMayDecode_ = mayDecode;
    keeper_ = std::move(keeper);
    keeper_->join(*this);
}

void MpvDevice::tellDecoder(Ease ease)
{
    const EaseRow& row = kEases[static_cast<std::size_t>(ease)];
    ease_ = ease;
    halvings_ = halvingsAt(ease);
    easeWanted_.reset();
    noHardware_ = 1 - noHardware_;
    channel_.command({"set", "vd-lavc-skiploopfilter", row.loopFilter});
    channel_.command({"set", "vd-lavc-skipframe", row.pictures});
    channel_.command({"set", "vd-lavc-o", ("lowres=" + std::to_string(halvings_)).c_str()});
    channel_.command({"set", "hwdec", kNoHardware[static_cast<std::size_t>(noHardware_)]});
    meter_.restart();
}

int MpvDevice::halvingsAt(Ease ease) const
{
    return ease == Ease::Full ? 0 : halvingsFor(coded_, canvas_, mostHalvings_);
}

bool MpvDevice::canBeEased() const
{
    return running_ && !ended_ && stage_ == Stage::Rest && facts_.frameRate > 0 && seekable_ && origin_.has_value();
}

double MpvDevice::picturePlace() const { return place_ - (soundTime_ ? std::max(0.0, meter_.lag()) : 0.0); }

void MpvDevice::setKeyPlaces(KeyPlaces places) { keyPlaces_ = std::move(places); }

void MpvDevice::ease(Ease ease)
{
    drain();
    easeWanted_.reset();
    if (!canBeEased() || ease == ease_)
        return;
    easeSoon(ease);
    followEase();
}

void MpvDevice::easeSoon(Ease ease)
{
    easeWanted_ = ease;
    easeFrom_ = picturePlace();
    easeBy_ = Moment::clock::now() + (nextKey(easeFrom_) ? kLongestWait : 0s);
}

void MpvDevice::easeNow(Ease ease)
{
    const double place = picturePlace();
    tellDecoder(ease);
    if (ease != Ease::KeyPictures)
        return;
    // The exact picture would be the key picture behind it.
    forgetMoves();
    sendMove({"seek", seekText(place).c_str(), "absolute+keyframes"});
}

void MpvDevice::followEase()
{
    const bool grown = halvings_ > halvingsAt(ease_);
    if (halvings_ < halvingsAt(ease_) && !easeWanted_ && canBeEased())
        easeSoon(ease_);
    if (!easeWanted_ && !grown)
        return;
    prepareRead();
    if (!running_ || ended_) {
        easeWanted_.reset();
        if (grown)
            showInFull();
        return;
    }
    if (!canBeEased())
        return;
    if (grown) {
        // What is shown larger than it is decoded is not left so until a key picture comes.
        easeNow(easeWanted_.value_or(ease_));
        return;
    }
    const double place = picturePlace();
    const double from = std::exchange(easeFrom_, place);
    if (const auto key = nextKey(from); key && *key <= place) {
        easeNow(*easeWanted_);
    } else if (key && *key <= place + meter_.figures(speed_, facts_.frameRate).lag) {
        // It should be there already.
        tellDecoder(*easeWanted_);
        goOnAt(*key);
    } else if (Moment::clock::now() >= easeBy_) {
        easeNow(*easeWanted_);
    }
}

void MpvDevice::showInFull()
{
    if (ended_ || pictureIsPast_ || stage_ != Stage::Rest || behind_ || !seekable_ || !origin_)
        return;
    forgetMoves();
    returnTo_ = place_;
    sendExactSeek(place_);
}

std::optional<double> MpvDevice::nextKey(double place) const
{
    if (!keyPlaces_)
        return {};
    const auto& keys = keyPlaces_->seconds;
    const auto next = std::upper_bound(keys.begin(), keys.end(), place);
    return next == keys.end() ? std::nullopt : std::optional(*next);
}

void MpvDevice::goOnAt(double key)
{
    forgetMoves();
    sendExactSeek(key);
}

void MpvDevice::catchUp()
{
    drain();
    if (!canBeEased() || !keyPlaces_)
        return;
    const double place = picturePlace();
    const double due = place + meter_.figures(speed_, facts_.frameRate).lag;
    const auto& keys = keyPlaces_->seconds;
    const auto behind = std::upper_bound(keys.begin(), keys.end(), due);
    if (behind == keys.begin() || *(behind - 1) <= place + kShortestPiece)
        return;
    goOnAt(*(behind - 1));
}

bool MpvDevice::decodeAll()
{
    if (ease_ == Ease::Full)
        return false;
    tellDecoder(Ease::Full);
    return true;
}

void MpvDevice::askLoad()
{
    drain();
    if (canBeEased())
        meter_.ask(channel_);
}

std::optional<LoadSample> MpvDevice::load() const
{
    if (!running_ || ended_ || facts_.frameRate <= 0 || !seekable_)
        return {};
    // What the graphics card decodes is no load for the processors.
    if (cardMayDecode_ && meter_.decodedByCard().value_or(true))
        return {};
    LoadSample sample;
    // What is on its way counts as done: it is not asked for twice.
    sample.ease = easeWanted_.value_or(ease_);
    sample.pixelRate = facts_.frameRate * facts_.width * facts_.height;
    sample.area = static_cast<long>(canvas_.width) * canvas_.height;
    const LoadMeter::Figures figures = meter_.figures(speed_, facts_.frameRate);
    sample.pace = figures.pace;
    sample.dropped = figures.dropped;
    sample.lag = figures.lag;
    sample.needsAll = keyPlaces_ && keyPlaces_->inOrder;
    if (figures.pictureRate)
        sample.pictureShare = *figures.pictureRate / facts_.frameRate;
    return sample;
}

} // namespace tandrel
