/// Plays one disc after the other over libVLC, on the thread that runs it.
#pragma once

#include "platform/disc/disc_look.h"
#include "platform/output/picture_window.h"
#include "platform/vlc/disc_clock.h"
#include "platform/vlc/disc_session.h"
#include "platform/vlc/vlc_film.h"

#include <memory>

namespace tandrel
{

/// The window that the picture of a player is in. It outlives libVLC's own.
struct DiscScreen {
    WindowSystem system;
    PictureWindow picture{system, std::nullopt};
    DiscScreen() { picture.refuseInput(); }
};

class DiscWorker
{
public:
    /// Without a screen there are no outputs. What hasn't begun to play after that time never will.
    DiscWorker(std::shared_ptr<DiscSession> session, std::shared_ptr<DiscScreen> screen,
               std::chrono::seconds longestOpening);

    /// Until the end of the session.
    void run();

    void open(const std::string& path);
    void close();
    void play();
    void pause();
    void setRate(double rate);
    void seek(double seconds);
    void setVolume(int level);
    void chooseTrack(MediaTrack::Kind kind, int id);
    void allowCaptions(bool on);

    void showRootMenu();
    void resume();
    void stepChapter(int step);
    void playTitle(int title);
    void menuKey(MenuKey key);
    void pointerAt(PixelPoint place);
    void pointerPressed(PixelPoint place);

private:
    using Phase = DiscState::Phase;

    // disc_worker.cpp
    void look();
    void lookAtOpening(libvlc_state_t state);
    void lookAtEnd(libvlc_state_t state);
    void lookAtTitle();
    void lookAtTracks();
    void takeNews();
    void hearTime(const VlcNews& news);
    void publish();
    void fail(MediaTrouble trouble);
    void enterTitle(int title);
    void enterMenu();
    SteadyTime nextLook() const;

    // disc_moves.cpp
    bool canMove() const { return state_.phase == Phase::There && !state_.ended; }
    void goOn();
    void hold();
    void leaveFastRate();
    void makeSilent(bool on);
    void restart();
    void moveTo(double seconds);
    void moveToChapter(int index);
    void stepBack();
    /// Takes the picture of the buttons away first, for which libVLC would wait up to 6 s otherwise: it ends the output
    /// of pictures before the decoder of the buttons, and that waits for an output.
    void leaveMenu();
    void goToTitle(int title);
    bool waitForTitle(int title, std::chrono::milliseconds longest);
    const DiscFacts::Title* facts(int title) const;
    int mainTitle() const;
    SteadyTime now() const { return std::chrono::steady_clock::now(); }

    /// A place in the film to come back to.
    struct Place {
        int title = 0;
        double seconds = 0;
    };

    std::shared_ptr<DiscSession> session_;
    std::shared_ptr<DiscScreen> screen_;
    std::chrono::seconds longestOpening_;
    VlcFilm film_;
    std::string path_;
    DiscLook disc_;
    DiscState state_;
    DiscClock clock_;
    Place kept_;
    int volume_ = 100;
    bool captions_ = false;
    bool tracksChanged_ = false;
    SteadyTime openedAt_;
    /// Of the film that runs backwards: when it stepped last.
    std::optional<SteadyTime> steppedBack_;
};

} // namespace tandrel
