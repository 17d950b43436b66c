/// What assistive technology is told of controls that draw themselves, of windows and of menus.
#pragma once

class QObject;
class QWidget;

namespace tandrel
{

class Control;

/// From here on Qt asks these rules first. Called behind the application object; further calls change nothing.
void installAccessible();

/// The widget shows this control until `forgetSpoken`. Whoever asks later finds a widget without a meaning.
void speakFor(const QWidget& widget, Control& control);
void forgetSpoken(const QWidget& widget);
/// Null where the widget shows no control.
Control* spokenControl(const QObject* widget);

/// The value of the widget's slider is another one now.
void tellSpokenValue(QWidget& widget);

} // namespace tandrel
