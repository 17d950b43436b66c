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
    bool isLive(const std::string& name) const;

    std::string folder_;
    std::string ownName_;
    /// Locks that were there before the own one.
    std::vector<std::string> earlier_;
    int own_ = -1;
};

} // namespace tandrel
