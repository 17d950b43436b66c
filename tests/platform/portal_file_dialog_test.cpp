// The desktop's dialog for files: a session bus of the test's own, with a service that answers as a user would.
#include "private_bus.h"
#include "temporary_folder.h"
#include "toolkit/form.h"
#include "toolkit/qt/portal_file_dialog.h"
#include "toolkit/qt/portal_options.h"
#include "toolkit/qt/qt_backend.h"

#include "platform/path_marks.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QElapsedTimer>
#include <QThread>

#include <algorithm>
#include <atomic>
#include <functional>
#include <gmock/gmock.h>
#include <sstream>

namespace tandrel
{

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace
{

constexpr const char* kService = "org.freedesktop.portal.Desktop";
constexpr const char* kPath = "/org/freedesktop/portal/desktop";
constexpr const char* kWishVariable = "TANDREL_FILE_DIALOG";
constexpr uint kChosen = 0;
constexpr uint kCancelled = 1;
constexpr uint kOther = 2;

/// A desktop whose user does what `user` says.
class FakePortal : public QDBusVirtualObject
{
public:
    explicit FakePortal(const QString& address) : bus_(QDBusConnection::connectToBus(address, QStringLiteral("portal")))
    {
        EXPECT_TRUE(bus_.registerVirtualObject(QString::fromLatin1(kPath), this, QDBusConnection::SubPath));
        EXPECT_TRUE(bus_.registerService(QString::fromLatin1(kService)));
    }
    ~FakePortal() override { QDBusConnection::disconnectFromBus(bus_.name()); }

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& call, const QDBusConnection&) override
    {
        calls.push_back(call.member().toStdString());
        if (call.member() == QStringLiteral("Close") || deaf)
            return true;
        if (!error.isEmpty())
            return bus_.send(call.createErrorReply(error, QStringLiteral("no dialog today")));
        parent = call.arguments().value(0).toString();
        title = call.arguments().value(1).toString();
        options = qdbus_cast<QVariantMap>(call.arguments().value(2));
        QString sender = call.service().mid(1);
        request_ = QStringLiteral("%1/request/%2/%3")
                       .arg(QString::fromLatin1(kPath), sender.replace(QLatin1Char('.'), QLatin1Char('_')),
                            ownToken.isEmpty() ? options.value(QStringLiteral("handle_token")).toString() : ownToken);
        if (early)
            user();
        bus_.send(call.createReply(QVariant::fromValue(QDBusObjectPath(request_))));
        if (!early)
            // An old service is not listened to before its reply is there.
            QTimer::singleShot(ownToken.isEmpty() ? 0 : 200, this, [this] { user(); });
        return true;
    }
    void answer(uint response, const QStringList& addresses = {})
    {
        QDBusMessage signal = QDBusMessage::createSignal(request_, QStringLiteral("org.freedesktop.portal.Request"),
                                                         QStringLiteral("Response"));
        signal << response << QVariantMap{{QStringLiteral("uris"), addresses}};
        bus_.send(signal);
    }
    void leave() { bus_.unregisterService(QString::fromLatin1(kService)); }

    std::function<void()> user = [] {};
    /// The answer comes before the reply.
    bool early = false;
    /// Nothing is answered at all.
    bool deaf = false;
    QString error;
    QString ownToken;
    std::vector<std::string> calls;
    QString parent;
    QString title;
    QVariantMap options;

private:
    QDBusConnection bus_;
    QString request_;
};

/// Cancels the toolkit's own dialog as soon as it is up, and knows that it was.
class OwnDialogCanceller : public QTimer
{
public:
    OwnDialogCanceller()
    {
        connect(this, &QTimer::timeout, this, [this] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (!dialog || dialog->objectName() != QStringLiteral("fileDialog"))
                return;
            seen.push_back(dialog->windowTitle().toStdString());
            dialog->reject();
        });
        start(5);
    }
    std::vector<std::string> seen;
};

class PortalDialogs : public testing::Test
{
protected:
    PortalDialogs()
    {
        qputenv(kWishVariable, "portal");
        what.title = "Open Multiple Video...";
        what.folder = markPath(folder.path() + "/");
        what.several = true;
        what.filters = {{"Films", {"*.avi", "*.3gp"}}, {"All Files", {"*"}}};
        folder.write("a.avi", "film");
        folder.write("b c.avi", "film");
    }
    ~PortalDialogs() override { qunsetenv(kWishVariable); }

