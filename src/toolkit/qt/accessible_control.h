/// One control as assistive technology sees it.
#pragma once

#include <QAccessibleWidget>

namespace tandrel
{

class Control;

/// As for a hand: what isn't there, or lies behind a message or a menu, is out of reach.
bool isInReach(const QWidget& widget);

/// It looks its control up each time, as the widget may live a little longer. What it is asked to do is done when the
/// present event is over: a press may wait for a menu, and whoever asks waits for an answer.
class AccessibleControl : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit AccessibleControl(QWidget* widget) : QAccessibleWidget(widget) {}

    QAccessible::Role role() const override;
    QString text(QAccessible::Text which) const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override;
    void doAction(const QString& action) override;

    QVariant currentValue() const override;
    void setCurrentValue(const QVariant& value) override;
    QVariant minimumValue() const override;
    QVariant maximumValue() const override;
    QVariant minimumStepSize() const override;

private:
    Control* control() const;
};

} // namespace tandrel
