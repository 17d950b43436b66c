#include "platform/x11/desktop.h"

#include "platform/x11/connection.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstring>
#include <thread>

namespace tandrel
{

namespace
{

using namespace std::chrono_literals;

constexpr auto kLetGoWait = 300ms;
constexpr auto kBetweenLooks = 2ms;
constexpr std::uint32_t kMostNumbers = 4096;

double ratio() { return qGuiApp->devicePixelRatio(); }

int logical(int device) { return static_cast<int>(std::lround(device / ratio())); }

int device(int logical) { return static_cast<int>(std::lround(logical * ratio())); }

struct Family {
    WindowHandle root = 0;
    WindowHandle parent = 0;
    std::vector<WindowHandle> children;
};

std::optional<Family> familyOf(WindowHandle window)
{
    xcb_connection_t* display = connection();
    if (!display)
        return std::nullopt;
    const ReplyPtr<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(display, xcb_query_tree(display, window), nullptr));
    if (!tree)
        return std::nullopt;
    const xcb_window_t* first = xcb_query_tree_children(tree.get());
    return Family{tree->root, tree->parent, {first, first + xcb_query_tree_children_length(tree.get())}};
}

bool isSeen(WindowHandle window)
{
    xcb_connection_t* display = connection();
    const ReplyPtr<xcb_get_window_attributes_reply_t> facts(
        xcb_get_window_attributes_reply(display, xcb_get_window_attributes(display, window), nullptr));
    return facts && facts->map_state == XCB_MAP_STATE_VIEWABLE && !facts->override_redirect;
}

} // namespace

xcb_atom_t X11Desktop::atom(const std::string& name) const
{
    if (const auto known = atoms_.find(name); known != atoms_.end())
        return known->second;
    xcb_connection_t* display = connection();
    const ReplyPtr<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        display, xcb_intern_atom(display, 0, static_cast<std::uint16_t>(name.size()), name.c_str()), nullptr));
    return atoms_[name] = reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

std::vector<std::uint32_t> X11Desktop::numbers(WindowHandle window, const char* property, xcb_atom_t type) const
{
    xcb_connection_t* display = connection();
    if (!display || window == 0)
        return {};
    const ReplyPtr<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        display, xcb_get_property(display, 0, window, atom(property), type, 0, kMostNumbers), nullptr));
    if (!reply || reply->format != 32)
        return {};
    std::vector<std::uint32_t> values(reply->value_len);
    std::memcpy(values.data(), xcb_get_property_value(reply.get()), values.size() * sizeof(std::uint32_t));
    return values;
}

bool X11Desktop::windowManagerRuns() const
{
    xcb_connection_t* display = connection();
    if (!display)
        return false;
    const auto check = numbers(rootWindow(display), "_NET_SUPPORTING_WM_CHECK", XCB_ATOM_WINDOW);
    // One that has crashed leaves its property behind, but not the window in it.
    return !check.empty() && !numbers(check.front(), "_NET_SUPPORTING_WM_CHECK", XCB_ATOM_WINDOW).empty();
}

std::vector<WindowHandle> X11Desktop::topWindows() const
{
    if (windowManagerRuns())
        return numbers(rootWindow(connection()), "_NET_CLIENT_LIST", XCB_ATOM_WINDOW);
    return screenOrder();
}

std::vector<WindowHandle> X11Desktop::screenOrder() const
{
    xcb_connection_t* display = connection();
    const auto family = display ? familyOf(rootWindow(display)) : std::nullopt;
    if (!family)
        return {};
    std::vector<WindowHandle> order(family->children.rbegin(), family->children.rend());
    std::erase_if(order, [](WindowHandle window) { return !isSeen(window); });
    return order;
}

long X11Desktop::processOf(WindowHandle window) const
{
    const auto process = numbers(window, "_NET_WM_PID", XCB_ATOM_CARDINAL);
    return process.empty() ? 0 : static_cast<long>(process.front());
}

WindowHandle X11Desktop::parentOf(WindowHandle window) const
{
    if (isTaken(window))
        return taken_.at(window);
    const auto owner = numbers(window, "WM_TRANSIENT_FOR", XCB_ATOM_WINDOW);
    const bool isRoot = !owner.empty() && owner.front() == rootWindow(connection());
    return owner.empty() || isRoot ? 0 : owner.front();
}

