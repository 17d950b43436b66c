#include "support/simulated_engine.h"

#include <algorithm>
#include <cmath>

namespace tandrel
{

namespace
{
constexpr double kTimeEpsilon = 1e-6;
}

class SimulatedEngine::SimulatedDevice final : public MediaDevice
{
public:
    SimulatedDevice(SimulatedEngine& engine, const std::string& path, const SimulatedMedium& medium)
        : engine_(engine), path_(path), medium_(medium)
    {
        if (medium.tellsLength)
            facts_.length = medium.length;
        if (medium.frameRate > 0) {
            facts_.frameRate = medium.frameRate;
            facts_.width = medium.width;
            facts_.height = medium.height;
        }
        engine_.devices_.push_back(this);
    }
    ~SimulatedDevice() override { std::erase(engine_.devices_, this); }

    const MediaFacts& facts() const override { return facts_; }

    void play() override
    {
        startedAt_ = engine_.clock_.now();
        startedFrom_ = seconds_;
        state_.running = true;
    }

    void pause() override
    {
        follow();
        state_.running = false;
    }

    void seek(double seconds) override
    {
        follow();
        ++state_.seeks;
        movedUntil_ = engine_.clock_.now() + medium_.seekTime;
        moveTo(std::min(seconds, lastFrame()));
    }

    void seekToEnd() override { moveTo(lastFrame()); }

    void step(StepDirection direction) override
    {
        if (medium_.frameRate <= 0)
            return;
        ++state_.steps;
        const double frame = 1 / medium_.frameRate;
        const double next =
            frameTime(std::min(seconds_, lastFrame())) + (direction == StepDirection::Forward ? frame : -frame);
        moveTo(std::clamp(next, 0.0, lastFrame()));
    }

    bool settle() override { return !medium_.hangs; }
    void makeReadyToPlay() override { movedUntil_ = std::max(movedUntil_, engine_.clock_.now() + medium_.readyTime); }
    bool ready() override { return !medium_.hangs && engine_.clock_.now() >= movedUntil_; }

    MediaReading read() override
    {
        follow();
        return {frameTime(std::min(seconds_, lastFrame())), seconds_ >= medium_.length};
    }

    void prepareRead() override { ++state_.questionsAnnounced; }

    void setVolume(double volume) override { state_.volume = volume; }
    void put(const PixelRect& place) override
    {
        state_.place = place;
        state_.placesSeen.push_back(place);
    }
    void beginClose() override {}

    const std::string& path() const { return path_; }
    SimulatedState& state() { return state_; }

    const SimulatedState& followedState()
    {
        follow();
        state_.frame = std::lround(frameTime(std::min(seconds_, lastFrame())) * medium_.frameRate);
        return state_;
    }

private:
    void follow()
    {
        if (!state_.running)
            return;
        seconds_ = startedFrom_ + std::chrono::duration<double>(engine_.clock_.now() - startedAt_).count();
        seconds_ = std::min(seconds_, medium_.length);
        state_.running = seconds_ < medium_.length;
    }

    void moveTo(double seconds)
    {
        seconds_ = startedFrom_ = seconds;
        startedAt_ = engine_.clock_.now();
    }

    double frameTime(double seconds) const
    {
        if (medium_.frameRate <= 0)
            return seconds;
        return std::floor(seconds * medium_.frameRate + kTimeEpsilon) / medium_.frameRate;
    }

    double lastFrame() const
    {
        if (medium_.frameRate <= 0)
            return medium_.length;
        return std::max(0.0, std::ceil(medium_.length * medium_.frameRate - kTimeEpsilon) - 1) / medium_.frameRate;
    }

    SimulatedEngine& engine_;
    std::string path_;
    SimulatedMedium medium_;
    MediaFacts facts_;
    SimulatedState state_;
    double seconds_ = 0;
    double startedFrom_ = 0;
    SimulatedClock::Moment startedAt_;
    SimulatedClock::Moment movedUntil_;
};

OpenResult SimulatedEngine::open(const std::string& path, std::optional<WindowHandle> parent)
{
    if (parent && !windows_.empty() && !windows_.contains(*parent))
        return {OpenFailure::NoWindow, nullptr};
    const auto found = media_.find(path);
    if (found == media_.end() && !everything_)
        return {OpenFailure::NoFile, nullptr};
    const SimulatedMedium& medium = found == media_.end() ? *everything_ : found->second;
    if (medium.failure != OpenFailure::None)
        return {medium.failure, nullptr};
    auto device = std::make_unique<SimulatedDevice>(*this, path, medium);
    device->state().parent = parent;
    return {OpenFailure::None, std::move(device)};
}

const SimulatedState* SimulatedEngine::state(const std::string& path) const
{
    const auto found = std::find_if(devices_.rbegin(), devices_.rend(),
                                    [&](const SimulatedDevice* device) { return device->path() == path; });
    return found == devices_.rend() ? nullptr : &(*found)->followedState();
}

} // namespace tandrel
