// A window's style words, its own menu, its opacity, and what its slider is painted on.

#include "fake_services.h"

#include "desktop/layered.h"
#include "desktop/slider_background.h"
#include "desktop/window_style.h"
#include "toolkit/activation.h"

#include <gmock/gmock.h>

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

class Plain : public Form
{
public:
    Plain() : Form("plain", Frame::Video, {0, 0, 3000, 1500}) {}
    Slider slider{*this, "slider", {0, 0, 300, 300}, false};
    Slider other{*this, "other", {0, 0, 300, 300}, false};
};

class WindowFrame : public ::testing::Test
{
protected:
    WindowFrame()
    {
        world.backend.windows = true;
        form->Show();
        style.Client = form.get();
        world.journal.clear();
    }
    bool hasBit(int word, int bit) const { return (form->windowWord(word) & bit) == bit; }

    World world;
    std::shared_ptr<Plain> form = newForm<Plain>();
    clsStyle style;
};

} // namespace

TEST_F(WindowFrame, FlagsBeginFalse)
{
    EXPECT_FALSE(style.AutoDrag);
    EXPECT_FALSE(style.AutoSysMenu);
    EXPECT_EQ(style.Client(), form.get());
    EXPECT_EQ(style.hwnd(), form->hWnd());
}

TEST_F(WindowFrame, EachPropertyGovernsItsBit)
{
    const auto check = [&](auto& property, int word, int bit, const char* name) {
        for (const bool on : {true, false, true}) {
            property = on;
            EXPECT_EQ(hasBit(word, bit), on) << name;
            EXPECT_EQ(property(), on) << name;
        }
    };
    check(style.ControlBox, style::kWord, 524288, "ControlBox");
    check(style.MaxButton, style::kWord, 65536, "MaxButton");
    check(style.MinButton, style::kWord, 131072, "MinButton");
    check(style.Sizable, style::kWord, 262144, "Sizable");
    check(style.Titlebar, style::kWord, 12582912, "Titlebar");
    check(style.ToolWindow, style::kExtendedWord, 128, "ToolWindow");
    check(style.TopMost, style::kExtendedWord, 8, "TopMost");
    check(style.WhatsThisButton, style::kExtendedWord, 1024, "WhatsThisButton");
}

TEST_F(WindowFrame, OneBitLeavesTheOthers)
{
    const std::int32_t before = form->windowWord(style::kWord);
    style.MaxButton = true;
    EXPECT_EQ(form->windowWord(style::kWord), before | 65536);
    style.MaxButton = false;
    EXPECT_EQ(form->windowWord(style::kWord), before);
}

TEST_F(WindowFrame, AChangeShowsAtOnce)
{
    style.Titlebar = false;
    EXPECT_THAT(world.journal, ElementsAre("plain frame untitled bordered"));
    world.journal.clear();
    style.pRedraw();
    EXPECT_THAT(world.journal, ElementsAre("plain frame untitled bordered"));
}

TEST_F(WindowFrame, BorderWritesTheBitOfSizable)
{
    style.Border = false;
    EXPECT_FALSE(style.Sizable);
    style.Border = true;
    EXPECT_TRUE(style.Sizable);
}

TEST_F(WindowFrame, ReadingTheBorderSetsTheTitleBarAndSaysFalse)
{
    style.Sizable = true;
    style.Titlebar = false;
    EXPECT_FALSE(style.Border());
    EXPECT_TRUE(style.Titlebar);
    style.Sizable = false;
    EXPECT_FALSE(style.Border());
    EXPECT_FALSE(style.Titlebar);
}

TEST_F(WindowFrame, TopMostIsAskedOfTheWindowManagerAlone)
{
    style.TopMost = true;
    EXPECT_THAT(world.journal, ElementsAre("plain topmost"));
    world.journal.clear();
    style.TopMost = false;
    EXPECT_THAT(world.journal, ElementsAre("plain not topmost"));
}

TEST_F(WindowFrame, TheLeftButtonDragsWhereThatIsWanted)
{
    form->userMouseDown({mouse::kLeft, 0, 0, 0});
    style.AutoDrag = true;
    form->userMouseDown({mouse::kRight, 0, 0, 0});
    EXPECT_THAT(world.journal, IsEmpty());
    form->userMouseDown({mouse::kLeft, 0, 0, 0});
    EXPECT_THAT(world.journal, ElementsAre("plain drag"));
}

