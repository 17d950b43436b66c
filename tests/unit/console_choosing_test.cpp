// What the four operations of choosing make of a selection.

#include "player_bench.h"

#include "texts/frm_update.h"

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

namespace
{

constexpr const char* kPlainFilter = "Supported Media Files|*.avi;*.asf;*.mpg;*.mpeg;*.mp4;*.wmv;*.mov;*.flv;*.3gp;"
                                     "*.ogm;*.divx;*.xvid;*.webm|All Files|*";
constexpr const char* kHdFilter = "Supported HD Files|*.avi;*.asf;*.mpg;*.mpeg;*.mp4;*.wmv;*.mov;*.flv;*.3gp;*.ogm;"
                                  "*.divx;*.xvid;*.mkv;*.hdmov;*.webm|All Files|*";

Text joined(const std::vector<FileDialog::Filter>& filters)
{
    Text text;
    for (const auto& filter : filters) {
        text += (text.empty() ? "" : "|") + filter.name + "|";
        for (std::size_t i = 0; i < filter.patterns.size(); ++i)
            text += (i > 0 ? ";" : "") + filter.patterns[i];
    }
    return text;
}

class ConsoleChoosing : public Player
{
protected:
    using Operation = void (frmMedia::*)(Text, Text&);

    ConsoleChoosing() { start(); }

    Text run(Operation operation, const Text& title = "A title")
    {
        Text chosen = "of before";
        (console().*operation)(title, chosen);
        return chosen;
    }
    /// The user chooses these in the dialog, and they are there.
    Text choose(Operation operation, const std::vector<Text>& paths)
    {
        for (const Text& path : paths)
            world.files.content[path] = {};
        world.backend.choices = {paths};
        return run(operation);
    }
    Text preset(Operation operation, const Text& text)
    {
        console().PresetSelection = true;
        console().SelectionText = text;
        return run(operation);
    }
    std::vector<Text> films(int count, const Text& folder = "/many/")
    {
        std::vector<Text> paths;
        for (int index = 0; index < count; ++index)
            paths.push_back(folder + "film" + std::to_string(10 + index) + ".avi");
        return paths;
    }
    const std::vector<Text>& list1() { return console().List1.entries(); }
    const std::vector<Text>& list2() { return console().List2.entries(); }
    const std::vector<std::string>& recent() { return world.files.content["/data/last.dat"]; }
};

constexpr auto kGroup = &frmMedia::GetFiles;
constexpr auto kSingle = &frmMedia::GetFiles1;
constexpr auto kMkv = &frmMedia::GetFiles2;
constexpr auto kSubtitles = &frmMedia::GetFiles3;

} // namespace

// The dialog.

TEST_F(ConsoleChoosing, EachOperationAsksWithItsOwnFilterAndTheTitleGiven)
{
    console().LastFolder = "/films/";
    const std::pair<decltype(kGroup), const char*> rows[]{{kGroup, kPlainFilter},
                                                          {kSingle, kHdFilter},
                                                          {kMkv, "MKV Video Files|*.mkv"},
                                                          {kSubtitles, "Subtitles Files|*.srt;*.txt|All Files|*"}};
    for (const auto& [operation, filter] : rows) {
        run(operation, "Some title");
        const FileDialog& dialog = world.backend.dialogs.back();
        EXPECT_EQ(joined(dialog.filters), filter);
        EXPECT_EQ(dialog.title, "Some title");
        EXPECT_EQ(dialog.folder, "/films/");
        EXPECT_EQ(dialog.kind, FileDialog::Kind::Open);
        EXPECT_EQ(dialog.several, operation == kGroup) << filter;
    }
    EXPECT_THAT(world.backend.dialogs, SizeIs(4));
}

TEST_F(ConsoleChoosing, AnotherLanguageBringsItsOwnTitleWhereThereIsOne)
{
    Language = "IT";
    const std::pair<decltype(kGroup), const char*> rows[]{{kGroup, "Aprire Video Multiplo..."},
                                                          {kSingle, "Some title"},
                                                          {kMkv, "Aprire MKV Video..."},
                                                          {kSubtitles, "Apri Subtitles File..."}};
    for (const auto& [operation, title] : rows) {
        run(operation, "Some title");
        EXPECT_EQ(world.backend.dialogs.back().title, title);
    }
}

