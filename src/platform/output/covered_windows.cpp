#include "platform/output/covered_windows.h"

#include <algorithm>
#include <condition_variable>
#include <cstdlib>
#include <mutex>
#include <optional>
#include <set>
#include <string_view>
#include <system_error>
#include <thread>
#include <xcb/shape.h>
#include <xcb/xcb.h>

namespace tandrel
{

namespace
{

template <typename T>
using Reply = std::unique_ptr<T, decltype(&std::free)>;

// Windows with transparent pixels have this depth.
constexpr std::uint8_t kDepthWithAlpha = 32;
// A tree of windows that is deeper than this isn't followed.
constexpr int kDeepest = 16;

bool isEmpty(const PixelRect& place) { return place.width() <= 0 || place.height() <= 0; }

PixelRect common(const PixelRect& one, const PixelRect& other)
{
    return {std::max(one.left, other.left), std::max(one.top, other.top), std::min(one.right, other.right),
            std::min(one.bottom, other.bottom)};
}

/// What is left of `place` beside `hole`.
void leave(const PixelRect& place, const PixelRect& hole, std::vector<PixelRect>& rest)
{
    const PixelRect gone = common(place, hole);
    if (isEmpty(gone)) {
        rest.push_back(place);
        return;
    }
    const PixelRect parts[]{{place.left, place.top, place.right, gone.top},
                            {place.left, gone.bottom, place.right, place.bottom},
                            {place.left, gone.top, gone.left, gone.bottom},
                            {gone.right, gone.top, place.right, gone.bottom}};
    for (const PixelRect& part : parts)
        if (!isEmpty(part))
            rest.push_back(part);
}

/// Questions to the X server, which wait for their answers.
class Screen
{
public:
    Screen() : connection_(xcb_connect(nullptr, nullptr)) {}
    ~Screen() { xcb_disconnect(connection_); }
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    bool works() const { return xcb_connection_has_error(connection_) == 0; }
    std::set<WindowHandle> covered(const std::vector<WindowHandle>& windows);

private:
    struct Seen {
        xcb_window_t window;
        PixelRect place;
        bool hides;
    };

    PixelRect screenPlace() const
    {
        const xcb_screen_t& screen = *xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
        return {0, 0, screen.width_in_pixels, screen.height_in_pixels};
    }
    xcb_window_t root() const { return xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root; }
    std::vector<xcb_window_t> childrenOf(xcb_window_t window);
    std::optional<xcb_window_t> topLevelOf(xcb_window_t window);
    /// Where it is on the screen; nothing for a window that can't be seen whatever lies above it.
    std::optional<PixelRect> placeOf(xcb_window_t window, bool& hasAlpha);
    bool hasHoles(xcb_window_t window);
    bool isTranslucent(xcb_window_t window);
    std::vector<Seen> topLevels();

    xcb_connection_t* connection_;
    xcb_atom_t opacity_ = XCB_ATOM_NONE;
};

std::vector<xcb_window_t> Screen::childrenOf(xcb_window_t window)
{
    const Reply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(connection_, xcb_query_tree(connection_, window), nullptr), &std::free);
    if (tree == nullptr)
        return {};
    const xcb_window_t* children = xcb_query_tree_children(tree.get());
    return {children, children + xcb_query_tree_children_length(tree.get())};
}

std::optional<xcb_window_t> Screen::topLevelOf(xcb_window_t window)
{
    for (int depth = 0; depth < kDeepest; ++depth) {
        const Reply<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(connection_, xcb_query_tree(connection_, window), nullptr), &std::free);
        if (tree == nullptr || window == tree->root)
            return {};
        if (tree->parent == tree->root)
            return window;
        window = tree->parent;
    }
    return {};
}

std::optional<PixelRect> Screen::placeOf(xcb_window_t window, bool& hasAlpha)
{
    const auto attributesAsked = xcb_get_window_attributes(connection_, window);
    const auto sizeAsked = xcb_get_geometry(connection_, window);
    const auto placeAsked = xcb_translate_coordinates(connection_, window, root(), 0, 0);
    const Reply<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(connection_, attributesAsked, nullptr), &std::free);
    const Reply<xcb_get_geometry_reply_t> size(xcb_get_geometry_reply(connection_, sizeAsked, nullptr), &std::free);
    const Reply<xcb_translate_coordinates_reply_t> place(
        xcb_translate_coordinates_reply(connection_, placeAsked, nullptr), &std::free);
    if (attributes == nullptr || size == nullptr || place == nullptr)
        return {};
    hasAlpha = size->depth == kDepthWithAlpha;
    if (attributes->map_state != XCB_MAP_STATE_VIEWABLE || attributes->_class != XCB_WINDOW_CLASS_INPUT_OUTPUT)
        return PixelRect{};
    return PixelRect{place->dst_x, place->dst_y, place->dst_x + size->width, place->dst_y + size->height};
}

