// The desktop's screen saver: a session bus of the test's own with a service that notes what it is asked, and the X
// server where there is none.
#include "display_test.h"
#include "platform/dbus/desktop_screen_saver.h"
#include "platform/dbus/session_idle_bus.h"
#include "platform/x11/connection.h"
#include "platform/x11/screen_saver.h"
#include "private_bus.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QDBusVirtualObject>
#include <QElapsedTimer>
#include <QProcess>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <future>
#include <gmock/gmock.h>
#include <optional>
#include <string>
#include <thread>
#include <vector>
#include <xcb/screensaver.h>

namespace tandrel
{

using testing::ElementsAre;

namespace
{

using namespace std::chrono_literals;

constexpr const char* kService = "org.freedesktop.ScreenSaver";
constexpr const char* kPath = "/org/freedesktop/ScreenSaver";
constexpr const char* kOldPath = "/ScreenSaver";

std::unique_ptr<IdleBus> sessionBus() { return makeSessionIdleBus("A player", "A test plays"); }

/// Notes what it is asked and on which thread, and passes it on to another one, if any.
class NotingSaver : public ScreenSaver
{
public:
    explicit NotingSaver(ScreenSaver* other = nullptr) : other_(other) {}
    void enable(bool on) override
    {
        note(on ? "on" : "off");
        if (other_)
            other_->enable(on);
    }
    void nudge() override { note("nudge"); }

    std::vector<std::string> notes;

private:
    void note(const char* what) { notes.push_back(std::this_thread::get_id() == home_ ? what : "wrong thread"); }

    ScreenSaver* other_;
    std::thread::id home_ = std::this_thread::get_id();
};

/// The service of a desktop, on a connection of its own.
class FakeService : public QDBusVirtualObject
{
public:
    FakeService(const QString& address, const char* path)
        : bus_(QDBusConnection::connectToBus(address, QStringLiteral("desktop")))
    {
        EXPECT_TRUE(bus_.registerVirtualObject(QString::fromLatin1(path), this));
        EXPECT_TRUE(bus_.registerService(QString::fromLatin1(kService)));
        watcher_.setConnection(bus_);
        watcher_.setWatchMode(QDBusServiceWatcher::WatchForUnregistration);
        QObject::connect(&watcher_, &QDBusServiceWatcher::serviceUnregistered, this,
                         [this] { notes.push_back("gone"); });
    }
    ~FakeService() override { QDBusConnection::disconnectFromBus(bus_.name()); }

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& call, const QDBusConnection&) override
    {
        QString note = call.member();
        for (const QVariant& argument : call.arguments())
            note += QLatin1Char(' ') + argument.toString();
        notes.push_back(note.toStdString());
        watcher_.addWatchedService(call.service());
        if (!answering)
            kept_.push_back(call);
        else if (call.isReplyRequired())
            answer(call);
        return true;
    }
    void answerKept()
    {
        for (const QDBusMessage& call : std::exchange(kept_, {}))
            answer(call);
    }

    std::vector<std::string> notes;
    bool answering = true;

private:
    void answer(const QDBusMessage& call)
    {
        bus_.send(call.member() == QStringLiteral("Inhibit") ? call.createReply(++cookies_) : call.createReply());
    }

    QDBusConnection bus_;
    QDBusServiceWatcher watcher_;
    std::vector<QDBusMessage> kept_;
    unsigned cookies_ = 40;
};

/// The same program once more, as one of the others that it can be.
class OtherSelf
{
public:
    explicit OtherSelf(const char* part)
    {
        process.setProcessChannelMode(QProcess::ForwardedChannels);
        process.start(QStringLiteral("/proc/self/exe"), {QString::fromLatin1(part)});
        EXPECT_TRUE(process.waitForStarted());
    }
    ~OtherSelf()
    {
        process.kill();
        process.waitForFinished();
    }
    QProcess process;
};

/// Whether the X server blanks the screen after a second without a key, and what it has come to.
class ServerSaver
{
public:
    ServerSaver()
    {
        set(1);
        xcb_force_screen_saver(connection(), XCB_SCREEN_SAVER_RESET);
        xcb_flush(connection());
    }
    ~ServerSaver() { set(0); }
    ReplyPtr<xcb_screensaver_query_info_reply_t> info()
    {
        const auto request = xcb_screensaver_query_info(connection(), rootWindow(connection()));
        return ReplyPtr<xcb_screensaver_query_info_reply_t>(
            xcb_screensaver_query_info_reply(connection(), request, nullptr));
    }
    bool isOn() { return info()->state == XCB_SCREENSAVER_STATE_ON; }
    std::uint32_t idleMs() { return info()->ms_since_user_input; }

private:
    void set(std::int16_t seconds)
    {
        xcb_set_screen_saver(connection(), seconds, 0, XCB_BLANKING_PREFERRED, XCB_EXPOSURES_ALLOWED);
        xcb_flush(connection());
    }
};

} // namespace

