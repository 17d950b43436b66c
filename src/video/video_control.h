/// The object model of the video control: a disc in a window of its own, on older systems.
#pragma once

#include "toolkit/text.h"
#include "toolkit/types.h"

#include <vector>

namespace tandrel
{

/// The menus of a disc, as the control counts them.
namespace disc_menu
{
inline constexpr int kRoot = 3;
} // namespace disc_menu

/// What the control can show beside the picture.
struct VideoFeature {
    Text ClassID;
    Text Name;
};

/// The captions for the deaf.
inline constexpr const char* kClosedCaptioning = "{7F9CB14D-48E4-43B6-9346-1AEBC39C64D3}";

/// What the settings of a disc are made through.
class WebDvdAdmin
{
public:
    virtual ~WebDvdAdmin() = default;
};

/// The disc in a built graph. Every member raises an error where it can't be done.
class WebDvd
{
public:
    virtual ~WebDvd() = default;
    virtual WebDvdAdmin& DVDAdm() = 0;
    virtual Long TitlesAvailable() const = 0;
    virtual void PlayNextChapter() = 0;
    virtual void PlayPrevChapter() = 0;
    /// One of `disc_menu`.
    virtual void ShowMenu(int menu) = 0;
    /// "HH:MM:SS:FF", the last being frames; while it plays it never falls.
    virtual Text CurrentTime() const = 0;
    virtual Text TotalTitleTime() const = 0;
    /// "HH:MM:SS".
    virtual void PlayAtTime(const Text& time) = 0;
    /// The sound and the subtitles that the disc began with.
    virtual void RestorePreferredSettings() = 0;
};

class VideoControl
{
public:
    virtual ~VideoControl() = default;
    /// "DVD:" is the first drive that holds a video disc; with a path behind it, the disc there.
    virtual void View(const Text& what) = 0;
    virtual std::vector<VideoFeature> FeaturesAvailable() const = 0;
    virtual void setFeaturesActive(const std::vector<VideoFeature>& features) = 0;
    /// Opens what is viewed, unless it is open as it was.
    virtual void Build() = 0;
    /// Raises run-time error 91 before `Build`, and where it has found no disc.
    virtual WebDvd& InputActive() = 0;
    virtual void Run() = 0;
    virtual void Pause() = 0;
    virtual void Stop() = 0;
    /// It is held, or has come to its end.
    virtual bool standsStill() const = 0;
    /// The colour behind the picture: red, then green, then blue from the lowest byte on.
    virtual void setColorKey(Long colour) = 0;
    virtual Long ColorKey() const = 0;
};

} // namespace tandrel