TEST_F(WindowFrame, TheRightButtonBringsTheWindowsMenuWhereThePointerIs)
{
    world.pointer.place = {77, 88};
    form->userMouseUp({mouse::kRight, 0, 0, 0});
    style.AutoSysMenu = true;
    form->userMouseUp({mouse::kLeft, 0, 0, 0});
    EXPECT_THAT(world.journal, IsEmpty());
    form->userMouseUp({mouse::kRight, 0, 0, 0});
    EXPECT_THAT(world.journal, ElementsAre("plain system menu 77,88"));
    world.journal.clear();
    style.ShowSysMenu(-3, 4);
    EXPECT_THAT(world.journal, ElementsAre("plain system menu -3,4"));
}

TEST_F(WindowFrame, TheFormsOwnHandlersRunFirst)
{
    form->MouseDown = [&](const MouseEvent&) { world.journal.push_back("handler"); };
    style.AutoDrag = true;
    form->userMouseDown({mouse::kLeft, 0, 0, 0});
    EXPECT_THAT(world.journal, ElementsAre("handler", "plain drag"));
}

TEST_F(WindowFrame, WithoutAClientNothingHappens)
{
    style.Client = nullptr;
    style.AutoDrag = true;
    style.Titlebar = false;
    style.TopMost = true;
    style.pRedraw();
    style.ShowSysMenu(1, 1);
    form->userMouseDown({mouse::kLeft, 0, 0, 0});
    EXPECT_FALSE(style.Titlebar);
    EXPECT_FALSE(style.Border());
    EXPECT_EQ(style.hwnd(), 0);
    EXPECT_THAT(world.journal, IsEmpty());
}

TEST_F(WindowFrame, AStyleThatIsGoneHearsNothing)
{
    {
        clsStyle brief;
        brief.Client = form.get();
        brief.AutoDrag = true;
    }
    form->userMouseDown({mouse::kLeft, 0, 0, 0});
    EXPECT_THAT(world.journal, IsEmpty());
}

TEST_F(WindowFrame, ALayeredFormStaysOne)
{
    SetLayered(*form, 0, 128, layered::kAlpha);
    EXPECT_TRUE(hasBit(style::kExtendedWord, 524288));
    EXPECT_THAT(world.journal, ElementsAre("plain opacity 128"));
}

TEST_F(WindowFrame, AColourKeyCutsThatColourOut)
{
    world.backend.pictures["plain"] = {3, 1, {5, 9, 5}};
    SetLayered(*form, 5, 0, layered::kColourKey);
    EXPECT_TRUE(hasBit(style::kExtendedWord, 524288));
    EXPECT_THAT(world.journal, ElementsAre("plain region of 1"));
}

TEST_F(WindowFrame, AFadeEndsOpaque)
{
    FadeWindow(*form, 40);
    FadeWindow(*form, 300);
    FadeWindow(*form, 10, 5);
    EXPECT_THAT(world.journal, ElementsAre("plain opacity 40", "plain opacity 255", "plain region of 1"));
    world.journal.clear();
    fadeIn(*form);
    EXPECT_EQ(world.journal.front(), "plain opacity 0");
    EXPECT_EQ(world.journal.back(), "plain opacity 255");
    EXPECT_TRUE(hasBit(style::kExtendedWord, 524288));
}

TEST_F(WindowFrame, OnlyTheRememberedSliderGetsTheBrush)
{
    SliderBrushDelete();
    SliderHookInstall(*form, form->slider);
    EXPECT_EQ(form->ControlColour(form->slider), std::nullopt) << "no brush yet";
    SliderBrushCreate(rgb(14, 45, 81));
    EXPECT_EQ(form->ControlColour(form->slider), Long(rgb(14, 45, 81)));
    EXPECT_EQ(form->ControlColour(form->other), std::nullopt);
    SliderBrushCreate();
    EXPECT_EQ(form->ControlColour(form->slider), Long(rgb(14, 45, 81))) << "without a colour the old brush stays";
    SliderBrushCreate(rgb(1, 2, 3));
    EXPECT_EQ(form->ControlColour(form->slider), Long(rgb(1, 2, 3)));
    SliderBrushDelete();
    EXPECT_EQ(form->ControlColour(form->slider), std::nullopt);
    SliderHookRemove(*form);
    EXPECT_FALSE(form->ControlColour);
}

} // namespace tandrel::test
