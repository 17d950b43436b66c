// Controls under the keyboard: what Enter, Escape, Space and the arrows do.

#include "widget_bench.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

class Desk : public Form
{
public:
    Desk() : Form("desk", Frame::Dialog, {1500, 1500, 6000, 3000})
    {
        first.isDefault = true;
        last.isCancel = true;
        for (CommandButton* button : {&first, &plain, &last})
            button->Click = [this, button] { events.push_back(button->name()); };
        check.Click = [this] { events.push_back("check " + text(check.Value())); };
        combo.Click = [this] { events.push_back("combo " + text(combo.ListIndex())); };
        image.tabStop = true;
        image.MouseDown = [this](const MouseEvent& event) { events.push_back("down " + std::to_string(event.button)); };
        image.MouseUp = [this](const MouseEvent& event) { events.push_back("up " + std::to_string(event.button)); };
        image.Click = [this] { events.push_back("click"); };
        for (const char* entry : {"one", "two", "three"})
            combo.AddItem(entry);
        combo.ListIndex = 0;
        events.clear();
    }

    CommandButton first{*this, "first", {150, 150, 900, 450}, "First"};
    CommandButton plain{*this, "plain", {1200, 150, 900, 450}, "Plain"};
    CommandButton last{*this, "last", {2250, 150, 900, 450}, "Last"};
    CheckBox check{*this, "check", {150, 750, 1500, 300}, "On"};
    Image image{*this, "image", {3300, 150, 450, 450}, "close"};
    ComboBox combo{*this, "combo", {150, 1200, 2400, 450}};
    Slider slider{*this, "slider", {150, 1800, 3000, 300}, false};
    std::vector<std::string> events;
};

class Keys : public WidgetBench
{
protected:
    Keys() { desk->Show(); }
    QWidget* the(const char* name) const { return named(*desk, name); }
    std::vector<std::string> happened() { return std::exchange(desk->events, {}); }
    void giveFocus(const char* name)
    {
        ASSERT_TRUE(within(2000, [this] { return windowOf(*desk)->isActiveWindow(); }));
        the(name)->setFocus(Qt::TabFocusReason);
        ASSERT_TRUE(the(name)->hasFocus());
    }
    QComboBox* list() const { return qobject_cast<QComboBox*>(the("combo")); }
    std::shared_ptr<Desk> desk = std::make_shared<Desk>();
};

} // namespace

TEST_F(Keys, EnterPressesAButtonOnce)
{
    for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        type(the("plain"), key);
        EXPECT_THAT(happened(), ElementsAre("plain")) << "and not the default button beside it";
    }
}

TEST_F(Keys, EnterTicksABoxAndUnticksItAgain)
{
    for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        type(the("check"), key);
        type(the("check"), key);
        EXPECT_THAT(happened(), ElementsAre("check 1", "check 0"));
    }
    EXPECT_FALSE(qobject_cast<QAbstractButton*>(the("check"))->isChecked());
}

TEST_F(Keys, EnterElsewherePressesTheDefaultButtonAndEscapeTheOtherOne)
{
    for (const char* name : {"slider", "combo"}) {
        type(the(name), Qt::Key_Return);
        type(the(name), Qt::Key_Enter);
        type(the(name), Qt::Key_Escape);
        EXPECT_THAT(happened(), ElementsAre("first", "first", "last")) << name;
    }
    type(windowOf(*desk), Qt::Key_Return);
    type(windowOf(*desk), Qt::Key_Escape);
    EXPECT_THAT(happened(), ElementsAre("first", "last"));
}

TEST_F(Keys, EscapeOnAButtonPressesTheCancelButton)
{
    for (const char* name : {"plain", "check", "image"})
        type(the(name), Qt::Key_Escape);
    EXPECT_THAT(happened(), ElementsAre("last", "last", "last"));
}

TEST_F(Keys, AHiddenOrDisabledDefaultButtonIsNotPressed)
{
    desk->first.Enabled = false;
    desk->last.Visible = false;
    type(windowOf(*desk), Qt::Key_Return);
    type(windowOf(*desk), Qt::Key_Escape);
    EXPECT_THAT(happened(), IsEmpty());
}

TEST_F(Keys, SpaceAndEnterPressAnImageAsTheMouseDoes)
{
    for (const int key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        pressKey(the("image"), key);
        EXPECT_THAT(happened(), ElementsAre("down 1"));
        releaseKey(the("image"), key);
        EXPECT_THAT(happened(), ElementsAre("up 1", "click"));
    }
}

