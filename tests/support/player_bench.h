/// A console on fake services, and videos in its slots, for tests of handlers.
#pragma once

#include "fake_services.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "media/mod_media.h"
#include "toolkit/screen.h"
#include "video/frm_child.h"
#include "video/slots.h"

#include <gmock/gmock.h>

namespace tandrel::test
{

/// The path of film number `index`: "/films/a.avi" is 0, "/films/b.avi" is 1.
inline Text film(int index) { return Text("/films/") + static_cast<char>('a' + index) + ".avi"; }

/// Its alias, with the quotes that belong to it.
inline Text alias(int index) { return tandrel::quoted(film(index)); }

/// The commands with each alias shortened to the capital letter of its film.
inline std::vector<std::string> shortened(std::vector<std::string> commands)
{
    for (std::string& command : commands)
        for (int index = 0; index < 14; ++index)
            for (auto at = command.find(alias(index)); at != std::string::npos; at = command.find(alias(index)))
                command.replace(at, alias(index).size(), 1, static_cast<char>('A' + index));
    return commands;
}

/// Those of `lines` for which `wanted` holds, in their order.
template <class Wanted>
std::vector<std::string> chosen(const std::vector<std::string>& lines, Wanted wanted)
{
    std::vector<std::string> result;
    for (const std::string& line : lines)
        if (wanted(line))
            result.push_back(line);
    return result;
}

inline std::vector<std::string> startingWith(const std::vector<std::string>& lines, const std::string& start)
{
    return chosen(lines, [&](const std::string& line) { return line.starts_with(start); });
}

/// Left, top, width and height.
using Rect = std::array<int, 4>;

inline Rect rectOf(const Form& form) { return {form.left(), form.top(), form.width(), form.height()}; }

inline Rect rectOf(const Control& control)
{
    return {control.left(), control.top(), control.width(), control.height()};
}

/// The settings of a user who has been here before, and media of 640 by 480 pixels, a minute long, standing at 1.5 s.
class Player : public ::testing::Test
{
protected:
    Player()
    {
        world.settled();
        world.mediaAnswer(640, 480, 60000, 1500);
    }

    class frmMedia& console() { return frmMedia(); }

    /// Loads and shows the console in the given mode.
    void start(const Text& slideMode = "1")
    {
        world.settings.values["sys/slide"] = slideMode;
        frmMedia().Show();
        world.mci.clear();
        world.journal.clear();
    }

    /// A window in the next slot, playing nothing yet, with its entries in both lists; shown, so it is the selected
    /// one.
    frmChild& open(int index)
    {
        CurrentAlias = alias(index);
        frmChild& window = newSlot(film(index));
        NextSlot += 1;
        console().List1.AddItem(film(index));
        console().List2.AddItem(film(index));
        window.Show();
        world.mci.clear();
        world.journal.clear();
        return window;
    }

    void openSeveral(int count)
    {
        for (int index = 0; index < count; ++index)
            open(index);
    }

    /// What each slot says of its video, dead slots too.
    static std::vector<int> paused()
    {
        std::vector<int> all;
        for (const auto& window : VideoWindows)
            all.push_back(window->Paused);
        return all;
    }
    static void holdAll()
    {
        for (const auto& window : VideoWindows)
            window->Paused = 1;
    }

    /// Fails the open of a film, and every later command on it.
    void breakFilm(int index)
    {
        world.mci.fail("Open " + alias(index) + " Type MPEGVideo alias " + alias(index) + " parent 0 style child", 277);
        world.mci.fail("Pause " + alias(index), 263);
    }

    std::vector<std::string> commands() const { return shortened(world.mci.sent()); }

    World world;
};

/// A rectangle on a screen of 15 twips a pixel, told in pixels.
inline Rect twips(int x, int y, int width, int height) { return {x * 15, y * 15, width * 15, height * 15}; }

} // namespace tandrel::test
