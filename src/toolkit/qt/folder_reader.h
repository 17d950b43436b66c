/// What lies in a folder, read without ever waiting for it: a folder may be large, or on a medium that does not answer.
#pragma once

#include "toolkit/qt/errand.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <vector>

namespace tandrel
{

struct FileEntry {
    QByteArray name;
    /// `name` as it is shown.
    QString shown;
    bool isFolder = false;
    /// Bytes.
    qint64 size = 0;
    /// Seconds since 1970.
    qint64 modified = 0;
    /// Its place among the names of its folder: numbers in names count as numbers, letters in either case alike.
    int rank = 0;
};

struct FolderContent {
    QByteArray folder;
    bool readable = false;
    /// Folders and files that are there; no devices, and no links that lead nowhere.
    std::vector<FileEntry> entries;
};

/// Waits for the system.
FolderContent readFolder(const QByteArray& folder);

/// Reads on a thread of its own.
class FolderReader
{
public:
    /// `done` is called from the event loop, unless another read begins or this object ends before.
    void read(const QByteArray& folder, std::function<void(const FolderContent&)> done);

private:
    Errand errand_;
};

} // namespace tandrel
