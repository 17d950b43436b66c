// The recent files: what an open writes, and what the list of them shows.

#include "fake_services.h"
#include "temporary_folder.h"

#include "persist/recent_files.h"
#include "persist/recent_listing.h"
#include "platform/path_marks.h"
#include "platform/xdg/file_finder.h"
#include "platform/xdg/files.h"

#include <gmock/gmock.h>

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

namespace
{

using Lines = std::vector<std::string>;

/// "/films/1.avi" to the number of `count`, beginning behind `from`.
Lines films(int count, int from = 0)
{
    Lines all;
    for (int number = from + 1; number <= from + count; ++number)
        all.push_back("/films/" + std::to_string(number) + ".avi");
    return all;
}

Lines joined(Lines front, const Lines& back)
{
    front.insert(front.end(), back.begin(), back.end());
    return front;
}

/// What the dialog of recent files shows.
Lines listed()
{
    recent::Listing listing;
    listing.read();
    return listing.files();
}

class PersistRecentFiles : public ::testing::Test
{
protected:
    Lines& list() { return world.files.content["/data/last.dat"]; }
    bool listIsThere() const { return world.files.content.contains("/data/last.dat"); }
    void makeFilms(const Lines& paths)
    {
        for (const std::string& path : paths)
            world.files.content[path] = {};
    }
    World world;
};

/// The same with real files.
class PersistRealRecentFiles : public ::testing::Test
{
protected:
    PersistRealRecentFiles()
    {
        Services all = services();
        all.files = &files;
        all.finder = &finder;
        installServices(all);
    }
    World world;
    TemporaryFolder folder;
    XdgFiles files{folder.path()};
    FakeFinder finder{files};
};

} // namespace

// Writing.

TEST_F(PersistRecentFiles, WithoutAListAnOpenWritesExactlyItsPaths)
{
    recent::update({"/a", "/b"});
    EXPECT_THAT(list(), ElementsAre("/a", "/b"));
}

TEST_F(PersistRecentFiles, AnEmptyListIsLikeNone)
{
    list() = {};
    recent::update({"/a"});
    EXPECT_THAT(list(), ElementsAre("/a"));
}

TEST_F(PersistRecentFiles, WithoutEntriesNothingIsWritten)
{
    recent::update({});
    EXPECT_FALSE(listIsThere());
    list() = films(2);
    recent::update({});
    EXPECT_EQ(list(), films(2));
    EXPECT_THAT(world.files.written, IsEmpty());
}

TEST_F(PersistRecentFiles, NewEntriesComeFirstAndAnEmptyLineLast)
{
    list() = {"/old 1", "/old 2"};
    recent::update({"/new 1", "/new 2"});
    EXPECT_THAT(list(), ElementsAre("/new 1", "/new 2", "/old 1", "/old 2", ""));
}

TEST_F(PersistRecentFiles, EachUpdateAddsAnEmptyLineAtTheTail)
{
    recent::update({"/a"});
    recent::update({"/b"});
    EXPECT_THAT(list(), ElementsAre("/b", "/a", ""));
    recent::update({"/c"});
    EXPECT_THAT(list(), ElementsAre("/c", "/b", "/a", "", ""));
    recent::update({"/d"});
    EXPECT_THAT(list(), ElementsAre("/d", "/c", "/b", "/a", "", "", ""));
}

TEST_F(PersistRecentFiles, TheSameFileAgainAndAgainGrowsByEmptyLinesUpToThirteenLines)
{
    for (int times = 0; times < 30; ++times)
        recent::update({"/a"});
    Lines wanted(13);
    wanted.front() = "/a";
    EXPECT_EQ(list(), wanted);
}

TEST_F(PersistRecentFiles, AListOfOneEmptyLineIsNotBlank)
{
    list() = {""};
    recent::update({"/a"});
    EXPECT_THAT(list(), ElementsAre("/a", "", ""));
}

TEST_F(PersistRecentFiles, TwelveNewOnesLeaveTheNewestOldOne)
{
    list() = films(12);
    recent::update(films(12, 100));
    EXPECT_EQ(list(), joined(films(12, 100), {"/films/1.avi"}));
}

TEST_F(PersistRecentFiles, BehindTwelveNewOnesTheFirstOldOneThatIsNoneOfThemStays)
{
    list() = films(13);
    recent::update(films(12));
    EXPECT_EQ(list(), films(13));
    list() = films(12);
    recent::update(films(12));
    EXPECT_EQ(list(), joined(films(12), {""})) << "of twelve equal ones the empty line behind them";
}

TEST_F(PersistRecentFiles, MoreNewOnesThanThatAreAllWrittenAndNoOldOne)
{
    list() = films(12);
    recent::update(films(14, 100));
    EXPECT_EQ(list(), films(14, 100));
    recent::update(films(13, 200));
    EXPECT_EQ(list(), films(13, 200));
}

TEST_F(PersistRecentFiles, AFullListDropsItsOldestLine)
{
    list() = films(13);
    recent::update({"/new"});
    EXPECT_EQ(list(), joined({"/new"}, films(12)));
}

