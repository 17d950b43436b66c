/// The rows of a dialog for files: the folders and files of one folder that a filter lets through.
#pragma once

#include "toolkit/backend.h"
#include "toolkit/qt/folder_reader.h"

#include <QAbstractTableModel>

namespace tandrel
{

class FileModel : public QAbstractTableModel
{
public:
    enum Column { Name, Size, Kind, Date, ColumnCount };

    explicit FileModel(const FileDialogTexts& texts) : texts_(texts) {}

    void setContent(const FolderContent& content);
    /// No patterns let all files through. Folders always pass.
    void setFilter(const std::vector<Text>& patterns, bool withFiles, bool withHidden);
    const FileEntry& entry(int row) const
    {
        return all_[static_cast<std::size_t>(rows_[static_cast<std::size_t>(row)])];
    }
    /// Everything in the folder, whatever the filter says.
    const std::vector<FileEntry>& all() const { return all_; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    /// Folders stand first in either order.
    void sort(int column, Qt::SortOrder order) override;

private:
    bool passes(const FileEntry& entry) const;
    QString textOf(const FileEntry& entry, int column) const;
    void refill();
    void sortRows();

    FileDialogTexts texts_;
    std::vector<FileEntry> all_;
    std::vector<int> rows_;
    std::vector<Text> patterns_;
    bool withFiles_ = true;
    bool withHidden_ = false;
    int sortColumn_ = Name;
    Qt::SortOrder sortOrder_ = Qt::AscendingOrder;
};

} // namespace tandrel