TEST_F(ConsoleChoosing, ACancelledDialogEmptiesTheFirstListAndLeavesTheSecond)
{
    for (const auto operation : {kGroup, kSingle, kMkv}) {
        console().List1.AddItem("old");
        console().List2.AddItem("/open.avi");
        EXPECT_EQ(run(operation), "");
        EXPECT_THAT(list1(), IsEmpty());
        EXPECT_THAT(list2(), ElementsAre("/open.avi"));
        console().List2.Clear();
    }
    EXPECT_EQ(world.files.content.count("/data/last.dat"), 0U);
}

TEST_F(ConsoleChoosing, SubtitlesAreATextAndTouchNeitherList)
{
    console().List1.AddItem("old");
    const Text chosen = choose(kSubtitles, {"/films/a.srt"});
    EXPECT_EQ(chosen, "/films/a.srt" + std::string(1024 - 12, '|') + "||");
    EXPECT_THAT(list1(), ElementsAre("old"));
    EXPECT_THAT(list2(), IsEmpty());
    EXPECT_EQ(run(kSubtitles), "");
}

TEST_F(ConsoleChoosing, APresetSelectionShowsNoDialogAndIsTakenAsItStands)
{
    EXPECT_EQ(preset(kGroup, "/films/a.avi||"), "/films/a.avi||");
    EXPECT_THAT(world.backend.dialogs, IsEmpty());
    EXPECT_THAT(list1(), ElementsAre("/films/a.avi"));
    EXPECT_EQ(preset(kGroup, ""), "");
    EXPECT_THAT(list1(), IsEmpty());
    EXPECT_EQ(preset(kGroup, std::string(1026, '|')), "");
}

TEST_F(ConsoleChoosing, WithoutAPresetTheOldTextIsForgotten)
{
    console().SelectionText = "/films/a.avi||";
    EXPECT_EQ(run(kSingle), "");
    EXPECT_EQ(console().SelectionText, std::string(1026, '|'));
}

// Several files.

TEST_F(ConsoleChoosing, SeveralFilesGoToBothListsWithTheirFolder)
{
    choose(kGroup, {"/films/a.avi", "/films/b.avi"});
    EXPECT_THAT(list1(), ElementsAre("/films/a.avi", "/films/b.avi"));
    EXPECT_THAT(list2(), ElementsAre("/films/a.avi", "/films/b.avi"));
    EXPECT_EQ(console().LastFolder, "/films/");
}

TEST_F(ConsoleChoosing, TheRootOfTheFilesNeedsNoFurtherSeparator)
{
    choose(kGroup, {"/one.avi", "/two.avi"});
    EXPECT_THAT(list1(), ElementsAre("/one.avi", "/two.avi"));
    EXPECT_EQ(console().LastFolder, "/");
}

TEST_F(ConsoleChoosing, APresetOfSeveralHasWholePathsAndAnyFolders)
{
    preset(kGroup, "/films|/films/a.avi|/other/b.avi|||");
    EXPECT_THAT(list1(), ElementsAre("/films/a.avi", "/other/b.avi"));
    EXPECT_EQ(console().LastFolder, "/films/");
}

TEST_F(ConsoleChoosing, ABlankFolderStaysAsItIs)
{
    preset(kGroup, " |/a.avi|/b.avi|||");
    EXPECT_EQ(console().LastFolder, " ");
}

TEST_F(ConsoleChoosing, AnElementOfOneCharacterIsLeftOut)
{
    preset(kGroup, "/films|x|/films/b.avi|§|||");
    EXPECT_THAT(list1(), ElementsAre("/films/b.avi"));
}

TEST_F(ConsoleChoosing, ThirteenFilesOfAGroupAreTheFirstTwelveWithoutAWord)
{
    const auto paths = films(13);
    choose(kGroup, paths);
    EXPECT_THAT(list1(), SizeIs(12));
    EXPECT_EQ(list1().back(), paths[11]);
    EXPECT_THAT(world.backend.boxes, IsEmpty());
    EXPECT_FALSE(Loaded<class frmUpdate>());
}

