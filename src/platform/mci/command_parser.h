/// Takes a command string apart. Pure: knows the grammar, but no device.
#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace tandrel
{

enum class Verb { Open, Close, Play, Pause, Seek, Step, Status, Set, SetAudio, Where, Put };

/// What can stand behind the name of the device.
enum class Clause {
    Type,
    Alias,
    Parent,
    Style,
    From,
    To,
    Reverse,
    Position,
    Length,
    Mode,
    TimeFormat,
    Door,
    Volume,
    Destination,
    WindowAt,
    Wait,
    Count
};

/// The values of one clause. Texts point into the command string.
struct ClauseValue {
    std::string_view word;
    std::array<double, 4> numbers{};
};

struct Command {
    Verb verb = Verb::Close;
    /// The name of the device without its quotes.
    std::string_view device;
    /// What is wrong with the verb or the name, or 0. Nothing else counts then.
    int headError = 0;
    /// What is wrong behind the name, or 0. It counts only if the device is there.
    int clauseError = 0;

    const std::optional<ClauseValue>& operator[](Clause clause) const
    {
        return clauses[static_cast<std::size_t>(clause)];
    }

    std::array<std::optional<ClauseValue>, static_cast<std::size_t>(Clause::Count)> clauses;
};

Command parseCommand(std::string_view text);

/// Verbs and keywords ignore the case of ASCII letters.
bool sameWord(std::string_view left, std::string_view right);

} // namespace tandrel
