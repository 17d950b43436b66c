#include "console/key_commands.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "console/key_actions.h"
#include "fullscreen/dvdmenu.h"
#include "fullscreen/frm_panel.h"
#include "fullscreen/fullmenu.h"
#include "media/shared_state.h"
#include "platform/services.h"
#include "texts/frm_update.h"
#include "texts/localised.h"

namespace tandrel
{

namespace
{

using Where = KeyCommand::Where;

/// Over a full picture the panel's button is what the key stands for; that of the disc's menu with a disc alone.
bool isPanels(const KeyCommand& command)
{
    return command.panel && fillsScreen() && Loaded<class frmPanel>() &&
           (command.panel != &frmPanel::imgDVD || DVDMode);
}

/// Over a full picture an entry of the menu there is what the key stands for.
bool isPicturesMenus(const KeyCommand& command)
{
    return fillsScreen() && !command.panel && !command.run && (command.overVideo || command.overDisc);
}

/// The full picture has that menu: an HD film has none, and that of a disc has less in it.
bool isInPicturesMenu(const KeyCommand& command)
{
    return FullScreenOn && (DVDMode ? command.overDisc != nullptr : command.overVideo != nullptr);
}

bool canBeGiven(const KeyCommand& command)
{
    const bool fitsHere = command.where == Where::Everywhere || (command.where == Where::FullScreen) == fillsScreen();
    return fitsHere && (!isPicturesMenus(command) || isInPicturesMenu(command));
}

void chooseOverPicture(const KeyCommand& command)
{
    frmMedia().chooseInFullMenu(
        [&]() -> Menu& { return DVDMode ? dvdmenu().*command.overDisc : fullmenu().*command.overVideo; });
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
    else if (isPicturesMenus(command))
        chooseOverPicture(command);
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

template <class Owner>
void showKeysIn(Owner& menu, Menu Owner::*KeyCommand::*which)
{
    for (const KeyCommand& command : keyCommands()) {
        if (!(command.*which))
            continue;
        Menu& entry = menu.*(command.*which);
        const Text keys = frmMedia().keys.shownKeys(command);
        entry.shortcut += (entry.shortcut.empty() || keys.empty() ? "" : ", ") + keys;
    }
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
    if (!command || !canBeGiven(*command))
        return false;
    // A held key that does not go on is no key of anybody else's either.
    if (!key.repeats || command->repeats)
        frmMedia().run([&] { carryOut(*command); });
    return true;
}

void showKeysOfConsole()
{
    for (const KeyCommand& command : keyCommands())
        if (Control* control = controlOf(command))
            control->setShortcut({});
    for (const KeyCommand& command : keyCommands()) {
        if (Control* control = controlOf(command))
            addKeys(*control, command);
        if (command.entry)
            command.entry().shortcut = frmMedia().keys.shownKeys(command);
    }
}

void showKeysOfPanel(class frmPanel& panel)
{
    for (const KeyCommand& command : keyCommands())
        if (command.panel)
            (panel.*command.panel).setShortcut({});
    for (const KeyCommand& command : keyCommands())
        if (command.panel)
            addKeys(panel.*command.panel, command);
}

void showKeysOfMenu(class fullmenu& menu) { showKeysIn(menu, &KeyCommand::overVideo); }

void showKeysOfMenu(class dvdmenu& menu) { showKeysIn(menu, &KeyCommand::overDisc); }

Text keysOfVideo(Long number)
{
    for (const KeyCommand& command : keyCommands())
        if (isOneOfVideos(command) && number == command.number)
            return frmMedia().keys.shownKeys(command);
    return {};
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