TEST_F(PersistRecentFiles, TheEmptyLineIsDroppedWhereTheLimitComesFirst)
{
    list() = films(11);
    recent::update({"/new"});
    EXPECT_EQ(list(), joined(joined({"/new"}, films(11)), {""})) << "it is the thirteenth";
    list() = films(12);
    recent::update({"/new"});
    EXPECT_EQ(list(), joined({"/new"}, films(12)));
}

TEST_F(PersistRecentFiles, AnOldLineThatEqualsANewOneIsNotRepeated)
{
    list() = {"/b", "/a", "/c", "/a"};
    recent::update({"/a"});
    EXPECT_THAT(list(), ElementsAre("/a", "/b", "/c", ""));
}

TEST_F(PersistRecentFiles, OnlyAnExactlyEqualLineIsTheSame)
{
    list() = {"/A", "/a ", " /a", "\"/a\"", "/a"};
    recent::update({"/a"});
    EXPECT_THAT(list(), ElementsAre("/a", "/A", "/a ", " /a", "\"/a\"", ""));
}

TEST_F(PersistRecentFiles, OldLinesAreNotComparedWithEachOther)
{
    list() = {"/a", "/a"};
    recent::update({"/b", "/b"});
    EXPECT_THAT(list(), ElementsAre("/b", "/b", "/a", "/a", ""));
}

TEST_F(PersistRecentFiles, ALineWithTheJoiningMarkComesApart)
{
    list() = {"/a|/b"};
    recent::update({"/b"});
    EXPECT_THAT(list(), ElementsAre("/b", "/a", ""));
}

TEST_F(PersistRecentFiles, APathWithMarksInItsNameStaysOneLine)
{
    const std::string path = markPath("/films/a|b\n.avi");
    recent::update({path});
    recent::update({"/new"});
    makeFilms({path});
    EXPECT_THAT(list(), ElementsAre("/new", path, ""));
    EXPECT_THAT(listed(), ElementsAre(path));
}

TEST_F(PersistRecentFiles, AListThatCantBeReadIsLeftAlone)
{
    list() = films(3);
    world.files.readable = false;
    recent::update({"/new"});
    EXPECT_EQ(list(), films(3));
    EXPECT_THAT(world.files.written, IsEmpty());
    EXPECT_THAT(listed(), IsEmpty());
}

TEST_F(PersistRecentFiles, AFolderThatCantBeWrittenChangesNothing)
{
    list() = films(3);
    world.files.writable = false;
    recent::update({"/new"});
    EXPECT_EQ(list(), films(3));
    EXPECT_FALSE(recent::remove());
    EXPECT_TRUE(listIsThere());
}

// Reading.

TEST_F(PersistRecentFiles, WithoutAListThereAreNoFiles) { EXPECT_THAT(listed(), IsEmpty()); }

TEST_F(PersistRecentFiles, FilesComeInTheOrderOfTheList)
{
    makeFilms({"/b", "/a"});
    list() = {"/b", "/a"};
    EXPECT_THAT(listed(), ElementsAre("/b", "/a"));
}

TEST_F(PersistRecentFiles, BlankLinesAreSkipped)
{
    makeFilms({"/a", "/b", "  ", ""});
    list() = {"", "/a", "  ", "/b", "", ""};
    EXPECT_THAT(listed(), ElementsAre("/a", "/b"));
}

TEST_F(PersistRecentFiles, TheThirteenthLineIsNotShown)
{
    makeFilms(films(13));
    list() = films(13);
    EXPECT_EQ(listed(), films(12));
}

TEST_F(PersistRecentFiles, TheThirteenthTakesThePlaceOfOneThatIsNotShown)
{
    makeFilms(films(13));
    list() = films(13);
    world.files.content.erase("/films/5.avi");
    EXPECT_EQ(listed(), joined(films(4), films(8, 5)));
}

TEST_F(PersistRecentFiles, AMovedFileLeavesTheListButNotItsLine)
{
    makeFilms({"/a", "/b"});
    list() = {"/a", "/b"};
    world.files.content.erase("/a");
    EXPECT_THAT(listed(), ElementsAre("/b"));
    recent::update({"/c"});
    EXPECT_THAT(list(), ElementsAre("/c", "/a", "/b", ""));
    makeFilms({"/a"});
    EXPECT_THAT(listed(), ElementsAre("/a", "/b")) << "it came back";
}

TEST_F(PersistRecentFiles, ReadingChangesNothing)
{
    makeFilms({"/a"});
    list() = {"/a", "/gone", ""};
    listed();
    EXPECT_THAT(list(), ElementsAre("/a", "/gone", ""));
    EXPECT_THAT(world.files.written, IsEmpty());
}

// Removing.

