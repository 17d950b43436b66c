#include "texts/menu.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "media/mod_media.h"
#include "texts/frm_help.h"
#include "texts/links.h"
#include "toolkit/screen.h"

namespace tandrel
{

menu::menu() : Form("menu", Frame::Bare, {0, 0, 1500, 750})
{
    mnuHelp.Click = [] { frmHelp().Show(); };
    mnuAutor.Click = [this] { mnuAutor_Click(); };
    mnuEsci.Click = [] { frmMedia().cmdMedia[command::kExit]->Value = true; };
}

void menu::mnuAutor_Click()
{
    screen().MousePointer = pointer::kHourglass;
    ShellOpen(kHomePage);
    screen().MousePointer = pointer::kDefault;
}

share::share() : Form("share", Frame::Bare, {0, 0, 1500, 750})
{
    mnuFacebook.Click = [] { ShellOpen(facebookLink(AppTitle)); };
    mnuMySpace.Click = [] { ShellOpen(myspaceLink(AppTitle)); };
    mnuTwitter.Click = [] { ShellOpen(twitterLink(AppTitle)); };
}

} // namespace tandrel
