#include "platform/path_marks.h"

#include <array>

namespace tandrel
{

namespace
{
struct Mark {
    char character;
    std::string_view stand_in;
};
constexpr std::array kMarks{
    Mark{'"', "\xEF\x80\xA2"},
    Mark{'|', "\xEF\x81\xBC"},
    Mark{'\r', "\xEF\x80\x8D"},
    Mark{'\n', "\xEF\x80\x8A"},
};
} // namespace

std::string markPath(std::string_view path)
{
    std::string result;
    result.reserve(path.size());
    for (const char byte : path) {
        std::string_view piece(&byte, 1);
        for (const Mark& mark : kMarks)
            if (byte == mark.character)
                piece = mark.stand_in;
        result += piece;
    }
    return result;
}

std::string unmarkPath(std::string_view path)
{
    std::string result;
    result.reserve(path.size());
    while (!path.empty()) {
        char byte = path.front();
        std::size_t used = 1;
        for (const Mark& mark : kMarks)
            if (path.starts_with(mark.stand_in)) {
                byte = mark.character;
                used = mark.stand_in.size();
            }
        result += byte;
        path.remove_prefix(used);
    }
    return result;
}

} // namespace tandrel
