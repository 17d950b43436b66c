#include "toolkit/qt/file_model.h"

#include "toolkit/qt/drawings.h"
#include "toolkit/qt/file_names.h"
#include "toolkit/qt/frame_painter.h"
#include "toolkit/qt/style.h"

#include <QDateTime>
#include <QGuiApplication>
#include <QIcon>
#include <QLocale>

#include <algorithm>
#include <array>

namespace tandrel
{

namespace
{

constexpr int kIcon = 16;

/// The part of a name behind its last dot, in capitals.
QString extensionOf(const FileEntry& entry)
{
    const qsizetype dot = entry.shown.lastIndexOf(QLatin1Char('.'));
    return dot <= 0 ? QString() : entry.shown.mid(dot + 1).toUpper();
}

bool isFilm(const FileEntry& entry)
{
    static constexpr std::array kFilms{"AVI", "ASF", "MPG",  "MPEG", "MP4", "WMV",   "MOV",  "FLV",
                                       "3GP", "OGM", "DIVX", "XVID", "MKV", "HDMOV", "WEBM", "M4V"};
    return std::find(kFilms.begin(), kFilms.end(), extensionOf(entry).toStdString()) != kFilms.end();
}

QIcon iconOf(const FileEntry& entry)
{
    const QString name = QString::fromLatin1(entry.isFolder  ? "file_folder"
                                             : isFilm(entry) ? "file_film"
                                                             : "file_plain");
    const QSize size(scaledPixels(kIcon), scaledPixels(kIcon));
    const double ratio = qGuiApp->devicePixelRatio();
    QIcon icon(drawing(name, size, ratio));
    // A chosen row is of the colour that films are drawn in.
    icon.addPixmap(drawing(name + QStringLiteral("_chosen"), size, ratio), QIcon::Selected);
    return icon;
}

} // namespace

void FileModel::setContent(const FolderContent& content)
{
    beginResetModel();
    all_ = content.entries;
    refill();
    endResetModel();
}

void FileModel::setFilter(const std::vector<Text>& patterns, bool withFiles, bool withHidden)
{
    beginResetModel();
    patterns_ = patterns;
    withFiles_ = withFiles;
    withHidden_ = withHidden;
    refill();
    endResetModel();
}

bool FileModel::passes(const FileEntry& entry) const
{
    if (entry.name.startsWith('.') && !withHidden_)
        return false;
    return entry.isFolder ||
           (withFiles_ &&
            fitsAnyPattern({entry.name.constData(), static_cast<std::size_t>(entry.name.size())}, patterns_));
}

void FileModel::refill()
{
    rows_.clear();
    for (std::size_t at = 0; at < all_.size(); ++at)
        if (passes(all_[at]))
            rows_.push_back(static_cast<int>(at));
    sortRows();
}

void FileModel::sortRows()
{
    const auto compare = [this](const FileEntry& a, const FileEntry& b) -> qint64 {
        switch (sortColumn_) {
        case Size:
            return a.isFolder ? 0 : a.size - b.size;
        case Kind:
            return a.isFolder ? 0 : QString::compare(extensionOf(a), extensionOf(b));
        case Date:
            return a.modified - b.modified;
        default:
            return a.rank - b.rank;
        }
    };
    std::sort(rows_.begin(), rows_.end(), [&](int left, int right) {
        const FileEntry& a = all_[static_cast<std::size_t>(left)];
        const FileEntry& b = all_[static_cast<std::size_t>(right)];
        if (a.isFolder != b.isFolder)
            return a.isFolder;
        const qint64 compared = compare(a, b);
        if (compared == 0)
            return a.rank < b.rank;
        return sortOrder_ == Qt::AscendingOrder ? compared < 0 : compared > 0;
    });
}

void FileModel::sort(int column, Qt::SortOrder order)
{
    beginResetModel();
    sortColumn_ = column;
    sortOrder_ = order;
    sortRows();
    endResetModel();
}

int FileModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int FileModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : ColumnCount; }

QString FileModel::textOf(const FileEntry& entry, int column) const
{
    switch (column) {
    case Name:
        return entry.shown;
    case Size:
        return entry.isFolder ? QString()
                              : QLocale().formattedDataSize(entry.size, 1, QLocale::DataSizeTraditionalFormat);
    case Kind:
        return entry.isFolder ? rendered(texts_.folder) : extensionOf(entry);
    default:
        return QDateTime::fromSecsSinceEpoch(entry.modified).toString(QStringLiteral("yyyy-MM-dd  HH:mm"));
    }
}

QVariant FileModel::data(const QModelIndex& index, int role) const
{
    const FileEntry& shown = entry(index.row());
    if (role == Qt::DisplayRole)
        return textOf(shown, index.column());
    if (role == Qt::ToolTipRole && index.column() == Name)
        return plainTip(textOf(shown, Name));
    if (role == Qt::DecorationRole && index.column() == Name)
        return iconOf(shown);
    if (role == Qt::TextAlignmentRole && index.column() == Size)
        return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    return {};
}

QVariant FileModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role == Qt::TextAlignmentRole && section == Size)
        return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    const std::array titles{&texts_.name, &texts_.size, &texts_.kind, &texts_.date};
    return rendered(*titles[static_cast<std::size_t>(section)]);
}

} // namespace tandrel
