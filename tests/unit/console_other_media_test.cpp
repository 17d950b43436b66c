// How HD films and discs are opened, and how they end, with what else is open.

#include "opening_bench.h"
#include "other_media_bench.h"

#include "console/command_line.h"
#include "console/frm_start.h"
#include "persist/data_files.h"
#include "texts/frm_update.h"
#include "texts/frm_wait.h"

namespace tandrel::test
{

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

namespace
{

class ConsoleOtherMedia : public OtherMediaConsole
{
protected:
    void startWith(const Text& command)
    {
        setCommandLine({command, {}});
        frmStart().start();
    }
    void chooseSingle(const Text& path)
    {
        world.backend.choices = {{path}};
        world.mci.clear();
        console().OpenSingleVideo();
    }
    void chooseMkv(const Text& path)
    {
        world.backend.choices = {{path}};
        world.mci.clear();
        console().OpenSingleVideoMKV();
    }
    /// All three windows are loaded, which no user brings about.
    void openAll()
    {
        world.drives.add('D', "A_DISC");
        frmMKV();
        frmDVD();
        frmDVD2();
    }
    static bool anyIsLoaded() { return Loaded<class frmMKV>() || Loaded<class frmDVD>() || Loaded<class frmDVD2>(); }
    void expectFollowed()
    {
        EXPECT_TRUE(console().Timer1.enabled());
        EXPECT_TRUE(console().Timer2.enabled());
        EXPECT_FALSE(Loaded<class frmWait>());
        EXPECT_EQ(screen().MousePointer(), pointer::kDefault);
    }
};

} // namespace

TEST_F(ConsoleOtherMedia, AnHdFileOnTheCommandLineHasItsWindow)
{
    for (const char* path : {"/films/x.mkv", "/films/X.MKV", "/films/x.HDMOV"}) {
        World fresh;
        fresh.settled();
        setCommandLine({tandrel::quoted(path), {}});
        frmStart().start();
        ASSERT_TRUE(Loaded<class frmMKV>()) << path;
        EXPECT_EQ(frmMKV().MediaFile, path);
        EXPECT_EQ(frmMKV().caption(), Text("HD|") + path);
        EXPECT_TRUE(frmMKV().visible());
        EXPECT_THAT(fresh.players.film.asked, Contains(Text("open ") + path));
        EXPECT_TRUE(frmMedia().Timer1.enabled());
        EXPECT_EQ(CurrentAlias, tandrel::quoted(path));
        EXPECT_FALSE(Loaded<class frmStart>());
        EXPECT_FALSE(Loaded<class frmWait>());
        EXPECT_EQ(screen().MousePointer(), pointer::kDefault);
        EXPECT_THAT(VideoWindows, IsEmpty());
        EXPECT_THAT(startingWith(fresh.mci.sent(), "Open"), IsEmpty());
    }
}

TEST_F(ConsoleOtherMedia, TheWordDvdShowsTheWindowOfItsSystem)
{
    for (const bool older : {false, true}) {
        World fresh;
        fresh.settled();
        fresh.systemFacts.numbers = older ? "2.5.1" : "linux";
        fresh.drives.add('D', "A_DISC");
        setCommandLine({"DVD", {}});
        frmStart().start();
        EXPECT_EQ(Loaded<class frmDVD>(), older);
        EXPECT_EQ(Loaded<class frmDVD2>(), !older);
        EXPECT_TRUE(DVDMode);
        EXPECT_TRUE(frmMedia().Timer1.enabled());
        EXPECT_THAT(fresh.players.disc.asked, Contains("open /discs/D"));
    }
}

TEST_F(ConsoleOtherMedia, TheWordDvdWithoutADriveLeavesNoWindow)
{
    startWith("DVD");
    EXPECT_THAT(world.backend.boxes, SizeIs(1));
    EXPECT_FALSE(anyIsLoaded());
    EXPECT_FALSE(DVDMode);
}

TEST_F(ConsoleOtherMedia, AFurtherStartWithDvdOpensItTwoHundredTwipsFurther)
{
    world.instances.another = true;
    world.drives.add('D', "A_DISC");
    world.settings.values["sys/top"] = "1000";
    world.settings.values["sys/left"] = "2000";
    startWith("DVD");
    EXPECT_EQ(world.settings.values["sys/top"], "1200");
    EXPECT_EQ(world.settings.values["sys/left"], "2200");
    EXPECT_TRUE(Loaded<class frmDVD2>());
    EXPECT_FALSE(console().SecondRun);
}

TEST_F(ConsoleOtherMedia, ADiscPathOnTheCommandLineIsADisc)
{
    for (const char* path :
         {"/images/a.iso", "/images/B.ISO", "/discs/VIDEO_TS", "/discs/video_ts/", "/discs/film", "/discs/small"}) {
        World fresh;
        fresh.settled();
        fresh.files.content["/discs/film/VIDEO_TS/VIDEO_TS.IFO"] = {};
        fresh.files.content["/discs/small/video_ts/video_ts.ifo"] = {};
        setCommandLine({tandrel::quoted(path), {}});
        frmStart().start();
        ASSERT_TRUE(Loaded<class frmDVD2>()) << path;
        EXPECT_EQ(frmDVD2().DriveURL, "wmpdvd://D");
        EXPECT_THAT(fresh.players.disc.asked, Contains(Text("open ") + path));
        EXPECT_EQ(CurrentAlias, "");
    }
}

TEST_F(ConsoleOtherMedia, OnAnOlderSystemADiscPathPlaysOnTheVideoControl)
{
    world.systemFacts.numbers = "2.5.1";
    world.drives.discs["/images/a.iso"].titles.resize(2);
    startWith("\"/images/a.iso\"");
    ASSERT_TRUE(Loaded<class frmDVD>());
    EXPECT_EQ(frmDVD().Titles, 2);
    EXPECT_THAT(askedOfDisc(), Contains("open /images/a.iso"));
    activateAgain(frmDVD());
    EXPECT_EQ(world.players.disc.alive, 1) << "it is still that one";
}

TEST_F(ConsoleOtherMedia, ADroppedDiscTakesThePlaceOfWhatIsOpen)
{
    begin();
    openSeveral(2);
    console().openDropped({"/images/a.iso"});
    EXPECT_EQ(liveCount(), 0);
    EXPECT_THAT(askedOfDisc(), Contains("open /images/a.iso"));
    EXPECT_EQ(frmDVD2().caption(), "INSERTED");
    expectFollowed();
    console().openDropped({"/images/b.iso"});
    EXPECT_EQ(frmDVD2().DriveURL, "wmpdvd://E");
    EXPECT_EQ(world.players.disc.alive, 1);
}

TEST_F(ConsoleOtherMedia, ADiscDroppedOnAWindowOfADiscTakesItsPlace)
{
    for (const bool older : {false, true}) {
        World fresh;
        fresh.settled();
        fresh.systemFacts.numbers = older ? "2.5.1" : "linux";
        for (const char* path : {"/images/a.iso", "/images/b.iso"})
            fresh.drives.discs[path].titles.resize(2);
        frmMedia().Show();
        console().FirstOpenTip = false;
        console().openDropped({"/images/a.iso"});
        Form& window = older ? static_cast<Form&>(frmDVD()) : frmDVD2();
        const auto first = window.shared_from_this();
        first->run([&] { first->DropFiles({"/images/b.iso"}); });
        EXPECT_TRUE(first->isDead());
        EXPECT_TRUE(DVDMode);
        EXPECT_EQ(fresh.players.disc.alive, 1);
        EXPECT_EQ(fresh.players.disc.asked.back() == "gone", true) << "the first one, behind the second's start";
        EXPECT_THAT(fresh.players.disc.asked, Contains("open /images/b.iso"));
        EXPECT_TRUE(older ? Loaded<class frmDVD>() && frmDVD().visible() : frmDVD2().visible());
    }
}

TEST_F(ConsoleOtherMedia, ADiscDroppedOnTheFullScreenOfAnotherTakesItsPlace)
{
    begin();
    console().openDropped({"/images/a.iso"});
    world.players.disc.duration = 60;
    frmDVD2().picDVD.fullScreen = true;
    const auto full = activeForm()->shared_from_this();
    full->run([&] { full->DropFiles({"/images/b.iso"}); });
    EXPECT_TRUE(full->isDead());
    EXPECT_EQ(frmDVD2().DriveURL, "wmpdvd://E");
    EXPECT_FALSE(frmDVD2().picDVD.fullScreen());
    EXPECT_EQ(world.players.disc.alive, 1);
}

TEST_F(ConsoleOtherMedia, AFileThatADiscTookThePlaceOfCanBeOpenedAgain)
{
    begin();
    chooseSingle(film(0));
    world.drives.add('D', "A_DISC");
    console().OpenSingleVideoDVD();
    EXPECT_THAT(console().List2.entries(), IsEmpty());
    chooseSingle(film(0));
    EXPECT_EQ(liveCount(), 1);
    EXPECT_FALSE(anyIsLoaded());
    chooseSingle("/images/a.iso");
    EXPECT_THAT(console().List2.entries(), IsEmpty());
    chooseSingle(film(0));
    EXPECT_EQ(liveCount(), 1);
}

TEST_F(ConsoleOtherMedia, ADiscImageChosenInTheDialogIsADisc)
{
    begin();
    chooseSingle("/images/a.iso");
    ASSERT_TRUE(Loaded<class frmDVD2>());
    EXPECT_THAT(askedOfDisc(), Contains("open /images/a.iso"));
    EXPECT_THAT(startingWith(world.mci.sent(), "Open"), IsEmpty());
}

TEST_F(ConsoleOtherMedia, ASingleHdFileOnALaterSystemHasItsWindow)
{
    for (const char* path : {"/films/a.mkv", "/films/b.HDMOV", "/films/c.hdMOV"}) {
        begin();
        chooseSingle(path);
        ASSERT_TRUE(Loaded<class frmMKV>()) << path;
        EXPECT_EQ(frmMKV().MediaFile, path);
        EXPECT_EQ(frmMKV().caption(), Text("HD|") + path);
        EXPECT_EQ(frmMKV().picDVD.URL(), path);
        EXPECT_THAT(startingWith(world.mci.sent(), "Open"), IsEmpty());
        EXPECT_THAT(console().List2.entries(), ElementsAre(path));
        EXPECT_EQ(activeForm(), &frmMKV());
        expectFollowed();
    }
}

TEST_F(ConsoleOtherMedia, OnAnOlderSystemItGoesToASlot)
{
    begin(true);
    chooseSingle("/films/a.mkv");
    EXPECT_FALSE(Loaded<class frmMKV>());
    EXPECT_THAT(startingWith(world.mci.sent(), "Open"), SizeIs(1));
    EXPECT_EQ(liveCount(), 1);
}

TEST_F(ConsoleOtherMedia, TheOpenerOfMkvFilesHasNoRoadOfItsOwn)
{
    begin();
    chooseMkv("/films/a.mkv");
    EXPECT_FALSE(Loaded<class frmMKV>());
    EXPECT_EQ(liveCount(), 1);
}

TEST_F(ConsoleOtherMedia, ThatOpenerEndsTheOtherWindowsWhenItOpensAFile)
{
    begin();
    openAll();
    chooseMkv("/films/a.mkv");
    EXPECT_FALSE(anyIsLoaded());
}

TEST_F(ConsoleOtherMedia, TheSingleOpenerEndsTheOtherWindows)
{
    begin();
    openAll();
    chooseSingle(film(1));
    EXPECT_FALSE(anyIsLoaded());
    EXPECT_FALSE(MkvOpen || DVDMode);
    EXPECT_EQ(liveCount(), 1);
}

TEST_F(ConsoleOtherMedia, AnotherHdFileTakesThePlaceOfTheFirst)
{
    begin();
    chooseSingle("/films/a.mkv");
    chooseSingle("/films/b.mkv");
    EXPECT_EQ(frmMKV().MediaFile, "/films/b.mkv");
    EXPECT_EQ(frmMKV().picDVD.URL(), "/films/b.mkv");
    EXPECT_EQ(world.players.film.alive, 1);
    EXPECT_THAT(console().List2.entries(), ElementsAre("/films/b.mkv"));
}

TEST_F(ConsoleOtherMedia, AGroupEndsTheOtherWindows)
{
    begin();
    openFilm();
    console().openPaths({film(0), film(1)});
    EXPECT_FALSE(Loaded<class frmMKV>());
    EXPECT_EQ(liveCount(), 2);
}

TEST_F(ConsoleOtherMedia, TheOpenerOfDiscsClosesWhatIsOpen)
{
    begin();
    openSeveral(2);
    openFilm();
    world.drives.add('D', "A_DISC");
    Text wait;
    console().OpenSingleVideoDVD();
    EXPECT_FALSE(Loaded<class frmMKV>());
    EXPECT_EQ(liveCount(), 0);
    EXPECT_EQ(NextSlot, 0);
    EXPECT_EQ(CurrentAlias, "");
    ASSERT_TRUE(Loaded<class frmDVD2>());
    EXPECT_THAT(askedOfDisc(), Contains("open /discs/D"));
    EXPECT_EQ(activeForm(), &console());
    expectFollowed();
}

TEST_F(ConsoleOtherMedia, OnAnOlderSystemThatOpenerShowsTheVideoControl)
{
    begin(true);
    world.drives.add('D', "A_DISC");
    console().OpenSingleVideoDVD();
    EXPECT_TRUE(Loaded<class frmDVD>());
    EXPECT_FALSE(Loaded<class frmDVD2>());
    EXPECT_EQ(frmDVD().Titles, 2);
    EXPECT_EQ(activeForm(), &console());
    expectFollowed();
}

TEST_F(ConsoleOtherMedia, TheOpenerOfDiscsGivesTheTipOnceAndThenTheDisc)
{
    begin();
    console().FirstOpenTip = true;
    world.drives.add('D', "A_DISC");
    int tips = 0;
    world.backend.whileModal["frmUpdate"] = [&](Form& form) {
        tips += dynamic_cast<class frmUpdate&>(form).lblUpdate.caption().starts_with("TIP:") ? 1 : 0;
    };
    console().OpenSingleVideoDVD();
    console().OpenSingleVideoDVD();
    EXPECT_EQ(tips, 1);
    EXPECT_TRUE(Loaded<class frmDVD2>());
}

TEST_F(ConsoleOtherMedia, ADiscThatPlaysIsEndedBeforeAnother)
{
    begin();
    world.drives.add('D', "A_DISC");
    console().OpenSingleVideoDVD();
    const auto first = frmDVD2().shared_from_this();
    console().OpenSingleVideoDVD();
    EXPECT_TRUE(first->isDead());
    EXPECT_TRUE(Loaded<class frmDVD2>());
    EXPECT_EQ(world.players.disc.alive, 1);
}

TEST_F(ConsoleOtherMedia, AnEmptyAnswerForTheDriveEndsTheWindow)
{
    begin();
    world.drives.add('D', "A_DISC");
    world.drives.drives[0].ready = false;
    console().OpenSingleVideoDVD();
    EXPECT_FALSE(Loaded<class frmDVD2>());
    EXPECT_FALSE(DVDMode);
    EXPECT_THAT(world.drives.ejected, ElementsAre(0));
    expectFollowed();
}

TEST_F(ConsoleOtherMedia, AnEmptyDriveOnAnOlderSystemKeepsItsWindowAndAsksOnce)
{
    begin(true);
    int notices = 0;
    world.backend.whileModal["frmUpdate"] = [&](Form&) { ++notices; };
    console().OpenSingleVideoDVD();
    EXPECT_EQ(notices, 1);
    ASSERT_TRUE(Loaded<class frmDVD>());
    EXPECT_EQ(frmDVD().Titles, -1);
    expectFollowed();
}

TEST_F(ConsoleOtherMedia, AnHdFileOfTheHandoverHasItsWindow)
{
    begin();
    world.backend.windows = true;
    open(0);
    world.files.content["/data/list.dat"] = {"\"/films/x.mkv\""};
    forgetActivation(console());
    activate(console());
    ASSERT_TRUE(Loaded<class frmMKV>());
    EXPECT_EQ(frmMKV().picDVD.URL(), "/films/x.mkv");
    EXPECT_EQ(frmMKV().caption(), "HD|/films/x.mkv");
    EXPECT_EQ(liveCount(), 1) << "what was open stays";
    const std::vector<std::string> came = chosen(world.journal, [](const std::string& line) {
        return line == "frmChild activate" || line == "frmMKV activate";
    });
    ASSERT_FALSE(came.empty());
    EXPECT_EQ(came.back(), "frmMKV activate") << "it stands before the windows that were arranged";
    EXPECT_EQ(activeForm(), &console());
    EXPECT_THAT(console().List2.entries(), ElementsAre(film(0), "x.mkv"));
    EXPECT_EQ(CurrentAlias, "\"/films/x.mkv\"");
    Unload<class frmMKV>();
    EXPECT_THAT(console().List2.entries(), ElementsAre(film(0)));
}

TEST_F(ConsoleOtherMedia, OfSeveralHdFilesInOneHandoverEachHasASlot)
{
    begin();
    world.files.content["/data/list.dat"] = {"\"/films/x.mkv\"", "\"/films/y.mkv\"", alias(0)};
    forgetActivation(console());
    activate(console());
    EXPECT_FALSE(Loaded<class frmMKV>());
    EXPECT_EQ(liveCount(), 3);
}

TEST_F(ConsoleOtherMedia, OneHdFileAmongOthersInAHandoverHasItsWindow)
{
    begin();
    world.files.content["/data/list.dat"] = {alias(0), "\"/films/x.mkv\"", alias(1)};
    forgetActivation(console());
    activate(console());
    EXPECT_TRUE(Loaded<class frmMKV>());
    EXPECT_EQ(liveCount(), 2);
    EXPECT_EQ(CurrentAlias, alias(1)) << "the last one leads";
}

TEST_F(ConsoleOtherMedia, ANewHandoverEndsTheWindowOfTheLast)
{
    begin();
    openFilm();
    world.files.content["/data/list.dat"] = {alias(0)};
    forgetActivation(console());
    activate(console());
    EXPECT_FALSE(Loaded<class frmMKV>());
    EXPECT_EQ(liveCount(), 1);
}

TEST_F(ConsoleOtherMedia, ExitStopsBothControls)
{
    begin();
    openFilm();
    forgetAsked();
    console().imgExit.userClick();
    EXPECT_THAT(askedOfFilm(), ElementsAre("pause", "seek 0"));
}

TEST_F(ConsoleOtherMedia, ExitStopsADisc)
{
    for (const bool older : {false, true}) {
        World fresh;
        fresh.settled();
        fresh.systemFacts.numbers = older ? "2.5.1" : "linux";
        fresh.drives.add('D', "A_DISC");
        frmMedia().Show();
        console().FirstOpenTip = false;
        console().OpenSingleVideoDVD();
        fresh.players.disc.asked.clear();
        console().imgExit.userClick();
        if (older) {
            EXPECT_THAT(fresh.players.disc.asked, ElementsAre("gone"));
        } else {
            EXPECT_THAT(fresh.players.disc.asked, ElementsAre("pause", "seek 0"));
        }
    }
}

TEST_F(ConsoleOtherMedia, AClosedConsoleEndsTheWindowsInTheirOrder)
{
    begin();
    openAll();
    world.backend.windows = true;
    std::vector<Text> ended;
    const std::vector<std::shared_ptr<Form>> forms{frmDVD().shared_from_this(), frmDVD2().shared_from_this(),
                                                   frmMKV().shared_from_this()};
    unload(console());
    EXPECT_FALSE(anyIsLoaded());
    for (const auto& form : forms)
        EXPECT_TRUE(form->isDead()) << form->name();
    EXPECT_EQ(world.players.disc.alive, 0);
}

TEST_F(ConsoleOtherMedia, TheReturnOfTheConsoleShowsTheWindowThatCommandsGoTo)
{
    begin();
    openAll();
    frmDVD().Hide();
    ResizePending = true;
    console().userMinimised();
    console().userRestored();
    EXPECT_TRUE(frmDVD2().visible());
    EXPECT_FALSE(frmMKV().visible()) << "a disc goes before it";
    EXPECT_FALSE(ResizePending);
}

TEST_F(ConsoleOtherMedia, TheWindowsEndInTheirOrder)
{
    begin();
    world.backend.windows = true;
    openAll();
    world.journal.clear();
    unload(console());
    EXPECT_THAT(chosen(world.journal,
                       [](const std::string& line) {
                           return line == "frmDVD hide" || line == "frmDVD2 hide" || line == "frmMKV hide";
                       }),
                ElementsAre("frmDVD hide", "frmDVD2 hide", "frmMKV hide"));
}

TEST_F(ConsoleOtherMedia, ADiscIsWantedByItsPathOnlyOnce)
{
    begin();
    console().openDropped({"/images/a.iso"});
    world.drives.add('E', "ANOTHER");
    bool asked = false;
    world.backend.whileModal["frmDriver"] = [&](Form&) { asked = true; };
    console().OpenSingleVideoDVD();
    EXPECT_TRUE(asked);
}

TEST_F(ConsoleOtherMedia, OnAnOlderSystemADiscThatPlaysIsEndedBeforeAnotherToo)
{
    begin(true);
    world.drives.add('D', "A_DISC");
    console().OpenSingleVideoDVD();
    const auto first = frmDVD().shared_from_this();
    console().OpenSingleVideoDVD();
    EXPECT_TRUE(first->isDead());
    EXPECT_TRUE(Loaded<class frmDVD>());
    EXPECT_EQ(world.players.disc.alive, 1);
}

TEST_F(ConsoleOtherMedia, AHandoverOfWhatIsOpenEndsNothing)
{
    begin();
    open(0);
    openFilm();
    world.files.content["/data/list.dat"] = {alias(0)};
    forgetActivation(console());
    activate(console());
    EXPECT_TRUE(Loaded<class frmMKV>());
    EXPECT_EQ(liveCount(), 1);
}

} // namespace tandrel::test
