#include "platform/pictures/picture_names.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <ctime>

namespace tandrel
{

namespace
{

// With the place, an ending and a number there is room for them in any file system's names.
constexpr std::size_t kLongestTitle = 200;
// More is no place of a video.
constexpr double kMostSeconds = 1e7;

struct Parts {
    long long hours;
    int minutes;
    int seconds;
    int thousandths;
};

Parts partsOf(double seconds)
{
    const double within = std::isfinite(seconds) ? std::clamp(seconds, 0.0, kMostSeconds) : 0;
    const long long all = std::llround(within * 1000);
    return {all / 3600000, static_cast<int>(all / 60000 % 60), static_cast<int>(all / 1000 % 60),
            static_cast<int>(all % 1000)};
}

std::string format(const char* pattern, const Parts& parts)
{
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), pattern, parts.hours, parts.minutes, parts.seconds, parts.thousandths);
    return text.data();
}

bool isInsideCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

bool isAwkward(char byte)
{
    const auto code = static_cast<unsigned char>(byte);
    return code < 0x20 || code == 0x7F || byte == '/';
}

} // namespace

std::string titleOf(std::string_view path)
{
    const std::size_t slash = path.rfind('/');
    const std::string_view name = slash == std::string_view::npos ? path : path.substr(slash + 1);
    const std::size_t dot = name.rfind('.');
    return std::string(dot == std::string_view::npos || dot == 0 ? name : name.substr(0, dot));
}

std::string pictureName(std::string_view videoPath, double seconds)
{
    std::string title = titleOf(videoPath);
    std::replace_if(title.begin(), title.end(), isAwkward, ' ');
    if (!title.empty() && title.front() == '.')
        title.front() = '_';
    if (title.size() > kLongestTitle) {
        std::size_t end = kLongestTitle;
        while (end > 0 && isInsideCharacter(title[end]))
            --end;
        // A name that isn't text has no characters.
        title.resize(end == 0 ? kLongestTitle : end);
    }
    return title + format(" %lld-%02d-%02d.%03d", partsOf(seconds));
}

std::string nameForAll(std::string name)
{
    for (char& one : name)
        if (std::string_view("\\:*?\"<>|").find(one) != std::string_view::npos)
            one = '_';
    return name;
}

std::string pictureTime(double seconds) { return format("%lld:%02d:%02d.%03d", partsOf(seconds)); }

std::string sheetName(long long time)
{
    const std::time_t moment = time;
    std::tm local{};
    localtime_r(&moment, &local);
    std::array<char, 64> text{};
    std::strftime(text.data(), text.size(), "Contact sheet %Y-%m-%d %H-%M-%S", &local);
    return text.data();
}

} // namespace tandrel
