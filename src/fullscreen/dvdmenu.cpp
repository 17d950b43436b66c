#include "fullscreen/dvdmenu.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "console/key_commands.h"
#include "toolkit/trap.h"
#include "video/frm_dvd.h"

namespace tandrel
{

dvdmenu::dvdmenu() : PictureMenu("dvdmenu")
{
    ends(mnuFull, [this] {
        frmMedia().SaverOff = false;
        leaveFullScreen();
    });
    ends(mnuDVD, [] { showDiscMenu(); });
    ends(mnuEsci, [] { close(); });
    formats(mnu43, mnu54, mnu169, mnu84);
}

void dvdmenu::onLoad()
{
    PictureMenu::onLoad();
    nameInLanguage({{mnuFull, "fullmenu.mnuFull"},
                    {mnu43, "fullmenu.mnu43"},
                    {mnu54, "fullmenu.mnu54"},
                    {mnu169, "fullmenu.mnu169"},
                    {mnu84, "fullmenu.mnu84"},
                    {mnuDVD, "dvdmenu.mnuDVD"},
                    {mnuEsci, "fullmenu.mnuEsci"}});
    showKeysOfMenu(*this);
}

PictureMenu::Shape dvdmenu::shape() const
{
    if (!Loaded<class frmDVD>())
        return {};
    class frmDVD& window = frmDVD();
    return {&window, &window.dvdPicture};
}

void dvdmenu::showDiscMenu()
{
    ignoringErrors([] {
        if (Loaded<class frmDVD>() && frmDVD().oVidWebDVD)
            frmDVD().oVidWebDVD->ShowMenu(disc_menu::kRoot);
    });
    close();
}

} // namespace tandrel
