#include "texts/frm_keys.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "console/key_commands.h"
#include "desktop/monitors.h"
#include "media/shared_state.h"
#include "platform/valid_text.h"
#include "texts/localised.h"

namespace tandrel
{

namespace
{

// Twips.
constexpr int kColumns = 2;
constexpr int kLeft = 330;
constexpr int kFirstTop = 240;
constexpr int kPitch = 285;
constexpr int kTextHeight = 270;
constexpr int kKeysWidth = 2100;
constexpr int kSaysWidth = 4700;
constexpr int kColumn = kKeysWidth + kSaysWidth + 200;
constexpr int kWidth = kColumns * kColumn + 2 * kLeft;
constexpr int kGap = 200;
constexpr int kFileHeight = 900;
constexpr int kBand = 375;

/// The keys of the commands for one video each, by the numbers of the videos.
Text keysOfVideos()
{
    Text keys;
    for (const KeyCommand& command : keyCommands())
        if (isOneOfVideos(command))
            for (const Text& key : frmMedia().keys.keysOf(command))
                keys += (keys.empty() ? "" : " ") + shownKey(key);
    return keys;
}

} // namespace

std::vector<frmKeys::Line> frmKeys::lines()
{
    std::vector<Line> lines;
    bool videos = false;
    for (const KeyCommand& command : keyCommands()) {
        if (!isOneOfVideos(command))
            lines.push_back({frmMedia().keys.shownKeys(command), saidOf(command)});
        else if (!std::exchange(videos, true))
            lines.push_back({keysOfVideos(), localised("keys.video") + " 1 - 9"});
    }
    return lines;
}

frmKeys::frmKeys() : Form("frmKeys", Frame::Dialog, {0, 0, kWidth, 8600})
{
    lblFile.wordWrap = true;
    lblFile.role = TextRole::Quiet;
    cmdOK.isDefault = cmdOK.isCancel = true;
    cmdOK.Click = [this] { unload(*this); };
    const std::vector<Line> all = lines();
    const std::size_t rows = (all.size() + kColumns - 1) / kColumns;
    for (std::size_t at = 0; at < all.size(); ++at)
        addLine(all[at], at, rows);
    lblFile.Top = kFirstTop + static_cast<int>(rows) * kPitch + kGap;
    lblFile.Height = kFileHeight;
    cmdOK.Top = lblFile.Top() + kFileHeight - cmdOK.Height();
    cmdOK.Left = kWidth - cmdOK.Width() - kLeft;
    lblFile.Left = kLeft;
    lblFile.Width = cmdOK.Left() - kLeft - kGap;
    Height = lblFile.Top() + kFileHeight + kGap + kBand;
}

void frmKeys::addLine(const Line& line, std::size_t at, std::size_t rows)
{
    const Long left = kLeft + static_cast<int>(at / rows) * kColumn;
    const Long top = kFirstTop + static_cast<int>(at % rows) * kPitch;
    const Text number = std::to_string(at);
    labels_.push_back(
        std::make_unique<Label>(*this, "lblKeys" + number, TwipsRect{left, top, kKeysWidth, kTextHeight}, line.keys));
    labels_.back()->role = TextRole::Heading;
    labels_.push_back(std::make_unique<Label>(*this, "lblSays" + number,
                                              TwipsRect{left + kKeysWidth, top, kSaysWidth, kTextHeight}, line.says));
}

void frmKeys::onLoad()
{
    Caption = withoutMarks(localised("keys.list")) + " - " + AppTitle;
    cmdOK.Caption = localised("frmHelp.cmdOK");
    lblFile.Caption =
        localised("keys.panel") + "\n" + localised("keys.file") + "\n" + validText(services().keyFile->path());
    monitors().CenterFormOnMonitor(*this, &frmMedia());
}

} // namespace tandrel
