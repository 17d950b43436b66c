// The dialog of recent files.

#include "let_others_run.h"
#include "player_bench.h"

#include "persist/frm_prev.h"
#include "texts/frm_tool_tip.h"
#include "texts/frm_update.h"
#include "toolkit/activation.h"

#include "desktop/monitors.h"

#include <chrono>
#include <set>

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Le;
using ::testing::SizeIs;

namespace
{

constexpr int kWhite = 0xFFFFFF;
constexpr int kGrey = 0x808080;

class Recent : public Player
{
protected:
    Recent()
    {
        start("0");
        console().FirstOpenTip = false;
    }
    std::vector<std::string>& list() { return world.files.content["/data/last.dat"]; }
    /// Films by number, which are there and in the list.
    void remember(int count)
    {
        for (int index = 0; index < count; ++index) {
            list().push_back(film(index));
            world.files.content[film(index)] = {};
        }
    }
    class frmPrev& dialog() { return frmPrev(); }
    FileListBox& files() { return dialog().lstFiles; }
    void select(std::initializer_list<std::size_t> entries, int focus) { files().userSelected(entries, focus); }

    /// What the console's openers were given, instead of opening anything.
    struct Given {
        bool preset;
        Text selection;
        bool dialogIsSeen;
        friend bool operator==(const Given&, const Given&) = default;
    };
    /// Presses of the console's command for several videos.
    std::vector<Given> presses;
    void noteOpenCommand()
    {
        console().cmdMedia[command::kOpen]->Click = [this] {
            presses.push_back(
                {console().PresetSelection, console().SelectionText, Loaded<class frmPrev>() && dialog().visible()});
        };
    }
    /// What the dialogs for files were asked, by their titles.
    std::vector<Text> titles() const
    {
        std::vector<Text> all;
        for (const FileDialog& one : world.backend.dialogs)
            all.push_back(one.title);
        return all;
    }
    static void click(Image& image)
    {
        image.userMouseDown({mouse::kLeft, 0, 0, 0});
        image.userMouseUp({mouse::kLeft, 0, 0, 0});
        image.userClick();
    }
};

} // namespace

// What it consists of.

TEST_F(Recent, ItsControlsHaveTheirTextsAndPlaces)
{
    EXPECT_EQ(dialog().caption(), "Tandrel Player - Open Multimedia ...");
    EXPECT_EQ(rectOf(dialog().fraMultimedia), (Rect{120, 0, 9015, 1935}));
    EXPECT_EQ(rectOf(files()), (Rect{120, 360, 8775, 2910}));
    EXPECT_EQ(files().container(), &dialog().fraPrev);
    EXPECT_EQ(dialog().fraPrev.caption(), " Recent Files ");
    EXPECT_EQ(files().BackColor, 0x404040);
    EXPECT_EQ(dialog().lblFiles.caption(), "Media Files");
    EXPECT_EQ(dialog().lblMKV.caption(), "MKV HD");
    EXPECT_EQ(dialog().lblDisk.caption(), "Disk");
    EXPECT_EQ(dialog().lblTool.caption(), "Ctrl+Click to Select Multiple Files or DblClick to Open a Single File");
    EXPECT_EQ(dialog().cmdOK.caption(), "Open &Selected Files");
    EXPECT_EQ(dialog().cmdRecent.caption(), "Clear &Recent");
    EXPECT_EQ(dialog().cmdCancel.caption(), "&Cancel");
    for (const Control* inFrame :
         {static_cast<Control*>(&dialog().imgFiles), static_cast<Control*>(&dialog().imgFilesOff),
          static_cast<Control*>(&dialog().lblFiles)})
        EXPECT_EQ(inFrame->container(), &dialog().fraMultimedia);
}

TEST_F(Recent, ItSpeaksTheUsersLanguage)
{
    Language = "DE";
    EXPECT_EQ(dialog().cmdCancel.caption(), "A&bbrechen");
    EXPECT_EQ(dialog().fraPrev.caption(), " Aktuelle Files ");
    EXPECT_EQ(dialog().caption(), "Tandrel Player - Multimedia öffnen ...");
}

