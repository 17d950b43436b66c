// Keys that stand for commands: how they are told of, which controls go first, and where they are shown.

#include "widget_bench.h"

#include "console/frm_media.h"
#include "console/holders.h"
#include "toolkit/menu.h"
#include "toolkit/qt/key_strokes.h"

#include <QMenu>

#include <set>

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

class Keyboard : public Form
{
public:
    Keyboard() : Form("keyboard", Frame::Dialog, {1500, 1500, 6000, 3000})
    {
        image.tabStop = true;
        image.Click = [] {};
        image.ToolTip = "Play";
        last.isCancel = true;
        last.Click = [this] { events.push_back("last"); };
        slider.Scroll = [this] { events.push_back("scroll"); };
        Shortcut = [this](const KeyStroke& key) {
            events.push_back((key.repeats ? "held " : "") + key.name);
            return takes;
        };
        KeyPress = [this](int code) { events.push_back("press " + std::to_string(code)); };
    }

    Image image{*this, "image", {300, 150, 450, 450}, "close"};
    Slider slider{*this, "slider", {150, 1800, 3000, 300}, false};
    CommandButton last{*this, "last", {2250, 150, 900, 450}, "Last"};
    Menu popup{*this, "popup", "Popup"};
    Menu entry{popup, "entry", "&One"};
    Menu plain{popup, "plain", "T&wo"};
    bool takes = true;
    std::vector<std::string> events;
};

class Shortcuts : public WidgetBench
{
protected:
    Shortcuts() { keyboard->Show(); }
    QWidget* the(const char* name) const { return named(*keyboard, name); }
    std::vector<std::string> happened() { return std::exchange(keyboard->events, {}); }
    static void send(QWidget* widget, int key, Qt::KeyboardModifiers held, const QString& text = {})
    {
        QKeyEvent event(QEvent::KeyPress, key, held, text);
        QApplication::sendEvent(widget, &event);
    }
    std::shared_ptr<Keyboard> keyboard = std::make_shared<Keyboard>();
};

Text nameOfKey(int key, Qt::KeyboardModifiers held = Qt::NoModifier)
{
    return strokeOf(QKeyEvent(QEvent::KeyPress, key, held)).name;
}

} // namespace

TEST_F(Shortcuts, KeysHaveTheNamesThatAreWrittenDown)
{
    EXPECT_EQ(nameOfKey(Qt::Key_L), "L");
    EXPECT_EQ(nameOfKey(Qt::Key_7), "7");
    EXPECT_EQ(nameOfKey(Qt::Key_7, Qt::KeypadModifier), "7");
    EXPECT_EQ(nameOfKey(Qt::Key_Plus, Qt::ShiftModifier), "Plus");
    EXPECT_EQ(nameOfKey(Qt::Key_Comma), "Comma");
    EXPECT_EQ(nameOfKey(Qt::Key_F11), "F11");
    EXPECT_EQ(nameOfKey(Qt::Key_F24, Qt::ShiftModifier), "Shift+F24");
    EXPECT_EQ(nameOfKey(Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier), "Ctrl+Shift+O");
    EXPECT_EQ(nameOfKey(Qt::Key_X, Qt::AltModifier | Qt::MetaModifier), "Alt+Meta+X");
    EXPECT_EQ(nameOfKey(Qt::Key_Tab, Qt::ControlModifier), "Ctrl+Tab");
    EXPECT_EQ(nameOfKey(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier), "Ctrl+Shift+Tab");
    EXPECT_EQ(nameOfKey(Qt::Key_Odiaeresis), "\xC3\x96");
    EXPECT_EQ(nameOfKey(Qt::Key_Enter, Qt::KeypadModifier), "Enter");
}

TEST_F(Shortcuts, WhatIsNoKeyByItselfHasNoName)
{
    for (const int key : std::initializer_list<int>{Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt, Qt::Key_CapsLock,
                                                    Qt::Key_unknown, 0, 7})
        EXPECT_EQ(nameOfKey(key), "") << key;
}

TEST_F(Shortcuts, EveryNamedKeyIsOneOfTheKeyboards)
{
    std::set<Text> found;
    for (int key = 1; key < 256; ++key)
        found.insert(nameOfKey(key, Qt::ControlModifier));
    for (int key = Qt::Key_Escape; key <= Qt::Key_F24; ++key)
        found.insert(nameOfKey(key, Qt::ControlModifier));
    for (const NamedKey& key : namedKeys())
        EXPECT_TRUE(found.contains(Text("Ctrl+") + key.name)) << key.name;
}

TEST_F(Shortcuts, TheFormHearsThemFromItsWindowAndFromItsControls)
{
    for (QWidget* widget : {windowOf(*keyboard), the("image"), the("slider"), the("last")})
        send(widget, Qt::Key_P, Qt::NoModifier, "p");
    EXPECT_THAT(happened(), ElementsAre("P", "P", "P", "P"));
}

