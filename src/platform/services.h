/// What the program asks of the system it runs on, as small interfaces. Implementations stand in the folders beside
/// this file, fakes in tests/support. All of them are called on the user-interface thread only.
///
/// Texts are byte strings. Paths are bytes in which the marks `"`, `|`, CR and LF have been mapped
/// (platform/path_marks.h). Pixels are logical pixels, with the origin at the top left of the desktop: implementations
/// alone know device pixels.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tandrel
{

/// A native window, as the window system counts them; 0 is no window.
using WindowHandle = std::uint32_t;

struct PixelPoint {
    int x = 0;
    int y = 0;
    friend bool operator==(const PixelPoint&, const PixelPoint&) = default;
};

/// Right and bottom are the first pixels outside.
struct PixelRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    int width() const { return right - left; }
    int height() const { return bottom - top; }
    bool contains(PixelPoint at) const { return at.x >= left && at.x < right && at.y >= top && at.y < bottom; }
    friend bool operator==(const PixelRect&, const PixelRect&) = default;
};

/// How a device of the media service stands. Seconds.
struct DeviceLook {
    /// It runs, or is about to.
    bool playing = false;
    /// It has come to its end by itself, or was sent there.
    bool ended = false;
    /// Where it is, or is on its way to.
    double place = 0;
    /// Empty where nobody knows.
    std::optional<double> length;
};

/// The media control service: devices named by an alias, driven by command strings.
class Mci
{
public:
    virtual ~Mci() = default;

    /// Carries out one command string. Returns 0, or the number of the error. The answer, if any, goes into `answer`
    /// with its terminating NUL, cut to fit; with an empty `answer` the command runs all the same.
    /// Blocks as long as the medium needs, for 5 s at most in an open and 2 s in anything else; then the result is 276.
    virtual int send(std::string_view command, std::span<char> answer = {}) = 0;

    /// The caller has nothing more to say for now and is about to wait for events. A "play" is held back until here,
    /// so that a "pause" right behind it shows no further frame, and so that the plays of a group start together, once
    /// all of them stand where they are to start; and so is the first place of a picture. True: some still wait, and
    /// want to be asked again within a few ms.
    virtual bool idle() = 0;

    /// A promise: each of these commands ("Pause A", "step A" and "step A reverse") will be sent in this order, and
    /// before any other that moves its device. So all devices can be on their way before any is waited for. The same
    /// goes for questions ("status A position"). Others are ignored here.
    virtual void expect(const std::vector<std::string>&) {}

    /// These files, by their marked paths, are about to be opened in windows: they are read ahead, all at once, and out
    /// of sight. An empty list lets go of those that have not been opened.
    virtual void prepare(const std::vector<std::string>&) {}

    /// The user has selected this device, by its alias. Where the machine can't show all videos in full, it is the last
    /// to give something.
    virtual void favour(std::string_view) {}
    /// How many videos are shown with less than their files have, because all of it would be too much for the machine.
    virtual int eased() const { return 0; }

    /// How the device of an alias stands, without a command: nothing is waited for, and none of its settings changes.
    /// Nothing where there is no such device.
    virtual std::optional<DeviceLook> look(std::string_view) { return std::nullopt; }

    /// Runs about every 50 ms while a command blocks, so that something on the screen can show that the program lives.
    /// It sends no command.
    std::function<void()> whileWaiting;
};

enum class MouseButton { Left = 1, Right = 2 };

/// The pointer and its buttons, of the whole desktop. Never blocks.
class Pointer
{
public:
    virtual ~Pointer() = default;
    /// True while the button is down, or was pressed since the last question: a click between two polls is not lost.
    virtual bool buttonDown(MouseButton button) = 0;
    /// The press that was told of last has been acted on: should the windows be told of it later, that is no new one.
    /// True if they have yet to be.
    virtual bool spend(MouseButton button) = 0;
    /// The control key is held.
    virtual bool controlDown() const = 0;
    /// A button went down a moment ago, and no window of ours has been told yet: one may be about to be.
    virtual bool pressOnItsWay() const = 0;
    virtual PixelPoint position() const = 0;
    /// Where the system refuses the move, the pointer stays; `position` tells.
    virtual void moveTo(PixelPoint place) = 0;
    /// The picture of the pointer, on the whole desktop where the system can do that. It comes back with the end of the
    /// process at the latest.
    virtual void showCursor(bool on) = 0;
};

struct MonitorFacts {
    std::int32_t handle = 0;
    PixelRect bounds;
    PixelRect work;
};

