#include "texts/localised_dialog.h"

#include "texts/localised.h"

namespace tandrel
{

FileDialogTexts localisedDialogTexts()
{
    FileDialogTexts texts;
    texts.open = localised("dialog.open");
    texts.save = localised("dialog.save");
    texts.choose = localised("dialog.choose");
    texts.cancel = localised("dialog.cancel");
    texts.lookIn = localised("dialog.lookIn");
    texts.fileName = localised("dialog.fileName");
    texts.folderName = localised("dialog.folderName");
    texts.fileTypes = localised("dialog.fileTypes");
    texts.name = localised("dialog.name");
    texts.size = localised("dialog.size");
    texts.kind = localised("dialog.kind");
    texts.date = localised("dialog.date");
    texts.folder = localised("dialog.folder");
    texts.home = localised("dialog.home");
    texts.desktop = localised("dialog.desktop");
    texts.videos = localised("dialog.videos");
    texts.music = localised("dialog.music");
    texts.computer = localised("dialog.computer");
    texts.up = localised("dialog.up");
    texts.empty = localised("dialog.empty");
    texts.unreadable = localised("dialog.unreadable");
    texts.notThere = localised("dialog.notThere");
    texts.oneOnly = localised("dialog.oneOnly");
    texts.replace = localised("dialog.replace");
    return texts;
}

} // namespace tandrel
