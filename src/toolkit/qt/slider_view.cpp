#include "toolkit/activation.h"
#include "toolkit/form.h"
#include "toolkit/qt/accessible.h"
#include "toolkit/qt/focus_ring.h"
#include "toolkit/qt/kinds.h"
#include "toolkit/qt/mouse_buttons.h"
#include "toolkit/qt/palette.h"
#include "toolkit/qt/wheel_notches.h"
#include "toolkit/screen.h"

#include <QKeyEvent>
#include <QLinearGradient>
#include <QPainter>
#include <QWheelEvent>

#include <optional>

namespace tandrel
{

namespace
{

constexpr double kThumb = 9;
constexpr double kGroove = 6;
constexpr double kDisabled = 0.35;

/// A groove with a fill and a round thumb. A vertical one grows downwards, as its `Value` does.
class SliderWidget : public QWidget
{
public:
    SliderWidget(Slider& slider, QWidget* parent) : QWidget(parent), slider_(slider)
    {
        setFocusPolicy(slider.takesKeys ? Qt::StrongFocus : Qt::NoFocus);
        setAttribute(Qt::WA_Hover);
    }

protected:
    void paintEvent(QPaintEvent*) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void focusInEvent(QFocusEvent* event) override { ring_.focusIn(*event); }
    void focusOutEvent(QFocusEvent*) override { ring_.focusOut(); }

private:
    void paintGround(QPainter& painter) const;
    void paintGroove(QPainter& painter) const;
    void paintThumb(QPainter& painter) const;
    double travel() const { return (slider_.vertical() ? height() : width()) - 2 * kThumb; }
    double along(const QPointF& at) const { return slider_.vertical() ? at.y() : at.x(); }
    double thumbCentre() const;
    Long valueAt(double place) const;
    MouseEvent translated(QMouseEvent* from, int button) const;
    /// The value so much further, within the bounds.
    Long moved(double by) const;

    Slider& slider_;
    std::optional<double> grip_;
    FocusRing ring_{*this};
    WheelNotches notches_;
};

double SliderWidget::thumbCentre() const
{
    const double range = slider_.maximum() - slider_.minimum();
    const double part = range > 0 ? (slider_.value() - slider_.minimum()) / range : 0;
    return kThumb + part * travel();
}

Long SliderWidget::valueAt(double place) const
{
    const double part = travel() > 0 ? std::clamp((place - kThumb) / travel(), 0.0, 1.0) : 0;
    const double range = slider_.maximum() - slider_.minimum();
    return slider_.minimum() + part * range;
}

void SliderWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    paintGround(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!isEnabled())
        painter.setOpacity(kDisabled);
    paintGroove(painter);
    paintThumb(painter);
}

void SliderWidget::paintGround(QPainter& painter) const
{
    const auto& colourOf = slider_.form().ControlColour;
    if (const auto colour = colourOf ? colourOf(slider_) : std::nullopt)
        painter.fillRect(rect(), QColor(*colour & 255, *colour >> 8 & 255, *colour >> 16 & 255));
}

void SliderWidget::paintGroove(QPainter& painter) const
{
    const bool vertical = slider_.vertical();
    const double middle = (vertical ? width() : height()) / 2.0;
    const double length = vertical ? height() : width();
    const double half = kGroove / 2;
    const auto bar = [&](double from, double to) {
        return vertical ? QRectF(middle - half, from, kGroove, to - from)
                        : QRectF(from, middle - half, to - from, kGroove);
    };
    QColor rim = palette::kRim;
    rim.setAlpha(70);
    painter.setPen(QPen(rim, 1));
    painter.setBrush(palette::kWell);
    painter.drawRoundedRect(bar(2, length - 2), half, half);
    QLinearGradient fill(0, 0, vertical ? width() : 0, vertical ? 0 : height());
    fill.setColorAt(0.3, palette::kMoves);
    fill.setColorAt(0.7, palette::kMovesDeep);
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill);
    painter.drawRoundedRect(vertical ? bar(thumbCentre(), length - 2) : bar(2, thumbCentre()), half, half);
}

