#include "texts/frm_wait.h"

#include "desktop/monitors.h"
#include "toolkit/screen.h"

namespace tandrel
{

frmWait::frmWait() : Form("frmWait", Frame::Notice, {screen().FirstLeft(), screen().FirstTop(), 4500, 960})
{
    lblClose.role = TextRole::Title;
    lblCount.role = TextRole::Chip;
    lblCount.alignment = Alignment::Centre;
    lblCount.Visible = false;
    barDone.Visible = false;
    barDone.Spoken = lblClose.caption();
}

void frmWait::onLoad() { monitors().centreWhereItStands(*this); }

void frmWait::showProgress(Long done, Long whole)
{
    barDone.show(done, whole);
    lblCount.Caption = text(barDone.value()) + " / " + text(barDone.maximum());
    lblCount.Visible = whole > 0;
    barDone.Visible = whole > 0;
}

void frmWait::pulse()
{
    barDone.pulse();
    Refresh();
}

} // namespace tandrel
