// The data files through which starts and processes meet, and the settings' names.

#include "fake_services.h"

#include "persist/data_files.h"
#include "persist/settings.h"

#include <gmock/gmock.h>

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Optional;
using ::testing::Pair;
using ::testing::UnorderedElementsAre;

namespace
{

class PersistDataFiles : public ::testing::Test
{
protected:
    std::vector<std::string>& file(const std::string& name) { return world.files.content["/data/" + name]; }
    bool isThere(const std::string& name) const { return world.files.content.contains("/data/" + name); }
    World world;
};

} // namespace

TEST_F(PersistDataFiles, TheListGrowsLineByLineUpToItsLimit)
{
    EXPECT_FALSE(handover::exists());
    EXPECT_TRUE(handover::add({"\"/a\""}, 2));
    EXPECT_TRUE(handover::exists());
    EXPECT_TRUE(handover::add({"\"/b\""}, 2));
    EXPECT_TRUE(handover::add({"\"/c\""}, 2));
    EXPECT_THAT(file("list.dat"), ElementsAre("\"/a\"", "\"/b\""));
    EXPECT_THAT(handover::lines(), Optional(ElementsAre("\"/a\"", "\"/b\"")));
    EXPECT_TRUE(handover::remove());
    EXPECT_FALSE(isThere("list.dat"));
    EXPECT_THAT(handover::lines(), Optional(IsEmpty()));
}

TEST_F(PersistDataFiles, WhatWasTakenOfTheListGoesAndTheRestStays)
{
    file("list.dat") = {"a", "b", "c"};
    EXPECT_TRUE(handover::removeFirst(2));
    EXPECT_THAT(file("list.dat"), ElementsAre("c"));
    EXPECT_TRUE(handover::removeFirst(1));
    EXPECT_FALSE(isThere("list.dat"));
    EXPECT_TRUE(handover::removeFirst(1)) << "it is gone";
}

TEST_F(PersistDataFiles, AListThatCantBeReadIsLeftAlone)
{
    file("list.dat") = {"a"};
    world.files.readable = false;
    EXPECT_EQ(handover::lines(), std::nullopt);
    EXPECT_FALSE(handover::add({"b"}, 11));
    world.files.readable = true;
    EXPECT_THAT(file("list.dat"), ElementsAre("a"));
}

TEST_F(PersistDataFiles, AListOfTenThousandLinesTakesNoMoreAndLosesNone)
{
    file("list.dat").assign(10000, "x");
    handover::add({"\"/a\""}, 11);
    EXPECT_EQ(file("list.dat").size(), 10000U);
}

TEST_F(PersistDataFiles, AnEmptyListTakesItsFirstLine)
{
    file("list.dat") = {};
    handover::add({"\"/a\""}, 11);
    EXPECT_THAT(file("list.dat"), ElementsAre("\"/a\""));
}

TEST_F(PersistDataFiles, TheTypesHandedOverEndWithTheQuote)
{
    EXPECT_TRUE(handover::takes("\"/a.AVI\""));
    EXPECT_TRUE(handover::takes("\"/a.webm\""));
    EXPECT_FALSE(handover::takes("/a.avi"));
    EXPECT_FALSE(handover::takes("\"/a.hdmov\""));
    EXPECT_FALSE(handover::takes("\"/a.avi\" "));
    EXPECT_FALSE(handover::takes(""));
}

TEST_F(PersistDataFiles, TheMarkIsTheHandleBetweenBlanks)
{
    presence::write(4294967295U);
    EXPECT_THAT(file("pres.dat"), ElementsAre(" 4294967295 "));
    presence::removeIfOwn(4294967294U);
    EXPECT_TRUE(presence::exists());
    presence::removeIfOwn(4294967295U);
    EXPECT_FALSE(presence::exists());
}

TEST_F(PersistDataFiles, ABrokenMarkIsAMarkOfNoOne)
{
    for (const std::vector<std::string>& content : {std::vector<std::string>{}, {"x"}, {std::string("\x00", 1)}}) {
        file("pres.dat") = content;
        presence::removeIfOwn(7);
        EXPECT_TRUE(presence::exists());
    }
}

TEST_F(PersistDataFiles, AMissingAnswerIsCreatedAndReadsEmpty)
{
    EXPECT_EQ(primary::read(), "");
    EXPECT_THAT(file("ext.dat"), ElementsAre("0"));
    EXPECT_EQ(primary::read(), "0");
    primary::write(primary::kAccepted);
    EXPECT_EQ(primary::read(), "2");
}

TEST_F(PersistDataFiles, AnAnswerIsReadUpToACommaWithoutBlanksAndQuotes)
{
    for (const char* line : {"1", " 1 ", "\"1\"", "1,2", " \"1\" ,x"}) {
        file("ext.dat") = {line, "2"};
        EXPECT_EQ(primary::read(), "1") << line;
    }
    file("ext.dat") = {};
    EXPECT_EQ(primary::read(), "");
}

TEST_F(PersistDataFiles, AnAnswerOrAMarkThatCantBeReadIsEmptyAndStays)
{
    file("ext.dat") = {"2"};
    file("pres.dat") = {" 7 "};
    world.files.readable = false;
    EXPECT_EQ(primary::read(), "");
    presence::removeIfOwn(7);
    EXPECT_TRUE(presence::exists());
    EXPECT_THAT(file("ext.dat"), ElementsAre("2"));
    EXPECT_THAT(world.files.written, IsEmpty());
}

TEST_F(PersistDataFiles, AFolderThatCantBeWrittenChangesNothing)
{
    world.files.writable = false;
    EXPECT_FALSE(handover::add({"\"/a\""}, 11));
    presence::write(7);
    EXPECT_EQ(primary::read(), "");
    primary::write("2");
    EXPECT_THAT(world.files.content, IsEmpty());
    EXPECT_FALSE(handover::remove());
}

TEST_F(PersistDataFiles, SettingsHaveTheirSectionsAndKeys)
{
    for (const SettingKey key : {settings::kSlide, settings::kTips, settings::kTop, settings::kLeft,
                                 settings::kRanBefore, settings::kLanguage, settings::kRefused})
        saveSetting(key, "x");
    EXPECT_THAT(world.settings.values,
                UnorderedElementsAre(Pair("sys/slide", "x"), Pair("sys/tips", "x"), Pair("sys/top", "x"),
                                     Pair("sys/left", "x"), Pair("sys/vistaos", "x"), Pair("sys/langos", "x"),
                                     Pair("day/run", "x")));
    EXPECT_EQ(getSetting(settings::kTop), "x");
}

} // namespace tandrel::test
