#include "console/key_bindings.h"

#include "console/key_commands.h"
#include "platform/services.h"
#include "platform/valid_text.h"
#include "texts/localised.h"

#include <algorithm>

namespace tandrel
{

namespace
{

constexpr std::size_t kMostTold = 6;
constexpr std::size_t kMostWords = 32;
constexpr const char* kByteOrderMark = "\xEF\xBB\xBF";

Text withoutBlanks(std::string_view text)
{
    constexpr const char* kBlanks = " \t\r";
    const auto first = text.find_first_not_of(kBlanks);
    return first == Text::npos ? Text() : Text(text.substr(first, text.find_last_not_of(kBlanks) - first + 1));
}

bool isReadable(const Text& line)
{
    const auto isControl = [](unsigned char byte) {
        return (byte < ' ' && byte != '\t' && byte != '\r') || byte == 0x7f;
    };
    return validText(line) == line && std::none_of(line.begin(), line.end(), isControl);
}

const KeyCommand* commandNamed(const Text& name)
{
    for (const KeyCommand& command : keyCommands())
        if (lower(name) == command.name)
            return &command;
    return nullptr;
}

/// The keys of a line; a comma stands between two of them.
std::vector<Text> keysIn(const Text& written)
{
    std::vector<Text> keys;
    for (const Text& one : split(written, ','))
        keys.push_back(withoutBlanks(one));
    return keys;
}

} // namespace

KeyBindings::KeyBindings() { takeStandard(); }

KeyBindings::KeyBindings(const KeyFile& file) : path_(validText(file.path()))
{
    const KeyFile::Content content = file.read();
    if (content.state == KeyFile::State::Unreadable)
        refused_ = "message.keysUnreadable";
    else if (content.state == KeyFile::State::TooLong)
        refused_ = "message.keysTooLong";
    else
        takeLines(content.text);
    takeStandard();
}

void KeyBindings::note(int line, const char* reason, std::string_view words)
{
    Text shown;
    for (std::size_t characters = 0; characters < kMostWords && !words.empty(); ++characters) {
        const auto length = firstCharacterLength(words);
        shown += words.substr(0, length);
        words.remove_prefix(length);
    }
    troubles_.push_back({line, reason, shown + (words.empty() ? "" : " ...")});
}

void KeyBindings::takeLines(const Text& text)
{
    int number = 0;
    for (Text& line : split(text, '\n')) {
        if (++number == 1 && line.starts_with(kByteOrderMark))
            line.erase(0, Text(kByteOrderMark).size());
        takeLine(number, std::move(line));
    }
}

void KeyBindings::takeLine(int number, Text line)
{
    if (!isReadable(line))
        return note(number, "message.keysNoText");
    line = withoutBlanks(line.substr(0, line.find('#')));
    if (line.empty())
        return;
    const auto equals = line.find('=');
    if (equals == Text::npos)
        return note(number, "message.keysNoLine", line);
    const Text name = withoutBlanks(line.substr(0, equals));
    const KeyCommand* command = commandNamed(name);
    if (!command)
        return note(number, "message.keysNoCommand", name);
    if (keys_.contains(command))
        return note(number, "message.keysTwice", name);
    takeKeys(number, *command, withoutBlanks(line.substr(equals + 1)));
}

void KeyBindings::takeKeys(int number, const KeyCommand& command, const Text& written)
{
    std::vector<Text> own;
    for (const Text& word : written.empty() ? std::vector<Text>() : keysIn(written)) {
        const auto key = keyNamed(word);
        if (!key)
            note(number, "message.keysNoKey", word.empty() ? Text(",") : word);
        else if (commands_.try_emplace(*key, &command).second)
            own.push_back(*key);
        else if (commands_[*key] != &command)
            note(number, "message.keysTaken", word);
    }
    // A line none of whose keys can be used changes nothing.
    if (written.empty() || !own.empty())
        keys_[&command] = std::move(own);
}

void KeyBindings::takeStandard()
{
    for (const KeyCommand& command : keyCommands()) {
        if (keys_.contains(&command))
            continue;
        std::vector<Text>& own = keys_[&command];
        for (const Text& word : keysIn(command.standard))
            if (const auto key = keyNamed(word); key && commands_.try_emplace(*key, &command).second)
                own.push_back(*key);
    }
}

const KeyCommand* KeyBindings::commandOf(const Text& key) const
{
    const auto found = commands_.find(key);
    return found == commands_.end() ? nullptr : found->second;
}

const std::vector<Text>& KeyBindings::keysOf(const KeyCommand& command) const { return keys_.at(&command); }

Text KeyBindings::shownKeys(const KeyCommand& command) const
{
    Text shown;
    for (const Text& key : keysOf(command))
        shown += (shown.empty() ? "" : ", ") + shownKey(key);
    return shown;
}

Text KeyBindings::complaint() const
{
    if (refused_)
        return localised(refused_) + "\n" + path_;
    if (troubles_.empty())
        return {};
    Text message = localised("message.keysLeftOut") + "\n" + path_;
    for (std::size_t at = 0; at < std::min(troubles_.size(), kMostTold); ++at) {
        const Trouble& one = troubles_[at];
        message += "\n" + localised("message.keysLineNumber") + " " + std::to_string(one.line) + ": " +
                   localised(one.reason) + (one.words.empty() ? "" : ": " + one.words);
    }
    if (troubles_.size() > kMostTold)
        message += "\n" + localised("message.keysMore") + " " + std::to_string(troubles_.size() - kMostTold);
    return message;
}

Text emptyKeyFile()
{
    Text file =
        "# The keys of Tandrel Player: \"command = key, key\", a command a line.\n"
        "# To change one, take the \"#\" in front of its line away. Without a key behind the \"=\" it has none.\n"
        "# Keys are letters, digits and signs, F1 to F24, and";
    for (const NamedKey& key : namedKeys())
        file += Text(" ") + key.name;
    file += ".\n# In front of them may stand Ctrl+, Alt+, Shift+ and Meta+. It is read when the program starts.\n\n";
    for (const KeyCommand& command : keyCommands())
        file += Text("# ") + command.name + " = " + command.standard + "\n";
    return file;
}

} // namespace tandrel
