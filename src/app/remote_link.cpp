#include "app/remote_link.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "platform/x11/foreground.h"
#include "toolkit/activation.h"
#include "toolkit/program.h"

#include <QApplication>
#include <QWidget>

#include <utility>

namespace tandrel
{

namespace
{

// How soon a program that is busy is asked again, and how often it is looked at.
constexpr int kAgainMs = 100;
constexpr int kLookMs = 250;

/// What waits for the user has its caller in the middle of its work.
bool userIsAsked() { return QApplication::activeModalWidget() || QApplication::activePopupWidget(); }

} // namespace

RemoteLink::RemoteLink(MediaRemote& remote, std::function<void()> end) : remote_(remote), end_(std::move(end))
{
    again_.setSingleShot(true);
    look_.setInterval(kLookMs);
    connect(&again_, &QTimer::timeout, this, [this] { answer(); });
    connect(&look_, &QTimer::timeout, this, [this] { look(); });
    remote_.called = [this] { called(); };
    called();
}

RemoteLink::~RemoteLink() { remote_.called = nullptr; }

void RemoteLink::called()
{
    if (remote_.isHeard() != look_.isActive())
        remote_.isHeard() ? look_.start() : look_.stop();
    // What draws a movement lets what other threads have sent come in between, but no timer.
    again_.start(0);
}

void RemoteLink::answer()
{
    answerUrgent();
    if (programEnded() || working_)
        return;
    working_ = true;
    bool waits = false;
    while (!programEnded()) {
        waits = userIsAsked() || !RemoteControl::mayCarryOut();
        const auto command = waits ? std::nullopt : remote_.take();
        if (!command)
            break;
        control_.carryOut(*command);
    }
    const bool looksForFiles = !waits && control_.openFound();
    working_ = false;
    if (waits || looksForFiles || raising_)
        again_.start(kAgainMs);
    look();
}

void RemoteLink::answerUrgent()
{
    while (const auto command = remote_.takeUrgent()) {
        if (command->kind == RemoteCommand::Kind::Quit)
            return end_();
        raising_ = true;
    }
    if (raising_ && bringUp())
        raising_ = false;
}

bool RemoteLink::bringUp()
{
    if (QWidget* box = QApplication::activeModalWidget()) {
        box->raise();
        askForForeground(static_cast<WindowHandle>(box->winId()));
        return true;
    }
    // Inside another command an activation would come in the middle of its work.
    if (QApplication::activePopupWidget() || working_ || !RemoteControl::raise())
        return false;
    if (const Form* form = activeForm())
        askForForeground(form->hWnd());
    return true;
}

void RemoteLink::look()
{
    if (remote_.isHeard() && !programEnded())
        remote_.publish(control_.state());
}

} // namespace tandrel
