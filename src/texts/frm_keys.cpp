#include "texts/frm_keys.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "console/key_commands.h"
#include "desktop/monitors.h"
#include "media/shared_state.h"
#include "platform/valid_text.h"
#include "texts/localised.h"

#include <algorithm>
#include <span>
#include <utility>

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
constexpr int kSaysWidth = 4700;
constexpr int kGap = 200;
// As wide as the keys are, up to what a small screen has room for. Beyond that they are cut, and their tip has them
// all.
constexpr int kLeastKeysWidth = 2100;
constexpr int kMostKeysWidth = 4800;
constexpr int kCharacter = 110;
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

Long widthOfKeys(std::span<const frmKeys::Line> lines)
{
    Long most = 0;
    for (const frmKeys::Line& line : lines)
        most = std::max(most, characterCount(line.keys));
    return std::clamp<Long>((most + 1) * kCharacter, kLeastKeysWidth, kMostKeysWidth);
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
            lines.push_back({keysOfVideos(), localised("keys.video") + " 1 - " +
                                                 std::to_string(std::ranges::count_if(keyCommands(), isOneOfVideos))});
    }
    return lines;
}

frmKeys::frmKeys() : Form("frmKeys", Frame::Dialog, {0, 0, 14660, 8600})
{
    lblFile.wordWrap = true;
    lblFile.role = TextRole::Quiet;
    cmdOK.isDefault = cmdOK.isCancel = true;
    cmdOK.Click = [this] { unload(*this); };
    const std::vector<Line> all = lines();
    const std::size_t rows = (all.size() + kColumns - 1) / kColumns;
    Long left = kLeft;
    for (std::size_t first = 0; first < all.size(); first += rows) {
        const auto column = std::span(all).subspan(first, std::min(rows, all.size() - first));
        const Long keysWidth = widthOfKeys(column);
        for (std::size_t row = 0; row < column.size(); ++row)
            addLine(column[row], {left, kFirstTop + static_cast<int>(row) * kPitch, keysWidth, kTextHeight});
        left += keysWidth + kSaysWidth + kGap;
    }
    Width = left + kLeft;
    lblFile.Top = kFirstTop + static_cast<int>(rows) * kPitch + kGap;
    lblFile.Height = kFileHeight;
    cmdOK.Top = lblFile.Top() + kFileHeight - cmdOK.Height();
    cmdOK.Left = width() - cmdOK.Width() - kLeft;
    lblFile.Left = kLeft;
    lblFile.Width = cmdOK.Left() - kLeft - kGap;
    Height = lblFile.Top() + kFileHeight + kGap + kBand;
}

void frmKeys::addLine(const Line& line, const TwipsRect& keys)
{
    const Text number = std::to_string(labels_.size() / 2);
    labels_.push_back(std::make_unique<Label>(
        *this, "lblKeys" + number, TwipsRect{keys.left, keys.top, keys.width - kGap / 2, keys.height}, line.keys));
    labels_.back()->role = TextRole::Heading;
    labels_.back()->cut = TextCut::End;
    labels_.push_back(std::make_unique<Label>(
        *this, "lblSays" + number, TwipsRect{keys.left + keys.width, keys.top, kSaysWidth, keys.height}, line.says));
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
