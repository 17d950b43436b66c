#include "app/signals.h"

#include <QSocketNotifier>

#include <csignal>
#include <sys/signalfd.h>
#include <unistd.h>

namespace tandrel
{

namespace
{

sigset_t setOf(std::initializer_list<int> numbers)
{
    sigset_t set;
    sigemptyset(&set);
    for (const int signal : numbers)
        sigaddset(&set, signal);
    return set;
}

} // namespace

void blockSignals(std::initializer_list<int> numbers)
{
    const sigset_t set = setOf(numbers);
    pthread_sigmask(SIG_BLOCK, &set, nullptr);
}

SignalWatch::SignalWatch(std::initializer_list<int> numbers, std::function<void()> act)
{
    const sigset_t set = setOf(numbers);
    file_ = ::signalfd(-1, &set, SFD_CLOEXEC | SFD_NONBLOCK);
    auto* notifier = new QSocketNotifier(file_, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this, act = std::move(act)] {
        signalfd_siginfo taken{};
        if (::read(file_, &taken, sizeof taken) == sizeof taken)
            act();
    });
}

SignalWatch::~SignalWatch() { ::close(file_); }

} // namespace tandrel
