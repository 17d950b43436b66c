// Makes the services, installs them, and starts the first form.

#include "app/called_for_files.h"
#include "app/media_players.h"
#include "app/remote_link.h"
#include "app/signals.h"
#include "app/status_report.h"
#include "console/command_line.h"
#include "console/frm_start.h"
#include "console/holders.h"
#include "media/shared_state.h"
#include "platform/codec/codec_file.h"
#include "platform/dbus/desktop_screen_saver.h"
#include "platform/dbus/mpris_remote.h"
#include "platform/dbus/session_idle_bus.h"
#include "platform/disc/disc_look.h"
#include "platform/drives/disc_drives.h"
#include "platform/mci/drive_door.h"
#include "platform/mci/mci_service.h"
#include "platform/mci/tracing_mci.h"
#include "platform/mpv/mpv_engine.h"
#include "platform/pictures/threaded_pictures.h"
#include "platform/stills/still_source.h"
#include "platform/stills/threaded_stills.h"
#include "platform/stills/whole_picture.h"
#include "platform/x11/desktop.h"
#include "platform/x11/hot_keys.h"
#include "platform/x11/monitor_source.h"
#include "platform/x11/pointer.h"
#include "platform/x11/screen_saver.h"
#include "platform/xdg/clock.h"
#include "platform/xdg/data_folder.h"
#include "platform/xdg/file_class_registry.h"
#include "platform/xdg/file_classes_text.h"
#include "platform/xdg/file_finder.h"
#include "platform/xdg/files.h"
#include "platform/xdg/instances.h"
#include "platform/xdg/key_file.h"
#include "platform/xdg/pictures_folder.h"
#include "platform/xdg/settings_file.h"
#include "platform/xdg/shell.h"
#include "platform/xdg/system_facts.h"
#include "toolkit/program.h"
#include "toolkit/qt/qt_backend.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QFile>
#include <QTimer>
#include <QWidget>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <unistd.h>

namespace
{

using namespace tandrel;

std::vector<Text> argumentsOf(int argc, char** argv) { return {argv + 1, argv + argc}; }

std::string workingFolder()
{
    std::error_code ignored;
    return std::filesystem::current_path(ignored).string();
}

std::string programFolder()
{
    std::error_code ignored;
    return std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path().string();
}

// How soon the media service is asked again that has something to start.
constexpr std::chrono::milliseconds kAskAgain{2};

double pixelRatioOf(WindowHandle window)
{
    const QWidget* widget = QWidget::find(window);
    return widget ? widget->devicePixelRatioF() : qGuiApp->devicePixelRatio();
}

/// Lets the event loop come round once more, and with it the service's `idle`. From any thread.
void wakeLoop()
{
    // What is left over from a slow end may still call.
    if (qApp == nullptr)
        return;
    if (QAbstractEventDispatcher* loop = QAbstractEventDispatcher::instance(qApp->thread()))
        loop->wakeUp();
}

FileClassPlaces fileClassPlaces()
{
    const std::string program = programFolder();
    const DesktopFolders folders = desktopFolders(program);
    QFile icon(QStringLiteral(":/skin/app.svg"));
    const QByteArray drawing = icon.open(QIODevice::ReadOnly) ? icon.readAll() : QByteArray();
    return {folders.share, folders.config, program, drawing.toStdString()};
}

/// A folder of the program's own in the desktop's for pictures, or in that of all the program's data where there is
/// one.
std::string ownPicturesFolder()
{
    const char* own = std::getenv("TANDREL_HOME");
    const char* home = own != nullptr && *own != '\0' ? own : std::getenv("HOME");
    return picturesFolder(desktopFolders(programFolder()).config, home != nullptr ? home : "") + "/Tandrel Player";
}

/// What other programs are told of this one.
mpris::Facts remoteFacts() { return {"Tandrel Player", "tandrel-player", {"file", "dvd"}, allMimeTypes()}; }

/// All services of the program, made in the order in which they need each other.
struct Platform {
    Platform()
        : data(dataFolder(programFolder())), files(data), settings(settingsFile()), instances(runtimeFolder(data))
    {
        trace = tracingMciIfWanted(media);
        installServices({trace ? trace.get() : &media, &pointer, &monitors, &screenSaver, &hotKeys, &systemFacts,
                         &settings, &files, &instances, &shell, &clock, &players, drives.get(), &desktop, &registry,
                         &finder, &stills, &pictures, &keyFile});
    }

