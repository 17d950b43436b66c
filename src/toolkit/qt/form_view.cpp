#include "toolkit/qt/control_views.h"
#include "toolkit/qt/drawings.h"
#include "toolkit/qt/form_widget.h"
#include "toolkit/qt/frame_painter.h"
#include "toolkit/qt/qt_backend.h"
#include "toolkit/qt/way_back.h"
#include "toolkit/qt/x11_hints.h"

#include "toolkit/activation.h"
#include "toolkit/screen.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QTimer>
#include <QWindow>

namespace tandrel
{

namespace
{

constexpr qint64 kScreenWaitMs = 60;
constexpr int kReturnCheckMs = 500;

bool isMinimised(const Form& form) { return form.windowState() == static_cast<int>(WindowState::Minimised); }

/// A request for the focus would bring a minimised window back.
bool mayHaveFocus(const Form& form, const QWidget& widget)
{
    return activeForm() == &form && widget.isVisible() && !isMinimised(form);
}

/// Activates a window that was not on the screen yet when it was asked for, unless another form has become the active
/// one meanwhile: the window system would do it all the same, and take the keys away from that one.
class ActivationAtExpose : public QObject
{
public:
    ActivationAtExpose(const Form& form, QWidget& widget) : QObject(&widget), form_(form), widget_(widget) {}

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() != QEvent::Expose || !widget_.windowHandle()->isExposed())
            return false;
        if (mayHaveFocus(form_, widget_))
            widget_.activateWindow();
        deleteLater();
        return false;
    }

private:
    const Form& form_;
    QWidget& widget_;
};

/// Asks the window system for the focus when the present event is done, unless another form has become the active one
/// by then: of several requests right behind each other a window manager need not grant the last.
void askForFocus(const Form& form, QWidget& widget)
{
    QTimer::singleShot(0, &widget, [form = form.weak_from_this(), &widget] {
        const auto alive = form.lock();
        if (alive && mayHaveFocus(*alive, widget))
            widget.activateWindow();
    });
}

/// Sees to it that a minimised form learns of its return. Qt says nothing of one that a window manager brings back
/// before Qt has heard of its going.
void watchForReturn(const Form& form, QWidget& widget)
{
    auto* watch = new QTimer(&widget);
    QObject::connect(watch, &QTimer::timeout, &widget,
                     [form = form.weak_from_this(), &widget, watch, seen = 0]() mutable {
                         const auto alive = form.lock();
                         const bool waits = alive && isMinimised(*alive);
                         seen = waits && standsOnScreen(widget) ? seen + 1 : 0;
                         // The first time the window manager may not have got round to it.
                         if (seen > 1)
                             widget.setWindowState(widget.windowState() & ~Qt::WindowMinimized);
                         if (!waits || seen > 1)
                             watch->deleteLater();
                     });
    watch->start(kReturnCheckMs);
}

} // namespace

QtFormView::QtFormView(Form& form) : form_(form), widget_(new FormWidget(form)) {}

QtFormView::~QtFormView()
{
    endWaiting();
    delete wayBack_;
    if (!widget_)
        return;
    // The view may end inside an event of its own window, so the window goes when that event is done.
    widget_->forget();
    widget_->hide();
    widget_->deleteLater();
}

std::unique_ptr<ControlView> QtFormView::addControl(Control& control) { return makeControlView(control, *widget_); }

void QtFormView::place(const PixelRect& rect) { widget_->place(rect); }

void QtFormView::show()
{
    widget_->place(form_.pixelRect());
    widget_->show();
    widget_->raise();
    // A window manager forgets this when a window goes.
    if ((form_.windowWord(style::kExtendedWord) & style::kTopMost) != 0)
        setTopMost(true);
    // Notices stand while the program is busy: they have to be on the screen before it is.
    if ((form_.windowWord(style::kExtendedWord) & style::kToolWindow) != 0)
        waitForScreen();
}

void QtFormView::setModal(bool on) { widget_->setWindowModality(on ? Qt::ApplicationModal : Qt::NonModal); }

void QtFormView::waitForScreen()
{
    // Whoever shows the form is in the middle of its work: no timer, and no input, may come in between.
    constexpr auto kOnlyTheScreen =
        QEventLoop::ExcludeUserInputEvents | QEventLoop::ExcludeSocketNotifiers | QEventLoop::X11ExcludeTimers;
    QElapsedTimer clock;
    clock.start();
    while (widget_ && !widget_->windowHandle()->isExposed() && clock.elapsed() < kScreenWaitMs)
        QCoreApplication::processEvents(kOnlyTheScreen);
    if (widget_)
        widget_->repaint();
}

void QtFormView::hide()
{
    if (wayBack_)
        wayBack_->deleteLater();
    widget_->hide();
    endWaiting();
}

