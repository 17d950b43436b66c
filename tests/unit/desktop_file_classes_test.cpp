// What a start writes to the registry of file classes: which values, in which order, and when nothing at all.

#include "player_bench.h"

#include "console/command_line.h"
#include "desktop/file_classes.h"
#include "toolkit/program.h"

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

namespace
{

constexpr const char* kAutoPlay = "MACHINE SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Explorer\\AutoPlayHandlers\\";

const std::vector<std::string> kClasses{"AVI", "ASF", "MPG", "MPEG", "WMV",  "MP4",  "MKV",
                                        "MOV", "FLV", "3GP", "OGM",  "DivX", "Xvid", "WebM"};

/// The values of a start in a folder, the types' own last.
std::vector<std::string> allWrites(const std::string& folder)
{
    std::vector<std::string> all;
    for (const std::string& type : kClasses) {
        const std::string key = "CLASSES TandrelPlayer." + type;
        all.insert(all.end(), {key + "||Tandrel Player", key + "\\DefaultIcon||" + folder + "\\Tandrel_Player.exe,0",
                               key + "\\shell||Open", key + "\\shell\\Open||Tandrel Player",
                               key + "\\shell\\Open\\command||" + folder + "\\Tandrel_Player.exe \"%L\""});
    }
    const std::string handler = std::string(kAutoPlay) + "Handlers\\TandrelPlayerDVDMovieOnArrival|";
    all.insert(
        all.end(),
        {"CLASSES TandrelPlayer._DVDMovie||Tandrel Player",
         "CLASSES TandrelPlayer._DVDMovie\\DefaultIcon||" + folder + "\\Tandrel_Player.exe,0",
         "CLASSES TandrelPlayer._DVDMovie\\shell||Play", "CLASSES TandrelPlayer._DVDMovie\\shell\\Play||Tandrel Player",
         "CLASSES TandrelPlayer._DVDMovie\\shell\\Play\\command||" + folder + "\\Tandrel_Player.exe DVD", handler + "|",
         handler + "Action|DVD Movie", handler + "DefaultIcon|" + folder + "\\Tandrel_Player.exe,0",
         handler + "InvokeProgID|TandrelPlayer._DVDMovie", handler + "InvokeVerb|Play",
         handler + "Provider|Tandrel Player",
         std::string(kAutoPlay) + "EventHandlers\\PlayDVDMovieOnArrival|TandrelPlayerDVDMovieOnArrival|"});
    for (const std::string& type : kClasses)
        all.push_back("CLASSES ." + type + "||TandrelPlayer." + type);
    return all;
}

std::vector<std::string> withoutTypes(std::vector<std::string> all)
{
    all.resize(all.size() - kClasses.size());
    return all;
}

class FileClasses : public Player
{
protected:
    void load() { frmMedia(); }
    void setExt(const std::string& line) { world.files.content["/data/ext.dat"] = {line}; }
    std::vector<std::string> ext() { return world.files.content["/data/ext.dat"]; }
    const std::vector<std::string>& written() { return world.registry.written; }
};

} // namespace

TEST_F(FileClasses, OneValueGoesToTheRegistryAsItStands)
{
    RegistrySetString(Registry::kMachine, "A\\b", "name", "\"%L\"");
    EXPECT_THAT(written(), ElementsAre("MACHINE A\\b|name|\"%L\""));
    EXPECT_THAT(world.registry.settledAt, IsEmpty());
}

TEST_F(FileClasses, AnAcceptedStartWritesEverythingInOrder)
{
    setExt("2");
    load();
    EXPECT_THAT(written(), ElementsAreArray(allWrites("/data")));
    EXPECT_THAT(world.registry.settledAt, ElementsAre(96U));
    EXPECT_THAT(world.backend.boxes, IsEmpty());
}

TEST_F(FileClasses, ADeclinedStartLeavesTheTypesAlone)
{
    load();
    EXPECT_THAT(written(), ElementsAreArray(withoutTypes(allWrites("/data"))));
    EXPECT_THAT(world.registry.settledAt, ElementsAre(82U));
}

