// What system this is.

#include "fake_services.h"

#include "desktop/system_facts.h"

#include <gtest/gtest.h>

namespace tandrel::test
{

TEST(SystemFacts, EachRowOfTheTable)
{
    struct Row {
        const char* numbers;
        const char* name;
        const char* token;
    };
    World world;
    for (const Row& row :
         {Row{"1.4.0", "Windows 95", "v95"}, Row{"1.4.10", "Windows 98", "v98"}, Row{"1.4.98", "Windows ME", "vME"},
          Row{"2.3.51", "Windows NT 3", "vNT3"}, Row{"2.4.0", "Windows NT 4", "vNT4"},
          Row{"2.5.0", "Windows 2000", "v2K"}, Row{"2.5.1", "Windows XP", "vXP"}, Row{"2.6.0", "Windows Vista", "vS6"},
          Row{"2.6.1", "Windows Seven", "vS7"}, Row{"2.6.2", "Unknown", "v00"}, Row{"2.10.0", "Unknown", "v00"},
          Row{"2.5", "Unknown", "v00"}, Row{"", "Unknown", "v00"}, Row{"linux", "Unknown", "v00"}}) {
        world.systemFacts.numbers = row.numbers;
        EXPECT_EQ(GetWindowsVersion(), row.name) << row.numbers;
        EXPECT_EQ(WindowsName, row.name) << row.numbers;
        EXPECT_EQ(VersionToken, row.token) << row.numbers;
    }
}

TEST(SystemFacts, ASystemThatCannotTellLeavesWhatThereIs)
{
    class Mute : public FakeSystemFacts
    {
    public:
        std::string version() const override { throw std::runtime_error("no answer"); }
        std::string systemFolder() const override { throw std::runtime_error("no answer"); }
    };
    World world;
    world.systemFacts.numbers = "2.5.1";
    GetWindowsVersion();
    Mute mute;
    Services without = services();
    without.systemFacts = &mute;
    installServices(without);
    EXPECT_EQ(GetWindowsVersion(), "Windows XP");
    EXPECT_EQ(VersionToken, "vXP");
    EXPECT_EQ(GetSystemFolder(), "");
}

TEST(SystemFacts, TheSystemsFolderHas512BytesOfRoom)
{
    World world;
    EXPECT_EQ(GetSystemFolder(), "/system");
    world.systemFacts.folder = std::string(600, 'x');
    EXPECT_EQ(GetSystemFolder(), std::string(512, 'x'));
}

TEST(SystemFacts, NtKeepsItsNumberAndSoIsNoOlderSystem)
{
    EXPECT_FALSE(isOlderSystem("WINDOWS NT 4"));
    EXPECT_TRUE(isOlderSystem("WINDOWS NT"));
    EXPECT_TRUE(isOlderSystem("WINDOWS XP"));
    EXPECT_FALSE(isOlderSystem("UNKNOWN"));
}

} // namespace tandrel::test