bool Screen::hasHoles(xcb_window_t window)
{
    const Reply<xcb_shape_query_extents_reply_t> shape(
        xcb_shape_query_extents_reply(connection_, xcb_shape_query_extents(connection_, window), nullptr), &std::free);
    return shape == nullptr || shape->bounding_shaped != 0;
}

bool Screen::isTranslucent(xcb_window_t window)
{
    if (opacity_ == XCB_ATOM_NONE) {
        constexpr std::string_view name = "_NET_WM_WINDOW_OPACITY";
        const Reply<xcb_intern_atom_reply_t> atom(
            xcb_intern_atom_reply(connection_, xcb_intern_atom(connection_, 0, name.size(), name.data()), nullptr),
            &std::free);
        if (atom == nullptr)
            return true;
        opacity_ = atom->atom;
    }
    const auto asked = xcb_get_property(connection_, 0, window, opacity_, XCB_ATOM_CARDINAL, 0, 1);
    const Reply<xcb_get_property_reply_t> value(xcb_get_property_reply(connection_, asked, nullptr), &std::free);
    return value == nullptr || xcb_get_property_value_length(value.get()) > 0;
}

std::vector<Screen::Seen> Screen::topLevels()
{
    std::vector<Seen> found;
    for (const xcb_window_t window : childrenOf(root())) {
        bool hasAlpha = false;
        const auto place = placeOf(window, hasAlpha);
        if (!place || isEmpty(*place)) {
            found.push_back({window, {}, false});
            continue;
        }
        // Above a frame's client there may be more to tell, but a frame that hides something has all of it.
        const auto children = childrenOf(window);
        const bool translucent = isTranslucent(window) || std::any_of(children.begin(), children.end(),
                                                                      [&](auto child) { return isTranslucent(child); });
        found.push_back({window, *place, !hasAlpha && !translucent && !hasHoles(window)});
    }
    return found;
}

std::set<WindowHandle> Screen::covered(const std::vector<WindowHandle>& windows)
{
    std::set<WindowHandle> result;
    const std::vector<Seen> all = topLevels();
    for (const WindowHandle window : windows) {
        bool hasAlpha = false;
        const auto place = placeOf(window, hasAlpha);
        const auto top = topLevelOf(window);
        if (!place || !top)
            continue;
        const auto own = std::find_if(all.begin(), all.end(), [&](const Seen& one) { return one.window == *top; });
        std::vector<PixelRect> above;
        for (auto one = own; one != all.end(); ++one)
            if (one != own && one->hides)
                above.push_back(one->place);
        const PixelRect seen = common(*place, screenPlace());
        if (own != all.end() && (isEmpty(seen) || isCovered(seen, above)))
            result.insert(window);
    }
    return result;
}

} // namespace

bool isCovered(const PixelRect& place, const std::vector<PixelRect>& above)
{
    std::vector<PixelRect> left;
    if (!isEmpty(place))
        left.push_back(place);
    for (const PixelRect& hole : above) {
        std::vector<PixelRect> rest;
        for (const PixelRect& part : left)
            leave(part, hole, rest);
        left = std::move(rest);
    }
    return left.empty();
}

struct CoverWatch::State {
    std::mutex mutex;
    std::condition_variable changed;
    std::vector<WindowHandle> wanted;
    std::set<WindowHandle> covered;
    long looks = 0;
    bool isWanted = false;
    bool works = false;
    bool ending = false;

    static void work(const std::shared_ptr<State>& state);
};

void CoverWatch::State::work(const std::shared_ptr<State>& state)
{
    Screen screen;
    std::unique_lock lock(state->mutex);
    while (true) {
        state->changed.wait(lock, [&] { return state->ending || state->isWanted; });
        if (state->ending)
            return;
        state->isWanted = false;
        const std::vector<WindowHandle> windows = state->wanted;
        lock.unlock();
        std::set<WindowHandle> covered;
        if (screen.works())
            covered = screen.covered(windows);
        lock.lock();
        state->covered = std::move(covered);
        ++state->looks;
    }
}

CoverWatch::CoverWatch() : state_(std::make_shared<State>()) {}

CoverWatch::~CoverWatch()
{
    const std::lock_guard lock(state_->mutex);
    state_->ending = true;
    state_->changed.notify_one();
}

void CoverWatch::look(std::vector<WindowHandle> windows)
{
    const std::lock_guard lock(state_->mutex);
    state_->wanted = std::move(windows);
    state_->isWanted = true;
    if (!state_->works) {
        try {
            std::thread(&State::work, state_).detach();
            state_->works = true;
        } catch (const std::system_error&) {
            // Without a thread nothing counts as covered; the next look tries again.
        }
    }
    state_->changed.notify_one();
}

bool CoverWatch::covered(WindowHandle window) const
{
    const std::lock_guard lock(state_->mutex);
    return state_->covered.contains(window);
}

long CoverWatch::looks() const
{
    const std::lock_guard lock(state_->mutex);
    return state_->looks;
}

} // namespace tandrel
