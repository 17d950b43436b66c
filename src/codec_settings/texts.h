/// What the settings program says, in the six languages of the player.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

class QString;

namespace tandrel
{

struct CodecTextRow {
    std::string_view key;
    /// English, Spanish, French, Italian, German, Portuguese.
    std::array<std::string_view, 6> texts;
};

std::span<const CodecTextRow> codecTexts();

/// The texts in one language.
class CodecTexts
{
public:
    /// By two capital letters; any other code is English.
    explicit CodecTexts(std::string_view language);
    /// Throws std::logic_error for a key without a row, which is a mistake in the program.
    QString operator()(std::string_view key) const;

private:
    std::size_t column_;
};

} // namespace tandrel
