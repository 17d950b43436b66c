// The file of the keys: what its lines change, and what is said of those that make no sense.

#include "player_bench.h"

#include "console/key_bindings.h"
#include "console/key_commands.h"
#include "texts/frm_update.h"
#include "texts/localised.h"

#include <set>

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

class ConsoleKeyFile : public Player
{
protected:
    static const KeyCommand& command(const Text& name)
    {
        for (const KeyCommand& one : keyCommands())
            if (one.name == name)
                return one;
        throw std::logic_error("no command " + name);
    }
    KeyBindings bound(const Text& file)
    {
        world.keyFile.holds(file);
        return KeyBindings(world.keyFile);
    }
    static std::vector<Text> keys(const KeyBindings& bindings, const Text& name)
    {
        return bindings.keysOf(command(name));
    }
    static Text commandOf(const KeyBindings& bindings, const Text& key)
    {
        const KeyCommand* found = bindings.commandOf(key);
        return found ? found->name : "";
    }
    /// Its lines behind the first two, which are always the same.
    std::vector<Text> complaints(const Text& file)
    {
        std::vector<Text> lines = split(bound(file).complaint(), '\n');
        if (lines.size() < 2)
            return {};
        EXPECT_EQ(lines[0], "What these lines of the keys file say is left out:");
        EXPECT_EQ(lines[1], "/home/me/keys.ini");
        lines.erase(lines.begin(), lines.begin() + 2);
        return lines;
    }
};

} // namespace

TEST_F(ConsoleKeyFile, StandardKeysAreKeysAndNoneStandsForTwo)
{
    std::set<Text> names;
    std::set<Text> taken;
    for (const KeyCommand& one : keyCommands()) {
        EXPECT_TRUE(names.insert(one.name).second) << one.name;
        for (const Text& word : split(one.standard, ',')) {
            const auto key = keyNamed(word);
            ASSERT_TRUE(key) << one.name << " " << word;
            EXPECT_TRUE(taken.insert(*key).second) << one.name << " " << word;
        }
        EXPECT_FALSE(KeyBindings().keysOf(one).empty()) << one.name;
    }
}

TEST_F(ConsoleKeyFile, TheLettersOfThePanelMeanTheSameElsewhere)
{
    const KeyBindings standard;
    EXPECT_EQ(commandOf(standard, "L"), "play");
    EXPECT_EQ(commandOf(standard, "P"), "pause");
    EXPECT_EQ(commandOf(standard, "F"), "forward");
    EXPECT_EQ(commandOf(standard, "R"), "rewind");
    for (int number = 1; number <= 9; ++number)
        EXPECT_EQ(commandOf(standard, std::to_string(number)), "video-" + std::to_string(number));
}

TEST_F(ConsoleKeyFile, WithoutAFileTheStandardHolds)
{
    const KeyBindings bindings(world.keyFile);
    for (const KeyCommand& one : keyCommands())
        EXPECT_EQ(bindings.keysOf(one), KeyBindings().keysOf(one)) << one.name;
    EXPECT_EQ(bindings.complaint(), "");
}

TEST_F(ConsoleKeyFile, TheFileThatIsLeftChangesNothing)
{
    const KeyBindings bindings = bound(emptyKeyFile());
    EXPECT_EQ(bindings.complaint(), "");
    for (const KeyCommand& one : keyCommands())
        EXPECT_EQ(bindings.keysOf(one), KeyBindings().keysOf(one)) << one.name;
}

TEST_F(ConsoleKeyFile, TheFileThatIsLeftSaysTheStandardWhereItsMarksAreTakenAway)
{
    Text file;
    for (Text line : split(emptyKeyFile(), '\n')) {
        if (line.starts_with("# ") && line.find(" = ") != Text::npos && line.find('"') == Text::npos)
            line.erase(0, 2);
        file += line + "\n";
    }
    const KeyBindings bindings = bound(file);
    EXPECT_EQ(bindings.complaint(), "");
    for (const KeyCommand& one : keyCommands())
        EXPECT_EQ(bindings.keysOf(one), KeyBindings().keysOf(one)) << one.name;
}

