/// What the tests of the commands that open files have in common.
#pragma once

#include "player_bench.h"

#include "texts/frm_tool_tip.h"
#include "texts/frm_wait.h"
#include "toolkit/activation.h"

#include <algorithm>

namespace tandrel::test
{

/// A player whose user knows the tip already, and who opens films in groups or instead of what is open.
class Opening : public Player
{
protected:
    void TearDown() override { world.mci.onSend = nullptr; }

    void begin(const Text& mode)
    {
        start(mode);
        console().FirstOpenTip = false;
    }

    static std::vector<Text> films(const std::vector<int>& indices)
    {
        std::vector<Text> paths;
        for (const int index : indices)
            paths.push_back(film(index));
        return paths;
    }

    void openGroup(const std::vector<int>& indices)
    {
        forgetWhatWasSaid();
        console().openPaths(films(indices));
    }

    /// The user presses the open button and chooses these, or cancels.
    void chooseGroup(const std::vector<Text>& paths = {})
    {
        world.backend.choices = {paths};
        pressOpen();
    }

    /// The user opens this one instead of all that is open.
    void chooseSingle(const Text& path)
    {
        world.backend.choices = {{path}};
        forgetWhatWasSaid();
        console().OpenSingleVideo();
    }

    /// A selection made beforehand.
    void preset(const std::vector<Text>& paths)
    {
        Text text = paths.size() > 1 ? "/films|" : "";
        for (const Text& path : paths)
            text += path + "|";
        console().PresetSelection = true;
        console().SelectionText = text + (paths.size() > 1 ? "||" : "|");
        forgetWhatWasSaid();
    }

    void presetSingle(const std::vector<int>& indices)
    {
        preset(films(indices));
        console().OpenSingleVideo();
    }

    void pressOpen()
    {
        forgetWhatWasSaid();
        console().cmdMedia[command::kOpen]->Value = true;
    }

    /// As `breakFilm`, whatever window the picture is to show in.
    void spoil(int index)
    {
        world.mci.otherwise = [start = "Open " + alias(index) + " ",
                               answer = world.mci.otherwise](const std::string& command, std::string& text) {
            return command.starts_with(start) ? 277 : answer(command, text);
        };
        world.mci.fail("Pause " + alias(index), 263);
    }

    /// The lines of the journal that are among `wanted`, and of those that start with one of them that ends in a blank
    /// no more than that and the film's letter. Of equal ones in a row there is one.
    std::vector<std::string> steps(const std::vector<std::string>& wanted) const
    {
        std::vector<std::string> found;
        for (const std::string& line : shortened(world.journal))
            for (const std::string& one : wanted)
                if (line == one)
                    found.push_back(line);
                else if (one.ends_with(' ') && line.starts_with(one))
                    found.push_back(line.substr(0, one.size() + 1));
        found.erase(std::unique(found.begin(), found.end()), found.end());
        return found;
    }

    void forgetWhatWasSaid()
    {
        world.mci.clear();
        world.journal.clear();
    }

    frmChild& video(int index) { return *VideoWindows.at(static_cast<std::size_t>(index)); }
    Rect placeOf(int index) { return rectOf(video(index)); }
};

/// A place on the screen in pixels, as windows have it.
} // namespace tandrel::test
