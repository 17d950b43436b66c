// What assistive technology is told of controls, windows and menus, and what it can do with them.

#include "widget_bench.h"

#include "toolkit/file_list_box.h"
#include "toolkit/menu.h"

#include <QAccessible>
#include <QDialog>
#include <QMenu>
#include <QTimer>

#include <limits>

namespace tandrel::test
{

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

namespace
{

class SpokenDesk : public Form
{
public:
    SpokenDesk() : Form("desk", Frame::Dialog, {1500, 1500, 9000, 4500})
    {
        Caption = "Desk";
        image.ToolTip = "Play";
        image.Click = [this] { events.push_back("image"); };
        image.MouseDown = [this](const MouseEvent&) { events.push_back("down"); };
        twin.ToolTip = "Play";
        twin.silent = true;
        twin.Click = [] {};
        check.Click = [this] { events.push_back("check " + text(check.Value())); };
        time.Spoken = "Place";
        slider.Spoken = "Volume";
        slider.Scroll = [this] { events.push_back("scroll " + text(slider.Value())); };
        slider.Click = [this] { events.push_back("slider"); };
        button.Click = [this] { events.push_back("button"); };
        strip.Spoken = "Strip";
        strip.Click = [] {};
        strip.spokenValue = {[this] { return place; }, [] { return 500.0; }, [this](double value) { place = value; }};
        combo.Spoken = "Language";
        combo.AddItem("English");
    }

    Image picture{*this, "picture", {0, 0, 300, 300}, "line"};
    Image image{*this, "image", {300, 0, 300, 300}, "play"};
    Image twin{*this, "twin", {300, 0, 300, 300}, "play"};
    Image strip{*this, "strip", {600, 0, 900, 300}, "line"};
    Label surface{*this, "surface", {0, 0, 300, 300}};
    Label time{*this, "time", {0, 600, 1500, 300}, "0:01"};
    CheckBox check{*this, "check", {0, 900, 1500, 300}, "&On"};
    CommandButton button{*this, "button", {0, 1200, 1500, 400}, "&Go"};
    Slider slider{*this, "slider", {0, 1800, 3000, 300}, false};
    ComboBox combo{*this, "combo", {0, 2400, 3000, 400}};
    GroupBox group{*this, "group", {4500, 0, 3000, 3000}, " Files "};
    double place = 100;
    std::vector<std::string> events;

    Menu head{*this, "head"};
    Menu first{head, "first", "&First"};
    Menu below{head, "below", "&Below"};
    Menu second{below, "second", "&Second"};
};

class Accessible : public WidgetBench
{
protected:
    Accessible() { desk->Show(); }

    QAccessibleInterface* the(const char* name) const
    {
        return QAccessible::queryAccessibleInterface(named(*desk, name));
    }
    static std::string nameOf(QAccessibleInterface* face) { return face->text(QAccessible::Name).toStdString(); }
    static bool act(QAccessibleInterface* face, const QString& action)
    {
        if (!face->actionInterface() || !face->actionInterface()->actionNames().contains(action))
            return false;
        face->actionInterface()->doAction(action);
        return true;
    }
    /// Not even when what an action has put off is done: all that was put off before this comes before it.
    bool nothingHappens()
    {
        bool done = false;
        QTimer::singleShot(0, [&] { done = true; });
        return within(5000, [&] { return done; }) && desk->events.empty();
    }
    static const QString& press() { return QAccessibleActionInterface::pressAction(); }

