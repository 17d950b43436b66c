#include "console/holders.h"

#include "console/frm_media.h"
#include "console/frm_start.h"
#include "console/slidemenu.h"
#include "console/stillmenu.h"
#include "fullscreen/dvdmenu.h"
#include "fullscreen/frm_ffdshow.h"
#include "fullscreen/frm_panel.h"
#include "fullscreen/fullmenu.h"
#include "persist/frm_prev.h"
#include "persist/openmenu.h"
#include "texts/frm_help.h"
#include "texts/frm_keys.h"
#include "texts/frm_lang.h"
#include "texts/frm_splash.h"
#include "texts/frm_tool_tip.h"
#include "texts/frm_update.h"
#include "texts/frm_wait.h"
#include "texts/menu.h"
#include "toolkit/holder.h"
#include "video/frm_dvd.h"
#include "video/frm_dvd2.h"
#include "video/frm_mkv.h"
#include "video/other_media.h"
#include "video/slots.h"

namespace tandrel
{

#define TANDREL_HOLDER(form)                                                                                           \
    class form& form() { return Holder<class form>::touch(); }                                                         \
    template <>                                                                                                        \
    bool Loaded<class form>()                                                                                          \
    {                                                                                                                  \
        return Holder<class form>::loaded();                                                                           \
    }                                                                                                                  \
    template <>                                                                                                        \
    void Unload<class form>()                                                                                          \
    {                                                                                                                  \
        Holder<class form>::end();                                                                                     \
    }                                                                                                                  \
    template <>                                                                                                        \
    void Renew<class form>()                                                                                           \
    {                                                                                                                  \
        Holder<class form>::renew();                                                                                   \
    }

TANDREL_HOLDER(frmStart)
TANDREL_HOLDER(frmMedia)
TANDREL_HOLDER(frmPanel)
TANDREL_HOLDER(frmWait)
TANDREL_HOLDER(frmToolTip)
TANDREL_HOLDER(frmLang)
TANDREL_HOLDER(frmSplash)
TANDREL_HOLDER(frmHelp)
TANDREL_HOLDER(frmKeys)
TANDREL_HOLDER(frmUpdate)
TANDREL_HOLDER(frmMKV)
TANDREL_HOLDER(frmDVD)
TANDREL_HOLDER(frmDVD2)
TANDREL_HOLDER(fullmenu)
TANDREL_HOLDER(dvdmenu)
TANDREL_HOLDER(frmFFDShowAudio)
TANDREL_HOLDER(frmFFDShowVideo)
TANDREL_HOLDER(frmPrev)
TANDREL_HOLDER(slidemenu)
TANDREL_HOLDER(stillmenu)
TANDREL_HOLDER(openmenu)
TANDREL_HOLDER(menu)
TANDREL_HOLDER(share)
#undef TANDREL_HOLDER

void endPlayers() { closeOtherMedia(); }

void endCodecForms()
{
    Unload<class frmFFDShowAudio>();
    Unload<class frmFFDShowVideo>();
}

void forgetForms()
{
    forgetSpareWindows();
    otherMedia() = {};
    Holder<class frmStart>::forget();
    Holder<class frmMedia>::forget();
    Holder<class frmPanel>::forget();
    Holder<class frmWait>::forget();
    Holder<class frmToolTip>::forget();
    Holder<class frmLang>::forget();
    Holder<class frmSplash>::forget();
    Holder<class frmHelp>::forget();
    Holder<class frmKeys>::forget();
    Holder<class frmUpdate>::forget();
    Holder<class frmMKV>::forget();
    Holder<class frmDVD>::forget();
    Holder<class frmDVD2>::forget();
    Holder<class fullmenu>::forget();
    Holder<class dvdmenu>::forget();
    Holder<class frmFFDShowAudio>::forget();
    Holder<class frmFFDShowVideo>::forget();
    Holder<class frmPrev>::forget();
    Holder<class slidemenu>::forget();
    Holder<class stillmenu>::forget();
    Holder<class openmenu>::forget();
    Holder<class menu>::forget();
    Holder<class share>::forget();
}

} // namespace tandrel
