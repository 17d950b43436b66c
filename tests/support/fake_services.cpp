#include "fake_services.h"

#include "console/command_line.h"
#include "console/holders.h"
#include "desktop/monitors.h"
#include "media/console_face.h"
#include "media/shared_state.h"
#include "toolkit/activation.h"
#include "toolkit/form.h"
#include "toolkit/menu.h"
#include "toolkit/press.h"
#include "toolkit/program.h"
#include "toolkit/screen.h"
#include "toolkit/timer.h"

#include <algorithm>

namespace tandrel::test
{

int FakeMci::send(std::string_view command, std::span<char> answer)
{
    const std::string text(command);
    sent_.push_back(text);
    buffers_.push_back(answer.size());
    if (journal)
        journal->push_back(text);
    if (onSend)
        onSend(text);
    Reply reply{"", 0};
    if (const auto found = answers_.find(text); found != answers_.end())
        reply = found->second;
    else if (otherwise)
        reply.result = otherwise(text, reply.text);
    if (!answer.empty()) {
        const std::size_t size = std::min(reply.text.size(), answer.size() - 1);
        std::copy_n(reply.text.begin(), size, answer.begin());
        answer[size] = '\0';
    }
    return reply.result;
}

void FakeMci::answer(const std::string& command, const std::string& text, int result)
{
    answers_[command] = {text, result};
}

void FakeMonitors::set(const std::vector<PixelRect>& monitors)
{
    all.clear();
    for (const PixelRect& bounds : monitors)
        all.push_back({static_cast<std::int32_t>(all.size()) + 1, bounds, bounds});
}

int FakeMonitors::metric(int index) const
{
    if (!several)
        return 0;
    PixelRect desktop = all.empty() ? PixelRect{} : all.front().bounds;
    for (const MonitorFacts& one : all) {
        desktop.left = std::min(desktop.left, one.bounds.left);
        desktop.top = std::min(desktop.top, one.bounds.top);
        desktop.right = std::max(desktop.right, one.bounds.right);
        desktop.bottom = std::max(desktop.bottom, one.bounds.bottom);
    }
    switch (index) {
    case 76:
        return desktop.left;
    case 77:
        return desktop.top;
    case 78:
        return desktop.width();
    case 79:
        return desktop.height();
    case 80:
        return static_cast<int>(all.size());
    default:
        return 0;
    }
}

std::int32_t FakeMonitors::fromRect(const PixelRect& rect) const
{
    for (const MonitorFacts& one : all)
        if (rect.left < one.bounds.right && rect.right > one.bounds.left && rect.top < one.bounds.bottom &&
            rect.bottom > one.bounds.top)
            return one.handle;
    return 0;
}

std::optional<MonitorFacts> FakeMonitors::facts(std::int32_t handle) const
{
    for (const MonitorFacts& one : all)
        if (one.handle == handle)
            return one;
    return std::nullopt;
}

std::string FakeSettings::get(std::string_view section, std::string_view key) const
{
    const auto found = values.find(std::string(section) + "/" + std::string(key));
    return found == values.end() ? "" : found->second;
}

void FakeSettings::save(std::string_view section, std::string_view key, std::string_view value)
{
    const std::string name = std::string(section) + "/" + std::string(key);
    values[name] = value;
    saved.push_back(name + "=" + std::string(value));
}

std::string FakeFiles::dir(const std::string& path) const
{
    return content.contains(path) ? path.substr(path.rfind('/') + 1) : "";
}

std::optional<std::vector<std::string>> FakeFiles::readLines(const std::string& path) const
{
    const auto found = content.find(path);
    if (found == content.end() || !readable)
        return std::nullopt;
    return found->second;
}

bool FakeFiles::writeLines(const std::string& path, const std::vector<std::string>& lines)
{
    if (writable) {
        content[path] = lines;
        written.push_back(path);
    }
    return writable;
}

bool FakeFiles::remove(const std::string& path)
{
    if (writable)
        content.erase(path);
    return writable;
}

namespace
{

/// Handles of windows, each given once.
WindowHandle nextHandle()
{
    static WindowHandle last = 1000;
    return ++last;
}

void note(std::vector<std::string>* journal, const std::string& what)
{
    if (journal)
        journal->push_back(what);
}

class FakeControlView : public ControlView
{
public:
    FakeControlView(const Control& control, std::vector<std::string>* journal) : control_(control), journal_(journal) {}
    void changed(Aspect aspect) override
    {
        const std::string name = control_.form().name() + "." + control_.name();
        if (aspect == Aspect::Order)
            note(journal_, name + " front");
        else if (aspect == Aspect::Repaint)
            note(journal_, name + " repaint");
        else if (aspect == Aspect::Visible)
            note(journal_, name + (control_.visible() ? " shown" : " hidden"));
        else if (aspect == Aspect::Border)
            note(journal_, name + " border " + std::to_string(control_.borderStyle()));
    }
    WindowHandle handle() const override { return handle_; }
    PixelRect rect() const override
    {
        const PixelRect form = control_.form().pixelRect();
        const int left = form.left + pixelsX(control_.left());
        const int top = form.top + pixelsY(control_.top());
        return {left, top, left + pixelsX(control_.width()), top + pixelsY(control_.height())};
    }

private:
    const Control& control_;
    std::vector<std::string>* journal_;
    WindowHandle handle_ = nextHandle();
};

class FakeFormView : public FormView
{
public:
    FakeFormView(Form& form, FakeBackend& backend) : form_(form), backend_(backend), journal_(backend.journal) {}
    std::unique_ptr<ControlView> addControl(Control& control) override
    {
        return std::make_unique<FakeControlView>(control, journal_);
    }
    void place(const PixelRect& rect) override
    {
        say("place " + std::to_string(rect.left) + "," + std::to_string(rect.top) + " " + std::to_string(rect.width()) +
            "x" + std::to_string(rect.height()));
    }
    void show() override { say("show"); }
    void hide() override { say("hide"); }
    void raise() override { say("raise"); }
    void activate() override { say("activate"); }
    void repaint() override { say("repaint"); }
    void minimise() override { say("minimise"); }
    void restore() override { say("restore"); }
    void captionChanged() override {}
    void frameChanged() override
    {
        say(std::string("frame ") + (form_.hasTitleBar() ? "titled" : "untitled") +
            (form_.hasBorder() ? " bordered" : " borderless"));
    }
    void setModal(bool) override {}
    void setTransientFor(Form* owner) override
    {
        if (owner != nullptr)
            say("before " + owner->name());
    }
    void setFullScreen(bool on) override { say(on ? "full screen" : "windowed"); }
    void setOpacity(int alpha) override { say("opacity " + std::to_string(alpha)); }
    void setRegion(const Region& region, double) override { say("region of " + std::to_string(region.size())); }
    double pixelRatio() const override { return 1; }
    Bitmap snapshot() override { return backend_.picture(form_.name(), form_.pixelRect().width(), 1); }
    void startDrag() override { say("drag"); }
    void setTopMost(bool on) override { say(on ? "topmost" : "not topmost"); }
    void setToolWindow(bool on) override { say(on ? "tool window" : "no tool window"); }
    void showSystemMenu(PixelPoint at) override
    {
        say("system menu " + std::to_string(at.x) + "," + std::to_string(at.y));
    }
    WindowHandle handle() const override { return handle_; }
    void waitModal() override
    {
        say("modal");
        backend_.act(form_);
    }

private:
    void say(const std::string& what) { note(journal_, form_.name() + " " + what); }
    Form& form_;
    FakeBackend& backend_;
    std::vector<std::string>* journal_;
    WindowHandle handle_ = nextHandle();
};

} // namespace

std::unique_ptr<FormView> FakeBackend::makeView(Form& form)
{
    return windows || whileModal.count(form.name()) > 0 ? std::make_unique<FakeFormView>(form, *this) : nullptr;
}

void FakeBackend::timerHastened(Timer& timer) { hastened.push_back(timer.form().name() + "." + timer.name()); }

void FakeBackend::act(Form& form)
{
    const auto what = whileModal.find(form.name());
    if (what == whileModal.end())
        return;
    const auto alive = form.shared_from_this();
    what->second(form);
    form.Hide();
}

BoxAnswer FakeBackend::messageBox(const Text& text, BoxStyle style, const Text& title)
{
    boxes.push_back({text, style, title});
    if (whileBoxIsUp)
        whileBoxIsUp();
    return boxAnswer;
}

std::vector<Text> FakeBackend::chooseFiles(const FileDialog& dialog)
{
    dialogs.push_back(dialog);
    if (whileDialogIsUp)
        whileDialogIsUp();
    if (choices.empty())
        return {};
    std::vector<Text> chosen = std::move(choices.front());
    choices.pop_front();
    return chosen;
}

namespace
{
/// Also in the menus below it.
Menu* entryNamed(const Menu& head, const Text& name)
{
    for (Menu* entry : head.entries()) {
        if (entry->name() == name)
            return entry;
        if (Menu* below = entryNamed(*entry, name))
            return below;
    }
    return nullptr;
}
} // namespace

Menu* FakeBackend::popUp(Menu& head)
{
    menus.push_back(head.form().name() + "." + head.name());
    if (whileMenuIsUp)
        whileMenuIsUp();
    return entryNamed(head, menuChoice);
}

Bitmap FakeBackend::picture(const Text& name, int width, int height)
{
    if (const auto known = pictures.find(name); known != pictures.end())
        return known->second;
    return {width, height, std::vector<std::int32_t>(static_cast<std::size_t>(width * height), 0)};
}

std::vector<WindowHandle> FakeDesktop::topWindows() const
{
    std::vector<WindowHandle> all;
    for (const auto& [handle, window] : windows)
        all.push_back(handle);
    return all;
}

long FakeDesktop::processOf(WindowHandle window) const
{
    const auto found = windows.find(window);
    return found == windows.end() ? 0 : found->second.process;
}

WindowHandle FakeDesktop::parentOf(WindowHandle window) const
{
    const auto found = windows.find(window);
    return found == windows.end() ? 0 : found->second.parent;
}

bool FakeDesktop::setParent(WindowHandle window, WindowHandle parent)
{
    moved.emplace_back(window, parent);
    if (windows.count(window) == 0)
        return false;
    windows[window].parent = parent;
    return true;
}

std::optional<PixelRect> FakeDesktop::windowRect(WindowHandle window) const
{
    const auto found = windows.find(window);
    if (found == windows.end())
        return window == 0 ? std::nullopt : ownRect;
    return found->second.rect;
}

void FakeRegistry::set(std::int32_t root, std::string_view key, std::string_view name, std::string_view value)
{
    const char* under = root == kClasses ? "CLASSES " : root == kMachine ? "MACHINE " : "? ";
    written.push_back(under + std::string(key) + "|" + std::string(name) + "|" + std::string(value));
}

World::World()
{
    beginProgram();
    mci.journal = backend.journal = &journal;
    installBackend(&backend);
    installServices({&mci, &pointer, &monitors, &screenSaver, &hotKeys, &systemFacts, &settings, &files, &instances,
                     &shell, &clock, &players, &drives, &desktop, &registry, &finder, &stills, &pictures, &keyFile});
    resetSharedState();
    setCommandLine({});
    forgetSpentPresses();
    screen().setMetrics(15, 15, {0, 0, 1920, 1080});
    screen().MousePointer = pointer::kDefault;
    backend.pointerShapes.clear();
    tandrel::monitors().Refresh();
}

World::~World()
{
    discardForms();
    resetSharedState();
    forgetForms();
    installConsoleFace(nullptr);
    applicationDeactivated();
    installBackend(nullptr);
    installServices({});
    beginProgram();
}

void World::mediaAnswer(int width, int height, int lengthMs, int positionMs)
{
    mci.otherwise = [=](const std::string& command, std::string& text) {
        if (command.starts_with("Where "))
            text = "0 0 " + std::to_string(width) + " " + std::to_string(height);
        else if (command.ends_with(" length"))
            text = std::to_string(lengthMs);
        else if (command.ends_with(" position") || command.ends_with(" position wait"))
            text = std::to_string(positionMs);
        return 0;
    };
}

void World::settled()
{
    settings.values = {{"sys/langos", "EN"}, {"sys/vistaos", "1"}, {"sys/tips", "0"}, {"day/run", "999999"}};
    files.content["/data/ext.dat"] = {"1"};
}

} // namespace tandrel::test
