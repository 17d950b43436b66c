/// The media control service over a playback engine.
#pragma once

#include "platform/mci/command_parser.h"
#include "platform/mci/device.h"
#include "platform/mci/engine.h"
#include "platform/services.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tandrel
{

/// The tray of the disc drive.
class DriveDoor
{
public:
    virtual ~DriveDoor() = default;
    /// False where there is no drive.
    virtual bool move(bool open) = 0;
};

/// How a device stands, for a report to a person.
struct DeviceReport {
    std::string alias;
    MediaFacts facts;
    MediaReading reading;
    FrameCounts counts;
};

class MciService : public Mci
{
public:
    using Now = std::function<std::chrono::steady_clock::time_point()>;

    /// `door` may be null, and must outlive the service otherwise.
    explicit MciService(std::unique_ptr<MediaEngine> engine, DriveDoor* door = nullptr,
                        Now now = &std::chrono::steady_clock::now);
    /// Closes what is open.
    ~MciService() override;

    int send(std::string_view command, std::span<char> answer = {}) override;
    bool idle() override;
    void expect(const std::vector<std::string>& commands) override;
    void prepare(const std::vector<std::string>& paths) override { engine_->prepare(paths); }
    std::optional<DeviceLook> look(std::string_view alias) override;

    void favour(std::string_view alias) override;
    int eased() const override { return engine_->eased(); }

    /// Waits until every seek and step under way is done: for a caller that shows results to a person or looks at the
    /// screen. Blocks for 2 s at most for each device.
    void settle();

    /// All open devices in the order of their opening.
    std::vector<DeviceReport> report();

private:
    struct Entry {
        std::string alias;
        int id = 0;
        std::unique_ptr<Device> device;
    };
    using Handler = int (MciService::*)(Device&, const Command&);
    struct VerbRow {
        Verb verb;
        Handler handler;
    };
    static const VerbRow kVerbs[];

    int run(const Command& command);
    int open(const Command& command);
    int close(const Command& command);
    int moveDoor(const Command& command);
    int play(Device& device, const Command& command);
    int pause(Device& device, const Command& command);
    int seek(Device& device, const Command& command);
    int step(Device& device, const Command& command);
    int status(Device& device, const Command& command);
    int set(Device& device, const Command& command);
    int setAudio(Device& device, const Command& command);
    int where(Device& device, const Command& command);
    int put(Device& device, const Command& command);

    std::vector<Entry>::iterator find(std::string_view alias);
    int smallestFreeId() const;
    void startThoseWaitingSince(Device::Moment latest);
    /// What a command begins with: not every caller tells when it is idle.
    void startThoseForgotten();
    /// A picture that is to run has its place when the commands turn to another device: it is drawn while they go on.
    void showThoseLeft(const Device* spokenTo);
    /// All that wait for their start begin together once each stands where it is to begin. False if some still wait.
    bool startTogether();
    /// The device that a command would go to; null for one that would be refused.
    Device* deviceOf(const Command& command);
    void closeAll();

    std::unique_ptr<MediaEngine> engine_;
    DriveDoor* door_;
    Now now_;
    /// In the order of their opening.
    std::vector<Entry> devices_;
    /// The caller has been idle, and some plays still wait for others.
    bool gathering_ = false;
    /// The caller tells when it is idle.
    bool tellsIdle_ = false;
    /// What the command under way answers.
    std::string answer_;
};

} // namespace tandrel
