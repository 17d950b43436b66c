// Controls as widgets: found by name, clicked, dragged, typed on.

#include "widget_bench.h"

#include "toolkit/menu.h"
#include "toolkit/press.h"
#include "toolkit/qt/frame_painter.h"
#include "toolkit/screen.h"

#include <QAbstractButton>
#include <QMenu>
#include <QScreen>

namespace tandrel::test
{

using ::testing::ElementsAre;

namespace
{

class Board : public Form
{
public:
    explicit Board(Frame frame = Frame::Dialog) : Form("board", frame, {1500, 1500, 6000, 3000})
    {
        button.Click = [this] { events.push_back("button"); };
        check.Click = [this] { events.push_back("check " + text(check.Value())); };
        image.Click = [this] { events.push_back("image"); };
        image.MouseDown = [this](const MouseEvent& event) { events.push_back("down " + std::to_string(event.button)); };
        image.MouseUp = [this](const MouseEvent& event) { events.push_back("up " + std::to_string(event.button)); };
        slider.Scroll = [this] { events.push_back("scroll " + text(slider.Value())); };
        slider.MouseUp = [this](const MouseEvent&) { events.push_back("mouse-up"); };
        slider.Click = [this] { events.push_back("click"); };
        still.takesKeys = false;
        label.autoSize = true;
        image.ToolTip = "A picture";
    }

    CommandButton button{*this, "button", {150, 150, 900, 450}, "Go"};
    CheckBox check{*this, "check", {150, 750, 900, 300}, "On"};
    Image image{*this, "image", {1500, 150, 450, 450}, "close"};
    Label label{*this, "label", {1500, 750, 300, 300}, "text"};
    Slider slider{*this, "slider", {150, 1500, 3000, 300}, false};
    PictureBox box{*this, "box", {3000, 150, 1500, 750}};
    Image inside{*this, "inside", {0, 0, 300, 300}, "close", &box};
    Slider still{*this, "still", {150, 2100, 3000, 300}, false};
    Timer timer{*this, "timer", 5, false};
    std::vector<std::string> events;

protected:
    void onActivate() override { events.push_back("activate"); }
    void onResize() override { events.push_back("resize"); }
    void onUnload() override { events.push_back("unload"); }
};

class Widgets : public WidgetBench
{
protected:
    Widgets()
    {
        board->Show();
        board->events.clear();
    }

