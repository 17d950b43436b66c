/// A right click on a picture that fills the screen, and what the user does in the menu behind it.
#pragma once

#include "panel_bench.h"

#include "toolkit/activation.h"
#include "toolkit/menu.h"
#include "toolkit/press.h"

namespace tandrel::test
{

class MenuBench : public PanelBench
{
protected:
    /// The menu comes up; `choice` is chosen in it, or it is closed without one.
    void rightClick(const Text& choice = "", const std::function<void()>& whileUp = {})
    {
        console().TrackHold = false;
        forgetCommands();
        world.backend.menus.clear();
        world.backend.menuChoice = choice;
        world.backend.whileMenuIsUp = whileUp;
        pressIsOver(MouseButton::Right);
        world.pointer.right = true;
        console().Timer3.tick();
        world.pointer.right = false;
        world.backend.whileMenuIsUp = nullptr;
    }

    /// An entry is chosen in a menu that is up, whatever tick has brought it up.
    void choose(Menu& entry)
    {
        forgetCommands();
        const auto form = entry.form().shared_from_this();
        form->run(entry.Click);
    }

    /// Names and captions of what an open menu shows, below its head.
    static std::vector<std::pair<Text, Text>> shownIn(const Menu& head)
    {
        std::vector<std::pair<Text, Text>> all;
        for (const Menu* entry : head.entries())
            if (entry->visible())
                all.emplace_back(entry->name(), entry->caption());
        return all;
    }
    static std::vector<Text> namesIn(const Menu& head)
    {
        std::vector<Text> all;
        for (const Menu* entry : head.entries())
            all.push_back(entry->name());
        return all;
    }
};

} // namespace tandrel::test
