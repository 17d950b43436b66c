// The console's load: settings, the rules for a later process, the question, the place, the file of the command line.

#include "console/command_line.h"
#include "console/frm_media.h"
#include "console/frm_start.h"
#include "console/holders.h"
#include "console/key_commands.h"
#include "console/version.h"
#include "desktop/file_classes.h"
#include "desktop/monitors.h"
#include "desktop/system_facts.h"
#include "media/shared_state.h"
#include "persist/data_files.h"
#include "persist/settings.h"
#include "texts/frm_splash.h"
#include "texts/localised.h"
#include "toolkit/program.h"
#include "toolkit/screen.h"
#include "toolkit/trap.h"

namespace tandrel
{

namespace
{

constexpr int kMostVideos = 12;
constexpr const char* kNeverAgain = "999999";

} // namespace

void frmMedia::onLoad()
{
    installConsoleFace(this);
    clearFields();
    screen().MousePointer = pointer::kHourglass;
    const Text system = GetWindowsVersion();
    AppTitle = programTitle();
    AppVersion = programNumber();
    readSettings();
    findMonitor();
    WindowsVersion = upper(system);
    noteFirstRun();
    LanguageCode = Language;
    nameInLanguage();
    if (!passSecondStart())
        return;
    const bool asDefault = askPrimaryPlayer();
    if (programEnded() || isEnding())
        return;
    if (commandLine().empty()) {
        if (!FirstRun)
            showSplash();
        if (isEnding())
            return;
        registerFileClasses(asDefault);
    }
    dressConsole();
    readKeys();
    showKeysOfConsole();
    placeConsole();
    showTitle();
    ClickCount = 0;
    ClickState = 0;
    SizePercent = 100;
    VolumeLevel = 50;
    takeHotKeys();
    services().monitors->changed = [this] { run([this] { followMonitors(); }); };
    // An error in a medium is no error of the start.
    trap([this] { openCommandLine(); });
    screen().MousePointer = pointer::kDefault;
    leaveStartForm();
    // Its message waits for the user, which the start does not.
    backend().later(0, [] { tellOfKeys(); });
}

void frmMedia::leaveStartForm()
{
    if (!Loaded<class frmStart>())
        return;
    // Its unload may have to wait for its own handler; the screen does not.
    frmStart().Hide();
    Unload<class frmStart>();
}

void frmMedia::showSplash() { frmSplash().Show(ShowMode::Modal); }

void frmMedia::registerFileClasses(bool asDefault) { writeFileClasses(services().files->dataFolder(), asDefault); }

void frmMedia::clearFields()
{
    FullTop = FullLeft = FullHeight = FullWidth = 0;
    DragHandle = 0;
    TrackHold = TitleOff = SaverOff = VolumeTipOn = WindowDragged = false;
    SecondRun = FirstRun = ClosingDown = UpdateCancelled = false;
    iTrans = 255;
    static_cast<MonitorFields&>(*this) = {};
    MaxVideos = kMostVideos;
}

void frmMedia::readSettings()
{
    SlideMode = getSetting(settings::kSlide);
    if (SlideMode.empty())
        SlideMode = "1";
    TipsOn = getSetting(settings::kTips);
    if (TipsOn.empty())
        saveSetting(settings::kTips, "1");
    storedTop_ = getSetting(settings::kTop);
    storedLeft_ = getSetting(settings::kLeft);
}

void frmMedia::findMonitor()
{
    const auto area = monitors().holding(*this);
    if (!area)
        return;
    FullLeft = area->left;
    FullTop = area->top;
    FullWidth = area->width;
    FullHeight = area->height;
}

void frmMedia::noteFirstRun()
{
    if (isOlderSystem(WindowsVersion) || !getSetting(settings::kRanBefore).empty())
        return;
    FirstRun = true;
    saveSetting(settings::kRanBefore, "1");
}

bool frmMedia::askPrimaryQuestion(const Text& monthIfRefused)
{
    const BoxAnswer answer = backend().messageBox(localised("message.makePrimary"), BoxStyle::YesNoQuestion, AppTitle);
    // An end of the program in the middle of the question is no answer.
    if (answer == BoxAnswer::Cancel)
        return false;
    const bool yes = answer == BoxAnswer::Yes;
    if (!yes)
        saveSetting(settings::kRefused, monthIfRefused);
    primary::write(yes ? primary::kAccepted : primary::kDeclined);
    return yes;
}

bool frmMedia::askPrimaryPlayer()
{
    const Text answer = primary::read();
    const Text month = std::to_string(services().clock->yearAndMonth());
    if (answer.empty() || answer == primary::kNotAsked) {
        FirstRun = true;
        return askPrimaryQuestion(month);
    }
    if (answer == primary::kDeclined) {
        Text refused = getSetting(settings::kRefused);
        if (refused.empty()) {
            refused = month;
            saveSetting(settings::kRefused, refused);
        }
        if (refused != kNeverAgain && numberAtFront(month) > numberAtFront(refused))
            return askPrimaryQuestion(kNeverAgain);
    }
    return answer == primary::kAccepted;
}

void frmMedia::placeConsole()
{
    // The two clamps differ by FullTop on purpose: the lower edge is measured without it, the right edge with it.
    if (storedTop_.empty()) {
        Top = FullHeight / 3.0 * 2 + FullTop;
    } else if (const double stored = numberAtFront(storedTop_); stored + FullTop > FullHeight - height()) {
        Top = FullHeight - height();
    } else {
        Top = stored < 0 ? FullTop : Long(stored + FullTop);
    }
    if (storedLeft_.empty()) {
        Left = FullWidth / 5.0 + FullLeft;
    } else if (const double stored = numberAtFront(storedLeft_); stored + FullLeft > FullWidth + FullLeft - width()) {
        Left = FullWidth + FullLeft - width();
    } else {
        Left = stored < 0 ? FullLeft : Long(stored + FullLeft);
    }
    monitors().bringWithinReach(*this);
}

void frmMedia::showTitle()
{
    Caption = AppTitle;
    Label3.Caption = upper(AppTitle);
    Sposta.Height = height();
    Sposta.Width = width();
    ApplicaMaschera();
    Sposta.Top = 0;
}

void frmMedia::openCommandLine()
{
    const CommandLine& given = commandLine();
    if (given.isPath() && !SecondRun)
        openPathOfCommandLine();
    else if (given.isDvd())
        openDvd();
    else if (!given.group.empty() && !SecondRun)
        openPaths(given.group);
}

} // namespace tandrel
