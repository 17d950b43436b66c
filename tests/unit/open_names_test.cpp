// What the arguments of tandrel-open mean, and which files go to a running player.

#include "temporary_folder.h"

#include "open_tool/file_names.h"
#include "open_tool/opening.h"
#include "platform/path_marks.h"

#include <gmock/gmock.h>

namespace tandrel::open_tool
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Optional;

TEST(OpenArguments, FilesAndOptions)
{
    EXPECT_TRUE(parseArguments({"--help"}).help);
    EXPECT_TRUE(parseArguments({"a.avi", "--version"}).version);
    EXPECT_THAT(parseArguments({"a.avi", "", "b.avi"}).files, ElementsAre("a.avi", "b.avi"));
    EXPECT_THAT(parseArguments({}).files, IsEmpty());
    EXPECT_EQ(parseArguments({"--fast"}).fault, "unknown option --fast");
    EXPECT_EQ(parseArguments({"-x.avi"}).fault, "unknown option -x.avi");
    EXPECT_THAT(parseArguments({"--", "-x.avi", "--help", "--"}).files, ElementsAre("-x.avi", "--help", "--"));
    EXPECT_FALSE(parseArguments({"--", "--help"}).help);
}

TEST(OpenArguments, TheWordAloneIsTheDisc)
{
    EXPECT_TRUE(parseArguments({"DVD"}).disc);
    EXPECT_THAT(parseArguments({"DVD"}).files, IsEmpty());
    EXPECT_FALSE(parseArguments({"DVD", "a.avi"}).disc);
    EXPECT_FALSE(parseArguments({"dvd"}).disc);
    EXPECT_FALSE(parseArguments({"--", "DVD"}).disc);
}

TEST(OpenNames, PathsAreMadeAbsolute)
{
    EXPECT_THAT(localPath("/a/b.avi", "/films"), Optional(std::string("/a/b.avi")));
    EXPECT_THAT(localPath("b.avi", "/films"), Optional(std::string("/films/b.avi")));
    EXPECT_THAT(localPath("././/b.avi", "/films/"), Optional(std::string("/films/b.avi")));
    EXPECT_THAT(localPath("../b.avi", "/films"), Optional(std::string("/films/../b.avi")));
    EXPECT_THAT(localPath("a:b%20c.avi", "/"), Optional(std::string("/a:b%20c.avi")));
    EXPECT_THAT(localPath("\xFF\n\".avi", "/f"), Optional(std::string("/f/\xFF\n\".avi")));
}

TEST(OpenNames, AddressesOfLocalFilesAreDecoded)
{
    for (const char* address : {"file:///f/a%20%c3%A4.avi", "file:/f/a%20%C3%A4.avi", "file://localhost/f/a ä.avi"})
        EXPECT_THAT(localPath(address, "/x"), Optional(std::string("/f/a ä.avi"))) << address;
    EXPECT_THAT(localPath("file:///100%.avi", "/"), Optional(std::string("/100%.avi")));
    EXPECT_THAT(localPath("file:///a%2", "/"), Optional(std::string("/a%2")));
    EXPECT_THAT(localPath("file:///a%FF%22", "/"), Optional(std::string("/a\xFF\"")));
}

TEST(OpenNames, OtherAddressesAreNone)
{
    for (const char* address : {"http://h/a.avi", "smb://h/a.avi", "file://elsewhere.invalid/a.avi", "file://",
                                "file:a.avi", "file:///a%00b.avi"})
        EXPECT_EQ(localPath(address, "/x"), std::nullopt) << address;
    EXPECT_EQ(localPath("a\xEF\x80\xA2.avi", "/x"), std::nullopt) << "it would come out as another name";
}

TEST(OpenSelection, WhatIsMissingIsTold)
{
    const test::TemporaryFolder folder;
    folder.write("a.avi", "x");
    folder.write("b \".mkv", "x");
    const Selection selection = selectionOf({"a.avi", "gone.avi", "b \".mkv", "http://h/c.avi"}, folder.path());
    EXPECT_THAT(selection.paths, ElementsAre(folder.path("a.avi"), markPath(folder.path("b \".mkv"))));
    EXPECT_THAT(selection.complaints,
                ElementsAre("http://h/c.avi: not a file that can be named to the player", "gone.avi: no such file"));
    EXPECT_FALSE(selection.disc);
}

TEST(OpenSelection, ADiscIsOneThatIsNamedAlone)
{
    const test::TemporaryFolder folder;
    folder.write("film.ISO", "x");
    std::filesystem::create_directories(folder.path("disc/VIDEO_TS"));
    folder.write("disc/VIDEO_TS/VIDEO_TS.IFO", "x");
    std::filesystem::create_directories(folder.path("plain"));
    for (const char* name : {"film.ISO", "disc", "disc/", "disc/VIDEO_TS", "disc/VIDEO_TS//"})
        EXPECT_TRUE(selectionOf({name}, folder.path()).disc) << name;
    EXPECT_FALSE(selectionOf({"plain"}, folder.path()).disc);
    EXPECT_FALSE(selectionOf({"film.ISO", "disc"}, folder.path()).disc);
}

TEST(OpenSelection, ARunningPlayerTakesTheFourteenTypes)
{
    Selection all;
    for (const char* type :
         {"avi", "MP4", "mpg", "asf", "wmv", "mpeg", "mov", "mkv", "flv", "3gp", "ogm", "divx", "xvid", "WebM"})
        all.paths.push_back(std::string("/f/a.") + type);
    EXPECT_EQ(onlyHandedOver(all).paths, all.paths);
    const Selection others = onlyHandedOver({{"/f/a.hdmov", "/f/a.txt", "/f/avi", "/f/b.avi"}, {"before"}, false});
    EXPECT_THAT(others.paths, ElementsAre("/f/b.avi"));
    EXPECT_THAT(others.complaints, ElementsAre("before", "/f/a.hdmov: a running player takes no files of this kind",
                                               "/f/a.txt: a running player takes no files of this kind",
                                               "/f/avi: a running player takes no files of this kind"));
}

} // namespace tandrel::open_tool
