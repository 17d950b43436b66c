/// The toolkit's own dialog for files and folders.
#pragma once

#include "toolkit/backend.h"
#include "toolkit/qt/file_model.h"
#include "toolkit/qt/folder_reader.h"
#include "toolkit/qt/framed_dialog.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QToolButton;

namespace tandrel
{

class FileListView;

/// Works on the bytes of names, so that every file can be chosen that the system can name. Of one dialog the next one
/// keeps the size and the order of the list, and nothing else.
class FileDialogWindow : public FramedDialog
{
public:
    FileDialogWindow(const FileDialog& what, const FileDialogTexts& texts);
    ~FileDialogWindow() override;

    /// Marked paths, none unless the dialog was accepted.
    const std::vector<Text>& chosen() const { return chosen_; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void build();
    QLayout* makeTop();
    QLayout* makeMiddle();
    void makePlaces();
    void makeList();
    QLayout* makeBottom();
    void makeName();
    void makeFilter();
    void makeButtons();
    void fillPlaces();
    void fillLookIn();

    void enter(const QByteArray& folder);
    void contentCame(const FolderContent& content);
    void applyFilter();
    void selectionChanged();
    void hint(const Text& text, const QString& name = {});

    /// What the button and Enter do.
    void acceptChoice();
    void acceptSelection();
    /// What a double click on a row and Enter in the list do.
    void acceptRows();
    void acceptTyped();
    void acceptTypedOne(const QString& name);
    void acceptToSave(const QByteArray& path);
    void finish(const std::vector<QByteArray>& paths);
    std::vector<FileEntry> selectedEntries() const;
    /// The path of a file or folder that is there, by what was typed; empty where there is none, or more than one that
    /// looks like it.
    QByteArray resolved(const QString& name) const;
    bool choosesFolders() const { return what_.kind == FileDialog::Kind::Folder; }

    FileDialog what_;
    FileDialogTexts texts_;
    QByteArray folder_;
    QByteArray confirmed_;
    bool edited_ = false;
    bool hidden_ = false;
    std::vector<Text> chosen_;
    FileModel model_;
    FolderReader reader_;
    QComboBox* lookIn_ = nullptr;
    QToolButton* up_ = nullptr;
    QListWidget* places_ = nullptr;
    FileListView* list_ = nullptr;
    QLabel* hint_ = nullptr;
    QLineEdit* name_ = nullptr;
    QComboBox* filter_ = nullptr;
    QPushButton* accept_ = nullptr;
    QPushButton* reject_ = nullptr;
};

} // namespace tandrel
