/// The console: the main window, which lives until the end and drives all videos.
#pragma once

#include "console/button_ids.h"
#include "console/console_controls.h"
#include "console/console_fields.h"
#include "console/monitor_fields.h"
#include "console/placement.h"
#include "media/console_face.h"

namespace tandrel
{

class frmChild;
class MediaPlayerControl;
class VideoWindow;
template <class Control, class Window>
struct ControlWindow;

class frmMedia : public ConsoleControls, public ConsoleFields, public ConsoleFace, public MonitorFields
{
public:
    frmMedia();
    ~frmMedia() override;

    /// Lays all videos out as a grid and plays them: PlayAll Mode. Does nothing with fewer than two entries in `List2`.
    void Resize(bool NoPlay);
    /// The selected video large, the others small and paused beside it: PlayList Mode.
    void SlideShow();
    /// Moves the system's pointer. Screen pixels, rounded.
    void MoveMouse(double X, double Y);

    /// Cuts the window to the outline of its body.
    void ApplicaMaschera();
    /// Makes the console as opaque as `Alpha` says, 0 to 255.
    void ImpostaTrasparenza(Integer& Alpha);

    /// What a hot key does, by its id. Nothing for another id, or before a medium was started.
    void hotKey(int id);

    /// The display says which of the two modes holds.
    void showMode();

    /// The title says, in English or in the user's language and in whatever letters, that no media are selected.
    bool titleSaysNoMedia() const;

    // What is chosen and new goes to both lists. `chosen` takes the selection as a text, empty where there was none. An
    // error ends the operation with a box of its own.
    /// Several files, beside what is open.
    void GetFiles(Text title, Text& chosen);
    /// One file that replaces what is open.
    void GetFiles1(Text title, Text& chosen);
    /// The same for a Matroska file.
    void GetFiles2(Text title, Text& chosen);
    /// Subtitles: the text alone, neither list is touched.
    void GetFiles3(Text title, Text& chosen);

    // Each lets the user choose, unless `PresetSelection` holds, closes all that is open and shows what was chosen.
    // Nothing is closed where nothing new was chosen, or while a long command runs.
    void OpenSingleVideo();
    void OpenSingleVideoMKV();
    void OpenSingleVideoDVD();

    /// Opens files as a group beside what is open: those that are new, as far as there is room. No tip comes up; a
    /// message does where there is no room at all. `keepsRecent`: they go to the list of recent files too.
    void openPaths(const std::vector<Text>& paths, bool keepsRecent = false);
    /// The same for what was dropped: folders and what isn't there are left out, the rest goes to the recent files.
    void openDropped(const std::vector<Text>& paths);

    /// While this holds, files of other starts wait: they would mix with those that a command is opening.
    void takeNoHandover(bool on);
    /// Another program has left files for this one, or wants it to be seen: the console comes to the front and takes
    /// them as with any activation. False, with nothing done, while a command runs.
    bool takeWhatWasLeft();

    /// Nothing is under way that a command from outside would come in the middle of.
    bool mayBeginCommand() const;

    /// The live video that can be played before (-1) or behind (1) the selected one in the order of the slots, which
    /// has no ends; null where there is no other.
    frmChild* neighbourOfSelected(int direction) const;
    /// That one becomes the selected one; in PlayList Mode it takes the large place. Where the selected one filled the
    /// screen, it does.
    void selectNeighbour(int direction);
    /// The selected video to its beginning, held.
    void stopSelected();
    /// What the title says of the medium that commands go to.
    Text mediaTitle() const;

    /// A message in the program's own form, which waits for the user.
    void tell(const Text& message);
    /// The control of an HD film or a disc fills the screen; false where it shows nothing yet, or does so already.
    bool fillPlayer(const ControlWindow<MediaPlayerControl, Form>& player);

    /// A window under the pointer tells of a move with the left button held: what is dragged follows at once, and not
    /// only at the next tick.
    void followDrag();
    /// The cursor that was parked stands where it was, to be seen.
    void showParkedCursor();
    /// As a choice in the menu over a full picture, which is loaded for it; an entry with more below it brings these.
    void chooseInFullMenu(const std::function<Menu&()>& entryOf);

    // What the transport buttons do to file videos.
    void playSelected();
    void replaySelected();
    void pressPause();
    void pressForward();
    void pressRewind();

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
    // frm_media.cpp
    void playAfterFullScreen();

