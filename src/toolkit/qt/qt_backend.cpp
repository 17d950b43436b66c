#include "toolkit/qt/qt_backend.h"

#include "toolkit/activation.h"
#include "toolkit/press.h"
#include "toolkit/qt/accessible.h"
#include "toolkit/qt/cursor_shape.h"
#include "toolkit/qt/drawings.h"
#include "toolkit/qt/form_widget.h"
#include "toolkit/qt/frame_painter.h"
#include "toolkit/qt/message_box.h"
#include "toolkit/qt/style.h"
#include "toolkit/qt/x11_hints.h"
#include "toolkit/screen.h"
#include "toolkit/timer.h"

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QScreen>
#include <QThread>
#include <QTimer>

// Resources of a static library have to be called in by hand, outside of any namespace.
static void loadDrawings() { Q_INIT_RESOURCE(assets); }

namespace tandrel
{

namespace
{

constexpr int kIdleMs = 30;
constexpr qint64 kFrameMs = 16;

constexpr int kIconSize = 128;

Long twipsPerPixel(double dotsPerInch) { return 1440.0 / dotsPerInch; }

/// What a box says that the end of the program has closed.
BoxAnswer withoutAnswer(BoxStyle style) { return style == BoxStyle::YesNoQuestion ? BoxAnswer::Cancel : BoxAnswer::Ok; }

} // namespace

QtBackend::QtBackend()
{
    const QScreen* first = QGuiApplication::primaryScreen();
    const QRect place = first->geometry();
    screen().setMetrics(twipsPerPixel(first->logicalDotsPerInchX()), twipsPerPixel(first->logicalDotsPerInchY()),
                        {place.left(), place.top(), place.left() + place.width(), place.top() + place.height()});
    installAccessible();
    loadDrawings();
    applyStyle(*qApp);
    QGuiApplication::setWindowIcon(QIcon(drawing(QStringLiteral("app"), {kIconSize, kIconSize}, 1)));
    qApp->setQuitOnLastWindowClosed(false);
    qApp->installEventFilter(this);
    connect(qApp, &QGuiApplication::applicationStateChanged, this, [](Qt::ApplicationState state) {
        if (state == Qt::ApplicationInactive)
            applicationDeactivated();
    });
}

QtBackend::~QtBackend() = default;

bool QtBackend::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::Paint)
        ++paints_;
    if (event->type() != QEvent::MouseButtonPress && event->type() != QEvent::MouseButtonRelease)
        return false;
    const auto button = static_cast<QMouseEvent*>(event)->button();
    if (button != Qt::LeftButton && button != Qt::RightButton)
        return false;
    const auto which = button == Qt::LeftButton ? MouseButton::Left : MouseButton::Right;
    if (event->type() == QEvent::MouseButtonPress)
        pressArrives(which);
    else
        pressIsOver(which);
    return false;
}

std::unique_ptr<FormView> QtBackend::makeView(Form& form) { return std::make_unique<QtFormView>(form); }

void QtBackend::timerChanged(Timer& timer)
{
    auto& engine = timers_[&timer];
    if (!engine) {
        engine = std::make_unique<QTimer>();
        engine->setTimerType(Qt::PreciseTimer);
        connect(engine.get(), &QTimer::timeout, this, [this, &timer] { tick(timer); });
    }
    if (!timer.running())
        engine->stop();
    else if (!engine->isActive() || engine->interval() != timer.interval())
        engine->start(timer.interval());
}

void QtBackend::tick(Timer& timer)
{
    const Text name = timer.form().name() + "." + timer.name();
    const auto begun = std::chrono::steady_clock::now();
    timer.tick();
    tickTimes_.note(name, std::chrono::steady_clock::now() - begun);
}

void QtBackend::timerHastened(Timer& timer)
{
    QTimer::singleShot(0, this, [this, &timer] {
        // It may be gone, or stopped, meanwhile.
        const auto found = timers_.find(&timer);
        if (found == timers_.end() || !found->second->isActive())
            return;
        found->second->start();
        tick(timer);
    });
}

void QtBackend::animate(int steps, int ms, const std::function<void(int step)>& draw)
{
    // The caller is in the middle of its work: nothing but the screen may come in between.
    constexpr auto kOnlyTheScreen =
        QEventLoop::ExcludeUserInputEvents | QEventLoop::ExcludeSocketNotifiers | QEventLoop::X11ExcludeTimers;
    QElapsedTimer clock;
    clock.start();
    for (int shown = -1; shown < steps - 1;) {
        const qint64 begun = clock.elapsed();
        const auto due = ms > 0 ? std::min<qint64>(begun * steps / ms, steps - 1) : steps - 1;
        if (due > shown) {
            draw(static_cast<int>(due));
            shown = static_cast<int>(due);
            QCoreApplication::processEvents(kOnlyTheScreen);
        }
        if (const qint64 rest = begun + kFrameMs - clock.elapsed(); shown < steps - 1 && rest > 0)
            QThread::msleep(static_cast<unsigned long>(rest));
    }
}

void QtBackend::timerGone(Timer& timer)
{
    const auto found = timers_.find(&timer);
    if (found == timers_.end())
        return;
    // It may be gone inside its own tick.
    found->second->stop();
    found->second.release()->deleteLater();
    timers_.erase(found);
}

void QtBackend::mousePointerChanged(Integer shape)
{
    if (pointerSet_)
        QGuiApplication::restoreOverrideCursor();
    pointerSet_ = shape != pointer::kDefault;
    if (pointerSet_)
        QGuiApplication::setOverrideCursor(cursorShape(shape));
}

BoxAnswer QtBackend::messageBox(const Text& text, BoxStyle style, const Text& title)
{
    if (boxesEnded_)
        return withoutAnswer(style);
    MessageBox box(rendered(text), style, rendered(title), boxTexts_);
    // The box waits for the user, whatever the program is busy with.
    QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
    const int button = box.exec();
    QGuiApplication::restoreOverrideCursor();
    if (boxesEnded_)
        return withoutAnswer(style);
    if (style == BoxStyle::YesNoQuestion)
        return button == QMessageBox::Yes ? BoxAnswer::Yes : BoxAnswer::No;
    return BoxAnswer::Ok;
}

Bitmap QtBackend::picture(const Text& name, int width, int height)
{
    // Where nothing blends windows, the faint pixels of a smooth edge would be seen as dark ones.
    return bitmapOf(drawing(QString::fromStdString(name), {width, height}, 1).toImage(), screenBlendsWindows());
}

void QtBackend::later(int ms, std::function<void()> task) { QTimer::singleShot(ms, this, std::move(task)); }

void QtBackend::runPending() { QCoreApplication::processEvents(); }

void QtBackend::whenIdle(std::function<void()> task)
{
    // Behind what has just been done there is often more to come.
    QTimer::singleShot(kIdleMs, this, std::move(task));
}

// A plain quit would ask every window to close first, which is for the forms to decide.
void QtBackend::quit() { QCoreApplication::exit(0); }

void QtBackend::endBoxes()
{
    boxesEnded_ = true;
    // The one in front is that of a submenu, where one is open.
    while (QWidget* menu = QApplication::activePopupWidget())
        if (!menu->close())
            break;
    // A box may be up above a dialog for files.
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* box = qobject_cast<QDialog*>(window); box && box->isModal() && box->isVisible())
            box->done(QDialog::Rejected);
    for (const auto& form : openForms())
        if (const QWidget* window = form->isLoaded() ? QWidget::find(form->hWnd()) : nullptr;
            window && window->isModal() && window->isVisible())
            form->Hide();
}

void QtBackend::beep() { QApplication::beep(); }

} // namespace tandrel
