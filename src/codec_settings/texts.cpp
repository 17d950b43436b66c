#include "codec_settings/texts.h"

#include <QString>

#include <algorithm>
#include <stdexcept>

namespace tandrel
{

namespace
{
constexpr std::array<std::string_view, 6> kLanguages{"EN", "ES", "FR", "IT", "DE", "PT"};
} // namespace

CodecTexts::CodecTexts(std::string_view language)
    : column_(static_cast<std::size_t>(std::find(kLanguages.begin(), kLanguages.end(), language) - kLanguages.begin()) %
              kLanguages.size())
{
}

QString CodecTexts::operator()(std::string_view key) const
{
    for (const CodecTextRow& row : codecTexts())
        if (row.key == key)
            return QString::fromUtf8(row.texts[column_].data(), static_cast<qsizetype>(row.texts[column_].size()));
    throw std::logic_error("No text has the key " + std::string(key));
}

} // namespace tandrel