void SliderWidget::paintThumb(QPainter& painter) const
{
    const double middle = (slider_.vertical() ? width() : height()) / 2.0;
    const QPointF centre = slider_.vertical() ? QPointF(middle, thumbCentre()) : QPointF(thumbCentre(), middle);
    const double radius = kThumb - (grip_ || underMouse() ? 1 : 2);
    painter.setPen(QPen(palette::kMovesDeep, 1.5));
    painter.setBrush(grip_ ? palette::kText.darker(108) : underMouse() ? QColor(Qt::white) : palette::kText);
    painter.drawEllipse(centre, radius, radius);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette::kMovesDeep);
    painter.drawEllipse(centre, 2.5, 2.5);
    if (!ring_.isShown())
        return;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(palette::kMoves, 2));
    painter.drawEllipse(centre, kThumb, kThumb);
}

Long SliderWidget::moved(double by) const
{
    return std::clamp<double>(slider_.value() + by, slider_.minimum(), std::max(slider_.minimum(), slider_.maximum()));
}

MouseEvent SliderWidget::translated(QMouseEvent* from, int button) const
{
    return {button, 0, from->position().x() * tandrel::screen().TwipsPerPixelX(),
            from->position().y() * tandrel::screen().TwipsPerPixelY()};
}

void SliderWidget::mousePressEvent(QMouseEvent* from)
{
    const auto form = slider_.form().shared_from_this();
    userPressed(*form);
    slider_.userMouseDown(translated(from, buttonMask(from->button())));
    if (from->button() != Qt::LeftButton || !form->isLoaded())
        return;
    const double place = along(from->position());
    const double off = place - thumbCentre();
    if (std::abs(off) <= kThumb) {
        grip_ = off;
        return;
    }
    // Beside the thumb: a page towards the pointer. The click follows at the release.
    slider_.userScroll(moved((off > 0 ? 1 : -1) * static_cast<double>(slider_.LargeChange)));
}

void SliderWidget::mouseMoveEvent(QMouseEvent* from)
{
    if (grip_)
        slider_.userScroll(valueAt(along(from->position()) - *grip_));
    slider_.userMouseMove(translated(from, from->buttons() & Qt::LeftButton ? mouse::kLeft : 0));
}

void SliderWidget::mouseReleaseEvent(QMouseEvent* from)
{
    grip_.reset();
    slider_.userMouseUp(translated(from, buttonMask(from->button())));
}

void SliderWidget::keyPressEvent(QKeyEvent* key)
{
    ring_.keyUsed();
    const double small = slider_.SmallChange;
    const double large = slider_.LargeChange;
    switch (key->key()) {
    case Qt::Key_Left:
    case Qt::Key_Up:
        return slider_.userStep(moved(-small));
    case Qt::Key_Right:
    case Qt::Key_Down:
        return slider_.userStep(moved(small));
    case Qt::Key_PageUp:
        return slider_.userStep(moved(-large));
    case Qt::Key_PageDown:
        return slider_.userStep(moved(large));
    case Qt::Key_Home:
        return slider_.userStep(slider_.minimum());
    case Qt::Key_End:
        return slider_.userStep(slider_.maximum());
    default:
        QWidget::keyPressEvent(key);
    }
}

void SliderWidget::wheelEvent(QWheelEvent* wheel)
{
    const int notches = notches_.add(wheel->angleDelta().y()) / WheelNotches::kNotch;
    if (notches != 0)
        slider_.userStep(moved(-5.0 * notches * static_cast<double>(slider_.SmallChange)));
    wheel->accept();
}

class SliderView : public WidgetView
{
public:
    using WidgetView::WidgetView;

protected:
    bool eventFilter(QObject*, QEvent*) override { return false; }
    void show(Aspect aspect) override
    {
        WidgetView::show(aspect);
        if (aspect == Aspect::Value)
            tellSpokenValue(*widget_);
    }
};

} // namespace

std::unique_ptr<ControlView> makeSliderView(Slider& slider, FormWidget& window, QWidget* parent)
{
    return std::make_unique<SliderView>(slider, window, new SliderWidget(slider, parent));
}

} // namespace tandrel
