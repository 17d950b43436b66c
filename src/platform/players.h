/// Players of one medium each, in a native window: an HD file, or a disc. The rules of the program stand elsewhere
/// (video/player_box.h, video/disc_box.h); these only play.
///
/// Everything is called on the user-interface thread, and nothing here waits for the medium: a command is under way
/// when its call returns, and what is read is what was last heard of it. Commands that make no sense at the moment do
/// nothing. Paths are marked (platform/path_marks.h); pixels are logical ones; times are seconds.
#pragma once

#include "platform/services.h"

#include <memory>
#include <string>
#include <vector>

namespace tandrel
{

/// Why a medium doesn't play.
enum class MediaTrouble {
    None,
    /// Missing, unreadable, or nothing that can be played.
    NotPlayable,
    /// It can be read, but what it is coded in is not installed.
    CodecMissing,
    /// Its content is encrypted, and what decrypts it is not installed.
    Encrypted
};

/// A sound or a subtitle of a medium that can be chosen.
struct MediaTrack {
    enum class Kind { Audio, Subtitle };
    Kind kind = Kind::Audio;
    /// As the player counts those of a kind; below 0 it is the entry that stands for none of them.
    int id = -1;
    /// What the user can tell it by: its title, language and coding. UTF-8.
    std::string name;
    bool chosen = false;
    friend bool operator==(const MediaTrack&, const MediaTrack&) = default;
};

/// What players of all kinds have in common. Its end ends the medium and all of its windows; that has to come before
/// the end of the window that it is shown in.
class MediumPlayer
{
public:
    virtual ~MediumPlayer() = default;

    /// The picture is drawn at `place` of `parent`, as large as it fits there with its proportions, on black. An empty
    /// place hides it. Another parent takes the picture over while it plays. The window takes no input: pointer and
    /// keys reach those below it.
    virtual void showIn(WindowHandle parent, const PixelRect& place) = 0;

    /// Takes in what has happened meanwhile; called every 50 ms at most, and before what is read matters.
    virtual void follow() = 0;

    /// The medium is there: it plays, is held or has ended. False while it is being opened, and after a failure.
    virtual bool isLoaded() const = 0;
    /// Nothing is there and nothing is on its way, or it has failed.
    virtual bool isIdle() const = 0;
    virtual MediaTrouble trouble() const = 0;
    /// It has come to its end, and stands there.
    virtual bool hasEnded() const = 0;
    virtual bool isPaused() const = 0;

    /// Goes on at the common rate; after the end, from the beginning.
    virtual void play() = 0;
    virtual void pause() = 0;
    /// How fast time goes by: 1, or so many times forwards (5) or backwards (-5), without sound. At the beginning and
    /// at the end the rate is 1 again.
    virtual void setRate(double rate) = 0;
    virtual double rate() const = 0;
    /// Held or running, as before; within the medium. Of several that follow each other fast the last counts.
    virtual void seek(double seconds) = 0;
    /// 0 to 100.
    virtual void setVolume(int level) = 0;
    /// Nothing is there afterwards.
    virtual void close() = 0;

    /// The place of the picture on the screen, at most 100 ms beside it, and never falling while it runs forwards. A
    /// place that has been asked for counts from that moment.
    virtual double position() const = 0;
    /// 0 while it is not known.
    virtual double duration() const = 0;

    /// What can be chosen, sounds first; an entry for "none" is among the subtitles where there are any.
    virtual std::vector<MediaTrack> tracks() const = 0;
    virtual void chooseTrack(MediaTrack::Kind kind, int id) = 0;
};

/// A file of any kind that one player plays alone.
class FilePlayer : public MediumPlayer
{
public:
    /// Opens and plays the file.
    virtual void open(const std::string& path) = 0;
    /// What the file says of itself; empty if it has no title. UTF-8.
    virtual std::string title() const = 0;
};

/// What moves in the menus of a disc.
enum class MenuKey { Left, Right, Up, Down, Enter };

/// A disc, an image of one, or a folder with the files of one.
class DiscPlayer : public MediumPlayer
{
public:
    /// Opens and plays the disc as it begins by itself, with its menu first where it has one.
    virtual void open(const std::string& path) = 0;

    /// A menu is on the screen. The place and the length are those of the film all the same.
    virtual bool isInMenu() const = 0;
    /// To the root menu; the place in the film is kept for `resume`. Plays on a held disc.
    virtual void showRootMenu() = 0;
    /// From a menu to the kept place of the film, or to its beginning; otherwise it goes on playing.
    virtual void resume() = 0;
    /// Within the title that plays; at its edges, and in a menu, nothing happens. Plays on a held disc.
    virtual void nextChapter() = 0;
    virtual void previousChapter() = 0;
    /// The title that plays, from 1 on; 0 in a menu.
    virtual int title() const = 0;
    virtual void playTitle(int title) = 0;
    /// Counted from 1; 0 where there are none.
    virtual int chapter() const = 0;
    virtual int chapterCount() const = 0;
    /// Pictures a second, 25 or 30000/1001 on a disc; 0 while not known.
    virtual double frameRate() const = 0;
    /// The captions for the deaf may be shown where the disc has them.
    virtual void allowCaptions(bool on) = 0;

    /// In a menu. Places are logical pixels of the window that the picture is shown in.
    virtual void menuKey(MenuKey key) = 0;
    virtual void pointerAt(PixelPoint place) = 0;
    virtual void pointerPressed(PixelPoint place) = 0;
};

/// Makes players.
class Players
{
public:
    virtual ~Players() = default;
    virtual std::unique_ptr<FilePlayer> filePlayer() = 0;
    virtual std::unique_ptr<DiscPlayer> discPlayer() = 0;
};

/// What a disc says of itself before it is played.
struct DiscFacts {
    struct Title {
        double seconds = 0;
        int chapters = 0;
        /// Pictures a second.
        double frameRate = 0;
        /// Where the chapters begin, in seconds; the first one at 0. May lack the last ones, where they can't be told.
        std::vector<double> chapterMarks;
        friend bool operator==(const Title&, const Title&) = default;
    };
    /// None: no video disc.
    std::vector<Title> titles;
    /// The name of the volume; of a folder, its name. UTF-8.
    std::string label;
    /// Its content is scrambled, and what would decrypt it is not installed.
    bool encrypted = false;
};

/// The drives for discs: those of the machine, volumes of discs that are mounted, and images and folders that stand in
/// for discs. Letters go from D on; a drive keeps its letter as long as the program runs.
class DiscDrives
{
public:
    virtual ~DiscDrives() = default;
    /// Looks again for drives that have come or gone.
    virtual int count() = 0;
    /// Of a drive below the last `count`: "D:".
    virtual std::string driveSpecifier(int index) const = 0;
    /// It holds a disc and can be read now. 2 s at most.
    virtual bool isReady(int index) = 0;
    /// The name of the disc's volume; empty where there is none to be read. 2 s at most.
    virtual std::string volumeLabel(int index) = 0;
    /// Opens the tray, as far as there is one; returns at once.
    virtual void eject(int index) = 0;
    /// What to open for the drive with this letter: the path of a device, an image or a folder. Empty for no drive.
    virtual std::string pathOf(char letter) const = 0;
    /// An image or a folder becomes a drive, which `count` counts from now on; its letter, or 0 where all are taken.
    /// The same path has the same letter again.
    virtual char insert(const std::string& path) = 0;
    /// Looks at a disc without playing it. 2 s at most; a disc that takes longer has no titles.
    virtual DiscFacts look(const std::string& path) = 0;
};

} // namespace tandrel
