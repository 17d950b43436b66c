/// Work that may take as long as it likes.
#pragma once

#include <QObject>

#include <functional>
#include <memory>

namespace tandrel
{

/// Runs one piece of work at a time on a thread that nobody waits for, not even the end of the program.
class Errand
{
public:
    using Then = std::function<void()>;

    Errand() = default;
    ~Errand();
    Errand(const Errand&) = delete;
    Errand& operator=(const Errand&) = delete;

    /// What `work` returns is called from the event loop, unless other work has begun, or this object ended, before.
    /// The work shares nothing with its caller.
    void run(std::function<Then()> work);
    void forget();

private:
    struct Post;

    QObject receiver_;
    std::shared_ptr<Post> post_;
};

} // namespace tandrel
