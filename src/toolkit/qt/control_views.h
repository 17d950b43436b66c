/// The widgets of controls.
#pragma once

#include "toolkit/control.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace tandrel
{

class FormWidget;

/// The view that fits the kind of the control. Its widget is a child of the window or of the container's widget, has
/// the control's name as object name and its tip as accessible name.
std::unique_ptr<ControlView> makeControlView(Control& control, FormWidget& window);

/// What all views do: geometry, visibility, tips, and the mouse. Kinds add how they show their own aspects.
class WidgetView : public QObject, public ControlView
{
public:
    WidgetView(Control& control, FormWidget& window, QWidget* widget);
    ~WidgetView() override;
    void changed(Aspect aspect) override;
    WindowHandle handle() const override;
    PixelRect rect() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    /// Shows `aspect`, one that only this kind of control knows.
    virtual void show(Aspect aspect);
    /// True where the widget's own behaviour must still see the mouse.
    virtual bool widgetNeedsMouse() const { return false; }

    Control& control_;
    FormWidget& window_;
    QPointer<QWidget> widget_;

private:
    void place();
    void reportMouse(QEvent* event);
};

} // namespace tandrel
