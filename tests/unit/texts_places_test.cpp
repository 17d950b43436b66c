// Where the texts of the table are seen.

#include "player_bench.h"

#include "console/slidemenu.h"
#include "console/stillmenu.h"
#include "texts/frm_help.h"
#include "texts/localised.h"
#include "texts/menu.h"

#include <algorithm>

namespace tandrel::test
{

namespace
{

using TextsPlaces = Player;

template <class List>
bool holds(const List& list, std::string_view name)
{
    return std::any_of(list.begin(), list.end(), [name](const auto* one) { return one->name() == name; });
}

} // namespace

TEST_F(TextsPlaces, KeysNameControlsAndEntriesThatAreThere)
{
    start();
    int checked = 0;
    for (const TextRow& row : textTable()) {
        const std::string_view group = row.key.substr(0, row.key.find('.'));
        const std::string_view name = row.key.substr(group.size() + 1);
        ++checked;
        if (group == "frmMedia")
            EXPECT_TRUE(holds(console().controls(), name)) << row.key;
        else if (group == "menu")
            EXPECT_TRUE(holds(menu().mnupopup.entries(), name)) << row.key;
        else if (group == "slidemenu")
            EXPECT_TRUE(holds(slidemenu().popup.entries(), name)) << row.key;
        else if (group == "stillmenu")
            EXPECT_TRUE(holds(stillmenu().popup.entries(), name)) << row.key;
        else if (group == "frmHelp" && (name.starts_with("Label") || name == "cmdOK"))
            EXPECT_TRUE(holds(frmHelp().controls(), name)) << row.key;
        else
            --checked;
    }
    EXPECT_EQ(checked, 26 + 2 + 2 + 2 + 17);
}

} // namespace tandrel::test