/// The monitors of the desktop.
class MonitorSource
{
public:
    virtual ~MonitorSource() = default;
    /// A number of the desktop as the system counts its metrics: 76 left, 77 top, 78 width, 79 height of the rectangle
    /// around all monitors in pixels, 80 the count of monitors (0: this system knows nothing of several monitors).
    virtual int metric(int index) const = 0;
    /// The monitor that holds most of the rectangle, or 0 where it touches none.
    virtual std::int32_t fromRect(const PixelRect& rect) const = 0;
    /// The monitor that holds most of the window, or 0. Empty where the system can't tell.
    virtual std::optional<std::int32_t> fromWindow(WindowHandle window) const = 0;
    /// Empty for a handle that is no monitor.
    virtual std::optional<MonitorFacts> facts(std::int32_t handle) const = 0;
    /// Runs on the user-interface thread when a monitor has come, gone or changed its place or size.
    std::function<void()> changed;
};

/// The screen saver and the idle power saving of the desktop.
class ScreenSaver
{
public:
    virtual ~ScreenSaver() = default;
    /// False holds the screen saver off until true, or until the process ends. Never waits for anybody's answer.
    virtual void enable(bool on) = 0;
    /// Counts as a sign of life from the user, without a key that another program could read.
    virtual void nudge() = 0;
};

/// Key combinations of the whole desktop, whichever program has the focus.
class HotKeys
{
public:
    virtual ~HotKeys() = default;
    /// Takes a combination, such as "Ctrl+Alt+Shift+P" (modifiers, and one letter, digit or function key), for `id`.
    /// False where another program has it, or where there is none such; it is left alone then.
    virtual bool take(int id, std::string_view combination) = 0;
    virtual void releaseAll() = 0;
    /// The combination of `id` is ours at this moment: a new layout of the keyboard may have given its place to others.
    virtual bool holds(int id) const = 0;
    /// Runs on the user-interface thread at each press of a combination that was taken, once until its release.
    std::function<void(int id)> pressed;
};

/// What system this is.
class SystemFacts
{
public:
    virtual ~SystemFacts() = default;
    /// "platform.major.minor", or a text that no table knows.
    virtual std::string version() const = 0;
    /// The folder of the programs that come with the system and start others, without a closing separator.
    virtual std::string systemFolder() const = 0;
    /// A variable of the environment; empty where it isn't set.
    virtual std::string environment(const std::string& name) const = 0;
};

/// Settings of the user: texts by section and key. A value that was never saved is empty.
class SettingsStore
{
public:
    virtual ~SettingsStore() = default;
    virtual std::string get(std::string_view section, std::string_view key) const = 0;
    /// Ignored where the store can't be written.
    virtual void save(std::string_view section, std::string_view key, std::string_view value) = 0;
};

/// The text file in which the user says which keys do what. It is read and never written over.
class KeyFile
{
public:
    virtual ~KeyFile() = default;
    enum class State { Missing, There, Unreadable, TooLong };
    struct Content {
        State state = State::Missing;
        /// Bytes, as they stand there.
        std::string text;
    };
    static constexpr std::size_t kMostBytes = 65536;
    virtual Content read() const = 0;
    /// Leaves this one where there is none, if that can be done.
    virtual void leave(const std::string& text) = 0;
    /// Its real path.
    virtual std::string path() const = 0;
};

/// Files by path.
class Files
{
public:
    virtual ~Files() = default;
    /// The bare name of the file if it is there (a directory does not count), else empty.
    virtual std::string dir(const std::string& path) const = 0;
    /// The lines of a text file without their ends (CR LF, LF, or none behind the last). Empty if it can't be read.
    virtual std::optional<std::vector<std::string>> readLines(const std::string& path) const = 0;
    /// Replaces the file as a whole, lines ending in CR LF. False, with the old file untouched, if that fails.
    virtual bool writeLines(const std::string& path, const std::vector<std::string>& lines) = 0;
    /// True if the file is gone afterwards.
    virtual bool remove(const std::string& path) = 0;
    /// The folder of the data files (`App.Path`), without a closing separator.
    virtual std::string dataFolder() const = 0;
};

/// The other processes of this program.
class Instances
{
public:
    virtual ~Instances() = default;
    /// True if another process, started before this one, works on the same data folder and lives. Of processes that
    /// start together one comes first.
    virtual bool anotherIsRunning() const = 0;
    /// Runs `task` while no other process does the same.
    virtual void exclusively(const std::function<void()>& task) = 0;
    /// From here on this process counts as gone.
    virtual void leave() = 0;
};

