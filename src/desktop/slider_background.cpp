#include "desktop/slider_background.h"

namespace tandrel
{

namespace
{
std::optional<Long> brush;
}

void SliderBrushCreate(Long colour)
{
    if (colour != -1)
        brush = colour;
}

void SliderBrushDelete() { brush.reset(); }

void SliderHookInstall(Form& console, const Control& slider)
{
    console.ControlColour = [remembered = &slider](const Control& control) {
        return &control == remembered ? brush : std::nullopt;
    };
}

void SliderHookRemove(Form& console) { console.ControlColour = nullptr; }

} // namespace tandrel
