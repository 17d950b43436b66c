#include "toolkit/menu.h"

#include "toolkit/backend.h"
#include "toolkit/form.h"
#include "toolkit/press.h"
#include "toolkit/program.h"

#include <algorithm>

namespace tandrel
{

Menu::Menu(Form& form, Text name, Text caption) : form_(form), name_(std::move(name)), caption_(std::move(caption)) {}

Menu::Menu(Menu& head, Text name, Text caption) : Menu(head.form_, std::move(name), std::move(caption))
{
    head.entries_.push_back(this);
}

namespace
{
/// The press that opens a menu, and the one that chooses from it, do nothing else.
void spendHeldPresses()
{
    for (const MouseButton button : {MouseButton::Left, MouseButton::Right})
        if (buttonIsDown(button))
            spendPress(button);
}
} // namespace

void PopupMenu(Menu& head)
{
    static bool up = false;
    const auto& entries = head.entries();
    const bool shows = std::any_of(entries.begin(), entries.end(), [](const Menu* entry) { return entry->visible(); });
    if (up || !shows || programEnded())
        return;
    // The form may be gone before the menu is.
    const auto alive = head.form().shared_from_this();
    spendHeldPresses();
    up = true;
    Menu* chosen = backend().popUp(head);
    up = false;
    spendHeldPresses();
    if (chosen != nullptr && chosen->Click && head.form().isLoaded())
        head.form().run(chosen->Click);
}

} // namespace tandrel
