/// The video control as it stands in a form: a box in which a disc plays.
#pragma once

#include "platform/players.h"
#include "toolkit/form.h"
#include "video/trouble_label.h"
#include "video/video_control.h"

#include <memory>

namespace tandrel
{

/// The rules of the control over a player for discs. It plays at full volume: nothing sets another.
class DiscBox : public PictureBox, public VideoControl, private WebDvd, private WebDvdAdmin
{
public:
    DiscBox(Form& form, Text name, TwipsRect place, Control& container);
    ~DiscBox() override;

    void View(const Text& what) override;
    std::vector<VideoFeature> FeaturesAvailable() const override;
    void setFeaturesActive(const std::vector<VideoFeature>& features) override;
    void Build() override;
    WebDvd& InputActive() override;
    void Run() override;
    void Pause() override;
    void Stop() override;
    bool standsStill() const override { return player_ && (player_->isPaused() || player_->hasEnded()); }
    void setColorKey(Long colour) override;
    Long ColorKey() const override { return backColour.value_or(Long(0)); }

    /// The disc that was found last can't be played, as it is encrypted.
    bool isEncrypted() const { return !encrypted_.empty(); }
    /// A key of the form, where it moves in a menu. True where it did.
    bool takeKey(Key key);
    void pointAt(const MouseEvent& event);
    void press(const MouseEvent& event);
    void chooseTracks();
    /// Its form ends.
    void end();

    TroubleLabel lblTrouble;
    Timer tmrFollow;

private:
    WebDvdAdmin& DVDAdm() override { return *this; }
    Long TitlesAvailable() const override;
    void PlayNextChapter() override;
    void PlayPrevChapter() override;
    void ShowMenu(int menu) override;
    Text CurrentTime() const override;
    Text TotalTitleTime() const override;
    void PlayAtTime(const Text& time) override;
    void RestorePreferredSettings() override;

    void follow();
    void notePreferred();
    /// Lets go of what plays.
    void close();
    /// What plays is what is viewed, and its drive holds it still.
    bool isStillThere();
    void findDisc();
    void look(const Text& path);
    bool isOpen() const;
    /// Raises where no disc is open.
    DiscPlayer& player() const;
    Text timeText(double seconds) const;
    void showPicture();

    std::unique_ptr<DiscPlayer> player_;
    DiscFacts facts_;
    /// The disc asked for by its path; empty: the first that there is.
    Text wanted_;
    /// What was found, and what is open.
    Text found_;
    Text open_;
    /// The encrypted disc that was told of.
    Text encrypted_;
    bool captions_ = false;
    /// Those that the disc began with, from the user's first choice on.
    std::vector<MediaTrack> preferred_;
};

} // namespace tandrel
