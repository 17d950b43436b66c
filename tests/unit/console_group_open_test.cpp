// Several videos opened at once, in both modes.

#include "player_bench.h"

#include "texts/frm_tool_tip.h"
#include "texts/frm_update.h"
#include "texts/frm_wait.h"
#include "toolkit/activation.h"
#include "toolkit/program.h"

namespace tandrel::test
{

using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

namespace
{

class ConsoleGroupOpen : public Player
{
protected:
    void openGroup(const std::vector<int>& films)
    {
        std::vector<Text> paths;
        for (const int index : films)
            paths.push_back(film(index));
        world.mci.clear();
        console().openPaths(paths);
    }
    void openFirst(int count)
    {
        std::vector<int> films;
        for (int index = 0; index < count; ++index)
            films.push_back(index);
        openGroup(films);
    }
    void pressOpen()
    {
        world.mci.clear();
        console().cmdMedia[command::kOpen]->Value = true;
    }
    /// The user presses the open button and chooses these.
    void choose(const std::vector<int>& films)
    {
        world.backend.choices.emplace_back();
        for (const int index : films) {
            world.files.content[film(index)] = {};
            world.backend.choices.back().push_back(film(index));
        }
        pressOpen();
    }
    frmChild& video(int index) { return *VideoWindows.at(static_cast<std::size_t>(index)); }
    Rect placeOf(int index) { return rectOf(video(index)); }
};

} // namespace

TEST_F(ConsoleGroupOpen, PlayAllSendsItsCommandsInOrder)
{
    start("0");
    openFirst(2);
    EXPECT_THAT(commands(),
                ElementsAre("Open A Type MPEGVideo alias A parent 0 style child", "Pause A", "Where A destination",
                            "set A time format frames", "status A length", "set A time format ms", "status A length",
                            "put A window at 0 0 640 480", "setaudio A Volume to 500",
                            "Open B Type MPEGVideo alias B parent 0 style child", "Pause B", "Where B destination",
                            "set B time format frames", "status B length", "set B time format ms", "status B length",
                            "put B window at 0 0 640 480", "setaudio B Volume to 500", "Where A destination", "Play A ",
                            "put A window at 0 0 953 513", "Where B destination", "Play B ",
                            "put B window at 0 0 953 513"));
}

TEST_F(ConsoleGroupOpen, PlayListSendsItsCommandsInOrder)
{
    start("1");
    openFirst(2);
    EXPECT_THAT(commands(),
                ElementsAre("Open A Type MPEGVideo alias A parent 0 style child", "Pause A", "Where A destination",
                            "set A time format frames", "status A length", "set A time format ms", "status A length",
                            "put A window at 0 0 640 480", "setaudio A Volume to 500", "setaudio A Volume to 0",
                            "Open B Type MPEGVideo alias B parent 0 style child", "Pause B", "Where B destination",
                            "set B time format frames", "status B length", "set B time format ms", "status B length",
                            "put B window at 0 0 640 480", "setaudio B Volume to 500", "setaudio B Volume to 0",
                            "Where A destination", "put A window at 0 0 313 153", "Play A ", "Where B destination",
                            "put B window at 0 0 1593 873", "Play B ", "set A time format ms", "status A length",
                            "seek A to 15000", "Pause A", "set B time format ms", "status B position", "seek B to 1500",
                            "Play B", "setaudio B Volume to 500"));
}

TEST_F(ConsoleGroupOpen, ThePictureIsOpenedInTheBoxOfItsWindow)
{
    world.backend.windows = true;
    start("0");
    openFirst(1);
    const auto opens = startingWith(commands(), "Open ");
    EXPECT_THAT(opens, ElementsAre("Open A Type MPEGVideo alias A parent " + std::to_string(video(0).picVideo.hWnd()) +
                                   " style child"));
    EXPECT_NE(video(0).picVideo.hWnd(), 0U);
}

TEST_F(ConsoleGroupOpen, WindowsAndConsoleTakeTheLength)
{
    start("0");
    openFirst(2);
    EXPECT_EQ(video(0).Duration, "0:01:00");
    EXPECT_EQ(console().lblDuration.caption(), "0:01:00");
    EXPECT_EQ(console().SeekSlider.maximum(), 60000);
    EXPECT_TRUE(Playing);
    EXPECT_EQ(NextSlot, 2);
    EXPECT_THAT(console().List1.entries(), ElementsAre(film(0), film(1)));
    EXPECT_THAT(console().List2.entries(), ElementsAre(film(0), film(1)));
}

TEST_F(ConsoleGroupOpen, OneVideoInPlayAllModeStandsInItsFixedPlace)
{
    start("0");
    openFirst(1);
    EXPECT_EQ(placeOf(0), (Rect{400, 400, 11820, 6375}));
}

TEST_F(ConsoleGroupOpen, OneVideoInPlayListModeStandsInTheSamePlaceAndPlays)
{
    start("1");
    openFirst(1);
    EXPECT_EQ(placeOf(0), (Rect{400, 400, 11820, 6375}));
    EXPECT_EQ(video(0).Paused, 0);
    EXPECT_EQ(commands().back(), "setaudio A Volume to 500");
}

TEST_F(ConsoleGroupOpen, FourVideosGoRoundTheScreen)
{
    start("0");
    openFirst(4);
    EXPECT_EQ(placeOf(0), twips(0, 0, 960, 540));
    EXPECT_EQ(placeOf(1), twips(960, 0, 960, 540));
    EXPECT_EQ(placeOf(2), twips(960, 540, 960, 540));
    EXPECT_EQ(placeOf(3), twips(0, 540, 960, 540));
}

TEST_F(ConsoleGroupOpen, TheGridIsThatOfResizeForEveryCount)
{
    for (int count = 2; count <= 12; ++count) {
        start("0");
        openFirst(count);
        std::vector<Rect> opened;
        for (int index = 0; index < count; ++index)
            opened.push_back(placeOf(index));
        console().Resize(true);
        for (int index = 0; index < count; ++index)
            EXPECT_EQ(placeOf(index), opened[static_cast<std::size_t>(index)]) << index << " of " << count;
        for (const auto& window : SlotTable(VideoWindows))
            unload(*window);
        NextSlot = 0;
        VideoWindows.clear();
    }
}

TEST_F(ConsoleGroupOpen, TwelveInPlayListModeAreSixDownAndFiveAlong)
{
    start("1");
    openFirst(12);
    for (int tile = 0; tile < 11; ++tile)
        EXPECT_EQ(placeOf(tile),
                  tile < 6 ? twips(1600, 180 * tile, 320, 180) : twips(1600 - 320 * (tile - 5), 900, 320, 180));
    EXPECT_EQ(placeOf(11), twips(0, 0, 1600, 900)) << "the last of the open leads";
}

TEST_F(ConsoleGroupOpen, InPlayListModeTheLeadRunsAndTheOthersRest)
{
    start("1");
    console().TipsOn = "1";
    openFirst(3);
    EXPECT_EQ(video(0).Paused, 1);
    EXPECT_EQ(video(1).Paused, 1);
    EXPECT_EQ(video(2).Paused, 0);
    EXPECT_EQ(CurrentAlias, alias(2));
    EXPECT_TRUE(frmToolTip().visible());
    EXPECT_EQ(frmToolTip().top(), 600);
    EXPECT_EQ(frmToolTip().left(), 24000 - frmToolTip().width() + 600);
}

TEST_F(ConsoleGroupOpen, AnotherModePlacesNothing)
{
    start("7");
    openFirst(2);
    EXPECT_FALSE(video(0).visible());
    EXPECT_EQ(commands().back(), "setaudio B Volume to 500");
    EXPECT_EQ(screen().MousePointer(), pointer::kDefault);
}

TEST_F(ConsoleGroupOpen, TheTitleShowsTheFileNameOfTheLastVideo)
{
    for (const char* mode : {"0", "1"}) {
        start(mode);
        console().SlideMode = mode;
        openGroup({0, 1});
        EXPECT_EQ(console().lblTitleBar.caption(), " [ b.avi ] " + std::string(50, ' ')) << mode;
        for (const auto& window : SlotTable(VideoWindows))
            unload(*window);
    }
}

TEST_F(ConsoleGroupOpen, AllThreeTimersAreOffFromTheFirstOpenOnAndOnAgainAtTheEnd)
{
    start("0");
    int checked = 0;
    world.mci.onSend = [&](const std::string& command) {
        EXPECT_FALSE(console().Timer1.enabled()) << command;
        EXPECT_FALSE(console().Timer2.enabled()) << command;
        EXPECT_FALSE(console().Timer3.enabled()) << command;
        ++checked;
    };
    console().openPaths({film(0), film(1), film(2)});
    world.mci.onSend = nullptr;
    EXPECT_GT(checked, 20);
    EXPECT_TRUE(console().Timer1.enabled());
    EXPECT_TRUE(console().Timer2.enabled());
    EXPECT_TRUE(console().Timer3.enabled());
}

TEST_F(ConsoleGroupOpen, AnErrorInTheMiddleStillEndsTheBatchProperly)
{
    start("0");
    world.mci.answer("status " + alias(1) + " length", "99999999999");
    openFirst(3);
    EXPECT_TRUE(console().Timer1.enabled());
    EXPECT_TRUE(console().Timer2.enabled());
    EXPECT_TRUE(console().Timer3.enabled());
    EXPECT_FALSE(Loaded<class frmWait>());
    EXPECT_EQ(screen().MousePointer(), pointer::kDefault);
    EXPECT_EQ(activeForm(), &console());
}

TEST_F(ConsoleGroupOpen, TheNoticeComesInFrontOfEachWindowAndGoesAtTheEnd)
{
    world.backend.windows = true;
    start("0");
    openFirst(2);
    EXPECT_FALSE(Loaded<class frmWait>());
    const auto shown = chosen(world.journal, [](const std::string& line) {
        return line == "frmChild show" || line == "frmWait activate" || line == "frmWait show" ||
               line == "frmWait hide";
    });
    EXPECT_THAT(shown, ElementsAre("frmWait show", "frmWait activate", "frmChild show", "frmWait activate",
                                   "frmChild show", "frmWait activate", "frmWait hide"));
}

TEST_F(ConsoleGroupOpen, AJumpIsPausedFirst)
{
    start("0");
    open(0);
    FastForward = true;
    openGroup({1});
    EXPECT_EQ(commands().front(), "Pause A");
    EXPECT_FALSE(FastForward);
}

TEST_F(ConsoleGroupOpen, SizeGoesBackToAHundredPerCent)
{
    start("0");
    SizePercent = 175;
    console().lblSize.Caption = "175 %";
    console().WindowDragged = true;
    openFirst(1);
    EXPECT_EQ(SizePercent, 100);
    EXPECT_EQ(console().lblSize.caption(), "100 %");
    EXPECT_FALSE(console().WindowDragged);
}

TEST_F(ConsoleGroupOpen, AnEmptyListOpensNothing)
{
    start("0");
    console().openPaths({});
    EXPECT_THAT(world.mci.sent(), IsEmpty());
    EXPECT_EQ(screen().MousePointer(), pointer::kDefault);
    EXPECT_THAT(VideoWindows, IsEmpty());
}

TEST_F(ConsoleGroupOpen, AFileThatCantBeOpenedTakesNoPlaceAndGetsNoFurtherCommand)
{
    start("0");
    breakFilm(1);
    openFirst(3);
    EXPECT_THAT(chosen(commands(), [](const std::string& line) { return line.find('B') != std::string::npos; }),
                ElementsAre("Open B Type MPEGVideo alias B parent 0 style child", "Pause B"));
    EXPECT_EQ(video(1).tag(), "2");
    EXPECT_FALSE(video(1).isLive());
    EXPECT_FALSE(video(1).visible());
    EXPECT_EQ(placeOf(2), twips(960, 0, 960, 540)) << "a grid of two";
    EXPECT_EQ(NextSlot, 3);
    EXPECT_THAT(console().List2.entries(), ElementsAre(film(0), film(2)));
    EXPECT_THAT(world.backend.boxes, IsEmpty()) << "a batch shows nothing";
}

TEST_F(ConsoleGroupOpen, AFailedSlotIsDroppedByTheNextOpen)
{
    start("0");
    breakFilm(1);
    openGroup({0, 1});
    const auto failed = VideoWindows[1];
    openGroup({2});
    EXPECT_TRUE(failed->isDead());
    EXPECT_EQ(NextSlot, 2);
    EXPECT_EQ(video(1).path(), film(2));
    EXPECT_EQ(liveCount(), 2);
}

TEST_F(ConsoleGroupOpen, WhenEveryFileFailsNothingPlays)
{
    start("1");
    breakFilm(0);
    breakFilm(1);
    openFirst(2);
    EXPECT_EQ(CurrentAlias, "");
    EXPECT_EQ(liveCount(), 0);
    EXPECT_FALSE(Playing);
    EXPECT_THAT(console().List2.entries(), IsEmpty());
    EXPECT_EQ(screen().MousePointer(), pointer::kDefault);
}

TEST_F(ConsoleGroupOpen, AReadingThatNoFilesWereSelectedMarksNoWindow)
{
    start("0");
    CurrentAlias.clear();
    const Text none = "(No Files Selected)";
    world.mci.fail("Pause \"" + none + "\"", 263);
    console().openPaths({none});
    EXPECT_EQ(VideoWindows.front()->tag(), "");
}

TEST_F(ConsoleGroupOpen, OnlyNewMediaAreTakenAndOnlyTwelve)
{
    start("0");
    openSeveral(3);
    console().List2.AddItem("x.avi");
    std::vector<Text> paths{film(0), "/other/x.avi", film(3), film(3), "/other/a.avi"};
    for (int index = 4; index < 13; ++index)
        paths.push_back(film(index));
    console().openPaths(paths);
    EXPECT_EQ(console().List2.ListCount(), 12);
    EXPECT_THAT(console().List1.entries(),
                ElementsAre("/other/x.avi", film(3), "/other/a.avi", film(4), film(5), film(6), film(7), film(8)));
}

TEST_F(ConsoleGroupOpen, TheFocusEndsOnTheConsole)
{
    start("1");
    openFirst(3);
    EXPECT_EQ(activeForm(), &console());
    EXPECT_TRUE(console().TrackHold);
}

TEST_F(ConsoleGroupOpen, TheServiceReadsTheFilesAheadWhileTheNoticeShowsThatTheProgramLives)
{
    world.backend.windows = true;
    start("0");
    int pulses = 0;
    world.mci.onSend = [&](const std::string& command) {
        if (!command.starts_with("Open"))
            return;
        ASSERT_TRUE(world.mci.whileWaiting);
        world.journal.clear();
        world.mci.whileWaiting();
        EXPECT_THAT(world.journal, Contains("frmWait repaint"));
        pulses = frmWait().barDone.pulses();
        EXPECT_EQ(pulses, 1) << "from the last file on";
    };
    openFirst(2);
    EXPECT_EQ(pulses, 1);
    EXPECT_THAT(world.mci.prepared, ElementsAre(ElementsAre(film(0), film(1)), IsEmpty()));
    EXPECT_FALSE(world.mci.whileWaiting);
}

// By the open button, and by a drop.

TEST_F(ConsoleGroupOpen, TheOpenCommandLetsTheUserChooseAndOpensAll)
{
    start("0");
    console().FirstOpenTip = false;
    frmToolTip().Show();
    choose({0, 1});
    EXPECT_THAT(startingWith(commands(), "Play"), ElementsAre("Play A ", "Play B "));
    EXPECT_EQ(world.backend.dialogs.at(0).title, "Open Multiple Video...");
    EXPECT_THAT(world.files.content["/data/last.dat"], ElementsAre(film(0), film(1)));
    EXPECT_FALSE(Loaded<class frmToolTip>());
    EXPECT_EQ(screen().MousePointer(), pointer::kDefault);
    EXPECT_EQ(activeForm(), &console());
    EXPECT_EQ(console().SelectionText, "");
    choose({2});
    EXPECT_EQ(liveCount(), 3) << "beside what is open";
}

TEST_F(ConsoleGroupOpen, ACancelledDialogLeavesTheVideosAlone)
{
    start("0");
    open(0);
    VideoWindows[0]->SetFocus();
    console().WindowDragged = true;
    SizePercent = 150;
    pressOpen();
    EXPECT_THAT(world.backend.dialogs, SizeIs(1));
    EXPECT_THAT(world.mci.sent(), IsEmpty());
    EXPECT_FALSE(console().WindowDragged);
    EXPECT_EQ(SizePercent, 100);
    EXPECT_EQ(console().lblSize.caption(), "100 %");
    EXPECT_EQ(activeForm(), &console());
    EXPECT_EQ(screen().MousePointer(), pointer::kDefault);
    EXPECT_TRUE(console().FirstOpenTip);
    EXPECT_FALSE(Loaded<class frmWait>());
}

TEST_F(ConsoleGroupOpen, FailedWindowsGoBeforeTheUserChooses)
{
    start("0");
    breakFilm(1);
    openGroup({0, 1});
    const auto failed = VideoWindows[1];
    world.backend.whileDialogIsUp = [&] {
        EXPECT_TRUE(failed->isDead());
        EXPECT_EQ(NextSlot, 1);
    };
    pressOpen();
    EXPECT_THAT(world.backend.dialogs, SizeIs(1));
}

TEST_F(ConsoleGroupOpen, WithTwelveOpenThereIsAMessageAndNoDialog)
{
    start("0");
    for (int index = 0; index < 12; ++index)
        console().List2.AddItem(film(index));
    std::vector<Text> seen;
    world.backend.whileModal["frmUpdate"] = [&](Form& form) {
        seen = {frmUpdate().lblUpdate.caption(), form.caption()};
    };
    pressOpen();
    EXPECT_THAT(seen, ElementsAre("\nAttention! Caught up the maximum number of Videos opened!", AppTitle));
    EXPECT_THAT(world.backend.dialogs, IsEmpty());
    EXPECT_EQ(screen().MousePointer(), pointer::kDefault);
    seen.clear();
    console().openDropped({film(13)});
    EXPECT_THAT(seen, IsEmpty()) << "what isn't there";
    world.files.content[film(13)] = {};
    console().openDropped({film(13)});
    EXPECT_THAT(seen, SizeIs(2));
}

TEST_F(ConsoleGroupOpen, WithElevenOpenOneMoreHasRoom)
{
    start("0");
    console().FirstOpenTip = false;
    for (int index = 0; index < 11; ++index)
        console().List2.AddItem("/open/" + std::to_string(index) + ".avi");
    choose({0, 1});
    EXPECT_EQ(liveCount(), 1);
    EXPECT_THAT(console().List1.entries(), ElementsAre(film(0)));
}

TEST_F(ConsoleGroupOpen, TheTipComesBeforeTheFirstOpenOnly)
{
    start("0");
    int tips = 0;
    world.backend.whileModal["frmUpdate"] = [&](Form&) {
        ++tips;
        EXPECT_EQ(frmUpdate().lblUpdate.caption(), "TIP: Mouse Right-Click on the Video to FULLSCREEN mode.");
        EXPECT_EQ(screen().MousePointer(), pointer::kDefault);
        EXPECT_THAT(world.mci.sent(), IsEmpty());
    };
    choose({0, 1});
    choose({2});
    EXPECT_EQ(tips, 1);
    EXPECT_FALSE(console().FirstOpenTip);
}

TEST_F(ConsoleGroupOpen, FilesThatAreHandedOverMeanwhileWaitForTheEndOfTheCommand)
{
    start("0");
    const auto handOver = [this](int index) { world.files.content["/data/list.dat"] = {alias(index)}; };
    world.backend.whileDialogIsUp = [&] { handOver(5); };
    world.backend.whileModal["frmUpdate"] = [&](Form&) {
        console().SetFocus();
        EXPECT_THAT(console().List1.entries(), ElementsAre(film(0), film(1)));
        EXPECT_THAT(world.mci.sent(), IsEmpty());
    };
    choose({0, 1});
    EXPECT_THAT(startingWith(commands(), "Open"), SizeIs(3));
    EXPECT_EQ(commands().at(0), "Open A Type MPEGVideo alias A parent 0 style child");
    EXPECT_EQ(liveCount(), 3);
    EXPECT_EQ(video(2).path(), film(5));
    EXPECT_EQ(world.files.content.count("/data/list.dat"), 0U);
    EXPECT_EQ(screen().MousePointer(), pointer::kDefault);
}

TEST_F(ConsoleGroupOpen, AReplacingOpenIsNotMixedWithThemEither)
{
    start("0");
    console().FirstOpenTip = false;
    openSeveral(2);
    world.backend.whileDialogIsUp = [this] { world.files.content["/data/list.dat"] = {alias(5)}; };
    world.backend.choices = {{film(7)}};
    console().OpenSingleVideo();
    EXPECT_EQ(liveCount(), 2);
    EXPECT_EQ(video(0).path(), film(7));
    EXPECT_EQ(video(1).path(), film(5));
    EXPECT_EQ(console().List2.ListCount(), 2);
}

TEST_F(ConsoleGroupOpen, AnEndFromOutsideDuringTheTipOpensNothing)
{
    start("0");
    world.backend.whileModal["frmUpdate"] = [](Form&) { endProgram(); };
    choose({0, 1});
    EXPECT_THAT(startingWith(world.mci.sent(), "Open"), IsEmpty());
}

TEST_F(ConsoleGroupOpen, AFailedSlotInTheMiddleLetsTheNextOpenReplaceALiveReference)
{
    start("0");
    breakFilm(1);
    openGroup({0, 1, 2});
    const auto replaced = VideoWindows[2];
    openGroup({3});
    EXPECT_THAT(VideoWindows, SizeIs(3));
    EXPECT_EQ(video(2).path(), film(3));
    EXPECT_EQ(NextSlot, 3);
    EXPECT_FALSE(replaced->isDead()) << "its window stays, out of the table";
}

TEST_F(ConsoleGroupOpen, AWindowThatFailedIsEndedByItsOwnHandlerWithoutClosingAnything)
{
    start("0");
    breakFilm(0);
    CurrentAlias = alias(0);
    frmChild& failed = newSlot(film(0));
    NextSlot += 1;
    failed.markFailed();
    failed.Listed = false;
    failed.Show();
    const auto kept = VideoWindows[0];
    world.mci.answer("Pause " + alias(0), "");
    world.mci.answer("Open " + alias(0) + " Type MPEGVideo alias " + alias(0) + " parent 0 style child", "1");
    world.files.content[film(0)] = {};
    failed.run([&] { failed.DropFiles({film(0)}); });
    EXPECT_TRUE(kept->isDead());
    EXPECT_THAT(startingWith(commands(), "Close"), IsEmpty()) << "the device is that of the new window";
    EXPECT_THAT(console().List2.entries(), ElementsAre(film(0)));
    EXPECT_EQ(liveCount(), 1);
}

TEST_F(ConsoleGroupOpen, ADropWithoutRoomLeavesTheRecentFilesAlone)
{
    start("0");
    console().FirstOpenTip = false;
    for (int index = 0; index < 12; ++index)
        console().List2.AddItem(film(index));
    console().List1.AddItem(film(3));
    world.files.content[film(13)] = {};
    console().openDropped({film(13)});
    EXPECT_EQ(world.files.content.count("/data/last.dat"), 0U);
}

TEST_F(ConsoleGroupOpen, AnErrorInTheMiddleLeavesNoEntryOfWhatWasNeverOpened)
{
    start("0");
    world.mci.answer("status " + alias(1) + " length", "99999999999");
    openGroup({0, 1, 2});
    EXPECT_THAT(console().List2.entries(), ElementsAre(film(0), film(1)));
}

TEST_F(ConsoleGroupOpen, TheConsoleIsPaintedBeforeTheFirstFile)
{
    world.backend.windows = true;
    start("0");
    openFirst(1);
    const auto steps = chosen(shortened(world.journal), [](const std::string& line) {
        return line == "frmWait show" || line == "frmMedia repaint" || line.starts_with("Open");
    });
    ASSERT_EQ(steps.size(), 3U);
    EXPECT_EQ(steps[0], "frmWait show");
    EXPECT_EQ(steps[1], "frmMedia repaint");
}

TEST_F(ConsoleGroupOpen, WhileThePointerIsTheHourglassTheOpenCommandReturnsAtOnce)
{
    start("0");
    screen().MousePointer = pointer::kHourglass;
    pressOpen();
    EXPECT_EQ(screen().MousePointer(), pointer::kHourglass);
    screen().MousePointer = pointer::kDefault;
    console().MousePointer = pointer::kHourglass;
    pressOpen();
    EXPECT_THAT(world.backend.dialogs, IsEmpty());
    console().MousePointer = pointer::kDefault;
    pressOpen();
    EXPECT_THAT(world.backend.dialogs, SizeIs(1));
}

TEST_F(ConsoleGroupOpen, AnOpenDuringAnOpenIsRefused)
{
    start("0");
    console().FirstOpenTip = false;
    world.mci.onSend = [this](const std::string& command) {
        if (command.starts_with("Open"))
            console().cmdMedia[command::kOpen]->Value = true;
    };
    choose({0, 1});
    EXPECT_THAT(world.backend.dialogs, SizeIs(1));
    EXPECT_EQ(liveCount(), 2);
}

TEST_F(ConsoleGroupOpen, AWindowClosedInTheMiddleOfABatchIsLeftOut)
{
    start("0");
    world.mci.onSend = [](const std::string& command) {
        if (command.starts_with("Open " + alias(1)))
            unload(*VideoWindows[0]);
    };
    openGroup({0, 1, 2});
    world.mci.onSend = nullptr;
    EXPECT_EQ(liveCount(), 2);
    EXPECT_THAT(startingWith(commands(), "Play"), ElementsAre("Play B ", "Play C "));
    EXPECT_EQ(placeOf(1), twips(0, 0, 960, 540));
    EXPECT_EQ(placeOf(2), twips(960, 0, 960, 540));
    EXPECT_THAT(console().List2.entries(), ElementsAre(film(1), film(2)));
}

TEST_F(ConsoleGroupOpen, APresetSelectionOpensWithoutADialogAndIsUsedUp)
{
    start("0");
    console().FirstOpenTip = false;
    console().PresetSelection = true;
    console().SelectionText = "/films|" + film(0) + "|" + film(1) + "|||";
    pressOpen();
    EXPECT_THAT(world.backend.dialogs, IsEmpty());
    EXPECT_EQ(liveCount(), 2);
    EXPECT_FALSE(console().PresetSelection);
    EXPECT_EQ(console().SelectionText, "");
    EXPECT_EQ(world.files.content.count("/data/last.dat"), 0U);
}

TEST_F(ConsoleGroupOpen, WhatIsDroppedOpensAsAGroupWithoutATipAndGoesToTheRecentFiles)
{
    start("0");
    for (const Text& path : {film(0), film(1), Text("/other/a.avi")})
        world.files.content[path] = {};
    world.mci.clear();
    console().DropFiles({film(0), "/folder", film(1), film(0), "/other/a.avi"});
    EXPECT_THAT(console().List1.entries(), ElementsAre(film(0), film(1), "/other/a.avi"))
        << "a folder is no file; one of the same name elsewhere is another";
    EXPECT_EQ(liveCount(), 3);
    EXPECT_THAT(world.files.content["/data/last.dat"], ElementsAre(film(0), film(1), "/other/a.avi"));
    EXPECT_TRUE(console().FirstOpenTip);
    VideoWindows[0]->DropFiles({film(1)});
    EXPECT_EQ(liveCount(), 3) << "it is open";
    EXPECT_THAT(world.backend.boxes, IsEmpty());
}

TEST_F(ConsoleGroupOpen, AFolderAloneIsRefusedWithAMessage)
{
    start("0");
    console().DropFiles({"/folder"});
    ASSERT_THAT(world.backend.boxes, SizeIs(1));
    EXPECT_EQ(world.backend.boxes[0].text, "Media File can't be played!");
    EXPECT_THAT(VideoWindows, IsEmpty());
}

TEST_F(ConsoleGroupOpen, NothingIsDroppedWhileACommandRunsOrTheEndHasBegun)
{
    start("0");
    world.files.content[film(0)] = {};
    screen().MousePointer = pointer::kHourglass;
    console().DropFiles({film(0)});
    screen().MousePointer = pointer::kDefault;
    console().ClosingDown = true;
    console().DropFiles({film(0)});
    EXPECT_THAT(VideoWindows, IsEmpty());
}

} // namespace tandrel::test
