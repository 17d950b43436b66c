/// Where people keep their films: the folders that a dialog for files offers beside its list.
#pragma once

#include "toolkit/backend.h"

#include <QByteArray>
#include <QString>

#include <vector>

namespace tandrel
{

struct FilePlace {
    QString title;
    /// The name of its drawing.
    QString icon;
    QByteArray folder;
};

/// Those that are there: the user's own folders, the whole computer, and what is mounted for users.
std::vector<FilePlace> filePlaces(const FileDialogTexts& texts);

/// The mount points for users, below /media, /run/media and right below /mnt, in a table of mounts as the system writes
/// it.
std::vector<QByteArray> mountedMedia(const QByteArray& table);

/// Where a dialog begins that has no folder of its own: the videos, else the home.
QByteArray usualFolder();

} // namespace tandrel
