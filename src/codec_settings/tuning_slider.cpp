#include "codec_settings/tuning_slider.h"

#include "toolkit/qt/palette.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace tandrel
{

namespace
{
constexpr double kThumb = 8;
constexpr double kGroove = 6;
constexpr double kTick = 5;
constexpr int kThickness = 22;
constexpr int kNotch = 120;
} // namespace

TuningSlider::TuningSlider(Qt::Orientation orientation, int lowest, int highest, int standard, QWidget* parent)
    : QSlider(orientation, parent), standard_(standard)
{
    setRange(lowest, highest);
    setValue(standard);
    setPageStep(std::max(1, (highest - lowest) / 10));
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    if (orientation == Qt::Horizontal)
        setFixedHeight(kThickness);
    else
        setFixedWidth(kThickness);
}

double TuningSlider::placeOf(int value) const
{
    const double part = (value - minimum()) / static_cast<double>(maximum() - minimum());
    const double travel = (orientation() == Qt::Horizontal ? width() : height()) - 2 * kThumb;
    return kThumb + (orientation() == Qt::Horizontal ? part : 1 - part) * travel;
}

int TuningSlider::valueAt(const QPointF& place) const
{
    const bool across = orientation() == Qt::Horizontal;
    const double travel = (across ? width() : height()) - 2 * kThumb;
    const double part = std::clamp(((across ? place.x() : place.y()) - kThumb) / travel, 0.0, 1.0);
    return static_cast<int>(std::lround(minimum() + (across ? part : 1 - part) * (maximum() - minimum())));
}

void TuningSlider::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintGroove(painter);
    paintThumb(painter);
}

void TuningSlider::paintGroove(QPainter& painter) const
{
    const bool across = orientation() == Qt::Horizontal;
    const double middle = (across ? height() : width()) / 2.0;
    const double half = kGroove / 2;
    const auto bar = [&](double from, double to, double radius) {
        const double start = std::min(from, to);
        const double length = std::abs(to - from);
        return across ? QRectF(start, middle - radius, length, 2 * radius)
                      : QRectF(middle - radius, start, 2 * radius, length);
    };
    QColor rim = palette::kRim;
    rim.setAlpha(70);
    painter.setPen(QPen(rim, 1));
    painter.setBrush(palette::kWell);
    painter.drawRoundedRect(bar(2, (across ? width() : height()) - 2, half), half, half);
    const double home = placeOf(standard_);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette::kQuietText);
    painter.drawRect(bar(home - 0.5, home + 0.5, kTick));
    QLinearGradient fill(0, 0, across ? 0 : width(), across ? height() : 0);
    fill.setColorAt(0.3, palette::kMoves);
    fill.setColorAt(0.7, palette::kMovesDeep);
    painter.setBrush(fill);
    painter.drawRect(bar(home, placeOf(value()), half - 1));
}

void TuningSlider::paintThumb(QPainter& painter) const
{
    const bool across = orientation() == Qt::Horizontal;
    const double middle = (across ? height() : width()) / 2.0;
    const QPointF centre = across ? QPointF(placeOf(value()), middle) : QPointF(middle, placeOf(value()));
    const double radius = kThumb - (isSliderDown() || underMouse() ? 1 : 2);
    painter.setPen(QPen(palette::kMovesDeep, 1.5));
    painter.setBrush(isSliderDown() ? palette::kText.darker(108) : underMouse() ? QColor(Qt::white) : palette::kText);
    painter.drawEllipse(centre, radius, radius);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette::kMovesDeep);
    painter.drawEllipse(centre, 2, 2);
    if (!hasFocus())
        return;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(palette::kMoves, 2));
    painter.drawEllipse(centre, kThumb, kThumb);
}

void TuningSlider::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    setSliderDown(true);
    setValue(valueAt(event->position()));
}

void TuningSlider::mouseMoveEvent(QMouseEvent* event)
{
    if (isSliderDown())
        setValue(valueAt(event->position()));
}

void TuningSlider::mouseReleaseEvent(QMouseEvent*)
{
    setSliderDown(false);
    update();
}

void TuningSlider::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        reset();
}

void TuningSlider::wheelEvent(QWheelEvent* event)
{
    turned_ += event->angleDelta().y();
    setValue(value() + turned_ / kNotch * singleStep());
    turned_ %= kNotch;
    event->accept();
}

} // namespace tandrel
