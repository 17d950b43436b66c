/// Session buses of a test's own.
#pragma once

#include "display_test.h"

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <vector>

namespace tandrel
{

constexpr const char* kBusVariable = "DBUS_SESSION_BUS_ADDRESS";

/// A session bus of its own, which the environment names until the end of the object.
class PrivateBus
{
public:
    PrivateBus()
    {
        daemon_.start(QStringLiteral("dbus-daemon"),
                      {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--nopidfile"),
                       QStringLiteral("--print-address=1"), QStringLiteral("--address=unix:tmpdir=/tmp")});
        EXPECT_TRUE(comesTrue([this] { return daemon_.canReadLine(); }));
        address = QString::fromLatin1(daemon_.readLine()).trimmed();
        qputenv(kBusVariable, address.toLatin1());
    }
    ~PrivateBus()
    {
        qunsetenv(kBusVariable);
        end();
    }
    void end()
    {
        daemon_.kill();
        daemon_.waitForFinished();
    }

    QString address;

private:
    QProcess daemon_;
};

/// A socket that takes connections and never says a word, named by the environment until the end of the object.
class SilentBus
{
public:
    SilentBus() : socket_(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0))
    {
        const std::string path = (folder_.path() + QStringLiteral("/bus")).toStdString();
        sockaddr_un name{};
        name.sun_family = AF_UNIX;
        path.copy(static_cast<char*>(name.sun_path), sizeof name.sun_path - 1);
        EXPECT_EQ(::bind(socket_, reinterpret_cast<const sockaddr*>(&name), sizeof name), 0);
        EXPECT_EQ(::listen(socket_, 8), 0);
        qputenv(kBusVariable, QByteArray::fromStdString("unix:path=" + path));
    }
    ~SilentBus()
    {
        qunsetenv(kBusVariable);
        for (const int caller : callers_)
            ::close(caller);
        ::close(socket_);
    }

    /// True once more for each caller that has begun to talk.
    bool hasNewCaller()
    {
        char first = 0;
        if (const int caller = ::accept4(socket_, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK); caller >= 0)
            callers_.push_back(caller);
        if (callers_.size() == heard_ || ::recv(callers_.back(), &first, 1, 0) != 1)
            return false;
        heard_ = callers_.size();
        return true;
    }

private:
    QTemporaryDir folder_;
    int socket_;
    std::vector<int> callers_;
    std::size_t heard_ = 0;
};

} // namespace tandrel
