// The monitors: how they are found, what is known of them, and forms on them.

#include "fake_services.h"

#include "desktop/monitors.h"
#include "desktop/screen_saver.h"
#include "desktop/system_facts.h"
#include "desktop/window_style.h"
#include "toolkit/screen.h"

#include <gmock/gmock.h>

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

class DesktopMonitors : public ::testing::Test
{
protected:
    /// The monitors that the program finds.
    std::vector<clsMonitor> found(const std::vector<PixelRect>& all)
    {
        world.monitors.set(all);
        return clsMonitors().Monitors();
    }
    static std::vector<int> handles(const std::vector<clsMonitor>& monitors)
    {
        std::vector<int> result;
        for (const clsMonitor& monitor : monitors)
            result.push_back(monitor.Handle);
        return result;
    }
    World world;
};

class DialogForm : public Form
{
public:
    DialogForm() : Form("plain", Frame::Dialog, {0, 0, 3000, 1500}) {}
};

} // namespace

TEST_F(DesktopMonitors, AMonitorIsItsRectangleAndItsWorkArea)
{
    world.monitors.all = {{7, {0, 0, 1920, 1080}, {10, 20, 1900, 1040}}};
    const auto monitors = clsMonitors().Monitors();
    ASSERT_EQ(monitors.size(), 1U);
    const clsMonitor& one = monitors[0];
    EXPECT_EQ(one.Handle, 7);
    EXPECT_EQ(one.Left, 0);
    EXPECT_EQ(one.Top, 0);
    EXPECT_EQ(one.Right, 1920);
    EXPECT_EQ(one.Bottom, 1080);
    EXPECT_EQ(one.Width, 1920);
    EXPECT_EQ(one.Height, 1080);
    EXPECT_EQ(one.WorkLeft, 10);
    EXPECT_EQ(one.WorkTop, 20);
    EXPECT_EQ(one.WorkRight, 1900);
    EXPECT_EQ(one.WorkBottom, 1040);
}

TEST_F(DesktopMonitors, EveryMonitorIsFoundOnceInTheOrderOfTheProbes)
{
    EXPECT_THAT(handles(found({{1920, 0, 3840, 1080}, {0, 0, 1920, 1080}})), ElementsAre(2, 1));
}

TEST_F(DesktopMonitors, AMonitorToTheLeftIsFoundFromTheDesktopsNegativeEdge)
{
    const auto monitors = found({{0, 0, 1920, 1080}, {-1280, -300, 0, 724}});
    EXPECT_THAT(handles(monitors), ElementsAre(2, 1));
    EXPECT_EQ(monitors[0].Left, -1280);
    EXPECT_EQ(monitors[0].Width, 1280);
}

TEST_F(DesktopMonitors, AMonitorBetweenTheProbesIsMissed)
{
    EXPECT_THAT(handles(found({{0, 0, 1920, 1080}, {1920, 0, 2200, 1080}})), ElementsAre(1))
        << "the probes stand at 1600 and 2240";
    EXPECT_THAT(found({{0, 0, 320, 240}}), IsEmpty()) << "the first probe stands just outside";
    EXPECT_THAT(handles(found({{0, 0, 321, 241}})), ElementsAre(1));
}

TEST_F(DesktopMonitors, TheProbesEndAtTheDesktopsSizeMeasuredFromZero)
{
    // Desktop from 3000 to 4920: its width of 1920 is left of its own left edge, so nothing is probed.
    EXPECT_THAT(found({{3000, 0, 4920, 1080}}), IsEmpty());
    // From -1920 on the probes run up to a width of 3840 and so past the right edge.
    EXPECT_THAT(handles(found({{-1920, 0, 0, 1080}, {0, 0, 1920, 1080}})), ElementsAre(1, 2));
    // The last probe lies on the bound itself: 640 + 320 with a width of 640.
    EXPECT_THAT(handles(found({{0, 0, 640, 480}})), ElementsAre(1));
}

TEST_F(DesktopMonitors, TheDesktopsNumbersComeFromTheSystem)
{
    world.monitors.set({{-1280, -300, 0, 724}, {0, 0, 1920, 1080}});
    const clsMonitors monitors;
    EXPECT_EQ(monitors.DesktopLeft(), -1280);
    EXPECT_EQ(monitors.DesktopTop(), -300);
    EXPECT_EQ(monitors.DesktopWidth(), 3200);
    EXPECT_EQ(monitors.DesktopHeight(), 1380);
}

