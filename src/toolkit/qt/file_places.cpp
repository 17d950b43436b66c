#include "toolkit/qt/file_places.h"

#include "toolkit/qt/file_names.h"
#include "toolkit/qt/frame_painter.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

namespace tandrel
{

namespace
{

QByteArray homeFolder() { return QFile::encodeName(QDir::homePath()); }

/// One of the user's folders; empty where there is none, or where it is the home itself.
QByteArray userFolder(QStandardPaths::StandardLocation kind)
{
    const QByteArray folder = QFile::encodeName(QStandardPaths::writableLocation(kind));
    return folder != homeFolder() && isFolder(folder) ? folder : QByteArray();
}

/// The table writes blanks and the like as a backslash and three octal digits.
QByteArray withoutEscapes(const QByteArray& field)
{
    constexpr int kDigits = 3;
    QByteArray plain;
    for (qsizetype at = 0; at < field.size(); ++at) {
        bool isCode = false;
        const int code = field[at] == '\\' ? field.mid(at + 1, kDigits).toInt(&isCode, 8) : 0;
        plain += isCode ? static_cast<char>(code) : field[at];
        at += isCode ? kDigits : 0;
    }
    return plain;
}

} // namespace

std::vector<QByteArray> mountedMedia(const QByteArray& table)
{
    std::vector<QByteArray> media;
    for (const QByteArray& line : table.split('\n')) {
        const QList<QByteArray> fields = line.split(' ');
        if (fields.size() < 2)
            continue;
        const QByteArray point = withoutEscapes(fields[1]);
        // What people mount by hand stands right below; what lies deeper is of some program.
        const bool byHand = point.startsWith("/mnt/") && point.count(kSeparator) == 2;
        if (byHand || point.startsWith("/media/") || point.startsWith("/run/media/"))
            media.push_back(point);
    }
    return media;
}

std::vector<FilePlace> filePlaces(const FileDialogTexts& texts)
{
    std::vector<FilePlace> places;
    const auto add = [&](const Text& title, const char* icon, const QByteArray& folder) {
        if (!folder.isEmpty())
            places.push_back({rendered(title), QString::fromLatin1(icon), folder});
    };
    add(texts.home, "place_home", homeFolder());
    add(texts.desktop, "place_desktop", userFolder(QStandardPaths::DesktopLocation));
    add(texts.videos, "place_videos", userFolder(QStandardPaths::MoviesLocation));
    add(texts.music, "place_music", userFolder(QStandardPaths::MusicLocation));
    add(texts.computer, "place_computer", "/");
    QFile table(QStringLiteral("/proc/self/mounts"));
    if (table.open(QIODevice::ReadOnly))
        for (const QByteArray& point : mountedMedia(table.readAll()))
            places.push_back(
                {shownName(point.mid(point.lastIndexOf(kSeparator) + 1)), QStringLiteral("place_medium"), point});
    return places;
}

QByteArray usualFolder()
{
    const QByteArray videos = userFolder(QStandardPaths::MoviesLocation);
    return videos.isEmpty() ? homeFolder() : videos;
}

} // namespace tandrel