TEST_F(ConsoleChoosing, AHundredFilesBesideThreeOpenOnesAreNine)
{
    for (const Text& path : films(3, "/open/"))
        console().List2.AddItem(path);
    std::vector<Text> paths;
    for (int index = 0; index < 100; ++index)
        paths.push_back("/many/" + std::to_string(index) + ".avi");
    choose(kGroup, paths);
    EXPECT_THAT(list1(), SizeIs(9));
    EXPECT_THAT(list2(), SizeIs(12));
}

TEST_F(ConsoleChoosing, OfThirteenFilesThoseThatAreOpenCountNeitherWay)
{
    const auto paths = films(13);
    console().List2.AddItem(paths[0]);
    choose(kGroup, paths);
    EXPECT_THAT(list1(), SizeIs(11)) << "the first is open, the others fill what is left";
    EXPECT_EQ(list1().back(), paths[11]);
}

TEST_F(ConsoleChoosing, ASelectionOfMoreThanTwelveIsRefusedAsAWholeWhereOneIsToOpen)
{
    Text text = "/many|";
    for (const Text& path : films(13))
        text += path + "|";
    EXPECT_EQ(preset(kSingle, text + "||"), text + "||");
    EXPECT_THAT(list1(), IsEmpty());
    EXPECT_THAT(list2(), IsEmpty());
    ASSERT_THAT(world.backend.boxes, SizeIs(1));
    EXPECT_EQ(world.backend.boxes[0].text, "Open up 12 Videos simultaneously.");
    EXPECT_EQ(world.backend.boxes[0].style, BoxStyle::Information);
    EXPECT_EQ(world.backend.boxes[0].title, AppTitle);
    EXPECT_EQ(console().LastFolder, "/many/");
}

TEST_F(ConsoleChoosing, ForMatroskaFilesTheRefusalComesInTheProgramsOwnForm)
{
    Text text = "/many|";
    for (const Text& path : films(13))
        text += path + "|";
    Text seen;
    Text title;
    world.backend.whileModal["frmUpdate"] = [&](Form& form) {
        seen = frmUpdate().lblUpdate.caption();
        title = form.caption();
    };
    preset(kMkv, text + "||");
    EXPECT_EQ(seen, "Open up to 12 Videos simultaneously.");
    EXPECT_EQ(title, AppTitle);
    EXPECT_THAT(list1(), IsEmpty());
    EXPECT_THAT(world.backend.boxes, IsEmpty());
}

TEST_F(ConsoleChoosing, TwelveAreNotTooMany)
{
    Text text = "/many|";
    for (const Text& path : films(12))
        text += path + "|";
    preset(kSingle, text + "||");
    EXPECT_THAT(list1(), SizeIs(12));
    EXPECT_THAT(world.backend.boxes, IsEmpty());
}

// What counts as open.

TEST_F(ConsoleChoosing, OfTwoFilesOfOneNameTheSecondIsDroppedByAGroup)
{
    world.files.content["/open/a.avi"] = {};
    console().List2.AddItem("/open/a.avi");
    choose(kGroup, {"/films/a.avi", "/films/b.avi"});
    EXPECT_THAT(list1(), ElementsAre("/films/b.avi"));
    EXPECT_THAT(world.backend.boxes, IsEmpty());
}

TEST_F(ConsoleChoosing, ANameThatIsNotFoundIsLikeNoOther)
{
    console().List2.AddItem("/gone/a.avi");
    choose(kGroup, {"/films/a.avi", "/films/b.avi"});
    EXPECT_THAT(list1(), ElementsAre("/films/a.avi", "/films/b.avi"));
}

TEST_F(ConsoleChoosing, AVanishedFileIsStillTaken)
{
    world.backend.choices = {{"/films/gone.avi", "/films/gone2.avi"}};
    run(kGroup);
    EXPECT_THAT(list1(), ElementsAre("/films/gone.avi", "/films/gone2.avi"));
}

