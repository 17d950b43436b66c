// HD films and discs: how their windows come up, go with others, and end.

#include "console/frm_media.h"
#include "console/holders.h"
#include "console/open_command.h"
#include "desktop/system_facts.h"
#include "media/shared_state.h"
#include "texts/frm_tool_tip.h"
#include "toolkit/trap.h"
#include "video/frm_dvd.h"
#include "video/frm_dvd2.h"
#include "video/frm_mkv.h"
#include "video/other_media.h"
#include "video/slots.h"

namespace tandrel
{

void frmMedia::openHdFile(const Text& path)
{
    // The last one may be about to end, behind the handler that led here.
    Renew<class frmMKV>();
    class frmMKV& window = frmMKV();
    window.MediaFile = path;
    window.Caption = frmMKV::kCaptionMark + path;
    window.Show();
    followOtherMedia();
}

void frmMedia::openDvd(const Text& path)
{
    DiscWanted = path;
    Unload<class frmDVD>();
    Unload<class frmDVD2>();
    Renew<class frmDVD>();
    Renew<class frmDVD2>();
    if (isOlderSystem(WindowsVersion)) {
        frmDVD().Titles = 0;
        frmDVD().Show();
    } else {
        frmDVD2().Show();
        if (frmDVD2().DriveURL.empty())
            Unload<class frmDVD2>();
    }
    DiscWanted.clear();
    followOtherMedia();
}

void frmMedia::openChosenDisc()
{
    const Text path = List1.List(0);
    // A disc is no open video, and may be chosen again.
    dropOpenEntry(path);
    openDvd(path);
}

void frmMedia::playDisc(const Text& path)
{
    if (isBusy() || ClosingDown)
        return;
    const OpenCommand command(*this);
    Unload<class frmToolTip>();
    Unload<class frmMKV>();
    runBatch(0, [&] {
        closeAllVideos(false);
        openDvd(path);
    });
}

void frmMedia::followOtherMedia()
{
    Timer1.Enabled = true;
    Timer2.Enabled = true;
}

void frmMedia::endOtherMedia()
{
    Unload<class frmDVD>();
    Unload<class frmDVD2>();
    Unload<class frmMKV>();
}

void frmMedia::endHd() { Unload<class frmMKV>(); }

void frmMedia::stopOtherMedia()
{
    ignoringErrors([] { controlOf(otherMedia().dvd).Stop(); });
    ignoringErrors([] { controlOf(otherMedia().dvd2).controls().stop(); });
    ignoringErrors([] { controlOf(otherMedia().mkv).controls().stop(); });
}

void frmMedia::restoreOtherMedia()
{
    const auto bringBack = [](auto& window) {
        window.Refresh();
        window.Show();
    };
    // What was held when it was put away plays on.
    tellOtherMedia(Transport::Play);
    if (DVDMode && isOlderSystem(WindowsVersion) && Loaded<class frmDVD>())
        bringBack(frmDVD());
    else if (DVDMode && Loaded<class frmDVD2>())
        bringBack(frmDVD2());
    else if (MkvOpen && !DVDMode && Loaded<class frmMKV>())
        bringBack(frmMKV());
}

} // namespace tandrel
