// The addresses that share the program.

#include "texts/links.h"

#include <gtest/gtest.h>

#include <string>

namespace tandrel::test
{

TEST(TextsLinks, LettersDigitsAndFourMarksStay)
{
    const std::string plain = "ABCXYZabcxyz0189-._~";
    EXPECT_EQ(percentEncoded(plain), plain);
    EXPECT_EQ(percentEncoded(""), "");
}

TEST(TextsLinks, EveryOtherByteIsThreeCharacters)
{
    int kept = 0;
    for (int code = 0; code < 256; ++code) {
        const std::string byte(1, static_cast<char>(code));
        const std::string encoded = percentEncoded(byte);
        if (encoded == byte) {
            ++kept;
            continue;
        }
        ASSERT_EQ(encoded.size(), 3U) << code;
        EXPECT_EQ(encoded.front(), '%');
        EXPECT_EQ(std::stoi(encoded.substr(1), nullptr, 16), code);
        EXPECT_EQ(encoded.find_first_of("abcdef"), std::string::npos) << "digits are capitals";
    }
    EXPECT_EQ(kept, 26 + 26 + 10 + 4);
}

TEST(TextsLinks, ReservedMarksDoNotEndAValue)
{
    EXPECT_EQ(percentEncoded("a&b#c+d e=f?g/h:i%j"), "a%26b%23c%2Bd%20e%3Df%3Fg%2Fh%3Ai%25j");
    EXPECT_EQ(percentEncoded("!'()*;@,$[]\""), "%21%27%28%29%2A%3B%40%2C%24%5B%5D%22");
}

TEST(TextsLinks, BytesBeyondAsciiAndControlsAreEncodedOneByOne)
{
    EXPECT_EQ(percentEncoded("é€"), "%C3%A9%E2%82%AC");
    EXPECT_EQ(percentEncoded("\xFF\x80"), "%FF%80");
    EXPECT_EQ(percentEncoded(std::string("a\0b\r\n\x7F", 6)), "a%00b%0D%0A%7F");
}

TEST(TextsLinks, EachNetworkHasItsOwnForm)
{
    EXPECT_EQ(facebookLink("Tandrel Player 1.0"),
              "https://www.facebook.com/sharer.php?u=https%3A%2F%2Ftandrel-player.example%2Fdownload"
              "&t=Tandrel%20Player%201.0");
    EXPECT_EQ(twitterLink("Tandrel Player 1.0"),
              "https://twitter.com/share?url=https%3A%2F%2Ftandrel-player.example%2Fdownload"
              "&via=TandrelPlayer&text=Tandrel%20Player%201.0");
    EXPECT_EQ(myspaceLink("Tandrel Player 1.0"),
              "https://myspace.com/post?u=https%3A%2F%2Ftandrel-player.example%2Fdownload"
              "&t=Tandrel%20Player%201.0");
}

TEST(TextsLinks, ATitleCantAddToTheAddress)
{
    for (const auto& link : {facebookLink("&u=x#y"), myspaceLink("&u=x#y")})
        EXPECT_TRUE(link.ends_with("&t=%26u%3Dx%23y")) << link;
    EXPECT_TRUE(twitterLink("&url=x#y").ends_with("&text=%26url%3Dx%23y"));
}

TEST(TextsLinks, TheHomePageIsTheProgramsOwn)
{
    EXPECT_STREQ(kHomePage, "https://tandrel-player.example/");
    EXPECT_STREQ(kSharedPage, "https://tandrel-player.example/download");
}

} // namespace tandrel::test
