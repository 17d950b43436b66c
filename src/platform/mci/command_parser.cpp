#include "platform/mci/command_parser.h"

#include "platform/mci/mci_error.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace tandrel
{

namespace
{
struct VerbRow {
    std::string_view word;
    Verb verb;
    /// The result if no clause follows; 0 where none is needed.
    int withoutClause;
};
constexpr std::array kVerbs{
    VerbRow{"open", Verb::Open, 0},
    VerbRow{"close", Verb::Close, 0},
    VerbRow{"play", Verb::Play, 0},
    VerbRow{"pause", Verb::Pause, 0},
    VerbRow{"seek", Verb::Seek, mci_error::kMissingClause},
    VerbRow{"step", Verb::Step, 0},
    VerbRow{"status", Verb::Status, mci_error::kUnknownWord},
    VerbRow{"set", Verb::Set, mci_error::kMissingClause},
    VerbRow{"setaudio", Verb::SetAudio, mci_error::kMissingClause},
    VerbRow{"where", Verb::Where, mci_error::kUnknownWord},
    VerbRow{"put", Verb::Put, mci_error::kMissingClause},
};

enum class Takes { Nothing, Word, WholeNumber, Number, FourNumbers };

struct ClauseRow {
    Verb verb;
    Clause clause;
    std::string_view first;
    /// The second word of the keyword, or empty.
    std::string_view second;
    Takes takes;
};
constexpr std::array kClauses{
    ClauseRow{Verb::Open, Clause::Type, "type", "", Takes::Word},
    ClauseRow{Verb::Open, Clause::Alias, "alias", "", Takes::Word},
    ClauseRow{Verb::Open, Clause::Parent, "parent", "", Takes::WholeNumber},
    ClauseRow{Verb::Open, Clause::Style, "style", "", Takes::Word},
    ClauseRow{Verb::Play, Clause::From, "from", "", Takes::Number},
    ClauseRow{Verb::Seek, Clause::To, "to", "", Takes::Number},
    ClauseRow{Verb::Step, Clause::Reverse, "reverse", "", Takes::Nothing},
    ClauseRow{Verb::Status, Clause::Position, "position", "", Takes::Nothing},
    ClauseRow{Verb::Status, Clause::Length, "length", "", Takes::Nothing},
    ClauseRow{Verb::Status, Clause::Mode, "mode", "", Takes::Nothing},
    ClauseRow{Verb::Status, Clause::Wait, "wait", "", Takes::Nothing},
    ClauseRow{Verb::Set, Clause::TimeFormat, "time", "format", Takes::Word},
    ClauseRow{Verb::Set, Clause::Door, "door", "", Takes::Word},
    ClauseRow{Verb::SetAudio, Clause::Volume, "volume", "to", Takes::WholeNumber},
    ClauseRow{Verb::Where, Clause::Destination, "destination", "", Takes::Nothing},
    ClauseRow{Verb::Put, Clause::WindowAt, "window", "at", Takes::FourNumbers},
};

char lower(char letter) { return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter; }

/// Cuts words off the front of a text. A word in quotes may hold blanks.
class Words
{
public:
    explicit Words(std::string_view text) : rest_(text) {}

    /// The next word, or an empty one with `atEnd` or `error` set.
    std::string_view next()
    {
        rest_.remove_prefix(std::min(rest_.find_first_not_of(' '), rest_.size()));
        atEnd = rest_.empty();
        if (atEnd)
            return {};
        return rest_.front() == '"' ? quoted() : plain();
    }

    bool atEnd = false;
    int error = 0;

private:
    std::string_view plain()
    {
        const auto word = rest_.substr(0, rest_.find(' '));
        rest_.remove_prefix(word.size());
        return word;
    }

    std::string_view quoted()
    {
        const auto close = rest_.find('"', 1);
        if (close == std::string_view::npos)
            return fail(mci_error::kQuoteNotClosed);
        const auto word = rest_.substr(1, close - 1);
        rest_.remove_prefix(close + 1);
        if (!rest_.empty() && rest_.front() != ' ')
            return fail(mci_error::kTextBehindQuote);
        return word;
    }

    std::string_view fail(int number)
    {
        error = number;
        rest_ = {};
        return {};
    }

    std::string_view rest_;
};

/// Digits with an optional sign, and a fraction where one is allowed. No exponent, and nothing that reads as infinite.
std::optional<double> parseNumber(std::string_view word, bool whole)
{
    const bool hasSign = word.starts_with('+') || word.starts_with('-');
    const std::string_view body = word.substr(hasSign ? 1 : 0);
    // The conversion knows no plus.
    if (word.starts_with('+'))
        word = body;
    const bool plainDigits = body.find_first_not_of(whole ? "0123456789" : "0123456789.") == std::string_view::npos;
    if (!plainDigits || body.find_first_of("0123456789") == std::string_view::npos)
        return {};
    double value = 0;
    const auto [end, problem] =
        std::from_chars(word.data(), word.data() + word.size(), value, std::chars_format::fixed);
    if (problem == std::errc::result_out_of_range)
        value = word.starts_with('-') ? -1e15 : 1e15;
    else if (problem != std::errc() || end != word.data() + word.size())
        return {};
    return std::clamp(std::nearbyint(value), -1e15, 1e15);
}

int readNumbers(Words& words, int count, bool whole, ClauseValue& value)
{
    for (int index = 0; index < count; ++index) {
        const auto word = words.next();
        if (words.error != 0)
            return words.error;
        const auto number = parseNumber(word, whole);
        if (!number)
            return mci_error::kBadNumber;
        value.numbers[static_cast<std::size_t>(index)] = *number;
    }
    return 0;
}

int readWord(Words& words, ClauseValue& value)
{
    value.word = words.next();
    if (words.error != 0)
        return words.error;
    return words.atEnd ? mci_error::kMissingClause : 0;
}

int readValue(Words& words, Takes takes, ClauseValue& value)
{
    switch (takes) {
    case Takes::Nothing:
        return 0;
    case Takes::Word:
        return readWord(words, value);
    case Takes::WholeNumber:
        return readNumbers(words, 1, true, value);
    case Takes::Number:
        return readNumbers(words, 1, false, value);
    case Takes::FourNumbers:
        return readNumbers(words, 4, false, value);
    }
    return mci_error::kUnknownWord;
}

int readClause(Words& words, std::string_view word, Command& command)
{
    const auto row = std::find_if(kClauses.begin(), kClauses.end(), [&](const ClauseRow& candidate) {
        return candidate.verb == command.verb && sameWord(candidate.first, word);
    });
    if (row == kClauses.end())
        return mci_error::kUnknownWord;
    if (!row->second.empty()) {
        const auto second = words.next();
        if (words.error != 0)
            return words.error;
        if (words.atEnd)
            return mci_error::kMissingClause;
        if (!sameWord(row->second, second))
            return mci_error::kUnknownWord;
    }
    ClauseValue value;
    const int problem = readValue(words, row->takes, value);
    if (problem == 0)
        command.clauses[static_cast<std::size_t>(row->clause)] = value;
    return problem;
}

/// The word "wait" alone asks for nothing.
bool asksForSomething(const Command& command)
{
    for (std::size_t index = 0; index < command.clauses.size(); ++index)
        if (command.clauses[index] && static_cast<Clause>(index) != Clause::Wait)
            return true;
    return false;
}

int readClauses(Words& words, Command& command)
{
    while (true) {
        const auto word = words.next();
        if (words.error != 0)
            return words.error;
        if (words.atEnd)
            return 0;
        if (const int problem = readClause(words, word, command); problem != 0)
            return problem;
    }
}

Command failed(int number)
{
    Command command;
    command.headError = number;
    return command;
}
} // namespace

bool sameWord(std::string_view left, std::string_view right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char one, char other) { return lower(one) == lower(other); });
}

Command parseCommand(std::string_view text)
{
    if (text.empty())
        return failed(mci_error::kEmptyCommand);
    if (text.front() == ' ')
        return failed(mci_error::kUnknownWord);

    Words words(text);
    const auto verb = words.next();
    if (words.error != 0)
        return failed(words.error);
    const auto row = std::find_if(kVerbs.begin(), kVerbs.end(),
                                  [&](const VerbRow& candidate) { return sameWord(candidate.word, verb); });
    if (row == kVerbs.end())
        return failed(mci_error::kUnknownWord);

    Command command;
    command.verb = row->verb;
    command.device = words.next();
    if (words.error != 0 || command.device.empty())
        return failed(words.error != 0 ? words.error : mci_error::kNoDeviceName);
    command.clauseError = readClauses(words, command);
    if (command.clauseError == 0 && !asksForSomething(command))
        command.clauseError = row->withoutClause;
    return command;
}

} // namespace tandrel