TEST_F(DesktopMonitors, ASystemThatKnowsNoMonitorsHasOneThatStandsForTheScreen)
{
    world.monitors.several = false;
    screen().setMetrics(15, 20, {0, 0, 1366, 768});
    const clsMonitors monitors;
    EXPECT_EQ(monitors.DesktopLeft(), 0);
    EXPECT_EQ(monitors.DesktopTop(), 0);
    EXPECT_EQ(monitors.DesktopWidth(), 1366);
    EXPECT_EQ(monitors.DesktopHeight(), 768);
    ASSERT_EQ(monitors.Monitors().size(), 1U);
    const clsMonitor& one = monitors.Monitors()[0];
    EXPECT_EQ(one.Handle, 0);
    EXPECT_EQ(one.Left + one.Top + one.WorkLeft + one.WorkTop, 0);
    for (const Long value : {one.Right, one.Width, one.WorkRight})
        EXPECT_EQ(value, 1366);
    for (const Long value : {one.Bottom, one.Height, one.WorkBottom})
        EXPECT_EQ(value, 768);
}

TEST_F(DesktopMonitors, ARefreshBuildsTheCollectionAnew)
{
    clsMonitors monitors;
    world.monitors.set({{0, 0, 1280, 1024}, {1280, 0, 2560, 1024}});
    EXPECT_EQ(monitors.Monitors().size(), 1U);
    monitors.Refresh();
    EXPECT_EQ(monitors.Monitors().size(), 2U);
    monitors.Refresh();
    EXPECT_EQ(monitors.Monitors().size(), 2U);
}

TEST_F(DesktopMonitors, TheMonitorOfAPointAndOfAWindow)
{
    world.monitors.set({{0, 0, 1920, 1080}, {1920, 0, 3840, 1080}});
    const clsMonitors monitors;
    EXPECT_EQ(monitors.GetMonitorFromXYPoint(1919, 0), 1);
    EXPECT_EQ(monitors.GetMonitorFromXYPoint(1920, 1079), 2);
    EXPECT_EQ(monitors.GetMonitorFromXYPoint(0, 1080), 0);
    EXPECT_EQ(monitors.GetMonitorFromXYPoint(2147483647, 0), -1) << "an error";
    world.monitors.windowMonitor = 2;
    EXPECT_EQ(monitors.GetMonitorFromWindow(5), 2);
    world.monitors.windowMonitor = std::nullopt;
    EXPECT_EQ(monitors.GetMonitorFromWindow(5), -1) << "the system can't tell";
}

TEST_F(DesktopMonitors, AFormIsCentredOnTheWorkAreaOfItsMonitor)
{
    world.monitors.all = {{1, {0, 0, 1920, 1080}, {100, 40, 1920, 1080}}};
    DialogForm form;
    clsMonitors().CenterFormOnMonitor(form);
    EXPECT_EQ(form.left(), 100 * 15 + (1820 * 15 - 3000) / 2);
    EXPECT_EQ(form.top(), 40 * 15 + (1040 * 15 - 1500) / 2);
}

TEST_F(DesktopMonitors, HalvesAreRoundedDownForFormsLargerThanTheMonitorToo)
{
    world.monitors.all = {{1, {0, 0, 100, 100}, {0, 0, 100, 100}}};
    DialogForm form;
    form.Width = 3001;
    clsMonitors().CenterFormOnMonitor(form);
    EXPECT_EQ(form.left(), -751) << "half of -1501";
    EXPECT_EQ(form.top(), 0);
}

TEST_F(DesktopMonitors, WithoutAMonitorAFormIsCentredOnTheScreen)
{
    DialogForm form;
    for (const std::optional<std::int32_t> none : {std::optional<std::int32_t>(0), std::optional<std::int32_t>()}) {
        form.Move({0, 0, 3000, 1500});
        world.monitors.windowMonitor = none;
        clsMonitors().CenterFormOnMonitor(form);
        EXPECT_EQ(form.left(), (28800 - 3000) / 2);
        EXPECT_EQ(form.top(), (16200 - 1500) / 2);
    }
}

