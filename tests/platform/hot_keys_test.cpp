// Global keys on a real X server, pressed by its test extension.
#include "display_test.h"
#include "platform/x11/connection.h"
#include "platform/x11/hot_keys.h"

#include <QProcess>
#include <QWindow>

#include <gmock/gmock.h>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace tandrel
{

using testing::ElementsAre;

namespace
{

constexpr std::uint16_t kControlAltShift = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1 | XCB_MOD_MASK_SHIFT;
/// The key behind the others: once it has been told of, so have all presses before it.
constexpr int kMarker = 99;
constexpr int kRepeats = 3;

struct Disconnect {
    void operator()(xcb_connection_t* display) const { xcb_disconnect(display); }
};

/// Another program on the same display.
class OtherProgram
{
public:
    OtherProgram() : display_(xcb_connect(nullptr, nullptr)) {}

    std::vector<std::uint8_t> keys(std::uint32_t symbol)
    {
        const std::uint8_t first = xcb_get_setup(display())->min_keycode;
        const ReplyPtr<xcb_get_keyboard_mapping_reply_t> mapping = symbols();
        const auto length = static_cast<std::size_t>(xcb_get_keyboard_mapping_keysyms_length(mapping.get()));
        return keysWithSymbol(
            {{xcb_get_keyboard_mapping_keysyms(mapping.get()), length}, mapping->keysyms_per_keycode, first}, symbol);
    }

    bool grab(std::uint8_t key, std::uint16_t modifiers)
    {
        const auto request = xcb_grab_key_checked(display(), 0, rootWindow(display()), modifiers, key,
                                                  XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        return !ReplyPtr<xcb_generic_error_t>(xcb_request_check(display(), request));
    }

    /// Waits for the server.
    void ungrab(std::uint8_t key, std::uint16_t modifiers)
    {
        const auto request = xcb_ungrab_key_checked(display(), key, rootWindow(display()), modifiers);
        ReplyPtr<xcb_generic_error_t>(xcb_request_check(display(), request));
    }

    /// True if no program has the key with the modifiers, whatever the locks.
    bool isFree(std::uint8_t key, std::uint16_t modifiers)
    {
        const bool gotIt = grab(key, modifiers) && grab(key, modifiers | XCB_MOD_MASK_LOCK) &&
                           grab(key, modifiers | XCB_MOD_MASK_2) &&
                           grab(key, modifiers | XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2);
        ungrab(XCB_GRAB_ANY, XCB_MOD_MASK_ANY);
        return gotIt;
    }

    void setSymbols(std::uint8_t key, std::uint32_t plain, std::uint32_t shifted)
    {
        const std::uint32_t both[]{plain, shifted};
        const auto request = xcb_change_keyboard_mapping_checked(display(), 1, key, 2, both);
        ReplyPtr<xcb_generic_error_t>(xcb_request_check(display(), request));
    }

    std::uint16_t modifiersNow()
    {
        const ReplyPtr<xcb_query_pointer_reply_t> reply(
            xcb_query_pointer_reply(display(), xcb_query_pointer(display(), rootWindow(display())), nullptr));
        return reply ? reply->mask : 0;
    }

    xcb_connection_t* display() { return display_.get(); }

private:
    ReplyPtr<xcb_get_keyboard_mapping_reply_t> symbols()
    {
        const xcb_setup_t* setup = xcb_get_setup(display());
        const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
        const auto request = xcb_get_keyboard_mapping(display(), setup->min_keycode, count);
        return ReplyPtr<xcb_get_keyboard_mapping_reply_t>(xcb_get_keyboard_mapping_reply(display(), request, nullptr));
    }

    std::unique_ptr<xcb_connection_t, Disconnect> display_;
};

void keyboard(const QString& action, const QString& keys)
{
    ASSERT_EQ(QProcess::execute(QStringLiteral("xdotool"), {action, keys}), 0);
}
void press(const char* keys) { keyboard(QStringLiteral("key"), QString::fromLatin1(keys)); }

/// Counts presses as they come from the server, before anything else sees them.
class RawKeyPresses : public QAbstractNativeEventFilter
{
public:
    RawKeyPresses() { qApp->installNativeEventFilter(this); }
    bool nativeEventFilter(const QByteArray&, void* message, qintptr*) override
    {
        if ((static_cast<const xcb_generic_event_t*>(message)->response_type & 0x7f) == XCB_KEY_PRESS)
            ++count;
        return false;
    }
    int count = 0;
};

/// A lock of the keyboard that is on until the end of the object.
class LockOn
{
public:
    LockOn(OtherProgram& other, const char* key, std::uint16_t mask) : other_(other), key_(key), mask_(mask)
    {
        press(key_);
        EXPECT_TRUE(comesTrue([this] { return (other_.modifiersNow() & mask_) != 0; })) << key_;
    }
    ~LockOn()
    {
        press(key_);
        EXPECT_TRUE(comesTrue([this] { return (other_.modifiersNow() & mask_) == 0; })) << key_;
    }

private:
    OtherProgram& other_;
    const char* key_;
    std::uint16_t mask_;
};

class HotKeysTest : public testing::Test
{
protected:
    HotKeysTest()
    {
        hotKeys->pressed = [this](int id) { presses.push_back(id); };
    }

    /// Tells of an event of Ctrl+P as the server would. True if it was taken.
    bool report(std::uint8_t kind, xcb_timestamp_t time, std::optional<xcb_window_t> window = {})
    {
        xcb_key_press_event_t event{};
        event.response_type = kind;
        event.detail = letterP;
        event.state = XCB_MOD_MASK_CONTROL;
        event.time = time;
        event.root = rootWindow(connection());
        event.event = window.value_or(event.root);
        return hotKeys->nativeEventFilter("xcb_generic_event_t", &event, nullptr);
    }

    /// All presses until now.
    std::vector<int> pressesSoFar()
    {
        EXPECT_TRUE(hotKeys->take(kMarker, "Super+F9"));
        press("super+F9");
        EXPECT_TRUE(comesTrue([this] { return !presses.empty() && presses.back() == kMarker; }));
        std::vector<int> all = std::exchange(presses, {});
        if (!all.empty())
            all.pop_back();
        return all;
    }

    std::unique_ptr<X11HotKeys> hotKeys = std::make_unique<X11HotKeys>();
    std::vector<int> presses;
    OtherProgram other;
    const std::uint8_t letterP = other.keys('p').at(0);
};

} // namespace

TEST_F(HotKeysTest, APressIsToldOfOnceEach)
{
    ASSERT_TRUE(hotKeys->take(1, "Ctrl+Alt+Shift+P"));
    ASSERT_TRUE(hotKeys->take(2, "Ctrl+7"));
    press("ctrl+alt+shift+p");
    EXPECT_THAT(pressesSoFar(), ElementsAre(1));
    press("ctrl+7");
    press("ctrl+alt+shift+p");
    press("ctrl+alt+shift+p");
    EXPECT_THAT(pressesSoFar(), ElementsAre(2, 1, 1));
}

TEST_F(HotKeysTest, OtherModifiersAreAnotherCombination)
{
    ASSERT_TRUE(hotKeys->take(1, "Ctrl+Alt+Shift+P"));
    press("ctrl+alt+p");
    press("ctrl+alt+shift+super+p");
    press("p");
    EXPECT_THAT(pressesSoFar(), ElementsAre());
}

TEST_F(HotKeysTest, LocksMakeNoDifference)
{
    ASSERT_TRUE(hotKeys->take(1, "Ctrl+Alt+Shift+P"));
    {
        const LockOn numLock(other, "Num_Lock", XCB_MOD_MASK_2);
        press("ctrl+alt+shift+p");
        EXPECT_THAT(pressesSoFar(), ElementsAre(1));
        const LockOn capsLock(other, "Caps_Lock", XCB_MOD_MASK_LOCK);
        press("ctrl+alt+shift+p");
        EXPECT_THAT(pressesSoFar(), ElementsAre(1));
    }
    const LockOn capsLock(other, "Caps_Lock", XCB_MOD_MASK_LOCK);
    press("ctrl+alt+shift+p");
    EXPECT_THAT(pressesSoFar(), ElementsAre(1));
}

TEST_F(HotKeysTest, AKeyThatIsHeldIsToldOfOnceUntilItsRelease)
{
    ASSERT_TRUE(hotKeys->take(1, "Ctrl+P"));
    RawKeyPresses raw;
    keyboard("keydown", "ctrl");
    keyboard("keydown", "p");
    EXPECT_TRUE(comesTrue([&] { return raw.count > kRepeats; })) << "the key does not repeat";
    EXPECT_THAT(presses, ElementsAre(1));
    keyboard("keyup", "p");
    keyboard("keydown", "p");
    keyboard("keyup", "p");
    keyboard("keyup", "ctrl");
    EXPECT_THAT(pressesSoFar(), ElementsAre(1, 1));
}

TEST_F(HotKeysTest, AKeyThatIsHeldBeyondAReleaseOfAllIsNoNewPress)
{
    ASSERT_TRUE(hotKeys->take(1, "Ctrl+P"));
    RawKeyPresses raw;
    keyboard("keydown", "ctrl");
    keyboard("keydown", "p");
    EXPECT_TRUE(comesTrue([&] { return presses.size() == 1; }));
    hotKeys->releaseAll();
    ASSERT_TRUE(hotKeys->take(1, "Ctrl+P"));
    const int before = raw.count;
    EXPECT_TRUE(comesTrue([&] { return raw.count > before + kRepeats; }));
    keyboard("keyup", "p");
    keyboard("keyup", "ctrl");
    EXPECT_THAT(pressesSoFar(), ElementsAre(1));
    press("ctrl+p");
    EXPECT_THAT(pressesSoFar(), ElementsAre(1));
}

TEST_F(HotKeysTest, ARepeatMayBeAReleaseAndAPressOfTheSameTime)
{
    ASSERT_TRUE(hotKeys->take(1, "Ctrl+P"));
    EXPECT_TRUE(report(XCB_KEY_PRESS, 1000));
    EXPECT_TRUE(report(XCB_KEY_RELEASE, 1500));
    EXPECT_TRUE(report(XCB_KEY_PRESS, 1500));
    EXPECT_TRUE(report(XCB_KEY_RELEASE, 1530));
    EXPECT_TRUE(report(XCB_KEY_PRESS, 1530));
    EXPECT_TRUE(report(XCB_KEY_RELEASE, 1540));
    EXPECT_THAT(pressesSoFar(), ElementsAre(1));
    EXPECT_TRUE(report(XCB_KEY_PRESS, 1541));
    EXPECT_THAT(pressesSoFar(), ElementsAre(1));
}

TEST_F(HotKeysTest, AKeyWhoseReleaseWasLostIsPressedAgain)
{
    ASSERT_TRUE(hotKeys->take(1, "Ctrl+P"));
    EXPECT_TRUE(report(XCB_KEY_PRESS, 4294967000U));
    EXPECT_TRUE(report(XCB_KEY_PRESS, 200)) << "half a second later, as the server counts";
    EXPECT_TRUE(report(XCB_KEY_PRESS, 9000));
    EXPECT_THAT(pressesSoFar(), ElementsAre(1, 1));
}

TEST_F(HotKeysTest, AReleaseCountsInWhicheverWindow)
{
    ASSERT_TRUE(hotKeys->take(1, "Ctrl+P"));
    EXPECT_TRUE(report(XCB_KEY_PRESS, 1000));
    EXPECT_FALSE(report(XCB_KEY_RELEASE, 1100, XCB_WINDOW_NONE)) << "the window is told too";
    EXPECT_FALSE(report(XCB_KEY_PRESS, 1200, XCB_WINDOW_NONE)) << "none of ours";
    EXPECT_TRUE(report(XCB_KEY_PRESS, 1300));
    EXPECT_THAT(pressesSoFar(), ElementsAre(1, 1));
}

TEST_F(HotKeysTest, APressOnItsWayGoesWithAReleaseOfAll)
{
    ASSERT_TRUE(hotKeys->take(1, "Ctrl+P"));
    EXPECT_TRUE(report(XCB_KEY_PRESS, 1000));
    hotKeys->releaseAll();
    ASSERT_TRUE(hotKeys->take(1, "Ctrl+P"));
    EXPECT_THAT(pressesSoFar(), ElementsAre());
}

TEST_F(HotKeysTest, WhatAnotherProgramHasIsLeftAlone)
{
    for (const std::uint16_t locks : {0, XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2}) {
        const auto held = static_cast<std::uint16_t>(kControlAltShift | locks);
        ASSERT_TRUE(other.grab(letterP, held));
        EXPECT_FALSE(hotKeys->take(1, "Ctrl+Alt+Shift+P"));
        press("ctrl+alt+shift+p");
        EXPECT_THAT(pressesSoFar(), ElementsAre());
        other.ungrab(letterP, held);
        EXPECT_TRUE(other.isFree(letterP, kControlAltShift)) << locks;
    }
    EXPECT_TRUE(hotKeys->take(1, "Ctrl+Alt+Shift+P"));
    EXPECT_FALSE(other.isFree(letterP, kControlAltShift));
}

TEST_F(HotKeysTest, ACombinationIsTakenForOneIdOnly)
{
    EXPECT_TRUE(hotKeys->take(1, "Ctrl+Shift+P"));
    EXPECT_FALSE(hotKeys->take(2, "Shift+Ctrl+P"));
    EXPECT_TRUE(hotKeys->take(1, "Ctrl+Shift+P"));
    press("ctrl+shift+p");
    EXPECT_THAT(pressesSoFar(), ElementsAre(1));
}

TEST_F(HotKeysTest, WhatIsNoCombinationIsRefused)
{
    EXPECT_FALSE(hotKeys->take(1, "Ctrl+Nothing"));
    other.setSymbols(letterP, 0, 0);
    EXPECT_TRUE(comesTrue([this] { return other.keys('p').empty(); }));
    EXPECT_FALSE(hotKeys->take(1, "Ctrl+P"));
    other.setSymbols(letterP, 'p', 'P');
    EXPECT_TRUE(hotKeys->take(1, "Ctrl+P"));
}

TEST_F(HotKeysTest, NothingComesAfterAReleaseOfAll)
{
    ASSERT_TRUE(hotKeys->take(1, "Ctrl+Alt+Shift+P"));
    ASSERT_TRUE(hotKeys->take(2, "F7"));
    press("F7");
    hotKeys->releaseAll();
    press("ctrl+alt+shift+p");
    press("F7");
    EXPECT_THAT(pressesSoFar(), ElementsAre());
    EXPECT_TRUE(other.isFree(letterP, kControlAltShift));
}

TEST_F(HotKeysTest, TheEndReleasesAll)
{
    ASSERT_TRUE(hotKeys->take(1, "Ctrl+Alt+Shift+P"));
    hotKeys.reset();
    EXPECT_TRUE(other.isFree(letterP, kControlAltShift));
}

TEST_F(HotKeysTest, ANewLayoutMovesTheGrabs)
{
    const std::uint8_t letterQ = other.keys('q').at(0);
    ASSERT_TRUE(hotKeys->take(1, "Ctrl+P"));
    ASSERT_TRUE(hotKeys->take(2, "Ctrl+Q"));
    other.setSymbols(letterP, 'q', 'Q');
    other.setSymbols(letterQ, 0, 0);
    EXPECT_TRUE(comesTrue([&] { return other.isFree(letterQ, XCB_MOD_MASK_CONTROL); }));
    press("ctrl+q");
    EXPECT_THAT(pressesSoFar(), ElementsAre(2));
    other.setSymbols(letterQ, 'q', 'Q');
    other.setSymbols(letterP, 'p', 'P');
    EXPECT_TRUE(comesTrue([&] { return !other.isFree(letterQ, XCB_MOD_MASK_CONTROL); }));
    press("ctrl+q");
    press("ctrl+p");
    EXPECT_THAT(pressesSoFar(), ElementsAre(2, 1));
}

TEST_F(HotKeysTest, AnotherLanguagesLayoutMovesTheGrabs)
{
    const auto setLayout = [](const QString& name) {
        ASSERT_EQ(QProcess::execute(QStringLiteral("setxkbmap"), {name}), 0);
    };
    setLayout("us");
    const std::uint8_t before = other.keys('z').at(0);
    ASSERT_TRUE(hotKeys->take(1, "Ctrl+Z"));
    setLayout("de");
    EXPECT_TRUE(comesTrue([&] { return other.isFree(before, XCB_MOD_MASK_CONTROL); }));
    EXPECT_NE(other.keys('z').at(0), before);
    press("ctrl+z");
    EXPECT_THAT(pressesSoFar(), ElementsAre(1));
    setLayout("us");
    EXPECT_TRUE(comesTrue([&] { return !other.isFree(before, XCB_MOD_MASK_CONTROL); }));
}

TEST_F(HotKeysTest, TheFocusStaysWhereItIs)
{
    class Window : public QWindow
    {
    public:
        int keys = 0;

    protected:
        void keyPressEvent(QKeyEvent*) override { ++keys; }
    };
    Window window;
    window.show();
    window.requestActivate();
    ASSERT_TRUE(comesTrue([&] { return QGuiApplication::focusWindow() == &window; }));
    press("x");
    ASSERT_TRUE(comesTrue([&] { return window.keys == 1; }));
    int changes = 0;
    QObject::connect(qGuiApp, &QGuiApplication::focusWindowChanged, &window, [&] { ++changes; });
    ASSERT_TRUE(hotKeys->take(1, "F7"));
    press("F7");
    EXPECT_THAT(pressesSoFar(), ElementsAre(1));
    press("x");
    // Beside the two keys x there was Super, before F9.
    EXPECT_TRUE(comesTrue([&] { return window.keys >= 3; }));
    EXPECT_EQ(window.keys, 3);
    EXPECT_EQ(changes, 0);
}

} // namespace tandrel