TEST_F(PersistRecentFiles, ARemovedListIsGoneAndTheNextOneBeginsAfresh)
{
    makeFilms({"/a"});
    recent::update({"/a"});
    EXPECT_TRUE(recent::remove());
    EXPECT_FALSE(listIsThere());
    EXPECT_THAT(listed(), IsEmpty());
    EXPECT_TRUE(recent::remove()) << "it is gone";
    recent::update({"/b"});
    EXPECT_THAT(list(), ElementsAre("/b"));
}

// Real files.

TEST_F(PersistRealRecentFiles, TheListIsTextWithCrLf)
{
    recent::update({"/a"});
    recent::update({"/\xC3\xA9"});
    EXPECT_EQ(folder.content("last.dat"), "/\xC3\xA9\r\n/a\r\n\r\n");
    recent::update({"/b"});
    EXPECT_EQ(folder.content("last.dat"), "/b\r\n/\xC3\xA9\r\n/a\r\n\r\n\r\n");
}

TEST_F(PersistRealRecentFiles, AMegabyteOfGarbageHoldsNoFilesAndDropsOff)
{
    std::string garbage;
    std::uint32_t state = 2463534242U;
    while (garbage.size() < 1U << 20) {
        state ^= state << 13U;
        state ^= state >> 17U;
        state ^= state << 5U;
        garbage += static_cast<char>(state);
    }
    folder.write("last.dat", garbage);
    EXPECT_THAT(listed(), IsEmpty());
    folder.write("new.avi", "");
    for (int times = 0; times < 13; ++times) {
        recent::update({folder.path("new.avi")});
        EXPECT_THAT(*files.readLines(folder.path("last.dat")), SizeIs(13));
        EXPECT_THAT(listed(), ElementsAre(folder.path("new.avi")));
    }
    for (int number = 0; number < 12; ++number)
        recent::update({folder.path(std::to_string(number))});
    recent::update({folder.path("new.avi")});
    EXPECT_LT(folder.content("last.dat").size(), 2000U) << "what was pushed out is gone";
}

TEST_F(PersistRealRecentFiles, ALineOfAMegabyteIsNoFile)
{
    const std::string line(1U << 20, 'x');
    folder.write("last.dat", line);
    EXPECT_THAT(listed(), IsEmpty());
    recent::update({folder.path("a")});
    EXPECT_EQ(folder.content("last.dat"), folder.path("a") + "\r\n" + line + "\r\n\r\n");
}

TEST_F(PersistRealRecentFiles, ANameThatANulCutsShortIsNotFound)
{
    folder.write("a.avi", "");
    const std::string cut = folder.path("a.avi") + std::string("\0garbage", 8);
    folder.write("last.dat", cut + "\r\n" + std::string(4096, '\0'));
    EXPECT_THAT(listed(), IsEmpty());
    folder.write("last.dat", folder.path("a.avi") + "\r\n" + cut);
    EXPECT_THAT(listed(), ElementsAre(folder.path("a.avi"))) << "the name alone is";
}

TEST_F(PersistRealRecentFiles, AListThatIsNoneOfOursIsLeftAlone)
{
    const std::string tooLong((4U << 20) + 1, '\n');
    folder.write("last.dat", tooLong);
    recent::update({"/a"});
    EXPECT_EQ(folder.content("last.dat"), tooLong);
    EXPECT_THAT(listed(), IsEmpty());
}

// Files that answer late.

TEST_F(PersistRealRecentFiles, AFileThatAnswersLateTurnsUpAsSoonAsItDoes)
{
    std::mutex guard;
    std::condition_variable change;
    bool answers = false;
    int asked = 0;
    ThreadedFinder threads([&](const std::string& path) {
        std::unique_lock lock(guard);
        asked += path == "/late" ? 1 : 0;
        change.wait(lock, [&] { return path != "/late" || answers; });
        return path != "/gone";
    });
    Services all = services();
    all.finder = &threads;
    installServices(all);
    folder.write("last.dat", "/a\r\n/late\r\n/gone\r\n/b\r\n");
    recent::Listing listing;
    listing.read();
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    // On a machine that is busy elsewhere these two may be late as well.
    while (listing.files().size() < 2 && std::chrono::steady_clock::now() < end) {
        threads.wait(10);
        listing.lookAgain();
    }
    ASSERT_THAT(listing.files(), ElementsAre("/a", "/b"));
    for (int tick = 0; tick < 5; ++tick)
        EXPECT_THAT(listing.lookAgain(), IsEmpty());
    {
        const std::scoped_lock lock(guard);
        answers = true;
        change.notify_all();
    }
    threads.wait(5000);
    const auto newcomers = listing.lookAgain();
    ASSERT_THAT(newcomers, SizeIs(1));
    EXPECT_EQ(newcomers[0].index, 1U);
    EXPECT_EQ(newcomers[0].path, "/late");
    EXPECT_THAT(listing.files(), ElementsAre("/a", "/late", "/b"));
    EXPECT_THAT(listing.lookAgain(), IsEmpty());
    const std::scoped_lock lock(guard);
    EXPECT_EQ(asked, 1);
}

} // namespace tandrel::test
