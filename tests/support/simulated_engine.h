/// A playback engine without pictures: its media exist in a table, and its time is a clock that the test moves. Under
/// an `MciService` it stands in for the real media service.
#pragma once

#include "platform/mci/engine.h"

#include <chrono>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace tandrel
{

class SimulatedClock
{
public:
    using Moment = std::chrono::steady_clock::time_point;

    Moment now() const { return now_; }
    void advance(std::chrono::steady_clock::duration time) { now_ += time; }

private:
    Moment now_{std::chrono::hours(1)};
};

struct SimulatedMedium {
    /// Seconds of playing.
    double length = 10;
    /// False: the file does not tell its length.
    bool tellsLength = true;
    /// 0: sound alone, without a picture.
    double frameRate = 25;
    int width = 640;
    int height = 360;
    /// What opening it results in.
    OpenFailure failure = OpenFailure::None;
    /// Seeks and steps are never done.
    bool hangs = false;
    /// How long a seek takes before its device is ready.
    std::chrono::milliseconds seekTime{0};
    /// And how long it takes to be ready to play with others.
    std::chrono::milliseconds readyTime{0};
};

/// What a test can see of an open device.
struct SimulatedState {
    /// The number of the frame that is shown, from 0.
    long frame = 0;
    bool running = false;
    /// How many seeks and steps it was asked for.
    int seeks = 0;
    int steps = 0;
    /// How often it was told that its place will be asked for.
    int questionsAnnounced = 0;
    double volume = 1;
    PixelRect place;
    /// All places it has had, in order.
    std::vector<PixelRect> placesSeen;
    std::optional<WindowHandle> parent;
};

class SimulatedEngine final : public MediaEngine
{
public:
    /// The clock must outlive the engine, and the engine its devices.
    explicit SimulatedEngine(const SimulatedClock& clock) : clock_(clock) {}

    /// A file that is there. Paths are compared as they come.
    void add(const std::string& path, const SimulatedMedium& medium) { media_[path] = medium; }
    /// What every path that was not added opens as; without it such a path is no file.
    void addEverything(const SimulatedMedium& medium) { everything_ = medium; }
    /// From the first call on, only the windows named here are windows; before, all are.
    void addWindow(WindowHandle window) { windows_.insert(window); }

    OpenResult open(const std::string& path, std::optional<WindowHandle> parent) override;

    /// The device that was opened last for this path and is still open; null if there is none.
    const SimulatedState* state(const std::string& path) const;
    std::size_t openDevices() const { return devices_.size(); }

private:
    class SimulatedDevice;

    const SimulatedClock& clock_;
    std::map<std::string, SimulatedMedium> media_;
    std::optional<SimulatedMedium> everything_;
    std::set<WindowHandle> windows_;
    std::vector<SimulatedDevice*> devices_;
};

} // namespace tandrel
