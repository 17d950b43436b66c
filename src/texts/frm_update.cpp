#include "texts/frm_update.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "desktop/monitors.h"
#include "media/shared_state.h"

#include <algorithm>
#include <functional>
#include <string_view>

namespace tandrel
{

namespace
{

// Twips: the text of a short message, and what stands beside and above it.
constexpr TwipsRect kText{1140, 300, 4860, 900};
constexpr int kBesideText = 1440;
constexpr int kAroundText = 1590;
constexpr int kAboveButtons = 210;
constexpr int kBetweenButtons = 120;
// The width that a longer message gets, and how much of the monitor is left free around the largest.
constexpr int kWide = 7860;
constexpr int kFree = 450;
constexpr const char* kMore = "\n…";

/// As many whole characters of `text`, with a sign that there are more, as `fits` allows.
Text shortened(const Text& text, const std::function<bool(const Text& part)>& fits)
{
    std::vector<std::size_t> ends{0};
    while (ends.back() < text.size())
        ends.push_back(ends.back() + firstCharacterLength(std::string_view(text).substr(ends.back())));
    const auto isTooMuch = [&](std::size_t end) { return !fits(text.substr(0, end) + kMore); };
    const auto first = std::partition_point(ends.begin(), ends.end(), [&](std::size_t end) { return !isTooMuch(end); });
    return text.substr(0, first == ends.begin() ? 0 : *(first - 1)) + kMore;
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
    const MonitorTwips room = monitors().roomAround(frmMedia());
    const Long widest = std::max<Long>(kText.width, room.width - kBesideText - kFree);
    const Long highest = std::max<Long>(kText.height, room.height - kAroundText - kFree);
    const auto fits = [&](const Text& text, Long width, Long height) {
        return lblUpdate.heightFor(text, width) <= height;
    };
    Text said = message;
    Long width = kText.width;
    if (!fits(said, width, kText.height))
        width = fits(said, std::min<Long>(kWide, widest), highest) ? std::min<Long>(kWide, widest) : widest;
    if (!fits(said, width, highest))
        said = shortened(said, [&](const Text& part) { return fits(part, width, highest); });
    lblUpdate.Caption = said;
    placeAround(width, std::max<Long>(kText.height, lblUpdate.heightFor(said, width)));
}

void frmUpdate::placeAround(Long width, Long height)
{
    lblUpdate.move({kText.left, kText.top, width, height});
    Long right = kText.left + width;
    for (CommandButton* button : {&cmdCancel, &cmdOK}) {
        button->Top = kText.top + height + kAboveButtons;
        button->Left = right - button->width();
        right = button->left() - kBetweenButtons;
    }
    Width = width + kBesideText;
    Height = height + kAroundText;
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