    std::shared_ptr<SpokenDesk> desk = std::make_shared<SpokenDesk>();
};

} // namespace

TEST_F(Accessible, ControlsHaveNamesAndRoles)
{
    const auto expect = [this](const char* control, QAccessible::Role role, const char* name) {
        EXPECT_EQ(the(control)->role(), role) << control;
        EXPECT_EQ(nameOf(the(control)), name) << control;
    };
    expect("image", QAccessible::Button, "Play");
    expect("time", QAccessible::StaticText, "0:01");
    expect("check", QAccessible::CheckBox, "On");
    expect("button", QAccessible::Button, "Go");
    expect("slider", QAccessible::Slider, "Volume");
    expect("strip", QAccessible::Slider, "Strip");
    EXPECT_EQ(the("combo")->role(), QAccessible::ComboBox);
    EXPECT_EQ(the("combo")->text(QAccessible::Description), "Language") << "its entry is the name";
    expect("group", QAccessible::Grouping, "Files");
    EXPECT_EQ(the("time")->text(QAccessible::Description), "Place") << "its own text is the name";
    desk->time.Caption = "0:02";
    EXPECT_EQ(nameOf(the("time")), "0:02");
    desk->time.Caption = "Dawn & dusk";
    EXPECT_EQ(nameOf(the("time")), "Dawn & dusk");
    desk->time.Caption = "";
    EXPECT_EQ(nameOf(the("time")), "") << "what it would tell is no name";
}

TEST_F(Accessible, WhatIsThereForTheEyeAloneHasNoNameAndCannotBePressed)
{
    for (const char* control : {"picture", "surface", "twin"}) {
        EXPECT_EQ(the(control)->role(), QAccessible::Client) << control;
        EXPECT_EQ(nameOf(the(control)), "") << control;
        EXPECT_FALSE(act(the(control), press())) << control;
    }
}

TEST_F(Accessible, AFormIsADialogOrAWindowByItsTitle)
{
    QAccessibleInterface* form = QAccessible::queryAccessibleInterface(windowOf(*desk));
    EXPECT_EQ(form->role(), QAccessible::Dialog);
    EXPECT_EQ(nameOf(form), "Desk");
    const auto video = std::make_shared<Form>("video", Frame::Video, TwipsRect{0, 0, 6000, 3000});
    video->Caption = "§/films/a film.mp4";
    video->Show();
    QAccessibleInterface* window = QAccessible::queryAccessibleInterface(windowOf(*video));
    EXPECT_EQ(window->role(), QAccessible::Window);
    EXPECT_EQ(nameOf(window), "a film.mp4") << "a path is for handlers";
}

TEST_F(Accessible, APressOfAnImageIsAClick)
{
    EXPECT_TRUE(act(the("image"), press()));
    EXPECT_THAT(desk->events, IsEmpty()) << "whoever asks does not wait for what comes of it";
    EXPECT_TRUE(within(5000, [this] { return desk->events.size() == 2; }));
    EXPECT_THAT(desk->events, ElementsAre("down", "image"));
    desk->image.Enabled = false;
    EXPECT_FALSE(act(the("image"), press()));
}

TEST_F(Accessible, WhatLiesBehindAMessageIsOutOfReach)
{
    QDialog message;
    message.setModal(true);
    message.show();
    EXPECT_TRUE(act(the("image"), press()));
    act(the("check"), QAccessibleActionInterface::toggleAction());
    act(the("button"), press());
    the("slider")->valueInterface()->setCurrentValue(7);
    EXPECT_TRUE(nothingHappens());
    message.hide();
    EXPECT_TRUE(act(the("image"), press()));
    EXPECT_TRUE(within(5000, [this] { return desk->events.size() >= 2; }));
    EXPECT_THAT(desk->events, ElementsAre("down", "image"));
}

TEST_F(Accessible, WhatLiesBehindAMenuIsOutOfReach)
{
    QMenu menu;
    menu.addAction(QStringLiteral("entry"));
    menu.popup({0, 0});
    ASSERT_TRUE(act(the("image"), press()));
    EXPECT_TRUE(nothingHappens());
    menu.hide();
}

TEST_F(Accessible, WhatIsNotThereCannotBePressed)
{
    desk->image.Visible = false;
    desk->button.Visible = false;
    desk->slider.Visible = false;
    act(the("image"), press());
    act(the("button"), press());
    the("slider")->valueInterface()->setCurrentValue(7);
    EXPECT_TRUE(nothingHappens());
}

TEST_F(Accessible, APressThatEndsItsFormDoesNoHarm)
{
    desk->image.MouseDown = [this](const MouseEvent&) { unload(*desk); };
    EXPECT_TRUE(act(the("image"), press()));
    EXPECT_TRUE(within(5000, [this] { return desk->isDead(); }));
    QApplication::processEvents();
    EXPECT_THAT(desk->events, Not(Contains("image")));
}

TEST_F(Accessible, ATickIsHeardAndSeen)
{
    EXPECT_FALSE(the("check")->state().checked);
    EXPECT_TRUE(act(the("check"), QAccessibleActionInterface::toggleAction()));
    EXPECT_TRUE(within(5000, [this] { return desk->check.Value() == 1; }));
    EXPECT_TRUE(the("check")->state().checked);
    EXPECT_THAT(desk->events, ElementsAre("check 1"));
}

TEST_F(Accessible, ASliderTellsItsValueAndTakesAnother)
{
    QAccessibleValueInterface* value = the("slider")->valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->currentValue().toDouble(), 0);
    EXPECT_EQ(value->minimumValue().toDouble(), 0);
    EXPECT_EQ(value->maximumValue().toDouble(), 100);
    value->setCurrentValue(70);
    EXPECT_TRUE(within(5000, [this] { return desk->slider.Value() == 70; }));
    EXPECT_THAT(desk->events, ElementsAre("scroll 70", "slider")) << "as by a key";
    EXPECT_TRUE(act(the("slider"), QAccessibleActionInterface::increaseAction()));
    EXPECT_TRUE(within(5000, [this] { return desk->slider.Value() == 71; }));
    EXPECT_TRUE(act(the("slider"), QAccessibleActionInterface::decreaseAction()));
    EXPECT_TRUE(within(5000, [this] { return desk->slider.Value() == 70; }));
    value->setCurrentValue(1000);
    EXPECT_TRUE(within(5000, [this] { return desk->slider.Value() == 100; })) << "no further than it goes";
    value->setCurrentValue(std::numeric_limits<double>::quiet_NaN());
    value->setCurrentValue(-std::numeric_limits<double>::infinity());
    EXPECT_TRUE(within(5000, [this] { return desk->slider.Value() == 0; }));
    EXPECT_EQ(desk->events.back(), "slider");
}

