// The keys of the panel.

#include "fake_controls.h"
#include "panel_bench.h"

#include "toolkit/activation.h"

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

class PanelKeys : public PanelBench
{
protected:
    PanelKeys() : full_(fullScreen()) {}

    frmChild& full() { return full_; }
    void type(int code)
    {
        forgetCommands();
        panel().KeyPress(code);
    }
    /// The figure brings another window than the panel to the user.
    Form* frontBy(char figure)
    {
        panel().SetFocus();
        type(figure);
        return activeForm();
    }

private:
    frmChild& full_;
};

} // namespace

TEST_F(PanelKeys, AFigureBringsItsVideoToTheFront)
{
    EXPECT_EQ(frontBy('1'), VideoWindows[0].get());
    EXPECT_EQ(CurrentAlias, alias(0));
    EXPECT_EQ(frontBy('3'), VideoWindows[2].get());
    EXPECT_EQ(frontBy('2'), VideoWindows[1].get());
}

TEST_F(PanelKeys, TheNinthFigureIsTheNinthVideo)
{
    for (int index = 3; index < 10; ++index)
        open(index);
    EXPECT_EQ(frontBy('9'), VideoWindows[8].get());
}

TEST_F(PanelKeys, TheWindowIsRaisedBeforeItGetsTheKeys)
{
    unload(full());
    world.backend.windows = true;
    frmChild& window = open(3);
    FullScreenOn = true;
    panel().Show();
    type('4');
    EXPECT_THAT(chosen(world.journal,
                       [](const std::string& line) { return line == "frmChild raise" || line == "frmChild activate"; }),
                ElementsAre("frmChild raise", "frmChild activate"));
    EXPECT_EQ(activeForm(), &window);
}

TEST_F(PanelKeys, AFigureWithoutAVideoDoesNothing)
{
    PanelUp = false;
    EXPECT_EQ(frontBy('4'), &panel());
    EXPECT_EQ(frontBy('9'), &panel());
    const auto kept = std::exchange(VideoWindows[2], nullptr);
    EXPECT_EQ(frontBy('3'), &panel());
    const SlotTable table = std::exchange(VideoWindows, {});
    EXPECT_EQ(frontBy('1'), &panel());
    EXPECT_FALSE(PanelUp);
}

TEST_F(PanelKeys, AWindowThatIsGoneIsNotBroughtBack)
{
    const auto gone = VideoWindows[2];
    unload(*gone);
    panel().SetFocus();
    type('3');
    EXPECT_TRUE(gone->isDead());
    EXPECT_EQ(activeForm(), &panel());
}

TEST_F(PanelKeys, LGoesOnWithThePausedVideo)
{
    full().Paused = 1;
    console().VolumeSlider.Value = 40;
    FastForward = FastRewind = panel().PanelSeeking = true;
    type('l');
    EXPECT_THAT(commands(), ElementsAre("Play B ", "setaudio B Volume to 400"));
    EXPECT_EQ(full().Paused, 0);
    EXPECT_FALSE(FastForward || FastRewind || panel().PanelSeeking);
    EXPECT_TRUE(panel().imgPause.visible() && !panel().imgPlay.visible());
}

TEST_F(PanelKeys, LAsksTheFirstOfTwoThatPlayTheSame)
{
    VideoWindows[2]->MediaFile = alias(1);
    VideoWindows[2]->Paused = 1;
    type('l');
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_EQ(VideoWindows[2]->Paused, 1);
}

TEST_F(PanelKeys, LOnARunningVideoOnlyEndsTheJumps)
{
    FastForward = FastRewind = panel().PanelSeeking = true;
    type('l');
    EXPECT_FALSE(FastForward || FastRewind || panel().PanelSeeking);
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(PanelKeys, LWithNothingSelectedDoesNothing)
{
    holdAll();
    FastForward = true;
    CurrentAlias.clear();
    type('l');
    EXPECT_TRUE(FastForward);
    CurrentAlias = alias(7);
    type('l');
    const SlotTable table = std::exchange(VideoWindows, {});
    type('l');
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(PanelKeys, PPausesAsTheButtonDoes)
{
    type('p');
    EXPECT_THAT(commands(), ElementsAre("Pause B"));
    EXPECT_EQ(full().Paused, 1);
    EXPECT_TRUE(panel().imgPlay.visible() && !panel().imgPause.visible());
}

TEST_F(PanelKeys, RAndFJumpAsTheButtonsDo)
{
    panel().PanelIdle = true;
    type('r');
    EXPECT_TRUE(FastRewind && !FastForward);
    EXPECT_FALSE(panel().PanelIdle);
    type('f');
    EXPECT_FALSE(FastRewind || FastForward) << "the other way only stops it";
    type('f');
    EXPECT_TRUE(FastForward && !FastRewind);
}

TEST_F(PanelKeys, OnADiscTheyGoToTheDisc)
{
    OtherMediaBench bench;
    DVDMode = true;
    WindowsVersion = "WINDOWS XP";
    type('p');
    type('r');
    type('f');
    EXPECT_THAT(bench.asked(), ElementsAre("frmDVD Pause", "frmDVD PlayPrevChapter", "frmDVD PlayNextChapter"));
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(PanelKeys, NoOtherKeyDoesAnything)
{
    full().Paused = 1;
    PanelUp = false;
    panel().SetFocus();
    PanelUp = false;
    const std::string known = "123456789lprf";
    for (int code = -1; code < 300; ++code) {
        if (code > 0 && known.find(static_cast<char>(code)) != std::string::npos && code < 128)
            continue;
        type(code);
        EXPECT_THAT(commands(), IsEmpty()) << code;
        EXPECT_FALSE(FastForward || FastRewind || PanelUp) << code;
        EXPECT_EQ(activeForm(), &panel()) << code;
    }
    for (const int code : {65585, -2147483647, 2147483647, 0x1F4A9}) {
        type(code);
        EXPECT_EQ(activeForm(), &panel()) << code;
    }
    EXPECT_EQ(full().Paused, 1);
}

} // namespace tandrel::test
