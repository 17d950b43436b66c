// Sounds as the settings make them, measured in what comes out; and filters that this FFmpeg can't use.
#include "platform/mpv/codec_tuning.h"
#include "platform/mpv/film_worker.h"
#include "platform/mpv/mpv_device.h"
#include "platform/mpv/mpv_handle.h"
#include "platform/mpv/process_state.h"
#include "support/let_others_run.h"
#include "support/temporary_folder.h"
#include "support/test_media.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <numbers>
#include <thread>

namespace tandrel
{

namespace
{
using namespace std::chrono_literals;
using Value = CodecValue;

constexpr int kRate = 44100;
constexpr double kSeconds = 1.5;

/// Two sides, from -1 to 1.
struct Sound {
    std::vector<double> left;
    std::vector<double> right;
};

void append(std::string& text, std::uint32_t number, int bytes)
{
    for (int index = 0; index < bytes; ++index)
        text += static_cast<char>(number >> (8 * index) & 0xFF);
}

/// A sine on each side.
std::string twoTones(double leftHertz, double rightHertz, double loudness)
{
    std::string samples;
    for (int index = 0; index < kRate * kSeconds; ++index)
        for (const double hertz : {leftHertz, rightHertz}) {
            const double value = loudness * std::sin(2 * std::numbers::pi * hertz * index / kRate);
            append(samples, static_cast<std::uint16_t>(std::lround(value * 32767)), 2);
        }
    std::string file = "RIFF";
    append(file, static_cast<std::uint32_t>(36 + samples.size()), 4);
    file += "WAVEfmt ";
    append(file, 16, 4);
    append(file, 1, 2);
    append(file, 2, 2);
    append(file, kRate, 4);
    append(file, kRate * 4, 4);
    append(file, 4, 2);
    append(file, 16, 2);
    file += "data";
    append(file, static_cast<std::uint32_t>(samples.size()), 4);
    return file + samples;
}

Sound soundIn(const std::string& pcm, bool mono)
{
    Sound sound;
    const auto sample = [&](std::size_t at) {
        const auto low = static_cast<unsigned char>(pcm[at]);
        return static_cast<std::int16_t>(low | static_cast<unsigned char>(pcm[at + 1]) << 8) / 32768.0;
    };
    for (std::size_t at = 0; at + (mono ? 2 : 4) <= pcm.size(); at += mono ? 2 : 4) {
        sound.left.push_back(sample(at));
        sound.right.push_back(sample(mono ? at : at + 2));
    }
    return sound;
}

/// Of the middle, where filters have settled.
double level(const std::vector<double>& side)
{
    double sum = 0;
    const std::size_t from = side.size() / 3;
    const std::size_t to = side.size() * 2 / 3;
    for (std::size_t index = from; index < to; ++index)
        sum += side[index] * side[index];
    return std::sqrt(sum / static_cast<double>(std::max<std::size_t>(1, to - from)));
}

/// How often a second the middle rises through zero.
double pitch(const std::vector<double>& side)
{
    int rises = 0;
    const std::size_t from = side.size() / 4;
    const std::size_t to = side.size() * 3 / 4;
    for (std::size_t index = from + 1; index < to; ++index)
        rises += side[index - 1] < 0 && side[index] >= 0;
    return rises * static_cast<double>(kRate) / static_cast<double>(to - from);
}

double decibels(double ratio) { return 20 * std::log10(ratio); }

class CodecSound : public testing::Test
{
protected:
    CodecSound()
    {
        prepareProcess();
        folder.write("tones.wav", twoTones(440, 1500, 0.1));
    }

    CodecSettings with(std::initializer_list<std::pair<Value, int>> values) const
    {
        CodecSettings settings;
        for (const auto& [value, to] : values)
            settings.set(value, to);
        return settings;
    }