TEST_F(Accessible, AnImageMayHaveAValue)
{
    QAccessibleValueInterface* value = the("strip")->valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->currentValue().toDouble(), 100);
    EXPECT_EQ(value->maximumValue().toDouble(), 500);
    value->setCurrentValue(250);
    EXPECT_TRUE(within(5000, [this] { return desk->place == 250; }));
    EXPECT_EQ(the("image")->valueInterface(), nullptr);
}

TEST_F(Accessible, AMenuIsPartOfTheProgramWhileItIsUp)
{
    QAccessibleInterface* program = QAccessible::queryAccessibleInterface(qApp);
    ASSERT_NE(program, nullptr);
    EXPECT_EQ(program->role(), QAccessible::Application);
    const auto menuOf = [&]() -> QAccessibleInterface* {
        for (int index = 0; index < program->childCount(); ++index)
            if (program->child(index)->role() == QAccessible::PopupMenu)
                return program->child(index);
        return nullptr;
    };
    EXPECT_EQ(menuOf(), nullptr);
    Meanwhile user([&] {
        QAccessibleInterface* menu = menuOf();
        if (!menu)
            return false;
        EXPECT_EQ(program->indexOfChild(menu) >= 0, true);
        EXPECT_EQ(nameOf(menu->child(0)), "First");
        EXPECT_TRUE(act(menu->child(0), press()));
        return true;
    });
    EXPECT_EQ(qt.popUp(desk->head), &desk->first) << "the menu goes with the choice";
    EXPECT_TRUE(user.isDone());
    EXPECT_EQ(menuOf(), nullptr);
}

TEST_F(Accessible, AnEntryOfASubmenuIsChosenToo)
{
    Meanwhile user([&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu)
            return false;
        QAccessibleInterface* below = QAccessible::queryAccessibleInterface(menu->actions().at(1)->menu());
        EXPECT_TRUE(act(below->child(0), press()));
        return true;
    });
    EXPECT_EQ(qt.popUp(desk->head), &desk->second);
}

TEST_F(Accessible, AWidgetWithoutItsControlSaysNothing)
{
    QWidget* widget = named(*desk, "slider");
    QAccessibleInterface* face = the("slider");
    EXPECT_EQ(nameOf(face), "Volume");
    desk->slider.detach();
    EXPECT_EQ(QAccessible::queryAccessibleInterface(widget)->role(), QAccessible::Client);
    EXPECT_EQ(nameOf(QAccessible::queryAccessibleInterface(widget)), "");
}

} // namespace tandrel::test
