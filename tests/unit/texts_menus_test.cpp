// The menu of the console and the one that shares the program; and how the small forms end with the console.

#include "player_bench.h"

#include "texts/frm_help.h"
#include "texts/frm_tool_tip.h"
#include "texts/frm_update.h"
#include "texts/frm_wait.h"
#include "texts/links.h"
#include "texts/menu.h"
#include "toolkit/program.h"

namespace tandrel::test
{

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::Pair;

namespace
{

/// Notes which pointer is seen while it opens something.
class WatchedShell : public FakeShell
{
public:
    void open(const std::string& target) override { opened.emplace_back(target, screen().MousePointer()); }
    std::vector<std::pair<std::string, int>> opened;
};

class TextsMenus : public Player
{
protected:
    TextsMenus()
    {
        world.backend.windows = true;
        start();
        Services watched = services();
        watched.shell = &shell;
        installServices(watched);
        AppTitle = "Tandrel Player PRO 1.02.03";
        world.backend.pointerShapes.clear();
    }
    /// The user chooses an entry of the menu that a right press on the console pops up.
    void chooseInMenu(const Text& entry)
    {
        world.backend.menuChoice = entry;
        console().Sposta.userMouseDown({mouse::kRight, 0, 0, 0});
    }
    void chooseInShare(const Text& entry)
    {
        world.backend.menuChoice = entry;
        console().imgShare.userClick();
    }
    static std::vector<std::string> captions(const Menu& head)
    {
        std::vector<std::string> all;
        for (const Menu* entry : head.entries())
            all.push_back(entry->caption());
        return all;
    }
    WatchedShell shell;
};

} // namespace

// The menu of the console.

TEST_F(TextsMenus, TheMenuHasThreeEntriesAndTwoLines)
{
    EXPECT_THAT(captions(menu().mnupopup), ElementsAre("&Help", "-", "&Home Page", "-", "&Exit"));
}

TEST_F(TextsMenus, AnEntryNotChosenDoesNothing)
{
    chooseInMenu("");
    EXPECT_THAT(world.backend.menus, ElementsAre("menu.mnupopup"));
    EXPECT_THAT(shell.opened, IsEmpty());
    EXPECT_FALSE(Loaded<class frmHelp>());
    EXPECT_FALSE(programEnded());
}

TEST_F(TextsMenus, HelpComesUpModeless)
{
    chooseInMenu("mnuHelp");
    ASSERT_TRUE(Loaded<class frmHelp>());
    EXPECT_TRUE(frmHelp().visible());
    EXPECT_THAT(world.journal, Not(Contains("frmHelp modal")));
}

TEST_F(TextsMenus, ExitPressesTheHiddenButton)
{
    int pressed = 0;
    console().cmdMedia[command::kExit]->Click = [&] { ++pressed; };
    chooseInMenu("mnuEsci");
    EXPECT_EQ(pressed, 1);
    EXPECT_FALSE(programEnded());
}

TEST_F(TextsMenus, ExitEndsTheProgram)
{
    chooseInMenu("mnuEsci");
    EXPECT_TRUE(programEnded());
}

TEST_F(TextsMenus, TheHomePageIsOpenedUnderTheHourglass)
{
    chooseInMenu("mnuAutor");
    EXPECT_THAT(shell.opened, ElementsAre(Pair("https://tandrel-player.example/", pointer::kHourglass)));
    EXPECT_THAT(world.backend.pointerShapes, ElementsAre(pointer::kHourglass, pointer::kDefault));
}

// Sharing.

TEST_F(TextsMenus, TheShareMenuHasThreeNetworks)
{
    EXPECT_THAT(captions(share().popup), ElementsAre("On &Facebook ...", "On &MySpace ...", "On &Twitter ..."));
}

TEST_F(TextsMenus, EachNetworkIsOpenedWithThePageAndTheTitle)
{
    chooseInShare("mnuFacebook");
    chooseInShare("mnuMySpace");
    chooseInShare("mnuTwitter");
    const Text page = "https%3A%2F%2Ftandrel-player.example%2Fdownload";
    const Text title = "Tandrel%20Player%20PRO%201.02.03";
    EXPECT_THAT(shell.opened,
                ElementsAre(Pair("https://www.facebook.com/sharer.php?u=" + page + "&t=" + title, 0),
                            Pair("https://myspace.com/post?u=" + page + "&t=" + title, 0),
                            Pair("https://twitter.com/share?url=" + page + "&via=TandrelPlayer&text=" + title, 0)));
    EXPECT_THAT(world.backend.pointerShapes, IsEmpty());
}

TEST_F(TextsMenus, TheConsolesOwnButtonsOpenTheSameAddresses)
{
    chooseInShare("mnuFacebook");
    console().imgFaceBook.userClick();
    chooseInShare("mnuTwitter");
    console().imgTwitter.userClick();
    ASSERT_EQ(shell.opened.size(), 4U);
    EXPECT_EQ(shell.opened[0], shell.opened[1]);
    EXPECT_EQ(shell.opened[2], shell.opened[3]);
    EXPECT_NE(shell.opened[0], shell.opened[2]);
}

// The end.

TEST_F(TextsMenus, ACloseOfTheConsoleEndsTheSmallFormsInTheirOrder)
{
    menu();
    frmUpdate().Show();
    frmToolTip().Show();
    frmWait().Show();
    world.journal.clear();
    console().userClose();
    const auto hidden = chosen(world.journal, [](const std::string& line) { return line.ends_with(" hide"); });
    EXPECT_THAT(hidden, ElementsAre("frmWait hide", "frmToolTip hide", "frmUpdate hide", "slidemenu hide",
                                    "openmenu hide", "menu hide", "frmMedia hide"));
    EXPECT_FALSE(Loaded<class frmWait>() || Loaded<class frmToolTip>() || Loaded<class frmUpdate>() ||
                 Loaded<class menu>());
}

TEST_F(TextsMenus, WhatIsStillThereGoesWithTheProgram)
{
    frmHelp().Show();
    share();
    console().userClose();
    discardForms();
    EXPECT_FALSE(Loaded<class frmHelp>());
    EXPECT_FALSE(Loaded<class share>());
    EXPECT_THAT(openForms(), IsEmpty());
}

TEST_F(TextsMenus, ACloseDoesNotBringUpWhatWasNotThere)
{
    console().userClose();
    EXPECT_THAT(world.journal, Not(Contains("frmUpdate hide")));
    EXPECT_THAT(world.journal, Not(Contains("frmWait hide")));
    EXPECT_THAT(world.journal, Contains("frmMedia hide"));
}

} // namespace tandrel::test
