#include "video/frm_mkv.h"

#include "media/shared_state.h"
#include "texts/localised.h"
#include "toolkit/screen.h"
#include "video/other_media.h"
#include "video/slots.h"

namespace tandrel
{

void frmMKV::onLoad()
{
    screen().MousePointer = pointer::kHourglass;
    MkvOpen = true;
    otherMedia().mkv = {this, &picDVD};
    picDVD.Spoken = localised("spoken.picture");
    takeHold();
    takeCorner();
    Refresh();
    screen().MousePointer = pointer::kDefault;
}

void frmMKV::startPlaying()
{
    if (picDVD.URL().empty())
        picDVD.URL = MediaFile;
}

void frmMKV::onQueryUnload()
{
    // A hand-over has left the bare name of the file in the list, whose path the caption has.
    const std::size_t mark = Text(kCaptionMark).size();
    if (const Text whole = caption(); whole.size() > mark)
        dropOpenEntry(whole.substr(mark));
}

bool frmMKV::isTheOne() const { return otherMedia().mkv.form == this; }

void frmMKV::forgetIt()
{
    MkvOpen = false;
    otherMedia().mkv = {};
    // No other window would take the alias of a film, which names no video.
    if (CurrentAlias == quoted(MediaFile))
        CurrentAlias.clear();
}

} // namespace tandrel
