/// A console that commands of other programs arrive at.
#pragma once

#include "other_media_bench.h"

#include "console/remote_control.h"
#include "fake_controls.h"

namespace tandrel::test
{

using namespace std::chrono_literals;

class ConsoleRemote : public OtherMediaConsole
{
protected:
    /// The selected film is the last one; all of them stand at 20 s of 60.
    void playFiles(int count, const Text& mode = "0")
    {
        play(count, mode);
        for (int index = 0; index < count; ++index)
            world.mci.looks[alias(index)] = {.playing = true, .ended = false, .place = 20, .length = 60};
        Playing = true;
    }
    DeviceLook& lookOf(int index) { return world.mci.looks[alias(index)]; }
    void give(RemoteCommand::Kind kind, std::chrono::microseconds time = 0us) { give({.kind = kind, .time = time}); }
    void give(const RemoteCommand& command)
    {
        world.mci.clear();
        remote.carryOut(command);
    }
    void givePlace(std::chrono::microseconds place, std::uint64_t medium)
    {
        give({.kind = RemoteCommand::Kind::SetPosition, .time = place, .medium = medium});
    }

    RemoteControl remote;
};

} // namespace tandrel::test
