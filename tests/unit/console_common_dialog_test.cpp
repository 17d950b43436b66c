// The class of the dialog for files: its buffers, its flags, and what it makes of a choice.

#include "fake_services.h"

#include "console/common_dialog.h"
#include "platform/path_marks.h"

#include <gmock/gmock.h>

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

namespace
{

constexpr std::size_t kRoom = 1024;

Text bars(std::size_t count) { return Text(count, '|'); }

/// What `FileName` reads for a selection that fits into the buffer, its parts divided by bars.
Text filled(const Text& selection) { return selection + bars(kRoom - selection.size() + 2); }

class CommonDialogs : public ::testing::Test
{
protected:
    /// What `FileName` reads when the user chooses `paths`.
    Text chosen(std::int32_t flags, std::vector<Text> paths)
    {
        world.backend.choices = {std::move(paths)};
        CommonDialog dialog(flags);
        dialog.ShowOpen();
        return dialog.FileName();
    }
    const FileDialog& asked() { return world.backend.dialogs.back(); }

    World world;
};

TEST_F(CommonDialogs, TheWordsOfFlagsAreTheUsualSums)
{
    EXPECT_EQ(kSeveralFiles, 788996);
    EXPECT_EQ(kSeveralFiles, 0xC0A04);
    EXPECT_EQ(kSingleFile, 2097156);
    EXPECT_EQ(kSingleFile, 0x200004);
}

TEST_F(CommonDialogs, ACancelledDialogReadsAs1026Bars)
{
    for (const std::int32_t flags : {kSeveralFiles, kSingleFile})
        EXPECT_EQ(chosen(flags, {}), bars(1026));
    CommonDialog neverShown(kSingleFile);
    EXPECT_EQ(neverShown.FileName(), bars(1026));
}

TEST_F(CommonDialogs, FileNameLetStoresTheValueAndOneNul)
{
    CommonDialog dialog(kSingleFile);
    dialog.FileName = "film.avi";
    EXPECT_EQ(dialog.FileName(), "film.avi|||");
}

TEST_F(CommonDialogs, AReadOfFileNameEmptiesTheBuffer)
{
    world.backend.choices = {{"/films/a.avi"}};
    CommonDialog dialog(kSingleFile);
    dialog.ShowOpen();
    const Text first = dialog.FileName;
    EXPECT_EQ(first, filled("/films/a.avi"));
    EXPECT_EQ(dialog.FileName(), bars(1026));
    EXPECT_EQ(dialog.FileName(), bars(1026));
}

TEST_F(CommonDialogs, FilterGivesBackWhatWasLet)
{
    CommonDialog dialog(kSingleFile);
    EXPECT_EQ(dialog.Filter(), "");
    dialog.Filter = "Films|*.avi;*.mp4|All Files|*.*";
    EXPECT_EQ(dialog.Filter(), "Films|*.avi;*.mp4|All Files|*.*");
}

TEST_F(CommonDialogs, BarsAtTheEndOfAFilterAreTakenForItsEnd)
{
    CommonDialog dialog(kSingleFile);
    dialog.Filter = "Films|*.avi||";
    EXPECT_EQ(dialog.Filter(), "Films|*.avi");
    dialog.Filter = "|Films||*.avi";
    EXPECT_EQ(dialog.Filter(), "|Films||*.avi");
}

TEST_F(CommonDialogs, FileTitleIsKeptAsItIs)
{
    CommonDialog dialog(kSingleFile);
    EXPECT_EQ(dialog.FileTitle(), "");
    dialog.FileTitle = Text("a\0b", 3);
    EXPECT_EQ(dialog.FileTitle(), Text("a\0b", 3));
}

TEST_F(CommonDialogs, TitleAndFolderComeBackWithoutNuls)
{
    CommonDialog dialog(kSingleFile);
    EXPECT_EQ(dialog.DialogTitle(), "");
    EXPECT_EQ(dialog.InitDir(), "");
    dialog.DialogTitle = Text("Open\0 a file\0", 13);
    EXPECT_EQ(dialog.DialogTitle(), "Open a file");
    dialog.InitDir = "/films/";
    EXPECT_EQ(dialog.InitDir(), "/films/");
    dialog.InitDir = Text("/fi\0lms", 7);
    EXPECT_EQ(dialog.InitDir(), "/films");
}

TEST_F(CommonDialogs, DefaultExtDropsEveryDot)
{
    CommonDialog dialog(kSingleFile);
    dialog.DefaultExt = ".tar.gz";
    EXPECT_EQ(dialog.DefaultExt(), "targz");
}

TEST_F(CommonDialogs, ASingleFileIsThePathAndNulsToTheEnd)
{
    EXPECT_EQ(chosen(kSingleFile, {"/films/a b.avi"}), filled("/films/a b.avi"));
    EXPECT_EQ(chosen(kSingleFile, {"/films/a b.avi"}).size(), kRoom + 2);
}

TEST_F(CommonDialogs, SeveralFilesAreTheirFolderAndTheirNames)
{
    EXPECT_EQ(chosen(kSeveralFiles, {"/films/b.avi", "/films/a.mp4"}), filled("/films|b.avi|a.mp4"));
}

TEST_F(CommonDialogs, OneFileOfADialogForSeveralIsItsWholePath)
{
    EXPECT_EQ(chosen(kSeveralFiles, {"/films/b.avi"}), filled("/films/b.avi"));
}

TEST_F(CommonDialogs, FilesBelowTheRootHaveTheRootForTheirFolder)
{
    EXPECT_EQ(chosen(kSeveralFiles, {"/b.avi", "/a.avi"}), filled("/|b.avi|a.avi"));
    EXPECT_EQ(chosen(kSeveralFiles, {"/films/b.avi", "/a.avi"}), filled("/|films/b.avi|a.avi"));
}

TEST_F(CommonDialogs, FilesOfSeveralFoldersAreNamedFromTheirDeepestCommonOne)
{
    EXPECT_EQ(chosen(kSeveralFiles, {"/films/old/a.avi", "/films/new/x/b.avi", "/films/c.avi"}),
              filled("/films|old/a.avi|new/x/b.avi|c.avi"));
    EXPECT_EQ(chosen(kSeveralFiles, {"/films/a/one.avi", "/films/ab/two.avi"}), filled("/films|a/one.avi|ab/two.avi"));
    EXPECT_EQ(chosen(kSeveralFiles, {"/films/a/b.avi", "/films/a.avi"}), filled("/films|a/b.avi|a.avi"));
}

TEST_F(CommonDialogs, ADialogForOneFileTakesOne)
{
    EXPECT_EQ(chosen(kSingleFile, {"/films/a.avi", "/films/b.avi"}), filled("/films/a.avi"));
}

TEST_F(CommonDialogs, ASelectionLongerThanTheBufferIsWhole)
{
    std::vector<Text> paths;
    Text expected = "/films";
    for (int index = 0; index < 60; ++index) {
        const Text name = Text(40, static_cast<char>('a' + index % 26)) + std::to_string(index);
        paths.push_back("/films/" + name);
        expected += "|" + name;
    }
    ASSERT_GT(expected.size(), kRoom);
    EXPECT_EQ(chosen(kSeveralFiles, paths), expected + bars(2 + 2));
}

TEST_F(CommonDialogs, TwoNulsAtLeastEndEveryBuffer)
{
    for (const std::size_t size : {kRoom - 3, kRoom - 2, kRoom - 1, kRoom, kRoom + 1}) {
        const Text path = "/" + Text(size - 1, 'x');
        EXPECT_EQ(chosen(kSingleFile, {path}), path + bars(std::max(kRoom, size + 2) - size + 2)) << size;
    }
}

TEST_F(CommonDialogs, AfterALongSelectionTheBufferHasItsSizeAgain)
{
    world.backend.choices = {{"/" + Text(3000, 'x')}};
    CommonDialog dialog(kSingleFile);
    dialog.ShowOpen();
    EXPECT_THAT(dialog.FileName(), SizeIs(3001 + 2 + 2));
    EXPECT_EQ(dialog.FileName(), bars(1026));
}

TEST_F(CommonDialogs, MarksInNamesDivideNothing)
{
    const Text path = markPath("/films/one|two||three\n.avi");
    EXPECT_EQ(chosen(kSingleFile, {path}), filled(path));
}

TEST_F(CommonDialogs, BytesThatAreNoTextStayAsTheyAre)
{
    EXPECT_EQ(chosen(kSeveralFiles, {"/films/\xFF\x80.avi", "/films/b.avi"}), filled("/films|\xFF\x80.avi|b.avi"));
}

TEST_F(CommonDialogs, FoldersAndAddressesNeverGetIn)
{
    EXPECT_EQ(chosen(kSeveralFiles, {"https://example.org/a.avi", "/films/", "/", "", "a.avi"}), bars(1026));
    EXPECT_EQ(chosen(kSingleFile, {"smb://host/a.avi", "/films/a.avi"}), filled("/films/a.avi"));
}

TEST_F(CommonDialogs, ACancelledDialogLeavesTheBufferAsItIs)
{
    CommonDialog dialog(kSingleFile);
    dialog.FileName = "film.avi";
    dialog.ShowOpen();
    EXPECT_EQ(dialog.FileName(), "film.avi|||");
}

TEST_F(CommonDialogs, ShowOpenAsksWhatTheDialogWasTold)
{
    CommonDialog dialog(kSeveralFiles);
    dialog.FileName = "b.avi";
    dialog.Filter = "Films|*.avi;*.mp4|All Files|*.*";
    dialog.DialogTitle = "Open Multiple Video...";
    dialog.InitDir = "/films/";
    dialog.ShowOpen();
    EXPECT_EQ(asked().kind, FileDialog::Kind::Open);
    EXPECT_EQ(asked().title, "Open Multiple Video...");
    EXPECT_EQ(asked().folder, "/films/");
    EXPECT_EQ(asked().name, "b.avi");
    EXPECT_TRUE(asked().several);
    ASSERT_THAT(asked().filters, SizeIs(2));
    EXPECT_EQ(asked().filters[0].name, "Films");
    EXPECT_THAT(asked().filters[0].patterns, ElementsAre("*.avi", "*.mp4"));
    EXPECT_EQ(asked().filters[1].name, "All Files");
}

TEST_F(CommonDialogs, AFreshDialogAsksForNothingInParticular)
{
    CommonDialog(kSingleFile).ShowOpen();
    EXPECT_EQ(asked().title, "");
    EXPECT_EQ(asked().folder, "");
    EXPECT_EQ(asked().name, "");
    EXPECT_THAT(asked().filters, IsEmpty());
    EXPECT_FALSE(asked().several);
}

TEST_F(CommonDialogs, TheFlagDecidesHowManyMayBeChosen)
{
    CommonDialog(kSingleFile).ShowOpen();
    EXPECT_FALSE(asked().several);
    CommonDialog(OFN_ALLOWMULTISELECT).ShowOpen();
    EXPECT_TRUE(asked().several);
    CommonDialog(kSeveralFiles & ~OFN_ALLOWMULTISELECT).ShowOpen();
    EXPECT_FALSE(asked().several);
}

TEST_F(CommonDialogs, AllFilesAreThoseWithoutADotToo)
{
    CommonDialog dialog(kSingleFile);
    dialog.Filter = "Some|*.srt; *.txt;;|All|*.*|Broken";
    dialog.ShowOpen();
    ASSERT_THAT(asked().filters, SizeIs(2));
    EXPECT_THAT(asked().filters[0].patterns, ElementsAre("*.srt", "*.txt"));
    EXPECT_THAT(asked().filters[1].patterns, ElementsAre("*"));
}

TEST_F(CommonDialogs, ShowSaveAsksForOneFileToSave)
{
    world.backend.choices = {{"/films/new.txt"}};
    CommonDialog dialog(kSeveralFiles);
    dialog.DefaultExt = ".txt";
    dialog.ShowSave();
    EXPECT_EQ(asked().kind, FileDialog::Kind::Save);
    EXPECT_EQ(asked().extension, "txt");
    EXPECT_FALSE(asked().several);
    EXPECT_EQ(dialog.FileName(), filled("/films/new.txt"));
}

TEST_F(CommonDialogs, GetFolderNameGivesTheFolderOrNothing)
{
    world.backend.choices = {{"/films/old"}, {}, {"/"}, {"smb://host/films"}};
    CommonDialog dialog(kSingleFile);
    dialog.DialogTitle = "Where to?";
    dialog.InitDir = "/films";
    EXPECT_EQ(dialog.GetFolderName(), "/films/old");
    EXPECT_EQ(asked().kind, FileDialog::Kind::Folder);
    EXPECT_EQ(asked().title, "Where to?");
    EXPECT_EQ(asked().folder, "/films");
    EXPECT_EQ(dialog.GetFolderName(), "");
    EXPECT_EQ(dialog.GetFolderName(), "/");
    EXPECT_EQ(dialog.GetFolderName(), "");
}

TEST_F(CommonDialogs, ALongFolderIsNotCorrupted)
{
    const Text path = "/" + Text(250, 'a') + "/" + Text(250, 'b');
    world.backend.choices = {{path}};
    EXPECT_EQ(CommonDialog(kSingleFile).GetFolderName(), path);
}

TEST_F(CommonDialogs, GetFolderNameLeavesTheFileNameAlone)
{
    world.backend.choices = {{"/films/a.avi"}, {"/films"}};
    CommonDialog dialog(kSingleFile);
    dialog.ShowOpen();
    dialog.GetFolderName();
    EXPECT_EQ(dialog.FileName(), filled("/films/a.avi"));
}

} // namespace

} // namespace tandrel::test
