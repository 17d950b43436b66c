#include "video/disc_box.h"

#include "media/shared_state.h"
#include "texts/localised.h"
#include "toolkit/press.h"
#include "toolkit/screen.h"
#include "video/disc_input.h"
#include "video/track_menu.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace tandrel
{

namespace
{

constexpr const char* kAnyDisc = "DVD:";
constexpr int kFollowMs = 50;
// What a disc counts its pictures by as long as it hasn't said.
constexpr double kCommonFrameRate = 25;
constexpr int kLoudestLevel = 100;

double secondsOf(const Text& time)
{
    const std::vector<Text> parts = split(time, ':');
    double seconds = 0;
    for (const Text& part : parts)
        seconds = seconds * 60 + numberAtFront(part);
    return seconds;
}

} // namespace

DiscBox::DiscBox(Form& form, Text name, TwipsRect place, Control& container)
    : PictureBox(form, std::move(name), place, &container),
      lblTrouble(form, *this),
      tmrFollow(form, "tmrFollow", kFollowMs, false)
{
    dark = true;
    Resize = [this] {
        lblTrouble.placeIn(width(), height());
        showPicture();
    };
    tmrFollow.Tick = [this] { follow(); };
}

DiscBox::~DiscBox() = default;

void DiscBox::follow()
{
    if (!player_)
        return;
    player_->follow();
    lblTrouble.tell(player_->trouble());
}

void DiscBox::View(const Text& what)
{
    if (!what.starts_with(kAnyDisc))
        throw RuntimeError(error::kInvalidCall, "No such view");
    wanted_ = what.substr(Text(kAnyDisc).size());
}

std::vector<VideoFeature> DiscBox::FeaturesAvailable() const { return {{kClosedCaptioning, "Closed Captioning"}}; }

void DiscBox::setFeaturesActive(const std::vector<VideoFeature>& features)
{
    captions_ = std::any_of(features.begin(), features.end(),
                            [](const VideoFeature& feature) { return feature.ClassID == kClosedCaptioning; });
    if (player_)
        player_->allowCaptions(captions_);
}

bool DiscBox::isOpen() const { return player_ && !player_->isIdle(); }

bool DiscBox::isStillThere()
{
    if (!isOpen() || !wanted_.empty())
        return isOpen() && wanted_ == open_;
    // Its own drive alone is asked: each may take its time.
    DiscDrives& drives = *services().drives;
    for (int index = 0, count = drives.count(); index < count; ++index)
        if (drives.pathOf(drives.driveSpecifier(index).front()) == open_)
            return drives.isReady(index);
    return false;
}

void DiscBox::findDisc()
{
    facts_ = {};
    found_.clear();
    if (!wanted_.empty()) {
        look(wanted_);
        return;
    }
    DiscDrives& drives = *services().drives;
    for (int index = 0, count = drives.count(); index < count && found_.empty(); ++index)
        if (drives.isReady(index))
            look(drives.pathOf(drives.driveSpecifier(index).front()));
}

void DiscBox::look(const Text& path)
{
    facts_ = services().drives->look(path);
    if (!facts_.titles.empty())
        found_ = path;
}

void DiscBox::Build()
{
    if (isStillThere())
        return;
    findDisc();
    close();
    const Text encrypted = facts_.encrypted ? found_ : Text();
    const bool isNews = encrypted != encrypted_;
    encrypted_ = encrypted;
    if (encrypted.empty())
        return;
    facts_ = {};
    found_.clear();
    if (isNews)
        lblTrouble.tell(MediaTrouble::Encrypted);
}

WebDvd& DiscBox::InputActive()
{
    if (found_.empty())
        throw RuntimeError(error::kNoObject, "No disc");
    return *this;
}

Long DiscBox::TitlesAvailable() const { return static_cast<std::int64_t>(facts_.titles.size()); }

void DiscBox::Run()
{
    if (isOpen()) {
        player_->play();
        return;
    }
    if (found_.empty())
        throw RuntimeError(error::kNoObject, "No disc");
    player_ = services().players->discPlayer();
    if (!player_) {
        lblTrouble.tell(MediaTrouble::NotPlayable);
        throw RuntimeError(error::kNoObject, "No player");
    }
    open_ = found_;
    player_->setVolume(kLoudestLevel);
    player_->allowCaptions(captions_);
    showPicture();
    player_->open(open_);
    tmrFollow.Enabled = true;
}

void DiscBox::Pause() { player().pause(); }

void DiscBox::Stop()
{
    const bool wasOpen = isOpen();
    end();
    if (!wasOpen)
        throw RuntimeError(error::kNoObject, "No disc");
}

void DiscBox::close()
{
    tmrFollow.Enabled = false;
    player_.reset();
    open_.clear();
    preferred_.clear();
    lblTrouble.forget();
}

void DiscBox::end()
{
    close();
    found_.clear();
    facts_ = {};
}

DiscPlayer& DiscBox::player() const
{
    if (!isOpen())
        throw RuntimeError(error::kNoObject, "No disc");
    return *player_;
}

void DiscBox::PlayNextChapter() { player().nextChapter(); }

void DiscBox::PlayPrevChapter() { player().previousChapter(); }

void DiscBox::ShowMenu(int menu)
{
    if (menu != disc_menu::kRoot)
        throw RuntimeError(error::kInvalidCall, "No such menu");
    player().showRootMenu();
}

Text DiscBox::timeText(double seconds) const
{
    const double told = player_->frameRate();
    const double rate = told > 0 ? told : kCommonFrameRate;
    const auto whole = static_cast<long>(std::max(0.0, std::floor(seconds)));
    // A time that is a whole number of pictures may be a hair below it.
    constexpr double kHair = 1e-6;
    const auto frames = static_cast<int>(std::max(0.0, seconds - static_cast<double>(whole)) * rate + kHair);
    std::array<char, 48> text{};
    std::snprintf(text.data(), text.size(), "%02ld:%02ld:%02ld:%02d", whole / 3600, whole / 60 % 60, whole % 60,
                  frames);
    return text.data();
}

Text DiscBox::CurrentTime() const { return timeText(player().position()); }

Text DiscBox::TotalTitleTime() const { return timeText(player().duration()); }

void DiscBox::PlayAtTime(const Text& time) { player().seek(secondsOf(time)); }

void DiscBox::RestorePreferredSettings()
{
    DiscPlayer& disc = player();
    for (const MediaTrack& track : preferred_)
        disc.chooseTrack(track.kind, track.id);
}

void DiscBox::notePreferred()
{
    if (!preferred_.empty())
        return;
    for (const MediaTrack& track : player_->tracks())
        if (track.chosen)
            preferred_.push_back(track);
}

void DiscBox::setColorKey(Long colour)
{
    backColour = colour;
    Refresh();
}

void DiscBox::showPicture()
{
    if (player_)
        player_->showIn(hWnd(), {0, 0, std::max<int>(0, pixelsX(width())), std::max<int>(0, pixelsY(height()))});
}

bool DiscBox::takeKey(Key key) { return isOpen() && sendMenuKey(*player_, key); }

void DiscBox::pointAt(const MouseEvent& event)
{
    if (isOpen())
        pointInMenu(*player_, event);
}

void DiscBox::press(const MouseEvent& event)
{
    if (!isOpen())
        return;
    if (event.button == mouse::kRight && (event.shift & shift::kControl) != 0) {
        spendPress(MouseButton::Right);
        chooseTracks();
    } else {
        pressInMenu(*player_, event);
    }
}

void DiscBox::chooseTracks()
{
    if (!isOpen())
        return;
    // What plays before the user's first choice is what the disc began with.
    notePreferred();
    popUpTracks(form(), player_->tracks(), [this](MediaTrack::Kind kind, int id) {
        if (player_)
            player_->chooseTrack(kind, id);
    });
}

} // namespace tandrel
