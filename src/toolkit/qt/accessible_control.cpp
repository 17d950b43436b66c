#include "toolkit/qt/accessible_control.h"

#include "toolkit/controls.h"
#include "toolkit/file_list_box.h"
#include "toolkit/form.h"
#include "toolkit/qt/accessible.h"
#include "toolkit/qt/frame_painter.h"
#include "toolkit/qt/qt_backend.h"

#include <QApplication>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace tandrel
{

namespace
{

bool hasValue(const Control& control)
{
    return control.spokenValue || dynamic_cast<const Slider*>(&control) != nullptr;
}

/// The text that is seen of it.
Text captionOf(const Control& control)
{
    if (const auto* label = dynamic_cast<const Label*>(&control))
        return label->caption();
    if (const auto* box = dynamic_cast<const CheckBox*>(&control))
        return box->caption();
    if (const auto* box = dynamic_cast<const GroupBox*>(&control))
        return trim(box->caption());
    return {};
}

QString nameOf(const Control& control)
{
    if (control.silent)
        return {};
    // A label says what it shows: nothing, where it is empty.
    if (const auto* label = dynamic_cast<const Label*>(&control))
        return label->usesMnemonic ? withoutMnemonic(label->caption()) : rendered(label->caption());
    if (dynamic_cast<const CheckBox*>(&control) && !captionOf(control).empty())
        return withoutMnemonic(captionOf(control));
    if (const Text caption = captionOf(control); !caption.empty())
        return rendered(caption);
    return rendered(control.toolTip().empty() ? control.spoken() : control.toolTip());
}

/// What has no name is there for the eye, or for the mouse alone.
QAccessible::Role roleOf(const Control& control)
{
    if (nameOf(control).isEmpty())
        return QAccessible::Client;
    if (hasValue(control))
        return QAccessible::Slider;
    if (dynamic_cast<const CheckBox*>(&control))
        return QAccessible::CheckBox;
    if (dynamic_cast<const Label*>(&control))
        return QAccessible::StaticText;
    if (dynamic_cast<const GroupBox*>(&control))
        return QAccessible::Grouping;
    return dynamic_cast<const Image*>(&control) && control.Click ? QAccessible::Button : QAccessible::Graphic;
}

/// As by a key: what pops up stands below the image, and not at the pointer.
void pressImage(const QWidget& widget, Image& image)
{
    const auto form = image.form().shared_from_this();
    image.userMouseDown({mouse::kLeft, 0, 0, 0});
    if (!form->isLoaded())
        return;
    const QtBackend::PressedByKey byKey(widget);
    image.userMouseUp({mouse::kLeft, 0, 0, 0});
    if (form->isLoaded())
        image.userClick();
}

void press(const QWidget& widget)
{
    Control* control = spokenControl(&widget);
    if (!control || !control->enabled() || !isInReach(widget))
        return;
    if (auto* image = dynamic_cast<Image*>(control))
        pressImage(widget, *image);
    else
        control->userClick();
}

double valueOf(const Control& control)
{
    if (control.spokenValue)
        return control.spokenValue->get();
    const auto* slider = dynamic_cast<const Slider*>(&control);
    return slider ? static_cast<double>(slider->value()) : 0;
}

double leastOf(const Control& control)
{
    const auto* slider = control.spokenValue ? nullptr : dynamic_cast<const Slider*>(&control);
    return slider ? static_cast<double>(slider->minimum()) : 0;
}

double mostOf(const Control& control)
{
    if (control.spokenValue)
        return control.spokenValue->most();
    const auto* slider = dynamic_cast<const Slider*>(&control);
    return slider ? static_cast<double>(slider->maximum()) : 0;
}

double stepOf(const Control& control)
{
    const auto* slider = dynamic_cast<const Slider*>(&control);
    return slider ? static_cast<double>(slider->SmallChange) : 1;
}

void setValue(const QWidget& widget, double wanted)
{
    Control* control = spokenControl(&widget);
    // A client of the bus may ask for any number, and for what is none.
    if (!control || !control->enabled() || !isInReach(widget) || std::isnan(wanted))
        return;
    const double least = leastOf(*control);
    const double value = std::clamp(wanted, least, std::max(least, mostOf(*control)));
    if (control->spokenValue)
        control->spokenValue->set(value);
    else if (auto* slider = dynamic_cast<Slider*>(control))
        slider->userStep(value);
}

} // namespace

bool isInReach(const QWidget& widget)
{
    const auto lets = [&](const QWidget* before) { return !before || before->window() == widget.window(); };
    return widget.isVisible() && lets(QApplication::activeModalWidget()) && lets(QApplication::activePopupWidget());
}

Control* AccessibleControl::control() const { return spokenControl(object()); }

QAccessible::Role AccessibleControl::role() const { return control() ? roleOf(*control()) : QAccessible::Client; }

QString AccessibleControl::text(QAccessible::Text which) const
{
    const Control* shown = control();
    if (!shown)
        return {};
    const bool nameIsSpoken = captionOf(*shown).empty() && shown->toolTip().empty();
    switch (which) {
    case QAccessible::Name:
        return nameOf(*shown);
    case QAccessible::Description:
        return nameIsSpoken ? QString() : rendered(shown->spoken());
    case QAccessible::Accelerator:
        return rendered(shown->shortcut());
    default:
        return QAccessibleWidget::text(which);
    }
}

QAccessible::State AccessibleControl::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    if (const auto* box = dynamic_cast<const CheckBox*>(control())) {
        state.checkable = true;
        state.checked = box->value() != 0;
    }
    return state;
}

void* AccessibleControl::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ValueInterface && control() && hasValue(*control()))
        return static_cast<QAccessibleValueInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

QStringList AccessibleControl::actionNames() const
{
    QStringList names;
    if (const Control* shown = control(); shown && shown->enabled()) {
        const QAccessible::Role what = roleOf(*shown);
        if (what == QAccessible::Button)
            names << pressAction();
        else if (what == QAccessible::CheckBox)
            names << toggleAction() << pressAction();
        else if (what == QAccessible::Slider)
            names << increaseAction() << decreaseAction();
    }
    return names + QAccessibleWidget::actionNames();
}

void AccessibleControl::doAction(const QString& action)
{
    QWidget* shown = widget();
    if (!actionNames().contains(action))
        return;
    if (action == pressAction() || action == toggleAction())
        QTimer::singleShot(0, shown, [shown] { press(*shown); });
    else if (action == increaseAction())
        setCurrentValue(valueOf(*control()) + stepOf(*control()));
    else if (action == decreaseAction())
        setCurrentValue(valueOf(*control()) - stepOf(*control()));
    else
        QAccessibleWidget::doAction(action);
}

QVariant AccessibleControl::currentValue() const { return control() ? valueOf(*control()) : 0.0; }

void AccessibleControl::setCurrentValue(const QVariant& value)
{
    QTimer::singleShot(0, widget(), [shown = widget(), wanted = value.toDouble()] { setValue(*shown, wanted); });
}

QVariant AccessibleControl::minimumValue() const { return control() ? leastOf(*control()) : 0.0; }

QVariant AccessibleControl::maximumValue() const { return control() ? mostOf(*control()) : 0.0; }

QVariant AccessibleControl::minimumStepSize() const { return control() ? stepOf(*control()) : 0.0; }

} // namespace tandrel
