/// What can be done by a key: all commands of the console and of the panel over the full picture, in one table.
#pragma once

#include "toolkit/controls.h"
#include "toolkit/keys.h"
#include "toolkit/menu.h"

#include <span>

namespace tandrel
{

class ConsoleControls;
class dvdmenu;
class frmPanel;
class fullmenu;

struct KeyCommand {
    /// Where it does something: beside windows, over a full picture, or both.
    enum class Where { Windows, FullScreen, Everywhere };

    /// As the file of the keys calls it.
    const char* name;
    /// The keys that it has where that file says nothing, as they would stand there.
    const char* standard;
    /// What it does: a key of the text table. Null: what its control's tip, or its menu entry, says.
    const char* says = nullptr;
    Where where = Where::Windows;
    /// A held key goes on.
    bool repeats = false;
    /// The buttons whose tips show the key; without `run` the key is a click on them.
    Image ConsoleControls::*image = nullptr;
    Image frmPanel::*panel = nullptr;
    /// Another control of the console whose tip shows it.
    Control& (*control)() = nullptr;
    /// The entry of a menu beside windows that shows the key; without anything above the key is a click on it.
    Menu& (*entry)() = nullptr;
    /// Those of the menus over a full video and over a full disc. Without `panel` and `run` the key is a click on them
    /// there.
    Menu fullmenu::*overVideo = nullptr;
    Menu dvdmenu::*overDisc = nullptr;
    void (*run)(int number) = nullptr;
    /// For `run`: which of several.
    int number = 0;
};

/// In the order in which they are listed.
std::span<const KeyCommand> keyCommands();

/// A caption as it is read: without the marks of access keys, and "&&" as "&".
Text withoutMarks(const Text& caption);

/// What the command does, in the language in use, without marks of access keys.
Text saidOf(const KeyCommand& command);

/// It brings one of the videos forward, by its number.
bool isOneOfVideos(const KeyCommand& command);

/// A key has gone down in one of the windows. False, with nothing done, where it is no command's, or of none that can
/// be given now.
bool pressKey(const KeyStroke& key);

/// The tips and menus of the console, the tips of the panel, and the menus over a full picture show the keys in use.
void showKeysOfConsole();
void showKeysOfPanel(class frmPanel& panel);
void showKeysOfMenu(class fullmenu& menu);
void showKeysOfMenu(class dvdmenu& menu);
/// The keys that bring this video forward, from 1, as the user sees them.
Text keysOfVideo(Long number);

/// The file of the keys is read; without one the program leaves one that changes nothing.
void readKeys();
/// What of that file made no sense is told, in one message.
void tellOfKeys();

} // namespace tandrel
