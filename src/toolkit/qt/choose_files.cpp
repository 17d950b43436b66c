// Dialogs for files and folders: the desktop's own where there is one, else the toolkit's.

#include "toolkit/qt/file_dialog_window.h"
#include "toolkit/qt/portal_file_dialog.h"
#include "toolkit/qt/qt_backend.h"
#include "toolkit/qt/x11_hints.h"
#include "toolkit/screen.h"

#include <QGuiApplication>
#include <QWindow>

namespace tandrel
{

namespace
{

/// The user, or a test, may say which one it is to be: "toolkit" or "portal".
bool asksTheDesktop()
{
    const QByteArray wish = qgetenv("TANDREL_FILE_DIALOG");
    if (wish == "toolkit" || sessionBusAddress().isEmpty())
        return false;
    return wish == "portal" || QGuiApplication::platformName() == QStringLiteral("xcb");
}

/// How the desktop is told which window its dialog stands before.
QString parentName()
{
    const QWindow* before = windowOfActiveForm();
    const bool known = before && QGuiApplication::platformName() == QStringLiteral("xcb");
    return known ? QStringLiteral("x11:%1").arg(before->winId(), 0, 16) : QString();
}

} // namespace

std::vector<Text> QtBackend::chooseFiles(const FileDialog& what)
{
    if (boxesEnded_)
        return {};
    // The dialog waits for the user, whatever the program is busy with, and has pointers of its own.
    mousePointerChanged(pointer::kDefault);
    const std::vector<Text> chosen = chooseSomewhere(what);
    mousePointerChanged(tandrel::screen().mousePointer());
    // A window manager gives the keys back to the window that had them.
    if (QWindow* before = windowOfActiveForm(); before && !windowManagerPresent())
        before->requestActivate();
    return boxesEnded_ ? std::vector<Text>() : chosen;
}

std::vector<Text> QtBackend::chooseSomewhere(const FileDialog& what)
{
    if (!desktopIsSilent_ && asksTheDesktop()) {
        PortalAnswer answer = PortalFileDialog(busIsSilent_).choose(what, parentName());
        if (answer.kind == PortalAnswer::Kind::Answered || boxesEnded_)
            return std::move(answer.paths);
        desktopIsSilent_ = answer.kind == PortalAnswer::Kind::Silent;
    }
    FileDialogWindow dialog(what, fileDialogTexts_);
    return dialog.exec() == QDialog::Accepted ? dialog.chosen() : std::vector<Text>();
}

} // namespace tandrel
