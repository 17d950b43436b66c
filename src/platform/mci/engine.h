/// What the media service needs of a playback engine: devices that show one file each. Times are seconds from the first
/// frame of the medium. All calls come from one thread.
///
/// Play, pause, seek and step are requests: they are on their way when the call returns, and `settle` waits for them.
/// So a caller can get twelve devices going before it waits for the first.
#pragma once

#include "platform/services.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tandrel
{

/// What is known of a medium from the moment it is open. It never changes afterwards.
struct MediaFacts {
    /// Seconds; empty where the file does not tell.
    std::optional<double> length;
    /// Frames a second; 0 without a picture.
    double frameRate = 0;
    /// Display size in pixels, the aspect ratio applied; 0 by 0 without a picture.
    int width = 0;
    int height = 0;
};

/// Where a device stands.
struct MediaReading {
    /// The time of the frame that is shown; of the sound where there is no picture.
    double seconds = 0;
    /// Everything there is has been played.
    bool ended = false;
};

/// What a device has done with its frames since the open.
struct FrameCounts {
    long shown = 0;
    long dropped = 0;
    /// How far it is made cheaper now: 0, not at all; 4, only its key pictures are decoded.
    int eased = 0;
    /// Of the pictures as they are decoded now, in pixels; 0 before the first.
    int width = 0;
};

enum class StepDirection { Forward, Backward };

/// One open file. It is at rest on its first frame after the open, and has no place on the screen. The destructor frees
/// everything the device holds, and blocks until that is done, for 2 s at most.
class MediaDevice
{
public:
    virtual ~MediaDevice() = default;

    virtual const MediaFacts& facts() const = 0;

    /// Runs on from where it stands; also after a seek of a running device that had come to its end unseen. Blocks only
    /// where a step of this device is still under way, or a move away from its end.
    virtual void play() = 0;
    /// Holds the picture. Never blocks.
    virtual void pause() = 0;
    /// Shows the last frame that is not later than `seconds`, the first frame if all are. Whether the device runs stays
    /// as it is. A later seek takes the place of an earlier one that is still under way.
    virtual void seek(double seconds) = 0;
    /// Shows the last frame.
    virtual void seekToEnd() = 0;
    /// One frame on or back, at rest; stays where there is none. Only after `settle`, and not while running.
    virtual void step(StepDirection direction) = 0;

    /// Waits until what was asked of this device is done. False if that was not so within 2 s.
    virtual bool settle() = 0;
    /// What was asked of this device is done. Never blocks.
    virtual bool ready() = 0;
    /// A play is to come, together with others': whatever has to be done before it begins now, and the device is not
    /// ready until that is done. Never blocks.
    virtual void makeReadyToPlay() {}
    /// Of a settled device at rest: exactly the frame shown. Of a running one: where it should
    /// be by the newest news of it. Blocks only where those are old, for 50 ms at most.
    virtual MediaReading read() = 0;

    /// `read` comes soon: what it has to hear from elsewhere is asked for now. Never blocks.
    virtual void prepareRead() {}

    /// For reports to a person. May block for the time of a frame.
    virtual FrameCounts counts() { return {}; }

    /// 0 silent, 1 full. No effect on a medium without sound.
    virtual void setVolume(double volume) = 0;
    /// Places the picture inside its parent, in logical pixels; an empty rectangle hides it.
    virtual void put(const PixelRect& place) = 0;

    /// Starts what the destructor does and returns at once; no other call may follow.
    virtual void beginClose() = 0;
};

enum class OpenFailure { None, NoFile, NotPlayable, TimedOut, NoWindow };

struct OpenResult {
    OpenFailure failure = OpenFailure::None;
    /// Set if there is no failure.
    std::unique_ptr<MediaDevice> device;
};

class MediaEngine
{
public:
    virtual ~MediaEngine() = default;

    /// Opens a file, by its marked path, inside a window or without a picture. Blocks for 5 s at most. After a failure
    /// nothing is left behind.
    virtual OpenResult open(const std::string& path, std::optional<WindowHandle> parent) = 0;

    /// Begins to open these files, to be shown in windows that are not there yet; `open` takes them over. Never blocks.
    /// An empty list lets go of the rest.
    virtual void prepare(const std::vector<std::string>&) {}

    /// Called whenever the program is about to wait for events: an engine that has to look after its devices does so
    /// then, and never blocks.
    virtual void tend() {}
    /// Commands go to this device for now; null: to none. Where not all can have everything it is the last to give.
    virtual void favour(const MediaDevice*) {}
    /// How many running devices show less than they could, because all of it would be too much for the machine.
    virtual int eased() const { return 0; }

    /// Runs now and then, on the thread of all calls, while one of them blocks.
    std::function<void()> whileWaiting;
};

} // namespace tandrel