TEST_F(ConsoleChoosing, FilesOfSeveralFoldersAreFoundInTheirOwn)
{
    world.files.content["/open/b.avi"] = {};
    // Its file is gone, and its window still shows it.
    CurrentAlias = quoted("/films/one/a.avi");
    newSlot("/films/one/a.avi");
    console().List2.AddItem("/films/one/a.avi");
    console().List2.AddItem("/open/b.avi");
    world.files.content["/films/two/b.avi"] = {};
    world.files.content["/films/two/c.avi"] = {};
    world.backend.choices = {{"/films/one/a.avi", "/films/two/b.avi", "/films/two/c.avi"}};
    run(kGroup);
    EXPECT_EQ(console().LastFolder, "/films/");
    EXPECT_THAT(list1(), ElementsAre("/films/two/c.avi")) << "the first is open, though it is gone; the second by name";
}

TEST_F(ConsoleChoosing, ABareEntryStandsForItself)
{
    console().List2.AddItem("a.avi");
    choose(kGroup, {"/films/a.avi", "/films/b.avi"});
    EXPECT_THAT(list1(), ElementsAre("/films/b.avi"));
}

TEST_F(ConsoleChoosing, ASingleFileOfAnotherFolderIsNotTheSame)
{
    for (const auto operation : {kGroup, kSingle, kMkv}) {
        console().List2.Clear();
        world.files.content["/open/a.mkv"] = {};
        console().List2.AddItem("/open/a.mkv");
        choose(operation, {"/films/a.mkv"});
        EXPECT_THAT(list1(), ElementsAre("/films/a.mkv"));
        EXPECT_THAT(list2(), ElementsAre("/open/a.mkv", "/films/a.mkv"));
        choose(operation, {"/films/a.mkv"});
        EXPECT_THAT(list1(), IsEmpty()) << "the same path is";
    }
}

TEST_F(ConsoleChoosing, TheOperationForOneComparesTextsOnly)
{
    world.files.content = {{"/open/a.avi", {}}, {"/films/a.avi", {}}};
    console().List2.AddItem("/open/a.avi");
    world.backend.choices = {{"/films/a.avi"}};
    run(kSingle);
    EXPECT_THAT(list1(), ElementsAre("/films/a.avi"));
}

TEST_F(ConsoleChoosing, APresetComparesWholePathsAlone)
{
    world.files.content = {{"/open/a.avi", {}}, {"/films/a.avi", {}}, {"/films/b.avi", {}}};
    console().List2.AddItem("/open/a.avi");
    console().List2.AddItem("/films/b.avi");
    preset(kGroup, "/films|/films/a.avi|/films/b.avi|||");
    EXPECT_THAT(list1(), ElementsAre("/films/a.avi"));
}

TEST_F(ConsoleChoosing, TheLimitCountsForAGroupAndNotWhereEverythingIsReplaced)
{
    for (const Text& path : films(12, "/open/"))
        console().List2.AddItem(path);
    choose(kGroup, {"/films/a.avi"});
    EXPECT_THAT(list1(), IsEmpty());
    choose(kSingle, {"/films/a.avi"});
    EXPECT_THAT(list1(), ElementsAre("/films/a.avi"));
    choose(kMkv, {"/films/b.mkv"});
    EXPECT_THAT(list1(), ElementsAre("/films/b.mkv"));
}

// One file.

TEST_F(ConsoleChoosing, OneFileKeepsItsFolderForTheNextTime)
{
    choose(kSingle, {"/films/new/a.avi"});
    EXPECT_EQ(console().LastFolder, "/films/new/");
    choose(kSingle, {"/root.avi"});
    EXPECT_EQ(console().LastFolder, "/");
}

