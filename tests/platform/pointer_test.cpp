// The pointer and its buttons on a real X server, pressed by its test extension.
#include "display_test.h"
#include "platform/x11/connection.h"
#include "platform/x11/pointer.h"

#include <QElapsedTimer>
#include <QMouseEvent>
#include <QProcess>
#include <QWindow>

#include <gtest/gtest.h>
#include <memory>
#include <xcb/xfixes.h>

namespace tandrel
{

namespace
{

constexpr PixelPoint kInside{150, 130};
constexpr PixelPoint kOutside{500, 400};
constexpr qint64 kLongerThanAPressIsKept = 450;
constexpr qint64 kShorterThanAPressIsKept = 200;

void xdotool(const QStringList& words) { ASSERT_EQ(QProcess::execute(QStringLiteral("xdotool"), words), 0); }

/// Counts what it is told.
class PressedWindow : public QWindow
{
public:
    PressedWindow()
    {
        setFlag(Qt::FramelessWindowHint);
        setGeometry(100, 100, 100, 80);
        show();
        EXPECT_TRUE(comesTrue([this] { return isExposed(); }));
    }
    int presses = 0;
    int releases = 0;

protected:
    void mousePressEvent(QMouseEvent*) override { ++presses; }
    void mouseDoubleClickEvent(QMouseEvent*) override { ++presses; }
    void mouseReleaseEvent(QMouseEvent*) override { ++releases; }
};

PixelPoint placeOnTheServer()
{
    const ReplyPtr<xcb_query_pointer_reply_t> reply(
        xcb_query_pointer_reply(connection(), xcb_query_pointer(connection(), rootWindow(connection())), nullptr));
    return {reply->root_x, reply->root_y};
}

/// Whether the server hides the cursor on behalf of this connection. It keeps the picture of a hidden one, but it
/// refuses to show one that is not hidden.
bool cursorIsHidden()
{
    xcb_connection_t* display = connection();
    const auto request = xcb_xfixes_show_cursor_checked(display, rootWindow(display));
    if (ReplyPtr<xcb_generic_error_t>(xcb_request_check(display, request)))
        return false;
    xcb_xfixes_hide_cursor(display, rootWindow(display));
    return true;
}

class PointerTest : public testing::Test
{
protected:
    PointerTest() { moveByHand(kInside); }

    static void moveByHand(PixelPoint to)
    {
        xdotool({QStringLiteral("mousemove"), QString::number(to.x), QString::number(to.y)});
        EXPECT_EQ(placeOnTheServer(), to);
    }
    void press(int button)
    {
        const int before = window.presses;
        xdotool({QStringLiteral("mousedown"), QString::number(button)});
        EXPECT_TRUE(comesTrue([&] { return window.presses > before; }));
    }
    void release(int button)
    {
        const int before = window.releases;
        xdotool({QStringLiteral("mouseup"), QString::number(button)});
        EXPECT_TRUE(comesTrue([&] { return window.releases > before; }));
    }
    void click(int button)
    {
        press(button);
        release(button);
    }
    static void letTimePass(qint64 ms)
    {
        QElapsedTimer clock;
        clock.start();
        EXPECT_TRUE(comesTrue([&] { return clock.elapsed() > ms; }));
    }

