// The slider of the console that shows and sets where the medium stands.

#include "fake_controls.h"
#include "player_bench.h"

#include "fullscreen/frm_panel.h"
#include "toolkit/activation.h"

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

constexpr MouseEvent kLeftButton{mouse::kLeft, 0, 0, 0};
constexpr MouseEvent kRightButton{mouse::kRight, 0, 0, 0};
constexpr MouseEvent kNoButton{};

class ConsoleSeek : public Player
{
protected:
    ConsoleSeek() { start("0"); }

    Slider& slider() { return console().SeekSlider; }
    void thumbAt(int value, int length = 60000)
    {
        slider().Max = length;
        slider().Value = value;
        world.mci.clear();
    }
    /// The thumb is held on the first video.
    void holdThumb()
    {
        open(0);
        slider().Max = 60000;
        slider().userMouseDown(kLeftButton);
        world.mci.clear();
    }
    /// The position of the medium, or its length, can't be read.
    void noAnswer(const std::string& what) { world.mci.fail("status " + alias(0) + " " + what, 263); }
};

} // namespace

// The click.

TEST_F(ConsoleSeek, AClickTakesTheSelectedVideoThereAndItPlaysOn)
{
    openSeveral(2);
    thumbAt(12345);
    console().lblSpeed.Caption = "2x";
    MediaStarted = false;
    slider().Click();
    EXPECT_THAT(commands(), ElementsAre("set B time format ms", "seek B to 12345", "Play B"));
    EXPECT_EQ(console().lblSpeed.caption(), "0x");
    EXPECT_TRUE(MediaStarted);
}

TEST_F(ConsoleSeek, APausedVideoStaysPausedAtTheNewPlace)
{
    open(0).Paused = 1;
    thumbAt(2000);
    slider().Click();
    EXPECT_THAT(commands(), ElementsAre("set A time format ms", "seek A to 2000"));
    EXPECT_EQ(VideoWindows[0]->Paused, 1);
}

TEST_F(ConsoleSeek, OfTwoThatPlayTheSameTheFirstSaysWhetherItIsPausedAndOneSeekIsEnough)
{
    open(0).Paused = 1;
    open(0);
    slider().Click();
    EXPECT_THAT(commands(), ElementsAre("set A time format ms", "seek A to 0"));
}

TEST_F(ConsoleSeek, BlanksAroundTheAliasOfASlotAndEmptySlotsDoNotMatter)
{
    openSeveral(2);
    VideoWindows[0].reset();
    VideoWindows[1]->MediaFile = " " + alias(1) + " ";
    slider().Click();
    EXPECT_THAT(commands(), ElementsAre("set B time format ms", "seek B to 0", "Play B"));
}

