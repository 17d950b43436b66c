/// The dialog for files and folders that all selections of the console go through.
#pragma once

#include "toolkit/backend.h"
#include "toolkit/property.h"

namespace tandrel
{

/// Bits of the flags word.
inline constexpr std::int32_t OFN_HIDEREADONLY = 0x4;
inline constexpr std::int32_t OFN_ALLOWMULTISELECT = 0x200;
inline constexpr std::int32_t OFN_PATHMUSTEXIST = 0x800;
inline constexpr std::int32_t OFN_NOLONGNAMES = 0x40000;
inline constexpr std::int32_t OFN_EXPLORER = 0x80000;
inline constexpr std::int32_t OFN_LONGNAMES = 0x200000;

/// The two words that the program uses, 788996 and 2097156.
inline constexpr std::int32_t kSeveralFiles =
    OFN_EXPLORER | OFN_NOLONGNAMES | OFN_PATHMUSTEXIST | OFN_ALLOWMULTISELECT | OFN_HIDEREADONLY;
inline constexpr std::int32_t kSingleFile = OFN_LONGNAMES | OFN_HIDEREADONLY;

/// Keeps what is asked and what was chosen in buffers that end in NUL. All paths are marked ones
/// (platform/path_marks.h), so that a bar in a selection is always the end of a name.
class CommonDialog
{
public:
    /// The flags are a sum of OFN_ bits; of them OFN_ALLOWMULTISELECT decides how many files may be chosen.
    explicit CommonDialog(std::int32_t flags);
    CommonDialog(const CommonDialog&) = delete;
    CommonDialog& operator=(const CommonDialog&) = delete;

    /// A property whose get uses up what it reads.
    class FileNameProperty
    {
    public:
        explicit FileNameProperty(CommonDialog& dialog) : dialog_(dialog) {}
        FileNameProperty(const FileNameProperty&) = delete;
        FileNameProperty& operator=(const FileNameProperty&) = delete;
        FileNameProperty& operator=(const Text& value)
        {
            dialog_.setFileName(value);
            return *this;
        }
        Text operator()() { return dialog_.takeFileName(); }
        operator Text() { return dialog_.takeFileName(); }

    private:
        CommonDialog& dialog_;
    };

    Text filter() const;
    void setFilter(Text text);
    Text fileTitle() const { return lpstrFileTitle_; }
    void setFileTitle(Text text) { lpstrFileTitle_ = std::move(text); }
    Text dialogTitle() const;
    void setDialogTitle(Text text) { lpstrTitle_ = std::move(text); }
    Text initDir() const;
    void setInitDir(Text path);
    Text defaultExt() const { return lpstrDefExt_; }
    void setDefaultExt(Text text);

    /// The selection with a bar for each NUL of the buffer, and two more: "path|||...", or "folder|name|name|||...".
    /// The buffer is empty afterwards, so a second read gives 1026 bars, as a cancelled dialog does. What is let
    /// stands in the dialog's field of the name.
    FileNameProperty FileName{*this};
    /// "Name|*.avi;*.mp4|All Files|*.*".
    Property<CommonDialog, Text, &CommonDialog::filter, &CommonDialog::setFilter> Filter{*this};
    Property<CommonDialog, Text, &CommonDialog::fileTitle, &CommonDialog::setFileTitle> FileTitle{*this};
    Property<CommonDialog, Text, &CommonDialog::dialogTitle, &CommonDialog::setDialogTitle> DialogTitle{*this};
    /// The folder that the dialog begins in.
    Property<CommonDialog, Text, &CommonDialog::initDir, &CommonDialog::setInitDir> InitDir{*this};
    /// Put behind the name of a file to save that has none; it holds no dots.
    Property<CommonDialog, Text, &CommonDialog::defaultExt, &CommonDialog::setDefaultExt> DefaultExt{*this};

    /// Show the dialog and wait for the user, while timers go on. A cancelled dialog leaves the buffer as it is.
    void ShowOpen();
    void ShowSave();
    /// Lets the user choose a folder. Its path, or "".
    Text GetFolderName();

private:
    Text takeFileName();
    void setFileName(const Text& value);
    FileDialog request(FileDialog::Kind kind) const;
    void keep(const std::vector<Text>& chosen);

    std::int32_t Flags_;
    Text lpstrFile_;
    Text lpstrFilter_;
    Text lpstrFileTitle_;
    Text lpstrTitle_;
    Text lpstrInitialDir_;
    Text lpstrDefExt_;
};

} // namespace tandrel
