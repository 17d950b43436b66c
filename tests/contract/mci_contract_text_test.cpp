// The text of commands: what is read from it, and the numbers for what can't be.
#include "contract/contract_bench.h"
#include "support/test_media.h"

#include <array>

namespace tandrel
{

TEST_P(MciContract, VerbsAndKeywordsIgnoreLetterCase)
{
    ASSERT_EQ(open("short.mp4"), 0);
    EXPECT_EQ(ask("STATUS A LENGTH"), "2000");
    EXPECT_EQ(ask("sEt A tImE fOrMaT FRAMES"), "");
    EXPECT_EQ(ask("Status A Length"), "60");
}

TEST_P(MciContract, AliasesCompareExactlyAndWithoutQuotes)
{
    ASSERT_EQ(open("short.mp4", "\"an alias\""), 0);
    EXPECT_EQ(send("Pause \"an alias\""), 0);
    EXPECT_EQ(send("Pause \"An alias\""), 263);
    ASSERT_EQ(open("short.mp4", "plain"), 0);
    EXPECT_EQ(send("Pause \"plain\""), 0);
    EXPECT_EQ(send("Pause Plain"), 263);
}

TEST_P(MciContract, BlanksBehindAndBetweenAreFine)
{
    ASSERT_EQ(open("short.mp4"), 0);
    EXPECT_EQ(send("Play \"A\" "), 0);
    EXPECT_EQ(send("Play \"A\""), 0);
    EXPECT_EQ(send("set   A  time   format ms   "), 0);
    EXPECT_EQ(send("put A window at 0  0   10 10 "), 0);
}

struct TextRow {
    const char* command;
    int result;
};

TEST_P(MciContract, WhatIsWrongWithATextHasItsNumber)
{
    constexpr TextRow kRows[]{
        {"", 267},
        {" ", 261},
        {" Play A", 261},
        {"Jump A", 261},
        {"Play", 292},
        {"Play ", 292},
        {"Open", 292},
        {"Play \"\"", 292},
        {"Play \"A", 294},
        {"Play \"A\"x", 305},
        {"Open \"A\"alias B", 305},
        {"Play A backwards", 261},
        {"Play A from", 270},
        {"Play A from here", 270},
        {"Play A from 1x", 270},
        {"seek A", 273},
        {"seek A 5", 261},
        {"seek A to", 270},
        {"seek A to soon", 270},
        {"seek A to 1e3", 270},
        {"seek A to 1.2.3", 270},
        {"seek A to -", 270},
        {"status A", 261},
        {"status A wait", 261},
        {"status A colour", 261},
        {"step A sideways", 261},
        {"set A", 273},
        {"set A time", 273},
        {"set A time zone", 261},
        {"set A time format", 273},
        {"set A time format weeks", 261},
        {"set A door open", 274},
        {"setaudio A", 273},
        {"setaudio A volume", 273},
        {"setaudio A volume 5", 261},
        {"setaudio A Volume to", 270},
        {"setaudio A Volume to loud", 270},
        {"setaudio A Volume to 1.5", 270},
        {"where A", 261},
        {"where A am I", 261},
        {"put A", 273},
        {"put A window", 273},
        {"put A window at", 270},
        {"put A window at 1 2 3", 270},
        {"put A window at 1 2 3 wide", 270},
        {"put A window at 1 2 3 4 5", 261},
        {"close A now", 261},
    };
    ASSERT_EQ(open("short.mp4"), 0);
    for (const TextRow& row : kRows)
        EXPECT_EQ(send(row.command), row.result) << '[' << row.command << ']';
    EXPECT_EQ(ask("status A mode"), "stopped");
}

TEST_P(MciContract, WhatIsWrongWithAnOpenHasItsNumber)
{
    const std::string file = "Open \"" + testMedia("short.mp4") + "\" ";
    EXPECT_EQ(send(file + "Type"), 273);
    EXPECT_EQ(send(file + "Type Radio alias A"), 261);
    EXPECT_EQ(send(file + "alias"), 273);
    EXPECT_EQ(send(file + "alias A parent"), 270);
    EXPECT_EQ(send(file + "alias A parent style child"), 270);
    EXPECT_EQ(send(file + "alias A parent 1.5 style child"), 270);
    EXPECT_EQ(send(file + "alias A parent 0 style child"), 346);
    EXPECT_EQ(send(file + "alias A parent -7 style child"), 346);
    EXPECT_EQ(send(file + "alias A parent 99999999999 style child"), 346);
    EXPECT_EQ(send(file + "alias A style grown"), 261);
    EXPECT_EQ(send(file + "alias A twice"), 261);
    EXPECT_EQ(send("Pause A"), 263);
}

TEST_P(MciContract, FractionsAreRoundedToTheNearestTiesToEven)
{
    ASSERT_EQ(open("h264_30.mp4"), 0);
    constexpr std::array<std::pair<const char*, const char*>, 5> kRows{
        {{"1000.4", "1000"}, {"1000.5", "1000"}, {"1001.5", "1002"}, {".6", "1"}, {"2000.9999", "2001"}}};
    for (const auto& [told, understood] : kRows) {
        EXPECT_EQ(send(std::string("seek A to ") + told), 0);
        EXPECT_EQ(ask("status A position"), understood) << told;
        EXPECT_EQ(send(std::string("play A from ") + told), 0);
        EXPECT_EQ(ask("status A position"), understood) << told;
    }
    EXPECT_EQ(send("put A window at 0 0 160.25 120.75"), 0);
}

TEST_P(MciContract, AnAnswerIsCutToItsBuffer)
{
    ASSERT_EQ(open("h264_30.mp4"), 0);
    std::array<char, 4> small{'x', 'x', 'x', 'x'};
    EXPECT_EQ(mci().send("status A length", small), 0);
    EXPECT_STREQ(small.data(), "100");
    std::array<char, 1> tiny{'x'};
    EXPECT_EQ(mci().send("status A length", tiny), 0);
    EXPECT_EQ(tiny[0], '\0');
    EXPECT_EQ(mci().send("status A length"), 0);
    EXPECT_EQ(mci().send("seek A to 500"), 0);
    EXPECT_EQ(ask("status A position"), "500");
}

} // namespace tandrel
