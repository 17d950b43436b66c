/// A pair of get and let under one name, so that `label.Caption = "0x"` runs the let. Read by conversion, or by a call
/// where a conversion is not enough: `slider.Value() * 10`.
#pragma once

#include <utility>

namespace tandrel
{

template <class Owner, class T, T (Owner::*Get)() const, void (Owner::*Let)(T)>
class Property
{
public:
    explicit Property(Owner& owner) : owner_(owner) {}
    Property(const Property&) = delete;

    operator T() const { return (owner_.*Get)(); }
    T operator()() const { return (owner_.*Get)(); }

    Property& operator=(T value)
    {
        (owner_.*Let)(std::move(value));
        return *this;
    }
    Property& operator=(const Property& other) { return *this = other(); }

    friend bool operator==(const Property& property, const T& value) { return property() == value; }

private:
    Owner& owner_;
};

} // namespace tandrel
