#include "fullscreen/picture_menu.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "fullscreen/frm_panel.h"
#include "media/shared_state.h"
#include "texts/localised.h"

namespace tandrel
{

PictureMenu::PictureMenu(Text name) : Form(std::move(name), Frame::Bare, {0, 0, 1500, 750}) {}

void PictureMenu::onLoad()
{
    FullMenuOpen = true;
    frmMedia().Timer4.Enabled = false;
    putPanelBelow();
}

void PictureMenu::nameInLanguage(std::initializer_list<EntryText> entries)
{
    for (const auto& [entry, key] : entries)
        entry.Caption = localised(key);
}

void PictureMenu::ends(Menu& entry, std::function<void()> effect)
{
    entry.Click = [this, effect = std::move(effect)] {
        frmMedia().Timer4.Enabled = true;
        PanelUp = true;
        effect();
        unload(*this);
    };
}

void PictureMenu::ownFormat(Menu& entry)
{
    ends(entry, [this] {
        const auto [window, picture] = shape();
        if (!window)
            return;
        picture->Top = 0;
        picture->Height = window->height();
        window->SetFocus();
    });
}

void PictureMenu::format(Menu& entry, double numerator, double denominator)
{
    ends(entry, [this, numerator, denominator] {
        const auto [window, picture] = shape();
        if (!window)
            return;
        const double high = static_cast<double>(window->width()) * numerator / denominator;
        picture->Height = high;
        picture->Top = divide(static_cast<double>(window->height()) - static_cast<double>(picture->height()), 2);
        window->SetFocus();
    });
}

void PictureMenu::formats(Menu& own, Menu& extended, Menu& flat, Menu& ultraFlat)
{
    ownFormat(own);
    // Their names say nothing of their shapes: the extended one is higher than wide.
    format(extended, 20, 19);
    format(flat, 9, 16);
    format(ultraFlat, 4, 8);
}

void PictureMenu::leaveFullScreen()
{
    class frmMedia& console = frmMedia();
    Unload<class frmPanel>();
    ClickState = 1.0;
    console.TrackHold = false;
    FullMenuOpen = false;
    PanelUp = false;
    // It is what leads out of full screen, and need not wait for its turn.
    console.Timer2.hasten();
}

void PictureMenu::close() { FullMenuOpen = false; }

} // namespace tandrel