TEST_F(Recent, ItStandsInTheMiddleOfTheMonitorThatHoldsItsCorner)
{
    world.monitors.set({{-1280, 0, 0, 1024}, {0, 0, 1920, 1080}});
    screen().setMetrics(15, 15, {0, 0, 1920, 1080});
    EXPECT_EQ(dialog().left(), Long((28800 - dialog().width()) / 2.0));
    EXPECT_EQ(dialog().top(), Long((16200 - dialog().height()) / 2.0));
}

TEST_F(Recent, ThePointerIsTheCommonOne)
{
    screen().MousePointer = pointer::kHourglass;
    dialog();
    EXPECT_EQ(screen().MousePointer(), pointer::kDefault);
}

// The list.

TEST_F(Recent, TheListHoldsTheFilesThatAreThere)
{
    remember(3);
    list() = {"", film(0), "   ", " " + film(1) + "  ", "/gone.avi", film(2), ""};
    EXPECT_THAT(files().entries(), ElementsAre(film(0), film(1), film(2)));
}

TEST_F(Recent, TheThirteenthIsNotShown)
{
    remember(13);
    EXPECT_EQ(files().ListCount(), 12);
    EXPECT_EQ(files().entries().back(), film(11));
}

TEST_F(Recent, WithoutAListItIsEmptyAndSaysSo)
{
    EXPECT_EQ(files().ListCount(), 0);
    EXPECT_EQ(files().emptyText, "Nothing opened yet.");
    EXPECT_FALSE(world.files.content.contains("/data/last.dat"));
}

TEST_F(Recent, AFileThatNobodyAnswersForTurnsUpLater)
{
    remember(3);
    world.finder.silent = {film(1)};
    EXPECT_THAT(files().entries(), ElementsAre(film(0), film(2)));
    ASSERT_FALSE(world.finder.waits.empty());
    for (const int wait : world.finder.waits)
        EXPECT_LE(wait, 50);
    select({1}, 1);
    dialog().tmrFollow.tick();
    EXPECT_EQ(files().ListCount(), 2);
    world.finder.silent.clear();
    dialog().tmrFollow.tick();
    EXPECT_THAT(files().entries(), ElementsAre(film(0), film(1), film(2)));
    EXPECT_TRUE(files().Selected(2) && !files().Selected(1)) << "the selection stays with its file";
    EXPECT_EQ(files().text(), film(2));
    EXPECT_THAT(world.stills.wanted.back(), ElementsAre(film(0), film(1), film(2)));
}

TEST_F(Recent, AFullListTakesNobodyLate)
{
    remember(13);
    world.finder.silent = {film(3)};
    EXPECT_EQ(files().entries().back(), film(12));
    world.finder.silent.clear();
    dialog().tmrFollow.tick();
    EXPECT_EQ(files().ListCount(), 12);
    EXPECT_EQ(files().entries().back(), film(12));
}

TEST_F(Recent, SilentLinesAreAskedAboutInTurnAndNoneKeepsALaterOneAway)
{
    for (int index = 0; index < 200; ++index) {
        list().push_back("/dead/" + std::to_string(index));
        world.finder.silent.insert(list().back());
    }
    remember(1);
    world.finder.silent.insert(film(0));
    EXPECT_THAT(files().entries(), IsEmpty());
    world.finder.looked.clear();
    dialog().tmrFollow.tick();
    EXPECT_EQ(world.finder.looked.size(), 128U);
    dialog().tmrFollow.tick();
    std::set<std::string> asked;
    for (const auto& paths : world.finder.looked)
        asked.insert(paths.begin(), paths.end());
    EXPECT_EQ(asked, world.finder.silent);
    world.finder.silent.erase(film(0));
    dialog().tmrFollow.tick();
    EXPECT_THAT(files().entries(), ElementsAre(film(0)));
}

