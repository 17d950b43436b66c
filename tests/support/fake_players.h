/// Players of HD films and discs that note what they are asked, and drives that hold what a test says.
#pragma once

#include "platform/players.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace tandrel::test
{

/// What a fake player is, and what it was asked, which outlive the player itself.
struct PlayedMedium {
    std::vector<std::string> asked;
    bool loaded = true;
    bool idle = false;
    bool ended = false;
    bool paused = false;
    bool inMenu = false;
    MediaTrouble trouble = MediaTrouble::None;
    double position = 0;
    double duration = 0;
    double rate = 1;
    double frameRate = 25;
    std::string title;
    std::vector<MediaTrack> tracks;
    /// How many players there are of it now.
    int alive = 0;
    int followed = 0;
};

template <class Base>
class FakeMediumPlayer : public Base
{
public:
    explicit FakeMediumPlayer(PlayedMedium& medium) : medium_(medium) { ++medium_.alive; }
    ~FakeMediumPlayer() override
    {
        --medium_.alive;
        note("gone");
    }

    void showIn(WindowHandle parent, const PixelRect& place) override
    {
        note("showIn " + std::to_string(parent) + " " + std::to_string(place.width()) + "x" +
             std::to_string(place.height()));
    }
    void follow() override { ++medium_.followed; }
    bool isLoaded() const override { return medium_.loaded; }
    bool isIdle() const override { return medium_.idle; }
    MediaTrouble trouble() const override { return medium_.trouble; }
    bool hasEnded() const override { return medium_.ended; }
    bool isPaused() const override { return medium_.paused; }
    void play() override
    {
        medium_.paused = false;
        note("play");
    }
    void pause() override
    {
        medium_.paused = true;
        note("pause");
    }
    void setRate(double rate) override { note("rate " + std::to_string(static_cast<int>(rate))); }
    double rate() const override { return medium_.rate; }
    void seek(double seconds) override { note("seek " + number(seconds)); }
    void setVolume(int level) override { note("volume " + std::to_string(level)); }
    void close() override { note("close"); }
    double position() const override { return medium_.position; }
    double duration() const override { return medium_.duration; }
    std::vector<MediaTrack> tracks() const override { return medium_.tracks; }
    void chooseTrack(MediaTrack::Kind kind, int id) override
    {
        note((kind == MediaTrack::Kind::Audio ? "sound " : "subtitle ") + std::to_string(id));
    }
    void open(const std::string& path) override { note("open " + path); }

protected:
    void note(const std::string& what) { medium_.asked.push_back(what); }
    static std::string number(double value)
    {
        std::string text = std::to_string(value);
        text.erase(text.find_last_not_of('0') + 1);
        return text.ends_with('.') ? text.substr(0, text.size() - 1) : text;
    }
    PlayedMedium& medium_;
};

class FakeFilePlayer : public FakeMediumPlayer<FilePlayer>
{
public:
    using FakeMediumPlayer::FakeMediumPlayer;
    std::string title() const override { return medium_.title; }
};

class FakeDiscPlayer : public FakeMediumPlayer<DiscPlayer>
{
public:
    using FakeMediumPlayer::FakeMediumPlayer;
    bool isInMenu() const override { return medium_.inMenu; }
    void showRootMenu() override { note("root menu"); }
    void resume() override { note("resume"); }
    void nextChapter() override { note("next chapter"); }
    void previousChapter() override { note("previous chapter"); }
    int title() const override { return 1; }
    void playTitle(int title) override { note("title " + std::to_string(title)); }
    int chapter() const override { return 1; }
    int chapterCount() const override { return 4; }
    double frameRate() const override { return medium_.frameRate; }
    void allowCaptions(bool on) override { note(on ? "captions" : "no captions"); }
    void menuKey(MenuKey key) override { note("key " + std::to_string(static_cast<int>(key))); }
    void pointerAt(PixelPoint place) override { note("pointer " + at(place)); }
    void pointerPressed(PixelPoint place) override { note("press " + at(place)); }

private:
    static std::string at(PixelPoint place) { return std::to_string(place.x) + "," + std::to_string(place.y); }
};

class FakePlayers : public Players
{
public:
    std::unique_ptr<FilePlayer> filePlayer() override { return std::make_unique<FakeFilePlayer>(film); }
    std::unique_ptr<DiscPlayer> discPlayer() override
    {
        if (!hasDiscs)
            return nullptr;
        return std::make_unique<FakeDiscPlayer>(disc);
    }
    PlayedMedium film;
    PlayedMedium disc;
    /// False: what plays discs is not there.
    bool hasDiscs = true;
};

struct FakeDrive {
    char letter = 'D';
    std::string path;
    bool ready = true;
    std::string label;
};

class FakeDrives : public DiscDrives
{
public:
    int count() override { return static_cast<int>(drives.size()); }
    std::string driveSpecifier(int index) const override { return std::string(1, at(index).letter) + ":"; }
    bool isReady(int index) override
    {
        readied.push_back(index);
        return at(index).ready;
    }
    std::string volumeLabel(int index) override { return at(index).label; }
    void eject(int index) override { ejected.push_back(index); }
    std::string pathOf(char letter) const override
    {
        for (const FakeDrive& drive : drives)
            if (drive.letter == letter)
                return drive.path;
        return "";
    }
    char insert(const std::string& path) override
    {
        for (const FakeDrive& drive : drives)
            if (drive.path == path)
                return drive.letter;
        const char letter = static_cast<char>('D' + drives.size());
        drives.push_back({letter, path, true, "INSERTED"});
        return letter;
    }
    DiscFacts look(const std::string& path) override
    {
        looked.push_back(path);
        const auto found = discs.find(path);
        return found == discs.end() ? DiscFacts() : found->second;
    }

    /// A drive with a disc of so many titles.
    void add(char letter, const std::string& label, int titles = 2)
    {
        const std::string path = std::string("/discs/") + letter;
        drives.push_back({letter, path, true, label});
        discs[path].titles.resize(static_cast<std::size_t>(titles));
        discs[path].label = label;
    }

    std::vector<FakeDrive> drives;
    std::map<std::string, DiscFacts> discs;
    std::vector<int> ejected;
    std::vector<int> readied;
    std::vector<std::string> looked;

private:
    const FakeDrive& at(int index) const { return drives.at(static_cast<std::size_t>(index)); }
};

} // namespace tandrel::test