bool X11Desktop::hasWindow(long process) const
{
    const auto all = topWindows();
    return std::any_of(all.begin(), all.end(), [&](WindowHandle window) { return processOf(window) == process; });
}

bool X11Desktop::isManaged(WindowHandle window) const
{
    const auto state = numbers(window, "WM_STATE", XCB_ATOM_ANY);
    return !state.empty() && state.front() != 0;
}

WindowHandle X11Desktop::frameOf(WindowHandle window) const
{
    for (WindowHandle frame = window;;) {
        const auto family = familyOf(frame);
        if (!family)
            return window;
        if (family->parent == family->root || family->parent == 0)
            return frame;
        frame = family->parent;
    }
}

std::optional<X11Desktop::Place> X11Desktop::placeOf(WindowHandle window) const
{
    xcb_connection_t* display = connection();
    if (!display || window == 0)
        return std::nullopt;
    const auto size = xcb_get_geometry(display, window);
    const auto corner = xcb_translate_coordinates(display, window, rootWindow(display), 0, 0);
    const ReplyPtr<xcb_get_geometry_reply_t> geometry(xcb_get_geometry_reply(display, size, nullptr));
    const ReplyPtr<xcb_translate_coordinates_reply_t> place(xcb_translate_coordinates_reply(display, corner, nullptr));
    if (!geometry || !place)
        return std::nullopt;
    return Place{place->dst_x, place->dst_y, geometry->width, geometry->height};
}

std::optional<PixelRect> X11Desktop::windowRect(WindowHandle window) const
{
    const bool taken = isTaken(window);
    const auto place = placeOf(!taken && isManaged(window) ? frameOf(window) : window);
    if (!place)
        return std::nullopt;
    PixelRect rect{logical(place->x), logical(place->y), logical(place->x + place->width),
                   logical(place->y + place->height)};
    if (taken) {
        rect.left -= kLostFrame.x;
        rect.top -= kLostFrame.y;
    }
    return rect;
}

bool X11Desktop::isTaken(WindowHandle window) const
{
    const auto found = taken_.find(window);
    if (found == taken_.end())
        return false;
    const auto family = familyOf(window);
    return family && family->parent == found->second;
}

void X11Desktop::withdraw(WindowHandle window) const
{
    xcb_connection_t* display = connection();
    xcb_unmap_window(display, window);
    xcb_unmap_notify_event_t notice{};
    notice.response_type = XCB_UNMAP_NOTIFY;
    notice.event = rootWindow(display);
    notice.window = window;
    xcb_send_event(display, 0, rootWindow(display),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&notice));
    xcb_flush(display);
    const auto end = std::chrono::steady_clock::now() + kLetGoWait;
    // A window manager that still holds the window would put it back onto the desktop.
    while (isManaged(window) && std::chrono::steady_clock::now() < end)
        std::this_thread::sleep_for(kBetweenLooks);
}

bool X11Desktop::reparent(WindowHandle window, WindowHandle parent, int x, int y) const
{
    xcb_connection_t* display = connection();
    xcb_reparent_window(display, window, parent, static_cast<std::int16_t>(x), static_cast<std::int16_t>(y));
    xcb_map_window(display, window);
    const auto family = familyOf(window);
    return family && family->parent == parent;
}

bool X11Desktop::setParent(WindowHandle window, WindowHandle parent)
{
    xcb_connection_t* display = connection();
    const auto rect = display ? windowRect(window) : std::nullopt;
    const bool wasTaken = display && isTaken(window);
    taken_.erase(window);
    if (!rect || (parent == 0 && !wasTaken))
        return false;
    if (parent == 0) {
        xcb_unmap_window(display, window);
        xcb_change_save_set(display, XCB_SET_MODE_DELETE, window);
        return reparent(window, rootWindow(display), device(rect->left), device(rect->top)) || isManaged(window);
    }
    if (isManaged(window) && windowManagerRuns())
        withdraw(window);
    // Should this program end without a word, the window goes back to the desktop and not with its parent.
    xcb_change_save_set(display, XCB_SET_MODE_INSERT, window);
    taken_[window] = parent;
    if (reparent(window, parent, device(rect->left + kLostFrame.x), device(rect->top + kLostFrame.y)))
        return true;
    taken_.erase(window);
    return false;
}

} // namespace tandrel