    std::shared_ptr<Board> board = std::make_shared<Board>();
};

} // namespace

TEST_F(Widgets, AreFoundByNameAndSpokenByTip)
{
    for (const char* name : {"button", "check", "image", "label", "slider", "box", "inside"})
        EXPECT_NE(named(*board, name), nullptr) << name;
    EXPECT_EQ(named(*board, "image")->accessibleName(), "A picture");
    EXPECT_EQ(named(*board, "inside")->parentWidget(), named(*board, "box"));
}

TEST_F(Widgets, LieWhereTheirTwipsSayBehindTheFrame)
{
    EXPECT_EQ(windowOf(*board)->geometry(), QRect(100, 100, 400, 200));
    EXPECT_EQ(named(*board, "box")->geometry(), QRect(200, 10 + 25, 100, 50));
    board->box.Width = 3000;
    EXPECT_EQ(named(*board, "box")->width(), 200);
    board->Left = 3000;
    EXPECT_EQ(windowOf(*board)->x(), 200);
}

TEST_F(Widgets, APressAndReleaseClick)
{
    press(named(*board, "image"));
    EXPECT_THAT(board->events, ElementsAre("down 1", "up 1", "image"));
    board->events.clear();
    press(named(*board, "image"), Qt::RightButton);
    EXPECT_THAT(board->events, ElementsAre("down 2", "up 2")) << "the right button clicks nothing";
}

TEST_F(Widgets, ADoubleClickIsToldBehindItsSecondPress)
{
    board->image.DblClick = [this] { board->events.push_back("double"); };
    QWidget* image = named(*board, "image");
    press(image);
    mouseAt(image, QEvent::MouseButtonDblClick, {5, 5}, Qt::LeftButton);
    mouseAt(image, QEvent::MouseButtonRelease, {5, 5}, Qt::LeftButton);
    EXPECT_THAT(std::exchange(board->events, {}),
                ElementsAre("down 1", "up 1", "image", "down 1", "double", "up 1", "image"));
    mouseAt(image, QEvent::MouseButtonDblClick, {5, 5}, Qt::RightButton);
    EXPECT_THAT(board->events, ElementsAre("down 2")) << "of the left button alone";
}

TEST_F(Widgets, AFormMayEndWithTheSecondPressOfADoubleClick)
{
    board->image.DblClick = [this] { board->events.push_back("double"); };
    board->image.MouseDown = [this](const MouseEvent&) { unload(*board); };
    mouseAt(named(*board, "image"), QEvent::MouseButtonDblClick, {5, 5}, Qt::LeftButton);
    EXPECT_TRUE(board->isDead());
    EXPECT_THAT(board->events, ::testing::Not(::testing::Contains("double")));
}

TEST_F(Widgets, AMouseEventTellsTheKeysThatAreHeld)
{
    std::vector<int> held;
    board->image.MouseDown = [&](const MouseEvent& event) { held.push_back(event.shift); };
    QWidget* image = named(*board, "image");
    for (const Qt::KeyboardModifiers keys :
         {Qt::KeyboardModifiers(Qt::NoModifier), Qt::KeyboardModifiers(Qt::ControlModifier),
          Qt::KeyboardModifiers(Qt::ShiftModifier), Qt::ControlModifier | Qt::ShiftModifier}) {
        QMouseEvent event(QEvent::MouseButtonPress, {5, 5}, image->mapToGlobal(QPointF(5, 5)), Qt::RightButton,
                          Qt::RightButton, keys);
        QApplication::sendEvent(image, &event);
    }
    EXPECT_THAT(held, ElementsAre(0, shift::kControl, shift::kShift, shift::kControl + shift::kShift));
}

TEST_F(Widgets, ABoxIsFilledWithItsColour)
{
    board->box.backColour = Long(0x102030);
    board->box.Refresh();
    const QColor shown =
        windowOf(*board)->grab().toImage().pixelColor(named(*board, "box")->mapTo(windowOf(*board), QPoint(50, 40)));
    EXPECT_EQ(shown, QColor(0x30, 0x20, 0x10)) << "red is the lowest byte";
}

TEST_F(Widgets, AReleaseElsewhereIsNoClick)
{
    QWidget* image = named(*board, "image");
    mouseAt(image, QEvent::MouseButtonPress, {5, 5}, Qt::LeftButton);
    mouseAt(image, QEvent::MouseButtonRelease, {500, 5}, Qt::LeftButton);
    EXPECT_THAT(board->events, ElementsAre("down 1", "up 1"));
}

TEST_F(Widgets, ButtonsAndBoxesClick)
{
    press(named(*board, "button"));
    press(named(*board, "check"));
    EXPECT_THAT(board->events, ElementsAre("button", "check 1"));
    board->button.Enabled = false;
    press(named(*board, "button"));
    EXPECT_EQ(board->events.size(), 2U);
}

TEST_F(Widgets, ASlidersThumbIsDraggedAndLetGo)
{
    QWidget* slider = named(*board, "slider");
    const double y = slider->height() / 2.0;
    mouseAt(slider, QEvent::MouseButtonPress, {9, y}, Qt::LeftButton);
    mouseAt(slider, QEvent::MouseMove, {100, y}, Qt::LeftButton);
    mouseAt(slider, QEvent::MouseButtonRelease, {100, y}, Qt::LeftButton);
    EXPECT_THAT(board->events, ElementsAre("scroll 50", "mouse-up", "click"));
}

TEST_F(Widgets, APressBesideTheThumbStepsByAPage)
{
    board->slider.LargeChange = 7;
    press(named(*board, "slider"));
    EXPECT_THAT(board->events, ElementsAre("scroll 7", "mouse-up", "click"));
}

TEST_F(Widgets, KeysStepASlider)
{
    pressKey(named(*board, "slider"), Qt::Key_PageDown);
    EXPECT_THAT(board->events, ElementsAre("scroll 10", "click"));
}

TEST_F(Widgets, ASliderThatTakesNoKeysLeavesThemToTheForm)
{
    EXPECT_EQ(named(*board, "still")->focusPolicy(), Qt::NoFocus);
    EXPECT_NE(named(*board, "slider")->focusPolicy(), Qt::NoFocus);
}

TEST_F(Widgets, ALabelThatFitsItsTextTellsItsWidth)
{
    const Long before = board->label.Width;
    board->label.Caption = "A much longer text than the one before";
    EXPECT_GT(board->label.Width(), before * 3);
}

TEST_F(Widgets, AHandlerMayEndTheFormThatItsWidgetIsIn)
{
    board->image.Click = [this] { unload(*board); };
    press(named(*board, "image"));
    EXPECT_THAT(board->events, ElementsAre("down 1", "up 1", "unload"));
    EXPECT_EQ(windowOf(*board), nullptr);
}

TEST_F(Widgets, TheWindowSystemsCloseUnloads)
{
    windowOf(*board)->close();
    EXPECT_THAT(board->events, ElementsAre("unload"));
}

TEST_F(Widgets, TheUsersResizeRunsResize)
{
    windowOf(*board)->resize(500, 300);
    EXPECT_THAT(board->events, ElementsAre("resize"));
    EXPECT_EQ(board->Width, 7500);
}

TEST_F(Widgets, ATimerTicksByItself)
{
    int ticks = 0;
    board->timer.Tick = [&] { ++ticks; };
    board->timer.Enabled = true;
    EXPECT_TRUE(within(2000, [&] { return ticks >= 3; }));
    board->timer.Enabled = false;
    const int then = ticks;
    EXPECT_FALSE(within(40, [&] { return ticks > then; }));
}

TEST_F(Widgets, AModalFormBlocksItsCallerWhileTimersGoOn)
{
    const auto question = std::make_shared<Board>();
    int ticks = 0;
    board->timer.Tick = [&] {
        if (++ticks == 5)
            unload(*question);
    };
    board->timer.Enabled = true;
    question->Show(ShowMode::Modal);
    EXPECT_EQ(ticks, 5);
    EXPECT_FALSE(question->isLoaded());
}

TEST_F(Widgets, AModalFormThatHidesLetsItsCallerGoOn)
{
    const auto question = std::make_shared<Board>();
    board->timer.Tick = [&] { question->Hide(); };
    board->timer.Enabled = true;
    question->Show(ShowMode::Modal);
    EXPECT_TRUE(question->isLoaded());
    EXPECT_FALSE(question->visible());
}

TEST_F(Widgets, TheWheelOnASliderRunsScrollChangeAndClick)
{
    board->slider.Value = 50;
    board->slider.Change = [this] { board->events.push_back("change"); };
    QWidget* slider = named(*board, "slider");
    turnWheel(slider, 120);
    const int value = board->slider.Value();
    EXPECT_NE(value, 50);
    EXPECT_THAT(board->events, ElementsAre("change", "scroll " + std::to_string(value), "click"));
}

TEST_F(Widgets, WhereNothingIconifiesAMinimisedFormLeavesAWayBack)
{
    const auto wayBack = [] {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->objectName() == QLatin1String("wayBack") && window->isVisible())
                return qobject_cast<QAbstractButton*>(window);
        return static_cast<QAbstractButton*>(nullptr);
    };
    board->Caption = "Board";
    QWidget* window = windowOf(*board);
    board->WindowState = 1;
    EXPECT_FALSE(window->isVisible());
    ASSERT_NE(wayBack(), nullptr);
    EXPECT_EQ(wayBack()->text(), "Board");
    wayBack()->click();
    EXPECT_EQ(board->windowState(), 0);
    EXPECT_TRUE(window->isVisible());
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(wayBack(), nullptr);
    board->WindowState = 1;
    board->Hide();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(wayBack(), nullptr) << "a hidden form needs none";
}

