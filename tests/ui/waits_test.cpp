// What waits for the user: boxes, menus and modal forms.

#include "widget_bench.h"

#include "toolkit/menu.h"
#include "toolkit/screen.h"

#include <QAbstractButton>
#include <QMenu>
#include <QMessageBox>

namespace tandrel::test
{

using ::testing::ElementsAre;

namespace
{

class Asking : public Form
{
public:
    Asking() : Form("asking", Frame::Dialog, {1500, 1500, 6000, 3000})
    {
        image.tabStop = true;
        image.Click = [this] { PopupMenu(head); };
        MenuKey = [this] { PopupMenu(head); };
    }
    Image image{*this, "image", {3000, 900, 450, 450}, "share"};
    Menu head{*this, "head"};
    Menu entry{head, "entry", "Entry"};
};

class Waits : public WidgetBench
{
protected:
    std::shared_ptr<Asking> form = newForm<Asking>();
};

QMessageBox* boxUp() { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()); }

/// Where the menu stood that came up meanwhile, which is closed again.
std::optional<QPoint> placeOfMenu(const std::function<void()>& bringUp)
{
    std::optional<QPoint> place;
    Meanwhile close([&] {
        QWidget* menu = QApplication::activePopupWidget();
        if (!menu || !menu->isVisible())
            return false;
        place = menu->pos();
        menu->close();
        return true;
    });
    bringUp();
    return place;
}

} // namespace

TEST_F(Waits, EscapeIsNoAnswerToAQuestion)
{
    int escapes = 0;
    Meanwhile answer([&] {
        QMessageBox* box = boxUp();
        if (!box)
            return false;
        if (++escapes < 5) {
            type(box, Qt::Key_Escape);
            box->close();
            return false;
        }
        box->button(QMessageBox::Yes)->click();
        return true;
    });
    EXPECT_EQ(qt.messageBox("Really?", BoxStyle::YesNoQuestion, "Title"), BoxAnswer::Yes);
    EXPECT_EQ(escapes, 5);
}

TEST_F(Waits, TheEndOfTheProgramClosesAQuestion)
{
    Meanwhile end([&] {
        if (!boxUp())
            return false;
        qt.endBoxes();
        return true;
    });
    EXPECT_EQ(qt.messageBox("Really?", BoxStyle::YesNoQuestion, "Title"), BoxAnswer::Cancel);
}

TEST_F(Waits, APointerStandsOverABoxWhateverTheProgramIsBusyWith)
{
    screen().MousePointer = pointer::kHourglass;
    std::optional<Qt::CursorShape> shape;
    Meanwhile answer([&] {
        QMessageBox* box = boxUp();
        if (!box)
            return false;
        shape = QGuiApplication::overrideCursor()->shape();
        box->button(QMessageBox::Ok)->click();
        return true;
    });
    qt.messageBox("Well.", BoxStyle::Information, "Title");
    EXPECT_EQ(shape, Qt::ArrowCursor);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    screen().MousePointer = pointer::kDefault;
}

TEST_F(Waits, AModalFormThatIsShownAgainEndsAllItsWaits)
{
    std::vector<std::string> events;
    Meanwhile showAgain([&] {
        if (!form->visible())
            return false;
        Meanwhile hide([&] {
            form->Hide();
            return true;
        });
        form->Show(ShowMode::Modal);
        events.push_back("inner");
        return true;
    });
    form->Show(ShowMode::Modal);
    events.push_back("outer");
    EXPECT_THAT(events, ElementsAre("inner", "outer"));
}

TEST_F(Waits, TheEndOfTheProgramHidesAModalForm)
{
    Meanwhile end([&] {
        if (!form->visible())
            return false;
        qt.endBoxes();
        return true;
    });
    form->Show(ShowMode::Modal);
    EXPECT_FALSE(form->visible());
    form->Show(ShowMode::Modal);
    EXPECT_FALSE(form->visible()) << "those to come do not wait either";
}

TEST_F(Waits, AMenuThatAKeyBringsStandsAtItsButton)
{
    form->Show();
    QWidget* image = named(*form, "image");
    image->setFocus(Qt::TabFocusReason);
    QCursor::setPos(700, 500);
    const auto place = placeOfMenu([&] { type(image, Qt::Key_Return); });
    EXPECT_EQ(place, image->mapToGlobal(QPoint(0, image->height())));
}

TEST_F(Waits, AMenuThatTheMouseBringsStandsAtThePointer)
{
    form->Show();
    QCursor::setPos(300, 200);
    EXPECT_EQ(placeOfMenu([&] { press(named(*form, "image")); }), QPoint(300, 200));
}

TEST_F(Waits, TheMenuKeyBringsTheFormsMenu)
{
    form->Show();
    QWidget* window = windowOf(*form);
    EXPECT_TRUE(placeOfMenu([&] { type(window, Qt::Key_Menu); }));
    EXPECT_TRUE(placeOfMenu([&] {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_F10, Qt::ShiftModifier);
        QApplication::sendEvent(window, &event);
    }));
}

TEST_F(Waits, ToAskAControlForItsWindowMakesNone)
{
    form->Show();
    EXPECT_EQ(form->image.hWnd(), 0U);
    EXPECT_EQ(named(*form, "image")->internalWinId(), 0U);
}

TEST_F(Waits, TouchpadsAddUpOnASliderToo)
{
    class Sliding : public Form
    {
    public:
        Sliding() : Form("sliding", Frame::Dialog, {1500, 1500, 6000, 3000}) {}
        Slider slider{*this, "slider", {0, 0, 3000, 300}, false};
    };
    const auto sliding = newForm<Sliding>();
    sliding->Show();
    sliding->slider.Value = 50;
    QWidget* widget = named(*sliding, "slider");
    for (int turn = 0; turn < 7; ++turn)
        turnWheel(widget, 15);
    EXPECT_EQ(sliding->slider.value(), 50);
    turnWheel(widget, 15);
    EXPECT_EQ(sliding->slider.value(), 45);
    turnWheel(widget, -240);
    EXPECT_EQ(sliding->slider.value(), 55);
}

} // namespace tandrel::test
