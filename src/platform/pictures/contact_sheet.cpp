#include "platform/pictures/contact_sheet.h"

#include <QBuffer>
#include <QFont>
#include <QFontMetrics>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <new>
#include <utility>

namespace tandrel
{

namespace
{

// Pixels. The sheet is looked at on a screen, or printed on a page across.
constexpr int kCellWidth = 900;
constexpr int kCellHeight = kCellWidth * 9 / 16;
constexpr int kMostWidth = 3840;
constexpr int kMargin = 48;
constexpr int kGap = 36;
constexpr int kBand = 64;
constexpr int kTextSize = 26;
// Wide screens have room for a fourth column from here on, as the grid of videos has.
constexpr int kMostInThreeColumns = 9;
// The colours of the skin.
constexpr QRgb kGround = qRgb(6, 17, 31);
constexpr QRgb kCell = qRgb(10, 33, 62);
constexpr QRgb kText = qRgb(232, 241, 251);
constexpr QRgb kQuiet = qRgb(143, 169, 198);

QImage imageOf(const Still& picture)
{
    const QImage borrowed(reinterpret_cast<const uchar*>(picture.pixels.data()), picture.width, picture.height,
                          QImage::Format_RGB32);
    return borrowed.copy();
}

std::string asPng(const QImage& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (image.isNull() || !image.save(&buffer, "PNG"))
        return {};
    return bytes.toStdString();
}

struct Layout {
    explicit Layout(int count)
        : columns(std::min(count, count > kMostInThreeColumns ? 4 : static_cast<int>(std::ceil(std::sqrt(count))))),
          rows((count + columns - 1) / columns),
          cell(std::min(kCellWidth, (kMostWidth - 2 * kMargin - (columns - 1) * kGap) / columns)),
          height(cell * kCellHeight / kCellWidth)
    {
    }
    QRect place(int index) const
    {
        return {kMargin + index % columns * (cell + kGap), kMargin + index / columns * (height + kBand + kGap), cell,
                height};
    }
    QSize size() const
    {
        return {2 * kMargin + columns * cell + (columns - 1) * kGap,
                2 * kMargin + rows * (height + kBand) + (rows - 1) * kGap};
    }

    int columns;
    int rows;
    /// Width and height of a picture's place.
    int cell;
    int height;
};

void paintPicture(QPainter& painter, const QImage& image, const QRect& place)
{
    QSize size = image.size().scaled(place.size(), Qt::KeepAspectRatio);
    size = size.expandedTo(QSize(1, 1));
    const QPoint corner = place.topLeft() + QPoint(place.width() - size.width(), place.height() - size.height()) / 2;
    painter.drawImage(corner, image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

void paintEntry(QPainter& painter, const SheetEntry& entry, const QRect& place)
{
    painter.fillRect(place, QColor(kCell));
    if (!entry.picture.pixels.empty())
        paintPicture(painter, imageOf(entry.picture), place);
    const QRect band(place.left(), place.bottom() + 1, place.width(), kBand);
    const QFontMetrics metrics(painter.font());
    const QString time = QString::fromStdString(entry.time);
    const int timeWidth = metrics.horizontalAdvance(time) + kGap;
    painter.setPen(QColor(kQuiet));
    painter.drawText(band, Qt::AlignRight | Qt::AlignVCenter, time);
    painter.setPen(QColor(kText));
    painter.drawText(band, Qt::AlignLeft | Qt::AlignVCenter,
                     metrics.elidedText(QString::fromStdString(entry.name), Qt::ElideMiddle, band.width() - timeWidth));
}

Still smallPicture(const Still& picture)
{
    QSize size(picture.width, picture.height);
    if (size.width() > kCellWidth || size.height() > kCellHeight)
        size = size.scaled(kCellWidth, kCellHeight, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
    const QImage image = imageOf(picture)
                             .scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                             .convertToFormat(QImage::Format_RGB32);
    Still small{image.width(), image.height(), {}, {}};
    for (int row = 0; row < image.height(); ++row) {
        const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(row));
        small.pixels.insert(small.pixels.end(), line, line + image.width());
    }
    return small;
}

} // namespace

SheetEntry sheetEntry(const Still& picture, std::string name, std::string time)
{
    SheetEntry entry{{}, std::move(name), std::move(time)};
    try {
        entry.picture = smallPicture(picture);
    } catch (const std::bad_alloc&) {
        entry.picture = {};
    }
    return entry;
}

std::string pngOf(const Still& picture) { return asPng(imageOf(picture)); }

std::string contactSheet(const std::vector<SheetEntry>& entries, const std::function<bool()>& refuses)
{
    const Layout layout(static_cast<int>(entries.size()));
    QImage sheet(layout.size(), QImage::Format_RGB32);
    if (sheet.isNull())
        return {};
    sheet.fill(kGround);
    QPainter painter(&sheet);
    painter.setRenderHint(QPainter::TextAntialiasing);
    QFont font(QStringLiteral("Inter"));
    font.setPixelSize(kTextSize);
    painter.setFont(font);
    for (int index = 0; index < static_cast<int>(entries.size()); ++index) {
        if (refuses())
            return {};
        paintEntry(painter, entries[static_cast<std::size_t>(index)], layout.place(index));
    }
    painter.end();
    return asPng(sheet);
}

} // namespace tandrel
