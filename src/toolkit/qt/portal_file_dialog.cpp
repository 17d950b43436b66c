#include "toolkit/qt/portal_file_dialog.h"

#include "platform/path_marks.h"
#include "toolkit/qt/file_names.h"
#include "toolkit/qt/portal_options.h"

#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

namespace tandrel
{

namespace
{

/// From the first word to the dialog; what takes longer would seem to do nothing.
constexpr int kWholeMs = 5000;
constexpr int kCallMs = 10000;
constexpr int kWatchMs = 250;
constexpr uint kChosen = 0;
constexpr uint kCancelled = 1;

const QString kBus = QStringLiteral("org.freedesktop.DBus");
const QString kBusPath = QStringLiteral("/org/freedesktop/DBus");
const QString kService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kChooser = QStringLiteral("org.freedesktop.portal.FileChooser");
const QString kRequest = QStringLiteral("org.freedesktop.portal.Request");

QDBusMessage busCall(const char* method, const QVariantList& arguments = {})
{
    QDBusMessage message = QDBusMessage::createMethodCall(kBus, kBusPath, kBus, QString::fromLatin1(method));
    message.setArguments(arguments);
    return message;
}

QString freshName() { return QStringLiteral("tandrel%1").arg(QRandomGenerator::system()->generate64(), 0, 16); }

bool isReply(const QDBusMessage& message) { return message.type() == QDBusMessage::ReplyMessage; }

} // namespace

QString sessionBusAddress()
{
    const QByteArray named = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    if (!named.isEmpty())
        return QString::fromLatin1(named);
    const QString usual = QFile::decodeName(qgetenv("XDG_RUNTIME_DIR") + "/bus");
    return QFileInfo::exists(usual) ? QStringLiteral("unix:path=") + usual : QString();
}

PortalFileDialog::PortalFileDialog(BusCheck busIsSilent) : busIsSilent_(std::move(busIsSilent))
{
    registerPortalTypes();
    guard_.setObjectName(QStringLiteral("portalGuard"));
    guard_.setAttribute(Qt::WA_DontShowOnScreen);
    limit_.setSingleShot(true);
    connect(&limit_, &QTimer::timeout, this, [this] { end(PortalAnswer::Kind::Silent); });
    // A bus that dies tells nobody.
    connect(&watch_, &QTimer::timeout, this, [this] {
        if (!bus_->isConnected())
            end(PortalAnswer::Kind::NotThere);
    });
}

PortalFileDialog::~PortalFileDialog()
{
    if (bus_)
        QDBusConnection::disconnectFromBus(name_);
}

PortalAnswer PortalFileDialog::choose(const FileDialog& what, const QString& parent)
{
    what_ = what;
    parent_ = parent;
    // An end from outside, which the guard sees, is an answer without paths.
    answer_ = {PortalAnswer::Kind::Answered, {}};
    limit_.start(kWholeMs);
    connectToBus();
    guard_.exec();
    if (bus_ && !request_.isEmpty())
        bus_->send(QDBusMessage::createMethodCall(owner_, request_, kRequest, QStringLiteral("Close")));
    return answer_;
}

void PortalFileDialog::end(PortalAnswer::Kind kind)
{
    limit_.stop();
    watch_.stop();
    connecting_.forget();
    answer_.kind = kind;
    guard_.done(QDialog::Rejected);
}

void PortalFileDialog::connectToBus()
{
    name_ = freshName();
    connecting_.run([this, name = name_, address = sessionBusAddress(), silent = busIsSilent_]() -> Errand::Then {
        // Only the answer knows of this object: it comes where the object can't be gone.
        if (silent && silent())
            return [this] { end(PortalAnswer::Kind::Silent); };
        QDBusConnection::connectToBus(address, name);
        return [this] { connected(); };
    });
}

void PortalFileDialog::connected()
{
    bus_ = QDBusConnection(name_);
    if (!bus_->isConnected())
        return end(PortalAnswer::Kind::NotThere);
    watch_.start(kWatchMs);
    findOwner();
}

void PortalFileDialog::call(const QDBusMessage& message, Reply reply)
{
    auto* pending = new QDBusPendingCallWatcher(bus_->asyncCall(message, kCallMs), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, [this, pending, reply = std::move(reply)] {
        pending->deleteLater();
        // What has ended is not woken by a late reply.
        if (guard_.isVisible())
            reply(pending->reply());
    });
}

void PortalFileDialog::findOwner()
{
    call(busCall("GetNameOwner", {kService}), [this](const QDBusMessage& reply) {
        if (isReply(reply))
            ownerFound(reply.arguments().value(0).toString());
        else
            startService();
    });
}

void PortalFileDialog::startService()
{
    call(busCall("ListActivatableNames"), [this](const QDBusMessage& names) {
        if (!isReply(names) || !names.arguments().value(0).toStringList().contains(kService))
            return end(PortalAnswer::Kind::NotThere);
        call(busCall("StartServiceByName", {kService, 0U}), [this](const QDBusMessage& started) {
            if (!isReply(started))
                return end(PortalAnswer::Kind::NotThere);
            call(busCall("GetNameOwner", {kService}), [this](const QDBusMessage& reply) {
                if (!isReply(reply))
                    return end(PortalAnswer::Kind::NotThere);
                ownerFound(reply.arguments().value(0).toString());
            });
        });
    });
}

void PortalFileDialog::ownerFound(const QString& owner)
{
    owner_ = owner;
    auto* watcher = new QDBusServiceWatcher(kService, *bus_, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, this, &PortalFileDialog::ownerGone);
    ask();
}

void PortalFileDialog::ownerGone()
{
    if (guard_.isVisible())
        end(PortalAnswer::Kind::NotThere);
}

void PortalFileDialog::ask()
{
    token_ = freshName();
    QString sender = bus_->baseService().mid(1);
    sender.replace(QLatin1Char('.'), QLatin1Char('_'));
    // The answer may be faster than the reply, so its place is known before.
    listenTo(QStringLiteral("%1/request/%2/%3").arg(kPath, sender, token_));
    const bool saves = what_.kind == FileDialog::Kind::Save;
    QDBusMessage message = QDBusMessage::createMethodCall(
        owner_, kPath, kChooser, saves ? QStringLiteral("SaveFile") : QStringLiteral("OpenFile"));
    message << parent_ << QString::fromStdString(what_.title) << portalOptions(what_, token_);
    call(message, [this](const QDBusMessage& reply) { asked(reply); });
}

void PortalFileDialog::listenTo(const QString& request)
{
    request_ = request;
    bus_->connect(owner_, request, kRequest, QStringLiteral("Response"), this, SLOT(answered(uint, QVariantMap)));
}

void PortalFileDialog::asked(const QDBusMessage& reply)
{
    if (!isReply(reply))
        return end(PortalAnswer::Kind::NotThere);
    limit_.stop();
    // Services of old name the place themselves.
    const QString request = reply.arguments().value(0).value<QDBusObjectPath>().path();
    if (request != request_)
        listenTo(request);
}

void PortalFileDialog::answered(uint response, const QVariantMap& results)
{
    if (!guard_.isVisible())
        return;
    request_.clear();
    if (response == kChosen)
        answer_.paths = usable(results.value(QStringLiteral("uris")).toStringList());
    end(response == kChosen || response == kCancelled ? PortalAnswer::Kind::Answered : PortalAnswer::Kind::NotThere);
}

std::vector<Text> PortalFileDialog::usable(const QStringList& addresses) const
{
    std::vector<Text> paths;
    for (const QString& address : addresses) {
        const auto path = localPathOf(address.toUtf8());
        if (!path || !survivesMarks(*path))
            continue;
        if (what_.kind == FileDialog::Kind::Save)
            paths.push_back(markPath(withExtension(*path, what_.extension).toStdString()));
        else if (what_.kind == FileDialog::Kind::Folder ? isFolder(*path) : isFile(*path))
            paths.push_back(markPath(path->toStdString()));
    }
    return paths;
}

} // namespace tandrel
