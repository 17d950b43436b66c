// Twelve videos without any rules: windows in a grid, and files that are all loaded and played at once. It says
// "ready", waits for a line, and goes on until its input ends.

#include "platform/mpv/mpv_engine.h"
#include "platform/mpv/mpv_handle.h"
#include "platform/mpv/output_choice.h"
#include "platform/mpv/x_errors.h"

#include <array>
#include <clocale>
#include <iostream>
#include <string>
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

xcb_window_t makeWindow(xcb_connection_t* connection, int place)
{
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
    const xcb_window_t window = xcb_generate_id(connection);
    const std::array<std::uint32_t, 2> values{0, 1};
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, screen->root,
                      static_cast<std::int16_t>(place % kColumns * kCellWidth + kBorder),
                      static_cast<std::int16_t>(place / kColumns * kCellHeight + kBand), kWidth, kHeight, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT,
                      values.data());
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
    keepXErrorsHarmless();
    const std::vector<std::string> files(argv + 1, argv + argc);
    xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
    const HandleSettings settings = chooseOutputs(true);
    std::vector<mpv_handle*> handles;
    for (std::size_t place = 0; place < files.size(); ++place) {
        mpv_handle* handle = makeHandle(settings);
        if (handle == nullptr)
            return 1;
        setText(handle, "wid", std::to_string(makeWindow(connection, static_cast<int>(place))));
        if (settings.audioOutput.empty())
            setText(handle, "aid", "no");
        setText(handle, "pause", "no");
        handles.push_back(handle);
    }
    xcb_flush(connection);
    std::cout << "ready" << std::endl;
    std::string line;
    std::getline(std::cin, line);
    for (std::size_t place = 0; place < files.size(); ++place) {
        std::array<const char*, 3> command{"loadfile", files[place].c_str(), nullptr};
        mpv_command_async(handles[place], 0, command.data());
    }
    while (std::getline(std::cin, line)) {}
    _exit(0);
}