    /// What the tones come out as.
    Sound heard(const CodecSettings& settings)
    {
        const std::string out = folder.path("out.pcm");
        HandleSettings means;
        means.videoOutput = "null";
        means.audioOutput = "pcm";
        means.more = {{"ao-pcm-file", out},          {"ao-pcm-waveheader", "no"}, {"audio-format", "s16"},
                      {"audio-samplerate", "44100"}, {"keep-open", "no"},         {"pause", "no"}};
        mpv_handle* handle = makeHandle(means);
        applyTuning(handle, tuningOf(settings, {}));
        const std::string file = folder.path("tones.wav");
        const char* load[]{"loadfile", file.c_str(), nullptr};
        mpv_command_async(handle, 1, load);
        const auto end = std::chrono::steady_clock::now() + 60s;
        bool ended = false;
        while (!ended && std::chrono::steady_clock::now() < end)
            ended = mpv_wait_event(handle, 0.1)->event_id == MPV_EVENT_END_FILE;
        EXPECT_TRUE(ended);
        mpv_terminate_destroy(handle);
        return soundIn(folder.content("out.pcm"), settings.get(Value::Channels) == 2);
    }

    test::TemporaryFolder folder;
};

CodecTuning unfit(std::initializer_list<std::vector<std::string>> commands)
{
    CodecTuning tuning;
    tuning.commands = commands;
    tuning.hasFilters = tuning.changesPicture = true;
    return tuning;
}

const std::vector<std::string> kUnknown{"vf", "append", "nosuchfilter=1"};
const std::vector<std::string> kUnfitPicture{"vf", "append", "eq=brightness=nonsense"};
const std::vector<std::string> kUnfitSound{"af", "append", "dynaudnorm=framelen=1"};

/// A device that has loaded a file with these filters.
struct Opened {
    Opened(const char* name, const CodecTuning& tuning)
        : device(makeHandle({.videoOutput = "null", .audioOutput = "null"}), nullptr, 1, nullptr),
          failure(device.load(testMedia(name), {.withoutSound = false, .threads = 1, .tuning = tuning}))
    {
    }
    MpvDevice device;
    OpenFailure failure;
};
} // namespace

TEST_F(CodecSound, TheTonesComeOutAsTheyAreAtTheStandard)
{
    const Sound sound = heard({});
    EXPECT_NEAR(static_cast<double>(sound.left.size()) / kRate, kSeconds, 0.05);
    EXPECT_NEAR(level(sound.left), 0.0707, 0.002);
    EXPECT_NEAR(pitch(sound.left), 440, 3);
    EXPECT_NEAR(pitch(sound.right), 1500, 3);
}

TEST_F(CodecSound, ABandLiftsItsTonesAlone)
{
    const Sound before = heard({});
    const Sound after = heard(with({{Value::Band500, 12}, {Value::Band8000, -12}}));
    EXPECT_GT(decibels(level(after.left) / level(before.left)), 8);
    EXPECT_LT(std::abs(decibels(level(after.right) / level(before.right))), 3);
    const Sound lower = heard(with({{Value::Band500, -12}}));
    EXPECT_LT(decibels(level(lower.left) / level(before.left)), -8);
}

TEST_F(CodecSound, AllTenBandsCanBeUsedTogether)
{
    CodecSettings settings;
    for (int band = 0; band < kEqualiserBands; ++band)
        settings.set(equaliserBand(band), 6);
    const Sound before = heard({});
    const Sound after = heard(settings);
    EXPECT_GT(decibels(level(after.left) / level(before.left)), 5);
    EXPECT_GT(decibels(level(after.right) / level(before.right)), 5);
}

TEST_F(CodecSound, EvenVolumeLiftsWhatIsQuiet)
{
    const Sound before = heard({});
    const double gentle = level(heard(with({{Value::Normalise, 1}})).left);
    const double strong = level(heard(with({{Value::Normalise, 2}})).left);
    EXPECT_GT(decibels(gentle / level(before.left)), 6);
    EXPECT_GT(strong, gentle);
    EXPECT_LE(strong, 0.7072);
}

TEST_F(CodecSound, SidesAreMixed)
{
    const Sound left = heard(with({{Value::Channels, 3}}));
    EXPECT_NEAR(pitch(left.left), 440, 3);
    EXPECT_NEAR(pitch(left.right), 440, 3);
    const Sound right = heard(with({{Value::Channels, 4}}));
    EXPECT_NEAR(pitch(right.left), 1500, 3);
    EXPECT_NEAR(pitch(right.right), 1500, 3);
    const Sound mono = heard(with({{Value::Channels, 2}}));
    EXPECT_NEAR(static_cast<double>(mono.left.size()) / kRate, kSeconds, 0.05);
}

TEST_F(CodecSound, SpeedKeepsThePitch)
{
    for (const int speed : {50, 150, 200}) {
        const Sound sound = heard(with({{Value::Speed, speed}}));
        EXPECT_NEAR(static_cast<double>(sound.left.size()) / kRate, kSeconds * 100 / speed, 0.15) << speed;
        EXPECT_NEAR(pitch(sound.left), 440, 6) << speed;
    }
}

TEST(CodecFilters, ThatAreUnknownLeaveTheOthersAlone)
{
    const Opened opened("short.mp4", unfit({kUnknown, {"vf", "append", "hflip"}}));
    EXPECT_EQ(opened.failure, OpenFailure::None);
    EXPECT_EQ(opened.device.facts().width, 320);
    EXPECT_NEAR(opened.device.facts().frameRate, 30, 0.01);
}

TEST(CodecFilters, ThatAreUnfitAreLeftOut)
{
    for (const auto& tuning : {unfit({kUnfitPicture}), unfit({kUnfitSound}), unfit({kUnfitPicture, kUnfitSound})}) {
        for (const char* name : {"short.mp4", "h264_25.mp4", "sound.mp3"}) {
            Opened opened(name, tuning);
            ASSERT_EQ(opened.failure, OpenFailure::None) << name;
            const bool hasPicture = std::string(name) != "sound.mp3";
            EXPECT_EQ(opened.device.facts().width, hasPicture ? 320 : 0) << name;
            opened.device.play();
            const auto end = std::chrono::steady_clock::now() + 60s;
            while (opened.device.read().seconds < 0.2 && std::chrono::steady_clock::now() < end)
                test::letOthersRun();
            EXPECT_GE(opened.device.read().seconds, 0.2) << name;
        }
    }
}

TEST(CodecFilters, ThatAreUnfitDoNotMakeAFileOfWhatIsNone)
{
    EXPECT_EQ(Opened("text.avi", unfit({kUnfitPicture})).failure, OpenFailure::NotPlayable);
}

TEST(CodecFilters, ThatAreUnfitAreLeftOutOfFilms)
{
    for (const auto& tuning :
         {unfit({kUnknown}), unfit({kUnfitPicture}), unfit({kUnfitSound}), unfit({kUnfitPicture, kUnfitSound})}) {
        FilmWorker film(std::make_shared<FilmMeans>(false, [&](const TuningMeans&) { return tuning; }),
                        testMedia("film_plain.mkv"));
        const auto end = std::chrono::steady_clock::now() + 60s;
        const auto plays = [](const FilmState& state) { return state.loaded && state.moves.position() > 0.2; };
        film.with([](FilmState& state) { state.moves.play(); });
        while (!film.read(plays) && std::chrono::steady_clock::now() < end)
            test::letOthersRun();
        EXPECT_TRUE(film.read(plays)) << tuning.commands.front()[2] << " and " << tuning.commands.back()[2];
        const auto trouble = film.read([](const FilmState& state) { return state.trouble; });
        EXPECT_EQ(trouble, MediaTrouble::None);
        const auto tracks = film.read([](const FilmState& state) { return state.tracks; });
        EXPECT_EQ(std::count_if(tracks.begin(), tracks.end(), [](const FilmTrack& one) { return one.chosen; }), 2);
    }
}

} // namespace tandrel
