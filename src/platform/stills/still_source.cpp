#include "platform/stills/still_source.h"

#include "platform/stills/picture_reader.h"
#include "platform/stills/small_picture.h"

namespace tandrel
{

namespace
{
constexpr std::int64_t kShortMs = 3000;
constexpr double kPlace = 0.1;
constexpr double kPlaceBehindBlack = 0.3;

std::optional<Still> pictureAt(PictureReader& reader, double seconds)
{
    if (!reader.read(seconds))
        return {};
    return smallPicture(reader.frame(), reader.pixelAspect(), reader.quarterTurns());
}

std::optional<Still> bestPicture(PictureReader& reader, double length)
{
    auto first = pictureAt(reader, length * 1000 < kShortMs ? 0 : length * kPlace);
    if (length <= 0 || (first && !isNearlyBlack(*first)))
        return first;
    auto second = pictureAt(reader, length * kPlaceBehindBlack);
    return second && (!first || !isNearlyBlack(*second)) ? second : first;
}
} // namespace

std::optional<Still> readStill(const std::string& path, const FileMark& mark, const std::function<bool()>& refuses)
{
    PictureReader reader(path, mark, refuses);
    if (!reader.open())
        return {};
    const auto length = reader.lengthMs();
    Still still = bestPicture(reader, static_cast<double>(length.value_or(0)) / 1000).value_or(Still());
    if (refuses())
        return {};
    still.lengthMs = length;
    return still;
}

} // namespace tandrel