TEST_F(Shortcuts, AControlThatHasAUseForAKeyGoesFirst)
{
    send(the("slider"), Qt::Key_Right, Qt::NoModifier);
    EXPECT_THAT(happened(), ElementsAre("scroll"));
    send(the("image"), Qt::Key_Space, Qt::NoModifier, " ");
    EXPECT_THAT(happened(), IsEmpty());
}

TEST_F(Shortcuts, WhatIsNotTakenGoesOn)
{
    keyboard->takes = false;
    send(windowOf(*keyboard), Qt::Key_Escape, Qt::NoModifier);
    EXPECT_THAT(happened(), ElementsAre("Escape", "last"));
    send(windowOf(*keyboard), Qt::Key_P, Qt::NoModifier, "p");
    EXPECT_THAT(happened(), ElementsAre("P", "press 112"));
    keyboard->takes = true;
    send(windowOf(*keyboard), Qt::Key_Escape, Qt::NoModifier);
    EXPECT_THAT(happened(), ElementsAre("Escape"));
}

TEST_F(Shortcuts, WithCtrlAltOrMetaNothingIsTyped)
{
    keyboard->takes = false;
    send(windowOf(*keyboard), Qt::Key_1, Qt::ControlModifier, "1");
    send(windowOf(*keyboard), Qt::Key_P, Qt::AltModifier, "p");
    send(windowOf(*keyboard), Qt::Key_L, Qt::MetaModifier, "l");
    EXPECT_THAT(happened(), ElementsAre("Ctrl+1", "Alt+P", "Meta+L"));
    send(windowOf(*keyboard), Qt::Key_P, Qt::ShiftModifier, "P");
    EXPECT_THAT(happened(), ElementsAre("Shift+P", "press 80"));
}

TEST_F(Shortcuts, LettersOfEveryScriptHaveTheNamesOfTheirCapitals)
{
    EXPECT_EQ(nameOfKey(0x141), keyNamed("ł"));
    EXPECT_EQ(nameOfKey(0x15E), keyNamed("ş"));
    EXPECT_EQ(nameOfKey(0x416), keyNamed("ж"));
    EXPECT_EQ(nameOfKey(0x39B), keyNamed("λ"));
    EXPECT_EQ(nameOfKey(Qt::Key_ydiaeresis), keyNamed("ÿ"));
}

TEST_F(Shortcuts, AHeldKeyIsToldAsOne)
{
    pressKey(windowOf(*keyboard), Qt::Key_P, true);
    EXPECT_THAT(happened(), ElementsAre("held P"));
}

TEST_F(Shortcuts, TheCommandMayEndTheForm)
{
    keyboard->Shortcut = [this](const KeyStroke&) {
        unload(*keyboard);
        return true;
    };
    send(windowOf(*keyboard), Qt::Key_P, Qt::NoModifier, "p");
    EXPECT_FALSE(keyboard->isLoaded());
}

TEST_F(Shortcuts, TheTipShowsTheKeyAndTheNameDoesNot)
{
    EXPECT_EQ(the("image")->toolTip(), "Play");
    keyboard->image.setShortcut("L, Ctrl+L");
    EXPECT_TRUE(the("image")->toolTip().contains("Play (L, Ctrl+L)")) << the("image")->toolTip().toStdString();
    EXPECT_EQ(the("image")->accessibleName(), "Play");
    keyboard->image.ToolTip = "";
    EXPECT_TRUE(the("image")->toolTip().contains("L, Ctrl+L"));
    EXPECT_FALSE(the("image")->toolTip().contains("("));
}

TEST_F(Shortcuts, AMenuShowsTheKeysOfItsEntriesAndComesUpWhereItIsToldTo)
{
    keyboard->entry.shortcut = "Ctrl+O";
    QStringList texts;
    QPoint place;
    const Meanwhile look([&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (menu == nullptr)
            return false;
        for (const QAction* action : menu->actions())
            texts += action->text();
        place = menu->pos();
        menu->close();
        return true;
    });
    qt.withMenusAt({40, 60}, [this] { PopupMenu(keyboard->popup); });
    EXPECT_THAT(texts, ElementsAre("&One\tCtrl+O", "T&wo"));
    EXPECT_EQ(place, QPoint(40, 60));
}

TEST_F(Shortcuts, TheConsoleHearsKeysThroughItsWindow)
{
    world.settled();
    frmMedia().Show();
    int clicks = 0;
    frmMedia().imgMute.Click = [&] { ++clicks; };
    send(windowOf(frmMedia()), Qt::Key_M, Qt::NoModifier, "m");
    send(named(frmMedia(), "imgOpen"), Qt::Key_M, Qt::NoModifier, "m");
    EXPECT_EQ(clicks, 2);
    send(windowOf(frmMedia()), Qt::Key_M, Qt::ControlModifier, {});
    EXPECT_EQ(clicks, 2);
}

} // namespace tandrel::test
