#include "toolkit/control.h"

#include "toolkit/activation.h"
#include "toolkit/form.h"

namespace tandrel
{

Control::Control(Form& form, Text name, TwipsRect place, Control* container)
    : form_(form), name_(std::move(name)), place_(place), container_(container)
{
    form_.adopt(*this);
}

Control::~Control() = default;

void Control::setLeft(Long twips) { move({twips, place_.top, place_.width, place_.height}); }

void Control::setTop(Long twips) { move({place_.left, twips, place_.width, place_.height}); }

void Control::setWidth(Long twips) { move({place_.left, place_.top, twips, place_.height}); }

void Control::setHeight(Long twips) { move({place_.left, place_.top, place_.width, twips}); }

void Control::move(const TwipsRect& place)
{
    const bool resized = place.width != place_.width || place.height != place_.height;
    place_ = place;
    notify(Aspect::Place);
    if (resized)
        run(Resize);
}

void Control::setVisible(bool on)
{
    visible_ = on;
    notify(Aspect::Visible);
}

void Control::setEnabled(bool on)
{
    enabled_ = on;
    notify(Aspect::Enabled);
}

void Control::setToolTip(Text text)
{
    toolTip_ = std::move(text);
    notify(Aspect::ToolTip);
}

void Control::setShortcut(Text keys)
{
    shortcut_ = std::move(keys);
    notify(Aspect::ToolTip);
}

void Control::setSpoken(Text words)
{
    spoken_ = std::move(words);
    notify(Aspect::ToolTip);
}

void Control::setBorderStyle(int style)
{
    borderStyle_ = style;
    notify(Aspect::Border);
}

void Control::ZOrder() { notify(Aspect::Order); }

void Control::Refresh() { notify(Aspect::Repaint); }

void Control::SetFocus()
{
    form_.SetFocus();
    notify(Aspect::Focus);
}

WindowHandle Control::hWnd() const { return view_ ? view_->handle() : 0; }

PixelRect Control::screenRect() const { return view_ ? view_->rect() : PixelRect(); }

void Control::attach(std::unique_ptr<ControlView> view) { view_ = std::move(view); }

void Control::notify(Aspect aspect)
{
    if (view_)
        view_->changed(aspect);
}

void Control::run(const std::function<void()>& handler) { form_.run(handler); }

void Control::userClick() { run(Click); }

void Control::userDblClick()
{
    if (DblClick)
        run([this] { DblClick(); });
}

void Control::userMouseDown(const MouseEvent& event)
{
    if (MouseDown)
        run([this, event] { MouseDown(event); });
}

void Control::userMouseMove(const MouseEvent& event)
{
    if (MouseMove)
        run([this, event] { MouseMove(event); });
}

void Control::userMouseUp(const MouseEvent& event)
{
    if (MouseUp)
        run([this, event] { MouseUp(event); });
}

} // namespace tandrel
