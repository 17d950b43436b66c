/// A window that another program takes into one of its own.
#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>

class QWidget;

namespace tandrel
{

/// Inside another window no window manager gives this one the keyboard: it takes it when it is pressed. When the window
/// it stands in goes, and this one with it, the program ends. The window manager that it was taken from puts it out of
/// sight: it comes up again. Does nothing on platforms other than X11.
class Embedding : public QObject, public QAbstractNativeEventFilter
{
public:
    /// The window has to be there already, and outlives this.
    explicit Embedding(QWidget& window);
    ~Embedding() override;

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// Comes into sight inside another window.
    void comeUp();

    QWidget& window_;
    bool looks_ = false;
};

} // namespace tandrel
