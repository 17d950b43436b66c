/// The window of a disc on the media player control, for newer systems.
#pragma once

#include "video/player_window.h"

namespace tandrel
{

/// Its load looks for the drive, and asks for it where there are several. `DVDMode` holds from there to its unload, as
/// soon as a drive has been found. `MediaFile` is the name of the disc.
class frmDVD2 : public PlayerWindow
{
public:
    frmDVD2() : PlayerWindow("frmDVD2", "DVD") {}

    /// The decimal index of the drive in the control's list; empty where none is chosen.
    Text DriveIndex;
    /// What plays: "wmpdvd://" and the drive's letter; empty where none is chosen.
    Text DriveURL;

    /// Both at once, by the drive's index and its letter.
    void chooseDrive(Long index, char letter);
    void chooseNoDrive();

protected:
    void onLoad() override;
    void onActivate() override;
    bool isTheOne() const override;
    void forgetIt() override;
    bool dropsPanel(bool) const override { return true; }

private:
    void useChosenDrive();
    void findDrive();
    /// True where a disc was asked for by its path, and a drive stands for that now.
    bool takeWantedDisc();
    void askForDrive();
    void useDrive();
};

} // namespace tandrel
