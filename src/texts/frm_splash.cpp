#include "texts/frm_splash.h"

#include "console/holders.h"
#include "console/version.h"
#include "desktop/layered.h"
#include "desktop/monitors.h"
#include "desktop/region.h"
#include "platform/services.h"
#include "toolkit/screen.h"

#include <utility>

namespace tandrel
{

namespace
{
constexpr int kVersionTick = 5;
constexpr int kLastTick = 9;
} // namespace

frmSplash::frmSplash() : Form("frmSplash", Frame::Skin, {screen().FirstLeft(), screen().FirstTop(), 9000, 3300})
{
    Caption = kProgramName;
    setWindowWord(style::kExtendedWord, style::kToolWindow);
    Label1.role = Label2.role = TextRole::Display;
    lblPRO.role = TextRole::Group;
    lblVersion.role = lblCopy.role = TextRole::Quiet;
    lblCopy.alignment = Alignment::Right;
    lblVers.role = TextRole::Title;
    lblVers.autoSize = true;
    Timer1.Tick = [this] { Timer1_Timer(); };
}

void frmSplash::onLoad()
{
    applyMask(*this, imgBody);
    monitors().centreWhereItStands(*this);
    lblVersion.Caption = "vers. " + versionText();
    lblCopy.Caption = "© " + text(services().clock->yearAndMonth() / 100) + " Tandrel Player";
    ticks_ = 0;
    FadeWindow(*this, 0);
}

void frmSplash::onActivate()
{
    // Not in the load: a modal form has to be one before it is seen.
    if (!std::exchange(faded_, true))
        fadeIn(*this);
}

void frmSplash::Timer1_Timer()
{
    ticks_ += 1;
    if (ticks_ == kVersionTick)
        showVersion();
    else if (ticks_ == kLastTick)
        leave();
}

void frmSplash::showVersion()
{
    lblVers.Caption = "Version " + versionText();
    lblVers.Left = (width() - lblVers.width()) / 2.0;
}

void frmSplash::leave()
{
    screen().MousePointer = pointer::kDefault;
    Unload<class frmStart>();
    unload(*this);
}

} // namespace tandrel
