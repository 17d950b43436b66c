/// Popup menus. A form owns the entries of its menu and keeps their state; the menu is built anew each time it pops up.
#pragma once

#include "toolkit/property.h"
#include "toolkit/text.h"
#include "toolkit/types.h"

#include <functional>
#include <vector>

namespace tandrel
{

class Form;

/// One entry. With entries of its own it is the head of a menu: of a popup menu at the top, of a submenu below.
class Menu
{
public:
    Menu(Form& form, Text name, Text caption = {});
    Menu(Menu& head, Text name, Text caption = {});
    Menu(const Menu&) = delete;

    /// The caption of a line between entries.
    static constexpr const char* kSeparator = "-";

    Form& form() const { return form_; }
    const Text& name() const { return name_; }
    const std::vector<Menu*>& entries() const { return entries_; }

    Text caption() const { return caption_; }
    void setCaption(Text caption) { caption_ = std::move(caption); }
    bool checked() const { return checked_; }
    void setChecked(bool on) { checked_ = on; }
    bool enabled() const { return enabled_; }
    void setEnabled(bool on) { enabled_ = on; }
    bool visible() const { return visible_; }
    void setVisible(bool on) { visible_ = on; }
    Text tag() const { return tag_; }
    void setTag(Text tag) { tag_ = std::move(tag); }

    /// "&" stands before the letter that chooses the entry; "&&" is an "&".
    Property<Menu, Text, &Menu::caption, &Menu::setCaption> Caption{*this};
    Property<Menu, bool, &Menu::checked, &Menu::setChecked> Checked{*this};
    Property<Menu, bool, &Menu::enabled, &Menu::setEnabled> Enabled{*this};
    Property<Menu, bool, &Menu::visible, &Menu::setVisible> Visible{*this};
    Property<Menu, Text, &Menu::tag, &Menu::setTag> Tag{*this};

    std::function<void()> Click;

    /// What the user sees instead of the caption, where that is not for reading; with "&" as in captions.
    Text shown;

    /// Keys that choose the entry without the menu, as the user sees them.
    Text shortcut;

private:
    Form& form_;
    Text name_;
    Text caption_;
    Text tag_;
    bool checked_ = false;
    bool enabled_ = true;
    bool visible_ = true;
    std::vector<Menu*> entries_;
};

/// Shows the entries of `head` at the pointer, as soon as no mouse button is held, and blocks its caller, while timers
/// go on, until the user has chosen one or closed the menu. The handler of the chosen one runs before the return. The
/// press that led here is spent. Nothing happens while another menu is up, or where `head` shows no entry.
void PopupMenu(Menu& head);

} // namespace tandrel
