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
/// moment until it has been asked for, so that a click shorter than a poll is seen, and so are both presses of a double
/// click that is hardly longer. The cursor is hidden by the X Fixes extension (version 4), on the whole screen and for
/// as long as this connection lasts; without it, over our own windows. Needs the application object.
class X11Pointer : public QObject, public Pointer
{
public:
    X11Pointer();
    ~X11Pointer() override;
    bool buttonDown(MouseButton button) override;
    bool spend(MouseButton button) override;
    bool controlDown() const override;
    bool pressOnItsWay() const override;
    PixelPoint position() const override;
    void moveTo(PixelPoint place) override;
    void showCursor(bool on) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// What is known of a button beside the server's mask.
    struct Button {
        /// Since the last press that nobody has asked for yet.
        QElapsedTimer pressed;
        /// Since the mask has shown a press that none of the windows had been told of.
        QElapsedTimer foreseen;
        /// Somebody has acted on that one.
        bool spentForeseen = false;
        /// Between a press and its release, as the windows are told.
        bool held = false;
        /// The last answer was that it is down.
        bool toldDown = false;
        /// It has been let go since.
        bool letGo = false;
        /// It went down anew before anybody was told that it was up: the next answer says that it is.
        bool upIsDue = false;
    };
    void notePress(MouseButton pressed);
    void noteRelease(MouseButton released);
    bool latched(Button& state) const;

    std::map<MouseButton, Button> buttons_;
    RawPresses raw_;
    bool speaksFixes_ = false;
    bool hidden_ = false;
};

} // namespace tandrel