TEST_F(Recent, AllSilentLinesTogetherAreWaitedForNoLongerThanOne)
{
    for (int index = 0; index < 64; ++index) {
        list().push_back("/dead/" + std::to_string(index));
        world.finder.silent.insert(list().back());
    }
    // Stands for one that nobody answers: the whole time passes.
    world.finder.whileWaiting = [](int ms) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(ms);
        while (std::chrono::steady_clock::now() < end)
            letOthersRun();
    };
    dialog();
    EXPECT_THAT(world.finder.waits, ElementsAre(Le(50)));
}

TEST_F(Recent, ManyLinesAreLookedAtInPieces)
{
    for (int index = 0; index < 10000; ++index)
        list().push_back("/gone/" + std::to_string(index));
    remember(2);
    EXPECT_THAT(files().entries(), ElementsAre(film(0), film(1)));
    EXPECT_GT(world.finder.looked.size(), 100U);
}

TEST_F(Recent, PicturesAndLengthsComeWhenTheyAreReady)
{
    remember(2);
    dialog();
    EXPECT_THAT(world.stills.wanted, ElementsAre(ElementsAre(film(0), film(1))));
    EXPECT_TRUE(files().tile(0).pixels.empty());
    world.stills.made[film(1)] = {2, 1, {0x112233, 0x445566}, 3723999};
    dialog().tmrFollow.tick();
    EXPECT_TRUE(files().tile(0).pixels.empty());
    EXPECT_THAT(files().tile(1).pixels, ElementsAre(0x112233U, 0x445566U));
    EXPECT_EQ(files().tile(1).note, "1:02:03");
    world.stills.made[film(0)] = {0, 0, {}, std::nullopt};
    dialog().tmrFollow.tick();
    EXPECT_EQ(files().tile(0).note, "");
}

// The tiles.

TEST_F(Recent, ATileLightsUpUnderThePointerAndGoesOutBesideIt)
{
    const std::vector<std::pair<Image*, Label*>> tiles{{&dialog().imgFilesOff, &dialog().lblFiles},
                                                       {&dialog().imgMKVOff, &dialog().lblMKV},
                                                       {&dialog().imgDiskOff, &dialog().lblDisk}};
    const std::vector<Control*> beside{&dialog().fraMultimedia, &dialog().lstFiles};
    for (Control* place : beside) {
        for (const auto& [unlit, label] : tiles) {
            EXPECT_EQ(label->foreColour(), kGrey);
            unlit->userMouseMove({0, 0, 0, 0});
            EXPECT_FALSE(unlit->visible());
            EXPECT_EQ(label->foreColour(), kWhite);
        }
        place->userMouseMove({0, 0, 0, 0});
        for (const auto& [unlit, label] : tiles) {
            EXPECT_TRUE(unlit->visible());
            EXPECT_EQ(label->foreColour(), kGrey);
        }
    }
}

TEST_F(Recent, ALitTileHasTheHandAndShowsThePress)
{
    for (Image* lit : {&dialog().imgFiles, &dialog().imgMKV, &dialog().imgDisk}) {
        EXPECT_EQ(lit->pointerShape, pointer::kHand);
        lit->userMouseDown({mouse::kRight, 0, 0, 0});
        EXPECT_EQ(lit->borderStyle(), 0);
        lit->userMouseDown({mouse::kLeft, 0, 0, 0});
        EXPECT_EQ(lit->borderStyle(), 1);
        lit->userMouseUp({mouse::kLeft, 0, 0, 0});
        EXPECT_EQ(lit->borderStyle(), 0);
    }
}

TEST_F(Recent, TheTileForFilesIsTheOpenCommandOfTheConsole)
{
    noteOpenCommand();
    console().PresetSelection = true;
    console().SelectionText = "old";
    dialog().Show();
    click(dialog().imgFiles);
    dialog().lblFiles.userClick();
    EXPECT_THAT(presses, ElementsAre(Given{false, "", true}, Given{false, "", true}));
}

TEST_F(Recent, TheTileForHdAsksForOneFileUnlessAnOpenIsRunning)
{
    dialog().Show();
    console().PresetSelection = true;
    console().SelectionText = "/x.avi||";
    screen().MousePointer = pointer::kHourglass;
    click(dialog().imgMKV);
    EXPECT_THAT(titles(), IsEmpty());
    EXPECT_EQ(console().SelectionText, "/x.avi||") << "nothing happens at all";
    screen().MousePointer = pointer::kDefault;
    click(dialog().imgMKV);
    dialog().lblMKV.userClick();
    EXPECT_THAT(titles(), ElementsAre("Open File Video...", "Open File Video..."));
    EXPECT_TRUE(Loaded<class frmPrev>() == false || dialog().visible());
}

