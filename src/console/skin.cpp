// The console's skin: its outline, the looks and the tips of its controls, and what the image buttons do.

#include "console/frm_media.h"
#include "console/holders.h"
#include "console/key_commands.h"
#include "console/slidemenu.h"
#include "console/stillmenu.h"
#include "desktop/layered.h"
#include "desktop/region.h"
#include "desktop/slider_background.h"
#include "fullscreen/codec_settings.h"
#include "media/mod_media.h"
#include "media/shared_state.h"
#include "persist/openmenu.h"
#include "texts/links.h"
#include "texts/localised.h"
#include "texts/localised_dialog.h"
#include "texts/menu.h"

#include <algorithm>
#include <array>

namespace tandrel
{

namespace
{

constexpr std::int32_t kBodyColour = rgb(14, 45, 81);

struct ImageButton {
    Image frmMedia::*image;
    Plate plate;
    /// The tip's key in the table of texts, or the tip itself where it is English in all languages.
    const char* key;
    const char* tip;
};

constexpr std::array<ImageButton, 24> kImageButtons{{
    {&frmMedia::imgPlay, Plate::Play, "frmMedia.imgPlay", nullptr},
    {&frmMedia::imgPause, Plate::Lead, "frmMedia.imgPause", nullptr},
    {&frmMedia::imgRwd, Plate::Lead, "frmMedia.imgRwd", nullptr},
    {&frmMedia::imgFwd, Plate::Lead, "frmMedia.imgFwd", nullptr},
    {&frmMedia::imgReplay, Plate::Round, "frmMedia.imgReplay", nullptr},
    {&frmMedia::imgOpen, Plate::Round, "frmMedia.imgOpen", nullptr},
    {&frmMedia::imgBack, Plate::Round, "frmMedia.imgBack", nullptr},
    {&frmMedia::imgPauseAll, Plate::Round, "frmMedia.imgPauseAll", nullptr},
    {&frmMedia::imgStep, Plate::Round, "frmMedia.imgStep", nullptr},
    {&frmMedia::imgResync, Plate::Round, "frmMedia.imgResync", nullptr},
    {&frmMedia::imgMute, Plate::Round, nullptr, "Mute All On/Off"},
    {&frmMedia::imgResize, Plate::Round, "frmMedia.imgResize", nullptr},
    {&frmMedia::imgVideo, Plate::Round, "frmMedia.imgVideo", nullptr},
    {&frmMedia::imgAudio, Plate::Round, "frmMedia.imgAudio", nullptr},
    {&frmMedia::imgShare, Plate::Round, "frmMedia.imgShare", nullptr},
    {&frmMedia::imgHelp, Plate::Round, "frmMedia.imgHelp", nullptr},
    {&frmMedia::imgFaceBook, Plate::Round, nullptr, "Share On FaceBook"},
    {&frmMedia::imgTwitter, Plate::Round, nullptr, "Share On Twitter"},
    {&frmMedia::imgMax, Plate::Round, nullptr, "Volume +"},
    {&frmMedia::imgMin, Plate::Round, nullptr, "Volume -"},
    {&frmMedia::imgStill, Plate::Round, "frmMedia.imgStill", nullptr},
    {&frmMedia::imgHide, Plate::Round, "frmMedia.imgHide", nullptr},
    {&frmMedia::imgDwn, Plate::Round, "frmMedia.imgDwn", nullptr},
    {&frmMedia::imgExit, Plate::Round, "frmMedia.imgExit", nullptr},
}};

struct LabelText {
    Label frmMedia::*label;
    const char* key;
};
constexpr std::array<LabelText, 5> kLabels{{
    {&frmMedia::Label4, "frmMedia.Label4"},
    {&frmMedia::Label6, "frmMedia.Label6"},
    {&frmMedia::Label7, "frmMedia.Label7"},
    {&frmMedia::lblGroup, "frmMedia.lblGroup"},
    {&frmMedia::lblTitleBar, "frmMedia.lblTitleBar"},
}};

struct LabelLook {
    Label frmMedia::*label;
    TextRole role;
    Alignment alignment;
};
constexpr std::array<LabelLook, 14> kLooks{{
    {&frmMedia::lblTitleBar, TextRole::Title, Alignment::Left},
    {&frmMedia::lblCurTime, TextRole::Time, Alignment::Left},
    {&frmMedia::lblDuration, TextRole::Value, Alignment::Left},
    {&frmMedia::lblVolume, TextRole::Figure, Alignment::Left},
    {&frmMedia::Label1, TextRole::Quiet, Alignment::Right},
    {&frmMedia::Label3, TextRole::Caption, Alignment::Left},
    {&frmMedia::lblNote, TextRole::Quiet, Alignment::Left},
    {&frmMedia::Label4, TextRole::Caption, Alignment::Left},
    {&frmMedia::Label6, TextRole::Caption, Alignment::Left},
    {&frmMedia::Label7, TextRole::Caption, Alignment::Left},
    {&frmMedia::lblGroup, TextRole::Group, Alignment::Left},
    {&frmMedia::lblMode, TextRole::Group, Alignment::Left},
    {&frmMedia::lblSpeed, TextRole::Chip, Alignment::Centre},
    {&frmMedia::lblSize, TextRole::Chip, Alignment::Centre},
}};

} // namespace

void frmMedia::dressControls()
{
    for (const LabelLook& look : kLooks) {
        (this->*look.label).role = look.role;
        (this->*look.label).alignment = look.alignment;
    }
    for (const ImageButton& button : kImageButtons) {
        Image& image = this->*button.image;
        image.plate = button.plate;
        image.tabStop = true;
        showsPress(image);
        // Until its command is wired below it does nothing.
        image.Click = [] {};
    }
    // A long path gives way in its middle.
    lblNote.cut = TextCut::Middle;
    Maschera.Visible = false;
    imgLoad.Visible = false;
    lblNote.Visible = false;
    VolumeSlider.Visible = false;
    for (Control* hidden : std::initializer_list<Control*>{&cmdFwd, &cmdRwd, &cmdVideo, &cmdAudio, &Label2, &lblClick,
                                                           &lblDblClick, &lblTimeClick})
        hidden->Visible = false;
    for (auto& button : cmdMedia)
        if (button)
            button->Visible = false;
    VolumeSlider.Change = [this] { lblVolume.Caption = text(VolumeSlider.Value); };
    VolumeSlider.Value = 50;
    InvertSlider.Value = 50;
}

void frmMedia::nameInLanguage()
{
    for (const ImageButton& button : kImageButtons)
        (this->*button.image).ToolTip = button.key ? localised(button.key) : Text(button.tip);
    for (const LabelText& label : kLabels)
        (this->*label.label).Caption = localised(label.key);
    InvertSlider.ToolTip = localised("frmMedia.InvertSlider");
    VolumeSlider.ToolTip = "Volume";
    nameForEars();
    menu().mnuHelp.Caption = localised("menu.mnuHelp");
    menu().mnuEsci.Caption = localised("menu.mnuEsci");
    openmenu().nameInLanguage();
    stillmenu().nameInLanguage();
    slidemenu().mnuSlideCenter.Caption = localised("slidemenu.mnuSlideCenter");
    slidemenu().mnuSlideLeft.Caption = localised("slidemenu.mnuSlideLeft");
    backend().setBoxTexts({localised("box.yes"), localised("box.no"), localised("box.ok"), localised("system.minimise"),
                           localised("system.close")});
    backend().setFileDialogTexts(localisedDialogTexts());
    showMode();
}

void frmMedia::nameForEars()
{
    SeekSlider.Spoken = localised("spoken.place");
    lblCurTime.Spoken = Label7.caption();
    lblDuration.Spoken = Label6.caption();
    lblVolume.Spoken = Label4.caption();
    lblSize.Spoken = Label1.caption();
    // The slider grows downwards, and the volume upwards.
    InvertSlider.spokenValue = {
        [this] { return static_cast<double>(VolumeSlider.value()); },
        [this] { return static_cast<double>(VolumeSlider.maximum()); },
        [this](double volume) { InvertSlider.userStep(VolumeSlider.maximum() - Long(volume)); }};
}

void frmMedia::wireControls()
{
    wireTransport();
    wireSliders();
    wireTools();
    wireWindow();
    cmdAudio.Click = [] { showCodecSettings(CodecPage::Audio, CodecCaller::Console); };
    cmdVideo.Click = [] { showCodecSettings(CodecPage::Video, CodecCaller::Console); };
    Timer1.Tick = [this] { Timer1_Timer(); };
    Timer2.Tick = [this] { Timer2_Timer(); };
    Timer3.Tick = [this] { Timer3_Timer(); };
    Timer4.Tick = [this] { Timer4_Timer(); };
    TimerPictures.Tick = [this] { stillPictures.follow(*this); };
}

void frmMedia::onImage(Image& image, std::function<void()> action)
{
    image.Click = [this, action = std::move(action)] {
        if (!ClosingDown)
            action();
    };
}

void frmMedia::wireTools()
{
    onImage(imgOpen, [] { PopupMenu(openmenu().popup); });
    onImage(imgVideo, [this] { cmdVideo.Value = true; });
    onImage(imgAudio, [this] { cmdAudio.Value = true; });
    onImage(imgResize, [] { PopupMenu(slidemenu().popup); });
    onImage(imgStill, [] { PopupMenu(stillmenu().popup); });
    onImage(imgShare, [] { PopupMenu(tandrel::share().popup); });
    onImage(imgFaceBook, [] { ShellOpen(facebookLink(AppTitle)); });
    onImage(imgTwitter, [] { ShellOpen(twitterLink(AppTitle)); });
    onImage(imgHelp, [this] { cmdMedia[command::kHelp]->Value = true; });
    onImage(imgHide, [this] { cmdMedia[command::kHide]->Value = true; });
    onImage(imgExit, [this] { cmdMedia[command::kExit]->Value = true; });
    onImage(imgDwn, [this] { WindowState = 1; });
}

void frmMedia::wireWindow()
{
    Sposta.MouseDown = [this](const MouseEvent& event) {
        if (event.button == mouse::kLeft) {
            startDrag();
            Refresh();
        } else if (event.button == mouse::kRight) {
            PopupMenu(menu().mnupopup);
        }
    };
    Shortcut = &pressKey;
    MenuKey = [] { PopupMenu(menu().mnupopup); };
    DropFiles = [this](const std::vector<Text>& paths) { openDropped(paths); };
    MouseMove = [this](const MouseEvent&) { playAfterFullScreen(); };
    Sposta.MouseMove = [this](const MouseEvent& event) {
        // The texts let presses through to be dragged by; what moves over them is theirs, and does nothing.
        if (!isOverText(event.x, event.y))
            playAfterFullScreen();
    };
}

bool frmMedia::isOverText(double x, double y) const
{
    const auto holds = [&](const Label* label) {
        const TwipsRect area = label->place();
        return label->visible() && x >= area.left && x < area.left + area.width && y >= area.top &&
               y < area.top + area.height;
    };
    const std::array<const Label*, 4> texts{&Label3, &lblCurTime, &lblDuration, &lblTitleBar};
    return std::any_of(texts.begin(), texts.end(), holds);
}

void frmMedia::dressConsole()
{
    SliderBrushCreate(kBodyColour);
    SliderHookInstall(*this, SeekSlider);
}

void frmMedia::ApplicaMaschera() { applyMask(*this, Maschera); }

void frmMedia::ImpostaTrasparenza(Integer& Alpha) { SetLayered(*this, 0, Alpha, layered::kAlpha); }

bool frmMedia::titleSaysNoMedia() const
{
    const Text title = upper(lblTitleBar.caption());
    return title.find(upper(kNoMedia)) != Text::npos ||
           title.find(upper(localised("frmMedia.lblTitleBar"))) != Text::npos;
}

void frmMedia::showMode() { lblMode.Caption = SlideMode == "0" ? "PlayAll Mode" : "PlayList Mode"; }

} // namespace tandrel