TEST_F(Widgets, APressThatTheActivationActedOnDoesNothingElse)
{
    class Taker : public Board
    {
        void onActivate() override { spendPress(MouseButton::Right); }
    };
    const auto taker = std::make_shared<Taker>();
    taker->Show();
    forgetSpentPresses();
    board->SetFocus();
    taker->events.clear();
    press(named(*taker, "image"), Qt::RightButton);
    EXPECT_THAT(taker->events, ElementsAre("up 2"));
    press(named(*taker, "image"), Qt::RightButton);
    EXPECT_THAT(taker->events, ElementsAre("up 2", "down 2", "up 2"));
}

TEST_F(Widgets, APressThatWasActedOnBeforeItArrivesBringsNothingToTheFront)
{
    const auto other = std::make_shared<Board>();
    other->Show();
    board->SetFocus();
    ASSERT_EQ(activeForm(), board.get());
    world.pointer.aheadOfWindows = true;
    spendPress(MouseButton::Right);
    press(named(*other, "image"), Qt::RightButton);
    EXPECT_EQ(activeForm(), board.get());
    press(named(*other, "image"), Qt::RightButton);
    EXPECT_EQ(activeForm(), other.get()) << "the next one";
}

TEST_F(Widgets, NoTimerTicksWhileANoticeComesUp)
{
    int ticks = 0;
    board->timer.Interval = 1;
    board->timer.Tick = [&] { ++ticks; };
    board->timer.Enabled = true;
    const auto notice = std::make_shared<Board>(Frame::Bare);
    notice->Show();
    EXPECT_EQ(ticks, 0);
    EXPECT_TRUE(within(2000, [&] { return ticks > 0; }));
}

