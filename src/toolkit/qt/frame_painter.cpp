#include "toolkit/qt/frame_painter.h"

#include "toolkit/qt/palette.h"

#include <QFontMetrics>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace tandrel
{

namespace
{

constexpr int kBand = 25;
constexpr int kRadius = 8;
constexpr std::string_view kMark = "§";

void paintBand(QPainter& painter, const Form& form, const QRect& area, bool selected)
{
    const QRect band(area.left(), area.top(), area.width(), kBand);
    QLinearGradient light(band.topLeft(), band.bottomLeft());
    light.setColorAt(0, palette::kBandTop);
    light.setColorAt(1, palette::kBandBottom);
    painter.fillRect(band, light);
    if (selected)
        painter.fillRect(QRect(band.left(), band.bottom(), band.width(), 1), palette::kMoves);

    QFont font = painter.font();
    font.setPixelSize(12);
    painter.setFont(font);
    painter.setPen(selected ? palette::kText : palette::kQuietText);
    const QRect place = band.adjusted(10, 0, -30, -1);
    // A caption with the mark holds a path, for handlers; eyes want the name.
    const Text shown =
        form.caption().starts_with(kMark) ? fileNameOf(fromSecondCharacter(form.caption())) : form.caption();
    const QString title = QFontMetrics(font).elidedText(rendered(shown), Qt::ElideMiddle, place.width());
    painter.drawText(place, Qt::AlignVCenter | Qt::AlignLeft, title);
}

void paintVideo(QPainter& painter, const Form& form, const QRect& area, bool selected)
{
    painter.fillRect(area, palette::kVideoGround);
    if (form.hasTitleBar())
        paintBand(painter, form, area, selected);
    if (form.hasBorder()) {
        QColor rim = selected ? palette::kMovesDeep : palette::kRim;
        rim.setAlpha(selected ? 255 : 110);
        painter.setPen(rim);
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(area.adjusted(0, 0, -1, -1));
    }
}

void paintBody(QPainter& painter, const QRect& area)
{
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient light(area.topLeft(), area.bottomLeft());
    light.setColorAt(0, palette::kBodyTop);
    light.setColorAt(0.25, palette::kBase);
    light.setColorAt(1, palette::kBodyBottom);
    QPainterPath body;
    body.addRoundedRect(QRectF(area).adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
    painter.setPen(palette::kRim);
    painter.setBrush(light);
    painter.drawPath(body);
    painter.setPen(palette::kEdgeLight);
    painter.drawLine(area.left() + kRadius, area.top() + 1, area.right() - kRadius, area.top() + 1);
}

void paintGlass(QPainter& painter, const QRect& area)
{
    QLinearGradient light(area.topLeft(), area.bottomLeft());
    light.setColorAt(0, palette::kGlassBottom);
    light.setColorAt(1, palette::kGlassTop);
    painter.fillRect(area, light);
    painter.fillRect(QRect(area.left(), area.top(), area.width(), 1), palette::kEdgeLight);
}

} // namespace

QMargins frameMargins(const Form& form)
{
    switch (form.frame()) {
    case Frame::Video:
        return form.hasTitleBar() ? QMargins(3, kBand, 3, 1) : QMargins();
    case Frame::Dialog:
        return QMargins(0, kBand, 0, 0);
    case Frame::Skin:
    case Frame::Bare:
        break;
    }
    return {};
}

int captionBand(const Form& form) { return frameMargins(form).top(); }

void paintFrame(QPainter& painter, const Form& form, const QRect& area, bool selected)
{
    switch (form.frame()) {
    case Frame::Video:
        paintVideo(painter, form, area, selected);
        break;
    case Frame::Dialog:
        paintBody(painter, area);
        paintBand(painter, form, area.adjusted(1, 1, -1, 0), true);
        break;
    case Frame::Skin:
        paintBody(painter, area);
        break;
    case Frame::Bare:
        paintGlass(painter, area);
        break;
    }
}

QString rendered(const Text& bytes)
{
    QString shown = QString::fromUtf8(bytes);
    for (const ushort lineEnd : {0xF00A, 0xF00D})
        shown.replace(QChar(lineEnd), QLatin1Char(' '));
    shown.replace(QChar(0xF022), QLatin1Char('"'));
    shown.replace(QChar(0xF07C), QLatin1Char('|'));
    return shown;
}

} // namespace tandrel
