#include "platform/mpv/still_window.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

namespace tandrel
{

namespace
{
template <typename T>
using Reply = std::unique_ptr<T, decltype(&std::free)>;

constexpr int kPixelBytes = 4;
// Of a request that carries pixels, apart from them.
constexpr std::size_t kRequestHead = 64;

const xcb_visualtype_t* findVisual(xcb_connection_t* connection, xcb_visualid_t wanted)
{
    for (auto screen = xcb_setup_roots_iterator(xcb_get_setup(connection)); screen.rem > 0; xcb_screen_next(&screen))
        for (auto depth = xcb_screen_allowed_depths_iterator(screen.data); depth.rem > 0; xcb_depth_next(&depth))
            for (auto visual = xcb_depth_visuals_iterator(depth.data); visual.rem > 0; xcb_visualtype_next(&visual))
                if (visual.data->visual_id == wanted)
                    return visual.data;
    return nullptr;
}

bool isBlueFirst(xcb_connection_t* connection, xcb_visualid_t wanted, std::uint8_t depth)
{
    const xcb_setup_t* setup = xcb_get_setup(connection);
    const xcb_visualtype_t* visual = findVisual(connection, wanted);
    if (visual == nullptr || visual->red_mask != 0xff0000 || visual->green_mask != 0xff00 ||
        visual->blue_mask != 0xff || setup->image_byte_order != XCB_IMAGE_ORDER_LSB_FIRST)
        return false;
    for (auto format = xcb_setup_pixmap_formats_iterator(setup); format.rem > 0; xcb_format_next(&format))
        if (format.data->depth == depth)
            return format.data->bits_per_pixel == 8 * kPixelBytes;
    return false;
}
} // namespace

StillWindow::StillWindow(WindowSystem& system, WindowHandle parent)
    : system_(system), connection_(system.connection()), parent_(parent)
{
}

StillWindow::~StillWindow()
{
    if (window_ == 0)
        return;
    xcb_free_gc(connection_, context_);
    xcb_destroy_window(connection_, window_);
    xcb_flush(connection_);
    system_.discardErrors();
}

bool StillWindow::knowsPixels()
{
    const auto attributesAsked = xcb_get_window_attributes(connection_, parent_);
    const auto geometryAsked = xcb_get_geometry(connection_, parent_);
    const Reply<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(connection_, attributesAsked, nullptr), &std::free);
    const Reply<xcb_get_geometry_reply_t> geometry(xcb_get_geometry_reply(connection_, geometryAsked, nullptr),
                                                   &std::free);
    if (attributes == nullptr || geometry == nullptr)
        return false;
    depth_ = geometry->depth;
    return isBlueFirst(connection_, attributes->visual, depth_);
}

void StillWindow::create()
{
    window_ = xcb_generate_id(connection_);
    xcb_create_window(connection_, XCB_COPY_FROM_PARENT, window_, parent_, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      XCB_COPY_FROM_PARENT, 0, nullptr);
    context_ = xcb_generate_id(connection_);
    xcb_create_gc(connection_, context_, window_, 0, nullptr);
}

void StillWindow::draw(const std::vector<std::uint8_t>& pixels, PictureSize size, xcb_pixmap_t target)
{
    const std::size_t row = static_cast<std::size_t>(kPixelBytes * size.width);
    const std::size_t room = 4 * static_cast<std::size_t>(xcb_get_maximum_request_length(connection_)) - kRequestHead;
    const int rows = static_cast<int>(std::clamp<std::size_t>(room / row, 1, static_cast<std::size_t>(size.height)));
    for (int top = 0; top < size.height; top += rows) {
        const int height = std::min(rows, size.height - top);
        xcb_put_image(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, target, context_, static_cast<std::uint16_t>(size.width),
                      static_cast<std::uint16_t>(height), 0, static_cast<std::int16_t>(top), 0, depth_,
                      static_cast<std::uint32_t>(row * static_cast<std::size_t>(height)),
                      pixels.data() + row * static_cast<std::size_t>(top));
    }
}

bool StillWindow::show(const StepPicture& picture, PictureSize size)
{
    if (window_ == 0 && !refused_) {
        refused_ = !knowsPixels();
        if (!refused_)
            create();
    }
    const auto pixels = refused_ ? std::vector<std::uint8_t>() : picture.pixels(size);
    if (pixels.empty())
        return false;
    const xcb_pixmap_t content = xcb_generate_id(connection_);
    const auto width = static_cast<std::uint16_t>(size.width);
    const auto height = static_cast<std::uint16_t>(size.height);
    xcb_create_pixmap(connection_, depth_, content, window_, width, height);
    draw(pixels, size, content);
    // As a background the server paints it by itself, whenever and wherever that is necessary.
    const std::uint32_t background = content;
    xcb_change_window_attributes(connection_, window_, XCB_CW_BACK_PIXMAP, &background);
    xcb_free_pixmap(connection_, content);
    const std::array<std::uint32_t, 3> place{width, height, XCB_STACK_MODE_ABOVE};
    constexpr auto mask = XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT | XCB_CONFIG_WINDOW_STACK_MODE;
    xcb_configure_window(connection_, window_, mask, place.data());
    xcb_clear_area(connection_, 0, window_, 0, 0, 0, 0);
    {
        const std::lock_guard lock(mutex_);
        shown_ = drawing_ = true;
        xcb_map_window(connection_, window_);
    }
    xcb_flush(connection_);
    system_.discardErrors();
    return true;
}

void StillWindow::hide()
{
    const std::lock_guard lock(mutex_);
    if (!shown_)
        return;
    shown_ = false;
    xcb_unmap_window(connection_, window_);
    // The picture is not needed any more, and its memory is the server's.
    const std::uint32_t none = XCB_BACK_PIXMAP_NONE;
    xcb_change_window_attributes(connection_, window_, XCB_CW_BACK_PIXMAP, &none);
    xcb_flush(connection_);
}

bool StillWindow::shown()
{
    const std::lock_guard lock(mutex_);
    return shown_;
}

void StillWindow::sync()
{
    if (!std::exchange(drawing_, false))
        return;
    const auto asked = xcb_get_input_focus(connection_);
    std::free(xcb_get_input_focus_reply(connection_, asked, nullptr));
}

} // namespace tandrel
