#include "texts/frm_help.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "console/hot_keys.h"
#include "desktop/monitors.h"
#include "media/shared_state.h"
#include "texts/frm_keys.h"
#include "texts/localised.h"

#include <array>

namespace tandrel
{

/// A row of the help: the number of its label, the pictures in front, and whether a line parts it from the one before.
struct HelpRow {
    int number;
    std::array<const char*, 2> pictures;
    std::array<Plate, 2> plates;
    bool newGroup;
};

/// How far apart things stand, in twips.
struct HelpPitch {
    int first;
    int row;
    int group;
    int picture;
    int key;
};

namespace
{

// Twips.
constexpr int kWidth = 9300;
constexpr int kLeft = 330;
constexpr int kTextLeft = 1200;
constexpr int kTextHeight = 270;
constexpr int kKeyNameLeft = 4800;
constexpr int kBand = 375;

constexpr auto kRound = Plate::Round;
constexpr auto kBare = Plate::None;
constexpr std::array<HelpRow, 16> kRows{{
    {1, {"open", nullptr}, {kRound, kBare}, false},
    {2, {"play", nullptr}, {Plate::Play, kBare}, false},
    {3, {"pause", nullptr}, {Plate::Lead, kBare}, false},
    {7, {"forward", nullptr}, {Plate::Lead, kBare}, false},
    {8, {"rewind", nullptr}, {Plate::Lead, kBare}, false},
    {5, {"hide", nullptr}, {kRound, kBare}, false},
    {6, {"exit", nullptr}, {kRound, kBare}, false},
    {4, {"help", nullptr}, {kRound, kBare}, false},
    {9, {"mouse_right", nullptr}, {kBare, kBare}, true},
    {10, {"mouse_left", nullptr}, {kBare, kBare}, false},
    {11, {"mouse_wheel", nullptr}, {kBare, kBare}, false},
    {12, {"mouse_right", nullptr}, {kBare, kBare}, false},
    {13, {"video", "audio"}, {kRound, kRound}, true},
    {16, {"tray", nullptr}, {kBare, kBare}, false},
    {14, {"pause_all", "mute"}, {kRound, kRound}, true},
    {17, {"layout", nullptr}, {kRound, kBare}, false},
}};

constexpr HelpPitch kAmple{195, 375, 150, 330, 285};
constexpr HelpPitch kTight{75, 285, 90, 270, 240};
// On a lower screen the rows close up.
constexpr int kAmpleScreen = 11100;

} // namespace

struct frmHelp::Row {
    Row(frmHelp& form, const HelpRow& what, Long top, const HelpPitch& pitch);

