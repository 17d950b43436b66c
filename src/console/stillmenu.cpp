#include "console/stillmenu.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "texts/localised.h"

namespace tandrel
{

stillmenu::stillmenu() : Form("stillmenu", Frame::Bare, {0, 0, 1500, 750})
{
    mnuStill.Click = [] { frmMedia().stillPictures.save(frmMedia(), StillPictures::Which::Selected); };
    mnuStills.Click = [] { frmMedia().stillPictures.save(frmMedia(), StillPictures::Which::All); };
}

void stillmenu::nameInLanguage()
{
    mnuStill.Caption = localised("stillmenu.mnuStill");
    mnuStills.Caption = localised("stillmenu.mnuStills");
}

} // namespace tandrel
