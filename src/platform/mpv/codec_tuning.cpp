#include "platform/mpv/codec_tuning.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <initializer_list>

namespace tandrel
{

namespace
{
/// Above this the sharpest and the smoothest look like mistakes.
constexpr double kSharpest = 2.0;
constexpr double kSmoothest = 12.0;
constexpr double kDegrees = 180;

constexpr std::array<int, kEqualiserBands> kBandFrequencies{31, 62, 125, 250, 500, 1000, 2000, 4000, 8000, 16000};

// Deinterlaced pictures are as many as before: frames are counted, and steps go from one to the next.
constexpr std::array<const char*, 3> kDeinterlacers{"", "bwdif=mode=send_frame:deint=interlaced",
                                                    "bwdif=mode=send_frame:deint=all"};
constexpr std::array<const char*, 3> kPostProcessors{"", "pp=subfilters=hb/vb", "pp=subfilters=hb/vb/dr"};
// The windows are short, as sound begins only when one has been read: 0.7 s, and 0.3 s for the strong one.
constexpr std::array<const char*, 3> kNormalisers{"", "dynaudnorm=framelen=150:gausssize=9:maxgain=4",
                                                  "dynaudnorm=framelen=100:gausssize=5:maxgain=15"};
constexpr std::array<const char*, 5> kMixes{"", "aformat=channel_layouts=stereo", "aformat=channel_layouts=mono",
                                            "pan=args=\"stereo|c0=c0|c1=c0\"", "pan=args=\"stereo|c0=c1|c1=c1\""};
constexpr const char* kTwoChannels = "aformat=channel_layouts=stereo";
// A band above what the sound can hold would be refused.
constexpr const char* kFullRate = "aformat=sample_rates=44100|48000|88200|96000|192000";

/// Numbers as libmpv reads them, whatever the language of the process.
std::string number(double value)
{
    const long thousandths = std::lround(value * 1000);
    char text[32];
    std::snprintf(text, sizeof text, "%s%ld.%03ld", thousandths < 0 ? "-" : "", std::labs(thousandths) / 1000,
                  std::labs(thousandths) % 1000);
    return text;
}

class Tuner
{
public:
    Tuner(const CodecSettings& settings, const TuningMeans& means) : settings_(settings), means_(means) {}

    CodecTuning tune()
    {
        tunePicture();
        tuneDecoding();
        tuneSound();
        return std::move(tuning_);
    }

private:
    int get(CodecValue value) const { return settings_.get(value); }
    bool isSet(CodecValue value) const { return !settings_.isStandard(value); }
    template <std::size_t Size>
    const char* choice(const std::array<const char*, Size>& choices, CodecValue value) const
    {
        return choices[static_cast<std::size_t>(get(value))];
    }
    void set(const char* option, const std::string& value) { tuning_.commands.push_back({"set", option, value}); }
    void filter(const char* list, const std::string& text)
    {
        tuning_.commands.push_back({list, "append", text});
        tuning_.hasFilters = true;
    }

    void tunePicture();
    void tuneColours();
    void tuneRenderer();
    void tuneDecoding();
    void tuneSound();
    void tuneBands();
    void tuneMix();

