#include "console/frm_media.h"

#include "console/holders.h"
#include "media/mod_media.h"
#include "media/shared_state.h"
#include "toolkit/screen.h"

namespace tandrel
{

frmMedia::frmMedia()
{
    dressControls();
    wireControls();
}

frmMedia::~frmMedia() { installConsoleFace(nullptr); }

void frmMedia::playAfterFullScreen()
{
    if (FullScreenOn || trim(FullMedia).empty())
        return;
    mciSend("Play " + FullMedia + " ");
    FullMedia.clear();
}

void frmMedia::MoveMouse(double X, double Y) { services().pointer->moveTo({Long(X), Long(Y)}); }

Text durationCaption(const Text& length)
{
    const auto piece = [&](std::size_t from, std::size_t count) {
        return from < length.size() ? length.substr(from, count) : Text();
    };
    return piece(0, 1) + ":" + piece(2, 2) + ":" + piece(5, 2);
}

} // namespace tandrel
