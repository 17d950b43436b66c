#include "texts/localised.h"

#include "media/shared_state.h"
#include "texts/localised_tables.h"

#include <algorithm>
#include <stdexcept>
#include <vector>

namespace tandrel
{

namespace
{

std::vector<TextRow> joinedTables()
{
    std::vector<TextRow> all;
    for (const auto rows : {consoleTexts(), dialogTexts(), fullScreenTexts(), helpTexts(), keyTexts(), messageTexts(),
                            pictureTexts(), recentTexts(), windowTexts()})
        all.insert(all.end(), rows.begin(), rows.end());
    return all;
}

/// English for a code that is no language of ours.
std::size_t columnOf(std::string_view code)
{
    const auto found = std::find(kTextLanguages.begin(), kTextLanguages.end(), code);
    return found == kTextLanguages.end() ? 0 : static_cast<std::size_t>(found - kTextLanguages.begin());
}

} // namespace

std::span<const TextRow> textTable()
{
    static const std::vector<TextRow> all = joinedTables();
    return all;
}

Text localised(std::string_view key) { return localisedIn(key, Language); }

Text localisedIn(std::string_view key, std::string_view code)
{
    const auto table = textTable();
    const auto row = std::find_if(table.begin(), table.end(), [&](const TextRow& one) { return one.key == key; });
    if (row == table.end())
        throw std::logic_error("No text has the key " + Text(key));
    return Text(row->texts[columnOf(code)]);
}

} // namespace tandrel
