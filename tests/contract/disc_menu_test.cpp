// A disc's menus, titles and chapters, as they are seen on the screen.
#include "disc_bench.h"

namespace tandrel
{

namespace
{
class DiscMenus : public DiscBench
{
};

TEST_F(DiscMenus, TheMenuIsTheFirstPicture)
{
    player->showIn(window.handle(), kPlace);
    ASSERT_TRUE(waitUntil([&] { return player->isIdle(); }));
    const double begin = now();
    player->open(testDisc());
    EXPECT_FALSE(player->isIdle());
    EXPECT_FALSE(player->isLoaded());
    ASSERT_TRUE(waitUntil([&] { return showsMenu(); })) << describe();
    RecordProperty("first_picture_ms", static_cast<int>((now() - begin) * 1000));
}

TEST_F(DiscMenus, BeginsWithTheMenu)
{
    ASSERT_TRUE(open());
    EXPECT_TRUE(player->isLoaded());
    EXPECT_EQ(player->title(), 0);
    EXPECT_EQ(player->position(), 0);
    EXPECT_EQ(player->duration(), 60);
    EXPECT_TRUE(waitUntil([&] { return chosenButton() == 1; }));
}

TEST_F(DiscMenus, ATitleIsThereSoonAfterTheMenu)
{
    ASSERT_TRUE(open());
    for (const int title : {1, 2}) {
        const double begin = now();
        player->playTitle(title);
        ASSERT_TRUE(playsTitle(title));
        // It would be over 6 s where the buttons' decoder waits for an output that has gone.
        EXPECT_LT(now() - begin, 5) << title;
        player->showRootMenu();
        ASSERT_TRUE(waitUntil([&] { return player->isInMenu() && showsMenu(); })) << describe();
    }
}

TEST_F(DiscMenus, TheRootMenuOutOfAMenuShowsItsButtons)
{
    ASSERT_TRUE(open());
    ASSERT_TRUE(waitUntil([&] { return chosenButton() == 1; }));
    for (int call = 0; call < 3; ++call) {
        player->showRootMenu();
        holdsFor(0.5, [] { return true; });
        EXPECT_TRUE(waitUntil([&] { return chosenButton() == 1; })) << call;
    }
    player->menuKey(MenuKey::Right);
    EXPECT_TRUE(waitUntil([&] { return chosenButton() == 2; }));
}

TEST_F(DiscMenus, AFolderPlaysAsWell)
{
    ASSERT_TRUE(open(testDisc("disc")));
    player->playTitle(2);
    EXPECT_TRUE(playsTitle(2));
}

TEST_F(DiscMenus, KeysChooseAButton)
{
    ASSERT_TRUE(open());
    ASSERT_TRUE(waitUntil([&] { return chosenButton() == 1; }));
    player->menuKey(MenuKey::Right);
    ASSERT_TRUE(waitUntil([&] { return chosenButton() == 2; }));
    player->menuKey(MenuKey::Left);
    ASSERT_TRUE(waitUntil([&] { return chosenButton() == 1; }));
    player->menuKey(MenuKey::Right);
    ASSERT_TRUE(waitUntil([&] { return chosenButton() == 2; }));
    player->menuKey(MenuKey::Enter);
    ASSERT_TRUE(playsTitle(2));
    EXPECT_EQ(player->duration(), 20);
    EXPECT_EQ(player->chapterCount(), 2);
    EXPECT_EQ(player->frameRate(), 25);
}

TEST_F(DiscMenus, ThePointerChoosesAButton)
{
    ASSERT_TRUE(open());
    ASSERT_TRUE(waitUntil([&] { return chosenButton() == 1; }));
    player->pointerAt(buttonAt(2));
    ASSERT_TRUE(waitUntil([&] { return chosenButton() == 2; }));
    player->pointerPressed(buttonAt(2));
    EXPECT_TRUE(playsTitle(2));
}

TEST_F(DiscMenus, TwoPressesOnOnePlaceOnlyPlay)
{
    ASSERT_TRUE(open());
    ASSERT_TRUE(waitUntil([&] { return chosenButton() == 1; }));
    player->pointerPressed(buttonAt(2));
    player->pointerPressed(buttonAt(2));
    EXPECT_TRUE(playsTitle(2));
}

TEST_F(DiscMenus, KeysDoNothingInTheFilm)
{
    ASSERT_TRUE(openTitle(1));
    player->menuKey(MenuKey::Right);
    player->menuKey(MenuKey::Enter);
    player->pointerPressed(buttonAt(2));
    EXPECT_TRUE(holdsFor(1, [&] { return player->title() == 1 && shownSeconds(2) < 0; })) << describe();
}

TEST_F(DiscMenus, TheRootMenuKeepsThePlaceOfTheFilm)
{
    ASSERT_TRUE(openTitle(1));
    player->seek(20);
    ASSERT_TRUE(waitUntil([&] { return shownSeconds(1) > 20.5 && shownSeconds(1) < 25; })) << describe();
    const double left = player->position();
    player->showRootMenu();
    ASSERT_TRUE(waitUntil([&] { return player->isInMenu() && showsMenu(); })) << describe();
    EXPECT_NEAR(player->position(), left, 1);
    EXPECT_EQ(player->duration(), 60);
    EXPECT_TRUE(holdsFor(0.5, [&] { return std::abs(player->position() - left) < 1; }));
    player->resume();
    ASSERT_TRUE(playsTitle(1));
    ASSERT_TRUE(waitUntil([&] { return shownSeconds(1) > left - kDiscUnit - 0.1; })) << describe();
    EXPECT_LT(shownSeconds(1), left + 1.5);
}

TEST_F(DiscMenus, ResumeOutOfTheFirstMenuBeginsTheFilm)
{
    ASSERT_TRUE(open());
    player->resume();
    ASSERT_TRUE(playsTitle(1));
    EXPECT_LT(shownSeconds(1), 2);
}

TEST_F(DiscMenus, ResumeInTheFilmGoesOnPlaying)
{
    ASSERT_TRUE(openTitle(1));
    player->pause();
    player->resume();
    const double place = shownSeconds(1);
    EXPECT_TRUE(waitUntil([&] { return shownSeconds(1) > place + 0.5; })) << describe();
    EXPECT_FALSE(player->isPaused());
}

TEST_F(DiscMenus, AHeldFilmGivesWayToTheMenu)
{
    ASSERT_TRUE(openTitle(2));
    player->pause();
    player->showRootMenu();
    EXPECT_TRUE(waitUntil([&] { return player->isInMenu() && showsMenu() && !player->isPaused(); })) << describe();
}

TEST_F(DiscMenus, ChaptersWithinTheTitle)
{
    ASSERT_TRUE(openTitle(1));
    ASSERT_TRUE(waitUntil([&] { return player->chapter() == 1; }));
    EXPECT_EQ(player->chapterCount(), 4);
    player->previousChapter();
    EXPECT_TRUE(holdsFor(0.3, [&] { return shownSeconds(1) < 14; }));
    player->nextChapter();
    ASSERT_TRUE(waitUntil([&] { return shows(15.1, 0.1) && player->chapter() == 2; })) << describe();
    player->nextChapter();
    player->nextChapter();
    ASSERT_TRUE(waitUntil([&] { return shows(45.1, 0.1) && player->chapter() == 4; })) << describe();
    player->nextChapter();
    EXPECT_TRUE(holdsFor(0.5, [&] { return shownSeconds(1) >= 45; })) << describe();
    player->previousChapter();
    EXPECT_TRUE(waitUntil([&] { return shows(30.1, 0.1) && player->chapter() == 3; })) << describe();
}

TEST_F(DiscMenus, AHeldFilmGoesOnAtAChapter)
{
    ASSERT_TRUE(openTitle(1));
    player->pause();
    player->nextChapter();
    EXPECT_TRUE(waitUntil([&] { return shownSeconds(1) > 15.5; })) << describe();
    EXPECT_FALSE(player->isPaused());
}

TEST_F(DiscMenus, ChapterStepsInAMenuDoNothing)
{
    ASSERT_TRUE(open());
    player->nextChapter();
    player->previousChapter();
    EXPECT_TRUE(holdsFor(1, [&] { return player->isInMenu() && showsMenu(); })) << describe();
}

TEST_F(DiscMenus, TitlesThatAreNoneDoNothing)
{
    ASSERT_TRUE(open());
    for (const int title : {0, -1, 3, 99, 100000})
        player->playTitle(title);
    EXPECT_TRUE(holdsFor(0.5, [&] { return player->isInMenu() && showsMenu(); })) << describe();
}

TEST_F(DiscMenus, TheEndOfATitleLeadsBackToTheMenu)
{
    ASSERT_TRUE(openTitle(2));
    player->seek(18);
    ASSERT_TRUE(waitUntil([&] { return shownSeconds(2) > 17; })) << describe();
    EXPECT_TRUE(waitUntil([&] { return player->isInMenu() && showsMenu(); })) << describe();
    EXPECT_TRUE(player->isLoaded());
    EXPECT_NEAR(player->position(), 20, 1.5);
    EXPECT_EQ(player->duration(), 20);
}
} // namespace

} // namespace tandrel
