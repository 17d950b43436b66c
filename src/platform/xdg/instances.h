/// The live processes of one data folder, told by locks that end with their process.
#pragma once

#include "platform/services.h"

#include <vector>

namespace tandrel
{

class LockInstances : public Instances
{
public:
    /// Takes this process's own lock in `folder`. Where that fails, no other process sees this one.
    explicit LockInstances(std::string folder);
    ~LockInstances() override;
    LockInstances(const LockInstances&) = delete;
    bool anotherIsRunning() const override;
    void exclusively(const std::function<void()>& task) override;
    void leave() override;

private:
    void takeOwn();

    std::string folder_;
    std::string ownName_;
    /// Locks that were there before the own one.
    std::vector<std::string> earlier_;
    int own_ = -1;
};

/// The processes whose locks are in `folder`, for somebody who is none of them.
std::vector<long> liveInstances(const std::string& folder);
/// Runs `task` while none of these processes runs one `exclusively`.
void amongInstances(const std::string& folder, const std::function<void()>& task);

} // namespace tandrel
