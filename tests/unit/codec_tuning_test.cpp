// What libmpv is told of the settings for pictures and sounds.
#include "platform/mpv/codec_tuning.h"

#include <gmock/gmock.h>

namespace tandrel
{

namespace
{
using testing::ElementsAre;
using testing::IsEmpty;
using Value = CodecValue;

constexpr TuningMeans kProcessor{};
constexpr TuningMeans kCard{.rendererHasColours = true, .hardwareDecoding = true};

CodecSettings with(std::initializer_list<std::pair<Value, int>> values)
{
    CodecSettings settings;
    for (const auto& [value, to] : values)
        settings.set(value, to);
    return settings;
}

/// The commands, each as one text.
std::vector<std::string> told(const CodecSettings& settings, const TuningMeans& means = kProcessor)
{
    std::vector<std::string> all;
    for (const auto& words : tuningOf(settings, means).commands)
        all.push_back(words[0] + " " + words[1] + " " + words[2]);
    return all;
}
} // namespace

TEST(CodecTuning, IsNothingAtTheStandard)
{
    for (const TuningMeans& means : {kProcessor, kCard}) {
        EXPECT_EQ(tuningOf({}, means), CodecTuning());
        EXPECT_THAT(told({}, means), IsEmpty());
    }
}

TEST(CodecTuning, ColoursAreOneFilterWhereTheProcessorDraws)
{
    EXPECT_THAT(told(with({{Value::Brightness, -7}, {Value::Gamma, 220}})),
                ElementsAre("vf append eq=brightness=-0.070:contrast=1.000:saturation=1.000:gamma=2.200"));
    EXPECT_THAT(told(with({{Value::Hue, 90}})), ElementsAre("vf append hue=h=-90.000"));
    EXPECT_TRUE(tuningOf(with({{Value::Contrast, 1}}), kProcessor).changesPicture);
}

TEST(CodecTuning, ARendererChangesColoursByItself)
{
    const auto settings = with({{Value::Brightness, -7}, {Value::Hue, -180}, {Value::Gamma, 200}});
    EXPECT_THAT(told(settings, kCard), ElementsAre("set brightness -7", "set hue -100", "set gamma 33"));
    const CodecTuning tuning = tuningOf(settings, kCard);
    EXPECT_TRUE(tuning.changesPicture);
    EXPECT_FALSE(tuning.hasFilters);
}

TEST(CodecTuning, FiltersOfPicturesFollowTheirOrder)
{
    EXPECT_THAT(told(with({{Value::Sharpen, 50},
                           {Value::Denoise, 100},
                           {Value::Deinterlace, 1},
                           {Value::PostProcessing, 2},
                           {Value::Saturation, -100}})),
                ElementsAre("vf append bwdif=mode=send_frame:deint=interlaced", "vf append pp=subfilters=hb/vb/dr",
                            "vf append hqdn3d=luma_spatial=12.000", "vf append unsharp=luma_amount=1.000",
                            "vf append eq=brightness=0.000:contrast=1.000:saturation=0.000:gamma=1.000"));
}

TEST(CodecTuning, DecodersOfTheCardAreLeftOrBringPicturesBack)
{
    EXPECT_THAT(told(with({{Value::HardwareDecoding, 0}}), kProcessor), IsEmpty());
    EXPECT_THAT(told(with({{Value::HardwareDecoding, 0}}), kCard), ElementsAre("set hwdec no"));
    EXPECT_FALSE(tuningOf(with({{Value::HardwareDecoding, 0}}), kCard).changesPicture);
    EXPECT_THAT(told(with({{Value::Sharpen, 100}}), kCard),
                ElementsAre("vf append unsharp=luma_amount=2.000", "set hwdec auto-copy-safe"));
    EXPECT_THAT(told(with({{Value::Normalise, 1}}), kCard), testing::SizeIs(1)) << "sound is none of its business";
}

TEST(CodecTuning, SoundsAreMixedBeforeTheyAreWeighed)
{
    EXPECT_THAT(told(with({{Value::Channels, 3}, {Value::Band31, -12}, {Value::Band16000, 3}, {Value::Normalise, 2}})),
                ElementsAre("af append aformat=channel_layouts=stereo", "af append pan=args=\"stereo|c0=c0|c1=c0\"",
                            "af append aformat=sample_rates=44100|48000|88200|96000|192000",
                            "af append equalizer=frequency=31:width_type=o:width=1:gain=-12",
                            "af append equalizer=frequency=16000:width_type=o:width=1:gain=3",
                            "af append dynaudnorm=framelen=100:gausssize=5:maxgain=15"));
    EXPECT_FALSE(tuningOf(with({{Value::Channels, 2}}), kProcessor).changesPicture);
}

TEST(CodecTuning, SpeedAndDelayAreNoFilters)
{
    const CodecTuning tuning = tuningOf(with({{Value::Speed, 75}, {Value::Delay, -150}}), kProcessor);
    EXPECT_THAT(told(with({{Value::Speed, 75}, {Value::Delay, -150}})),
                ElementsAre("set audio-delay -0.150", "set audio-pitch-correction yes", "set speed 0.750"));
    EXPECT_FALSE(tuning.hasFilters);
    EXPECT_FALSE(tuning.changesPicture);
    EXPECT_EQ(tuning.speed, 0.75);
}

} // namespace tandrel
