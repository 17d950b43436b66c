// The text of a selection, cut into its files.

#include "console/selection.h"

#include <gmock/gmock.h>

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(Selection, ExactlyThatManyBarsAreACancelledDialog)
{
    EXPECT_TRUE(isCancelled(std::string(1026, '|')));
    EXPECT_FALSE(isCancelled(std::string(1025, '|')));
    EXPECT_FALSE(isCancelled(std::string(1027, '|')));
    EXPECT_FALSE(isCancelled(""));
}

TEST(Selection, SeveralFilesAreAFolderItsNamesAndAnEmptyElement)
{
    const Selection cut = parseSelection("/films|a.avi|b.avi|||||");
    EXPECT_EQ(cut.kind, Selection::Kind::Multiple);
    EXPECT_EQ(cut.folder, "/films");
    EXPECT_THAT(cut.elements, ElementsAre("a.avi", "b.avi", ""));
    EXPECT_EQ(cut.upperBound, 3);
    EXPECT_TRUE(cut.ended);
}

TEST(Selection, OneNameInAFolderIsSeveralTooAsTheFolderStandsForItself)
{
    EXPECT_EQ(parseSelection("/films|a.avi||").kind, Selection::Kind::Multiple);
}

TEST(Selection, AnEmptyFolderIsStillAFolder)
{
    const Selection cut = parseSelection("|/a.avi|/b.avi|||");
    EXPECT_EQ(cut.kind, Selection::Kind::Multiple);
    EXPECT_EQ(cut.folder, "");
    EXPECT_THAT(cut.elements, ElementsAre("/a.avi", "/b.avi", ""));
}

TEST(Selection, OnePathEndsAtThePairOfBars)
{
    const Selection cut = parseSelection("/films/a.avi||rest|of||it");
    EXPECT_EQ(cut.kind, Selection::Kind::Single);
    EXPECT_THAT(cut.elements, ElementsAre("/films/a.avi"));
    EXPECT_EQ(cut.upperBound, 1);
    EXPECT_TRUE(cut.ended);
}

TEST(Selection, WithoutAPairAllOfItIsOnePath)
{
    const Selection cut = parseSelection("/films/a|b.avi");
    EXPECT_EQ(cut.kind, Selection::Kind::Single);
    EXPECT_THAT(cut.elements, ElementsAre("/films/a|b.avi"));
    EXPECT_FALSE(cut.ended);
}

TEST(Selection, NothingComesOfAnEmptyTextOfBarsAloneOrOfASingleCharacter)
{
    for (const Text& text : {Text(), Text("||"), Text(1026, '|'), Text("a||"), Text("§||")}) {
        EXPECT_EQ(parseSelection(text).kind, Selection::Kind::None) << text;
        EXPECT_THAT(parseSelection(text).elements, IsEmpty()) << text;
    }
}

TEST(Selection, ABarAloneIsNoResult)
{
    EXPECT_FALSE(hasResult("|"));
    EXPECT_FALSE(hasResult("  | "));
    EXPECT_TRUE(hasResult(""));
    EXPECT_TRUE(hasResult("||"));
    EXPECT_TRUE(hasResult("/films/a.avi||"));
}

} // namespace tandrel::test
