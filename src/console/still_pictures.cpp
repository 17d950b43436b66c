#include "console/still_pictures.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "media/mod_media.h"
#include "media/shared_state.h"
#include "platform/path_marks.h"
#include "platform/valid_text.h"
#include "texts/frm_update.h"
#include "texts/localised.h"
#include "toolkit/trap.h"
#include "video/other_media.h"
#include "video/slots.h"

#include <array>
#include <vector>

namespace tandrel
{

namespace
{

// Of 200 ms: eight seconds.
constexpr int kNoteTicks = 40;
constexpr double kMsInSecond = 1000;

struct TroubleRow {
    PictureTrouble trouble;
    const char* message;
};
constexpr std::array<TroubleRow, 4> kTroubles{{{PictureTrouble::Folder, "message.pictureFolder"},
                                               {PictureTrouble::NoRoom, "message.pictureRoom"},
                                               {PictureTrouble::NoPicture, "message.pictureMissing"},
                                               {PictureTrouble::Busy, "message.pictureBusy"}}};

void addFile(const frmChild& window, std::vector<PictureWish>& wishes)
{
    const Alias alias = trim(window.MediaFile);
    mciSend("set " + alias + " time format ms");
    const MciAnswer position = mciAsk("status " + alias + " position");
    if (position.result == 0)
        wishes.push_back({withoutQuotes(alias), static_cast<double>(numberAtFront(position.text)) / kMsInSecond});
}

void addFilm(std::vector<PictureWish>& wishes)
{
    ignoringErrors([&] {
        MediaPlayerControl& film = controlOf(otherMedia().mkv);
        if (const Text path = film.URL(); !path.empty())
            wishes.push_back({path, film.controls().currentPosition()});
    });
}

/// One after the other would be so many instants.
void addAllFiles(std::vector<PictureWish>& wishes)
{
    std::vector<Text> questions;
    forEachPlayable(
        [&](const frmChild& window) { questions.push_back("status " + trim(window.MediaFile) + " position"); });
    services().mci->expect(questions);
    forEachPlayable([&](const frmChild& window) { ignoringErrors([&] { addFile(window, wishes); }); });
}

std::vector<PictureWish> wishesFor(StillPictures::Which which)
{
    std::vector<PictureWish> wishes;
    const MediaKind kind = mediaKind();
    if (which == StillPictures::Which::All) {
        addAllFiles(wishes);
        addFilm(wishes);
    } else if (kind == MediaKind::Hd) {
        addFilm(wishes);
    } else if (kind == MediaKind::Files) {
        if (const frmChild* window = slotPlaying(CurrentAlias); window && !window->hasFailed())
            ignoringErrors([&] { addFile(*window, wishes); });
    }
    return wishes;
}

bool isDisc(MediaKind kind) { return kind == MediaKind::DiscOnPlayer || kind == MediaKind::DiscOnVideoControl; }

} // namespace

void StillPictures::save(ConsoleControls& console, Which which)
{
    const std::vector<PictureWish> wishes = wishesFor(which);
    if (wishes.empty()) {
        frmMedia().tell(localised(isDisc(mediaKind()) ? "message.pictureDisc" : "message.pictureNone"));
        return;
    }
    services().pictures->save(wishes, which == Which::All);
    ++waiting_;
    note(console, localised("note.picturesSaving"));
    console.TimerPictures.Enabled = true;
}

void StillPictures::follow(ConsoleControls& console)
{
    while (waiting_ > 0) {
        // One message at a time, which waits for the user.
        if (Loaded<class frmUpdate>() && frmUpdate().Visible())
            return;
        const auto saved = services().pictures->done();
        if (!saved)
            break;
        --waiting_;
        tell(console, *saved);
    }
    if (waiting_ > 0 || --noteTicks_ > 0)
        return;
    console.lblNote.Visible = false;
    console.Label3.Visible = true;
    console.TimerPictures.Enabled = false;
}

void StillPictures::tell(ConsoleControls& console, const SavedPictures& saved)
{
    const Text folder = validText(saved.folder);
    if (!saved.files.empty())
        note(console,
             text(Long(static_cast<int>(saved.files.size()))) + " " + localised("note.picturesSaved") + " " + folder);
    else
        noteTicks_ = 0;
    for (const TroubleRow& row : kTroubles) {
        if (row.trouble != saved.trouble)
            continue;
        Text message = localised(row.message);
        if (row.trouble == PictureTrouble::Folder || row.trouble == PictureTrouble::NoRoom)
            message += "\n" + folder;
        for (const Text& path : saved.missing)
            message += "\n" + validText(unmarkPath(path.substr(path.rfind('/') + 1)));
        frmMedia().tell(message);
    }
}

void StillPictures::note(ConsoleControls& console, const Text& text)
{
    console.lblNote.Caption = text;
    console.lblNote.Visible = true;
    console.Label3.Visible = false;
    noteTicks_ = kNoteTicks;
}

} // namespace tandrel
