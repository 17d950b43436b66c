// Dialogs for files and folders.

#include "toolkit/qt/file_dialog_window.h"
#include "toolkit/qt/qt_backend.h"
#include "toolkit/screen.h"

namespace tandrel
{

std::vector<Text> QtBackend::chooseFiles(const FileDialog& what)
{
    if (boxesEnded_)
        return {};
    // The dialog waits for the user, whatever the program is busy with, and has pointers of its own.
    mousePointerChanged(pointer::kDefault);
    std::vector<Text> chosen;
    {
        FileDialogWindow dialog(what, fileDialogTexts_);
        if (dialog.exec() == QDialog::Accepted)
            chosen = dialog.chosen();
    }
    mousePointerChanged(tandrel::screen().mousePointer());
    return boxesEnded_ ? std::vector<Text>() : chosen;
}

} // namespace tandrel
