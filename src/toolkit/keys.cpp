#include "toolkit/keys.h"

#include "platform/valid_text.h"

#include <algorithm>
#include <array>
#include <climits>
#include <clocale>
#include <cwchar>
#include <cwctype>

#include <locale.h>

namespace tandrel
{

namespace
{

constexpr std::array<NamedKey, 22> kNamed{{
    {"Left", nullptr, "Left"},
    {"Right", nullptr, "Right"},
    {"Up", nullptr, "Up"},
    {"Down", nullptr, "Down"},
    {"Home", nullptr, "Home"},
    {"End", nullptr, "End"},
    {"PageUp", "PgUp", "Page Up"},
    {"PageDown", "PgDown", "Page Down"},
    {"Insert", "Ins", "Insert"},
    {"Delete", "Del", "Delete"},
    {"Backspace", nullptr, "Backspace"},
    {"Space", nullptr, "Space"},
    {"Enter", "Return", "Enter"},
    {"Escape", "Esc", "Esc"},
    {"Tab", nullptr, "Tab"},
    {"Comma", nullptr, ","},
    {"Period", nullptr, "."},
    {"Plus", nullptr, "+"},
    {"Minus", "-", "-"},
    {"Equal", "=", "="},
    {"Hash", "#", "#"},
    {"Print", nullptr, "Print"},
}};

constexpr std::array<const char*, 4> kModifiers{"Ctrl", "Alt", "Shift", "Meta"};
constexpr std::size_t kShift = 2;
using Held = std::array<bool, kModifiers.size()>;

bool sameWord(std::string_view one, const char* other) { return other && upper(one) == upper(other); }

/// The key behind the modifiers; `shiftCounts` where Shift makes another key of it.
struct BareKey {
    Text name;
    bool shiftCounts;
};

std::optional<BareKey> functionKey(std::string_view word)
{
    for (int number = 1; number <= kFunctionKeys; ++number)
        if (const Text name = "F" + std::to_string(number); upper(word) == name)
            return BareKey{name, true};
    return std::nullopt;
}

/// A letter of any script, as capitals are what keys are named by. The language of the process has no say in it.
Text inCapitals(std::string_view letter)
{
    static const locale_t allScripts = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    if (allScripts == nullptr)
        return Text(letter);
    const locale_t before = uselocale(allScripts);
    Text capital(letter);
    std::mbstate_t state{};
    wchar_t character = 0;
    if (std::mbrtowc(&character, letter.data(), letter.size(), &state) == letter.size()) {
        std::array<char, MB_LEN_MAX> bytes{};
        const std::size_t length =
            std::wcrtomb(bytes.data(), static_cast<wchar_t>(std::towupper(static_cast<wint_t>(character))), &state);
        if (length <= bytes.size())
            capital.assign(bytes.data(), length);
    }
    uselocale(before);
    return capital;
}

std::optional<BareKey> bareKey(std::string_view word)
{
    for (const NamedKey& key : kNamed)
        if (sameWord(word, key.name) || sameWord(word, key.alias) || sameWord(word, key.shown))
            return BareKey{key.name, Text(key.shown).size() > 1};
    if (word.size() > 1 && word.size() == firstCharacterLength(word))
        return BareKey{inCapitals(word), true};
    if (word.size() != 1)
        return functionKey(word);
    const Text letter = upper(word);
    const bool isLetter = letter[0] >= 'A' && letter[0] <= 'Z';
    return letter[0] > ' ' && letter[0] < '\x7f' ? std::optional(BareKey{letter, isLetter}) : std::nullopt;
}

/// Takes the modifier that `rest` begins with away, with its "+".
bool takeModifier(std::string_view& rest, Held& held)
{
    const auto plus = rest.find('+');
    // A "+" at the end is the key itself.
    if (plus == std::string_view::npos || plus == 0 || plus + 1 == rest.size())
        return false;
    const Text word = trim(rest.substr(0, plus));
    for (std::size_t at = 0; at < kModifiers.size(); ++at) {
        if (!sameWord(word, kModifiers[at]) || held[at])
            continue;
        held[at] = true;
        rest.remove_prefix(plus + 1);
        return true;
    }
    return false;
}

} // namespace

std::span<const NamedKey> namedKeys() { return kNamed; }

std::optional<Text> keyNamed(std::string_view written)
{
    if (validText(Text(written)) != written)
        return std::nullopt;
    const Text whole = trim(written);
    std::string_view rest = whole;
    Held held{};
    while (takeModifier(rest, held)) {}
    const auto key = bareKey(trim(rest));
    if (!key)
        return std::nullopt;
    held[kShift] = held[kShift] && key->shiftCounts;
    if (key->name == "Tab" && !held[0] && !held[1])
        return std::nullopt;
    Text name;
    for (std::size_t at = 0; at < kModifiers.size(); ++at)
        if (held[at])
            name += Text(kModifiers[at]) + "+";
    return name + key->name;
}

bool typesNothing(const Text& name)
{
    return name.starts_with("Ctrl+") || name.starts_with("Alt+") || name.find("Meta+") != Text::npos;
}

Text shownKey(const Text& name)
{
    const auto start = name.rfind('+') == Text::npos ? 0 : name.rfind('+') + 1;
    const Text key = name.substr(start);
    const auto named = std::find_if(kNamed.begin(), kNamed.end(), [&](const NamedKey& one) { return one.name == key; });
    return name.substr(0, start) + (named == kNamed.end() ? key : Text(named->shown));
}

} // namespace tandrel
