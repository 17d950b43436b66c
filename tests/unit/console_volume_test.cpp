// The sliders of the volume: two views of one level.

#include "fake_controls.h"
#include "player_bench.h"

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

class ConsoleVolume : public Player
{
protected:
    ConsoleVolume() { start("0"); }

    /// The user moves the thumb of the visible slider.
    void scrollTo(int inverted)
    {
        world.mci.clear();
        console().InvertSlider.userScroll(inverted);
    }
    void click(Image& image)
    {
        world.mci.clear();
        image.userClick();
    }
    std::vector<int> volumes() const
    {
        std::vector<int> all;
        for (const auto& window : VideoWindows)
            all.push_back(window ? static_cast<int>(window->Volume) : -1);
        return all;
    }
    void setLevel(int level)
    {
        console().VolumeSlider.Value = level;
        console().InvertSlider.Value = 100 - level;
        VolumeLevel = level;
    }
};

} // namespace

TEST_F(ConsoleVolume, BothSlidersHaveTheirRangeSizeAndTip)
{
    for (const Slider* slider : {&console().VolumeSlider, &console().InvertSlider}) {
        EXPECT_TRUE(slider->vertical());
        EXPECT_EQ(slider->minimum(), 0);
        EXPECT_EQ(slider->maximum(), 100);
        EXPECT_EQ(slider->width(), 300);
        EXPECT_EQ(slider->toolTip(), "Volume");
    }
    EXPECT_EQ(console().VolumeSlider.height(), 1035);
    EXPECT_EQ(console().InvertSlider.height(), 1095);
    EXPECT_EQ(console().imgMax.toolTip(), "Volume +");
    EXPECT_EQ(console().imgMin.toolTip(), "Volume -");
}

// The visible one.

TEST_F(ConsoleVolume, AScrollSetsTheLevelOfTheSelectedVideoAlone)
{
    openSeveral(2);
    scrollTo(30);
    EXPECT_THAT(commands(), ElementsAre("setaudio B Volume to 700"));
    EXPECT_EQ(console().VolumeSlider.value(), 70);
    EXPECT_EQ(VolumeLevel, 70);
    EXPECT_THAT(volumes(), ElementsAre(50, 70));
}

TEST_F(ConsoleVolume, ItsEndsAreTheLoudestAndSilence)
{
    open(0);
    scrollTo(0);
    EXPECT_THAT(commands(), ElementsAre("setaudio A Volume to 1000"));
    scrollTo(100);
    EXPECT_THAT(commands(), ElementsAre("setaudio A Volume to 0"));
    EXPECT_THAT(volumes(), ElementsAre(0));
}

TEST_F(ConsoleVolume, EverySlotThatPlaysTheSelectionTakesTheLevel)
{
    open(0);
    open(1);
    open(0);
    open(2);
    CurrentAlias = alias(0);
    VideoWindows[2]->MediaFile = " " + alias(0) + " ";
    VideoWindows[3].reset();
    scrollTo(80);
    EXPECT_THAT(volumes(), ElementsAre(20, 50, 20, -1));
    EXPECT_THAT(commands(), ElementsAre("setaudio A Volume to 200"));
}

