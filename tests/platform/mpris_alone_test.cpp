// The interface for media players where the bus isn't there, comes late or says nothing.
#include "mpris_bench.h"

namespace tandrel
{

using namespace mpris_bench;

TEST(MprisAlone, WithoutABusNobodyIsHeard)
{
    for (const char* address : {"unix:path=/nowhere/bus", "disabled:", "", "nonsense"}) {
        MprisRemote remote(facts(), address);
        remote.publish(film());
        EXPECT_FALSE(remote.isHeard());
        EXPECT_FALSE(remote.take() || remote.takeUrgent());
    }
}

TEST(MprisAlone, ABusThatComesLateIsFound)
{
    QTemporaryDir folder;
    const QString path = folder.path() + QStringLiteral("/bus");
    MprisRemote remote(facts(), "unix:path=" + path.toStdString());
    QProcess daemon;
    daemon.start(QStringLiteral("dbus-daemon"),
                 {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--nopidfile"),
                  QStringLiteral("--address=unix:path=") + path});
    EXPECT_TRUE(comesTrue([&] { return remote.isHeard(); }));
    daemon.kill();
    daemon.waitForFinished();
}

TEST(MprisAlone, ASilentBusHoldsNobodyUp)
{
    SilentBus bus;
    QElapsedTimer time;
    {
        MprisRemote remote(facts());
        remote.publish(film());
        EXPECT_TRUE(comesTrue([&] { return bus.hasNewCaller(); }));
        EXPECT_FALSE(remote.isHeard());
        time.start();
    }
    EXPECT_LT(time.elapsed(), 20000) << "its thread is left behind";
}

TEST(MprisAlone, ABusThatStopsAnsweringHoldsNobodyUp)
{
    QProcess daemon;
    daemon.start(QStringLiteral("dbus-daemon"),
                 {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--nopidfile"),
                  QStringLiteral("--print-address=1"), QStringLiteral("--address=unix:tmpdir=/tmp")});
    ASSERT_TRUE(comesTrue([&] { return daemon.canReadLine(); }));
    const std::string address = daemon.readLine().trimmed().toStdString();
    QElapsedTimer time;
    {
        MprisRemote remote(facts(), address);
        ASSERT_TRUE(comesTrue([&] { return remote.isHeard(); }));
        ASSERT_EQ(::kill(static_cast<pid_t>(daemon.processId()), SIGSTOP), 0);
        RemoteState state = film();
        for (int i = 0; i < 20000; ++i) {
            state.volume = i % 100 / 100.0;
            remote.publish(state);
        }
        time.start();
    }
    EXPECT_LT(time.elapsed(), 20000);
    ::kill(static_cast<pid_t>(daemon.processId()), SIGCONT);
    daemon.kill();
    daemon.waitForFinished();
}

TEST(MprisAlone, ManyComeAndGo)
{
    const PrivateBus bus;
    for (int round = 0; round < 50; ++round) {
        MprisRemote remote(facts());
        remote.called = [] {};
        remote.publish(film());
        if (round % 2 == 0) {
            EXPECT_TRUE(comesTrue([&] { return remote.isHeard(); }));
        }
    }
    Client client(bus.address);
    EXPECT_TRUE(comesTrue([&] { return !client.isThere(mpris::kName); }));
}

} // namespace tandrel