void QtFormView::endWaiting()
{
    for (QEventLoop* loop : waiting_)
        loop->quit();
}

void QtFormView::raise() { widget_->raise(); }

void QtFormView::activate()
{
    widget_->raise();
    QWindow* window = widget_->windowHandle();
    // A notice is brought to the front again and again, and keeps the keys that nobody else has been given meanwhile.
    const bool isNotice = (form_.windowWord(style::kExtendedWord) & style::kToolWindow) != 0;
    if (isNotice && QGuiApplication::focusWindow() == window)
        widget_->update();
    else if (window->isExposed())
        askForFocus(form_, *widget_);
    else if (!activationWaits_)
        window->installEventFilter(activationWaits_ = new ActivationAtExpose(form_, *widget_));
    widget_->update();
}

void QtFormView::repaint()
{
    widget_->repaint();
    // Only windows of their own have not been painted along with it.
    for (QWidget* child : widget_->findChildren<QWidget*>())
        if (child->isVisible() && child->internalWinId() != 0)
            child->repaint();
}

void QtFormView::minimise()
{
    if (windowManagerPresent()) {
        widget_->showMinimized();
        watchForReturn(form_, *widget_);
        return;
    }
    widget_->hide();
    wayBack_ = makeWayBack(rendered(form_.caption()), [this] { form_.WindowState = 0; });
}

void QtFormView::restore()
{
    if (wayBack_)
        wayBack_->deleteLater();
    widget_->setWindowState(widget_->windowState() & ~Qt::WindowMinimized);
    if (!form_.visible())
        return;
    widget_->show();
    widget_->raise();
    if (!windowManagerPresent())
        widget_->activateWindow();
}

void QtFormView::captionChanged()
{
    widget_->setWindowTitle(rendered(form_.caption()));
    widget_->update(0, 0, widget_->width(), captionBand(form_));
}

void QtFormView::frameChanged()
{
    for (Control* control : form_.controls())
        control->setLeft(control->left());
    widget_->update();
}

void QtFormView::setFullScreen(bool on) { announceState(*widget_, "_NET_WM_STATE_FULLSCREEN", on); }

void QtFormView::setTransientFor(Form* owner)
{
    const QWidget* before = owner ? QWidget::find(owner->hWnd()) : nullptr;
    widget_->windowHandle()->setTransientParent(before ? before->windowHandle() : nullptr);
}

void QtFormView::setOpacity(int alpha) { widget_->setWindowOpacity(alpha / 255.0); }

double QtFormView::pixelRatio() const { return widget_->devicePixelRatioF(); }

void QtFormView::setRegion(const Region& region, double scale)
{
    if (scale != 1 && !region.empty() && cutToDevicePixels(*widget_, region))
        return;
    if (region.empty()) {
        // An empty mask would count as none: a pixel outside of the window leaves nothing of it.
        widget_->setMask(QRegion(-2, -2, 1, 1));
        return;
    }
    std::vector<QRect> strips;
    strips.reserve(region.size());
    for (const PixelRect& strip : region)
        strips.emplace_back(strip.left, strip.top, strip.width(), strip.height());
    QRegion mask;
    mask.setRects(strips.data(), static_cast<int>(strips.size()));
    widget_->setMask(mask);
}

Bitmap QtFormView::snapshot()
{
    return bitmapOf(widget_->grab().scaled(widget_->size(), Qt::IgnoreAspectRatio, Qt::FastTransformation).toImage());
}

void QtFormView::startDrag()
{
    // A window manager that takes the window over behind a short click would not let go of it until the next one.
    if (!leftButtonMayBeHeld())
        return;
    if (!widget_->windowHandle()->startSystemMove())
        widget_->dragByHand();
}

void QtFormView::setTopMost(bool on) { announceState(*widget_, "_NET_WM_STATE_ABOVE", on); }

void QtFormView::setToolWindow(bool on) { announceState(*widget_, "_NET_WM_STATE_SKIP_TASKBAR", on); }

WindowHandle QtFormView::handle() const { return static_cast<WindowHandle>(widget_->winId()); }

void QtFormView::waitModal()
{
    auto* qt = dynamic_cast<QtBackend*>(&backend());
    if (qt && qt->boxesEnded()) {
        form_.Hide();
        return;
    }
    // The form waits for the user, whatever the program is busy with.
    if (qt)
        qt->mousePointerChanged(pointer::kDefault);
    QEventLoop loop;
    waiting_.push_back(&loop);
    const auto alive = form_.shared_from_this();
    loop.exec();
    // The view may have ended inside the loop, and with it this object.
    if (alive->isLoaded())
        std::erase(waiting_, &loop);
    if (qt)
        qt->mousePointerChanged(tandrel::screen().mousePointer());
}

} // namespace tandrel
