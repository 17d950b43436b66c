#include "platform/mci/mci_service.h"

#include "platform/mci/mci_error.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tandrel
{

namespace
{
using namespace std::chrono_literals;

// A play is held back for no longer than this where nobody ever told the service to go on, and for no longer than that
// where somebody does, whose handlers may take their time.
constexpr auto kLongestHold = 50ms;
constexpr auto kLongestHandler = 2s;
// Those of a group that are ready wait for the others, but not for one that does not come to its place.
constexpr auto kLongestGathering = 2s;
constexpr double kFullVolume = 1000;

constexpr std::string_view kAllDevices = "all";
constexpr std::string_view kDiscDrive = "cdaudio";
constexpr std::string_view kVideoType = "mpegvideo";
constexpr std::string_view kChildStyle = "child";

struct FormatRow {
    std::string_view word;
    TimeFormat format;
};
constexpr FormatRow kFormats[]{
    {"ms", TimeFormat::Milliseconds},
    {"milliseconds", TimeFormat::Milliseconds},
    {"frames", TimeFormat::Frames},
};

int errorOf(OpenFailure failure)
{
    switch (failure) {
    case OpenFailure::None:
        return mci_error::kNone;
    case OpenFailure::NoFile:
        return mci_error::kFileNotFound;
    case OpenFailure::NotPlayable:
        return mci_error::kNotPlayable;
    case OpenFailure::TimedOut:
        return mci_error::kNotReady;
    case OpenFailure::NoWindow:
        return mci_error::kNoWindow;
    }
    return mci_error::kNotPlayable;
}

void giveAnswer(const std::string& text, std::span<char> answer)
{
    if (answer.empty())
        return;
    const auto length = std::min(text.size(), answer.size() - 1);
    std::copy_n(text.begin(), length, answer.begin());
    answer[length] = '\0';
}

std::string whole(double number) { return std::to_string(std::llround(number)); }

StepDirection directionOf(const Command& command)
{
    return command[Clause::Reverse] ? StepDirection::Backward : StepDirection::Forward;
}

/// Window systems count in 32 bits at most; a picture beyond that is out of sight anyway.
int pixel(double number) { return static_cast<int>(std::clamp(number, -1e6, 1e6)); }
} // namespace

const MciService::VerbRow MciService::kVerbs[]{
    {Verb::Play, &MciService::play},         {Verb::Pause, &MciService::pause},   {Verb::Seek, &MciService::seek},
    {Verb::Step, &MciService::step},         {Verb::Status, &MciService::status}, {Verb::Set, &MciService::set},
    {Verb::SetAudio, &MciService::setAudio}, {Verb::Where, &MciService::where},   {Verb::Put, &MciService::put},
};

MciService::MciService(std::unique_ptr<MediaEngine> engine, DriveDoor* door, Now now)
    : engine_(std::move(engine)), door_(door), now_(std::move(now))
{
    engine_->whileWaiting = [this] {
        if (whileWaiting)
            whileWaiting();
    };
}

MciService::~MciService() { closeAll(); }

int MciService::send(std::string_view text, std::span<char> answer)
{
    startThoseForgotten();
    answer_.clear();
    const Command command = parseCommand(text);
    const int result = command.headError != 0 ? command.headError : run(command);
    giveAnswer(answer_, answer);
    return result;
}

void MciService::startThoseForgotten()
{
    if (gathering_)
        startTogether();
    else
        startThoseWaitingSince(now_() - (tellsIdle_ ? kLongestHandler : kLongestHold));
}

bool MciService::idle()
{
    tellsIdle_ = true;
    // Of all the places that an opening handler gives a picture only the last is worth drawing.
    for (const Entry& entry : devices_)
        entry.device->show();
    const bool allStarted = startTogether();
    engine_->tend();
    return !allStarted;
}

void MciService::favour(std::string_view alias)
{
    const auto found = find(alias);
    engine_->favour(found == devices_.end() ? nullptr : &found->device->media());
}

bool MciService::startTogether()
{
    const Device::Moment patience = now_() - kLongestGathering;
    std::vector<Device*> waiting;
    for (const Entry& entry : devices_)
        if (entry.device->waitsForStartSince(Device::Moment::max()))
            waiting.push_back(entry.device.get());
    if (waiting.size() > 1 && !gathering_)
        for (Device* device : waiting)
            device->makeReadyToPlay();
    const bool complete = std::all_of(waiting.begin(), waiting.end(), [&](Device* device) {
        return device->ready() || device->waitsForStartSince(patience);
    });
    gathering_ = waiting.size() > 1 && !complete;
    if (!gathering_)
        startThoseWaitingSince(Device::Moment::max());
    return !gathering_;
}

void MciService::expect(const std::vector<std::string>& commands)
{
    std::vector<std::pair<Device*, StepDirection>> steps;
    // What holds a device never blocks, so that comes first for all.
    for (const std::string& text : commands) {
        const Command command = parseCommand(text);
        Device* device = deviceOf(command);
        if (device != nullptr && command.verb == Verb::Status)
            device->expectQuestion();
        if (device == nullptr || (command.verb != Verb::Pause && command.verb != Verb::Step))
            continue;
        device->pause();
        const bool announced =
            std::any_of(steps.begin(), steps.end(), [&](const auto& step) { return step.first == device; });
        if (command.verb == Verb::Step && !announced)
            steps.emplace_back(device, directionOf(command));
    }
    for (const auto& [device, direction] : steps)
        device->stepAhead(direction);
}

Device* MciService::deviceOf(const Command& command)
{
    if (command.headError != 0 || command.clauseError != 0)
        return nullptr;
    const auto entry = find(command.device);
    return entry == devices_.end() ? nullptr : entry->device.get();
}

std::optional<DeviceLook> MciService::look(std::string_view alias)
{
    Device* device = deviceOf(parseCommand("status " + std::string(alias) + " position"));
    return device ? std::optional(device->lookOn()) : std::nullopt;
}

std::vector<DeviceReport> MciService::report()
{
    std::vector<DeviceReport> rows;
    for (const Entry& entry : devices_)
        rows.push_back({entry.alias, entry.device->facts(), entry.device->read(), entry.device->counts()});
    return rows;
}

void MciService::settle()
{
    for (const Entry& entry : devices_)
        entry.device->settle();
}

void MciService::startThoseWaitingSince(Device::Moment latest)
{
    for (const Entry& entry : devices_)
        if (entry.device->waitsForStartSince(latest))
            entry.device->start();
}

void MciService::showThoseLeft(const Device* spokenTo)
{
    for (const Entry& entry : devices_)
        if (entry.device.get() != spokenTo && entry.device->waitsForStartSince(Device::Moment::max()))
            entry.device->showPlace();
}

std::vector<MciService::Entry>::iterator MciService::find(std::string_view alias)
{
    return std::find_if(devices_.begin(), devices_.end(), [&](const Entry& entry) { return entry.alias == alias; });
}

int MciService::run(const Command& command)
{
    const bool all = sameWord(command.device, kAllDevices);
    if (all && command.verb != Verb::Close)
        return mci_error::kNotForAll;
    if (command.verb == Verb::Open)
        return command.clauseError != 0 ? command.clauseError : open(command);
    if (command.verb == Verb::Close)
        return close(command);

    const auto entry = find(command.device);
    showThoseLeft(entry == devices_.end() ? nullptr : entry->device.get());
    if (entry == devices_.end())
        return command.verb == Verb::Set && sameWord(command.device, kDiscDrive) ? moveDoor(command)
                                                                                 : mci_error::kNotOpen;
    if (command.clauseError != 0)
        return command.clauseError;
    for (const VerbRow& row : kVerbs)
        if (row.verb == command.verb)
            return (this->*row.handler)(*entry->device, command);
    return mci_error::kUnknownWord;
}

int MciService::open(const Command& command)
{
    const auto& type = command[Clause::Type];
    const auto& style = command[Clause::Style];
    if ((type && !sameWord(type->word, kVideoType)) || (style && !sameWord(style->word, kChildStyle)))
        return mci_error::kUnknownWord;
    const std::string_view alias = command[Clause::Alias] ? command[Clause::Alias]->word : command.device;
    if (sameWord(alias, kAllDevices))
        return mci_error::kNotForAll;
    if (find(alias) != devices_.end())
        return mci_error::kAliasInUse;

    std::optional<WindowHandle> parent;
    if (command[Clause::Parent]) {
        const double number = command[Clause::Parent]->numbers[0];
        if (number < 1 || number > std::numeric_limits<WindowHandle>::max())
            return mci_error::kNoWindow;
        parent = static_cast<WindowHandle>(number);
    }
    OpenResult result = engine_->open(std::string(command.device), parent);
    if (result.failure != OpenFailure::None)
        return errorOf(result.failure);
    const int id = smallestFreeId();
    devices_.push_back({std::string(alias), id, std::make_unique<Device>(std::move(result.device))});
    answer_ = std::to_string(id);
    return mci_error::kNone;
}

int MciService::smallestFreeId() const
{
    int id = 1;
    while (std::any_of(devices_.begin(), devices_.end(), [&](const Entry& entry) { return entry.id == id; }))
        ++id;
    return id;
}

int MciService::close(const Command& command)
{
    const bool all = sameWord(command.device, kAllDevices);
    const auto entry = find(command.device);
    if (!all && entry == devices_.end())
        return mci_error::kNotOpen;
    if (command.clauseError != 0)
        return command.clauseError;
    if (all)
        closeAll();
    else
        devices_.erase(entry);
    return mci_error::kNone;
}

void MciService::closeAll()
{
    for (const Entry& entry : devices_)
        entry.device->beginClose();
    devices_.clear();
}

int MciService::moveDoor(const Command& command)
{
    const auto& door = command[Clause::Door];
    if (!door || command.clauseError != 0)
        return command.clauseError != 0 ? command.clauseError : mci_error::kNotOpen;
    const bool open = sameWord(door->word, "open");
    if (!open && !sameWord(door->word, "closed"))
        return mci_error::kUnknownWord;
    return door_ != nullptr && door_->move(open) ? mci_error::kNone : mci_error::kNoDrive;
}

int MciService::play(Device& device, const Command& command)
{
    if (command[Clause::From])
        return device.playFrom(command[Clause::From]->numbers[0], now_());
    device.play(now_());
    return mci_error::kNone;
}

int MciService::pause(Device& device, const Command&)
{
    device.pause();
    return mci_error::kNone;
}

int MciService::seek(Device& device, const Command& command)
{
    return device.seek(command[Clause::To]->numbers[0], now_());
}

int MciService::step(Device& device, const Command& command) { return device.step(directionOf(command)); }

int MciService::status(Device& device, const Command& command)
{
    if (command[Clause::Mode]) {
        answer_ = device.mode();
        return mci_error::kNone;
    }
    if (command[Clause::Length]) {
        answer_ = whole(device.length());
        return mci_error::kNone;
    }
    double place = 0;
    const int result = device.position(command[Clause::Wait].has_value(), now_(), place);
    if (result == mci_error::kNone)
        answer_ = whole(place);
    return result;
}

int MciService::set(Device& device, const Command& command)
{
    if (!command[Clause::TimeFormat])
        return mci_error::kNotForThisDevice;
    for (const FormatRow& row : kFormats)
        if (sameWord(row.word, command[Clause::TimeFormat]->word)) {
            device.setFormat(row.format);
            return mci_error::kNone;
        }
    return mci_error::kUnknownWord;
}

int MciService::setAudio(Device& device, const Command& command)
{
    const double volume = command[Clause::Volume]->numbers[0];
    if (volume < 0 || volume > kFullVolume)
        return mci_error::kOutOfRange;
    device.setVolume(volume / kFullVolume);
    return mci_error::kNone;
}

int MciService::where(Device& device, const Command&)
{
    answer_ = "0 0 " + std::to_string(device.facts().width) + " " + std::to_string(device.facts().height);
    return mci_error::kNone;
}

int MciService::put(Device& device, const Command& command)
{
    const auto& [x, y, width, height] = command[Clause::WindowAt]->numbers;
    device.put({pixel(x), pixel(y), pixel(x) + pixel(width), pixel(y) + pixel(height)});
    return mci_error::kNone;
}

} // namespace tandrel
