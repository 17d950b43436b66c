/// What all commands that open something have in common.
#pragma once

namespace tandrel
{

class frmMedia;

/// Stands for the time that such a command takes: the pointer is the hourglass, which is the busy flag. On every way
/// out the selection is used up and the pointer is the plain one again.
class OpenCommand
{
public:
    explicit OpenCommand(class frmMedia& console);
    ~OpenCommand();
    OpenCommand(const OpenCommand&) = delete;
    OpenCommand& operator=(const OpenCommand&) = delete;

private:
    class frmMedia& console_;
};

} // namespace tandrel
