/// The media that make_test_media.py makes, and how to read from the screen which of their frames is shown.
#pragma once

#include "platform/services.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tandrel
{

/// The absolute path of a file among the test media.
std::string testMedia(const std::string& name);

/// Grey values, row by row.
struct GreyImage {
    int width = 0;
    int height = 0;
    std::vector<unsigned char> pixels;
};

/// The number that a test picture carries, filling the image; empty if it is none.
std::optional<int> readFrameNumber(const GreyImage& image);

/// A window on the screen of its own connection, and what is seen in it.
class TestWindow
{
public:
    TestWindow(int width, int height);
    ~TestWindow();
    TestWindow(const TestWindow&) = delete;
    TestWindow& operator=(const TestWindow&) = delete;

    WindowHandle handle() const;
    /// What this part of the window shows now, other windows inside it included.
    GreyImage look(const PixelRect& part) const;
    /// The same in colour: red, green and blue of each pixel. Empty where nothing can be seen.
    std::vector<unsigned char> lookInColour(const PixelRect& part) const;
    /// The number of the frame in this part of the window, if it is one.
    std::optional<int> frameIn(const PixelRect& part) const { return readFrameNumber(look(part)); }
    /// The handles of the windows inside this one, at any depth.
    std::vector<WindowHandle> windowsInside() const;
    /// True if one of the windows inside asks for the pointer's buttons or for keys.
    bool anyInsideTakesInput() const;
    /// The window goes while others may still use it.
    void destroy();

private:
    struct Connection;
    std::unique_ptr<Connection> connection_;
};

} // namespace tandrel
