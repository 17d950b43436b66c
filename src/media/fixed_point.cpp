#include "media/fixed_point.h"

#include <charconv>
#include <cmath>

namespace tandrel
{

namespace
{

constexpr double kLargest = 9e13;

/// False for what is no number as well.
bool inRange(double value) { return std::abs(value) <= kLargest; }

} // namespace

FixedPoint::FixedPoint(double value)
{
    if (!inRange(value))
        raiseOverflow();
    scaled_ = static_cast<std::int64_t>(std::nearbyint(value * kScale));
}

std::optional<FixedPoint> FixedPoint::parse(std::string_view text)
{
    double value = 0;
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (problem != std::errc() || end != text.data() + text.size() || !inRange(value))
        return std::nullopt;
    return FixedPoint(value);
}

Text FixedPoint::text() const
{
    const std::int64_t size = scaled_ < 0 ? -scaled_ : scaled_;
    Text result = (scaled_ < 0 ? "-" : "") + std::to_string(size / kScale);
    if (const std::int64_t rest = size % kScale; rest != 0) {
        Text places = std::to_string(kScale + rest).substr(1);
        places.erase(places.find_last_not_of('0') + 1);
        result += "." + places;
    }
    return result;
}

FixedPoint FixedPoint::operator*(FixedPoint other) const
{
    const long double product = static_cast<long double>(scaled_) * other.scaled_ / kScale;
    return FixedPoint(static_cast<std::int64_t>(std::nearbyint(product)), Raw{});
}

FixedPoint FixedPoint::operator/(std::int64_t divisor) const
{
    return FixedPoint(static_cast<std::int64_t>(std::nearbyint(static_cast<double>(scaled_) / divisor)), Raw{});
}

} // namespace tandrel
