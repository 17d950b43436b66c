// Twelve videos without any rules: windows in a grid, and files that are all loaded and played at once. It says
// "ready", waits for a line, and goes on until its input ends.

#include "platform/mpv/input_methods.h"
#include "platform/mpv/mpv_engine.h"
#include "platform/mpv/mpv_handle.h"
#include "platform/mpv/output_choice.h"
#include "platform/output/picture_window.h"
#include "platform/output/x_errors.h"

#include <array>
#include <clocale>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>
#include <xcb/xcb.h>

namespace
{

using namespace tandrel;

constexpr int kColumns = 4;
constexpr int kCellWidth = 480;
constexpr int kCellHeight = 360;
constexpr int kBorder = 3;
constexpr int kBand = 25;
constexpr std::uint16_t kWidth = 474;
constexpr std::uint16_t kHeight = 333;

void withoutDecoration(xcb_connection_t* connection, xcb_window_t window, int x, int y)
{
    constexpr std::string_view kName = "_MOTIF_WM_HINTS";
    const auto asked = xcb_intern_atom(connection, 0, kName.size(), kName.data());
    xcb_intern_atom_reply_t* answer = xcb_intern_atom_reply(connection, asked, nullptr);
    if (answer == nullptr)
        return;
    const std::array<std::uint32_t, 5> hints{2, 0, 0, 0, 0};
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, answer->atom, answer->atom, 32, hints.size(),
                        hints.data());
    std::free(answer);
    // The place is the user's own: no window manager has a better one.
    const std::array<std::int32_t, 18> size{1, x, y};
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_NORMAL_HINTS, XCB_ATOM_WM_SIZE_HINTS, 32,
                        size.size(), size.data());
}

xcb_window_t makeWindow(xcb_connection_t* connection, int place, bool managed)
{
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
    const xcb_window_t window = xcb_generate_id(connection);
    const std::array<std::uint32_t, 2> values{0, managed ? 0U : 1U};
    const int x = place % kColumns * kCellWidth + kBorder;
    const int y = place / kColumns * kCellHeight + kBand;
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, screen->root, static_cast<std::int16_t>(x),
                      static_cast<std::int16_t>(y), kWidth, kHeight, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values.data());
    if (managed)
        withoutDecoration(connection, window, x, y);
    xcb_map_window(connection, window);
    return window;
}

void setText(mpv_handle* handle, const char* property, const std::string& value)
{
    mpv_set_property_string(handle, property, value.c_str());
}

} // namespace

int main(int argc, char** argv)
{
    std::setlocale(LC_NUMERIC, "C");
    // Outputs that come up at the same moment would corrupt the memory of the input methods.
    keepInputMethodsForThisThread();
    keepXErrorsHarmless();
    std::vector<std::string> files(argv + 1, argv + argc);
    const bool managed = std::erase(files, "--managed") > 0;
    WindowSystem system;
    xcb_connection_t* connection = system.connection();
    const HandleSettings settings = chooseOutputs(true);
    std::vector<mpv_handle*> handles;
    for (std::size_t place = 0; place < files.size(); ++place) {
        mpv_handle* handle = makeHandle(settings);
        if (handle == nullptr)
            return 1;
        if (settings.audioOutput.empty())
            setText(handle, "aid", "no");
        setText(handle, "pause", "no");
        handles.push_back(handle);
    }
    // An output that begins while its parent is being mapped may stay away from the screen: hence a window in between.
    std::vector<std::unique_ptr<PictureWindow>> pictures;
    const auto makeWindows = [&] {
        for (std::size_t place = 0; place < files.size(); ++place) {
            const xcb_window_t window = makeWindow(connection, static_cast<int>(place), managed);
            pictures.push_back(std::make_unique<PictureWindow>(system, window));
            pictures.back()->put({0, 0, kWidth, kHeight}, kWidth);
        }
    };
    if (!managed)
        makeWindows();
    std::cout << "ready" << std::endl;
    std::string line;
    std::getline(std::cin, line);
    if (managed)
        makeWindows();
    for (std::size_t place = 0; place < files.size(); ++place) {
        setText(handles[place], "wid", std::to_string(pictures[place]->canvas()));
        std::array<const char*, 3> command{"loadfile", files[place].c_str(), nullptr};
        mpv_command_async(handles[place], 0, command.data());
    }
    while (std::getline(std::cin, line)) {}
    _exit(0);
}