TEST_F(ConsoleChoosing, APathOfFourCharactersIsNoFile)
{
    const std::pair<decltype(kGroup), const char*> rows[]{
        {kGroup, "Has been selected a file not avaiable for multiple selections"},
        {kSingle, "Has been selected a file not avaiable for multiple selections"},
        {kMkv, "Has been selected a file not avaiable for selections"}};
    for (const auto& [operation, message] : rows) {
        world.backend.boxes.clear();
        preset(operation, "/a.b||");
        EXPECT_THAT(list1(), IsEmpty());
        EXPECT_THAT(list2(), IsEmpty());
        ASSERT_THAT(world.backend.boxes, SizeIs(1));
        EXPECT_EQ(world.backend.boxes[0].text, message);
        EXPECT_EQ(world.backend.boxes[0].style, BoxStyle::Exclamation);
        EXPECT_EQ(world.backend.boxes[0].title, AppTitle);
    }
    Language = "DE";
    preset(kSingle, "/a.b||");
    EXPECT_EQ(world.backend.boxes.back().text, "Wurde ausgewählt, um Datei nicht lieferbar für mehrere auswahl");
}

TEST_F(ConsoleChoosing, APathOfFiveCharactersIsOneAndSoIsAShortOneWithoutItsEnd)
{
    preset(kSingle, "/a.bc||");
    EXPECT_THAT(list1(), ElementsAre("/a.bc"));
    preset(kSingle, "/a.b");
    EXPECT_THAT(list1(), ElementsAre("/a.b"));
    EXPECT_THAT(world.backend.boxes, IsEmpty());
}

// The recent files.

TEST_F(ConsoleChoosing, TheGroupAndTheSingleOperationKeepTheRecentFiles)
{
    choose(kGroup, {"/films/a.avi", "/films/b.avi"});
    EXPECT_THAT(recent(), ElementsAre("/films/a.avi", "/films/b.avi"));
    choose(kSingle, {"/films/c.avi"});
    EXPECT_THAT(recent(), ElementsAre("/films/c.avi", "/films/a.avi", "/films/b.avi", ""));
}

TEST_F(ConsoleChoosing, NeitherTheOthersNorAPresetNorAnEmptyChoiceKeepThem)
{
    choose(kMkv, {"/films/a.mkv"});
    choose(kSubtitles, {"/films/a.srt"});
    choose(kGroup, {});
    preset(kGroup, "/films/b.avi||");
    preset(kSingle, "/films/c.avi||");
    EXPECT_EQ(world.files.content.count("/data/last.dat"), 0U);
}

TEST_F(ConsoleChoosing, AFullDiscLosesNothing)
{
    world.files.content["/data/last.dat"] = {"/films/old.avi"};
    world.files.writable = false;
    choose(kGroup, {"/films/a.avi"});
    EXPECT_THAT(list1(), ElementsAre("/films/a.avi"));
    EXPECT_THAT(recent(), ElementsAre("/films/old.avi"));
    EXPECT_THAT(world.backend.boxes, IsEmpty());
}

// Errors.

TEST_F(ConsoleChoosing, AnErrorComesInABoxAndEndsTheOperation)
{
    world.backend.whileDialogIsUp = [] { throw RuntimeError(7, "Out of memory"); };
    console().List1.AddItem("old");
    EXPECT_EQ(run(kGroup), "");
    ASSERT_THAT(world.backend.boxes, SizeIs(1));
    EXPECT_EQ(world.backend.boxes[0].text, "(7) Out of memory");
    EXPECT_EQ(world.backend.boxes[0].style, BoxStyle::Exclamation);
    EXPECT_EQ(world.backend.boxes[0].title, "Open error");
    EXPECT_EQ(console().SelectionText, "");
    EXPECT_THAT(list1(), IsEmpty()) << "what an earlier choice has left is not opened again";
    console().List1.AddItem("old");
    EXPECT_EQ(run(kSubtitles), "");
    EXPECT_THAT(list1(), ElementsAre("old"));
    EXPECT_THAT(world.backend.boxes, SizeIs(2));
}

TEST_F(ConsoleChoosing, TheErrorOfACancelledDialogIsNotReported)
{
    world.backend.whileDialogIsUp = [] { throw RuntimeError(32755, "Cancel was selected"); };
    EXPECT_EQ(run(kSingle), "");
    EXPECT_THAT(world.backend.boxes, IsEmpty());
    EXPECT_EQ(console().SelectionText, "");
}

} // namespace tandrel::test
