// Addresses of local files.

#include "platform/file_address.h"

#include <gmock/gmock.h>

namespace tandrel
{

using ::testing::Eq;
using ::testing::Optional;

TEST(FileAddress, SpellsEveryByteSoThatItComesBack)
{
    EXPECT_EQ(fileAddressOf("/films/a b.mp4"), "file:///films/a%20b.mp4");
    EXPECT_EQ(fileAddressOf("/f/\xC3\xA4%\"|\n\xFF.mp4"), "file:///f/%C3%A4%25%22%7C%0A%FF.mp4");
    std::string all = "/";
    for (int code = 1; code < 256; ++code)
        all += static_cast<char>(code);
    EXPECT_THAT(pathOfFileAddress(fileAddressOf(all)), Optional(all));
}

TEST(FileAddress, OtherAddressesHaveNoPath)
{
    for (const char* address :
         {"", "/a", "a", "http://h/a", "file:", "file:a", "file://elsewhere.invalid/a", "file:///a%00b"})
        EXPECT_THAT(pathOfFileAddress(address), Eq(std::nullopt)) << address;
    EXPECT_THAT(pathOfFileAddress("file:/a"), Optional(std::string("/a")));
    EXPECT_THAT(pathOfFileAddress("file://localhost/a%2"), Optional(std::string("/a%2")));
}

} // namespace tandrel