TEST_F(FileClasses, TheAnswerOfThisStartDecides)
{
    struct Case {
        const char* kept;
        const char* refused;
        BoxAnswer answer;
        bool types;
    };
    for (const auto& [kept, refused, answer, types] :
         {Case{"0", "", BoxAnswer::Yes, true}, Case{"0", "", BoxAnswer::No, false}, Case{"", "", BoxAnswer::Yes, true},
          Case{"1", "202610", BoxAnswer::Yes, true}, Case{"1", "202610", BoxAnswer::No, false},
          Case{"1", "202611", BoxAnswer::Yes, false}, Case{"1", "999999", BoxAnswer::Yes, false},
          Case{"1", "", BoxAnswer::Yes, false}, Case{"2", "202610", BoxAnswer::No, true},
          Case{"7", "", BoxAnswer::Yes, false}}) {
        World fresh;
        fresh.settled();
        fresh.settings.values["day/run"] = refused;
        fresh.files.content["/data/ext.dat"] = {kept};
        fresh.backend.boxAnswer = answer;
        frmMedia();
        const auto all = allWrites("/data");
        EXPECT_EQ(fresh.registry.written, types ? all : withoutTypes(all)) << kept << " refused in " << refused;
    }
}

TEST_F(FileClasses, TheSecondRefusalIsTheLastInEveryLaterMonth)
{
    world.settings.values["day/run"] = "202610";
    world.backend.boxAnswer = BoxAnswer::No;
    load();
    EXPECT_EQ(world.backend.boxes.size(), 1U);
    EXPECT_EQ(world.settings.values["day/run"], "999999");
    for (const int month : {202611, 202612, 202701, 999912}) {
        World later;
        later.settled();
        later.clock.month = month;
        frmMedia();
        EXPECT_THAT(later.backend.boxes, IsEmpty()) << month;
    }
}

TEST_F(FileClasses, ARefusalIsAskedAboutAgainOnceTheMonthHasChanged)
{
    setExt("0");
    world.settings.values.erase("day/run");
    world.backend.boxAnswer = BoxAnswer::No;
    load();
    ASSERT_EQ(world.settings.values["day/run"], "202611");
    for (const auto& [month, asked] : {std::pair(202611, 0U), std::pair(202612, 1U), std::pair(202701, 1U)}) {
        World later;
        later.settled();
        later.settings.values["day/run"] = "202611";
        later.clock.month = month;
        later.backend.boxAnswer = BoxAnswer::Yes;
        frmMedia();
        EXPECT_EQ(later.backend.boxes.size(), asked) << month;
        EXPECT_THAT(later.files.content["/data/ext.dat"], ElementsAre(asked ? "2" : "1"));
    }
}

TEST_F(FileClasses, AStartWithAFileWritesNothing)
{
    for (const char* kept : {"0", "1", "2", ""})
        for (const CommandLine& given :
             {CommandLine{alias(0), {}}, CommandLine{"DVD", {}}, CommandLine{"", {film(0), film(1)}}}) {
            World fresh;
            fresh.settled();
            fresh.files.content["/data/ext.dat"] = {kept};
            fresh.backend.boxAnswer = BoxAnswer::Yes;
            setCommandLine(given);
            frmMedia();
            EXPECT_THAT(fresh.registry.written, IsEmpty()) << kept << " " << given.text;
            EXPECT_THAT(fresh.registry.settledAt, IsEmpty());
        }
}

TEST_F(FileClasses, AStartThatEndsInTheQuestionWritesNothing)
{
    setExt("0");
    world.backend.whileBoxIsUp = [] { endProgram(); };
    world.backend.boxAnswer = BoxAnswer::Cancel;
    load();
    EXPECT_THAT(written(), IsEmpty());
    EXPECT_THAT(ext(), ElementsAre("0"));
}

TEST_F(FileClasses, ItIsWrittenBehindTheQuestionAndTheSplash)
{
    setExt("2");
    int seen = -1;
    world.backend.whileModal["frmSplash"] = [&](Form&) { seen = static_cast<int>(written().size()); };
    load();
    EXPECT_EQ(seen, 0);
    EXPECT_EQ(written().size(), 96U);
}

} // namespace tandrel::test