TEST_F(Recent, TheTileForADiscOpensOne)
{
    world.drives.add('D', "A_DISC");
    dialog().Show();
    click(dialog().imgDisk);
    EXPECT_TRUE(DVDMode);
    EXPECT_FALSE(Loaded<class frmPrev>());
}

// Opening.

TEST_F(Recent, ADoubleClickOpensTheFileAlone)
{
    remember(2);
    dialog().Show();
    select({1}, 1);
    files().userDblClick();
    EXPECT_FALSE(Loaded<class frmPrev>());
    EXPECT_THAT(titles(), IsEmpty());
    ASSERT_THAT(VideoWindows, SizeIs(1));
    EXPECT_EQ(VideoWindows[0]->MediaFile, alias(1));
    EXPECT_FALSE(console().PresetSelection);
}

TEST_F(Recent, ADoubleClickOnAnEmptyListDoesNothing)
{
    dialog().Show();
    files().userDblClick();
    EXPECT_TRUE(dialog().visible());
    EXPECT_THAT(VideoWindows, IsEmpty());
}

TEST_F(Recent, ADoubleClickWithoutAChosenEntryEndsTheDialogAndOpensNothing)
{
    remember(2);
    dialog().Show();
    files().userDblClick();
    EXPECT_FALSE(Loaded<class frmPrev>());
    EXPECT_THAT(VideoWindows, IsEmpty());
    EXPECT_FALSE(console().PresetSelection);
}

TEST_F(Recent, TheListAsItWasIsNotChangedByWhatIsOpenedFromIt)
{
    remember(3);
    dialog().Show();
    select({2}, 2);
    dialog().cmdOK.Click();
    EXPECT_THAT(list(), ElementsAre(film(0), film(1), film(2)));
}

TEST_F(Recent, SeveralSelectedFilesGoToTheOpenCommand)
{
    remember(3);
    noteOpenCommand();
    dialog().Show();
    select({0, 2}, 1);
    dialog().cmdOK.Click();
    EXPECT_THAT(presses, ElementsAre(Given{true, "/films|" + film(0) + "|" + film(2) + "|||", true}));
    EXPECT_FALSE(console().PresetSelection);
}

TEST_F(Recent, SeveralSelectedFilesAreOpened)
{
    remember(3);
    dialog().Show();
    select({0, 2}, 2);
    dialog().cmdOK.Click();
    EXPECT_THAT(console().List2.entries(), ElementsAre(film(0), film(2)));
    EXPECT_FALSE(Loaded<class frmPrev>());
}

TEST_F(Recent, OfOneSelectedFileTheOneWithTheFocusIsOpened)
{
    remember(3);
    dialog().Show();
    select({0}, 2);
    dialog().cmdOK.Click();
    ASSERT_THAT(VideoWindows, SizeIs(1));
    EXPECT_EQ(VideoWindows[0]->MediaFile, alias(2));
}

TEST_F(Recent, OfThirteenSelectedTwelveAreTaken)
{
    noteOpenCommand();
    dialog().Show();
    for (int index = 0; index < 13; ++index) {
        files().AddItem(film(index));
        files().setSelected(index, true);
    }
    dialog().cmdOK.Click();
    ASSERT_THAT(presses, SizeIs(1));
    EXPECT_TRUE(presses[0].selection.ends_with(film(11) + "|||"));
}

TEST_F(Recent, WithNothingSelectedAMessageSaysSoAndTheDialogStays)
{
    remember(2);
    dialog().Show();
    Text said;
    world.backend.whileModal["frmUpdate"] = [&](Form& form) {
        said = frmUpdate().lblUpdate.caption();
        EXPECT_EQ(form.caption(), AppTitle);
    };
    dialog().cmdOK.Click();
    EXPECT_EQ(said, "   No File selected.");
    EXPECT_TRUE(dialog().visible());
    Language = "ES";
    dialog().cmdOK.Click();
    EXPECT_EQ(said, "   No File seleccionados.");
}

