// The openers that replace everything that is open.

#include "player_bench.h"

#include "texts/frm_tool_tip.h"
#include "texts/frm_update.h"
#include "texts/frm_wait.h"
#include "toolkit/activation.h"

namespace tandrel::test
{

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

namespace
{

class ConsoleSingleOpen : public Player
{
protected:
    void begin(const Text& mode = "1")
    {
        start(mode);
        console().FirstOpenTip = false;
    }
    void openSingle(const Text& path) { openOne(&frmMedia::OpenSingleVideo, path); }
    void openMkv(const Text& path) { openOne(&frmMedia::OpenSingleVideoMKV, path); }
    void openOne(void (frmMedia::*opener)(), const Text& path)
    {
        world.backend.choices = {{path}};
        world.mci.clear();
        world.journal.clear();
        (console().*opener)();
    }
    void preset(const Text& text)
    {
        console().PresetSelection = true;
        console().SelectionText = text;
        world.mci.clear();
        console().OpenSingleVideo();
    }
    Text title() { return console().lblTitleBar.caption(); }
};

} // namespace

TEST_F(ConsoleSingleOpen, OneVideoSendsItsCommandsInOrder)
{
    begin();
    openSingle(film(0));
    EXPECT_THAT(commands(), ElementsAre("Open A Type MPEGVideo alias A parent 0 style child", "Where A destination",
                                        "set A time format frames", "status A length", "set A time format ms",
                                        "status A length", "put A window at 0 0 640 480", "setaudio A Volume to 500",
                                        "Where A destination", "Play A ", "put A window at 0 0 781 398"));
    const frmChild& window = *VideoWindows.at(0);
    EXPECT_EQ(window.caption(), "§" + film(0));
    EXPECT_EQ(window.MediaFile, alias(0));
    EXPECT_EQ(window.Duration, "0:01:00");
    EXPECT_TRUE(window.visible());
    EXPECT_EQ(console().lblDuration.caption(), "0:01:00");
    EXPECT_EQ(console().SeekSlider.maximum(), 60000);
    EXPECT_TRUE(Playing);
    EXPECT_TRUE(console().Timer1.enabled());
    EXPECT_EQ(NextSlot, 1);
    EXPECT_EQ(CurrentAlias, alias(0));
    EXPECT_EQ(title(), " [ " + film(0) + " ] " + std::string(50, ' '));
}

TEST_F(ConsoleSingleOpen, WhateverItsPictureOneVideoHasItsFixedPlace)
{
    begin();
    world.mediaAnswer(1920, 1080, 60000);
    openSingle(film(0));
    EXPECT_EQ(rectOf(*VideoWindows.at(0)), (Rect{400, 400, 11820, 6375}));
}

TEST_F(ConsoleSingleOpen, ItEndsWithTheFocusOnTheConsoleAndThePlainPointer)
{
    begin();
    openSingle(film(0));
    EXPECT_EQ(activeForm(), &console());
    EXPECT_EQ(screen().MousePointer(), pointer::kDefault);
    EXPECT_FALSE(Loaded<class frmWait>());
    EXPECT_FALSE(console().PresetSelection);
    EXPECT_EQ(console().SelectionText, "");
}

TEST_F(ConsoleSingleOpen, EverythingThatIsOpenIsClosedFirst)
{
    begin();
    openSeveral(3);
    const SlotTable old = VideoWindows;
    old[1]->MediaFile = " ";
    openSingle(film(5));
    EXPECT_THAT(startingWith(commands(), "Close"),
                ElementsAre("Close A", "Close A", "Close A", "Close C", "Close C", "Close C"));
    EXPECT_LT(std::find(world.mci.sent().begin(), world.mci.sent().end(), "Close " + alias(2)),
              std::find_if(world.mci.sent().begin(), world.mci.sent().end(),
                           [](const std::string& one) { return one.starts_with("Open"); }));
    EXPECT_TRUE(old[0]->isDead());
    EXPECT_TRUE(old[2]->isDead());
    EXPECT_THAT(console().List2.entries(), ElementsAre(film(5)));
    EXPECT_THAT(VideoWindows, SizeIs(1));
    EXPECT_EQ(NextSlot, 1);
}

TEST_F(ConsoleSingleOpen, EachWindowIsGoneFromTheScreenBeforeItsDeviceIsClosed)
{
    world.backend.windows = true;
    begin();
    open(0);
    openSingle(film(5));
    const auto steps = chosen(shortened(world.journal), [](const std::string& line) {
        return line == "frmChild hide" || line.starts_with("Close") || line == "frmWait show" ||
               line == "frmWait repaint";
    });
    ASSERT_GE(steps.size(), 5U);
    EXPECT_EQ(steps[0], "frmWait show");
    EXPECT_EQ(steps[1], "frmChild hide");
    EXPECT_EQ(steps[2], "Close A");
    EXPECT_THAT(steps, Contains("frmWait repaint"));
}

TEST_F(ConsoleSingleOpen, AWindowThatFailedEarlierIsEndedToo)
{
    begin("0");
    breakFilm(1);
    console().openPaths({film(0), film(1)});
    const SlotTable old = VideoWindows;
    ASSERT_TRUE(old[1]->hasFailed());
    openSingle(film(2));
    EXPECT_TRUE(old[0]->isDead());
    EXPECT_TRUE(old[1]->isDead());
    EXPECT_EQ(NextSlot, 1);
}

TEST_F(ConsoleSingleOpen, ACancelledDialogClosesNothing)
{
    begin();
    open(0);
    frmToolTip().Show();
    console().OpenSingleVideo();
    EXPECT_THAT(world.mci.sent(), IsEmpty());
    EXPECT_TRUE(VideoWindows[0]->visible());
    EXPECT_THAT(console().List2.entries(), ElementsAre(film(0)));
    EXPECT_FALSE(Loaded<class frmToolTip>());
    EXPECT_EQ(screen().MousePointer(), pointer::kDefault);
    EXPECT_EQ(console().SelectionText, "");
}

TEST_F(ConsoleSingleOpen, ACancelledMatroskaDialogDoesNotEvenEndTheTip)
{
    begin();
    frmToolTip().Show();
    console().OpenSingleVideoMKV();
    EXPECT_TRUE(Loaded<class frmToolTip>());
    EXPECT_EQ(screen().MousePointer(), pointer::kDefault);
}

TEST_F(ConsoleSingleOpen, AFileThatIsOpenGetsTheFocusAndNothingIsClosed)
{
    begin();
    openSeveral(2);
    openSingle(film(0));
    EXPECT_THAT(startingWith(commands(), "Close"), IsEmpty());
    EXPECT_EQ(activeForm(), VideoWindows[0].get());
    EXPECT_EQ(CurrentAlias, alias(0));
    EXPECT_THAT(console().List2.entries(), ElementsAre(film(0), film(1)));
    openMkv(film(1));
    EXPECT_EQ(activeForm(), VideoWindows[1].get());
}

TEST_F(ConsoleSingleOpen, TwelveOpenVideosAreNoHindrance)
{
    begin();
    openSeveral(12);
    openSingle("/films/new.avi");
    EXPECT_THAT(console().List2.entries(), ElementsAre("/films/new.avi"));
    EXPECT_EQ(liveCount(), 1);
}

TEST_F(ConsoleSingleOpen, ADriveAloneClosesNothing)
{
    begin();
    open(0);
    preset("/ab||");
    EXPECT_THAT(world.backend.boxes, SizeIs(1));
    EXPECT_THAT(world.mci.sent(), IsEmpty());
}

TEST_F(ConsoleSingleOpen, APresetOpensWithoutADialogAndIsUsedUp)
{
    begin();
    preset(film(3) + "||");
    EXPECT_THAT(world.backend.dialogs, IsEmpty());
    EXPECT_EQ(VideoWindows.at(0)->path(), film(3));
    EXPECT_FALSE(console().PresetSelection);
    EXPECT_EQ(console().SelectionText, "");
    EXPECT_EQ(world.files.content.count("/data/last.dat"), 0U) << "what comes from the list does not go to it";
}

TEST_F(ConsoleSingleOpen, SeveralOfAPresetStandInReadingOrder)
{
    begin("0");
    preset("/films|" + film(0) + "|" + film(1) + "|" + film(2) + "|" + film(3) + "|||");
    const auto at = [](int index) { return rectOf(*VideoWindows.at(static_cast<std::size_t>(index))); };
    EXPECT_EQ(at(0), (Rect{0, 0, 14400, 8100}));
    EXPECT_EQ(at(1), (Rect{14400, 0, 14400, 8100}));
    EXPECT_EQ(at(2), (Rect{0, 8100, 14400, 8100}));
    EXPECT_EQ(at(3), (Rect{14400, 8100, 14400, 8100}));
    EXPECT_THAT(startingWith(commands(), "Play"), ElementsAre("Play A ", "Play B ", "Play C ", "Play D "));
    EXPECT_THAT(startingWith(commands(), "Pause"), IsEmpty());
    EXPECT_THAT(console().List2.entries(), ElementsAre(film(3))) << "the list is cut down to its last entry";
}

TEST_F(ConsoleSingleOpen, TheTipComesAtTheFirstOpenOnly)
{
    start();
    ASSERT_TRUE(console().FirstOpenTip);
    std::vector<Text> tips;
    world.backend.whileModal["frmUpdate"] = [&](Form& form) {
        tips.push_back(frmUpdate().lblUpdate.caption());
        EXPECT_EQ(form.caption(), AppTitle);
        EXPECT_EQ(screen().MousePointer(), pointer::kDefault);
        EXPECT_FALSE(Loaded<class frmWait>());
        EXPECT_THAT(world.mci.sent(), IsEmpty());
    };
    console().OpenSingleVideo();
    EXPECT_THAT(tips, IsEmpty()) << "nothing was chosen";
    openSingle(film(0));
    EXPECT_THAT(tips, ElementsAre("TIP: Mouse Right-Click on the Video to FULLSCREEN mode."));
    EXPECT_FALSE(console().FirstOpenTip);
    world.backend.whileModal["frmUpdate"] = [&](Form&) { tips.push_back("again"); };
    openSingle(film(1));
    EXPECT_THAT(tips, SizeIs(1));
}

TEST_F(ConsoleSingleOpen, MatroskaFilesBringNoTipAndADiscDoes)
{
    start();
    int tips = 0;
    world.backend.whileModal["frmUpdate"] = [&](Form&) { ++tips; };
    openMkv("/films/a.mkv");
    EXPECT_EQ(tips, 0);
    EXPECT_TRUE(console().FirstOpenTip);
    console().OpenSingleVideoDVD();
    EXPECT_EQ(tips, 1);
    EXPECT_FALSE(console().FirstOpenTip);
}

TEST_F(ConsoleSingleOpen, AJumpIsPausedFirst)
{
    begin();
    open(0);
    FastRewind = true;
    openSingle(film(1));
    EXPECT_EQ(commands().front(), "Pause A");
    FastForward = true;
    openMkv(film(2));
    EXPECT_EQ(commands().front(), "Pause B");
    FastForward = true;
    world.mci.clear();
    console().OpenSingleVideoDVD();
    EXPECT_THAT(startingWith(commands(), "Pause"), IsEmpty()) << "a disc does not ask";
}

TEST_F(ConsoleSingleOpen, OnAnOlderSystemAMatroskaFileIsAFileVideo)
{
    begin();
    WindowsVersion = "WINDOWS XP";
    openSingle("/films/a.MKV");
    EXPECT_THAT(startingWith(commands(), "Pause"), IsEmpty());
    EXPECT_EQ(liveCount(), 1);
    EXPECT_EQ(rectOf(*VideoWindows.at(0)), (Rect{400, 400, 11820, 6375}));
}

TEST_F(ConsoleSingleOpen, TheMatroskaOpenerTakesItsFileToASlotOnEverySystem)
{
    begin();
    openMkv("/films/a.mkv");
    EXPECT_EQ(world.backend.dialogs.back().title, "Open MKV Video...");
    EXPECT_EQ(world.mci.sent().front(),
              "Open \"/films/a.mkv\" Type MPEGVideo alias \"/films/a.mkv\" parent 0 style child");
    EXPECT_THAT(world.mci.sent(), Contains("Play \"/films/a.mkv\" "));
    EXPECT_EQ(rectOf(*VideoWindows.at(0)), (Rect{400, 400, 11820, 6375}));
    EXPECT_TRUE(console().Timer1.enabled());
    EXPECT_EQ(activeForm(), &console());
}

TEST_F(ConsoleSingleOpen, AFileThatCantBePlayedShowsNoWindowAndSaysSo)
{
    begin();
    open(0);
    breakFilm(1);
    openSingle(film(1));
    ASSERT_THAT(VideoWindows, SizeIs(1));
    EXPECT_EQ(VideoWindows[0]->tag(), "2");
    EXPECT_FALSE(VideoWindows[0]->isLive());
    EXPECT_FALSE(VideoWindows[0]->visible());
    EXPECT_THAT(startingWith(commands(), "Play"), IsEmpty());
    EXPECT_EQ(title(), "Media File can't be played!");
    EXPECT_EQ(CurrentAlias, "");
    EXPECT_EQ(screen().MousePointer(), pointer::kDefault);
    EXPECT_THAT(world.backend.boxes, IsEmpty());
}

TEST_F(ConsoleSingleOpen, WhileACommandRunsNoOpenerBegins)
{
    begin();
    open(0);
    screen().MousePointer = pointer::kHourglass;
    console().PresetSelection = true;
    console().SelectionText = film(1) + "||";
    console().OpenSingleVideo();
    console().OpenSingleVideoMKV();
    console().OpenSingleVideoDVD();
    EXPECT_THAT(world.mci.sent(), IsEmpty());
    EXPECT_EQ(screen().MousePointer(), pointer::kHourglass);
    EXPECT_TRUE(console().PresetSelection) << "it belongs to the command that runs";
}

TEST_F(ConsoleSingleOpen, ThePointerIsTheHourglassWhileTheDialogIsUp)
{
    begin();
    world.backend.whileDialogIsUp = [] {
        EXPECT_EQ(screen().MousePointer(), pointer::kHourglass);
        frmMedia().OpenSingleVideo();
        frmMedia().cmdMedia[command::kOpen]->Value = true;
    };
    openSingle(film(0));
    EXPECT_THAT(world.backend.dialogs, SizeIs(1)) << "no second dialog";
}

TEST_F(ConsoleSingleOpen, ADiscClosesEverythingAndTurnsTheTimersOn)
{
    begin();
    openSeveral(2);
    console().Timer1.Enabled = false;
    console().OpenSingleVideoDVD();
    EXPECT_EQ(liveCount(), 0);
    EXPECT_EQ(NextSlot, 0);
    EXPECT_EQ(CurrentAlias, "");
    EXPECT_TRUE(console().Timer1.enabled());
    EXPECT_TRUE(console().Timer2.enabled());
    EXPECT_EQ(activeForm(), &console());
    EXPECT_THAT(startingWith(commands(), "Open"), IsEmpty());
}

} // namespace tandrel::test
