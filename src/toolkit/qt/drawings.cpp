#include "toolkit/qt/drawings.h"

#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace tandrel
{

QPixmap drawing(const QString& name, const QSize& size, double pixelRatio)
{
    const QString key = QStringLiteral("%1 %2x%3@%4").arg(name).arg(size.width()).arg(size.height()).arg(pixelRatio);
    QPixmap picture;
    if (QPixmapCache::find(key, &picture))
        return picture;
    picture = QPixmap(size * pixelRatio);
    picture.setDevicePixelRatio(pixelRatio);
    picture.fill(Qt::transparent);
    QSvgRenderer renderer(QStringLiteral(":/skin/%1.svg").arg(name));
    if (renderer.isValid()) {
        QPainter painter(&picture);
        renderer.render(&painter, QRectF(QPointF(), size));
    }
    QPixmapCache::insert(key, picture);
    return picture;
}

Bitmap bitmapOf(const QImage& image, bool halves)
{
    constexpr int kHalf = 128;
    const QImage flat = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    Bitmap bitmap{flat.width(), flat.height(), {}};
    bitmap.pixels.reserve(static_cast<std::size_t>(flat.width()) * static_cast<std::size_t>(flat.height()));
    for (int y = 0; y < flat.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(flat.constScanLine(y));
        for (int x = 0; x < flat.width(); ++x) {
            const QRgb pixel = row[x];
            const bool seen = halves || qAlpha(pixel) >= kHalf;
            bitmap.pixels.push_back(seen ? rgb(qRed(pixel), qGreen(pixel), qBlue(pixel)) : 0);
        }
    }
    return bitmap;
}

} // namespace tandrel
