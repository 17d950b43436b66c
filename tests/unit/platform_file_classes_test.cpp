// What the registry of file classes leaves on the disk: entries of the desktop, types of file, associations.

#include "temporary_folder.h"

#include "desktop/file_classes.h"
#include "platform/xdg/data_folder.h"
#include "platform/xdg/file_class_registry.h"
#include "platform/xdg/mime_apps.h"

#include <gmock/gmock.h>

#include <chrono>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

namespace
{

namespace fs = std::filesystem;

constexpr auto kLimit = std::chrono::seconds(20);

/// Inode and time of change of everything below a folder.
std::vector<std::string> stampsOf(const std::string& folder)
{
    std::vector<std::string> all;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        struct stat facts {
        };
        ::lstat(entry.path().c_str(), &facts);
        all.push_back(entry.path().string() + " " + std::to_string(facts.st_ino) + " " +
                      std::to_string(facts.st_mtim.tv_sec) + "." + std::to_string(facts.st_mtim.tv_nsec));
    }
    std::sort(all.begin(), all.end());
    return all;
}

std::string linesWith(const std::string& text, const std::string& part)
{
    std::istringstream lines(text);
    std::string result;
    for (std::string line; std::getline(lines, line);)
        if (line.find(part) != std::string::npos)
            result += line + "\n";
    return result;
}

class FileClassesOnDisk : public ::testing::Test
{
protected:
    FileClassesOnDisk()
    {
        // The desktop's own programs have their test with the whole player.
        ::setenv("PATH", folder.path("no programs").c_str(), 1);
        fs::create_directories(places.program);
        for (const char* name : {"tandrel-open", "tandrel-player"}) {
            std::ofstream(places.program + "/" + name) << "#!/bin/sh\n";
            ::chmod((places.program + "/" + name).c_str(), 0755);
        }
    }
    ~FileClassesOnDisk() override { ::setenv("PATH", path.c_str(), 1); }

    std::string apps() const { return folder.content("config/mimeapps.list"); }
    std::string entry() const { return folder.content("share/applications/tandrel-player.desktop"); }
    void writeApps(const std::string& content) const
    {
        fs::create_directories(places.config);
        folder.write("config/mimeapps.list", content);
    }

    TemporaryFolder folder;
    FileClassPlaces places{folder.path("share"), folder.path("config"), folder.path("bin"), "<svg/>\n"};
    FileClasses videos{{"AVI", "MP4", "XVID"}, {}, true};
    FileClasses preferred{{"AVI", "MP4", "XVID"}, {"MP4"}, true};

private:
    std::string path = std::getenv("PATH");
};

} // namespace

TEST_F(FileClassesOnDisk, TypesHaveTheNamesThatDesktopsKnow)
{
    EXPECT_THAT(mimeTypesOf({"AVI", "ASF", "MPG", "MPEG", "WMV", "MP4", "MKV", "MOV", "FLV", "3GP", "OGM", "DIVX",
                             "XVID", "WEBM"}),
                ElementsAre("video/x-msvideo", "video/vnd.avi", "application/vnd.ms-asf", "video/x-ms-asf",
                            "video/mpeg", "video/x-ms-wmv", "video/mp4", "video/x-matroska", "video/quicktime",
                            "video/x-flv", "video/3gpp", "video/x-ogm+ogg", "video/webm"));
    EXPECT_THAT(mimeTypesOf({"HDMOV", ""}), IsEmpty());
}

