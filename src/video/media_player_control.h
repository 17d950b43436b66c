/// The object model of the media player control: an HD file or a disc in a window of its own.
///
/// Where there is no medium, every member that would act on one, or tell of one, raises run-time error 91.
#pragma once

#include "toolkit/property.h"
#include "toolkit/text.h"
#include "toolkit/types.h"

namespace tandrel
{

/// What plays the medium.
class PlayerControls
{
public:
    virtual ~PlayerControls() = default;
    virtual void play() = 0;
    virtual void pause() = 0;
    virtual void stop() = 0;
    /// At five times the speed.
    virtual void fastForward() = 0;
    virtual void fastReverse() = 0;
    virtual double currentPosition() const = 0;
    virtual void setCurrentPosition(double seconds) = 0;
    /// "MM:SS", and from an hour on "HH:MM:SS"; empty while the medium is being opened, or can't be.
    virtual Text currentPositionString() const = 0;
    /// It is held, or has come to its end.
    virtual bool standsStill() const = 0;
};

class PlayerSettings
{
public:
    virtual ~PlayerSettings() = default;
    /// 0 to 100.
    virtual int volume() const = 0;
    virtual void setVolume(int level) = 0;
};

/// The medium that is played.
class PlayerMedia
{
public:
    virtual ~PlayerMedia() = default;
    /// As `currentPositionString`; "00:00" while the length is not known.
    virtual Text durationString() const = 0;
    /// The same in seconds; 0 while it is not known.
    virtual double duration() const = 0;
    /// "Title" is the title that the medium has by its own word, else its file's name. Others are empty.
    virtual Text getItemInfo(const Text& name) const = 0;
};

/// What is special about discs.
class PlayerDvd
{
public:
    virtual ~PlayerDvd() = default;
    /// The root menu.
    virtual void topMenu() = 0;
    /// From a menu back to the film; plays on.
    virtual void resume() = 0;
    /// Within the title that plays.
    virtual void nextChapter() = 0;
    virtual void previousChapter() = 0;
};

/// A drive as it is now.
class Cdrom
{
public:
    virtual ~Cdrom() = default;
    /// "D:".
    virtual Text driveSpecifier() const = 0;
    /// Of its play list: "IsDeviceBusy" is "False" where the drive holds a disc and is ready, else "True".
    virtual Text getItemInfo(const Text& name) = 0;
    virtual void eject() = 0;
};

class CdromCollection
{
public:
    virtual ~CdromCollection() = default;
    /// Looks for drives anew.
    virtual Long count() = 0;
    /// Of those that `count` has found, from 0 on; another index raises run-time error 9. It is good until the next
    /// call.
    virtual Cdrom& item(Long index) = 0;
};

class MediaPlayerControl
{
public:
    virtual ~MediaPlayerControl() = default;

    virtual Text url() const = 0;
    virtual void setUrl(Text url) = 0;
    virtual bool isFullScreen() const = 0;
    virtual void setFullScreen(bool on) = 0;
    virtual Text mode() const = 0;
    virtual void setMode(Text mode) = 0;

    /// The medium: a marked path, or "wmpdvd://" and the letter of a drive. Writing one starts it, the same one anew;
    /// an empty text leaves none.
    Property<MediaPlayerControl, Text, &MediaPlayerControl::url, &MediaPlayerControl::setUrl> URL{*this};
    /// The control's own way of filling the screen. Raises where there is no medium to show.
    Property<MediaPlayerControl, bool, &MediaPlayerControl::isFullScreen, &MediaPlayerControl::setFullScreen>
        fullScreen{*this};
    /// "full": it has a bar of its own at its lower edge; "none": it has none.
    Property<MediaPlayerControl, Text, &MediaPlayerControl::mode, &MediaPlayerControl::setMode> uiMode{*this};
    /// Lets go of the medium; `URL` is empty afterwards.
    virtual void close() = 0;

    virtual PlayerControls& controls() = 0;
    virtual PlayerSettings& settings() = 0;
    virtual PlayerMedia& currentMedia() = 0;
    virtual PlayerDvd& dvd() = 0;
    virtual CdromCollection& cdromCollection() = 0;
};

/// What a disc's address begins with.
inline constexpr const char* kDiscScheme = "wmpdvd://";

} // namespace tandrel
