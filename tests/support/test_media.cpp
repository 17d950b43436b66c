#include "support/test_media.h"

#include <cstdlib>
#include <stdexcept>
#include <xcb/xcb.h>

namespace tandrel
{

namespace
{
constexpr int kBlocks = 16;
constexpr int kBandsInHeight = 6;
constexpr int kWhite = 128;

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};
template <typename T>
using Reply = std::unique_ptr<T, Free>;
} // namespace

std::string testMedia(const std::string& name) { return std::string(TANDREL_TEST_MEDIA) + "/" + name; }

std::optional<int> readFrameNumber(const GreyImage& image)
{
    if (image.width < kBlocks || image.height < kBandsInHeight)
        return {};
    int bits = 0;
    const int row = image.height / kBandsInHeight / 2;
    for (int block = 0; block < kBlocks; ++block) {
        const int column = (2 * block + 1) * image.width / (2 * kBlocks);
        bits = 2 * bits + (image.pixels[static_cast<std::size_t>(row * image.width + column)] >= kWhite ? 1 : 0);
    }
    const int number = bits >> 4;
    const int check = (number ^ (number >> 4) ^ (number >> 8) ^ 0xA) & 0xF;
    if (check != (bits & 0xF))
        return {};
    return number;
}

struct TestWindow::Connection {
    xcb_connection_t* server = xcb_connect(nullptr, nullptr);
    xcb_window_t window = 0;
    ~Connection() { xcb_disconnect(server); }

    void roundTrip() const { Reply<void>(xcb_get_input_focus_reply(server, xcb_get_input_focus(server), nullptr)); }

    void collect(xcb_window_t parent, std::vector<WindowHandle>& found) const
    {
        const Reply<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(server, xcb_query_tree(server, parent), nullptr));
        if (tree == nullptr)
            return;
        const xcb_window_t* children = xcb_query_tree_children(tree.get());
        for (int index = 0; index < xcb_query_tree_children_length(tree.get()); ++index) {
            found.push_back(children[index]);
            collect(children[index], found);
        }
    }
};

TestWindow::TestWindow(int width, int height) : connection_(std::make_unique<Connection>())
{
    xcb_connection_t* server = connection_->server;
    if (xcb_connection_has_error(server) != 0)
        throw std::runtime_error("there is no X server");
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(server)).data;
    connection_->window = xcb_generate_id(server);
    const std::uint32_t values[]{screen->white_pixel, 1, XCB_EVENT_MASK_BUTTON_PRESS};
    xcb_create_window(server, XCB_COPY_FROM_PARENT, connection_->window, screen->root, 0, 0,
                      static_cast<std::uint16_t>(width), static_cast<std::uint16_t>(height), 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual,
                      XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
    xcb_map_window(server, connection_->window);
    connection_->roundTrip();
}

TestWindow::~TestWindow() = default;

WindowHandle TestWindow::handle() const { return connection_->window; }

std::vector<unsigned char> TestWindow::lookInColour(const PixelRect& part) const
{
    xcb_connection_t* server = connection_->server;
    const auto cookie =
        xcb_get_image(server, XCB_IMAGE_FORMAT_Z_PIXMAP, connection_->window, static_cast<std::int16_t>(part.left),
                      static_cast<std::int16_t>(part.top), static_cast<std::uint16_t>(part.width()),
                      static_cast<std::uint16_t>(part.height()), ~0u);
    const Reply<xcb_get_image_reply_t> reply(xcb_get_image_reply(server, cookie, nullptr));
    std::vector<unsigned char> colours;
    constexpr int kBytesInPixel = 4;
    const int pixels = part.width() * part.height();
    if (reply == nullptr || xcb_get_image_data_length(reply.get()) < kBytesInPixel * pixels)
        return colours;
    const std::uint8_t* data = xcb_get_image_data(reply.get());
    for (int index = 0; index < pixels; ++index)
        for (const int colour : {2, 1, 0})
            colours.push_back(data[kBytesInPixel * index + colour]);
    return colours;
}

GreyImage TestWindow::look(const PixelRect& part) const
{
    const auto colours = lookInColour(part);
    GreyImage image;
    if (colours.empty())
        return image;
    image.width = part.width();
    image.height = part.height();
    // The green of a grey picture.
    for (std::size_t index = 1; index < colours.size(); index += 3)
        image.pixels.push_back(colours[index]);
    return image;
}

std::vector<WindowHandle> TestWindow::windowsInside() const
{
    std::vector<WindowHandle> found;
    connection_->collect(connection_->window, found);
    return found;
}

bool TestWindow::anyInsideTakesInput() const
{
    constexpr std::uint32_t input = XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE |
                                    XCB_EVENT_MASK_POINTER_MOTION | XCB_EVENT_MASK_KEY_PRESS |
                                    XCB_EVENT_MASK_KEY_RELEASE;
    for (const WindowHandle window : windowsInside()) {
        xcb_connection_t* server = connection_->server;
        const Reply<xcb_get_window_attributes_reply_t> facts(
            xcb_get_window_attributes_reply(server, xcb_get_window_attributes(server, window), nullptr));
        if (facts != nullptr && (facts->all_event_masks & input) != 0)
            return true;
    }
    return false;
}

void TestWindow::destroy()
{
    xcb_destroy_window(connection_->server, connection_->window);
    connection_->roundTrip();
}

} // namespace tandrel
