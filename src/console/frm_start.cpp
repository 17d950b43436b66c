#include "console/frm_start.h"

#include "console/command_line.h"
#include "console/frm_media.h"
#include "console/holders.h"
#include "console/version.h"
#include "desktop/layered.h"
#include "desktop/monitors.h"
#include "desktop/region.h"
#include "media/shared_state.h"
#include "persist/settings.h"
#include "texts/frm_lang.h"
#include "toolkit/screen.h"

namespace tandrel
{

frmStart::frmStart() : Form("frmStart", Frame::Skin, {screen().FirstLeft(), screen().FirstTop(), 9000, 3300})
{
    Caption = kProgramName;
    setWindowWord(style::kExtendedWord, style::kToolWindow);
    Label1.role = Label2.role = TextRole::Display;
    lblPRO.role = TextRole::Group;
}

void frmStart::start()
{
    load();
    if (commandLine().empty())
        Show();
}

void frmStart::onLoad()
{
    monitors().Refresh();
    monitors().centreWhereItStands(*this);
    Language = getSetting(settings::kLanguage);
    if (Language.empty())
        askLanguage();
    if (!commandLine().empty()) {
        Hide();
        frmMedia().Show();
        return;
    }
    applyMask(*this, imgBody);
    fadeIn(*this);
}

void frmStart::askLanguage()
{
    screen().MousePointer = pointer::kDefault;
    frmLang().Show(ShowMode::Modal);
    screen().MousePointer = pointer::kDefault;
    saveSetting(settings::kLanguage, Language);
}

void frmStart::onActivate() { frmMedia().Show(); }

} // namespace tandrel
