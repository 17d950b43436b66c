#include "console/placement.h"

#include <array>
#include <cmath>

namespace tandrel
{

namespace
{

struct GridRow {
    int upTo;
    int columns;
    int rows;
};

constexpr std::array kGrids{GridRow{4, 2, 2}, GridRow{6, 3, 2}, GridRow{9, 3, 3}, GridRow{12, 4, 3}};

GridRow gridFor(int count)
{
    for (const GridRow& grid : kGrids)
        if (count <= grid.upTo)
            return grid;
    return kGrids.back();
}

int down(double value) { return static_cast<int>(std::floor(value)); }

PixelRect at(int x, int y, int width, int height) { return {x, y, x + width, y + height}; }

} // namespace

PixelRect gridCell(int count, int place, MonitorPixels monitor, CellOrder order)
{
    const GridRow grid = gridFor(count);
    const int width = down(monitor.width / grid.columns);
    const int height = down(monitor.height / grid.rows) - kTitleBand;
    const int row = place / grid.columns;
    int column = place % grid.columns;
    if (grid.columns == 2 && order == CellOrder::Clockwise && row % 2 == 1)
        column = 1 - column;
    return at(column * width, row * (height + kTitleBand), width, height + kTitleBand);
}

PixelRect leadPlace(MonitorPixels monitor)
{
    return at(0, 0, down(monitor.width / 6 * 5), down(monitor.height / 6 * 5));
}

PixelRect tilePlace(int count, int tile, MonitorPixels monitor)
{
    const PixelRect lead = leadPlace(monitor);
    const int width = down(monitor.width / 6);
    const int pitch = down(monitor.height / 6) - kTitleBand + kTitleBand;
    if (count <= 7 || tile < 6)
        return at(lead.width(), pitch * tile, width, pitch);
    return at(lead.width() - width * (tile - 5), pitch * 5, width, pitch);
}

} // namespace tandrel
