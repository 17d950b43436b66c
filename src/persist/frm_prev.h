/// The dialog that opens media: files, an HD film, a disc, or what was opened lately.
#pragma once

#include "persist/recent_listing.h"
#include "toolkit/file_list_box.h"
#include "toolkit/form.h"

namespace tandrel
{

/// Modeless, and made anew for each use, with the list as it is then. What is chosen goes to the console's openers by
/// `PresetSelection` and `SelectionText`; they end the dialog when they have a result.
class frmPrev : public Form
{
public:
    frmPrev();

    GroupBox fraMultimedia{*this, "fraMultimedia", {120, 0, 9015, 1935}};
    Image imgFiles{*this, "imgFiles", {240, 180, 2700, 1320}, "tile_files_on", &fraMultimedia};
    Image imgFilesOff{*this, "imgFilesOff", {240, 180, 2700, 1320}, "tile_files", &fraMultimedia};
    Label lblFiles{*this, "lblFiles", {240, 1530, 2700, 300}, "Media Files", &fraMultimedia};
    Image imgMKV{*this, "imgMKV", {3150, 180, 2700, 1320}, "tile_hd_on", &fraMultimedia};
    Image imgMKVOff{*this, "imgMKVOff", {3150, 180, 2700, 1320}, "tile_hd", &fraMultimedia};
    Label lblMKV{*this, "lblMKV", {3150, 1530, 2700, 300}, "MKV HD", &fraMultimedia};
    Image imgDisk{*this, "imgDisk", {6060, 180, 2700, 1320}, "tile_disc_on", &fraMultimedia};
    Image imgDiskOff{*this, "imgDiskOff", {6060, 180, 2700, 1320}, "tile_disc", &fraMultimedia};
    Label lblDisk{*this, "lblDisk", {6060, 1530, 2700, 300}, "Disk", &fraMultimedia};
    GroupBox fraPrev{*this, "fraPrev", {120, 2055, 9015, 3750}, " Recent Files "};
    FileListBox lstFiles{*this, "lstFiles", {120, 360, 8775, 2910}, &fraPrev};
    Label lblTool{*this, "lblTool", {120, 3345, 8775, 300}, kHint, &fraPrev};
    CommandButton cmdOK{*this, "cmdOK", {1320, 5970, 3000, 480}, "Open &Selected Files"};
    CommandButton cmdRecent{*this, "cmdRecent", {4470, 5970, 2400, 480}, "Clear &Recent"};
    CommandButton cmdCancel{*this, "cmdCancel", {7020, 5970, 2115, 480}, "&Cancel"};
    /// Pictures that are ready, and files that have turned up.
    Timer tmrFollow{*this, "tmrFollow", 200, false};

protected:
    void onLoad() override;
    void onActivate() override;

private:
    static constexpr const char* kHint = "Ctrl+Click to Select Multiple Files or DblClick to Open a Single File";

    /// A way to open media, with its picture, that picture at rest, which lies above it, and its label.
    struct Tile {
        Image& lit;
        Image& unlit;
        Label& label;
    };
    std::array<Tile, 3> tiles();
    void wireTiles();
    void wireTile(const Tile& tile, const std::function<void()>& action);
    void putTilesToRest();
    void nameInLanguage();
    void fillList();
    void follow();
    void showStills();
    void lstFiles_DblClick();
    void cmdOK_Click();
    void cmdRecent_Click();
    void openOne(const Text& path);

    recent::Listing listing_;
};

} // namespace tandrel
