// The menu over a disc that fills the screen on the video control.

#include "fake_controls.h"
#include "menu_bench.h"
#include "other_media_bench.h"

#include "fullscreen/dvdmenu.h"

namespace tandrel::test
{

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::Pair;

namespace
{

class DvdMenu : public MenuBench
{
protected:
    DvdMenu()
    {
        world.systemFacts.numbers = "2.5.1";
        world.drives.add('D', "A_DISC");
        start("0");
        frmDVD().Show();
        frmDVD().fillScreen();
        console().DvdFullByClick = true;
        console().TrackHold = false;
        PanelUp = false;
        world.players.disc.asked.clear();
    }
};

} // namespace

TEST_F(DvdMenu, ItsEntriesStandInTheirOrder)
{
    EXPECT_EQ(dvdmenu().mnupopup.caption(), "DVD");
    EXPECT_THAT(shownIn(dvdmenu().mnupopup),
                ElementsAre(Pair("mnuFull", "Fullscreen &Off"), Pair("mnuNull0", "-"), Pair("mnuNull1", "-"),
                            Pair("mnu43", "Default Format"), Pair("mnu54", "Extended Format"),
                            Pair("mnu169", "Flat Format"), Pair("mnu84", "UltraFlat Format"), Pair("mnuNull2", "-"),
                            Pair("mnuDVD", "Menu DVD"), Pair("mnuNull3", "-"), Pair("mnuNull4", "-"),
                            Pair("mnuEsci", "&Close Menu")));
}

TEST_F(DvdMenu, ItSpeaksTheUsersLanguage)
{
    Language = "IT";
    EXPECT_EQ(dvdmenu().mnuFull.caption(), "&Esci da schermo pieno");
    EXPECT_EQ(dvdmenu().mnuDVD.caption(), "Menu del DVD");
}

TEST_F(DvdMenu, ARightClickOnADiscThatWentFullByOneBringsItUp)
{
    rightClick("", [&] {
        EXPECT_TRUE(FullMenuOpen);
        EXPECT_FALSE(console().Timer4.enabled());
        EXPECT_EQ(panel().top(), 16200);
    });
    EXPECT_THAT(world.backend.menus, ElementsAre("dvdmenu.mnupopup"));
    EXPECT_FALSE(FullMenuOpen || Loaded<class dvdmenu>());
    console().DvdFullByClick = false;
    rightClick();
    EXPECT_THAT(world.backend.menus, IsEmpty());
}

TEST_F(DvdMenu, TheFormatsChangeThePictureOfTheDisc)
{
    const int width = frmDVD().width();
    const int height = frmDVD().height();
    rightClick("mnu84");
    EXPECT_EQ(frmDVD().dvdPicture.height(), width / 2);
    EXPECT_EQ(frmDVD().dvdPicture.top(), Long((height - width / 2) / 2.0));
    EXPECT_EQ(frmDVD().dvdPicture.width(), width) << "never the width";
    rightClick("mnu54");
    EXPECT_EQ(frmDVD().dvdPicture.height(), Long(width * 20 / 19.0));
    EXPECT_LT(frmDVD().dvdPicture.top(), 0);
    rightClick("mnu169");
    EXPECT_EQ(frmDVD().dvdPicture.height(), width * 9 / 16);
    rightClick("mnu43");
    EXPECT_EQ(rectOf(frmDVD().dvdPicture), (Rect{0, 0, width, height}));
    EXPECT_EQ(activeForm(), &frmDVD());
    EXPECT_TRUE(console().Timer4.enabled());
    EXPECT_FALSE(Loaded<class dvdmenu>());
}

TEST_F(DvdMenu, ItsKeysWorkWithoutItAndAreShownInIt)
{
    EXPECT_TRUE(console().Shortcut({"Ctrl+U", 0, false}));
    EXPECT_EQ(frmDVD().dvdPicture.height(), frmDVD().width() / 2);
    EXPECT_TRUE(frmDVD().Shortcut({"Ctrl+N", 0, false}));
    EXPECT_EQ(frmDVD().dvdPicture.height(), frmDVD().height());
    EXPECT_FALSE(FullMenuOpen || Loaded<class dvdmenu>());
    for (const char* key : {"V", "U", "Ctrl+I"})
        EXPECT_FALSE(console().Shortcut({key, 0, false})) << key << " is none of a disc's menu";
    EXPECT_EQ(dvdmenu().mnuFull.shortcut, "F11, Esc");
    EXPECT_EQ(dvdmenu().mnu43.shortcut, "Ctrl+N");
    EXPECT_EQ(dvdmenu().mnu84.shortcut, "Ctrl+U");
    EXPECT_EQ(dvdmenu().mnuDVD.shortcut, "Backspace");
}

TEST_F(DvdMenu, FullscreenOffLeadsOutByTheNextTick)
{
    console().SaverOff = true;
    console().TrackHold = true;
    choose(dvdmenu().mnuFull);
    EXPECT_FALSE(console().SaverOff || FullMenuOpen || PanelUp || console().TrackHold);
    EXPECT_EQ(ClickState, 1.0);
    EXPECT_TRUE(console().Timer4.enabled());
    EXPECT_FALSE(Loaded<class frmPanel>() || Loaded<class dvdmenu>());
    console().Timer2.Enabled = true;
    console().Timer2.tick();
    EXPECT_FALSE(FullScreenOn || frmDVD().Full);
}

TEST_F(DvdMenu, MenuDvdShowsTheRootMenu)
{
    choose(dvdmenu().mnuDVD);
    EXPECT_THAT(world.players.disc.asked, Contains("root menu"));
    EXPECT_TRUE(PanelUp && console().Timer4.enabled());
    EXPECT_FALSE(FullMenuOpen || Loaded<class dvdmenu>());
}

TEST_F(DvdMenu, MenuDvdWithoutADiscIsIgnored)
{
    frmDVD().oVidWebDVD = nullptr;
    rightClick("mnuDVD");
    EXPECT_FALSE(FullMenuOpen || Loaded<class dvdmenu>());
    EXPECT_THAT(world.players.disc.asked, Not(Contains("root menu")));
}

TEST_F(DvdMenu, AnErrorOfTheDiscsOwnMenuIsIgnored)
{
    FakeVideoControl disc;
    disc.fails = true;
    frmDVD().oVidWebDVD = &disc.InputActive();
    choose(dvdmenu().mnuDVD);
    EXPECT_THAT(disc.asked, ElementsAre("ShowMenu " + std::to_string(disc_menu::kRoot)));
    EXPECT_TRUE(PanelUp && console().Timer4.enabled());
    EXPECT_FALSE(FullMenuOpen || Loaded<class dvdmenu>());
    frmDVD().oVidWebDVD = nullptr;
}

TEST_F(DvdMenu, CloseMenuLeavesThePanelMarkedAsUp)
{
    choose(dvdmenu().mnuEsci);
    EXPECT_TRUE(PanelUp && console().Timer4.enabled());
    EXPECT_FALSE(FullMenuOpen || Loaded<class dvdmenu>());
    EXPECT_TRUE(frmDVD().Full);
}

} // namespace tandrel::test
