/// The number types of the forms: whole numbers of a told width, whose overflow is an error and not a wrong value.
#pragma once

#include <cmath>
#include <concepts>
#include <cstdint>
#include <exception>
#include <limits>
#include <string>
#include <type_traits>

namespace tandrel
{

/// The one exception type of handlers: a number and a description.
class RuntimeError : public std::exception
{
public:
    RuntimeError(int number, std::string description) : number_(number), description_(std::move(description)) {}
    int number() const { return number_; }
    const std::string& description() const { return description_; }
    const char* what() const noexcept override { return description_.c_str(); }

private:
    int number_;
    std::string description_;
};

namespace error
{
inline constexpr int kInvalidCall = 5;
inline constexpr int kOverflow = 6;
inline constexpr int kOutOfRange = 9;
inline constexpr int kTypeMismatch = 13;
inline constexpr int kNoObject = 91;
inline constexpr int kNoSuchMember = 438;
} // namespace error

/// Raises run-time error 6.
[[noreturn]] void raiseOverflow();

/// The nearest whole number, ties to even.
inline double roundToEven(double value) { return std::nearbyint(value); }

/// A whole number that raises run-time error 6 where a result does not fit. Fractions become whole by `roundToEven`.
template <class Rep>
class Whole
{
public:
    constexpr Whole() = default;

    template <std::integral I>
    constexpr Whole(I value) : value_(checked(static_cast<std::int64_t>(value)))
    {
    }

    template <std::floating_point F>
    Whole(F value) : value_(fromFraction(static_cast<double>(value)))
    {
    }

    template <class Other>
    constexpr Whole(Whole<Other> value) : value_(checked(static_cast<std::int64_t>(static_cast<Other>(value))))
    {
    }

    constexpr operator Rep() const { return value_; }

    template <class T>
    Whole& operator+=(T other)
    {
        return *this = Whole(*this + other);
    }
    template <class T>
    Whole& operator-=(T other)
    {
        return *this = Whole(*this - other);
    }

private:
    static constexpr Rep checked(std::int64_t value)
    {
        if (value < std::numeric_limits<Rep>::min() || value > std::numeric_limits<Rep>::max())
            raiseOverflow();
        return static_cast<Rep>(value);
    }

    static Rep fromFraction(double value)
    {
        const double whole = roundToEven(value);
        if (!(whole >= std::numeric_limits<Rep>::min() && whole <= std::numeric_limits<Rep>::max()))
            raiseOverflow();
        return static_cast<Rep>(whole);
    }

    Rep value_ = 0;
};

using Integer = Whole<std::int16_t>;
using Long = Whole<std::int32_t>;

namespace detail
{
template <class T>
struct WholeRep;
template <class Rep>
struct WholeRep<Whole<Rep>> {
    using type = Rep;
};
template <class A, class B>
using Wider = Whole<std::conditional_t<(sizeof(A) >= sizeof(B)), A, B>>;
} // namespace detail

// Sums and products of whole numbers are made in 64 bits and checked on the way back. With a fraction on either side
// the result is a fraction.
#define TANDREL_WHOLE_OPERATOR(op)                                                                                     \
    template <class A, class B>                                                                                        \
    constexpr detail::Wider<A, B> operator op(Whole<A> a, Whole<B> b)                                                  \
    {                                                                                                                  \
        return static_cast<std::int64_t>(static_cast<A>(a)) op static_cast<std::int64_t>(static_cast<B>(b));           \
    }                                                                                                                  \
    template <class A, std::integral I>                                                                                \
    constexpr Whole<A> operator op(Whole<A> a, I b)                                                                    \
    {                                                                                                                  \
        return static_cast<std::int64_t>(static_cast<A>(a)) op static_cast<std::int64_t>(b);                           \
    }                                                                                                                  \
    template <class A, std::integral I>                                                                                \
    constexpr Whole<A> operator op(I a, Whole<A> b)                                                                    \
    {                                                                                                                  \
        return static_cast<std::int64_t>(a) op static_cast<std::int64_t>(static_cast<A>(b));                           \
    }                                                                                                                  \
    template <class A, std::floating_point F>                                                                          \
    constexpr double operator op(Whole<A> a, F b)                                                                      \
    {                                                                                                                  \
        return static_cast<double>(static_cast<A>(a)) op b;                                                            \
    }                                                                                                                  \
    template <class A, std::floating_point F>                                                                          \
    constexpr double operator op(F a, Whole<A> b)                                                                      \
    {                                                                                                                  \
        return a op static_cast<double>(static_cast<A>(b));                                                            \
    }

TANDREL_WHOLE_OPERATOR(+)
TANDREL_WHOLE_OPERATOR(-)
TANDREL_WHOLE_OPERATOR(*)
#undef TANDREL_WHOLE_OPERATOR

/// The quotient with its fraction; a divisor of 0 raises run-time error 11.
double divide(double dividend, double divisor);

} // namespace tandrel
