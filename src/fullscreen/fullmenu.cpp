#include "fullscreen/fullmenu.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "console/key_commands.h"
#include "fullscreen/codec_settings.h"
#include "media/mod_media.h"
#include "media/shared_state.h"
#include "video/selected_video.h"
#include "video/slots.h"

#include <algorithm>

namespace tandrel
{

namespace
{

/// The entry's number, which is its access key too, and the file's name, which may hold the mark of one.
Text shownAs(std::size_t number, const Text& path)
{
    Text shown = (number < 10 ? "&" : "") + std::to_string(number) + "   ";
    for (const char one : fileNameOf(path)) {
        // Behind a tab stands the shortcut of an entry.
        shown += one == '\t' ? ' ' : one;
        if (one == '&')
            shown += one;
    }
    return shown;
}

void jump(bool& wanted, bool& opposite)
{
    if (turnJump(wanted, opposite))
        MediaSetVolume(frmMedia().VolumeSlider.Value);
}

} // namespace

fullmenu::fullmenu() : PictureMenu("fullmenu")
{
    makeVideoEntries();
    mnuFwd.Visible = false;
    mnuRwd.Visible = false;
    ends(mnuFull, [this] { leaveFullScreen(); });
    ends(mnuAudioSet, [] { showCodecSettings(CodecPage::Audio, CodecCaller::Menu); });
    ends(mnuVideoSet, [] { showCodecSettings(CodecPage::Video, CodecCaller::Menu); });
    ends(mnuEsci, [] { close(); });
    formats(mnu43, mnu54, mnu169, mnu84);
    mnuPlay.Click = [] { playSelected(); };
    mnuPause.Click = [] { pauseSelected(); };
    mnuFwd.Click = [] { jump(FastForward, FastRewind); };
    mnuRwd.Click = [] { jump(FastRewind, FastForward); };
}

void fullmenu::makeVideoEntries()
{
    const std::size_t count = static_cast<std::size_t>(std::int64_t{Long(MaxVideos)}) + 1;
    for (std::size_t index = 0; index < count; ++index) {
        mnuVideo.push_back(std::make_unique<Menu>(mnuPic, "mnuVideo" + std::to_string(index)));
        Menu& entry = *mnuVideo.back();
        if (index > 0)
            ends(entry, [this, &entry] { bringForward(entry); });
    }
    mnuVideo.front()->Caption = "Videos";
    mnuVideo.front()->Enabled = false;
}

void fullmenu::onLoad()
{
    PictureMenu::onLoad();
    nameInLanguage({{mnuFull, "fullmenu.mnuFull"},
                    {mnuAudioSet, "fullmenu.mnuAudioSet"},
                    {mnuVideoSet, "fullmenu.mnuVideoSet"},
                    {mnuPlay, "fullmenu.mnuPlay"},
                    {mnuPause, "fullmenu.mnuPause"},
                    {mnuFwd, "fullmenu.mnuFwd"},
                    {mnuRwd, "fullmenu.mnuRwd"},
                    {mnu43, "fullmenu.mnu43"},
                    {mnu54, "fullmenu.mnu54"},
                    {mnu169, "fullmenu.mnu169"},
                    {mnu84, "fullmenu.mnu84"},
                    {mnuPic, "fullmenu.mnuPic"},
                    {*mnuVideo.front(), "fullmenu.mnuVideo"},
                    {mnuEsci, "fullmenu.mnuEsci"}});
    showKeysOfMenu(*this);
    listVideos();
}

void fullmenu::listVideos()
{
    for (std::size_t index = 1; index < mnuVideo.size(); ++index) {
        Menu& entry = *mnuVideo[index];
        entry.Caption = "";
        entry.shortcut = "";
        entry.Enabled = false;
        entry.Visible = false;
        entry.Checked = false;
    }
    for (std::size_t slot = 0; slot < VideoWindows.size(); ++slot) {
        const auto& window = VideoWindows[slot];
        Menu* entry = window && !window->MediaFile.empty() ? entryFor(slot) : nullptr;
        if (!entry)
            continue;
        entry->Caption = fromSecondCharacter(window->caption());
        entry->shown = shownAs(slot + 1, entry->caption());
        entry->shortcut = keysOfVideo(slot + 1);
        entry->Enabled = true;
        entry->Visible = true;
        entry->Checked = window->Full;
    }
}

Menu* fullmenu::entryFor(std::size_t slot)
{
    if (slot + 1 < mnuVideo.size())
        return mnuVideo[slot + 1].get();
    // A slot beyond the last entry takes a hole: there are never more videos than entries.
    const auto hidden =
        std::find_if(mnuVideo.begin() + 1, mnuVideo.end(), [](const auto& entry) { return !entry->visible(); });
    return hidden == mnuVideo.end() ? nullptr : hidden->get();
}

PictureMenu::Shape fullmenu::shape() const
{
    frmChild* window = slotPlaying(CurrentAlias);
    return window ? Shape{window, &window->picVideo} : Shape{};
}

void fullmenu::bringForward(const Menu& entry)
{
    const Text wanted = "§" + entry.caption();
    forEachSlot([&](frmChild& window) {
        if (window.caption() != wanted)
            return;
        window.ZOrder();
        window.Refresh();
        window.picVideo.Refresh();
        window.picVideo.SetFocus();
    });
}

} // namespace tandrel
