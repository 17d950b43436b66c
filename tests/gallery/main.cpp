// Shows one window of the program as it is, for pictures of it: tandrel-gallery NAME [LANGUAGE]. The system behind it
// is made up, so that nothing of the user's is touched.

#include "fake_services.h"

#include "console/command_line.h"
#include "console/frm_media.h"
#include "console/holders.h"
#include "console/slidemenu.h"
#include "console/stillmenu.h"
#include "console/version.h"
#include "fullscreen/dvdmenu.h"
#include "fullscreen/fullmenu.h"
#include "media/mod_media.h"
#include "media/shared_state.h"
#include "persist/frm_prev.h"
#include "persist/openmenu.h"
#include "texts/frm_help.h"
#include "texts/frm_keys.h"
#include "texts/frm_lang.h"
#include "texts/frm_splash.h"
#include "texts/frm_tool_tip.h"
#include "texts/frm_update.h"
#include "texts/frm_wait.h"
#include "texts/localised.h"
#include "texts/menu.h"
#include "toolkit/program.h"
#include "toolkit/qt/qt_backend.h"
#include "toolkit/screen.h"
#include "video/slots.h"

#include <QApplication>
#include <QCursor>
#include <QDateTime>
#include <QDir>
#include <QFile>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <map>

namespace
{

using namespace tandrel;

/// The made-up system.
test::World* theWorld = nullptr;

void showConsole()
{
    class frmMedia& console = frmMedia();
    console.Show();
    console.lblTitleBar.Caption = " [ Crossing the strait.mp4 ] ";
    console.lblCurTime.Caption = "0:12:47";
    console.lblDuration.Caption = "1:38:02";
    console.SeekSlider.Max = 5882000;
    console.SeekSlider.Value = 767000;
}

void showUpdate()
{
    frmMedia();
    frmUpdate().Caption = AppTitle;
    frmUpdate().lblUpdate.Caption = localised("message.tipFullScreen");
    frmUpdate().Show();
}

void showTip()
{
    frmMedia();
    frmToolTip().Move({6000, 4500, frmToolTip().width(), frmToolTip().height()});
    frmToolTip().Show();
}

void showWait()
{
    frmWait().Show();
    frmWait().showProgress(5, 12);
}

void popUp(Menu& head)
{
    QCursor::setPos(400, 300);
    PopupMenu(head);
}

/// Three films in their slots, the second of them over the whole screen.
void showFullMenu()
{
    frmMedia();
    for (const char* name : {"Crossing the strait.mp4", "Harbour at dawn.avi", "Night race.mkv"}) {
        frmChild& window = newSlot(Text("/home/you/Videos/") + name);
        NextSlot += 1;
        window.MediaFile = tandrel::quoted(window.path());
        CurrentAlias = window.MediaFile;
        window.Full = NextSlot == 2;
    }
    popUp(fullmenu().mnupopup);
}

/// A still as it might be: dusk over water, by a shade that differs from film to film.
Still madeUpStill(std::uint32_t shade)
{
    Still still{120, 68, {}, std::int64_t{1000} * (700 + 977 * shade)};
    for (std::uint32_t y = 0; y < 68; ++y)
        for (std::uint32_t x = 0; x < 120; ++x) {
            const std::uint32_t sky = y < 40 ? 40 + 3 * y : 150 - y;
            const bool sun = (x - 30 * shade) * (x - 30 * shade) + (y - 30) * (y - 30) < 90;
            still.pixels.push_back(sun ? 0xFFC070 : sky / (shade + 1) << 16 | sky / 2 << 8 | (110 + y / 2));
        }
    return still;
}

void showRecent(test::World& world)
{
    std::uint32_t shade = 0;
    for (const char* name : {"Crossing the strait.mp4", "Harbour at dawn.avi", "Night race.mkv", "Lighthouse.webm"}) {
        const Text path = Text("/home/you/Videos/") + name;
        world.files.content["/data/last.dat"].push_back(path);
        world.files.content[path] = {};
        world.stills.made[path] = madeUpStill(shade++);
    }
    frmMedia();
    frmPrev().Show();
    frmPrev().lstFiles.setSelected(0, true);
    frmPrev().lstFiles.setSelected(2, true);
}

void makeFile(const QString& path, qint64 size)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || !file.resize(size))
        std::fprintf(stderr, "%s can't be written\n", qPrintable(path));
    file.setFileTime(QDateTime(QDate(2026, 3, 14), QTime(15, 9).addSecs(static_cast<int>(size % 7000))),
                     QFileDevice::FileModificationTime);
}

