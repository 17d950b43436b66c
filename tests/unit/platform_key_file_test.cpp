// The file of the keys on the disk.

#include "temporary_folder.h"

#include "platform/xdg/key_file.h"

#include <gmock/gmock.h>

#include <sys/stat.h>

namespace tandrel::test
{

namespace
{

using State = KeyFile::State;

class PlatformKeyFile : public ::testing::Test
{
protected:
    TemporaryFolder folder;
    std::string path = folder.path("settings/keys.ini");
    XdgKeyFile file{path};
};

} // namespace

TEST_F(PlatformKeyFile, WhereThereIsNoneOneIsLeft)
{
    EXPECT_EQ(file.read().state, State::Missing);
    file.leave("# mine\n");
    EXPECT_EQ(folder.content("settings/keys.ini"), "# mine\n");
    EXPECT_EQ(file.read().state, State::There);
    EXPECT_EQ(file.read().text, "# mine\n");
}

TEST_F(PlatformKeyFile, TheUsersFileIsNeverWrittenOver)
{
    file.leave("");
    folder.write("settings/keys.ini", "mute = Q\n");
    file.leave("# mine\n");
    EXPECT_EQ(folder.content("settings/keys.ini"), "mute = Q\n");
}

TEST_F(PlatformKeyFile, ALinkThatLeadsNowhereStays)
{
    file.leave("");
    std::filesystem::remove(path);
    std::filesystem::create_symlink("/nowhere/keys", path);
    EXPECT_EQ(file.read().state, State::Unreadable);
    file.leave("# mine\n");
    EXPECT_TRUE(std::filesystem::is_symlink(path));
}

TEST_F(PlatformKeyFile, WhatIsNoFileCantBeRead)
{
    std::filesystem::create_directories(path);
    EXPECT_EQ(file.read().state, State::Unreadable);
    std::filesystem::remove(path);
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    EXPECT_EQ(file.read().state, State::Unreadable) << "a pipe without a writer would be waited for";
    file.leave("# mine\n");
    EXPECT_EQ(file.read().state, State::Unreadable);
}

TEST_F(PlatformKeyFile, AFileOfTheGreatestLengthIsReadAndALongerOneNot)
{
    file.leave("");
    folder.write("settings/keys.ini", std::string(KeyFile::kMostBytes, '#'));
    EXPECT_EQ(file.read().text.size(), KeyFile::kMostBytes);
    folder.write("settings/keys.ini", std::string(KeyFile::kMostBytes + 1, '#'));
    EXPECT_EQ(file.read().state, State::TooLong);
}

TEST_F(PlatformKeyFile, WhereNothingCanBeWrittenNothingIs)
{
    // A file in the place of the folder hinders even those who may do everything.
    folder.write("settings", "in the way");
    file.leave("# mine\n");
    EXPECT_EQ(folder.content("settings"), "in the way");
    EXPECT_NE(file.read().state, State::There);
}

} // namespace tandrel::test
