/// What the tests with an application object and a display share.
#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

#include <utility>

namespace tandrel
{

/// Handles events until the condition holds. False if it does not in a long time.
template <class Condition>
bool comesTrue(Condition condition)
{
    // What comes from another thread or program need not be an event: it is looked for every few milliseconds.
    QTimer look;
    look.start(5);
    const QDeadlineTimer deadline(60000);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

/// The other programs that this test program can be, by its first argument: one that holds the screen saver off until
/// it is killed, and one that does so until it is told to leave.
constexpr const char* kHoldForever = "--hold";
constexpr const char* kHoldAndLeave = "--hold-and-leave";
int holdForever();
int holdAndLeave();

} // namespace tandrel
