/// Which key gives which command: the standard, and what the user's file changes of it.
#pragma once

#include "toolkit/text.h"

#include <map>
#include <vector>

namespace tandrel
{

struct KeyCommand;
class KeyFile;

/// The file is plain text, a command a line: "pause = P, Ctrl+P". "#" begins a comment, and a command without a key has
/// none. What a line says goes before the standard of other commands; what makes no sense is noted and left out.
class KeyBindings
{
public:
    /// Before `read`, and where there is no file, the standard holds.
    KeyBindings();
    explicit KeyBindings(const KeyFile& file);

    /// Null where the key gives none. `key` is a name as of `keyNamed`.
    const KeyCommand* commandOf(const Text& key) const;
    /// The names of its keys, the first one first.
    const std::vector<Text>& keysOf(const KeyCommand& command) const;
    /// The same as the user sees them: "Left, J".
    Text shownKeys(const KeyCommand& command) const;

    /// What was left out of the file, in the language in use; empty where all of it counts.
    Text complaint() const;

private:
    struct Trouble {
        int line;
        /// A key of the text table, and the words that it is about.
        const char* reason;
        Text words;
    };
    void takeLines(const Text& text);
    void takeLine(int number, Text line);
    void takeKeys(int number, const KeyCommand& command, const Text& written);
    void takeStandard();
    void note(int line, const char* reason, std::string_view words = {});

    std::map<Text, const KeyCommand*> commands_;
    std::map<const KeyCommand*, std::vector<Text>> keys_;
    std::vector<Trouble> troubles_;
    /// The whole file is of no use: a key of the text table.
    const char* refused_ = nullptr;
    Text path_;
};

/// A file that changes nothing: every command with its standard keys, as comments.
Text emptyKeyFile();

} // namespace tandrel
