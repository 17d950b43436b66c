/// A media service over the real engine, and a window whose pictures are read back. Needs an X server.
#pragma once

#include "platform/mci/mci_service.h"
#include "platform/mpv/mpv_engine.h"
#include "support/let_others_run.h"
#include "support/test_media.h"

#include <array>
#include <chrono>
#include <functional>
#include <gtest/gtest.h>
#include <string>

namespace tandrel
{

inline constexpr PixelRect kPicture{0, 0, 320, 240};

class ScreenBench : public testing::Test
{
protected:
    /// The file of the settings for pictures and sounds, if there is to be one.
    explicit ScreenBench(const std::string& codecFile = {})
        : mci(makeMpvEngine({.outputs = true, .pixelRatio = nullptr, .mostDevices = 2, .codecFile = codecFile}))
    {
    }

    int send(const std::string& command)
    {
        std::array<char, 128> buffer{};
        const int result = mci.send(command, buffer);
        answer = buffer.data();
        return result;
    }
    std::string ask(const std::string& command)
    {
        EXPECT_EQ(send(command), 0) << command;
        return answer;
    }
    long number(const std::string& command) { return std::stol(ask(command)); }

    bool waitUntil(const std::function<bool()>& condition)
    {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
        while (std::chrono::steady_clock::now() < end) {
            mci.idle();
            if (condition())
                return true;
            test::letOthersRun();
        }
        return false;
    }

    /// Waits until the frame is on the screen. The output draws at the same moment as the service learns of it.
    testing::AssertionResult showsFrame(int frame, const PixelRect& part = kPicture)
    {
        if (waitUntil([&] { return window.frameIn(part) == frame; }))
            return testing::AssertionSuccess();
        return testing::AssertionFailure() << "shown is " << window.frameIn(part).value_or(-1) << ", not " << frame;
    }

    /// True from the first picture on that came without the player, since the windows were counted.
    bool hasStill() { return window.windowsInside().size() > windowsOfPlayer; }
    void countWindows() { windowsOfPlayer = window.windowsInside().size(); }

    std::size_t windowsOfPlayer = 0;
    TestWindow window{640, 480};
    MciService mci;
    std::string answer;
};

} // namespace tandrel
