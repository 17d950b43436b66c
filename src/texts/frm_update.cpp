#include "texts/frm_update.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "desktop/monitors.h"
#include "media/shared_state.h"

namespace tandrel
{

namespace
{

// Lines that it has room for as it is, of so many characters at the least.
constexpr int kLines = 3;
constexpr int kCharacters = 44;
// What it gets wider by for more, how many characters a line has then, and what each further line takes, in twips.
constexpr int kWider = 3000;
constexpr int kCharactersWider = 72;
constexpr int kLineHeight = 240;

/// As many as it can come to, long ones being broken.
Long linesOf(const Text& message, int characters)
{
    Long lines = 0;
    for (const Text& line : split(message, '\n'))
        lines += 1 + characterCount(line) / characters;
    return lines;
}

} // namespace

frmUpdate::frmUpdate() : Form("frmUpdate", Frame::Dialog, {0, 0, 6300, 2490})
{
    Caption = AppTitle;
    lblUpdate.wordWrap = true;
    cmdOK.isDefault = true;
    cmdCancel.isCancel = true;
    cmdOK.Click = [this] { answer(false); };
    cmdCancel.Click = [this] { answer(true); };
}

void frmUpdate::say(const Text& message)
{
    lblUpdate.Caption = message;
    if (linesOf(message, kCharacters) <= kLines)
        return;
    const Long further = linesOf(message, kCharactersWider) - kLines;
    const Long higher = further > 0 ? further * kLineHeight : Long(0);
    lblUpdate.Width = lblUpdate.Width() + kWider;
    lblUpdate.Height = lblUpdate.Height() + higher;
    for (CommandButton* button : {&cmdOK, &cmdCancel}) {
        button->Top = button->Top() + higher;
        button->Left = button->Left() + kWider;
    }
    Width = Width() + kWider;
    Height = Height() + higher;
    monitors().CenterFormOnMonitor(*this, &frmMedia());
}

void frmUpdate::onLoad() { monitors().CenterFormOnMonitor(*this, &frmMedia()); }

void frmUpdate::onActivate()
{
    if (!trim(lblUpdate.caption()).empty())
        backend().beep();
}

void frmUpdate::answer(bool cancelled)
{
    frmMedia().UpdateCancelled = cancelled;
    unload(*this);
}

} // namespace tandrel
