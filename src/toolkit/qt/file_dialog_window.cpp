#include "toolkit/qt/file_dialog_window.h"

#include "platform/path_marks.h"
#include "toolkit/qt/file_list_view.h"
#include "toolkit/qt/file_names.h"
#include "toolkit/qt/file_places.h"
#include "toolkit/qt/frame_painter.h"

#include <QComboBox>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>

#include <algorithm>

namespace tandrel
{

namespace
{

QByteArray bytesOf(const Text& marked) { return QByteArray::fromStdString(unmarkPath(marked)); }

} // namespace

FileDialogWindow::FileDialogWindow(const FileDialog& what, const FileDialogTexts& texts)
    : FramedDialog(rendered(what.title)), what_(what), texts_(texts), model_(texts)
{
    setObjectName(QStringLiteral("fileDialog"));
    build();
    const QByteArray wanted = cleanedPath(bytesOf(what.folder));
    enter(wanted.startsWith(kSeparator) && isFolder(wanted) ? wanted : usualFolder());
    name_->setText(rendered(what.name));
    edited_ = !what.name.empty();
    name_->setFocus();
}

void FileDialogWindow::enter(const QByteArray& folder)
{
    folder_ = folder;
    hint({});
    if (what_.kind == FileDialog::Kind::Open || !edited_) {
        name_->clear();
        edited_ = false;
    }
    fillLookIn();
    list_->setEmptyText({});
    model_.setContent({});
    reader_.read(folder, [this](const FolderContent& content) { contentCame(content); });
}

void FileDialogWindow::contentCame(const FolderContent& content)
{
    model_.setContent(content);
    list_->setEmptyText(rendered(content.readable ? texts_.empty : texts_.unreadable));
    list_->scrollToTop();
    selectionChanged();
}

void FileDialogWindow::applyFilter()
{
    const auto at = static_cast<std::size_t>(std::max(0, filter_->currentIndex()));
    model_.setFilter(at < what_.filters.size() ? what_.filters[at].patterns : std::vector<Text>(), !choosesFolders(),
                     hidden_);
    selectionChanged();
}

std::vector<FileEntry> FileDialogWindow::selectedEntries() const
{
    QList<int> rows;
    for (const QModelIndex& index : list_->selectionModel()->selectedRows())
        rows.append(index.row());
    std::sort(rows.begin(), rows.end());
    std::vector<FileEntry> entries;
    for (const int row : rows)
        entries.push_back(model_.entry(row));
    return entries;
}

void FileDialogWindow::selectionChanged()
{
    QStringList names;
    for (const FileEntry& entry : selectedEntries())
        if (entry.isFolder == choosesFolders())
            names.append(entry.shown);
    if (names.isEmpty())
        return;
    name_->setText(names.size() == 1 ? names.front() : quotedNames(names));
    edited_ = false;
    hint({});
}

void FileDialogWindow::hint(const Text& text, const QString& name)
{
    const QString message = rendered(text);
    hint_->setText(name.isNull() ? message : message.arg(name));
    hint_->setToolTip(plainTip(hint_->text()));
}

void FileDialogWindow::acceptChoice()
{
    // Another order or filter of the list takes the rows of a selection away, and leaves its names.
    if (edited_ || selectedEntries().empty())
        acceptTyped();
    else
        acceptSelection();
}

void FileDialogWindow::acceptRows()
{
    edited_ = false;
    const std::vector<FileEntry> entries = selectedEntries();
    // A folder is gone into, also where folders are what is chosen.
    if (entries.size() == 1 && entries.front().isFolder)
        enter(pathIn(folder_, entries.front().name));
    else if (!entries.empty())
        acceptSelection();
}

void FileDialogWindow::acceptSelection()
{
    const std::vector<FileEntry> entries = selectedEntries();
    std::vector<QByteArray> paths;
    for (const FileEntry& entry : entries)
        if (entry.isFolder == choosesFolders())
            paths.push_back(pathIn(folder_, entry.name));
    if (what_.kind == FileDialog::Kind::Save && !paths.empty())
        acceptToSave(paths.front());
    else if (!paths.empty())
        finish(paths);
    else if (entries.size() == 1)
        enter(pathIn(folder_, entries.front().name));
    else if (choosesFolders())
        finish({folder_});
}

QByteArray FileDialogWindow::resolved(const QString& name) const
{
    if (name.trimmed().isEmpty())
        return {};
    for (const QString& text : {name, name.trimmed()})
        if (const QByteArray path = typedPath(text, folder_); isFile(path) || isFolder(path))
            return path;
    const auto looksIt = [&](const FileEntry& entry) { return entry.shown == name; };
    const auto& all = model_.all();
    if (std::count_if(all.begin(), all.end(), looksIt) != 1)
        return {};
    return pathIn(folder_, std::find_if(all.begin(), all.end(), looksIt)->name);
}

void FileDialogWindow::acceptTyped()
{
    const QString text = name_->text();
    const QStringList names = resolved(text).isEmpty() ? typedNames(text) : QStringList(text);
    if (names.isEmpty()) {
        edited_ = false;
        return acceptSelection();
    }
    if (names.size() == 1)
        return acceptTypedOne(names.front());
    if (!what_.several)
        return hint(texts_.oneOnly);
    std::vector<QByteArray> paths;
    for (const QString& name : names) {
        paths.push_back(resolved(name));
        if (!isFile(paths.back()))
            return hint(texts_.notThere, name);
    }
    finish(paths);
}

void FileDialogWindow::acceptTypedOne(const QString& name)
{
    const QByteArray path = resolved(name);
    if (path.isEmpty() && what_.kind == FileDialog::Kind::Save)
        return acceptToSave(typedPath(name.trimmed(), folder_));
    if (path.isEmpty() || (choosesFolders() && !isFolder(path))) {
        name_->selectAll();
        return hint(texts_.notThere, name);
    }
    if (isFolder(path) && !choosesFolders()) {
        edited_ = false;
        return enter(path);
    }
    if (what_.kind == FileDialog::Kind::Save)
        return acceptToSave(path);
    finish({path});
}

void FileDialogWindow::acceptToSave(const QByteArray& path)
{
    const QByteArray whole = withExtension(path, what_.extension);
    const QString name = shownName(whole.mid(whole.lastIndexOf(kSeparator) + 1));
    if (!isFolder(parentFolder(whole)))
        return hint(texts_.notThere, shownName(parentFolder(whole)));
    if (isFile(whole) && confirmed_ != whole) {
        confirmed_ = whole;
        return hint(texts_.replace, name);
    }
    finish({whole});
}

void FileDialogWindow::finish(const std::vector<QByteArray>& paths)
{
    std::vector<Text> marked;
    for (const QByteArray& path : paths) {
        if (!survivesMarks(path))
            return hint(texts_.notThere, shownName(path));
        marked.push_back(markPath(path.toStdString()));
    }
    chosen_ = std::move(marked);
    accept();
}

void FileDialogWindow::keyPressEvent(QKeyEvent* event)
{
    const bool control = event->modifiers().testFlag(Qt::ControlModifier);
    if (event->key() == Qt::Key_F5) {
        enter(QByteArray(folder_));
    } else if (event->key() == Qt::Key_H && control) {
        hidden_ = !hidden_;
        applyFilter();
    } else if (event->key() == Qt::Key_Up && event->modifiers().testFlag(Qt::AltModifier)) {
        enter(parentFolder(folder_));
    } else {
        FramedDialog::keyPressEvent(event);
    }
}

} // namespace tandrel
