#include "video/frm_dvd2.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "desktop/screen_saver.h"
#include "media/shared_state.h"
#include "texts/frm_wait.h"
#include "texts/localised.h"
#include "toolkit/program.h"
#include "toolkit/screen.h"
#include "toolkit/trap.h"
#include "video/frm_driver.h"
#include "video/other_media.h"

namespace tandrel
{

namespace
{

constexpr const char* kNoDrive = "No Disk Drive found. Impossible continue.";
constexpr const char* kNotReady = " [Device Not Ready]";

bool isReady(Cdrom& drive) { return drive.getItemInfo("IsDeviceBusy") == "False"; }

Text labelOf(Long index) { return services().drives->volumeLabel(index); }

} // namespace

void frmDVD2::chooseDrive(Long index, char letter)
{
    DriveIndex = text(index);
    DriveURL = Text(kDiscScheme) + letter;
}

void frmDVD2::chooseNoDrive()
{
    DriveIndex.clear();
    DriveURL.clear();
}

void frmDVD2::onLoad()
{
    otherMedia().dvd2 = {this, &picDVD};
    picDVD.Spoken = localised("spoken.picture");
    frmWait().Show();
    takeHold();
    screen().MousePointer = pointer::kHourglass;
    chooseNoDrive();
    // A drive may go while the user chooses it.
    if (!trap([this] { useChosenDrive(); }))
        chooseNoDrive();
    takeCorner();
    Refresh();
    Unload<class frmWait>();
    screen().MousePointer = pointer::kDefault;
}

void frmDVD2::useChosenDrive()
{
    findDrive();
    if (!DriveIndex.empty() && !programEnded())
        useDrive();
}

void frmDVD2::findDrive()
{
    if (takeWantedDisc())
        return;
    CdromCollection& drives = picDVD.cdromCollection();
    const Long count = drives.count();
    if (count == 0)
        backend().messageBox(kNoDrive, BoxStyle::Exclamation, AppTitle);
    else if (count == 1)
        chooseDrive(0, drives.item(0).driveSpecifier().front());
    else
        askForDrive();
}

bool frmDVD2::takeWantedDisc()
{
    const Text path = frmMedia().DiscWanted;
    const char letter = path.empty() ? '\0' : services().drives->insert(path);
    if (letter == '\0')
        return false;
    CdromCollection& drives = picDVD.cdromCollection();
    for (Long index = 0, count = drives.count(); index < count; index += 1)
        if (drives.item(index).driveSpecifier().front() == letter) {
            chooseDrive(index, letter);
            return true;
        }
    return false;
}

void frmDVD2::askForDrive()
{
    CdromCollection& drives = picDVD.cdromCollection();
    const auto dialog = newForm<class frmDriver>();
    for (Long index = 0, count = drives.count(); index < count; index += 1) {
        Cdrom& drive = drives.item(index);
        dialog->cboDriver.AddItem(drive.driveSpecifier() + (isReady(drive) ? labelOf(index) : Text(kNotReady)));
    }
    Unload<class frmWait>();
    screen().MousePointer = pointer::kDefault;
    dialog->Show(ShowMode::Modal);
    screen().MousePointer = pointer::kHourglass;
}

void frmDVD2::useDrive()
{
    const Long index = numberAtFront(DriveIndex);
    Cdrom& drive = picDVD.cdromCollection().item(index);
    if (isReady(drive)) {
        Caption = labelOf(index);
        MediaFile = caption();
        screen().MousePointer = pointer::kDefault;
    } else {
        drive.eject();
        Unload<class frmWait>();
        frmMedia().tell(localised("message.insertDisc") + "\n");
        chooseNoDrive();
    }
    DVDMode = true;
    picDVD.URL = DriveURL;
}

void frmDVD2::onActivate()
{
    if (!FullScreenOn && !picDVD.isFullScreen())
        ScreenSaverSwitch(true);
    PlayerWindow::onActivate();
}

bool frmDVD2::isTheOne() const { return otherMedia().dvd2.form == this; }

void frmDVD2::forgetIt()
{
    DVDMode = false;
    otherMedia().dvd2 = {};
}

} // namespace tandrel