    PressedWindow window;
    std::unique_ptr<X11Pointer> pointer = std::make_unique<X11Pointer>();
};

} // namespace

TEST_F(PointerTest, AButtonThatIsHeldIsDownUntilItsRelease)
{
    EXPECT_FALSE(pointer->buttonDown(MouseButton::Left));
    press(3);
    for (int question = 0; question < 3; ++question) {
        EXPECT_TRUE(pointer->buttonDown(MouseButton::Right));
        EXPECT_FALSE(pointer->buttonDown(MouseButton::Left));
    }
    release(3);
    EXPECT_FALSE(pointer->buttonDown(MouseButton::Right));
}

TEST_F(PointerTest, APressOutsideOfTheWindowsIsSeenWhileItLasts)
{
    moveByHand(kOutside);
    xdotool({QStringLiteral("mousedown"), QStringLiteral("1")});
    EXPECT_TRUE(pointer->buttonDown(MouseButton::Left));
    EXPECT_FALSE(pointer->buttonDown(MouseButton::Right));
    xdotool({QStringLiteral("mouseup"), QStringLiteral("1")});
    EXPECT_FALSE(pointer->buttonDown(MouseButton::Left));
}

TEST_F(PointerTest, AClickBetweenTwoQuestionsIsSeenOnce)
{
    EXPECT_FALSE(pointer->buttonDown(MouseButton::Left));
    click(1);
    EXPECT_TRUE(pointer->buttonDown(MouseButton::Left));
    EXPECT_FALSE(pointer->buttonDown(MouseButton::Left));
    click(3);
    EXPECT_FALSE(pointer->buttonDown(MouseButton::Left));
    EXPECT_TRUE(pointer->buttonDown(MouseButton::Right));
    EXPECT_FALSE(pointer->buttonDown(MouseButton::Right));
}

TEST_F(PointerTest, ADoubleClickHardlyLongerThanAQuestionIsTwoPresses)
{
    press(1);
    EXPECT_TRUE(pointer->buttonDown(MouseButton::Left));
    release(1);
    press(1);
    EXPECT_FALSE(pointer->buttonDown(MouseButton::Left)) << "it was up between the two";
    EXPECT_TRUE(pointer->buttonDown(MouseButton::Left));
    release(1);
    EXPECT_FALSE(pointer->buttonDown(MouseButton::Left));
}

TEST_F(PointerTest, TheSecondPressIsSeenEvenIfItIsOverToo)
{
    press(1);
    EXPECT_TRUE(pointer->buttonDown(MouseButton::Left));
    release(1);
    click(1);
    EXPECT_FALSE(pointer->buttonDown(MouseButton::Left)) << "it was up between the two";
    EXPECT_TRUE(pointer->buttonDown(MouseButton::Left));
    EXPECT_FALSE(pointer->buttonDown(MouseButton::Left));
}

TEST_F(PointerTest, APressThatWasActedOnBeforeTheWindowsHearOfItIsNoSecondOne)
{
    xdotool({QStringLiteral("mousedown"), QStringLiteral("3")});
    EXPECT_TRUE(pointer->buttonDown(MouseButton::Right)) << "by the server's mask";
    EXPECT_TRUE(pointer->spend(MouseButton::Right));
    xdotool({QStringLiteral("mouseup"), QStringLiteral("3")});
    EXPECT_FALSE(pointer->buttonDown(MouseButton::Right));
    ASSERT_TRUE(comesTrue([this] { return window.releases == 1; }));
    EXPECT_EQ(window.presses, 1);
    EXPECT_FALSE(pointer->buttonDown(MouseButton::Right));
    click(3);
    EXPECT_TRUE(pointer->buttonDown(MouseButton::Right)) << "the next one counts";
    EXPECT_FALSE(pointer->spend(MouseButton::Right)) << "the windows have been told";
}

TEST_F(PointerTest, APressThatNobodyActedOnCountsWhenTheWindowsHearOfIt)
{
    xdotool({QStringLiteral("mousedown"), QStringLiteral("3")});
    EXPECT_TRUE(pointer->buttonDown(MouseButton::Right));
    xdotool({QStringLiteral("mouseup"), QStringLiteral("3")});
    EXPECT_FALSE(pointer->buttonDown(MouseButton::Right));
    ASSERT_TRUE(comesTrue([this] { return window.releases == 1; }));
    EXPECT_TRUE(pointer->buttonDown(MouseButton::Right)) << "a window that it activates asks for it";
}

TEST_F(PointerTest, APressThatNobodyAskedForIsForgotten)
{
    click(1);
    letTimePass(kLongerThanAPressIsKept);
    EXPECT_FALSE(pointer->buttonDown(MouseButton::Left));
    click(1);
    letTimePass(kShorterThanAPressIsKept);
    EXPECT_TRUE(pointer->buttonDown(MouseButton::Left));
}

TEST_F(PointerTest, APressOfOneButtonOutdatesThatOfTheOther)
{
    click(1);
    click(3);
    EXPECT_FALSE(pointer->buttonDown(MouseButton::Left));
    EXPECT_TRUE(pointer->buttonDown(MouseButton::Right));
}

TEST_F(PointerTest, TheControlKeyIsSeenWhileItIsHeld)
{
    EXPECT_FALSE(pointer->controlDown());
    xdotool({QStringLiteral("keydown"), QStringLiteral("ctrl")});
    EXPECT_TRUE(pointer->controlDown());
    xdotool({QStringLiteral("keyup"), QStringLiteral("ctrl"), QStringLiteral("keydown"), QStringLiteral("shift")});
    EXPECT_FALSE(pointer->controlDown());
    xdotool({QStringLiteral("keyup"), QStringLiteral("shift")});
}

TEST_F(PointerTest, APressIsOnItsWayUntilAWindowIsTold)
{
    EXPECT_FALSE(pointer->pressOnItsWay());
    moveByHand(kOutside);
    xdotool({QStringLiteral("click"), QStringLiteral("1")});
    EXPECT_TRUE(comesTrue([this] { return pointer->pressOnItsWay(); })) << "no window of ours is there to be told";
    moveByHand(kInside);
    click(1);
    EXPECT_FALSE(pointer->pressOnItsWay());
}

TEST_F(PointerTest, ATurnOfTheWheelIsNoPressOnItsWay)
{
    xdotool({QStringLiteral("click"), QStringLiteral("4")});
    click(1);
    xdotool({QStringLiteral("click"), QStringLiteral("4")});
    letTimePass(kShorterThanAPressIsKept);
    EXPECT_FALSE(pointer->pressOnItsWay());
}

TEST_F(PointerTest, MovesAndTellsWhereItIs)
{
    for (const PixelPoint place : {PixelPoint{5, 7}, PixelPoint{639, 479}, kOutside}) {
        pointer->moveTo(place);
        EXPECT_EQ(placeOnTheServer(), place);
        EXPECT_EQ(pointer->position(), place);
    }
    moveByHand(kInside);
    EXPECT_EQ(pointer->position(), kInside);
}

TEST_F(PointerTest, TheCursorIsHiddenUntilItIsShown)
{
    EXPECT_FALSE(cursorIsHidden());
    pointer->showCursor(true);
    EXPECT_FALSE(cursorIsHidden());
    pointer->showCursor(false);
    EXPECT_TRUE(cursorIsHidden());
    pointer->showCursor(false);
    EXPECT_TRUE(cursorIsHidden());
    pointer->showCursor(true);
    EXPECT_FALSE(cursorIsHidden());
}

TEST_F(PointerTest, TheEndBringsTheCursorBack)
{
    pointer->showCursor(false);
    EXPECT_TRUE(cursorIsHidden());
    pointer.reset();
    EXPECT_FALSE(cursorIsHidden());
}

} // namespace tandrel
