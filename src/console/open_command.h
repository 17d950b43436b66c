/// What all commands that open something have in common.
#pragma once

#include "toolkit/text.h"

#include <vector>

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

/// Stands for the time in which a batch of files is opened. The media service reads them ahead, and its notice shows
/// that the program lives while one of them keeps it waiting.
class OpenAhead
{
public:
    explicit OpenAhead(const std::vector<Text>& paths);
    ~OpenAhead();
    OpenAhead(const OpenAhead&) = delete;
    OpenAhead& operator=(const OpenAhead&) = delete;
};

} // namespace tandrel