TEST_F(ConsoleKeyFile, ALineGivesACommandItsKeys)
{
    const KeyBindings bindings = bound("pause = X, Ctrl+P\nplay=F5\n  MUTE\t=\tz  # the sound\n");
    EXPECT_EQ(bindings.complaint(), "");
    EXPECT_THAT(keys(bindings, "pause"), ElementsAre("X", "Ctrl+P"));
    EXPECT_THAT(keys(bindings, "play"), ElementsAre("F5"));
    EXPECT_THAT(keys(bindings, "mute"), ElementsAre("Z"));
    EXPECT_EQ(commandOf(bindings, "X"), "pause");
    EXPECT_EQ(commandOf(bindings, "P"), "") << "what it had before is free";
    EXPECT_EQ(bindings.shownKeys(command("pause")), "X, Ctrl+P");
}

TEST_F(ConsoleKeyFile, ACommandMayHaveNoKey)
{
    const KeyBindings bindings = bound("exit =\n");
    EXPECT_EQ(bindings.complaint(), "");
    EXPECT_THAT(keys(bindings, "exit"), IsEmpty());
    EXPECT_EQ(commandOf(bindings, "Ctrl+Q"), "");
    EXPECT_EQ(bindings.shownKeys(command("exit")), "");
}

TEST_F(ConsoleKeyFile, AUsersKeyGoesBeforeTheStandardOfAnother)
{
    const KeyBindings bindings = bound("mute = L\n");
    EXPECT_EQ(bindings.complaint(), "");
    EXPECT_EQ(commandOf(bindings, "L"), "mute");
    EXPECT_THAT(keys(bindings, "play"), IsEmpty());
    const KeyBindings swapped = bound("play = P\npause = L\n");
    EXPECT_EQ(commandOf(swapped, "P"), "play");
    EXPECT_EQ(commandOf(swapped, "L"), "pause");
    EXPECT_EQ(swapped.complaint(), "");
}

TEST_F(ConsoleKeyFile, NonsenseIsNamedAndTheRestKept)
{
    const Text file = "plya = X\n"
                      "pause = Foo, Q\n"
                      "mute\n"
                      "play = Q\n"
                      "pause = Z\n"
                      "help = \x01\n"
                      "hide = ,\n"
                      "minimise = Y, Y\n";
    EXPECT_THAT(complaints(file), ElementsAre("Line 1: no such command: plya", "Line 2: no such key: Foo",
                                              "Line 3: not \"command = key\": mute", "Line 4: key of another line: Q",
                                              "Line 5: a line before says it already: pause",
                                              "Line 6: no readable text", "And more of them: 2"));
    const KeyBindings bindings = bound(file);
    EXPECT_THAT(keys(bindings, "pause"), ElementsAre("Q"));
    EXPECT_THAT(keys(bindings, "play"), ElementsAre("L")) << "none of its line's keys can be used";
    EXPECT_THAT(keys(bindings, "mute"), ElementsAre("M"));
    EXPECT_THAT(keys(bindings, "help"), ElementsAre("F1", "H"));
    EXPECT_THAT(keys(bindings, "hide"), ElementsAre("I"));
    EXPECT_THAT(keys(bindings, "minimise"), ElementsAre("Y")) << "twice the same is the same";
}

TEST_F(ConsoleKeyFile, SixAreToldAndTheOthersCounted)
{
    Text file;
    for (int line = 0; line < 6; ++line)
        file += "x\n";
    EXPECT_EQ(complaints(file).size(), 6u);
    const auto lines = complaints(file + "x\nx\n");
    EXPECT_EQ(lines.size(), 7u);
    EXPECT_EQ(lines.back(), "And more of them: 2");
}

