#include "toolkit/qt/portal_options.h"

#include "platform/path_marks.h"
#include "toolkit/qt/frame_painter.h"

#include <QDBusMetaType>

namespace tandrel
{

QDBusArgument& operator<<(QDBusArgument& to, const PortalPattern& pattern)
{
    to.beginStructure();
    to << pattern.kind << pattern.pattern;
    to.endStructure();
    return to;
}

const QDBusArgument& operator>>(const QDBusArgument& from, PortalPattern& pattern)
{
    from.beginStructure();
    from >> pattern.kind >> pattern.pattern;
    from.endStructure();
    return from;
}

QDBusArgument& operator<<(QDBusArgument& to, const PortalFilter& filter)
{
    to.beginStructure();
    to << filter.name << filter.patterns;
    to.endStructure();
    return to;
}

const QDBusArgument& operator>>(const QDBusArgument& from, PortalFilter& filter)
{
    from.beginStructure();
    from >> filter.name >> filter.patterns;
    from.endStructure();
    return from;
}

void registerPortalTypes()
{
    qDBusRegisterMetaType<PortalPattern>();
    qDBusRegisterMetaType<QList<PortalPattern>>();
    qDBusRegisterMetaType<PortalFilter>();
    qDBusRegisterMetaType<QList<PortalFilter>>();
}

QString eitherCase(const Text& pattern)
{
    QString result;
    for (const QChar letter : QString::fromStdString(pattern)) {
        if (letter.toLower() == letter.toUpper())
            result += letter;
        else
            result += QLatin1Char('[') + letter.toLower() + letter.toUpper() + QLatin1Char(']');
    }
    return result;
}

QVariantMap portalOptions(const FileDialog& what, const QString& token)
{
    QVariantMap options{{QStringLiteral("handle_token"), token}, {QStringLiteral("modal"), true}};
    if (what.several)
        options[QStringLiteral("multiple")] = true;
    if (what.kind == FileDialog::Kind::Folder)
        options[QStringLiteral("directory")] = true;
    if (what.kind == FileDialog::Kind::Save && !what.name.empty())
        options[QStringLiteral("current_name")] = rendered(what.name);
    if (!what.folder.empty()) {
        // A path goes as bytes, which end in a NUL.
        QByteArray folder = QByteArray::fromStdString(unmarkPath(what.folder));
        options[QStringLiteral("current_folder")] = folder.append('\0');
    }
    QList<PortalFilter> filters;
    for (const FileDialog::Filter& filter : what.filters) {
        filters.append({rendered(filter.name), {}});
        for (const Text& pattern : filter.patterns)
            filters.last().patterns.append({0, eitherCase(pattern)});
    }
    if (!filters.isEmpty())
        options[QStringLiteral("filters")] = QVariant::fromValue(filters);
    return options;
}

} // namespace tandrel
