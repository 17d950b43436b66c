/// The way from another thread to that of an object.
#pragma once

#include <QMetaObject>
#include <QObject>

#include <functional>
#include <mutex>
#include <utility>

namespace tandrel
{

/// Open until it is closed, which the receiver's own thread does before the receiver goes: what is sent afterwards, and
/// what has not arrived by then, does not arrive.
class Post
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

} // namespace tandrel
