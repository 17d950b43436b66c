/// The desktop's own dialog for files, over the session bus.
#pragma once

#include "toolkit/backend.h"
#include "toolkit/qt/errand.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDialog>
#include <QTimer>
#include <QVariantMap>

#include <functional>
#include <optional>

namespace tandrel
{

struct PortalAnswer {
    enum class Kind {
        /// The user is done; without paths where nothing was chosen.
        Answered,
        /// Nobody there shows such a dialog, or it went away: another one has to do it.
        NotThere,
        /// The bus, or the service, keeps one waiting: it is not worth to be asked again.
        Silent
    };
    Kind kind = Kind::NotThere;
    std::vector<Text> paths;
};

/// One asking. All calls are on their way without being waited for; the user-interface thread runs events meanwhile,
/// with the program's own windows deaf to input.
class PortalFileDialog : public QObject
{
    Q_OBJECT

public:
    /// Tells, on another thread, whether the bus takes callers and says nothing. May wait.
    using BusCheck = std::function<bool()>;

    explicit PortalFileDialog(BusCheck busIsSilent);
    ~PortalFileDialog() override;

    /// `parent` is the window that the dialog stands before, as the service is told it.
    PortalAnswer choose(const FileDialog& what, const QString& parent);

private slots:
    void answered(uint response, const QVariantMap& results);
    void ownerGone();

private:
    using Reply = std::function<void(const QDBusMessage& reply)>;

    void connectToBus();
    void connected();
    void findOwner();
    void ownerFound(const QString& owner);
    void startService();
    void ask();
    void asked(const QDBusMessage& reply);
    void listenTo(const QString& request);
    void end(PortalAnswer::Kind kind);
    void call(const QDBusMessage& message, Reply reply);
    std::vector<Text> usable(const QStringList& addresses) const;

    BusCheck busIsSilent_;
    FileDialog what_;
    QString parent_;
    QString name_;
    QString owner_;
    QString token_;
    QString request_;
    std::optional<QDBusConnection> bus_;
    Errand connecting_;
    /// Never on the screen: it waits, takes the input of the program's windows, and ends with the program's boxes.
    QDialog guard_;
    QTimer limit_;
    QTimer watch_;
    PortalAnswer answer_;
};

/// Of the bus that the environment names at this moment, or that lies at its usual place. Empty without either: looking
/// for a bus would start one.
QString sessionBusAddress();

} // namespace tandrel