// Clearing.

TEST_F(Recent, ClearingAsksFirst)
{
    remember(2);
    dialog().Show();
    world.backend.boxAnswer = BoxAnswer::No;
    dialog().cmdRecent.Click();
    ASSERT_THAT(world.backend.boxes, SizeIs(1));
    EXPECT_EQ(world.backend.boxes[0].text, "Delete the List?");
    EXPECT_EQ(world.backend.boxes[0].style, BoxStyle::YesNoQuestion);
    EXPECT_EQ(files().ListCount(), 2);
    EXPECT_TRUE(world.files.content.contains("/data/last.dat"));
    world.backend.boxAnswer = BoxAnswer::Yes;
    dialog().cmdRecent.Click();
    EXPECT_EQ(files().ListCount(), 0);
    EXPECT_FALSE(world.files.content.contains("/data/last.dat"));
    dialog().tmrFollow.tick();
    EXPECT_EQ(files().ListCount(), 0);
    EXPECT_TRUE(dialog().visible());
}

TEST_F(Recent, AListThatCantBeDeletedIsToldAndGoneFromTheDialog)
{
    remember(2);
    dialog().Show();
    world.files.writable = false;
    world.backend.boxAnswer = BoxAnswer::Yes;
    dialog().cmdRecent.Click();
    ASSERT_THAT(world.backend.boxes, SizeIs(2));
    EXPECT_EQ(world.backend.boxes[1].text, "75 - Path/File access error");
    EXPECT_EQ(world.backend.boxes[1].style, BoxStyle::Exclamation);
    EXPECT_EQ(world.backend.boxes[1].title, AppTitle);
    EXPECT_EQ(files().ListCount(), 0);
}

TEST_F(Recent, AClearedListTakesNobodyLate)
{
    remember(2);
    world.finder.silent = {film(1)};
    dialog().Show();
    world.backend.boxAnswer = BoxAnswer::Yes;
    dialog().cmdRecent.Click();
    world.finder.silent.clear();
    dialog().tmrFollow.tick();
    EXPECT_EQ(files().ListCount(), 0);
}

TEST_F(Recent, ItIsOutOfSightWhileADoubleClickOpens)
{
    remember(1);
    dialog().Show();
    select({0}, 0);
    bool seen = true;
    world.mci.onSend = [&](const std::string& command) {
        if (command.starts_with("Open "))
            seen = Loaded<class frmPrev>() && dialog().visible();
    };
    files().userDblClick();
    EXPECT_FALSE(seen);
}

TEST_F(Recent, ClearingWithoutAListIsNoError)
{
    dialog().Show();
    world.backend.boxAnswer = BoxAnswer::Yes;
    dialog().cmdRecent.Click();
    EXPECT_THAT(world.backend.boxes, SizeIs(1));
}

// Its life.

TEST_F(Recent, ItsListIsReadAnewEachTime)
{
    remember(1);
    dialog().Show();
    dialog().cmdCancel.Click();
    EXPECT_FALSE(Loaded<class frmPrev>());
    list().push_back(film(3));
    world.files.content[film(3)] = {};
    EXPECT_EQ(files().ListCount(), 2);
}

TEST_F(Recent, TheMenuEntryShowsItModeless)
{
    frmToolTip().Show();
    world.backend.menuChoice = "mnuOpenLast";
    console().imgOpen.Click();
    EXPECT_FALSE(Loaded<class frmToolTip>());
    EXPECT_TRUE(dialog().visible());
    EXPECT_EQ(activeForm(), &dialog());
}

TEST_F(Recent, ADialogForFilesThatIsCancelledLeavesIt)
{
    dialog().Show();
    console().OpenSingleVideo();
    EXPECT_THAT(titles(), SizeIs(1));
    EXPECT_FALSE(Loaded<class frmPrev>()) << "only a result of a bar alone leaves it";
}

} // namespace tandrel::test
