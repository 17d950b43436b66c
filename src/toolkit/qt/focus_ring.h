/// The ring that shows where the keys go.
#pragma once

#include <QFocusEvent>
#include <QPainter>
#include <QWidget>

namespace tandrel
{

/// Seen where the focus came by a key, or a key was used since: who works with the mouse is not bothered by it.
class FocusRing
{
public:
    enum class Shape { Box, Circle };

    explicit FocusRing(QWidget& widget) : widget_(widget) {}
    void focusIn(const QFocusEvent& event);
    void focusOut();
    void keyUsed();
    bool isShown() const { return shown_; }
    void paint(QPainter& painter, Shape shape) const;

private:
    QWidget& widget_;
    bool shown_ = false;
};

} // namespace tandrel
