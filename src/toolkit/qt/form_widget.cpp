#include "toolkit/qt/form_widget.h"

#include "platform/path_marks.h"
#include "toolkit/activation.h"
#include "toolkit/press.h"
#include "toolkit/qt/file_names.h"
#include "toolkit/qt/frame_painter.h"
#include "toolkit/qt/key_strokes.h"
#include "toolkit/qt/mouse_buttons.h"
#include "toolkit/qt/qt_backend.h"
#include "toolkit/screen.h"

#include <QDragEnterEvent>
#include <QHelpEvent>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>
#include <QToolTip>
#include <QUrl>

#include <algorithm>
#include <array>

namespace tandrel
{

namespace
{

struct KeyRow {
    int code;
    Key key;
};
constexpr std::array<KeyRow, 8> kKeys{{{Qt::Key_Left, Key::Left},
                                       {Qt::Key_Right, Key::Right},
                                       {Qt::Key_Up, Key::Up},
                                       {Qt::Key_Down, Key::Down},
                                       {Qt::Key_Return, Key::Enter},
                                       {Qt::Key_Enter, Key::Enter},
                                       {Qt::Key_Escape, Key::Escape},
                                       {Qt::Key_Space, Key::Space}}};

Qt::WindowFlags flagsFor(const Form& form)
{
    if (form.frame() == Frame::Dialog)
        return Qt::Dialog | Qt::FramelessWindowHint;
    const bool tool = (form.windowWord(style::kExtendedWord) & style::kToolWindow) != 0;
    return (tool ? Qt::Tool : Qt::Window) | Qt::FramelessWindowHint;
}

std::vector<Text> localPaths(const QMimeData& data)
{
    std::vector<Text> paths;
    for (const QUrl& url : data.urls()) {
        // Byte for byte: a name need not be valid UTF-8.
        const auto path = localPathOf(url.toEncoded());
        if (path && survivesMarks(*path))
            paths.push_back(markPath(path->toStdString()));
    }
    return paths;
}

} // namespace

FormWidget::FormWidget(Form& form) : QWidget(nullptr, flagsFor(form)), form_(&form)
{
    setObjectName(QString::fromStdString(form.name()));
    setAttribute(Qt::WA_NativeWindow);
    setAttribute(Qt::WA_OpaquePaintEvent, form.frame() == Frame::Video);
    setAttribute(Qt::WA_TranslucentBackground, form.frame() != Frame::Video && form.frame() != Frame::Bare);
    setMouseTracking(true);
    setAcceptDrops(form.DropFiles != nullptr);
}

bool pressIsSpent(Qt::MouseButton button)
{
    return (button == Qt::LeftButton && isSpent(MouseButton::Left)) ||
           (button == Qt::RightButton && isSpent(MouseButton::Right));
}

void activateByPress(Form& form, Qt::MouseButton button)
{
    if (!pressIsSpent(button))
        userPressed(form);
}

QPoint FormWidget::origin() const
{
    const QMargins margins = form_ ? frameMargins(*form_) : QMargins();
    return {margins.left(), margins.top()};
}

void FormWidget::place(const PixelRect& rect)
{
    placing_ = true;
    setGeometry(rect.left, rect.top, std::max(1, rect.width()), std::max(1, rect.height()));
    placing_ = false;
}

bool FormWidget::event(QEvent* event)
{
    if (form_ && event->type() == QEvent::WindowActivate)
        windowActivated(*form_);
    if (event->type() == QEvent::WindowActivate || event->type() == QEvent::WindowDeactivate)
        update();
    if (form_ && event->type() == QEvent::WindowStateChange) {
        if (isMinimized())
            form_->userMinimised();
        else
            form_->userRestored();
    }
    if (event->type() == QEvent::ToolTip && showTipOfText(*static_cast<QHelpEvent*>(event)))
        return true;
    return QWidget::event(event);
}

bool FormWidget::showTipOfText(const QHelpEvent& event)
{
    for (QLabel* label : findChildren<QLabel*>()) {
        const bool missesMouse = label->testAttribute(Qt::WA_TransparentForMouseEvents);
        if (!missesMouse || !label->isVisible() || label->toolTip().isEmpty() ||
            !label->rect().contains(label->mapFromGlobal(event.globalPos())))
            continue;
        QToolTip::showText(event.globalPos(), label->toolTip(), label);
        return true;
    }
    return false;
}

void FormWidget::paintEvent(QPaintEvent*)
{
    if (!form_)
        return;
    QPainter painter(this);
    paintFrame(painter, *form_, rect(), activeForm() == form_);
    if (hasCloseBox(*form_))
        paintCloseBox(painter, closeBox(rect()), closeHovered_, closePressed_);
}

bool FormWidget::isOnCloseBox(const QPointF& at) const
{
    return form_ && hasCloseBox(*form_) && closeBox(rect()).contains(at.toPoint());
}

void FormWidget::hoverCloseBox(bool on)
{
    if (on == closeHovered_)
        return;
    closeHovered_ = on;
    update(closeBox(rect()));
}

void FormWidget::leaveEvent(QEvent*)
{
    hoverCloseBox(false);
    if (form_ && form_->MouseLeave)
        form_->run(form_->MouseLeave);
}

MouseEvent FormWidget::translated(QMouseEvent* event, int buttons) const
{
    const QPointF at = event->position() - origin();
    return {buttons, shiftMask(event->modifiers()), at.x() * tandrel::screen().TwipsPerPixelX(),
            at.y() * tandrel::screen().TwipsPerPixelY()};
}

void FormWidget::mousePressEvent(QMouseEvent* event)
{
    if (!form_)
        return;
    activateByPress(*form_, event->button());
    // The activation may have acted on the press, or ended the form.
    if (!form_ || pressIsSpent(event->button()))
        return;
    if (event->button() == Qt::LeftButton && isOnCloseBox(event->position())) {
        closePressed_ = true;
        update(closeBox(rect()));
        return;
    }
    if (event->button() == Qt::LeftButton && event->position().y() < captionBand(*form_)) {
        bandDrag_ = event->globalPosition().toPoint() - pos();
        return;
    }
    form_->userMouseDown(translated(event, buttonMask(event->button())));
}

void FormWidget::dragByHand()
{
    bandDrag_ = QCursor::pos() - pos();
    grabMouse();
}

void FormWidget::mouseMoveEvent(QMouseEvent* event)
{
    if (!form_)
        return;
    if (bandDrag_) {
        const QPoint to = event->globalPosition().toPoint() - *bandDrag_;
        const PixelRect now = form_->pixelRect();
        form_->movePixels({to.x(), to.y(), to.x() + now.width(), to.y() + now.height()});
        return;
    }
    hoverCloseBox(isOnCloseBox(event->position()));
    if (form_->MouseMove)
        form_->run([this, what = translated(event, buttonMask(event->buttons()))] { form_->MouseMove(what); });
}

void FormWidget::mouseReleaseEvent(QMouseEvent* event)
{
    if (mouseGrabber() == this)
        releaseMouse();
    if (bandDrag_) {
        bandDrag_.reset();
        return;
    }
    if (!form_)
        return;
    if (closePressed_) {
        closePressed_ = false;
        update(closeBox(rect()));
        if (isOnCloseBox(event->position()))
            form_->userClose();
        return;
    }
    form_->userMouseUp(translated(event, buttonMask(event->button())));
}

void FormWidget::wheelEvent(QWheelEvent* event)
{
    event->accept();
    // The turn is for the active window, where the pointer is on it.
    if (!form_ || !form_->WheelProcedure || activeForm() != form_)
        return;
    const int rotation = notches_.add(event->angleDelta().y());
    if (rotation == 0)
        return;
    const QPoint at = event->globalPosition().toPoint();
    const WheelTurn what{buttonMask(event->buttons()), rotation, at.x(), at.y()};
    form_->run([this, what] { form_->WheelProcedure(what); });
}

bool FormWidget::reportKey(int key)
{
    const auto row = std::find_if(kKeys.begin(), kKeys.end(), [key](const KeyRow& one) { return one.code == key; });
    if (row == kKeys.end() || !form_->KeyDown)
        return false;
    // The handler may end the form.
    const auto form = form_->shared_from_this();
    return form->userKeyDown(row->key);
}

bool FormWidget::reportShortcut(const QKeyEvent& event)
{
    if (!form_ || !form_->Shortcut)
        return false;
    const KeyStroke stroke = strokeOf(event);
    const auto form = form_->shared_from_this();
    return !stroke.name.empty() && form->userShortcut(stroke);
}

void FormWidget::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool escape = event->key() == Qt::Key_Escape;
    const bool menu =
        event->key() == Qt::Key_Menu || (event->key() == Qt::Key_F10 && event->modifiers().testFlag(Qt::ShiftModifier));
    if (form_ && menu && form_->MenuKey) {
        const QtBackend::PressedByKey key(*this);
        return form_->run(form_->MenuKey);
    }
    if (form_ && (reportKey(event->key()) || reportShortcut(*event)))
        return;
    if (form_ && form_->KeyPress && !event->text().isEmpty() && !typesNothing(strokeOf(*event).name))
        return form_->run([this, code = event->text().front().unicode()] { form_->KeyPress(code); });
    if (!form_ || !(enter || escape))
        return QWidget::keyPressEvent(event);
    for (Control* control : form_->controls()) {
        auto* button = dynamic_cast<CommandButton*>(control);
        if (button && button->visible() && button->enabled() && (enter ? button->isDefault : button->isCancel))
            return button->userClick();
    }
    QWidget::keyPressEvent(event);
}

