/// A form: a window with controls, timers and a life from load to unload.
#pragma once

#include "toolkit/backend.h"
#include "toolkit/control.h"
#include "toolkit/controls.h"
#include "toolkit/keys.h"
#include "toolkit/property.h"
#include "toolkit/timer.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace tandrel
{

enum class ShowMode { Modeless, Modal };
enum class WindowState { Normal = 0, Minimised = 1 };

/// What the toolkit draws around and under the controls of a form.
enum class Frame {
    /// No frame: the pictures on the form are all that is seen of it.
    Skin,
    /// A video window: a caption band of 25 pixels, thin sides and bottom; controls lie inside of these.
    Video,
    /// A dialog: caption band and a rounded body.
    Dialog,
    /// A notice: the rounded body alone.
    Notice,
    /// A strip of glass.
    Bare
};

/// Keys that stand for no character, and those that work like them.
enum class Key { Left, Right, Up, Down, Enter, Escape, Space };

/// Bits of a window's style word and of its extended style word.
namespace style
{
inline constexpr int kWord = -16;
inline constexpr int kExtendedWord = -20;
inline constexpr int kMaxButton = 65536;
inline constexpr int kMinButton = 131072;
inline constexpr int kSizable = 262144;
inline constexpr int kControlBox = 524288;
inline constexpr int kTitlebar = 12582912;
inline constexpr int kTopMost = 8;
inline constexpr int kToolWindow = 128;
inline constexpr int kWhatsThisButton = 1024;
inline constexpr int kLayered = 524288;
} // namespace style

/// Is told what the mouse does on a form, behind the form's own handlers.
class MouseListener
{
public:
    virtual ~MouseListener() = default;
    virtual void formMouseDown(const MouseEvent& event) = 0;
    virtual void formMouseUp(const MouseEvent& event) = 0;
};

/// A turn of the wheel: 120 a notch, negative towards the user. The place is in screen pixels.
struct WheelTurn {
    Long keys;
    Long rotation;
    Long x;
    Long y;
};

/// Who can become the active form. Lengths are twips of the outer window. All is called on the user-interface thread.
///
/// Errors that a handler lets out end that handler and nothing else: they never reach the event loop.
class Form : public std::enable_shared_from_this<Form>
{
public:
    Form(Text name, Frame frame, TwipsRect place);
    virtual ~Form();
    Form(const Form&) = delete;

    const Text& name() const { return name_; }
    Frame frame() const { return frame_; }
    const std::vector<Control*>& controls() const { return controls_; }

    Text caption() const { return caption_; }
    void setCaption(Text caption);
    Text tag() const { return tag_; }
    void setTag(Text text) { tag_ = std::move(text); }
    Long left() const { return place_.left; }
    void setLeft(Long twips);
    Long top() const { return place_.top; }
    void setTop(Long twips);
    Long width() const { return place_.width; }
    void setWidth(Long twips);
    Long height() const { return place_.height; }
    void setHeight(Long twips);
    bool visible() const { return visible_; }
    void setVisible(bool on);
    int windowState() const { return static_cast<int>(state_); }
    void setWindowState(int state);
    Integer mousePointer() const { return mousePointer_; }
    void setMousePointer(Integer shape) { mousePointer_ = shape; }

    /// Data as well as title: a byte string, whose best rendering the window shows.
    Property<Form, Text, &Form::caption, &Form::setCaption> Caption{*this};
    Property<Form, Text, &Form::tag, &Form::setTag> Tag{*this};
    Property<Form, Long, &Form::left, &Form::setLeft> Left{*this};
    Property<Form, Long, &Form::top, &Form::setTop> Top{*this};
    Property<Form, Long, &Form::width, &Form::setWidth> Width{*this};
    Property<Form, Long, &Form::height, &Form::setHeight> Height{*this};
    Property<Form, bool, &Form::visible, &Form::setVisible> Visible{*this};
    /// 0 normal, 1 minimised.
    Property<Form, int, &Form::windowState, &Form::setWindowState> WindowState{*this};
    Property<Form, Integer, &Form::mousePointer, &Form::setMousePointer> MousePointer{*this};

    std::function<void(const MouseEvent&)> MouseMove;
    /// The pointer has gone to another window.
    std::function<void()> MouseLeave;
    std::function<void(const MouseEvent&)> MouseDown;
    std::function<void(const MouseEvent&)> MouseUp;
    /// Where the turns of the wheel go while the form is the active one and the pointer is on it.
    std::function<void(const WheelTurn& turn)> WheelProcedure;
    /// The colour, as of `rgb`, that a control is to be painted on; without one the form shows through.
    std::function<std::optional<Long>(const Control& control)> ControlColour;
    std::function<void(const std::vector<Text>& paths)> DropFiles;
    /// The key that brings up a menu.
    std::function<void()> MenuKey;
    /// A key that none of the controls has taken; true where the form has, which then does nothing else.
    std::function<bool(Key key)> KeyDown;
    /// The same for any key, behind `KeyDown`: what it stands for by the user's own choice. As that may be the end of
    /// this form, it doesn't run under its rules: the handler names the form whose command it is.
    std::function<bool(const KeyStroke& key)> Shortcut;
    /// A key that none of the controls has taken, by the code of its character; none with Ctrl, Alt or Meta.
    std::function<void(int code)> KeyPress;

    /// Loads the form if that has not been done. A form that was unloaded stays dead.
    void load();
    bool isLoaded() const { return life_ == Life::Loaded; }
    bool isDead() const { return life_ == Life::Dead; }
    /// Its unload waits for the end of the handler that runs: what the handler has begun makes no sense any more.
    bool isEnding() const { return unloadPending_ || life_ == Life::Unloading || life_ == Life::Dead; }
    /// Loads, shows and activates. A modal form blocks its caller until it is hidden or unloaded, while timers go on.
    void Show(ShowMode mode = ShowMode::Modeless);
    void Hide() { setVisible(false); }
    void Refresh();
    /// Makes it the active form. A hidden one stays as it is.
    void SetFocus();
    /// To the front of all windows.
    void ZOrder();
    /// All four at once, with one `onResize`.
    void Move(const TwipsRect& place);
    TwipsRect place() const { return place_; }
    /// The same, in pixels of the desktop.
    void movePixels(const PixelRect& rect);
    PixelRect pixelRect() const;
    WindowHandle hWnd() const;

    /// A turn of the wheel, for forms that do something with it; the others raise run-time error 438. Screen pixels.
    virtual void MouseWheel(Long keys, Long rotation, Long x, Long y);

    /// The style word (`style::kWord`) or the extended one. A write takes effect with the next `redrawFrame`, but for
    /// `style::kTopMost`, which only `setTopMost` changes.
    Long windowWord(int index) const;
    void setWindowWord(int index, Long word);
    void redrawFrame();
    void setTopMost(bool on);
    void showSystemMenu(PixelPoint at);
    /// Hands the window to the user, who drags it until the left button is let go.
    void startDrag();
    void listen(MouseListener& listener) { listeners_.push_back(&listener); }
    void stopListening(const MouseListener& listener);

    /// Title bar and border as the window shows them now (a change of layout, as the toolkit draws the frame).
    bool hasTitleBar() const { return (style_ & style::kTitlebar) == style::kTitlebar; }
    bool hasBorder() const { return (style_ & style::kSizable) != 0; }
    void setTitleBar(bool on);
    void setBorder(bool on);
    /// Twips that the frame takes from the form's height and width.
    static constexpr int kFrameHeight = 400;
    static constexpr int kFrameWidth = 100;

    /// The form covers its monitor, or no longer does. Forms shown meanwhile stand before it.
    void setFullScreen(bool on);
    void setOpacity(int alpha);
    /// What of the window is seen and takes the mouse, from here on. `scale` pixels of the region are one of the
    /// window.
    void setRegion(const Region& region, double scale = 1);
    double pixelRatio() const { return view_ ? view_->pixelRatio() : 1; }
    Bitmap snapshot() { return view_ ? view_->snapshot() : Bitmap(); }
    /// While the form's top is at `top` or below, its window is off the screen, whatever `Visible` says: a window
    /// manager would push one that stands below the screen back onto it.
    void keepOffFrom(Long top) { offFrom_ = top; }

    /// Runs a handler under the rules of the form: errors end here, and an unload of this form waits for its end.
    void run(const std::function<void()>& handler);

    // What the view reports.
    void userMouseDown(const MouseEvent& event);
    void userMouseUp(const MouseEvent& event);
    /// True where the form has taken the key.
    bool userKeyDown(Key key);
    bool userShortcut(const KeyStroke& key);
    void userMoved(const PixelRect& rect);
    void userRestored();
    void userMinimised();
    /// The window system or the user asks for the end of the window.
    void userClose();

    void adopt(Control& control) { controls_.push_back(&control); }
    void adopt(Timer& timer) { timers_.push_back(&timer); }

    /// Runs the activation handler; only `activate` calls it.
    void runActivation();
    /// Runs when another form of the program becomes the active one.
    void runDeactivation();
    /// Ends the window without a handler; only the end of the program does that.
    void discard();

protected:
    virtual void onLoad() {}
    virtual void onActivate() {}
    virtual void onDeactivate() {}
    virtual void onResize() {}
    virtual void onQueryUnload() {}
    virtual void onUnload() {}

private:
    enum class Life { Created, Loading, Loaded, Unloading, Dead };
    friend void unload(Form& form);
    friend class OpenForms;

    void unloadNow();
    void applyPlace(const TwipsRect& place);
    bool standsOff() const { return offFrom_ && place_.top >= *offFrom_; }
    void showView();
    /// While a form covers the screen, all others stand before it.
    void keepBeforeCover();
    void resizeIfChanged();

    Text name_;
    Frame frame_;
    TwipsRect place_;
    TwipsRect resized_{-1, -1, -1, -1};
    Text caption_;
    Text tag_;
    Life life_ = Life::Created;
    tandrel::WindowState state_ = tandrel::WindowState::Normal;
    bool visible_ = false;
    std::int32_t style_;
    std::int32_t extendedStyle_;
    Integer mousePointer_ = 0;
    int handlersRunning_ = 0;
    bool unloadPending_ = false;
    std::optional<Long> offFrom_;
    std::vector<Control*> controls_;
    std::vector<Timer*> timers_;
    std::vector<MouseListener*> listeners_;
    std::unique_ptr<FormView> view_;
};

/// Ends the form: query-unload, then unload. Inside a handler of the same form it takes effect when that is done. A
/// form that was never loaded, or is dead, stays as it is.
void unload(Form& form);

/// The forms that are loaded, in the order of their loads.
std::vector<std::shared_ptr<Form>> openForms();

/// A new form, owned by the list of open forms from its load to its unload and by whoever else keeps the reference.
template <class F>
std::shared_ptr<F> newForm()
{
    return std::make_shared<F>();
}

} // namespace tandrel
