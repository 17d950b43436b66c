// The mouse buttons, polled: full screen by a right click, windows that are dragged and sized, clicks that are
// counted. `Timer3`.

#include "console/frm_media.h"
#include "console/holders.h"
#include "desktop/screen_saver.h"
#include "fullscreen/dvdmenu.h"
#include "fullscreen/frm_panel.h"
#include "fullscreen/fullmenu.h"
#include "media/mod_media.h"
#include "media/shared_state.h"
#include "texts/frm_update.h"
#include "toolkit/activation.h"
#include "toolkit/press.h"
#include "toolkit/screen.h"
#include "toolkit/trap.h"
#include "video/other_media.h"
#include "video/slots.h"
#include "video/video_window.h"

namespace tandrel
{

namespace
{

constexpr const char* kButtonUp = "Your Left Mouse Button Is UP";
constexpr const char* kButtonDown = "Your Left Mouse Button Is Down";
// What a drag leaves to the strips at the sides, and to the caption. Twips.
constexpr int kStripZone = 100;
constexpr int kCaptionZone = 300;
constexpr int kSmallest = 1000;

bool noticeIsUp() { return Loaded<class frmUpdate>() && frmUpdate().Visible(); }

/// The window is the foreground one, and the pointer on it: a press elsewhere on the desktop would have put another
/// one there, on a desktop that gives no focus for it too.
bool isPointedAt(const Form& form)
{
    return activeForm() == &form && form.pixelRect().contains(services().pointer->position());
}

/// A player that has something to show on the whole screen.
bool hasPicture(MediaPlayerControl& player)
{
    const Text length = player.currentMedia().durationString();
    return length != "00:00" && length != "00.00" && !length.empty();
}

} // namespace

void frmMedia::Timer3_Timer()
{
    if (ClosingDown)
        return;
    runWaitingKeys();
    const bool right = buttonIsDown(MouseButton::Right);
    // One question a tick: between two presses that follow each other fast, an answer says that the button was up.
    const bool left = buttonIsDown(MouseButton::Left);
    if (right && !rightClick())
        return;
    if (left && !right) {
        dragWindow();
    } else if (!right) {
        forgetDrag();
        DragBarred = false;
    }
    notePanel();
    if (left)
        countDown();
    else
        countRelease();
    tellClicks();
    if (CurrentAlias.empty())
        return;
    if (FastForward)
        MediaFastForward();
    else if (FastRewind)
        MediaFastRewind();
}

void frmMedia::notePanel()
{
    if (FullScreenOn)
        PanelUp = frmPanel().top() < FullTop + FullHeight;
}

bool frmMedia::rightClick()
{
    const bool mayFill = !FullScreenOn && !TrackHold;
    if (mayFill && (DVDMode || MkvOpen)) {
        if (noticeIsUp())
            return false;
        // With the control key the button asks for the sound and the subtitles.
        if (services().pointer->controlDown())
            return true;
        ignoringErrors([this] { mediaKind() == MediaKind::DiscOnVideoControl ? fillWithDisc() : fillWithPlayer(); });
        if (DVDMode)
            Timer4.Enabled = false;
    } else if (mayFill && !CurrentAlias.empty()) {
        fillWithSelected();
    } else if (FullScreenOn && !TrackHold && (!DVDMode || DvdFullByClick)) {
        popUpFullMenu();
    }
    return true;
}

void frmMedia::fillWithDisc()
{
    VideoWindow* window = otherMedia().dvd.form;
    if (!window || !isPointedAt(*window))
        return;
    spendPress(MouseButton::Right);
    DvdFullByClick = true;
    fillDisc(*window);
}

void frmMedia::fillDisc(VideoWindow& window)
{
    SaverOff = true;
    // The corner stands in twips here, which is right on the first monitor; the window is put right elsewhere.
    window.fillScreen({FullLeft, FullTop, FullLeft + pixelsX(FullWidth), FullTop + pixelsY(FullHeight)});
    showPanelOver(window);
}

void frmMedia::fillWithPlayer()
{
    const auto& player = *playerWindow();
    if (player.form && isPointedAt(*player.form) && fillPlayer(player))
        spendPress(MouseButton::Right);
}

bool frmMedia::fillPlayer(const ControlWindow<MediaPlayerControl>& player)
{
    if (!hasPicture(controlOf(player)) || controlOf(player).fullScreen)
        return false;
    ScreenSaverSwitch(false);
    SaverOff = true;
    controlOf(player).fullScreen = true;
    return true;
}

void frmMedia::fillWithSelected()
{
    FullMedia = CurrentAlias;
    if (frmChild* window = firstSlot([](const frmChild& slot) { return slot.plays(FullMedia) && isPointedAt(slot); })) {
        spendPress(MouseButton::Right);
        fillWith(*window);
    }
}

void frmMedia::fillWith(frmChild& window)
{
    window.fillScreen();
    showPanelOver(window);
}

void frmMedia::showPanelOver(const VideoWindow& window)
{
    // It may have been closed on its way.
    if (!window.Full)
        return;
    bringUpPanel(panelTitle());
    Timer4.Enabled = false;
}

void frmMedia::popUpFullMenu()
{
    showCursorForMenu();
    PopupMenu(DVDMode ? dvdmenu().mnupopup : fullmenu().mnupopup);
    // One that the user leaves without a choice ends here.
    endFullMenu();
}

void frmMedia::chooseInFullMenu(const std::function<Menu&()>& entryOf)
{
    const bool idleTimer = Timer4.Enabled;
    Menu& entry = entryOf();
    const auto menu = entry.form().shared_from_this();
    if (entry.entries().empty()) {
        menu->run(entry.Click);
    } else {
        showCursorForMenu();
        const PixelRect monitor = consoleMonitor();
        backend().withMenusAt({monitor.left + monitor.width() / 2, monitor.top + monitor.height() / 2},
                              [&] { PopupMenu(entry); });
    }
    // No click comes that would let the pointer be parked again where nothing was chosen.
    if (!menu->isDead())
        Timer4.Enabled = idleTimer;
    endFullMenu();
}

void frmMedia::showCursorForMenu()
{
    if (!CursorParked)
        return;
    Timer4.Enabled = false;
    PanelUp = false;
    showParkedCursor();
    Timer4.Enabled = true;
}

void frmMedia::endFullMenu()
{
    FullMenuOpen = false;
    if (DVDMode)
        Unload<class dvdmenu>();
    else
        Unload<class fullmenu>();
}

Form* frmMedia::windowToDrag() const
{
    // What of another kind is in front, or the selected file.
    Form* other = nullptr;
    if (mediaKind() == MediaKind::DiscOnVideoControl)
        other = otherMedia().dvd.form;
    else if (auto* player = playerWindow())
        other = player->form;
    if (other && other == activeForm())
        return FullScreenOn ? nullptr : other;
    return firstSlot(
        [](const frmChild& slot) { return slot.plays(CurrentAlias) && !slot.Full && activeForm() == &slot; });
}

void frmMedia::dragWindow()
{
    Form* window = DragBarred ? nullptr : windowToDrag();
    if (!window)
        return;
    CursorPos = services().pointer->position();
    const Long x = CursorPos.x * screen().TwipsPerPixelX();
    const Long y = CursorPos.y * screen().TwipsPerPixelY();
    if (!TrackHold)
        noteDrag(*window, x, y);
    if (DragHandle > 0) {
        sizeByDrag(*window);
        return;
    }
    const Long top = DragOffsetY > 0 ? y - DragOffsetY : window->top();
    const Long left = DragOffsetX > 0 ? x - DragOffsetX : window->left();
    if (top != window->top() || left != window->left())
        window->Move({left, top, window->width(), window->height()});
}

void frmMedia::noteDrag(const Form& window, Long x, Long y)
{
    if (DragHandle == 0 && DragOffsetX == 0 && DragOffsetY == 0) {
        const bool inside = x > window.left() + kStripZone && y > window.top() + kCaptionZone &&
                            y < window.top() + window.height() - kStripZone &&
                            x < window.left() + window.width() - kStripZone;
        if (!inside)
            return;
        DragOffsetY = y - window.top();
        DragOffsetX = x - window.left();
        if (dynamic_cast<const frmChild*>(&window))
            WindowDragged = true;
    } else if (DragHandle > 0) {
        DragSizeHeight = y - window.top();
        DragSizeWidth = x - window.left();
    }
}

void frmMedia::sizeByDrag(Form& window)
{
    TwipsRect place = window.place();
    if (DragHandle != drag::kSide && DragSizeHeight > kSmallest)
        place.height = DragSizeHeight;
    if (DragHandle != drag::kBottom && DragSizeWidth > kSmallest)
        place.width = DragSizeWidth;
    if (place.width != window.width() || place.height != window.height())
        window.Move(place);
}

void frmMedia::forgetDrag()
{
    DragOffsetX = DragOffsetY = 0;
    DragSizeWidth = DragSizeHeight = 0;
}

void frmMedia::barDrag()
{
    forgetDrag();
    DragBarred = true;
}

void frmMedia::followDrag()
{
    const bool underWay = DragHandle > 0 || DragOffsetX != 0 || DragOffsetY != 0;
    if (!ClosingDown && Timer3.enabled() && underWay)
        dragWindow();
}

void frmMedia::countRelease()
{
    lblTimeClick.Caption = kButtonUp;
    if (ClickCount == 1)
        ClickCount = 0;
}

void frmMedia::countDown()
{
    // Clicks on the pictures count. While another program is in front they are none of ours.
    const bool isOurs = activeForm() != nullptr;
    if (isOurs && lblTimeClick.caption() == kButtonUp)
        countPress();
    if (FullScreenOn)
        wakeCursor("File::");
    if (isOurs)
        lblTimeClick.Caption = kButtonDown;
    Timer4.Enabled = true;
}

void frmMedia::countPress()
{
    ClickCount += 1;
    if (ClickCount != 1)
        return;
    if (ClickState == 0) {
        ClickState = 0.5;
        tidyFullScreen();
    } else if (ClickState == 0.5) {
        ClickState = 1.0;
        if (SlideMode == "1" && !FullScreenOn && !TrackHold) {
            SlideShow();
            // What the press was on stands elsewhere now, and stays there.
            barDrag();
        }
        // What leads out of full screen need not wait for its turn, and the window that comes back stays where it was.
        if (FullScreenOn && !PanelUp && !FullMenuOpen) {
            Timer2.hasten();
            barDrag();
        }
    }
}

void frmMedia::tidyFullScreen()
{
    const bool discByMenu = DVDMode && FullScreenOn && !DvdFullByClick && !PanelUp;
    if (!discByMenu && !FullMedia.empty() && FullScreenOn && !PanelUp && !FullMenuOpen) {
        Unload<class frmPanel>();
        Unload<class fullmenu>();
    }
}

} // namespace tandrel
