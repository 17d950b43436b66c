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

TANDREL_FORMS(TANDREL_HOLDER)
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
#define TANDREL_FORGET(form) Holder<class form>::forget();
    TANDREL_FORMS(TANDREL_FORGET)
#undef TANDREL_FORGET
}

} // namespace tandrel
