#include "toolkit/qt/accessible.h"

#include "toolkit/controls.h"
#include "toolkit/file_list_box.h"
#include "toolkit/qt/accessible_control.h"
#include "toolkit/qt/form_widget.h"
#include "toolkit/qt/frame_painter.h"

#include <QApplication>
#include <QHash>
#include <QMenu>

namespace tandrel
{

namespace
{

QHash<const QObject*, Control*>& spokenControls()
{
    static QHash<const QObject*, Control*> all;
    return all;
}

/// A form: a dialog or a window, by the title that eyes see.
class AccessibleForm : public QAccessibleWidget
{
public:
    explicit AccessibleForm(FormWidget* widget) : QAccessibleWidget(widget), window_(*widget) {}

    QAccessible::Role role() const override
    {
        const Form* form = window_.form();
        return form && form->frame() == Frame::Dialog ? QAccessible::Dialog : QAccessible::Window;
    }

    QString text(QAccessible::Text which) const override
    {
        if (which == QAccessible::Name && window_.form())
            return titleOf(*window_.form());
        return QAccessibleWidget::text(which);
    }

private:
    const FormWidget& window_;
};

/// The program. Qt's own interface leaves out menus that stand by themselves, so that nobody would find them.
class AccessibleProgram : public QAccessibleObject
{
public:
    using QAccessibleObject::QAccessibleObject;

    int childCount() const override { return static_cast<int>(windows().size()); }

    QAccessibleInterface* child(int index) const override
    {
        const QWidgetList all = windows();
        return index >= 0 && index < all.size() ? QAccessible::queryAccessibleInterface(all[index]) : nullptr;
    }

    int indexOfChild(const QAccessibleInterface* child) const override
    {
        return static_cast<int>(windows().indexOf(qobject_cast<QWidget*>(child->object())));
    }

    QAccessibleInterface* parent() const override { return nullptr; }
    QAccessibleInterface* focusChild() const override
    {
        QWidget* focus = QApplication::focusWidget();
        return focus ? QAccessible::queryAccessibleInterface(focus) : nullptr;
    }
    QAccessible::Role role() const override { return QAccessible::Application; }
    QAccessible::State state() const override { return {}; }

    QString text(QAccessible::Text which) const override
    {
        return which == QAccessible::Name ? QApplication::applicationName() : QString();
    }

private:
    static bool isPart(const QWidget* widget)
    {
        if (widget->windowType() == Qt::Popup)
            return qobject_cast<const QMenu*>(widget) && widget->isVisible();
        return widget->windowHandle() && widget->windowType() != Qt::Desktop && widget->windowType() != Qt::ToolTip;
    }

    static QWidgetList windows()
    {
        QWidgetList all;
        for (QWidget* widget : QApplication::topLevelWidgets())
            // A submenu belongs to its menu.
            if (isPart(widget) && !(qobject_cast<QMenu*>(widget) && qobject_cast<QMenu*>(widget->parentWidget())))
                all.append(widget);
        return all;
    }
};

/// Lists, buttons and the like are Qt's own widgets, of which Qt has said all.
bool drawsItself(const Control& control)
{
    return dynamic_cast<const Image*>(&control) || dynamic_cast<const Slider*>(&control) ||
           dynamic_cast<const Label*>(&control) || dynamic_cast<const PictureBox*>(&control) ||
           dynamic_cast<const GroupBox*>(&control) ||
           // A tick set by Qt's interface would be seen, and nobody would hear of it.
           dynamic_cast<const CheckBox*>(&control);
}

QAccessibleInterface* makeInterface(const QString& className, QObject* object)
{
    if (object == qApp)
        return className == QLatin1String("QApplication") ? new AccessibleProgram(object) : nullptr;
    auto* widget = qobject_cast<QWidget*>(object);
    if (auto* form = dynamic_cast<FormWidget*>(widget))
        return new AccessibleForm(form);
    const Control* control = spokenControl(widget);
    return control && drawsItself(*control) ? new AccessibleControl(widget) : nullptr;
}

} // namespace

void installAccessible()
{
    static const bool once = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    static_cast<void>(once);
}

void speakFor(const QWidget& widget, Control& control)
{
    spokenControls().insert(&widget, &control);
    QObject::connect(&widget, &QObject::destroyed, [](const QObject* gone) { spokenControls().remove(gone); });
}

void forgetSpoken(const QWidget& widget) { spokenControls().remove(&widget); }

Control* spokenControl(const QObject* widget) { return spokenControls().value(widget); }

void tellSpokenValue(QWidget& widget)
{
    if (!QAccessible::isActive())
        return;
    QAccessibleInterface* face = QAccessible::queryAccessibleInterface(&widget);
    if (!face || !face->valueInterface())
        return;
    QAccessibleValueChangeEvent event(&widget, face->valueInterface()->currentValue());
    QAccessible::updateAccessibility(&event);
}

} // namespace tandrel
