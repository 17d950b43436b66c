/// A player of discs, the disc that make_test_disc.py makes, and a window whose pictures are read back. Needs an X
/// server.
#pragma once

#include "platform/vlc/vlc_disc_player.h"
#include "support/let_others_run.h"
#include "support/test_media.h"

#include <array>
#include <chrono>
#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <string>

namespace tandrel
{

inline std::string testDisc(const std::string& name = "disc.iso")
{
    return std::string(TANDREL_TEST_DISC) + "/" + name;
}

inline constexpr int kFirstMenuFrame = 4000;
inline constexpr double kDiscRate = 25;
/// The first frames of titles 1 and 2.
inline constexpr std::array<int, 3> kFirstFrames{0, 0, 2000};
inline constexpr std::array<double, 3> kTitleLengths{0, 60, 20};
/// Between two places where libVLC can go to, on this disc.
inline constexpr double kDiscUnit = 0.6;

class DiscBench : public testing::Test
{
protected:
    /// What libVLC and its plugins are made of is read from the disk first: it isn't what these tests are about.
    static void SetUpTestSuite()
    {
        const TestWindow somewhere{800, 600};
        const auto first = makeVlcDiscPlayer({});
        first->showIn(somewhere.handle(), kPlace);
        first->open(testDisc());
        const double end = now() + 60;
        while (now() < end && !first->isLoaded() && first->trouble() == MediaTrouble::None) {
            first->follow();
            test::letOthersRun();
        }
    }

    using Steady = std::chrono::steady_clock;

    static double now() { return std::chrono::duration<double>(Steady::now().time_since_epoch()).count(); }

    /// Asks again and again, and leaves the processor to the player meanwhile.
    bool waitUntil(const std::function<bool()>& condition, double seconds = 60)
    {
        const double end = now() + seconds;
        while (now() < end) {
            player->follow();
            if (condition())
                return true;
            test::letOthersRun();
        }
        return false;
    }
    /// True if it holds all the time.
    bool holdsFor(double seconds, const std::function<bool()>& condition)
    {
        return !waitUntil([&] { return !condition(); }, seconds);
    }

    testing::AssertionResult open(const std::string& path = testDisc())
    {
        player->showIn(window.handle(), kPlace);
        player->open(path);
        if (waitUntil([&] { return player->isInMenu() && showsMenu(); }))
            return testing::AssertionSuccess();
        return testing::AssertionFailure() << "no menu: " << describe();
    }
    testing::AssertionResult openTitle(int title)
    {
        if (const auto opened = open(); !opened)
            return opened;
        player->playTitle(title);
        return playsTitle(title);
    }
    testing::AssertionResult playsTitle(int title)
    {
        if (waitUntil([&] { return player->title() == title && shownSeconds(title) > 0; }))
            return testing::AssertionSuccess();
        return testing::AssertionFailure() << "not in title " << title << ": " << describe();
    }

    std::optional<int> frame() const { return window.frameIn(picture); }
    bool showsMenu() const { return frame().value_or(0) >= kFirstMenuFrame; }
    /// The place of the picture on the screen in this title; below 0 where none of it is shown.
    double shownSeconds(int title) const
    {
        const int first = kFirstFrames[static_cast<std::size_t>(title)];
        const int count = static_cast<int>(kTitleLengths[static_cast<std::size_t>(title)] * kDiscRate);
        const int shown = frame().value_or(-1);
        return shown >= first && shown < first + count ? (shown - first) / kDiscRate : -1;
    }
    bool shows(double seconds, double tolerance, int title = 1) const
    {
        return std::abs(shownSeconds(title) - seconds) <= tolerance;
    }
    /// Green of three is told: the button that is chosen is green.
    int chosenButton() const
    {
        for (const int button : {1, 2}) {
            const PixelPoint at = buttonAt(button);
            const auto colour = window.lookInColour({at.x, at.y, at.x + 1, at.y + 1});
            if (colour.size() == 3 && colour[1] > 100 && colour[0] < 90 && colour[2] < 90)
                return button;
        }
        return 0;
    }
    /// The middle of a button, in the window.
    PixelPoint buttonAt(int button) const
    {
        constexpr std::array<int, 3> middles{0, 220, 500};
        const int x = middles[static_cast<std::size_t>(button)];
        return {picture.left + x * picture.width() / 720, picture.top + 360 * picture.height() / 576};
    }
    std::string describe() const
    {
        return "frame " + std::to_string(frame().value_or(-1)) + ", title " + std::to_string(player->title()) +
               ", chapter " + std::to_string(player->chapter()) + ", at " + std::to_string(player->position()) +
               (player->isInMenu() ? ", menu" : "") + (player->isPaused() ? ", held" : "") +
               (player->isLoaded() ? "" : ", not loaded") + ", trouble " +
               std::to_string(static_cast<int>(player->trouble()));
    }

    static constexpr PixelRect kPlace{20, 10, 660, 490};
    /// Where the picture is in the window.
    PixelRect picture = kPlace;
    TestWindow window{800, 600};
    std::unique_ptr<DiscPlayer> player = makeVlcDiscPlayer({});
};

} // namespace tandrel
