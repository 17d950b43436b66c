/// Forms on real widgets, found by name, and a hand on mouse and keyboard.
#pragma once

#include "fake_services.h"

#include "toolkit/activation.h"
#include "toolkit/form.h"
#include "toolkit/qt/qt_backend.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTimer>
#include <QWheelEvent>
#include <QWidget>

#include <gmock/gmock.h>

namespace tandrel::test
{

/// By its handle, since two forms may share a name.
inline QWidget* windowOf(const Form& form)
{
    return form.isLoaded() ? QWidget::find(static_cast<WId>(form.hWnd())) : nullptr;
}

inline QWidget* named(const Form& form, const char* name)
{
    QWidget* window = windowOf(form);
    return window ? window->findChild<QWidget*>(name) : nullptr;
}

inline void mouseAt(QWidget* widget, QEvent::Type type, QPointF at, Qt::MouseButton button)
{
    const bool move = type == QEvent::MouseMove;
    QMouseEvent event(type, at, widget->mapToGlobal(at), move ? Qt::NoButton : button,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::MouseButtons(button), Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

inline void press(QWidget* widget, Qt::MouseButton button = Qt::LeftButton)
{
    const QPointF middle = QRectF(widget->rect()).center();
    mouseAt(widget, QEvent::MouseButtonPress, middle, button);
    mouseAt(widget, QEvent::MouseButtonRelease, middle, button);
}

template <class Condition>
bool within(int ms, Condition condition)
{
    QElapsedTimer clock;
    clock.start();
    while (!condition() && clock.elapsed() < ms)
        QApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 20);
    return condition();
}

/// The key goes down, or comes down once more because it is held.
inline void pressKey(QWidget* widget, int key, bool held = false)
{
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, QString(), held);
    QApplication::sendEvent(widget, &event);
}

inline void releaseKey(QWidget* widget, int key, bool held = false)
{
    QKeyEvent event(QEvent::KeyRelease, key, Qt::NoModifier, QString(), held);
    QApplication::sendEvent(widget, &event);
}

inline void type(QWidget* widget, int key)
{
    pressKey(widget, key);
    releaseKey(widget, key);
}

/// Over the middle of the widget, 120 a notch.
inline void turnWheel(QWidget* widget, int turn)
{
    const QPointF middle = QRectF(widget->rect()).center();
    QWheelEvent event(middle, widget->mapToGlobal(middle), {}, {0, turn}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &event);
}

/// What the widget looks like now, without what lies behind it.
inline QImage looks(QWidget* widget)
{
    QImage picture(widget->size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    widget->render(&picture, QPoint(), QRegion(), QWidget::DrawChildren);
    return picture;
}

/// Pixels of about this colour.
inline int pixelsOf(const QImage& picture, QColor colour)
{
    constexpr int kTolerance = 6;
    const auto near = [](int a, int b) { return std::abs(a - b) <= kTolerance; };
    int found = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) {
            const QColor pixel = picture.pixelColor(x, y);
            found += pixel.alpha() > 200 && near(pixel.red(), colour.red()) && near(pixel.green(), colour.green()) &&
                             near(pixel.blue(), colour.blue())
                         ? 1
                         : 0;
        }
    return found;
}

/// Calls `act` again and again from the event loop until it answers true: what the user does while something waits.
class Meanwhile : public QTimer
{
public:
    explicit Meanwhile(std::function<bool()> act)
    {
        connect(this, &QTimer::timeout, this, [this, act = std::move(act)] {
            if (act())
                stop();
        });
        start(1);
    }
    bool isDone() const { return !isActive(); }
};

/// Fake services below, real widgets above.
class WidgetBench : public ::testing::Test
{
protected:
    WidgetBench() { installBackend(&qt); }
    ~WidgetBench() override { discardAll(); }

    void discardAll()
    {
        for (const auto& form : openForms())
            form->discard();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        installBackend(&world.backend);
    }

    World world;
    QtBackend qt;
};

} // namespace tandrel::test
