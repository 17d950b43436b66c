// What the program was started with: how it is read, and how a file on the command line reaches its window.

#include "player_bench.h"

#include "console/command_line.h"
#include "console/frm_start.h"
#include "toolkit/activation.h"

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::MatchesRegex;

namespace
{

class ConsoleCommandLine : public Player
{
protected:
    void startWith(const Text& text)
    {
        setCommandLine({text, {}});
        frmStart().start();
    }
};

} // namespace

TEST_F(ConsoleCommandLine, NothingIsEmpty)
{
    for (const auto& arguments : {std::vector<Text>{}, std::vector<Text>{""}, std::vector<Text>{"", ""}}) {
        const CommandLine line = parseCommandLine(arguments, "/home/me");
        EXPECT_TRUE(line.empty());
        EXPECT_FALSE(line.isDvd());
        EXPECT_FALSE(line.isPath());
    }
}

TEST_F(ConsoleCommandLine, TheWordDvdAloneIsADisc)
{
    EXPECT_TRUE(parseCommandLine({"DVD"}, "/home/me").isDvd());
    EXPECT_EQ(parseCommandLine({"dvd"}, "/home/me").text, "\"/home/me/dvd\"");
    EXPECT_THAT(parseCommandLine({"DVD", "a"}, "/home/me").group, ElementsAre("/home/me/DVD", "/home/me/a"));
}

TEST_F(ConsoleCommandLine, OnePathIsQuotedAndMadeAbsolute)
{
    EXPECT_EQ(parseCommandLine({"/films/a.avi"}, "/home/me").text, "\"/films/a.avi\"");
    EXPECT_EQ(parseCommandLine({"a b.avi"}, "/home/me").text, "\"/home/me/a b.avi\"");
    EXPECT_EQ(parseCommandLine({"a.avi"}, "/").text, "\"/a.avi\"");
    EXPECT_EQ(parseCommandLine({"-a.avi"}, "/home/me").text, "\"/home/me/-a.avi\"");
    EXPECT_EQ(parseCommandLine({"--"}, "/home/me").text, "\"/home/me/--\"");
    EXPECT_TRUE(parseCommandLine({"a.avi"}, "/home/me").isPath());
    for (const char* same : {"./a.avi", ".//a.avi", "././/a.avi"})
        EXPECT_EQ(parseCommandLine({same}, "/home/me").text, "\"/home/me/a.avi\"") << same;
    EXPECT_EQ(parseCommandLine({"./"}, "/home/me").text, "\"/home/me\"");
    EXPECT_EQ(parseCommandLine({".hidden.avi"}, "/home/me").text, "\"/home/me/.hidden.avi\"");
}

TEST_F(ConsoleCommandLine, OneThatIsAskedForHelpOrVersionAloneOnlyTells)
{
    EXPECT_THAT(selfDescription({"--help"}), HasSubstr("Usage: tandrel-player [FILE...]\n"));
    EXPECT_THAT(selfDescription({"--version"}), MatchesRegex("tandrel-player [0-9]+\\.[0-9]+\\.[0-9]+\n"));
    for (const auto& files : {std::vector<Text>{}, {"./--help"}, {"--help", "a.avi"}, {"a.avi", "--version"}, {"-h"}})
        EXPECT_EQ(selfDescription(files), "");
    EXPECT_EQ(parseCommandLine({"./--help"}, "/home/me").text, "\"/home/me/--help\"");
    EXPECT_THAT(parseCommandLine({"--help", "a.avi"}, "/f").group, ElementsAre("/f/--help", "/f/a.avi"));
}

TEST_F(ConsoleCommandLine, MarksInAPathAreMapped)
{
    EXPECT_EQ(parseCommandLine({"/f/a\"b|c\r\n.avi"}, "/").text, "\"/f/a\xEF\x80\xA2"
                                                                 "b\xEF\x81\xBC"
                                                                 "c\xEF\x80\x8D\xEF\x80\x8A.avi\"");
    EXPECT_EQ(parseCommandLine({"a.avi"}, "/f\"").text, "\"/f\xEF\x80\xA2/a.avi\"");
}

TEST_F(ConsoleCommandLine, OtherBytesPassUntouched)
{
    const Text name = "/f/\xFF\xFE % \x01.avi";
    EXPECT_EQ(parseCommandLine({name}, "/").text, tandrel::quoted(name));
    const Text longest = "/" + std::string(255, 'x');
    EXPECT_EQ(parseCommandLine({longest}, "/").text, tandrel::quoted(longest));
}

TEST_F(ConsoleCommandLine, SeveralPathsAreAGroup)
{
    const CommandLine line = parseCommandLine({"a.avi", "", "/b.avi"}, "/home/me");
    EXPECT_THAT(line.group, ElementsAre("/home/me/a.avi", "/b.avi"));
    EXPECT_EQ(line.text, "");
    EXPECT_FALSE(line.empty());
    EXPECT_FALSE(line.isPath());
    EXPECT_FALSE(line.isDvd());
}

TEST_F(ConsoleCommandLine, HdFilesAreKnownByTheirEnd)
{
    for (const char* path : {"/a.mkv", "/a.MKV", "/a.hdmov", "/a.HdMov"})
        EXPECT_TRUE(isHdPath(path)) << path;
    for (const char* path : {"/a.avi", "/amkv", "/a.mkv.avi", ""})
        EXPECT_FALSE(isHdPath(path)) << path;
}

