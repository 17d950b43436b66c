#include "console/slidemenu.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "persist/settings.h"

namespace tandrel
{

slidemenu::slidemenu() : Form("slidemenu", Frame::Bare, {0, 0, 1500, 750})
{
    mnuSlideCenter.Click = [this] { mnuSlideCenter_Click(); };
    mnuSlideLeft.Click = [this] { mnuSlideLeft_Click(); };
}

void slidemenu::onLoad()
{
    const bool center = frmMedia().SlideMode == "0";
    mnuSlideCenter.Checked = center;
    mnuSlideLeft.Checked = !center;
}

void slidemenu::mnuSlideCenter_Click()
{
    mnuSlideCenter.Checked = true;
    mnuSlideLeft.Checked = false;
    saveSetting(settings::kSlide, "0");
    frmMedia().Resize(false);
    frmMedia().SlideMode = "0";
    frmMedia().showMode();
}

void slidemenu::mnuSlideLeft_Click()
{
    mnuSlideCenter.Checked = false;
    mnuSlideLeft.Checked = true;
    frmMedia().WindowDragged = false;
    saveSetting(settings::kSlide, "1");
    frmMedia().SlideShow();
    frmMedia().SlideMode = "1";
    frmMedia().WindowDragged = false;
    frmMedia().showMode();
}

} // namespace tandrel
