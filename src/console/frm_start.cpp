#include "console/frm_start.h"

#include "console/command_line.h"
#include "console/frm_media.h"
#include "console/holders.h"
#include "desktop/monitors.h"
#include "media/shared_state.h"
#include "persist/settings.h"
#include "toolkit/screen.h"

#include <array>

namespace tandrel
{

namespace
{

constexpr std::array<const char*, 6> kCodes{"EN", "ES", "FR", "IT", "DE", "PT"};
const std::vector<Text> kLanguages{"English", "Español", "Français", "Italiano", "Deutsch", "Português"};

constexpr int kFadeStep = 5;
constexpr int kOpaque = 255;

} // namespace

frmStart::frmStart() : Form("frmStart", Frame::Bare, {screen().FirstLeft(), screen().FirstTop(), 6000, 1800})
{
    Caption = "Tandrel Player";
    lblTitle.alignment = Alignment::Centre;
    lblTitle.role = TextRole::Value;
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
    fadeIn();
}

void frmStart::askLanguage()
{
    screen().MousePointer = pointer::kDefault;
    const int chosen = backend().choose("Select Language:", kLanguages, "Tandrel Player");
    if (chosen >= 0)
        Language = kCodes[static_cast<std::size_t>(chosen)];
    screen().MousePointer = pointer::kDefault;
    saveSetting(settings::kLanguage, Language);
}

void frmStart::fadeIn()
{
    setOpacity(0);
    Visible = true;
    for (int alpha = 1; alpha <= kOpaque; alpha += kFadeStep) {
        setOpacity(alpha);
        Refresh();
    }
}

void frmStart::onActivate() { frmMedia().Show(); }

} // namespace tandrel