TEST_F(Keys, AHeldKeyPressesAnImageOnce)
{
    for (const int key : {Qt::Key_Space, Qt::Key_Return}) {
        pressKey(the("image"), key);
        for (int repeat = 0; repeat < 3; ++repeat) {
            releaseKey(the("image"), key, true);
            pressKey(the("image"), key, true);
        }
        EXPECT_THAT(happened(), ElementsAre("down 1")) << "nor is it an Enter for the default button";
        releaseKey(the("image"), key);
        EXPECT_THAT(happened(), ElementsAre("up 1", "click"));
    }
}

TEST_F(Keys, OtherKeysPressNoImage)
{
    type(the("image"), Qt::Key_A);
    EXPECT_THAT(happened(), IsEmpty());
}

TEST_F(Keys, AnImageThatLosesTheKeysIsLetGoWithoutAClick)
{
    giveFocus("image");
    pressKey(the("image"), Qt::Key_Space);
    giveFocus("plain");
    EXPECT_THAT(happened(), ElementsAre("down 1", "up 1"));
    releaseKey(the("image"), Qt::Key_Space);
    EXPECT_THAT(happened(), IsEmpty()) << "its press is over";
}

TEST_F(Keys, AReleaseWithoutAPressClicksNoImage)
{
    releaseKey(the("image"), Qt::Key_Space);
    EXPECT_THAT(happened(), IsEmpty());
}

TEST_F(Keys, AClickByAKeyMayEndTheForm)
{
    desk->image.Click = [this] { unload(*desk); };
    type(the("image"), Qt::Key_Return);
    EXPECT_FALSE(desk->isLoaded());
    EXPECT_THAT(happened(), ElementsAre("down 1", "up 1"));
}

// The list that drops down.

TEST_F(Keys, TheArrowsChooseInAList)
{
    type(the("combo"), Qt::Key_Down);
    type(the("combo"), Qt::Key_Down);
    EXPECT_THAT(happened(), ElementsAre("combo 1", "combo 2"));
    type(the("combo"), Qt::Key_Down);
    EXPECT_THAT(happened(), IsEmpty()) << "it was the last one";
    type(the("combo"), Qt::Key_Up);
    EXPECT_THAT(happened(), ElementsAre("combo 1"));
    EXPECT_EQ(desk->combo.listIndex(), 1);
    EXPECT_EQ(list()->currentText(), "two");
}

TEST_F(Keys, WhatTheProgramChoosesIsSeenInTheList)
{
    desk->combo.ListIndex = 2;
    EXPECT_EQ(list()->currentText(), "three");
    desk->combo.ListIndex = -1;
    EXPECT_EQ(list()->currentText(), "");
    desk->combo.AddItem("four");
    EXPECT_EQ(list()->count(), 4);
    EXPECT_EQ(list()->currentIndex(), -1) << "a new entry is not chosen by itself";
}

TEST_F(Keys, AListKnowsWhileItIsDown)
{
    EXPECT_FALSE(desk->combo.isDropped());
    press(the("combo"));
    EXPECT_TRUE(desk->combo.isDropped());
    EXPECT_TRUE(list()->view()->isVisible());
    type(list()->view(), Qt::Key_Escape);
    EXPECT_FALSE(desk->combo.isDropped());
    EXPECT_THAT(happened(), IsEmpty()) << "nothing chosen, and no cancel for the form";
    EXPECT_TRUE(desk->isLoaded());
}

TEST_F(Keys, AnEntryIsChosenByAClickInTheListThatIsDown)
{
    press(the("combo"));
    QAbstractItemView* view = list()->view();
    const QPointF at = view->visualRect(view->model()->index(2, 0)).center();
    // A press that comes right behind the one which opened the list would still be the same for it.
    ASSERT_TRUE(within(5000, [&] {
        mouseAt(view->viewport(), QEvent::MouseMove, at, Qt::NoButton);
        mouseAt(view->viewport(), QEvent::MouseButtonPress, at, Qt::LeftButton);
        mouseAt(view->viewport(), QEvent::MouseButtonRelease, at, Qt::LeftButton);
        return !desk->combo.isDropped();
    }));
    EXPECT_THAT(happened(), ElementsAre("combo 2"));
}

TEST_F(Keys, AnEntryIsChosenByEnterInTheListThatIsDown)
{
    type(the("combo"), Qt::Key_F4);
    ASSERT_TRUE(desk->combo.isDropped());
    type(list()->view(), Qt::Key_Down);
    type(list()->view(), Qt::Key_Return);
    EXPECT_FALSE(desk->combo.isDropped());
    EXPECT_THAT(happened(), ElementsAre("combo 1")) << "and no default button with it";
}

} // namespace tandrel::test
