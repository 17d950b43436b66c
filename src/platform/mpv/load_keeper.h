/// Looks after all videos that play: measures once a second whether the machine keeps up, and lets `LoadRules` say what
/// becomes of whom.
#pragma once

#include "platform/mpv/load_rules.h"

#include <functional>
#include <memory>
#include <vector>

namespace tandrel
{

class CoverWatch;
class KeyWatch;
class MpvDevice;

/// For the thread of all devices.
class LoadKeeper
{
public:
    using Moment = LoadRules::Moment;

    using Judge = std::function<std::vector<LoadOrder>(Moment now, const std::vector<LoadSample>& running, double idle,
                                                       bool lateTicks)>;

    /// Without a judge of one's own the rules are those of `LoadRules`.
    explicit LoadKeeper(Judge judge = {});
    ~LoadKeeper();
    LoadKeeper(const LoadKeeper&) = delete;
    LoadKeeper& operator=(const LoadKeeper&) = delete;

    /// A device takes part until it leaves.
    void join(MpvDevice& device);
    void leave(MpvDevice& device);
    /// Commands go to this one from here on, and to no other.
    void favour(const MpvDevice* device) { favoured_ = device; }

    /// Called whenever the program is about to wait for events; does something once a second.
    void tend(Moment now);

    /// How many videos are made cheaper now, for the user to know.
    int eased() const;

private:
    struct Entry {
        int id;
        MpvDevice* device;
    };
    struct ProcessorTimes {
        double idle = 0;
        double all = 0;
    };
    static ProcessorTimes readProcessors();
    /// The share that was idle since the last call.
    double idleShare();
    std::vector<LoadSample> samples();
    void carryOut(const std::vector<LoadOrder>& orders);
    void noteTick(Moment now);
    void lookForCovered();
    void lookForKeys();

    std::vector<Entry> devices_;
    int lastId_ = 0;
    const MpvDevice* favoured_ = nullptr;
    Judge judge_;
    /// Null until something is late for the first time: a thread that nobody needs is none.
    std::unique_ptr<CoverWatch> covers_;
    std::unique_ptr<KeyWatch> keys_;
    Moment nextLook_{};
    Moment lastTick_{};
    int lateTicks_ = 0;
    ProcessorTimes processors_;
};

} // namespace tandrel
