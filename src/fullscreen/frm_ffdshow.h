/// The forms that take a codec's own settings, windows of another program, in front of the video.
#pragma once

#include "desktop/foreign_windows.h"
#include "fullscreen/codec_settings.h"
#include "toolkit/form.h"

namespace tandrel
{

/// What both are: shown modally over the selected video. `FFDShowTop` and `FFDShowLeft` keep the place where it was
/// closed last, as long as the program runs.
class CodecForm : public Form, public ForeignWindows
{
public:
    /// What of the box is seen: the box is as large as the monitor and reaches beyond the form on all sides.
    PictureBox picView{*this, "picView", {0, 0, 9300, 6150}};
    PictureBox picVideo{*this, "picVideo", {0, 0, 9300, 6150}, &picView};
    PictureBox Picture1{*this, "Picture1", {0, 6150, 9300, 810}};
    PictureBox picOK{*this, "picOK", {0, 0, 9300, 810}, &Picture1};
    CommandButton cmdOK{*this, "cmdOK", {3870, 165, 3600, 480}, "Try Changes [after Apply]", &picOK};
    CommandButton cmdCancel{*this, "cmdCancel", {7620, 165, 1440, 480}, "Exit", &picOK};

protected:
    CodecForm(Text name, CodecPage page);
    void onLoad() override;
    void onResize() override;
    void onUnload() override;

private:
    void takeDialog(Long process);
    void placeAround();
    void fitTo(const PixelRect& dialog);
    void layOut();
    void cmdOK_Click();
    static void holdPanelDown();

    CodecPage page_;
    WindowHandle dialog_ = 0;
};

class frmFFDShowAudio : public CodecForm
{
public:
    frmFFDShowAudio() : CodecForm("frmFFDShowAudio", CodecPage::Audio) {}
};

class frmFFDShowVideo : public CodecForm
{
public:
    frmFFDShowVideo() : CodecForm("frmFFDShowVideo", CodecPage::Video) {}
};

} // namespace tandrel
