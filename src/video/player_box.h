/// The media player control as it stands in a form: a box with a bar of its own at its lower edge.
#pragma once

#include "platform/players.h"
#include "toolkit/form.h"
#include "video/drive_list.h"
#include "video/media_player_control.h"
#include "video/player_bar.h"
#include "video/trouble_label.h"
#include "video/video_form.h"

#include <memory>

namespace tandrel
{

class PlayerScreen;

/// The rules of the control, over a player for files and one for discs: texts of its times, its full screen, the choice
/// of sound and subtitles, and what it says where a medium doesn't play. The picture is laid out in the part of it that
/// the form lets be seen.
///
/// It plays by itself what it is given, at a volume of 50, with `uiMode` "full". As the user's keys come to forms, its
/// form passes them on.
class PlayerBox : public PictureBox,
                  public MediaPlayerControl,
                  private PlayerControls,
                  private PlayerSettings,
                  private PlayerMedia,
                  private PlayerDvd
{
public:
    PlayerBox(VideoForm& form, Text name, TwipsRect place);
    ~PlayerBox() override;

    Text url() const override { return url_; }
    void setUrl(Text url) override;
    bool isFullScreen() const override { return screen_ != nullptr; }
    void setFullScreen(bool on) override;
    Text mode() const override { return mode_; }
    void setMode(Text mode) override;
    void close() override;
    PlayerControls& controls() override { return *this; }
    PlayerSettings& settings() override { return *this; }
    PlayerMedia& currentMedia() override { return *this; }
    PlayerDvd& dvd() override { return *this; }
    CdromCollection& cdromCollection() override { return drives_; }

    /// The form has another size, or its frame has come or gone.
    void layOut();
    /// A key of the form: moves in the menu of a disc, stops and starts, jumps, ends full screen. True where it did.
    bool takeKey(Key key);
    /// The mouse on the picture: menus of discs, and the choice of sound and subtitles by the right button with the
    /// control key, or in full screen by that button alone.
    void pointAt(const MouseEvent& event);
    void press(const MouseEvent& event);
    /// Lets the user choose sound and subtitles.
    void chooseTracks();
    /// While it fills the screen, that is in front and has the keys.
    void bringScreenUp();
    double duration() const override { return player_ ? player_->duration() : 0; }
    bool standsStill() const override { return player_ && (player_->isPaused() || player_->hasEnded()); }
    /// Its form ends.
    void end();

    TroubleLabel lblTrouble;
    PlayerBar bar;
    Timer tmrFollow;

private:
    void play() override;
    void pause() override;
    void stop() override;
    void fastForward() override { runAt(kFastRate); }
    void fastReverse() override { runAt(-kFastRate); }
    double currentPosition() const override;
    void setCurrentPosition(double seconds) override;
    Text currentPositionString() const override;
    int volume() const override { return volume_; }
    void setVolume(int level) override;
    Text durationString() const override;
    Text getItemInfo(const Text& name) const override;
    void topMenu() override;
    void resume() override;
    void nextChapter() override { disc().nextChapter(); }
    void previousChapter() override { disc().previousChapter(); }

    static constexpr double kFastRate = 5;

    void open(const Text& path);
    void runAt(double rate);
    /// The player of a medium that is there or on its way; raises where there is none.
    MediumPlayer& medium() const;
    /// The same for a disc.
    DiscPlayer& disc() const;
    /// A medium was given; whether it plays or not.
    void requireMedium() const;
    void follow();
    MediaTrouble trouble() const;
    void showPicture();
    PixelRect seenPart() const;
    void leaveScreen();

    VideoForm& owner_;
    DriveList drives_;
    Text url_;
    Text mode_ = "full";
    int volume_ = 50;
    /// One of the two, or none, and the same as what both can do.
    std::unique_ptr<FilePlayer> film_;
    std::unique_ptr<DiscPlayer> disc_;
    MediumPlayer* player_ = nullptr;
    /// There is no player for what was asked for.
    bool nothingToPlay_ = false;
    std::shared_ptr<PlayerScreen> screen_;
};

/// "MM:SS", and from an hour on "HH:MM:SS"; parts of a second are dropped.
Text playerTime(double seconds);

} // namespace tandrel
