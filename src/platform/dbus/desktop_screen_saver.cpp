#include "platform/dbus/desktop_screen_saver.h"

#include <QMetaObject>

#include <functional>
#include <mutex>
#include <utility>

namespace tandrel
{

/// The way to the thread of a receiver, until it is closed.
class DesktopScreenSaver::Post
{
public:
    explicit Post(QObject& receiver) : receiver_(&receiver) {}

    void send(std::function<void()> task)
    {
        const std::lock_guard lock(mutex_);
        if (receiver_)
            QMetaObject::invokeMethod(receiver_, std::move(task), Qt::QueuedConnection);
    }

    void close()
    {
        const std::lock_guard lock(mutex_);
        receiver_ = nullptr;
    }

private:
    std::mutex mutex_;
    QObject* receiver_;
};

DesktopScreenSaver::DesktopScreenSaver(std::unique_ptr<IdleBus> bus, ScreenSaver& fallback)
    : fallback_(fallback),
      post_(std::make_shared<Post>(receiver_)),
      hold_(std::move(bus),
            [post = post_, &fallback](bool held) { post->send([&fallback, held] { fallback.enable(!held); }); })
{
}

DesktopScreenSaver::~DesktopScreenSaver()
{
    // What the other thread has sent, and may still send, does not arrive any more: its last word is said here.
    post_->close();
    fallback_.enable(true);
}

void DesktopScreenSaver::enable(bool on) { hold_.want(!on); }

void DesktopScreenSaver::nudge()
{
    fallback_.nudge();
    hold_.signOfLife();
}

} // namespace tandrel
