/// Keys by their names, as they are written in files and shown to the user.
#pragma once

#include "toolkit/text.h"

#include <optional>
#include <span>

namespace tandrel
{

/// A key that goes down.
struct KeyStroke {
    /// As `keyNamed` writes it: "L", "Ctrl+Shift+O", "Left".
    Text name;
    /// The code of the character that it types, 0 for none.
    int character = 0;
    /// It has been held, and repeats by itself.
    bool repeats = false;
};

/// A key without a character of its own, or whose character has a meaning where keys are written down.
struct NamedKey {
    const char* name;
    /// Other ways to write it; null for none.
    const char* alias;
    /// What the user sees.
    const char* shown;
};

/// All of these but the function keys, which are "F1" to "F24".
std::span<const NamedKey> namedKeys();

inline constexpr int kFunctionKeys = 24;

/// The one name of a key: "ctrl + o" is "Ctrl+O". Modifiers are Ctrl, Alt, Shift and Meta, in this order; behind them
/// stands a character, a name of `namedKeys`, or a function key; letters are capitals. Which key types a character that
/// is no letter depends on the keyboard, so that Shift does not count with one. Nothing for what names no key, and for
/// Tab alone, which goes from one control to the next.
std::optional<Text> keyNamed(std::string_view written);

/// Ctrl, Alt or Meta is held with it: whatever character the keyboard gives, none is typed.
bool typesNothing(const Text& name);

/// A name as the user sees it: "Ctrl++" for "Ctrl+Plus".
Text shownKey(const Text& name);

} // namespace tandrel
