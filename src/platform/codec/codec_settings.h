/// What the user has set for pictures and sounds: one table of values, and their form in a file. No window system, no
/// file system; values may be used on any thread, each object on one at a time.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace tandrel
{

/// In the order of the table.
enum class CodecValue {
    /// Per cent, of the range from black to white.
    Brightness,
    /// Per cent more, or less, than the file has.
    Contrast,
    Saturation,
    /// Degrees.
    Hue,
    /// Hundredths.
    Gamma,
    /// Per cent.
    Sharpen,
    Denoise,
    /// 0 off, 1 pictures that say they are interlaced, 2 all.
    Deinterlace,
    /// 0 off, 1 edges of blocks, 2 also rings around edges.
    PostProcessing,
    /// 0 off, 1 automatic.
    HardwareDecoding,
    /// 0 off, 1 gentle, 2 strong.
    Normalise,
    /// The ten bands of the equaliser follow each other. Decibels.
    Band31,
    Band62,
    Band125,
    Band250,
    Band500,
    Band1000,
    Band2000,
    Band4000,
    Band8000,
    Band16000,
    /// Milliseconds that the sound comes later than the picture.
    Delay,
    /// 0 as the file has them, 1 stereo, 2 mono, 3 the left one on both sides, 4 the right one.
    Channels,
    /// Per cent of the common speed; the pitch stays.
    Speed,
};

/// One value: where it stands in the file, and what it may be.
struct CodecRule {
    std::string_view section;
    std::string_view name;
    int lowest = 0;
    int highest = 0;
    int standard = 0;
};

inline constexpr std::array kCodecRules{
    CodecRule{"picture", "brightness", -100, 100, 0}, CodecRule{"picture", "contrast", -100, 100, 0},
    CodecRule{"picture", "saturation", -100, 100, 0}, CodecRule{"picture", "hue", -180, 180, 0},
    CodecRule{"picture", "gamma", 40, 250, 100},      CodecRule{"picture", "sharpen", 0, 100, 0},
    CodecRule{"picture", "denoise", 0, 100, 0},       CodecRule{"picture", "deinterlace", 0, 2, 0},
    CodecRule{"picture", "postProcessing", 0, 2, 0},  CodecRule{"picture", "hardwareDecoding", 0, 1, 1},
    CodecRule{"sound", "normalise", 0, 2, 0},         CodecRule{"sound", "band31", -12, 12, 0},
    CodecRule{"sound", "band62", -12, 12, 0},         CodecRule{"sound", "band125", -12, 12, 0},
    CodecRule{"sound", "band250", -12, 12, 0},        CodecRule{"sound", "band500", -12, 12, 0},
    CodecRule{"sound", "band1000", -12, 12, 0},       CodecRule{"sound", "band2000", -12, 12, 0},
    CodecRule{"sound", "band4000", -12, 12, 0},       CodecRule{"sound", "band8000", -12, 12, 0},
    CodecRule{"sound", "band16000", -12, 12, 0},      CodecRule{"sound", "delay", -2000, 2000, 0},
    CodecRule{"sound", "channels", 0, 4, 0},          CodecRule{"sound", "speed", 50, 200, 100},
};
inline constexpr std::size_t kCodecValues = kCodecRules.size();
static_assert(kCodecValues == static_cast<std::size_t>(CodecValue::Speed) + 1, "a row for each value");

inline constexpr int kEqualiserBands = 10;

constexpr const CodecRule& ruleOf(CodecValue value) { return kCodecRules[static_cast<std::size_t>(value)]; }
/// The bands from the lowest on, `index` from 0 to 9.
constexpr CodecValue equaliserBand(int index)
{
    return static_cast<CodecValue>(static_cast<int>(CodecValue::Band31) + index);
}

class CodecSettings
{
public:
    /// All at their standard.
    CodecSettings();

    int get(CodecValue value) const { return values_[static_cast<std::size_t>(value)]; }
    /// Brought into the range of the value.
    void set(CodecValue value, int to);
    bool isStandard(CodecValue value) const { return get(value) == ruleOf(value).standard; }
    /// Takes one section's values, "picture" or "sound", from another set.
    void takeSection(std::string_view section, const CodecSettings& from);

    bool operator==(const CodecSettings&) const = default;

private:
    std::array<int, kCodecValues> values_;
};

/// What a file says: "[section]", then "name=number" lines. What is missing or no number is at its standard, what is
/// out of range at the end of it; of a value that is named twice the last one counts.
CodecSettings readCodecSettings(std::string_view text);

/// The text of the file with these values in it. Lines of `old` that are none of ours stay as they are.
std::string writeCodecSettings(const CodecSettings& settings, std::string_view old);

} // namespace tandrel