/// A home with folders and films, which holds what the user of the pictures has.
QString makeHome()
{
    const QString home = QDir::tempPath() + QStringLiteral("/tandrel-gallery/home");
    for (const char* folder : {"Videos/Holidays", "Videos/Regatta 2025", "Music", "Desktop"})
        QDir().mkpath(home + QLatin1Char('/') + QLatin1String(folder));
    const std::pair<const char*, qint64> films[] = {
        {"Crossing the strait.mp4", 734003217},
        {"Harbour at dawn.avi", 182456789},
        {"Take 1.mp4", 41234567},
        {"Take 2.mp4", 39876543},
        {"Take 10.mp4", 45678901},
        {"Night race.mkv", 1534003217},
        {"Lighthouse.webm", 8765432},
        {"notes.txt", 812},
    };
    for (const auto& [name, size] : films)
        makeFile(home + QStringLiteral("/Videos/") + QLatin1String(name), size);
    constexpr std::chrono::seconds kSpring(1773500400);
    for (const char* folder : {"/Videos/Holidays", "/Videos/Regatta 2025"})
        std::filesystem::last_write_time(home.toStdString() + folder,
                                         std::chrono::file_clock::from_sys(std::chrono::sys_seconds(kSpring)));
    return home;
}

/// The real dialog; what is chosen is printed, a path a line.
void chooseFiles(FileDialog::Kind kind)
{
    frmMedia();
    const QString home = makeHome();
    qputenv("HOME", home.toUtf8());
    FileDialog dialog;
    dialog.kind = kind;
    dialog.title = kind == FileDialog::Kind::Folder ? "Choose a folder" : localised("title.openMultiple");
    dialog.folder = home.toStdString() + "/Videos/";
    dialog.several = kind == FileDialog::Kind::Open;
    if (kind != FileDialog::Kind::Folder)
        dialog.filters = {{"Supported Media Files", {"*.avi", "*.mkv", "*.mp4", "*.webm"}}, {"All Files", {"*"}}};
    for (const Text& path : backend().chooseFiles(dialog))
        std::printf("%s\n", path.c_str());
    std::fflush(stdout);
    backend().later(0, [] { backend().quit(); });
}

/// The dialog of a program whose active window covers the screen.
void chooseBeforeCover()
{
    frmMedia();
    static const auto cover = std::make_shared<Form>("cover", Frame::Bare, TwipsRect{0, 0, 0, 0});
    cover->load();
    cover->Move({0, 0, screen().Width(), screen().Height()});
    cover->setFullScreen(true);
    cover->Show();
    backend().later(500, [] { chooseFiles(FileDialog::Kind::Open); });
}

const std::map<std::string, std::function<void()>>& windows()
{
    static const std::map<std::string, std::function<void()>> all{
        {"console", showConsole},
        {"frmLang", [] { frmLang().Show(); }},
        {"frmSplash",
         [] {
             for (int tick = 0; tick < 5; ++tick)
                 frmSplash().Timer1.tick();
             frmSplash().Timer1.Enabled = false;
             frmSplash().Show();
         }},
        {"frmHelp",
         [] {
             frmMedia();
             frmHelp().Show();
         }},
        {"frmKeys",
         [] {
             frmMedia();
             frmKeys().Show();
         }},
        {"frmToolTip", showTip},
        {"frmWait", showWait},
        {"frmUpdate", showUpdate},
        {"question",
         [] {
             frmMedia();
             backend().messageBox(localised("message.makePrimary"), BoxStyle::YesNoQuestion, AppTitle);
         }},
        {"fileDialog", [] { chooseFiles(FileDialog::Kind::Open); }},
        {"coveredDialog", chooseBeforeCover},
        {"folderDialog", [] { chooseFiles(FileDialog::Kind::Folder); }},
        {"saveDialog", [] { chooseFiles(FileDialog::Kind::Save); }},
        {"menu",
         [] {
             frmMedia();
             popUp(menu().mnupopup);
         }},
        {"share", [] { popUp(share().popup); }},
        {"fullmenu", showFullMenu},
        {"dvdmenu",
         [] {
             frmMedia();
             popUp(dvdmenu().mnupopup);
         }},
        {"openmenu",
         [] {
             frmMedia();
             popUp(openmenu().popup);
         }},
        {"frmPrev", [] { showRecent(*theWorld); }},
        {"stillmenu",
         [] {
             frmMedia();
             popUp(stillmenu().popup);
         }},
        {"slidemenu",
         [] {
             frmMedia();
             popUp(slidemenu().popup);
         }},
    };
    return all;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const auto window = argc < 2 ? windows().end() : windows().find(argv[1]);
    if (window == windows().end()) {
        std::fprintf(stderr, "usage: tandrel-gallery NAME [LANGUAGE], NAME being one of\n");
        for (const auto& [name, show] : windows())
            std::fprintf(stderr, "  %s\n", name.c_str());
        return 2;
    }
    test::World world;
    theWorld = &world;
    QtBackend qt;
    installBackend(&qt);
    world.settled();
    Language = world.settings.values["sys/langos"] = argc > 2 ? argv[2] : "EN";
    // The start with a file has no splash.
    setCommandLine({"\"/films/none.avi\"", {}});
    world.instances.another = true;
    world.files.content["/data/pres.dat"] = {" 1 "};
    window->second();
    const int result = QApplication::exec();
    discardForms();
    forgetForms();
    installBackend(&world.backend);
    return result;
}
