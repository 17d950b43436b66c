#include "texts/frm_lang.h"

#include "console/version.h"
#include "desktop/monitors.h"
#include "media/shared_state.h"
#include "toolkit/screen.h"

#include <array>

namespace tandrel
{

namespace
{

struct OfferedLanguage {
    const char* name;
    const char* code;
};
constexpr std::array<OfferedLanguage, 6> kLanguages{{{"English", "EN"},
                                                     {"Español", "ES"},
                                                     {"Français", "FR"},
                                                     {"Italiano", "IT"},
                                                     {"Deutsch", "DE"},
                                                     {"Português", "PT"}}};

} // namespace

frmLang::frmLang() : Form("frmLang", Frame::Dialog, {screen().FirstLeft(), screen().FirstTop(), 4950, 2430})
{
    Caption = kProgramName;
    lblLang.role = TextRole::Quiet;
    cboLang.Spoken = lblLang.caption();
    cmdOK.isDefault = true;
    cmdOK.Click = [this] { cmdOK_Click(); };
    for (const OfferedLanguage& language : kLanguages)
        cboLang.AddItem(language.name);
}

void frmLang::onLoad()
{
    monitors().centreWhereItStands(*this);
    cboLang.ListIndex = 0;
}

void frmLang::cmdOK_Click()
{
    const Long chosen = cboLang.ListIndex;
    if (chosen >= 0)
        Language = kLanguages[static_cast<std::size_t>(chosen)].code;
    unload(*this);
}

} // namespace tandrel
