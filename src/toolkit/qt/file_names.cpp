#include "toolkit/qt/file_names.h"

#include "platform/path_marks.h"
#include "toolkit/qt/frame_painter.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <filesystem>
#include <sys/stat.h>

namespace tandrel
{

namespace
{

constexpr char kQuote = '"';
constexpr const char* kLocal = "file:";

std::optional<mode_t> modeOf(const QByteArray& path)
{
    struct stat facts {
    };
    return ::stat(path.constData(), &facts) == 0 ? std::optional(facts.st_mode) : std::nullopt;
}

char small(char letter) { return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + 'a' - 'A') : letter; }

} // namespace

QString shownName(const QByteArray& bytes) { return rendered(markPath(bytes.toStdString())); }

bool fitsPattern(std::string_view name, std::string_view pattern)
{
    std::size_t at = 0;
    std::size_t in = 0;
    std::optional<std::size_t> star;
    std::size_t retry = 0;
    while (at < name.size()) {
        if (in < pattern.size() && pattern[in] == '*') {
            star = in++;
            retry = at;
        } else if (in < pattern.size() && (pattern[in] == '?' || small(pattern[in]) == small(name[at]))) {
            ++in;
            ++at;
        } else if (star) {
            in = *star + 1;
            at = ++retry;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', in) == std::string_view::npos;
}

bool fitsAnyPattern(std::string_view name, const std::vector<Text>& patterns)
{
    return patterns.empty() || std::any_of(patterns.begin(), patterns.end(),
                                           [name](const Text& pattern) { return fitsPattern(name, pattern); });
}

QStringList typedNames(const QString& text)
{
    const QString trimmed = text.trimmed();
    if (!trimmed.startsWith(QLatin1Char(kQuote)))
        return trimmed.isEmpty() ? QStringList() : QStringList(text);
    // Between quotes stands a name, a blank, a name, ...
    QStringList names;
    const QStringList pieces = trimmed.split(QLatin1Char(kQuote));
    for (qsizetype at = 1; at < pieces.size(); at += 2)
        if (!pieces[at].isEmpty())
            names.append(pieces[at]);
    return names;
}

QString quotedNames(const QStringList& names)
{
    QStringList quoted;
    for (const QString& name : names)
        quoted.append(QLatin1Char(kQuote) + name + QLatin1Char(kQuote));
    return quoted.join(QLatin1Char(' '));
}

QByteArray typedPath(const QString& text, const QByteArray& folder)
{
    const QByteArray bytes = text.toUtf8();
    if (const auto local = localPathOf(bytes))
        return cleanedPath(*local);
    if (bytes == "~" || bytes.startsWith("~/"))
        return cleanedPath(QFile::encodeName(QDir::homePath()) + bytes.mid(1));
    return cleanedPath(bytes.startsWith(kSeparator) ? bytes : pathIn(folder, bytes));
}

std::optional<QByteArray> localPathOf(const QByteArray& address)
{
    if (!address.startsWith(kLocal))
        return std::nullopt;
    QByteArray path = address.mid(5);
    if (path.startsWith("//")) {
        const QByteArray host = path.mid(2, path.indexOf(kSeparator, 2) - 2);
        if (!host.isEmpty() && host != "localhost" && host != QSysInfo::machineHostName().toUtf8().toLower())
            return std::nullopt;
        path = path.mid(2 + host.size());
    }
    path = QByteArray::fromPercentEncoding(path);
    const bool whole = path.startsWith(kSeparator) && !path.contains('\0');
    return whole ? std::optional(path) : std::nullopt;
}

QByteArray cleanedPath(const QByteArray& path)
{
    std::string clean = std::filesystem::path(path.toStdString()).lexically_normal().string();
    while (clean.size() > 1 && clean.back() == kSeparator)
        clean.pop_back();
    return QByteArray::fromStdString(clean);
}

QByteArray pathIn(const QByteArray& folder, const QByteArray& name)
{
    return folder.endsWith(kSeparator) ? folder + name : folder + kSeparator + name;
}

QByteArray parentFolder(const QByteArray& folder)
{
    const qsizetype cut = folder.lastIndexOf(kSeparator);
    return cut <= 0 ? QByteArray(1, kSeparator) : folder.left(cut);
}

bool isFolder(const QByteArray& path) { return S_ISDIR(modeOf(path).value_or(0)); }

bool isFile(const QByteArray& path) { return S_ISREG(modeOf(path).value_or(0)); }

bool survivesMarks(const QByteArray& path)
{
    const std::string bytes = path.toStdString();
    return unmarkPath(markPath(bytes)) == bytes;
}

QByteArray withExtension(const QByteArray& path, const Text& extension)
{
    const bool hasOne = path.mid(path.lastIndexOf(kSeparator) + 1).contains('.');
    return extension.empty() || hasOne ? path : path + '.' + QByteArray::fromStdString(extension);
}

} // namespace tandrel
