// Where the turns of the wheel go.

#include "fake_services.h"

#include "desktop/wheel.h"
#include "toolkit/controls.h"

#include <gmock/gmock.h>

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

/// 200 by 100 pixels at 100,100, with a list of 20 by 20 in its corner.
class Wheeled : public Form
{
public:
    Wheeled() : Form("wheeled", Frame::Bare, {1500, 1500, 3000, 1500}) {}
    void MouseWheel(Long keys, Long rotation, Long x, Long y) override
    {
        turns.push_back(text(keys) + " " + text(rotation) + " " + text(x) + " " + text(y));
    }
    ComboBox list{*this, "list", {0, 0, 300, 300}};
    std::vector<std::string> turns;
};

class Deaf : public Form
{
public:
    Deaf() : Form("deaf", Frame::Bare, {1500, 1500, 3000, 1500}) {}
};

class Wheel : public ::testing::Test
{
protected:
    Wheel()
    {
        world.backend.windows = true;
        form->Show();
        form->list.AddItem("one");
    }
    World world;
    std::shared_ptr<Wheeled> form = newForm<Wheeled>();
};

} // namespace

TEST_F(Wheel, ATurnOverTheFormIsItsOwn)
{
    EXPECT_TRUE(WheelWindowProc(form->hWnd(), {4, -120, 150, 160})) << "the window may act on it as well";
    EXPECT_THAT(form->turns, ElementsAre("4 -120 150 160"));
}

TEST_F(Wheel, TheEdgesBelongToTheForm)
{
    for (const PixelPoint at : {PixelPoint{100, 100}, PixelPoint{300, 200}}) {
        EXPECT_TRUE(IsPointOverWindow(form->hWnd(), at.x, at.y));
        WheelWindowProc(form->hWnd(), {0, 120, at.x, at.y});
    }
    EXPECT_EQ(form->turns.size(), 2U);
}

TEST_F(Wheel, ATurnSomewhereElseIsNot)
{
    for (const PixelPoint at : {PixelPoint{99, 150}, PixelPoint{301, 150}, PixelPoint{150, 99}, PixelPoint{150, 201}}) {
        EXPECT_FALSE(IsPointOverWindow(form->hWnd(), at.x, at.y));
        EXPECT_TRUE(WheelWindowProc(form->hWnd(), {0, 120, at.x, at.y}));
    }
    EXPECT_THAT(form->turns, IsEmpty());
}

TEST_F(Wheel, ControlsGiveTheirTurnsToTheForm)
{
    EXPECT_FALSE(WheelWindowProc(form->list.hWnd(), {1, 240, 200, 180})) << "it is used up";
    EXPECT_THAT(form->turns, ElementsAre("1 240 200 180"));
}

TEST_F(Wheel, ATurnOverTheControlItselfIsTheControls)
{
    EXPECT_TRUE(WheelWindowProc(form->list.hWnd(), {0, 120, 110, 110}));
    EXPECT_TRUE(WheelWindowProc(form->list.hWnd(), {0, 120, 500, 500})) << "neither over the form nor over the control";
    EXPECT_THAT(form->turns, IsEmpty());
}

TEST_F(Wheel, AListThatIsDownKeepsItsWheel)
{
    form->list.userDropped(true);
    EXPECT_FALSE(WheelWindowProc(form->list.hWnd(), {0, 120, 200, 180}));
    EXPECT_THAT(form->turns, IsEmpty());
    form->list.userDropped(false);
    WheelWindowProc(form->list.hWnd(), {0, 120, 200, 180});
    EXPECT_EQ(form->turns.size(), 1U);
}

TEST_F(Wheel, AnUnknownWindowIsLeftAlone)
{
    EXPECT_TRUE(WheelWindowProc(0, {0, 120, 150, 150}));
    EXPECT_TRUE(WheelWindowProc(987654, {0, 120, 150, 150}));
    EXPECT_FALSE(IsPointOverWindow(0, 150, 150));
    WheelHookInstall(987654);
    EXPECT_FALSE(hasWheelHook(987654));
    EXPECT_THAT(form->turns, IsEmpty());
}

TEST_F(Wheel, AFormWithoutAHandlerForItIsNoHarm)
{
    const auto deaf = newForm<Deaf>();
    deaf->Show();
    EXPECT_TRUE(WheelWindowProc(deaf->hWnd(), {0, 120, 150, 150}));
    EXPECT_THROW(deaf->MouseWheel(0, 0, 0, 0), RuntimeError);
}

TEST_F(Wheel, TheHookCanBeTakenBack)
{
    WheelHookInstall(form->hWnd());
    ASSERT_TRUE(hasWheelHook(form->hWnd()));
    form->WheelProcedure({0, 120, 150, 150});
    EXPECT_EQ(form->turns.size(), 1U);
    WheelHookRemove(form->hWnd());
    EXPECT_FALSE(hasWheelHook(form->hWnd()));
}

TEST_F(Wheel, AFormIsFoundByItsWindowWhileItIsLoaded)
{
    const WindowHandle window = form->hWnd();
    ASSERT_NE(window, 0U);
    EXPECT_EQ(FormOfHandle(window), form.get());
    EXPECT_EQ(FormOfHandle(window + 1000), nullptr);
    unload(*form);
    EXPECT_EQ(FormOfHandle(window), nullptr);
}

} // namespace tandrel::test
