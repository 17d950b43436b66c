#include "toolkit/qt/framed_dialog.h"

#include "toolkit/activation.h"
#include "toolkit/form.h"
#include "toolkit/qt/frame_painter.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>
#include <QWindow>

#include <algorithm>

namespace tandrel
{

namespace
{

constexpr int kMargin = 12;
constexpr int kEdge = 6;
constexpr int kCorner = 16;
constexpr int kGap = 24;

Qt::CursorShape cursorOf(Qt::Edges edges)
{
    if (edges == (Qt::LeftEdge | Qt::TopEdge) || edges == (Qt::RightEdge | Qt::BottomEdge))
        return Qt::SizeFDiagCursor;
    if (edges == (Qt::RightEdge | Qt::TopEdge) || edges == (Qt::LeftEdge | Qt::BottomEdge))
        return Qt::SizeBDiagCursor;
    if ((edges & (Qt::LeftEdge | Qt::RightEdge)) != 0)
        return Qt::SizeHorCursor;
    return edges ? Qt::SizeVerCursor : Qt::ArrowCursor;
}

/// Null while the form is not on the screen.
const QWidget* seenWindowOf(const Form& form)
{
    const QWidget* window = form.isLoaded() ? QWidget::find(static_cast<WId>(form.hWnd())) : nullptr;
    return window && window->isVisible() ? window : nullptr;
}

QRect workAreaOf(const QWindow* window)
{
    const QScreen* on = window ? QGuiApplication::screenAt(window->geometry().center()) : nullptr;
    return (on ? on : QGuiApplication::primaryScreen())->availableGeometry();
}

/// `place` with the edges moved, never smaller than `least`.
QRect stretched(QRect place, Qt::Edges edges, const QPoint& by, const QSize& least)
{
    if (edges & Qt::LeftEdge)
        place.setLeft(std::min(place.left() + by.x(), place.right() + 1 - least.width()));
    if (edges & Qt::TopEdge)
        place.setTop(std::min(place.top() + by.y(), place.bottom() + 1 - least.height()));
    if (edges & Qt::RightEdge)
        place.setRight(std::max(place.right() + by.x(), place.left() - 1 + least.width()));
    if (edges & Qt::BottomEdge)
        place.setBottom(std::max(place.bottom() + by.y(), place.top() - 1 + least.height()));
    return place;
}

} // namespace

QWindow* windowOfActiveForm()
{
    if (const QWidget* active = activeForm() ? seenWindowOf(*activeForm()) : nullptr)
        return active->windowHandle();
    // Another program is the active one: the largest window may cover the screen.
    const QWidget* largest = nullptr;
    const auto area = [](const QWidget* window) { return window ? window->width() * window->height() : 0; };
    for (const auto& form : openForms())
        if (const QWidget* window = seenWindowOf(*form); area(window) > area(largest))
            largest = window;
    return largest ? largest->windowHandle() : nullptr;
}

FramedDialog::FramedDialog(const QString& title) : body_(new QWidget(this))
{
    setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
    setAttribute(Qt::WA_TranslucentBackground);
    setWindowTitle(title);
    setMouseTracking(true);
    // Its own, so that the shapes of the edges end where it begins.
    body_->setCursor(Qt::ArrowCursor);
    auto* around = new QVBoxLayout(this);
    around->setContentsMargins(kMargin, kCaptionBand + kMargin, kMargin, kMargin);
    around->addWidget(body_);
}

void FramedDialog::placeBefore(const QSize& wanted)
{
    QWindow* before = windowOfActiveForm();
    const QRect area = workAreaOf(before);
    const QSize room = area.size() - QSize(kGap, kGap);
    setMinimumSize(minimumSize().boundedTo(room));
    QRect place(QPoint(), wanted.boundedTo(room).expandedTo(minimumSize()));
    place.moveCenter(area.center());
    setGeometry(place);
    winId();
    windowHandle()->setTransientParent(before);
}

void FramedDialog::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    paintDialog(painter, windowTitle(), rect());
    paintCloseBox(painter, closeBox(rect()), closeHovered_, closePressed_);
}

void FramedDialog::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    setMask(roundedRegion(rect()));
}

void FramedDialog::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    raise();
    activateWindow();
}

Qt::Edges FramedDialog::edgesAt(const QPoint& at) const
{
    const int left = at.x();
    const int top = at.y();
    const int right = width() - 1 - left;
    const int bottom = height() - 1 - top;
    const bool onEdge = std::min({left, right, bottom}) < kEdge || top < kEdge / 2;
    if (!onEdge)
        return {};
    // The very corners are cut off, so that an edge is grabbed for both of them near its ends.
    const bool nearCorner = std::min(left, right) < kCorner && std::min(top, bottom) < kCorner;
    const auto reach = [nearCorner](int edge) { return nearCorner ? kCorner : edge; };
    Qt::Edges edges;
    edges.setFlag(Qt::LeftEdge, left < reach(kEdge));
    edges.setFlag(Qt::RightEdge, right < reach(kEdge));
    edges.setFlag(Qt::TopEdge, top < reach(kEdge / 2));
    edges.setFlag(Qt::BottomEdge, bottom < reach(kEdge));
    return edges;
}

void FramedDialog::setCloseBox(bool hovered, bool pressed)
{
    if (hovered == closeHovered_ && pressed == closePressed_)
        return;
    closeHovered_ = hovered;
    closePressed_ = pressed;
    update(closeBox(rect()));
}

void FramedDialog::hover(const QPoint& at)
{
    const bool onBox = closeBox(rect()).contains(at);
    setCloseBox(onBox, closePressed_);
    setCursor(onBox ? Qt::ArrowCursor : cursorOf(edgesAt(at)));
}

void FramedDialog::leaveEvent(QEvent*) { setCloseBox(false, closePressed_); }

void FramedDialog::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const QPoint at = event->position().toPoint();
    const Qt::Edges edges = edgesAt(at);
    if (closeBox(rect()).contains(at))
        setCloseBox(true, true);
    else if (edges || at.y() < kCaptionBand)
        drag_ = Drag{edges, event->globalPosition().toPoint(), geometry()};
}

void FramedDialog::mouseMoveEvent(QMouseEvent* event)
{
    if (!drag_)
        return hover(event->position().toPoint());
    const QPoint by = event->globalPosition().toPoint() - drag_->from;
    if (drag_->edges)
        setGeometry(stretched(drag_->place, drag_->edges, by, minimumSize()));
    else
        move(drag_->place.topLeft() + by);
}

void FramedDialog::mouseReleaseEvent(QMouseEvent* event)
{
    drag_.reset();
    const bool closes = closePressed_ && closeBox(rect()).contains(event->position().toPoint());
    setCloseBox(closes, false);
    if (closes)
        reject();
}

} // namespace tandrel