TEST_F(DesktopMonitors, TheSearchTakesLeftAndTopInclusiveRightAndBottomExclusive)
{
    world.monitors.set({{0, 0, 1280, 1024}, {1280, 0, 2560, 1024}});
    const clsMonitors monitors;
    DialogForm form;
    const auto leftOf = [&](int left, int top) {
        form.Move({left, top, 3000, 1500});
        const auto area = monitors.holding(form);
        return area ? static_cast<int>(area->left) : -1;
    };
    EXPECT_EQ(leftOf(0, 0), 0);
    EXPECT_EQ(leftOf(1280 * 15 - 1, 1024 * 15 - 1), 0);
    EXPECT_EQ(leftOf(1280 * 15, 0), 1280 * 15);
    EXPECT_EQ(leftOf(2560 * 15 - 1, 0), 1280 * 15);
    EXPECT_EQ(leftOf(2560 * 15, 0), -1);
    EXPECT_EQ(leftOf(-1, 0), -1);
    EXPECT_EQ(leftOf(0, -1), -1);
    EXPECT_EQ(leftOf(0, 1024 * 15), -1);
}

TEST_F(DesktopMonitors, AFormIsCentredWhereItStandsOrStays)
{
    world.monitors.set({{0, 0, 1280, 1024}, {1280, 0, 2560, 1024}});
    const clsMonitors monitors;
    DialogForm form;
    form.Move({20000, 100, 3000, 1500});
    monitors.centreWhereItStands(form);
    EXPECT_EQ(form.left(), 19200 + (19200 - 3000) / 2);
    EXPECT_EQ(form.top(), (15360 - 1500) / 2);
    form.Move({50000, 100, 3000, 1500});
    monitors.centreWhereItStands(form);
    EXPECT_EQ(form.left(), 50000);
}

TEST_F(DesktopMonitors, TheSystemsNameFollowsItsNumbers)
{
    const std::pair<const char*, const char*> names[] = {
        {"1.4.0", "Windows 95"},    {"1.4.10", "Windows 98"},  {"1.4.98", "Windows ME"}, {"2.3.51", "Windows NT 3"},
        {"2.4.0", "Windows NT 4"},  {"2.5.0", "Windows 2000"}, {"2.5.1", "Windows XP"},  {"2.6.0", "Windows Vista"},
        {"2.6.1", "Windows Seven"}, {"linux", "Unknown"},      {"", "Unknown"}};
    for (const auto& [numbers, name] : names) {
        world.systemFacts.numbers = numbers;
        EXPECT_EQ(GetWindowsVersion(), name);
    }
}

TEST_F(DesktopMonitors, FiveSystemsAreOlder)
{
    for (const char* name : {"WINDOWS 98", "WINDOWS ME", "WINDOWS 2000", "WINDOWS NT", "WINDOWS XP"})
        EXPECT_TRUE(isOlderSystem(name)) << name;
    for (const char* name : {"WINDOWS VISTA", "WINDOWS SEVEN", "UNKNOWN", "", "Windows XP", "WINDOWS 95"})
        EXPECT_FALSE(isOlderSystem(name)) << name;
}

TEST_F(DesktopMonitors, TheScreenSaverIsSwitchedAsTold)
{
    ScreenSaverSwitch(false);
    ScreenSaverSwitch(true);
    EXPECT_THAT(world.screenSaver.switched, ElementsAre(false, true));
}

TEST_F(DesktopMonitors, AStyleWithoutAClientReadsFalseAndChangesNothing)
{
    clsStyle style;
    style.Titlebar = true;
    style.Border = true;
    EXPECT_FALSE(style.Titlebar());
    EXPECT_FALSE(style.Border());
}

TEST_F(DesktopMonitors, ReadingTheBorderTakesTheTitleBarToItsState)
{
    DialogForm form;
    clsStyle style;
    style.Client = &form;
    style.Border = false;
    EXPECT_TRUE(style.Titlebar());
    EXPECT_FALSE(style.Border());
    EXPECT_FALSE(style.Titlebar());
    style.Border = true;
    EXPECT_FALSE(style.Border()) << "it always reads false";
    EXPECT_TRUE(style.Titlebar());
}

} // namespace tandrel::test
