// Still pictures: which videos are asked for their place, and what is told of the files.

#include "other_media_bench.h"
#include "player_bench.h"

#include "console/stillmenu.h"
#include "texts/frm_update.h"

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace
{

class ConsoleStillPictures : public Player
{
protected:
    void openTwo()
    {
        start("0");
        openSeveral(2);
        VideoWindows[0]->SetFocus();
        world.mci.clear();
        world.mci.answer("status " + VideoWindows[0]->MediaFile + " position", "1500");
        world.mci.answer("status " + VideoWindows[1]->MediaFile + " position", "61234");
        hearMessages();
    }
    void hearMessages()
    {
        world.backend.whileModal["frmUpdate"] = [this](Form& form) {
            told.push_back(dynamic_cast<class frmUpdate&>(form).lblUpdate.caption());
        };
    }
    void finish(const SavedPictures& saved)
    {
        world.pictures.results.push_back(saved);
        console().TimerPictures.tick();
    }
    Text note() { return console().lblNote.visible() ? console().lblNote.caption() : Text(); }

    std::vector<Text> told;
};

} // namespace

TEST_F(ConsoleStillPictures, TheButtonBringsTheMenu)
{
    start("0");
    console().imgStill.userClick();
    EXPECT_THAT(world.backend.menus, ElementsAre("stillmenu.popup"));
}

TEST_F(ConsoleStillPictures, TheSelectedVideoIsAskedForItsPlace)
{
    openTwo();
    stillmenu().mnuStill.Click();
    const Text alias = trim(VideoWindows[0]->MediaFile);
    EXPECT_THAT(world.mci.sent(), ElementsAre("set " + alias + " time format ms", "status " + alias + " position"));
    ASSERT_EQ(world.pictures.orders.size(), 1u);
    EXPECT_FALSE(world.pictures.orders[0].sheet);
    ASSERT_EQ(world.pictures.orders[0].wishes.size(), 1u);
    EXPECT_EQ(world.pictures.orders[0].wishes[0].path, VideoWindows[0]->path());
    EXPECT_DOUBLE_EQ(world.pictures.orders[0].wishes[0].seconds, 1.5);
}

TEST_F(ConsoleStillPictures, AllVideosAreAskedAtOnce)
{
    openTwo();
    world.mci.expected.clear();
    stillmenu().mnuStills.Click();
    const Text first = trim(VideoWindows[0]->MediaFile);
    const Text second = trim(VideoWindows[1]->MediaFile);
    EXPECT_THAT(world.mci.expected,
                ElementsAre(ElementsAre("status " + first + " position", "status " + second + " position")));
    EXPECT_THAT(world.mci.sent(), ElementsAre("set " + first + " time format ms", "status " + first + " position",
                                              "set " + second + " time format ms", "status " + second + " position"));
    ASSERT_EQ(world.pictures.orders.size(), 1u);
    EXPECT_TRUE(world.pictures.orders[0].sheet);
    ASSERT_EQ(world.pictures.orders[0].wishes.size(), 2u);
    EXPECT_DOUBLE_EQ(world.pictures.orders[0].wishes[1].seconds, 61.234);
}

TEST_F(ConsoleStillPictures, AVideoThatDoesNotAnswerIsLeftOut)
{
    openTwo();
    world.mci.fail("status " + trim(VideoWindows[1]->MediaFile) + " position", 276);
    stillmenu().mnuStills.Click();
    ASSERT_EQ(world.pictures.orders.size(), 1u);
    EXPECT_EQ(world.pictures.orders[0].wishes.size(), 1u);
}

TEST_F(ConsoleStillPictures, WithoutAVideoAMessageSaysSo)
{
    start("0");
    hearMessages();
    stillmenu().mnuStill.Click();
    stillmenu().mnuStills.Click();
    EXPECT_THAT(told,
                ElementsAre("There is no video to take a picture of.", "There is no video to take a picture of."));
    EXPECT_THAT(world.pictures.orders, IsEmpty());
    EXPECT_FALSE(console().TimerPictures.Enabled());
}

TEST_F(ConsoleStillPictures, WhatWasSavedIsSaidForAWhile)
{
    openTwo();
    stillmenu().mnuStill.Click();
    EXPECT_EQ(note(), "Saving pictures ...");
    EXPECT_FALSE(console().Label3.visible());
    console().TimerPictures.tick();
    EXPECT_EQ(note(), "Saving pictures ...");
    finish({{"/pictures/a 0-00-01.500.png"}, "/pictures", {}, PictureTrouble::None});
    EXPECT_EQ(note(), "1 saved in /pictures");
    for (int tick = 0; tick < 39; ++tick)
        console().TimerPictures.tick();
    EXPECT_EQ(note(), "");
    EXPECT_TRUE(console().Label3.visible());
    EXPECT_FALSE(console().TimerPictures.Enabled());
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(ConsoleStillPictures, EachTroubleHasItsMessage)
{
    openTwo();
    const auto messageOf = [&](PictureTrouble trouble, std::vector<std::string> missing = {}) {
        told.clear();
        stillmenu().mnuStill.Click();
        finish({{}, "/pictures", std::move(missing), trouble});
        return told.size() == 1 ? told[0] : Text("none or several");
    };
    EXPECT_EQ(messageOf(PictureTrouble::Folder), "The pictures can't be written to this folder.\n/pictures");
    EXPECT_EQ(messageOf(PictureTrouble::NoRoom),
              "There is no room left on the disk. What was not complete has been taken away.\n/pictures");
    EXPECT_EQ(messageOf(PictureTrouble::NoPicture, {"/films/sound\xFF.mp3"}), "There is no picture of:\nsound?.mp3");
    EXPECT_EQ(messageOf(PictureTrouble::Busy),
              "Pictures of earlier videos are still being read. Please try again later.");
}

TEST_F(ConsoleStillPictures, WhatCouldBeSavedIsToldBesideTheTrouble)
{
    openTwo();
    stillmenu().mnuStills.Click();
    finish({{"/pictures/a.png"}, "/pictures", {"/films/b.avi"}, PictureTrouble::NoPicture});
    EXPECT_EQ(note(), "1 saved in /pictures");
    EXPECT_THAT(told, ElementsAre(HasSubstr("b.avi")));
}

TEST_F(ConsoleStillPictures, OneMessageWaitsForTheOther)
{
    openTwo();
    stillmenu().mnuStill.Click();
    stillmenu().mnuStill.Click();
    frmUpdate().Show();
    finish({{}, "/pictures", {}, PictureTrouble::Folder});
    EXPECT_THAT(told, IsEmpty());
    Unload<class frmUpdate>();
    console().TimerPictures.tick();
    EXPECT_EQ(told.size(), 1u);
}

TEST_F(ConsoleStillPictures, AFailedVideoHasNoPicture)
{
    openTwo();
    VideoWindows[0]->markFailed();
    stillmenu().mnuStill.Click();
    EXPECT_THAT(told, ElementsAre("There is no video to take a picture of."));
}

} // namespace tandrel::test