    int number;
    std::vector<std::unique_ptr<Image>> pictures;
    Label label;
};

frmHelp::frmHelp() : Form("frmHelp", Frame::Dialog, {0, 0, kWidth, 10350})
{
    const Long room = frmMedia().FullHeight;
    addRows(room > 0 && room < kAmpleScreen ? kTight : kAmple);
    cmdOK.isDefault = cmdOK.isCancel = true;
    cmdOK.Click = [this] { unload(*this); };
    cmdKeys.Click = [] { frmKeys().Show(); };
}

frmHelp::~frmHelp() = default;

void frmHelp::addRows(const HelpPitch& pitch)
{
    Long top = pitch.first;
    for (const HelpRow& what : kRows) {
        if (what.newGroup)
            top = addLine(std::to_string(what.number), top, pitch);
        rows_.push_back(std::make_unique<Row>(*this, what, top, pitch));
        top += pitch.row;
    }
    top = addLine("Keys", top, pitch);
    addKeys(top, pitch);
}

frmHelp::Row::Row(frmHelp& form, const HelpRow& what, Long top, const HelpPitch& pitch)
    : number(what.number),
      label(form, "Label" + std::to_string(what.number),
            {kTextLeft, top + (pitch.picture - kTextHeight) / 2, kWidth - kTextLeft - kLeft, kTextHeight})
{
    label.usesMnemonic = true;
    for (std::size_t at = 0; at < what.pictures.size() && what.pictures[at]; ++at) {
        const Long left = kLeft + static_cast<int>(at) * (pitch.picture + 45);
        pictures.push_back(std::make_unique<Image>(form, "img" + std::to_string(number) + "_" + std::to_string(at),
                                                   TwipsRect{left, top, pitch.picture, pitch.picture},
                                                   what.pictures[at]));
        pictures.back()->plate = what.plates[at];
    }
}

Long frmHelp::addLine(const Text& name, Long top, const HelpPitch& pitch)
{
    drawings_.push_back(std::make_unique<Image>(
        *this, "line" + name, TwipsRect{kLeft, top + pitch.group / 3, kWidth - 2 * kLeft, 15}, "line"));
    return top + pitch.group;
}

void frmHelp::addKeys(Long top, const HelpPitch& pitch)
{
    drawings_.push_back(
        std::make_unique<Image>(*this, "imgKeys", TwipsRect{kLeft, top, pitch.picture, pitch.picture}, "keys"));
    const TwipsRect title{kTextLeft, top + (pitch.picture - kTextHeight) / 2, kWidth - kTextLeft - kLeft, kTextHeight};
    keysTitle_ = std::make_unique<Label>(*this, "lblKeys", title);
    keysTitle_->role = TextRole::Heading;
    top += pitch.row;
    for (const HotKeyRow& key : hotKeyTable()) {
        const Text number = std::to_string(key.id);
        keyTexts_.push_back(std::make_unique<Label>(*this, "lblKey" + number,
                                                    TwipsRect{kTextLeft, top, kKeyNameLeft - kTextLeft, kTextHeight}));
        keyNames_.push_back(std::make_unique<Label>(
            *this, "lblKeyName" + number, TwipsRect{kKeyNameLeft, top, kWidth - kKeyNameLeft - kLeft, kTextHeight}));
        keyNames_.back()->role = TextRole::Quiet;
        top += pitch.key;
    }
    cmdOK.Top = cmdKeys.Top = top + pitch.group;
    cmdOK.Left = kWidth - cmdOK.Width() - kLeft;
    Height = cmdOK.Top() + cmdOK.Height() + pitch.group + kBand;
}

void frmHelp::onLoad()
{
    Caption = localised("frmHelp.caption") + AppTitle;
    for (const auto& row : rows_)
        row->label.Caption = localised("frmHelp." + row->label.name());
    cmdOK.Caption = localised("frmHelp.cmdOK");
    cmdKeys.Caption = localised("keys.list");
    sayKeys();
    monitors().CenterFormOnMonitor(*this, &frmMedia());
    // A screen that is lower still shows its title and its beginning.
    if (const Long room = frmMedia().FullHeight; room > 0 && height() > room)
        Top = frmMedia().FullTop;
}

void frmHelp::sayKeys()
{
    keysTitle_->Caption = localised("frmHelp.keysTitle");
    for (std::size_t at = 0; at < keyTexts_.size(); ++at) {
        const HotKeyRow& key = hotKeyTable()[at];
        keyTexts_[at]->Caption = localised(key.text);
        keyNames_[at]->Caption =
            Text(key.combination) + (isHotKeyOurs(key.id) ? "" : "  (" + localised("frmHelp.keyTaken") + ")");
    }
}

Label& frmHelp::description(int number)
{
    for (const auto& row : rows_)
        if (row->number == number)
            return row->label;
    throw RuntimeError(error::kOutOfRange, "Subscript out of range");
}

std::vector<const Image*> frmHelp::pictures(int number) const
{
    std::vector<const Image*> found;
    for (const auto& row : rows_)
        for (const auto& picture : row->pictures)
            if (row->number == number)
                found.push_back(picture.get());
    return found;
}

} // namespace tandrel
