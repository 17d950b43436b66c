// Names of picture files, and what is written under them.
#include "platform/pictures/picture_file.h"
#include "platform/pictures/picture_names.h"
#include "platform/xdg/pictures_folder.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tandrel::test
{

namespace fs = std::filesystem;

TEST(PictureNames, HaveTheVideoAndThePlace)
{
    EXPECT_EQ(pictureName("/films/Crossing the strait.mp4", 767.52), "Crossing the strait 0-12-47.520");
    EXPECT_EQ(pictureName("a.b.mkv", 0), "a.b 0-00-00.000");
    EXPECT_EQ(pictureName("/films/none", 36000.0004), "none 10-00-00.000");
    EXPECT_EQ(pictureTime(3661.001), "1:01:01.001");
}

TEST(PictureNames, PlacesThatAreNoneAreTheBeginning)
{
    EXPECT_EQ(pictureTime(-5), "0:00:00.000");
    EXPECT_EQ(pictureTime(std::nan("")), "0:00:00.000");
    EXPECT_EQ(pictureTime(1e300), pictureTime(1e7));
}

TEST(PictureNames, KeepWhatAFileMayBeCalled)
{
    EXPECT_EQ(pictureName("/films/a\nb\x01.mp4", 1), "a b  0-00-01.000");
    EXPECT_EQ(pictureName("/films/.hidden.mp4", 1), "_hidden 0-00-01.000");
    EXPECT_EQ(pictureName("/films/\"a|b\"\xFF.mp4", 1), "\"a|b\"\xFF 0-00-01.000");
}

TEST(PictureNames, AreNotTooLong)
{
    std::string umlauts;
    for (int i = 0; i < 125; ++i)
        umlauts += "ü";
    const std::string name = pictureName("/films/" + umlauts + ".mp4", 1);
    EXPECT_EQ(name, umlauts.substr(0, 200) + " 0-00-01.000");
    const std::string odd = pictureName("/films/x" + umlauts + ".mp4", 1);
    EXPECT_EQ(odd, "x" + umlauts.substr(0, 198) + " 0-00-01.000") << "whole characters";
}

TEST(PictureNames, SheetsAreNamedAfterTheirTime)
{
    ::setenv("TZ", "UTC", 1);
    ::tzset();
    EXPECT_EQ(sheetName(86399), "Contact sheet 1970-01-01 23-59-59");
}

TEST(PictureNames, HaveNothingThatOtherSystemsRefuse)
{
    EXPECT_EQ(nameForAll("a?b:c*d\"e<f>g|h\\i 0-00-01.000"), "a_b_c_d_e_f_g_h_i 0-00-01.000");
    EXPECT_EQ(nameForAll("ü (2) 'x'"), "ü (2) 'x'");
}

TEST(PictureFile, WhatAnEarlierProgramHasLeftUnfinishedGoes)
{
    const TemporaryFolder folder;
    const auto make = [&](const std::string& name, std::chrono::minutes age) {
        std::ofstream(folder.path() + "/" + name) << "x";
        fs::last_write_time(folder.path() + "/" + name, fs::file_time_type::clock::now() - age);
    };
    make(".picture-12-1", std::chrono::minutes(61));
    make(".picture-13-1", std::chrono::minutes(1));
    make("a.png", std::chrono::hours(100));
    make(".other", std::chrono::hours(100));
    removeLeftPictures(folder.path());
    EXPECT_FALSE(fs::exists(folder.path() + "/.picture-12-1"));
    EXPECT_TRUE(fs::exists(folder.path() + "/.picture-13-1")) << "somebody may be writing it";
    EXPECT_TRUE(fs::exists(folder.path() + "/a.png"));
    EXPECT_TRUE(fs::exists(folder.path() + "/.other"));
    removeLeftPictures(folder.path() + "/none");
    EXPECT_FALSE(fs::exists(folder.path() + "/none"));
}

TEST(PictureFile, TakesNobodysPlace)
{
    const TemporaryFolder folder;
    const std::string where = folder.path() + "/new/deep";
    EXPECT_EQ(writePicture(where, "a", ".png", "one").path, where + "/a.png");
    EXPECT_EQ(writePicture(where, "a", ".png", "two").path, where + "/a (2).png");
    EXPECT_EQ(writePicture(where, "a", ".png", "three").path, where + "/a (3).png");
    std::ifstream first(where + "/a.png");
    std::string text;
    std::getline(first, text);
    EXPECT_EQ(text, "one");
    EXPECT_EQ(std::distance(fs::directory_iterator(where), {}), 3) << "nothing else is left there";
}

TEST(PictureFile, ALinkThatLeadsNowhereIsSomebodysToo)
{
    const TemporaryFolder folder;
    fs::create_symlink("/nowhere", folder.path() + "/a.png");
    EXPECT_EQ(writePicture(folder.path(), "a", ".png", "one").path, folder.path() + "/a (2).png");
}

TEST(PictureFile, AFolderThatCannotBeIsTold)
{
    const TemporaryFolder folder;
    std::ofstream(folder.path() + "/file") << "x";
    EXPECT_EQ(writePicture(folder.path() + "/file", "a", ".png", "one").trouble, PictureTrouble::Folder);
    EXPECT_EQ(writePicture(folder.path() + "/file/deeper", "a", ".png", "one").trouble, PictureTrouble::Folder);
    EXPECT_EQ(writePicture("/proc/none", "a", ".png", "one").trouble, PictureTrouble::Folder);
}

TEST(PictureFile, AFullDiskLeavesNothingBehind)
{
    const TemporaryFolder folder;
    // A process of its own has no more room than this.
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{1000, 1000};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        const auto written = writePicture(folder.path(), "a", ".png", std::string(5000, 'x'));
        ::_exit(written.trouble == PictureTrouble::NoRoom ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
    EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST(PicturesFolder, IsThatOfTheDesktop)
{
    const TemporaryFolder folder;
    const auto write = [&](const std::string& text) { std::ofstream(folder.path() + "/user-dirs.dirs") << text; };
    const auto found = [&] { return picturesFolder(folder.path(), "/home/me"); };
    EXPECT_EQ(found(), "/home/me/Pictures") << "without the file";
    write("# comment\nXDG_MUSIC_DIR=\"$HOME/Musik\"\nXDG_PICTURES_DIR=\"$HOME/Bilder\"\n");
    EXPECT_EQ(found(), "/home/me/Bilder");
    write("  XDG_PICTURES_DIR=\"/data/a \\\"b\\\"/\"\n");
    EXPECT_EQ(found(), "/data/a \"b\"");
    write("XDG_PICTURES_DIR=\"$HOME/\"\n");
    EXPECT_EQ(found(), "/home/me/Pictures") << "the home itself stands for none";
    write("XDG_PICTURES_DIR=\"relative\"\n");
    EXPECT_EQ(found(), "/home/me/Pictures");
    write("XDG_PICTURES_DIR=\"");
    EXPECT_EQ(found(), "/home/me/Pictures");
    write(std::string("\0\xFF\n\n\"", 6));
    EXPECT_EQ(found(), "/home/me/Pictures");
}

} // namespace tandrel::test
