/// The selected video as other programs of the desktop see and command it.
#pragma once

#include "platform/media_remote.h"
#include "platform/services.h"
#include "toolkit/text.h"
#include "toolkit/types.h"

#include <memory>
#include <vector>

namespace tandrel
{

class Form;
class frmChild;

/// What their commands mean for each kind of medium. Selected is what the console's own commands go to: a file video,
/// an HD film or a disc. No medium is asked for anything that would have to be waited for.
class RemoteControl
{
public:
    /// For commands of a user, who sees what stands at its end. Others are told that it goes on for a moment, in which
    /// most of them begin again or hand over.
    static RemoteControl atHand();

    /// What there is to see now. Looked at a few times a second.
    RemoteState state();

    /// A command would come in the middle of nothing else that the program does.
    static bool mayCarryOut();
    /// All but `Raise` and `Quit`. One that makes no sense now does nothing.
    void carryOut(const RemoteCommand& command);

    /// Opens the files among those asked for that have been found by now. True while some are still looked for: whoever
    /// calls does so again, about every 100 ms.
    bool openFound();

    /// Brings what fills the screen to the front, or else the console. False: a command is in the way.
    static bool raise();

private:
    void readFile(RemoteState& state);
    void readPlayer(RemoteState& state);
    void readDisc(RemoteState& state);
    bool goesOnAfterEnd(const DeviceLook& look);
    /// How a medium stands whose id and place are known.
    RemoteState::Playback playbackOf(const RemoteState& state, bool plays) const;
    std::uint64_t idOf(Form& window, const Text& medium);

    void play();
    void pause();
    void stop();
    void next(int direction);
    void seek(std::chrono::microseconds offset);
    void setPosition(std::uint64_t medium, std::chrono::microseconds place);
    void moveTo(const RemoteState& now, std::chrono::microseconds place);
    void setVolume(double level);
    void lookFor(const std::string& path);

    /// An opening of a medium that has been seen.
    struct Known {
        std::weak_ptr<Form> window;
        Text medium;
        std::uint64_t id;
    };
    /// A file that is looked for, by its marked path.
    struct Wanted {
        Text path;
        int looksLeft;
    };

    std::vector<Known> known_;
    std::uint64_t lastId_ = 0;
    unsigned moves_ = 0;
    /// The medium that was stopped last. As long as it stands at its beginning it is more than held.
    std::uint64_t stopped_ = 0;
    /// How often the selected video has been seen at its end, one look after the other.
    int looksAtEnd_ = 0;
    std::vector<Wanted> wanted_;
};

} // namespace tandrel