    QString address(const std::string& name) const
    {
        const QByteArray path = QByteArray::fromStdString(folder.path(name));
        return QStringLiteral("file://") + QString::fromLatin1(path.toPercentEncoding("/"));
    }

    test::TemporaryFolder folder;
    FileDialog what;
    OwnDialogCanceller own;
};

class PortalDialogsOnABus : public PortalDialogs
{
protected:
    PrivateBus bus;
    FakePortal portal{bus.address};
    QtBackend qt;
};

TEST_F(PortalDialogsOnABus, TellsTheDesktopAllThatIsWanted)
{
    portal.user = [&] { portal.answer(kChosen, {address("a.avi")}); };
    EXPECT_THAT(qt.chooseFiles(what), ElementsAre(folder.path("a.avi")));
    EXPECT_THAT(portal.calls, ElementsAre("OpenFile"));
    EXPECT_EQ(portal.title, "Open Multiple Video...");
    EXPECT_EQ(portal.parent, "") << "no form is seen";
    EXPECT_TRUE(portal.options.value("modal").toBool());
    EXPECT_TRUE(portal.options.value("multiple").toBool());
    EXPECT_FALSE(portal.options.contains("directory"));
    EXPECT_EQ(portal.options.value("current_folder").toByteArray().toStdString(), folder.path() + "/" + '\0');
    const auto filters = qdbus_cast<QList<PortalFilter>>(portal.options.value("filters"));
    ASSERT_THAT(filters, SizeIs(2));
    EXPECT_EQ(filters[0].name, "Films");
    ASSERT_THAT(filters[0].patterns, SizeIs(2));
    EXPECT_EQ(filters[0].patterns[0].kind, 0U);
    EXPECT_EQ(filters[0].patterns[0].pattern, "*.[aA][vV][iI]");
    EXPECT_EQ(filters[0].patterns[1].pattern, "*.3[gG][pP]");
    EXPECT_EQ(filters[1].patterns.value(0).pattern, "*");
    EXPECT_THAT(own.seen, IsEmpty());
}

TEST_F(PortalDialogsOnABus, TheDesktopIsToldTheActiveWindowOfX)
{
    installBackend(&qt);
    const auto form = std::make_shared<Form>("console", Frame::Dialog, TwipsRect{0, 0, 3000, 3000});
    form->Show();
    std::ostringstream expected;
    if (QGuiApplication::platformName() == QStringLiteral("xcb"))
        expected << "x11:" << std::hex << form->hWnd();
    portal.user = [&] { portal.answer(kCancelled); };
    qt.chooseFiles(what);
    EXPECT_EQ(portal.parent.toStdString(), expected.str());
    form->discard();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    installBackend(nullptr);
}

TEST_F(PortalDialogsOnABus, SeveralFilesComeInTheirOrder)
{
    portal.user = [&] { portal.answer(kChosen, {address("b c.avi"), address("a.avi")}); };
    EXPECT_THAT(qt.chooseFiles(what), ElementsAre(folder.path("b c.avi"), folder.path("a.avi")));
}

TEST_F(PortalDialogsOnABus, AnAnswerBeforeTheReplyIsHeard)
{
    portal.early = true;
    portal.user = [&] { portal.answer(kChosen, {address("a.avi")}); };
    EXPECT_THAT(qt.chooseFiles(what), ElementsAre(folder.path("a.avi")));
}

TEST_F(PortalDialogsOnABus, AnOldServiceNamesTheRequestItself)
{
    portal.ownToken = QStringLiteral("t7");
    portal.user = [&] { portal.answer(kChosen, {address("a.avi")}); };
    EXPECT_THAT(qt.chooseFiles(what), ElementsAre(folder.path("a.avi")));
}

TEST_F(PortalDialogsOnABus, CancelIsNoChoiceAndNoSecondDialog)
{
    portal.user = [&] { portal.answer(kCancelled); };
    EXPECT_THAT(qt.chooseFiles(what), IsEmpty());
    EXPECT_THAT(own.seen, IsEmpty());
    EXPECT_THAT(portal.calls, ElementsAre("OpenFile")) << "what is over needs no closing";
}

