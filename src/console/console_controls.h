/// What the console consists of: its controls and timers, with their places in twips.
#pragma once

#include "toolkit/form.h"

namespace tandrel
{

class ConsoleControls : public Form
{
public:
    // The body, whose picture is the outline too, and the surface that the console is dragged by.
    Image Maschera{*this, "Maschera", {0, 0, 13500, 3180}, "console"};
    Image imgBody{*this, "imgBody", {0, 0, 13500, 3180}, "console"};
    Label Sposta{*this, "Sposta", {0, 0, 13500, 3180}};

    // The display.
    Label lblTitleBar{*this, "lblTitleBar", {570, 795, 4200, 300}, kNoTitle};
    Label lblCurTime{*this, "lblCurTime", {570, 1170, 2310, 630}, "0:00:00"};
    Label Label7{*this, "Label7", {585, 1830, 2250, 240}, "Current"};
    Label Label6{*this, "Label6", {3000, 1230, 1050, 240}, "Total"};
    Label lblDuration{*this, "lblDuration", {3000, 1455, 1140, 330}, "0:00:00"};
    Label lblSpeed{*this, "lblSpeed", {4140, 1485, 630, 270}, "0x"};
    Label lblMode{*this, "lblMode", {3000, 1830, 1500, 240}};
    Image imgLoad{*this, "imgLoad", {4515, 1815, 255, 255}, "load"};

    // What moves the selected video. Tab goes through the controls in the order in which they stand here.
    Image imgPlay{*this, "imgPlay", {6180, 540, 1140, 1140}, "play"};
    Image imgPause{*this, "imgPause", {6495, 1800, 510, 510}, "pause"};
    Image imgRwd{*this, "imgRwd", {5550, 930, 540, 540}, "rewind"};
    Image imgFwd{*this, "imgFwd", {7410, 930, 540, 540}, "forward"};
    Image imgReplay{*this, "imgReplay", {5910, 1665, 450, 450}, "replay"};
    Image imgOpen{*this, "imgOpen", {7140, 1665, 450, 450}, "open"};
    Slider SeekSlider{*this, "SeekSlider", {360, 2400, 12780, 300}, false};

    // What acts on all videos.
    Label lblGroup{*this, "lblGroup", {8730, 735, 2850, 240}, "All videos"};
    Image imgBack{*this, "imgBack", {8655, 1035, 450, 450}, "back"};
    Image imgPauseAll{*this, "imgPauseAll", {9270, 1035, 450, 450}, "pause_all"};
    Image imgStep{*this, "imgStep", {9885, 1035, 450, 450}, "step"};
    Image imgResync{*this, "imgResync", {10500, 1035, 450, 450}, "resync"};
    Image imgMute{*this, "imgMute", {11115, 1035, 450, 450}, "mute"};

    // Tools.
    Image imgResize{*this, "imgResize", {8505, 1725, 390, 390}, "layout"};
    Image imgVideo{*this, "imgVideo", {8970, 1725, 390, 390}, "video"};
    Image imgAudio{*this, "imgAudio", {9435, 1725, 390, 390}, "audio"};
    Image imgShare{*this, "imgShare", {9900, 1725, 390, 390}, "share"};
    Image imgHelp{*this, "imgHelp", {10365, 1725, 390, 390}, "help"};
    Image imgFaceBook{*this, "imgFaceBook", {10965, 1755, 330, 330}, "friends"};
    Image imgTwitter{*this, "imgTwitter", {11385, 1755, 330, 330}, "post"};

    // The volume: one level, seen by `InvertSlider`, which grows downwards, and kept by `VolumeSlider`.
    Label Label4{*this, "Label4", {12120, 1095, 480, 240}, "VOL"};
    Label lblVolume{*this, "lblVolume", {12120, 1380, 510, 390}, "50"};
    Slider InvertSlider{*this, "InvertSlider", {12660, 1050, 300, 1095}, true};
    Slider VolumeSlider{*this, "VolumeSlider", {12660, 1050, 300, 1035}, true};
    Image imgMax{*this, "imgMax", {12945, 1065, 270, 270}, "plus"};
    Image imgMin{*this, "imgMin", {12945, 1875, 270, 270}, "minus"};

    // The size of the picture, and the name of the program.
    Label Label3{*this, "Label3", {780, 2805, 3900, 240}};
    /// Stands in the place of the name for a while.
    Label lblNote{*this, "lblNote", {780, 2805, 6600, 240}};
    Image imgStill{*this, "imgStill", {7500, 2715, 390, 390}, "camera"};
    Label Label1{*this, "Label1", {8220, 2805, 960, 240}, "Resize"};
    std::vector<std::unique_ptr<CommandButton>> cmdSize = makeSizeRow();
    Label lblSize{*this, "lblSize", {9690, 2790, 780, 270}, "100 %"};
    CheckBox chkFullscreen{*this, "chkFullscreen", {11160, 2790, 1650, 270}, "Fullscreen"};

    // The window.
    Image imgHide{*this, "imgHide", {12015, 510, 330, 330}, "hide"};
    Image imgDwn{*this, "imgDwn", {12405, 510, 330, 330}, "minimise"};
    Image imgExit{*this, "imgExit", {12795, 510, 330, 330}, "exit"};

    // Pressed by others, and seen by nobody.
    CommandButton cmdFwd{*this, "cmdFwd", {0, 0, 300, 300}, ">>"};
    CommandButton cmdRwd{*this, "cmdRwd", {0, 0, 300, 300}, "<<"};
    CommandButton cmdVideo{*this, "cmdVideo", {0, 0, 300, 300}, "Video"};
    CommandButton cmdAudio{*this, "cmdAudio", {0, 0, 300, 300}, "Audio"};
    std::vector<std::unique_ptr<CommandButton>> cmdMedia = makeCommandRow();
    Label Label2{*this, "Label2", {0, 0, 900, 240}, "0"};
    Label lblClick{*this, "lblClick", {0, 0, 900, 240}};
    Label lblDblClick{*this, "lblDblClick", {0, 0, 900, 240}};
    Label lblTimeClick{*this, "lblTimeClick", {0, 0, 900, 240}};

    Timer Timer1{*this, "Timer1", 100, false};
    Timer Timer2{*this, "Timer2", 750, false};
    Timer Timer3{*this, "Timer3", 50, true};
    Timer Timer4{*this, "Timer4", 3000, true};
    Timer TimerPictures{*this, "TimerPictures", 200, false};

protected:
    ConsoleControls();

private:
    static constexpr const char* kNoTitle = "No Media Selected";

    std::vector<std::unique_ptr<CommandButton>> makeCommandRow();
    std::vector<std::unique_ptr<CommandButton>> makeSizeRow();
};

} // namespace tandrel
