// What the operations read from answers: sizes, positions, lengths.

#include "allocations.h"
#include "media_bench.h"

#include "media/mod_media.h"

#include <gmock/gmock.h>

namespace tandrel::test
{

using ::testing::ElementsAre;

namespace
{

class MediaAnswers : public ::testing::Test
{
protected:
    MediaAnswers() { CurrentAlias = kAlias; }
    void whereIs(const Text& answer) { world.mci.answer("Where " + kAlias + " destination", answer); }
    World world;
};

/// Answers every command with the same text and allocates nothing.
class SilentMci : public Mci
{
public:
    int send(std::string_view, std::span<char> answer) override
    {
        ++commands;
        if (answer.size() > 4)
            std::copy_n("1500", 5, answer.begin());
        return 0;
    }
    bool idle() override { return false; }
    int commands = 0;
};

} // namespace

TEST_F(MediaAnswers, TheSizeIsInTheThirdAndFourthField)
{
    whereIs("7 8 640 480");
    MediaGetSize();
    EXPECT_THAT(world.mci.sent(), ElementsAre("Where " + kAlias + " destination"));
    EXPECT_EQ(NativeWidth, 640);
    EXPECT_EQ(NativeHeight, 480);
}

TEST_F(MediaAnswers, QuestionsHaveRoomFor128CharactersAndCommandsForNone)
{
    MediaGetPosition();
    EXPECT_THAT(world.mci.sent(), ElementsAre("set " + kAlias + " time format ms", "status " + kAlias + " position",
                                              "status " + kAlias + " length"));
    EXPECT_THAT(world.mci.buffers(), ElementsAre(0U, 128U, 128U));
}

TEST_F(MediaAnswers, TheSizeOfAGivenVideo)
{
    world.mci.answer("Where " + kOther + " destination", "0 0 320 200");
    MediaGetSizeAlias(kOther);
    EXPECT_THAT(world.mci.sent(), ElementsAre("Where " + kOther + " destination"));
    EXPECT_EQ(NativeWidth, 320);
    EXPECT_EQ(NativeHeight, 200);
}

TEST_F(MediaAnswers, SizesAreRoundedTiesToEven)
{
    whereIs("0 0 640.5 481.5");
    MediaGetSize();
    EXPECT_EQ(NativeWidth, 640);
    EXPECT_EQ(NativeHeight, 482);
}

TEST_F(MediaAnswers, FurtherFieldsOfASizeAreLeftAside)
{
    whereIs("0 0 640 480 x");
    MediaGetSize();
    EXPECT_EQ(NativeWidth, 640);
    EXPECT_EQ(NativeHeight, 480);
}

TEST_F(MediaAnswers, ASizeThatCantBeReadLeavesBothValues)
{
    for (const char* answer :
         {"", "0 0 640", "0 0 640 ", "0 0 wide high", "0 0 640 high", "0 0 wide 480", "0 0  640 480", "0,0,640,480",
          "0 0 640 nan", "0 0 inf 480", "0 0 99999999999 480", "0 0 640 123456789012345678901234567890"}) {
        NativeWidth = 11;
        NativeHeight = 12;
        whereIs(answer);
        EXPECT_NO_THROW(MediaGetSize()) << answer;
        EXPECT_EQ(NativeWidth, 11) << answer;
        EXPECT_EQ(NativeHeight, 12) << answer;
    }
}

TEST_F(MediaAnswers, AnAnswerThatFillsTheBufferIsCutAndHarmless)
{
    NativeWidth = 11;
    whereIs(std::string(500, '9'));
    EXPECT_NO_THROW(MediaGetSize());
    EXPECT_EQ(NativeWidth, 11);
}

TEST_F(MediaAnswers, ThePositionComesWithTheLength)
{
    world.mci.answer("status " + kAlias + " position", "1500.5");
    world.mci.answer("status " + kAlias + " length", "60000.5");
    EXPECT_EQ(MediaGetPosition(), 1500);
    EXPECT_EQ(MediaLengthMs, 60000);
    EXPECT_THAT(world.mci.sent(), ElementsAre("set " + kAlias + " time format ms", "status " + kAlias + " position",
                                              "status " + kAlias + " length"));
    EXPECT_FALSE(MediaStarted);
}

TEST_F(MediaAnswers, OnlyAFailedLengthMakesThePositionMinusOne)
{
    MediaLengthMs = 5;
    world.mci.answer("status " + kAlias + " position", "1500");
    world.mci.fail("status " + kAlias + " length", 263);
    EXPECT_EQ(MediaGetPosition(), -1);
    EXPECT_EQ(MediaLengthMs, 0) << "the empty answer is a length of 0";

    world.mci.answer("status " + kAlias + " length", "60000");
    world.mci.answer("status " + kAlias + " position", "1500", 263);
    EXPECT_EQ(MediaGetPosition(), 1500);
}

TEST_F(MediaAnswers, ThePositionOfAGivenVideoLeavesTheLengthAlone)
{
    MediaLengthMs = 5;
    world.mci.answer("status " + kOther + " position", "2500");
    EXPECT_EQ(MediaGetPositionAlias(kOther), 2500);
    EXPECT_THAT(world.mci.sent(), ElementsAre("set " + kOther + " time format ms", "status " + kOther + " position"));
    EXPECT_EQ(MediaLengthMs, 5);
    world.mci.answer("status " + kOther + " position", "2500", 263);
    EXPECT_EQ(MediaGetPositionAlias(kOther), 0);
}

TEST_F(MediaAnswers, APositionIsReadUpToTheFirstOtherCharacter)
{
    for (const auto& [answer, position] : std::initializer_list<std::pair<const char*, int>>{
             {"12 ms", 12}, {"", 0}, {"abc", 0}, {" 7", 7}, {"-3", -3}, {"2.5", 2}, {"3.5", 4}}) {
        world.mci.answer("status " + kAlias + " position", answer);
        EXPECT_EQ(MediaGetPosition(), position) << answer;
    }
}

TEST_F(MediaAnswers, ANumberBeyond32BitsIsAnOverflow)
{
    world.mci.answer("status " + kAlias + " length", "2147483648");
    EXPECT_THROW(MediaGetPosition(), RuntimeError);
}

TEST_F(MediaAnswers, AWarmTickAllocatesNothing)
{
    SilentMci silent;
    Services all = services();
    all.mci = &silent;
    installServices(all);
    CurrentAlias = tandrel::quoted("/films/" + std::string(200, 'x') + ".avi");
    MediaGetPosition();
    silent.commands = 0;

    const AllocationCount count;
    const Long position = MediaGetPosition();
    const int allocated = count.soFar();

    EXPECT_EQ(allocated, 0);
    EXPECT_EQ(position, 1500);
    EXPECT_EQ(silent.commands, 3);
}

TEST_F(MediaAnswers, TheCounterOfAllocationsCounts)
{
    const AllocationCount count;
    const auto kept = std::make_unique<std::string>(100, 'x');
    const int allocated = count.soFar();
    EXPECT_EQ(allocated, 2);
    EXPECT_EQ(kept->size(), 100U);
}

TEST_F(MediaAnswers, TheLengthIsReadInFramesAndThenInMilliseconds)
{
    int asked = 0;
    world.mci.otherwise = [&](const std::string& command, std::string& text) {
        if (command.starts_with("status "))
            text = asked++ == 0 ? "2252" : "90061000";
        return 0;
    };
    EXPECT_EQ(MediaGetLength(), "1:01:01");
    EXPECT_THAT(world.mci.sent(), ElementsAre("set " + kAlias + " time format frames", "status " + kAlias + " length",
                                              "set " + kAlias + " time format ms", "status " + kAlias + " length"));
    EXPECT_EQ(MediaFrames, 2252);
    EXPECT_EQ(MediaLengthMs, 90061000) << "the length keeps its milliseconds";
}

TEST_F(MediaAnswers, ALengthThatIsNotAnsweredIsZero)
{
    MediaFrames = MediaLengthMs = 9;
    EXPECT_EQ(MediaGetLength(), "0:00:00");
    EXPECT_EQ(MediaFrames, 0);
    EXPECT_EQ(MediaLengthMs, 0);
}

} // namespace tandrel::test
