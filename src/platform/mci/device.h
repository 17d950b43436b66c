/// One open device of the media service: what its commands mean, over an engine's device.
#pragma once

#include "platform/mci/engine.h"

#include <chrono>
#include <memory>
#include <optional>
#include <string_view>

namespace tandrel
{

enum class TimeFormat { Milliseconds, Frames };

/// Every operation answers 0 or the number of an error. Positions are whole numbers in the time format of the device.
class Device
{
public:
    using Moment = std::chrono::steady_clock::time_point;

    explicit Device(std::unique_ptr<MediaDevice> media);

    /// Marks the device as to be started; `start` does it. A `pause` before that leaves no trace.
    void play(Moment now);
    int playFrom(double place, Moment now);
    void pause();
    int seek(double place, Moment now);
    int step(StepDirection direction);
    /// Its place will be asked for next.
    void expectQuestion() { media_->prepareRead(); }
    /// Does a step that will be asked for next; that one then finds it done.
    void stepAhead(StepDirection direction);

    /// Starts what `play` has marked.
    void start();
    bool waitsForStartSince(Moment latest) const { return startWanted_ && *startWanted_ <= latest; }
    /// Places the picture. The first place, its native size unless told otherwise, is only marked until `show`.
    void put(const PixelRect& place);
    void show();
    void showPlace();

    /// With `afterSeeks`, a seek under way is waited for. Without it a device at rest answers the place it is on its
    /// way to, for as long as anybody would wait.
    int position(bool afterSeeks, Moment now, double& answer);
    double length();
    /// For who only looks on. Waits for no move.
    DeviceLook lookOn();
    std::string_view mode();
    void setFormat(TimeFormat format) { format_ = format; }

    /// Waits for seeks and steps under way.
    bool settle() { return settleInTime(); }
    /// None is under way. Never blocks.
    bool ready() { return media_->ready(); }
    void makeReadyToPlay() { media_->makeReadyToPlay(); }
    void setVolume(double volume) { media_->setVolume(volume); }
    const MediaFacts& facts() const { return media_->facts(); }
    MediaReading read() { return media_->read(); }
    FrameCounts counts() { return media_->counts(); }
    void beginClose() { media_->beginClose(); }
    const MediaDevice& media() const { return *media_; }

private:
    enum class Mode { Stopped, Playing, Paused };

    /// A place that was asked for. It is what `position` answers as long as the picture that it brought is shown.
    struct AskedPlace {
        bool end = false;
        double value = 0;
        TimeFormat format = TimeFormat::Milliseconds;
        /// The time of the picture, once it is known.
        std::optional<double> shown;
        /// When it was asked for.
        Moment since;
    };

    double unitsPerSecond() const { return unitsPerSecond(format_); }
    double unitsPerSecond(TimeFormat format) const;
    std::optional<double> knownLength() const;
    double placeOf(double seconds) const;
    double belowLength(double place) const;
    bool atEnd() const { return asked_ && asked_->end; }

    /// At rest, and `place` is what it would answer for its position.
    bool standsAt(double place);
    void stopRunning();
    bool seekIsUnderWay(Moment now);
    int beginStep(StepDirection direction);
    void goTo(double place, Moment now);
    /// Looks whether a running device has come to its end by itself. The reading is the newest.
    MediaReading look();
    void noteEnd(double seconds);
    /// Waits, and drops the asked place if its picture has gone. False if the engine was not done in time.
    bool settleAtRest();
    bool settleInTime();

    std::unique_ptr<MediaDevice> media_;
    TimeFormat format_ = TimeFormat::Milliseconds;
    Mode mode_ = Mode::Stopped;
    bool running_ = false;
    /// A pause came while the device ran: it may have reached the end before.
    bool mayHaveEnded_ = false;
    /// A step has been asked for and not been waited for.
    bool stepped_ = false;
    /// A step has been done ahead of its command, with this result.
    struct Ahead {
        StepDirection direction;
        int result;
    };
    std::optional<Ahead> ahead_;
    std::optional<Moment> startWanted_;
    std::optional<PixelRect> placeWanted_;
    /// A move under way has been waited for in vain.
    bool late_ = false;
    std::optional<AskedPlace> asked_;
    /// Where the end was found in a medium that does not tell its length.
    std::optional<double> foundLength_;
};

} // namespace tandrel