TEST_F(ConsoleSeek, WhereNoWindowPlaysTheSelectionNothingIsSent)
{
    slider().Click();
    open(0);
    CurrentAlias.clear();
    slider().Click();
    CurrentAlias = alias(5);
    slider().Click();
    CurrentAlias = kNoMedia;
    slider().Click();
    VideoWindows.clear();
    slider().Click();
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(ConsoleSeek, AClickTakesThePageAndGivesTheKeysToTheConsole)
{
    open(0);
    thumbAt(0);
    ASSERT_NE(activeForm(), &console());
    slider().Click();
    EXPECT_EQ(slider().LargeChange, 1800);
    EXPECT_EQ(activeForm(), &console());
}

TEST_F(ConsoleSeek, APageIsThreePercentOfTheLengthFromThePressOn)
{
    const std::vector<std::pair<int, int>> pages{
        {60000, 1800},         {100, 3}, {84, 3}, {83, 2}, {50, 2}, {150, 4}, {17, 1}, {16, 0}, {1, 0}, {0, 0},
        {2147483647, 64424509}};
    for (const auto& [length, page] : pages) {
        slider().Max = length;
        slider().LargeChange = 77;
        slider().userMouseDown(kLeftButton);
        EXPECT_EQ(slider().LargeChange, page) << "at the press, for " << length;
        slider().LargeChange = 77;
        slider().Click();
        EXPECT_EQ(slider().LargeChange, page) << "at the click, for " << length;
    }
}

TEST_F(ConsoleSeek, AClickTakesADiscOnTheVideoControlToItsSecond)
{
    OtherMediaBench bench;
    open(0);
    DVDMode = true;
    MkvOpen = true;
    WindowsVersion = "WINDOWS XP";
    const std::vector<std::pair<int, std::string>> times{
        {0, "00:00:00"}, {125, "00:02:05"}, {3600, "01:00:00"}, {32767, "09:06:07"}};
    for (const auto& [second, time] : times) {
        bench.forget();
        thumbAt(second, 40000);
        slider().Click();
        EXPECT_THAT(bench.asked(), ElementsAre("frmDVD PlayAtTime " + time));
    }
    bench.forget();
    thumbAt(32768, 40000);
    bench.dvdForm->SetFocus();
    slider().Click();
    EXPECT_THAT(bench.asked(), IsEmpty()) << "more seconds than 16 bits hold";
    EXPECT_EQ(activeForm(), &console()) << "and the handler goes on";
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(ConsoleSeek, AClickTakesADiscOnThePlayerAndAnHdFilmToTheirSecond)
{
    OtherMediaBench bench;
    open(0);
    MkvOpen = true;
    thumbAt(125, 4000);
    slider().Click();
    EXPECT_THAT(bench.asked(), ElementsAre("frmMKV position 125"));
    bench.forget();
    DVDMode = true;
    slider().Click();
    EXPECT_THAT(bench.asked(), ElementsAre("frmDVD2 position 125"));
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(ConsoleSeek, AControlThatRefusesOrIsNotThereLeavesTheRestOfTheClick)
{
    OtherMediaBench bench;
    bench.dvd.fails = bench.dvd2.fails = bench.mkv.fails = true;
    const auto clickAndLook = [&] {
        bench.dvdForm->SetFocus();
        slider().Click();
        return activeForm() == &console();
    };
    MkvOpen = true;
    EXPECT_TRUE(clickAndLook());
    DVDMode = true;
    EXPECT_TRUE(clickAndLook());
    WindowsVersion = "WINDOWS XP";
    EXPECT_TRUE(clickAndLook());
    EXPECT_EQ(bench.asked().size(), 3U);
    otherMedia() = {};
    EXPECT_TRUE(clickAndLook());
}

// The thumb is held.

TEST_F(ConsoleSeek, ThePressHoldsTheTickAndTheLeftOneBeginsTheDrag)
{
    open(0);
    console().Timer1.Enabled = true;
    slider().userMouseDown(kLeftButton);
    EXPECT_FALSE(console().Timer1.enabled());
    EXPECT_TRUE(console().SeekDragging);
    console().SeekDragging = false;
    console().Timer1.Enabled = true;
    slider().userMouseDown(kRightButton);
    EXPECT_FALSE(console().Timer1.enabled());
    EXPECT_FALSE(console().SeekDragging);
}

TEST_F(ConsoleSeek, AnyKindOfMediumCanBeHeldAndNothingCannot)
{
    console().Timer1.Enabled = true;
    slider().userMouseDown(kLeftButton);
    EXPECT_TRUE(console().Timer1.enabled());
    EXPECT_FALSE(console().SeekDragging);
    for (bool* kind : {&MkvOpen, &DVDMode}) {
        *kind = true;
        console().Timer1.Enabled = true;
        console().SeekDragging = false;
        slider().userMouseDown(kLeftButton);
        EXPECT_FALSE(console().Timer1.enabled());
        EXPECT_TRUE(console().SeekDragging);
        *kind = false;
    }
}

TEST_F(ConsoleSeek, ThePictureFollowsTheThumbAndIsHeldStillThere)
{
    holdThumb();
    for (const int place : {100, 200}) {
        slider().userScroll(place);
        world.mci.clear();
        slider().userMouseMove(kLeftButton);
        EXPECT_THAT(commands(), ElementsAre("set A time format ms", "seek A to " + std::to_string(place)));
    }
    EXPECT_EQ(VideoWindows[0]->Paused, 0);
    EXPECT_TRUE(console().SeekDragging);
}

TEST_F(ConsoleSeek, AMoveWithoutTheLeftButtonEndsTheDrag)
{
    holdThumb();
    slider().userMouseMove(kRightButton);
    EXPECT_FALSE(console().SeekDragging);
    slider().userMouseMove(kLeftButton);
    EXPECT_THAT(commands(), IsEmpty()) << "it does not begin again by itself";
    console().SeekDragging = true;
    slider().userMouseMove(kNoButton);
    EXPECT_FALSE(console().SeekDragging);
}

TEST_F(ConsoleSeek, AMediumThatIsGoneMeanwhileEndsTheDrag)
{
    holdThumb();
    CurrentAlias.clear();
    slider().userMouseMove(kLeftButton);
    EXPECT_FALSE(console().SeekDragging);
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(ConsoleSeek, ADiscSeeksAtTheClickOnlyAndAnHdFilmFollows)
{
    OtherMediaBench bench;
    holdThumb();
    thumbAt(7, 4000);
    MkvOpen = true;
    slider().userMouseMove(kLeftButton);
    EXPECT_THAT(bench.asked(), ElementsAre("frmMKV position 7"));
    bench.mkv.fails = true;
    slider().userMouseMove(kLeftButton);
    bench.forget();
    DVDMode = true;
    slider().userMouseMove(kLeftButton);
    WindowsVersion = "WINDOWS XP";
    slider().userMouseMove(kLeftButton);
    EXPECT_THAT(bench.asked(), IsEmpty());
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_TRUE(console().SeekDragging);
}

TEST_F(ConsoleSeek, TheReleaseLetsTheTickGoOnAndTheClickBehindItPlays)
{
    holdThumb();
    slider().userScroll(300);
    slider().userMouseMove(kLeftButton);
    Playing = false;
    world.mci.clear();
    slider().MouseUp(kLeftButton);
    EXPECT_THAT(commands(), IsEmpty()) << "no play yet";
    EXPECT_TRUE(console().Timer1.enabled());
    EXPECT_TRUE(Playing);
    EXPECT_FALSE(console().SeekDragging);
    slider().Click();
    EXPECT_THAT(commands(), ElementsAre("set A time format ms", "seek A to 300", "Play A"));
}

TEST_F(ConsoleSeek, AReleaseWithNothingLoadedOnlyEndsTheDrag)
{
    console().SeekDragging = true;
    console().Timer1.Enabled = false;
    Playing = false;
    slider().MouseUp(kLeftButton);
    EXPECT_FALSE(console().SeekDragging);
    EXPECT_FALSE(console().Timer1.enabled());
    EXPECT_FALSE(Playing);
    for (bool* kind : {&MkvOpen, &DVDMode}) {
        *kind = true;
        slider().MouseUp(kLeftButton);
        EXPECT_TRUE(console().Timer1.enabled() && Playing);
        console().Timer1.Enabled = false;
        *kind = Playing = false;
    }
}

// The time beside it.

TEST_F(ConsoleSeek, AScrollShowsTheTimeOfTheFile)
{
    open(0);
    world.mediaAnswer(640, 480, 7200000, 3723456);
    slider().Scroll();
    EXPECT_THAT(commands(), ElementsAre("set A time format ms", "status A position", "status A length"));
    EXPECT_EQ(CurrentPosMs, 3723456) << "in milliseconds still";
    EXPECT_EQ(console().lblCurTime.caption(), "1:02:03");
    EXPECT_EQ(slider().value(), 0) << "only the label follows";
}

TEST_F(ConsoleSeek, APositionThatCannotBeReadStaysMinusOne)
{
    open(0);
    noAnswer("length");
    slider().Scroll();
    EXPECT_EQ(CurrentPosMs, -1);
    EXPECT_EQ(console().lblCurTime.caption(), "0:00:00");
}

TEST_F(ConsoleSeek, AScrollShowsTheTimeOfADiscOnTheVideoControl)
{
    OtherMediaBench bench;
    DVDMode = true;
    WindowsVersion = "WINDOWS XP";
    bench.dvd.time = "01:02:03:12";
    slider().Scroll();
    EXPECT_EQ(console().lblCurTime.caption(), "1:02:03");
    bench.dvd.fails = true;
    bench.dvd.time = "09:09:09:09";
    slider().Scroll();
    EXPECT_EQ(console().lblCurTime.caption(), "1:02:03");
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(ConsoleSeek, AScrollShowsTheTimeOfAPlayerWithoutTheFirstFigureOfALongOne)
{
    OtherMediaBench bench;
    open(0);
    MkvOpen = true;
    const std::vector<std::pair<std::string, Text>> times{
        {"02:03", "02:03"}, {"1:02:03", "1:02:03"}, {"01:02:03", "1:02:03"}, {"11:02:03", "1:02:03"}, {"", ""}};
    for (const bool disc : {false, true}) {
        DVDMode = disc;
        FakePlayerControl& control = disc ? bench.dvd2 : bench.mkv;
        for (const auto& [time, shown] : times) {
            control.position = time;
            slider().Scroll();
            EXPECT_EQ(console().lblCurTime.caption(), shown) << time;
        }
        console().lblCurTime.Caption = "7";
        control.fails = true;
        slider().Scroll();
        EXPECT_EQ(console().lblCurTime.caption(), "7");
    }
    EXPECT_THAT(commands(), IsEmpty());
}

// What follows its value.

TEST_F(ConsoleSeek, WithoutFullScreenNoPanelIsMade)
{
    thumbAt(15000);
    EXPECT_FALSE(Loaded<class frmPanel>());
}

TEST_F(ConsoleSeek, ALengthOfZeroMovesNothingAndIsNoError)
{
    FullScreenOn = true;
    thumbAt(30000);
    const int before = frmPanel().imgPull.left();
    slider().Max = 0;
    EXPECT_EQ(slider().value(), 0);
    EXPECT_EQ(frmPanel().imgPull.left(), before);
    slider().Click();
    EXPECT_EQ(slider().LargeChange, 0);
}

} // namespace tandrel::test
