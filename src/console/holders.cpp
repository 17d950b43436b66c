#include "console/holders.h"

#include "console/frm_media.h"
#include "console/frm_start.h"
#include "console/slidemenu.h"
#include "fullscreen/frm_panel.h"
#include "texts/frm_tool_tip.h"
#include "texts/frm_wait.h"
#include "toolkit/holder.h"

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
    }

TANDREL_HOLDER(frmStart)
TANDREL_HOLDER(frmMedia)
TANDREL_HOLDER(frmPanel)
TANDREL_HOLDER(frmWait)
TANDREL_HOLDER(frmToolTip)
TANDREL_HOLDER(slidemenu)
#undef TANDREL_HOLDER

void forgetForms()
{
    Holder<class frmStart>::forget();
    Holder<class frmMedia>::forget();
    Holder<class frmPanel>::forget();
    Holder<class frmWait>::forget();
    Holder<class frmToolTip>::forget();
    Holder<class slidemenu>::forget();
}

} // namespace tandrel
