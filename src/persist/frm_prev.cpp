#include "persist/frm_prev.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "desktop/monitors.h"
#include "media/shared_state.h"
#include "persist/recent_files.h"
#include "texts/localised.h"
#include "toolkit/screen.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace tandrel
{

namespace
{

constexpr std::int32_t kWhite = 0xFFFFFF;
constexpr std::int32_t kGrey = 0x808080;
constexpr std::int32_t kListGround = 0x404040;
constexpr int kMostOpened = 11;
constexpr int kCannotDelete = 75;

/// How the openers are told what is chosen, without a dialog of theirs.
class Preset
{
public:
    explicit Preset(Text selection)
    {
        frmMedia().PresetSelection = true;
        frmMedia().SelectionText = std::move(selection);
    }
    // An opener that had no time would leave it to the next one.
    ~Preset() { frmMedia().PresetSelection = false; }
    Preset(const Preset&) = delete;
};

Text lengthText(std::int64_t ms)
{
    const auto seconds = static_cast<long long>(ms / 1000);
    std::array<char, 40> shown{};
    std::snprintf(shown.data(), shown.size(), "%lld:%02lld:%02lld", seconds / 3600, seconds / 60 % 60, seconds % 60);
    return shown.data();
}

void openGroup() { frmMedia().cmdMedia[command::kOpen]->Value = true; }

} // namespace

frmPrev::frmPrev() : Form("frmPrev", Frame::Dialog, {screen().FirstLeft(), screen().FirstTop(), 9285, 7035})
{
    wireTiles();
    lblTool.role = TextRole::Quiet;
    lblTool.alignment = Alignment::Centre;
    lstFiles.BackColor = kListGround;
    cmdOK.isDefault = true;
    cmdCancel.isCancel = true;
    fraMultimedia.MouseMove = [this](const MouseEvent&) { putTilesToRest(); };
    lstFiles.MouseMove = [this](const MouseEvent&) { putTilesToRest(); };
    MouseMove = [this](const MouseEvent&) { putTilesToRest(); };
    MouseLeave = [this] { putTilesToRest(); };
    lstFiles.DblClick = [this] { lstFiles_DblClick(); };
    cmdOK.Click = [this] { cmdOK_Click(); };
    cmdRecent.Click = [this] { cmdRecent_Click(); };
    cmdCancel.Click = [this] { unload(*this); };
    tmrFollow.Tick = [this] { follow(); };
}

std::array<frmPrev::Tile, 3> frmPrev::tiles()
{
    return {{{imgFiles, imgFilesOff, lblFiles}, {imgMKV, imgMKVOff, lblMKV}, {imgDisk, imgDiskOff, lblDisk}}};
}

void frmPrev::wireTiles()
{
    const auto [files, hd, disc] = tiles();
    wireTile(files, &openGroup);
    wireTile(hd, [] { frmMedia().OpenSingleVideo(); });
    // While something is being opened nothing happens at all.
    for (Control* control : std::initializer_list<Control*>{&hd.lit, &hd.unlit, &hd.label})
        control->Click = [press = control->Click] {
            if (screen().MousePointer() != pointer::kHourglass)
                press();
        };
    wireTile(disc, [] { frmMedia().OpenSingleVideoDVD(); });
}

void frmPrev::wireTile(const Tile& tile, const std::function<void()>& action)
{
    const auto press = [action] {
        frmMedia().SelectionText.clear();
        frmMedia().PresetSelection = false;
        action();
    };
    tile.unlit.MouseMove = [tile](const MouseEvent&) {
        tile.unlit.Visible = false;
        tile.label.ForeColor = kWhite;
    };
    tile.lit.pointerShape = pointer::kHand;
    tile.lit.silent = true;
    showsPress(tile.lit);
    tile.label.alignment = Alignment::Centre;
    tile.label.ForeColor = kGrey;
    tile.unlit.tabStop = true;
    for (Control* control : std::initializer_list<Control*>{&tile.lit, &tile.unlit, &tile.label})
        control->Click = press;
}

void frmPrev::putTilesToRest()
{
    for (const Tile& tile : tiles()) {
        tile.unlit.Visible = true;
        tile.label.ForeColor = kGrey;
    }
}

void frmPrev::onLoad()
{
    screen().MousePointer = pointer::kDefault;
    monitors().Refresh();
    monitors().centreWhereItStands(*this);
    nameInLanguage();
    fillList();
    tmrFollow.Enabled = true;
}

void frmPrev::onActivate()
{
    // Keys are for the list first: a tile that has them would give them away each time it is hidden.
    lstFiles.SetFocus();
}

void frmPrev::nameInLanguage()
{
    Caption = localised("frmPrev.caption");
    lblFiles.Caption = localised("frmPrev.lblFiles");
    lblMKV.Caption = localised("frmPrev.lblMKV");
    lblDisk.Caption = localised("frmPrev.lblDisk");
    for (const Tile& tile : tiles())
        tile.lit.ToolTip = tile.unlit.ToolTip = tile.label.Caption;
    fraPrev.Caption = localised("frmPrev.fraPrev");
    lblTool.Caption = localised("frmPrev.lblTool");
    cmdOK.Caption = localised("frmPrev.cmdOK");
    cmdRecent.Caption = localised("frmPrev.cmdRecent");
    cmdCancel.Caption = localised("frmPrev.cmdCancel");
    lstFiles.Spoken = trim(fraPrev.caption());
    lstFiles.emptyText = trim(localised("frmPrev.none"));
}

void frmPrev::fillList()
{
    listing_.read();
    for (const Text& path : listing_.files())
        lstFiles.AddItem(path);
    services().stills->want(listing_.files());
    showStills();
}

void frmPrev::follow()
{
    const auto newcomers = listing_.lookAgain();
    for (const auto& [index, path] : newcomers)
        lstFiles.AddItem(path, static_cast<std::int64_t>(index));
    if (!newcomers.empty())
        services().stills->want(listing_.files());
    showStills();
}

void frmPrev::showStills()
{
    for (Long index = 0; index < lstFiles.ListCount(); index += 1) {
        const ListTile& shown = lstFiles.tile(index);
        if (!shown.note.empty() || !shown.pixels.empty())
            continue;
        if (auto still = services().stills->have(lstFiles.List(index)))
            lstFiles.setTile(index, {still->width, still->height, std::move(still->pixels),
                                     still->lengthMs ? lengthText(*still->lengthMs) : Text()});
    }
}

void frmPrev::openOne(const Text& path)
{
    const Preset preset(path + "||");
    frmMedia().OpenSingleVideo();
}

void frmPrev::lstFiles_DblClick()
{
    if (lstFiles.ListCount() == 0)
        return;
    Hide();
    openOne(lstFiles.text());
    unload(*this);
}

void frmPrev::cmdOK_Click()
{
    Text chosen;
    int count = 0;
    for (Long index = 0; index < lstFiles.ListCount() && count <= kMostOpened; index += 1) {
        if (!lstFiles.Selected(index))
            continue;
        ++count;
        const Text path = lstFiles.List(index);
        if (trim(chosen).empty())
            chosen += folderOf(path) + "|";
        chosen += path + "|";
    }
    if (count == 1) {
        // The entry with the focus, which need not be the selected one.
        openOne(lstFiles.text());
    } else if (chosen.empty()) {
        frmMedia().tell(localised("frmPrev.noFile"));
    } else {
        const Preset preset(chosen + "||");
        openGroup();
    }
}

void frmPrev::cmdRecent_Click()
{
    if (backend().messageBox(localised("frmPrev.deleteList"), BoxStyle::YesNoQuestion, AppTitle) != BoxAnswer::Yes)
        return;
    lstFiles.Clear();
    listing_ = {};
    if (!recent::remove())
        backend().messageBox(text(kCannotDelete) + " - Path/File access error", BoxStyle::Exclamation, AppTitle);
}

} // namespace tandrel
