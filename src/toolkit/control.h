/// What all controls of a form have in common.
#pragma once

#include "toolkit/backend.h"
#include "toolkit/property.h"
#include "toolkit/text.h"
#include "toolkit/types.h"

#include <functional>
#include <memory>
#include <optional>

namespace tandrel
{

class Form;

/// A value between 0 and `most`, for assistive technology to read and to set.
struct SpokenValue {
    std::function<double()> get;
    std::function<double()> most;
    std::function<void(double)> set;
};

/// A place in twips, relative to the container.
struct TwipsRect {
    Long left;
    Long top;
    Long width;
    Long height;
};

/// Mouse buttons in an event: for a press or release the one, for a move all that are down.
namespace mouse
{
inline constexpr int kLeft = 1;
inline constexpr int kRight = 2;
inline constexpr int kMiddle = 4;
} // namespace mouse

/// The keys that are held in a mouse event.
namespace shift
{
inline constexpr int kShift = 1;
inline constexpr int kControl = 2;
} // namespace shift

/// The pointer is in twips of the control that the event is for.
struct MouseEvent {
    /// The left one is meant, or among those that are down.
    bool left() const { return (button & mouse::kLeft) != 0; }

    int button = 0;
    /// Of `shift::`.
    int shift = 0;
    double x = 0;
    double y = 0;
};

class Control
{
public:
    /// A control lies in its form, or in `container`, another control of it.
    Control(Form& form, Text name, TwipsRect place, Control* container = nullptr);
    virtual ~Control();
    Control(const Control&) = delete;

    const Text& name() const { return name_; }
    Form& form() const { return form_; }
    Control* container() const { return container_; }

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
    bool enabled() const { return enabled_; }
    void setEnabled(bool on);
    Text toolTip() const { return toolTip_; }
    void setToolTip(Text text);
    /// Keys that do the same, as the user sees them: "Left, J". They stand behind the tip.
    Text shortcut() const { return shortcut_; }
    void setShortcut(Text keys);
    Text spoken() const { return spoken_; }
    void setSpoken(Text words);
    Text tag() const { return tag_; }
    void setTag(Text text) { tag_ = std::move(text); }
    int borderStyle() const { return borderStyle_; }
    void setBorderStyle(int style);

    Property<Control, Long, &Control::left, &Control::setLeft> Left{*this};
    Property<Control, Long, &Control::top, &Control::setTop> Top{*this};
    Property<Control, Long, &Control::width, &Control::setWidth> Width{*this};
    Property<Control, Long, &Control::height, &Control::setHeight> Height{*this};
    Property<Control, bool, &Control::visible, &Control::setVisible> Visible{*this};
    Property<Control, bool, &Control::enabled, &Control::setEnabled> Enabled{*this};
    /// The tip under the pointer; it is the control's accessible name too.
    Property<Control, Text, &Control::toolTip, &Control::setToolTip> ToolTip{*this};
    /// What assistive technology calls a control that has neither tip nor caption. A label's own text is its name, and
    /// these words say what it tells.
    Property<Control, Text, &Control::spoken, &Control::setSpoken> Spoken{*this};
    Property<Control, Text, &Control::tag, &Control::setTag> Tag{*this};
    /// 0 none, 1 fixed single.
    Property<Control, int, &Control::borderStyle, &Control::setBorderStyle> BorderStyle{*this};

    std::function<void()> Click;
    /// The left button has gone down twice in the time that the desktop has for that; behind the second `MouseDown`.
    std::function<void()> DblClick;
    std::function<void(const MouseEvent&)> MouseDown;
    std::function<void(const MouseEvent&)> MouseMove;
    std::function<void(const MouseEvent&)> MouseUp;
    /// Runs when the width or the height has changed, inside the setter.
    std::function<void()> Resize;

    /// The pointer's shape over it, one of `pointer::`. Set before the form is loaded.
    int pointerShape = 0;
    /// Assistive technology leaves it out, as another control says the same.
    bool silent = false;
    /// For assistive technology this is a slider, or one whose value counts another way than its own does. Set before
    /// the form is loaded.
    std::optional<SpokenValue> spokenValue;

    /// All four at once, with one `Resize` if the size has changed.
    void move(const TwipsRect& place);
    TwipsRect place() const { return place_; }
    /// To the front of its siblings.
    void ZOrder();
    void Refresh();
    /// The form becomes the active one, and this control gets its keys.
    void SetFocus();
    /// The native window of the control, 0 without a view.
    WindowHandle hWnd() const;
    /// Where it is on the desktop, in pixels; nothing without a view.
    PixelRect screenRect() const;

    void attach(std::unique_ptr<ControlView> view);
    void detach() { view_.reset(); }

    // What the view reports. Each runs the handler of that name.
    virtual void userClick();
    void userDblClick();
    void userMouseDown(const MouseEvent& event);
    void userMouseMove(const MouseEvent& event);
    virtual void userMouseUp(const MouseEvent& event);

protected:
    void notify(Aspect aspect);
    /// Null without a view.
    const ControlView* view() const { return view_.get(); }
    /// Runs a handler of this control under the rules of its form.
    void run(const std::function<void()>& handler);

private:
    Form& form_;
    Text name_;
    TwipsRect place_;
    Control* container_;
    bool visible_ = true;
    bool enabled_ = true;
    int borderStyle_ = 0;
    Text toolTip_;
    Text shortcut_;
    Text spoken_;
    Text tag_;
    std::unique_ptr<ControlView> view_;
};

} // namespace tandrel
