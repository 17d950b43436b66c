#include "desktop/region.h"

#include "toolkit/screen.h"
#include "toolkit/trap.h"

#include <algorithm>

namespace tandrel
{

Region CreaRegione(const Bitmap& picture, Long colour)
{
    Region region;
    if (picture.pixels.empty())
        return region;
    const std::int32_t transparent = colour < 1 ? picture.pixels.front() : static_cast<std::int32_t>(colour);
    const auto opaque = [transparent](std::int32_t pixel) { return pixel != transparent; };
    auto row = picture.pixels.begin();
    for (int y = 0; y < picture.height; ++y, row += picture.width) {
        const auto end = row + picture.width;
        for (auto start = std::find_if(row, end, opaque); start != end;) {
            const auto behind = std::find(start, end, transparent);
            region.push_back({static_cast<int>(start - row), y, static_cast<int>(behind - row), y + 1});
            start = std::find_if(behind, end, opaque);
        }
    }
    return region;
}

void applyMask(Form& form, const Image& mask)
{
    ignoringErrors([&] {
        // As fine as the screen is.
        const double scale = form.pixelRatio();
        const Long width = pixelsX(mask.width()) * scale;
        const Long height = pixelsY(mask.height()) * scale;
        form.setRegion(CreaRegione(backend().picture(mask.picture(), width, height), 0), scale);
    });
}

} // namespace tandrel
