#include "platform/output/picture_window.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>
#include <xcb/shape.h>

namespace tandrel
{

namespace
{
template <typename T>
using Reply = std::unique_ptr<T, decltype(&std::free)>;

// An output never gives back the memory of the largest picture that it has drawn, and this is what it draws before the
// first place is known.
constexpr PixelRect kFirstCanvas{0, 0, 32, 18};

std::uint32_t coordinate(int value)
{
    constexpr int lowest = std::numeric_limits<std::int16_t>::min();
    constexpr int highest = std::numeric_limits<std::int16_t>::max();
    return static_cast<std::uint32_t>(std::clamp(value, lowest, highest));
}
void createWindow(xcb_connection_t* connection, xcb_window_t window, xcb_window_t parent)
{
    // Black until the first picture. The window listens to nothing, and so do the windows inside it.
    const std::uint32_t black = 0;
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, parent, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL, &black);
}

void configure(xcb_connection_t* connection, xcb_window_t window, const PixelRect& place)
{
    const std::array<std::uint32_t, 4> values{coordinate(place.left), coordinate(place.top), coordinate(place.width()),
                                              coordinate(place.height())};
    constexpr auto mask =
        XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT;
    xcb_configure_window(connection, window, mask, values.data());
}
} // namespace

int canvasWidth(int width, int nativeWidth)
{
    const int even = width + width % 2;
    return even % 16 == 0 && even < nativeWidth ? even + 2 : even;
}

WindowSystem::WindowSystem() : connection_(xcb_connect(nullptr, nullptr)) {}

WindowSystem::~WindowSystem() { xcb_disconnect(connection_); }

bool WindowSystem::isWindow(WindowHandle window)
{
    if (xcb_connection_has_error(connection_) != 0)
        return false;
    xcb_generic_error_t* problem = nullptr;
    const auto cookie = xcb_get_window_attributes(connection_, window);
    const Reply<xcb_get_window_attributes_reply_t> reply(xcb_get_window_attributes_reply(connection_, cookie, &problem),
                                                         &std::free);
    std::free(problem);
    return reply != nullptr && reply->_class == XCB_WINDOW_CLASS_INPUT_OUTPUT;
}

WindowHandle WindowSystem::root() const { return xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root; }

void WindowSystem::discardErrors()
{
    while (void* event = xcb_poll_for_event(connection_))
        std::free(event);
}

PictureWindow::PictureWindow(WindowSystem& system, std::optional<WindowHandle> parent)
    : system_(system), window_(xcb_generate_id(system.connection())), canvas_(xcb_generate_id(system.connection()))
{
    createWindow(system_.connection(), window_, parent.value_or(system_.root()));
    createWindow(system_.connection(), canvas_, window_);
    configure(system_.connection(), canvas_, kFirstCanvas);
    // The canvas is mapped before an output looks at it, and stays so: libmpv takes the map notice of its parent for
    // that of its own window, and would never map that one. The output draws through another connection, so nobody goes
    // on before the server has done all of this.
    std::free(xcb_request_check(system_.connection(), xcb_map_window_checked(system_.connection(), canvas_)));
}

PictureWindow::~PictureWindow()
{
    xcb_destroy_window(system_.connection(), window_);
    xcb_flush(system_.connection());
    system_.discardErrors();
}

void PictureWindow::moveInto(WindowHandle parent)
{
    // The former parent may be destroyed next, through another connection, and with it whatever is still in it.
    std::free(xcb_request_check(system_.connection(),
                                xcb_reparent_window_checked(system_.connection(), window_, parent, 0, 0)));
}

void PictureWindow::refuseInput()
{
    xcb_shape_rectangles(system_.connection(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, XCB_CLIP_ORDERING_UNSORTED,
                         window_, 0, 0, 0, nullptr);
    xcb_flush(system_.connection());
}

void PictureWindow::put(const PixelRect& place, int nativeWidth)
{
    xcb_connection_t* connection = system_.connection();
    if (place.width() <= 0 || place.height() <= 0) {
        xcb_unmap_window(connection, window_);
    } else {
        configure(connection, canvas_, {0, 0, canvasWidth(place.width(), nativeWidth), place.height()});
        configure(connection, window_, place);
        xcb_map_window(connection, window_);
    }
    xcb_flush(connection);
    system_.discardErrors();
}

} // namespace tandrel
