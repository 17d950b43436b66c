/// What becomes of videos that are more than the machine can decode: which of them are made cheaper, how far, and when
/// they get everything back. Rules only; `load_keeper.h` measures and carries out.
#pragma once

#include <chrono>
#include <map>
#include <optional>
#include <vector>

namespace tandrel
{

/// How much of a video is decoded. Each is cheaper than the one before.
enum class Ease {
    Full,
    /// Edges of blocks are not smoothed in pictures that no other one is made from, and where the decoder can, pictures
    /// are decoded no larger than they are shown: hardly to be seen.
    Simplified,
    /// Those pictures are left out: half of them in most files.
    HalfRate,
    /// All pictures that are made from later ones are left out: a quarter or so is shown.
    LowRate,
    /// Key pictures only, one in some seconds.
    KeyPictures
};

/// One video as it stands now.
struct LoadSample {
    /// The same as long as the video is open.
    int id = 0;
    Ease ease = Ease::Full;
    /// Of the file: pictures a second by pixels of a picture.
    double pixelRate = 0;
    /// On the screen, in pixels.
    long area = 0;
    bool covered = false;
    /// The one that commands go to.
    bool favoured = false;
    /// How fast its pictures run against its own time; unknown while there is too little to tell.
    std::optional<double> pace = {};
    /// Pictures that were decoded and not shown, as a share of all.
    double dropped = 0;
    /// Leaving pictures out makes it no cheaper: each is needed by the next.
    bool needsAll = false;
    /// How far its pictures are behind their time. Seconds.
    double lag = 0;
    /// Pictures that are decoded of each second, as a share of all that the file has.
    std::optional<double> pictureShare = {};
};

struct LoadOrder {
    int id = 0;
    Ease ease = Ease::Full;
    /// A piece is left out, up to the next key picture.
    bool catchUp = false;
};

class LoadRules
{
public:
    using Moment = std::chrono::steady_clock::time_point;

    /// What is to change now. `running` has all videos that play, `idle` is the share of the processors that nobody
    /// uses, `lateTicks` says that the program itself comes late.
    std::vector<LoadOrder> judge(Moment now, const std::vector<LoadSample>& running, double idle, bool lateTicks);

private:
    struct Known {
        /// As in the sample, or found out.
        bool needsAll = false;
        /// When a piece was left out last.
        std::optional<Moment> caughtUp = {};
    };
    struct Target {
        const LoadSample* sample;
        Ease ease;
    };

    void noteThose(const std::vector<LoadSample>& running, Moment now);
    double costOf(const LoadSample& sample, Ease ease) const;
    double costOf(const std::vector<Target>& targets) const;
    /// The next that costs less than `ease`, no further than `lowest`; `ease` itself where there is none.
    Ease cheaper(const LoadSample& sample, Ease ease, Ease lowest) const;
    static std::vector<LoadOrder> uncover(const std::vector<LoadSample>& running);
    std::vector<LoadOrder> lower(Moment now, const std::vector<LoadSample>& running, double pace);
    std::vector<LoadOrder> raise(Moment now, const std::vector<LoadSample>& running, double idle);
    std::vector<LoadOrder> catchUp(Moment now, const std::vector<LoadSample>& running);
    void punishRaise(Moment now);

    std::map<int, Known> known_;
    /// How many looks in a row have found the videos late.
    int lateLooks_ = 0;
    /// Before this nothing is judged: what has just been changed has yet to show.
    Moment settled_{};
    /// The last raise that no lowering has followed; none at the beginning of time.
    Moment raisedAt_{};
    /// Before this nothing is raised.
    Moment raiseAllowed_{};
    std::chrono::seconds patience_{10};
};

} // namespace tandrel
