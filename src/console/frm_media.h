/// The console: the main window, which lives until the end and drives all videos.
#pragma once

#include "media/console_face.h"
#include "toolkit/form.h"

namespace tandrel
{

class frmChild;

/// Buttons of the hidden row `cmdMedia`, by index.
namespace command
{
inline constexpr int kPlay = 0;
inline constexpr int kPause = 1;
inline constexpr int kStop = 2;
inline constexpr int kOpen = 3;
inline constexpr int kHelp = 4;
inline constexpr int kHide = 6;
inline constexpr int kExit = 7;
inline constexpr int kCount = 8;
} // namespace command

class frmMedia : public Form, public ConsoleFace
{
public:
    frmMedia();
    ~frmMedia() override;

    // The rectangle of the console's monitor in twips; all arrangements and full screen use it. 0 where none was found.
    Long FullTop;
    Long FullLeft;
    Long FullHeight;
    Long FullWidth;

    /// Which strip of a video window is held (namespace drag).
    Integer DragHandle;
    /// "0" PlayAll Mode, "1" PlayList Mode.
    Text SlideMode;
    /// The console was activated after the last video window.
    bool TrackHold = false;
    /// A video window was sized without its title bar.
    bool TitleOff = false;
    /// A DVD or Matroska window has gone to full screen.
    bool SaverOff = false;
    /// The volume strip of a video window is showing.
    bool VolumeTipOn = false;
    /// A video window was dragged, so that the layout of PlayList Mode no longer holds.
    bool WindowDragged = false;
    /// This process stands beside a running one, and takes no file of its own from the command line.
    bool SecondRun = false;
    /// The first start on this system.
    bool FirstRun = false;
    /// The end has begun.
    bool ClosingDown = false;
    /// Last result of `frmUpdate`.
    bool UpdateCancelled = false;
    /// The user's language, as it was at the load.
    Text LanguageCode;
    /// "0": the tip of PlayList Mode stays away.
    Text TipsOn;
    /// A stored opacity, 0 to 255.
    Integer iTrans;

    /// The files of the present open, in order, and the entries of the open videos.
    ListBox List1;
    ListBox List2;

    Image imgBody{*this, "imgBody", {0, 0, 13500, 3180}, "console"};
    Label Sposta{*this, "Sposta", {0, 0, 13500, 3180}};
    Label lblTitleBar{*this, "lblTitleBar", {600, 840, 6300, 330}, kNoTitle};
    Label lblCurTime{*this, "lblCurTime", {600, 1200, 2400, 720}, "0:00:00"};
    Label Label7{*this, "Label7", {600, 1920, 1500, 240}, "CURRENT"};
    Label Label6{*this, "Label6", {3300, 1200, 1500, 240}, "TOTAL"};
    Label lblDuration{*this, "lblDuration", {3300, 1425, 1800, 360}, "0:00:00"};
    Label lblSpeed{*this, "lblSpeed", {5250, 1290, 600, 330}, "0x"};
    Label lblSize{*this, "lblSize", {6000, 1290, 900, 330}, "100 %"};
    Label lblClick{*this, "lblClick", {0, 0, 900, 240}};
    Label lblDblClick{*this, "lblDblClick", {0, 0, 900, 240}};
    Label Label3{*this, "Label3", {600, 2760, 6000, 240}};
    Label Label4{*this, "Label4", {11850, 900, 600, 240}, "VOL"};
    Slider SeekSlider{*this, "SeekSlider", {480, 2370, 12540, 330}, false};
    Slider InvertSlider{*this, "InvertSlider", {12600, 900, 300, 1095}, true};
    Slider VolumeSlider{*this, "VolumeSlider", {12600, 900, 300, 1035}, true};
    Image imgResize{*this, "imgResize", {11790, 240, 300, 300}, "mode"};
    Image imgDwn{*this, "imgDwn", {12240, 240, 300, 300}, "minimise"};
    Image imgExit{*this, "imgExit", {12690, 240, 300, 300}, "exit"};
    std::vector<std::unique_ptr<CommandButton>> cmdMedia;

    Timer Timer1{*this, "Timer1", 100, false};
    Timer Timer2{*this, "Timer2", 750, false};
    Timer Timer3{*this, "Timer3", 50, true};
    Timer Timer4{*this, "Timer4", 3000, true};

