/// The registry of file classes on this platform: entries of the desktop and types of file, under the user's own
/// folders.
#pragma once

#include "platform/services.h"
#include "platform/xdg/file_classes_text.h"

namespace tandrel
{

/// Where it all goes, and what it names.
struct FileClassPlaces {
    /// The user's folders for shared data and for settings ($XDG_DATA_HOME, $XDG_CONFIG_HOME).
    std::string share;
    std::string config;
    /// The folder that the program lies in.
    std::string program;
    /// The program's icon, as the text of an SVG file.
    std::string icon;
};

/// Collects what a start writes. `settle` puts it on the disk on a thread that nobody waits for, not even the end of
/// the program. Where something can't be written, or was there in another shape (a folder, say), it is left alone.
/// Files that are right already are not touched.
class FileClassRegistry : public Registry
{
public:
    explicit FileClassRegistry(FileClassPlaces places) : places_(std::move(places)) {}
    void set(std::int32_t root, std::string_view key, std::string_view name, std::string_view value) override;
    void settle() override;

protected:
    /// What has been set, and not settled yet.
    const FileClasses& collected() const { return classes_; }

private:
    FileClassPlaces places_;
    FileClasses classes_;
};

/// Writes what differs, then lets the desktop's own programs look at it, and waits for these. On any thread.
void putFileClasses(const FileClassPlaces& places, const FileClasses& classes);

} // namespace tandrel
