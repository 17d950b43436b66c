/// Work that processes do one after the other.
#pragma once

namespace tandrel
{

/// From its making to its end no other process has a turn on the same file or folder. Turns are short; only a process
/// that was stopped in its own keeps others waiting, and they go on after a while. A crash ends a turn.
class Turn
{
public:
    /// Takes an open descriptor, which it closes. Where that is none, or can't be locked, the work goes on all the
    /// same.
    explicit Turn(int descriptor);
    ~Turn();
    Turn(const Turn&) = delete;

private:
    int descriptor_;
};

} // namespace tandrel