TEST_F(PortalDialogsOnABus, AFolderIsAFolderAndAFileIsNone)
{
    what.kind = FileDialog::Kind::Folder;
    what.several = false;
    what.filters.clear();
    portal.user = [&] { portal.answer(kChosen, {address("a.avi"), QStringLiteral("file:///")}); };
    EXPECT_THAT(qt.chooseFiles(what), ElementsAre("/"));
    EXPECT_TRUE(portal.options.value("directory").toBool());
    EXPECT_FALSE(portal.options.contains("multiple"));
    EXPECT_FALSE(portal.options.contains("filters"));
}

TEST_F(PortalDialogsOnABus, AFileToSaveNeedsNotBeThere)
{
    what.kind = FileDialog::Kind::Save;
    what.several = false;
    what.name = "list";
    what.extension = "txt";
    portal.user = [&] { portal.answer(kChosen, {address("list")}); };
    EXPECT_THAT(qt.chooseFiles(what), ElementsAre(folder.path("list.txt")));
    EXPECT_THAT(portal.calls, ElementsAre("SaveFile"));
    EXPECT_EQ(portal.options.value("current_name").toString(), "list");
}

TEST_F(PortalDialogsOnABus, OddNamesComeByteForByte)
{
    const std::vector<std::string> odd{"caf\xE9 \xFF.avi", "one|two.avi", "say \"hi\".avi", "line\nend.avi",
                                       "50%25.avi"};
    QStringList addresses;
    std::vector<Text> expected;
    for (const std::string& name : odd) {
        folder.write(name, "film");
        addresses.append(address(name));
        expected.push_back(markPath(folder.path(name)));
    }
    portal.user = [&] { portal.answer(kChosen, addresses); };
    EXPECT_EQ(qt.chooseFiles(what), expected);
}

TEST_F(PortalDialogsOnABus, WhatIsNoFileHereIsLeftOut)
{
    portal.user = [&] {
        portal.answer(kChosen,
                      {QStringLiteral("smb://host/a.avi"), QStringLiteral("file://host/a.avi"),
                       QStringLiteral("file:///"), address("gone.avi"), QStringLiteral("a.avi"), address("a.avi")});
    };
    EXPECT_THAT(qt.chooseFiles(what), ElementsAre(folder.path("a.avi")));
}

TEST_F(PortalDialogsOnABus, AnErrorIsFollowedByTheOwnDialog)
{
    portal.error = QStringLiteral("org.freedesktop.DBus.Error.UnknownMethod");
    EXPECT_THAT(qt.chooseFiles(what), IsEmpty());
    EXPECT_THAT(own.seen, ElementsAre("Open Multiple Video..."));
}

TEST_F(PortalDialogsOnABus, ADialogThatFailsIsFollowedByTheOwnOne)
{
    portal.user = [&] { portal.answer(kOther); };
    EXPECT_THAT(qt.chooseFiles(what), IsEmpty());
    EXPECT_THAT(own.seen, ElementsAre("Open Multiple Video..."));
}

TEST_F(PortalDialogsOnABus, AServiceThatVanishesIsFollowedByTheOwnDialogAndAskedTheNextTime)
{
    portal.user = [&] { portal.leave(); };
    EXPECT_THAT(qt.chooseFiles(what), IsEmpty());
    EXPECT_THAT(own.seen, ElementsAre("Open Multiple Video..."));
    QDBusConnection(QStringLiteral("portal")).registerService(QString::fromLatin1(kService));
    portal.user = [&] { portal.answer(kChosen, {address("a.avi")}); };
    EXPECT_THAT(qt.chooseFiles(what), ElementsAre(folder.path("a.avi")));
    EXPECT_THAT(own.seen, SizeIs(1));
}

TEST_F(PortalDialogsOnABus, ABusThatDiesIsFollowedByTheOwnDialog)
{
    portal.user = [&] { bus.end(); };
    EXPECT_THAT(qt.chooseFiles(what), IsEmpty());
    EXPECT_THAT(own.seen, ElementsAre("Open Multiple Video..."));
}

