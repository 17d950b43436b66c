#include "console/key_commands.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "console/key_actions.h"
#include "console/slidemenu.h"
#include "console/stillmenu.h"
#include "fullscreen/frm_panel.h"
#include "media/shared_state.h"
#include "persist/openmenu.h"
#include "platform/services.h"
#include "texts/frm_update.h"
#include "texts/localised.h"
#include "texts/menu.h"

#include <algorithm>
#include <array>

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

constexpr KeyCommand kCommands[] = {
    {"play", "L", nullptr, kEverywhere, false, &Controls::imgPlay, &frmPanel::imgPlay},
    {"pause", "P", nullptr, kEverywhere, false, &Controls::imgPause, &frmPanel::imgPause},
    {.name = "play-pause",
     .standard = "Space",
     .says = "frmHelp.keyPlayPause",
     .where = kEverywhere,
     .run = &playOrPause},
    {"forward", "F", nullptr, kEverywhere, false, &Controls::imgFwd, &frmPanel::imgFwd},
    {"rewind", "R", nullptr, kEverywhere, false, &Controls::imgRwd, &frmPanel::imgRwd},
    {"replay", "Backspace", nullptr, kEverywhere, false, &Controls::imgReplay, &frmPanel::imgDVD},
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
     .run = &turnFullScreen},
    {.name = "leave-full-screen",
     .standard = "Escape",
     .says = "fullmenu.mnuFull",
     .where = Where::FullScreen,
     .panel = &frmPanel::imgNoFull,
     .run = &leaveFullScreenByKey},
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
    {"video-settings", "V", nullptr, Where::Windows, false, &Controls::imgVideo},
    {"sound-settings", "U", nullptr, Where::Windows, false, &Controls::imgAudio},
    {"share-menu", "W", nullptr, Where::Windows, false, &Controls::imgShare},
    {"share-friends", "Ctrl+Shift+F", nullptr, Where::Windows, false, &Controls::imgFaceBook},
    {"share-post", "Ctrl+Shift+T", nullptr, Where::Windows, false, &Controls::imgTwitter},
    {.name = "share-space", .standard = "Ctrl+Shift+M", .entry = []() -> Menu& { return share().mnuMySpace; }},
    {"help", "F1, H", nullptr, Where::Windows, false, &Controls::imgHelp},
    {.name = "keys", .standard = "Ctrl+K", .says = "keys.list", .run = &listKeys},
    {.name = "home-page", .standard = "Ctrl+Shift+H", .entry = []() -> Menu& { return menu().mnuAutor; }},
    {"hide", "I", nullptr, Where::Windows, false, &Controls::imgHide},
    {"minimise", "N", nullptr, Where::Windows, false, &Controls::imgDwn},
    {"exit", "Ctrl+Q", nullptr, kEverywhere, false, &Controls::imgExit},
};

/// Over a full picture the panel's button is what the key stands for; that of the disc's menu with a disc alone.
bool isPanels(const KeyCommand& command)
{
    return command.panel && fillsScreen() && Loaded<class frmPanel>() &&
           (command.panel != &frmPanel::imgDVD || DVDMode);
}

/// A menu that it brings stands below the button, where that can be seen.
void press(Control& control)
{
    const PixelRect place = control.screenRect();
    const class frmMedia& console = frmMedia();
    if (place.width() == 0 || console.windowState() != 0 || fillsScreen())
        control.userClick();
    else
        backend().withMenusAt({place.left, place.bottom}, [&] { control.userClick(); });
}

void carryOut(const KeyCommand& command)
{
    if (isPanels(command))
        (frmPanel().*command.panel).userClick();
    else if (command.run)
        command.run(command.number);
    else if (command.image)
        press(frmMedia().*command.image);
    else if (command.control)
        press(command.control());
    else
        command.entry().Click();
}

/// The console's control whose tip shows the key; null for none.
Control* controlOf(const KeyCommand& command)
{
    if (command.image)
        return &(frmMedia().*command.image);
    return command.control ? &command.control() : nullptr;
}

void addKeys(Control& control, const KeyCommand& command)
{
    const Text keys = frmMedia().keys.shownKeys(command);
    const Text before = control.shortcut();
    if (!keys.empty())
        control.setShortcut(before.empty() ? keys : before + ", " + keys);
}

} // namespace

Text withoutMarks(const Text& caption)
{
    Text plain;
    for (std::size_t at = 0; at < caption.size(); ++at)
        if (caption[at] != '&' || (at > 0 && caption[at - 1] == '&'))
            plain += caption[at];
    return plain;
}

bool isOneOfVideos(const KeyCommand& command) { return command.says == kVideoSays; }

std::span<const KeyCommand> keyCommands() { return kCommands; }

Text saidOf(const KeyCommand& command)
{
    if (command.says)
        return withoutMarks(localised(command.says)) + (isOneOfVideos(command) ? " " + text(Long(command.number)) : "");
    if (command.image)
        return (frmMedia().*command.image).toolTip();
    return withoutMarks(command.entry().caption());
}

bool pressKey(const KeyStroke& key)
{
    if (!Loaded<class frmMedia>() || frmMedia().isEnding() || frmMedia().ClosingDown)
        return false;
    const KeyCommand* command = frmMedia().keys.commandOf(key.name);
    if (!command || (command->where != kEverywhere && (command->where == Where::FullScreen) != fillsScreen()))
        return false;
    // A held key that does not go on is no key of anybody else's either.
    if (!key.repeats || command->repeats)
        frmMedia().run([&] { carryOut(*command); });
    return true;
}

void showKeysOfConsole()
{
    for (const KeyCommand& command : kCommands)
        if (Control* control = controlOf(command))
            control->setShortcut({});
    for (const KeyCommand& command : kCommands) {
        if (Control* control = controlOf(command))
            addKeys(*control, command);
        if (command.entry)
            command.entry().shortcut = frmMedia().keys.shownKeys(command);
    }
}

void showKeysOfPanel(class frmPanel& panel)
{
    for (const KeyCommand& command : kCommands)
        if (command.panel)
            (panel.*command.panel).setShortcut({});
    for (const KeyCommand& command : kCommands)
        if (command.panel)
            addKeys(panel.*command.panel, command);
}

void readKeys()
{
    frmMedia().keys = KeyBindings(*services().keyFile);
    services().keyFile->leave(emptyKeyFile());
}

void tellOfKeys()
{
    const Text complaint = frmMedia().keys.complaint();
    if (!complaint.empty())
        frmMedia().tell(complaint);
}

} // namespace tandrel
