/// Services that answer what a test tells them and note what they were asked.
#pragma once

#include "fake_players.h"

#include "platform/pictures.h"
#include "platform/services.h"
#include "toolkit/backend.h"

#include <deque>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace tandrel::test
{

/// Notes every command string and answers by the text of the command.
class FakeMci : public Mci
{
public:
    int send(std::string_view command, std::span<char> answer = {}) override;
    bool idle() override
    {
        ++idles;
        return false;
    }
    void expect(const std::vector<std::string>& commands) override { expected.push_back(commands); }
    void prepare(const std::vector<std::string>& paths) override { prepared.push_back(paths); }
    void favour(std::string_view alias) override { favoured.emplace_back(alias); }
    int eased() const override { return easedVideos; }
    std::optional<DeviceLook> look(std::string_view alias) override
    {
        const auto found = looks.find(std::string(alias));
        return found == looks.end() ? std::nullopt : std::optional(found->second);
    }

    /// What `command` answers from now on.
    void answer(const std::string& command, const std::string& text, int result = 0);
    /// What `command` comes to from now on, without an answer.
    void fail(const std::string& command, int result) { answer(command, "", result); }
    /// Answers all commands that no own answer was given for.
    std::function<int(const std::string& command, std::string& text)> otherwise;

    const std::vector<std::string>& sent() const { return sent_; }
    void clear()
    {
        sent_.clear();
        buffers_.clear();
    }
    /// The room for the answer of each command sent.
    const std::vector<std::size_t>& buffers() const { return buffers_; }
    /// Takes each command as well, where it is set.
    std::vector<std::string>* journal = nullptr;
    /// Called at each command before it is answered.
    std::function<void(const std::string& command)> onSend;
    int idles = 0;
    /// What was named as the selected one, call by call.
    std::vector<std::string> favoured;
    int easedVideos = 0;
    /// How the devices stand that have one, by their aliases.
    std::map<std::string, DeviceLook> looks;
    /// What was announced, call by call.
    std::vector<std::vector<std::string>> expected;
    std::vector<std::vector<std::string>> prepared;

private:
    struct Reply {
        std::string text;
        int result;
    };
    std::map<std::string, Reply> answers_;
    std::vector<std::string> sent_;
    std::vector<std::size_t> buffers_;
};

class FakePointer : public Pointer
{
public:
    bool buttonDown(MouseButton button) override
    {
        // A click that is over is told once.
        if (button == MouseButton::Right && std::exchange(rightLatched, false))
            return true;
        return button == MouseButton::Left ? left : right;
    }
    bool spend(MouseButton) override { return aheadOfWindows; }
    bool controlDown() const override { return control; }
    bool pressOnItsWay() const override { return onItsWay; }
    PixelPoint position() const override { return place; }
    void moveTo(PixelPoint to) override
    {
        if (!stuck)
            place = confine ? confine(to) : to;
        moves.push_back(to);
    }
    void showCursor(bool on) override { shown = on; }
    bool left = false;
    bool right = false;
    bool rightLatched = false;
    bool aheadOfWindows = false;
    bool control = false;
    bool onItsWay = false;
    PixelPoint place;
    std::vector<PixelPoint> moves;
    bool shown = true;
    /// The system refuses to move the pointer.
    bool stuck = false;
    /// Where a move ends that leads beyond the monitors.
    std::function<PixelPoint(PixelPoint)> confine;
};

/// One monitor of 1920 by 1080 at the origin, until told otherwise. Handles are 1, 2, ...
class FakeMonitors : public MonitorSource
{
public:
    FakeMonitors() { set({{0, 0, 1920, 1080}}); }
    void set(const std::vector<PixelRect>& monitors);
    int metric(int index) const override;
    std::int32_t fromRect(const PixelRect& rect) const override;
    std::optional<std::int32_t> fromWindow(WindowHandle) const override { return windowMonitor; }
    std::optional<MonitorFacts> facts(std::int32_t handle) const override;

    std::vector<MonitorFacts> all;
    std::optional<std::int32_t> windowMonitor = 1;
    /// False: a system that knows nothing of several monitors.
    bool several = true;
};

class FakeScreenSaver : public ScreenSaver
{
public:
    void enable(bool on) override { switched.push_back(on); }
    void nudge() override { ++nudges; }
    std::vector<bool> switched;
    int nudges = 0;
};

/// Grants every combination that is not in `takenElsewhere`.
class FakeHotKeys : public HotKeys
{
public:
    bool take(int id, std::string_view combination) override
    {
        if (takenElsewhere.count(std::string(combination)) > 0)
            return false;
        taken[id] = combination;
        return true;
    }
    void releaseAll() override { taken.clear(); }
    bool holds(int id) const override { return taken.count(id) > 0; }
    std::map<int, std::string> taken;
    std::set<std::string> takenElsewhere;
};

class FakeSystemFacts : public SystemFacts
{
public:
    std::string version() const override { return numbers; }
    std::string systemFolder() const override { return folder; }
    std::string environment(const std::string& name) const override
    {
        const auto found = variables.find(name);
        return found == variables.end() ? "" : found->second;
    }
    std::map<std::string, std::string> variables;
    std::string folder = "/system";
    std::string numbers = "linux";
};

class FakeSettings : public SettingsStore
{
public:
    std::string get(std::string_view section, std::string_view key) const override;
    void save(std::string_view section, std::string_view key, std::string_view value) override;
    /// By "section/key".
    std::map<std::string, std::string> values;
    /// "section/key=value", in order.
    std::vector<std::string> saved;
};

class FakeKeyFile : public KeyFile
{
public:
    Content read() const override { return content; }
    void leave(const std::string& text) override { left.push_back(text); }
    std::string path() const override { return "/home/me/keys.ini"; }
    /// The user has written this.
    void holds(std::string text) { content = {State::There, std::move(text)}; }
    Content content;
    std::vector<std::string> left;
};

/// Files in memory. The data folder is "/data".
class FakeFiles : public Files
{
public:
    std::string dir(const std::string& path) const override;
    std::optional<std::vector<std::string>> readLines(const std::string& path) const override;
    bool writeLines(const std::string& path, const std::vector<std::string>& lines) override;
    bool remove(const std::string& path) override;
    std::string dataFolder() const override { return "/data"; }
    std::map<std::string, std::vector<std::string>> content;
    /// False: nothing can be written or removed.
    bool writable = true;
    /// False: nothing can be read, though it is there.
    bool readable = true;
    /// The files that were written, in order.
    std::vector<std::string> written;
};

class FakeInstances : public Instances
{
public:
    bool anotherIsRunning() const override { return another; }
    void exclusively(const std::function<void()>& task) override
    {
        ++turns;
        if (beforeTurn)
            std::exchange(beforeTurn, nullptr)();
        task();
    }
    void leave() override { gone = true; }
    bool another = false;
    bool gone = false;
    int turns = 0;
    /// What another process does before this one has its next turn.
    std::function<void()> beforeTurn;
};

class FakeShell : public Shell
{
public:
    void open(const std::string& target) override { opened.push_back(target); }
    long run(const std::string& commandLine) override
    {
        started.push_back(commandLine);
        if (whenStarted)
            whenStarted();
        return process;
    }
    std::vector<std::string> opened;
    std::vector<std::string> started;
    /// The process id of what is started; 0: nothing can be.
    long process = 4711;
    std::function<void()> whenStarted;
};

/// Windows of other programs, in the order of their handles.
class FakeDesktop : public Desktop
{
public:
    struct Window {
        long process = 0;
        WindowHandle parent = 0;
        std::optional<PixelRect> rect;
    };
    std::vector<WindowHandle> topWindows() const override;
    long processOf(WindowHandle window) const override;
    WindowHandle parentOf(WindowHandle window) const override;
    bool setParent(WindowHandle window, WindowHandle parent) override;
    std::optional<PixelRect> windowRect(WindowHandle window) const override;
    std::map<WindowHandle, Window> windows;
    /// Where our own windows stand.
    std::optional<PixelRect> ownRect;
    /// Each `setParent`: window and parent.
    std::vector<std::pair<WindowHandle, WindowHandle>> moved;
};

/// Notes what is written: "CLASSES key|name|value".
class FakeRegistry : public Registry
{
public:
    void set(std::int32_t root, std::string_view key, std::string_view name, std::string_view value) override;
    void settle() override { settledAt.push_back(written.size()); }
    std::vector<std::string> written;
    /// How much had been written each time that it was all.
    std::vector<std::size_t> settledAt;
};

/// Finds the files of a fake at once, but for those in `silent`.
class FakeFinder : public FileFinder
{
public:
    explicit FakeFinder(Files& files) : files_(files) {}
    void look(const std::vector<std::string>& paths) override { looked.push_back(paths); }
    void wait(int ms) override
    {
        waits.push_back(ms);
        if (whileWaiting)
            whileWaiting(ms);
    }
    std::optional<bool> found(const std::string& path) const override
    {
        if (silent.count(path) > 0)
            return std::nullopt;
        return !files_.dir(path).empty();
    }
    std::set<std::string> silent;
    std::vector<std::vector<std::string>> looked;
    std::vector<int> waits;
    std::function<void(int ms)> whileWaiting;

private:
    Files& files_;
};

class FakeStills : public Stills
{
public:
    void want(const std::vector<std::string>& paths) override { wanted.push_back(paths); }
    std::optional<Still> have(const std::string& path) const override
    {
        const auto found = made.find(path);
        return found == made.end() ? std::nullopt : std::optional(found->second);
    }
    std::vector<std::vector<std::string>> wanted;
    std::map<std::string, Still> made;
};

class FakePictures : public Pictures
{
public:
    struct Order {
        std::vector<PictureWish> wishes;
        bool sheet = false;
    };
    void save(const std::vector<PictureWish>& wishes, bool sheet) override { orders.push_back({wishes, sheet}); }
    std::optional<SavedPictures> done() override
    {
        if (results.empty())
            return {};
        SavedPictures first = results.front();
        results.erase(results.begin());
        return first;
    }
    std::vector<Order> orders;
    std::vector<SavedPictures> results;
};

class FakeClock : public Clock
{
public:
    int yearAndMonth() const override { return month; }
    int month = 202611;
};

/// A backend that notes message boxes and answers them. Forms stay unseen, unless `windows` is set: then each form and
/// control loaded from there on has a handle, and `journal` takes what happens to the windows.
class FakeBackend : public Backend
{
public:
    std::unique_ptr<FormView> makeView(Form& form) override;
    BoxAnswer messageBox(const Text& text, BoxStyle style, const Text& title) override;
    Menu* popUp(Menu& head) override;
    std::vector<Text> chooseFiles(const FileDialog& dialog) override;
    Bitmap picture(const Text& name, int width, int height) override;
    void setBoxTexts(const BoxTexts& texts) override { boxTexts = texts; }
    void beep() override { ++beeps; }
    void timerHastened(Timer& timer) override;
    void animate(int steps, int ms, const std::function<void(int step)>& draw) override
    {
        slides.push_back(ms);
        Backend::animate(steps, ms, draw);
    }
    void later(int ms, std::function<void()> task) override
    {
        if (holdsLater)
            waiting.push_back(std::move(task));
        else
            Backend::later(ms, std::move(task));
    }
    /// Their time has come.
    void runWaiting()
    {
        for (const auto& task : std::exchange(waiting, {}))
            task();
    }
    void quit() override { ++quits; }
    void mousePointerChanged(Integer shape) override
    {
        pointerShapes.push_back(shape);
        if (whenPointerChanges)
            whenPointerChanges();
    }

    struct Box {
        Text text;
        BoxStyle style;
        Text title;
    };
    std::vector<Box> boxes;
    BoxAnswer boxAnswer = BoxAnswer::Ok;
    /// What happens while a box is up.
    std::function<void()> whileBoxIsUp;
    /// The dialogs for files that came up, and what the user chooses in the next ones; without an entry they cancel.
    std::vector<FileDialog> dialogs;
    std::deque<std::vector<Text>> choices;
    /// What happens while such a dialog is up.
    std::function<void()> whileDialogIsUp;
    BoxTexts boxTexts;
    int beeps = 0;
    /// What the drawings of the skin look like; one that isn't here is all black.
    std::map<Text, Bitmap> pictures;
    /// What the user does in a modal form, by the form's name; the form is hidden behind it.
    std::map<Text, std::function<void(Form&)>> whileModal;
    void act(Form& form);
    /// The menus that popped up, and the entry that the user chooses in the next one; none closes it.
    std::vector<Text> menus;
    Text menuChoice;
    /// What happens while a menu is up.
    std::function<void()> whileMenuIsUp;
    /// What is to run later waits for `runWaiting`, and doesn't run at once.
    bool holdsLater = false;
    std::vector<std::function<void()>> waiting;
    int quits = 0;
    /// The timers whose ticks should not wait for their turn, "frmMedia.Timer2".
    std::vector<Text> hastened;
    /// How many ms each movement was given.
    std::vector<int> slides;
    std::vector<int> pointerShapes;
    /// Called at each change of the pointer.
    std::function<void()> whenPointerChanges;
    bool windows = false;
    /// "frmChild place 0,0 1920x1080", "frmChild show", "frmChild.picVideo place": form or control, and what it was
    /// told.
    std::vector<std::string>* journal = nullptr;
};

/// All fakes, installed from the making of this object to its end, with the program at its very start: no form loaded,
/// the shared state fresh, no command line.
class World
{
public:
    World();
    ~World();
    World(const World&) = delete;

    FakeMci mci;
    FakePointer pointer;
    FakeMonitors monitors;
    FakeScreenSaver screenSaver;
    FakeHotKeys hotKeys;
    FakeSystemFacts systemFacts;
    FakeSettings settings;
    FakeFiles files;
    FakeInstances instances;
    FakeShell shell;
    FakeClock clock;
    FakePlayers players;
    FakeDrives drives;
    FakeDesktop desktop;
    FakeRegistry registry;
    FakeFinder finder{files};
    FakeStills stills;
    FakePictures pictures;
    FakeKeyFile keyFile;
    FakeBackend backend;
    /// Command strings, and with `backend.windows` what happens to windows, in one order.
    std::vector<std::string> journal;

    /// Media that play: every "Where", "status ... length" and "status ... position" of any alias answers these.
    void mediaAnswer(int width, int height, int lengthMs, int positionMs = 0);
    /// Settings of a user who has been here before: nothing asks anything.
    void settled();
};

} // namespace tandrel::test
