#include "console/frm_media.h"

#include "console/command_line.h"
#include "console/holders.h"
#include "console/slidemenu.h"
#include "media/mod_media.h"
#include "media/shared_state.h"
#include "toolkit/screen.h"

namespace tandrel
{

namespace
{

// Stored captions of the hidden buttons; index 5 has none.
constexpr std::array<const char*, command::kCount> kCaptions{"Play", "Pause", "Stop", "Open",
                                                             "Help", nullptr, "_",    "X"};

} // namespace

frmMedia::frmMedia()
    : Form("frmMedia", Frame::Skin, {screen().FirstLeft(), screen().FirstTop(), 13500, 3180}), cmdMedia(command::kCount)
{
    lblTitleBar.role = TextRole::Title;
    lblCurTime.role = TextRole::Time;
    lblDuration.role = TextRole::Value;
    for (Label* label : {&Label3, &Label4, &Label6, &Label7})
        label->role = TextRole::Caption;
    for (Label* label : {&lblSpeed, &lblSize}) {
        label->role = TextRole::Quiet;
        label->alignment = Alignment::Centre;
    }
    for (int index = 0; index < command::kCount; ++index) {
        if (!kCaptions[static_cast<std::size_t>(index)])
            continue;
        auto& button = cmdMedia[static_cast<std::size_t>(index)];
        button = std::make_unique<CommandButton>(*this, "cmdMedia" + std::to_string(index), TwipsRect{0, 0, 300, 300},
                                                 kCaptions[static_cast<std::size_t>(index)]);
        button->Visible = false;
    }
    VolumeSlider.Value = 50;
    InvertSlider.Value = 50;
    VolumeSlider.Visible = false;
    lblClick.Visible = false;
    lblDblClick.Visible = false;
    for (Slider* slider : {&VolumeSlider, &InvertSlider})
        slider->ToolTip = "Volume";
    imgResize.ToolTip = "PlayAll Mode or PlayList Mode";
    imgExit.ToolTip = "Exit";
    imgDwn.ToolTip = "Minimize Control Panel";
    wireControls();
}

frmMedia::~frmMedia() { installConsoleFace(nullptr); }

void frmMedia::wireControls()
{
    for (int index = 0; index < command::kCount; ++index)
        if (auto& button = cmdMedia[static_cast<std::size_t>(index)])
            button->Click = [this, index] { cmdMedia_Click(index); };
    const auto pressable = [](Image& image) {
        image.MouseDown = [&image](const MouseEvent& event) {
            if (event.button == mouse::kLeft)
                image.BorderStyle = 1;
        };
        image.MouseUp = [&image](const MouseEvent& event) {
            if (event.button == mouse::kLeft)
                image.BorderStyle = 0;
        };
    };
    for (Image* image : {&imgExit, &imgDwn, &imgResize})
        pressable(*image);
    const auto onClick = [this](Image& image, std::function<void()> action) {
        image.Click = [this, action = std::move(action)] {
            if (!ClosingDown)
                action();
        };
    };
    onClick(imgResize, [] { PopupMenu(slidemenu().popup); });
    onClick(imgExit, [this] { cmdMedia[command::kExit]->Value = true; });
    onClick(imgDwn, [this] { WindowState = 1; });
    Timer2.Tick = [this] { Timer2_Timer(); };
    MouseMove = [this](const MouseEvent&) { playAfterFullScreen(); };
    Sposta.MouseMove = [this](const MouseEvent&) { playAfterFullScreen(); };
}

void frmMedia::playAfterFullScreen()
{
    if (FullScreenOn || trim(FullMedia).empty())
        return;
    mciSend("Play " + FullMedia + " ");
    FullMedia.clear();
}

void frmMedia::MoveMouse(double X, double Y) { services().pointer->moveTo({Long(X), Long(Y)}); }

Text durationCaption(const Text& length)
{
    const auto piece = [&](std::size_t from, std::size_t count) {
        return from < length.size() ? length.substr(from, count) : Text();
    };
    return piece(0, 1) + ":" + piece(2, 2) + ":" + piece(5, 2);
}

} // namespace tandrel
