#include "platform/disc/facts_text.h"

#include "platform/disc/disc_limits.h"

#include <cmath>
#include <cstring>
#include <type_traits>

namespace tandrel
{

namespace
{
constexpr std::uint32_t kLongestLabel = 1024;
constexpr double kLongestTitle = 100 * 3600.0;

template <typename T>
void put(std::string& text, T value)
{
    static_assert(std::is_arithmetic_v<T>);
    text.append(reinterpret_cast<const char*>(&value), sizeof value);
}

class Reader
{
public:
    explicit Reader(std::string_view text) : rest_(text) {}

    template <typename T>
    T take()
    {
        T value{};
        if (rest_.size() < sizeof value) {
            good_ = false;
        } else {
            std::memcpy(&value, rest_.data(), sizeof value);
            rest_.remove_prefix(sizeof value);
        }
        return value;
    }
    std::uint32_t count(std::uint32_t most)
    {
        const auto value = take<std::uint32_t>();
        good_ = good_ && value <= most;
        return good_ ? value : 0;
    }
    double number(double most)
    {
        const auto value = take<double>();
        good_ = good_ && std::isfinite(value) && value >= 0 && value <= most;
        return value;
    }
    std::string bytes(std::uint32_t size)
    {
        good_ = good_ && size <= rest_.size();
        const std::string result(rest_.substr(0, good_ ? size : 0));
        rest_.remove_prefix(result.size());
        return result;
    }
    bool isGood() const { return good_; }

private:
    std::string_view rest_;
    bool good_ = true;
};

DiscFacts::Title readTitle(Reader& reader)
{
    DiscFacts::Title title;
    title.seconds = reader.number(kLongestTitle);
    title.frameRate = reader.number(100);
    title.chapters = static_cast<int>(reader.count(kMostChapters));
    const auto marks = reader.count(kMostChapters);
    for (std::uint32_t mark = 0; mark < marks && reader.isGood(); ++mark)
        title.chapterMarks.push_back(reader.number(kLongestTitle));
    return title;
}

/// How many bytes the character at the beginning takes; 0 where that is no UTF-8.
std::size_t characterSize(std::string_view text)
{
    const auto first = static_cast<unsigned char>(text[0]);
    const std::size_t size = first < 0x80                    ? 1
                             : first >= 0xC2 && first < 0xE0 ? 2
                             : (first & 0xF0) == 0xE0        ? 3
                             : first >= 0xF0 && first < 0xF5 ? 4
                                                             : 0;
    if (size > text.size())
        return 0;
    for (std::size_t at = 1; at < size; ++at)
        if ((static_cast<unsigned char>(text[at]) & 0xC0) != 0x80)
            return 0;
    return size;
}

bool isUtf8(std::string_view text)
{
    while (!text.empty()) {
        const std::size_t size = characterSize(text);
        if (size == 0)
            return false;
        text.remove_prefix(size);
    }
    return true;
}

std::string fromLatin1(std::string_view text)
{
    std::string result;
    for (const char letter : text) {
        const auto code = static_cast<unsigned char>(letter);
        if (code < 0x80) {
            result += letter;
        } else {
            result += static_cast<char>(0xC0 | code >> 6);
            result += static_cast<char>(0x80 | (code & 0x3F));
        }
    }
    return result;
}
} // namespace

std::string writeLook(const DiscLook& look)
{
    const DiscFacts& facts = look.facts;
    std::string text;
    put(text, static_cast<std::uint32_t>(facts.titles.size()));
    for (const auto& title : facts.titles) {
        put(text, title.seconds);
        put(text, title.frameRate);
        put(text, static_cast<std::uint32_t>(title.chapters));
        put(text, static_cast<std::uint32_t>(title.chapterMarks.size()));
        for (const double mark : title.chapterMarks)
            put(text, mark);
    }
    put(text, look.pictureLead);
    put(text, static_cast<std::uint8_t>(look.hasTitleMenu ? 1 : 0));
    for (std::size_t index = 0; index < facts.titles.size(); ++index)
        put(text, static_cast<std::uint8_t>(index < look.hasRootMenu.size() && look.hasRootMenu[index] ? 1 : 0));
    put(text, static_cast<std::uint8_t>(facts.encrypted ? 1 : 0));
    put(text, static_cast<std::uint32_t>(facts.label.size()));
    return text + facts.label;
}

std::optional<DiscLook> readLook(std::string_view text)
{
    Reader reader(text);
    DiscLook look;
    DiscFacts& facts = look.facts;
    const auto titles = reader.count(kMostTitles);
    for (std::uint32_t title = 0; title < titles && reader.isGood(); ++title)
        facts.titles.push_back(readTitle(reader));
    look.pictureLead = reader.number(kLongestLead);
    look.hasTitleMenu = reader.take<std::uint8_t>() != 0;
    for (std::size_t index = 0; index < facts.titles.size(); ++index)
        look.hasRootMenu.push_back(reader.take<std::uint8_t>() != 0);
    facts.encrypted = reader.take<std::uint8_t>() != 0;
    facts.label = cleanLabel(reader.bytes(reader.count(kLongestLabel)));
    if (!reader.isGood())
        return {};
    return look;
}

std::string cleanLabel(std::string_view label)
{
    std::string result;
    for (const char letter : label)
        if (static_cast<unsigned char>(letter) >= ' ' && letter != 0x7F)
            result += letter;
    result.erase(result.find_last_not_of(' ') + 1);
    result.erase(0, result.find_first_not_of(' '));
    return isUtf8(result) ? result : fromLatin1(result);
}

} // namespace tandrel
