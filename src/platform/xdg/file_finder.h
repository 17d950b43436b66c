/// Looks for files on threads that nobody waits for.
#pragma once

#include "platform/services.h"

#include <functional>
#include <memory>

namespace tandrel
{

/// A thread that nobody answers is left behind; there are 256 at most, two for each folder, and those without work end
/// after a while.
class ThreadedFinder : public FileFinder
{
public:
    /// `isThere` is asked on any thread, and may take for ever; without it the system is asked.
    explicit ThreadedFinder(std::function<bool(const std::string& path)> isThere = {});
    ~ThreadedFinder() override;
    ThreadedFinder(const ThreadedFinder&) = delete;
    void look(const std::vector<std::string>& paths) override;
    void wait(int ms) override;
    std::optional<bool> found(const std::string& path) const override;

private:
    struct State;
    bool begin();
    static void work(const std::shared_ptr<State>& state);

    std::shared_ptr<State> state_;
};

} // namespace tandrel
