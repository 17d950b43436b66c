// tandrel-codec-settings [configure|configureAudio]: the dialog for how pictures and sounds come out of the player.

#include "codec_settings/embedding.h"
#include "codec_settings/one_of_a_kind.h"
#include "codec_settings/settings_window.h"
#include "platform/codec/codec_file.h"
#include "platform/xdg/data_folder.h"
#include "platform/xdg/settings_file.h"
#include "toolkit/qt/style.h"

#include <QApplication>
#include <QSocketNotifier>

#include <csignal>
#include <cstdio>
#include <optional>
#include <string_view>
#include <sys/signalfd.h>
#include <unistd.h>

namespace
{

using namespace tandrel;

constexpr const char* kHelp = R"(Usage: tandrel-codec-settings [configure|configureAudio]

Settings for the picture, for the sound, or without an argument for both. They apply to what Tandrel Player opens from
then on.

  --help       shows this
  --version    shows the version
)";

std::optional<CodecPages> pagesOf(std::string_view argument)
{
    if (argument.empty())
        return CodecPages::Both;
    if (argument == "configure")
        return CodecPages::Picture;
    if (argument == "configureAudio")
        return CodecPages::Sound;
    return std::nullopt;
}

void becomeTheOnlyOne(const std::string& folder, CodecPages pages)
{
    if (pages != CodecPages::Sound)
        becomeTheOnly(folder, "picture");
    if (pages != CodecPages::Picture)
        becomeTheOnly(folder, "sound");
}

/// Signals that ask for an end are kept for the event loop. Before any thread is started. The file they come from, or
/// -1.
int keepEndings()
{
    sigset_t endings;
    sigemptyset(&endings);
    for (const int one : {SIGTERM, SIGINT, SIGHUP})
        sigaddset(&endings, one);
    sigprocmask(SIG_BLOCK, &endings, nullptr);
    return ::signalfd(-1, &endings, SFD_CLOEXEC | SFD_NONBLOCK);
}

int run(int argc, char** argv, CodecPages pages)
{
    const int endings = keepEndings();
    const std::string settings = settingsFile();
    CodecFile file(codecFileBeside(settings));
    becomeTheOnlyOne(runtimeFolder(codecFileBeside(settings)), pages);
    int qtArguments = 1;
    static_cast<void>(argc);
    QApplication application(qtArguments, argv);
    QApplication::setApplicationName(QStringLiteral("tandrel-codec-settings"));
    // It has no entry of its own: desktops show it as a part of the player.
    QGuiApplication::setDesktopFileName(QStringLiteral("tandrel-player"));
    applyStyle(application);
    QSocketNotifier end(endings, QSocketNotifier::Read);
    QObject::connect(&end, &QSocketNotifier::activated, &application, [] { QCoreApplication::exit(0); });
    SettingsWindow window(pages, file, SettingsFile(settings).get("sys", "langos"));
    window.winId();
    const Embedding embedding(window);
    window.show();
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    const std::string_view argument = argc > 1 ? argv[1] : "";
    if (argument == "--help" || argument == "-h") {
        std::fputs(kHelp, stdout);
        return 0;
    }
    if (argument == "--version") {
        std::puts("tandrel-codec-settings " TANDREL_VERSION);
        return 0;
    }
    const auto pages = pagesOf(argument);
    if (!pages || argc > 2) {
        std::fputs(kHelp, stderr);
        return 1;
    }
    // Whoever takes the window into one of its own does that on X11.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "xcb");
    return run(argc, argv, *pages);
}
