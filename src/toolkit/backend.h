/// What stands between the forms and the window system. A form and its controls hold their own state and rules; a view
/// shows that state and reports what the user does. Without a backend installed the forms work all the same, unseen,
/// which is how tests drive them.
#pragma once

#include "platform/services.h"
#include "toolkit/picture.h"
#include "toolkit/text.h"
#include "toolkit/types.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace tandrel
{

class Control;
class Form;
class Menu;
class Timer;

/// What of a control has changed.
enum class Aspect { Place, Visible, Enabled, Caption, Picture, Border, Value, Colour, ToolTip, Order, Focus, Repaint };

/// How a control is seen.
class ControlView
{
public:
    virtual ~ControlView() = default;
    virtual void changed(Aspect aspect) = 0;
    /// The control's native window, 0 where it has none.
    virtual WindowHandle handle() const = 0;
    /// Where it is on the desktop.
    virtual PixelRect rect() const = 0;
    /// How high it would have to be for this text, broken at this width, in pixels; nothing where no text is drawn.
    virtual std::optional<int> textHeight(const Text&, int) const { return std::nullopt; }
};

/// How a form is seen. Rectangles are pixels of the outer window.
class FormView
{
public:
    virtual ~FormView() = default;
    virtual std::unique_ptr<ControlView> addControl(Control& control) = 0;
    virtual void place(const PixelRect& rect) = 0;
    virtual void show() = 0;
    /// Before the show of a form that is to take all input.
    virtual void setModal(bool on) = 0;
    virtual void hide() = 0;
    /// To the front, without the focus.
    virtual void raise() = 0;
    /// Asks the window system for the focus; its answer comes late and is not waited for.
    virtual void activate() = 0;
    /// Paints at once.
    virtual void repaint() = 0;
    virtual void minimise() = 0;
    virtual void restore() = 0;
    virtual void captionChanged() = 0;
    virtual void frameChanged() = 0;
    /// Covers a whole monitor: the window manager is told, so that panels and docks stay below.
    virtual void setFullScreen(bool on) = 0;
    /// The window manager keeps it before the window of `owner`, which covers the screen; null ends that.
    virtual void setTransientFor(Form* owner) = 0;
    /// 0 is invisible, 255 opaque.
    virtual void setOpacity(int alpha) = 0;
    /// What of the window is seen and takes the mouse, in pixels of which `scale` make one of the window's. An empty
    /// region leaves nothing.
    virtual void setRegion(const Region& region, double scale) = 0;
    /// Device pixels to one of the window's.
    virtual double pixelRatio() const = 0;
    /// The window as it is painted now.
    virtual Bitmap snapshot() = 0;
    /// The user, who holds the left button, drags the window until the release.
    virtual void startDrag() = 0;
    /// Before all windows that are not, whichever is active.
    virtual void setTopMost(bool on) = 0;
    /// Without a place in the task bar.
    virtual void setToolWindow(bool on) = 0;
    /// The menu of the window itself (minimise, close) at a pixel of the desktop.
    virtual void showSystemMenu(PixelPoint at) = 0;
    virtual WindowHandle handle() const = 0;
    /// Runs events until the form is hidden or gone.
    virtual void waitModal() = 0;
};

/// Buttons and icon of a message box, and the button pressed.
enum class BoxStyle { Critical = 16, YesNoQuestion = 36, Exclamation = 48, Information = 64 };
enum class BoxAnswer { Ok = 1, Cancel = 2, Yes = 6, No = 7 };

/// "&" stands before the letter that presses the button.
struct BoxTexts {
    Text yes = "&Yes";
    Text no = "&No";
    Text ok = "OK";
    Text minimise = "Minimize";
    Text close = "Close";
};

/// What a dialog for files or folders is asked for.
struct FileDialog {
    enum class Kind { Open, Save, Folder };
    struct Filter {
        Text name;
        /// As of a shell, "*.avi"; letters of either case fit.
        std::vector<Text> patterns;
    };
    Kind kind = Kind::Open;
    Text title;
    std::vector<Filter> filters;
    /// Where it begins: a path with or without a closing separator; empty, or one that is gone, leaves it to the
    /// system.
    Text folder;
    /// What stands in the field of the name.
    Text name;
    /// Put behind the name of a file to save that has none, without its dot.
    Text extension;
    bool several = false;
};

/// What that dialog says where the toolkit draws it. "&" stands before the letter of an access key, "%1" for a name.
struct FileDialogTexts {
    Text open = "&Open";
    Text save = "&Save";
    Text choose = "&Choose";
    Text cancel = "Cancel";
    Text lookIn = "Look &in:";
    Text fileName = "File &name:";
    Text folderName = "Fol&der:";
    Text fileTypes = "Files of &type:";
    Text name = "Name";
    Text size = "Size";
    Text kind = "Type";
    Text date = "Modified";
    Text folder = "Folder";
    Text home = "Home";
    Text desktop = "Desktop";
    Text videos = "Videos";
    Text music = "Music";
    Text computer = "Computer";
    Text up = "One folder up";
    Text empty = "Nothing of this type here";
    Text unreadable = "This folder can't be read.";
    Text notThere = "There is no \"%1\" here.";
    Text oneOnly = "Only one file can be chosen.";
    Text replace = "\"%1\" is there already. Save once more to replace it.";
};

class Backend
{
public:
    virtual ~Backend() = default;
    /// May be null: the form then stays unseen.
    virtual std::unique_ptr<FormView> makeView(Form&) { return nullptr; }
    /// Starts, stops or re-times the timer. Ticks arrive by `Timer::tick`.
    virtual void timerChanged(Timer&) {}
    virtual void timerGone(Timer&) {}
    /// Its next tick comes as soon as the present event is done.
    virtual void timerHastened(Timer&) {}
    /// Draws a movement of so many steps, the last of them in any case, and returns when it is over. What shows the
    /// screen takes `ms` for it and draws as many steps as it can; elsewhere all are drawn.
    virtual void animate(int steps, int ms, const std::function<void(int step)>& draw);
    virtual void mousePointerChanged(Integer) {}
    /// `Cancel` for a question that the end of the program has closed.
    virtual BoxAnswer messageBox(const Text& text, BoxStyle style, const Text& title);
    /// Shows the dialog and runs events until it is gone. Absolute paths with their marks mapped
    /// (platform/path_marks.h), in the order of the selection; none where the user cancels, or where nothing is seen.
    virtual std::vector<Text> chooseFiles(const FileDialog&) { return {}; }
    /// Shows the entries of `head` once no mouse button is held, and runs events until one is chosen, which is what it
    /// returns, or the menu is closed, which is null.
    virtual Menu* popUp(Menu& head);
    /// Runs `task`, whose menus come up at this place of the desktop and not at the pointer. Pixels.
    virtual void withMenusAt(PixelPoint, const std::function<void()>& task) { task(); }
    /// Runs `task` so many ms later, at once where nothing is seen.
    virtual void later(int ms, std::function<void()> task);
    /// Lets the events that have come in meanwhile run, and returns.
    virtual void runPending() {}
    /// Runs `task` once there is nothing else to do. Only a program on a screen ever waits: elsewhere it never runs.
    virtual void whenIdle(std::function<void()>) {}
    /// A drawing of the skin at this size, in black where it is clear. Empty where nothing is seen.
    virtual Bitmap picture(const Text&, int, int) { return {}; }
    /// What the buttons of message boxes and of the windows' own menu say, in the user's language.
    virtual void setBoxTexts(const BoxTexts&) {}
    virtual void setFileDialogTexts(const FileDialogTexts&) {}
    /// Ends the event loop.
    virtual void quit() {}
    virtual void beep() {}
};

Backend& backend();
/// Null goes back to the unseen backend. The backend must outlive all forms.
void installBackend(Backend* backend);

} // namespace tandrel
