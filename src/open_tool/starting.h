/// The start of a player by `tandrel-open`.
#pragma once

#include <string>
#include <vector>

namespace tandrel::open_tool
{

/// While this lives no other `tandrel-open` of the data folder decides who gets its files.
class Decision
{
public:
    /// `runtimeFolder` is that of the processes' locks. Waits for another one's end, for 2 s at most.
    explicit Decision(const std::string& runtimeFolder);
    ~Decision();
    Decision(const Decision&) = delete;

    /// This process becomes the player, which lies in `folder` or is looked for as commands are. The decision lasts
    /// until others can see that a player runs. Comes back only where there is no player to be started.
    void becomePlayer(const std::string& folder, const std::vector<std::string>& arguments);

private:
    void outlast() const;

    std::string runtimeFolder_;
    int file_;
};

} // namespace tandrel::open_tool