TEST_F(Widgets, AMenuShowsItsEntriesAndTellsTheChosenOne)
{
    Menu head(*board, "popup");
    Menu plain(head, "plain", "&Plain");
    Menu line(head, "line", Menu::kSeparator);
    Menu ticked(head, "ticked", "Ticked");
    ticked.Checked = true;
    Menu grey(head, "grey", "Grey");
    grey.Enabled = false;
    Menu hidden(head, "hidden", "Hidden");
    hidden.Visible = false;
    Menu below(head, "below", "More");
    Menu inner(below, "inner", "Inner");
    inner.Click = [&] { board->events.push_back("inner"); };
    std::vector<std::string> seen;
    int ticks = 0;
    board->timer.Tick = [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (menu == nullptr || ++ticks < 3)
            return;
        board->timer.Enabled = false;
        for (const QAction* action : menu->actions())
            seen.push_back(action->objectName().toStdString() + (action->isSeparator() ? " line" : "") +
                           (action->isChecked() ? " ticked" : "") + (action->isEnabled() ? "" : " grey"));
        QAction* action = menu->findChild<QAction*>("inner");
        action->trigger();
        menu->close();
    };
    board->timer.Enabled = true;
    PopupMenu(head);
    EXPECT_THAT(seen, ElementsAre("plain", "line line", "ticked ticked", "grey grey", "below"));
    EXPECT_THAT(board->events, ElementsAre("inner"));
    EXPECT_EQ(ticks, 3) << "timers go on under a menu";
}

TEST_F(Widgets, AMenuComesUpBehindTheRelease)
{
    Menu head(*board, "popup");
    Menu plain(head, "plain", "&Plain");
    world.pointer.right = true;
    int ticks = 0;
    bool early = false;
    board->timer.Tick = [&] {
        QWidget* menu = QApplication::activePopupWidget();
        early = early || (menu != nullptr && world.pointer.right);
        if (++ticks == 6)
            world.pointer.right = false;
        if (menu != nullptr)
            menu->close();
    };
    board->timer.Enabled = true;
    PopupMenu(head);
    EXPECT_FALSE(early);
    EXPECT_GT(ticks, 6);
}

TEST_F(Widgets, AVideoFrameLeavesRoomForTheCaptionAndThinEdges)
{
    const auto video = std::make_shared<Board>(Frame::Video);
    video->Show();
    EXPECT_EQ(frameMargins(*video), QMargins(3, 25, 3, 1));
    EXPECT_EQ(named(*video, "box")->pos(), QPoint(200 + 3, 10 + 25));
    video->setTitleBar(false);
    EXPECT_EQ(named(*video, "box")->pos(), QPoint(200, 10));
    EXPECT_EQ(windowOf(*video)->size(), QSize(400, 200)) << "a change of layout, not of size";
}

TEST_F(Widgets, ACaptionIsShownAsWellAsItsBytesAllow)
{
    EXPECT_EQ(rendered("caf\xC3\xA9"), QStringLiteral("café"));
    EXPECT_EQ(rendered("a\xFF"), QString::fromUtf8("a\xEF\xBF\xBD"));
    EXPECT_EQ(rendered("a\xEF\x80\xA2z\xEF\x81\xBC"), "a\"z|");
    EXPECT_EQ(rendered("a\xEF\x80\x8Az"), "a z");
}

TEST_F(Widgets, TheBandMovesTheWindow)
{
    QWidget* window = windowOf(*board);
    mouseAt(window, QEvent::MouseButtonPress, {50, 10}, Qt::LeftButton);
    mouseAt(window, QEvent::MouseMove, {80, 30}, Qt::LeftButton);
    mouseAt(window, QEvent::MouseButtonRelease, {50, 10}, Qt::LeftButton);
    EXPECT_EQ(window->pos(), QPoint(130, 120));
    EXPECT_EQ(board->Left, 1950);
}

TEST_F(Widgets, TheScreenGivesTheTwips)
{
    EXPECT_EQ(screen().TwipsPerPixelX(), 15);
    EXPECT_EQ(screen().Width() / 15, QGuiApplication::primaryScreen()->geometry().width());
}

} // namespace tandrel::test
