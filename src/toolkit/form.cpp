#include "toolkit/form.h"

#include "toolkit/activation.h"
#include "toolkit/program.h"
#include "toolkit/screen.h"

#include <algorithm>

namespace tandrel
{

/// The one list of loaded forms.
class OpenForms
{
public:
    static std::vector<std::shared_ptr<Form>>& list()
    {
        // Never destroyed, as the holders of the forms.
        static auto& forms = *new std::vector<std::shared_ptr<Form>>;
        return forms;
    }
    static void add(Form& form) { list().push_back(form.shared_from_this()); }
    static void remove(const Form& form)
    {
        std::erase_if(list(), [&](const auto& open) { return open.get() == &form; });
    }
};

namespace
{

/// The form that covers its monitor, if any.
std::weak_ptr<Form>& coveringForm()
{
    static std::weak_ptr<Form> form;
    return form;
}

} // namespace

std::vector<std::shared_ptr<Form>> openForms() { return OpenForms::list(); }

namespace
{
bool hasFrame(Frame frame) { return frame == Frame::Video || frame == Frame::Dialog; }
} // namespace

Form::Form(Text name, Frame frame, TwipsRect place)
    : name_(std::move(name)),
      frame_(frame),
      place_(place),
      style_(style::kTitlebar | style::kSizable | (hasFrame(frame) ? style::kControlBox | style::kMinButton : 0)),
      extendedStyle_(frame == Frame::Bare || frame == Frame::Notice ? style::kToolWindow : 0)
{
}

Form::~Form() = default;

void Form::load()
{
    if (life_ != Life::Created || programEnded())
        return;
    life_ = Life::Loading;
    OpenForms::add(*this);
    view_ = backend().makeView(*this);
    if (view_) {
        for (Control* control : controls_)
            control->attach(view_->addControl(*control));
        view_->place(pixelRect());
        view_->captionChanged();
    }
    life_ = Life::Loaded;
    for (Timer* timer : timers_)
        backend().timerChanged(*timer);
    run([this] { onLoad(); });
}

void Form::Show(ShowMode mode)
{
    load();
    if (life_ != Life::Loaded || unloadPending_ || programEnded())
        return;
    if (!visible_) {
        visible_ = true;
        resizeIfChanged();
        if (view_)
            view_->setModal(mode == ShowMode::Modal);
        showView();
    } else if (state_ == tandrel::WindowState::Minimised) {
        WindowState = 0;
    } else {
        ZOrder();
    }
    SetFocus();
    if (mode == ShowMode::Modal && visible_ && view_)
        view_->waitModal();
}

void Form::setVisible(bool on)
{
    if (on == visible_ || (on && life_ != Life::Loaded && life_ != Life::Created))
        return;
    if (on) {
        load();
        visible_ = true;
        resizeIfChanged();
        showView();
        return;
    }
    visible_ = false;
    forgetActivation(*this);
    if (view_)
        view_->hide();
}

void Form::Refresh()
{
    if (view_)
        view_->repaint();
}

void Form::SetFocus()
{
    if (life_ != Life::Loaded || !visible_)
        return;
    if (view_ && activeForm() != this) {
        keepBeforeCover();
        view_->activate();
    }
    activate(*this);
}

void Form::ZOrder()
{
    if (!view_)
        return;
    keepBeforeCover();
    view_->raise();
}

void Form::runActivation()
{
    run([this] { onActivate(); });
}

void Form::runDeactivation()
{
    if (isLoaded())
        run([this] { onDeactivate(); });
}

void Form::setLeft(Long twips) { Move({twips, place_.top, place_.width, place_.height}); }

void Form::setTop(Long twips) { Move({place_.left, twips, place_.width, place_.height}); }

void Form::setWidth(Long twips) { Move({place_.left, place_.top, twips, place_.height}); }

void Form::setHeight(Long twips) { Move({place_.left, place_.top, place_.width, twips}); }

void Form::Move(const TwipsRect& place)
{
    applyPlace(place);
    if (visible_)
        resizeIfChanged();
}

void Form::applyPlace(const TwipsRect& place)
{
    const bool wasOff = standsOff();
    place_ = place;
    if (!view_)
        return;
    if (visible_ && standsOff() && !wasOff)
        view_->hide();
    view_->place(pixelRect());
    if (visible_ && wasOff && !standsOff())
        showView();
}

void Form::showView()
{
    if (!view_ || standsOff())
        return;
    keepBeforeCover();
    view_->show();
}

void Form::keepBeforeCover()
{
    const auto covering = coveringForm().lock();
    view_->setTransientFor(covering.get() == this ? nullptr : covering.get());
}

void Form::resizeIfChanged()
{
    if (resized_.width == place_.width && resized_.height == place_.height)
        return;
    resized_ = place_;
    run([this] { onResize(); });
}

void Form::movePixels(const PixelRect& rect)
{
    const Long x = screen().TwipsPerPixelX();
    const Long y = screen().TwipsPerPixelY();
    Move({x * rect.left, y * rect.top, x * rect.width(), y * rect.height()});
}

PixelRect Form::pixelRect() const
{
    const int left = pixelsX(place_.left);
    const int top = pixelsY(place_.top);
    return {left, top, left + pixelsX(place_.width), top + pixelsY(place_.height)};
}

WindowHandle Form::hWnd() const { return view_ ? view_->handle() : 0; }

void Form::setCaption(Text caption)
{
    caption_ = std::move(caption);
    if (view_)
        view_->captionChanged();
}

void Form::setWindowState(int state)
{
    const auto wanted = state == 1 ? tandrel::WindowState::Minimised : tandrel::WindowState::Normal;
    if (wanted == state_)
        return;
    state_ = wanted;
    if (view_)
        state_ == tandrel::WindowState::Minimised ? view_->minimise() : view_->restore();
    if (visible_)
        run([this] { onResize(); });
}

void Form::startDrag()
{
    if (view_)
        view_->startDrag();
}

void Form::setRegion(const Region& region, double scale)
{
    if (view_)
        view_->setRegion(region, scale);
}

void Form::stopListening(const MouseListener& listener) { std::erase(listeners_, &listener); }

void Form::MouseWheel(Long, Long, Long, Long)
{
    throw RuntimeError(error::kNoSuchMember, "Object doesn't support this property or method");
}

void Form::setFullScreen(bool on)
{
    if (view_)
        view_->setFullScreen(on);
    if (on) {
        coveringForm() = weak_from_this();
    } else if (coveringForm().lock().get() == this) {
        coveringForm().reset();
        for (const auto& form : openForms())
            if (form->view_)
                form->view_->setTransientFor(nullptr);
    }
}

void Form::setOpacity(int alpha)
{
    if (view_)
        view_->setOpacity(alpha);
}

void Form::run(const std::function<void()>& handler)
{
    if (!handler)
        return;
    const auto alive = weak_from_this().lock();
    ++handlersRunning_;
    try {
        handler();
    } catch (const std::exception&) {
        // An error that a handler let out ends the handler, with the state as it stands.
    }
    --handlersRunning_;
    if (handlersRunning_ == 0 && unloadPending_)
        unloadNow();
}

bool Form::userKeyDown(Key key)
{
    bool taken = false;
    if (KeyDown)
        run([&] { taken = KeyDown(key); });
    return taken;
}

bool Form::userShortcut(const KeyStroke& key) { return Shortcut && Shortcut(key); }

void Form::userMouseDown(const MouseEvent& event)
{
    const auto alive = shared_from_this();
    run([&] {
        if (MouseDown)
            MouseDown(event);
    });
    for (MouseListener* listener : std::vector(listeners_))
        run([&] { listener->formMouseDown(event); });
}

void Form::userMouseUp(const MouseEvent& event)
{
    const auto alive = shared_from_this();
    run([&] {
        if (MouseUp)
            MouseUp(event);
    });
    for (MouseListener* listener : std::vector(listeners_))
        run([&] { listener->formMouseUp(event); });
}

void Form::userMoved(const PixelRect& rect)
{
    if (rect == pixelRect())
        return;
    const Long x = screen().TwipsPerPixelX();
    const Long y = screen().TwipsPerPixelY();
    place_ = {x * rect.left, y * rect.top, x * rect.width(), y * rect.height()};
    if (visible_)
        resizeIfChanged();
}

void Form::userRestored()
{
    if (state_ == tandrel::WindowState::Normal)
        return;
    state_ = tandrel::WindowState::Normal;
    run([this] { onResize(); });
}

void Form::userMinimised()
{
    if (state_ == tandrel::WindowState::Minimised)
        return;
    state_ = tandrel::WindowState::Minimised;
    run([this] { onResize(); });
}

void Form::userClose() { unload(*this); }

void Form::unloadNow()
{
    const auto alive = shared_from_this();
    unloadPending_ = false;
    life_ = Life::Unloading;
    run([this] { onQueryUnload(); });
    run([this] { onUnload(); });
    discard();
}

void Form::discard()
{
    const auto alive = shared_from_this();
    life_ = Life::Dead;
    visible_ = false;
    for (Timer* timer : timers_)
        backend().timerGone(*timer);
    forgetActivation(*this);
    if (view_)
        view_->hide();
    for (Control* control : controls_)
        control->detach();
    view_.reset();
    OpenForms::remove(*this);
}

void unload(Form& form)
{
    if (form.life_ != Form::Life::Loaded)
        return;
    if (form.handlersRunning_ > 0)
        form.unloadPending_ = true;
    else
        form.unloadNow();
}

} // namespace tandrel
