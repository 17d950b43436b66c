#include "toolkit/qt/errand.h"

#include <QMetaObject>

#include <mutex>
#include <thread>

namespace tandrel
{

struct Errand::Post {
    std::mutex lock;
    QObject* receiver;
};

Errand::~Errand() { forget(); }

void Errand::forget()
{
    if (!post_)
        return;
    const std::scoped_lock held(post_->lock);
    post_->receiver = nullptr;
}

void Errand::run(std::function<Then()> work)
{
    forget();
    post_ = std::make_shared<Post>();
    post_->receiver = &receiver_;
    std::thread([post = post_, work = std::move(work)] {
        const Then then = work();
        const std::scoped_lock held(post->lock);
        if (!post->receiver)
            return;
        const auto deliver = [post, then] {
            // This is the thread that forgets; it may have done so since the post.
            if (post->receiver)
                then();
        };
        QMetaObject::invokeMethod(post->receiver, deliver, Qt::QueuedConnection);
    }).detach();
}

} // namespace tandrel
