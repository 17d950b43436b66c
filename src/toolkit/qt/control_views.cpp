#include "toolkit/qt/control_views.h"

#include "toolkit/activation.h"
#include "toolkit/controls.h"
#include "toolkit/qt/accessible.h"
#include "toolkit/qt/cursor_shape.h"
#include "toolkit/qt/form_widget.h"
#include "toolkit/qt/frame_painter.h"
#include "toolkit/qt/kinds.h"
#include "toolkit/qt/mouse_buttons.h"
#include "toolkit/screen.h"

#include <QMouseEvent>

namespace tandrel
{

namespace
{

/// The tip with the keys behind it.
Text tipOf(const Control& control)
{
    const Text tip = control.toolTip();
    const Text keys = control.shortcut();
    if (tip.empty() || keys.empty())
        return tip + keys;
    return tip + " (" + keys + ")";
}

} // namespace

WidgetView::WidgetView(Control& control, FormWidget& window, QWidget* widget)
    : control_(control), window_(window), widget_(widget)
{
    speakFor(*widget_, control);
    widget_->setObjectName(QString::fromStdString(control.name()));
    widget_->installEventFilter(this);
    widget_->setMouseTracking(true);
    if (control.pointerShape != pointer::kDefault)
        widget_->setCursor(cursorShape(control.pointerShape));
    for (const Aspect aspect : {Aspect::Place, Aspect::Enabled, Aspect::ToolTip, Aspect::Visible})
        WidgetView::changed(aspect);
}

WidgetView::~WidgetView()
{
    if (!widget_)
        return;
    forgetSpoken(*widget_);
    widget_->removeEventFilter(this);
}

void WidgetView::changed(Aspect aspect)
{
    if (!widget_)
        return;
    switch (aspect) {
    case Aspect::Place:
        place();
        break;
    case Aspect::Visible:
        widget_->setVisible(control_.visible());
        break;
    case Aspect::Enabled:
        widget_->setEnabled(control_.enabled());
        break;
    case Aspect::ToolTip:
        widget_->setToolTip(plainTip(rendered(tipOf(control_))));
        widget_->setAccessibleName(rendered(control_.toolTip().empty() ? control_.spoken() : control_.toolTip()));
        // A box with a list has its present entry as its name.
        widget_->setAccessibleDescription(rendered(control_.spoken()));
        break;
    case Aspect::Order:
        widget_->raise();
        break;
    case Aspect::Focus:
        widget_->setFocus(Qt::OtherFocusReason);
        break;
    case Aspect::Repaint:
        widget_->repaint();
        break;
    default:
        show(aspect);
        break;
    }
}

void WidgetView::show(Aspect) { widget_->update(); }

void WidgetView::place()
{
    const QPoint origin = control_.container() ? QPoint() : window_.origin();
    const TwipsRect twips = control_.place();
    widget_->setGeometry(origin.x() + pixelsX(twips.left), origin.y() + pixelsY(twips.top),
                         std::max<int>(0, pixelsX(twips.width)), std::max<int>(0, pixelsY(twips.height)));
}

WindowHandle WidgetView::handle() const
{
    if (!widget_)
        return 0;
    // To ask for a window would make one; only boxes that show pictures are to have their own.
    const bool native = widget_->testAttribute(Qt::WA_NativeWindow);
    return static_cast<WindowHandle>(native ? widget_->winId() : widget_->internalWinId());
}

PixelRect WidgetView::rect() const
{
    if (!widget_)
        return {};
    const QRect place(widget_->mapToGlobal(QPoint()), widget_->size());
    return {place.left(), place.top(), place.left() + place.width(), place.top() + place.height()};
}

bool WidgetView::eventFilter(QObject*, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    // The second of two fast presses comes as this alone, and is a press like any other here.
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove: {
        // A handler may end the form, and this view with it.
        const bool taken = !widgetNeedsMouse();
        reportMouse(event);
        return taken;
    }
    default:
        return false;
    }
}

void WidgetView::reportMouse(QEvent* event)
{
    auto* mouse = static_cast<QMouseEvent*>(event);
    MouseEvent what;
    what.x = mouse->position().x() * screen().TwipsPerPixelX();
    what.y = mouse->position().y() * screen().TwipsPerPixelY();
    const auto buttons = mouse->type() == QEvent::MouseMove ? mouse->buttons() : Qt::MouseButtons(mouse->button());
    what.button = buttonMask(buttons);
    what.shift = shiftMask(mouse->modifiers());

    const bool inside = widget_->rect().contains(mouse->position().toPoint());
    const auto form = control_.form().shared_from_this();
    Control& control = control_;
    if (mouse->type() == QEvent::MouseButtonPress || mouse->type() == QEvent::MouseButtonDblClick) {
        activateByPress(*form, mouse->button());
        // The activation may have acted on the press.
        if (form->isLoaded() && !pressIsSpent(mouse->button()))
            control.userMouseDown(what);
        if (mouse->type() == QEvent::MouseButtonDblClick && what.left() && form->isLoaded())
            control.userDblClick();
    } else if (mouse->type() == QEvent::MouseMove) {
        control.userMouseMove(what);
    } else {
        control.userMouseUp(what);
        if (inside && what.button == mouse::kLeft && form->isLoaded() && clickFollowsRelease(control))
            control.userClick();
    }
}

} // namespace tandrel
