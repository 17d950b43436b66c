#include "platform/valid_text.h"

#include <algorithm>

namespace tandrel
{

namespace
{
/// Length in bytes of the well-formed character that the text begins with; 0 if there is none.
std::size_t characterLength(std::string_view text)
{
    const auto byte = [&](std::size_t place) { return static_cast<unsigned char>(text[place]); };
    const unsigned char first = byte(0);
    if (first < 0x80)
        return 1;
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4 || text.size() < length)
        return 0;
    for (std::size_t place = 1; place < length; ++place)
        if ((byte(place) & 0xC0) != 0x80)
            return 0;
    // Too long a form, a surrogate, or beyond the last character there is.
    const unsigned char second = byte(1);
    const bool wrong = (first == 0xE0 && second < 0xA0) || (first == 0xED && second > 0x9F) ||
                       (first == 0xF0 && second < 0x90) || (first == 0xF4 && second > 0x8F);
    return wrong ? 0 : length;
}
} // namespace

std::string validText(std::string_view text)
{
    std::string result;
    while (!text.empty()) {
        const std::size_t length = characterLength(text);
        result += length == 0 ? "?" : text.substr(0, length);
        text.remove_prefix(std::max<std::size_t>(1, length));
    }
    return result;
}

} // namespace tandrel