TEST_F(ConsoleCommandLine, AFileIsOpenedMeasuredAndPlayed)
{
    startWith(alias(0));
    EXPECT_THAT(commands(),
                ElementsAre("Open A Type MPEGVideo alias A parent 0 style child", "Pause A", "Where A destination",
                            "set A time format frames", "status A length", "set A time format ms", "status A length",
                            "put A window at 0 0 640 480", "setaudio A Volume to 500", "Play A ",
                            "setaudio A Volume to 500", "Where A destination", "put A window at 0 0 781 398"));
}

TEST_F(ConsoleCommandLine, TheWindowAndTheConsoleShowTheFile)
{
    startWith(alias(0));
    ASSERT_EQ(VideoWindows.size(), 1U);
    const frmChild& window = *VideoWindows[0];
    EXPECT_EQ(rectOf(window), (Rect{400, 400, 11820, 6375}));
    EXPECT_TRUE(window.visible());
    EXPECT_EQ(window.caption(), "§/films/a.avi");
    EXPECT_EQ(window.Duration, "0:01:00");
    EXPECT_EQ(CurrentAlias, alias(0));
    EXPECT_EQ(console().lblDuration.caption(), "0:01:00");
    EXPECT_EQ(console().lblSize.caption(), "100 %");
    EXPECT_EQ(console().SeekSlider.maximum(), 60000);
    EXPECT_THAT(console().List1.entries(), ElementsAre("a.avi"));
    EXPECT_THAT(console().List2.entries(), ElementsAre("a.avi"));
    EXPECT_TRUE(console().Timer1.enabled());
    EXPECT_TRUE(console().Timer2.enabled());
    EXPECT_TRUE(Playing);
    EXPECT_TRUE(MediaStarted);
    EXPECT_EQ(NextSlot, 1);
    EXPECT_FALSE(Loaded<class frmStart>());
    EXPECT_EQ(screen().MousePointer(), pointer::kDefault);
}

TEST_F(ConsoleCommandLine, AFileThatCantBePlayedIsSaidAndItsWindowStays)
{
    breakFilm(0);
    startWith(alias(0));
    ASSERT_EQ(world.backend.boxes.size(), 1U);
    EXPECT_EQ(world.backend.boxes[0].text, "Media File can't be played!");
    EXPECT_EQ(world.backend.boxes[0].style, BoxStyle::Critical);
    EXPECT_EQ(world.backend.boxes[0].title, AppTitle);
    ASSERT_EQ(VideoWindows.size(), 1U);
    EXPECT_EQ(VideoWindows[0]->tag(), "2");
    EXPECT_TRUE(VideoWindows[0]->visible());
    EXPECT_FALSE(VideoWindows[0]->picVideo.visible()) << "\"Video not Available\" is seen";
    EXPECT_EQ(rectOf(*VideoWindows[0]), (Rect{400, 400, 11820, 6375}));
    EXPECT_THAT(commands(), ElementsAre("Open A Type MPEGVideo alias A parent 0 style child", "Pause A"));
    EXPECT_THAT(console().List2.entries(), IsEmpty());
    EXPECT_FALSE(Playing);
    EXPECT_TRUE(console().Timer1.enabled() && console().Timer2.enabled()) << "it can be filled to the screen, and back";
    EXPECT_EQ(NextSlot, 1);
    EXPECT_EQ(screen().MousePointer(), pointer::kDefault);
}

TEST_F(ConsoleCommandLine, AWindowThatFailedTakesNoOtherEntryAway)
{
    breakFilm(0);
    startWith(alias(0));
    console().List2.AddItem("a.avi");
    unload(*VideoWindows[0]);
    EXPECT_THAT(console().List2.entries(), ElementsAre("a.avi"));
}

TEST_F(ConsoleCommandLine, AnErrorInAMediumIsNoErrorOfTheStart)
{
    world.mci.otherwise = [](const std::string& command, std::string& answer) {
        if (command.ends_with(" length"))
            answer = "99999999999";
        return 0;
    };
    startWith(alias(0));
    EXPECT_EQ(screen().MousePointer(), pointer::kDefault);
    EXPECT_FALSE(Loaded<class frmStart>());
    EXPECT_TRUE(console().visible());
}

TEST_F(ConsoleCommandLine, ADiscTurnsTheTimersOn)
{
    startWith("DVD");
    EXPECT_TRUE(console().Timer1.enabled());
    EXPECT_TRUE(console().Timer2.enabled());
    EXPECT_THAT(world.mci.sent(), IsEmpty());
    EXPECT_THAT(VideoWindows, IsEmpty());
}

TEST_F(ConsoleCommandLine, SeveralFilesAreOpenedAsAGroup)
{
    world.settings.values["sys/slide"] = "0";
    setCommandLine({"", {film(0), film(1), film(0)}});
    frmStart().start();
    EXPECT_EQ(liveCount(), 2);
    EXPECT_EQ(rectOf(*VideoWindows[1]), (Rect{14400, 0, 14400, 8100}));
    EXPECT_EQ(activeForm(), &console());
}

} // namespace tandrel::test
