#include "texts/frm_help.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "console/hot_keys.h"
#include "desktop/monitors.h"
#include "media/shared_state.h"
#include "texts/localised.h"

#include <array>

namespace tandrel
{

namespace
{

/// A row of the help: the number of its label, the pictures in front, and whether a line parts it from the one before.
struct HelpRow {
    int number;
    std::array<const char*, 2> pictures;
    std::array<Plate, 2> plates;
    bool newGroup;
};

constexpr auto kRound = Plate::Round;
constexpr auto kBare = Plate::None;
constexpr std::array<HelpRow, 16> kRows{{
    {1, {"open", nullptr}, {kRound, kBare}, false},
    {2, {"play", nullptr}, {Plate::Play, kBare}, false},
    {3, {"pause", nullptr}, {Plate::Lead, kBare}, false},
    {7, {"forward", nullptr}, {kRound, kBare}, false},
    {8, {"rewind", nullptr}, {kRound, kBare}, false},
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

// Twips.
constexpr int kWidth = 9300;
constexpr int kFirstRow = 195;
constexpr int kRowHeight = 375;
constexpr int kGroupGap = 150;
constexpr int kPicture = 330;
constexpr int kPictureLeft = 330;
constexpr int kTextLeft = 1200;
constexpr int kTextHeight = 270;
constexpr int kKeyHeight = 285;
constexpr int kKeyNameLeft = 4800;

} // namespace

struct frmHelp::Row {
    int number;
    std::vector<std::unique_ptr<Image>> pictures;
    std::unique_ptr<Label> label;
};

frmHelp::frmHelp() : Form("frmHelp", Frame::Dialog, {0, 0, kWidth, 10350})
{
    addRows();
    cmdOK.isDefault = cmdOK.isCancel = true;
    cmdOK.Click = [this] { unload(*this); };
}

frmHelp::~frmHelp() = default;

void frmHelp::addRows()
{
    Long top = kFirstRow;
    for (const HelpRow& what : kRows) {
        const Text number = std::to_string(what.number);
        if (what.newGroup) {
            lines_.push_back(std::make_unique<Image>(
                *this, "line" + number, TwipsRect{kPictureLeft, top + 60, kWidth - 2 * kPictureLeft, 15}, "line"));
            top += kGroupGap;
        }
        auto row = std::make_unique<Row>();
        row->number = what.number;
        for (std::size_t at = 0; at < what.pictures.size() && what.pictures[at]; ++at) {
            const Long left = kPictureLeft + static_cast<int>(at) * (kPicture + 45);
            row->pictures.push_back(std::make_unique<Image>(*this, "img" + number + "_" + std::to_string(at),
                                                            TwipsRect{left, top, kPicture, kPicture},
                                                            what.pictures[at]));
            row->pictures.back()->plate = what.plates[at];
        }
        row->label = std::make_unique<Label>(
            *this, "Label" + number,
            TwipsRect{kTextLeft, top + (kPicture - kTextHeight) / 2, kWidth - kTextLeft - kPictureLeft, kTextHeight});
        row->label->usesMnemonic = true;
        rows_.push_back(std::move(row));
        top += kRowHeight;
    }
    addKeys(top);
}

void frmHelp::addKeys(Long top)
{
    lines_.push_back(std::make_unique<Image>(*this, "lineKeys",
                                             TwipsRect{kPictureLeft, top + 60, kWidth - 2 * kPictureLeft, 15}, "line"));
    top += kGroupGap;
    lines_.push_back(
        std::make_unique<Image>(*this, "imgKeys", TwipsRect{kPictureLeft, top, kPicture, kPicture}, "keys"));
    keysTitle_ = std::make_unique<Label>(*this, "lblKeys",
                                         TwipsRect{kTextLeft, top + 30, kWidth - kTextLeft - 300, kTextHeight});
    keysTitle_->role = TextRole::Heading;
    top += kRowHeight;
    for (const HotKeyRow& key : hotKeyTable()) {
        const Text number = std::to_string(key.id);
        keyTexts_.push_back(std::make_unique<Label>(*this, "lblKey" + number,
                                                    TwipsRect{kTextLeft, top, kKeyNameLeft - kTextLeft, kTextHeight}));
        keyNames_.push_back(std::make_unique<Label>(
            *this, "lblKeyName" + number, TwipsRect{kKeyNameLeft, top, kWidth - kKeyNameLeft - 300, kTextHeight}));
        keyNames_.back()->role = TextRole::Quiet;
        top += kKeyHeight;
    }
    cmdOK.Top = top + 180;
    cmdOK.Left = kWidth - cmdOK.Width() - kPictureLeft;
    Height = cmdOK.Top() + cmdOK.Height() + 255 + 25 * 15;
}

void frmHelp::onLoad()
{
    Caption = localised("frmHelp.caption") + AppTitle;
    for (const auto& row : rows_)
        row->label->Caption = localised("frmHelp." + row->label->name());
    cmdOK.Caption = localised("frmHelp.cmdOK");
    sayKeys();
    monitors().CenterFormOnMonitor(*this, &frmMedia());
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
            return *row->label;
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