TEST_F(FileClassesOnDisk, WordsOfACommandAreQuotedWhereTheyHaveToBe)
{
    EXPECT_EQ(execWord("/opt/bin/tandrel-open"), "/opt/bin/tandrel-open");
    EXPECT_EQ(execWord("/my films/open"), "\"/my films/open\"");
    EXPECT_EQ(execWord("/a\"b"), R"("/a\\"b")");
    EXPECT_EQ(execWord("/a\\b"), R"("/a\\\\b")");
    EXPECT_EQ(execWord("/a$b`c"), R"("/a\\$b\\`c")");
    EXPECT_EQ(execWord("/100%"), "/100%%");
    EXPECT_EQ(execWord("/a\nb"), R"("/a\nb")");
}

TEST_F(FileClassesOnDisk, EverythingIsPutUnderTheUsersFolders)
{
    putFileClasses(places, preferred);
    EXPECT_THAT(entry(), HasSubstr("\nExec=" + places.program + "/tandrel-open %F\nTryExec=" + places.program +
                                   "/tandrel-open\nIcon=tandrel-player\n"));
    EXPECT_THAT(entry(), HasSubstr("\nMimeType=video/x-msvideo;video/vnd.avi;video/mp4;\n"));
    EXPECT_THAT(entry(), HasSubstr("\nExec=" + places.program + "/tandrel-player DVD\n"));
    const std::string disc = folder.content("share/applications/tandrel-player-disc.desktop");
    EXPECT_THAT(disc, HasSubstr("\nExec=" + places.program + "/tandrel-player DVD\n"));
    EXPECT_THAT(disc, HasSubstr("\nMimeType=x-content/video-dvd;\n"));
    EXPECT_EQ(folder.content("share/icons/hicolor/scalable/apps/tandrel-player.svg"), "<svg/>\n");
    const std::string types = folder.content("share/mime/packages/tandrel-player.xml");
    EXPECT_THAT(linesWith(types, "<glob"), HasSubstr("*.avi\" weight=\"40\"/>\n    <glob pattern=\"*.xvid\""));
    EXPECT_EQ(apps(), "[Added Associations]\n"
                      "video/x-msvideo=tandrel-player.desktop;\n"
                      "video/vnd.avi=tandrel-player.desktop;\n"
                      "video/mp4=tandrel-player.desktop;\n"
                      "x-content/video-dvd=tandrel-player-disc.desktop;\n"
                      "\n"
                      "[Default Applications]\n"
                      "video/mp4=tandrel-player.desktop;\n");
}

TEST_F(FileClassesOnDisk, TheProgramSpeaksToTheUserInSixLanguages)
{
    const std::string text = playerEntry(videos, {"tandrel-open", "tandrel-player"});
    for (const char* language : {"", "[de]", "[es]", "[fr]", "[it]", "[pt]"})
        for (const char* key : {"\nName", "\nGenericName", "\nComment", "\nKeywords"})
            EXPECT_THAT(text, HasSubstr(std::string(key) + language + "=")) << language;
}

TEST_F(FileClassesOnDisk, WithoutTheAnswerNothingIsTheFirstChoice)
{
    putFileClasses(places, videos);
    EXPECT_THAT(apps(), HasSubstr("video/mp4=tandrel-player.desktop;\n"));
    EXPECT_THAT(apps(), Not(HasSubstr("Default Applications")));
}

TEST_F(FileClassesOnDisk, WhatIsRightAlreadyIsNotTouched)
{
    putFileClasses(places, preferred);
    const auto before = stampsOf(folder.path());
    putFileClasses(places, preferred);
    EXPECT_EQ(stampsOf(folder.path()), before);
}

TEST_F(FileClassesOnDisk, AFolderThatNoEntryCanNameLeavesTheSearchToTheDesktop)
{
    places.program = folder.path("bin \xFF");
    fs::rename(folder.path("bin"), places.program);
    putFileClasses(places, videos);
    EXPECT_THAT(entry(), HasSubstr("\nExec=tandrel-open %F\nTryExec=tandrel-open\n"));
}

TEST_F(FileClassesOnDisk, LinesOfOthersAreKept)
{
    writeApps("# mine\n\n[Removed Associations]\nvideo/x-msvideo=tandrel-player.desktop;\n[Default Applications]\n"
              "video/mp4=other.desktop;third.desktop\n# note\ntext/html=browser.desktop\n\n[Own Section]\nx=y\n"
              "[Added Associations]\n video/mp4 = other.desktop\nno line end=1");
    putFileClasses(places, preferred);
    EXPECT_EQ(apps(),
              "# mine\n\n[Removed Associations]\nvideo/x-msvideo=tandrel-player.desktop;\n[Default Applications]\n"
              "video/mp4=tandrel-player.desktop;other.desktop;third.desktop;\n# note\ntext/html=browser.desktop\n\n"
              "[Own Section]\nx=y\n[Added Associations]\nvideo/mp4=other.desktop;tandrel-player.desktop;\n"
              "no line end=1\nvideo/vnd.avi=tandrel-player.desktop;\nx-content/video-dvd=tandrel-player-disc.desktop;"
              "\n");
}

TEST_F(FileClassesOnDisk, ALaterChoiceOfTheUserHoldsOnlyAfterANo)
{
    putFileClasses(places, preferred);
    const std::string other = "[Default Applications]\nvideo/mp4=other.desktop\n";
    writeApps(other);
    putFileClasses(places, videos);
    EXPECT_THAT(apps(), HasSubstr(other));
    putFileClasses(places, preferred);
    EXPECT_THAT(apps(), HasSubstr("[Default Applications]\nvideo/mp4=tandrel-player.desktop;other.desktop;\n"));
}

TEST_F(FileClassesOnDisk, WhereAnotherKindOfFileStandsNothingHappens)
{
    writeApps("");
    fs::remove(folder.path("config/mimeapps.list"));
    ASSERT_EQ(::mkfifo(folder.path("config/mimeapps.list").c_str(), 0600), 0);
    fs::create_directories(folder.path("share/applications/tandrel-player.desktop"));
    fs::create_directories(folder.path("share/icons"));
    folder.write("share/icons/hicolor", "a file");
    putFileClasses(places, preferred);
    EXPECT_TRUE(fs::is_fifo(folder.path("config/mimeapps.list")));
    EXPECT_TRUE(fs::is_directory(folder.path("share/applications/tandrel-player.desktop")));
    EXPECT_EQ(folder.content("share/icons/hicolor"), "a file");
    EXPECT_THAT(folder.content("share/mime/packages/tandrel-player.xml"), HasSubstr("*.mp4")) << "the rest goes on";
}

TEST_F(FileClassesOnDisk, AListThatIsFarTooLongIsNotOurs)
{
    writeApps(std::string(5U << 20, '#'));
    putFileClasses(places, preferred);
    EXPECT_EQ(fs::file_size(folder.path("config/mimeapps.list")), 5U << 20);
}

TEST_F(FileClassesOnDisk, WithoutFoldersToWriteToNothingHappens)
{
    folder.write("file", "x");
    places.share = places.config = folder.path("file/below");
    putFileClasses(places, preferred);
    EXPECT_EQ(folder.content("file"), "x");
    EXPECT_THAT(folder.names(), ElementsAre("bin", "file"));
}

TEST_F(FileClassesOnDisk, AListBehindALinkStaysBehindIt)
{
    writeApps("");
    folder.write("elsewhere", "# mine\n");
    fs::remove(folder.path("config/mimeapps.list"));
    fs::create_symlink(folder.path("elsewhere"), folder.path("config/mimeapps.list"));
    putFileClasses(places, videos);
    EXPECT_TRUE(fs::is_symlink(folder.path("config/mimeapps.list")));
    EXPECT_THAT(folder.content("elsewhere"), HasSubstr("# mine\n\n[Added Associations]\n"));
}

TEST_F(FileClassesOnDisk, TheRegistryMakesTheSameOfWhatAStartWrites)
{
    FileClassRegistry registry(places);
    Services all;
    all.registry = &registry;
    installServices(all);
    const auto begin = std::chrono::steady_clock::now();
    writeFileClasses("/data", true);
    const auto took = std::chrono::steady_clock::now() - begin;
    installServices({});
    const auto done = [&] { return apps().ends_with("video/webm=tandrel-player.desktop;\n"); };
    for (const auto end = begin + kLimit; !done() && std::chrono::steady_clock::now() < end;)
        std::this_thread::yield();
    EXPECT_THAT(apps(), HasSubstr("x-content/video-dvd=tandrel-player-disc.desktop;\n"));
    for (const char* type : {"video/x-msvideo", "video/mpeg", "application/vnd.ms-asf", "video/webm"})
        EXPECT_THAT(apps().substr(apps().find("[Default")), HasSubstr(type + std::string("=tandrel-player.desktop;")));
    EXPECT_LT(took, std::chrono::seconds(2));
    RecordProperty("microseconds",
                   static_cast<int>(std::chrono::duration_cast<std::chrono::microseconds>(took).count()));
}

TEST(MimeAppsText, OfSeveralLinesOfOneTypeTheLastCounts)
{
    MimeApps apps("[Default Applications]\na/b=one;\n[Other]\na/b=x\n[Default Applications]\na/b=two;\n");
    EXPECT_TRUE(apps.lists(MimeApps::kDefault, "a/b", "two"));
    EXPECT_FALSE(apps.lists(MimeApps::kDefault, "a/b", "one"));
    apps.lead(MimeApps::kDefault, "a/b", "new");
    EXPECT_EQ(apps.text(), "[Default Applications]\na/b=one;\n[Other]\na/b=x\n[Default Applications]\na/b=new;two;\n");
}

TEST(MimeAppsText, WhatChangesNothingKeepsEveryByte)
{
    for (const char* text : {"", "\n", "x", "[Default Applications]\r\na/b = me.desktop\r\n\r\n",
                             "[Default Applications]\na/b=me.desktop", "\xFF[\n]=;"}) {
        const MimeApps apps(text);
        EXPECT_EQ(apps.text(), text);
    }
    MimeApps apps("[Default Applications]\r\na/b = me.desktop;x\r\n");
    apps.lead(MimeApps::kDefault, "a/b", "me.desktop");
    apps.append(MimeApps::kDefault, "a/b", "x");
    EXPECT_EQ(apps.text(), "[Default Applications]\r\na/b = me.desktop;x\r\n");
}

TEST(MimeAppsText, NewLinesEndAsTheOthersDo)
{
    MimeApps apps("[Default Applications]\r\nc/d=x\r\n\r\n");
    apps.lead(MimeApps::kDefault, "a/b", "me");
    apps.append(MimeApps::kAdded, "a/b", "me");
    EXPECT_EQ(apps.text(), "[Default Applications]\r\nc/d=x\r\na/b=me;\r\n\r\n[Added Associations]\r\na/b=me;\r\n");
}

TEST(DesktopFoldersTest, AreTheUsersOwnUnlessTheDataFolderIsAnother)
{
    const TemporaryFolder folder;
    const auto of = [](const DesktopFolders& folders) { return folders.share + " " + folders.config; };
    ::unsetenv("TANDREL_HOME");
    ::setenv("XDG_DATA_HOME", "/x/share", 1);
    ::setenv("XDG_CONFIG_HOME", "/x/config", 1);
    EXPECT_EQ(of(desktopFolders(folder.path())), "/x/share /x/config");
    folder.write("portable", "");
    EXPECT_EQ(of(desktopFolders(folder.path())), folder.path("share") + " " + folder.path("config"));
    ::setenv("TANDREL_HOME", "/own/", 1);
    EXPECT_EQ(of(desktopFolders(folder.path())), "/own/share /own/config");
    for (const char* name : {"TANDREL_HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME"})
        ::unsetenv(name);
}

} // namespace tandrel::test
