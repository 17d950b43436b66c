// The list of all keys.

#include "keys_bench.h"

#include "console/key_commands.h"
#include "texts/frm_keys.h"
#include "texts/localised.h"

namespace tandrel::test
{

namespace
{

using KeysList = KeysBench;

} // namespace

TEST_F(KeysList, TheListHasEveryCommandInEveryLanguage)
{
    start();
    for (const auto code : kTextLanguages) {
        Language = code;
        console().imgPlay.ToolTip = localised("frmMedia.imgPlay");
        const auto lines = frmKeys::lines();
        EXPECT_EQ(lines.size(), keyCommands().size() - 11);
        for (const auto& line : lines) {
            EXPECT_FALSE(line.says.empty()) << code << " " << line.keys;
            EXPECT_FALSE(line.keys.empty()) << code << " " << line.says;
            EXPECT_EQ(line.says.find('&'), Text::npos) << line.says;
        }
        EXPECT_EQ(lines[0].says, localised("frmMedia.imgPlay"));
        EXPECT_EQ(lines[13].keys, "1 2 3 4 5 6 7 8 9 0 Alt+1 Alt+2");
        EXPECT_EQ(lines[13].says, localised("keys.video") + " 1 - 12");
    }
}

TEST_F(KeysList, TheListSaysWhereTheKeysAreChanged)
{
    start();
    EXPECT_TRUE(frmKeys().lblFile.caption().ends_with("\n/home/me/keys.ini"));
    EXPECT_LE(frmKeys().height(), 768 * 15);
    EXPECT_LE(frmKeys().width(), 1366 * 15);
    EXPECT_EQ(frmKeys().caption(), "Keys - " + AppTitle);
    frmKeys().cmdOK.userClick();
    EXPECT_FALSE(Loaded<class frmKeys>());
}

TEST_F(KeysList, LongKeysGetMoreRoomUpToWhatASmallScreenHas)
{
    start();
    const Long usual = frmKeys().width();
    Unload<class frmKeys>();
    for (const Text& keys : {Text("Ctrl+Alt+Shift+F1, Ctrl+Alt+Shift+F2"),
                             Text("F1,F2,F3,F4,F5,F6,F7,F8,F9,F10,F13,F14,F15,F16,F17,F18,F19,F20,F21,F22,F23,F24")}) {
        world.keyFile.holds("play = " + keys + "\n");
        readKeys();
        EXPECT_GT(frmKeys().width(), usual);
        EXPECT_LE(frmKeys().width(), 1366 * 15);
        for (const Control* control : frmKeys().controls())
            EXPECT_LE(control->left() + control->width(), frmKeys().width()) << control->name();
        Unload<class frmKeys>();
    }
}

} // namespace tandrel::test
