#include "texts/frm_wait.h"

#include "desktop/monitors.h"
#include "toolkit/screen.h"

namespace tandrel
{

frmWait::frmWait() : Form("frmWait", Frame::Bare, {screen().FirstLeft(), screen().FirstTop(), 4500, 900})
{
    lblClose.alignment = Alignment::Centre;
    lblClose.role = TextRole::Title;
}

void frmWait::onLoad() { monitors().centreWhereItStands(*this); }

} // namespace tandrel