void FormWidget::reportPlace()
{
    if (!form_ || placing_ || !isVisible() || isMinimized())
        return;
    const QRect now = geometry();
    form_->userMoved({now.left(), now.top(), now.left() + now.width(), now.top() + now.height()});
}

void FormWidget::moveEvent(QMoveEvent*) { reportPlace(); }

void FormWidget::resizeEvent(QResizeEvent*)
{
    if (form_ && (form_->frame() == Frame::Dialog || form_->frame() == Frame::Notice))
        setMask(roundedRegion(rect()));
    reportPlace();
}

void FormWidget::closeEvent(QCloseEvent* event)
{
    event->ignore();
    if (form_)
        form_->userClose();
}

void FormWidget::dragEnterEvent(QDragEnterEvent* event)
{
    if (localPaths(*event->mimeData()).empty())
        return;
    // Whatever the source proposes: after a move it would take its files away.
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void FormWidget::dropEvent(QDropEvent* event)
{
    const std::vector<Text> paths = localPaths(*event->mimeData());
    if (!form_ || !form_->DropFiles || paths.empty())
        return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
    // Whoever the files come from waits for the end of this event, and what is done with them may take its time.
    QTimer::singleShot(0, this, [this, paths] {
        if (form_ && form_->isLoaded())
            form_->run([this, paths] { form_->DropFiles(paths); });
    });
}

} // namespace tandrel