    const CodecSettings& settings_;
    const TuningMeans& means_;
    CodecTuning tuning_;
};

void Tuner::tunePicture()
{
    if (isSet(CodecValue::Deinterlace))
        filter("vf", choice(kDeinterlacers, CodecValue::Deinterlace));
    if (isSet(CodecValue::PostProcessing))
        filter("vf", choice(kPostProcessors, CodecValue::PostProcessing));
    if (isSet(CodecValue::Denoise))
        filter("vf", "hqdn3d=luma_spatial=" + number(get(CodecValue::Denoise) / 100.0 * kSmoothest));
    if (isSet(CodecValue::Sharpen))
        filter("vf", "unsharp=luma_amount=" + number(get(CodecValue::Sharpen) / 100.0 * kSharpest));
    if (means_.rendererHasColours)
        tuneRenderer();
    else
        tuneColours();
    tuning_.changesPicture = !tuning_.commands.empty();
}

void Tuner::tuneColours()
{
    if (isSet(CodecValue::Brightness) || isSet(CodecValue::Contrast) || isSet(CodecValue::Saturation) ||
        isSet(CodecValue::Gamma))
        filter("vf", "eq=brightness=" + number(get(CodecValue::Brightness) / 100.0) +
                         ":contrast=" + number(1 + get(CodecValue::Contrast) / 100.0) +
                         ":saturation=" + number(1 + get(CodecValue::Saturation) / 100.0) +
                         ":gamma=" + number(get(CodecValue::Gamma) / 100.0));
    // This filter turns colours the other way round than the renderer.
    if (isSet(CodecValue::Hue))
        filter("vf", "hue=h=" + number(-get(CodecValue::Hue)));
}

void Tuner::tuneRenderer()
{
    const auto tell = [this](CodecValue value, const char* property, double to) {
        if (isSet(value))
            set(property, std::to_string(std::lround(to)));
    };
    tell(CodecValue::Brightness, "brightness", get(CodecValue::Brightness));
    tell(CodecValue::Contrast, "contrast", get(CodecValue::Contrast));
    tell(CodecValue::Saturation, "saturation", get(CodecValue::Saturation));
    tell(CodecValue::Hue, "hue", get(CodecValue::Hue) / kDegrees * 100);
    // Its scale is that of powers of eight.
    tell(CodecValue::Gamma, "gamma", std::log(get(CodecValue::Gamma) / 100.0) / std::log(8.0) * 100);
}

void Tuner::tuneDecoding()
{
    if (!means_.hardwareDecoding)
        return;
    if (get(CodecValue::HardwareDecoding) == 0)
        set("hwdec", "no");
    else if (tuning_.hasFilters)
        // Filters work on pictures in memory.
        set("hwdec", "auto-copy-safe");
}

void Tuner::tuneSound()
{
    tuneMix();
    tuneBands();
    if (isSet(CodecValue::Normalise))
        filter("af", choice(kNormalisers, CodecValue::Normalise));
    if (isSet(CodecValue::Delay))
        set("audio-delay", number(get(CodecValue::Delay) / 1000.0));
    if (!isSet(CodecValue::Speed))
        return;
    tuning_.speed = get(CodecValue::Speed) / 100.0;
    set("audio-pitch-correction", "yes");
    set("speed", number(tuning_.speed));
}

void Tuner::tuneMix()
{
    if (!isSet(CodecValue::Channels))
        return;
    constexpr int kFirstSide = 3;
    if (get(CodecValue::Channels) >= kFirstSide)
        filter("af", kTwoChannels);
    filter("af", choice(kMixes, CodecValue::Channels));
}

void Tuner::tuneBands()
{
    bool first = true;
    for (int index = 0; index < kEqualiserBands; ++index) {
        if (!isSet(equaliserBand(index)))
            continue;
        if (first)
            filter("af", kFullRate);
        first = false;
        filter("af", "equalizer=frequency=" + std::to_string(kBandFrequencies[static_cast<std::size_t>(index)]) +
                         ":width_type=o:width=1:gain=" + std::to_string(get(equaliserBand(index))));
    }
}

void send(mpv_handle* handle, std::initializer_list<const char*> words)
{
    std::vector<const char*> arguments(words);
    arguments.push_back(nullptr);
    mpv_command_async(handle, 0, arguments.data());
}
} // namespace

CodecTuning tuningOf(const CodecSettings& settings, const TuningMeans& means)
{
    static const CodecSettings standard;
    return settings == standard ? CodecTuning{} : Tuner(settings, means).tune();
}

void applyTuning(mpv_handle* handle, const CodecTuning& tuning)
{
    for (const auto& words : tuning.commands)
        send(handle, {words[0].c_str(), words[1].c_str(), words[2].c_str()});
}

void dropFilters(mpv_handle* handle)
{
    send(handle, {"vf", "clr", ""});
    send(handle, {"af", "clr", ""});
}

} // namespace tandrel