    std::string data;
    XdgFiles files;
    SettingsFile settings;
    XdgKeyFile keyFile{keyFileName()};
    LockInstances instances;
    SystemClock clock;
    ThreadedFinder finder;
    ThreadedStills stills{{stillsFolder(programFolder()), &markOf, &readStill}};
    ThreadedPictures pictures{{&ownPicturesFolder, &readPicture}};
    FileClassRegistry registry{fileClassPlaces()};
    XdgSystemFacts systemFacts;
    X11Desktop desktop;
    XdgShell shell{[this](long process) { return desktop.hasWindow(process); }};
    X11Pointer pointer;
    X11MonitorSource monitors;
    X11ScreenSaver xScreenSaver;
    DesktopScreenSaver screenSaver{makeSessionIdleBus("Tandrel Player", "A video fills the screen"), xScreenSaver};
    X11HotKeys hotKeys;
    LinuxDriveDoor door;
    MciService media{makeMpvEngine({.outputs = true,
                                    .pixelRatio = &pixelRatioOf,
                                    .wake = &wakeLoop,
                                    .mostDevices = 12,
                                    .codecFile = codecFileBeside(settingsFile())}),
                     &door};
    MediaPlayers players{&pixelRatioOf, codecFileBeside(settingsFile())};
    std::unique_ptr<DiscDrives> drives = makeDiscDrives(machineDrives(&lookAtDisc));
    std::unique_ptr<Mci> trace;
};

bool playersMayDraw = false;

/// The toolkit calls exit() where the display is lost. Players draw on threads then, and nothing may be destroyed under
/// them.
class AtOnceWhenLost
{
public:
    AtOnceWhenLost()
    {
        std::atexit([] {
            if (playersMayDraw)
                _exit(EXIT_FAILURE);
        });
        playersMayDraw = true;
    }
    ~AtOnceWhenLost() { playersMayDraw = false; }
    AtOnceWhenLost(const AtOnceWhenLost&) = delete;
    AtOnceWhenLost& operator=(const AtOnceWhenLost&) = delete;
};

int run(QApplication& application)
{
    QtBackend qt;
    qt.setBusCheck(sessionBusIsSilent);
    installBackend(&qt);
    Platform platform;
    const AtOnceWhenLost atOnceWhenLost;
    const SignalWatch report({SIGUSR1}, [&] { writeStatusReport(platform.media, qt.paints(), qt.tickTimes()); });
    // An end from outside is a close of the console: its place is kept and the mark of the owner goes.
    const auto endFromOutside = [&qt] {
        qt.endBoxes();
        if (Loaded<class frmMedia>())
            Unload<class frmMedia>();
        else
            endProgram();
    };
    const SignalWatch end({SIGTERM, SIGINT, SIGHUP}, endFromOutside);
    const CalledForFiles calls;
    MprisRemote remote(remoteFacts());
    const RemoteLink remoteLink(remote, endFromOutside);
    // Plays that a handler has asked for start together when it is done.
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, &application,
                     [&application] {
                         if (services().mci->idle())
                             QTimer::singleShot(kAskAgain, &application, [] {});
                     });
    frmStart().start();
    const int result = programEnded() ? 0 : QApplication::exec();
    // The devices end before the windows that show them.
    endPlayers();
    endCodecForms();
    platform.media.send("close all");
    discardForms();
    VideoWindows.clear();
    forgetForms();
    installBackend(nullptr);
    return result;
}

} // namespace

int main(int argc, char** argv)
{
    const std::vector<Text> arguments = argumentsOf(argc, argv);
    if (const Text description = selfDescription(arguments); !description.empty()) {
        std::fputs(description.c_str(), stdout);
        return 0;
    }
    tandrel::blockSignals({SIGUSR1, SIGTERM, SIGINT, SIGHUP});
    // The program places its own top-level windows, which only X11 grants.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "xcb");
    // The other dispatcher does not tell when it is about to wait, which the media service needs to know.
    qputenv("QT_NO_GLIB", "1");
    // The toolkit looks for a screen reader on the bus before the first window, and has all the time in the world.
    if (sessionBusIsSilent())
        forgetSessionBus();
    int qtArguments = 1;
    QApplication application(qtArguments, argv);
    QApplication::setApplicationName(QStringLiteral("tandrel-player"));
    // The name of the entry, by which desktops know whose windows these are.
    QGuiApplication::setDesktopFileName(QStringLiteral("tandrel-player"));
    setCommandLine(parseCommandLine(arguments, workingFolder()));
    const int result = run(application);
    // What is still being written to a disk that takes no end uses the toolkit.
    if (ThreadedPictures::hasLeftAny()) {
        std::fflush(nullptr);
        _exit(result);
    }
    return result;
}