    // skin.cpp
    void dressControls();
    /// One of the texts on the display is at this place of the console, in twips.
    bool isOverText(double x, double y) const;
    void wireControls();
    /// The click of an image that is a button; nothing once the end has begun.
    void onImage(Image& image, std::function<void()> action);
    void wireTools();
    void wireWindow();

    // transport.cpp
    void wireTransport();
    void cmdMedia_Click(int index);
    void cmdPlay();
    void cmdPause();
    void cmdStop();
    void cmdHide();
    void cmdFwd_Click();
    void cmdRwd_Click();
    /// A jump the other way is stopped; otherwise this one begins.
    void changeJump(bool& wanted, bool& opposite);

    // group_commands.cpp
    /// Unless a disc plays or a long command runs; the pointer is the hourglass meanwhile.
    void runGroupCommand(const std::function<void()>& command);
    void imgStep_Click();
    void imgBack_Click();
    void imgPauseAll_Click();
    void imgResync_Click();
    void imgMute_Click();
    void stepAll(Integer direction);
    void pauseAll();
    void resumeAll();
    void setVolumeOfGroup(Long level);

    // hot_keys.cpp
    void takeHotKeys();
    /// Those that came while the console was busy.
    void runWaitingKeys();
    void hotKeySize(int direction);
    void hotKeyFullScreen();
    void hotKeyPlayPause();
    void hotKeyVolume(int step);

    // startup.cpp
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
    void nameForEars();
    void showSplash();
    void registerFileClasses(bool asDefault);
    void dressConsole();

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
    void startSingle(frmChild& window);
    /// One path to a paused video window at index `NextSlot`. False, with the window marked, if it can't be played.
    bool openPaused(const Text& path);
    /// The same, not paused.
    bool openRunning(const Text& path);
    bool openInSlot(const Text& path, Long (*open)(WindowHandle), bool saysNoFiles);

    // open_other_media.cpp
    void openHdFile(const Text& path);
    /// The disc in a drive; with a path, the disc there.
    void openDvd(const Text& path = {});
    /// The disc image that was chosen as a file.
    void openChosenDisc();
    /// A disc at a path instead of all that is open.
    void playDisc(const Text& path);
    void followOtherMedia();
    void endOtherMedia();
    void endHd();
    void stopOtherMedia();
    void restoreOtherMedia();

    // single_open.cpp
    bool isBusy() const;
    /// Something was chosen that isn't open yet. What is open already gets the focus.
    bool hasNewFile(const Text& chosen);
    /// False where the program has been ended meanwhile.
    bool tellFirstTip();
    void stopJump();
    /// A long command with its notice in front and the timers off; an error ends it properly. The notice counts to
    /// `files`.
    void runBatch(Long files, const std::function<void()>& work);
    /// `forNewFile`: the last entry of the list of open videos is that of the file to come, and stays.
    void closeAllVideos(bool forNewFile = true);
    /// Behind an error in the middle of a batch: what has not come to its open is not open.
    void forgetUnopened();
    void openReplacing();
    /// What was to be opened can't be played: no window, no selection, and the title says so.
    void sayNothingPlays();
    void placeReplacing(Long count);
    // What later forms bring.

    // layout.cpp
    bool beginArrangement(Long& count, frmChild** current);
    void placeGrid(frmChild& window, Long count, Long cell, CellOrder order = CellOrder::Clockwise);
    void placeBeside(frmChild& window, Long count, Long tile, bool lead);
    void placeAlone(frmChild& window);
    void showPlaced(frmChild& window, bool play);
    /// The window's medium is one of the present open.
    bool isChosen(const frmChild& window) const;
    /// The notice of a long command, where there is one, is painted at once.
    void refreshWait();
    /// The notice of a long command stays in front of the windows that come up.
    void keepWaitInFront();
    void showTip(Long count);
    void restartAll();
    void focusKept(const Text& kept);
    void staggerAll();

    // group_open.cpp
    void cmdOpen();
    /// What every group open begins with. False, with a message, where no further video has room.
    bool prepareGroup();
    /// Those of `paths` that are new go to `List1` and `List2`, as long as there is room.
    void takeGroup(const std::vector<Text>& paths);
    /// Opens all of `List1` in the present mode.
    void openGroup();
    void openChosen();
    void playChosen(frmChild& window);
    void arrangePlayAll();
    void arrangePlayList();
    void placeSingle(frmChild& window, Long extraWidth);