int holdForever()
{
    NotingSaver fallback;
    DesktopScreenSaver saver(sessionBus(), fallback);
    saver.enable(false);
    return QCoreApplication::exec();
}

int holdAndLeave()
{
    NotingSaver fallback;
    DesktopScreenSaver saver(sessionBus(), fallback);
    saver.enable(false);
    return std::getchar() == EOF ? 1 : 0;
}

TEST(DesktopScreenSaver, AsksTheServiceForAHoldAndGivesItBack)
{
    const PrivateBus bus;
    FakeService service(bus.address, kPath);
    NotingSaver fallback;
    DesktopScreenSaver saver(sessionBus(), fallback);
    saver.enable(false);
    saver.enable(false);
    EXPECT_TRUE(comesTrue([&] { return !service.notes.empty(); }));
    saver.nudge();
    EXPECT_TRUE(comesTrue([&] { return service.notes.size() >= 2; }));
    saver.enable(true);
    EXPECT_TRUE(comesTrue([&] { return service.notes.size() >= 4; }));
    EXPECT_THAT(service.notes,
                ElementsAre("Inhibit A player A test plays", "SimulateUserActivity", "UnInhibit 41", "gone"));
    saver.enable(false);
    EXPECT_TRUE(comesTrue([&] { return service.notes.size() >= 5; }));
    saver.enable(true);
    EXPECT_TRUE(comesTrue([&] { return service.notes.size() >= 7; }));
    EXPECT_EQ(service.notes[5], "UnInhibit 42");
    EXPECT_THAT(fallback.notes, ElementsAre("nudge"));
}

TEST(DesktopScreenSaver, KnowsTheOldPathOfTheService)
{
    const PrivateBus bus;
    FakeService service(bus.address, kOldPath);
    NotingSaver fallback;
    DesktopScreenSaver saver(sessionBus(), fallback);
    saver.enable(false);
    EXPECT_TRUE(comesTrue([&] { return !service.notes.empty(); }));
    saver.enable(true);
    EXPECT_TRUE(comesTrue([&] { return service.notes.size() >= 3; }));
    EXPECT_THAT(service.notes, ElementsAre("Inhibit A player A test plays", "UnInhibit 41", "gone"));
    EXPECT_THAT(fallback.notes, ElementsAre());
}

TEST(DesktopScreenSaver, FallsBackWhereTheBusHasNoSuchService)
{
    const PrivateBus bus;
    NotingSaver fallback;
    DesktopScreenSaver saver(sessionBus(), fallback);
    saver.enable(false);
    EXPECT_TRUE(comesTrue([&] { return !fallback.notes.empty(); }));
    saver.enable(true);
    EXPECT_TRUE(comesTrue([&] { return fallback.notes.size() >= 2; }));
    EXPECT_THAT(fallback.notes, ElementsAre("off", "on"));
}

TEST(DesktopScreenSaver, ACookieThatComesLateIsGivenBack)
{
    const PrivateBus bus;
    FakeService service(bus.address, kPath);
    service.answering = false;
    NotingSaver fallback;
    DesktopScreenSaver saver(sessionBus(), fallback);
    saver.enable(false);
    EXPECT_TRUE(comesTrue([&] { return !service.notes.empty(); }));
    saver.enable(true);
    service.answering = true;
    service.answerKept();
    EXPECT_TRUE(comesTrue([&] { return service.notes.size() >= 3; }));
    EXPECT_THAT(service.notes, ElementsAre("Inhibit A player A test plays", "UnInhibit 41", "gone"));
}

TEST(DesktopScreenSaver, AServiceThatDoesNotAnswerHoldsNothing)
{
    const PrivateBus bus;
    FakeService service(bus.address, kPath);
    service.answering = false;
    NotingSaver fallback;
    DesktopScreenSaver saver(sessionBus(), fallback);
    saver.enable(false);
    EXPECT_TRUE(comesTrue([&] { return !fallback.notes.empty() && service.notes.size() >= 2; }));
    EXPECT_THAT(fallback.notes, ElementsAre("off"));
    EXPECT_THAT(service.notes, ElementsAre("Inhibit A player A test plays", "gone"));
}

