#include "platform/codec/codec_settings.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <vector>

namespace tandrel
{

namespace
{

constexpr std::string_view kBlanks = " \t\r";

std::string_view trimmed(std::string_view text)
{
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::vector<std::string_view> linesOf(std::string_view text)
{
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const auto end = text.find('\n');
        lines.push_back(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return lines;
}

/// The name of a section's head; empty for any other line.
std::string_view sectionIn(std::string_view line)
{
    line = trimmed(line);
    return line.size() > 2 && line.front() == '[' && line.back() == ']' ? line.substr(1, line.size() - 2)
                                                                        : std::string_view();
}

/// Which value a line of this section sets.
std::optional<CodecValue> valueIn(std::string_view section, std::string_view line)
{
    const auto sign = line.find('=');
    if (sign == std::string_view::npos)
        return std::nullopt;
    const std::string_view name = trimmed(line.substr(0, sign));
    const auto row = std::find_if(kCodecRules.begin(), kCodecRules.end(),
                                  [&](const CodecRule& one) { return one.section == section && one.name == name; });
    if (row == kCodecRules.end())
        return std::nullopt;
    return static_cast<CodecValue>(row - kCodecRules.begin());
}

/// A whole number as it is written; one beyond all bounds is as far as numbers go.
std::optional<int> numberIn(std::string_view text)
{
    text = trimmed(text);
    if (text.starts_with('+'))
        text.remove_prefix(1);
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (text.empty() || end != text.data() + text.size())
        return std::nullopt;
    if (error == std::errc::result_out_of_range)
        return text.front() == '-' ? -2147483647 : 2147483647;
    return error == std::errc() ? std::optional(number) : std::nullopt;
}

std::string lineOf(CodecValue value, const CodecSettings& settings)
{
    return std::string(ruleOf(value).name) + "=" + std::to_string(settings.get(value)) + "\n";
}

/// The values of this section that have not been written yet.
void appendRest(std::string& text, std::string_view section, const CodecSettings& settings,
                std::array<bool, kCodecValues>& written)
{
    for (std::size_t index = 0; index < kCodecValues; ++index) {
        if (kCodecRules[index].section != section || written[index])
            continue;
        written[index] = true;
        text += lineOf(static_cast<CodecValue>(index), settings);
    }
}

} // namespace

CodecSettings::CodecSettings() : values_()
{
    for (std::size_t index = 0; index < kCodecValues; ++index)
        values_[index] = kCodecRules[index].standard;
}

void CodecSettings::set(CodecValue value, int to)
{
    values_[static_cast<std::size_t>(value)] = std::clamp(to, ruleOf(value).lowest, ruleOf(value).highest);
}

void CodecSettings::takeSection(std::string_view section, const CodecSettings& from)
{
    for (std::size_t index = 0; index < kCodecValues; ++index)
        if (kCodecRules[index].section == section)
            values_[index] = from.values_[index];
}

CodecSettings readCodecSettings(std::string_view text)
{
    CodecSettings settings;
    std::string_view section;
    for (const std::string_view line : linesOf(text)) {
        if (const auto head = sectionIn(line); !head.empty()) {
            section = head;
            continue;
        }
        if (const auto value = valueIn(section, line))
            settings.set(*value, numberIn(line.substr(line.find('=') + 1)).value_or(ruleOf(*value).standard));
    }
    return settings;
}

std::string writeCodecSettings(const CodecSettings& settings, std::string_view old)
{
    std::string text;
    std::array<bool, kCodecValues> written{};
    std::string_view section;
    for (const std::string_view line : linesOf(old)) {
        if (const auto head = sectionIn(line); !head.empty()) {
            appendRest(text, section, settings, written);
            section = head;
        } else if (const auto value = valueIn(section, line)) {
            bool& done = written[static_cast<std::size_t>(*value)];
            if (!done)
                text += lineOf(*value, settings);
            done = true;
            continue;
        }
        text.append(line).append("\n");
    }
    appendRest(text, section, settings, written);
    for (const std::string_view one : {std::string_view("picture"), std::string_view("sound")}) {
        std::string rest;
        appendRest(rest, one, settings, written);
        if (!rest.empty())
            text.append("[").append(one).append("]\n").append(rest);
    }
    return text;
}

} // namespace tandrel
