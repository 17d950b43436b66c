#include "toolkit/qt/frame_painter.h"

#include "toolkit/qt/palette.h"
#include "toolkit/qt/style.h"

#include <QFontMetrics>
#include <QLinearGradient>
#include <QPainter>
#include <QTextDocument>

#include <cmath>

namespace tandrel
{

namespace
{

constexpr int kRadius = 8;
constexpr std::string_view kMark = "§";

void paintTitle(QPainter& painter, const QString& title, const QRect& place, bool selected)
{
    QFont font = painter.font();
    font.setPixelSize(scaledPixels(12));
    painter.setFont(font);
    painter.setPen(selected ? palette::kText : palette::kQuietText);
    painter.drawText(place, Qt::AlignVCenter | Qt::AlignLeft,
                     QFontMetrics(font).elidedText(title, Qt::ElideMiddle, place.width()));
}

void paintBand(QPainter& painter, const Form& form, const QRect& area, bool selected)
{
    const QRect band(area.left(), area.top(), area.width(), kCaptionBand);
    QLinearGradient light(band.topLeft(), band.bottomLeft());
    light.setColorAt(0, palette::kBandTop);
    light.setColorAt(1, palette::kBandBottom);
    painter.fillRect(band, light);
    if (selected)
        painter.fillRect(QRect(band.left(), band.bottom(), band.width(), 1), palette::kMoves);
    paintTitle(painter, titleOf(form), band.adjusted(10, 0, -30, -1), selected);
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
    light.setColorAt(0.35, palette::kBase);
    light.setColorAt(1, palette::kBodyBottom);
    QColor rim = palette::kRim;
    rim.setAlpha(150);
    painter.setPen(rim);
    painter.setBrush(light);
    painter.drawRoundedRect(QRectF(area).adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
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

QString titleOf(const Form& form)
{
    return rendered(form.caption().starts_with(kMark) ? fileNameOf(fromSecondCharacter(form.caption()))
                                                      : form.caption());
}

QRegion roundedRegion(const QRect& area)
{
    QRegion region(area.adjusted(0, kRadius, 0, -kRadius));
    for (int row = 0; row < kRadius; ++row) {
        const double up = kRadius - row - 0.5;
        const int inset = static_cast<int>(std::lround(kRadius - std::sqrt(kRadius * kRadius - up * up)));
        region += QRect(area.left() + inset, area.top() + row, area.width() - 2 * inset, 1);
        region += QRect(area.left() + inset, area.bottom() - row, area.width() - 2 * inset, 1);
    }
    return region;
}

QMargins frameMargins(const Form& form)
{
    switch (form.frame()) {
    case Frame::Video:
        return form.hasTitleBar() ? QMargins(3, kCaptionBand, 3, 1) : QMargins();
    case Frame::Dialog:
        return QMargins(0, kCaptionBand, 0, 0);
    case Frame::Skin:
    case Frame::Bare:
    case Frame::Notice:
        break;
    }
    return {};
}

int captionBand(const Form& form) { return frameMargins(form).top(); }

bool hasCloseBox(const Form& form)
{
    return form.frame() == Frame::Dialog && (form.windowWord(style::kWord) & style::kControlBox) != 0;
}

QRect closeBox(const QRect& area) { return {area.right() - 28, area.top() + 4, 20, 18}; }

void paintCloseBox(QPainter& painter, const QRect& box, bool hovered, bool pressed)
{
    painter.setRenderHint(QPainter::Antialiasing);
    if (hovered || pressed) {
        QColor ground = palette::kLeaves;
        ground.setAlpha(pressed ? 130 : 70);
        painter.setPen(Qt::NoPen);
        painter.setBrush(ground);
        painter.drawRoundedRect(box, 5, 5);
    }
    painter.setPen(QPen(hovered ? palette::kText : palette::kQuietText, 1.6, Qt::SolidLine, Qt::RoundCap));
    const QPointF middle = QRectF(box).center();
    painter.drawLine(middle - QPointF(3.5, 3.5), middle + QPointF(3.5, 3.5));
    painter.drawLine(middle + QPointF(-3.5, 3.5), middle + QPointF(3.5, -3.5));
}

void paintDialog(QPainter& painter, const QString& title, const QRect& area)
{
    paintBody(painter, area);
    QColor line = palette::kRim;
    line.setAlpha(70);
    painter.fillRect(QRect(area.left() + 1, area.top() + kCaptionBand - 1, area.width() - 2, 1), line);
    paintTitle(painter, title, QRect(area.left() + 12, area.top() + 1, area.width() - 46, kCaptionBand - 2), true);
}

void paintFrame(QPainter& painter, const Form& form, const QRect& area, bool selected)
{
    switch (form.frame()) {
    case Frame::Video:
        paintVideo(painter, form, area, selected);
        break;
    case Frame::Dialog:
        paintDialog(painter, titleOf(form), area);
        break;
    case Frame::Notice:
        paintBody(painter, area);
        break;
    case Frame::Bare:
        paintGlass(painter, area);
        break;
    case Frame::Skin:
        // The pictures on the form are all that is seen of it.
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

QString withoutMnemonic(const Text& bytes)
{
    QString shown;
    const QString all = rendered(bytes);
    for (qsizetype at = 0; at < all.size(); ++at) {
        if (all[at] == QLatin1Char('&') && ++at == all.size())
            break;
        shown += all[at];
    }
    return shown;
}

QString breakable(const QString& shown)
{
    constexpr int kLongWord = 24;
    constexpr int kPiece = 8;
    constexpr QChar kMayBreak(0x200B);
    QString whole;
    int unbroken = 0;
    for (const QChar mark : shown) {
        // What belongs to the character before it stays with that.
        const bool begins = !mark.isLowSurrogate() && !mark.isMark();
        if (begins && unbroken >= kLongWord && unbroken % kPiece == 0)
            whole += kMayBreak;
        whole += mark;
        unbroken = mark.isSpace() ? 0 : unbroken + (begins ? 1 : 0);
        if (mark == QLatin1Char('/')) {
            whole += kMayBreak;
            unbroken = 0;
        }
    }
    return whole;
}

QString wrappedTip(const QString& shown)
{
    return QStringLiteral("<p style=\"white-space:pre-wrap\">") + shown.toHtmlEscaped() + QStringLiteral("</p>");
}

QString plainTip(const QString& shown) { return Qt::mightBeRichText(shown) ? wrappedTip(shown) : shown; }

} // namespace tandrel
