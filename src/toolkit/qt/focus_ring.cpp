#include "toolkit/qt/focus_ring.h"

#include "toolkit/qt/palette.h"

namespace tandrel
{

void FocusRing::focusIn(const QFocusEvent& event)
{
    const Qt::FocusReason reason = event.reason();
    shown_ = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason;
    if (shown_)
        widget_.update();
}

void FocusRing::focusOut()
{
    if (shown_)
        widget_.update();
    shown_ = false;
}

void FocusRing::keyUsed()
{
    if (!shown_)
        widget_.update();
    shown_ = true;
}

void FocusRing::paint(QPainter& painter, Shape shape) const
{
    if (!shown_)
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette::kMoves, 2));
    painter.setBrush(Qt::NoBrush);
    const QRectF area = QRectF(widget_.rect()).adjusted(1, 1, -1, -1);
    if (shape == Shape::Circle)
        painter.drawEllipse(area);
    else
        painter.drawRoundedRect(area, 4, 4);
}

} // namespace tandrel