TEST_F(ConsoleVolume, WithNothingSelectedTheLevelIsKeptForLater)
{
    scrollTo(30);
    EXPECT_EQ(VolumeLevel, 70);
    open(0);
    CurrentAlias.clear();
    scrollTo(20);
    EXPECT_EQ(VolumeLevel, 80);
    EXPECT_EQ(console().VolumeSlider.value(), 80);
    EXPECT_THAT(volumes(), ElementsAre(70));
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(ConsoleVolume, APlayerTakesTheLevelAsItIsAndNobodyElseDoes)
{
    OtherMediaBench bench;
    open(0);
    setLevel(50);
    MkvOpen = true;
    scrollTo(30);
    EXPECT_THAT(bench.asked(), ElementsAre("frmMKV volume 70"));
    bench.forget();
    DVDMode = true;
    scrollTo(35);
    EXPECT_THAT(bench.asked(), ElementsAre("frmDVD2 volume 65"));
    EXPECT_EQ(console().VolumeSlider.value(), 65);
    EXPECT_EQ(VolumeLevel, 50);
    EXPECT_THAT(volumes(), ElementsAre(50));
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(ConsoleVolume, ADiscOnTheVideoControlHasNoLevelToSet)
{
    OtherMediaBench bench;
    open(0);
    setLevel(50);
    DVDMode = true;
    WindowsVersion = "WINDOWS XP";
    scrollTo(30);
    EXPECT_EQ(console().VolumeSlider.value(), 70);
    EXPECT_EQ(VolumeLevel, 50);
    EXPECT_THAT(volumes(), ElementsAre(50));
    EXPECT_THAT(bench.asked(), IsEmpty());
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(ConsoleVolume, APlayerThatRefusesOrIsNotThereLeavesTheSlidersWhereTheyAre)
{
    OtherMediaBench bench;
    bench.mkv.fails = true;
    MkvOpen = true;
    scrollTo(30);
    EXPECT_EQ(bench.mkv.asked.size(), 1U);
    EXPECT_EQ(console().VolumeSlider.value(), 70);
    otherMedia() = {};
    scrollTo(20);
    EXPECT_EQ(console().VolumeSlider.value(), 80);
}

// The one that keeps the level.

TEST_F(ConsoleVolume, AClickOnTheOtherSliderReachesTheDeviceAlone)
{
    open(0);
    setLevel(50);
    console().VolumeSlider.Value = 80;
    world.mci.clear();
    console().VolumeSlider.Click();
    EXPECT_THAT(commands(), ElementsAre("setaudio A Volume to 800"));
    EXPECT_EQ(VolumeLevel, 80);
    EXPECT_EQ(console().InvertSlider.value(), 50);
    EXPECT_THAT(volumes(), ElementsAre(50));
}

TEST_F(ConsoleVolume, TheSlowTickSetsTheDeviceBackToTheWindowsOwnLevel)
{
    open(0);
    console().lblTitleBar.Caption = " [ a.avi ] ";
    console().Timer2.Enabled = true;
    console().VolumeSlider.Value = 80;
    console().VolumeSlider.Click();
    world.mci.clear();
    console().Timer2.tick();
    EXPECT_THAT(startingWith(commands(), "setaudio"), ElementsAre("setaudio A Volume to 500"));
    scrollTo(20);
    world.mci.clear();
    console().Timer2.tick();
    EXPECT_THAT(startingWith(commands(), "setaudio"), ElementsAre("setaudio A Volume to 800"))
        << "what the visible one has set stays";
}

TEST_F(ConsoleVolume, AClickOnItWithNothingSelectedSendsNothing)
{
    console().VolumeSlider.Value = 80;
    console().VolumeSlider.Click();
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_EQ(VolumeLevel, 80);
}

// The buttons.

TEST_F(ConsoleVolume, TheLastStepOfTheButtonsEndsAtTheBound)
{
    open(0);
    setLevel(95);
    click(console().imgMax);
    EXPECT_THAT(commands(), ElementsAre("setaudio A Volume to 1000"));
    EXPECT_EQ(console().InvertSlider.value(), 0);
    setLevel(5);
    click(console().imgMin);
    EXPECT_THAT(commands(), ElementsAre("setaudio A Volume to 0"));
    EXPECT_EQ(console().InvertSlider.value(), 100);
    EXPECT_EQ(VolumeLevel, 0);
}

TEST_F(ConsoleVolume, AfterAMutePlusRaisesTheLevelFromSilenceAndTheMuteIsNotForgotten)
{
    open(0);
    setLevel(60);
    click(console().imgMute);
    ASSERT_EQ(console().VolumeSlider.value(), 0);
    console().InvertSlider.Value = 100;
    click(console().imgMax);
    EXPECT_THAT(commands(), ElementsAre("setaudio A Volume to 100"));
    EXPECT_EQ(console().VolumeSlider.value(), 10);
    EXPECT_EQ(console().SavedVolume, 60);
}

TEST_F(ConsoleVolume, BesideADiscOrAnHdFilmAloneTheButtonsDoNothing)
{
    OtherMediaBench bench;
    setLevel(50);
    for (bool* kind : {&MkvOpen, &DVDMode}) {
        *kind = true;
        click(console().imgMax);
        click(console().imgMin);
        EXPECT_EQ(console().InvertSlider.value(), 50);
        *kind = false;
    }
    EXPECT_THAT(bench.asked(), IsEmpty());
    EXPECT_THAT(commands(), IsEmpty());
}

} // namespace tandrel::test