TEST_F(ConsoleKeyFile, OtherEndsOfLinesAndAMarkAtTheFrontAreNoNonsense)
{
    const KeyBindings bindings = bound("\xEF\xBB\xBFpause = X\r\nplay = Z\r\n\r\n# \xC3\xBC\r\nmute = Q");
    EXPECT_EQ(bindings.complaint(), "");
    EXPECT_EQ(commandOf(bindings, "X"), "pause");
    EXPECT_EQ(commandOf(bindings, "Z"), "play");
    EXPECT_EQ(commandOf(bindings, "Q"), "mute");
}

TEST_F(ConsoleKeyFile, BytesOfAnyKindAreNoReadableText)
{
    EXPECT_THAT(complaints("pause = \xff\n"), ElementsAre("Line 1: no readable text"));
    EXPECT_THAT(complaints(Text("pause = X\0Y\n", 12)), ElementsAre("Line 1: no readable text"));
    Text all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    EXPECT_FALSE(complaints(all + all).empty());
    EXPECT_EQ(commandOf(bound(all), "L"), "play");
}

TEST_F(ConsoleKeyFile, LongWordsAreCut)
{
    EXPECT_THAT(complaints(Text(3000, 'x') + " = L\n"),
                ElementsAre("Line 1: no such command: " + Text(32, 'x') + " ..."));
}

TEST_F(ConsoleKeyFile, AFileThatIsTooLongOrCantBeReadIsNamedAsAWhole)
{
    world.keyFile.content = {KeyFile::State::TooLong, {}};
    EXPECT_EQ(KeyBindings(world.keyFile).complaint(),
              "The keys file is longer than 64 KiB. The keys are the usual ones.\n/home/me/keys.ini");
    world.keyFile.content = {KeyFile::State::Unreadable, {}};
    EXPECT_EQ(KeyBindings(world.keyFile).complaint(),
              "The keys file can't be read. The keys are the usual ones.\n/home/me/keys.ini");
    EXPECT_EQ(commandOf(KeyBindings(world.keyFile), "L"), "play");
}

TEST_F(ConsoleKeyFile, TheStartLeavesAFileAndTellsOfNonsenseOnce)
{
    world.keyFile.holds("plya = X\nmute = F7\n");
    std::vector<Text> told;
    world.backend.whileModal["frmUpdate"] = [&](Form& form) {
        told.push_back(dynamic_cast<class frmUpdate&>(form).lblUpdate.caption());
    };
    start();
    EXPECT_THAT(world.keyFile.left, ElementsAre(emptyKeyFile()));
    EXPECT_THAT(told, ElementsAre("What these lines of the keys file say is left out:\n/home/me/keys.ini\n"
                                  "Line 1: no such command: plya"));
    EXPECT_EQ(console().imgMute.shortcut(), "F7");
}

TEST_F(ConsoleKeyFile, TheMessageComesBehindTheStart)
{
    world.keyFile.holds("plya = X\n");
    world.backend.holdsLater = true;
    bool told = false;
    world.backend.whileModal["frmUpdate"] = [&](Form&) { told = true; };
    start();
    EXPECT_FALSE(told);
    world.backend.runWaiting();
    EXPECT_TRUE(told);
}

TEST_F(ConsoleKeyFile, TheMessageHasRoomForAllItsLines)
{
    start();
    frmUpdate().say("short");
    const Long before = frmUpdate().height();
    const Long label = frmUpdate().lblUpdate.height();
    const Long button = frmUpdate().cmdOK.top();
    frmUpdate().say("1\n2\n3");
    EXPECT_EQ(frmUpdate().height(), before);
    frmUpdate().say("1\n2\n3\n4\n5\n6\n7\n8\n9");
    EXPECT_EQ(frmUpdate().height() - before, 9 * 240 - label);
    EXPECT_EQ(frmUpdate().lblUpdate.height() - label, 9 * 240 - label);
    EXPECT_EQ(frmUpdate().cmdOK.top() - button, 9 * 240 - label);
}

TEST_F(ConsoleKeyFile, AGoodFileIsNotSpokenOf)
{
    world.keyFile.holds("mute = F7\n");
    bool told = false;
    world.backend.whileModal["frmUpdate"] = [&](Form&) { told = true; };
    start();
    EXPECT_FALSE(told);
}

} // namespace tandrel::test