TEST(DesktopScreenSaver, ABusThatEndsIsReplacedByTheFallback)
{
    PrivateBus bus;
    std::optional<FakeService> service(std::in_place, bus.address, kPath);
    NotingSaver fallback;
    DesktopScreenSaver saver(sessionBus(), fallback);
    saver.enable(false);
    EXPECT_TRUE(comesTrue([&] { return !service->notes.empty(); }));
    service.reset();
    bus.end();
    saver.nudge();
    EXPECT_TRUE(comesTrue([&] { return fallback.notes.size() >= 2; }));
    EXPECT_THAT(fallback.notes, ElementsAre("nudge", "off"));
}

TEST(DesktopScreenSaver, TheDesktopSeesAProcessDie)
{
    const PrivateBus bus;
    FakeService service(bus.address, kPath);
    OtherSelf holder(kHoldForever);
    EXPECT_TRUE(comesTrue([&] { return !service.notes.empty(); }));
    EXPECT_THAT(service.notes, ElementsAre("Inhibit A player A test plays"));
    ASSERT_EQ(::kill(static_cast<pid_t>(holder.process.processId()), SIGKILL), 0);
    EXPECT_TRUE(comesTrue([&] { return service.notes.size() >= 2; }));
    EXPECT_THAT(service.notes, ElementsAre("Inhibit A player A test plays", "gone"));
}

TEST(DesktopScreenSaver, ASilentBusHoldsNobodyUp)
{
    SilentBus bus;
    NotingSaver fallback;
    QElapsedTimer time;
    time.start();
    {
        DesktopScreenSaver saver(sessionBus(), fallback);
        saver.enable(false);
        EXPECT_LT(time.elapsed(), 1000);
        EXPECT_TRUE(comesTrue([&] { return bus.hasNewCaller(); }));
        EXPECT_TRUE(comesTrue([&] { return !fallback.notes.empty(); }));
        EXPECT_THAT(fallback.notes, ElementsAre("off"));
        saver.enable(true);
        EXPECT_TRUE(comesTrue([&] { return fallback.notes.size() >= 2; }));
        saver.enable(false);
        EXPECT_TRUE(comesTrue([&] { return bus.hasNewCaller(); }));
        time.start();
    }
    EXPECT_LT(time.elapsed(), 1500);
    // The last word is to give back what may be held.
    EXPECT_THAT(fallback.notes, ElementsAre("off", "on", "on"));
}

TEST(DesktopScreenSaver, ASilentBusDoesNotKeepTheProgram)
{
    SilentBus bus;
    OtherSelf other(kHoldAndLeave);
    EXPECT_TRUE(comesTrue([&] { return bus.hasNewCaller(); }));
    other.process.write("leave\n");
    EXPECT_TRUE(comesTrue([&] { return other.process.state() == QProcess::NotRunning; }));
    EXPECT_EQ(other.process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(other.process.exitCode(), 0);
}

TEST(DesktopScreenSaver, NothingArrivesAfterItsEnd)
{
    class NoBus : public IdleBus
    {
    public:
        explicit NoBus(std::promise<void>& asked) : asked_(asked) {}
        std::optional<std::uint32_t> inhibit() override
        {
            asked_.set_value();
            return std::nullopt;
        }
        void uninhibit(std::uint32_t) override {}
        bool simulateActivity() override { return false; }

    private:
        std::promise<void>& asked_;
    };
    NotingSaver fallback;
    for (int round = 0; round < 20; ++round) {
        std::promise<void> asked;
        DesktopScreenSaver saver(std::make_unique<NoBus>(asked), fallback);
        saver.enable(false);
        ASSERT_EQ(asked.get_future().wait_for(15s), std::future_status::ready);
    }
    QCoreApplication::processEvents();
    EXPECT_THAT(fallback.notes, testing::AllOf(testing::SizeIs(20), testing::Each("on")));
}

TEST(DesktopScreenSaver, WithoutABusTheServersSaverIsHeldOff)
{
    qputenv(kBusVariable, "unix:path=/nowhere/bus");
    X11ScreenSaver real;
    NotingSaver fallback(&real);
    DesktopScreenSaver saver(sessionBus(), fallback);
    qunsetenv(kBusVariable);
    saver.enable(false);
    EXPECT_TRUE(comesTrue([&] { return !fallback.notes.empty(); }));
    EXPECT_THAT(fallback.notes, ElementsAre("off"));
    ServerSaver server;
    bool wasOn = false;
    EXPECT_TRUE(comesTrue([&] {
        wasOn = wasOn || server.isOn();
        return server.idleMs() > 3000;
    }));
    EXPECT_FALSE(wasOn);
    saver.enable(true);
    EXPECT_TRUE(comesTrue([&] { return server.isOn(); }));
}

} // namespace tandrel
