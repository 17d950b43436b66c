// Key combinations as texts, and their places on keyboards that a test makes up.
#include "platform/x11/key_combination.h"

#include <gmock/gmock.h>

namespace tandrel
{

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace
{

constexpr std::uint8_t kFirstKey = 8;

/// Four keys of four columns: "q", "1" and "p" where they usually are, and "p" once more on a key of the second layout.
constexpr std::uint32_t kLatin[]{'q', 'Q', 0, 0, '1', '!', 0, 0, 'p', 'P', 0, 0, 'x', 'X', 'p', 'P'};
constexpr KeyboardSymbols kLatinKeyboard{kLatin, 4, kFirstKey};

constexpr std::uint32_t kNumLock = 0xff7f;
constexpr std::uint32_t kScrollLock = 0xff14;
constexpr std::uint32_t kAltLeft = 0xffe9;
constexpr std::uint32_t kSuperRight = 0xffec;

} // namespace

TEST(KeyCombination, NamesModifiersAndAKey)
{
    EXPECT_EQ(parseKeyCombination("Ctrl+Alt+Shift+P"), (KeyCombination{true, true, true, false, 'p'}));
    EXPECT_EQ(parseKeyCombination("Shift+Super+7"), (KeyCombination{false, false, true, true, '7'}));
    EXPECT_EQ(parseKeyCombination("Super+Shift+7"), parseKeyCombination("Shift+Super+7"));
    EXPECT_EQ(parseKeyCombination("A"), (KeyCombination{false, false, false, false, 'a'}));
    EXPECT_EQ(parseKeyCombination("Alt+F1"), (KeyCombination{false, true, false, false, 0xffbe}));
    EXPECT_EQ(parseKeyCombination("F12"), (KeyCombination{false, false, false, false, 0xffc9}));
    EXPECT_EQ(parseKeyCombination("Ctrl+F"), (KeyCombination{true, false, false, false, 'f'}));
}

TEST(KeyCombination, RefusesWhatIsNone)
{
    for (const char* text : {"",
                             "+",
                             "Ctrl",
                             "Ctrl+",
                             "+P",
                             "Ctrl++P",
                             "Ctrl+Ctrl+P",
                             "ctrl+P",
                             "Ctrl+p",
                             "Hyper+P",
                             "Ctrl+P+Q",
                             "Ctrl+PQ",
                             "Ctrl+F0",
                             "Ctrl+F13",
                             "Ctrl+F01",
                             "Ctrl+F1x",
                             "Ctrl+F-1",
                             "Ctrl+F99999999999",
                             "Ctrl+ä",
                             "Ctrl+*",
                             " Ctrl+P",
                             "Ctrl + P",
                             "P+Ctrl"})
        EXPECT_FALSE(parseKeyCombination(text)) << text;
}

TEST(KeyCombination, AKeyIsFoundByItsFirstColumn)
{
    EXPECT_THAT(keysWithSymbol(kLatinKeyboard, 'p'), ElementsAre(10));
    EXPECT_THAT(keysWithSymbol(kLatinKeyboard, '1'), ElementsAre(9));
    EXPECT_THAT(keysWithSymbol(kLatinKeyboard, 'z'), IsEmpty());
}

TEST(KeyCombination, ALetterOfTheSecondLayoutIsFoundWhereTheFirstHasNone)
{
    constexpr std::uint32_t kOtherScript[]{0x6ca, 0x6ea, 'q', 'Q', 0x6da, 0x6fa, 'p', 'P'};
    EXPECT_THAT(keysWithSymbol({kOtherScript, 4, kFirstKey}, 'p'), ElementsAre(9));
}

TEST(KeyCombination, AShiftedDigitAndAnUnshiftedCapitalAreFound)
{
    constexpr std::uint32_t kSymbols[]{'&', '1', 'P', 0};
    EXPECT_THAT(keysWithSymbol({kSymbols, 2, kFirstKey}, '1'), ElementsAre(8));
    EXPECT_THAT(keysWithSymbol({kSymbols, 2, kFirstKey}, 'p'), ElementsAre(9));
}

TEST(KeyCombination, AllKeysOfOneColumnAreFound)
{
    constexpr std::uint32_t kTwice[]{'p', 'P', 'q', 'Q', 'p', 'P'};
    EXPECT_THAT(keysWithSymbol({kTwice, 2, kFirstKey}, 'p'), ElementsAre(8, 10));
}

TEST(KeyCombination, ThirdLayoutsAndEmptyKeyboardsHaveNothing)
{
    constexpr std::uint32_t kWide[]{0, 0, 0, 0, 'p', 'P'};
    EXPECT_THAT(keysWithSymbol({kWide, 6, kFirstKey}, 'p'), IsEmpty());
    EXPECT_THAT(keysWithSymbol({}, 'p'), IsEmpty());
}

TEST(KeyCombination, ModifiersAreWhereTheKeyboardHasThem)
{
    constexpr std::uint32_t kSymbols[]{kNumLock, 0, 0, kAltLeft, kSuperRight, 0, kScrollLock, 0};
    const KeyboardSymbols keyboard{kSymbols, 2, kFirstKey};
    // Two keys for each of Shift, Lock, Control and the five others.
    constexpr std::uint8_t kKeys[]{0, 0, 0, 0, 0, 0, 8, 0, 0, 0, 11, 0, 0, 9, 10, 0};
    const ModifierMasks masks = modifierMasks(keyboard, {kKeys, 2});
    EXPECT_EQ(masks.alt, 64);
    EXPECT_EQ(masks.super, 128);
    EXPECT_THAT(masks.locks, UnorderedElementsAre(2, 8, 32));
    EXPECT_EQ(modifierMask({true, true, true, true, 'p'}, masks), 1 + 4 + 64 + 128);
}

TEST(KeyCombination, AKeyboardThatTellsNothingIsTakenForAUsualOne)
{
    const ModifierMasks masks = modifierMasks({}, {});
    EXPECT_EQ(modifierMask({false, true, false, false, 'p'}, masks), 8);
    EXPECT_EQ(modifierMask({false, false, false, true, 'p'}, masks), 64);
    EXPECT_THAT(masks.locks, ElementsAre(2));
    // Keys that the table of symbols does not reach are none.
    constexpr std::uint8_t kKeys[]{3, 8, 255, 0, 0, 0, 0, 0};
    EXPECT_THAT(modifierMasks(kLatinKeyboard, {kKeys, 1}).locks, ElementsAre(2));
}

TEST(KeyCombination, EveryStateOfTheLocksIsCovered)
{
    EXPECT_THAT(allUnions({}), ElementsAre(0));
    EXPECT_THAT(allUnions({2, 16}), UnorderedElementsAre(0, 2, 16, 18));
    EXPECT_THAT(allUnions({2, 16, 32}), UnorderedElementsAre(0, 2, 16, 18, 32, 34, 48, 50));
}

} // namespace tandrel