    /// Lays all videos out as a grid and plays them: PlayAll Mode. Does nothing with fewer than two entries in `List2`.
    void Resize(bool NoPlay);
    /// The selected video large, the others small and paused beside it: PlayList Mode.
    void SlideShow();
    /// Moves the system's pointer. Screen pixels, rounded.
    void MoveMouse(double X, double Y);

    /// Opens all of `List1` as a group in the present mode.
    void openGroup();

    /// The media in `paths` that are new go to `List1` and `List2`, as long as there is room.
    void takeGroup(const std::vector<Text>& paths);

    // ConsoleFace
    void showSpeed(const Text& caption) override { lblSpeed.Caption = caption; }
    Long volumeSlider() override { return VolumeSlider.Value; }

protected:
    void onLoad() override;
    void onActivate() override;
    void onResize() override;
    void onQueryUnload() override;
    void onUnload() override;

private:
    static constexpr const char* kNoTitle = "No Media Selected";

    // startup.cpp
    void wireControls();
    void clearFields();
    void readSettings();
    void findMonitor();
    void noteFirstRun();
    /// True if the player is to be the default for its types of file, by the answer of now or of an earlier start.
    bool askPrimaryPlayer();
    /// True for Yes. Keeps the answer, and with No the text after which the question comes again.
    bool askPrimaryQuestion(const Text& monthIfRefused);
    void placeConsole();
    void showTitle();
    void openCommandLine();
    void leaveStartForm();
    // What later forms bring, in the order in which the load calls it.
    void nameInLanguage();
    void showSplash();
    void registerFileClasses(bool asDefault);
    void dressConsole();
    void makeFileDialog();
    void takeHotKeys();

    // second_start.cpp
    /// False: the process ends here.
    bool passSecondStart();
    /// False if the files of the command line can't be handed over.
    bool handOver();
    void offsetPlace();

    // activation.cpp
    bool handoverIsDue() const;
    void takeHandover();
    void openHandedOver(const std::vector<Text>& paths);
    /// The paths of these lines that are not open yet, as long as there is room.
    std::vector<Text> newPaths(const std::vector<Text>& lines) const;
    /// Writes the mark of the owner where there is none. False if more files have been handed over meanwhile.
    bool markOwner();
    void startLeadOfHandover();
    void arrangeHandover();
    void holdTimers(bool hold);

    // open_slot.cpp
    void openPathOfCommandLine();
    void openHdPathOfCommandLine(const Text& path);
    void startSingle(frmChild& window);
    /// One path to a paused video window at index `NextSlot`. False, with the window marked, if it can't be played.
    bool openPaused(const Text& path);
    /// False, with the window marked, if it can't be played.
    bool openHdFile(const Text& path);
    void openDvd();
    void endOtherMedia();

    // layout.cpp
    bool beginArrangement(Long& count, frmChild** current);
    void placeGrid(frmChild& window, Long count, Long cell);
    void placeBeside(frmChild& window, Long count, Long tile, bool lead);
    void placeAlone(frmChild& window);
    void showPlaced(frmChild& window, bool play);
    /// The window's medium is one of the present open.
    bool isChosen(const frmChild& window) const;
    /// The notice of a long command stays in front of the windows that come up.
    void keepWaitInFront();
    void showTip(Long count);
    void restartAll();
    void focusKept(const Text& kept);
    void staggerAll();

    // group_open.cpp
    void openChosen();
    void playChosen(frmChild& window);
    void arrangePlayAll();
    void arrangePlayList();
    void placeSingle(frmChild& window, Long extraWidth);

    // monitor.cpp
    void Timer2_Timer();
    void leaveFullScreen();
    /// What the hidden labels of the double-click test say.
    void tellClicks();

    // shutdown.cpp
    void cmdMedia_Click(int index);
    void exitProgram();
    void savePlace();
    void giveUpPresence();
    void restoreVideos();
    // What later forms bring, in the order in which the end and the return call it.
    void stopDvd();
    void unloadOtherMedia();
    void unloadNotices();
    void unloadOtherMenus();
    void releaseHooks();
    void restoreOtherMedia();

    void playAfterFullScreen();

    Text storedTop_;
    Text storedLeft_;
    /// The list of handed over files can't be read: the next activation tries again.
    bool handoverUnreadable_ = false;
    /// It can't be deleted: it has been taken once, and that must do.
    bool handoverStuck_ = false;
};

/// The length as `lblDuration` shows it: characters 1, 3 to 4 and 6 to 7 of the time's text, joined with ":".
Text durationCaption(const Text& length);

} // namespace tandrel
