/// What the desktop's dialog for files is asked with, in the words of the bus.
#pragma once

#include "toolkit/backend.h"

#include <QDBusArgument>
#include <QList>
#include <QMetaType>
#include <QString>
#include <QVariantMap>

namespace tandrel
{

struct PortalPattern {
    /// 0 for a pattern of a shell.
    uint kind = 0;
    QString pattern;
};

struct PortalFilter {
    QString name;
    QList<PortalPattern> patterns;
};

QDBusArgument& operator<<(QDBusArgument& to, const PortalPattern& pattern);
const QDBusArgument& operator>>(const QDBusArgument& from, PortalPattern& pattern);
QDBusArgument& operator<<(QDBusArgument& to, const PortalFilter& filter);
const QDBusArgument& operator>>(const QDBusArgument& from, PortalFilter& filter);

/// To be called before the options are sent or read.
void registerPortalTypes();

/// "*.avi" as "*.[aA][vV][iI]", since patterns there tell the cases apart.
QString eitherCase(const Text& pattern);

/// `token` names the request.
QVariantMap portalOptions(const FileDialog& what, const QString& token);

} // namespace tandrel

Q_DECLARE_METATYPE(tandrel::PortalPattern)
Q_DECLARE_METATYPE(tandrel::PortalFilter)