    // monitor_position.cpp
    void Timer1_Timer();
    void followDisc();
    void followPlayer();
    void followTitle(const Text& title);
    void followFile();
    void followRunning();
    void showDiscTime();
    void showTimeOnPanel();
    bool selectedHasFailed() const;
    Text panelTitle() const;
    /// The title says that nothing plays.
    bool titleIsIdle() const;

    // monitor_end.cpp
    void followEnd();
    void countEnd();
    void playNext();
    /// -1 where there is none; the first slot behind the last.
    int slotBehindSelected() const;
    void playSecondDisc();
    void changeDisc(frmChild& window, const Text& path);
    bool openDisc(frmChild& window, const Text& path);
    /// The full-screen window takes the name of the next disc, and its picture is to be fitted anew.
    void nameFullWindow(frmChild& window, const Text& path);

    // monitor_mouse.cpp
    void Timer3_Timer();
    void notePanel();
    /// False: the tick ends here.
    bool rightClick();
    void fillWithDisc();
    void fillDisc(VideoWindow& window);
    void fillWithPlayer();
    void fillWithSelected();
    void showPanelOver(const VideoWindow& window);
    void fillWith(frmChild& window);
    void popUpFullMenu();
    void showCursorForMenu();
    static void endFullMenu();
    Form* windowToDrag() const;
    void dragWindow();
    void noteDrag(const Form& window, Long x, Long y);
    void sizeByDrag(Form& window);
    void forgetDrag();
    void barDrag();
    void countDown();
    void countRelease();
    void countPress();
    void tidyFullScreen();

    // monitor.cpp
    void Timer2_Timer();
    void Timer4_Timer();
    void keepAwake();
    /// What the hidden labels of the double-click test say.
    void tellClicks();
    void scrollTitle();
    void restartEndedVideos();
    void restartIfEnded(const frmChild& window);

    // display_change.cpp
    /// Monitors have come, gone or changed.
    void followMonitors();
    void endFullScreenOfPlayer();

    // monitor_full_screen.cpp
    void parkCursor();
    bool hasLeftParking() const;
    /// The cursor comes back, and with it the panel.
    void wakeCursor(const Text& title);
    void watchParkedCursor();
    void watchFullScreen();
    void watchPointer();
    void watchTouch();
    void refit();
    void leaveByDoubleClick();
    /// What commands go to is a player that fills the screen.
    bool playerIsFull() const;
    void leavePlayer(const ControlWindow<MediaPlayerControl, Form>& player);
    void leaveDisc();
    void leaveFullScreen();
    /// Where a command has ended full screen by its flag alone, the window follows.
    void followEndOfFullScreen();

    // seek_volume_size.cpp
    void wireSliders();
    /// A page of the seek slider is 3 % of the length.
    void takePage();
    void SeekSlider_Click();
    void SeekSlider_MouseDown(const MouseEvent& event);
    void SeekSlider_MouseMove(const MouseEvent& event);
    void SeekSlider_MouseUp();
    void SeekSlider_Scroll();
    void SeekSlider_Change();
    void InvertSlider_Scroll();
    void VolumeSlider_Click();
    /// -1 louder, 1 quieter.
    void stepVolume(int direction);
    /// 1 larger, -1 smaller.
    void cmdSize_Click(int direction);
    void stepSize(int direction);
    void chkFullscreen_Click();
    void fillByCommand();

    // shutdown.cpp
    void exitProgram();
    void savePlace();
    void giveUpPresence();
    void restoreVideos();
    void releaseHooks();

    /// Ids of hot keys that wait for the end of a long command.
    std::vector<int> waitingKeys_;
    Text storedTop_;
    Text storedLeft_;
    /// The list of handed over files can't be read: the next activation tries again.
    bool handoverUnreadable_ = false;
    /// It can't be deleted: it has been taken once, and that must do.
    bool handoverStuck_ = false;
    /// Commands under way that open something.
    int opening_ = 0;
    /// The list of handed over files is being taken.
    bool takingHandover_ = false;
};

/// A time of a media player control as the labels show it: one longer than 7 characters loses its first.
Text playerCaption(const Text& time);

/// The length as `lblDuration` shows it: characters 1, 3 to 4 and 6 to 7 of the time's text, joined with ":".
Text durationCaption(const Text& length);

} // namespace tandrel
