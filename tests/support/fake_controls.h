/// Controls of discs and HD films that note what they are asked, and windows that they stand in.
#pragma once

#include "toolkit/form.h"
#include "video/other_media.h"
#include "video/video_window.h"

#include <functional>

namespace tandrel::test
{

class FakePlayerControl : public MediaPlayerControl
{
public:
    std::string url() const override { return address; }
    void setUrl(const std::string& url) override { note("URL " + url); }
    void close() override { note("close"); }
    void play() override { note("play"); }
    void pause() override { note("pause"); }
    void fastForward() override { note("fastForward"); }
    void fastReverse() override { note("fastReverse"); }
    void setVolume(int level) override { note("volume " + std::to_string(level)); }
    void resumeFromMenu() override { note("resume"); }
    void topMenu() override { note("topMenu"); }
    void setCurrentPosition(double seconds) override { note("position " + text(Long(seconds))); }
    std::string currentPositionString() const override { return read(position); }
    std::string durationString() const override { return read(duration); }
    std::string itemInfo(const std::string& name) const override { return name == "Title" ? read(title) : ""; }
    bool fullScreen() const override { return full; }
    void setFullScreen(bool on) override
    {
        note(on ? "fullScreen on" : "fullScreen off");
        full = on;
    }

    std::string address = "/films/a.mkv";
    std::string position = "02:03";
    std::string duration = "1:02:03";
    std::string title = "A Film";
    bool full = false;
    std::vector<std::string> asked;
    /// It refuses everything, as it does without a medium.
    bool fails = false;
    /// Called whenever it is asked something, which it may refuse with an error.
    std::function<void(const std::string& what)> onAsk;

private:
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

class FakeVideoControl : public VideoControl
{
public:
    void run() override { note("Run"); }
    void pause() override { note("Pause"); }
    void playNextChapter() override { note("PlayNextChapter"); }
    void playPrevChapter() override { note("PlayPrevChapter"); }
    void showMenu(int menu) override { note("ShowMenu " + std::to_string(menu)); }
    void playAtTime(const std::string& time) override { note("PlayAtTime " + time); }
    std::string currentTime() const override { return read(time); }
    std::string totalTitleTime() const override { return read(total); }

    std::string time = "00:02:03:12";
    std::string total = "01:23:45:12";
    std::vector<std::string> asked;
    bool fails = false;
    std::function<void(const std::string& what)> onAsk;

private:
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
    void showStrips(bool on) override { strips = on; }
    PictureBox picDVD{*this, "picDVD", {0, 0, 2900, 2600}};
    bool strips = true;
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
