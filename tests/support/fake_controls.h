/// Controls of discs and HD films that note what they are asked, and windows that they stand in.
#pragma once

#include "toolkit/form.h"
#include "video/other_media.h"

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

    std::string address = "/films/a.mkv";
    std::vector<std::string> asked;
    /// It refuses everything, as it does without a medium.
    bool fails = false;
    /// Called whenever it is asked something, which it may refuse with an error.
    std::function<void(const std::string& what)> onAsk;

private:
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

    std::vector<std::string> asked;
    bool fails = false;
    std::function<void(const std::string& what)> onAsk;

private:
    void note(const std::string& what)
    {
        asked.push_back(what);
        if (onAsk)
            onAsk(what);
        if (fails)
            throw RuntimeError(5, "No disc");
    }
};

/// All three windows, loaded, shown, and known to the console until the end of this object.
struct OtherMediaBench {
    OtherMediaBench()
    {
        for (const auto& form : {dvdForm, dvd2Form, mkvForm}) {
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
    std::shared_ptr<Form> dvdForm = std::make_shared<Form>("frmDVD", Frame::Video, TwipsRect{0, 0, 3000, 3000});
    std::shared_ptr<Form> dvd2Form = std::make_shared<Form>("frmDVD2", Frame::Video, TwipsRect{0, 0, 3000, 3000});
    std::shared_ptr<Form> mkvForm = std::make_shared<Form>("frmMKV", Frame::Video, TwipsRect{0, 0, 3000, 3000});
};

} // namespace tandrel::test
