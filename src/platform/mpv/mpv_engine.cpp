#include "platform/mpv/mpv_engine.h"

#include "platform/codec/codec_file.h"
#include "platform/mpv/early_opens.h"
#include "platform/mpv/load_keeper.h"
#include "platform/mpv/media_path.h"
#include "platform/mpv/mpv_device.h"
#include "platform/mpv/mpv_handle.h"
#include "platform/mpv/output_choice.h"
#include "platform/mpv/process_state.h"
#include "platform/output/x_errors.h"

#include <algorithm>
#include <thread>

namespace tandrel
{

namespace
{
constexpr int kStepWorkers = 2;
// What pictures for steps back take at most, of all devices together.
constexpr std::size_t kStepBytes = 480 * 1024 * 1024;

/// What every device needs for as long as it lives. An open on a file system that hangs may outlive the engine.
struct Means {
    Means(const HandleSettings& settings, int devices) : stock(settings, devices) {}

    HandleStock stock;
    /// Null until the first picture.
    std::unique_ptr<WindowSystem> windowSystem;
};

HandleSettings settingsBy(const MpvOptions& options)
{
    HandleSettings settings = chooseOutputs(options.outputs);
    settings.hardwareDecoding = options.hardwareDecoding.value_or(settings.hardwareDecoding);
    return settings;
}

class MpvEngine final : public MediaEngine
{
public:
    explicit MpvEngine(MpvOptions options)
        : options_(std::move(options)),
          settings_(settingsBy(options_)),
          means_(std::make_shared<Means>(settings_, options_.mostDevices))
    {
    }

    OpenResult open(const std::string& path, std::optional<WindowHandle> parent) override;
    void prepare(const std::vector<std::string>& paths) override;
    void tend() override { keeper_->tend(std::chrono::steady_clock::now()); }
    void favour(const MediaDevice* device) override { keeper_->favour(static_cast<const MpvDevice*>(device)); }
    int eased() const override { return keeper_->eased(); }

private:
    WindowSystem& windowSystem();
    /// What a decoder of the graphics card makes, or a renderer there, is not like what the processor makes.
    bool keepsPictures() const { return !settings_.hardwareDecoding && settings_.videoOutput != "gpu"; }
    double pixelRatio(std::optional<WindowHandle> window) const;
    int openDevices() const { return static_cast<int>(means_.use_count()) - 1; }
    /// Begins to open a file whose picture, if it is to be `shown`, gets its parent later. There will be so many
    /// `devices` then.
    void begin(const std::string& path, bool shown, int devices);
    /// Opens a file by the settings of now, whatever was announced before they changed.
    EarlyOpens::Result take(const std::string& path, bool shown);
    CodecTuning tuning()
    {
        return tuningOf(codec_.read(), {settings_.videoOutput == "gpu", settings_.hardwareDecoding});
    }

    MpvOptions options_;
    HandleSettings settings_;
    /// Each device holds a share.
    std::shared_ptr<Means> means_;
    StepTools stepTools_{std::make_shared<StepWorkers>(kStepWorkers), std::make_shared<StepBudget>(kStepBytes),
                         options_.wake};
    std::shared_ptr<LoadKeeper> keeper_ = std::make_shared<LoadKeeper>(options_.judgeLoad);
    CodecFile codec_{options_.codecFile};
    EarlyOpens early_;
};

WindowSystem& MpvEngine::windowSystem()
{
    if (means_->windowSystem == nullptr) {
        keepXErrorsHarmless();
        means_->windowSystem = std::make_unique<WindowSystem>();
    }
    return *means_->windowSystem;
}

double MpvEngine::pixelRatio(std::optional<WindowHandle> window) const
{
    return window && options_.pixelRatio ? options_.pixelRatio(*window) : 1;
}

/// One decoding thread is cheaper than several that meet, as long as there is a video for each processor.
int decodingThreads(int devices)
{
    constexpr int kMost = 4;
    return std::clamp(static_cast<int>(std::thread::hardware_concurrency()) / std::max(1, devices), 1, kMost);
}

void MpvEngine::begin(const std::string& path, bool shown, int devices)
{
    // A share for the device to come is taken here, so that the stock knows how many are still to be asked for. The
    // window ends before it.
    std::shared_ptr<Means> share = means_;
    auto window = shown ? std::make_shared<std::unique_ptr<PictureWindow>>(
                              std::make_unique<PictureWindow>(windowSystem(), std::nullopt))
                        : std::make_shared<std::unique_ptr<PictureWindow>>();
    const MpvDevice::Decoding decoding{options_.outputs && settings_.audioOutput.empty(), decodingThreads(devices),
                                       tuning()};
    early_.begin(path, [path, share = std::move(share), window, decoding]() mutable -> EarlyOpens::Result {
        const MediaPath media = findMedia(path);
        if (media.failure != OpenFailure::None)
            return {media.failure};
        // Of the file as it is before anybody reads it.
        const MediaSource source{media.absolute, markOf(media.absolute), 0};
        mpv_handle* handle = share->stock.take();
        if (handle == nullptr)
            return {OpenFailure::TimedOut};
        auto device = std::make_unique<MpvDevice>(handle, std::move(*window), 1, std::move(share));
        const OpenFailure failure = device->load(media.absolute, decoding);
        if (failure != OpenFailure::None)
            return {failure};
        return {OpenFailure::None, std::move(device), source, decoding.tuning};
    });
}

EarlyOpens::Result MpvEngine::take(const std::string& path, bool shown)
{
    if (!shown || !early_.isBegun(path))
        begin(path, shown, openDevices() + 1);
    EarlyOpens::Result result = early_.take(path, whileWaiting);
    if (result.failure != OpenFailure::None || result.tuning == tuning())
        return result;
    result.device.reset();
    begin(path, shown, openDevices() + 1);
    return early_.take(path, whileWaiting);
}

void MpvEngine::prepare(const std::vector<std::string>& paths)
{
    early_.drop();
    const int devices = openDevices() + static_cast<int>(paths.size());
    for (const std::string& path : paths)
        begin(path, options_.outputs, devices);
}

OpenResult MpvEngine::open(const std::string& path, std::optional<WindowHandle> parent)
{
    const bool shown = options_.outputs && parent.has_value();
    if (shown && !windowSystem().isWindow(*parent))
        return {OpenFailure::NoWindow, nullptr};
    EarlyOpens::Result result = take(path, shown);
    means_->stock.keep(std::max(0, options_.mostDevices - openDevices()));
    if (result.failure != OpenFailure::None)
        return {result.failure, nullptr};
    result.device->setPulse([this] {
        if (whileWaiting)
            whileWaiting();
    });
    if (shown)
        result.device->moveInto(*parent, pixelRatio(parent));
    // Pictures that are decoded beside the player are as the file has them.
    if (keepsPictures() && !result.tuning.changesPicture)
        result.device->keepPictures(stepTools_, result.source);
    if (shown)
        result.device->joinLoad(keeper_, settings_.hardwareDecoding);
    return {OpenFailure::None, std::move(result.device)};
}
} // namespace

std::unique_ptr<MediaEngine> makeMpvEngine(MpvOptions options)
{
    prepareProcess();
    return std::make_unique<MpvEngine>(std::move(options));
}

} // namespace tandrel
