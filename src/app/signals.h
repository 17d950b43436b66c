/// Signals as events of the main loop, so that nothing runs inside a signal handler.
#pragma once

#include <QObject>

#include <functional>
#include <initializer_list>

namespace tandrel
{

/// Keeps these signals from their usual effect. Called before any thread is started, since threads inherit it.
void blockSignals(std::initializer_list<int> numbers);

/// Runs `act` for each arrival of one of the signals, which have to be blocked. The application object outlives it.
class SignalWatch : public QObject
{
public:
    SignalWatch(std::initializer_list<int> numbers, std::function<void()> act);
    ~SignalWatch() override;

private:
    int file_;
};

} // namespace tandrel
