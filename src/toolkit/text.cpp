#include "toolkit/text.h"

#include <algorithm>
#include <charconv>

namespace tandrel
{

namespace
{

Text mapped(std::string_view text, char first, char last, int shift)
{
    Text result(text);
    for (char& byte : result)
        if (byte >= first && byte <= last)
            byte = static_cast<char>(byte + shift);
    return result;
}

std::size_t sequenceLength(unsigned char lead)
{
    if (lead >= 0xC2 && lead <= 0xDF)
        return 2;
    if (lead >= 0xE0 && lead <= 0xEF)
        return 3;
    if (lead >= 0xF0 && lead <= 0xF4)
        return 4;
    return 1;
}

bool isContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

bool isDigit(char byte) { return byte >= '0' && byte <= '9'; }

/// The bytes of `text` from `from` on that are digits.
std::size_t digitsFrom(std::string_view text, std::size_t from)
{
    std::size_t end = from;
    while (end < text.size() && isDigit(text[end]))
        ++end;
    return end - from;
}

} // namespace

Text trim(std::string_view text)
{
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    return Text(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

Text upper(std::string_view text) { return mapped(text, 'a', 'z', 'A' - 'a'); }

Text lower(std::string_view text) { return mapped(text, 'A', 'Z', 'a' - 'A'); }

std::size_t firstCharacterLength(std::string_view text)
{
    if (text.empty())
        return 0;
    const std::size_t length = sequenceLength(static_cast<unsigned char>(text.front()));
    if (length > text.size() ||
        !std::all_of(text.begin() + 1, text.begin() + static_cast<long>(length), isContinuation))
        return 1;
    return length;
}

Text fromSecondCharacter(std::string_view text) { return Text(text.substr(firstCharacterLength(text))); }

Long characterCount(std::string_view text)
{
    Long count = 0;
    for (; !text.empty(); text.remove_prefix(firstCharacterLength(text)))
        count += 1;
    return count;
}

Text fileNameOf(std::string_view path)
{
    const auto last = path.rfind(kSeparator);
    return Text(last == std::string_view::npos ? path : path.substr(last + 1));
}

Text folderOf(std::string_view path)
{
    const auto last = path.rfind(kSeparator);
    return last == std::string_view::npos ? Text() : Text(path.substr(0, last));
}

Text withoutQuotes(std::string_view text)
{
    if (text.starts_with('"'))
        text.remove_prefix(1);
    if (text.ends_with('"'))
        text.remove_suffix(1);
    return Text(text);
}

Text quoted(std::string_view text) { return '"' + Text(text) + '"'; }

Text text(Long number) { return std::to_string(static_cast<std::int32_t>(number)); }

std::vector<Text> split(std::string_view text, char mark)
{
    std::vector<Text> elements;
    for (;;) {
        const auto end = text.find(mark);
        elements.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos)
            return elements;
        text.remove_prefix(end + 1);
    }
}

double numberAtFront(std::string_view text)
{
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return 0;
    text.remove_prefix(first);
    const std::size_t sign = text.starts_with('-') || text.starts_with('+') ? 1 : 0;
    std::size_t end = sign + digitsFrom(text, sign);
    if (end < text.size() && text[end] == '.')
        end += 1 + digitsFrom(text, end + 1);
    const std::string_view digits = text.substr(text.starts_with('+') ? 1 : 0, end);
    double value = 0;
    std::from_chars(digits.data(), digits.data() + std::min(digits.size(), end), value);
    return value;
}

Text blanks(std::size_t count) { return Text(count, ' '); }

} // namespace tandrel
