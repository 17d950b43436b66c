/// Presses of mouse buttons as the X server sees them, before any window is told.
#pragma once

#include <QAbstractNativeEventFilter>
#include <QElapsedTimer>

namespace tandrel
{

/// A window manager that holds a click back, to give its window the focus first, does not hold back these (X Input
/// Extension protocol, version 2.1, raw events). So a press is known here before the focus that it brought. Where the
/// server lacks the extension nothing is ever seen. Needs the application object.
class RawPresses : public QAbstractNativeEventFilter
{
public:
    RawPresses();
    ~RawPresses() override;
    RawPresses(const RawPresses&) = delete;
    RawPresses& operator=(const RawPresses&) = delete;

    /// A press was made in the last second and has not been delivered to a window of ours.
    bool undelivered() const;
    /// A window of ours has been told of the latest press.
    void delivered();

    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

private:
    int opcode_ = -1;
    QElapsedTimer since_;
};

} // namespace tandrel
