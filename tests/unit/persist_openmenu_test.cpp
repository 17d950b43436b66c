// The menu of the console's open button.

#include "player_bench.h"

#include "persist/openmenu.h"
#include "texts/frm_tool_tip.h"
#include "toolkit/menu.h"

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

namespace
{

class OpenMenu : public Player
{
protected:
    void choose(const Text& entry)
    {
        frmToolTip().Show();
        world.backend.menuChoice = entry;
        console().imgOpen.Click();
    }
};

} // namespace

TEST_F(OpenMenu, ItsEntriesStandInTheirOrder)
{
    start();
    std::vector<Text> names;
    std::vector<Text> captions;
    for (const Menu* entry : openmenu().popup.entries()) {
        names.push_back(entry->name());
        captions.push_back(entry->caption());
    }
    EXPECT_THAT(
        names, ElementsAre("mnuOpenMulti", "mnuOpenSingle", "mnuNull1", "mnuOpenLast", "mnuNull2", "mnuMKV", "mnuDVD"));
    EXPECT_THAT(captions, ElementsAre("Open &Miltiple Video ...", "Open &Single/MKV Video ...", "-",
                                      "Open &Recent Files ...", "-", "Open MKV Video ...", "Open DVD Movie ..."));
    EXPECT_EQ(openmenu().popup.caption(), "Open");
    EXPECT_FALSE(openmenu().mnuMKV.visible());
    EXPECT_TRUE(openmenu().mnuOpenLast.enabled());
    EXPECT_TRUE(openmenu().mnuDVD.enabled());
}

TEST_F(OpenMenu, ItSpeaksTheLanguageOfTheConsole)
{
    Language = "FR";
    world.settings.values["sys/langos"] = "FR";
    start();
    EXPECT_EQ(openmenu().mnuOpenMulti.caption(), "Ouvre &Multiples Vidéo ...");
    EXPECT_EQ(openmenu().mnuOpenSingle.caption(), "Ouvre &Unique/MKV Vidéo ...");
    EXPECT_EQ(openmenu().mnuOpenLast.caption(), "Ouvrez Files &Récents ...");
    EXPECT_EQ(openmenu().mnuMKV.caption(), "Ouvre MKV Vidéo");
    EXPECT_EQ(openmenu().mnuDVD.caption(), "Ouvre DVD Vidéo");
}

TEST_F(OpenMenu, SeveralVideosAreTheOpenCommandOfTheConsole)
{
    start();
    int pressed = 0;
    console().cmdMedia[command::kOpen]->Click = [&] {
        ++pressed;
        EXPECT_FALSE(Loaded<class frmToolTip>());
    };
    choose("mnuOpenMulti");
    EXPECT_EQ(pressed, 1);
}

TEST_F(OpenMenu, EachOtherEntryAsksInItsOwnDialog)
{
    start();
    choose("mnuOpenSingle");
    ASSERT_THAT(world.backend.dialogs, SizeIs(1));
    EXPECT_EQ(world.backend.dialogs[0].title, "Open File Video...");
    choose("mnuMKV");
    ASSERT_THAT(world.backend.dialogs, SizeIs(2));
    EXPECT_EQ(world.backend.dialogs[1].title, "Open MKV Video...");
    EXPECT_FALSE(Loaded<class frmToolTip>()) << "the entry ends it, also where the dialog is cancelled";
}

TEST_F(OpenMenu, ADiscNeedsNoDialog)
{
    start();
    console().FirstOpenTip = false;
    choose("mnuDVD");
    EXPECT_THAT(world.backend.dialogs, IsEmpty());
    EXPECT_TRUE(console().Timer1.enabled());
    EXPECT_TRUE(console().Timer2.enabled());
    EXPECT_FALSE(Loaded<class frmToolTip>());
    EXPECT_EQ(screen().MousePointer(), pointer::kDefault);
}

} // namespace tandrel::test
