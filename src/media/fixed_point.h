/// A decimal number with four places, held as a whole number of ten-thousandths.
#pragma once

#include "toolkit/text.h"

#include <cstdint>
#include <optional>

namespace tandrel
{

class FixedPoint
{
public:
    constexpr FixedPoint() = default;
    /// Rounded to four places, ties to even. Beyond 9e13 run-time error 6 is raised.
    explicit FixedPoint(double value);
    static constexpr FixedPoint whole(std::int64_t value) { return FixedPoint(value * kScale, Raw{}); }
    /// The whole of `text` as a decimal number, or nothing.
    static std::optional<FixedPoint> parse(std::string_view text);

    bool isZero() const { return scaled_ == 0; }
    double value() const { return static_cast<double>(scaled_) / kScale; }
    /// The nearest whole number, ties to even.
    Long rounded() const { return value(); }
    /// Decimal, without trailing zeros behind the point.
    Text text() const;

    FixedPoint operator*(FixedPoint other) const;
    FixedPoint operator/(std::int64_t divisor) const;
    friend bool operator==(FixedPoint, FixedPoint) = default;

private:
    struct Raw {
    };
    static constexpr std::int64_t kScale = 10000;
    constexpr FixedPoint(std::int64_t scaled, Raw) : scaled_(scaled) {}
    std::int64_t scaled_ = 0;
};

} // namespace tandrel
