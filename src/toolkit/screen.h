/// The screen that the forms stand on: its twips and its mouse pointer.
#pragma once

#include "platform/services.h"
#include "toolkit/property.h"
#include "toolkit/types.h"

namespace tandrel
{

/// Shapes of the mouse pointer.
namespace pointer
{
inline constexpr int kDefault = 0;
inline constexpr int kSizeVertical = 7;
inline constexpr int kSizeDiagonal = 8;
inline constexpr int kSizeHorizontal = 9;
inline constexpr int kHourglass = 11;
inline constexpr int kHand = 32649;
} // namespace pointer

class Screen
{
public:
    Screen() = default;
    Screen(const Screen&) = delete;

    /// A twip is 1/1440 of a logical inch: 15 a pixel at 96 dpi.
    Long TwipsPerPixelX() const { return twipsPerPixelX_; }
    Long TwipsPerPixelY() const { return twipsPerPixelY_; }

    /// The size of the first monitor in twips.
    Long Width() const { return width_; }
    Long Height() const { return height_; }

    /// Where the first monitor begins on the desktop, in twips: forms are made there.
    Long FirstLeft() const { return firstLeft_; }
    Long FirstTop() const { return firstTop_; }

    /// Called by the backend at its start. The rectangle of the first monitor is in pixels.
    void setMetrics(Long twipsPerPixelX, Long twipsPerPixelY, const PixelRect& first);

    Integer mousePointer() const { return mousePointer_; }
    void setMousePointer(Integer shape);
    /// The pointer of all forms. `pointer::kHourglass` doubles as the busy flag of long commands.
    Property<Screen, Integer, &Screen::mousePointer, &Screen::setMousePointer> MousePointer{*this};

private:
    Long twipsPerPixelX_ = 15;
    Long twipsPerPixelY_ = 15;
    Long width_ = 1920 * 15;
    Long height_ = 1080 * 15;
    Long firstLeft_ = 0;
    Long firstTop_ = 0;
    Integer mousePointer_ = 0;
};

Screen& screen();

/// Twips as pixels, rounded to the nearest.
Long pixelsX(double twips);
Long pixelsY(double twips);

} // namespace tandrel
