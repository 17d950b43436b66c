/// Names of files as bytes: what a dialog shows of them, what is typed for them, and which fit a pattern. Paths here
/// are not marked; they are what the system knows.
#pragma once

#include "toolkit/text.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace tandrel
{

/// The best rendering of a name; names that differ may look the same.
QString shownName(const QByteArray& bytes);

/// True if the whole name fits a pattern of a shell: "*" is any text and "?" any one byte. Either case of A to Z fits.
bool fitsPattern(std::string_view name, std::string_view pattern);
bool fitsAnyPattern(std::string_view name, const std::vector<Text>& patterns);

/// What the field of the name holds: names in double quotes one by one, any other text as one name.
QStringList typedNames(const QString& text);

/// Several names as the field shows them.
QString quotedNames(const QStringList& names);

/// The absolute path of what was typed: a path, one that begins with "~", a local address, or a name in `folder`.
QByteArray typedPath(const QString& text, const QByteArray& folder);

/// The path of an address "file:...", byte for byte; empty for any other address, and for one on another host.
std::optional<QByteArray> localPathOf(const QByteArray& address);

/// Without "." and "..", doubled separators and one at the end.
QByteArray cleanedPath(const QByteArray& path);

QByteArray pathIn(const QByteArray& folder, const QByteArray& name);
/// The root's is the root.
QByteArray parentFolder(const QByteArray& folder);

bool isFolder(const QByteArray& path);
bool isFile(const QByteArray& path);

/// False for the few names that the marks of paths can't tell from others: such a path would come back as another one.
bool survivesMarks(const QByteArray& path);

/// The path with the extension behind a name that has none.
QByteArray withExtension(const QByteArray& path, const Text& extension);

} // namespace tandrel
