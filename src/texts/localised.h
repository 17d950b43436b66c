/// The texts of the user interface in six languages. English stands where the language is none of them; texts that have
/// no row here are English in every language.
#pragma once

#include "toolkit/text.h"

#include <array>
#include <span>
#include <string_view>

namespace tandrel
{

/// The codes of the languages, in the order of the columns.
inline constexpr std::array<std::string_view, 6> kTextLanguages{"EN", "ES", "FR", "IT", "DE", "PT"};

struct TextRow {
    /// Form and control, or theme and text: "frmMedia.imgOpen", "message.cannotPlay".
    std::string_view key;
    std::array<std::string_view, kTextLanguages.size()> texts;
};

/// All rows. Marks "&" for access keys, and blanks that line texts up, belong to the texts.
std::span<const TextRow> textTable();

/// The text of `key` in the language in use. Throws std::logic_error for a key that has no row, which is a mistake in
/// the program; for one that has a row it never fails.
Text localised(std::string_view key);

/// The same in the language of `code`: two capital letters; any other code is English.
Text localisedIn(std::string_view key, std::string_view code);

} // namespace tandrel
