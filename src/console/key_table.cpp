// The table of what keys can do.

#include "console/frm_media.h"
#include "console/holders.h"
#include "console/key_actions.h"
#include "console/key_commands.h"
#include "console/slidemenu.h"
#include "console/stillmenu.h"
#include "fullscreen/dvdmenu.h"
#include "fullscreen/frm_panel.h"
#include "fullscreen/fullmenu.h"
#include "persist/openmenu.h"
#include "texts/menu.h"

namespace tandrel
{

namespace
{

using Where = KeyCommand::Where;
using Controls = ConsoleControls;
constexpr Where kEverywhere = Where::Everywhere;
constexpr const char* kVideoSays = "keys.video";

Control& seekSlider() { return frmMedia().SeekSlider; }
Control& larger() { return *frmMedia().cmdSize[size::kLarger]; }
Control& smaller() { return *frmMedia().cmdSize[size::kSmaller]; }
Control& fullScreenBox() { return frmMedia().chkFullscreen; }

constexpr KeyCommand videoRow(const char* name, const char* standard, int number)
{
    return {.name = name,
            .standard = standard,
            .says = kVideoSays,
            .where = kEverywhere,
            .run = &bringForwardByKey,
            .number = number};
}

constexpr KeyCommand formatRow(const char* name, const char* standard, const char* says, Menu fullmenu::*overVideo,
                               Menu dvdmenu::*overDisc)
{
    return {.name = name,
            .standard = standard,
            .says = says,
            .where = Where::FullScreen,
            .overVideo = overVideo,
            .overDisc = overDisc};
}

constexpr KeyCommand kCommands[] = {
    {.name = "play",
     .standard = "L",
     .where = kEverywhere,
     .image = &Controls::imgPlay,
     .panel = &frmPanel::imgPlay,
     .overVideo = &fullmenu::mnuPlay},
    {.name = "pause",
     .standard = "P",
     .where = kEverywhere,
     .image = &Controls::imgPause,
     .panel = &frmPanel::imgPause,
     .overVideo = &fullmenu::mnuPause},
    {.name = "play-pause",
     .standard = "Space",
     .says = "frmHelp.keyPlayPause",
     .where = kEverywhere,
     .run = &playOrPause},
    {"forward", "F", nullptr, kEverywhere, false, &Controls::imgFwd, &frmPanel::imgFwd},
    {"rewind", "R", nullptr, kEverywhere, false, &Controls::imgRwd, &frmPanel::imgRwd},
    {.name = "replay",
     .standard = "Backspace",
     .where = kEverywhere,
     .image = &Controls::imgReplay,
     .panel = &frmPanel::imgDVD,
     .overDisc = &dvdmenu::mnuDVD},
    {.name = "jump-back",
     .standard = "Left, J",
     .says = "keys.jumpBack",
     .where = kEverywhere,
     .repeats = true,
     .control = &seekSlider,
     .run = &jumpByKey,
     .number = -1},
    {.name = "jump-on",
     .standard = "Right, K",
     .says = "keys.jumpOn",
     .where = kEverywhere,
     .repeats = true,
     .control = &seekSlider,
     .run = &jumpByKey,
     .number = 1},
    {.name = "louder",
     .standard = "Up",
     .says = "frmHelp.keyLouder",
     .where = kEverywhere,
     .repeats = true,
     .image = &Controls::imgMax,
     .run = &volumeByKey,
     .number = 1},
    {.name = "quieter",
     .standard = "Down",
     .says = "frmHelp.keyQuieter",
     .where = kEverywhere,
     .repeats = true,
     .image = &Controls::imgMin,
     .run = &volumeByKey,
     .number = -1},
    {"mute", "M", "keys.mute", kEverywhere, false, &Controls::imgMute, &frmPanel::imgVolButton},
    {.name = "next-video",
     .standard = "Ctrl+Tab",
     .says = "keys.nextVideo",
     .where = kEverywhere,
     .run = &goToNeighbour,
     .number = 1},
    {.name = "previous-video",
     .standard = "Ctrl+Shift+Tab",
     .says = "keys.previousVideo",
     .where = kEverywhere,
     .run = &goToNeighbour,
     .number = -1},
    videoRow("video-1", "1", 1),
    videoRow("video-2", "2", 2),
    videoRow("video-3", "3", 3),
    videoRow("video-4", "4", 4),
    videoRow("video-5", "5", 5),
    videoRow("video-6", "6", 6),
    videoRow("video-7", "7", 7),
    videoRow("video-8", "8", 8),
    videoRow("video-9", "9", 9),
    videoRow("video-10", "0", 10),
    videoRow("video-11", "Alt+1", 11),
    videoRow("video-12", "Alt+2", 12),
    {"step-back", "Comma", nullptr, Where::Windows, true, &Controls::imgBack},
    {"step-on", "Period", nullptr, Where::Windows, true, &Controls::imgStep},
    {"pause-all", "A", nullptr, Where::Windows, false, &Controls::imgPauseAll},
    {"synchronise", "Y", nullptr, Where::Windows, false, &Controls::imgResync},
    {.name = "larger", .standard = "Plus", .says = "frmHelp.keySizeUp", .repeats = true, .control = &larger},
    {.name = "smaller", .standard = "Minus", .says = "frmHelp.keySizeDown", .repeats = true, .control = &smaller},
    {.name = "full-screen",
     .standard = "F11",
     .says = "keys.fullScreen",
     .where = kEverywhere,
     .panel = &frmPanel::imgNoFull,
     .control = &fullScreenBox,
     .overVideo = &fullmenu::mnuFull,
     .overDisc = &dvdmenu::mnuFull,
     .run = &turnFullScreen},
    {.name = "leave-full-screen",
     .standard = "Escape",
     .says = "fullmenu.mnuFull",
     .where = Where::FullScreen,
     .panel = &frmPanel::imgNoFull,
     .overVideo = &fullmenu::mnuFull,
     .overDisc = &dvdmenu::mnuFull,
     .run = &leaveFullScreenByKey},
    formatRow("format-default", "Ctrl+N", "fullmenu.mnu43", &fullmenu::mnu43, &dvdmenu::mnu43),
    formatRow("format-extended", "Ctrl+E", "fullmenu.mnu54", &fullmenu::mnu54, &dvdmenu::mnu54),
    formatRow("format-flat", "Ctrl+F", "fullmenu.mnu169", &fullmenu::mnu169, &dvdmenu::mnu169),
    formatRow("format-ultraflat", "Ctrl+U", "fullmenu.mnu84", &fullmenu::mnu84, &dvdmenu::mnu84),
    {.name = "picture-in-picture",
     .standard = "Ctrl+I",
     .says = "fullmenu.mnuPic",
     .where = Where::FullScreen,
     .overVideo = &fullmenu::mnuPic},
    {"modes-menu", "D", nullptr, Where::Windows, false, &Controls::imgResize},
    {.name = "play-all-mode", .standard = "Ctrl+1", .entry = []() -> Menu& { return slidemenu().mnuSlideCenter; }},
    {.name = "play-list-mode", .standard = "Ctrl+2", .entry = []() -> Menu& { return slidemenu().mnuSlideLeft; }},
    {"open-menu", "O", nullptr, Where::Windows, false, &Controls::imgOpen},
    {.name = "open-files", .standard = "Ctrl+O", .entry = []() -> Menu& { return openmenu().mnuOpenMulti; }},
    {.name = "open-file", .standard = "Ctrl+Shift+O", .entry = []() -> Menu& { return openmenu().mnuOpenSingle; }},
    {.name = "open-recent", .standard = "Ctrl+R", .entry = []() -> Menu& { return openmenu().mnuOpenLast; }},
    {.name = "open-disc", .standard = "Ctrl+D", .entry = []() -> Menu& { return openmenu().mnuDVD; }},
    {"pictures-menu", "S", nullptr, Where::Windows, false, &Controls::imgStill},
    {.name = "picture", .standard = "C", .where = kEverywhere, .entry = []() -> Menu& { return stillmenu().mnuStill; }},
    {.name = "pictures",
     .standard = "Shift+C",
     .where = kEverywhere,
     .entry = []() -> Menu& { return stillmenu().mnuStills; }},
    {.name = "video-settings",
     .standard = "V",
     .where = kEverywhere,
     .image = &Controls::imgVideo,
     .overVideo = &fullmenu::mnuVideoSet},
    {.name = "sound-settings",
     .standard = "U",
     .where = kEverywhere,
     .image = &Controls::imgAudio,
     .overVideo = &fullmenu::mnuAudioSet},
    {"share-menu", "W", nullptr, Where::Windows, false, &Controls::imgShare},
    {.name = "share-friends",
     .standard = "Ctrl+Shift+F",
     .image = &Controls::imgFaceBook,
     .entry = []() -> Menu& { return share().mnuFacebook; }},
    {.name = "share-post",
     .standard = "Ctrl+Shift+T",
     .image = &Controls::imgTwitter,
     .entry = []() -> Menu& { return share().mnuTwitter; }},
    {.name = "share-space", .standard = "Ctrl+Shift+M", .entry = []() -> Menu& { return share().mnuMySpace; }},
    {.name = "help",
     .standard = "F1, H",
     .image = &Controls::imgHelp,
     .entry = []() -> Menu& { return menu().mnuHelp; }},
    {.name = "keys", .standard = "Ctrl+K", .says = "keys.list", .run = &listKeys},
    {.name = "home-page", .standard = "Ctrl+Shift+H", .entry = []() -> Menu& { return menu().mnuAutor; }},
    {"hide", "I", nullptr, Where::Windows, false, &Controls::imgHide},
    {"minimise", "N", nullptr, Where::Windows, false, &Controls::imgDwn},
    {.name = "exit",
     .standard = "Ctrl+Q",
     .where = kEverywhere,
     .image = &Controls::imgExit,
     .entry = []() -> Menu& { return menu().mnuEsci; }},
};

} // namespace

std::span<const KeyCommand> keyCommands() { return kCommands; }

bool isOneOfVideos(const KeyCommand& command) { return command.says == kVideoSays; }

} // namespace tandrel
