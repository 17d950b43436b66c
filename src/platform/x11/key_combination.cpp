#include "platform/x11/key_combination.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace tandrel
{

namespace
{

constexpr std::uint16_t kShiftMask = 1;
constexpr std::uint16_t kLockMask = 2;
constexpr std::uint16_t kControlMask = 4;
constexpr std::uint16_t kUsualAltMask = 8;
constexpr std::uint16_t kUsualSuperMask = 64;
constexpr int kModifiers = 8;

constexpr std::uint32_t kF1 = 0xffbe;
constexpr int kFunctionKeys = 12;
constexpr std::uint32_t kNumLock = 0xff7f;
constexpr std::uint32_t kScrollLock = 0xff14;
constexpr std::uint32_t kAltLeft = 0xffe9;
constexpr std::uint32_t kAltRight = 0xffea;
constexpr std::uint32_t kSuperLeft = 0xffeb;
constexpr std::uint32_t kSuperRight = 0xffec;

// Two layouts, each plain and shifted. A Latin letter stands in the second where the first is of another script.
constexpr int kColumns = 4;

bool KeyCombination::*modifierNamed(std::string_view name)
{
    struct Row {
        std::string_view name;
        bool KeyCombination::*modifier;
    };
    constexpr std::array<Row, 4> kRows{{{"Ctrl", &KeyCombination::control},
                                        {"Alt", &KeyCombination::alt},
                                        {"Shift", &KeyCombination::shift},
                                        {"Super", &KeyCombination::super}}};
    const auto* row = std::find_if(kRows.begin(), kRows.end(), [name](const Row& one) { return one.name == name; });
    return row == kRows.end() ? nullptr : row->modifier;
}

std::optional<std::uint32_t> functionKey(std::string_view digits)
{
    int number = 0;
    const char* end = digits.data() + digits.size();
    const auto [stop, problem] = std::from_chars(digits.data(), end, number);
    if (problem != std::errc() || stop != end || digits.front() == '0' || number < 1 || number > kFunctionKeys)
        return std::nullopt;
    return kF1 + static_cast<std::uint32_t>(number - 1);
}

std::optional<std::uint32_t> symbolNamed(std::string_view name)
{
    if (name.size() > 1)
        return name.front() == 'F' ? functionKey(name.substr(1)) : std::nullopt;
    if (name.empty())
        return std::nullopt;
    const char key = name.front();
    if (key >= 'A' && key <= 'Z')
        return static_cast<std::uint32_t>(key - 'A' + 'a');
    if (key >= '0' && key <= '9')
        return static_cast<std::uint32_t>(key);
    return std::nullopt;
}

/// The symbols of Latin letters are their characters.
std::uint32_t smallLetter(std::uint32_t symbol) { return symbol >= 'A' && symbol <= 'Z' ? symbol - 'A' + 'a' : symbol; }

bool keyHasOneOf(const KeyboardSymbols& keyboard, std::uint8_t key, std::initializer_list<std::uint32_t> wanted)
{
    if (key < keyboard.first)
        return false;
    const std::size_t begin = static_cast<std::size_t>(key - keyboard.first) * keyboard.perKey;
    if (begin + keyboard.perKey > keyboard.symbols.size())
        return false;
    const auto own = keyboard.symbols.subspan(begin, keyboard.perKey);
    return std::find_first_of(own.begin(), own.end(), wanted.begin(), wanted.end()) != own.end();
}

std::uint16_t maskOf(const KeyboardSymbols& keyboard, const ModifierKeys& modifiers,
                     std::initializer_list<std::uint32_t> wanted)
{
    for (int modifier = 0; modifier < kModifiers; ++modifier)
        for (int place = 0; place < modifiers.perModifier; ++place) {
            const auto index = static_cast<std::size_t>(modifier * modifiers.perModifier + place);
            if (index < modifiers.keys.size() && modifiers.keys[index] != 0 &&
                keyHasOneOf(keyboard, modifiers.keys[index], wanted))
                return static_cast<std::uint16_t>(1U << modifier);
        }
    return 0;
}

} // namespace

std::optional<KeyCombination> parseKeyCombination(std::string_view text)
{
    KeyCombination combination;
    for (auto plus = text.find('+'); plus != std::string_view::npos; plus = text.find('+')) {
        const auto modifier = modifierNamed(text.substr(0, plus));
        if (!modifier || combination.*modifier)
            return std::nullopt;
        combination.*modifier = true;
        text.remove_prefix(plus + 1);
    }
    const auto symbol = symbolNamed(text);
    if (!symbol)
        return std::nullopt;
    combination.symbol = *symbol;
    return combination;
}

std::vector<std::uint8_t> keysWithSymbol(const KeyboardSymbols& keyboard, std::uint32_t symbol)
{
    std::vector<std::uint8_t> keys;
    if (keyboard.perKey == 0)
        return keys;
    const std::size_t count = keyboard.symbols.size() / keyboard.perKey;
    for (int column = 0; column < std::min<int>(kColumns, keyboard.perKey) && keys.empty(); ++column)
        for (std::size_t key = 0; key < count; ++key)
            if (smallLetter(keyboard.symbols[key * keyboard.perKey + static_cast<std::size_t>(column)]) == symbol)
                keys.push_back(static_cast<std::uint8_t>(keyboard.first + key));
    return keys;
}

ModifierMasks modifierMasks(const KeyboardSymbols& keyboard, const ModifierKeys& modifiers)
{
    const std::uint16_t alt = maskOf(keyboard, modifiers, {kAltLeft, kAltRight});
    const std::uint16_t super = maskOf(keyboard, modifiers, {kSuperLeft, kSuperRight});
    ModifierMasks masks{alt ? alt : kUsualAltMask, super ? super : kUsualSuperMask, {kLockMask}};
    for (const std::uint32_t lock : {kNumLock, kScrollLock}) {
        const std::uint16_t mask = maskOf(keyboard, modifiers, {lock});
        const bool known = std::find(masks.locks.begin(), masks.locks.end(), mask) != masks.locks.end();
        if (mask != 0 && !known)
            masks.locks.push_back(mask);
    }
    return masks;
}

std::uint16_t modifierMask(const KeyCombination& combination, const ModifierMasks& masks)
{
    unsigned mask = 0;
    mask |= combination.control ? kControlMask : 0U;
    mask |= combination.shift ? kShiftMask : 0U;
    mask |= combination.alt ? masks.alt : 0U;
    mask |= combination.super ? masks.super : 0U;
    return static_cast<std::uint16_t>(mask);
}

std::vector<std::uint16_t> allUnions(const std::vector<std::uint16_t>& masks)
{
    std::vector<std::uint16_t> unions{0};
    for (const std::uint16_t mask : masks) {
        const std::size_t count = unions.size();
        for (std::size_t one = 0; one < count; ++one)
            unions.push_back(static_cast<std::uint16_t>(unions[one] | mask));
    }
    return unions;
}

} // namespace tandrel
