// What the panel shows under the pointer, and what keeps it up.

#include "panel_bench.h"

namespace tandrel::test
{

using ::testing::ElementsAre;

namespace
{

class PanelHover : public PanelBench
{
protected:
    PanelHover() { fullScreen(); }

    /// Play, Pause, Rewind, Forward, leave full screen, disc, volume.
    std::vector<Image*> buttons()
    {
        return {&panel().imgPlay,   &panel().imgPause, &panel().imgRwd,      &panel().imgFwd,
                &panel().imgNoFull, &panel().imgDVD,   &panel().imgVolButton};
    }
    std::vector<Text> pictures()
    {
        std::vector<Text> all;
        for (const Image* button : buttons())
            all.push_back(button->picture());
        return all;
    }
    /// All of them lit, which no movement of the pointer could do.
    void lightAll()
    {
        for (Image* button : buttons())
            button->Picture = "lit";
    }
    void moveOver(Control& control) { control.userMouseMove({}); }
    static std::vector<Text> atRest() { return {"panel_play", "panel_pause", "", "", "", "panel_disc", ""}; }
};

} // namespace

TEST_F(PanelHover, AtRestSomeHaveNoPictureOfTheirOwn) { EXPECT_EQ(pictures(), atRest()); }

TEST_F(PanelHover, EachOfFiveLightsUpAndPutsAllOthersToRest)
{
    const std::vector<Text> lit{"panel_play_on", "panel_pause_on", "panel_rewind_on", "panel_forward_on",
                                "panel_windowed_on"};
    for (std::size_t index = 0; index < lit.size(); ++index) {
        lightAll();
        moveOver(*buttons()[index]);
        std::vector<Text> expected = atRest();
        expected[index] = lit[index];
        EXPECT_EQ(pictures(), expected);
    }
}

TEST_F(PanelHover, TheDiscAndTheVolumeChangeTheirOwnPictureOnly)
{
    moveOver(panel().imgPlay);
    moveOver(panel().imgDVD);
    EXPECT_THAT(pictures(), ElementsAre("panel_play_on", "panel_pause", "", "", "", "panel_disc_on", ""));
    moveOver(panel().imgVolButton);
    EXPECT_THAT(pictures(), ElementsAre("panel_play_on", "panel_pause", "", "", "", "panel_disc_on", "panel_sound_on"));
}

TEST_F(PanelHover, WhileItIsMutedTheVolumeSaysSoLitAndAtRest)
{
    panel().MuteMemory = 50;
    moveOver(panel().imgVolButton);
    EXPECT_EQ(panel().imgVolButton.picture(), "panel_muted_on");
    moveOver(panel().imgPlay);
    EXPECT_EQ(panel().imgVolButton.picture(), "panel_muted");
    panel().MuteMemory = 0;
    moveOver(panel().picMain);
    EXPECT_EQ(panel().imgVolButton.picture(), "");
}

TEST_F(PanelHover, BetweenTheButtonsAllAreAtRest)
{
    for (const auto& move : std::vector<std::function<void()>>{
             [this] { moveOver(panel().picMain); }, [this] { panel().MouseMove({}); },
             [this] { moveOver(panel().imgMoveUp); }, [this] { moveOver(panel().lblTitle); },
             [this] { moveOver(panel().lblCurrent); }, [this] { panel().MouseLeave(); }}) {
        lightAll();
        move();
        EXPECT_EQ(pictures(), atRest());
    }
}

TEST_F(PanelHover, EveryMoveOverThePanelKeepsItUp)
{
    for (Control* control : panel().controls()) {
        panel().PanelIdle = true;
        moveOver(*control);
        EXPECT_FALSE(panel().PanelIdle) << control->name();
    }
    panel().PanelIdle = true;
    panel().MouseMove({});
    EXPECT_FALSE(panel().PanelIdle);
}

TEST_F(PanelHover, EveryPressOnThePanelKeepsItUp)
{
    for (Control* control : panel().controls()) {
        panel().PanelIdle = true;
        control->userMouseDown({mouse::kLeft, 0, 0, 0});
        EXPECT_FALSE(panel().PanelIdle) << control->name();
    }
    panel().PanelIdle = true;
    panel().userMouseDown({mouse::kLeft, 0, 0, 0});
    EXPECT_FALSE(panel().PanelIdle);
}

TEST_F(PanelHover, ThePointerThatLeavesDoesNotKeepItUp)
{
    panel().PanelIdle = true;
    panel().MouseLeave();
    EXPECT_TRUE(panel().PanelIdle);
}

TEST_F(PanelHover, EachButtonHasABorderWhileTheLeftButtonIsDownOnIt)
{
    for (Image* button : buttons()) {
        button->userMouseDown({mouse::kLeft, 0, 0, 0});
        EXPECT_EQ(button->borderStyle(), 1) << button->name();
        button->userMouseUp({mouse::kLeft, 0, 0, 0});
        EXPECT_EQ(button->borderStyle(), 0) << button->name();
        button->userMouseDown({mouse::kRight, 0, 0, 0});
        EXPECT_EQ(button->borderStyle(), 0) << button->name();
    }
}

} // namespace tandrel::test
