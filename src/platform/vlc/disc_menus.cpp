// Menus, titles and chapters of a disc.
#include "platform/vlc/disc_worker.h"
#include "platform/vlc/menu_pointer.h"

#include <algorithm>

namespace tandrel
{

namespace
{
constexpr std::chrono::milliseconds kBetweenQuestions{5};
constexpr std::chrono::milliseconds kWayBack{700};
constexpr std::chrono::milliseconds kWayToTitle{1500};
constexpr std::chrono::milliseconds kWayToChapter{300};
// In a menu, libVLC's first chapter leads back to where the menu was called.
constexpr int kWayOut = 0;
} // namespace

void DiscWorker::showRootMenu()
{
    if (!canMove())
        return;
    if (!state_.inMenu && state_.title > 0)
        kept_ = {state_.title, clock_.at(now())};
    const auto title = static_cast<std::size_t>(std::max(kept_.title, 1)) - 1;
    if (state_.inMenu || (title < disc_.hasRootMenu.size() && disc_.hasRootMenu[title])) {
        goOn();
        leaveMenu();
        libvlc_media_player_set_title(film_.player(), 0);
    } else if (disc_.hasTitleMenu) {
        // That one libVLC finds only as it begins.
        const Place kept = kept_;
        restart();
        kept_ = kept;
    }
}

bool DiscWorker::waitForTitle(int title, std::chrono::milliseconds longest)
{
    const auto end = now() + longest;
    while (film_.title() != title && now() < end && !session_->isEnding())
        session_->pause(kBetweenQuestions);
    return film_.title() == title;
}

void DiscWorker::leaveMenu()
{
    if (state_.inMenu)
        libvlc_video_set_spu(film_.player(), -1);
}

void DiscWorker::goToTitle(int title)
{
    leaveMenu();
    libvlc_media_player_set_title(film_.player(), title);
    waitForTitle(title, kWayToTitle);
    lookAtTitle();
    clock_.jump({}, now());
    ++state_.jumps;
}

void DiscWorker::resume()
{
    if (!canMove() || !state_.inMenu) {
        play();
        return;
    }
    goOn();
    const Place place = kept_;
    if (place.title < 1) {
        goToTitle(mainTitle());
        return;
    }
    leaveMenu();
    libvlc_media_player_set_chapter(film_.player(), kWayOut);
    if (!waitForTitle(place.title, kWayBack))
        goToTitle(place.title);
    lookAtTitle();
    if (state_.title == place.title)
        moveTo(place.seconds);
}

void DiscWorker::stepChapter(int step)
{
    if (!canMove() || state_.inMenu)
        return;
    const int target = state_.chapter + step;
    if (target < 1 || target > state_.chapterCount)
        return;
    goOn();
    moveToChapter(target - 1);
    // The next step counts from this one.
    const auto end = now() + kWayToChapter;
    while (libvlc_media_player_get_chapter(film_.player()) != target - 1 && now() < end && !session_->isEnding())
        session_->pause(kBetweenQuestions);
    state_.chapter = target;
}

void DiscWorker::playTitle(int title)
{
    if (!canMove() || title < 1 || title >= film_.titleCount())
        return;
    goOn();
    goToTitle(title);
}

void DiscWorker::menuKey(MenuKey key)
{
    constexpr libvlc_navigate_mode_t kKeys[]{libvlc_navigate_left, libvlc_navigate_right, libvlc_navigate_up,
                                             libvlc_navigate_down, libvlc_navigate_activate};
    if (!canMove() || !state_.inMenu)
        return;
    // A held menu hears nothing.
    goOn();
    libvlc_media_player_navigate(film_.player(), kKeys[static_cast<int>(key)]);
}

void DiscWorker::pointerAt(PixelPoint place)
{
    if (canMove() && state_.inMenu && screen_ != nullptr)
        tellPointerMoved(screen_->picture, place);
}

void DiscWorker::pointerPressed(PixelPoint place)
{
    if (!canMove() || !state_.inMenu || screen_ == nullptr)
        return;
    goOn();
    tellPointerPressed(screen_->picture, place);
}

} // namespace tandrel
