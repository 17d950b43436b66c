#include "platform/mpv/load_rules.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tandrel
{

namespace
{
using namespace std::chrono_literals;

// Of the cost in full; measured with H.264 of 1080p60 as encoders make it by themselves.
constexpr std::array kCosts{1.0, 0.85, 0.5, 0.28, 0.03};
constexpr double kLatePace = 0.95;
// Pictures that are decoded and thrown away are as good as late.
constexpr double kMostDropped = 0.15;
constexpr int kLateLooks = 2;
// One that plays alone is left as it is for as long as something else may be what is in its way.
constexpr int kLateLooksOfOne = 6;
// What is taken away is a little more than what is missing.
constexpr double kReserve = 0.9;
// A video that is made cheaper seeks once, and is late from that for a while.
constexpr auto kSettling = 5s;
constexpr auto kBetweenRaises = 3s;
// A raise that was too much shows within this.
constexpr auto kRaiseOnTrial = 15s;
constexpr auto kFirstPatience = 10s;
constexpr auto kLongestPatience = 300s;
// What has to be idle, and what has to be left so.
constexpr double kIdleToRaise = 0.25;
constexpr double kIdleToKeep = 0.1;
// A window smaller than this share of the largest is a thumbnail beside it.
constexpr double kSmall = 0.5;
constexpr double kLongestLag = 1.5;
constexpr auto kBetweenPieces = 4s;
// All of them together would be one jump of everything.
constexpr std::size_t kPiecesAtOnce = 3;
// Where as many pictures as this come although some are to be left out, none can be.
constexpr double kNothingLeftOut = 0.8;
constexpr int kTurnOfFavoured = 3;

Ease following(Ease ease) { return static_cast<Ease>(static_cast<int>(ease) + 1); }

double paceOf(const LoadSample& sample)
{
    const double pace = std::clamp(sample.pace.value_or(1), 0.0, 1.0);
    const bool counts = !sample.favoured && sample.dropped > kMostDropped;
    return pace >= kLatePace && counts ? kLatePace * (1 - sample.dropped / 4) : pace;
}

/// Who gives first: what nobody sees, what is small, the others, and last what the user has chosen.
int turnOf(const LoadSample& sample, long largest)
{
    if (sample.covered)
        return 0;
    if (sample.area < static_cast<long>(kSmall * static_cast<double>(largest)))
        return 1;
    return sample.favoured ? kTurnOfFavoured : 2;
}

/// How far a video gives at most at its turn.
Ease lowestOf(int turn) { return turn == 0 ? Ease::KeyPictures : Ease::LowRate; }

long largestArea(const std::vector<LoadSample>& running)
{
    long largest = 0;
    for (const LoadSample& sample : running)
        if (!sample.covered)
            largest = std::max(largest, sample.area);
    return largest;
}

} // namespace

std::vector<LoadOrder> LoadRules::judge(Moment now, const std::vector<LoadSample>& running, double idle, bool lateTicks)
{
    noteThose(running, now);
    if (auto seenAgain = uncover(running); !seenAgain.empty())
        return seenAgain;
    if (running.empty() || now < settled_)
        return {};
    double wanted = 0;
    double done = 0;
    for (const LoadSample& sample : running) {
        wanted += costOf(sample, sample.ease);
        done += costOf(sample, sample.ease) * paceOf(sample);
    }
    double pace = wanted > 0 ? done / wanted : 1;
    if (lateTicks)
        pace = std::min(pace, kReserve);
    lateLooks_ = pace < kLatePace ? lateLooks_ + 1 : 0;
    if (lateLooks_ >= kLateLooks) {
        auto orders = lower(now, running, pace);
        return orders.empty() ? catchUp(now, running) : orders;
    }
    if (lateLooks_ == 0 && idle >= kIdleToRaise && now >= raiseAllowed_)
        return raise(now, running, idle);
    return {};
}

void LoadRules::noteThose(const std::vector<LoadSample>& running, Moment now)
{
    const auto runs = [&](int id) {
        return std::any_of(running.begin(), running.end(), [id](const LoadSample& one) { return one.id == id; });
    };
    const std::size_t before = known_.size();
    std::erase_if(known_, [&](const auto& entry) { return !runs(entry.first); });
    bool changed = known_.size() != before;
    for (const LoadSample& sample : running) {
        const auto [place, isNew] = known_.try_emplace(sample.id);
        changed = changed || isNew;
        place->second.needsAll = place->second.needsAll || sample.needsAll;
        const bool leavesOut = sample.ease == Ease::HalfRate || sample.ease == Ease::LowRate;
        if (leavesOut && now >= settled_ && sample.pictureShare)
            place->second.needsAll = sample.needsAll || *sample.pictureShare > kNothingLeftOut;
    }
    // Other videos, other costs: what was too much before may not be so now.
    if (changed) {
        patience_ = kFirstPatience;
        raiseAllowed_ = std::min(raiseAllowed_, now + kBetweenRaises);
    }
}

std::vector<LoadOrder> LoadRules::uncover(const std::vector<LoadSample>& running)
{
    std::vector<LoadOrder> orders;
    for (const LoadSample& sample : running)
        if (!sample.covered && sample.ease == Ease::KeyPictures)
            orders.push_back({sample.id, Ease::LowRate});
    return orders;
}

double LoadRules::costOf(const LoadSample& sample, Ease ease) const
{
    const auto known = known_.find(sample.id);
    const bool needsAll = known != known_.end() && known->second.needsAll;
    const Ease counts = needsAll && ease != Ease::KeyPictures ? std::min(ease, Ease::Simplified) : ease;
    return sample.pixelRate * kCosts[static_cast<std::size_t>(counts)];
}

double LoadRules::costOf(const std::vector<Target>& targets) const
{
    double sum = 0;
    for (const Target& target : targets)
        sum += costOf(*target.sample, target.ease);
    return sum;
}

Ease LoadRules::cheaper(const LoadSample& sample, Ease ease, Ease lowest) const
{
    for (Ease level = following(ease); level <= lowest; level = following(level))
        if (costOf(sample, level) < costOf(sample, ease))
            return level;
    return ease;
}

std::vector<LoadOrder> LoadRules::lower(Moment now, const std::vector<LoadSample>& running, double pace)
{
    std::vector<Target> targets;
    for (const LoadSample& sample : running)
        targets.push_back({&sample, sample.ease});
    std::sort(targets.begin(), targets.end(), [](const Target& one, const Target& other) {
        return std::pair(one.sample->area, one.sample->id) < std::pair(other.sample->area, other.sample->id);
    });
    const double affordable = kReserve * pace * costOf(targets);
    const long largest = largestArea(running);
    const bool others = running.size() > 1;
    const int last = others || lateLooks_ >= kLateLooksOfOne ? kTurnOfFavoured : kTurnOfFavoured - 1;
    for (int turn = 0; turn <= last; ++turn)
        for (Ease level = Ease::Full; level < lowestOf(turn); level = following(level))
            for (Target& target : targets)
                if (turnOf(*target.sample, largest) == turn && target.ease == level && costOf(targets) > affordable)
                    target.ease = cheaper(*target.sample, level, lowestOf(turn));
    std::vector<LoadOrder> orders;
    for (const Target& target : targets)
        if (target.ease != target.sample->ease)
            orders.push_back({target.sample->id, target.ease});
    if (orders.empty())
        return orders;
    punishRaise(now);
    lateLooks_ = 0;
    settled_ = now + kSettling;
    return orders;
}

void LoadRules::punishRaise(Moment now)
{
    if (raisedAt_ != Moment{} && now - raisedAt_ < kRaiseOnTrial)
        patience_ = std::min<std::chrono::seconds>(patience_ * 2, kLongestPatience);
    raisedAt_ = {};
    raiseAllowed_ = now + patience_;
}

std::vector<LoadOrder> LoadRules::raise(Moment now, const std::vector<LoadSample>& running, double idle)
{
    const long largest = largestArea(running);
    const LoadSample* next = nullptr;
    for (const LoadSample& sample : running) {
        if (sample.ease == Ease::Full)
            continue;
        const auto rank = [&](const LoadSample& one) {
            return std::pair(turnOf(one, largest), static_cast<int>(one.ease));
        };
        if (next == nullptr || rank(*next) < rank(sample))
            next = &sample;
    }
    if (next == nullptr)
        return {};
    double used = 0;
    for (const LoadSample& sample : running)
        used += costOf(sample, sample.ease);
    const double affordable = (idle - kIdleToKeep) / (1 - idle) * used;
    for (Ease ease = Ease::Full; ease < next->ease; ease = following(ease)) {
        if (costOf(*next, ease) - costOf(*next, next->ease) > affordable)
            continue;
        raisedAt_ = now;
        raiseAllowed_ = now + kBetweenRaises;
        return {{next->id, ease}};
    }
    return {};
}

std::vector<LoadOrder> LoadRules::catchUp(Moment now, const std::vector<LoadSample>& running)
{
    std::vector<const LoadSample*> late;
    for (const LoadSample& sample : running) {
        const auto& before = known_.at(sample.id).caughtUp;
        if (sample.lag > kLongestLag && (!before || now - *before >= kBetweenPieces))
            late.push_back(&sample);
    }
    std::sort(late.begin(), late.end(), [](const auto* one, const auto* other) { return one->lag > other->lag; });
    late.resize(std::min(late.size(), kPiecesAtOnce));
    std::vector<LoadOrder> orders;
    for (const LoadSample* sample : late) {
        known_.at(sample->id).caughtUp = now;
        orders.push_back({sample->id, sample->ease, true});
    }
    return orders;
}

} // namespace tandrel
