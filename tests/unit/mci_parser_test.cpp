#include "platform/mci/command_parser.h"

#include <gtest/gtest.h>

namespace tandrel
{

TEST(MciParser, TakesAnOpenApart)
{
    const auto command =
        parseCommand("Open \"/films/a b.avi\" Type MPEGVideo alias \"/films/a b.avi\" parent 77 style child");
    EXPECT_EQ(command.headError, 0);
    EXPECT_EQ(command.clauseError, 0);
    EXPECT_EQ(command.verb, Verb::Open);
    EXPECT_EQ(command.device, "/films/a b.avi");
    ASSERT_TRUE(command[Clause::Type]);
    EXPECT_EQ(command[Clause::Type]->word, "MPEGVideo");
    ASSERT_TRUE(command[Clause::Alias]);
    EXPECT_EQ(command[Clause::Alias]->word, "/films/a b.avi");
    ASSERT_TRUE(command[Clause::Parent]);
    EXPECT_EQ(command[Clause::Parent]->numbers[0], 77);
    ASSERT_TRUE(command[Clause::Style]);
    EXPECT_EQ(command[Clause::Style]->word, "child");
    EXPECT_FALSE(command[Clause::From]);
}

TEST(MciParser, ClausesComeInAnyOrder)
{
    const auto command = parseCommand("open x parent 5 alias y");
    EXPECT_EQ(command.clauseError, 0);
    EXPECT_EQ(command[Clause::Alias]->word, "y");
    EXPECT_EQ(command[Clause::Parent]->numbers[0], 5);
    EXPECT_EQ(parseCommand("status A wait position").clauseError, 0);
    EXPECT_TRUE(parseCommand("status A wait position")[Clause::Position]);
    EXPECT_TRUE(parseCommand("status A position wait")[Clause::Wait]);
}

TEST(MciParser, AKeywordBelongsToItsVerb)
{
    EXPECT_EQ(parseCommand("play A to 5").clauseError, 261);
    EXPECT_EQ(parseCommand("seek A from 5").clauseError, 261);
    EXPECT_EQ(parseCommand("pause A position").clauseError, 261);
    EXPECT_EQ(parseCommand("close A wait").clauseError, 261);
}

TEST(MciParser, NumbersAreDecimalWithSign)
{
    EXPECT_EQ(parseCommand("seek A to +7")[Clause::To]->numbers[0], 7);
    EXPECT_EQ(parseCommand("seek A to -7")[Clause::To]->numbers[0], -7);
    EXPECT_EQ(parseCommand("seek A to 2.5")[Clause::To]->numbers[0], 2);
    EXPECT_EQ(parseCommand("seek A to 3.5")[Clause::To]->numbers[0], 4);
    EXPECT_EQ(parseCommand("seek A to -0.5")[Clause::To]->numbers[0], 0);
    for (const char* word : {"0x10", "1e9", "inf", "nan", "--1", "+-1", "1-", ".", "1,5", "\"\""})
        EXPECT_EQ(parseCommand("seek A to " + std::string(word)).clauseError, 270) << word;
}

TEST(MciParser, AHugeNumberIsJustVeryLarge)
{
    const std::string digits(400, '9');
    EXPECT_EQ(parseCommand("seek A to " + digits)[Clause::To]->numbers[0], 1e15);
    EXPECT_EQ(parseCommand("seek A to -" + digits)[Clause::To]->numbers[0], -1e15);
}

TEST(MciParser, ANameMayHoldAnyBytes)
{
    const std::string name = "/a\xff\xfe %n\t'-x";
    EXPECT_EQ(parseCommand("Pause \"" + name + "\"").device, name);
    const std::string longName(5000, 'n');
    EXPECT_EQ(parseCommand("Pause \"" + longName + "\" ").device, longName);
    EXPECT_EQ(parseCommand(std::string_view("Pause \"a\0b\"", 11)).device, std::string_view("a\0b", 3));
}

TEST(MciParser, SameWordKnowsNothingButAscii)
{
    EXPECT_TRUE(sameWord("FRAMES", "frames"));
    EXPECT_FALSE(sameWord("frames", "frame"));
    EXPECT_FALSE(sameWord("\xc4", "\xe4"));
    EXPECT_FALSE(sameWord("[", "{"));
}

} // namespace tandrel
