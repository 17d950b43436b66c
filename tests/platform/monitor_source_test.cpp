// The monitors of a real X server, which divides its screen when it is told to.
#include "display_test.h"
#include "platform/x11/monitor_source.h"

#include <QGuiApplication>
#include <QProcess>
#include <QWindow>

#include <gtest/gtest.h>

namespace tandrel
{

namespace
{

void xrandr(const QStringList& words) { ASSERT_EQ(QProcess::execute(QStringLiteral("xrandr"), words), 0); }

/// The screen of 640 by 480 as two monitors, until the end of the object.
class TwoMonitors
{
public:
    TwoMonitors()
    {
        xrandr({QStringLiteral("--setmonitor"), QStringLiteral("*LEFT"), QStringLiteral("400/100x480/120+0+0"),
                QStringLiteral("screen")});
        xrandr({QStringLiteral("--setmonitor"), QStringLiteral("RIGHT"), QStringLiteral("240/60x400/100+400+80"),
                QStringLiteral("none")});
    }
    ~TwoMonitors()
    {
        xrandr({QStringLiteral("--delmonitor"), QStringLiteral("RIGHT")});
        xrandr({QStringLiteral("--delmonitor"), QStringLiteral("LEFT")});
        EXPECT_TRUE(comesTrue([] { return QGuiApplication::screens().size() == 1; }));
    }
};

const PixelRect kWhole{0, 0, 640, 480};
const PixelRect kLeft{0, 0, 400, 480};
const PixelRect kRight{400, 80, 640, 480};

class MonitorSourceTest : public testing::Test
{
protected:
    MonitorSourceTest()
    {
        monitors.changed = [this] { ++changes; };
    }
    PixelRect bounds(std::int32_t handle)
    {
        const auto found = monitors.facts(handle);
        return found ? found->bounds : PixelRect{};
    }
    /// A change is told of, and behind it the first two monitors are these.
    void expectChange(const PixelRect& first, const PixelRect& second)
    {
        EXPECT_TRUE(comesTrue([&] { return changes > 0 && bounds(1) == first && bounds(2) == second; }));
        changes = 0;
    }

    X11MonitorSource monitors;
    int changes = 0;
};

} // namespace

TEST_F(MonitorSourceTest, OneMonitorIsTheWholeDesktop)
{
    EXPECT_EQ(bounds(1), kWhole);
    EXPECT_FALSE(monitors.facts(0));
    EXPECT_FALSE(monitors.facts(2));
    EXPECT_EQ(monitors.metric(80), 1);
}

TEST_F(MonitorSourceTest, MonitorsThatComeAndGoAreToldOf)
{
    {
        const TwoMonitors two;
        expectChange(kLeft, kRight);
        EXPECT_EQ(monitors.metric(76), 0);
        EXPECT_EQ(monitors.metric(77), 0);
        EXPECT_EQ(monitors.metric(78), 640);
        EXPECT_EQ(monitors.metric(79), 480);
        EXPECT_EQ(monitors.metric(80), 2);
    }
    expectChange(kWhole, {});
    EXPECT_EQ(monitors.metric(80), 1);
}

TEST_F(MonitorSourceTest, TheMonitorWithMostOfARectangleHasIt)
{
    const TwoMonitors two;
    expectChange(kLeft, kRight);
    EXPECT_EQ(monitors.fromRect({300, 100, 450, 200}), 1);
    EXPECT_EQ(monitors.fromRect({370, 100, 450, 200}), 2);
    EXPECT_EQ(monitors.fromRect({500, 0, 600, 80}), 0) << "above the lower one";
    QWindow window;
    window.setFlag(Qt::FramelessWindowHint);
    window.setGeometry(410, 100, 50, 50);
    window.show();
    EXPECT_TRUE(comesTrue([&] { return window.isExposed(); }));
    EXPECT_EQ(monitors.fromWindow(static_cast<WindowHandle>(window.winId())), 2);
    EXPECT_EQ(monitors.fromWindow(1), 0) << "no window of ours";
}

} // namespace tandrel
