/// Key combinations as texts, and where an X keyboard has them. Plain values: no connection is needed.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace tandrel
{

struct KeyCombination {
    bool control = false;
    bool alt = false;
    bool shift = false;
    bool super = false;
    /// The symbol of the key by X's numbers; the small one for a letter.
    std::uint32_t symbol = 0;
    friend bool operator==(const KeyCombination&, const KeyCombination&) = default;
};

/// "Ctrl+Alt+Shift+P": any of Ctrl, Alt, Shift and Super, each once, then a letter A-Z, a digit or F1 to F12.
/// Empty for any other text.
std::optional<KeyCombination> parseKeyCombination(std::string_view text);

/// The symbols of a keyboard: `perKey` columns for each key, beginning with the key `first`.
struct KeyboardSymbols {
    std::span<const std::uint32_t> symbols;
    std::uint8_t perKey = 0;
    std::uint8_t first = 0;
};

/// All keys that have the symbol in the first column in which any has it. For a letter either case counts.
std::vector<std::uint8_t> keysWithSymbol(const KeyboardSymbols& keyboard, std::uint32_t symbol);

/// The keys behind each of the eight modifiers, `perModifier` for each; 0 is no key.
struct ModifierKeys {
    std::span<const std::uint8_t> keys;
    std::uint8_t perModifier = 0;
};

/// The masks of the modifiers that a keyboard may give to different places.
struct ModifierMasks {
    std::uint16_t alt = 0;
    std::uint16_t super = 0;
    /// The locks, each a mask of its own; those that the keyboard lacks are left out.
    std::vector<std::uint16_t> locks;
};
ModifierMasks modifierMasks(const KeyboardSymbols& keyboard, const ModifierKeys& modifiers);

std::uint16_t modifierMask(const KeyCombination& combination, const ModifierMasks& masks);

/// Every union of the masks, the empty one first.
std::vector<std::uint16_t> allUnions(const std::vector<std::uint16_t>& masks);

} // namespace tandrel
