/// What the two menus over a full picture share: how they come and go, and the shapes that they give to a picture.
#pragma once

#include "toolkit/form.h"
#include "toolkit/menu.h"

namespace tandrel
{

/// Never shown itself: it owns a menu, lives as long as that is up, and keeps the panel down meanwhile.
class PictureMenu : public Form
{
protected:
    explicit PictureMenu(Text name);

    /// A picture and the window that it is in.
    struct Shape {
        Form* window = nullptr;
        Control* picture = nullptr;
    };
    /// What the formats are for; nothing where there is no such window.
    virtual Shape shape() const = 0;

    void onLoad() override;

    /// The entries' captions in the language in use.
    struct EntryText {
        Menu& entry;
        const char* key;
    };
    static void nameInLanguage(std::initializer_list<EntryText> entries);

    /// An entry that ends the menu.
    void ends(Menu& entry, std::function<void()> effect);
    /// The picture is as high as its window.
    void ownFormat(Menu& entry);
    /// The picture is `numerator` / `denominator` times as high as its window is wide, in the middle of its height.
    void format(Menu& entry, double numerator, double denominator);
    /// The four of them.
    void formats(Menu& own, Menu& extended, Menu& flat, Menu& ultraFlat);
    /// The window goes back to its size.
    void leaveFullScreen();
    static void close();
};

} // namespace tandrel
