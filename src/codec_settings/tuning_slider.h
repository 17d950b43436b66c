/// A slider that shows how far its value is from the standard.
#pragma once

#include <QSlider>

namespace tandrel
{

/// The groove is filled between the standard and the thumb. A press puts the thumb there, a double click back to the
/// standard.
class TuningSlider : public QSlider
{
public:
    TuningSlider(Qt::Orientation orientation, int lowest, int highest, int standard, QWidget* parent);

    void reset() { setValue(standard_); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    /// Along the groove, in pixels of the widget.
    double placeOf(int value) const;
    int valueAt(const QPointF& place) const;
    void paintGroove(QPainter& painter) const;
    void paintThumb(QPainter& painter) const;

    const int standard_;
    int turned_ = 0;
};

} // namespace tandrel