/// Starts other programs.
class Shell
{
public:
    virtual ~Shell() = default;
    /// Hands a file or an address to the desktop's opener; the outcome is not known.
    virtual void open(const std::string& target) = 0;
    /// Starts the program at the front of a command line, whose words are separated by blanks; double quotes hold words
    /// together. A path at the front may have blanks without quotes: the shortest that names a program counts. Waits
    /// for its first window, but no longer than a second. Returns its process id, 0 where it can't be started.
    virtual long run(const std::string& commandLine) = 0;
};

/// The windows of all programs of the desktop. Rectangles are pixels of the desktop.
class Desktop
{
public:
    virtual ~Desktop() = default;
    /// The windows that programs have put up, in the window manager's order; where none runs, in that of the screen.
    virtual std::vector<WindowHandle> topWindows() const = 0;
    /// The process that owns the window, 0 where it can't be told.
    virtual long processOf(WindowHandle window) const = 0;
    /// The window that it stands in or belongs to, 0 for none.
    virtual WindowHandle parentOf(WindowHandle window) const = 0;
    /// Puts a window of another program into one of ours, as far from its corner as it was from the desktop's, or with
    /// parent 0 back onto the desktop where it is. False where there is no such window.
    virtual bool setParent(WindowHandle window, WindowHandle parent) = 0;
    /// The window with its frame. One that was put into another has left its frame behind and counts as having
    /// `kLostFrame` instead.
    virtual std::optional<PixelRect> windowRect(WindowHandle window) const = 0;
    /// The frame of a window that was put into another: how far its picture is from its upper left corner.
    static constexpr PixelPoint kLostFrame{4, 30};
};

/// Looks for files that may lie where nobody answers, such as a mount whose server is gone.
class FileFinder
{
public:
    virtual ~FileFinder() = default;
    /// Begins to look for these files by their marked paths, all at once, on threads that nobody waits for. A path that
    /// is being looked for already is not asked again.
    virtual void look(const std::vector<std::string>& paths) = 0;
    /// Waits until those of the last look have answered, so many ms at most.
    virtual void wait(int ms) = 0;
    /// Whether a file of data is there (no directory, pipe or device), by the newest answer; nothing before the first.
    /// While a path is being looked for there is no answer either.
    virtual std::optional<bool> found(const std::string& path) const = 0;
};

/// A small picture out of a video.
struct Still {
    int width = 0;
    int height = 0;
    /// 0xRRGGBB, row by row from the top; empty where the file has no picture that can be shown.
    std::vector<std::uint32_t> pixels;
    std::optional<std::int64_t> lengthMs;
};

/// Makes such pictures in the background, and keeps them for the next time.
class Stills
{
public:
    virtual ~Stills() = default;
    /// The pictures of these files, by their marked paths, are wanted, in this order; what was wanted before and isn't
    /// begun is not wanted any more.
    virtual void want(const std::vector<std::string>& paths) = 0;
    /// Nothing as long as it isn't made, or where the file can't be read.
    virtual std::optional<Still> have(const std::string& path) const = 0;
};

class Clock
{
public:
    virtual ~Clock() = default;
    /// The present month as year * 100 + month.
    virtual int yearAndMonth() const = 0;
};

/// The registry of file classes: makes this program known for its types of file.
class Registry
{
public:
    virtual ~Registry() = default;
    /// The predefined keys that others stand under.
    static constexpr std::int32_t kClasses = -2147483647 - 1;
    static constexpr std::int32_t kMachine = -2147483646;
    /// Writes one text value of a key, whose parts are separated by backslashes; an empty name is the key's own value.
    /// Whether that worked is not known.
    virtual void set(std::int32_t root, std::string_view key, std::string_view name, std::string_view value) = 0;
    /// These were all values of this start: whoever collects them can make something of them now. Waits for nobody.
    virtual void settle() {}
};

class Players;
class DiscDrives;
class Pictures;

/// The services of a running program. All are set before the first form loads and outlive the last.
struct Services {
    Mci* mci = nullptr;
    Pointer* pointer = nullptr;
    MonitorSource* monitors = nullptr;
    ScreenSaver* screenSaver = nullptr;
    HotKeys* hotKeys = nullptr;
    SystemFacts* systemFacts = nullptr;
    SettingsStore* settings = nullptr;
    Files* files = nullptr;
    Instances* instances = nullptr;
    Shell* shell = nullptr;
    Clock* clock = nullptr;
    Players* players = nullptr;
    DiscDrives* drives = nullptr;
    Desktop* desktop = nullptr;
    Registry* registry = nullptr;
    FileFinder* finder = nullptr;
    Stills* stills = nullptr;
    Pictures* pictures = nullptr;
    KeyFile* keyFile = nullptr;
};

/// The services that `installServices` has set.
const Services& services();
void installServices(const Services& services);

} // namespace tandrel
