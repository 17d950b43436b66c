// Keys by their names.

#include "toolkit/keys.h"

#include <gmock/gmock.h>

#include <clocale>

namespace tandrel::test
{

namespace
{

struct Written {
    const char* text;
    const char* name;
};

} // namespace

TEST(ToolkitKeys, OneNameForEachWayToWriteAKey)
{
    constexpr Written kWritten[] = {
        {"l", "L"},
        {" L ", "L"},
        {"7", "7"},
        {"ctrl + o", "Ctrl+O"},
        {"SHIFT+CTRL+o", "Ctrl+Shift+O"},
        {"Meta+Shift+Alt+Ctrl+x", "Ctrl+Alt+Shift+Meta+X"},
        {"f11", "F11"},
        {"F24", "F24"},
        {"Shift+F1", "Shift+F1"},
        {"esc", "Escape"},
        {"Return", "Enter"},
        {"PgUp", "PageUp"},
        {"page up", "PageUp"},
        {"Del", "Delete"},
        {"+", "Plus"},
        {"plus", "Plus"},
        {"Ctrl++", "Ctrl+Plus"},
        {"-", "Minus"},
        {".", "Period"},
        {",", "Comma"},
        {"=", "Equal"},
        {"#", "Hash"},
        {"\xC3\xB6", "\xC3\x96"},
        {"\xC3\x96", "\xC3\x96"},
        {"\xC3\xB7", "\xC3\xB7"},
        {"ł", "Ł"},
        {"Ctrl+ş", "Ctrl+Ş"},
        {"ж", "Ж"},
        {"Alt+λ", "Alt+Λ"},
        {"ÿ", "Ÿ"},
        {"ß", "ß"},
        {"あ", "あ"},
        {"Ctrl+Tab", "Ctrl+Tab"},
        {"Ctrl+Shift+Tab", "Ctrl+Shift+Tab"},
    };
    for (const Written& one : kWritten)
        EXPECT_EQ(keyNamed(one.text), Text(one.name)) << one.text;
}

TEST(ToolkitKeys, CapitalsAreTheSameInEveryLanguageOfTheProcess)
{
    for (const char* language : {"C", "C.UTF-8"}) {
        ASSERT_NE(std::setlocale(LC_CTYPE, language), nullptr);
        EXPECT_EQ(keyNamed("ł"), "Ł") << language;
        EXPECT_STREQ(std::setlocale(LC_CTYPE, nullptr), language);
    }
    std::setlocale(LC_CTYPE, "C");
}

TEST(ToolkitKeys, WithCtrlAltOrMetaNothingIsTyped)
{
    for (const char* name : {"Ctrl+P", "Alt+P", "Meta+L", "Shift+Meta+L", "Ctrl+Shift+1"})
        EXPECT_TRUE(typesNothing(name)) << name;
    for (const char* name : {"P", "Shift+P", "1", "Plus", "", "Left"})
        EXPECT_FALSE(typesNothing(name)) << name;
}

TEST(ToolkitKeys, ShiftMakesNoOtherKeyOfWhatTypesASign)
{
    EXPECT_EQ(keyNamed("Shift+1"), "1");
    EXPECT_EQ(keyNamed("Shift+Plus"), "Plus");
    EXPECT_EQ(keyNamed("Shift++"), "Plus");
    EXPECT_EQ(keyNamed("Shift+?"), "?");
    EXPECT_EQ(keyNamed("Shift+L"), "Shift+L");
    EXPECT_EQ(keyNamed("Shift+Left"), "Shift+Left");
}

TEST(ToolkitKeys, WhatIsNoKeyHasNoName)
{
    for (const char* text : {"", " ", "Foo", "F0", "F25", "F1x", "LL", "Ctrl+", "Ctrl", "Ctrl+Ctrl+L", "Hyper+L", "Tab",
                             "Shift+Tab", "\x01", "\xff", "\xC3", "Ctrl+\xff", "+L"})
        EXPECT_EQ(keyNamed(text), std::nullopt) << text;
}

TEST(ToolkitKeys, ANameIsItsOwnName)
{
    for (const NamedKey& key : namedKeys()) {
        const auto name = keyNamed(Text("Ctrl+") + key.name);
        ASSERT_EQ(name, Text("Ctrl+") + key.name);
        EXPECT_EQ(keyNamed(*name), name);
        EXPECT_EQ(keyNamed(shownKey(*name)), name) << "what the user sees can be written";
    }
}

TEST(ToolkitKeys, TheUserSeesSigns)
{
    EXPECT_EQ(shownKey("Ctrl+Plus"), "Ctrl++");
    EXPECT_EQ(shownKey("Comma"), ",");
    EXPECT_EQ(shownKey("Ctrl+Shift+O"), "Ctrl+Shift+O");
    EXPECT_EQ(shownKey("Escape"), "Esc");
}

} // namespace tandrel::test
