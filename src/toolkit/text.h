/// Texts are byte strings, UTF-8 where they are text at all. A character is a whole UTF-8 sequence; a byte that belongs
/// to none counts as one character.
#pragma once

#include "toolkit/types.h"

#include <string>
#include <string_view>
#include <vector>

namespace tandrel
{

using Text = std::string;

/// Without the blanks at both ends (blanks only, no tabs).
Text trim(std::string_view text);

/// Letters A to Z in capitals, or small; all other bytes as they are.
Text upper(std::string_view text);
Text lower(std::string_view text);

/// Lengths in bytes of the first character of `text`; 0 for an empty text.
std::size_t firstCharacterLength(std::string_view text);

/// The text from its second character on: the whole first character is skipped.
Text fromSecondCharacter(std::string_view text);

/// The number of characters.
Long characterCount(std::string_view text);

/// The part of a path behind its last separator.
Text fileNameOf(std::string_view path);

/// The part of a path before its last separator, empty where there is none.
Text folderOf(std::string_view path);

/// Without one double quote at the front and one at the end, where they are there.
Text withoutQuotes(std::string_view text);

/// In double quotes.
Text quoted(std::string_view text);

/// The decimal text of a number.
Text text(Long number);

/// `text` cut at each `mark`; n marks give n + 1 elements.
std::vector<Text> split(std::string_view text, char mark);

/// The decimal number that the text begins with, blanks in front skipped, up to the first character that isn't part of
/// one; 0 where there is none.
double numberAtFront(std::string_view text);

/// `count` blanks.
Text blanks(std::size_t count);

/// The separator of paths on this platform.
inline constexpr char kSeparator = '/';

} // namespace tandrel
