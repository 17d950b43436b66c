// The rules of controls: what sets off what.

#include "fake_services.h"

#include "toolkit/form.h"
#include "toolkit/press.h"

#include <gmock/gmock.h>

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

class Board : public Form
{
public:
    Board() : Form("board", Frame::Dialog, {0, 0, 6000, 3000})
    {
        button.Click = [this] { events.push_back("click"); };
        check.Click = [this] { events.push_back("check " + text(check.Value())); };
        slider.Scroll = [this] { events.push_back("scroll " + text(slider.Value())); };
        slider.Change = [this] { events.push_back("change " + text(slider.Value())); };
        slider.MouseUp = [this](const MouseEvent&) { events.push_back("mouse-up"); };
        slider.Click = [this] { events.push_back("click"); };
        box.Resize = [this] { events.push_back("box resize"); };
    }

    CommandButton button{*this, "button", {0, 0, 900, 300}, "Go"};
    CheckBox check{*this, "check", {0, 0, 900, 300}, "On"};
    Slider slider{*this, "slider", {0, 0, 3000, 300}, false};
    PictureBox box{*this, "box", {0, 0, 900, 900}};
    ListBox list;
    std::vector<std::string> events;
};

class Controls : public ::testing::Test
{
protected:
    Controls() { board->load(); }
    World world;
    std::shared_ptr<Board> board = std::make_shared<Board>();
};

} // namespace

TEST_F(Controls, SettingAButtonsValuePressesItAtOnceEvenHiddenAndDisabled)
{
    board->button.Visible = false;
    board->button.Enabled = false;
    board->button.Value = true;
    EXPECT_THAT(board->events, ElementsAre("click"));
    board->button.Value = false;
    EXPECT_THAT(board->events, ElementsAre("click"));
    EXPECT_FALSE(board->button.Value);
}

TEST_F(Controls, ABoxClicksWhenItsValueChanges)
{
    board->check.Value = 1;
    board->check.Value = 1;
    board->check.userClick();
    EXPECT_THAT(board->events, ElementsAre("check 1", "check 0"));
}

TEST_F(Controls, ABoxCanBeSetInsideItsOwnClick)
{
    board->check.Click = [this] {
        board->events.push_back("check " + text(board->check.Value()));
        if (board->check.Value() == 1)
            board->check.Value = 0;
    };
    board->check.userClick();
    EXPECT_THAT(board->events, ElementsAre("check 1", "check 0"));
}

TEST_F(Controls, ASliderChangesOnlyToAnotherValueWithinItsBounds)
{
    board->slider.Value = 0;
    EXPECT_THAT(board->events, IsEmpty());
    board->slider.Value = 40;
    board->slider.Value = 40;
    board->slider.Value = 250;
    board->slider.Value = -5;
    EXPECT_THAT(board->events, ElementsAre("change 40", "change 100", "change 0"));
}

TEST_F(Controls, ASlidersBoundsPullItsValueIn)
{
    board->slider.Value = 80;
    board->events.clear();
    board->slider.Max = 50;
    EXPECT_EQ(board->slider.Value, 50);
    board->slider.Min = 60;
    EXPECT_THAT(board->events, ElementsAre("change 50", "change 60"));
}

TEST_F(Controls, DraggingScrollsAndTheReleaseEndsWithAClick)
{
    board->slider.userScroll(10);
    board->slider.userScroll(10);
    board->slider.userMouseUp({mouse::kLeft, 0, 0, 0});
    EXPECT_THAT(board->events, ElementsAre("change 10", "scroll 10", "scroll 10", "mouse-up", "click"));
}

TEST_F(Controls, KeysWheelAndPagesScrollAndEndWithAClick)
{
    board->slider.userStep(20);
    EXPECT_THAT(board->events, ElementsAre("change 20", "scroll 20", "click"));
}

TEST_F(Controls, ABoxTellsANewSizeInsideTheSetter)
{
    board->box.Left = 300;
    board->box.Width = 900;
    EXPECT_THAT(board->events, IsEmpty());
    board->box.Height = 600;
    EXPECT_THAT(board->events, ElementsAre("box resize"));
}

TEST_F(Controls, AListIsReadAndCutByIndex)
{
    board->list.AddItem("a");
    board->list.AddItem("b");
    board->list.RemoveItem(0);
    EXPECT_EQ(board->list.ListCount(), 1);
    EXPECT_EQ(board->list.List(0), "b");
    EXPECT_EQ(board->list.List(5), "");
    EXPECT_THROW(board->list.RemoveItem(1), RuntimeError);
}

TEST_F(Controls, ASpentPressCountsForNothingUntilItsReleaseWasSeen)
{
    world.pointer.right = true;
    EXPECT_TRUE(buttonIsDown(MouseButton::Right));
    spendPress(MouseButton::Right);
    EXPECT_FALSE(buttonIsDown(MouseButton::Right));
    EXPECT_FALSE(buttonIsDown(MouseButton::Left));
    world.pointer.right = false;
    EXPECT_FALSE(buttonIsDown(MouseButton::Right));
    world.pointer.right = true;
    EXPECT_TRUE(buttonIsDown(MouseButton::Right));
}

TEST_F(Controls, ASpentPressThatArrivesLateIsNoNewOne)
{
    world.pointer.right = true;
    world.pointer.aheadOfWindows = true;
    EXPECT_TRUE(buttonIsDown(MouseButton::Right));
    spendPress(MouseButton::Right);
    pressArrives(MouseButton::Right);
    EXPECT_FALSE(buttonIsDown(MouseButton::Right));
    pressArrives(MouseButton::Right);
    EXPECT_TRUE(buttonIsDown(MouseButton::Right)) << "the next one";
}

TEST_F(Controls, APressThatArrivesBeforeItIsSpentIsOverWithTheNext)
{
    world.pointer.right = true;
    EXPECT_TRUE(buttonIsDown(MouseButton::Right));
    spendPress(MouseButton::Right);
    EXPECT_FALSE(buttonIsDown(MouseButton::Right));
    pressArrives(MouseButton::Right);
    EXPECT_TRUE(buttonIsDown(MouseButton::Right));
}

TEST_F(Controls, AControlsHandlerMayEndItsForm)
{
    board->button.Click = [this] { unload(*board); };
    board->button.userClick();
    EXPECT_FALSE(board->isLoaded());
}

} // namespace tandrel::test
