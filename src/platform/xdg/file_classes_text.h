/// What the desktop reads of the program: entries, types of file and their users. Texts only; nothing is read or
/// written.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tandrel
{

/// What values of the registry of file classes ask for, in the names that this platform has.
struct FileClasses {
    /// Endings of names, in capitals and without the dot, that the program opens.
    std::vector<std::string> opened;
    /// Those that it is to be the first choice for.
    std::vector<std::string> preferred;
    /// It plays a disc that comes in.
    bool discs = false;
    friend bool operator==(const FileClasses&, const FileClasses&) = default;
};

/// Absolute paths, or bare names to be looked for as commands are.
struct EntryPrograms {
    std::string opener;
    std::string player;
};

inline constexpr std::string_view kPlayerEntry = "tandrel-player.desktop";
inline constexpr std::string_view kDiscEntry = "tandrel-player-disc.desktop";
inline constexpr std::string_view kDiscType = "x-content/video-dvd";

/// The types of files with these endings, each once, all names that a desktop may know them by.
std::vector<std::string> mimeTypesOf(const std::vector<std::string>& endings);

/// The types of all files that the program knows.
std::vector<std::string> allMimeTypes();

/// The entry of the player, with the types that it opens.
std::string playerEntry(const FileClasses& classes, const EntryPrograms& programs);
/// The entry that plays a disc; no menu shows it.
std::string discEntry(const EntryPrograms& programs);
/// The package that tells the desktop which endings belong to which type. What the desktop knows itself goes before.
std::string mimePackage(const FileClasses& classes);

/// A program or a path as an `Exec` line has it, quoted where it has to be.
std::string execWord(const std::string& word);

} // namespace tandrel
