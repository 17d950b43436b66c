#include "platform/mpv/load_keeper.h"

#include "platform/mpv/key_watch.h"
#include "platform/mpv/mpv_device.h"
#include "platform/output/covered_windows.h"

#include <algorithm>
#include <fstream>
#include <string>

namespace tandrel
{

namespace
{
using namespace std::chrono_literals;

constexpr auto kBetweenLooks = 1000ms;
// The console has ticks of 50 ms: events that come after so long a pause come late.
constexpr auto kLateTick = 150ms;
// Longer than this is a handler at work, or a program that was stopped.
constexpr auto kNoTick = 1500ms;
constexpr int kLateTicks = 3;
// Where so little is idle, it may soon be too much.
constexpr double kBusy = 0.5;
} // namespace

LoadKeeper::LoadKeeper(Judge judge) : judge_(std::move(judge))
{
    if (!judge_)
        judge_ = [rules = LoadRules()](Moment now, const std::vector<LoadSample>& running, double idle,
                                       bool lateTicks) mutable { return rules.judge(now, running, idle, lateTicks); };
}

LoadKeeper::~LoadKeeper() = default;

void LoadKeeper::join(MpvDevice& device) { devices_.push_back({++lastId_, &device}); }

void LoadKeeper::leave(MpvDevice& device)
{
    std::erase_if(devices_, [&](const Entry& entry) { return entry.device == &device; });
    if (favoured_ == &device)
        favoured_ = nullptr;
}

void LoadKeeper::noteTick(Moment now)
{
    const auto since = now - lastTick_;
    if (since > kLateTick && since < kNoTick)
        ++lateTicks_;
    lastTick_ = now;
}

void LoadKeeper::tend(Moment now)
{
    if (devices_.empty())
        return;
    noteTick(now);
    for (const Entry& entry : devices_)
        entry.device->followEase();
    if (now < nextLook_)
        return;
    nextLook_ = now + kBetweenLooks;
    const double idle = idleShare();
    const std::vector<LoadSample> running = samples();
    carryOut(judge_(now, running, idle, lateTicks_ >= kLateTicks));
    lateTicks_ = 0;
    // What was made cheaper may have come to light since.
    const bool anyEased =
        std::any_of(running.begin(), running.end(), [](const LoadSample& sample) { return sample.ease != Ease::Full; });
    if (!running.empty() && (idle < kBusy || anyEased)) {
        lookForCovered();
        lookForKeys();
    }
    for (const Entry& entry : devices_)
        entry.device->askLoad();
}

std::vector<LoadSample> LoadKeeper::samples()
{
    std::vector<LoadSample> running;
    for (const Entry& entry : devices_) {
        auto sample = entry.device->load();
        if (!sample)
            continue;
        sample->id = entry.id;
        sample->favoured = entry.device == favoured_;
        const PictureWindow* window = entry.device->window();
        sample->covered = sample->area == 0 || (covers_ && window && covers_->covered(window->frame()));
        running.push_back(*sample);
    }
    return running;
}

void LoadKeeper::carryOut(const std::vector<LoadOrder>& orders)
{
    for (const LoadOrder& order : orders)
        for (const Entry& entry : devices_)
            if (entry.id == order.id) {
                if (order.catchUp)
                    entry.device->catchUp();
                else
                    entry.device->ease(order.ease);
            }
}

void LoadKeeper::lookForCovered()
{
    if (!covers_)
        covers_ = std::make_unique<CoverWatch>();
    std::vector<WindowHandle> windows;
    for (const Entry& entry : devices_)
        if (const PictureWindow* window = entry.device->window())
            windows.push_back(window->frame());
    covers_->look(std::move(windows));
}

void LoadKeeper::lookForKeys()
{
    if (!keys_)
        keys_ = std::make_unique<KeyWatch>();
    for (const Entry& entry : devices_)
        if (!entry.device->knowsKeyPlaces())
            if (auto places = keys_->of(entry.device->path()))
                entry.device->setKeyPlaces(std::move(*places));
}

int LoadKeeper::eased() const
{
    return static_cast<int>(std::count_if(devices_.begin(), devices_.end(), [](const Entry& entry) {
        const auto sample = entry.device->load();
        return sample && sample->ease != Ease::Full;
    }));
}

LoadKeeper::ProcessorTimes LoadKeeper::readProcessors()
{
    // proc(5): user, nice, system, idle, iowait, irq, softirq, steal; the first line is of all processors.
    std::ifstream file("/proc/stat");
    std::string word;
    file >> word;
    ProcessorTimes times;
    double value = 0;
    for (int field = 0; field < 8 && file >> value; ++field) {
        times.all += value;
        if (field == 3 || field == 4)
            times.idle += value;
    }
    return times;
}

double LoadKeeper::idleShare()
{
    const ProcessorTimes now = readProcessors();
    const double all = now.all - processors_.all;
    const double idle = now.idle - processors_.idle;
    processors_ = now;
    return all > 0 ? std::clamp(idle / all, 0.0, 1.0) : 0;
}

} // namespace tandrel
