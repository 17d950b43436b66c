#include "video/frm_dvd.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "desktop/screen_saver.h"
#include "desktop/wheel.h"
#include "fullscreen/frm_panel.h"
#include "media/shared_state.h"
#include "texts/frm_update.h"
#include "texts/frm_wait.h"
#include "texts/localised.h"
#include "toolkit/press.h"
#include "toolkit/screen.h"
#include "toolkit/trap.h"
#include "video/other_media.h"

#include <utility>

namespace tandrel
{

namespace
{

// The colour behind the picture.
constexpr int kColorKey = 263173;
// What the height loses so that the window is laid out anew.
constexpr int kLayoutTwips = 15;
constexpr std::size_t kTitleBlanks = 50;
// How long the window system may take to tell of the window that comes to the front behind a message.
constexpr int kSwallowMs = 1500;

} // namespace

frmDVD::frmDVD() : VideoWindow("frmDVD", Frame::Video, {0, 0, 11905, 6800})
{
    Caption = "DVD";
    picDVD.dark = true;
    picDVD.Resize = [this] { picDVD_Resize(); };
    showStrips(false);
    wireStrips(mouse::kLeft);
    wirePicture();
    DropFiles = [](const std::vector<Text>& paths) { frmMedia().openDropped(paths); };
    KeyDown = [this](Key key) { return dvdPicture.takeKey(key); };
    MenuKey = [this] { dvdPicture.chooseTracks(); };
}

void frmDVD::wirePicture()
{
    wireEdges(dvdPicture);
    dvdPicture.MouseDown = [this](const MouseEvent& event) {
        pressAtEdge(event);
        dvdPicture.press(event);
    };
    dvdPicture.MouseMove = [this, follow = dvdPicture.MouseMove](const MouseEvent& event) {
        follow(event);
        dvdPicture.pointAt(event);
    };
}

void frmDVD::onLoad()
{
    DVDMode = true;
    otherMedia().dvd = {this, &dvdPicture};
    picDVD.Spoken = localised("spoken.picture");
    wanted_ = frmMedia().DiscWanted;
    takeHold();
    takeCorner();
}

void frmDVD::AddCC()
{
    ignoringErrors([this] {
        for (const VideoFeature& feature : dvdPicture.FeaturesAvailable()) {
            if (feature.ClassID != kClosedCaptioning)
                continue;
            ignoringErrors([&] { dvdPicture.setFeaturesActive({feature}); });
            captions_ = feature;
        }
    });
}

Long frmDVD::BuildGraph()
{
    oVidWebDVD = nullptr;
    DVDAdmin = nullptr;
    Titles = 0;
    ignoringErrors([this] { dvdPicture.View("DVD:" + wanted_); });
    AddCC();
    ignoringErrors([this] { dvdPicture.Build(); });
    ignoringErrors([this] { oVidWebDVD = &dvdPicture.InputActive(); });
    if (oVidWebDVD) {
        ignoringErrors([this] { DVDAdmin = &oVidWebDVD->DVDAdm(); });
        ignoringErrors([this] { Titles = oVidWebDVD->TitlesAvailable(); });
    }
    return Titles;
}

void frmDVD::onActivate()
{
    // The activation that the end of the message brings is no reason to ask again; one by the user's click is.
    // The buttons are asked for that alone: a short click is told once.
    const auto byClick = [] { return buttonIsDown(MouseButton::Left) || buttonIsDown(MouseButton::Right); };
    if (std::exchange(asked_, false) && !byClick())
        return;
    if (!FullScreenOn)
        ScreenSaverSwitch(true);
    screen().MousePointer = pointer::kHourglass;
    trap([this] { becomeActive(); });
    // Left behind by an error it would keep every command away as busy.
    screen().MousePointer = pointer::kDefault;
}

void frmDVD::becomeActive()
{
    showStrips(!FullScreenOn);
    for (PictureBox* box : {&picClose, &picVRes, &picHRes})
        if (!FullScreenOn)
            box->Refresh();
    takeConsole();
    const bool right = rightButtonFills();
    const bool noticeIsUp = Loaded<class frmUpdate>() && frmUpdate().Visible();
    if (right && !FullScreenOn && !noticeIsUp) {
        goFullScreen();
    } else if (right && FullScreenOn) {
        // The click is for the menu.
        passPress(MouseButton::Right);
    } else if (!right && FullScreenOn) {
        PanelUp = false;
        putPanelBelow();
    }
    showBeginning();
    if (BuildGraph() > 0)
        startDisc();
    else
        askForDisc();
}

void frmDVD::goFullScreen()
{
    class frmMedia& console = frmMedia();
    spendPress(MouseButton::Right);
    console.DvdFullByClick = true;
    console.SaverOff = true;
    fillScreen({0, 0, pixelsX(console.FullWidth), pixelsY(console.FullHeight)});
    bringUpPanel("DVD:: \"Movie\"");
    console.Timer4.Enabled = false;
}

void frmDVD::startDisc()
{
    dvdPicture.Run();
    dvdPicture.setColorKey(kColorKey);
    Height = height() - kLayoutTwips;
    if (Full)
        cover(consoleMonitor());
    frmMedia().lblTitleBar.Caption = blanks(kTitleBlanks) + "DVD Movie" + blanks(kTitleBlanks);
    FastForward = false;
    FastRewind = false;
}

void frmDVD::askForDisc()
{
    Titles = -1;
    // That has been told, and another disc would have to be put in as well.
    if (dvdPicture.isEncrypted())
        return;
    OpenDoor();
    Unload<class frmWait>();
    screen().MousePointer = pointer::kDefault;
    asked_ = true;
    frmMedia().tell(localised("message.insertDisc") + "\n");
    // It comes soon, or never.
    backend().later(kSwallowMs, [window = weak_from_this()] {
        if (const auto alive = std::static_pointer_cast<class frmDVD>(window.lock()))
            alive->asked_ = false;
    });
}

void frmDVD::onResize()
{
    if (!visible())
        return;
    ignoringErrors([this] {
        if (!Style.Titlebar()) {
            frmMedia().TitleOff = true;
            picDVD.move({0, 0, width(), height()});
        } else if (!Full) {
            picDVD.move({0, 0, width() - kFrameWidth, height() - kFrameHeight});
        }
        placeStrips(dvdPicture);
        for (PictureBox* box : {&picClose, &picVRes, &picHRes})
            box->Refresh();
    });
}

void frmDVD::picDVD_Resize()
{
    if (!Style.Titlebar())
        dvdPicture.move({0, 0, width(), height()});
    else if (!Full)
        dvdPicture.move({0, 0, width() - kFrameWidth, height() - kFrameHeight});
}

void frmDVD::onUnload()
{
    dvdPicture.end();
    if (Full) {
        Full = false;
        FullScreenOn = false;
        PanelUp = false;
        frmMedia().DvdFullByClick = false;
        setFullScreen(false);
        ScreenSaverSwitch(true);
        frmMedia().showParkedCursor();
        Unload<class frmPanel>();
        frmMedia().Timer4.Enabled = true;
    }
    WheelHookRemove(hWnd());
    // Another one may have come already, or come with the focus.
    const auto isTheOne = [this] { return otherMedia().dvd.form == this; };
    if (isTheOne()) {
        showNothing();
        frmMedia().SetFocus();
    }
    if (isTheOne()) {
        DVDMode = false;
        otherMedia().dvd = {};
    }
}

} // namespace tandrel
