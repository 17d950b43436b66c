/// The pointer of the X display.
#pragma once

#include "platform/services.h"
#include "platform/x11/raw_presses.h"

#include <QElapsedTimer>
#include <QObject>

#include <map>

namespace tandrel
{

/// Asks the server for the true button mask, also outside of our windows. A press in one of our windows is kept for a
/// moment until it has been asked for, so that a click shorter than a poll is seen. Needs the application object.
class X11Pointer : public QObject, public Pointer
{
public:
    X11Pointer();
    bool buttonDown(MouseButton button) override;
    bool pressOnItsWay() const override;
    PixelPoint position() const override;
    void moveTo(PixelPoint place) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::map<MouseButton, QElapsedTimer> pressed_;
    RawPresses raw_;
};

} // namespace tandrel
