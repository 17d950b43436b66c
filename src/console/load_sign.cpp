#include "console/load_sign.h"

#include "platform/services.h"
#include "texts/localised.h"

namespace tandrel
{

void LoadSign::follow(ConsoleControls& console, const Text& selected)
{
    Mci& media = *services().mci;
    // Each time, as the same name may stand for a video that was opened anew.
    media.favour(withoutQuotes(trim(selected)));
    const int eased = media.eased();
    if (eased == shown_)
        return;
    shown_ = eased;
    console.imgLoad.ToolTip = localised("frmMedia.imgLoad") + " " + text(Long(eased));
    console.imgLoad.Visible = eased > 0;
}

} // namespace tandrel
