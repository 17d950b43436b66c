// How a command that opens files leaves things, whichever way it ends.

#include "opening_bench.h"

#include "video/frm_mkv.h"

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

namespace
{

class ConsoleOpenEnds : public Opening
{
protected:
    /// The user has made this selection before the command.
    void select(const std::vector<Text>& paths)
    {
        begin("0");
        preset(paths);
        ASSERT_TRUE(console().PresetSelection);
    }
    void expectUsedUp(const char* way)
    {
        EXPECT_FALSE(console().PresetSelection) << way;
        EXPECT_EQ(console().SelectionText, "") << way;
        EXPECT_EQ(screen().MousePointer(), pointer::kDefault) << way;
    }
    std::vector<Text> thirteen()
    {
        std::vector<Text> paths;
        for (int index = 0; index < 13; ++index)
            paths.push_back(film(index));
        return paths;
    }
};

} // namespace

TEST_F(ConsoleOpenEnds, ASelectionThatIsRefusedIsUsedUp)
{
    select(thirteen());
    console().OpenSingleVideo();
    EXPECT_THAT(world.backend.boxes, SizeIs(1));
    expectUsedUp("in a box");
    int told = 0;
    world.backend.whileModal["frmUpdate"] = [&](Form&) { ++told; };
    select(thirteen());
    console().OpenSingleVideoMKV();
    EXPECT_EQ(told, 1);
    expectUsedUp("in the program's own form");
    EXPECT_THAT(VideoWindows, IsEmpty());
}

TEST_F(ConsoleOpenEnds, ASelectionThatComesToAnErrorIsUsedUp)
{
    for (const auto opener : {&frmMedia::OpenSingleVideo, &frmMedia::OpenSingleVideoMKV}) {
        world.backend.boxes.clear();
        select({"/a.b"});
        world.backend.whileBoxIsUp = [this] {
            world.backend.whileBoxIsUp = nullptr;
            throw RuntimeError(7, "Out of memory");
        };
        (console().*opener)();
        ASSERT_THAT(world.backend.boxes, SizeIs(2));
        EXPECT_EQ(world.backend.boxes[1].text, "(7) Out of memory");
        expectUsedUp("an error");
    }
}

TEST_F(ConsoleOpenEnds, ASelectionThatFindsNoRoomIsUsedUp)
{
    select({film(13)});
    for (const Text& path : thirteen())
        console().List2.AddItem(path);
    int told = 0;
    world.backend.whileModal["frmUpdate"] = [&](Form&) { ++told; };
    pressOpen();
    EXPECT_EQ(told, 1);
    EXPECT_THAT(VideoWindows, IsEmpty());
    expectUsedUp("no room");
}

TEST_F(ConsoleOpenEnds, ASelectionWhoseHdFileFailsIsUsedUp)
{
    const Text path = "/films/a.mkv";
    world.mci.fail("Pause \"" + path + "\"", 263);
    select({path});
    WindowsVersion = "LINUX";
    console().OpenSingleVideo();
    EXPECT_EQ(liveCount(), 0);
    expectUsedUp("a failed HD file");
}

TEST_F(ConsoleOpenEnds, ACancelledDialogOfAGroupEndsTheTipBesideTheColumn)
{
    begin("1");
    open(0);
    frmToolTip().Show();
    chooseGroup();
    EXPECT_THAT(world.backend.dialogs, SizeIs(1));
    EXPECT_FALSE(Loaded<class frmToolTip>());
}

TEST_F(ConsoleOpenEnds, AnHdFileOnALaterSystemKeepsTheFocus)
{
    begin("1");
    WindowsVersion = "LINUX";
    chooseSingle("/films/a.mkv");
    ASSERT_TRUE(Loaded<class frmMKV>());
    EXPECT_EQ(activeForm(), &frmMKV());
    chooseSingle(film(1));
    EXPECT_EQ(activeForm(), &console()) << "a plain file gives it back";
}

TEST_F(ConsoleOpenEnds, SeveralFilesWhoseFirstIsHdAllHaveTheirSlots)
{
    begin("0");
    WindowsVersion = "LINUX";
    preset({"/films/a.mkv", film(1)});
    console().OpenSingleVideo();
    EXPECT_EQ(liveCount(), 2);
    EXPECT_THAT(startingWith(commands(), "Play"), ElementsAre("Play \"/films/a.mkv\" ", "Play B "));
    EXPECT_THAT(startingWith(commands(), "Pause"), IsEmpty());
    EXPECT_EQ(placeOf(0), twips(0, 0, 960, 540));
    EXPECT_EQ(placeOf(1), twips(960, 0, 960, 540));
    EXPECT_EQ(activeForm(), &console());
}

} // namespace tandrel::test
