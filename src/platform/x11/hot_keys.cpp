#include "platform/x11/hot_keys.h"

#include "platform/x11/connection.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace tandrel
{

namespace
{

constexpr unsigned kAllModifiers = 0xff;

// A key that is held repeats within this time. The release of one that was silent for longer went to another program.
constexpr std::uint32_t kLongestSilenceMs = 2000;

// The X Keyboard Extension, whose events stand in for the core's own news of a new layout in a client that uses it.
constexpr const char* kKeyboardExtension = "XKEYBOARD";
constexpr std::uint8_t kNewKeyboard = 0;
constexpr std::uint8_t kNewMap = 1;

std::uint8_t firstKeyboardEvent(xcb_connection_t* display)
{
    const auto length = static_cast<std::uint16_t>(std::strlen(kKeyboardExtension));
    const ReplyPtr<xcb_query_extension_reply_t> extension(
        xcb_query_extension_reply(display, xcb_query_extension(display, length, kKeyboardExtension), nullptr));
    return extension && extension->present ? extension->first_event : 0;
}

/// The layout of the keyboard at one moment. Empty where the server tells nothing.
class Layout
{
public:
    explicit Layout(xcb_connection_t* display) : first_(xcb_get_setup(display)->min_keycode)
    {
        const int count = xcb_get_setup(display)->max_keycode - first_ + 1;
        const auto mapping = xcb_get_keyboard_mapping(display, first_, static_cast<std::uint8_t>(count));
        const auto modifiers = xcb_get_modifier_mapping(display);
        mapping_.reset(xcb_get_keyboard_mapping_reply(display, mapping, nullptr));
        modifiers_.reset(xcb_get_modifier_mapping_reply(display, modifiers, nullptr));
    }

    KeyboardSymbols symbols() const
    {
        if (!mapping_)
            return {};
        const auto length = static_cast<std::size_t>(xcb_get_keyboard_mapping_keysyms_length(mapping_.get()));
        return {{xcb_get_keyboard_mapping_keysyms(mapping_.get()), length}, mapping_->keysyms_per_keycode, first_};
    }

    ModifierMasks masks() const
    {
        if (!modifiers_)
            return modifierMasks(symbols(), {});
        const auto length = static_cast<std::size_t>(xcb_get_modifier_mapping_keycodes_length(modifiers_.get()));
        return modifierMasks(symbols(), {{xcb_get_modifier_mapping_keycodes(modifiers_.get()), length},
                                         modifiers_->keycodes_per_modifier});
    }

private:
    std::uint8_t first_;
    ReplyPtr<xcb_get_keyboard_mapping_reply_t> mapping_;
    ReplyPtr<xcb_get_modifier_mapping_reply_t> modifiers_;
};

} // namespace

/// A key that is held repeats: as presses alone, or as pairs of a release and a press of the same time.
bool X11HotKeys::isRepeat(const Down& key, std::uint32_t time)
{
    return key.up ? key.lastSeen == time : time - key.lastSeen < kLongestSilenceMs;
}

X11HotKeys::X11HotKeys()
{
    xcb_connection_t* display = connection();
    if (!display)
        return;
    keyboardEvents_ = firstKeyboardEvent(display);
    qApp->installNativeEventFilter(this);
}

X11HotKeys::~X11HotKeys()
{
    if (!qApp)
        return;
    releaseAll();
    qApp->removeNativeEventFilter(this);
}

bool X11HotKeys::take(int id, std::string_view combination)
{
    const auto wanted = parseKeyCombination(combination);
    if (!connection() || !wanted)
        return false;
    const std::vector<Grab> grabs = grabsFor(*wanted);
    for (const Grab& grab : grabs)
        if (const Taken* holder = holderOf(grab))
            return holder->id == id && holder->combination == *wanted;
    if (grabs.empty() || !grabAll(grabs))
        return false;
    // It may be known from a layout that had no place for it.
    std::erase_if(taken_, [&](const Taken& one) { return one.id == id && one.combination == *wanted; });
    taken_.push_back({id, *wanted, grabs});
    return true;
}

void X11HotKeys::releaseAll()
{
    for (const Taken& one : taken_)
        ungrab(one.grabs);
    taken_.clear();
    ++releases_;
}

bool X11HotKeys::holds(int id) const
{
    return std::any_of(taken_.begin(), taken_.end(),
                       [id](const Taken& one) { return one.id == id && !one.grabs.empty(); });
}

bool X11HotKeys::nativeEventFilter(const QByteArray& type, void* message, qintptr*)
{
    if (type != "xcb_generic_event_t")
        return false;
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    const std::uint8_t kind = event->response_type & 0x7f;
    // A release has the layout of a press.
    const auto* key = static_cast<const xcb_key_press_event_t*>(message);
    if (kind == XCB_KEY_PRESS && key->event == key->root)
        return pressedKey(key->detail, key->state, key->time);
    // A menu that a press has opened takes the keyboard over, and with it the release.
    if (kind == XCB_KEY_RELEASE)
        return releasedKey(key->detail, key->time) && key->event == key->root;
    const bool newMapping = kind == XCB_MAPPING_NOTIFY &&
                            static_cast<const xcb_mapping_notify_event_t*>(message)->request != XCB_MAPPING_POINTER;
    const bool newKeyboard =
        keyboardEvents_ != 0 && kind == keyboardEvents_ && (event->pad0 == kNewKeyboard || event->pad0 == kNewMap);
    if (newMapping || newKeyboard)
        renewSoon();
    return false;
}

std::vector<X11HotKeys::Grab> X11HotKeys::grabsFor(const KeyCombination& combination) const
{
    const Layout layout(connection());
    const ModifierMasks masks = layout.masks();
    const std::uint16_t wanted = modifierMask(combination, masks);
    std::vector<Grab> grabs;
    for (const std::uint8_t key : keysWithSymbol(layout.symbols(), combination.symbol))
        for (const std::uint16_t locks : allUnions(masks.locks)) {
            const Grab grab{key, static_cast<std::uint16_t>(wanted | locks)};
            if (std::find(grabs.begin(), grabs.end(), grab) == grabs.end())
                grabs.push_back(grab);
        }
    return grabs;
}

bool X11HotKeys::grabAll(const std::vector<Grab>& grabs)
{
    xcb_connection_t* display = connection();
    std::vector<xcb_void_cookie_t> requests;
    for (const Grab& grab : grabs)
        requests.push_back(xcb_grab_key_checked(display, 0, rootWindow(display), grab.modifiers, grab.key,
                                                XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    bool all = true;
    for (const xcb_void_cookie_t request : requests)
        all = !ReplyPtr<xcb_generic_error_t>(xcb_request_check(display, request)) && all;
    // What somebody else holds is not given up by this: a client ends its own grabs only.
    if (!all)
        ungrab(grabs);
    return all;
}

void X11HotKeys::ungrab(const std::vector<Grab>& grabs)
{
    xcb_connection_t* display = connection();
    for (const Grab& grab : grabs)
        xcb_ungrab_key(display, grab.key, rootWindow(display), grab.modifiers);
    xcb_flush(display);
}

const X11HotKeys::Taken* X11HotKeys::holderOf(const Grab& grab) const
{
    const auto holds = [&grab](const Taken& one) {
        return std::find(one.grabs.begin(), one.grabs.end(), grab) != one.grabs.end();
    };
    const auto found = std::find_if(taken_.begin(), taken_.end(), holds);
    return found == taken_.end() ? nullptr : &*found;
}

bool X11HotKeys::pressedKey(std::uint8_t key, std::uint16_t state, std::uint32_t time)
{
    const auto held = down_.find(key);
    if (held != down_.end() && isRepeat(held->second, time)) {
        held->second = {time, false};
        return true;
    }
    const Taken* holder = holderOf({key, static_cast<std::uint16_t>(state & kAllModifiers)});
    if (!holder)
        return false;
    down_[key] = {time, false};
    tell(holder->id);
    return true;
}

bool X11HotKeys::releasedKey(std::uint8_t key, std::uint32_t time)
{
    const auto held = down_.find(key);
    if (held == down_.end())
        return false;
    held->second = {time, true};
    return true;
}

void X11HotKeys::tell(int id)
{
    // What is done at a press may show a form and wait for its end, which is nothing to do inside of the filter.
    const auto act = [this, id, release = releases_] {
        if (release == releases_ && pressed)
            pressed(id);
    };
    QMetaObject::invokeMethod(&queue_, act, Qt::QueuedConnection);
}

void X11HotKeys::renewSoon()
{
    // One new layout is told of several times.
    if (std::exchange(renewing_, true))
        return;
    const auto act = [this] {
        renewing_ = false;
        renew();
    };
    QMetaObject::invokeMethod(&queue_, act, Qt::QueuedConnection);
}

void X11HotKeys::renew()
{
    if (!connection())
        return;
    // All old places first: a combination may move to where another one was. One that another program has in its new
    // place is without a grab until the next layout.
    std::vector<Taken*> moved;
    for (Taken& one : taken_) {
        auto grabs = grabsFor(one.combination);
        if (grabs == one.grabs)
            continue;
        ungrab(std::exchange(one.grabs, std::move(grabs)));
        moved.push_back(&one);
    }
    for (Taken* one : moved)
        if (!grabAll(one->grabs))
            one->grabs.clear();
}

} // namespace tandrel
