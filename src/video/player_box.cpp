#include "video/player_box.h"

#include "toolkit/screen.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace tandrel
{

namespace
{

constexpr int kFollowMs = 50;
constexpr const char* kNoLength = "00:00";

[[noreturn]] void raiseNoMedium() { throw RuntimeError(error::kNoObject, "No medium"); }

} // namespace

Text playerTime(double seconds)
{
    const auto all = static_cast<long>(std::max(0.0, std::floor(seconds)));
    std::array<char, 40> text{};
    if (all < 3600)
        std::snprintf(text.data(), text.size(), "%02ld:%02ld", all / 60, all % 60);
    else
        std::snprintf(text.data(), text.size(), "%02ld:%02ld:%02ld", all / 3600, all / 60 % 60, all % 60);
    return text.data();
}

PlayerBox::PlayerBox(VideoForm& form, Text name, TwipsRect place)
    : PictureBox(form, std::move(name), place),
      lblTrouble(form, *this),
      bar(form, this, *this),
      tmrFollow(form, "tmrFollow", kFollowMs, false),
      owner_(form)
{
    dark = true;
    tmrFollow.Tick = [this] { follow(); };
    MouseMove = [this](const MouseEvent& event) { pointAt(event); };
    MouseDown = [this](const MouseEvent& event) { press(event); };
}

PlayerBox::~PlayerBox() = default;

void PlayerBox::setUrl(Text url)
{
    close();
    if (url.empty())
        return;
    url_ = url;
    const bool isDisc = url.starts_with(kDiscScheme);
    if (!isDisc) {
        film_ = services().players->filePlayer();
        player_ = film_.get();
        open(url);
        return;
    }
    const Text letter = url.substr(Text(kDiscScheme).size());
    const Text path = letter.empty() ? Text() : services().drives->pathOf(letter.front());
    if (!path.empty())
        disc_ = services().players->discPlayer();
    player_ = disc_.get();
    open(path);
}

void PlayerBox::open(const Text& path)
{
    nothingToPlay_ = player_ == nullptr;
    tmrFollow.Enabled = true;
    if (nothingToPlay_)
        return;
    player_->setVolume(volume_);
    showPicture();
    if (film_)
        film_->open(path);
    else
        disc_->open(path);
}

void PlayerBox::close()
{
    // A replay closes the film and opens it again: the screen waits for that until the next tick.
    tmrFollow.Enabled = screen_ != nullptr;
    player_ = nullptr;
    film_.reset();
    disc_.reset();
    nothingToPlay_ = false;
    lblTrouble.forget();
    url_.clear();
}

void PlayerBox::end()
{
    leaveScreen();
    close();
}

void PlayerBox::requireMedium() const
{
    if (player_ == nullptr && !nothingToPlay_)
        raiseNoMedium();
}

MediumPlayer& PlayerBox::medium() const
{
    if (player_ == nullptr || player_->isIdle())
        raiseNoMedium();
    return *player_;
}

DiscPlayer& PlayerBox::disc() const
{
    medium();
    if (!disc_)
        raiseNoMedium();
    return *disc_;
}

MediaTrouble PlayerBox::trouble() const
{
    if (nothingToPlay_)
        return MediaTrouble::NotPlayable;
    return player_ ? player_->trouble() : MediaTrouble::None;
}

void PlayerBox::play() { medium().play(); }

void PlayerBox::pause() { medium().pause(); }

void PlayerBox::stop()
{
    medium().pause();
    medium().seek(0);
}

void PlayerBox::runAt(double rate)
{
    MediumPlayer& player = medium();
    player.play();
    player.setRate(rate);
}

double PlayerBox::currentPosition() const { return medium().position(); }

void PlayerBox::setCurrentPosition(double seconds) { medium().seek(seconds); }

Text PlayerBox::currentPositionString() const
{
    requireMedium();
    return player_ && player_->isLoaded() ? playerTime(player_->position()) : Text();
}

Text PlayerBox::durationString() const
{
    requireMedium();
    return player_ && player_->isLoaded() ? playerTime(player_->duration()) : Text(kNoLength);
}

Text PlayerBox::getItemInfo(const Text& name) const
{
    requireMedium();
    if (name != "Title")
        return {};
    if (!film_)
        return owner_.caption();
    const Text title = trim(film_->title());
    return title.empty() ? fileNameOf(url_) : title;
}

void PlayerBox::topMenu() { disc().showRootMenu(); }

void PlayerBox::resume() { disc().resume(); }

void PlayerBox::setVolume(int level)
{
    volume_ = std::clamp(level, 0, 100);
    if (player_)
        player_->setVolume(volume_);
}

void PlayerBox::follow()
{
    if (player_)
        player_->follow();
    bar.follow();
    // Without its picture a film may still be heard.
    const MediaTrouble what = trouble();
    if (!player_ || (what != MediaTrouble::None && player_->isIdle()))
        leaveScreen();
    if (!player_ && !nothingToPlay_)
        tmrFollow.Enabled = false;
    lblTrouble.tell(what);
}

} // namespace tandrel
