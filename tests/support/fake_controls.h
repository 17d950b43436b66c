/// Controls of discs and HD films that note what they are asked, and windows that they stand in.
#pragma once

#include "toolkit/form.h"
#include "video/other_media.h"
#include "video/video_window.h"

#include <functional>

namespace tandrel::test
{

class FakePlayerControl : public MediaPlayerControl,
                          private PlayerControls,
                          private PlayerSettings,
                          private PlayerMedia,
                          private PlayerDvd,
                          private CdromCollection
{
public:
    Text url() const override { return address; }
    void setUrl(Text url) override { note("URL " + url); }
    bool isFullScreen() const override { return full; }
    void setFullScreen(bool on) override
    {
        note(on ? "fullScreen on" : "fullScreen off");
        full = on;
    }
    Text mode() const override { return "full"; }
    void setMode(Text mode) override { note("uiMode " + mode); }
    void close() override { note("close"); }
    PlayerControls& controls() override { return *this; }
    PlayerSettings& settings() override { return *this; }
    PlayerMedia& currentMedia() override { return *this; }
    PlayerDvd& dvd() override { return *this; }
    CdromCollection& cdromCollection() override { return *this; }

    std::string address = "/films/a.mkv";
    std::string position = "02:03";
    std::string durationText = "1:02:03";
    /// The same as numbers.
    double place = 123.4;
    double length = 3723;
    bool held = false;
    std::string title = "A Film";
    bool full = false;
    std::vector<std::string> asked;
    /// It refuses everything, as it does without a medium.
    bool fails = false;
    /// Called whenever it is asked something, which it may refuse with an error.
    std::function<void(const std::string& what)> onAsk;

private:
    void play() override { note("play"); }
    void pause() override { note("pause"); }
    void stop() override { note("stop"); }
    void fastForward() override { note("fastForward"); }
    void fastReverse() override { note("fastReverse"); }
    double currentPosition() const override { return place; }
    void setCurrentPosition(double seconds) override { note("position " + text(Long(seconds))); }
    Text currentPositionString() const override { return read(position); }
    bool standsStill() const override { return held; }
    int volume() const override { return 50; }
    void setVolume(int level) override { note("volume " + std::to_string(level)); }
    Text durationString() const override { return read(durationText); }
    double duration() const override { return length; }
    Text getItemInfo(const Text& name) const override { return name == "Title" ? read(title) : ""; }
    void topMenu() override { note("topMenu"); }
    void resume() override { note("resume"); }
    void nextChapter() override { note("nextChapter"); }
    void previousChapter() override { note("previousChapter"); }
    Long count() override { return 0; }
    Cdrom& item(Long) override { throw RuntimeError(error::kOutOfRange, "No drive"); }

    std::string read(const std::string& value) const
    {
        if (fails)
            throw RuntimeError(5, "No medium");
        return value;
    }
    void note(const std::string& what)
    {
        asked.push_back(what);
        if (onAsk)
            onAsk(what);
        if (fails)
            throw RuntimeError(5, "No medium");
    }
};

class FakeVideoControl : public VideoControl, private WebDvd, private WebDvdAdmin
{
public:
    void View(const Text& what) override { note("View " + what); }
    std::vector<VideoFeature> FeaturesAvailable() const override { return {}; }
    void setFeaturesActive(const std::vector<VideoFeature>&) override { note("FeaturesActive"); }
    void Build() override { note("Build"); }
    WebDvd& InputActive() override { return *this; }
    void Run() override { note("Run"); }
    void Pause() override { note("Pause"); }
    void Stop() override { note("Stop"); }
    bool standsStill() const override { return held; }
    void setColorKey(Long) override { note("ColorKey"); }
    Long ColorKey() const override { return 0; }

    std::string time = "00:02:03:12";
    std::string total = "01:23:45:12";
    bool held = false;
    std::vector<std::string> asked;
    bool fails = false;
    std::function<void(const std::string& what)> onAsk;

private:
    WebDvdAdmin& DVDAdm() override { return *this; }
    Long TitlesAvailable() const override { return 1; }
    void PlayNextChapter() override { note("PlayNextChapter"); }
    void PlayPrevChapter() override { note("PlayPrevChapter"); }
    void ShowMenu(int menu) override { note("ShowMenu " + std::to_string(menu)); }
    void PlayAtTime(const Text& time) override { note("PlayAtTime " + time); }
    void RestorePreferredSettings() override { note("RestorePreferredSettings"); }
    Text CurrentTime() const override { return read(time); }
    Text TotalTitleTime() const override { return read(total); }

    std::string read(const std::string& value) const
    {
        if (fails)
            throw RuntimeError(5, "No disc");
        return value;
    }
    void note(const std::string& what)
    {
        asked.push_back(what);
        if (onAsk)
            onAsk(what);
        if (fails)
            throw RuntimeError(5, "No disc");
    }
};

/// The window of a disc on the video control, as far as full screen needs it.
class FakeDiscWindow : public VideoWindow
{
public:
    FakeDiscWindow() : VideoWindow("frmDVD", Frame::Video, {0, 0, 3000, 3000}) { Style.Client = this; }
    PictureBox& pictureBox() override { return picDVD; }
    SizeStrips strips() override { return {picClose, picVRes, picHRes, picBottom, picSide, imgExit}; }
    bool showsStrips() const { return picClose.visible(); }
    PictureBox picDVD{*this, "picDVD", {0, 0, 2900, 2600}};
    PictureBox picBottom{*this, "picBottom", {0, 0, 10, 10}};
    PictureBox picSide{*this, "picSide", {0, 0, 10, 10}};
    PictureBox picHRes{*this, "picHRes", {0, 0, 10, 10}};
    PictureBox picVRes{*this, "picVRes", {0, 0, 10, 10}};
    PictureBox picClose{*this, "picClose", {0, 0, 10, 10}};
    Image imgExit{*this, "imgExit", {0, 0, 10, 10}, "close", &picClose};
};

/// All three windows, loaded, shown, and known to the console until the end of this object.
struct OtherMediaBench {
    OtherMediaBench()
    {
        for (const std::shared_ptr<Form>& form : {std::shared_ptr<Form>(dvdForm), dvd2Form, mkvForm}) {
            form->load();
            form->Show();
        }
        otherMedia() = {{dvdForm.get(), &dvd}, {dvd2Form.get(), &dvd2}, {mkvForm.get(), &mkv}};
    }
    ~OtherMediaBench() { otherMedia() = {}; }
    OtherMediaBench(const OtherMediaBench&) = delete;

    /// What all three were asked, with their names in front.
    std::vector<std::string> asked() const
    {
        std::vector<std::string> all;
        for (const auto& what : dvd.asked)
            all.push_back("frmDVD " + what);
        for (const auto& what : dvd2.asked)
            all.push_back("frmDVD2 " + what);
        for (const auto& what : mkv.asked)
            all.push_back("frmMKV " + what);
        return all;
    }
    void forget()
    {
        dvd.asked.clear();
        dvd2.asked.clear();
        mkv.asked.clear();
    }

    FakeVideoControl dvd;
    FakePlayerControl dvd2;
    FakePlayerControl mkv;
    std::shared_ptr<FakeDiscWindow> dvdForm = std::make_shared<FakeDiscWindow>();
    std::shared_ptr<Form> dvd2Form = std::make_shared<Form>("frmDVD2", Frame::Video, TwipsRect{0, 0, 3000, 3000});
    std::shared_ptr<Form> mkvForm = std::make_shared<Form>("frmMKV", Frame::Video, TwipsRect{0, 0, 3000, 3000});
};

} // namespace tandrel::test
