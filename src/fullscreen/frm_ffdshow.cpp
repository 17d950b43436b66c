#include "fullscreen/frm_ffdshow.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "desktop/monitors.h"
#include "media/mod_media.h"
#include "media/shared_state.h"
#include "texts/localised.h"
#include "toolkit/screen.h"
#include "toolkit/trap.h"
#include "video/slots.h"

#include <algorithm>

namespace tandrel
{

namespace
{

// What of the dialog lies above and left of the form: title bar and frame. Twips.
constexpr int kTitleBar = 450;
constexpr int kSideFrame = 55;

// The form as it is without a dialog, and what its own frame and the strip of buttons take of it. Twips.
constexpr int kWidth = 9330;
constexpr int kHeight = 7350;
constexpr int kFrameAcross = 30;
constexpr int kFrameDown = 390;
constexpr int kStrip = 810;
constexpr int kMargin = 240;
constexpr int kNarrowest = 6000;

} // namespace

CodecForm::CodecForm(Text name, CodecPage page)
    : Form(std::move(name), Frame::Dialog, {screen().FirstLeft(), screen().FirstTop(), kWidth, kHeight}), page_(page)
{
    cmdCancel.isCancel = true;
    cmdOK.Click = [this] { cmdOK_Click(); };
    cmdCancel.Click = [this] { unload(*this); };
}

void CodecForm::onLoad()
{
    Caption = localised(page_ == CodecPage::Audio ? "frmMedia.imgAudio" : "frmMedia.imgVideo");
    cmdOK.Caption = localised("frmFFDShow.cmdOK");
    cmdCancel.Caption = localised("frmFFDShow.cmdCancel");
    const Long process = static_cast<std::int64_t>(services().shell->run(codecCommand(page_)));
    picVideo.Height = frmMedia().FullHeight;
    picVideo.Width = frmMedia().FullWidth;
    takeDialog(process);
    ignoringErrors([this] { placeAround(); });
    Picture1.ZOrder();
    holdPanelDown();
}

void CodecForm::takeDialog(Long process)
{
    dialog_ = process == 0 ? 0 : GetWinHandle(process);
    if (dialog_ != 0 && !services().desktop->setParent(dialog_, picVideo.hWnd()))
        dialog_ = 0;
}

void CodecForm::placeAround()
{
    const auto box = services().desktop->windowRect(picVideo.hWnd());
    const auto dialog = services().desktop->windowRect(dialog_);
    if (!box || !dialog)
        return;
    const Long x = divide((dialog->left - box->left) * static_cast<double>(screen().TwipsPerPixelX()), 1);
    const Long y = divide((dialog->top - box->top) * static_cast<double>(screen().TwipsPerPixelY()), 1);
    Top = FFDShowTop != 0 ? FFDShowTop : y;
    Left = FFDShowLeft != 0 ? FFDShowLeft : x;
    picVideo.Top = -y - kTitleBar;
    picVideo.Left = -x - kSideFrame;
    fitTo(*dialog);
    monitors().bringWithinReach(*this);
}

void CodecForm::fitTo(const PixelRect& dialog)
{
    const Long across = (dialog.width() - Desktop::kLostFrame.x) * screen().TwipsPerPixelX();
    const Long down = (dialog.height() - Desktop::kLostFrame.y) * screen().TwipsPerPixelY();
    Width = std::clamp<int>(across + kFrameAcross, kNarrowest, std::max<int>(kNarrowest, frmMedia().FullWidth));
    Height =
        std::clamp<int>(down + kFrameDown + kStrip, kHeight / 2, std::max<int>(kHeight / 2, frmMedia().FullHeight));
    layOut();
}

void CodecForm::onResize() { layOut(); }

void CodecForm::layOut()
{
    const Long inside = width() - kFrameAcross;
    const Long strip = height() - kFrameDown - kStrip;
    picView.move({0, 0, inside, strip});
    Picture1.move({0, strip, inside, kStrip});
    picOK.move({0, 0, inside, kStrip});
    cmdCancel.Left = inside - cmdCancel.width() - kMargin;
    cmdOK.Left = cmdCancel.left() - cmdOK.width() - kMargin / 2;
}

void CodecForm::holdPanelDown()
{
    FullMenuOpen = true;
    frmMedia().Timer4.Enabled = false;
}

void CodecForm::cmdOK_Click()
{
    if (frmChild* window = slotPlaying(CurrentAlias)) {
        const Alias alias = window->MediaFile;
        const Text height = text(pixelsY(window->picVideo.Height()));
        const Text width = text(pixelsX(window->picVideo.Width()));
        mciSend("set " + alias + " time format ms");
        const Text position = mciAsk("status " + alias + " position").text;
        window->picVideo.Visible = false;
        window->Refresh();
        mciSend("Close " + alias);
        MediaOpenAlias(alias, window->picVideo.hWnd());
        MediaSeekPlay(numberAtFront(position), window->Paused);
        mciSend("put " + alias + " window at 0 0 " + width + " " + height);
        MediaSetVolume(frmMedia().VolumeSlider.Value);
        window->picVideo.Visible = true;
    }
    holdPanelDown();
}

void CodecForm::onUnload()
{
    FFDShowTop = Top;
    FFDShowLeft = Left;
    // A window of another program that stood in a window of ours would go with it.
    if (dialog_ != 0)
        services().desktop->setParent(dialog_, 0);
}

} // namespace tandrel
