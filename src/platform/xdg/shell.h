/// The desktop's opener, and other programs.
#pragma once

#include "platform/services.h"

#include <functional>

namespace tandrel
{

class XdgShell : public Shell
{
public:
    /// `hasWindow` tells whether a process has put up a window; without it nobody waits for one.
    explicit XdgShell(std::function<bool(long process)> hasWindow = {}) : hasWindow_(std::move(hasWindow)) {}
    void open(const std::string& target) override;
    long run(const std::string& commandLine) override;

private:
    void waitForWindow(long process) const;

    std::function<bool(long process)> hasWindow_;
};

/// The words of a command line: separated by blanks, held together by double quotes, which are not part of them.
std::vector<std::string> commandWords(const std::string& commandLine);

} // namespace tandrel