TEST_F(PortalDialogsOnABus, ADeafServiceIsNotAskedTwice)
{
    portal.deaf = true;
    QElapsedTimer clock;
    clock.start();
    EXPECT_THAT(qt.chooseFiles(what), IsEmpty());
    EXPECT_LT(clock.elapsed(), 20000);
    EXPECT_THAT(own.seen, SizeIs(1));
    clock.start();
    EXPECT_THAT(qt.chooseFiles(what), IsEmpty());
    EXPECT_LT(clock.elapsed(), 4000);
    EXPECT_THAT(own.seen, SizeIs(2));
    // It may hear late that the first one is over.
    EXPECT_EQ(std::count(portal.calls.begin(), portal.calls.end(), "OpenFile"), 1);
}

TEST_F(PortalDialogsOnABus, TheEndOfTheProgramClosesIt)
{
    portal.user = [&] { qt.endBoxes(); };
    EXPECT_THAT(qt.chooseFiles(what), IsEmpty());
    EXPECT_TRUE(comesTrue([&] { return portal.calls.size() == 2; }));
    EXPECT_THAT(portal.calls, ElementsAre("OpenFile", "Close"));
    EXPECT_THAT(own.seen, IsEmpty());
}

TEST_F(PortalDialogsOnABus, TheProgramGoesOnAndItsWindowsAreDeafMeanwhile)
{
    QWidget window;
    window.show();
    bool modal = false;
    int beats = 0;
    QTimer beat;
    QObject::connect(&beat, &QTimer::timeout, [&] {
        modal = modal || QApplication::activeModalWidget() != nullptr;
        if (++beats == 20)
            portal.answer(kCancelled);
    });
    portal.user = [&] { beat.start(5); };
    EXPECT_THAT(qt.chooseFiles(what), IsEmpty());
    EXPECT_GE(beats, 20);
    EXPECT_TRUE(modal);
    EXPECT_FALSE(QApplication::activeModalWidget());
}

TEST_F(PortalDialogsOnABus, TheUserMayHaveTheToolkitsOwn)
{
    qputenv(kWishVariable, "toolkit");
    EXPECT_THAT(qt.chooseFiles(what), IsEmpty());
    EXPECT_THAT(own.seen, SizeIs(1));
    EXPECT_THAT(portal.calls, IsEmpty());
}

TEST_F(PortalDialogs, ABusWithoutTheServiceMeansTheOwnDialogAtOnce)
{
    const PrivateBus bus;
    QtBackend qt;
    QElapsedTimer clock;
    clock.start();
    EXPECT_THAT(qt.chooseFiles(what), IsEmpty());
    EXPECT_LT(clock.elapsed(), 2000);
    EXPECT_THAT(own.seen, SizeIs(1));
}

TEST_F(PortalDialogs, NoBusMeansTheOwnDialogAtOnce)
{
    for (const char* address : {"disabled:", "unix:path=/nowhere/bus"}) {
        qputenv(kBusVariable, address);
        QtBackend qt;
        QElapsedTimer clock;
        clock.start();
        EXPECT_THAT(qt.chooseFiles(what), IsEmpty());
        EXPECT_LT(clock.elapsed(), 2000) << address;
    }
    qunsetenv(kBusVariable);
    EXPECT_THAT(own.seen, SizeIs(2));
}

TEST_F(PortalDialogs, ASilentBusIsKnownWithoutHoldingUpTheProgram)
{
    const SilentBus bus;
    QtBackend qt;
    std::atomic<int> checks = 0;
    qt.setBusCheck([&] {
        ++checks;
        QThread::msleep(300);
        return true;
    });
    int beats = 0;
    QTimer beat;
    QObject::connect(&beat, &QTimer::timeout, [&] { ++beats; });
    beat.start(10);
    EXPECT_THAT(qt.chooseFiles(what), IsEmpty());
    EXPECT_GT(beats, 10);
    EXPECT_THAT(own.seen, SizeIs(1));
    EXPECT_THAT(qt.chooseFiles(what), IsEmpty());
    EXPECT_EQ(checks, 1) << "what was silent once is not asked again";
    EXPECT_THAT(own.seen, SizeIs(2));
}

} // namespace

} // namespace tandrel

int main(int argc, char** argv)
{
    testing::InitGoogleMock(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
