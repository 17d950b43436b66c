// Whole numbers of a told width, and the texts of the toolkit.

#include "toolkit/text.h"
#include "toolkit/types.h"

#include <gmock/gmock.h>

namespace tandrel::test
{

using ::testing::ElementsAre;

template <class Action>
int errorOf(Action action)
{
    try {
        action();
    } catch (const RuntimeError& error) {
        return error.number();
    }
    return 0;
}

TEST(WholeNumbers, IntegerOverflowsBeyond16Bits)
{
    Integer level = 3276;
    EXPECT_EQ(level * 10, 32760);
    EXPECT_EQ(errorOf([] { Integer(3277) * 10; }), error::kOverflow);
    EXPECT_EQ(errorOf([] { Integer(-32768) - 1; }), error::kOverflow);
    EXPECT_EQ(errorOf([] { [[maybe_unused]] Integer high = 32768; }), error::kOverflow);
}

TEST(WholeNumbers, LongOverflowsBeyond32Bits)
{
    EXPECT_EQ(errorOf([] { Long(2147483647) + 1; }), error::kOverflow);
    EXPECT_EQ(errorOf([] { Long(65536) * 65536; }), error::kOverflow);
    EXPECT_EQ(errorOf([] { [[maybe_unused]] Long high = 2147483648.0; }), error::kOverflow);
    EXPECT_EQ(errorOf([] { [[maybe_unused]] Long none = std::nan(""); }), error::kOverflow);
}

TEST(WholeNumbers, FractionsBecomeTheNearestWholeWithTiesToEven)
{
    EXPECT_EQ(Long(2.5), 2);
    EXPECT_EQ(Long(3.5), 4);
    EXPECT_EQ(Long(-2.5), -2);
    EXPECT_EQ(Long(2.51), 3);
    EXPECT_EQ(Integer(0.5), 0);
}

TEST(WholeNumbers, AStepThatOverflowsLeavesTheNumberAsItWas)
{
    Integer counter = 32767;
    EXPECT_EQ(errorOf([&] { counter += 1; }), error::kOverflow);
    EXPECT_EQ(counter, 32767);
}

TEST(WholeNumbers, DivisionByZeroIsAnError)
{
    EXPECT_EQ(errorOf([] { divide(1, 0); }), 11);
}

TEST(Texts, TrimTakesBlanksOnly)
{
    EXPECT_EQ(trim("  a b  "), "a b");
    EXPECT_EQ(trim("\ta "), "\ta");
    EXPECT_EQ(trim("   "), "");
}

TEST(Texts, TheSecondCharacterBeginsBehindTheWholeFirst)
{
    EXPECT_EQ(fromSecondCharacter("§/films/a.avi"), "/films/a.avi");
    EXPECT_EQ(fromSecondCharacter("abc"), "bc");
    EXPECT_EQ(fromSecondCharacter(""), "");
    EXPECT_EQ(fromSecondCharacter("\xFF\xFEz"), "\xFEz");
    EXPECT_EQ(fromSecondCharacter("\xE2\x82"), "\x82") << "a cut sequence counts byte by byte";
}

TEST(Texts, CharactersAreCountedWhole)
{
    EXPECT_EQ(characterCount("§ä€"), 3);
    EXPECT_EQ(characterCount("\xF0\x9F\x8E\xAC"), 1);
    EXPECT_EQ(characterCount("\xC2"), 1);
}

TEST(Texts, NumbersAreReadUpToTheFirstOtherCharacter)
{
    EXPECT_EQ(numberAtFront("12ab"), 12);
    EXPECT_EQ(numberAtFront(" 12.5 x"), 12.5);
    EXPECT_EQ(numberAtFront("-3"), -3);
    EXPECT_EQ(numberAtFront("+4"), 4);
    EXPECT_EQ(numberAtFront(""), 0);
    EXPECT_EQ(numberAtFront("x1"), 0);
    EXPECT_EQ(numberAtFront("1e3"), 1);
}

TEST(Texts, PathsAreCutAtTheLastSeparator)
{
    EXPECT_EQ(fileNameOf("/a/b.avi"), "b.avi");
    EXPECT_EQ(fileNameOf("b.avi"), "b.avi");
    EXPECT_EQ(folderOf("/a/b.avi"), "/a");
    EXPECT_EQ(folderOf("b.avi"), "");
}

TEST(Texts, SplitKeepsEmptyElements) { EXPECT_THAT(split("a||b|", '|'), ElementsAre("a", "", "b", "")); }

TEST(Texts, CapitalsLeaveOtherBytesAlone)
{
    EXPECT_EQ(upper("aZ1é"), "AZ1é");
    EXPECT_EQ(lower("AZ1É"), "az1É");
}

TEST(Texts, QuotesAreTakenOneAtEachEnd)
{
    EXPECT_EQ(withoutQuotes("\"a\""), "a");
    EXPECT_EQ(withoutQuotes("\""), "");
    EXPECT_EQ(withoutQuotes("a"), "a");
    EXPECT_EQ(quoted("a"), "\"a\"");
}

} // namespace tandrel::test
